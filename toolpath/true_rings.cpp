// Rings as a tree: each room of a ring lies in one of the ring outside it.
#include "toolpath/true_rings.h"

#include <algorithm>
#include <deque>
#include <numeric>

namespace tess {
namespace {

// Below so many tool radii two neighbouring rings reach all between them.
constexpr double kReachingStep = 0.999;

struct RingRoom {
  const PocketRegion* ring = nullptr;
  Room room;
  std::vector<RegionLoop> between;  // to the rings inside
  std::vector<std::size_t> inner;   // rooms of the next ring
};

class RingTree {
 public:
  RingTree(const PocketRegion& outmost, const RingRules& rules, const Breathing& breathing)
      : rules_(rules), breathing_(breathing) {
    addRing(outmost);
  }

  // The next ring; false when there is none.
  bool grow() {
    const PocketRegion& outer = *rings_.back();
    PocketRegion inner = offsetRegion(outer, rules_.step, breathing_).region;
    if (rules_.fillsBetween && rules_.step > kReachingStep * rules_.radius) {
      addBetween(outer, inner);
    }
    if (inner.isEmpty()) return false;
    made_.push_back(std::move(inner));
    addRing(made_.back());
    return true;
  }

  // The rooms of the outmost ring, the one next to the click first.
  std::vector<std::size_t> roots() const {
    std::vector<std::size_t> all;
    for (std::size_t k = 0; k < rooms_.size() && rooms_[k].ring == rings_.front(); ++k) {
      all.push_back(k);
    }
    sortByClick(all);
    return all;
  }

  // A room after all that lies in it.
  template <typename Visit>
  void visitFrom(std::size_t root, Visit visit) {
    struct Step {
      std::size_t room;
      std::size_t inner = 0;
    };
    std::vector<Step> path{{root}};
    while (!path.empty()) {
      RingRoom& room = rooms_[path.back().room];
      if (path.back().inner == 0) sortByClick(room.inner);
      if (path.back().inner < room.inner.size()) {
        path.push_back({room.inner[path.back().inner++]});
      } else {
        visit(room);
        path.pop_back();
      }
    }
  }

 private:
  static const RegionLoop& outerOf(const RingRoom& room) {
    return room.ring->loops()[static_cast<std::size_t>(room.room.outer)];
  }

  void sortByClick(std::vector<std::size_t>& rooms) const {
    if (rooms.size() < 2) return;
    std::vector<std::pair<double, std::size_t>> byDistance;
    byDistance.reserve(rooms.size());
    for (const std::size_t room : rooms) {
      byDistance.emplace_back(nearestPlace(outerOf(rooms_[room]), rules_.click).distance, room);
    }
    std::sort(byDistance.begin(), byDistance.end());
    std::transform(byDistance.begin(), byDistance.end(), rooms.begin(),
                   [](const auto& entry) { return entry.second; });
  }

  // Where the rooms of the ring begin, with the number of their outer loop.
  void addRing(const PocketRegion& ring) {
    const PocketRegion* const outside = rings_.empty() ? nullptr : rings_.back();
    const std::vector<std::size_t> outer = std::move(roomOfLoop_);
    roomOfLoop_.assign(ring.loops().size(), 0);
    for (Room& room : roomsOf(ring)) {
      const std::size_t number = rooms_.size();
      roomOfLoop_[static_cast<std::size_t>(room.outer)] = number;
      if (outside != nullptr) {
        const RegionLoop& loop = ring.loops()[static_cast<std::size_t>(room.outer)];
        const int round = outerRound(*outside, loop);
        if (round >= 0) rooms_[outer[static_cast<std::size_t>(round)]].inner.push_back(number);
      }
      rooms_.push_back({&ring, std::move(room), {}, {}});
    }
    rings_.push_back(&ring);
  }

  // The band between two rings is a region of its own; what a tool on either ring does not reach of
  // it is its offset by a little more than the tool's radius.
  void addBetween(const PocketRegion& outer, const PocketRegion& inner) {
    std::vector<RegionLoop> loops = outer.loops();
    for (const RegionLoop& loop : inner.loops()) loops.push_back(reversedLoop(loop));
    const PocketRegion band(std::move(loops), {});
    const double reach = rules_.radius * 1.00001 + 1e-6;
    const PocketRegion rest = offsetRegion(band, reach, breathing_).region;
    for (const RegionLoop& loop : rest.loops()) {
      const int round = outerRound(outer, loop);
      if (round < 0) continue;
      rooms_[roomOfLoop_[static_cast<std::size_t>(round)]].between.push_back(loop);
    }
  }

  const RingRules& rules_;
  const Breathing& breathing_;
  std::deque<PocketRegion> made_;
  std::vector<const PocketRegion*> rings_;
  std::vector<RingRoom> rooms_;
  std::vector<std::size_t> roomOfLoop_;  // of the inmost ring, by outer loops
};

class RingCutter {
 public:
  RingCutter(const RingRules& rules, RoomWay& way) : rules_(rules), way_(way) {}

  void nextRoot() { linked_ = false; }

  void cut(const RingRoom& room) {
    cutNearest(room.between);
    for (const int hole : room.room.holes) {
      cutLoop(room.ring->loops()[static_cast<std::size_t>(hole)]);
    }
    cutLoop(room.ring->loops()[static_cast<std::size_t>(room.room.outer)]);
  }

 private:
  // One after the other, each the nearest to the tool of those that are left.
  void cutNearest(const std::vector<RegionLoop>& loops) {
    std::vector<std::size_t> left(loops.size());
    std::iota(left.begin(), left.end(), std::size_t{0});
    const auto fromTool = [&](std::size_t k) {
      return normOf(loops[k].curves.front().start - way_.place());
    };
    while (!left.empty()) {
      const auto next =
          std::min_element(left.begin(), left.end(),
                           [&](std::size_t a, std::size_t b) { return fromTool(a) < fromTool(b); });
      cutLoop(loops[*next]);
      left.erase(next);
    }
  }

  void cutLoop(const RegionLoop& loop) {
    const RegionLoop way = rules_.reversed ? reversedLoop(loop) : loop;
    way_.cut(loopFrom(way, nearestPlace(way, way_.place())), linked_);
    linked_ = true;
  }

  const RingRules& rules_;
  RoomWay& way_;
  bool linked_ = false;  // no link leads from one room of the outmost ring into another
};

}  // namespace

void cutRings(const PocketRegion& offset, const RingRules& rules, RoomWay& way,
              const Breathing& breathing) {
  RingTree tree(offset, rules, breathing);
  double depth = 0;
  do {
    breathe(breathing);
    depth += rules.step;
  } while (depth <= rules.deepest + rules.step && tree.grow());
  way.startAt(rules.click);
  RingCutter cutter(rules, way);
  for (const std::size_t root : tree.roots()) {
    cutter.nextRoot();
    tree.visitFrom(root, [&](const RingRoom& room) {
      breathe(breathing);
      cutter.cut(room);
    });
  }
}

}  // namespace tess
