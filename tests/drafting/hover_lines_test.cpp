// Lines that hover under the pointer.
#include "drafting/hover_lines.h"

#include "gtest/gtest.h"

#include "tests/support/drafting_test_context.h"

namespace tess {
namespace {

using testing::RecordedDrafting;

constexpr char kFirst[] = "line (0, 0)-(1, 0)";
constexpr char kSecond[] = "line (0, 0)-(0, 1)";

TEST(HoverLines, TakeThePlaceOfThoseBefore) {
  RecordedDrafting d;
  setHoverLines(d.context, {{0, 0, 1, 0}});
  EXPECT_EQ(d.log.count(kFirst), 1);
  d.log.take();
  setHoverLines(d.context, {{0, 0, 0, 1}});
  EXPECT_EQ(d.log.count(kFirst), 1);
  EXPECT_EQ(d.log.count(kSecond), 1);
  d.log.take();
  endHoverLines(d.context);
  EXPECT_EQ(d.log.count(kSecond), 1);
  endHoverLines(d.context);
  EXPECT_EQ(d.log.count(kSecond), 1);
}

TEST(HoverLines, ArePaintedInTheInvertingPenWhateverPenWasSet) {
  RecordedDrafting d;
  d.ScreenProxy.setDrawStyle(PenStyle::Dash);
  d.log.take();
  setHoverLines(d.context, {{0, 0, 1, 0}});
  EXPECT_EQ(d.ScreenProxy.DrawMode(), PenMode::Copy);
  EXPECT_EQ(d.ScreenProxy.DrawStyle(), PenStyle::Dash);
  EXPECT_EQ(d.log.count("DrawMode 10"), 1);
  EXPECT_EQ(d.log.count("DrawStyle 0"), 1);
}

TEST(HoverLines, AreShownAgainAtTheEndOfARedraw) {
  RecordedDrafting d;
  setHoverLines(d.context, {{0, 0, 1, 0}});
  d.log.take();
  d.redraw.redrawscreen();
  EXPECT_EQ(d.log.count(kFirst), 1);
  EXPECT_TRUE(d.context.hoverLines.shown);
}

TEST(HoverLines, GoWithTheActionThatShowsThem) {
  RecordedDrafting d;
  d.context.state.setPendingaction(static_cast<int>(PendingAction::PlaceText));
  setHoverLines(d.context, {{0, 0, 1, 0}});
  d.context.state.setPendingaction(static_cast<int>(PendingAction::Select));
  EXPECT_FALSE(d.context.hoverLines.shown);
  EXPECT_EQ(d.textEvents, std::vector<std::string>{"ended"});
  d.context.state.setPendingaction(0);
  EXPECT_EQ(d.textEvents.size(), 1U);
}

}  // namespace
}  // namespace tess
