// Ellipses and circles as the drawing sees them: what becomes of a circle under any change of
// coordinates.
// Owns: EllipseArc, isCircular, EllipseCurve.
#pragma once

#include "import/biarc.h"

namespace tess {

// The points center + cos(t) u + sin(t) v for t from `from` to `to`, which is not below it. u and v
// are halves of any two diameters of which each halves the chords along the other.
struct EllipseArc {
  PlanePoint center, u, v;
  double from = 0, to = 0;  // radians

  PlanePoint at(double t) const;
};

// True when it is a part of a circle, or all of it.
bool isCircular(const EllipseArc& ellipse);

// Its pieces end at the axes of the ellipse, so that all quarters are served alike.
class EllipseCurve : public PlaneCurve {
 public:
  explicit EllipseCurve(const EllipseArc& ellipse);
  int spans() const override { return static_cast<int>(ends_.size()) - 1; }
  CurvePoint pointAt(int span, double share) const override;

 private:
  EllipseArc ellipse_;
  std::vector<double> ends_;  // of the spans, in the ellipse's own parameter
};

}  // namespace tess
