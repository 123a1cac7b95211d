// Where a tool may go: closed loops of walls with free space on their left.
//
// Nothing is guessed from a corner or a click: which side of a loop is free follows from which
// loops lie round it. Pockets run counter-clockwise, islands clockwise.
// Owns: RegionLoop, reversedLoop, largestNumberOf, PocketRegion, OutlineFault, OutlineRegion,
//       regionOf.
#pragma once

#include <optional>
#include <span>
#include <vector>

#include "geometry/curve_index.h"
#include "geometry/entity.h"
#include "geometry/level_bands.h"

namespace tess {

// Each curve starts where the one before it ends, exactly; the first one where the last one ends.
struct RegionLoop {
  std::vector<Curve> curves;
  // Per curve what it was made from: the row of an outline, the wall of a region's offset. From 0.
  std::vector<int> sources;
  double area = 0;  // positive counter-clockwise
};

RegionLoop reversedLoop(const RegionLoop& loop);

// The magnitude of the largest number that makes a curve.
double largestNumberOf(const Curve& curve);

class PocketRegion {
 public:
  struct Traits {
    bool unbounded = false;    // beyond all loops is free, as round a part
    bool crossesSelf = false;  // a loop meets itself: no side of it is free all along
    bool overlaps = false;     // loops meet one another, along a wall perhaps
  };

  PocketRegion() = default;
  PocketRegion(std::vector<RegionLoop> loops, Traits traits);

  // The largest first.
  const std::vector<RegionLoop>& loops() const { return loops_; }
  const Traits& traits() const { return traits_; }
  bool isEmpty() const { return loops_.empty(); }
  double area() const;
  // The magnitude of the largest number that a place or a radius is made from.
  double largestNumber() const;

  // All curves, loop by loop.
  const std::vector<Curve>& walls() const { return index().curves(); }
  const CurveIndex& index() const;
  int loopOf(int wall) const { return loopOfWall_[static_cast<std::size_t>(wall)]; }
  int firstWallOf(int loop) const { return firstWall_[static_cast<std::size_t>(loop)]; }

  // Where a tool of radius 0 may be: the smallest loop round the place decides.
  bool isFree(PlanePoint at) const;
  // The loops round a place, ascending.
  std::vector<int> loopsRound(PlanePoint at) const;

  // True when the curve is free all along and no wall is nearer to it than `distance`.
  bool isClear(const Curve& curve, double distance) const;

  // Where a level crosses the walls.
  void crossingsAt(double y, std::vector<LevelCrossing>& found) const {
    bands().crossingsAt(y, found);
  }

 private:
  const LevelBands& bands() const;

  std::vector<RegionLoop> loops_;
  Traits traits_;
  // Made when they are first asked for.
  mutable std::optional<CurveIndex> index_;
  mutable std::optional<LevelBands> bands_;
  std::vector<int> loopOfWall_, firstWall_;
};

// Why rows make no region, and where.
struct OutlineFault {
  enum class Kind {
    Open,      // a row goes on nowhere
    TwoRadii,  // an arc's ends lie on two circles
  };
  Kind kind;
  PlanePoint at;
};

struct OutlineRegion {
  PocketRegion region;
  std::optional<OutlineFault> fault;  // the region is empty then
};

// The outlines of the rows, in any order and sense, that join end to end within `tolerence`.
// Duplicates count once. With `outside`, what lies beyond the outlines is free, and what they
// enclose is not.
OutlineRegion regionOf(std::span<const Entity> rows, float tolerence, bool outside = false);

}  // namespace tess
