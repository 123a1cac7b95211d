// Is the part right? A round tool is swept along path rows, independently of the routines that
// place them: how deep it enters what must stay, and how much it leaves of what it could reach.
// Owns: PartShape, partOf, toolPath, isAllowed, clearance, Gouge, kSearchStep, deepestGouge,
//       Coverage, ToolSweep, ReachableArea, toolRooms.
#pragma once

#include <memory>
#include <vector>

#include "core/drawing_rows.h"
#include "tests/support/curves.h"

namespace tess::testing {

// A pocket to be cleared and the islands that stay in it. Loops may run either way.
struct PartShape {
  Loop pocket;
  std::vector<Loop> islands;
};

// Each loop from its drawing rows, which must follow one another; a row may run against the loop.
PartShape partOf(const std::vector<SegmentRow>& pocket,
                 const std::vector<std::vector<SegmentRow>>& islands = {});

// The feed moves among the path rows `first` to `last`: no rapids and no machine cycles.
std::vector<Curve> toolPath(const DrawingStore& store, int first, int last);
std::vector<Curve> toolPath(const DrawingStore& store);

// True inside the pocket and outside of its islands.
bool isAllowed(const PartShape& part, Vec point);

// The distance to the nearest wall, negative in what must stay.
double clearance(const PartShape& part, Vec point);

// The worst place of a way. Where the tool only just touches, the depth is 0; with air between, it
// is negative. A tool whose centre enters what must stay is in by more than its radius.
struct Gouge {
  double depth = 0;
  int curve = -1;  // of the way, from 0; -1 for a way without rows
  Vec place;       // about where the centre is then
};

// Exact up to rounding while the centre stays where it may be; beyond that, a place deeper by less
// than kSearchStep may stay unseen.
inline constexpr double kSearchStep = 1e-3;
Gouge deepestGouge(const PartShape& part, const std::vector<Curve>& path, double toolRadius);

// What a way leaves.
struct Coverage {
  double reachable = 0, cut = 0;  // areas
  double share = 1;               // cut of reachable; 1 when nothing can be reached
  double rest = 0;                // the largest distance of a reachable place from the cut
  Vec restPlace;
};

// What a tool of a radius has gone along.
struct ToolSweep {
  std::vector<Curve> path;
  double radius = 0;
};

// The places that a tool can reach: those within the tool at a position that clears all walls. A
// raster cell counts when its middle is such a place; so the area is that of the true shape but for
// the grain of the raster along its rim, and what counts can truly be reached.
class ReachableArea {
 public:
  ReachableArea(const PartShape& part, double toolRadius, int cellsPerRadius = 10);

  double area() const;
  Coverage coverageOf(const std::vector<Curve>& path) const;
  // By several tools; the distance left is from the edges of what they cut.
  Coverage coverageOf(const std::vector<ToolSweep>& sweeps) const;

 private:
  struct Cells;
  std::shared_ptr<const Cells> cells_;
};

// In how many parts the places lie where the tool may stand: it cannot pass from one to another. A
// passage that it just fits may seem closed, by the grain of the raster.
int toolRooms(const PartShape& part, double toolRadius, int cellsPerRadius = 10);

}  // namespace tess::testing
