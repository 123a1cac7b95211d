// How far a drawing reaches, row by row.
#include "display/drawing_extents.h"

#include <algorithm>
#include <cmath>

#include "core/drawing_store.h"
#include "geometry/float_angles.h"
#include "geometry/row_entity.h"

namespace tess {

namespace {

class ExtentsBox {
 public:
  void add(Point p) {
    if (empty_) box_ = {p.x, p.y, p.x, p.y};
    empty_ = false;
    box_.minx = std::min(box_.minx, p.x);
    box_.miny = std::min(box_.miny, p.y);
    box_.maxx = std::max(box_.maxx, p.x);
    box_.maxy = std::max(box_.maxy, p.y);
  }

  // Fixed: a lone upright or level line has no extents; Zoom Extents leaves the view alone then.
  bool hasArea() const { return !empty_ && box_.minx < box_.maxx && box_.miny < box_.maxy; }
  const DrawingExtents& box() const { return box_; }

 private:
  DrawingExtents box_;
  bool empty_ = true;
};

void addCircle(ExtentsBox& box, Point center, float radius) {
  box.add({center.x - radius, center.y - radius});
  box.add({center.x + radius, center.y + radius});
}

bool sweepsAcrossZero(int type, const ArcAngles& arc) {
  return type == kClockwiseArc ? arc.start < arc.end : arc.start > arc.end;
}

// Fixed: three samples, not the quadrants; extents of arcs and aligned imports would move.
void addArc(ExtentsBox& box, const Entity& arc) {
  const ArcAngles angles = arcRadiusAndAngles(arc.start, arc.end, arc.center);
  if (angles.start == angles.end) return addCircle(box, arc.center, angles.radius);
  box.add(arc.start);
  box.add(arc.end);
  double middle = (static_cast<double>(angles.start) + angles.end) / 2;
  if (sweepsAcrossZero(arc.type, angles)) middle += kPi;
  // A quarter of the difference, also where the arc sweeps the rest of the circle.
  const double spread = std::abs(static_cast<double>(angles.end) - angles.start) / 4;
  for (const double angle : {middle, middle + spread, middle - spread}) {
    box.add({narrow(arc.center.x + angles.radius * std::cos(angle)),
             narrow(arc.center.y + angles.radius * std::sin(angle))});
  }
}

void addEntity(ExtentsBox& box, const Entity& entity) {
  if (isArc(entity.type)) return addArc(box, entity);
  if (entity.type == kCircle) return addCircle(box, entity.center, radiusOf(entity));
  box.add(entity.start);
  box.add(entity.end);
}

void addSegment(ExtentsBox& box, const Entity& entity) {
  if (entity.type == kPoint) return box.add(entity.start);  // all that a bare point has
  addEntity(box, entity);
}

std::optional<DrawingExtents> extentsOf(const ExtentsBox& box) {
  return box.hasArea() ? std::optional(box.box()) : std::nullopt;
}

}  // namespace

std::optional<DrawingExtents> GetDrawingExtents(const DrawingStore& store) {
  ExtentsBox box;
  for (int sg = 1; sg <= store.NumSegments; ++sg) addSegment(box, segmentEntity(store, sg));
  for (int ps = 1; ps <= store.NumPathSegments; ++ps) addEntity(box, pathEntity(store, ps));
  return extentsOf(box);
}

DrawingExtents entityExtents(const Entity& entity) {
  ExtentsBox box;
  addEntity(box, entity);
  return box.box();
}

std::optional<DrawingExtents> GetSegmentExtents(const DrawingStore& store, int first, int last) {
  ExtentsBox box;
  if (first < 1 || last > store.NumSegments) return std::nullopt;
  for (int sg = first; sg <= last; ++sg) addSegment(box, segmentEntity(store, sg));
  return extentsOf(box);
}

}  // namespace tess
