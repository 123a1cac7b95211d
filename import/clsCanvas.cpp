// The canvas over the fonts of the machine.
#include "import/clsCanvas.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <string>

#include "core/runtime_failure.h"

namespace tess {
namespace {

constexpr double kArcStep = 0.05;  // radians: the preview of an edge, not a part of the text

// Fixed: the texts name an interface of another platform; operators look them up in the handbook.
constexpr char kOutlineFailed[] = "Win32 GetGlyphOutline() returned error 0x";
constexpr char kWidthsFailed[] = "Win32 GetCharABCWidths() returned error 0x";

std::string hexadecimal(int number) {
  char digits[16];
  const auto end = std::to_chars(std::begin(digits), std::end(digits),
                                 static_cast<unsigned>(number), /*base=*/16);
  std::string text(std::begin(digits), end.ptr);
  std::transform(text.begin(), text.end(), text.begin(), [](char digit) {
    return digit >= 'a' ? static_cast<char>(digit - 'a' + 'A') : digit;
  });
  return text;
}

template <class Read>
auto readFont(const char* failed, Read read) {
  try {
    return read();
  } catch (const FontError& error) {
    throw RuntimeFailure(FailureNumber::DeviceInputOutput, error.what(),
                         failed + hexadecimal(error.code()));
  }
}

// How far an outline reaches to the left and right, control points included.
class Reach {
 public:
  explicit Reach(const GlyphOutline& outline) {
    for (const OutlineContour& contour : outline.contours) {
      take(contour.start);
      for (const OutlineCurve& curve : contour.curves) takeCurve(curve);
    }
  }
  bool empty() const { return left > right; }

  double left = std::numeric_limits<double>::infinity();
  double right = -std::numeric_limits<double>::infinity();

 private:
  void take(PlanePoint point) {
    left = std::min(left, point.x);
    right = std::max(right, point.x);
  }
  void takeCurve(const OutlineCurve& curve) {
    if (curve.degree > 1) take(curve.control1);
    if (curve.degree > 2) take(curve.control2);
    take(curve.end);
  }
};

}  // namespace

void clsCanvas::Initialize(int width, int height) {
  strokes_.clear();
  previews_ = dc_ != nullptr && dc_->reserveHover(width, height);
  if (dc_ != nullptr && !previews_) {
    throw RuntimeFailure(FailureNumber::InvalidProcedureCall, {}, "CreateCompatibleBitmap failed");
  }
}

GlyphShape clsCanvas::GetGlyphOutline(char32_t character, GlyphFormat format, const MAT2& matrix) {
  return readFont(kOutlineFailed, [&] {
    const GlyphShape& own = face_->glyph(character);
    GlyphShape shape{{}, own.advance, own.missing, own.substitute};
    if (format == GlyphFormat::Native) shape.outline = mapped(own.outline, axesOf(matrix));
    return shape;
  });
}

std::size_t clsCanvas::GetGlyphOutlineSize(char32_t character) {
  return readFont(kOutlineFailed, [&] {
    std::size_t curves = 0;
    for (const OutlineContour& contour : face_->glyph(character).outline.contours) {
      curves += contour.curves.size();
    }
    return curves;
  });
}

AbcWidths clsCanvas::GetCharABCWidths(char32_t character) {
  return readFont(kWidthsFailed, [&] {
    const GlyphShape& shape = face_->glyph(character);
    const Reach reach(shape.outline);
    if (reach.empty()) return AbcWidths{0, shape.advance, 0};
    return AbcWidths{reach.left, reach.right - reach.left, shape.advance - reach.right};
  });
}

void clsCanvas::MoveTo(double x, double y) {
  at_ = {x, y};
}

void clsCanvas::LineTo(double x, double y) {
  if (previews_) strokes_.push_back({at_.x, at_.y, x, y});
  at_ = {x, y};
}

void clsCanvas::ArcTo(double x, double y, double radius, double start, double sweep) {
  constexpr double kMostSteps = 1000;
  const double steps = std::clamp(std::ceil(std::abs(sweep) / kArcStep), 1.0, kMostSteps);
  for (double step = 1; step <= steps; ++step) {
    const double angle = start + sweep * step / steps;
    LineTo(x + radius * std::cos(angle), y + radius * std::sin(angle));
  }
}

double clsCanvas::kerning(char32_t left, char32_t right) {
  return readFont(kWidthsFailed, [&] { return face_->kerning(left, right); });
}

}  // namespace tess
