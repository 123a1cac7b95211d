// The polygon offsetter of the distribution as a yardstick: it takes the finished polygon and gives
// back polygons, without arcs, joints of its own or tables.
// Owns: kUnitsPerInch, OffsetterPath, OffsetterPaths, kArcTolerance, offsetterPath, flattened,
//       insetRound, areaOf, insetCorners.
#pragma once

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <vector>

#include "geometry/entity.h"
#include "polyclipping/clipper.hpp"
#include "toolpath/pocket_region.h"

namespace tess::bench {

inline constexpr double kUnitsPerInch = 1e6;  // of the offsetter's whole numbers

using OffsetterPath = ClipperLib::Path;
using OffsetterPaths = ClipperLib::Paths;

inline constexpr double kArcTolerance = 0.005 / 25.4;  // inches

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

// The loops of a region with their arcs as chords that are off by no more than the tolerance.
inline OffsetterPaths flattened(const PocketRegion& region) {
  OffsetterPaths paths;
  for (const RegionLoop& loop : region.loops()) {
    OffsetterPath& path = paths.emplace_back();
    for (const Curve& curve : loop.curves) {
      const double turn =
          curve.isArc() ? 2 * std::acos(std::max(0.0, 1 - kArcTolerance / curve.radius)) : 1;
      const int steps = curve.isArc() ? static_cast<int>(std::ceil(sweepOf(curve) / turn)) : 1;
      for (int k = 0; k < steps; ++k) {
        const PlanePoint at = pointAt(curve, static_cast<double>(k) / steps);
        path.emplace_back(std::llround(at.x * kUnitsPerInch), std::llround(at.y * kUnitsPerInch));
      }
    }
  }
  return paths;
}

// Moved in by a distance in inches, with round joints.
inline OffsetterPaths insetRound(const OffsetterPaths& outlines, double distance) {
  ClipperLib::ClipperOffset offsetter(/*miterLimit=*/2, kArcTolerance * kUnitsPerInch);
  offsetter.AddPaths(outlines, ClipperLib::jtRound, ClipperLib::etClosedPolygon);
  OffsetterPaths inset;
  offsetter.Execute(inset, -distance * kUnitsPerInch);
  return inset;
}

// In square inches; holes take away.
inline double areaOf(const OffsetterPaths& paths) {
  double area = 0;
  for (const OffsetterPath& path : paths) area += ClipperLib::Area(path);
  return area / (kUnitsPerInch * kUnitsPerInch);
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
