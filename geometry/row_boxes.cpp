// Bounding boxes: curves by their ends and the quadrant points on them.
#include "geometry/row_boxes.h"

#include <algorithm>
#include <cmath>

#include "core/drawing_store.h"
#include "geometry/float_angles.h"
#include "geometry/row_entity.h"

namespace tess {
namespace {

// A quadrant point: its angle as vectorAngle gives it and its direction from the centre.
struct Quadrant {
  float angle;
  int x, y;
};

constexpr Quadrant kQuadrants[] = {
    {0, 1, 0},
    {static_cast<float>(kPi / 2), 0, 1},
    {static_cast<float>(kPi), -1, 0},
    {static_cast<float>(kThreePi / 2), 0, -1},
};

Point around(Point center, double dx, double dy) {
  return {narrow(center.x + dx), narrow(center.y + dy)};
}

Box circleBox(Point center, double radius) {
  return boxOf(around(center, -radius, -radius), around(center, radius, radius));
}

// An end of an arc, moved along its own radius to the other end's.
Point atRadius(Point center, Point end, double radius) {
  const double own = distance(end, center);
  if (own <= 0 || own == radius) return end;
  const double factor = radius / own;
  return around(center, (static_cast<double>(end.x) - center.x) * factor,
                (static_cast<double>(end.y) - center.y) * factor);
}

}  // namespace

Box arcBox(const Entity& arc) {
  const double startRadius = radiusOf(arc);
  const double endRadius = distance(arc.end, arc.center);
  const double radius = std::max(startRadius, endRadius);
  const float a = vectorAngle(arc.center, arc.start);
  const float b = vectorAngle(arc.center, arc.end);
  Box box = boxOf(arc.start, arc.end);
  box = extended(box, atRadius(arc.center, arc.start, endRadius));
  box = extended(box, atRadius(arc.center, arc.end, startRadius));
  for (const Quadrant& quadrant : kQuadrants) {
    if (angleInSweep(quadrant.angle, a, b, arc.type))
      box = extended(box, around(arc.center, quadrant.x * radius, quadrant.y * radius));
  }
  return box;
}

Box entityBox(const Entity& entity) {
  if (isArc(entity.type)) return arcBox(entity);
  if (entity.type == kCircle) return circleBox(entity.center, radiusOf(entity));
  return boxOf(entity.start, entity.end);
}

double largestCoordinate(Point p) {
  return std::max(std::abs(p.x), std::abs(p.y));
}

double magnitudeOf(const Entity& entity) {
  const double ends = std::max(largestCoordinate(entity.start), largestCoordinate(entity.end));
  if (!isRound(entity.type)) return ends;
  const double radius = std::max(radiusOf(entity), distance(entity.end, entity.center));
  return std::max({ends, largestCoordinate(entity.center), radius});
}

std::vector<Entity> segmentEntities(const DrawingStore& store) {
  return segmentEntities(store, 1, store.NumSegments);
}

std::vector<Entity> pathEntities(const DrawingStore& store) {
  return pathEntities(store, 1, store.NumPathSegments);
}

std::vector<Entity> segmentEntities(const DrawingStore& store, int first, int last) {
  std::vector<Entity> entities;
  entities.reserve(static_cast<std::size_t>(std::max(0, last - first + 1)));
  for (int sg = first; sg <= last; ++sg) entities.push_back(segmentEntity(store, sg));
  return entities;
}

std::vector<Entity> pathEntities(const DrawingStore& store, int first, int last) {
  std::vector<Entity> entities;
  entities.reserve(static_cast<std::size_t>(std::max(0, last - first + 1)));
  for (int ps = first; ps <= last; ++ps) entities.push_back(pathEntity(store, ps));
  return entities;
}

std::vector<Box> entityBoxes(const std::vector<Entity>& entities) {
  std::vector<Box> boxes;
  boxes.reserve(entities.size());
  for (const Entity& entity : entities) boxes.push_back(entityBox(entity));
  return boxes;
}

namespace {

// nearestOnArc and nearestOnCircle cast a line of slope s through the centre; the roots of its
// quadratic are off by up to 2e-7 of the largest coordinate, along the line by (1 + s) times that,
// and s goes up to kSteepSlope.
constexpr double kCastNoise = 2.1e-7 * kSteepSlope;

// From a coordinate to the span of two others; 0 within it.
double gap(float at, float a, float b) {
  const double below = static_cast<double>(std::min(a, b)) - at;
  const double above = static_cast<double>(at) - std::max(a, b);
  return std::max({below, above, 0.0});
}

// From the point to the square round the whole circle.
double leastDistanceToRound(const Entity& arc, Point at, float tolerence) {
  const double radius = std::max(distance(arc.start, arc.center), distance(arc.end, arc.center));
  const double away = std::max(std::abs(static_cast<double>(at.x) - arc.center.x),
                               std::abs(static_cast<double>(at.y) - arc.center.y));
  const double magnitude = std::max(magnitudeOf(arc), largestCoordinate(at));
  return away - radius - nearestSlack(magnitude, tolerence);
}

}  // namespace

double nearestSlack(double magnitude, float tolerence) {
  const double within = std::max(tolerence, 0.0F);
  return kCastNoise * magnitude + within + std::sqrt(within);
}

double leastDistance(const Entity& entity, Point at, float tolerence) {
  const double least = isRound(entity.type) ? leastDistanceToRound(entity, at, tolerence)
                                            : std::max(gap(at.x, entity.start.x, entity.end.x),
                                                       gap(at.y, entity.start.y, entity.end.y));
  return least * (1 - kRoundingMargin);
}

}  // namespace tess
