// The way of a tool through a room: loops cut from the place nearest to it, and feed moves between
// what is cut, where these are free of the walls.
// Owns: lengthOfWay, turnedRound, LoopPlace, nearestPlace, loopFrom, RoomWay.
#pragma once

#include <vector>

#include "toolpath/pocket_region.h"

namespace tess {

double lengthOfWay(const std::vector<Curve>& way);
// The same way from its end to its start.
std::vector<Curve> turnedRound(std::vector<Curve> way);

// A place of a loop: curve from 0, and the share of it.
struct LoopPlace {
  std::size_t curve = 0;
  double share = 0;
  double distance = 0;  // from what was asked
};

LoopPlace nearestPlace(const RegionLoop& loop, PlanePoint from);

// All round a loop from a place of it and back to it.
std::vector<Curve> loopFrom(const RegionLoop& loop, const LoopPlace& from);

class RoomWay {
 public:
  struct Rules {
    double distance = 0;  // that the tool keeps from the walls of the region
    double radius = 0;    // of the tool
    bool links = false;
  };
  RoomWay(const PocketRegion& region, const Rules& rules) : region_(&region), rules_(rules) {}

  // Where the tool stands.
  PlanePoint place() const { return at_; }
  void startAt(PlanePoint at) { at_ = at; }

  // The next curves. They follow without a gap where they begin where the tool is, or where a link
  // is allowed and possible: straight, or along a loop of `tracks`.
  void cut(const std::vector<Curve>& curves, bool linked, const PocketRegion* tracks = nullptr);

  // A run of curves without a gap, and the next, in the order in which they are cut.
  const std::vector<std::vector<Curve>>& runs() const { return runs_; }

 private:
  std::vector<Curve> linkTo(PlanePoint to, const PocketRegion* tracks) const;

  const PocketRegion* region_;
  Rules rules_;
  PlanePoint at_;
  std::vector<std::vector<Curve>> runs_;
};

}  // namespace tess
