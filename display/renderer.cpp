// Drawing rows, their lines and arcs, and the grid.
#include "display/renderer.h"

#include <cmath>
#include <utility>

#include "core/drawing_store.h"
#include "geometry/float_angles.h"
#include "geometry/row_entity.h"

namespace tess {

namespace {

// Half of a marker's side, 2 pixels: the difference of two lengths, so that no offset of the scale
// enters.
float markerHalf(const DrawingTarget& target) {
  return std::abs(target.ScaleX(7, ScaleUnit::Pixels, ScaleUnit::User) -
                  target.ScaleX(5, ScaleUnit::Pixels, ScaleUnit::User));
}

void endMarkers(const Entity& entity, std::optional<Rgb> color, DrawingTarget& target) {
  const float h = markerHalf(target);
  for (const Point end : {entity.start, entity.end}) {
    target.TraceLine({end.x - h, end.y - h, end.x + h, end.y + h}, color, kFilledBox);
  }
}

}  // namespace

bool Renderer::markersShown() const {
  return store_.endmarkers != 0 && !pathdrawing;
}

void Renderer::complain(const char* text) {
  Message message;
  message.text = text;
  prompts_.showMessage(message);
}

Rgb Renderer::colorOn(DrawingTarget& target, ColorSlot slot) const {
  return target.screen() != nullptr ? look.slot(slot) : slotColor(store_, slot);
}

Rgb Renderer::stateColor(int sg, DrawingTarget& target) {
  const int attr = store_.segattr[sg];
  if (attr > kVerified || attr == kParkedRow) return colorOn(target, ColorSlot::Verified);
  if (hasSelectionMark(attr)) return colorOn(target, ColorSlot::Select);
  if (attr >= kCodesPerState) complain("Bad Entity Attribute error in DrawSegment");
  return colorOn(target, ColorSlot::Draw);
}

// Fixed: a line without length announces a change of colour; recorded pictures list it.
void Renderer::rememberColor(DrawingTarget& target) {
  if (entityColor_ != rememberedColor_) target.TraceLine({0, 0, 0, 0}, entityColor_);
  rememberedColor_ = entityColor_;
}

void Renderer::DrawSegment(int sg, DrawingTarget& target, std::optional<Rgb> color) {
  const Procedure here("frmMain.DrawSegment(sg,target)");
  if (!color) {
    rememberColor(target);
    entityColor_ = stateColor(sg, target);
  }
  const Rgb ink = color.value_or(entityColor_);
  // Lines are most of what there is, and have no centre to be read.
  if (store_.segtype[sg] == kLine) {
    return DrawLine({store_.x0[sg], store_.y0[sg], store_.x1[sg], store_.y1[sg]}, ink, target);
  }
  const Entity entity = segmentEntity(store_, sg);
  if (isArc(entity.type) || entity.type == kCircle) {
    DrawArc(entity, ink, target);
  } else if (entity.type == kRectangle) {
    drawRectangle(entity, ink, target);
  } else {
    complain("Bad Entity Type error in DrawSegment");
  }
}

void Renderer::drawRectangle(const Entity& corners, Rgb color, DrawingTarget& target) {
  const auto [x0, y0, x1, y1] = lineOf(corners);
  DrawLine({x0, y0, x1, y0}, color, target);
  DrawLine({x1, y0, x1, y1}, color, target);
  DrawLine({x1, y1, x0, y1}, color, target);
  DrawLine({x0, y1, x0, y0}, color, target);
}

void Renderer::DrawLine(const WorldBox& ends, Rgb color, DrawingTarget& target) {
  if (PictureBoxProxy* screen = target.screen()) {
    screen->setDrawMode(PenMode::Copy);
    screen->setDrawStyle(PenStyle::Solid);
  }
  // Fixed: each line is traced twice; targets that record or count their strokes would differ.
  target.TraceLineTwice(ends, color);
  if (!markersShown()) return;
  endMarkers(lineEntity({ends.x0, ends.y0}, {ends.x1, ends.y1}), colorOn(target, ColorSlot::Marker),
             target);
}

void Renderer::DrawArc(const Entity& arc, Rgb color, DrawingTarget& target) {
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
  // Fixed: ends of arcs take the color of the target; pictures show them beside those of lines.
  endMarkers(arc, look.arcMarker(), target);
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
  const GridSide down{-top, -bottom, target.Height()};
  const GridSide up{bottom, top, target.Height()};
  const GridSide onward{left, right, target.Width()};
  const GridSide back{-right, -left, target.Width()};
  // Fixed: the lines through zero are traced by both sides; recorded pictures list them twice.
  gridLines(-1, down, row, target);
  gridLines(+1, up, row, target);
  gridLines(+1, onward, column, target);
  gridLines(-1, back, column, target);
  target.setDrawStyle(PenStyle::Solid);
}

double Renderer::closestGrid() const {
  constexpr double kApart = 8;  // pixels; closer lines are a haze
  return look.isSoft() ? kApart : 1;
}

double Renderer::shownPitch(const DrawingTarget& target) const {
  const double span = std::abs(target.ScaleWidth());
  return gridRun(store_.visualgrid, {0, span, target.Width()}, closestGrid()).step;
}

template <typename LineAt>
void Renderer::gridLines(int direction, const GridSide& side, LineAt lineAt,
                         DrawingTarget& target) {
  const GridRun run = gridRun(store_.visualgrid, side, closestGrid());
  const Rgb color = colorOn(target, ColorSlot::Grid);
  for (int i = 0; i < run.count; ++i) {
    target.setDrawStyle(PenStyle::Dot);
    target.TraceLine(lineAt(narrow(direction * (run.first + i) * run.step)), color);
    surroundings_.serveEvents();
  }
}

}  // namespace tess
