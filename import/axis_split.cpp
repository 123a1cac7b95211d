// The search for arcs that stretch the extents, and the two parts of one.
#include "import/axis_split.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <utility>

#include "display/drawing_extents.h"
#include "geometry/row_boxes.h"
#include "import/flat_arcs.h"

namespace tess {
namespace {

// Angles are told by 32 bits: extents are off by up to this share of the radius anyway.
constexpr double kAngleNoise = 1e-6;
// An end lies below the axis when that shows in 32-bit angles, and in coordinates that a save has
// rounded to five decimals.
constexpr double kBelowShare = 1e-6;
constexpr double kBelowLeast = 2e-5;
// Arcs that merely end at the axis, as quarter circles do, are left alone unless they stretch the
// extents by more than this share of the drawing.
constexpr double kMaxStretch = 0.5;

bool isUsual(const DxfRow& row) {
  return isStorable(startOf(row)) && isStorable(endOf(row)) && isStorable(centerOf(row));
}

Entity entityOf(const DxfRow& row) {
  const auto point = [](double x, double y) {
    return Point{static_cast<float>(x), static_cast<float>(y)};
  };
  return {row.type, point(row.x0, row.y0), point(row.x1, row.y1), point(row.xc, row.yc)};
}

Box boxOfAll(const std::vector<PlacedRow>& rows) {
  Box all;
  for (const PlacedRow& placed : rows) {
    if (!isUsual(placed.row)) continue;
    const Box box = entityBox(entityOf(placed.row));
    all = extended(extended(all, {box.minX, box.minY}), {box.maxX, box.maxY});
  }
  return all;
}

// How far the extents of a row reach out of a box.
double stretchOf(const DxfRow& row, const Box& box) {
  const DrawingExtents extents = entityExtents(entityOf(row));
  return std::max({box.minX - extents.minx, box.minY - extents.miny, extents.maxx - box.maxX,
                   extents.maxy - box.maxY, 0.0F});
}

bool isApart(PlanePoint a, PlanePoint b, float tolerence) {
  return std::max(std::abs(a.x - b.x), std::abs(a.y - b.y)) > tolerence;
}

// The end of the arc's circle to the right, where the tables see it.
PlanePoint axisPoint(const DxfRow& arc) {
  const Point center = entityOf(arc).center;
  const double radius = lengthOf(startOf(arc) - PlanePoint{center.x, center.y});
  return {static_cast<float>(center.x + radius), center.y};
}

// An arc that passes the axis comes to it from the lower end, or goes away from it to that.
bool rises(const DxfRow& arc) {
  return arc.type == kCounterClockwiseArc;
}
PlanePoint lowerEnd(const DxfRow& arc) {
  return rises(arc) ? startOf(arc) : endOf(arc);
}
PlanePoint upperEnd(const DxfRow& arc) {
  return rises(arc) ? endOf(arc) : startOf(arc);
}

// Counter-clockwise from the lower end.
double turnTo(const DxfRow& arc, PlanePoint p) {
  const PlanePoint from = lowerEnd(arc) - centerOf(arc);
  const PlanePoint to = p - centerOf(arc);
  const double angle = std::atan2(cross(from, to), dot(from, to));
  return angle > 0 ? angle : angle + 2 * std::numbers::pi;
}

// Moves the centre up or down to a height, to where both ends are equally far from it.
void moveCenter(DxfRow& arc, double height) {
  const PlanePoint middle = 0.5 * (startOf(arc) + endOf(arc));
  const PlanePoint across = unitOf(leftOf(endOf(arc) - startOf(arc)));
  if (across.y == 0) return;
  const PlanePoint moved = middle + (height - middle.y) / across.y * across;
  if (!isStorable(moved)) return;
  arc.xc = moved.x;
  arc.yc = moved.y;
}

double marginOf(const DxfRow& arc) {
  return std::max(kBelowShare * lengthOf(startOf(arc) - centerOf(arc)), kBelowLeast);
}

// Until an end lies clearly below or above it.
void raiseCenterOver(DxfRow& arc, PlanePoint end) {
  moveCenter(arc, end.y + marginOf(arc));
}
void lowerCenterUnder(DxfRow& arc, PlanePoint end) {
  moveCenter(arc, end.y - marginOf(arc));
}

DxfRow between(const DxfRow& arc, PlanePoint start, PlanePoint end) {
  DxfRow part = arc;
  part.x0 = start.x;
  part.y0 = start.y;
  part.x1 = end.x;
  part.y1 = end.y;
  return part;
}

std::vector<PlacedRow> partsAtAxis(const PlacedRow& placed, PlanePoint axis, double tolerance) {
  const DxfRow& arc = placed.row;
  DxfRow first = between(arc, startOf(arc), axis);
  DxfRow second = between(arc, axis, endOf(arc));
  raiseCenterOver(rises(arc) ? first : second, axis);
  std::vector<PlacedRow> parts{{first, placed.entity}, {second, placed.entity}};
  straightenFlatArcs(parts, tolerance);
  return parts;
}

class AxisSplit {
 public:
  AxisSplit(const Box& box, float tolerence, double tolerance)
      : box_(box),
        size_(std::max(box.maxX - box.minX, box.maxY - box.minY)),
        tolerence_(tolerence),
        tolerance_(tolerance) {}

  // Appends the row, or the two that stand for it.
  void append(const PlacedRow& placed, std::vector<PlacedRow>& rows) const {
    const DxfRow& arc = placed.row;
    const double stretch = stretched(arc);
    if (stretch == 0) return rows.push_back(placed);
    const PlanePoint axis = axisPoint(arc);
    const bool endsAbove = isApart(upperEnd(arc), axis, tolerence_);
    const bool beginsBelow = isApart(lowerEnd(arc), axis, tolerence_);
    const bool passes = turnTo(arc, axis) < turnTo(arc, upperEnd(arc));
    if (passes && endsAbove && beginsBelow) {
      for (const PlacedRow& part : partsAtAxis(placed, axis, tolerance_)) rows.push_back(part);
      return;
    }
    rows.push_back(placed);
    if (stretch <= kMaxStretch * size_) return;
    if (!endsAbove) raiseCenterOver(rows.back().row, upperEnd(arc));
    if (!beginsBelow) lowerCenterUnder(rows.back().row, lowerEnd(arc));
  }

 private:
  // How far an arc stretches the extents; 0 for what is as it should be.
  double stretched(const DxfRow& row) const {
    if (!isArc(row.type) || isWholeCircle(row) || !isUsual(row)) return 0;
    const double radius = lengthOf(startOf(row) - centerOf(row));
    const double stretch = stretchOf(row, box_);
    return stretch > std::max<double>(tolerence_, kAngleNoise * radius) ? stretch : 0;
  }

  Box box_;
  double size_;
  float tolerence_;
  double tolerance_;
};

}  // namespace

void splitAtAxis(std::vector<PlacedRow>& rows, float tolerence, double tolerance) {
  const Box box = boxOfAll(rows);
  if (box.isEmpty()) return;
  const AxisSplit split(box, tolerence, tolerance);
  std::vector<PlacedRow> kept;
  kept.reserve(rows.size());
  for (const PlacedRow& placed : rows) split.append(placed, kept);
  rows = std::move(kept);
}

}  // namespace tess
