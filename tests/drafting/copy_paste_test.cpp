// Copy and paste.
#include "drafting/copy_paste.h"

#include "gtest/gtest.h"

#include "core/drawing_store.h"
#include "drafting/entity_creation.h"
#include "drafting/paste_buffer.h"
#include "tests/support/back_and_forth.h"
#include "tests/support/drafting_test_context.h"
#include "tests/support/failure_of.h"

namespace tess {
namespace {

using testing::expectBackAndForth;
using testing::RecordedDrafting;
using testing::segmentTexts;
using testing::TableBits;
using Texts = std::vector<std::string>;

struct PasteContext : RecordedDrafting {
  PasteContext() {
    Clear_Paste(context);
    addLine(0, 0, 1, 0);
    add({.type = 2, .x0 = 1, .y0 = 0, .x1 = -1, .y1 = 0});
    addLine(0, 3, 1, 3);
    store.drawingsaved = true;
  }
  bool canPaste() const { return tools.isEnabled("miPaste"); }
  // The rows behind those that were there first.
  Texts pasted(int first = 3) const {
    Texts rows = segmentTexts(store);
    rows.erase(rows.begin(), rows.begin() + first);
    return rows;
  }
};

TEST(Copy, WithASelectionKeepsItAtOnceAndTheMarkerIsItsBase) {
  PasteContext d;
  d.store.segattr[1] = d.store.segattr[2] = kSelectedRow;
  d.rightClick(0.5F, 0.5F);
  mnuEditCopy_Click(d.context);
  EXPECT_EQ(d.pending(), 0);
  EXPECT_TRUE(d.canPaste());
  EXPECT_EQ(d.context.paste.pastebuffer.size(), 2U);
  EXPECT_EQ((Point{d.context.paste.pastebasex, d.context.paste.pastebasey}), (Point{0.5F, 0.5F}));
  EXPECT_EQ(d.context.changelog.changecount, 0);
  EXPECT_TRUE(d.store.drawingsaved);
}

TEST(Copy, WithoutASelectionWaitsForTheClickAndKeepsTheRowNearIt) {
  PasteContext d;
  mnuEditCopy_Click(d.context);
  EXPECT_EQ(d.pending(), 8);
  EXPECT_EQ(d.prompt(), "Click on segment to copy.");
  EXPECT_FALSE(d.canPaste());
  d.click(0.5F, 3.1F);
  EXPECT_EQ(d.pending(), 0);
  EXPECT_TRUE(d.canPaste());
  d.rightClick(2, 0);
  mnuEditPaste_Click(d.context);
  EXPECT_EQ(d.pasted(), Texts{"1 (2, 3)-(3, 3)"});
}

TEST(Copy, TakesNoVerifiedRowForSelected) {
  PasteContext d;
  d.store.segattr[1] = 30108;
  mnuEditCopy_Click(d.context);
  EXPECT_EQ(d.pending(), 8);
}

TEST(Copy, OfAVerifiedRowByItsClickKeepsItsAttribute) {
  PasteContext d;
  d.store.segattr[3] = 30108;
  mnuEditCopy_Click(d.context);
  d.click(0.5F, 3);
  mnuEditPaste_Click(d.context);
  EXPECT_EQ(d.pasted(), Texts{"1 (0, 3)-(1, 3) @30108"});
}

TEST(Copy, InAnEmptyDrawingEndsSilently) {
  RecordedDrafting d;
  Clear_Paste(d.context);
  mnuEditCopy_Click(d.context);
  d.click(1, 1);
  EXPECT_EQ(d.pending(), 0);
  EXPECT_FALSE(d.tools.isEnabled("miPaste"));
  EXPECT_EQ(d.beeps(), 0);
  EXPECT_TRUE(d.messages().empty());
}

TEST(Copy, DropsAnotherActionThatWaits) {
  PasteContext d;
  d.store.segattr[1] = kSelectedRow;
  kMoveCommand.run(d.context);
  mnuEditCopy_Click(d.context);
  EXPECT_EQ(d.pending(), 0);
}

TEST(Copy, ReplacesWhatWasKeptBefore) {
  PasteContext d;
  d.store.segattr[1] = kSelectedRow;
  mnuEditCopy_Click(d.context);
  d.store.segattr[1] = 8;
  d.store.segattr[3] = kSelectedRow;
  mnuEditCopy_Click(d.context);
  mnuEditPaste_Click(d.context);
  EXPECT_EQ(d.pasted(), Texts{"1 (0, 3)-(1, 3) @30008"});
}

TEST(Paste, WithTheMarkerWhereItStoodPutsTheCopyOnItsSource) {
  PasteContext d;
  d.store.segattr[1] = d.store.segattr[2] = kSelectedRow;
  d.rightClick(0.3F, 0.7F);
  mnuEditCopy_Click(d.context);
  const TableBits before(d.store);
  mnuEditPaste_Click(d.context);
  EXPECT_EQ(d.pasted(), (Texts{"1 (0, 0)-(1, 0) @30008", "2 (1, 0)-(-1, 0) c (0, 0) @30008"}));
  EXPECT_EQ(d.context.state.Selected.rows(), (std::vector<int>{1, 2, 4, 5}));
  EXPECT_FALSE(d.store.drawingsaved);
  EXPECT_TRUE(d.tools.isEnabled("miUndo"));
  EXPECT_EQ(d.context.changelog.changecount, 2);
  EXPECT_EQ(d.context.changelog.record(0).AddOrDelete, "A");
  EXPECT_TRUE(d.context.changelog.record(0).StartOfSegment);
  EXPECT_FALSE(d.context.changelog.record(1).StartOfSegment);
  expectBackAndForth(d, before);
}

TEST(Paste, GoesWithTheMarkerAndASecondOneAddsAgain) {
  PasteContext d;
  d.store.segattr[1] = d.store.segattr[2] = kSelectedRow;
  mnuEditCopy_Click(d.context);
  d.rightClick(2, 1);
  mnuEditPaste_Click(d.context);
  const Texts copies{"1 (2, 1)-(3, 1) @30008", "2 (3, 1)-(1, 1) c (2, 1) @30008"};
  EXPECT_EQ(d.pasted(), copies);
  mnuEditPaste_Click(d.context);
  EXPECT_EQ(d.pasted(5), copies);
  d.rightClick(0, -1);
  mnuEditPaste_Click(d.context);
  EXPECT_EQ(d.pasted(7),
            (Texts{"1 (0, -1)-(1, -1) @30008", "2 (1, -1)-(-1, -1) c (0, -1) @30008"}));
  EXPECT_EQ(d.context.changelog.changecount, 6);
}

// Neither a circle entity nor a rectangle brings a centre.
TEST(Paste, GivesACenterToArcsAlone) {
  RecordedDrafting d;
  d.add({.type = 5, .attr = 30008, .x0 = 2, .y0 = 2, .x1 = 2, .y1 = 2, .xc = 1, .yc = 2});
  d.add({.type = 6, .attr = 30008, .x1 = 1, .y1 = 1, .xc = 9, .yc = 9});
  d.add({.type = 3, .attr = 30008, .x0 = 1, .x1 = 1});
  mnuEditCopy_Click(d.context);
  d.rightClick(1, 1);
  mnuEditPaste_Click(d.context);
  const Texts rows = segmentTexts(d.store);
  EXPECT_EQ(Texts(rows.begin() + 3, rows.end()),
            (Texts{"5 (3, 3)-(3, 3) @30008", "6 (1, 1)-(2, 2) @30008",
                   "3 (2, 1)-(2, 1) c (1, 1) @30008"}));
}

TEST(Paste, DropsAHalfDoneThreePointCommandAndLeavesItsMode) {
  PasteContext d;
  d.store.segattr[1] = kSelectedRow;
  mnuEditCopy_Click(d.context);
  mnuDrawArc3P_Click(d.context);
  d.click(2, 2);
  ASSERT_EQ(d.context.command.clickstage, 1);
  mnuEditPaste_Click(d.context);
  EXPECT_EQ(d.context.command.clickstage, 0);
  EXPECT_FALSE(d.context.command.secondCrossShown);
  EXPECT_EQ(d.mode(), 2);
  EXPECT_EQ(d.statistics.substr(0, 4), "4 0 ");
}

TEST(Paste, WithoutAnythingKeptDoesNothing) {
  PasteContext d;
  mnuEditPaste_Click(d.context);
  EXPECT_EQ(d.pasted(), Texts{});
  EXPECT_EQ(d.context.changelog.changecount, 0);
}

TEST(Paste, IntoAFullTableAddsNothing) {
  RecordedDrafting d;
  for (int row = 0; row < 32766; ++row) d.addLine(static_cast<float>(row), 0, 1, 1);
  d.store.segattr[1] = d.store.segattr[2] = kSelectedRow;
  mnuEditCopy_Click(d.context);
  const TableBits before(d.store);
  EXPECT_EQ(testing::numberOfFailure([&] { mnuEditPaste_Click(d.context); }),
            FailureNumber::Overflow);
  EXPECT_TRUE(TableBits(d.store) == before);
  EXPECT_EQ(d.context.changelog.changecount, 0);
  EXPECT_TRUE(d.context.paste.pasteavailable);
}

TEST(Paste, BeyondTheLargestNumberAddsNothing) {
  RecordedDrafting d;
  d.addLine(3e38F, 0, 1, 0);
  d.store.segattr[1] = kSelectedRow;
  mnuEditCopy_Click(d.context);
  d.store.markerx = 3e38F;
  EXPECT_EQ(testing::numberOfFailure([&] { mnuEditPaste_Click(d.context); }),
            FailureNumber::Overflow);
  EXPECT_EQ(d.store.NumSegments, 1);
}

TEST(ClearPaste, ForgetsTheRowsAndDisablesTheTool) {
  PasteContext d;
  d.store.segattr[1] = kSelectedRow;
  mnuEditCopy_Click(d.context);
  Clear_Paste(d.context);
  EXPECT_FALSE(d.canPaste());
  EXPECT_TRUE(d.context.paste.pastebuffer.empty());
  mnuEditPaste_Click(d.context);
  EXPECT_EQ(d.pasted(), Texts{});
}

}  // namespace
}  // namespace tess
