// Moving the drawing, a selection, and the origin.
#include "drafting/move_rows.h"

#include "gtest/gtest.h"

#include "core/drawing_store.h"
#include "drafting/repeat_key.h"
#include "drafting/rubber_band.h"
#include "tests/support/back_and_forth.h"
#include "tests/support/drafting_test_context.h"
#include "tests/support/failure_of.h"

namespace tess {
namespace {

using testing::expectBackAndForth;
using testing::pathTexts;
using testing::RecordedDrafting;
using testing::segmentTexts;
using testing::TableBits;
using Texts = std::vector<std::string>;

// A line, both arcs, a circle, a rectangle; and of paths a rapid, a line, an arc and a cycle.
struct MoveContext : RecordedDrafting {
  MoveContext() {
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
  MoveContext d;
  d.rightClick(1, 1);
  kMoveCommand.run(d.context);
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
  EXPECT_EQ((Point{d.context.command.prevmarkerx, d.context.command.prevmarkery}), (Point{1, 1}));
  EXPECT_FALSE(d.store.drawingsaved);
  EXPECT_TRUE(d.tools.isEnabled("miUndo"));
  EXPECT_FALSE(d.tools.isEnabled("miRedo"));
  EXPECT_EQ(d.beeps(), 0);
}

TEST(MoveRows, OfEverythingIsTwoStepsOfUndoAndThePathsComeBackFirst) {
  MoveContext d;
  const TableBits before(d.store);
  kMoveCommand.run(d.context);
  d.click(0.3F, 0.7F);
  const TableBits moved(d.store);
  Undo_Last_Change(d.context);
  EXPECT_TRUE(TableBits(d.store).placed == before.placed);
  EXPECT_TRUE(TableBits(d.store).drawn == moved.drawn);
  Undo_Last_Change(d.context);
  EXPECT_TRUE(TableBits(d.store) == before);
  EXPECT_FALSE(d.tools.isEnabled("miUndo"));
  RedoLastChange(d.context);
  RedoLastChange(d.context);
  EXPECT_TRUE(TableBits(d.store) == moved);
  expectBackAndForth(d, before, 2);
}

TEST(MoveRows, LogsTheOldRowThenTheNewOneAndOpensAStepForEachTable) {
  MoveContext d;
  moveAll(d.context.changes, 1, 0, 1);
  const ChangeLog& log = d.context.changelog;
  ASSERT_EQ(log.changecount, 18);
  for (int record = 0; record < 18; ++record) {
    SCOPED_TRACE(record);
    EXPECT_EQ(log.record(record).AddOrDelete, record % 2 == 0 ? "D" : "A");
    EXPECT_EQ(log.record(record).StartOfSegment, record == 0 || record == 10);
    EXPECT_EQ(log.record(record).isPath(), record >= 10);
  }
}

TEST(MoveRows, FromALaterRowOnLeavesThoseBeforeItAndOpensTheStepThere) {
  MoveContext d;
  moveAll(d.context.changes, 0, 1, 5);
  EXPECT_EQ(segmentTexts(d.store).front(), "1 (0, 0)-(1, 0)");
  EXPECT_EQ(segmentTexts(d.store).back(), "6 (-1, 0)-(1, 1.5)");
  EXPECT_EQ(pathTexts(d.store).front(), "0 (0, 1)-(1, 1) @100 z 1");
  EXPECT_EQ(d.context.changelog.changecount, 10);
  EXPECT_TRUE(d.context.changelog.record(0).StartOfSegment);
}

TEST(MoveRows, WithASelectionTakesItAloneAndLeavesThePaths) {
  MoveContext d;
  d.store.segattr[2] = d.store.segattr[4] = kSelectedRow;
  const TableBits before(d.store);
  const Texts paths = pathTexts(d.store);
  kMoveCommand.run(d.context);
  EXPECT_EQ(d.prompt(),
            "Click at new position to move.  Only selected drawing segments will be moved.");
  d.click(0, 2);
  EXPECT_EQ(
      segmentTexts(d.store),
      (Texts{"1 (0, 0)-(1, 0)", "2 (1, 2)-(-1, 2) c (0, 2) @30008", "3 (1, 1)-(-1, 1) c (0, 1)",
             "5 (2, 4)-(2, 4) c (1, 4) @30008", "6 (-1, -1)-(1, 0.5)"}));
  EXPECT_EQ(pathTexts(d.store), paths);
  EXPECT_EQ(d.context.changelog.changecount, 4);
  EXPECT_TRUE(d.context.changelog.record(0).StartOfSegment);
  EXPECT_EQ(d.context.changelog.record(0).SegType, 2) << "the first row that was changed opens it";
  expectBackAndForth(d, before);
}

TEST(MoveRows, TakesVerifiedRowsForUnselectedOnes) {
  MoveContext d;
  d.store.segattr[1] = 30108;
  kMoveCommand.run(d.context);
  d.click(0, 1);
  EXPECT_EQ(segmentTexts(d.store).front(), "1 (0, 1)-(1, 1) @30108");
  EXPECT_EQ(pathTexts(d.store).front(), "0 (0, 1)-(1, 1) @100 z 1");
}

TEST(MoveRows, KeepsWhatStandsInTheCenterOfALine) {
  RecordedDrafting d;
  d.add({.type = 1, .x1 = 1, .xc = 0.5F, .yc = 0.25F});
  moveAll(d.context.changes, 3, 4, 1);
  EXPECT_EQ(segmentTexts(d.store), Texts{"1 (3, 4)-(4, 4) c (0.5, 0.25)"});
}

TEST(MoveRows, InAnEmptyDrawingMovesTheMarkerAlone) {
  RecordedDrafting d;
  d.tools.setEnabled("miUndo", false);
  kMoveCommand.run(d.context);
  d.click(1, 1);
  EXPECT_EQ(d.marker(), (Point{1, 1}));
  EXPECT_EQ(d.context.changelog.changecount, 0);
  EXPECT_FALSE(d.tools.isEnabled("miUndo"));
  EXPECT_TRUE(d.store.drawingsaved);
  EXPECT_EQ(d.pending(), 0);
}

TEST(MoveRows, BeyondTheLargestNumberChangesNothing) {
  RecordedDrafting d;
  d.addLine(0, 0, 1, 0);
  d.addLine(3e38F, 0, 1, 0);
  d.addPathLine(0, 0, 1, 0);
  d.store.drawingsaved = true;
  const TableBits before(d.store);
  EXPECT_EQ(testing::numberOfFailure([&] { moveAll(d.context.changes, 3e38F, 0, 1); }),
            FailureNumber::Overflow);
  EXPECT_TRUE(TableBits(d.store) == before);
  EXPECT_EQ(d.context.changelog.changecount, 0);
  EXPECT_TRUE(d.store.drawingsaved);
}

TEST(MoveRows, ThatTheLogCannotHoldAsksFirst) {
  RecordedDrafting d;
  for (int row = 0; row < 16384; ++row) d.addLine(static_cast<float>(row), 0, 1, 1);
  const TableBits before(d.store);
  d.test.recording.prompts.answers = {Answer::Cancel};
  kMoveCommand.run(d.context);
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
  kMoveCommand.run(d.context);
  d.click(1, 1);
  EXPECT_EQ(segmentTexts(d.store).front(), "1 (1, 1)-(2, 2)");
  EXPECT_EQ(d.marker(), (Point{1, 1}));
  EXPECT_FALSE(d.tools.isEnabled("miUndo"));
}

TEST(MoveRows, IsIssuedAgainByTheRepeatKey) {
  MoveContext d;
  kMoveCommand.run(d.context);
  d.click(1, 0);
  repeatLastCommand(d.context);
  EXPECT_EQ(d.pending(), 7);
  d.click(2, 0);
  EXPECT_EQ(segmentTexts(d.store).front(), "1 (2, 0)-(3, 0)");
}

TEST(MoveRows, IsCancelledByEscAndByTheRightButton) {
  MoveContext d;
  const TableBits before(d.store);
  kMoveCommand.run(d.context);
  Handle_esc(d.context);
  EXPECT_EQ(d.pending(), 0);
  kMoveCommand.run(d.context);
  d.rightClick(2, 2);
  EXPECT_EQ(d.pending(), 0);
  EXPECT_EQ(d.marker(), (Point{0, 0})) << "the right button cancels, and moves no marker";
  EXPECT_TRUE(TableBits(d.store) == before);
}

// ---- What hovers while the button is held

TEST(MoveRows, HoverWhereTheReleaseWouldPutThem) {
  RecordedDrafting d;
  d.addLine(0, 0, 1, 0);
  d.store.segattr[1] = kSelectedRow;
  d.addLine(3, 3, 4, 4);
  kMoveCommand.run(d.context);
  d.log.take();
  d.press(1, 1, 1);
  d.log.take();
  d.move(1, 1, 2);
  EXPECT_EQ(d.context.pointer.DragBand, 7);
  d.log.take();
  eraseDragBand(d.context);
  const std::string erased = d.log.take();
  d.context.pointer.MouseMoveX = 1;
  d.context.pointer.MouseMoveY = 2;
  showDragBand(d.context);
  EXPECT_EQ(d.log.take(), erased);
  EXPECT_NE(erased.find(testing::recordedLine({1, 2, 2, 2})), std::string::npos) << erased;
  EXPECT_EQ(erased.find(testing::recordedLine({4, 5, 5, 6})), std::string::npos)
      << "rows that stay do not hover";
  d.release(1, 1, 2);
  EXPECT_EQ(d.context.pointer.DragBand, 0);
  EXPECT_EQ(segmentTexts(d.store).front(), "1 (1, 2)-(2, 2) @30008");
}

TEST(MoveRows, HoverAtTheGridThatTheReleaseSnapsTo) {
  RecordedDrafting d;
  d.addLine(0, 0, 1, 0);
  d.store.cursorgridf = 1;
  d.store.cursorgrid = 0.5F;
  kMoveCommand.run(d.context);
  d.press(1, 1.1F, 0.9F);
  EXPECT_EQ((Point{d.context.pointer.MouseMoveX, d.context.pointer.MouseMoveY}), (Point{1, 1}));
}

TEST(MoveRows, StopHoveringWhenTheMoveIsCancelled) {
  for (const bool byEsc : {true, false}) {
    MoveContext d;
    kMoveCommand.run(d.context);
    d.press(1, 1, 1);
    EXPECT_EQ(d.context.pointer.DragBand, 7);
    byEsc ? Handle_esc(d.context) : d.release(2, 1, 1);
    EXPECT_EQ(d.context.pointer.DragBand, 0);
    EXPECT_EQ(d.pending(), 0);
  }
}

TEST(SetOrigin, MovesSegmentsAndPathsSoThatTheClickIsTheOrigin) {
  MoveContext d;
  d.store.segattr[1] = kSelectedRow;
  const TableBits before(d.store);
  d.rightClick(1, 1);
  kSetOriginCommand.run(d.context);
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
  RecordedDrafting d;
  kSetOriginCommand.run(d.context);
  d.click(1, 1);
  EXPECT_EQ(d.pending(), 0);
  EXPECT_EQ(d.context.changelog.changecount, 0);
  EXPECT_EQ(d.beeps(), 0);
  EXPECT_TRUE(d.messages().empty());
}

}  // namespace
}  // namespace tess
