// Outlines under a matrix.
#include "import/glyph_outline.h"

namespace tess {
namespace {

double plain(const FIXED& number) {
  clsFixed fixed;
  fixed.Load(number.value, number.fract);
  return fixed.AsDouble();
}

}  // namespace

MAT2Axes axesOf(const MAT2& matrix) {
  return {{plain(matrix.eM11), plain(matrix.eM12)}, {plain(matrix.eM21), plain(matrix.eM22)}};
}

GlyphOutline mapped(GlyphOutline outline, const MAT2Axes& axes) {
  const auto map = [&axes](PlanePoint& point) { point = point.x * axes.x + point.y * axes.y; };
  for (OutlineContour& contour : outline.contours) {
    map(contour.start);
    for (OutlineCurve& curve : contour.curves) {
      map(curve.control1);
      map(curve.control2);
      map(curve.end);
    }
  }
  return outline;
}

}  // namespace tess
