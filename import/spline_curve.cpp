// Bezier spans: their points and directions, and how they come out of control points and knots.
#include "import/spline_curve.h"

#include <algorithm>
#include <cmath>

namespace tess {
namespace {

constexpr int kHighestDegree = 25;

WeightedPoint between(const WeightedPoint& a, const WeightedPoint& b, double share) {
  const double rest = 1 - share;
  return {rest * a.x + share * b.x, rest * a.y + share * b.y, rest * a.w + share * b.w};
}

PlanePoint placeOf(const WeightedPoint& p) {
  return {p.x / p.w, p.y / p.w};
}

// The direction from the point `at` to the first control point that is not there.
PlanePoint directionBeside(const BezierSpan& span, PlanePoint at, bool atStart) {
  double size = 0;
  for (const WeightedPoint& p : span) size = std::max(size, lengthOf(placeOf(p) - at));
  const double reach = 1e-12 * size;
  for (std::size_t k = 1; k < span.size(); ++k) {
    const PlanePoint away = placeOf(atStart ? span[k] : span[span.size() - 1 - k]) - at;
    if (lengthOf(away) > reach) return unitOf(atStart ? away : -1 * away);
  }
  return {};
}

// The last two points that halving leaves: the curve passes between them in their direction.
struct LastLeg {
  WeightedPoint from, to;
};
LastLeg lastLegOf(BezierSpan points, double share) {
  for (std::size_t count = points.size() - 1; count > 1; --count) {
    for (std::size_t k = 0; k < count; ++k) points[k] = between(points[k], points[k + 1], share);
  }
  return {points[0], points[1]};
}

bool isUsable(const DxfSpline& s) {
  const std::size_t count = s.controlPoints.size();
  if (s.degree < 1 || s.degree > kHighestDegree) return false;
  const auto degree = static_cast<std::size_t>(s.degree);
  if (count <= degree || s.knots.size() != count + degree + 1) return false;
  if (!s.weights.empty() && s.weights.size() != count) return false;
  const auto positive = [](double w) { return w > 0 && std::isfinite(w); };
  return std::is_sorted(s.knots.begin(), s.knots.end()) &&
         std::isfinite(s.knots.back() - s.knots.front()) &&
         std::all_of(s.weights.begin(), s.weights.end(), positive);
}

// One less than the number of arguments is the degree: the polar form of the piece before
// knots[span + 1], whose value for equal arguments is the curve.
WeightedPoint polarForm(const std::vector<WeightedPoint>& points, const std::vector<double>& knots,
                        std::size_t span, const std::vector<double>& arguments) {
  const std::size_t degree = arguments.size();
  const auto first = static_cast<std::ptrdiff_t>(span - degree);
  std::vector<WeightedPoint> d(points.begin() + first,
                               points.begin() + first + static_cast<std::ptrdiff_t>(degree) + 1);
  for (std::size_t round = 1; round <= degree; ++round) {
    for (std::size_t j = degree; j >= round; --j) {
      const double low = knots[span - degree + j];
      const double high = knots[span + 1 + j - round];
      d[j] = between(d[j - 1], d[j], (arguments[round - 1] - low) / (high - low));
    }
  }
  return d[degree];
}

// Its points are the polar forms of the two knots in all mixtures.
BezierSpan spanAt(const std::vector<WeightedPoint>& points, const DxfSpline& spline,
                  std::size_t span) {
  const auto degree = static_cast<std::size_t>(spline.degree);
  BezierSpan bezier;
  std::vector<double> arguments(degree, spline.knots[span]);
  for (std::size_t k = 0;; ++k) {
    bezier.push_back(polarForm(points, spline.knots, span, arguments));
    if (k == degree) return bezier;
    arguments[k] = spline.knots[span + 1];
  }
}

bool hasLength(const BezierSpan& span) {
  const PlanePoint first = placeOf(span.front());
  return std::any_of(span.begin(), span.end(),
                     [first](const WeightedPoint& p) { return placeOf(p) != first; });
}

bool isSound(const BezierSpan& span) {
  return std::all_of(span.begin(), span.end(), [](const WeightedPoint& p) {
    return p.w > 0 && std::isfinite(p.w) && isStorable(placeOf(p));
  });
}

std::vector<WeightedPoint> weighted(const DxfSpline& spline, const BlockPlacement& placement) {
  std::vector<WeightedPoint> points;
  for (std::size_t k = 0; k < spline.controlPoints.size(); ++k) {
    const PlanePoint p = placement.point(spline.controlPoints[k]);
    const double w = spline.weights.empty() ? 1 : spline.weights[k];
    points.push_back({w * p.x, w * p.y, w});
  }
  return points;
}

}  // namespace

CurvePoint SplineCurve::pointAt(int span, double share) const {
  const BezierSpan& points = spans_[static_cast<std::size_t>(span)];
  if (share <= 0) {
    const PlanePoint at = placeOf(points.front());
    return {at, directionBeside(points, at, /*atStart=*/true)};
  }
  if (share >= 1) {
    const PlanePoint at = placeOf(points.back());
    return {at, directionBeside(points, at, /*atStart=*/false)};
  }
  const auto [from, to] = lastLegOf(points, share);
  return {placeOf(between(from, to, share)), unitOf(placeOf(to) - placeOf(from))};
}

std::vector<BezierSpan> bezierSpans(const DxfSpline& spline, const BlockPlacement& placement) {
  if (!isUsable(spline)) return {};
  const std::vector<WeightedPoint> points = weighted(spline, placement);
  std::vector<BezierSpan> spans;
  for (std::size_t k = static_cast<std::size_t>(spline.degree); k < points.size(); ++k) {
    if (spline.knots[k] == spline.knots[k + 1]) continue;
    const BezierSpan span = spanAt(points, spline, k);
    if (!isSound(span)) return {};
    if (hasLength(span)) spans.push_back(span);
  }
  return spans;
}

}  // namespace tess
