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
Deletion deleteWhere(Desk& desk, Table table, Goes goes) {
  Change change(desk.changes);
  if (table.rows(change).eraseWhere(goes) == 0) return Deletion::Nothing;
  return keepEdit(desk, change, {.undoMark = kRowsDeleted}) ? Deletion::Done : Deletion::Refused;
}

Deletion deleteSelected(Desk& desk) {
  const DrawingStore& store = desk.store;
  if (desk.command.EditPaths) {
    return deleteWhere(desk, PlacedTable{},
                       [&store](int ps) { return isSelected(store.pscode[ps]); });
  }
  std::vector<clsSegment> records = recordsToPaste(store, /*clicked=*/0);
  const Deletion deletion = deleteWhere(
      desk, DrawnTable{}, [&store](int sg) { return isSelectedOrdinary(store.segattr[sg]); });
  if (deletion == Deletion::Done) fillPasteBuffer(desk, std::move(records));
  return deletion;
}

void clickDelete(Desk& desk) {
  onEditedTable(desk, [&desk](auto table) {
    const int number = table.nearest(desk.store, mouseOf(desk));
    if (number < 1) return;
    Change change(desk.changes);
    table.rows(change).erase(number);
    const Keeping keeping{.undoMark = kRowsDeleted, .redraws = false};
    if (keepEdit(desk, change, keeping)) UnselectAll(desk);
  });
}

}  // namespace

void mnuEditDelete_Click(Desk& desk) {
  const Deletion deletion = deleteSelected(desk);
  if (deletion == Deletion::Refused) return;
  mnuDrawUnselectAll_Click(desk);
  if (deletion == Deletion::Nothing) arm(desk, PendingAction::Delete);
}

void mnuEditCut_Click(Desk& desk) {
  if (selectedCount(desk.store) < 1) {
    return warn(desk, "No line segments are currently selected.", "Cut");
  }
  Copy_segment(desk);
  mnuEditDelete_Click(desk);
}

// ---- Descriptors

namespace {

constexpr Action<Desk> kDeleteActions[] = {
    {{.action = PendingAction::Delete, .prompt = "Click near item to delete.", .stays = true},
     clickDelete},
};

}  // namespace

constexpr DeskCommand kDeleteCommand{
    .info = {.tool = "miDelete",
             .caption = "&Delete",
             .key = "Delete",
             .menu = {"miEdit", 240},
             .bar = {"barEdit", 210}},
    .run = mnuEditDelete_Click,
    .actions = kDeleteActions,
};

constexpr DeskCommand kCutCommand{
    .info = {.tool = "miCut", .caption = "Cu&t", .menu = {"miEdit", 210}},
    .run = mnuEditCut_Click,
};

}  // namespace tess
