// Deleting rows: by a click, of a selection, and Cut.
#include "drafting/delete_rows.h"

#include "gtest/gtest.h"

#include "drafting/edit_paths.h"
#include "drafting/selection.h"
#include "tests/support/drafting_test_context.h"
#include "tests/support/edit_checks.h"

namespace tess {
namespace {

using testing::expectNoStep;
using testing::expectOneStep;
using testing::pathTexts;
using testing::RecordedDrafting;
using testing::segmentTexts;
using Texts = std::vector<std::string>;

// Three lines one above the other.
struct ThreeLines : RecordedDrafting {
  ThreeLines() {
    for (const float y : {0.0F, 1.0F, 2.0F}) {
      addLine(0, y, 3, y);
      addPathLine(0, y, 3, y, 101);
    }
  }
  std::vector<std::string> kept() const {
    std::vector<std::string> texts;
    for (const clsSegment& record : context.paste.pastebuffer) {
      texts.push_back(testing::recordedLine({record.x0, record.y0, record.x1, record.y1}));
    }
    return texts;
  }
};

// ---- By a click

TEST(DeleteByClick, TakesTheNearestRowAndStaysArmed) {
  ThreeLines d;
  mnuEditDelete_Click(d.context);
  expectOneStep(d, [&d] { d.click(1, 1.2F); });
  EXPECT_EQ(segmentTexts(d.store), (Texts{"1 (0, 0)-(3, 0)", "1 (0, 2)-(3, 2)"}));
  EXPECT_EQ(d.pending(), 1);
  EXPECT_EQ(d.prompt(), "Click near item to delete.");
  d.click(1, 2);
  EXPECT_EQ(segmentTexts(d.store), (Texts{"1 (0, 0)-(3, 0)"}));
  EXPECT_EQ(d.context.changelog.changecount, 2);
  EXPECT_EQ(d.context.changelog.UndoMark, -1);
}

TEST(DeleteByClick, UnmarksOtherRowsAndStaysArmed) {
  ThreeLines d;
  d.store.segattr[1] = 30108;
  mnuEditDelete_Click(d.context);
  d.store.segattr[3] = 30008;
  d.click(1, 1);
  EXPECT_EQ(segmentTexts(d.store), (Texts{"1 (0, 0)-(3, 0)", "1 (0, 2)-(3, 2)"}));
  EXPECT_TRUE(d.context.state.Selected.rows().empty());
  EXPECT_EQ(d.pending(), 1);
}

TEST(DeleteByClick, KeepsNothingForPaste) {
  ThreeLines d;
  mnuEditDelete_Click(d.context);
  d.click(1, 1);
  EXPECT_TRUE(d.kept().empty());
  EXPECT_FALSE(d.context.paste.pasteavailable);
}

TEST(DeleteByClick, WithNothingLeftIsSilentAndStaysArmed) {
  RecordedDrafting d;
  mnuEditDelete_Click(d.context);
  expectNoStep(d, [&d] { d.click(1, 1); });
  EXPECT_EQ(d.pending(), 1);
  EXPECT_EQ(d.beeps(), 0);
  EXPECT_TRUE(d.messages().empty());
}

TEST(DeleteByClick, TakesTheNearestPathRowThatIsShown) {
  ThreeLines d;
  d.store.psvisible[2] = false;
  d.context.command.EditPaths = true;
  mnuEditDelete_Click(d.context);
  expectOneStep(d, [&d] { d.click(1, 1.3F); });
  EXPECT_EQ(pathTexts(d.store), (Texts{"1 (0, 0)-(3, 0) @101 z 0", "1 (0, 1)-(3, 1) @101 z 0"}));
  EXPECT_EQ(d.store.NumSegments, 3);
  EXPECT_EQ(d.pending(), 1);
}

TEST(DeleteByClick, TakesARowWithoutLength) {
  RecordedDrafting d;
  d.addLine(1, 1, 1, 1);
  mnuEditDelete_Click(d.context);
  expectOneStep(d, [&d] { d.click(2, 2); });
  EXPECT_EQ(d.store.NumSegments, 0);
}

TEST(DeleteByClick, RedrawsOnce) {
  ThreeLines d;
  mnuEditDelete_Click(d.context);
  d.log.take();
  d.click(1, 1);
  EXPECT_EQ(d.log.count("Cls"), 1);
}

// ---- Of a selection

TEST(DeleteOfASelection, RedrawsTheScreen) {
  ThreeLines d;
  d.store.segattr[1] = 30008;
  d.log.take();
  mnuEditDelete_Click(d.context);
  EXPECT_EQ(d.log.count("Cls"), 1);
}

TEST(DeleteOfASelection, TakesOrdinaryRowsInOneStepAndUnmarksVerifiedOnes) {
  ThreeLines d;
  d.store.segattr[1] = 30008;
  d.store.segattr[2] = 30108;
  d.store.segattr[3] = 30008;
  collectSelected(d.context);
  expectOneStep(d, [&d] { mnuEditDelete_Click(d.context); });
  EXPECT_EQ(segmentTexts(d.store), (Texts{"1 (0, 1)-(3, 1)"}));
  EXPECT_EQ(d.context.changelog.changecount, 2);
  EXPECT_EQ(d.context.changelog.UndoMark, -1);
  EXPECT_EQ(d.pending(), 0);
  EXPECT_EQ(d.store.NumPathSegments, 3);
}

TEST(DeleteOfASelection, KeepsTheRowsForPasteFromTheMarker) {
  ThreeLines d;
  d.rightClick(0.5F, -1);
  d.store.segattr[1] = d.store.segattr[3] = 30008;
  d.tools.setEnabled("miPaste", false);
  mnuEditDelete_Click(d.context);
  EXPECT_EQ(d.kept(), (Texts{"(0, 0)-(3, 0)", "(0, 2)-(3, 2)"}));
  EXPECT_EQ(d.context.paste.pastebuffer[0].SegAttr, 30008);
  EXPECT_EQ(d.context.paste.pastebasex, 0.5F);
  EXPECT_EQ(d.context.paste.pastebasey, -1);
  EXPECT_TRUE(d.context.paste.pasteavailable);
  EXPECT_TRUE(d.tools.isEnabled("miPaste"));
}

TEST(DeleteOfASelection, PutsNewRowsInThePlaceOfThoseKeptBefore) {
  ThreeLines d;
  d.store.segattr[1] = 30008;
  mnuEditDelete_Click(d.context);
  d.store.segattr[1] = 30008;
  mnuEditDelete_Click(d.context);
  EXPECT_EQ(d.kept(), (Texts{"(0, 1)-(3, 1)"}));
}

TEST(DeleteOfASelection, BringsSelectedRowsBackAsSelected) {
  ThreeLines d;
  d.store.segattr[2] = 30008;
  mnuEditDelete_Click(d.context);
  Undo_Last_Change(d.context);
  EXPECT_EQ(d.context.state.Selected.rows(), (std::vector<int>{3}));
  EXPECT_EQ(d.store.segattr[3], 30008);
}

TEST(DeleteOfASelection, EndsADrawingModeButNotSelecting) {
  ThreeLines d;
  d.store.segattr[1] = 30008;
  d.context.state.setDrawMode(1);
  mnuEditDelete_Click(d.context);
  EXPECT_EQ(d.mode(), 0);
  mnuDrawSelect_Click(d.context);
  d.store.segattr[1] = 30008;
  mnuEditDelete_Click(d.context);
  EXPECT_EQ(d.mode(), -1);
  EXPECT_EQ(d.pending(), 24);
  EXPECT_EQ(d.store.NumSegments, 1);
}

TEST(DeleteOfASelection, OfVerifiedRowsAloneArmsTheClickAndUnmarksThem) {
  ThreeLines d;
  d.store.segattr[1] = 30108;
  expectNoStep(d, [&d] { mnuEditDelete_Click(d.context); });
  EXPECT_EQ(d.store.segattr[1], 8);
  EXPECT_EQ(d.pending(), 1);
  EXPECT_EQ(d.mode(), 0);
}

TEST(DeleteOfASelection, OfPathRowsTakesThoseAndUnmarksTheDrawing) {
  ThreeLines d;
  d.store.pscode[1] = d.store.pscode[3] = 30101;
  d.store.segattr[2] = 30008;
  d.context.command.EditPaths = true;
  expectOneStep(d, [&d] { mnuEditDelete_Click(d.context); });
  EXPECT_EQ(pathTexts(d.store), (Texts{"1 (0, 1)-(3, 1) @101 z 0"}));
  EXPECT_EQ(d.store.NumSegments, 3);
  EXPECT_EQ(d.store.segattr[2], 8);
  EXPECT_TRUE(d.kept().empty());
  EXPECT_EQ(d.pending(), 0);
}

TEST(DeleteOfASelection, OfAFullTableIsOneStep) {
  RecordedDrafting d;
  for (int row = 0; row < 32767; ++row) d.addLine(0, 0, 1, static_cast<float>(row));
  for (int sg = 1; sg <= d.store.NumSegments; ++sg) d.store.segattr[sg] = 30008;
  expectOneStep(d, [&d] { mnuEditDelete_Click(d.context); });
  EXPECT_EQ(d.store.NumSegments, 0);
  EXPECT_EQ(d.context.paste.pastebuffer.size(), 32767U);
  EXPECT_TRUE(d.messages().empty());
}

// ---- Cut

TEST(Cut, WithoutASelectionTellsSo) {
  ThreeLines d;
  d.store.segattr[1] = 30108;
  expectNoStep(d, [&d] { mnuEditCut_Click(d.context); });
  ASSERT_EQ(d.messages().size(), 1U);
  EXPECT_EQ(d.messages()[0].text, "No line segments are currently selected.");
  EXPECT_EQ(d.messages()[0].title, "Cut");
  EXPECT_EQ(d.messages()[0].icon, MessageIcon::Warning);
  EXPECT_EQ(d.messages()[0].buttons, MessageButtons::Ok);
  EXPECT_EQ(d.pending(), 0);
}

TEST(Cut, TakesTheSelectedRowsAndKeepsEachOnce) {
  ThreeLines d;
  d.store.segattr[1] = d.store.segattr[2] = 30008;
  expectOneStep(d, [&d] { mnuEditCut_Click(d.context); });
  EXPECT_EQ(segmentTexts(d.store), (Texts{"1 (0, 2)-(3, 2)"}));
  EXPECT_EQ(d.kept(), (Texts{"(0, 0)-(3, 0)", "(0, 1)-(3, 1)"}));
  EXPECT_TRUE(d.context.paste.pasteavailable);
}

TEST(Cut, WhileEditingPathsKeepsTheDrawingRowsAndDeletesPathRows) {
  ThreeLines d;
  d.store.segattr[1] = 30008;
  d.store.pscode[2] = 30101;
  d.context.command.EditPaths = true;
  mnuEditCut_Click(d.context);
  EXPECT_EQ(d.kept(), (Texts{"(0, 0)-(3, 0)"}));
  EXPECT_EQ(d.store.NumSegments, 3);
  EXPECT_EQ(d.store.NumPathSegments, 2);
}

}  // namespace
}  // namespace tess
