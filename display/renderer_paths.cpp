// Path rows: moves with their arrows or the outline of the tool along them, and the symbols of
// cycles.
#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <utility>

#include "core/conventions.h"
#include "core/division.h"
#include "core/drawing_store.h"
#include "display/arrowheads.h"
#include "display/disc_row.h"
#include "display/renderer.h"
#include "geometry/float_angles.h"
#include "geometry/row_entity.h"

namespace tess {

namespace {

constexpr float kShortestWithArrow = 30;  // pixels; a dense path stays legible
constexpr double kArrowTurn = 8;          // pixels of an arc by which its head turns inward
constexpr double kDiscsPerRadius = 1.25;  // discs of the tool lie 0.8 radii apart
constexpr int kFewestDiscs = 3;           // along an arc
constexpr int kSlotCycle = 79;            // the one cycle with a length
constexpr std::array kHoleRings = {0.33F, 0.66F, 1.0F};  // of the tool's radius

Point polar(Point from, double length, double angle) {
  return {narrow(from.x + length * std::cos(angle)), narrow(from.y + length * std::sin(angle))};
}

int wholeSteps(double n) {
  if (std::abs(n) >= std::numeric_limits<int>::max()) throw overflow();
  return static_cast<int>(std::floor(n));
}

void discsAlongLine(const Entity& move, float toolradius, Rgb color, DrawingTarget& target) {
  double n = quotient(distance(move.start, move.end) * kDiscsPerRadius, toolradius) + 1;
  if (n == 0) n = 1;
  const double stepx = (static_cast<double>(move.end.x) - move.start.x) / n;
  const double stepy = (static_cast<double>(move.end.y) - move.start.y) / n;
  const auto at = [=](int i) {
    return Point{narrow(move.start.x + i * stepx), narrow(move.start.y + i * stepy)};
  };
  const auto straight = [](int /*from*/, int /*to*/) { return 0.0; };
  traceDiscs({wholeSteps(n), toolradius, std::hypot(stepx, stepy), at, straight}, color, target);
}

// How far an arc rises over its chord; a long one counts as its whole circle.
double riseOf(double radius, double sweep) {
  return sweep < kPi ? radius * (1 - std::cos(sweep / 2)) : 2 * radius;
}

void discsAlongArc(const Entity& move, float toolradius, Rgb color, DrawingTarget& target) {
  const ArcAngles arc = arcRadiusAndAngles(move.start, move.end, move.center);
  const double sweep = ArcSweep(arc.start, arc.end, move.type);
  const DiscSteps discs = discSteps(sweep, arc.radius, toolradius);
  const double step = std::abs(discs.step);
  const auto at = [&](int i) { return polar(move.center, arc.radius, arc.start + i * discs.step); };
  const auto bulge = [&](int from, int to) { return riseOf(arc.radius, (to - from) * step); };
  traceDiscs({discs.count, toolradius, step * arc.radius, at, bulge}, color, target);
}

void lineArrow(const Entity& move, Rgb color, DrawingTarget& target) {
  const float length = distance(move.start, move.end);
  if (target.ScaleX(length, ScaleUnit::User, ScaleUnit::Pixels) < kShortestWithArrow) return;
  DrawArrowhead({move.end, vectorAngle(move.start, move.end)}, color, target);
}

// The head follows the curve: it is turned by the arc of its own length.
void arcArrow(const Entity& move, Rgb color, DrawingTarget& target) {
  const ArcAngles arc = arcRadiusAndAngles(move.start, move.end, move.center);
  const double sweep = ArcSweep(arc.start, arc.end, move.type);
  const double size = std::min(std::abs(sweep * arc.radius), 2.0 * arc.radius);
  const float pixels = target.ScaleX(narrow(size), ScaleUnit::User, ScaleUnit::Pixels);
  if (pixels < kShortestWithArrow) return;
  const double x = kArrowTurn / pixels;
  const double turn = std::atan(x / std::sqrt(1 - x * x));
  const double tangent =
      move.type == kClockwiseArc ? arc.end - kPi / 2 + turn : arc.end + kPi / 2 - turn;
  DrawArrowhead({move.end, narrow(tangent)}, color, target);
}

void holeSymbol(Point at, float r, Rgb color, DrawingTarget& target) {
  target.TraceLine({at.x + r, at.y, at.x - r, at.y}, color);
  target.TraceLine({at.x, at.y + r, at.x, at.y - r}, color);
  for (const float ring : kHoleRings) target.TraceCircle(at.x, at.y, ring * r, color);
}

void slotSymbol(const Entity& slot, float r, Rgb color, DrawingTarget& target) {
  holeSymbol(slot.start, r, color, target);
  holeSymbol(slot.end, r, color, target);
  const double dx = nonZero(static_cast<double>(slot.end.x) - slot.start.x);
  const double dy = static_cast<double>(slot.end.y) - slot.start.y;
  const double across = std::atan(dy / dx) + kPi / 2;
  const Point offset = polar({}, r, across);
  const WorldBox line = lineOf(slot);
  target.TraceLine(line, color);
  for (const float side : {1.0F, -1.0F}) {
    target.TraceLine({line.x0 + side * offset.x, line.y0 + side * offset.y,
                      line.x1 + side * offset.x, line.y1 + side * offset.y},
                     color);
  }
}

}  // namespace

DiscSteps discSteps(double sweep, double radius, double toolradius) {
  const double n = std::max<double>(
      std::abs(quotient(sweep * kDiscsPerRadius * radius, toolradius)) + 1, kFewestDiscs);
  return {wholeSteps(n), sweep / n};
}

void Renderer::drawtoolpath(int ps, DrawingTarget& target, std::optional<Rgb> color) {
  const Procedure here("frmMain.drawtoolpath(ps,target)");
  if (!store_.psvisible[ps]) return;
  target.setDrawStyle(PenStyle::Solid);
  target.setDrawMode(PenMode::Copy);
  const Rgb ink = color                        ? *color
                  : target.screen() != nullptr ? look.path(ps)
                                               : pathColor(store_, ps);
  const float r = store_.toolradius[toolIndex(store_.pscode[ps])];
  const Entity move = pathEntity(store_, ps);
  if (move.type == kLine || isArc(move.type)) {
    drawMove(move, r, ink, target);
  } else if (move.type == kSlotCycle) {
    slotSymbol(move, r, ink, target);
  } else {
    // Fixed: a rapid row shows as a hole; recorded pictures have it so.
    holeSymbol(move.start, r, ink, target);
  }
}

void Renderer::drawMove(const Entity& move, float toolradius, Rgb color, DrawingTarget& target) {
  const bool line = move.type == kLine;
  if (store_.tooloutline != 0) {
    (line ? discsAlongLine : discsAlongArc)(move, toolradius, color, target);
    return;
  }
  // Rows drawn outside a redraw, as those that blink, get no end markers either.
  const bool before = std::exchange(pathdrawing, true);
  if (line) {
    DrawLine(lineOf(move), color, target);
  } else {
    DrawArc(move, color, target);
  }
  pathdrawing = before;
  (line ? lineArrow : arcArrow)(move, color, target);
}

namespace {

constexpr float kRing = 4;         // pixels, round the place where a group begins
constexpr float kArrowEvery = 90;  // pixels of path without an arrow

bool isRapidLine(const DrawingStore& store, int ps) {
  return store.pstype[ps] == kLine && store.psz[ps] == kLatheRapidZ;
}

bool isMove(int type) {
  return type == kLine || isArc(type);
}

double lengthOf(const Entity& move) {
  if (move.type == kLine) return distance(move.start, move.end);
  const ArcAngles arc = arcRadiusAndAngles(move.start, move.end, move.center);
  return std::abs(ArcSweep(arc.start, arc.end, move.type)) * arc.radius;
}

float headingAtEnd(const Entity& move) {
  if (move.type == kLine) return vectorAngle(move.start, move.end);
  const float radial = vectorAngle(move.center, move.end);
  return narrow(move.type == kClockwiseArc ? radial - kPi / 2 : radial + kPi / 2);
}

}  // namespace

// Arrows as rows of some length have them, for rows that are too short: one each so many pixels.
class Renderer::ArrowWalk {
 public:
  explicit ArrowWalk(DrawingTarget& target)
      : target_(target), pixels_(target.ScaleX(1, ScaleUnit::User, ScaleUnit::Pixels)) {}

  void begin() { since_ = kArrowEvery / 2; }
  void pass(const Entity& move, Rgb color) {
    const double length = std::abs(lengthOf(move) * pixels_);
    since_ += length;
    if (length >= kShortestWithArrow) since_ = 0;
    if (since_ < kArrowEvery || length == 0) return;
    since_ = 0;
    DrawArrowhead({move.end, headingAtEnd(move)}, color, target_);
  }

 private:
  DrawingTarget& target_;
  double pixels_;
  double since_ = 0;
};

void Renderer::drawPathDirection(DrawingTarget& target) {
  const Procedure here("frmMain.drawPathDirection(target)");
  target.setDrawStyle(PenStyle::Solid);
  target.setDrawMode(PenMode::Copy);
  const float ring = target.ScaleX(kRing, ScaleUnit::Pixels, ScaleUnit::User);
  const Rgb travel = look.travel();
  ArrowWalk arrows(target);
  std::optional<Point> last;
  int group = -1;
  for (int ps = 1; ps <= store_.NumPathSegments; ++ps) {
    if (!store_.psvisible[ps]) continue;
    const Entity move = pathEntity(store_, ps);
    const bool rapid = isRapidLine(store_, ps);
    if (last && !(*last == move.start)) {
      target.TraceLine({last->x, last->y, move.start.x, move.start.y}, travel);
    }
    if (rapid) target.TraceLine(lineOf(move), travel);
    if (std::exchange(group, groupCutOff(store_.pscode[ps])) != groupCutOff(store_.pscode[ps])) {
      target.TraceCircle(move.start.x, move.start.y, ring, look.path(ps));
      arrows.begin();
    }
    const bool cuts = isMove(move.type) && !rapid;
    if (cuts && store_.tooloutline == 0) arrows.pass(move, look.path(ps));
    last = isMove(move.type) || move.type == kSlotCycle ? move.end : move.start;
    surroundings_.serveEvents();
  }
}

}  // namespace tess
