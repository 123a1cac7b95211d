// Rows that hover over the drawing.
#include "drafting/hovering_rows.h"

#include <algorithm>
#include <utility>

#include "drafting/entity_creation.h"

namespace tess {
namespace {

SegmentRow boxAround(const std::vector<SegmentRow>& rows) {
  SegmentRow box = rows.front();
  box.type = kRectangle;
  box.x1 = box.x0;
  box.y1 = box.y0;
  for (const SegmentRow& row : rows) {
    box.x0 = std::min({box.x0, row.x0, row.x1});
    box.y0 = std::min({box.y0, row.y0, row.y1});
    box.x1 = std::max({box.x1, row.x0, row.x1});
    box.y1 = std::max({box.y1, row.y0, row.y1});
  }
  return box;
}

void invertHovering(Desk& desk) {
  desk.ScreenProxy.setDrawMode(PenMode::NotXor);
  desk.ScreenProxy.setDrawStyle(PenStyle::Solid);
  traceHovering(desk, desk.hovering.rows);
  desk.ScreenProxy.setDrawMode(PenMode::Copy);
}

void eraseHovering(Desk& desk) {
  if (std::exchange(desk.hovering.shown, false)) invertHovering(desk);
}

}  // namespace

void traceHovering(Desk& desk, const std::vector<SegmentRow>& rows) {
  if (rows.size() <= kMostHovering) return traceShape(desk, rows);
  const SegmentRow box[] = {boxAround(rows)};
  traceShape(desk, box);
}

void hoverRows(Desk& desk, std::vector<SegmentRow> rows) {
  eraseHovering(desk);
  desk.hovering.rows = std::move(rows);
  showHovering(desk);
}

void showHovering(Desk& desk) {
  HoveringRows& hovering = desk.hovering;
  if (hovering.shown || hovering.rows.empty() || !desk.redraw.markerShown()) return;
  invertHovering(desk);
  hovering.shown = true;
}

void stopHovering(Desk& desk) {
  hoverRows(desk, {});
}

}  // namespace tess
