// Offsets of regions: candidates, what is free of each, and how the free stretches join to loops.
#include "toolpath/region_offset.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <compare>
#include <cstdint>
#include <numbers>
#include <numeric>
#include <optional>

#include "toolpath/forbidden_shares.h"

namespace tess {
namespace {

// How far a place may be nearer to a wall than the distance, by rounding alone.
constexpr double kSlack = 2e-11;
constexpr double kSlackMagnitude = 1e4;  // of numbers, beyond which it grows with them
// A joint that turns right by more than this gets an arc, in radians.
constexpr double kLeastTurn = 1e-9;
// Within this of a half turn nobody can say which way it goes.
constexpr double kBackTurn = 1e-6;
// Beyond this turn the rows beside a joint may come close to its arc.
constexpr double kSharpTurn = 3;
constexpr double kSmallestArc = 1e-12;
// Ends this near to each other are one place.
constexpr double kSamePlace = 1e-9;

struct Measures {
  double distance;
  double slack;     // of distances
  double shortest;  // tangent joints leave tails up to this length
  double reach;     // ends that belong together are no farther apart

  Measures(double d, double largestNumber)
      : distance(d),
        slack(kSlack * std::max(1.0, std::max(largestNumber, d) / kSlackMagnitude)),
        shortest(std::max(1e-5, 2 * std::sqrt(8 * slack * d * std::max(1.0, d)))),
        reach(std::max(1e-4, 10 * shortest)) {}
};

// A displaced wall, or an arc round a corner. Some walls are known to be no nearer than the
// distance: its own, and lines beside it where the joint turns away.
struct Candidate {
  Curve curve;
  int source = 0;  // a wall
  std::array<int, 3> spared = {-1, -1, -1};
  bool isSpared(int wall) const {
    return wall == spared[0] || wall == spared[1] || wall == spared[2];
  }
};

// A free stretch of a candidate.
struct Piece {
  Curve curve;
  int source = 0;
  int next = -1;       // the piece that goes on where it ends
  bool taken = false;  // another one goes on with this
};

// ---- Candidates

PlanePoint leftNormal(const Curve& curve, double share) {
  return leftOf(directionAt(curve, share));
}

std::optional<Curve> displaced(const Curve& wall, double distance) {
  if (!wall.isArc()) {
    const PlanePoint aside = distance * leftNormal(wall, 0);
    return lineCurve(wall.start + aside, wall.end + aside);
  }
  // Counter-clockwise the centre is on the left.
  const double radius = wall.radius - wall.turn * distance;
  if (radius <= kSmallestArc) return std::nullopt;
  const double ratio = radius / wall.radius;
  return Curve{wall.center + ratio * (wall.start - wall.center),
               wall.center + ratio * (wall.end - wall.center), wall.center, radius, wall.turn};
}

// By which the joint turns left, in radians.
double turnBetween(const Curve& before, const Curve& after) {
  const PlanePoint in = directionAt(before, 1);
  const PlanePoint out = directionAt(after, 0);
  const double turn = std::atan2(cross(in, out), dot(in, out));
  return turn > std::numbers::pi - kBackTurn ? -turn : turn;
}

// Whether the rows at a joint, if they are lines, keep clear of each other's candidates.
bool turnsAway(double turn) {
  return turn <= kLeastTurn && turn > -kSharpTurn;
}

int sparedAt(const Curve& neighbour, int wall, double turn) {
  return !neighbour.isArc() && turnsAway(turn) ? wall : -1;
}

class CandidateList {
 public:
  CandidateList(double distance, const std::vector<Curve>& walls)
      : distance_(distance), walls_(walls) {}

  // The walls with these numbers, one after the other, run from end to start if `reverse`.
  void add(const std::vector<int>& numbers, bool closed, bool reverse) {
    const auto wall = [&](std::size_t k) {
      const Curve& curve = walls_[static_cast<std::size_t>(numbers[k])];
      return reverse ? reversed(curve) : curve;
    };
    const std::size_t count = numbers.size();
    const std::size_t joints = closed ? count : count - 1;
    std::vector<double> turns(count, -kSharpTurn);  // behind each; a loose end spares nothing
    for (std::size_t k = 0; k < joints; ++k) turns[k] = turnBetween(wall(k), wall((k + 1) % count));
    for (std::size_t k = 0; k < count; ++k) {
      const std::size_t before = (k + count - 1) % count;
      const std::size_t after = (k + 1) % count;
      if (const auto curve = displaced(wall(k), distance_)) {
        candidates_.push_back({*curve,
                               numbers[k],
                               {numbers[k], sparedAt(wall(before), numbers[before], turns[before]),
                                sparedAt(wall(after), numbers[after], turns[k])}});
      }
      if (k < joints && turns[k] < -kLeastTurn) {
        addCorner(wall(k), wall(after), numbers[k],
                  {sparedAt(wall(k), numbers[k], turns[k]),
                   sparedAt(wall(after), numbers[after], turns[k]), -1});
      }
    }
    chainEnds_.push_back(static_cast<int>(candidates_.size()));
  }

  const std::vector<Candidate>& all() const { return candidates_; }
  // Behind the last candidate of each chain.
  const std::vector<int>& chainEnds() const { return chainEnds_; }

 private:
  void addCorner(const Curve& before, const Curve& after, int source, std::array<int, 3> spared) {
    const PlanePoint vertex = before.end;
    const PlanePoint start = vertex + distance_ * leftNormal(before, 1);
    const PlanePoint end = vertex + distance_ * leftNormal(after, 0);
    if (start == end) return;
    candidates_.push_back({{start, end, vertex, distance_, -1}, source, spared});
  }

  double distance_;
  const std::vector<Curve>& walls_;
  std::vector<Candidate> candidates_;
  std::vector<int> chainEnds_;
};

// ---- Free stretches

// Walls that lie on one another have one candidate where both lie: that of the lower one.
bool isSameLineOrCircle(const Curve& a, const Curve& b) {
  if (a.turn != b.turn) return false;
  if (a.isArc()) {
    return normOf(a.center - b.center) <= kSamePlace && std::abs(a.radius - b.radius) <= kSamePlace;
  }
  const PlanePoint along = directionAt(a, 0);
  return dot(along, directionAt(b, 0)) > 0 &&
         std::abs(cross(along, b.start - a.start)) <= kSamePlace &&
         std::abs(cross(along, b.end - a.start)) <= kSamePlace;
}

class FreeStretches {
 public:
  FreeStretches(const CurveIndex& walls, const Measures& measures, bool overlaps)
      : walls_(walls), measures_(measures), overlaps_(overlaps) {}

  // Appends what no wall forbids.
  void of(const Candidate& candidate, std::vector<Piece>& pieces) {
    const Curve& curve = candidate.curve;
    forbidden_.clear();
    walls_.candidates(curve, measures_.distance, near_);
    for (const int number : near_) {
      if (candidate.isSpared(number)) continue;
      const Curve& wall = walls_.curves()[static_cast<std::size_t>(number)];
      appendForbidden(curve, wall, measures_.distance - measures_.slack, forbidden_);
      if (overlaps_ && number < candidate.source) leaveToOwner(candidate, wall);
    }
    if (forbidden_.empty()) {
      add(candidate, {0, 1}, pieces);
      return;
    }
    std::sort(forbidden_.begin(), forbidden_.end(),
              [](const ShareRange& a, const ShareRange& b) { return a.from < b.from; });
    double from = 0;
    for (const ShareRange& range : forbidden_) {
      add(candidate, {from, range.from}, pieces);
      from = std::max(from, range.to);
    }
    add(candidate, {from, 1}, pieces);
  }

 private:
  void leaveToOwner(const Candidate& candidate, const Curve& wall) {
    const Curve& own = walls_.curves()[static_cast<std::size_t>(candidate.source)];
    if (!isSameLineOrCircle(own, wall)) return;
    const double from = shareOf(own, isBeside(own, wall.start) ? wall.start : own.start);
    const double to = shareOf(own, isBeside(own, wall.end) ? wall.end : own.end);
    const bool lies = isBeside(own, pointAt(wall, 0.5)) || isBeside(wall, pointAt(own, 0.5));
    if (lies && from < to) forbidden_.push_back({from, to});
  }

  void add(const Candidate& candidate, ShareRange range, std::vector<Piece>& pieces) const {
    if (!(range.from < range.to)) return;
    const bool whole = range.from <= 0 && range.to >= 1;
    const Curve part = whole ? candidate.curve : partOf(candidate.curve, range.from, range.to);
    if (lengthOf(part) >= measures_.shortest) pieces.push_back({part, candidate.source});
  }

  const CurveIndex& walls_;
  const Measures& measures_;
  bool overlaps_;
  std::vector<int> near_;
  std::vector<ShareRange> forbidden_;
};

// ---- Joining

double gapOf(const Piece& before, const Piece& after) {
  return normOf(after.curve.start - before.curve.end);
}

// Places of a plane by cells.
class CellMap {
 public:
  explicit CellMap(double size) : size_(size) {}
  void add(PlanePoint at, int number) { items_.push_back({keyOf(cell(at.x), cell(at.y)), number}); }
  void close() { std::sort(items_.begin(), items_.end()); }

  // Whatever lies in the cell of a place or beside it.
  template <typename Visit>
  void around(PlanePoint at, Visit visit) const {
    const std::int64_t column = cell(at.x);
    const std::int64_t row = cell(at.y);
    for (std::int64_t c = column - 1; c <= column + 1; ++c) {
      for (std::int64_t r = row - 1; r <= row + 1; ++r) {
        const std::pair<std::uint64_t, int> first{keyOf(c, r), 0};
        for (auto it = std::lower_bound(items_.begin(), items_.end(), first);
             it != items_.end() && it->first == first.first; ++it) {
          visit(it->second);
        }
      }
    }
  }

 private:
  std::int64_t cell(double value) const { return std::llround(std::floor(value / size_)); }
  // Cells that share a key do no harm: distances decide.
  static std::uint64_t keyOf(std::int64_t column, std::int64_t row) {
    return static_cast<std::uint64_t>(column) * 0x9E3779B97F4A7C15U +
           static_cast<std::uint64_t>(row);
  }
  double size_;
  std::vector<std::pair<std::uint64_t, int>> items_;
};

class Joiner {
 public:
  Joiner(std::vector<Piece>& pieces, const Measures& measures)
      : pieces_(pieces), measures_(measures) {}

  // The next free stretch on the way is nearly always what goes on.
  void joinAlong(std::size_t first, std::size_t last) {
    for (std::size_t k = first; k < last; ++k) {
      const std::size_t after = k + 1 < last ? k + 1 : first;
      if (after != k && gapOf(pieces_[k], pieces_[after]) <= kSamePlace) join(k, after);
    }
  }

  // The smallest gaps first.
  void joinNear() {
    collectLoose();
    std::vector<Gap> gaps;
    CellMap starts(measures_.reach);
    for (const int start : starts_) starts.add(at(start).curve.start, start);
    starts.close();
    for (const int end : ends_) {
      starts.around(at(end).curve.end, [&](int start) {
        const double gap = gapOf(at(end), at(start));
        if (start != end && gap <= measures_.reach) gaps.push_back({gap, end, start});
      });
    }
    joinInOrder(gaps);
  }

  // What is left takes the nearest, within ten times the reach.
  void joinRest() {
    constexpr std::size_t kMostPairs = 1'000'000;
    constexpr double kFarthest = 10;
    collectLoose();
    if (ends_.size() * starts_.size() > kMostPairs) return;
    std::vector<Gap> gaps;
    for (const int end : ends_) {
      for (const int start : starts_) {
        const double gap = gapOf(at(end), at(start));
        if (start != end && gap <= kFarthest * measures_.reach) gaps.push_back({gap, end, start});
      }
    }
    joinInOrder(gaps);
  }

 private:
  struct Gap {
    double gap;
    int end, start;
    auto operator<=>(const Gap&) const = default;
  };

  Piece& at(int k) { return pieces_[static_cast<std::size_t>(k)]; }

  void join(std::size_t before, std::size_t after) {
    if (pieces_[before].next >= 0 || pieces_[after].taken) return;
    pieces_[before].next = static_cast<int>(after);
    pieces_[after].taken = true;
  }

  void collectLoose() {
    ends_.clear();
    starts_.clear();
    for (std::size_t k = 0; k < pieces_.size(); ++k) {
      if (pieces_[k].next < 0) ends_.push_back(static_cast<int>(k));
      if (!pieces_[k].taken) starts_.push_back(static_cast<int>(k));
    }
  }

  void joinInOrder(std::vector<Gap>& gaps) {
    std::sort(gaps.begin(), gaps.end());
    for (const Gap& gap : gaps) {
      join(static_cast<std::size_t>(gap.end), static_cast<std::size_t>(gap.start));
    }
  }

  std::vector<Piece>& pieces_;
  const Measures& measures_;
  std::vector<int> ends_, starts_;
};

// ---- Loops

// The curve's own line or circle near its end, or its start, as far as `reach` on either side.
Curve around(const Curve& curve, double share, double reach) {
  const PlanePoint at = pointAt(curve, share);
  const PlanePoint along = directionAt(curve, share);
  if (!curve.isArc()) return lineCurve(at - reach * along, at + reach * along);
  const double angle = std::min(reach / curve.radius, 1.0);
  const PlanePoint outward = at - curve.center;
  const double c = std::cos(angle);
  const double s = curve.turn * std::sin(angle);
  return {curve.center + c * outward - s * leftOf(outward),
          curve.center + c * outward + s * leftOf(outward), curve.center, curve.radius, curve.turn};
}

// Where one piece passes into the next: where they cross, if they do so close by.
PlanePoint jointOf(const Curve& before, const Curve& after) {
  const PlanePoint middle = 0.5 * (before.end + after.start);
  const double gap = normOf(after.start - before.end);
  constexpr double kExactly = 1e-12;
  if (gap <= kExactly) return before.end;
  const Curve end = around(before, 1, 2 * gap);
  const Shares shares = after.isArc() ? sharesOnCircle(end, after.center, after.radius)
                                      : sharesOnLine(end, after.start, after.end - after.start);
  PlanePoint best = middle;
  double nearest = 2 * gap;
  for (const double share : shares) {
    const PlanePoint at = pointAt(end, share);
    if (normOf(at - middle) >= nearest) continue;
    nearest = normOf(at - middle);
    best = at;
  }
  return best;
}

// The curve between joints that lie at its ends, or nearly. An arc that the joints would turn round
// is a line.
Curve between(const Curve& curve, PlanePoint start, PlanePoint end) {
  if (!curve.isArc()) return lineCurve(start, end);
  if (start == curve.start && end == curve.end) return curve;
  const double moved = normOf(start - curve.start) + normOf(end - curve.end);
  if (lengthOf(curve) <= 4 * moved) return lineCurve(start, end);
  return arcCurve(start, end, curve.center, curve.turn);
}

class LoopAssembly {
 public:
  explicit LoopAssembly(const std::vector<Piece>& pieces) : pieces_(pieces) {
    joints_.resize(pieces.size());
    for (std::size_t k = 0; k < pieces.size(); ++k) {
      const int next = pieces[k].next;
      if (next < 0) continue;
      const auto after = static_cast<std::size_t>(next);
      joints_[after] = jointOf(pieces[k].curve, pieces[after].curve);
    }
    used_.assign(pieces.size(), false);
  }

  // From a piece, all round; nothing for one that was passed, and a place where a loop stays open.
  std::optional<RegionLoop> loopFrom(std::size_t first, std::vector<PlanePoint>& lost) {
    if (used_[first]) return std::nullopt;
    RegionLoop loop;
    for (std::size_t k = first;;) {
      used_[k] = true;
      const int next = pieces_[k].next;
      if (next < 0 || !pieces_[k].taken) {
        lost.push_back(pieces_[k].curve.end);
        return std::nullopt;
      }
      const auto after = static_cast<std::size_t>(next);
      append(loop, between(pieces_[k].curve, joints_[k], joints_[after]), pieces_[k].source);
      if (after == first) break;
      if (used_[after]) return std::nullopt;
      k = after;
    }
    if (loop.curves.size() < 2) return std::nullopt;
    loop.area = areaOf(loop.curves);
    return loop;
  }

 private:
  static void append(RegionLoop& loop, const Curve& curve, int source) {
    if (curve.start == curve.end) return;
    loop.curves.push_back(curve);
    loop.sources.push_back(source);
  }

  const std::vector<Piece>& pieces_;
  std::vector<PlanePoint> joints_;  // where each piece begins
  std::vector<bool> used_;
};

// All of a loop lies on one side of all walls, since no wall is near.
PlanePoint placeOn(const RegionLoop& loop) {
  const auto longest =
      std::max_element(loop.curves.begin(), loop.curves.end(),
                       [](const Curve& a, const Curve& b) { return lengthOf(a) < lengthOf(b); });
  return pointAt(*longest, 0.5);
}

// A hole goes round something at the distance; what is smaller than that is a thin room, whatever
// sign rounding gave its area.
void settleArea(RegionLoop& loop, double distance) {
  if (std::abs(loop.area) < distance * distance) loop.area = std::max(loop.area, 0.0);
}

std::vector<int> wallsOfLoop(const PocketRegion& region, int loop) {
  std::vector<int> walls(region.loops()[static_cast<std::size_t>(loop)].curves.size());
  std::iota(walls.begin(), walls.end(), region.firstWallOf(loop));
  return walls;
}

CandidateList candidatesOf(const PocketRegion& region, double distance) {
  CandidateList candidates(distance, region.walls());
  for (int loop = 0; loop < static_cast<int>(region.loops().size()); ++loop) {
    std::vector<int> walls = wallsOfLoop(region, loop);
    candidates.add(walls, /*closed=*/true, /*reverse=*/false);
    if (!region.traits().crossesSelf) continue;
    std::reverse(walls.begin(), walls.end());
    candidates.add(walls, /*closed=*/true, /*reverse=*/true);
  }
  return candidates;
}

std::vector<Piece> freePieces(const CandidateList& candidates, const CurveIndex& walls,
                              const Measures& measures, bool overlaps) {
  std::vector<Piece> pieces;
  FreeStretches stretches(walls, measures, overlaps);
  Joiner joiner(pieces, measures);
  std::size_t candidate = 0;
  for (const int end : candidates.chainEnds()) {
    const std::size_t first = pieces.size();
    for (; candidate < static_cast<std::size_t>(end); ++candidate) {
      stretches.of(candidates.all()[candidate], pieces);
    }
    joiner.joinAlong(first, pieces.size());
  }
  return pieces;
}

// The region itself, unless its loops run into one another.
bool isItsOwnOffset(const PocketRegion& region, double distance) {
  constexpr double kNothing = 1e-9;
  return distance < kNothing && !region.traits().crossesSelf && !region.traits().overlaps;
}

// ---- Rooms

// A few places of a loop.
template <typename Visit>
void forPlacesOf(const RegionLoop& loop, Visit visit) {
  constexpr std::size_t kMostRows = 32;
  const std::size_t step = std::max<std::size_t>(1, loop.curves.size() / kMostRows);
  for (std::size_t k = 0; k < loop.curves.size(); k += step) {
    for (const double share : {0.25, 0.5, 0.75}) visit(pointAt(loop.curves[k], share));
  }
}

bool isOuter(const PocketRegion& region, int loop) {
  return region.loops()[static_cast<std::size_t>(loop)].area >= 0;
}

}  // namespace

// One place alone may lie exactly on another loop.
int outerRound(const PocketRegion& region, const RegionLoop& loop, int number) {
  std::vector<int> votes(region.loops().size(), 0);
  int best = -1;
  forPlacesOf(loop, [&](PlanePoint at) {
    const std::vector<int> round = region.loopsRound(at);
    const auto outer = std::find_if(round.rbegin(), round.rend(),
                                    [&](int r) { return r != number && isOuter(region, r); });
    if (outer == round.rend()) return;
    const int votesNow = ++votes[static_cast<std::size_t>(*outer)];
    if (best < 0 || votesNow > votes[static_cast<std::size_t>(best)]) best = *outer;
  });
  return best;
}

RegionOffset offsetRegion(const PocketRegion& region, double distance) {
  if (isItsOwnOffset(region, distance)) return {region, {}};
  constexpr double kLeast = 1e-6;
  const Measures measures(std::max(distance, kLeast), region.largestNumber());
  const CandidateList candidates = candidatesOf(region, measures.distance);
  const bool overlaps = region.traits().overlaps || region.traits().crossesSelf;
  std::vector<Piece> pieces = freePieces(candidates, region.index(), measures, overlaps);
  Joiner joiner(pieces, measures);
  joiner.joinNear();
  joiner.joinRest();
  RegionOffset offset;
  std::vector<RegionLoop> loops;
  LoopAssembly assembly(pieces);
  for (std::size_t k = 0; k < pieces.size(); ++k) {
    auto loop = assembly.loopFrom(k, offset.lost);
    if (!loop || !region.isFree(placeOn(*loop))) continue;
    settleArea(*loop, measures.distance);
    loops.push_back(std::move(*loop));
  }
  std::erase_if(offset.lost, [&](PlanePoint at) { return !region.isFree(at); });
  offset.region = PocketRegion(std::move(loops), {.unbounded = region.traits().unbounded});
  return offset;
}

RegionOffset fittedOffset(const PocketRegion& region, double distance) {
  RegionOffset offset = offsetRegion(region, distance);
  if (distance <= kHairWidth) return offset;
  const PocketRegion wider = offsetRegion(region, distance - kHairWidth).region;
  std::vector<bool> holdsRoom(wider.loops().size(), false);
  for (const RegionLoop& loop : offset.region.loops()) {
    for (const int round : wider.loopsRound(placeOn(loop))) {
      holdsRoom[static_cast<std::size_t>(round)] = true;
    }
  }
  std::vector<RegionLoop> loops = offset.region.loops();
  const std::size_t before = loops.size();
  for (const Room& room : roomsOf(wider)) {
    if (holdsRoom[static_cast<std::size_t>(room.outer)]) continue;
    loops.push_back(wider.loops()[static_cast<std::size_t>(room.outer)]);
    for (const int hole : room.holes)
      loops.push_back(wider.loops()[static_cast<std::size_t>(hole)]);
  }
  if (loops.size() > before) offset.region = PocketRegion(std::move(loops), offset.region.traits());
  return offset;
}

std::vector<Room> roomsOf(const PocketRegion& region) {
  const int count = static_cast<int>(region.loops().size());
  std::vector<int> roomOf(static_cast<std::size_t>(count), -1);
  std::vector<Room> rooms;
  for (int loop = 0; loop < count; ++loop) {
    if (!isOuter(region, loop)) continue;
    roomOf[static_cast<std::size_t>(loop)] = static_cast<int>(rooms.size());
    rooms.push_back({loop, {}});
  }
  for (int loop = 0; loop < count; ++loop) {
    if (isOuter(region, loop)) continue;
    const int outer = outerRound(region, region.loops()[static_cast<std::size_t>(loop)], loop);
    if (outer >= 0)
      rooms[static_cast<std::size_t>(roomOf[static_cast<std::size_t>(outer)])].holes.push_back(
          loop);
  }
  return rooms;
}

ChainOffset chainOffset(const std::vector<Curve>& chain, double distance) {
  const CurveIndex walls(chain);
  double largest = 0;
  for (const Curve& curve : chain) largest = std::max(largest, largestNumberOf(curve));
  const Measures measures(distance, largest);
  CandidateList candidates(distance, chain);
  std::vector<int> numbers(chain.size());
  std::iota(numbers.begin(), numbers.end(), 0);
  candidates.add(numbers, /*closed=*/false, /*reverse=*/false);
  const std::vector<Piece> pieces = freePieces(candidates, walls, measures, /*overlaps=*/false);
  ChainOffset offset;
  for (std::size_t k = 0; k < pieces.size(); ++k) {
    const bool goesOn = k > 0 && gapOf(pieces[k - 1], pieces[k]) <= measures.reach;
    if (!goesOn) {
      offset.stretches.push_back({pieces[k].curve});
      continue;
    }
    Curve& before = offset.stretches.back().back();
    const PlanePoint joint = jointOf(before, pieces[k].curve);
    before = between(before, before.start, joint);
    offset.stretches.back().push_back(between(pieces[k].curve, joint, pieces[k].curve.end));
  }
  return offset;
}

}  // namespace tess
