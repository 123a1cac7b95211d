// The lines of the visual grid, counted before they are drawn.
#include "display/grid_lines.h"

#include <algorithm>
#include <cmath>

namespace tess {

namespace {

// The next of 1, 2, 5, 10, 20, 50 and so on.
double roundStep(double least) {
  const double decade = std::pow(10, std::floor(std::log10(least)));
  for (const double step : {1.0, 2.0, 5.0}) {
    if (step * decade >= least * (1 - 1e-9)) return step * decade;
  }
  return 10 * decade;
}

// Of how many lines one is taken.
double taken(double spacing, double least, double closest) {
  const double every = std::max(1.0, least * closest / spacing);
  return closest < 2 ? std::ceil(every) : roundStep(every);
}

}  // namespace

GridRun gridRun(double spacing, const GridSide& side, double closest) {
  const double extent = side.to - side.from;
  if (!(spacing > 0) || !(side.to >= 0) || !std::isfinite(extent)) return {};
  const double pixels = std::max(side.pixels, 1.0);
  const double pixel = extent / pixels;
  GridRun run{.step = spacing * taken(spacing, pixel, closest)};
  // A line half a pixel before the edge still falls on its pixels.
  run.first = std::max(0.0, std::ceil((side.from - pixel / 2) / run.step));
  // Nobody sees the lines on the way from zero, but as long as they are few they are traced.
  if (run.first <= pixels) run.first = 0;
  run.count = static_cast<int>(
      std::clamp(std::floor(side.to / run.step) - run.first + 1, 0.0, 2 * pixels + 2));
  return run;
}

}  // namespace tess
