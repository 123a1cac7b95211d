// Rows that hover while a form is open.
#include "drafting/form_preview.h"

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

void invertPreview(Desk& desk) {
  desk.ScreenProxy.setDrawMode(PenMode::NotXor);
  desk.ScreenProxy.setDrawStyle(PenStyle::Solid);
  traceHovering(desk, desk.formPreview.rows);
  desk.ScreenProxy.setDrawMode(PenMode::Copy);
}

void erasePreview(Desk& desk) {
  if (std::exchange(desk.formPreview.shown, false)) invertPreview(desk);
}

}  // namespace

void traceHovering(Desk& desk, const std::vector<SegmentRow>& rows) {
  if (rows.size() <= kMaxHovering) return traceShape(desk, rows);
  const SegmentRow box[] = {boxAround(rows)};
  traceShape(desk, box);
}

void previewRows(Desk& desk, std::vector<SegmentRow> rows) {
  erasePreview(desk);
  desk.formPreview.rows = std::move(rows);
  showPreview(desk);
}

void showPreview(Desk& desk) {
  FormPreview& preview = desk.formPreview;
  if (preview.shown || preview.rows.empty() || !desk.redraw.markerShown()) return;
  invertPreview(desk);
  preview.shown = true;
}

void endPreview(Desk& desk) {
  previewRows(desk, {});
}

}  // namespace tess
