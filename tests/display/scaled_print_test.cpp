// Drawings on sheets, to scale.
#include "display/scaled_print.h"

#include "gtest/gtest.h"

#include "tests/support/failure_of.h"

namespace tess {
namespace {

using testing::failureOf;

DrawingStore metricStore() {
  DrawingStore store;
  store.units = "M";
  return store;
}

struct Sheets : ::testing::Test {
  DrawingStore store = metricStore();
  ScaledPrint print{.scale = 1, .overlap = 10, .page = {"A4", PageOrientation::Automatic, 10}};
  SheetPlan planFor(float width, float height) {
    return planSheets(store, {0, 0, width, height}, print);
  }
};

TEST_F(Sheets, ASmallPartTakesOneInItsMiddle) {
  const SheetPlan plan = planFor(100, 50);
  ASSERT_EQ(plan.sheets.size(), 1U);
  const Sheet& sheet = plan.sheets.front();
  EXPECT_DOUBLE_EQ(sheet.left + plan.width / 2, 50);
  EXPECT_DOUBLE_EQ(sheet.bottom + plan.height / 2, 25);
  EXPECT_TRUE(sheet.marks.empty());
}

TEST_F(Sheets, AnEmptyDrawingTakesOne) {
  EXPECT_EQ(planSheets(store, Box{}, print).sheets.size(), 1U);
}

TEST_F(Sheets, TheFootLeavesItsStrip) {
  const SheetPlan plan = planFor(10, 10);
  EXPECT_DOUBLE_EQ(plan.width, 190);
  EXPECT_DOUBLE_EQ(plan.height, 277 - plan.foot);
  EXPECT_DOUBLE_EQ(plan.sides.width, 210);
}

TEST_F(Sheets, LieAsNeedsFewer) {
  const SheetPlan wide = planFor(270, 100);
  EXPECT_EQ(wide.sheets.size(), 1U);
  EXPECT_DOUBLE_EQ(wide.sides.width, 297);
  print.page.orientation = PageOrientation::Portrait;
  EXPECT_EQ(planFor(270, 100).columns, 2);
}

TEST_F(Sheets, AWindowIsFilledToItsEdge) {
  print.page.orientation = PageOrientation::Portrait;
  EXPECT_EQ(planFor(190, 100).columns, 1);
  EXPECT_EQ(planFor(190.01F, 100).columns, 2);
  EXPECT_EQ(planFor(370, 100).columns, 2);  // two windows that share the overlap
  EXPECT_EQ(planFor(370.1F, 100).columns, 3);
}

TEST_F(Sheets, CoverTheWholeDrawingWithTheirOverlap) {
  print.page.orientation = PageOrientation::Portrait;
  const SheetPlan plan = planFor(500, 600);
  ASSERT_EQ(plan.columns, 3);
  ASSERT_EQ(plan.rows, 3);
  ASSERT_EQ(plan.sheets.size(), 9U);
  EXPECT_LE(plan.sheets[0].left, 0);
  EXPECT_GE(plan.sheets[2].left + plan.width, 500);
  EXPECT_GE(plan.sheets[0].bottom + plan.height, 600);
  EXPECT_LE(plan.sheets[8].bottom, 0);
  EXPECT_DOUBLE_EQ(plan.sheets[0].left + plan.width - plan.sheets[1].left, 10);
  EXPECT_DOUBLE_EQ(plan.sheets[3].bottom + plan.height - plan.sheets[0].bottom, 10);
}

TEST_F(Sheets, NeighboursBearTheSameMarks) {
  print.page.orientation = PageOrientation::Portrait;
  const SheetPlan plan = planFor(360, 100);
  ASSERT_EQ(plan.sheets.size(), 2U);
  ASSERT_EQ(plan.sheets[0].marks.size(), 2U);
  ASSERT_EQ(plan.sheets[1].marks.size(), 2U);
  for (std::size_t i = 0; i < 2; ++i) {
    EXPECT_NEAR(plan.sheets[0].marks[i].x, plan.sheets[1].marks[i].x, 1e-9);
    EXPECT_NEAR(plan.sheets[0].marks[i].y, plan.sheets[1].marks[i].y, 1e-9);
  }
  EXPECT_NEAR(plan.sheets[0].marks[0].x, plan.sheets[0].left + plan.width - 5, 1e-9);
}

TEST_F(Sheets, AnInchIsAnInch) {
  store.units = "I";
  const SheetPlan plan = planFor(2, 1);
  EXPECT_DOUBLE_EQ(plan.millimetres, 25.4);
  EXPECT_DOUBLE_EQ(plan.sheets[0].left + plan.width / 2, 25.4);
  EXPECT_EQ(plan.rulerText, "2 in");
  EXPECT_DOUBLE_EQ(plan.ruler, 50.8);
}

TEST_F(Sheets, TheRulerIsShorterOnNarrowPaper) {
  EXPECT_EQ(planFor(1, 1).rulerText, "50 mm");
  print.page.paper = "A3";
  EXPECT_EQ(planFor(1, 1).rulerText, "100 mm");
}

TEST_F(Sheets, TooManyAreRefused) {
  print.scale = 1000;
  EXPECT_EQ(failureOf([&] { planFor(100, 100); }).description(),
            "At this scale the drawing takes more than 400 sheets. Please choose a smaller scale "
            "or larger paper.");
  print.scale = 1e300;
  EXPECT_EQ(failureOf([&] { planFor(100, 100); }).description(),
            "At this scale the drawing takes more than 400 sheets. Please choose a smaller scale "
            "or larger paper.");
}

TEST_F(Sheets, WithoutRoomAreRefused) {
  print.overlap = 175;
  EXPECT_EQ(failureOf([&] { planFor(1, 1); }).description(),
            "The margin and the overlap leave no room on the paper.");
}

TEST(PrintScale, IsANumberOrARatio) {
  EXPECT_EQ(readPrintScale("1"), 1);
  EXPECT_EQ(readPrintScale(" 0.5 "), 0.5);
  EXPECT_EQ(readPrintScale("1:4"), 0.25);
  EXPECT_EQ(readPrintScale("3 : 2"), 1.5);
}

TEST(PrintScale, IsNothingElse) {
  for (const char* const text : {"", "a", "0", "-1", "1:0", "0:1", "1:", ":2", "1:2:3", "1e400"}) {
    EXPECT_EQ(readPrintScale(text), std::nullopt) << text;
  }
}

TEST(PrintScale, IsToldAsARatio) {
  EXPECT_EQ(scaleText(1), "1:1");
  EXPECT_EQ(scaleText(2.5), "2.5:1");
  EXPECT_EQ(scaleText(0.5), "1:2");
}

}  // namespace
}  // namespace tess
