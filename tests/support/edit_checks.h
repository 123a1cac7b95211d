// Edits of a drafting context as steps of undo: what one must leave, and that there was none.
// Owns: expectOneStep, expectNoStep.
#pragma once

#include "gtest/gtest.h"

#include "drafting/undo.h"
#include "tests/support/back_and_forth.h"

namespace tess::testing {

// Runs `edit`, which must change rows in one step that undo takes back and redo does again.
template <class DraftingContext, class Edit>
void expectOneStep(DraftingContext& d, Edit edit) {
  const TableBits before(d.store, Marks::Ignore);
  const int records = d.context.changelog.changecount;
  edit();
  const TableBits after(d.store, Marks::Ignore);
  EXPECT_FALSE(after == before) << "nothing has changed";
  EXPECT_FALSE(d.store.drawingsaved);
  EXPECT_TRUE(d.tools.isEnabled("miUndo"));
  EXPECT_FALSE(d.tools.isEnabled("miRedo"));
  Undo_Last_Change(d.context);
  EXPECT_TRUE(TableBits(d.store, Marks::Ignore) == before);
  EXPECT_EQ(d.context.changelog.changecount, records);
  RedoLastChange(d.context);
  EXPECT_TRUE(TableBits(d.store, Marks::Ignore) == after);
}

// Runs `edit`, which must leave rows and log alone.
template <class DraftingContext, class Edit>
void expectNoStep(DraftingContext& d, Edit edit) {
  const TableBits before(d.store, Marks::Ignore);
  const int records = d.context.changelog.changecount;
  d.store.drawingsaved = true;
  edit();
  EXPECT_TRUE(TableBits(d.store, Marks::Ignore) == before);
  EXPECT_EQ(d.context.changelog.changecount, records);
  EXPECT_TRUE(d.store.drawingsaved);
}

}  // namespace tess::testing
