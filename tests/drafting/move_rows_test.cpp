// Moving the drawing, a selection, and the origin.
#include "drafting/move_rows.h"

#include "gtest/gtest.h"

#include "core/drawing_store.h"
#include "drafting/repeat_key.h"
#include "drafting/rubber_band.h"
#include "tests/support/back_and_forth.h"
#include "tests/support/drafting_desk.h"
#include "tests/support/failure_of.h"

namespace tess {
namespace {

using testing::expectBackAndForth;
using testing::pathTexts;
using testing::RecordedDesk;
using testing::segmentTexts;
using testing::TableBits;
using Texts = std::vector<std::string>;

// A line, both arcs, a circle, a rectangle; and of paths a rapid, a line, an arc and a cycle.
struct MoveDesk : RecordedDesk {
  MoveDesk() {
    addLine(0, 0, 1, 0);
    add({.type = 2, .x0 = 1, .y0 = 0, .x1 = -1, .y1 = 0});
    add({.type = 3, .x0 = 1, .y0 = 1, .x1 = -1, .y1 = 1, .yc = 1});
    add({.type = 5, .x0 = 2, .y0 = 2, .x1 = 2, .y1 = 2, .xc = 1, .yc = 2});
    add({.type = 6, .x0 = -1, .y0 = -1, .x1 = 1, .y1 = 0.5F});
    const PathRow rows[] = {
        {.type = 0, .x1 = 1, .z = 1, .code = 100},
        {.type = 1, .x0 = 1, .x1 = 2, .z = -0.5F, .feed = 10, .code = 100},
        {.type = 3, .x0 = 2, .x1 = 0, .xc = 1, .z = -0.5F, .feed = 8, .code = 201},
        {.type = 83,
         .x0 = 1,
         .y0 = 1,
         .x1 = 1,
         .y1 = 1,
         .xc = 0.1F,
         .yc = 3,
         .z = -0.5F,
         .code = 201},
    };
    for (const PathRow& row : rows) addPathSegment(store, row);
    store.drawingsaved = true;
  }
};

TEST(MoveRows, TakesEverythingByTheWayFromTheMarkerToTheClick) {
  MoveDesk d;
  d.rightClick(1, 1);
  kMoveCommand.run(d.desk);
  EXPECT_EQ(d.pending(), 7);
  EXPECT_EQ(d.prompt(),
            "Click at new position to move.  All drawing and path segments will be moved.");
  d.click(2, 3);
  EXPECT_EQ(segmentTexts(d.store),
            (Texts{"1 (1, 2)-(2, 2)", "2 (2, 2)-(0, 2) c (1, 2)", "3 (2, 3)-(0, 3) c (1, 3)",
                   "5 (3, 4)-(3, 4) c (2, 4)", "6 (0, 1)-(2, 2.5)"}));
  EXPECT_EQ(pathTexts(d.store),
            (Texts{"0 (1, 2)-(2, 2) @100 z 1", "1 (2, 2)-(3, 2) @100 z -0.5 f 10",
                   "3 (3, 2)-(1, 2) c (2, 2) @201 z -0.5 f 8",
                   "83 (2, 3)-(2, 3) c (0.1, 3) @201 z -0.5"}));
  EXPECT_EQ(d.pending(), 0);
  EXPECT_EQ(d.marker(), (Point{2, 3}));
  EXPECT_EQ((Point{d.desk.command.prevmarkerx, d.desk.command.prevmarkery}), (Point{1, 1}));
  EXPECT_FALSE(d.store.drawingsaved);
  EXPECT_TRUE(d.tools.isEnabled("miUndo"));
  EXPECT_FALSE(d.tools.isEnabled("miRedo"));
  EXPECT_EQ(d.beeps(), 0);
}

TEST(MoveRows, OfEverythingIsTwoStepsOfUndoAndThePathsComeBackFirst) {
  MoveDesk d;
  const TableBits before(d.store);
  kMoveCommand.run(d.desk);
  d.click(0.3F, 0.7F);
  const TableBits moved(d.store);
  Undo_Last_Change(d.desk);
  EXPECT_TRUE(TableBits(d.store).placed == before.placed);
  EXPECT_TRUE(TableBits(d.store).drawn == moved.drawn);
  Undo_Last_Change(d.desk);
  EXPECT_TRUE(TableBits(d.store) == before);
  EXPECT_FALSE(d.tools.isEnabled("miUndo"));
  RedoLastChange(d.desk);
  RedoLastChange(d.desk);
  EXPECT_TRUE(TableBits(d.store) == moved);
  expectBackAndForth(d, before, 2);
}

TEST(MoveRows, LogsTheOldRowThenTheNewOneAndOpensAStepForEachTable) {
  MoveDesk d;
  moveAll(d.desk.changes, 1, 0, 1);
  const ChangeLog& log = d.desk.changelog;
  ASSERT_EQ(log.changecount, 18);
  for (int record = 0; record < 18; ++record) {
    SCOPED_TRACE(record);
    EXPECT_EQ(log.record(record).AddOrDelete, record % 2 == 0 ? "D" : "A");
    EXPECT_EQ(log.record(record).StartOfSegment, record == 0 || record == 10);
    EXPECT_EQ(log.record(record).isPath(), record >= 10);
  }
}

TEST(MoveRows, FromALaterRowOnLeavesThoseBeforeItAndOpensTheStepThere) {
  MoveDesk d;
  moveAll(d.desk.changes, 0, 1, 5);
  EXPECT_EQ(segmentTexts(d.store).front(), "1 (0, 0)-(1, 0)");
  EXPECT_EQ(segmentTexts(d.store).back(), "6 (-1, 0)-(1, 1.5)");
  EXPECT_EQ(pathTexts(d.store).front(), "0 (0, 1)-(1, 1) @100 z 1");
  EXPECT_EQ(d.desk.changelog.changecount, 10);
  EXPECT_TRUE(d.desk.changelog.record(0).StartOfSegment);
}

TEST(MoveRows, WithASelectionTakesItAloneAndLeavesThePaths) {
  MoveDesk d;
  d.store.segattr[2] = d.store.segattr[4] = kSelectedRow;
  const TableBits before(d.store);
  const Texts paths = pathTexts(d.store);
  kMoveCommand.run(d.desk);
  EXPECT_EQ(d.prompt(),
            "Click at new position to move.  Only selected drawing segments will be moved.");
  d.click(0, 2);
  EXPECT_EQ(
      segmentTexts(d.store),
      (Texts{"1 (0, 0)-(1, 0)", "2 (1, 2)-(-1, 2) c (0, 2) @30008", "3 (1, 1)-(-1, 1) c (0, 1)",
             "5 (2, 4)-(2, 4) c (1, 4) @30008", "6 (-1, -1)-(1, 0.5)"}));
  EXPECT_EQ(pathTexts(d.store), paths);
  EXPECT_EQ(d.desk.changelog.changecount, 4);
  EXPECT_TRUE(d.desk.changelog.record(0).StartOfSegment);
  EXPECT_EQ(d.desk.changelog.record(0).SegType, 2) << "the first row that was changed opens it";
  expectBackAndForth(d, before);
}

TEST(MoveRows, TakesVerifiedRowsForUnselectedOnes) {
  MoveDesk d;
  d.store.segattr[1] = 30108;
  kMoveCommand.run(d.desk);
  d.click(0, 1);
  EXPECT_EQ(segmentTexts(d.store).front(), "1 (0, 1)-(1, 1) @30108");
  EXPECT_EQ(pathTexts(d.store).front(), "0 (0, 1)-(1, 1) @100 z 1");
}

TEST(MoveRows, KeepsWhatStandsInTheCentreOfALine) {
  RecordedDesk d;
  d.add({.type = 1, .x1 = 1, .xc = 0.5F, .yc = 0.25F});
  moveAll(d.desk.changes, 3, 4, 1);
  EXPECT_EQ(segmentTexts(d.store), Texts{"1 (3, 4)-(4, 4) c (0.5, 0.25)"});
}

TEST(MoveRows, InAnEmptyDrawingMovesTheMarkerAlone) {
  RecordedDesk d;
  d.tools.setEnabled("miUndo", false);
  kMoveCommand.run(d.desk);
  d.click(1, 1);
  EXPECT_EQ(d.marker(), (Point{1, 1}));
  EXPECT_EQ(d.desk.changelog.changecount, 0);
  EXPECT_FALSE(d.tools.isEnabled("miUndo"));
  EXPECT_TRUE(d.store.drawingsaved);
  EXPECT_EQ(d.pending(), 0);
}

TEST(MoveRows, BeyondTheLargestNumberChangesNothing) {
  RecordedDesk d;
  d.addLine(0, 0, 1, 0);
  d.addLine(3e38F, 0, 1, 0);
  d.addPathLine(0, 0, 1, 0);
  d.store.drawingsaved = true;
  const TableBits before(d.store);
  EXPECT_EQ(testing::numberOfFailure([&] { moveAll(d.desk.changes, 3e38F, 0, 1); }),
            FailureNumber::Overflow);
  EXPECT_TRUE(TableBits(d.store) == before);
  EXPECT_EQ(d.desk.changelog.changecount, 0);
  EXPECT_TRUE(d.store.drawingsaved);
}

TEST(MoveRows, ThatTheLogCannotHoldAsksFirst) {
  RecordedDesk d;
  for (int row = 0; row < 16384; ++row) d.addLine(static_cast<float>(row), 0, 1, 1);
  const TableBits before(d.store);
  d.test.recording.prompts.answers = {Answer::Cancel};
  kMoveCommand.run(d.desk);
  d.click(1, 1);
  ASSERT_EQ(d.messages().size(), 1U);
  EXPECT_EQ(d.messages()[0].text,
            "This change takes 32768 records, and the undo log holds at most 32767.\n\nWith OK the "
            "change is made and the undo log is cleared: neither this change nor any before it can "
            "be undone.  With Cancel the drawing stays as it was.");
  EXPECT_TRUE(TableBits(d.store) == before);
  EXPECT_EQ(d.marker(), (Point{0, 0}));
  EXPECT_EQ(d.pending(), 0);

  d.test.recording.prompts.answers = {Answer::Ok};
  kMoveCommand.run(d.desk);
  d.click(1, 1);
  EXPECT_EQ(segmentTexts(d.store).front(), "1 (1, 1)-(2, 2)");
  EXPECT_EQ(d.marker(), (Point{1, 1}));
  EXPECT_FALSE(d.tools.isEnabled("miUndo"));
}

TEST(MoveRows, IsIssuedAgainByTheRepeatKey) {
  MoveDesk d;
  kMoveCommand.run(d.desk);
  d.click(1, 0);
  repeatLastCommand(d.desk);
  EXPECT_EQ(d.pending(), 7);
  d.click(2, 0);
  EXPECT_EQ(segmentTexts(d.store).front(), "1 (2, 0)-(3, 0)");
}

TEST(MoveRows, IsCancelledByEscAndByTheRightButton) {
  MoveDesk d;
  const TableBits before(d.store);
  kMoveCommand.run(d.desk);
  Handle_esc(d.desk);
  EXPECT_EQ(d.pending(), 0);
  kMoveCommand.run(d.desk);
  d.rightClick(2, 2);
  EXPECT_EQ(d.pending(), 0);
  EXPECT_EQ(d.marker(), (Point{0, 0})) << "the right button cancels, and moves no marker";
  EXPECT_TRUE(TableBits(d.store) == before);
}

// ---- What hovers while the button is held

TEST(MoveRows, HoverWhereTheReleaseWouldPutThem) {
  RecordedDesk d;
  d.addLine(0, 0, 1, 0);
  d.store.segattr[1] = kSelectedRow;
  d.addLine(3, 3, 4, 4);
  kMoveCommand.run(d.desk);
  d.log.take();
  d.press(1, 1, 1);
  d.log.take();
  d.move(1, 1, 2);
  EXPECT_EQ(d.desk.pointer.DragBand, 7);
  d.log.take();
  eraseDragBand(d.desk);
  const std::string erased = d.log.take();
  d.desk.pointer.MouseMoveX = 1;
  d.desk.pointer.MouseMoveY = 2;
  showDragBand(d.desk);
  EXPECT_EQ(d.log.take(), erased);
  EXPECT_NE(erased.find(testing::recordedLine({1, 2, 2, 2})), std::string::npos) << erased;
  EXPECT_EQ(erased.find(testing::recordedLine({4, 5, 5, 6})), std::string::npos)
      << "rows that stay do not hover";
  d.release(1, 1, 2);
  EXPECT_EQ(d.desk.pointer.DragBand, 0);
  EXPECT_EQ(segmentTexts(d.store).front(), "1 (1, 2)-(2, 2) @30008");
}

TEST(MoveRows, HoverAtTheGridThatTheReleaseSnapsTo) {
  RecordedDesk d;
  d.addLine(0, 0, 1, 0);
  d.store.cursorgridf = 1;
  d.store.cursorgrid = 0.5F;
  kMoveCommand.run(d.desk);
  d.press(1, 1.1F, 0.9F);
  EXPECT_EQ((Point{d.desk.pointer.MouseMoveX, d.desk.pointer.MouseMoveY}), (Point{1, 1}));
}

TEST(MoveRows, StopHoveringWhenTheMoveIsCancelled) {
  for (const bool byEsc : {true, false}) {
    MoveDesk d;
    kMoveCommand.run(d.desk);
    d.press(1, 1, 1);
    EXPECT_EQ(d.desk.pointer.DragBand, 7);
    byEsc ? Handle_esc(d.desk) : d.release(2, 1, 1);
    EXPECT_EQ(d.desk.pointer.DragBand, 0);
    EXPECT_EQ(d.pending(), 0);
  }
}

TEST(SetOrigin, MovesSegmentsAndPathsSoThatTheClickIsTheOrigin) {
  MoveDesk d;
  d.store.segattr[1] = kSelectedRow;
  const TableBits before(d.store);
  d.rightClick(1, 1);
  kSetOriginCommand.run(d.desk);
  EXPECT_EQ(d.pending(), 35);
  EXPECT_EQ(d.mode(), 0);
  EXPECT_EQ(d.prompt(), "Click on new origin.");
  d.click(1, 0.5F);
  EXPECT_EQ(segmentTexts(d.store),
            (Texts{"1 (-1, -0.5)-(0, -0.5) @30008", "2 (0, -0.5)-(-2, -0.5) c (-1, -0.5)",
                   "3 (0, 0.5)-(-2, 0.5) c (-1, 0.5)", "5 (1, 1.5)-(1, 1.5) c (0, 1.5)",
                   "6 (-2, -1.5)-(0, 0)"}));
  EXPECT_EQ(pathTexts(d.store),
            (Texts{"0 (-1, -0.5)-(0, -0.5) @100 z 1", "1 (0, -0.5)-(1, -0.5) @100 z -0.5 f 10",
                   "3 (1, -0.5)-(-1, -0.5) c (0, -0.5) @201 z -0.5 f 8",
                   "83 (0, 0.5)-(0, 0.5) c (0.1, 3) @201 z -0.5"}));
  EXPECT_EQ(d.marker(), (Point{1, 1}));
  EXPECT_EQ(d.pending(), 0);
  expectBackAndForth(d, before, 2);
}

TEST(SetOrigin, InAnEmptyDrawingDoesNothing) {
  RecordedDesk d;
  kSetOriginCommand.run(d.desk);
  d.click(1, 1);
  EXPECT_EQ(d.pending(), 0);
  EXPECT_EQ(d.desk.changelog.changecount, 0);
  EXPECT_EQ(d.beeps(), 0);
  EXPECT_TRUE(d.messages().empty());
}

}  // namespace
}  // namespace tess
