// The table of arcs: all quadrants, both senses, open, closed and half circles, on the unit circle.
// Owns: ArcCase, kDiagonal, onUnitCircle, arcOf, kD, kArcCases.
#pragma once

#include <cmath>

#include "geometry/box_index.h"
#include "geometry/entity.h"

namespace tess::testing {

struct ArcCase {
  const char* name;
  int type;
  int start, end;  // degrees, multiples of 45
  int inside;      // degrees on the sweep
  int outside;     // degrees off it, -1 for a closed arc
  Box box;
};

inline constexpr float kDiagonal = 0.70710678F;

inline Point onUnitCircle(int degrees) {
  constexpr float d = kDiagonal;
  constexpr Point kPoints[] = {{1, 0},  {d, d},   {0, 1},  {-d, d},
                               {-1, 0}, {-d, -d}, {0, -1}, {d, -d}};
  return kPoints[degrees / 45];
}

inline Entity arcOf(const ArcCase& c) {
  return {c.type, onUnitCircle(c.start), onUnitCircle(c.end), {0, 0}};
}

inline constexpr float kD = kDiagonal;
inline constexpr ArcCase kArcCases[] = {
    {"quadrant 1 rising", 3, 0, 90, 45, 225, {0, 0, 1, 1}},
    {"quadrant 2 rising", 3, 90, 180, 135, 315, {-1, 0, 0, 1}},
    {"quadrant 3 rising", 3, 180, 270, 225, 45, {-1, -1, 0, 0}},
    {"quadrant 4 rising", 3, 270, 0, 315, 135, {0, -1, 1, 0}},
    {"quadrant 1 falling", 2, 90, 0, 45, 225, {0, 0, 1, 1}},
    {"quadrant 2 falling", 2, 180, 90, 135, 315, {-1, 0, 0, 1}},
    {"quadrant 3 falling", 2, 270, 180, 225, 45, {-1, -1, 0, 0}},
    {"quadrant 4 falling", 2, 0, 270, 315, 135, {0, -1, 1, 0}},
    {"over the top rising", 3, 45, 135, 90, 270, {-kD, kD, kD, 1}},
    {"over the top falling", 2, 135, 45, 90, 270, {-kD, kD, kD, 1}},
    {"over the left rising", 3, 135, 225, 180, 0, {-1, -kD, -kD, kD}},
    {"over the left falling", 2, 225, 135, 180, 0, {-1, -kD, -kD, kD}},
    {"over the bottom rising", 3, 225, 315, 270, 90, {-kD, -1, kD, -kD}},
    {"over the bottom falling", 2, 315, 225, 270, 90, {-kD, -1, kD, -kD}},
    {"over angle 0 rising", 3, 315, 45, 0, 180, {kD, -kD, 1, kD}},
    {"over angle 0 falling", 2, 45, 315, 0, 180, {kD, -kD, 1, kD}},
    {"all but angle 0 rising", 3, 45, 315, 180, 0, {-1, -1, kD, 1}},
    {"all but angle 0 falling", 2, 315, 45, 180, 0, {-1, -1, kD, 1}},
    {"all but the top rising", 3, 135, 45, 270, 90, {-1, -1, 1, kD}},
    {"all but the top falling", 2, 45, 135, 270, 90, {-1, -1, 1, kD}},
    {"upper half rising", 3, 0, 180, 90, 270, {-1, 0, 1, 1}},
    {"lower half falling", 2, 0, 180, 270, 90, {-1, -1, 1, 0}},
    {"lower half rising", 3, 180, 0, 270, 90, {-1, -1, 1, 0}},
    {"left half rising", 3, 90, 270, 180, 0, {-1, -1, 0, 1}},
    {"right half falling", 2, 90, 270, 0, 180, {0, -1, 1, 1}},
    {"closed at angle 0 rising", 3, 0, 0, 135, -1, {-1, -1, 1, 1}},
    {"closed at angle 0 falling", 2, 0, 0, 315, -1, {-1, -1, 1, 1}},
    {"closed in quadrant 3 rising", 3, 225, 225, 45, -1, {-1, -1, 1, 1}},
    {"closed in quadrant 3 falling", 2, 225, 225, 0, -1, {-1, -1, 1, 1}},
};

}  // namespace tess::testing
