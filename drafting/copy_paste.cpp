// Copy and paste.
#include "drafting/copy_paste.h"

#include <vector>

#include "core/drawing_store.h"
#include "drafting/drafting_commands.h"
#include "drafting/entity_creation.h"
#include "drafting/paste_buffer.h"
#include "drafting/pending_actions.h"
#include "drafting/selection.h"
#include "geometry/float_nearest_scans.h"

namespace tess {
namespace {

bool waitsForCopyClick(const DraftingContext& context) {
  return context.state.pendingaction() == static_cast<int>(PendingAction::Copy);
}

float moved(float coordinate, float from, float to) {
  return narrow(static_cast<double>(coordinate) + (static_cast<double>(to) - from));
}

// Fixed: arcs alone bring their centre; a circle entity of a file comes out with centre 0.
SegmentRow pastedRow(const clsSegment& record, Point from, Point to) {
  SegmentRow row{.type = record.SegType,
                 .attr = record.SegAttr,
                 .x0 = moved(record.x0, from.x, to.x),
                 .y0 = moved(record.y0, from.y, to.y),
                 .x1 = moved(record.x1, from.x, to.x),
                 .y1 = moved(record.y1, from.y, to.y)};
  if (isArc(row.type)) {
    row.xc = moved(record.CenterX, from.x, to.x);
    row.yc = moved(record.CenterY, from.y, to.y);
  }
  return row;
}

}  // namespace

std::vector<clsSegment> recordsToPaste(const DrawingStore& store, int clicked) {
  std::vector<clsSegment> records;
  for (int sg = 1; sg <= store.NumSegments; ++sg) {
    if (sg != clicked && !isSelectedOrdinary(store.segattr[sg])) continue;
    records.emplace_back().SetSegment(segmentRow(store, sg), "A", /*start=*/false);
  }
  return records;
}

void Copy_segment(DraftingContext& context) {
  const Procedure here("Copy_segment");
  const int nearest = nearestSeg(context.store, mouseOf(context));
  const bool picks = waitsForCopyClick(context) && nearest > 0;
  if (picks || selectedCount(context.store) >= 1) {
    fillPasteBuffer(context, recordsToPaste(context.store, picks ? nearest : 0));
  } else if (nearest > 0) {
    offerPaste(context);
  }
  context.state.setPendingaction(0);
}

void Paste_segment(DraftingContext& context) {
  const Procedure here("Paste_segment");
  const Point base{context.paste.pastebasex, context.paste.pastebasey};
  std::vector<SegmentRow> rows;
  rows.reserve(context.paste.pastebuffer.size());
  for (const clsSegment& record : context.paste.pastebuffer) {
    rows.push_back(pastedRow(record, base, markerOf(context)));
  }
  dropThreePointCommand(context);
  addShape(context, rows, context.ScreenProxy);
  collectSelected(context);
  context.state.updateProperties = true;
  context.listener.UpdatePropertyWindow();
  refreshStatus(context);
}

void Clear_Paste(DraftingContext& context) {
  context.paste = {};
  context.tools.setEnabled(kPasteCommand.info.tool, false);
}

void mnuEditCopy_Click(DraftingContext& context) {
  if (selectedCount(context.store) < 1) return arm(context, PendingAction::Copy);
  Copy_segment(context);
}

void mnuEditPaste_Click(DraftingContext& context) {
  if (context.paste.pasteavailable) Paste_segment(context);
}

// ---- Descriptors

namespace {

constexpr Action<DraftingContext> kCopyActions[] = {
    {{.action = PendingAction::Copy,
      .prompt = "Click on segment to copy.",
      .left = "copies the nearest row"},
     Copy_segment},
};

}  // namespace

constexpr DraftingCommand kCopyCommand{
    .info = {.tool = "miCopy", .caption = "&Copy", .key = "C", .menu = {"miEdit", 220}},
    .run = mnuEditCopy_Click,
    .actions = kCopyActions,
};

constexpr DraftingCommand kPasteCommand{
    .info = {.tool = "miPaste", .caption = "&Paste", .key = "P", .menu = {"miEdit", 230}},
    .run = mnuEditPaste_Click,
};

}  // namespace tess
