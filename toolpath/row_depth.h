// How deep a tool cuts into the part as it moves along a line or an arc.
// Owns: WallDepth, FreeSpace, DepthSearch.
#pragma once

#include <optional>

#include "toolpath/pocket_region.h"

namespace tess {

// The deepest place: how far the edge of the tool is beyond the nearest wall there. A tool whose
// centre is in the part is in by more than its radius.
struct WallDepth {
  double depth = 0;
  PlanePoint at;  // of the centre
};

// What of a region is free.
enum class FreeSpace {
  Inside,  // what its loops say
  // All but what lies below the loops: a turning tool comes from outside, and what is beside a loop
  // or above it is air.
  NotBelow,
  NotAbove,  // the same for a tool that comes from the axis
  Unknown,   // of an open chain: a move that crosses it is in by the radius
};

// Many moves against the same walls. Where the centre stays free the answer is exact up to
// rounding; else it is within kSearchGrain of it, as long as the effort allowed to all moves lasts.
class DepthSearch {
 public:
  DepthSearch(const PocketRegion& region, FreeSpace space) : region_(region), space_(space) {}

  // The deepest place of a move, nothing where no wall is within the radius of a free one. Where
  // it is in by less than `bound`, any place that is in may be told.
  std::optional<WallDepth> deepest(const Curve& move, double radius, double bound = 0);

  static constexpr double kSearchGrain = 1e-6;

 private:
  bool isFree(PlanePoint at) const;
  std::optional<NearCurve> nearestWall(PlanePoint at, double radius) const;
  std::optional<WallDepth> search(const Curve& move, double radius, WallDepth found, double bound);

  const PocketRegion& region_;
  FreeSpace space_;
  int effort_ = 0;  // places looked at in searches
};

}  // namespace tess
