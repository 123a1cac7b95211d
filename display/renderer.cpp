// Single entities on a target: drawing rows, path rows and the grid.
#include "display/renderer.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <utility>

#include "core/division.h"
#include "geometry/angles.h"

namespace tess {

namespace {

constexpr float kArrowBarb = 10;          // pixels
constexpr double kBarbAngle = kPi / 12;   // from the way back
constexpr float kShortestWithArrow = 30;  // pixels; a dense path stays legible
constexpr double kArrowTurn = 8;          // pixels of an arc by which its head turns inward
constexpr double kDiscsPerRadius = 1.25;  // discs of the tool lie 0.8 radii apart
constexpr int kFewestDiscs = 3;           // along an arc
constexpr int kSlotCycle = 79;            // the one cycle with a length
constexpr std::array kHoleRings = {0.33F, 0.66F, 1.0F};  // of the tool's radius

WorldBox lineOf(const Entity& entity) {
  return {entity.start.x, entity.start.y, entity.end.x, entity.end.y};
}

Point polar(Point from, double length, double angle) {
  return {narrow(from.x + length * std::cos(angle)), narrow(from.y + length * std::sin(angle))};
}

// Half of a marker's side, 2 pixels: the difference of two lengths, so that no offset of the scale
// enters.
float markerHalf(const DrawingTarget& target) {
  return std::abs(target.ScaleX(7, ScaleUnit::Pixels, ScaleUnit::User) -
                  target.ScaleX(5, ScaleUnit::Pixels, ScaleUnit::User));
}

void endMarkers(const Entity& entity, std::optional<Color> color, DrawingTarget& target) {
  const float h = markerHalf(target);
  for (const Point end : {entity.start, entity.end}) {
    target.TraceLine({end.x - h, end.y - h, end.x + h, end.y + h}, color, kFilledBox);
  }
}

void discAt(Point center, float radius, Color color, DrawingTarget& target) {
  target.TraceCircle(center.x, center.y, radius, color);
}

int wholeSteps(double n) {
  if (n > std::numeric_limits<int>::max()) throw overflow();
  return static_cast<int>(std::floor(n));
}

void discsAlongLine(const Entity& move, float toolradius, Color color, DrawingTarget& target) {
  double n = quotient(distance(move.start, move.end) * kDiscsPerRadius, toolradius) + 1;
  if (n == 0) n = 1;
  const double stepx = (static_cast<double>(move.end.x) - move.start.x) / n;
  const double stepy = (static_cast<double>(move.end.y) - move.start.y) / n;
  const int count = wholeSteps(n);
  for (int i = 1; i <= count; ++i) {
    discAt({narrow(move.start.x + i * stepx), narrow(move.start.y + i * stepy)}, toolradius, color,
           target);
  }
}

void discsAlongArc(const Entity& move, float toolradius, Color color, DrawingTarget& target) {
  const ArcAngles arc = arcRadiusAndAngles(move.start, move.end, move.center);
  const double sweep = ArcSweep(arc.start, arc.end, move.type);
  const DiscSteps discs = discSteps(sweep, arc.radius, toolradius);
  for (int i = 1; i <= discs.count; ++i) {
    discAt(polar(move.center, arc.radius, arc.start + i * discs.step), toolradius, color, target);
  }
}

void lineArrow(const Entity& move, Color color, DrawingTarget& target) {
  const float length = distance(move.start, move.end);
  if (target.ScaleX(length, ScaleUnit::User, ScaleUnit::Pixels) < kShortestWithArrow) return;
  DrawArrowhead({move.end, vectorAngle(move.start, move.end)}, color, target);
}

// The head follows the curve: it is turned by the arc of its own length.
void arcArrow(const Entity& move, Color color, DrawingTarget& target) {
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

void holeSymbol(Point at, float r, Color color, DrawingTarget& target) {
  target.TraceLine({at.x + r, at.y, at.x - r, at.y}, color);
  target.TraceLine({at.x, at.y + r, at.x, at.y - r}, color);
  for (const float ring : kHoleRings) target.TraceCircle(at.x, at.y, ring * r, color);
}

void slotSymbol(const Entity& slot, float r, Color color, DrawingTarget& target) {
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

void PolarLine(const ArrowTip& from, float length, Color color, DrawingTarget& target) {
  const Point end = polar(from.at, length, from.angle);
  target.TraceLine({from.at.x, from.at.y, end.x, end.y}, color);
}

void DrawArrowhead(const ArrowTip& tip, Color color, DrawingTarget& target) {
  DrawHalfArrowhead(tip, color, target, 1);
  DrawHalfArrowhead(tip, color, target, 2);
}

void DrawHalfArrowhead(const ArrowTip& tip, Color color, DrawingTarget& target, int side) {
  const double turn = side == 1 ? kBarbAngle : -kBarbAngle;
  const ArrowTip barb{tip.at, narrow(tip.angle + kPi + turn)};
  PolarLine(barb, target.ScaleX(kArrowBarb, ScaleUnit::Pixels, ScaleUnit::User), color, target);
}

void TraceArrowhead(const WorldBox& ends, Color color, PictureBoxProxy& ScreenProxy) {
  const Polar polarForm = polarOf({ends.x0, ends.y0}, {ends.x1, ends.y1});
  const float angle = narrow(polarForm.degrees * kPi / 180);
  ScreenProxy.setDrawMode(PenMode::NotXor);
  DrawArrowhead({{ends.x1, ends.y1}, angle}, color, ScreenProxy);
  ScreenProxy.setDrawMode(PenMode::Copy);
}

void DrawMarkerCross(Point marker, PictureBoxProxy& ScreenProxy) {
  constexpr float kHalf = 5;  // pixels
  const float hx = ScreenProxy.ScaleX(kHalf, ScaleUnit::Pixels, ScaleUnit::User);
  const float hy = ScreenProxy.ScaleY(kHalf, ScaleUnit::Pixels, ScaleUnit::User);
  const auto [x, y] = marker;
  ScreenProxy.setDrawMode(PenMode::NotXor);
  ScreenProxy.TraceLine({x - hx, y - hy, x + hx, y + hy}, paletteColor(0));
  ScreenProxy.TraceLine({x + hx, y - hy, x - hx, y + hy}, paletteColor(0));
  ScreenProxy.setDrawMode(PenMode::Copy);
}

void DrawOriginArrows(Color color, PictureBoxProxy& ScreenProxy) {
  constexpr float kLength = 25;  // pixels
  DrawingSurface& surface = ScreenProxy.surface();
  const SurfaceState before = surface.state();
  ScreenProxy.setDrawMode(PenMode::Copy);
  ScreenProxy.setDrawStyle(PenStyle::Solid);
  surface.setDrawWidth(2 * before.drawWidth);
  const float length = ScreenProxy.ScaleX(kLength, ScaleUnit::Pixels, ScaleUnit::User);
  ScreenProxy.TraceLine({0, 0, length, 0}, color);
  DrawHalfArrowhead({{length, 0}, 0}, color, ScreenProxy, 1);
  ScreenProxy.TraceLine({0, 0, 0, length}, color);
  DrawHalfArrowhead({{0, length}, narrow(kPi / 2)}, color, ScreenProxy, 2);
  surface.setDrawWidth(before.drawWidth);
  surface.setFontTransparent(true);
  surface.text(0.75F * length, -0.25F * length, "X", color);
  surface.text(-0.5F * length, length, "Y", color);
  surface.setFontTransparent(before.fontTransparent);
}

bool Renderer::markersShown() const {
  return store_.endmarkers != 0 && !pathdrawing;
}

void Renderer::complain(const char* text) {
  Message message;
  message.text = text;
  prompts_.showMessage(message);
}

Color Renderer::stateColor(int sg) {
  constexpr int kUnmarked = 100;  // attributes below have no state
  const int attr = store_.segattr[sg];
  if (attr > kVerified || attr == kParkedRow) return slotColor(store_, ColorSlot::Verified);
  if (attr >= kSelected) return slotColor(store_, ColorSlot::Select);
  if (attr >= kUnmarked) complain("Bad Entity Attribute error in DrawSegment");
  return slotColor(store_, ColorSlot::Draw);
}

// A change of colour is announced to the target by a line without length.
void Renderer::rememberColor(DrawingTarget& target) {
  if (entityColor_ != rememberedColor_) target.TraceLine({0, 0, 0, 0}, entityColor_);
  rememberedColor_ = entityColor_;
}

void Renderer::DrawSegment(int sg, DrawingTarget& target, std::optional<Color> color) {
  const Procedure here("frmMain.DrawSegment(sg,target)");
  if (!color) {
    rememberColor(target);
    entityColor_ = stateColor(sg);
  }
  const Color ink = color.value_or(entityColor_);
  const Entity entity = segmentEntity(store_, sg);
  if (entity.type == kLine) {
    DrawLine(lineOf(entity), ink, target);
  } else if (isArc(entity.type) || entity.type == kCircle) {
    DrawArc(entity, ink, target);
  } else if (entity.type == kRectangle) {
    drawRectangle(entity, ink, target);
  } else {
    complain("Bad Entity Type error in DrawSegment");
  }
}

void Renderer::drawRectangle(const Entity& corners, Color color, DrawingTarget& target) {
  const auto [x0, y0, x1, y1] = lineOf(corners);
  DrawLine({x0, y0, x1, y0}, color, target);
  DrawLine({x1, y0, x1, y1}, color, target);
  DrawLine({x1, y1, x0, y1}, color, target);
  DrawLine({x0, y1, x0, y0}, color, target);
}

void Renderer::DrawLine(const WorldBox& ends, Color color, DrawingTarget& target) {
  if (PictureBoxProxy* screen = target.screen()) {
    screen->setDrawMode(PenMode::Copy);
    screen->setDrawStyle(PenStyle::Solid);
  }
  // Twice, as it has always been.
  target.TraceLine(ends, color);
  target.TraceLine(ends, color);
  if (!markersShown()) return;
  endMarkers(lineEntity({ends.x0, ends.y0}, {ends.x1, ends.y1}),
             slotColor(store_, ColorSlot::Marker), target);
}

void Renderer::DrawArc(const Entity& arc, Color color, DrawingTarget& target) {
  if (arc.type == kCircle || arc.start == arc.end) {
    target.TraceCircle(arc.center.x, arc.center.y, radiusOf(arc), color);
  } else {
    ArcAngles angles = arcRadiusAndAngles(arc.start, arc.end, arc.center);
    // Targets sweep counter-clockwise only.
    if (arc.type == kClockwiseArc) std::swap(angles.start, angles.end);
    if (angles.start == angles.end) angles.end = narrow(angles.end + kTwoPi);
    target.TraceCircle(arc.center.x, arc.center.y, angles.radius, color, angles.start, angles.end,
                       1.0F);
  }
  if (target.screen() == nullptr || !markersShown()) return;
  endMarkers(arc, /*color=*/{}, target);
}

void Renderer::drawtoolpath(int ps, DrawingTarget& target, std::optional<Color> color) {
  const Procedure here("frmMain.drawtoolpath(ps,target)");
  if (!store_.psvisible[ps]) return;
  target.setDrawStyle(PenStyle::Solid);
  target.setDrawMode(PenMode::Copy);
  const Color ink = color ? *color : pathColor(store_, ps);
  const float r = store_.toolradius[toolIndex(store_.pscode[ps])];
  const Entity move = pathEntity(store_, ps);
  if (move.type == kLine || isArc(move.type)) {
    drawMove(move, r, ink, target);
  } else if (move.type == kSlotCycle) {
    slotSymbol(move, r, ink, target);
  } else {
    holeSymbol(move.start, r, ink, target);
  }
}

void Renderer::drawMove(const Entity& move, float toolradius, Color color, DrawingTarget& target) {
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

void Renderer::DisplayGrid(DrawingTarget& target) {
  const Procedure here("frmMain.DisplayGrid(target)");
  if (target.screen() == nullptr) return;
  target.setDrawMode(PenMode::Copy);
  const float left = target.ScaleLeft();
  const float right = left + target.ScaleWidth();
  const float top = target.ScaleTop();
  const float bottom = top + target.ScaleHeight();
  const auto row = [=](float y) { return WorldBox{left, y, right, y}; };
  const auto column = [=](float x) { return WorldBox{x, top, x, bottom}; };
  gridLines(-1, bottom, row, target);
  gridLines(+1, top, row, target);
  gridLines(+1, right, column, target);
  gridLines(-1, left, column, target);
  target.setDrawStyle(PenStyle::Solid);
}

// Grid lines from zero in one direction, up to `last`; none when that lies on the other side.
template <typename LineAt>
void Renderer::gridLines(int direction, float last, LineAt lineAt, DrawingTarget& target) {
  const double spacing = store_.visualgrid;
  if (!(spacing > 0)) return;  // such a grid has no lines, and no end
  const Color color = slotColor(store_, ColorSlot::Grid);
  for (double at = 0; at <= direction * static_cast<double>(last); at += spacing) {
    target.setDrawStyle(PenStyle::Dot);
    target.TraceLine(lineAt(narrow(direction * at)), color);
    surroundings_.serveEvents();
  }
}

}  // namespace tess
