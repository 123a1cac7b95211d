// The outline of what closed contours of straight lines enclose together: crossings are cut, and
// what lies inside goes. For letters whose contours overlap.
// Owns: ContourLine, unitedContours.
#pragma once

#include <optional>
#include <span>
#include <vector>

#include "geometry/plane.h"

namespace tess {

struct ContourLine {
  PlanePoint from, to;
  friend bool operator==(const ContourLine&, const ContourLine&) = default;
};

// Lines that run head to tail make a contour, which is closed where it comes back to its start. A
// place is inside where the contours turn about it a number of times that is not 0. Corners are
// rounded to whole numbers: the unit must be fine enough for that. The result runs head to tail,
// closed, with the inside to the left of each line; contours that are not closed come first, as
// they are. Nothing for contours that lie on one another so often that it would take too long, or
// too much memory: no letters do.
std::optional<std::vector<ContourLine>> unitedContours(std::span<const ContourLine> lines);

}  // namespace tess
