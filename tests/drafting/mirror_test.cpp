// Mirroring, by its form.
#include "drafting/mirror.h"

#include <functional>

#include "gtest/gtest.h"

#include "core/drawing_store.h"
#include "drafting/frmMirror.h"
#include "drafting/selection.h"
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

struct MirrorContext : RecordedDrafting {
  MirrorContext() {
    addLine(1, 1, 3, 2);
    add({.type = 2, .x0 = 1, .y0 = 0, .x1 = 0, .y1 = -1});
    add({.type = 5, .x0 = 2, .y0 = 2, .x1 = 2, .y1 = 2, .xc = 1, .yc = 2});
    add({.type = 6, .x0 = -1, .y0 = -1, .x1 = 1, .y1 = 0.5F});
    addPathLine(1, 1, 2, 2);
    store.drawingsaved = true;
  }
};

// Works the form while it is shown.
void mirrorWith(RecordedDrafting& d, const std::function<void(frmMirror&)>& work) {
  d.test.recording.prompts.onForm = [work](Form& form) { work(dynamic_cast<frmMirror&>(form)); };
  mnuEditMirror_Click(d.context);
}

TEST(MirrorCoord, IsAsFarOnTheOtherSide) {
  EXPECT_EQ(mirrorCoord(3, 1), -1);
  EXPECT_EQ(mirrorCoord(1, 1), 1);
  EXPECT_EQ(mirrorCoord(-2, 0.5F), 3);
}

TEST(Mirror, OpensAtTheMarkerWithItsDefaults) {
  RecordedDrafting d;
  d.addLine(0, 0, 1, 0);
  d.rightClick(1.25F, -2);
  mirrorWith(d, [](frmMirror& form) {
    EXPECT_EQ(form.name(), "frmMirror");
    EXPECT_EQ(form.txtMirrorX.text(), "1.25");
    EXPECT_EQ(form.txtMirrorY.text(), "-2.0");
    EXPECT_EQ(form.lblMarkerXY.caption(), "Marker: X=1.25, Y=-2.0");
    EXPECT_TRUE(form.optHorizontally.value());
    EXPECT_FALSE(form.optVertically.value());
    EXPECT_FALSE(form.optBoth.value());
    EXPECT_TRUE(form.optMove.value());
    EXPECT_FALSE(form.optCopy.value());
    EXPECT_TRUE(form.chkSelectedSegments.isChecked());
    EXPECT_FALSE(form.chkSelectedSegments.isEnabled());
  });
  EXPECT_EQ(segmentTexts(d.store), Texts{"1 (0, 0)-(1, 0)"})
      << "a form that is closed changes nothing";
}

TEST(Mirror, OffersTheSelectionOnlyWhereOrdinaryRowsAreSelected) {
  for (const int attr : {8, 30008, 30108}) {
    RecordedDrafting d;
    d.addLine(0, 0, 1, 0);
    d.store.segattr[1] = attr;
    mirrorWith(d, [attr](frmMirror& form) {
      EXPECT_EQ(form.chkSelectedSegments.isEnabled(), attr == kSelectedRow);
    });
  }
}

TEST(Mirror, HorizontallyChangesTheSidesOfXAndTurnsArcsOver) {
  MirrorContext d;
  const TableBits before(d.store);
  mirrorWith(d, [](frmMirror& form) { form.cmdOK.click(); });
  EXPECT_EQ(segmentTexts(d.store), (Texts{"1 (-1, 1)-(-3, 2)", "3 (-1, 0)-(0, -1) c (0, 0)",
                                          "5 (-2, 2)-(-2, 2) c (-1, 2)", "6 (1, -1)-(-1, 0.5)"}));
  EXPECT_EQ(testing::pathTexts(d.store), Texts{"1 (1, 1)-(2, 2) @100 z 0"});
  EXPECT_EQ(d.context.changelog.changecount, 8);
  EXPECT_TRUE(d.context.changelog.record(0).StartOfSegment);
  for (int record = 1; record < 8; ++record) {
    EXPECT_FALSE(d.context.changelog.record(record).StartOfSegment);
  }
  EXPECT_FALSE(d.store.drawingsaved);
  EXPECT_TRUE(d.tools.isEnabled("miUndo"));
  EXPECT_EQ(d.pending(), 0);
  expectBackAndForth(d, before);
}

TEST(Mirror, VerticallyChangesTheSidesOfYAboutThePoint) {
  MirrorContext d;
  const TableBits before(d.store);
  mirrorWith(d, [](frmMirror& form) {
    form.txtMirrorX.setText("7");
    form.txtMirrorY.setText(" 0.5 ");
    form.optVertically.setValue(true);
    form.cmdOK.click();
  });
  EXPECT_EQ(segmentTexts(d.store), (Texts{"1 (1, 0)-(3, -1)", "3 (1, 1)-(0, 2) c (0, 1)",
                                          "5 (2, -1)-(2, -1) c (1, -1)", "6 (-1, 2)-(1, 0.5)"}));
  expectBackAndForth(d, before);
}

TEST(Mirror, OfBothKeepsTheSenseOfArcs) {
  MirrorContext d;
  const TableBits before(d.store);
  mirrorWith(d, [](frmMirror& form) {
    form.optBoth.setValue(true);
    form.cmdOK.click();
  });
  EXPECT_EQ(segmentTexts(d.store),
            (Texts{"1 (-1, -1)-(-3, -2)", "2 (-1, 0)-(0, 1) c (0, 0)",
                   "5 (-2, -2)-(-2, -2) c (-1, -2)", "6 (1, 1)-(-1, -0.5)"}));
  expectBackAndForth(d, before);
}

TEST(Mirror, AsACopyLeavesTheRowsAndMirrorsNoneTwice) {
  MirrorContext d;
  d.store.segattr[1] = 30108;
  const TableBits before(d.store);
  mirrorWith(d, [](frmMirror& form) {
    form.optCopy.setValue(true);
    form.cmdOK.click();
  });
  const Texts rows = segmentTexts(d.store);
  ASSERT_EQ(rows.size(), 8U);
  EXPECT_EQ(rows[0], "1 (1, 1)-(3, 2) @30108");
  EXPECT_EQ(Texts(rows.begin() + 4, rows.end()),
            (Texts{"1 (-1, 1)-(-3, 2) @30108", "3 (-1, 0)-(0, -1) c (0, 0)",
                   "5 (-2, 2)-(-2, 2) c (-1, 2)", "6 (1, -1)-(-1, 0.5)"}));
  EXPECT_EQ(d.context.changelog.changecount, 4);
  EXPECT_EQ(d.context.changelog.record(0).AddOrDelete, "A");
  EXPECT_TRUE(d.context.changelog.record(0).StartOfSegment);
  expectBackAndForth(d, before);
}

TEST(Mirror, OfTheSelectionMovesItToTheEndAndKeepsItSelected) {
  MirrorContext d;
  markSegment(d.context, 2, /*select=*/true);
  d.store.segattr[3] = 30108;
  const TableBits before(d.store);
  mirrorWith(d, [](frmMirror& form) { form.cmdOK.click(); });
  EXPECT_EQ(segmentTexts(d.store),
            (Texts{"1 (1, 1)-(3, 2)", "5 (2, 2)-(2, 2) c (1, 2) @30108", "6 (-1, -1)-(1, 0.5)",
                   "3 (-1, 0)-(0, -1) c (0, 0) @30008"}));
  EXPECT_EQ(d.context.state.Selected.rows(), (std::vector<int>{2, 4}));
  EXPECT_EQ(d.context.changelog.changecount, 2);
  expectBackAndForth(d, before);
}

TEST(Mirror, OfAllWhileSomeAreSelectedTakesTheBoxOff) {
  MirrorContext d;
  d.store.segattr[2] = kSelectedRow;
  mirrorWith(d, [](frmMirror& form) {
    form.chkSelectedSegments.setChecked(false);
    form.cmdOK.click();
  });
  EXPECT_EQ(segmentTexts(d.store).front(), "1 (-1, 1)-(-3, 2)");
}

TEST(Mirror, OfKindsWithoutShapeTakesTheStoredPointAlone) {
  for (const int type : {0, 80, 99}) {
    RecordedDrafting d;
    d.add({.type = type, .x0 = 1, .y0 = 2, .x1 = 3, .y1 = 4, .xc = 5, .yc = 6});
    mirrorWith(d, [](frmMirror& form) {
      form.optBoth.setValue(true);
      form.cmdOK.click();
    });
    EXPECT_EQ(segmentTexts(d.store), Texts{std::to_string(type) + " (-1, -2)-(3, 4) c (5, 6)"});
  }
}

TEST(Mirror, OfKind79TakesBothEnds) {
  RecordedDrafting d;
  d.add({.type = 79, .x0 = 1, .y0 = 2, .x1 = 3, .y1 = 4});
  mirrorWith(d, [](frmMirror& form) { form.cmdOK.click(); });
  EXPECT_EQ(segmentTexts(d.store), Texts{"79 (-1, 2)-(-3, 4)"});
}

// The second row lies where the image of the first one does: the image goes as the last of the two,
// and the row stays in its stead.
TEST(Mirror, OfASymmetricDrawingMirrorsEachRowOnce) {
  RecordedDrafting d;
  d.addLine(1, 0, 2, 0);
  d.addLine(-1, 0, -2, 0);
  d.addLine(3, 1, 4, 1);
  const TableBits before(d.store);
  mirrorWith(d, [](frmMirror& form) { form.cmdOK.click(); });
  EXPECT_EQ(segmentTexts(d.store),
            (Texts{"1 (-1, 0)-(-2, 0)", "1 (1, 0)-(2, 0)", "1 (-3, 1)-(-4, 1)"}));
  expectBackAndForth(d, before);
}

TEST(Mirror, OfRowsOnOneAnotherTakesTheLastOneFirst) {
  RecordedDrafting d;
  d.addLine(1, 0, 2, 0);
  d.addLine(1, 0, 2, 0);
  d.addLine(3, 1, 4, 1);
  const TableBits before(d.store);
  mirrorWith(d, [](frmMirror& form) { form.cmdOK.click(); });
  EXPECT_EQ(segmentTexts(d.store),
            (Texts{"1 (-1, 0)-(-2, 0)", "1 (-1, 0)-(-2, 0)", "1 (-3, 1)-(-4, 1)"}));
  expectBackAndForth(d, before);
}

// The last row of the two goes, though it was not the one that was selected.
TEST(Mirror, OfASelectedRowUnderAnotherOneLeavesTheSelectedOne) {
  RecordedDrafting d;
  d.addLine(1, 0, 2, 0);
  d.addLine(1, 0, 2, 0);
  d.store.segattr[1] = kSelectedRow;
  mirrorWith(d, [](frmMirror& form) { form.cmdOK.click(); });
  EXPECT_EQ(segmentTexts(d.store), (Texts{"1 (1, 0)-(2, 0) @30008", "1 (-1, 0)-(-2, 0) @30008"}));
}

TEST(Mirror, TellsArcsApartByTheirCenters) {
  RecordedDrafting d;
  d.add({.type = 2, .attr = kSelectedRow, .x0 = 1, .y0 = 1, .x1 = 1, .y1 = -1, .xc = 0});
  d.add({.type = 2, .x0 = 1, .y0 = 1, .x1 = 1, .y1 = -1, .xc = 0.5F});
  mirrorWith(d, [](frmMirror& form) { form.cmdOK.click(); });
  EXPECT_EQ(segmentTexts(d.store),
            (Texts{"2 (1, 1)-(1, -1) c (0.5, 0)", "3 (-1, 1)-(-1, -1) c (0, 0) @30008"}));
}

TEST(Mirror, OfNoNumberTellsSoAndGoesToTheField) {
  for (const char* const text : {"", "x", "1,5", "1 2", "1e39"}) {
    for (const bool inX : {true, false}) {
      MirrorContext d;
      const TableBits before(d.store);
      mirrorWith(d, [&](frmMirror& form) {
        TextBox& box = inX ? form.txtMirrorX : form.txtMirrorY;
        box.setText(text);
        form.cmdOK.focus();
        form.cmdOK.click();
        EXPECT_TRUE(form.isShown());
        EXPECT_EQ(form.focused(), &box);
      });
      ASSERT_EQ(d.messages().size(), 1U) << text;
      EXPECT_EQ(d.messages()[0].text, "Mirror Point X, Y coordinates must be numeric.");
      EXPECT_EQ(d.messages()[0].title, "Mirror");
      EXPECT_EQ(d.messages()[0].icon, MessageIcon::Warning);
      EXPECT_TRUE(TableBits(d.store) == before);
      EXPECT_EQ(d.context.changelog.changecount, 0);
    }
  }
}

TEST(Mirror, BeyondTheLargestNumberChangesNothing) {
  MirrorContext d;
  const TableBits before(d.store);
  const auto mirror = [&] {
    mirrorWith(d, [](frmMirror& form) {
      form.txtMirrorX.setText("3e38");
      form.cmdOK.click();
    });
  };
  EXPECT_EQ(testing::numberOfFailure(mirror), FailureNumber::Overflow);
  EXPECT_TRUE(TableBits(d.store) == before);
  EXPECT_EQ(d.context.changelog.changecount, 0);
  EXPECT_TRUE(d.context.formPreview.rows.empty());
}

TEST(Mirror, IntoAFullTableAddsNothing) {
  RecordedDrafting d;
  for (int row = 0; row < 32767; ++row) d.addLine(static_cast<float>(row), 0, 1, 1);
  const auto mirror = [&] {
    mirrorWith(d, [](frmMirror& form) {
      form.optCopy.setValue(true);
      form.cmdOK.click();
    });
  };
  EXPECT_EQ(testing::numberOfFailure(mirror), FailureNumber::Overflow);
  EXPECT_EQ(d.store.NumSegments, 32767);
  EXPECT_EQ(d.context.changelog.changecount, 0);
}

TEST(Mirror, ThatTheLogCannotHoldAsksFirst) {
  RecordedDrafting d;
  for (int row = 0; row < 16384; ++row) d.addLine(static_cast<float>(row), 0, 1, 1);
  const TableBits before(d.store);
  d.test.recording.prompts.answers = {Answer::Cancel};
  mirrorWith(d, [](frmMirror& form) { form.cmdOK.click(); });
  ASSERT_EQ(d.messages().size(), 1U);
  EXPECT_TRUE(d.messages()[0].text.starts_with("This change takes 32768 records"));
  EXPECT_TRUE(TableBits(d.store) == before);
}

TEST(Mirror, OfAnEmptyDrawingDoesNothing) {
  RecordedDrafting d;
  mirrorWith(d, [](frmMirror& form) { form.cmdOK.click(); });
  EXPECT_EQ(d.context.changelog.changecount, 0);
  EXPECT_TRUE(d.store.drawingsaved);
  EXPECT_TRUE(d.messages().empty());
}

// ---- What hovers while the form is open

TEST(Mirror, ShowsTheImagesBeforeOkAndTakesThemAway) {
  RecordedDrafting d;
  d.addLine(1, 0, 2, 1);
  mirrorWith(d, [&d](frmMirror& form) {
    EXPECT_TRUE(d.context.formPreview.shown);
    ASSERT_EQ(d.context.formPreview.rows.size(), 1U);
    EXPECT_EQ(testing::segmentText(d.context.formPreview.rows[0]), "1 (-1, 0)-(-2, 1)");
    d.log.take();
    form.optVertically.setValue(true);
    const std::string turnedOver = d.log.take();
    EXPECT_EQ(testing::segmentText(d.context.formPreview.rows[0]), "1 (1, 0)-(2, -1)");
    form.optHorizontally.setValue(true);
    form.optVertically.setValue(true);
    EXPECT_NE(turnedOver, "");
    form.txtMirrorX.setText("no number");
    EXPECT_TRUE(d.context.formPreview.rows.empty());
    EXPECT_FALSE(d.context.formPreview.shown);
    form.txtMirrorX.setText("0");
    EXPECT_TRUE(d.context.formPreview.shown);
    d.log.take();
    form.cmdCancel.click();
  });
  EXPECT_NE(d.log.take(), "") << "the last band is drawn once more and so removed";
  EXPECT_FALSE(d.context.formPreview.shown);
  EXPECT_EQ(d.store.NumSegments, 1);
}

}  // namespace
}  // namespace tess
