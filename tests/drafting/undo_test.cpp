// Undo and redo as commands, with their tools.
#include "drafting/undo.h"

#include <functional>

#include "gtest/gtest.h"

#include "core/drawing_store.h"
#include "drafting/change_walk.h"
#include "drafting/entity_creation.h"
#include "drafting/selection.h"
#include "tests/support/drafting_test_context.h"

namespace tess {
namespace {

using testing::RecordedDrafting;
using testing::segmentTexts;
using Texts = std::vector<std::string>;

TEST(UndoCommand, TakesBackARectangleAsOneStep) {
  RecordedDrafting d;
  mnuDrawRect_Click(d.context);
  d.click(2, 1);
  d.log.take();
  Undo_Last_Change(d.context);
  EXPECT_EQ(d.store.NumSegments, 0);
  EXPECT_EQ(d.log.count("Cls"), 1);
  EXPECT_FALSE(d.tools.isEnabled("miUndo"));
  EXPECT_TRUE(d.tools.isEnabled("miRedo"));
  RedoLastChange(d.context);
  EXPECT_EQ(segmentTexts(d.store),
            (Texts{"1 (0, 0)-(2, 0)", "1 (2, 0)-(2, 1)", "1 (2, 1)-(0, 1)", "1 (0, 1)-(0, 0)"}));
  EXPECT_TRUE(d.tools.isEnabled("miUndo"));
  EXPECT_FALSE(d.tools.isEnabled("miRedo"));
}

TEST(UndoCommand, RefreshesThePropertyWindowWithItsFlagSet) {
  RecordedDrafting d;
  mnuDrawLine_Click(d.context);
  d.click(2, 1);
  const int before = d.propertyRefreshes;
  Undo_Last_Change(d.context);
  EXPECT_EQ(d.propertyRefreshes, before + 1);
}

TEST(UndoCommand, KeepsTheCollectionToTheRowsThatAreMarked) {
  RecordedDrafting d;
  d.add({.type = 1, .attr = 30008, .x1 = 5});
  mnuDrawLine_Click(d.context);
  d.click(1, 0);
  d.click(1, 1);
  mnuDrawSelectAll_Click(d.context);
  EXPECT_EQ(d.context.state.Selected.rows(), (std::vector<int>{1, 2, 3}));
  Undo_Last_Change(d.context);
  EXPECT_EQ(d.context.state.Selected.rows(), (std::vector<int>{1, 2}));
  RedoLastChange(d.context);  // it was not selected when it was drawn
  EXPECT_EQ(d.context.state.Selected.rows(), (std::vector<int>{1, 2}));
}

TEST(UndoCommand, OfNothingReportsNothing) {
  RecordedDrafting d;
  Undo_Last_Change(d.context);
  RedoLastChange(d.context);
  EXPECT_TRUE(d.messages().empty());
  EXPECT_EQ(d.beeps(), 0);
  EXPECT_FALSE(d.tools.isEnabled("miUndo"));
  EXPECT_FALSE(d.tools.isEnabled("miRedo"));
}

TEST(UndoCommand, LeavesTheToolsByWhatThereIs) {
  RecordedDrafting d;
  mnuDrawLine_Click(d.context);
  d.click(1, 0);
  d.click(1, 1);
  Undo_Last_Change(d.context);
  EXPECT_TRUE(d.tools.isEnabled("miUndo"));
  EXPECT_TRUE(d.tools.isEnabled("miRedo"));
  d.click(3, 3);
  EXPECT_FALSE(d.tools.isEnabled("miRedo"));
}

// A context whose table is full but for one row, with a line that was drawn and taken back.
struct FullContext : RecordedDrafting {
  FullContext() {
    mnuDrawLine_Click(context);
    click(1, 0);
    Undo_Last_Change(context);
    takeCallChain();
    ensureSegmentCapacity(store, kRows);
    store.NumSegments = kRows;
  }
  static constexpr int kRows = 32767;
};

std::vector<std::string> chainOfFailure(const std::function<void()>& run, FailureNumber expected) {
  std::vector<std::string> methods;
  try {
    run();
    ADD_FAILURE() << "nothing failed";
  } catch (const RuntimeFailure& failure) {
    EXPECT_EQ(failure.number(), expected);
    for (const CallLevel& level : takeCallChain()) methods.push_back(level.method);
  }
  return methods;
}

TEST(UndoCommand, ReportsFailuresOfTheRedoWalkUnderItsName) {
  FullContext d;
  EXPECT_EQ(chainOfFailure([&] { RedoLastChange(d.context); }, FailureNumber::Overflow),
            (Texts{"StartOfSegment", "RedoLastChange"}));
  EXPECT_EQ(d.store.NumSegments, FullContext::kRows);
}

TEST(UndoCommand, ReportsFailuresOfTheUndoWalkUnderItsName) {
  FullContext d;
  clsSegment removed;
  removed.SetSegment({.type = 1, .x1 = 2}, "D", /*start=*/true);
  d.context.changelog.logRecord(removed, /*cutRedo=*/true);
  EXPECT_EQ(chainOfFailure([&] { Undo_Last_Change(d.context); }, FailureNumber::Overflow),
            Texts{"Undo_Last_Change"});
  EXPECT_EQ(d.store.NumSegments, FullContext::kRows);
}

// The table has room for one of the two rows that would come back, or be done again.
TEST(UndoCommand, IsDoneWholeOrNotAtAll) {
  FullContext d;
  resetUndoState(d.context);
  d.store.NumSegments = FullContext::kRows - 1;
  for (const char* const kind : {"D", "A"}) {
    for (const bool start : {true, false}) {
      clsSegment record;
      record.SetSegment({.type = 1, .x1 = 2}, kind, start);
      d.context.changelog.logRecord(record, /*cutRedo=*/true);
    }
  }
  undoStep(d.context.changes);  // of rows that are not there
  EXPECT_EQ(chainOfFailure([&] { RedoLastChange(d.context); }, FailureNumber::Overflow),
            (Texts{"StartOfSegment", "RedoLastChange"}));
  EXPECT_EQ(d.context.changelog.changecount, 2);
  EXPECT_EQ(chainOfFailure([&] { Undo_Last_Change(d.context); }, FailureNumber::Overflow),
            Texts{"Undo_Last_Change"});
  EXPECT_EQ(d.context.changelog.changecount, 2);
  EXPECT_EQ(d.context.changelog.changetop, 4);
  EXPECT_EQ(d.store.NumSegments, FullContext::kRows - 1);
  EXPECT_EQ(d.store.x1[FullContext::kRows], 0);
}

TEST(UndoState, IsClearedForANewDrawing) {
  RecordedDrafting d;
  mnuDrawLine_Click(d.context);
  d.click(1, 0);
  d.click(1, 1);
  Undo_Last_Change(d.context);
  clearUndoMenu(d.context);
  EXPECT_EQ(d.context.changelog.UndoMark, 0);
  EXPECT_FALSE(d.tools.isEnabled("miUndo"));
  EXPECT_TRUE(d.tools.isEnabled("miRedo"));
  resetUndoState(d.context);
  EXPECT_EQ(d.context.changelog.changecount, 0);
  EXPECT_EQ(d.context.changelog.changetop, 0);
  EXPECT_FALSE(d.tools.isEnabled("miUndo"));
  EXPECT_FALSE(d.tools.isEnabled("miRedo"));
}

}  // namespace
}  // namespace tess
