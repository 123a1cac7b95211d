// Positions typed by the operator: what they say, what is wrong with others, and that the click
// lies on the very place.
#include "drafting/typed_position.h"

#include "gtest/gtest.h"

#include "core/drawing_store.h"
#include "drafting/entity_creation.h"
#include "drafting/pending_actions.h"
#include "tests/support/drafting_test_context.h"

namespace tess {
namespace {

using testing::RecordedDrafting;
using testing::segmentTexts;
using Texts = std::vector<std::string>;

Point positionOf(const std::string& text, Point from = {1, 2}) {
  const TypedPosition typed = readPosition(text, from);
  EXPECT_EQ(typed.trouble, "") << text;
  return typed.at;
}

std::string troubleOf(const std::string& text) {
  return readPosition(text, {1, 2}).trouble;
}

TEST(TypedPosition, IsAbsoluteRelativeOrPolar) {
  EXPECT_EQ(positionOf("3,4"), (Point{3, 4}));
  EXPECT_EQ(positionOf("0,0"), (Point{0, 0}));
  EXPECT_EQ(positionOf("@3,-4"), (Point{4, -2}));
  EXPECT_EQ(positionOf("@2<90"), (Point{1, 4}));
  EXPECT_EQ(positionOf("@2<180"), (Point{-1, 2}));
  EXPECT_EQ(positionOf("@2<-90"), (Point{1, 0}));
  EXPECT_EQ(positionOf("@2<720"), (Point{3, 2}));
  EXPECT_NEAR(positionOf("@2<45", {0, 0}).x, 1.4142135, 1e-6);
  EXPECT_NEAR(positionOf("@2<45", {0, 0}).y, 1.4142135, 1e-6);
}

TEST(TypedPosition, TakesSums) {
  EXPECT_EQ(positionOf(" 25.4/2 , -(1+2)*2 "), (Point{12.7F, -6}));
  EXPECT_EQ(positionOf("@1/2,1/4"), (Point{1.5F, 2.25F}));
  EXPECT_EQ(positionOf("@4/2<45*2"), (Point{1, 4}));
}

TEST(TypedPosition, WhatIsWrongIsToldWithItsPlace) {
  EXPECT_EQ(troubleOf(""), "A position is missing, as in 2,1 or @2<45.");
  EXPECT_EQ(troubleOf("   "), "A position is missing, as in 2,1 or @2<45.");
  EXPECT_EQ(troubleOf("0"), "A comma and the second coordinate are missing at the end.");
  EXPECT_EQ(troubleOf("2;1"), "A comma and the second coordinate are missing at character 2.");
  EXPECT_EQ(troubleOf("2,"), "A number is missing at the end.");
  EXPECT_EQ(troubleOf(",2"), "A number is missing at character 1.");
  EXPECT_EQ(troubleOf("1,5,2"), "Nothing more is expected, but there is text at character 4.");
  EXPECT_EQ(troubleOf("1/0,2"), "The division at character 2 is by zero.");
  EXPECT_EQ(troubleOf("2<45"), "A length and an angle begin with @, as in @2<45.");
  EXPECT_EQ(troubleOf("inf,0"), "A number is missing at character 1.");
  EXPECT_EQ(troubleOf("0,nan"), "A number is missing at character 3.");
  EXPECT_EQ(troubleOf(std::string("1,2\0", 4)),
            "Nothing more is expected, but there is text at character 4.");
}

TEST(TypedPosition, WhatLiesBeyondTheDrawingIsToo) {
  EXPECT_EQ(positionOf("1000000,-1000000"), (Point{1e6F, -1e6F}));
  EXPECT_EQ(troubleOf("1e9,0"), "X is farther than 1000000 from the origin.");
  EXPECT_EQ(troubleOf("0,1e30"), "Y is farther than 1000000 from the origin.");
  EXPECT_EQ(troubleOf("@1000000,0"), "X is farther than 1000000 from the origin.");
  EXPECT_EQ(troubleOf("1e400,0"), "A figure is too large or too small at character 1.");
}

TEST(TypedPosition, AVeryLongTextIsRefused) {
  EXPECT_EQ(troubleOf(std::string(100000, '(')),
            "The text has 100000 characters, and 200 are the most.");
}

// ---- As clicks

struct Typing : RecordedDrafting {
  std::string type(const std::string& text) { return typePosition(context, text, kLeftButton); }
};

TEST(TypedClick, DrawsLikeAClick) {
  Typing d;
  mnuDrawLine_Click(d.context);
  EXPECT_EQ(d.type("2,1"), "");
  EXPECT_EQ(d.type("@0,1/4"), "");
  EXPECT_EQ(segmentTexts(d.store), (Texts{"1 (0, 0)-(2, 1)", "1 (2, 1)-(2, 1.25)"}));
  EXPECT_EQ(d.marker(), (Point{2, 1.25F}));
  EXPECT_FALSE(d.store.drawingsaved);
}

TEST(TypedClick, IsMovedByNoGridAndNoFeature) {
  Typing d;
  d.addLine(2, 1, 4, 1);
  d.store.cursorgridf = 1;
  d.store.cursorgrid = 0.5F;
  d.context.state.OSnapOn = true;
  d.context.state.RevertOSnapFeatures();
  mnuDrawLine_Click(d.context);
  EXPECT_EQ(d.type("2.01,1.02"), "");
  EXPECT_EQ(segmentTexts(d.store).back(), "1 (0, 0)-(2.01, 1.02)");
  d.click(1.9F, 0.9F);
  EXPECT_EQ(d.marker(), (Point{2, 1})) << "what follows snaps as ever";
}

TEST(TypedClick, IsMovedByNoFeatureWithAPreviewEither) {
  Typing d;
  d.addLine(2, 1, 4, 1);
  d.store.hoverpreview = true;
  d.context.state.OSnapOn = true;
  d.context.state.RevertOSnapFeatures();
  mnuDrawLine_Click(d.context);
  d.move(0, 2.1F, 1.1F);
  EXPECT_EQ(d.type("2.01,1.02"), "");
  EXPECT_EQ(segmentTexts(d.store).back(), "1 (0, 0)-(2.01, 1.02)");
}

TEST(TypedClick, CountsRightAfterAMenu) {
  Typing d;
  mnuDrawLine_Click(d.context);
  armMenuGuard(d.context);
  EXPECT_EQ(d.type("2,1"), "");
  EXPECT_EQ(d.store.NumSegments, 1);
}

TEST(TypedClick, CountsWhereThePointerWasLast) {
  Typing d;
  d.store.cursorgridf = 1;
  d.store.cursorgrid = 0.5F;
  mnuDrawLine_Click(d.context);
  d.move(0, 2.1F, 1.1F);  // lies on (2, 1)
  EXPECT_EQ(d.type("2.1,1.1"), "");
  EXPECT_EQ(segmentTexts(d.store), (Texts{"1 (0, 0)-(2.1, 1.1)"}));
}

TEST(TypedClick, CompletesAPendingAction) {
  Typing d;
  d.addLine(0, 0, 1, 0);
  d.addLine(0, 3, 1, 3);
  arm(d.context, PendingAction::Delete);
  EXPECT_EQ(d.type("0.5,2.9"), "");
  EXPECT_EQ(segmentTexts(d.store), (Texts{"1 (0, 0)-(1, 0)"}));
}

TEST(TypedClick, OfTheRightButtonPutsTheMarker) {
  Typing d;
  EXPECT_EQ(typePosition(d.context, "-1.3,0.7", kRightButton), "");
  EXPECT_EQ(d.marker(), (Point{-1.3F, 0.7F}));
}

TEST(TypedClick, WhereNothingWaitsTellsSo) {
  Typing d;
  EXPECT_EQ(
      d.type("1,1"),
      "No command waits for a position: choose one first. Shift+Enter puts the marker there.");
  mnuDrawLine_Click(d.context);
  EXPECT_EQ(d.type("@0,0"), "The marker is there already: nothing is drawn to it.");
  EXPECT_EQ(d.store.NumSegments, 0);
  arm(d.context, PendingAction::Pan);
  EXPECT_EQ(d.type("1,1"), "The view is panned by the mouse.");
}

TEST(TypedClick, ABadTextLeavesAllAsItIs) {
  Typing d;
  mnuDrawLine_Click(d.context);
  d.move(0, 3, 3);
  EXPECT_EQ(d.type("1,"), "A number is missing at the end.");
  EXPECT_EQ(d.mouse(), (Point{3, 3}));
  EXPECT_EQ(d.store.NumSegments, 0);
}

TEST(TypedClick, ADragTakesTwo) {
  Typing d;
  d.addLine(0, 0, 1, 0);
  d.store.cursorgridf = 1;
  d.store.cursorgrid = 0.5F;
  arm(d.context, PendingAction::MoveEndPoint);
  EXPECT_EQ(d.type("1.1,0"), "");
  EXPECT_EQ(segmentTexts(d.store), (Texts{"1 (0, 0)-(1, 0)"})) << "the end is taken up";
  EXPECT_EQ(d.type("2.3,1.2"), "");
  EXPECT_EQ(segmentTexts(d.store), (Texts{"1 (0, 0)-(2.3, 1.2)"}));
  EXPECT_EQ(d.pending(), 0);
}

TEST(TypedClick, MeasuresBetweenTwo) {
  Typing d;
  arm(d.context, PendingAction::Measure);
  EXPECT_EQ(d.type("1,1"), "");
  EXPECT_EQ(d.type("@3,4"), "") << "from the marker";
  EXPECT_NE(std::find(d.statusLog.begin(), d.statusLog.end(),
                      "Click on start-point and drag to end-point.    Start (X=1, Y=1),  End (X=3, "
                      "Y=4),  Distance = 3.6056"),
            d.statusLog.end());
}

}  // namespace
}  // namespace tess
