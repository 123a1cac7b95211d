// The entities of a DXF file as chains of rows, kind by kind.
#include "import/entity_chain.h"

#include <cmath>
#include <numbers>
#include <string_view>

#include "core/text.h"
#include "import/ellipse_curve.h"
#include "import/fit_points.h"
#include "import/flat_arcs.h"
#include "import/spline_curve.h"

namespace tess {
namespace {

constexpr double kFullTurn = 2 * std::numbers::pi;
constexpr double kDegree = std::numbers::pi / 180;
// Files write the end of a whole turn with as few as so many digits.
constexpr double kAngleDigits = 1e-9;

struct Target {
  const BlockPlacement& placement;
  double tolerance;
  EntityChain& chain;
  bool& whole;
};

void addLine(EntityChain& chain, PlanePoint start, PlanePoint end) {
  if (start == end) return;
  chain.push_back({.x0 = start.x, .y0 = start.y, .x1 = end.x, .y1 = end.y});
}

void addRound(EntityChain& chain, const EllipseArc& circle, PlanePoint start, PlanePoint end) {
  const bool counterClockwise = cross(circle.u, circle.v) > 0;
  chain.push_back({.type = counterClockwise ? kCounterClockwiseArc : kClockwiseArc,
                   .x0 = start.x,
                   .y0 = start.y,
                   .x1 = end.x,
                   .y1 = end.y,
                   .xc = circle.center.x,
                   .yc = circle.center.y});
}

// The fitted rows begin and end exactly where the neighbours do.
void addCurve(const Target& target, const PlaneCurve& curve, PlanePoint start, PlanePoint end) {
  const std::size_t before = target.chain.size();
  if (!appendBiarcs(curve, target.tolerance, target.chain)) target.whole = false;
  if (target.chain.size() == before) return;
  target.chain[before].x0 = start.x;
  target.chain[before].y0 = start.y;
  target.chain.back().x1 = end.x;
  target.chain.back().y1 = end.y;
}

// A flat arc is a line. One that is too long for that, though its centre is too far away for the
// tables, is fitted by lines.
void addArc(const Target& target, const EllipseArc& circle, PlanePoint start, PlanePoint end) {
  const double chord = lengthOf(end - start);
  const double rise = riseOver(chord, lengthOf(circle.u));
  const bool isShort = std::abs(circle.to - circle.from) < kFullTurn / 2;
  if (isShort && rise < kFlatShare * target.tolerance) {
    addLine(target.chain, start, end);
  } else if (isShort && rise <= kFlattestSlope * chord) {
    addCurve(target, EllipseCurve(circle), start, end);
  } else {
    addRound(target.chain, circle, start, end);
  }
}

bool addEllipse(const Target& target, const EllipseArc& ellipse, PlanePoint start, PlanePoint end) {
  const bool sound = isStorable(ellipse.center) && isStorable(ellipse.u) && isStorable(ellipse.v) &&
                     std::isfinite(ellipse.from) && std::isfinite(ellipse.to);
  if (!sound) return false;
  if (ellipse.u == PlanePoint{} && ellipse.v == PlanePoint{}) return true;
  if (isCircular(ellipse)) {
    addArc(target, ellipse, start, end);
  } else {
    addCurve(target, EllipseCurve(ellipse), start, end);
  }
  return true;
}

// How far a parameter runs upward from `from` to `to`: above 0, up to one turn. No difference, and
// a whole turn written with few digits, are one turn.
double sweepOf(double from, double to, double turn) {
  const double whole = to - from;
  double sweep = std::fmod(whole, turn);
  if (sweep < 0) sweep += turn;
  const double slack = kAngleDigits * turn;
  const bool isTurn =
      sweep > turn - slack || (sweep < slack && (whole == 0 || std::abs(whole) > slack));
  return isTurn ? turn : sweep;
}

bool addLineEntity(const DxfEntity& entity, const Target& target) {
  addLine(target.chain, target.placement.point({entity.x0, entity.y0, entity.z0}),
          target.placement.point({entity.x1, entity.y1, entity.z1}));
  return true;
}

EllipseArc circleOf(const DxfEntity& entity, const Target& target) {
  const BlockPlacement placement = target.placement * objectPlane(entity.extrusion);
  return {.center = placement.point({entity.x0, entity.y0, entity.z0}),
          .u = placement.direction({entity.g40, 0, 0}),
          .v = placement.direction({0, entity.g40, 0}),
          .from = 0,
          .to = kFullTurn};
}

bool addArcEntity(const DxfEntity& entity, const Target& target) {
  EllipseArc arc = circleOf(entity, target);
  const double sweep = sweepOf(entity.g50, entity.g51, 360);
  arc.from = entity.g50 * kDegree;
  arc.to = (entity.g50 + sweep) * kDegree;
  const PlanePoint start = arc.at(arc.from);
  return addEllipse(target, arc, start, sweep == 360 ? start : arc.at(entity.g51 * kDegree));
}

// A whole circle is a clockwise row, as everywhere in the import.
bool addCircleEntity(const DxfEntity& entity, const Target& target) {
  const EllipseArc circle = circleOf(entity, target);
  const PlanePoint start = circle.center + circle.u;
  if (!addEllipse(target, circle, start, start)) return false;
  if (target.chain.size() == 1) target.chain.front().type = kClockwiseArc;
  return true;
}

bool addEllipseEntity(const DxfEntity& entity, const Target& target) {
  const BlockPlacement& placement = target.placement;
  const DxfPoint out = objectPlane(entity.extrusion).zAxis;
  const DxfPoint major{entity.x1, entity.y1, entity.z1};
  const DxfPoint minor{entity.g40 * (out.y * major.z - out.z * major.y),
                       entity.g40 * (out.z * major.x - out.x * major.z),
                       entity.g40 * (out.x * major.y - out.y * major.x)};
  const double from = entity.ellipse->startParameter;
  const double sweep = sweepOf(from, entity.ellipse->endParameter, kFullTurn);
  const EllipseArc ellipse{.center = placement.point({entity.x0, entity.y0, entity.z0}),
                           .u = placement.direction(major),
                           .v = placement.direction(minor),
                           .from = from,
                           .to = from + sweep};
  const PlanePoint start = ellipse.at(from);
  return addEllipse(target, ellipse, start, sweep == kFullTurn ? start : ellipse.at(ellipse.to));
}

bool addSpline(const DxfEntity& entity, const Target& target) {
  const DxfSpline& spline = *entity.spline;
  const bool closed = (entity.g70 & (DxfSpline::kClosed | DxfSpline::kPeriodic)) != 0;
  std::vector<BezierSpan> spans = spline.controlPoints.empty()
                                      ? spansThrough(spline, closed, target.placement)
                                      : bezierSpans(spline, target.placement);
  if (spans.empty()) return false;
  const SplineCurve curve(std::move(spans));
  if (!appendBiarcs(curve, target.tolerance, target.chain)) target.whole = false;
  return true;
}

// An edge's bulge is the tangent of a quarter of its angle, positive for an arc to the left, which
// goes counter-clockwise. The centre so lies (1 - b^2)/(4 b) of the chord to the left of its
// middle.
void addEdge(const DxfVertex& from, const DxfVertex& to, double z, const Target& target) {
  const PlanePoint start = target.placement.point({from.x0, from.y0, z});
  const PlanePoint end = target.placement.point({to.x0, to.y0, z});
  const double bulge = from.bulge;
  const double rise = std::abs(bulge) / 2 * lengthOf(end - start);
  if (start == end || rise < kFlatShare * target.tolerance) {
    return addLine(target.chain, start, end);
  }
  const PlanePoint a{from.x0, from.y0};
  const PlanePoint b{to.x0, to.y0};
  const double aside = (1 / bulge - bulge) / 4;
  const PlanePoint center = 0.5 * (a + b) + aside * leftOf(b - a);
  const PlanePoint u = a - center;
  const PlanePoint v = bulge > 0 ? leftOf(u) : -1 * leftOf(u);
  const EllipseArc arc{.center = target.placement.point({center.x, center.y, z}),
                       .u = target.placement.direction({u.x, u.y, 0}),
                       .v = target.placement.direction({v.x, v.y, 0}),
                       .from = 0,
                       .to = 4 * std::atan(std::abs(bulge))};
  if (!addEllipse(target, arc, start, end)) addLine(target.chain, start, end);
}

// The points that a fitted spline was made from are not on the curve.
std::vector<DxfVertex> verticesOf(const DxfEntity& entity) {
  std::vector<DxfVertex> vertices;
  for (const DxfVertex& vertex : entity.Vertexes) {
    if ((vertex.g70 & DxfVertex::kControlPoint) == 0) vertices.push_back(vertex);
  }
  return vertices;
}

bool addPolyline(const DxfEntity& entity, const Target& target) {
  if ((entity.g70 & (DxfEntity::kMesh | DxfEntity::kPolyface)) != 0) return false;
  const std::vector<DxfVertex> vertices = verticesOf(entity);
  const bool inSpace = (entity.g70 & DxfEntity::k3D) != 0;
  const BlockPlacement placement =
      inSpace ? target.placement : target.placement * objectPlane(entity.extrusion);
  const Target inPlane{placement, target.tolerance, target.chain, target.whole};
  for (std::size_t k = 1; k < vertices.size(); ++k) {
    addEdge(vertices[k - 1], vertices[k], entity.z0, inPlane);
  }
  const bool closes = (entity.g70 & DxfEntity::kClosed) != 0 && vertices.size() > 1;
  if (closes) addEdge(vertices.back(), vertices.front(), entity.z0, inPlane);
  return true;
}

// The kinds that give a single curve.
struct Kind {
  std::string_view type;
  bool (*add)(const DxfEntity& entity, const Target& target);
};
constexpr Kind kKinds[] = {
    {"LINE", addLineEntity},       {"ARC", addArcEntity}, {"CIRCLE", addCircleEntity},
    {"ELLIPSE", addEllipseEntity}, {"SPLINE", addSpline}, {"LWPOLYLINE", addPolyline},
    {"POLYLINE", addPolyline},
};

}  // namespace

bool chainOf(const DxfEntity& entity, const BlockPlacement& placement, double tolerance,
             EntityChain& chain, bool& whole) {
  const std::string type = upperCased(entity.EntityType);
  for (const Kind& kind : kKinds) {
    if (kind.type == type) return kind.add(entity, {placement, tolerance, chain, whole});
  }
  return false;
}

}  // namespace tess
