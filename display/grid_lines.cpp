// The lines of the visual grid, counted before they are drawn.
#include "display/grid_lines.h"

#include <algorithm>
#include <cmath>

namespace tess {

GridRun gridRun(double spacing, const GridSide& side) {
  const double extent = side.to - side.from;
  if (!(spacing > 0) || !(side.to >= 0) || !std::isfinite(extent)) return {};
  const double pixels = std::max(side.pixels, 1.0);
  const double pixel = extent / pixels;
  GridRun run{.step = spacing * std::max(1.0, std::ceil(pixel / spacing))};
  // A line half a pixel before the edge still falls on its pixels.
  run.first = std::max(0.0, std::ceil((side.from - pixel / 2) / run.step));
  // Nobody sees the lines on the way from zero, but as long as they are few they are traced.
  if (run.first <= pixels) run.first = 0;
  run.count = static_cast<int>(
      std::clamp(std::floor(side.to / run.step) - run.first + 1, 0.0, 2 * pixels + 2));
  return run;
}

}  // namespace tess
