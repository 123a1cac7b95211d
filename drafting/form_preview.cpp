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

void traceInWidth(DraftingContext& context, const FormPreview& preview) {
  if (preview.width == 1) return traceHovering(context, preview.rows);
  DrawingSurface& surface = context.ScreenProxy.surface();
  const int before = surface.state().drawWidth;
  surface.setDrawWidth(preview.width * before);
  traceHovering(context, preview.rows);
  surface.setDrawWidth(before);
}

void invertPreview(DraftingContext& context) {
  context.ScreenProxy.setDrawMode(PenMode::NotXor);
  context.ScreenProxy.setDrawStyle(PenStyle::Solid);
  traceInWidth(context, context.formPreview);
  context.ScreenProxy.setDrawMode(PenMode::Copy);
}

void erasePreview(DraftingContext& context) {
  if (std::exchange(context.formPreview.shown, false)) invertPreview(context);
}

}  // namespace

void traceHovering(DraftingContext& context, const std::vector<SegmentRow>& rows) {
  if (rows.size() <= kMaxHovering) return traceShape(context, rows);
  const SegmentRow box[] = {boxAround(rows)};
  traceShape(context, box);
}

void previewRows(DraftingContext& context, std::vector<SegmentRow> rows, int width) {
  erasePreview(context);
  context.formPreview.width = width;
  context.formPreview.rows = std::move(rows);
  showPreview(context);
}

void showPreview(DraftingContext& context) {
  FormPreview& preview = context.formPreview;
  if (preview.shown || preview.rows.empty() || !context.redraw.markerShown()) return;
  invertPreview(context);
  preview.shown = true;
}

void endPreview(DraftingContext& context) {
  previewRows(context, {});
}

}  // namespace tess
