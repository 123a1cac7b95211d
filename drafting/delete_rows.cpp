// Deleting rows.
#include "drafting/delete_rows.h"

#include <utility>
#include <vector>

#include "drafting/copy_paste.h"
#include "drafting/drafting_commands.h"
#include "drafting/edit_steps.h"
#include "drafting/entity_creation.h"
#include "drafting/paste_buffer.h"
#include "drafting/pending_actions.h"
#include "drafting/selection.h"

namespace tess {
namespace {

enum class Deletion { Nothing, Done, Refused };

template <class Table, class Goes>
Deletion deleteWhere(DraftingContext& context, Table table, Goes goes) {
  Change change(context.changes);
  if (table.rows(change).eraseWhere(goes) == 0) return Deletion::Nothing;
  return keepEdit(context, change, {.undoMark = kRowsDeleted}) ? Deletion::Done : Deletion::Refused;
}

Deletion deleteSelected(DraftingContext& context) {
  const DrawingStore& store = context.store;
  if (context.command.EditPaths) {
    return deleteWhere(context, PlacedTable{},
                       [&store](int ps) { return isSelected(store.pscode[ps]); });
  }
  std::vector<clsSegment> records = recordsToPaste(store, /*clicked=*/0);
  const Deletion deletion = deleteWhere(
      context, DrawnTable{}, [&store](int sg) { return isSelectedOrdinary(store.segattr[sg]); });
  if (deletion == Deletion::Done) fillPasteBuffer(context, std::move(records));
  return deletion;
}

void clickDelete(DraftingContext& context) {
  onEditedTable(context, [&context](auto table) {
    const int number = table.nearest(context.store, mouseOf(context));
    if (number < 1) return;
    Change change(context.changes);
    table.rows(change).erase(number);
    const Keeping keeping{.undoMark = kRowsDeleted, .redraws = false};
    if (keepEdit(context, change, keeping)) UnselectAll(context);
  });
}

}  // namespace

void mnuEditDelete_Click(DraftingContext& context) {
  const Deletion deletion = deleteSelected(context);
  if (deletion == Deletion::Refused) return;
  mnuDrawUnselectAll_Click(context);
  if (deletion == Deletion::Nothing) arm(context, PendingAction::Delete);
}

void mnuEditCut_Click(DraftingContext& context) {
  if (selectedCount(context.store) < 1) {
    return warn(context, "No line segments are currently selected.", "Cut");
  }
  Copy_segment(context);
  mnuEditDelete_Click(context);
}

// ---- Descriptors

namespace {

constexpr Action<DraftingContext> kDeleteActions[] = {
    {{.action = PendingAction::Delete,
      .prompt = "Click near item to delete.",
      .stays = true,
      .left = "deletes the nearest item"},
     clickDelete},
};

}  // namespace

constexpr DraftingCommand kDeleteCommand{
    .info = {.tool = "miDelete",
             .caption = "&Delete",
             .key = "Delete",
             .menu = {"miEdit", 240},
             .bar = {"barEdit", 210}},
    .run = mnuEditDelete_Click,
    .actions = kDeleteActions,
};

constexpr DraftingCommand kCutCommand{
    .info = {.tool = "miCut", .caption = "Cu&t", .menu = {"miEdit", 210}},
    .run = mnuEditCut_Click,
};

}  // namespace tess
