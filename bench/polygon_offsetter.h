// The polygon offsetter of the distribution as a yardstick: it takes the finished polygon and gives
// back polygons, without arcs, joints of its own or tables.
// Owns: kUnitsPerInch, OffsetterPath, offsetterPath, insetCorners.
#pragma once

#include <cmath>
#include <cstddef>
#include <vector>

#include "geometry/entity.h"
#include "polyclipping/clipper.hpp"

namespace tess::bench {

inline constexpr double kUnitsPerInch = 1e6;  // of the offsetter's whole numbers

using OffsetterPath = ClipperLib::Path;

// The corners of an outline of lines.
inline OffsetterPath offsetterPath(const std::vector<Entity>& outline) {
  OffsetterPath path;
  path.reserve(outline.size());
  for (const Entity& row : outline) {
    path.emplace_back(std::llround(row.start.x * kUnitsPerInch),
                      std::llround(row.start.y * kUnitsPerInch));
  }
  return path;
}

// How many corners the outline has once it is moved in by a distance in inches.
inline std::size_t insetCorners(const OffsetterPath& outline, double distance) {
  ClipperLib::ClipperOffset offsetter;
  offsetter.AddPath(outline, ClipperLib::jtMiter, ClipperLib::etClosedPolygon);
  ClipperLib::Paths inset;
  offsetter.Execute(inset, -distance * kUnitsPerInch);
  std::size_t corners = 0;
  for (const OffsetterPath& path : inset) corners += path.size();
  return corners;
}

}  // namespace tess::bench
