// The fitting of arcs to a curve by halving.
#include "import/biarc.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <optional>

#include "geometry/curve_distance.h"

namespace tess {
namespace {

// Samples see the worst place of a piece nearly; the rest is for them and for the 32 bits of the
// tables.
constexpr double kUsableTolerance = 0.8;
// Lines that leave their common direction by less than this share of the tolerance are one.
constexpr double kStraightShare = 1e-4;
// An arc that rises over its chord by less than this share of the tolerance is a line. It is a
// small one, as a line has corners where the arc has none.
constexpr double kFlatShare = 0.002;
// And so is one that rises by less than this share of its chord: its centre would be too far away
// for the tables.
constexpr double kFlatSlope = 1e-6;
// A piece may turn by so much in all and away from its chord, in radians. Within it both arcs stay
// below half a turn.
constexpr double kMaxTurn = 2.0;
constexpr double kMaxLean = 1.1;
// Neighbours on one circle become one arc up to half a turn, in radians and with some slack.
constexpr double kMaxMergedSweep = 3.15;
// Circles are one whose centres are no farther apart than this share of the tolerance.
constexpr double kSameCenterShare = 0.02;
constexpr int kSamplesPerSpan = 8;
constexpr int kFewestSamples = 16;
constexpr int kMaxHalvings = 48;
// What no spline of a drawing needs: a wild curve comes to an end after so many pieces.
constexpr std::size_t kMaxPieces = 4 * kMaxExactRows;
// Directions that differ by more than this, as the sine of the angle, make a corner.
constexpr double kCornerSine = 1e-4;

// The line or arc from `start` in a direction to `end`. An arc's rise is a quarter of the cross
// product of direction and chord for all but long arcs.
Curve curveFrom(PlanePoint start, PlanePoint direction, PlanePoint end, double tolerance) {
  const PlanePoint chord = end - start;
  const double aside = cross(direction, chord);
  const double length = lengthOf(chord);
  const double rise = std::abs(aside) / 4;
  if (rise <= std::max(kFlatShare * tolerance, kFlatSlope * length)) return lineCurve(start, end);
  const double radius = length * length / (2 * aside);  // negative to the right
  const PlanePoint center = start + radius * leftOf(direction);
  return {start, end, center, lengthOf(start - center), aside > 0 ? 1 : -1};
}

using Biarc = std::array<Curve, 2>;

bool leansLittle(PlanePoint direction, PlanePoint chord) {
  const double lean = std::atan2(std::abs(cross(chord, direction)), dot(chord, direction));
  return lean <= kMaxLean;
}

// Two arcs with equal legs: their joint lies between the points that are `leg` ahead of the start
// and behind the end, which are twice as far apart as a leg is long.
std::optional<Biarc> biarcBetween(const CurvePoint& from, const CurvePoint& to, double tolerance) {
  const PlanePoint chord = to.at - from.at;
  if (!leansLittle(from.direction, chord) || !leansLittle(to.direction, chord)) return {};
  // (leg): 2 (1 - a.b) leg^2 + 2 v.(a + b) leg - v.v = 0, solved so that nothing cancels.
  const double along = dot(chord, from.direction + to.direction);
  const double apart = 1 - dot(from.direction, to.direction);
  const double square = dot(chord, chord);
  const double leg = square / (along + std::sqrt(along * along + 2 * apart * square));
  if (!(leg > 0) || !std::isfinite(leg)) return {};
  const PlanePoint joint = 0.5 * ((from.at + leg * from.direction) + (to.at - leg * to.direction));
  return Biarc{curveFrom(from.at, from.direction, joint, tolerance),
               reversed(curveFrom(to.at, -1 * to.direction, joint, tolerance))};
}

DxfRow rowOf(const Curve& curve) {
  DxfRow row{.x0 = curve.start.x, .y0 = curve.start.y, .x1 = curve.end.x, .y1 = curve.end.y};
  if (!curve.isArc()) return row;
  row.type = curve.turn > 0 ? kCounterClockwiseArc : kClockwiseArc;
  row.xc = curve.center.x;
  row.yc = curve.center.y;
  return row;
}

// Less than this no row of 32-bit numbers can tell apart so far from the origin.
double resolutionOf(const PlaneCurve& curve) {
  double farthest = 0;
  for (int span = 0; span < curve.spans(); ++span) {
    const PlanePoint at = curve.pointAt(span, 0).at;
    farthest = std::max({farthest, std::abs(at.x), std::abs(at.y)});
  }
  return 4 * std::numeric_limits<float>::epsilon() * farthest;
}

// A part of the curve between two places, which are spans and shares in one number. Neighbours
// share a point as it is, so that their rows meet exactly.
struct Piece {
  double from = 0, to = 0;
  CurvePoint start, end;
};

// The rows of one curve in the making.
class Fit {
 public:
  Fit(const PlaneCurve& curve, double tolerance, std::vector<DxfRow>& rows)
      : curve_(curve),
        tolerance_(std::max(tolerance, resolutionOf(curve))),
        rows_(rows),
        rowsBefore_(rows.size()) {}

  // From corner to corner.
  void run() {
    int first = 0;
    for (int span = 1; span < curve_.spans(); ++span) {
      if (!isCorner(span)) continue;
      runSmooth(first, span);
      first = span;
    }
    runSmooth(first, curve_.spans());
  }

  bool isWhole() const { return whole_; }

 private:
  bool isCorner(int span) const {
    const PlanePoint before = curve_.pointAt(span - 1, 1).direction;
    const PlanePoint after = curve_.pointAt(span, 0).direction;
    return std::abs(cross(before, after)) > kCornerSine || dot(before, after) < 0;
  }

  void runSmooth(int first, int last) {
    last_.reset();
    const Piece whole{static_cast<double>(first), static_cast<double>(last), at(first),
                      atEnd(last)};
    fit(whole, kMaxHalvings);
    flush();
  }

  CurvePoint at(double place) const {
    const int span = std::min(static_cast<int>(place), curve_.spans() - 1);
    return curve_.pointAt(span, place - span);
  }
  // The same at the end of a piece, which belongs to the span before it.
  CurvePoint atEnd(double place) const {
    const int span = std::max(static_cast<int>(std::ceil(place)) - 1, 0);
    return curve_.pointAt(span, place - span);
  }

  // Between spans where there are several, so that no arc bridges two for less than it could.
  static double middleOf(double from, double to) {
    const double middle = (from + to) / 2;
    const double between = std::nearbyint(middle);
    return between > from && between < to ? between : middle;
  }

  void fit(const Piece& piece, int halvings) {
    if (rows_.size() - rowsBefore_ >= kMaxExactRows) {
      whole_ = false;
      return;
    }
    const auto biarc = biarcBetween(piece.start, piece.end, tolerance_);
    if (biarc && holds(*biarc, piece)) {
      for (const Curve& arc : *biarc) append(arc);
      return;
    }
    const double middle = middleOf(piece.from, piece.to);
    const bool isLast =
        halvings == 0 || ++pieces_ > kMaxPieces || !(middle > piece.from && middle < piece.to);
    if (isLast || isShort(piece)) return append(lineCurve(piece.start.at, piece.end.at));
    const CurvePoint between = at(middle);
    fit({piece.from, middle, piece.start, between}, halvings - 1);
    fit({middle, piece.to, between, piece.end}, halvings - 1);
  }

  static int samplesOf(const Piece& piece) {
    const auto spans = static_cast<int>(std::ceil(piece.to) - std::floor(piece.from));
    return std::max(kFewestSamples, spans * kSamplesPerSpan);
  }

  CurvePoint sampleOf(const Piece& piece, int k, int samples) const {
    return at(piece.from + (piece.to - piece.from) * k / samples);
  }

  // True when every sample lies at the arcs and the curve does not wind on its way.
  bool holds(const Biarc& biarc, const Piece& piece) const {
    const int samples = samplesOf(piece);
    double turned = 0;
    PlanePoint direction = piece.start.direction;
    for (int k = 1; k < samples; ++k) {
      const CurvePoint sample = sampleOf(piece, k, samples);
      const double off = std::min(distanceTo(biarc[0], sample.at), distanceTo(biarc[1], sample.at));
      if (!(off <= kUsableTolerance * tolerance_)) return false;
      turned += std::abs(
          std::atan2(cross(direction, sample.direction), dot(direction, sample.direction)));
      if (turned > kMaxTurn) return false;
      direction = sample.direction;
    }
    return true;
  }

  // True for a piece whose whole way is no longer than half the tolerance: at a cusp, arcs never
  // fit.
  bool isShort(const Piece& piece) const {
    const double most = tolerance_ / 2;
    const int samples = samplesOf(piece);
    double length = 0;
    PlanePoint last = piece.start.at;
    for (int k = 1; k <= samples && length <= most; ++k) {
      const PlanePoint next = k == samples ? piece.end.at : sampleOf(piece, k, samples).at;
      length += lengthOf(next - last);
      last = next;
    }
    return length <= most;
  }

  // Holds one curve back, as the next one may go on in its line or circle.
  void append(const Curve& curve) {
    if (curve.start == curve.end) return;
    if (last_ && areOne(*last_, curve)) {
      last_->end = curve.end;
      return;
    }
    flush();
    last_ = curve;
  }

  void flush() {
    if (last_) rows_.push_back(rowOf(*last_));
    last_.reset();
  }

  bool isOneArc(const Curve& a, const Curve& b) const {
    return lengthOf(a.center - b.center) <= kSameCenterShare * tolerance_ &&
           sweepOf(a) + sweepOf(b) <= kMaxMergedSweep;
  }

  bool isOneLine(const Curve& a, const Curve& b) const {
    const PlanePoint along = unitOf(a.end - a.start);
    const PlanePoint on = b.end - b.start;
    return dot(along, on) > 0 && std::abs(cross(along, on)) <= kStraightShare * tolerance_;
  }

  bool areOne(const Curve& a, const Curve& b) const {
    if (a.turn != b.turn) return false;
    return a.isArc() ? isOneArc(a, b) : isOneLine(a, b);
  }

  const PlaneCurve& curve_;
  const double tolerance_;
  std::vector<DxfRow>& rows_;
  const std::size_t rowsBefore_;
  bool whole_ = true;
  std::size_t pieces_ = 0;
  std::optional<Curve> last_;
};

}  // namespace

bool appendBiarcs(const PlaneCurve& curve, double tolerance, std::vector<DxfRow>& rows) {
  Fit fit(curve, tolerance, rows);
  fit.run();
  return fit.isWhole();
}

}  // namespace tess
