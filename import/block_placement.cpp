// The changes of coordinates of a DXF file.
#include "import/block_placement.h"

#include <cmath>
#include <numbers>

namespace tess {
namespace {

constexpr double kDegree = std::numbers::pi / 180;

DxfPoint operator*(double factor, DxfPoint p) {
  return {factor * p.x, factor * p.y, factor * p.z};
}

DxfPoint operator+(DxfPoint a, DxfPoint b) {
  return {a.x + b.x, a.y + b.y, a.z + b.z};
}

DxfPoint crossed(DxfPoint a, DxfPoint b) {
  return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}

double lengthOf(DxfPoint p) {
  return std::hypot(p.x, p.y, p.z);
}

DxfPoint turned(const BlockPlacement& placement, DxfPoint d) {
  return d.x * placement.xAxis + d.y * placement.yAxis + d.z * placement.zAxis;
}

// Quarter turns exact, so that turned blocks keep their right angles.
struct Turn {
  double cosine, sine;
};
Turn turnOf(double degrees) {
  const double quarters = degrees / 90;
  if (quarters != std::nearbyint(quarters)) {
    return {std::cos(degrees * kDegree), std::sin(degrees * kDegree)};
  }
  constexpr Turn kQuarters[] = {{1, 0}, {0, 1}, {-1, 0}, {0, -1}};
  const double rest = std::fmod(quarters, 4);
  return kQuarters[static_cast<int>(rest < 0 ? rest + 4 : rest)];
}

}  // namespace

PlanePoint BlockPlacement::point(DxfPoint p) const {
  const DxfPoint placed = turned(*this, p) + origin;
  return {placed.x, placed.y};
}

PlanePoint BlockPlacement::direction(DxfPoint d) const {
  const DxfPoint placed = turned(*this, d);
  return {placed.x, placed.y};
}

BlockPlacement operator*(const BlockPlacement& outer, const BlockPlacement& inner) {
  return {.xAxis = turned(outer, inner.xAxis),
          .yAxis = turned(outer, inner.yAxis),
          .zAxis = turned(outer, inner.zAxis),
          .origin = turned(outer, inner.origin) + outer.origin};
}

BlockPlacement scaledBy(double factor) {
  return {.xAxis = {factor, 0, 0}, .yAxis = {0, factor, 0}, .zAxis = {0, 0, factor}, .origin = {}};
}

// The file names only the direction out of the plane. Its x axis follows from the rule of the
// format: square to the world's y axis where the direction is within 1/64 of the world's z axis,
// and else to the world's z axis.
BlockPlacement objectPlane(DxfPoint extrusion) {
  const double length = lengthOf(extrusion);
  if (!(length > 0) || !std::isfinite(length)) return {};
  const DxfPoint out = (1 / length) * extrusion;
  constexpr double kNearlyUpright = 1.0 / 64;
  const bool upright = std::abs(out.x) < kNearlyUpright && std::abs(out.y) < kNearlyUpright;
  const DxfPoint across = crossed(upright ? DxfPoint{0, 1, 0} : DxfPoint{0, 0, 1}, out);
  const DxfPoint xAxis = (1 / lengthOf(across)) * across;
  return {.xAxis = xAxis, .yAxis = crossed(out, xAxis), .zAxis = out, .origin = {}};
}

BlockPlacement insertedAt(const DxfEntity& insert, DxfPoint base, int column, int row) {
  const DxfInsert& what = *insert.insert;
  const auto [cosine, sine] = turnOf(insert.g50);
  const BlockPlacement toPlace{.xAxis = {cosine, sine, 0},
                               .yAxis = {-sine, cosine, 0},
                               .zAxis = {0, 0, 1},
                               .origin = {insert.x0, insert.y0, insert.z0}};
  const DxfPoint inArray{column * what.columnSpacing, row * what.rowSpacing, 0};
  const BlockPlacement scaled{.xAxis = {what.xScale, 0, 0},
                              .yAxis = {0, what.yScale, 0},
                              .zAxis = {0, 0, what.zScale},
                              .origin = inArray};
  const BlockPlacement fromBase{.origin = -1 * base};
  return objectPlane(insert.extrusion) * toPlace * scaled * fromBase;
}

}  // namespace tess
