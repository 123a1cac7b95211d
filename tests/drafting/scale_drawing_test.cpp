// Scaling the drawing.
#include "drafting/scale_drawing.h"

#include "gtest/gtest.h"

#include "core/drawing_store.h"
#include "drafting/dlgInputReal.h"
#include "drafting/repeat_key.h"
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

struct ScaleContext : RecordedDrafting {
  ScaleContext() {
    addLine(1, 1, 2, 3);
    add({.type = 2, .attr = 30008, .x0 = 1, .y0 = 0, .x1 = -1, .y1 = 2, .xc = 0, .yc = 1});
    add({.type = 5, .attr = 30108, .x0 = 2, .y0 = 2, .x1 = 2, .y1 = 2, .xc = 1, .yc = 2});
    add({.type = 6, .x0 = -1, .y0 = -1, .x1 = 1, .y1 = 0.5F});
    addPathLine(1, 1, 2, 2);
    store.drawingsaved = true;
  }

  // The form gets the factor, and its box is checked when it is to be.
  void scale(const std::string& factor, bool selectedOnly = false) {
    test.recording.prompts.onForm = [=](Form& shown) {
      auto& form = dynamic_cast<dlgInputReal&>(shown);
      form.txtValue.setText(factor);
      if (selectedOnly) form.chkSelectedItemsOnly.setChecked(true);
      form.cmdAccept.click();
    };
    scaledrawing(context);
  }
};

TEST(Scale, MultipliesEndsAndCentersOfTheDrawingAboutTheOrigin) {
  ScaleContext d;
  const TableBits before(d.store);
  d.scale("2.5");
  EXPECT_EQ(segmentTexts(d.store),
            (Texts{"1 (2.5, 2.5)-(5, 7.5)", "2 (2.5, 0)-(-2.5, 5) c (0, 2.5) @30008",
                   "5 (5, 5)-(5, 5) c (2.5, 5) @30108", "6 (-2.5, -2.5)-(2.5, 1.25)"}));
  EXPECT_EQ(testing::pathTexts(d.store), Texts{"1 (1, 1)-(2, 2) @100 z 0"});
  EXPECT_EQ(d.context.changelog.changecount, 8);
  EXPECT_TRUE(d.context.changelog.record(0).StartOfSegment);
  EXPECT_FALSE(d.store.drawingsaved);
  EXPECT_TRUE(d.tools.isEnabled("miUndo"));
  EXPECT_FALSE(d.tools.isEnabled("miRedo"));
  expectBackAndForth(d, before);
}

TEST(Scale, OfTheSelectionTakesVerifiedRowsToo) {
  ScaleContext d;
  const TableBits before(d.store);
  d.scale("2", /*selectedOnly=*/true);
  EXPECT_EQ(segmentTexts(d.store),
            (Texts{"1 (1, 1)-(2, 3)", "2 (2, 0)-(-2, 4) c (0, 2) @30008",
                   "5 (4, 4)-(4, 4) c (2, 4) @30108", "6 (-1, -1)-(1, 0.5)"}));
  EXPECT_EQ(d.context.changelog.changecount, 4);
  EXPECT_EQ(d.context.changelog.record(0).SegType, 2);
  EXPECT_TRUE(d.context.changelog.record(0).StartOfSegment);
  expectBackAndForth(d, before);
}

TEST(Scale, KeepsWhatStandsInTheCenterOfALine) {
  RecordedDrafting d;
  d.add({.type = 1, .x1 = 1, .xc = 0.5F});
  scaleSegments(d.context.changes, 2, /*selectedOnly=*/false);
  EXPECT_EQ(segmentTexts(d.store), Texts{"1 (0, 0)-(2, 0) c (0.5, 0)"});
}

TEST(Scale, AsksWithOneAndOffersTheSelectionWhenThereIsOne) {
  for (const int attr : {8, 30108, 30008}) {
    RecordedDrafting d;
    d.addLine(0, 0, 1, 1);
    d.store.segattr[1] = attr;
    bool asked = false;
    d.test.recording.prompts.onForm = [&](Form& shown) {
      asked = true;
      auto& form = dynamic_cast<dlgInputReal&>(shown);
      EXPECT_EQ(form.name(), "dlgInputReal");
      EXPECT_EQ(form.caption(), "Scale Drawing Multiplier");
      EXPECT_EQ(form.txtValue.text(), "1");
      EXPECT_EQ(form.chkSelectedItemsOnly.isEnabled(), attr != 8);
      EXPECT_FALSE(form.chkSelectedItemsOnly.isChecked());
    };
    scaledrawing(d.context);
    EXPECT_TRUE(asked);
    EXPECT_EQ(d.context.command.LastCommand, 37);
    EXPECT_EQ(d.pending(), 0);
  }
}

TEST(Scale, WithoutASelectionTheBoxThatIsOutOfReachDoesNotCount) {
  RecordedDrafting d;
  d.addLine(1, 1, 2, 2);
  d.test.recording.prompts.onForm = [](Form& form) {
    form.control("txtValue")->set("text", "2");
    form.control("chkSelectedItemsOnly")->set("value", 1.0);
    form.pressDefault();
  };
  scaledrawing(d.context);
  EXPECT_EQ(segmentTexts(d.store), Texts{"1 (2, 2)-(4, 4)"});
}

TEST(Scale, ByExactlyOneDoesNothing) {
  ScaleContext d;
  d.scale("1.0");
  EXPECT_EQ(d.context.changelog.changecount, 0);
  EXPECT_TRUE(d.store.drawingsaved);
  EXPECT_EQ(d.beeps(), 0);
}

TEST(Scale, ByZeroOrLessBeepsAndDoesNothing) {
  for (const char* const factor : {"0", "-0", "-2", "-1e30"}) {
    ScaleContext d;
    const TableBits before(d.store);
    d.scale(factor);
    EXPECT_TRUE(TableBits(d.store) == before) << factor;
    EXPECT_EQ(d.context.changelog.changecount, 0);
    EXPECT_EQ(d.beeps(), 1);
    EXPECT_TRUE(d.messages().empty());
    EXPECT_TRUE(d.store.drawingsaved);
  }
}

TEST(Scale, TakesANumberAsTheWholeTextWithBlanksAtItsEnds) {
  ScaleContext d;
  d.scale("  0.5 ");
  EXPECT_EQ(segmentTexts(d.store).front(), "1 (0.5, 0.5)-(1, 1.5)");
}

TEST(Scale, ThatIsNoNumberKeepsTheFormOpenAndGoesToTheField) {
  for (const char* const text : {"", "two", "2 mm", "2,5", "1e39", "nan", "inf"}) {
    ScaleContext d;
    const TableBits before(d.store);
    d.test.recording.prompts.onForm = [&](Form& shown) {
      auto& form = dynamic_cast<dlgInputReal&>(shown);
      form.txtValue.setText(text);
      form.cmdAccept.focus();
      form.cmdAccept.click();
      EXPECT_TRUE(form.isShown());
      EXPECT_EQ(form.focused(), &form.txtValue);
      form.cmdCancel.click();
      EXPECT_FALSE(form.isShown());
    };
    scaledrawing(d.context);
    ASSERT_EQ(d.messages().size(), 1U) << text;
    EXPECT_EQ(d.messages()[0].text, "Value must be numeric.");
    EXPECT_EQ(d.messages()[0].title, "Scale Drawing Multiplier");
    EXPECT_EQ(d.messages()[0].icon, MessageIcon::Warning);
    EXPECT_TRUE(TableBits(d.store) == before);
  }
}

TEST(Scale, BeyondTheLargestNumberChangesNothing) {
  RecordedDrafting d;
  d.addLine(1, 1, 2, 2);
  d.addLine(1e10F, 1, 2, 2);
  const TableBits before(d.store);
  EXPECT_EQ(testing::numberOfFailure([&] { scaleSegments(d.context.changes, 1e30F, false); }),
            FailureNumber::Overflow);
  EXPECT_TRUE(TableBits(d.store) == before);
  EXPECT_EQ(d.context.changelog.changecount, 0);
}

TEST(Scale, OfAnEmptyDrawingDoesNothing) {
  RecordedDrafting d;
  scaleSegments(d.context.changes, 2, /*selectedOnly=*/false);
  EXPECT_EQ(d.context.changelog.changecount, 0);
  EXPECT_TRUE(d.store.drawingsaved);
}

TEST(Scale, ThatTheLogCannotHoldAsksFirst) {
  RecordedDrafting d;
  for (int row = 0; row < 16384; ++row) d.addLine(static_cast<float>(row), 0, 1, 1);
  const TableBits before(d.store);
  d.test.recording.prompts.answers = {Answer::Cancel};
  d.test.recording.prompts.onForm = [](Form& form) {
    form.control("txtValue")->set("text", "2");
    form.pressDefault();
  };
  scaledrawing(d.context);
  ASSERT_EQ(d.messages().size(), 1U);
  EXPECT_TRUE(d.messages()[0].text.starts_with("This change takes 32768 records"));
  EXPECT_TRUE(TableBits(d.store) == before);
}

TEST(Scale, IsIssuedAgainByTheRepeatKey) {
  ScaleContext d;
  d.scale("2");
  repeatLastCommand(d.context);
  EXPECT_EQ(segmentTexts(d.store).front(), "1 (4, 4)-(8, 12)");
}

TEST(ConvertDrawing, ScalesAllDrawingRowsAsOneStep) {
  ScaleContext d;
  const TableBits before(d.store);
  convertDrawing(d.context, 25.4F);
  EXPECT_EQ(segmentTexts(d.store).front(), "1 (25.4, 25.4)-(50.8, 76.2)");
  expectBackAndForth(d, before);
}

TEST(ConvertDrawing, WithoutRoomInTheLogAsksNothingAndClearsIt) {
  RecordedDrafting d;
  for (int row = 0; row < 16384; ++row) d.addLine(static_cast<float>(row), 0, 1, 1);
  convertDrawing(d.context, 2);
  EXPECT_TRUE(d.messages().empty());
  EXPECT_EQ(segmentTexts(d.store)[1], "1 (2, 0)-(2, 2)");
  EXPECT_FALSE(d.tools.isEnabled("miUndo"));
  EXPECT_EQ(d.context.changelog.changetop, 0);
}

}  // namespace
}  // namespace tess
