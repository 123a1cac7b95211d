// Offsets of regions: candidates, what is free of each, and how the free stretches join to loops.
#include "toolpath/region_offset.h"

#include <algorithm>
#include <cmath>
#include <compare>
#include <cstdint>
#include <optional>

#include "toolpath/free_stretches.h"
#include "toolpath/offset_candidates.h"

namespace tess {
namespace {

// Ends this near to each other are one place: where pieces cross at an angle, rounding parts their
// ends by more than it moves them.
constexpr double kSamePlace = 1e-7;

// ---- Joining

double gapOf(const FreePiece& before, const FreePiece& after) {
  return normOf(after.curve.start - before.curve.end);
}

// Places of a plane by cells.
class CellMap {
 public:
  explicit CellMap(double size) : size_(size) {}
  void add(PlanePoint at, int number) {
    items_.emplace_back(keyOf(cell(at.x), cell(at.y)), number);
  }
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
  // Where a drawing is out of all proportion to the reach, all that no number tells shares a cell.
  std::int64_t cell(double value) const {
    constexpr double kOutermost = 4e18;
    const double number = std::floor(value / size_);
    return std::abs(number) < kOutermost ? std::llround(number) : 0;
  }
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
  Joiner(std::vector<FreePiece>& pieces, const OffsetMeasures& measures)
      : pieces_(pieces), measures_(measures) {}

  // The next free stretch on the way is nearly always what goes on.
  void joinAlong(std::size_t first, std::size_t last) {
    for (std::size_t k = first; k < last; ++k) {
      const std::size_t after = k + 1 < last ? k + 1 : first;
      if (after != k && gapOf(pieces_[k], pieces_[after]) <= kSamePlace) join(k, after);
    }
  }
  bool joinedAll() const { return joined_ == pieces_.size(); }

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

  FreePiece& at(int k) { return pieces_[static_cast<std::size_t>(k)]; }

  void join(std::size_t before, std::size_t after) {
    if (pieces_[before].next >= 0 || pieces_[after].taken) return;
    pieces_[before].next = static_cast<int>(after);
    pieces_[after].taken = true;
    ++joined_;
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

  std::vector<FreePiece>& pieces_;
  const OffsetMeasures& measures_;
  std::size_t joined_ = 0;
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
  constexpr double kExactly = 1e-8;
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
  explicit LoopAssembly(const std::vector<FreePiece>& pieces) : pieces_(pieces) {
    joints_.resize(pieces.size());
    for (std::size_t k = 0; k < pieces.size(); ++k) {
      const int next = pieces[k].next;
      if (next < 0) continue;
      const auto after = static_cast<std::size_t>(next);
      joints_[after] = jointOf(pieces[k].curve, pieces[after].curve);
    }
    used_.assign(pieces.size(), 0);
  }

  // From a piece, all round; nothing for one that was passed, and a place where a loop stays open.
  std::optional<RegionLoop> loopFrom(std::size_t first, std::vector<PlanePoint>& lost) {
    if (used_[first]) return std::nullopt;
    RegionLoop loop;
    const std::size_t count = lengthFrom(first);
    loop.curves.reserve(count);
    loop.sources.reserve(count);
    for (std::size_t k = first;;) {
      used_[k] = 1;
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
  // How many pieces follow one another from here.
  std::size_t lengthFrom(std::size_t first) const {
    std::size_t count = 1;
    for (int k = pieces_[first].next; k >= 0 && static_cast<std::size_t>(k) != first;
         k = pieces_[static_cast<std::size_t>(k)].next) {
      if (++count > pieces_.size()) break;
    }
    return count;
  }

  static void append(RegionLoop& loop, const Curve& curve, int source) {
    if (curve.start == curve.end) return;
    loop.curves.push_back(curve);
    loop.sources.push_back(source);
  }

  const std::vector<FreePiece>& pieces_;
  std::vector<PlanePoint> joints_;  // where each piece begins
  std::vector<char> used_;          // whether a loop has passed it
};

double chordSquare(const Curve& curve) {
  return dot(curve.end - curve.start, curve.end - curve.start);
}

// All of a loop lies on one side of all walls, since no wall is near: the middle of one of its
// longer curves.
PlanePoint placeOn(const RegionLoop& loop) {
  constexpr std::size_t kLookedAt = 64;
  const auto end =
      loop.curves.begin() + static_cast<std::ptrdiff_t>(std::min(kLookedAt, loop.curves.size()));
  const auto longest = std::max_element(
      loop.curves.begin(), end,
      [](const Curve& a, const Curve& b) { return chordSquare(a) < chordSquare(b); });
  return pointAt(*longest, 0.5);
}

// A hole goes round something at the distance; what is smaller than that is a thin room, whatever
// sign rounding gave its area.
void settleArea(RegionLoop& loop, double distance) {
  if (std::abs(loop.area) < distance * distance) loop.area = std::max(loop.area, 0.0);
}

// Each loop from wall to wall, and the other way too where neither side is free all along.
std::vector<WallChain> chainsOf(const PocketRegion& region) {
  std::vector<WallChain> chains;
  for (int loop = 0; loop < static_cast<int>(region.loops().size()); ++loop) {
    const int first = region.firstWallOf(loop);
    const int last =
        first + static_cast<int>(region.loops()[static_cast<std::size_t>(loop)].curves.size()) - 1;
    chains.push_back({first, last, /*closed=*/true, /*reverse=*/false});
    if (region.traits().crossesSelf) chains.push_back({first, last, true, /*reverse=*/true});
  }
  return chains;
}

// What is free of each chain of candidates, in its order, joined where one follows on another.
std::vector<FreePiece> freePieces(const std::vector<WallChain>& chains,
                                  OffsetCandidates& candidates, FreeStretches& stretches,
                                  const OffsetMeasures& measures, const Breathing& breathing) {
  std::vector<FreePiece> pieces;
  std::size_t walls = 0;
  for (const WallChain& chain : chains)
    walls += static_cast<std::size_t>(chain.last + 1 - chain.first);
  pieces.reserve(2 * walls);
  Joiner joiner(pieces, measures);
  for (const WallChain& chain : chains) {
    const std::size_t first = pieces.size();
    candidates.forChain(chain, [&](const std::vector<OffsetCandidate>& some) {
      breathe(breathing);
      stretches.append(some, pieces);
    });
    joiner.joinAlong(first, pieces.size());
  }
  if (!joiner.joinedAll()) {
    joiner.joinNear();
    joiner.joinRest();
  }
  return pieces;
}

FreeStretches::Overlaps overlapsOf(const PocketRegion::Traits& traits) {
  using enum FreeStretches::Overlaps;
  if (traits.crossesSelf) return BothWays;
  return traits.overlaps ? OneWay : None;
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

namespace {

// Whether rounding may have taken a room of the offset.
struct JudgedOffset {
  RegionOffset offset;
  bool lostByAHair = false;
};

JudgedOffset judgedOffset(const PocketRegion& region, double distance, const Breathing& breathing) {
  if (isItsOwnOffset(region, distance)) return {{region, {}}};
  constexpr double kLeast = 1e-6;
  const OffsetMeasures measures(std::max(distance, kLeast), region.largestNumber());
  OffsetCandidates candidates(measures.distance, region.walls());
  FreeStretches stretches(region.index(), measures, overlapsOf(region.traits()));
  const std::vector<FreePiece> pieces =
      freePieces(chainsOf(region), candidates, stretches, measures, breathing);
  JudgedOffset judged;
  RegionOffset& offset = judged.offset;
  judged.lostByAHair = candidates.lostByAHair() || stretches.lostByAHair();
  std::vector<RegionLoop> loops;
  LoopAssembly assembly(pieces);
  for (std::size_t k = 0; k < pieces.size(); ++k) {
    auto loop = assembly.loopFrom(k, offset.lost);
    if (!loop) continue;
    breathe(breathing);
    if (!region.isFree(placeOn(*loop))) continue;
    settleArea(*loop, measures.distance);
    loops.push_back(std::move(*loop));
  }
  std::erase_if(offset.lost, [&](PlanePoint at) { return !region.isFree(at); });
  offset.region = PocketRegion(std::move(loops), {.unbounded = region.traits().unbounded});
  return judged;
}

}  // namespace

RegionOffset offsetRegion(const PocketRegion& region, double distance, const Breathing& breathing) {
  return judgedOffset(region, distance, breathing).offset;
}

namespace {

std::vector<int> loopsOf(const Room& room) {
  std::vector<int> loops = room.holes;
  loops.push_back(room.outer);
  return loops;
}

// A place of the room is farther from the offset than corners move by a hair.
bool reachesBeyond(const PocketRegion& wider, const Room& room, const PocketRegion& offset,
                   double corner) {
  constexpr double kMostPlaces = 1000;  // of a curve
  for (const int number : loopsOf(room)) {
    for (const Curve& curve : wider.loops()[static_cast<std::size_t>(number)].curves) {
      const double places = std::clamp(std::ceil(lengthOf(curve) / corner), 1.0, kMostPlaces);
      for (double place = 0; place < places; ++place) {
        const PlanePoint at = pointAt(curve, place / places);
        if (!offset.index().nearest(lineCurve(at, at), corner)) return true;
      }
    }
  }
  return false;
}

// Takes the rooms of an offset that only a hair less of distance shows, whole or in part, from
// there.
PocketRegion withRoomsOf(const PocketRegion& wider, const PocketRegion& offset, double corner,
                         const Breathing& breathing) {
  std::vector<bool> isTaken(wider.loops().size(), false);  // by its outer loop
  std::vector<RegionLoop> loops;
  for (const Room& room : roomsOf(wider)) {
    breathe(breathing);
    if (!reachesBeyond(wider, room, offset, corner)) continue;
    isTaken[static_cast<std::size_t>(room.outer)] = true;
    for (const int number : loopsOf(room)) {
      loops.push_back(wider.loops()[static_cast<std::size_t>(number)]);
    }
  }
  for (const RegionLoop& loop : offset.loops()) {
    const std::vector<int> round = wider.loopsRound(placeOn(loop));
    const bool replaced = std::any_of(round.begin(), round.end(), [&](int number) {
      return isTaken[static_cast<std::size_t>(number)];
    });
    if (!replaced) loops.push_back(loop);
  }
  return {std::move(loops), offset.traits()};
}

}  // namespace

RegionOffset fittedOffset(const PocketRegion& region, double distance, const Breathing& breathing) {
  JudgedOffset judged = judgedOffset(region, distance, breathing);
  RegionOffset& offset = judged.offset;
  if (!judged.lostByAHair || distance <= kHairWidth) return std::move(offset);
  const PocketRegion wider = offsetRegion(region, distance - kHairWidth, breathing).region;
  const double corner = OffsetMeasures(distance, region.largestNumber()).corner;
  offset.region = withRoomsOf(wider, offset.region, corner, breathing);
  return std::move(offset);
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

ChainOffset chainOffset(const std::vector<Curve>& chain, double distance,
                        const Breathing& breathing) {
  const CurveIndex walls(chain);
  double largest = 0;
  for (const Curve& curve : chain) largest = std::max(largest, largestNumberOf(curve));
  const OffsetMeasures measures(distance, largest);
  OffsetCandidates candidates(distance, chain);
  const WallChain whole{0, static_cast<int>(chain.size()) - 1, /*closed=*/false,
                        /*reverse=*/false};
  FreeStretches stretches(walls, measures, FreeStretches::Overlaps::None);
  const std::vector<FreePiece> pieces =
      freePieces({whole}, candidates, stretches, measures, breathing);
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
