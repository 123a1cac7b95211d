// Holes to start in: which of those that are drilled serve a piece of a path, and the way from
// there.
// Owns: HoleStart, HoleWays.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "toolpath/drilled_holes.h"
#include "toolpath/pocket_region.h"

namespace tess {

// The way from the middle of a hole, or else why there is none.
struct HoleStart {
  std::vector<Curve> way = {};
  std::string trouble = {};
};

class HoleWays {
 public:
  struct Rules {
    bool isPicked = false;  // the hole next to the marker, and no other
    PlanePoint marker;
    double radius = 0;  // that the hole must have: the tool's
    double floor = 0;   // to which it must go down
    std::function<bool(const Curve&)> isClear;
    const PocketRegion* tracks = nullptr;  // loops along which a way may lead
  };
  HoleWays(std::vector<DrilledHole> holes, Rules rules)
      : holes_(std::move(holes)), rules_(std::move(rules)) {}

  HoleStart startFor(PlanePoint place) const;

 private:
  std::vector<DrilledHole> holesFor(PlanePoint place) const;
  std::string whatIsWrongWith(const DrilledHole& hole) const;
  std::vector<Curve> wayFrom(PlanePoint hole, PlanePoint to) const;
  std::vector<Curve> wayAlong(const RegionLoop& loop, PlanePoint hole, PlanePoint to) const;

  std::vector<DrilledHole> holes_;
  Rules rules_;
};

}  // namespace tess
