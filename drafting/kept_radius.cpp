// Arcs that get another end and keep their radius.
#include "drafting/kept_radius.h"

#include "geometry/float_intersections.h"

namespace tess {
namespace {

Entity circleAbout(Point center, float radius) {
  const Point on{narrow(static_cast<double>(center.x) + radius), center.y};
  return {kCounterClockwiseArc, on, on, center};
}

}  // namespace

// Where the circles about both ends meet. About one and the same point they are one circle.
std::optional<Point> keptRadiusCenter(const Entity& arc, Point far, Point to, float tolerence) {
  if (far == to) return std::nullopt;
  const float radius = radiusOf(arc);
  const Crossing centers =
      intersectArcs(circleAbout(far, radius), circleAbout(to, radius), tolerence);
  if (!centers) return std::nullopt;
  return nearerHit(centers, arc.center);
}

}  // namespace tess
