// Holes evenly spread on a circle.
// Owns: BoltPattern, kBoltFrame, BoltHole, boltHoles, boltHoleDistance, boltHoleItem, fieldOfItem.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "geometry/float_points.h"

namespace tess {

struct BoltPattern {
  int holes = 1;
  float degreesOffset = 0;  // of the first hole from the top, clockwise
  float circleDiameter = 0;
  float holeDiameter = 0;
  Point origin{};  // of the circle
};

// The radius of the bolt circle in its preview.
inline constexpr double kBoltFrame = 1800;

struct BoltHole {
  double px = 0, py = 0;  // in the preview, y upward
  double x = 0, y = 0;    // in the drawing
  Point place{};          // the same at 4 decimals
};

// Clockwise from the first one. Raises Overflow.
std::vector<BoltHole> boltHoles(const BoltPattern& pattern);

// From the centre of the first hole to that of the second one.
double boltHoleDistance(const std::vector<BoltHole>& holes);

// "1 - X=5, Y=6", numbered from 1.
std::string boltHoleItem(int number, Point place);

// What stands behind "NAME=" in such an item, up to the next comma; "" without it.
std::string fieldOfItem(std::string_view name, std::string_view item);

}  // namespace tess
