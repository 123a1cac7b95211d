// Undo and redo as commands, with their tools.
#include "drafting/undo.h"

#include "gtest/gtest.h"

#include "drafting/entity_creation.h"
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
