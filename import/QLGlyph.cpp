// Outlines become pieces: each curve is divided into equal steps, as many as its second derivative
// asks for. A curve B(t) lies within max|B''| / 8 n^2 of the chords of n equal steps of t; |B''| is
// at most twice the second difference of the points of a quadratic curve, and six times the larger
// one of a cubic.
#include "import/QLGlyph.h"

#include <algorithm>
#include <cmath>

#include "core/rounding.h"
#include "core/runtime_failure.h"

namespace tess {
namespace {

constexpr double kPointsPerInch = 72;
constexpr std::size_t kMostKept = 4096;  // characters
constexpr double kMostSteps = 4096;      // of one curve

PlanePoint secondDifference(PlanePoint a, PlanePoint b, PlanePoint c) {
  return a - 2.0 * b + c;
}

// An eighth of the largest second derivative.
double bend(PlanePoint from, const OutlineCurve& curve) {
  if (curve.degree == 1) return 0;
  const PlanePoint last = curve.degree == 2 ? curve.end : curve.control2;
  const double first = normOf(secondDifference(from, curve.control1, last));
  if (curve.degree == 2) return first / 4;
  const double second = normOf(secondDifference(curve.control1, curve.control2, curve.end));
  return std::max(first, second) * 3 / 4;
}

PlanePoint pointAt(PlanePoint from, const OutlineCurve& curve, double t) {
  const double s = 1 - t;
  if (curve.degree == 2) return s * s * from + 2 * s * t * curve.control1 + t * t * curve.end;
  return s * s * s * from + 3 * s * s * t * curve.control1 + 3 * s * t * t * curve.control2 +
         t * t * t * curve.end;
}

class Flattener {
 public:
  explicit Flattener(double tolerance) : tolerance_(tolerance) {}

  FlatContour contour(const OutlineContour& outline) {
    // Two curves round an area need a corner between them, however coarse the pieces may be.
    const int least = outline.closed && outline.curves.size() < 3 ? 3 : 1;
    FlatContour flat{{outline.start}, outline.closed};
    PlanePoint from = outline.start;
    for (const OutlineCurve& curve : outline.curves) {
      addCurve(flat.corners, from, curve, least);
      from = curve.end;
    }
    if (outline.closed && flat.corners.size() > 1 && flat.corners.back() == flat.corners.front()) {
      flat.corners.pop_back();
    }
    return flat;
  }

 private:
  void addCurve(std::vector<PlanePoint>& corners, PlanePoint from, const OutlineCurve& curve,
                int least) {
    const double needed = std::ceil(std::sqrt(bend(from, curve) / tolerance_));
    const double steps =
        curve.degree == 1 ? 1 : std::clamp(needed, static_cast<double>(least), kMostSteps);
    for (double step = 1; step < steps; ++step) {
      addCorner(corners, pointAt(from, curve, step / steps));
    }
    addCorner(corners, curve.end);
  }

  void addCorner(std::vector<PlanePoint>& corners, PlanePoint corner) {
    if (corners.back() == corner || left_ == 0) return;
    corners.push_back(corner);
    --left_;
  }

  double tolerance_;
  std::size_t left_ = kMostPieces;
};

bool isLineBreakOrHidden(char32_t character) {
  const bool control = character < 0x20 || (character >= 0x7F && character < 0xA0);
  const bool joiner = character >= 0x200B && character <= 0x200F;
  const bool direction =
      (character >= 0x202A && character <= 0x202E) || (character >= 0x2060 && character <= 0x206F);
  return control || joiner || direction || character == 0xFEFF;
}

// A tab is as wide as a blank; other characters that control something leave nothing behind.
constexpr char32_t kTab = '\t';
char32_t shownAs(char32_t character) {
  return character == kTab ? U' ' : character;
}

double inches(double points) {
  return points / kPointsPerInch;
}

// Turning from the x axis of the canvas towards its y axis.
struct Turn {
  explicit Turn(double angle) : c(std::cos(angle)), s(std::sin(angle)) {}
  PlanePoint operator()(PlanePoint point) const {
    return {c * point.x - s * point.y, s * point.x + c * point.y};
  }
  double c, s;
};

}  // namespace

std::vector<FlatContour> flattened(const GlyphOutline& outline, double tolerance) {
  Flattener flattener(tolerance);
  std::vector<FlatContour> contours;
  for (const OutlineContour& contour : outline.contours) {
    FlatContour flat = flattener.contour(contour);
    const std::size_t least = flat.closed ? 3 : 2;
    if (flat.corners.size() >= least) contours.push_back(std::move(flat));
  }
  return contours;
}

void QLGlyph::begin(const GlyphRun& run) {
  run_ = run;
  missing_.clear();
}

// Steps of the wheel and a second run mostly ask for the same outlines at the same size again.
void QLGlyph::keepFor(const GlyphRequest& request) {
  const double tolerance = request.Resolution * request.PixelsPerInchX / std::abs(run_.ScaleX);
  const GlyphRun& kept = flattening_.run;
  const bool same = kept.FontName == run_.FontName && kept.Bold == run_.Bold &&
                    kept.Italic == run_.Italic && flattening_.tolerance == tolerance &&
                    flattening_.mirrorX == request.MirrorX &&
                    flattening_.mirrorY == request.MirrorY;
  if (same && kept_.size() < kMostKept) return;
  flattening_ = {run_, tolerance, request.MirrorX, request.MirrorY};
  kept_.clear();
}

QLGlyph::Kept QLGlyph::read(char32_t character, ICanvas& canvas) const {
  Kept kept;
  const AbcWidths widths = canvas.GetCharABCWidths(character);
  kept.glyph.advance = flattening_.mirrorX ? -widths.advance() : widths.advance();
  clsFixedMatrix matrix;
  matrix.Mirror(flattening_.mirrorX, flattening_.mirrorY);
  const bool outlined = canvas.GetGlyphOutlineSize(character) > 0;
  const GlyphFormat format = outlined ? GlyphFormat::Native : GlyphFormat::Metrics;
  const GlyphShape shape = canvas.GetGlyphOutline(character, format, matrix.AsMAT2());
  kept.glyph.contours = flattened(shape.outline, flattening_.tolerance);
  kept.missing = shape.missing;
  kept.substitute = shape.substitute;
  return kept;
}

const FlatGlyph& QLGlyph::glyph(char32_t character, ICanvas& canvas) {
  auto found = kept_.find(character);
  if (found == kept_.end()) found = kept_.emplace(character, read(character, canvas)).first;
  if (found->second.missing) missing_[character] = found->second.substitute;
  return found->second.glyph;
}

void QLGlyph::report(const FlatGlyph& glyph, const GlyphRequest& request, GlyphClient& client,
                     ICanvas& canvas, Pen pen) {
  const Turn turn(request.curorientation);
  for (const FlatContour& contour : glyph.contours) {
    placed_.clear();
    for (const PlanePoint corner : contour.corners) {
      const PlanePoint upright{corner.x * run_.ScaleX, corner.y * run_.ScaleY};
      placed_.push_back(PlanePoint{static_cast<double>(pen.x), static_cast<double>(pen.y)} +
                        turn(upright));
    }
    if (contour.closed) placed_.push_back(placed_.front());
    canvas.MoveTo(placed_.front().x, placed_.front().y);
    for (std::size_t at = 1; at < placed_.size(); ++at) {
      const PlanePoint from = placed_[at - 1];
      const PlanePoint to = placed_[at];
      if (from == to) continue;
      client.Glyph_AddLine(request.id, from.x, from.y, to.x, to.y);
      canvas.LineTo(to.x, to.y);
    }
  }
}

void QLGlyph::DrawCharAsync(const GlyphRequest& request, GlyphClient& client, ICanvas& canvas,
                            Pen& pen) {
  keepFor(request);
  const char32_t character = shownAs(request.character);
  if (isLineBreakOrHidden(character)) return client.Glyph_DrawCharAsyncDone(pen.x, pen.y, 0);
  const FlatGlyph& flat = glyph(character, canvas);
  if (!request.BoundsOnly) report(flat, request, client, canvas, pen);
  const double sense = request.MirrorX ? -1 : 1;
  const double kern = request.next == 0 ? 0 : canvas.kerning(character, shownAs(request.next));
  const double baseDX = (flat.advance + sense * kern) * run_.ScaleX +
                        sense * inches(request.TrackingDelta) * request.PixelsPerInchX;
  const PlanePoint step = Turn(request.curorientation)({baseDX, 0});
  pen = {roundHalfEven(pen.x + step.x), roundHalfEven(pen.y + step.y)};
  client.Glyph_DrawCharAsyncDone(pen.x, pen.y, baseDX);
}

}  // namespace tess
