// The rubber bands of the drawing modes and of window drags.
#include "drafting/rubber_band.h"

#include "display/palette.h"
#include "drafting/entity_creation.h"

namespace tess {
namespace {

constexpr int kDrawColorSlot = 3;

Color drawColor(const Desk& desk) {
  return ColorOf(desk.store.colorsinuse[kDrawColorSlot]);
}

WorldBox fromMarker(const Desk& desk) {
  return {desk.store.markerx, desk.store.markery, desk.pointer.MouseMoveX, desk.pointer.MouseMoveY};
}

void bandLine(Desk& desk) {
  desk.ScreenProxy.TraceLine(fromMarker(desk), drawColor(desk));
}

void bandBox(Desk& desk) {
  desk.ScreenProxy.TraceLine(fromMarker(desk), drawColor(desk), kOutlineBox);
}

void bandCircle(Desk& desk) {
  const WorldBox ends = fromMarker(desk);
  const float radius = distance({ends.x0, ends.y0}, {ends.x1, ends.y1});
  desk.ScreenProxy.TraceCircle(ends.x0, ends.y0, radius, drawColor(desk));
}

template <bool (*preview)(Desk&, float, float)>
void bandPreview(Desk& desk) {
  if (desk.command.clickstage != 1) return;
  preview(desk, desk.pointer.MouseMoveX, desk.pointer.MouseMoveY);
}

struct BandRow {
  DrawingMode mode;
  void (*draw)(Desk&);
};

constexpr BandRow kBands[] = {
    {DrawingMode::Line, bandLine},
    {DrawingMode::Arc3P, bandPreview<draw_arc3p>},
    {DrawingMode::ArcC2P, bandPreview<draw_arcc2p>},
    {DrawingMode::Circle3P, bandPreview<draw_circle3p>},
    {DrawingMode::Rectangle, bandBox},
    {DrawingMode::CircleC1P, bandCircle},
};

}  // namespace

void drawRubberBand(Desk& desk) {
  desk.ScreenProxy.setDrawMode(PenMode::NotXor);
  desk.ScreenProxy.setDrawStyle(PenStyle::Solid);
  for (const BandRow& band : kBands) {
    if (desk.state.DrawMode() == static_cast<int>(band.mode)) band.draw(desk);
  }
  desk.ScreenProxy.setDrawMode(PenMode::Copy);
}

void traceSelectionBox(Desk& desk) {
  const PointerRecord& pointer = desk.pointer;
  const WorldBox box{pointer.MouseDownX, pointer.MouseDownY, pointer.MouseMoveX,
                     pointer.MouseMoveY};
  if (box.x0 == box.x1 && box.y0 == box.y1) return;
  traceRubberBox(desk.ScreenProxy, PenStyle::Dot, {box});
}

}  // namespace tess
