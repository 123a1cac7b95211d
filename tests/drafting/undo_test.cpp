// Undo and redo as commands, with their tools.
#include "drafting/undo.h"

#include <functional>

#include "gtest/gtest.h"

#include "core/drawing_store.h"
#include "drafting/change_walk.h"
#include "drafting/entity_creation.h"
#include "drafting/selection.h"
#include "tests/support/drafting_desk.h"

namespace tess {
namespace {

using testing::RecordedDesk;
using testing::segmentTexts;
using Texts = std::vector<std::string>;

TEST(UndoCommand, TakesBackARectangleAsOneStep) {
  RecordedDesk d;
  mnuDrawRect_Click(d.desk);
  d.click(2, 1);
  d.log.take();
  Undo_Last_Change(d.desk);
  EXPECT_EQ(d.store.NumSegments, 0);
  EXPECT_EQ(d.log.count("Cls"), 1);
  EXPECT_FALSE(d.tools.isEnabled("miUndo"));
  EXPECT_TRUE(d.tools.isEnabled("miRedo"));
  RedoLastChange(d.desk);
  EXPECT_EQ(segmentTexts(d.store),
            (Texts{"1 (0, 0)-(2, 0)", "1 (2, 0)-(2, 1)", "1 (2, 1)-(0, 1)", "1 (0, 1)-(0, 0)"}));
  EXPECT_TRUE(d.tools.isEnabled("miUndo"));
  EXPECT_FALSE(d.tools.isEnabled("miRedo"));
}

TEST(UndoCommand, RefreshesThePropertyWindowWithItsFlagSet) {
  RecordedDesk d;
  mnuDrawLine_Click(d.desk);
  d.click(2, 1);
  const int before = d.propertyRefreshes;
  Undo_Last_Change(d.desk);
  EXPECT_EQ(d.propertyRefreshes, before + 1);
}

TEST(UndoCommand, KeepsTheCollectionToTheRowsThatAreMarked) {
  RecordedDesk d;
  d.add({.type = 1, .attr = 30008, .x1 = 5});
  mnuDrawLine_Click(d.desk);
  d.click(1, 0);
  d.click(1, 1);
  mnuDrawSelectAll_Click(d.desk);
  EXPECT_EQ(d.desk.state.Selected.rows(), (std::vector<int>{1, 2, 3}));
  Undo_Last_Change(d.desk);
  EXPECT_EQ(d.desk.state.Selected.rows(), (std::vector<int>{1, 2}));
  RedoLastChange(d.desk);  // it was not selected when it was drawn
  EXPECT_EQ(d.desk.state.Selected.rows(), (std::vector<int>{1, 2}));
}

TEST(UndoCommand, OfNothingReportsNothing) {
  RecordedDesk d;
  Undo_Last_Change(d.desk);
  RedoLastChange(d.desk);
  EXPECT_TRUE(d.messages().empty());
  EXPECT_EQ(d.beeps(), 0);
  EXPECT_FALSE(d.tools.isEnabled("miUndo"));
  EXPECT_FALSE(d.tools.isEnabled("miRedo"));
}

TEST(UndoCommand, LeavesTheToolsByWhatThereIs) {
  RecordedDesk d;
  mnuDrawLine_Click(d.desk);
  d.click(1, 0);
  d.click(1, 1);
  Undo_Last_Change(d.desk);
  EXPECT_TRUE(d.tools.isEnabled("miUndo"));
  EXPECT_TRUE(d.tools.isEnabled("miRedo"));
  d.click(3, 3);
  EXPECT_FALSE(d.tools.isEnabled("miRedo"));
}

// A desk whose table is full but for one row, with a line that was drawn and taken back.
struct FullDesk : RecordedDesk {
  FullDesk() {
    mnuDrawLine_Click(desk);
    click(1, 0);
    Undo_Last_Change(desk);
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
  FullDesk d;
  EXPECT_EQ(chainOfFailure([&] { RedoLastChange(d.desk); }, FailureNumber::Overflow),
            (Texts{"StartOfSegment", "RedoLastChange"}));
  EXPECT_EQ(d.store.NumSegments, FullDesk::kRows);
}

TEST(UndoCommand, ReportsFailuresOfTheUndoWalkUnderItsName) {
  FullDesk d;
  clsSegment removed;
  removed.SetSegment({.type = 1, .x1 = 2}, "D", /*start=*/true);
  d.desk.changelog.logRecord(removed, /*cutRedo=*/true);
  EXPECT_EQ(chainOfFailure([&] { Undo_Last_Change(d.desk); }, FailureNumber::Overflow),
            Texts{"Undo_Last_Change"});
  EXPECT_EQ(d.store.NumSegments, FullDesk::kRows);
}

// The table has room for one of the two rows that would come back, or be done again.
TEST(UndoCommand, IsDoneWholeOrNotAtAll) {
  FullDesk d;
  resetUndoState(d.desk);
  d.store.NumSegments = FullDesk::kRows - 1;
  for (const char* const kind : {"D", "A"}) {
    for (const bool start : {true, false}) {
      clsSegment record;
      record.SetSegment({.type = 1, .x1 = 2}, kind, start);
      d.desk.changelog.logRecord(record, /*cutRedo=*/true);
    }
  }
  undoStep(d.desk.changes);  // of rows that are not there
  EXPECT_EQ(chainOfFailure([&] { RedoLastChange(d.desk); }, FailureNumber::Overflow),
            (Texts{"StartOfSegment", "RedoLastChange"}));
  EXPECT_EQ(d.desk.changelog.changecount, 2);
  EXPECT_EQ(chainOfFailure([&] { Undo_Last_Change(d.desk); }, FailureNumber::Overflow),
            Texts{"Undo_Last_Change"});
  EXPECT_EQ(d.desk.changelog.changecount, 2);
  EXPECT_EQ(d.desk.changelog.changetop, 4);
  EXPECT_EQ(d.store.NumSegments, FullDesk::kRows - 1);
  EXPECT_EQ(d.store.x1[FullDesk::kRows], 0);
}

TEST(UndoState, IsClearedForANewDrawing) {
  RecordedDesk d;
  mnuDrawLine_Click(d.desk);
  d.click(1, 0);
  d.click(1, 1);
  Undo_Last_Change(d.desk);
  clearUndoMenu(d.desk);
  EXPECT_EQ(d.desk.changelog.UndoMark, 0);
  EXPECT_FALSE(d.tools.isEnabled("miUndo"));
  EXPECT_TRUE(d.tools.isEnabled("miRedo"));
  resetUndoState(d.desk);
  EXPECT_EQ(d.desk.changelog.changecount, 0);
  EXPECT_EQ(d.desk.changelog.changetop, 0);
  EXPECT_FALSE(d.tools.isEnabled("miUndo"));
  EXPECT_FALSE(d.tools.isEnabled("miRedo"));
}

}  // namespace
}  // namespace tess
