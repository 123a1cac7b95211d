// Scaling.
#include "drafting/scale_drawing.h"

#include "core/drawing_store.h"
#include "drafting/dlgInputReal.h"
#include "drafting/drafting_commands.h"
#include "drafting/row_mapping.h"
#include "drafting/undo.h"

namespace tess {
namespace {

bool anySelected(const DrawingStore& store) {
  for (int sg = 1; sg <= store.NumSegments; ++sg) {
    if (store.segattr[sg] >= kSelected) return true;
  }
  return false;
}

}  // namespace

// Fixed: path rows keep their size; scripts place paths anew after they have scaled a drawing.
void scaleSegments(Changes& changes, float factor, bool selectedOnly, Entry entry) {
  const auto scaled = [factor](Point p) {
    return Point{narrow(static_cast<double>(p.x) * factor),
                 narrow(static_cast<double>(p.y) * factor)};
  };
  const auto scale = [&](int /*sg*/, SegmentRow& row) {
    if (selectedOnly && row.attr < kSelected) return false;
    mapRow(row, scaled);
    return true;
  };
  Change change(changes);
  change.segments.replaceWhere(scale, entry);
  change.keep();
}

void convertDrawing(DraftingContext& context, float factor) {
  constexpr int kRecordsPerRow = 2;
  const bool fitsTheLog = kRecordsPerRow * context.store.NumSegments <= kMaxRecords;
  scaleSegments(context.changes, factor, /*selectedOnly=*/false,
                fitsTheLog ? Entry::Logged : Entry::Unlogged);
  if (!fitsTheLog) resetUndoState(context);  // its records tell of rows of another size
}

void scaledrawing(DraftingContext& context) {
  const Procedure here("frmMain.scaledrawing()");
  context.command.LastCommand = static_cast<int>(PendingAction::ScaleDrawing);
  dlgInputReal form(context.session.host.prompts, "Scale Drawing Multiplier", 1,
                    anySelected(context.store));
  context.session.host.prompts.showModal(form);
  if (!form.accepted() || form.value() == 1) return;
  if (form.value() <= 0) return context.session.host.surroundings.beep();
  scaleSegments(context.changes, form.value(), form.selectedItemsOnly());
  context.state.updateProperties = true;
  context.listener.UpdatePropertyWindow();
}

// ---- Descriptors

constexpr DraftingCommand kScaleDrawingCommand{
    .info = {.tool = "miScaleDrawing",
             .caption = "&Scale Drawing...",
             .key = "S",
             .menu = {"miEdit", 520}},
    .run = scaledrawing,
    .repeat = {{PendingAction::ScaleDrawing}},
};

}  // namespace tess
