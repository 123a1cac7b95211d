// What editing commands have in common: the row that a click has picked, how an edit ends, and how
// the operator is told that there is none.
// Owns: pickRow, pickedRow, hasRowsToEdit, kDrawnByTheClick, keepEdit, editByClick, reshapeRow,
//       beep, warn.
#pragma once

#include <string>

#include "drafting/edited_table.h"

namespace tess {

// Remembers a row for the next click.
template <class Table>
void pickRow(DraftingContext& context, Table /*table*/, int number) {
  context.command.PendingSeg1 = number;
  context.command.PendingRow1 = Table::entity(context.store, number);
}

// The row that was picked; 0 if it is not there any more, as after undo or in the other table.
template <class Table>
int pickedRow(const DraftingContext& context, Table /*table*/) {
  const int number = context.command.PendingSeg1;
  const bool inTable = number >= 1 && number <= Table::count(context.store);
  return inTable && Table::entity(context.store, number) == context.command.PendingRow1 ? number
                                                                                        : 0;
}

// Whether the table that editing works on has a row.
bool hasRowsToEdit(const DraftingContext& context);

// A click redraws when it is done.
inline constexpr Keeping kDrawnByTheClick{.redraws = false};

// Keeps the change and lets selection and property window follow it; false when the operator has
// refused a step that is too long for the log.
bool keepEdit(DraftingContext& context, Change& change, const Keeping& keeping = kDrawnByTheClick);

// What a routine does that is a whole change by itself, as part of a click.
template <class Edit>
auto editByClick(DraftingContext& context, Edit edit) {
  Change change(context.changes);
  const auto result = edit();
  change.keep(kDrawnByTheClick);
  context.state.updateProperties = true;
  return result;
}

// Gives row `number` another form, as one step of undo.
template <class Table>
void reshapeRow(Changes& changes, Table /*table*/, int number, const Entity& form,
                const Keeping& keeping = {}) {
  Change change(changes);
  Table::rows(change).replace(number, reshaped(Table::row(changes.store, number), form));
  change.keep(keeping);
}

void beep(DraftingContext& context);
void warn(DraftingContext& context, const std::string& text, const std::string& title);

}  // namespace tess
