// The outline of one character as a font has it: closed contours, or open strokes, of lines and
// curves of the second and third degree. One em is 1, the pen starts at the origin, y grows upward.
// Owns: OutlineCurve, OutlineContour, GlyphOutline, GlyphShape, MAT2Axes, axesOf, mapped.
#pragma once

#include <string>
#include <vector>

#include "geometry/plane.h"
#include "import/fixed_point.h"

namespace tess {

// From where the one before it ends. Degree 1 has no control point, degree 2 the first alone.
struct OutlineCurve {
  int degree = 1;
  PlanePoint control1, control2, end;
};

// A closed one ends where it starts, exactly; around a filled area it runs counter-clockwise.
struct OutlineContour {
  PlanePoint start;
  std::vector<OutlineCurve> curves;
  bool closed = true;
};

struct GlyphOutline {
  std::vector<OutlineContour> contours;
};

struct GlyphShape {
  GlyphOutline outline;
  double advance = 0;      // unhinted
  bool missing = false;    // the font has none; this is another font's, or empty
  std::string substitute;  // the family that it was taken from; "" for none
};

// The matrix of the font interface in plain numbers.
struct MAT2Axes {
  PlanePoint x{1, 0}, y{0, 1};  // where the axes go
};
MAT2Axes axesOf(const MAT2& matrix);
GlyphOutline mapped(GlyphOutline outline, const MAT2Axes& axes);

}  // namespace tess
