// The region: its loops, what is free, and how outlines become loops.
#include "toolpath/pocket_region.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <numeric>

#include "geometry/end_point_index.h"
#include "geometry/float_points.h"

namespace tess {
namespace {

PlanePoint placeOf(Point p) {
  return {p.x, p.y};
}

double magnitude(PlanePoint p) {
  return std::max(std::abs(p.x), std::abs(p.y));
}

// Loops that come so near touch: coordinates of drawings are 32-bit numbers.
double touchingDistance(double largestNumber) {
  return 1e-6 + 1e-7 * largestNumber;
}

std::vector<Curve> allCurves(const std::vector<RegionLoop>& loops) {
  std::vector<Curve> curves;
  for (const RegionLoop& loop : loops) {
    curves.insert(curves.end(), loop.curves.begin(), loop.curves.end());
  }
  return curves;
}

// ---- Rows into loops

// A row of an outline as it is walked along.
struct OutlineRow {
  Entity entity;
  std::vector<Curve> curves;
  bool closed = false;  // on itself
};

// An arc whose ends are one point is a whole circle, unless it is a tiny arc between two others.
bool turnsWholly(const Entity& arc) {
  if (arc.start == arc.end) return true;
  const PlanePoint from = placeOf(arc.start) - placeOf(arc.center);
  const PlanePoint to = placeOf(arc.end) - placeOf(arc.center);
  return (arc.type == kClockwiseArc ? -1 : 1) * cross(from, to) < 0;
}

class OutlineLoops {
 public:
  OutlineLoops(std::span<const Entity> rows, float tolerence)
      : tolerence_(tolerence), ends_(tolerence) {
    rows_.reserve(rows.size());
    for (const Entity& row : rows) rows_.push_back(read(row));
    ends_.reserve(static_cast<int>(rows_.size()));
    for (std::size_t k = rows_.size(); k-- > 0;) {
      if (!rows_[k].closed) ends_.update(numberOf(k), rows_[k].entity.start, rows_[k].entity.end);
    }
  }

  // Stops at the first fault.
  std::optional<OutlineFault> make() {
    for (std::size_t k = 0; k < rows_.size() && !fault_; ++k) {
      if (hasTwoRadii(rows_[k].entity)) {
        fault_ = {OutlineFault::Kind::TwoRadii, placeOf(rows_[k].entity.start)};
      }
    }
    used_.assign(rows_.size(), false);
    inLoop_.assign(rows_.size(), false);
    for (std::size_t k = 0; k < rows_.size() && !fault_; ++k) {
      if (!used_[k]) walkFrom(k);
    }
    return fault_;
  }

  std::vector<RegionLoop> loops() && { return std::move(loops_); }

 private:
  static int numberOf(std::size_t k) { return static_cast<int>(k) + 1; }
  bool isSame(Point a, Point b) const { return samePoint(a, b, tolerence_); }

  OutlineRow read(const Entity& row) const {
    OutlineRow read{row, {}, false};
    const bool meetsItself = isArc(row.type) && isSame(row.start, row.end);
    if (meetsItself && turnsWholly(row)) read.entity.end = row.start;
    read.closed = row.type == kCircle || row.type == kRectangle || read.entity.start == row.end ||
                  (meetsItself && turnsWholly(row));
    appendCurves(read.entity, read.curves);
    return read;
  }

  static bool hasTwoRadii(const Entity& row) {
    constexpr double kMostApart = 0.001;
    if (!isArc(row.type)) return false;
    const PlanePoint center = placeOf(row.center);
    const double apart = normOf(placeOf(row.start) - center) - normOf(placeOf(row.end) - center);
    return std::abs(apart) > kMostApart;
  }

  // Round the loop of a row.
  void walkFrom(std::size_t first) {
    RegionLoop loop;
    std::size_t row = first;
    bool forwards = true;
    const Point begin = rows_[first].entity.start;
    for (;;) {
      pass(loop, row, forwards);
      const Entity& entity = rows_[row].entity;
      const Point at = forwards ? entity.end : entity.start;
      if (rows_[row].closed || isSame(at, begin)) break;
      const auto next = nextAt(loop, at);
      if (!next) {
        reportOpen(loop, begin, at);
        return;
      }
      row = next->row;
      forwards = next->forwards;
    }
    for (const int source : loop.sources) inLoop_[static_cast<std::size_t>(source)] = true;
    close(std::move(loop));
  }

  struct Going {
    std::size_t row;
    bool forwards;
  };

  // Of several rows the one that turns most to the left: a walk round a free place then keeps to
  // it where loops touch.
  std::optional<Going> nextAt(const RegionLoop& loop, Point at) {
    ends_.rowsAt(at, matches_);
    std::optional<Going> best;
    double bestTurn = 0;
    for (const EndMatch& match : matches_) {
      const auto row = static_cast<std::size_t>(match.row) - 1;
      if (used_[row]) continue;
      const double turn = matches_.size() > 2 ? turnInto(loop, row, match.atStart) : 0;
      if (!best || turn > bestTurn) {
        best = Going{row, match.atStart};
        bestTurn = turn;
      }
    }
    return best;
  }

  double turnInto(const RegionLoop& loop, std::size_t row, bool forwards) const {
    const std::vector<Curve>& curves = rows_[row].curves;
    if (curves.empty() || loop.curves.empty()) return 0;
    const PlanePoint in = directionAt(loop.curves.back(), 1);
    const PlanePoint out =
        forwards ? directionAt(curves.front(), 0) : -1.0 * directionAt(curves.back(), 1);
    const double turn = std::atan2(cross(in, out), dot(in, out));
    constexpr double kBack = 1e-9;  // a way that leads straight back is the last to be taken
    return turn > std::numbers::pi - kBack ? -std::numbers::pi : turn;
  }

  void pass(RegionLoop& loop, std::size_t row, bool forwards) {
    used_[row] = true;
    std::vector<Curve> curves = rows_[row].curves;
    if (!forwards) {
      std::reverse(curves.begin(), curves.end());
      for (Curve& curve : curves) curve = reversed(curve);
    }
    loop.curves.insert(loop.curves.end(), curves.begin(), curves.end());
    loop.sources.insert(loop.sources.end(), curves.size(), static_cast<int>(row));
  }

  // A row that lies on one of a loop already is a duplicate, and a speck is nothing.
  void reportOpen(const RegionLoop& loop, Point begin, Point at) {
    double length = 0;
    for (const Curve& curve : loop.curves) length += lengthOf(curve);
    if (length <= tolerence_ || isDuplicate(begin, at)) return;
    fault_ = {OutlineFault::Kind::Open, placeOf(at)};
  }

  // Ends that are those of a row of a loop.
  bool isDuplicate(Point begin, Point at) {
    ends_.rowsAt(begin, matches_);
    const auto ofLoop = [&](const EndMatch& match) {
      const auto row = static_cast<std::size_t>(match.row) - 1;
      const Entity& entity = rows_[row].entity;
      return inLoop_[row] && isSame(match.atStart ? entity.end : entity.start, at);
    };
    return std::any_of(matches_.begin(), matches_.end(), ofLoop);
  }

  void close(RegionLoop loop);

  float tolerence_;
  std::vector<OutlineRow> rows_;
  EndPointIndex ends_;
  std::vector<EndMatch> matches_;
  std::vector<bool> used_, inLoop_;
  std::vector<RegionLoop> loops_;
  std::optional<OutlineFault> fault_;
};

// Every curve begins where the one before it ends.
void OutlineLoops::close(RegionLoop loop) {
  RegionLoop closed;
  const auto add = [&closed](Curve curve, int source) {
    if (curve.start == curve.end) return;
    closed.curves.push_back(curve);
    closed.sources.push_back(source);
  };
  for (std::size_t k = 0; k < loop.curves.size(); ++k) {
    const Curve& curve = loop.curves[k];
    const PlanePoint start = closed.curves.empty() ? curve.start : closed.curves.back().end;
    const bool last = k + 1 == loop.curves.size();
    const PlanePoint end = last && !closed.curves.empty() ? closed.curves.front().start : curve.end;
    if (start == curve.start && end == curve.end) {
      add(curve, loop.sources[k]);
    } else if (curve.isArc() && normOf(end - start) > 2 * tolerence_) {
      add(arcCurve(start, end, curve.center, curve.turn), loop.sources[k]);
    } else {
      add(lineCurve(start, end), loop.sources[k]);
    }
  }
  if (closed.curves.size() < 2) return;
  closed.area = areaOf(closed.curves);
  loops_.push_back(std::move(closed));
}

// ---- What is a pocket, what an island

// Neighbours share an end, or both; arcs may meet at another place too, and what runs straight back
// meets all along.
bool meetBesidesJoint(const Curve& a, const Curve& b) {
  constexpr double kAtJoint = 1e-5;
  const auto isJoint = [&](PlanePoint at) {
    const auto isEnd = [&](PlanePoint end) { return normOf(at - end) <= kAtJoint; };
    return (isEnd(a.start) || isEnd(a.end)) && (isEnd(b.start) || isEnd(b.end));
  };
  if (!a.isArc() && !b.isArc()) {
    const Curve& shorter = lengthOf(a) < lengthOf(b) ? a : b;
    const Curve& longer = &shorter == &a ? b : a;
    return distanceTo(longer, pointAt(shorter, 0.5)) <= 1e-9;
  }
  const Shares shares =
      b.isArc() ? sharesOnCircle(a, b.center, b.radius) : sharesOnLine(a, b.start, b.end - b.start);
  return std::any_of(shares.begin(), shares.end(), [&](double share) {
    const PlanePoint at = pointAt(a, share);
    return isBeside(b, at) && !isJoint(at);
  });
}

// Whether two walls of one loop share a joint.
bool areNeighbours(const PocketRegion& region, int wall, int later) {
  const int loop = region.loopOf(wall);
  const int first = region.firstWallOf(loop);
  const int last =
      first + static_cast<int>(region.loops()[static_cast<std::size_t>(loop)].curves.size()) - 1;
  return later == wall + 1 || (wall == first && later == last);
}

void lookAtPair(const PocketRegion& region, int wall, int later, double touching,
                PocketRegion::Traits& traits) {
  const Curve& a = region.walls()[static_cast<std::size_t>(wall)];
  const Curve& b = region.walls()[static_cast<std::size_t>(later)];
  const bool sameLoop = region.loopOf(wall) == region.loopOf(later);
  if (sameLoop && areNeighbours(region, wall, later)) {
    traits.crossesSelf |= meetBesidesJoint(a, b);
  } else if (gapBetween(a, b).distance <= touching) {
    (sameLoop ? traits.crossesSelf : traits.overlaps) = true;
  }
}

// Which curves of the loops meet others than their neighbours.
PocketRegion::Traits meetingsOf(const PocketRegion& region) {
  const double touching = touchingDistance(region.largestNumber());
  PocketRegion::Traits traits;
  std::vector<int> found;
  for (int wall = 0; wall < static_cast<int>(region.walls().size()); ++wall) {
    region.index().candidates(region.walls()[static_cast<std::size_t>(wall)], touching, found);
    for (const int other : found) {
      if (other > wall) lookAtPair(region, wall, other, touching, traits);
    }
  }
  return traits;
}

// Three places of each curve.
template <typename Visit>
void forSamplesOf(const RegionLoop& loop, Visit visit) {
  for (const Curve& curve : loop.curves) {
    for (const double share : {0.25, 0.5, 0.75}) visit(pointAt(curve, share));
  }
}

class LoopSorter {
 public:
  explicit LoopSorter(const PocketRegion& region, bool overlaps)
      : region_(region), overlaps_(overlaps), touching_(touchingDistance(region.largestNumber())) {}

  enum class Kind { Pocket, Island, Duplicate };

  // To be asked from the largest loop to the smallest.
  Kind kindOf(int loop) {
    const Kind kind = judge(loop);
    if (kind == Kind::Duplicate) duplicates_.push_back(loop);
    return kind;
  }

 private:
  Kind judge(int loop) {
    const RegionLoop& of = region_.loops()[static_cast<std::size_t>(loop)];
    if (!overlaps_)
      return isEnclosedOdd(pointAt(of.curves.front(), 0.5), loop) ? Kind::Island : Kind::Pocket;
    int even = 0;
    int odd = 0;
    forSamplesOf(of, [&](PlanePoint at) {
      if (!liesOnLarger(at, loop)) ++(isEnclosedOdd(at, loop) ? odd : even);
    });
    if (odd == 0 && even == 0 && equalsLarger(loop)) return Kind::Duplicate;
    return odd > 0 ? Kind::Island : Kind::Pocket;
  }

  bool isEnclosedOdd(PlanePoint at, int loop) {
    const std::vector<int> round = region_.loopsRound(at);
    return std::count_if(round.begin(), round.end(),
                         [&](int r) {
                           return r < loop &&
                                  !std::binary_search(duplicates_.begin(), duplicates_.end(), r);
                         }) %
               2 !=
           0;
  }
  bool liesOnLarger(PlanePoint at, int loop) {
    region_.index().candidates(lineCurve(at, at), touching_, found_);
    return std::any_of(found_.begin(), found_.end(), [&](int wall) {
      return region_.loopOf(wall) < loop &&
             distanceTo(region_.walls()[static_cast<std::size_t>(wall)], at) <= touching_;
    });
  }
  bool equalsLarger(int loop) const {
    const double area = std::abs(region_.loops()[static_cast<std::size_t>(loop)].area);
    const double larger = std::abs(region_.loops()[static_cast<std::size_t>(loop) - 1].area);
    return larger - area <= touching_ * std::max(1.0, std::sqrt(larger));
  }

  const PocketRegion& region_;
  bool overlaps_;
  double touching_;
  std::vector<int> found_;
  std::vector<int> duplicates_;  // ascending
};

}  // namespace

double largestNumberOf(const Curve& curve) {
  const double ends = std::max(magnitude(curve.start), magnitude(curve.end));
  return curve.isArc() ? std::max({ends, magnitude(curve.center), curve.radius}) : ends;
}

RegionLoop reversedLoop(const RegionLoop& loop) {
  RegionLoop back{loop.curves, loop.sources, -loop.area};
  std::reverse(back.curves.begin(), back.curves.end());
  std::reverse(back.sources.begin(), back.sources.end());
  for (Curve& curve : back.curves) curve = reversed(curve);
  return back;
}

PocketRegion::PocketRegion(std::vector<RegionLoop> loops, Traits traits)
    : loops_(std::move(loops)), traits_(traits) {
  std::stable_sort(loops_.begin(), loops_.end(), [](const RegionLoop& a, const RegionLoop& b) {
    return std::abs(a.area) > std::abs(b.area);
  });
  for (std::size_t k = 0; k < loops_.size(); ++k) {
    firstWall_.push_back(static_cast<int>(loopOfWall_.size()));
    loopOfWall_.insert(loopOfWall_.end(), loops_[k].curves.size(), static_cast<int>(k));
  }
}

double PocketRegion::largestNumber() const {
  double largest = 0;
  for (const RegionLoop& loop : loops_) {
    for (const Curve& wall : loop.curves) largest = std::max(largest, largestNumberOf(wall));
  }
  return largest;
}

const CurveIndex& PocketRegion::index() const {
  if (!index_) index_.emplace(allCurves(loops_));
  return *index_;
}

const LevelBands& PocketRegion::bands() const {
  if (!bands_) bands_.emplace(walls());
  return *bands_;
}

double PocketRegion::area() const {
  return std::accumulate(loops_.begin(), loops_.end(), 0.0,
                         [](double sum, const RegionLoop& loop) { return sum + loop.area; });
}

std::vector<int> PocketRegion::loopsRound(PlanePoint at) const {
  std::vector<int> round;
  bands().crossedLeftOf(at, round);
  for (int& wall : round) wall = loopOf(wall);
  std::sort(round.begin(), round.end());
  // What is crossed an even number of times lies beside the place.
  std::size_t kept = 0;
  for (std::size_t k = 0; k < round.size();) {
    const std::size_t first = k;
    while (k < round.size() && round[k] == round[first]) ++k;
    if ((k - first) % 2 != 0) round[kept++] = round[first];
  }
  round.resize(kept);
  return round;
}

bool PocketRegion::isFree(PlanePoint at) const {
  const std::vector<int> round = loopsRound(at);
  if (round.empty()) return traits_.unbounded;
  return loops_[static_cast<std::size_t>(round.back())].area >= 0;
}

bool PocketRegion::isClear(const Curve& curve, double distance) const {
  std::vector<int> found;
  index().candidates(curve, distance, found);
  const bool near = std::any_of(found.begin(), found.end(), [&](int wall) {
    return gapBetween(curve, walls()[static_cast<std::size_t>(wall)]).distance < distance;
  });
  return !near && isFree(pointAt(curve, 0.5));
}

OutlineRegion regionOf(std::span<const Entity> rows, float tolerence, bool outside) {
  OutlineLoops outlines(rows, tolerence);
  if (const auto fault = outlines.make()) return {{}, fault};
  const PocketRegion drawn(std::move(outlines).loops(), {});
  PocketRegion::Traits traits = meetingsOf(drawn);
  traits.unbounded = outside;
  LoopSorter sorter(drawn, traits.overlaps);
  std::vector<RegionLoop> loops;
  for (std::size_t k = 0; k < drawn.loops().size(); ++k) {
    const LoopSorter::Kind kind = sorter.kindOf(static_cast<int>(k));
    if (kind == LoopSorter::Kind::Duplicate) continue;
    const RegionLoop& loop = drawn.loops()[k];
    const bool counterClockwise = (kind == LoopSorter::Kind::Pocket) != outside;
    loops.push_back((loop.area >= 0) == counterClockwise ? loop : reversedLoop(loop));
  }
  return {PocketRegion(std::move(loops), traits), {}};
}

}  // namespace tess
