// Points of DXF entities by the plain formulas of the format: what the exact conversion is held
// against. Nothing here is shared with the conversion.
// Owns: splineBasis, splinePoint, splineSamples, bulgeSamples, polylineSamples, ellipseSamples,
//       circleSamples, samplesOf.
#pragma once

#include <cmath>
#include <vector>

#include "import/dxf_document.h"
#include "tests/support/curves.h"

namespace tess::testing {

// The basis function of a spline, by its recursion; the last span holds its end too.
inline double splineBasis(const std::vector<double>& knots, std::size_t k, int degree, double t,
                          double last) {
  if (degree == 0) {
    const bool inside = knots[k] <= t && t < knots[k + 1];
    return inside || (t == last && knots[k] < knots[k + 1] && knots[k + 1] == last) ? 1 : 0;
  }
  const auto d = static_cast<std::size_t>(degree);
  double value = 0;
  if (knots[k + d] > knots[k]) {
    value +=
        (t - knots[k]) / (knots[k + d] - knots[k]) * splineBasis(knots, k, degree - 1, t, last);
  }
  if (knots[k + d + 1] > knots[k + 1]) {
    value += (knots[k + d + 1] - t) / (knots[k + d + 1] - knots[k + 1]) *
             splineBasis(knots, k + 1, degree - 1, t, last);
  }
  return value;
}

inline Vec splinePoint(const DxfSpline& s, double t) {
  const double last = s.knots[s.controlPoints.size()];
  Vec sum;
  double weights = 0;
  for (std::size_t k = 0; k < s.controlPoints.size(); ++k) {
    if (t < s.knots[k] || t > s.knots[k + static_cast<std::size_t>(s.degree) + 1]) continue;
    const double share =
        splineBasis(s.knots, k, s.degree, t, last) * (s.weights.empty() ? 1 : s.weights[k]);
    sum = sum + share * Vec{s.controlPoints[k].x, s.controlPoints[k].y};
    weights += share;
  }
  return (1 / weights) * sum;
}

inline std::vector<Vec> splineSamples(const DxfSpline& s, int perSpan) {
  std::vector<Vec> samples;
  for (std::size_t k = static_cast<std::size_t>(s.degree); k < s.controlPoints.size(); ++k) {
    for (int step = 0; step <= perSpan; ++step) {
      const double t = s.knots[k] + (s.knots[k + 1] - s.knots[k]) * step / perSpan;
      samples.push_back(splinePoint(s, std::min(t, s.knots[k + 1])));
    }
  }
  return samples;
}

// Points of an arc with that bulge from a to b: the angle at each of them over the chord is the
// same, so that a point divides the bulge's quarter angle.
inline std::vector<Vec> bulgeSamples(Vec a, Vec b, double bulge, int count) {
  std::vector<Vec> samples{a, b};
  if (bulge == 0) return samples;
  const double whole = 4 * std::atan(bulge);
  for (int step = 1; step < count; ++step) {
    // The chord to the point is turned from the whole chord by half of the rest of the angle, and
    // chords are as the sines of their half angles.
    const double part = whole * step / count;
    const double turn = (part - whole) / 2;
    const double length = std::sin(part / 2) / std::sin(whole / 2);
    const Vec chord = b - a;
    samples.push_back(a + length * (std::cos(turn) * chord + std::sin(turn) * leftOf(chord)));
  }
  return samples;
}

inline std::vector<Vec> polylineSamples(const DxfEntity& e, int perEdge) {
  std::vector<Vec> samples;
  const std::size_t count = e.Vertexes.size();
  const std::size_t edges = (e.g70 & DxfEntity::kClosed) != 0 ? count : count - 1;
  for (std::size_t k = 0; count > 0 && k < edges; ++k) {
    const DxfVertex& from = e.Vertexes[k];
    const DxfVertex& to = e.Vertexes[(k + 1) % count];
    const auto edge = bulgeSamples({from.x0, from.y0}, {to.x0, to.y0}, from.bulge, perEdge);
    samples.insert(samples.end(), edge.begin(), edge.end());
  }
  return samples;
}

inline std::vector<Vec> ellipseSamples(const DxfEntity& e, int count) {
  const double from = e.ellipse->startParameter;
  double to = e.ellipse->endParameter;
  while (to <= from) to += kFullTurn;
  const double sense = e.extrusion.z < 0 ? -1 : 1;
  const Vec major{e.x1, e.y1};
  const Vec minor = (sense * e.g40) * leftOf(major);
  std::vector<Vec> samples;
  for (int step = 0; step <= count; ++step) {
    const double t = from + (to - from) * step / count;
    samples.push_back(Vec{e.x0, e.y0} + std::cos(t) * major + std::sin(t) * minor);
  }
  return samples;
}

inline std::vector<Vec> circleSamples(const DxfEntity& e, double from, double to, int count) {
  while (to <= from) to += 360;
  std::vector<Vec> samples;
  for (int step = 0; step <= count; ++step) {
    const double angle = (from + (to - from) * step / count) * kFullTurn / 360;
    samples.push_back(onCircle({e.x0, e.y0}, e.g40, angle));
  }
  return samples;
}

// Points of the entity in the drawing, `density` of them to a span, an edge or a turn; seen from
// above for the extrusions (0, 0, 1) and (0, 0, -1). None for kinds that are no curves.
inline std::vector<Vec> samplesOf(const DxfEntity& e, int density) {
  std::vector<Vec> samples;
  bool inPlane = true;
  if (e.EntityType == "LINE") {
    inPlane = false;
    for (int k = 0; k <= density; ++k) {
      const double share = static_cast<double>(k) / density;
      samples.push_back({e.x0 + share * (e.x1 - e.x0), e.y0 + share * (e.y1 - e.y0)});
    }
  } else if (e.EntityType == "ARC") {
    samples = circleSamples(e, e.g50, e.g51, density);
  } else if (e.EntityType == "CIRCLE") {
    samples = circleSamples(e, 0, 360, density);
  } else if (e.EntityType == "ELLIPSE") {
    inPlane = false;
    samples = ellipseSamples(e, 4 * density);
  } else if (e.EntityType == "SPLINE" && !e.spline->knots.empty()) {
    inPlane = false;
    samples = splineSamples(*e.spline, density);
  } else if (e.EntityType == "LWPOLYLINE" || e.EntityType == "POLYLINE") {
    samples = polylineSamples(e, density);
  }
  if (inPlane && e.extrusion.z < 0) {
    for (Vec& sample : samples) sample.x = -sample.x;
  }
  return samples;
}

}  // namespace tess::testing
