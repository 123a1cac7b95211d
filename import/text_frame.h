// Arrays of corners turned and moved, and the angle of a direction, by the formulas of the text
// engine.
// Owns: RotateArray, OffsetArray, ArcTan.
#pragma once

#include <span>

#include "geometry/plane.h"

namespace tess {

// Turns each point about (x0, y0), from the x axis towards the y axis; radians.
void RotateArray(std::span<PlanePoint> a, double x0, double y0, double angle);
void OffsetArray(std::span<PlanePoint> a, double dx, double dy);
// From -pi/2 to 3 pi/2; pi/2 for no direction.
double ArcTan(double dy, double dx);

}  // namespace tess
