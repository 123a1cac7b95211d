// Selection: marking rows by click, by window and along chains. The mark lives in segattr and
// pscode; it is part of the rows, not of the undo steps.
// Owns: isSelectedOrdinary, selectedCount, selectedAttribute, selectedCode, markSegment,
//       selectOnlyPath, SelectionWindow, SelectWindow, SelectContiguous, SelectConnected,
//       selectContiguousPaths, mnuDrawSelect_Click, mnuDrawUnselect_Click, mnuDrawSelectContiguous,
//       mnuDrawUnselectContiguous, mnuDrawSelectAll_Click, mnuDrawUnselectAll_Click, UnselectAll,
//       collectSelected.
#pragma once

#include <string>
#include <vector>

#include "drafting/drafting_context.h"

namespace tess {

// A selected ordinary entity exactly: verified rows are none.
constexpr bool isSelectedOrdinary(int segattr) {
  return segattr == kSelectedRow;
}
int selectedCount(const DrawingStore& store);

// The attribute or code of a row selected or not. Selecting a drawing row forgets the hundreds, and
// with them that it was verified.
int selectedAttribute(int segattr, bool select);
int selectedCode(int pscode, bool select);

// Marks a row, draws it and keeps the collection for the property window.
void markSegment(DraftingContext& context, int sg, bool select);
// Of the path rows that one alone is selected then. Draws those that change.
void selectOnlyPath(DraftingContext& context, int ps);

// Opposite corners of a window in drawing units.
struct SelectionWindow {
  Point from, to;
};

// Marks all rows that touch the window or, exclusively, have both ends in it; path rows when
// editing works on them. Path rows whose code leaves no room for the mark stay as they are, here
// and in every other command, which then tells so.
void SelectWindow(DraftingContext& context, bool select, const SelectionWindow& window,
                  bool exclusive);

// Marks the chain of touching ends through row `seg`, in both directions, as far as the first
// branches, and adds the branch points to `message`, each on a line of its own. Rows that are
// tagged (1 to NumSegments) are passed over.
void SelectContiguous(DraftingContext& context, bool select, int seg, std::vector<bool>& tagged,
                      std::string& message);

// The same walk along crossings: every row that meets the chain is marked.
void SelectConnected(DraftingContext& context, bool select, int seg, std::vector<bool>& tagged);

// All path rows that hang together with `ps` by their ends, whichever way they run and through
// branches too.
void selectContiguousPaths(DraftingContext& context, bool select, int ps);

void mnuDrawSelect_Click(DraftingContext& context);
void mnuDrawUnselect_Click(DraftingContext& context);
void mnuDrawSelectContiguous(DraftingContext& context);
void mnuDrawUnselectContiguous(DraftingContext& context);
void mnuDrawSelectAll_Click(DraftingContext& context);
void mnuDrawUnselectAll_Click(DraftingContext& context);

// The marks go and the collection is empty; what many commands end with.
void UnselectAll(DraftingContext& context);

// Makes the collection anew from the marks, in the order of the table: rows have come, gone and
// moved.
void collectSelected(DraftingContext& context);

}  // namespace tess
