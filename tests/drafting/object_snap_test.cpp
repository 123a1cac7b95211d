// Object snap: features, the choice among them, their sets and their marks.
#include "drafting/object_snap.h"

#include "gtest/gtest.h"

#include "drafting/entity_creation.h"
#include "drafting/pending_actions.h"
#include "tests/support/drafting_test_context.h"
#include "tests/support/failure_of.h"

namespace tess {
namespace {

using testing::RecordedDrafting;
using Texts = std::vector<std::string>;

constexpr int kEnds = 1, kCenters = 2, kMidpoints = 3, kQuadrants = 4, kPerpendiculars = 5;

void activate(RecordedDrafting& d, std::initializer_list<int> kinds) {
  d.context.state.OSnapActive = {};
  for (const int kind : kinds) d.context.state.OSnapActive[static_cast<std::size_t>(kind)] = true;
}

// The feature that is chosen for a pointer, as in "3 (0.5, 0)".
std::string chosen(const std::optional<CFeaturePoint>& feature) {
  if (!feature) return "none";
  return std::to_string(static_cast<int>(feature->PointType)) + " " +
         testing::recordedPoint(feature->X, feature->Y);
}

std::string featureAt(RecordedDrafting& d, int sg, float x, float y, std::optional<Point> from = {},
                      bool invert = false) {
  return chosen(GetClosetFeaturePoint(d.context, sg, {{x, y}, from, invert}));
}

constexpr SegmentRow kSnapLine{.type = 1, .x0 = 0, .y0 = 0, .x1 = 2, .y1 = 1};
// A quarter from (1, 0) to (0, 1) about zero, and a whole circle of radius 1.
constexpr SegmentRow kQuarter{.type = 3, .x0 = 1, .y0 = 0, .x1 = 0, .y1 = 1};
constexpr SegmentRow kWhole{.type = 2, .x0 = 1, .y0 = 0, .x1 = 1, .y1 = 0};
constexpr SegmentRow kTypeFive{.type = 5, .x0 = 1, .y0 = 0, .x1 = 1, .y1 = 0};
constexpr SegmentRow kBox{.type = 6, .x0 = 0, .y0 = 0, .x1 = 2, .y1 = 1};

struct FeatureCase {
  const char* name;
  SegmentRow row;
  int kind;
  Point pointer;
  const char* feature;
};

const FeatureCase kFeatures[] = {
    {"start of a line", kSnapLine, kEnds, {0.1F, 0.1F}, "1 (0, 0)"},
    {"end of a line", kSnapLine, kEnds, {1.9F, 0.9F}, "1 (2, 1)"},
    {"middle of a line", kSnapLine, kMidpoints, {1.1F, 0.4F}, "3 (1, 0.5)"},
    {"a line has no centre", kSnapLine, kCenters, {0, 0}, "none"},
    {"a line has no quadrant", kSnapLine, kQuadrants, {0, 0}, "none"},
    {"start of an arc", kQuarter, kEnds, {1, 0.1F}, "1 (1, 0)"},
    {"end of an arc", kQuarter, kEnds, {0.1F, 1}, "1 (0, 1)"},
    {"centre of an arc", kQuarter, kCenters, {0.1F, 0.1F}, "2 (0, 0)"},
    {"middle of an arc", kQuarter, kMidpoints, {0.7F, 0.7F}, "3 (0.7071, 0.7071)"},
    {"right quadrant", kQuarter, kQuadrants, {1.1F, 0}, "4 (1, 0)"},
    {"left quadrant, off the sweep", kQuarter, kQuadrants, {-1.1F, 0}, "4 (-1, 0)"},
    {"top quadrant", kQuarter, kQuadrants, {0, 1.1F}, "4 (0, 1)"},
    {"bottom quadrant", kQuarter, kQuadrants, {0, -1.1F}, "4 (0, -1)"},
    {"a closed arc has no end", kWhole, kEnds, {1, 0}, "none"},
    {"a closed arc has no middle", kWhole, kMidpoints, {-1, 0}, "none"},
    {"a closed arc has a centre", kWhole, kCenters, {0, 0}, "2 (0, 0)"},
    {"a closed arc has quadrants", kWhole, kQuadrants, {0, 1}, "4 (0, 1)"},
    {"a circle has no end", kTypeFive, kEnds, {1, 0}, "none"},
    {"a circle has a centre", kTypeFive, kCenters, {0, 0}, "2 (0, 0)"},
    {"a circle has quadrants", kTypeFive, kQuadrants, {-1, 0}, "4 (-1, 0)"},
    {"a rectangle has no end", kBox, kEnds, {0, 0}, "none"},
    {"a rectangle has no middle", kBox, kMidpoints, {1, 0.5F}, "none"},
};

TEST(Features, OfEachKindOnEachEntity) {
  for (const FeatureCase& row : kFeatures) {
    SCOPED_TRACE(row.name);
    RecordedDrafting d;
    d.add(row.row);
    activate(d, {row.kind});
    EXPECT_EQ(featureAt(d, 1, row.pointer.x, row.pointer.y), row.feature);
  }
}

TEST(Features, TheMiddleOfAnArcFrom350To10DegreesLandsAt180) {
  RecordedDrafting d;
  const auto at = [](double degrees) {
    const double angle = degrees * kPi / 180;
    return Point{narrow(std::cos(angle)), narrow(std::sin(angle))};
  };
  d.add({.type = 3, .x0 = at(350).x, .y0 = at(350).y, .x1 = at(10).x, .y1 = at(10).y});
  activate(d, {kMidpoints});
  EXPECT_EQ(featureAt(d, 1, -0.9F, 0), "3 (-1, 0)");
  EXPECT_EQ(featureAt(d, 1, 1, 0), "none");
}

TEST(Features, ThePerpendicularStartsFromThePointGiven) {
  RecordedDrafting d;
  d.addLine(0, 0, 4, 0);
  activate(d, {kPerpendiculars});
  EXPECT_EQ(featureAt(d, 1, 1, 0.1F, Point{1.2F, 3}), "5 (1.2, 0)");
  d.add(kBox);
  EXPECT_EQ(featureAt(d, 2, 1.2F, 0.9F, Point{1.2F, 3}), "5 (1.2, 1)");
}

TEST(Features, WithoutAPointGivenThereIsNoPerpendicular) {
  RecordedDrafting d;
  d.addLine(0, 0, 4, 0);
  activate(d, {kPerpendiculars});
  EXPECT_EQ(featureAt(d, 1, 1, 0.1F), "none");
}

TEST(Features, AnArcWhoseEndsCoincideExactlyIsACircle) {
  RecordedDrafting d;
  d.add(kWhole);
  d.add(kQuarter);
  d.add(kTypeFive);
  EXPECT_EQ(effectiveType(d.store, 1), 5);
  EXPECT_EQ(effectiveType(d.store, 2), 3);
  EXPECT_EQ(effectiveType(d.store, 3), 5);
}

// ---- Choosing

TEST(ChoosingAFeature, TakesTheNearest) {
  RecordedDrafting d;
  d.add(kQuarter);
  activate(d, {kEnds, kCenters, kMidpoints, kQuadrants});
  EXPECT_EQ(featureAt(d, 1, 0.3F, 0.1F), "2 (0, 0)");
  EXPECT_EQ(featureAt(d, 1, 0.6F, 0.7F), "3 (0.7071, 0.7071)");
}

TEST(ChoosingAFeature, OfEquallyNearOnesTheFirstStays) {
  RecordedDrafting d;
  d.addLine(0, 0, 1, 0);
  d.add(kQuarter);
  activate(d, {kEnds, kMidpoints, kQuadrants});
  EXPECT_EQ(featureAt(d, 1, 0.25F, 0), "1 (0, 0)");
  EXPECT_EQ(featureAt(d, 2, 1, 0), "1 (1, 0)");  // a quadrant lies there too
}

TEST(ChoosingAFeature, ReachesATenthOfTheViewsWidthExclusively) {
  RecordedDrafting d;
  d.addLine(0, 0, 4, 0);
  activate(d, {kEnds});
  EXPECT_EQ(featureAt(d, 1, 0, 0.999F), "1 (0, 0)");
  EXPECT_EQ(featureAt(d, 1, 0, 1), "none");
}

TEST(ChoosingAFeature, ReachesTheSameShareOfACloserView) {
  RecordedDrafting d;
  d.addLine(0, 0, 4, 0);
  activate(d, {kEnds});
  d.viewCommands.Zoom_In(0, 0);
  EXPECT_EQ(featureAt(d, 1, 0, 0.499F), "1 (0, 0)");
  EXPECT_EQ(featureAt(d, 1, 0, 0.5F), "none");
}

TEST(ChoosingAFeature, OnAnEmptyDrawingOffersOnlyTheTypedPosition) {
  RecordedDrafting d;
  activate(d, {kEnds, kCenters, kMidpoints, kQuadrants, kPerpendiculars});
  EXPECT_EQ(chosen(featureAtPointer(d.context, {0, 0}, false)), "none");
  d.context.typedPosition = Point{0.5F, 0};
  EXPECT_EQ(chosen(featureAtPointer(d.context, {0, 0}, false)), "6 (0.5, 0)");
}

TEST(ChoosingAFeature, PutsTheTypedPositionLast) {
  RecordedDrafting d;
  d.addLine(0, 0, 4, 0);
  activate(d, {kEnds});
  d.context.typedPosition = Point{0, 0};
  EXPECT_EQ(featureAt(d, 1, 0.1F, 0), "1 (0, 0)");
}

TEST(ChoosingAFeature, InvertedTakesThePersistentKindsToo) {
  RecordedDrafting d;
  d.add(kQuarter);
  activate(d, {kMidpoints});
  EXPECT_EQ(featureAt(d, 1, 0.1F, 0.1F), "3 (0.7071, 0.7071)");
  EXPECT_EQ(featureAt(d, 1, 0.1F, 0.1F, {}, /*invert=*/true), "2 (0, 0)");
}

TEST(ChoosingAFeature, StartsPerpendicularsFromTheMarker) {
  RecordedDrafting d;
  d.addLine(0, 0, 4, 0);
  d.rightClick(1.2F, 3);
  activate(d, {kPerpendiculars});
  EXPECT_EQ(chosen(featureAtPointer(d.context, {1, 0.1F}, false)), "5 (1.2, 0)");
}

TEST(FeatureDistance, TakesMissingCoordinatesFromThePointer) {
  const CFeaturePoint feature{.RefX = 3, .RefY = 4, .X = 0, .Y = 0};
  EXPECT_EQ(feature.Distance(), 5);
  EXPECT_EQ(feature.Distance(0.0F), 4);
  EXPECT_EQ(feature.Distance({}, 0.0F), 3);
  EXPECT_EQ(feature.Distance(6.0F, 8.0F), 10);
}

// ---- Where features act

TEST(SnapInADrag, OffersFeaturesAndTheReleaseTakesThem) {
  RecordedDrafting d;
  d.addLine(1, 1, 3, 1);
  OSnap_ButtonClick(d.context);
  mnuDrawLine_Click(d.context);
  d.drag({0.5F, 0}, {1.1F, 1.1F});
  EXPECT_EQ(testing::segmentTexts(d.store).back(), "1 (0, 0)-(1, 1)");
  EXPECT_FALSE(d.context.state.FeaturePoint());
}

TEST(SnapInADrag, LeavesThePointerFree) {
  RecordedDrafting d;
  d.addLine(1, 1, 3, 1);
  OSnap_ButtonClick(d.context);
  mnuDrawLine_Click(d.context);
  d.press(1, 0, 0);
  d.move(1, 1.1F, 1.1F);
  EXPECT_EQ(chosen(d.context.state.FeaturePoint()), "1 (1, 1)");
  EXPECT_EQ(d.mouse(), (Point{1.1F, 1.1F}));
  EXPECT_EQ(d.context.pointer.MouseMoveX, 1.1F);
}

TEST(SnapInADrag, TheShiftKeyTurnsItOff) {
  RecordedDrafting d;
  d.addLine(1, 1, 3, 1);
  OSnap_ButtonClick(d.context);
  mnuDrawLine_Click(d.context);
  d.drag({0.5F, 0}, {1.1F, 1.1F}, kShiftKey);
  EXPECT_EQ(testing::segmentTexts(d.store).back(), "1 (0, 0)-(1.1, 1.1)");
}

TEST(SnapInADrag, TheShiftKeyTurnsItOnForThePersistentKinds) {
  RecordedDrafting d;
  d.addLine(1, 1, 3, 1);
  mnuDrawLine_Click(d.context);
  d.drag({0.5F, 0}, {1.1F, 1.1F}, kShiftKey);
  EXPECT_EQ(testing::segmentTexts(d.store).back(), "1 (0, 0)-(1, 1)");
}

TEST(SnapInADrag, TheShiftKeyInvertsForThreeKindsOfDragsAlone) {
  struct ShiftCase {
    int action, mode, button;
    bool offers;
  };
  constexpr ShiftCase kCases[] = {
      {10, 0, 1, true}, {36, 0, 1, true}, {0, 1, 1, true},  {0, 0, 2, true},
      {9, 0, 2, true},  {9, 0, 1, false}, {0, 0, 1, false}, {0, -1, 1, false},
  };
  for (const ShiftCase& row : kCases) {
    SCOPED_TRACE(::testing::Message() << row.action << ' ' << row.mode << ' ' << row.button);
    RecordedDrafting d;
    d.addLine(1, 1, 3, 1);
    d.context.state.setDrawMode(row.mode);
    d.context.state.setPendingaction(row.action);
    d.press(row.button, 0, 0);
    d.move(row.button, 1.1F, 1.1F, kShiftKey);
    EXPECT_EQ(d.context.state.FeaturePoint().has_value(), row.offers);
  }
}

TEST(SnapInADrag, OfTheRightButtonPutsTheMarkerOnAFeature) {
  RecordedDrafting d;
  d.addLine(1, 1, 3, 1);
  OSnap_ButtonClick(d.context);
  d.press(2, 0, 0);
  d.move(2, 1.1F, 1.1F);
  d.release(2, 1.1F, 1.1F);
  EXPECT_EQ(d.marker(), (Point{1, 1}));
}

TEST(SnapInADrag, ASingleUseEndsWithTheClick) {
  RecordedDrafting d;
  d.addLine(1, 1, 3, 1);
  mnuDrawLine_Click(d.context);
  d.context.state.UpdateOSnapFeature(/*once=*/true, kMidpoints);
  d.drag({0.5F, 0}, {2.1F, 1.1F});
  EXPECT_EQ(testing::segmentTexts(d.store).back(), "1 (0, 0)-(2, 1)");
  EXPECT_EQ(d.context.state.OSnapActive, SnapSet{});
  d.drag({0.5F, 0}, {2.1F, 1.2F});
  EXPECT_EQ(testing::segmentTexts(d.store).back(), "1 (2, 1)-(2.1, 1.2)");
}

TEST(SnapInADrag, AfterASingleUseTheSetInForceIsThePersistentOne) {
  RecordedDrafting d;
  OSnap_ButtonClick(d.context);
  d.context.state.UpdateOSnapFeature(/*once=*/true, kMidpoints);
  EXPECT_TRUE(d.context.state.OSnapActive[kMidpoints]);
  d.rightClick(1, 1);
  EXPECT_EQ(d.context.state.OSnapActive, d.context.state.OSnapFeatures);
  EXPECT_FALSE(d.context.state.OSnapActive[kMidpoints]);
}

// ---- Sets and the menu

TEST(SnapSets, AfterASetupLoadHoldKinds1And2And5AndSnapIsOff) {
  RecordedDrafting d;
  d.context.state.OSnapOn = true;
  d.context.state.OSnapRadius = 3;
  d.context.state.OSnapFeatures = {true, true, true, true, true, true, true};
  d.context.state.resetObjectSnap();
  EXPECT_FALSE(d.context.state.OSnapOn);
  EXPECT_EQ(d.context.state.OSnapRadius, 0.1F);
  EXPECT_EQ(d.context.state.OSnapFeatures, (SnapSet{false, true, true, false, false, true, false}));
  EXPECT_EQ(d.context.state.OSnapActive, SnapSet{});
}

TEST(SnapSets, TheButtonBringsThePersistentSetIntoForceAndClearsIt) {
  RecordedDrafting d;
  OSnap_ButtonClick(d.context);
  EXPECT_TRUE(d.context.state.OSnapOn);
  EXPECT_TRUE(d.tools.isChecked("OSnap"));
  EXPECT_EQ(d.context.state.OSnapActive, d.context.state.OSnapFeatures);
  OSnap_ButtonClick(d.context);
  EXPECT_FALSE(d.context.state.OSnapOn);
  EXPECT_FALSE(d.tools.isChecked("OSnap"));
  EXPECT_EQ(d.context.state.OSnapActive, SnapSet{});
}

struct SnapEntry {
  void (*click)(DraftingContext&);
  int kind;
};

constexpr SnapEntry kSnapEntries[] = {
    {tbbtnmnuOSnapEndpoints_ButtonMenuClick, 1},     {tbbtnmnuOSnapCenter_ButtonMenuClick, 2},
    {tbbtnmnuOSnapMidpoint_ButtonMenuClick, 3},      {tbbtnmnuOSnapQuadrants_ButtonMenuClick, 4},
    {tbbtnmnuOSnapPerpendicular_ButtonMenuClick, 5},
};

TEST(SnapMenu, WhileTheButtonIsDownTurnsAKindOver) {
  for (const SnapEntry& entry : kSnapEntries) {
    RecordedDrafting d;
    OSnap_ButtonClick(d.context);
    const auto kind = static_cast<std::size_t>(entry.kind);
    const bool before = d.context.state.OSnapFeatures[kind];
    entry.click(d.context);
    EXPECT_EQ(d.context.state.OSnapFeatures[kind], !before);
    EXPECT_EQ(d.context.state.OSnapActive[kind], !before);
  }
}

TEST(SnapMenu, WhileTheButtonIsUpIsASingleUse) {
  for (const SnapEntry& entry : kSnapEntries) {
    RecordedDrafting d;
    const SnapSet before = d.context.state.OSnapFeatures;
    entry.click(d.context);
    EXPECT_EQ(d.context.state.OSnapFeatures, before);
    SnapSet only{};
    only[static_cast<std::size_t>(entry.kind)] = true;
    EXPECT_EQ(d.context.state.OSnapActive, only);
  }
}

TEST(SnapMenu, MarksThePersistentKindsWhileTheButtonIsDown) {
  RecordedDrafting d;
  const auto captions = [&d] {
    Texts texts;
    for (const char* const tool : {"miOSnapEndpoints", "miOSnapCenter", "miOSnapMidpoint",
                                   "miOSnapQuadrant", "miOSnapPerpendicular"}) {
      texts.push_back(d.tools.tool(tool)->caption);
    }
    return texts;
  };
  OSnap_ButtonClick(d.context);
  for (int opened = 0; opened < 2; ++opened) {
    OSnap_ButtonClick_ButtonDropDown(d.context);
    EXPECT_EQ(captions(), (Texts{"×miOSnapEndpoints", "×miOSnapCenter", " miOSnapMidpoint",
                                 " miOSnapQuadrant", "×miOSnapPerpendicular"}));
  }
  OSnap_ButtonClick(d.context);
  OSnap_ButtonClick_ButtonDropDown(d.context);
  EXPECT_EQ(captions(), (Texts{" miOSnapEndpoints", " miOSnapCenter", " miOSnapMidpoint",
                               " miOSnapQuadrant", " miOSnapPerpendicular"}));
}

TEST(SnapMenu, WithoutItsToolsMarksNothing) {
  RecordedDrafting d;
  ToolHost none;
  CState state(d.ScreenProxy);
  DraftingContext bare({d.test.session, d.view, d.renderer, d.redraw, state, d.viewCommands,
                        d.ScreenProxy, d.pointer, d.timers, none, d.statusBar, d});
  OSnap_ButtonClick_ButtonDropDown(bare);
  EXPECT_EQ(none.toolNames(), Texts{});
  EXPECT_EQ(d.tools.tool("miOSnapCenter")->caption, " miOSnapCenter");
}

TEST(SnapSets, AnIndexOutsideTheKindsIsRefused) {
  RecordedDrafting d;
  for (const int index : {-1, 7}) {
    EXPECT_EQ(testing::numberOfFailure([&] { d.context.state.UpdateOSnapFeature(false, index); }),
              FailureNumber::SubscriptOutOfRange);
  }
}

// ---- Marks

TEST(FeatureMark, IsErasedByDrawingItAgain) {
  RecordedDrafting d;
  d.log.take();
  d.context.state.setFeaturePoint(CFeaturePoint{.X = 1, .Y = 1});
  d.context.state.setFeaturePoint({});
  const std::string square =
      "DrawMode 10\n"
      "box (0.8667, 0.8667)-(1.1333, 1.1333) #000000\n"
      "DrawMode 13\n";
  EXPECT_EQ(d.log.take(), square + square);
}

struct MarkCase {
  FeatureKind kind;
  const char* drawn;
};

TEST(FeatureMark, HasAShapeForEachKind) {
  constexpr const char* kCircle = "circle (0, 0) r 0.1333 #000000\n";
  const MarkCase cases[] = {
      {FeatureKind::EndPoint, "box (-0.1333, -0.1333)-(0.1333, 0.1333) #000000\n"},
      {FeatureKind::Center, kCircle},
      {FeatureKind::Midpoint,
       "line (0, 0.1333)-(0.1, -0.1333) #000000\n"
       "line (0.1, -0.1333)-(-0.1, -0.1333) #000000\n"
       "line (-0.1, -0.1333)-(0, 0.1333) #000000\n"},
      {FeatureKind::Quadrant, kCircle},
      {FeatureKind::Perpendicular, kCircle},
      {FeatureKind::TypedPosition,
       "DrawWidth 15\n"
       "line (0, 0)-(0, 0) #FF00FF\n"
       "DrawWidth 1\n"},
  };
  RecordedDrafting d;
  for (const MarkCase& row : cases) {
    d.log.take();
    CFeaturePoint{.PointType = row.kind}.Draw(d.ScreenProxy);
    EXPECT_EQ(d.log.take(), row.drawn);
  }
}

TEST(FeatureMark, IsNotErasedWhereARedrawWipedIt) {
  RecordedDrafting d;
  d.context.state.setFeaturePoint(CFeaturePoint{.X = 1, .Y = 1});
  d.redraw.redrawscreen();
  d.log.take();
  d.context.state.setFeaturePoint({});
  EXPECT_EQ(d.log.take(), "");
}

}  // namespace
}  // namespace tess
