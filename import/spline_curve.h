// Splines of any degree, rational ones too, as a row of Bezier spans.
// Owns: WeightedPoint, BezierSpan, SplineCurve, bezierSpans.
#pragma once

#include <vector>

#include "import/biarc.h"
#include "import/block_placement.h"
#include "import/dxf_document.h"

namespace tess {

// A point of weight w, with both coordinates multiplied by it.
struct WeightedPoint {
  double x = 0, y = 0, w = 1;
};
using BezierSpan = std::vector<WeightedPoint>;  // one point more than its degree

class SplineCurve : public PlaneCurve {
 public:
  explicit SplineCurve(std::vector<BezierSpan> bezierSpans) : spans_(std::move(bezierSpans)) {}
  int spans() const override { return static_cast<int>(spans_.size()); }
  CurvePoint pointAt(int span, double share) const override;

 private:
  std::vector<BezierSpan> spans_;
};

// The spans of a spline with control points and knots, in the coordinates of the drawing; none when
// knots, weights or degree make no spline, or a coordinate is too large.
std::vector<BezierSpan> bezierSpans(const DxfSpline& spline, const BlockPlacement& placement);

}  // namespace tess
