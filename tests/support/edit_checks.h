// Edits of a drafting desk as steps of undo: what one must leave, and that there was none.
// Owns: expectOneStep, expectNoStep.
#pragma once

#include "gtest/gtest.h"

#include "drafting/undo.h"
#include "tests/support/back_and_forth.h"

namespace tess::testing {

// Runs `edit`, which must change rows in one step that undo takes back and redo does again.
template <class Desk, class Edit>
void expectOneStep(Desk& d, Edit edit) {
  const TableBits before(d.store, Marks::Ignore);
  const int records = d.desk.changelog.changecount;
  edit();
  const TableBits after(d.store, Marks::Ignore);
  EXPECT_FALSE(after == before) << "nothing has changed";
  EXPECT_FALSE(d.store.drawingsaved);
  EXPECT_TRUE(d.tools.isEnabled("miUndo"));
  EXPECT_FALSE(d.tools.isEnabled("miRedo"));
  Undo_Last_Change(d.desk);
  EXPECT_TRUE(TableBits(d.store, Marks::Ignore) == before);
  EXPECT_EQ(d.desk.changelog.changecount, records);
  RedoLastChange(d.desk);
  EXPECT_TRUE(TableBits(d.store, Marks::Ignore) == after);
}

// Runs `edit`, which must leave rows and log alone.
template <class Desk, class Edit>
void expectNoStep(Desk& d, Edit edit) {
  const TableBits before(d.store, Marks::Ignore);
  const int records = d.desk.changelog.changecount;
  d.store.drawingsaved = true;
  edit();
  EXPECT_TRUE(TableBits(d.store, Marks::Ignore) == before);
  EXPECT_EQ(d.desk.changelog.changecount, records);
  EXPECT_TRUE(d.store.drawingsaved);
}

}  // namespace tess::testing
