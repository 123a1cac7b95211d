// Whole offsets: from a row, a way and a click to placed path rows.
#include "toolpath/contour_offset.h"

#include <cmath>

#include "gtest/gtest.h"

#include "core/drawing_store.h"
#include "drafting/undo.h"
#include "tests/support/failure_of.h"
#include "tests/support/outlines.h"
#include "tests/support/recorded_cam.h"

namespace tess {
namespace {

using testing::pathTexts;
using testing::RecordedCam;
using Texts = std::vector<std::string>;

struct ContourOffset : RecordedCam, ::testing::Test {
  void addArc(int type, Point start, Point end, Point center) {
    add({.type = type,
         .x0 = start.x,
         .y0 = start.y,
         .x1 = end.x,
         .y1 = end.y,
         .xc = center.x,
         .yc = center.y});
  }
  // Counter-clockwise from the origin.
  void addSquare() {
    addLine(0, 0, 2, 0);
    addLine(2, 0, 2, 2);
    addLine(2, 2, 0, 2);
    addLine(0, 2, 0, 0);
  }
  void mark(int attr) {
    for (int sg = 1; sg <= store.NumSegments; ++sg) store.segattr[sg] = attr;
  }
  // From the start of row `sg` along it.
  OffsetRequest along(int sg, Point click) {
    const SegmentRow row = segmentRow(store, sg);
    return {.sg = sg,
            .start = {row.x0, row.y0},
            .direction = {row.x1, row.y1},
            .click = click,
            .z = -0.5F,
            .feed = 10};
  }
  OffsetRequest against(int sg, Point click) {
    OffsetRequest request = along(sg, click);
    std::swap(request.start, request.direction);
    return request;
  }
  Texts offset(const OffsetRequest& request) {
    store.NumPathSegments = 0;
    offsetPathChain(cam, request);
    return rows();
  }
  // Rows without code, depth and feed, which other tests look at.
  Texts rows() const {
    Texts all;
    for (const std::string& text : pathTexts(store)) all.push_back(text.substr(0, text.find(" @")));
    return all;
  }
};

// ---- Squares

TEST_F(ContourOffset, ASquareOutsideHasAnArcOfTheToolsRadiusAtEachVertex) {
  addSquare();
  EXPECT_EQ(offset(along(1, {1, -1})),
            (Texts{"1 (0, -0.25)-(2, -0.25)", "3 (2, -0.25)-(2.25, 0) c (2, 0)",
                   "1 (2.25, 0)-(2.25, 2)", "3 (2.25, 2)-(2, 2.25) c (2, 2)",
                   "1 (2, 2.25)-(0, 2.25)", "3 (0, 2.25)-(-0.25, 2) c (0, 2)",
                   "1 (-0.25, 2)-(-0.25, 0)", "3 (-0.25, 0)-(0, -0.25) c (0, 0)"}));
}

TEST_F(ContourOffset, ASquareOutsideTheOtherWayRoundHasClockwiseArcs) {
  addSquare();
  EXPECT_EQ(offset(against(1, {1, -1})),
            (Texts{"1 (2, -0.25)-(0, -0.25)", "2 (0, -0.25)-(-0.25, 0) c (0, 0)",
                   "1 (-0.25, 0)-(-0.25, 2)", "2 (-0.25, 2)-(0, 2.25) c (0, 2)",
                   "1 (0, 2.25)-(2, 2.25)", "2 (2, 2.25)-(2.25, 2) c (2, 2)",
                   "1 (2.25, 2)-(2.25, 0)", "2 (2.25, 0)-(2, -0.25) c (2, 0)"}));
}

TEST_F(ContourOffset, ASquareInsideIsTrimmedAtItsCorners) {
  addSquare();
  EXPECT_EQ(offset(along(1, {1, 1})),
            (Texts{"1 (0.25, 0.25)-(1.75, 0.25)", "1 (1.75, 0.25)-(1.75, 1.75)",
                   "1 (1.75, 1.75)-(0.25, 1.75)", "1 (0.25, 1.75)-(0.25, 0.25)"}));
}

TEST_F(ContourOffset, RowsDrawnInAnyOrderAndSenseMakeTheSamePath) {
  addSquare();
  const Texts expected = offset(along(1, {1, 1}));
  store.NumSegments = 0;
  addLine(0, 0, 2, 0);
  addLine(0, 2, 0, 0);
  addLine(2, 2, 2, 0);
  addLine(0, 2, 2, 2);
  EXPECT_EQ(offset(along(1, {1, 1})), expected);
}

// The view shows a hundred pixels to the unit.
TEST_F(ContourOffset, AClickWithinFivePixelsMakesAPathOnTheProfileWithoutLeads) {
  addSquare();
  store.cfg_lead_in_path = true;
  store.cfg_lead_in_angle = 30;
  store.cfg_lead_in_length = 0.5F;
  const Texts profile{"1 (0, 0)-(2, 0)", "1 (2, 0)-(2, 2)", "1 (2, 2)-(0, 2)", "1 (0, 2)-(0, 0)"};
  EXPECT_EQ(offset(along(1, {1, 0.04F})), profile);
  EXPECT_EQ(offset(along(1, {1, -0.04F})), profile);
  EXPECT_NE(offset(along(1, {1, 0.05F})), profile);
  EXPECT_NE(offset(along(1, {1, -0.05F})), profile);
}

TEST_F(ContourOffset, TheDeadBandFollowsTheView) {
  addSquare();
  const Texts onProfile = offset(along(1, {1, 0.04F}));
  context.viewCommands.Zoom_In(0, 0);
  pass(1000);
  EXPECT_NE(offset(along(1, {1, 0.04F})), onProfile);
}

TEST_F(ContourOffset, AShortOffsetKeepsTheProfilesGapsWithinTheTolerance) {
  addLine(0, 0, 2, 0);
  addLine(2.0005F, 0, 4, 0);
  EXPECT_EQ(offset(along(1, {1, -1})),
            (Texts{"1 (0, -0.25)-(2, -0.25)", "1 (2, -0.25)-(4, -0.25)"}));
}

// ---- Arcs

TEST_F(ContourOffset, TheSideOfAnArcIsThatOfTheClick) {
  addArc(kCounterClockwiseArc, {1, 0}, {0, 1}, {0, 0});
  EXPECT_EQ(offset(along(1, {2, 2})), (Texts{"3 (1.25, 0)-(0, 1.25) c (0, 0)"}));
  EXPECT_EQ(offset(along(1, {0.3F, 0.3F})), (Texts{"3 (0.75, 0)-(0, 0.75) c (0, 0)"}));
  EXPECT_EQ(offset(against(1, {2, 2})), (Texts{"2 (0, 1.25)-(1.25, 0) c (0, 0)"}));
  EXPECT_EQ(offset(along(1, {0.72F, 0.72F})), (Texts{"3 (1, 0)-(0, 1) c (0, 0)"}));
}

TEST_F(ContourOffset, AnArcClosedOnItselfIsPlacedClockwise) {
  addArc(kCounterClockwiseArc, {1, 0}, {1, 0}, {0, 0});
  OffsetRequest request = along(1, {2, 0});
  EXPECT_EQ(offset(request), (Texts{"2 (1.25, 0)-(1.25, 0) c (0, 0)"}));
  request.click = {0.5F, 0};
  EXPECT_EQ(offset(request), (Texts{"2 (0.75, 0)-(0.75, 0) c (0, 0)"}));
}

TEST_F(ContourOffset, LaterArcsFollowTheSideOfTheFirstElement) {
  addLine(0, 0, 2, 0);
  addArc(kCounterClockwiseArc, {2, 0}, {2, 2}, {2, 1});
  addLine(2, 2, 0, 2);
  addArc(kClockwiseArc, {0, 2}, {0, 0}, {0, 1});
  // The second arc bulges inward: seen from the same side it grows where the first one shrinks.
  EXPECT_EQ(offset(along(1, {1, 0.2F})),
            (Texts{"1 (1, 0.25)-(2, 0.25)", "3 (2, 0.25)-(2, 1.75) c (2, 1)",
                   "1 (2, 1.75)-(1, 1.75)", "2 (1, 1.75)-(1, 0.25) c (0, 1)"}));
}

// The line of a half disc meets the arc at both of its corners: the second hit is taken at either
// joint, and nothing is left of both rows. The rules say so.
TEST_F(ContourOffset, AHalfDiscInsideCollapsesToTheSecondHit) {
  addArc(kCounterClockwiseArc, {1, 0}, {-1, 0}, {0, 0});
  addLine(-1, 0, 1, 0);
  EXPECT_EQ(offset(along(1, {0, 0.5F})), (Texts{"3 (-0.7071, 0.25)-(-0.7071, 0.25) c (0, 0)",
                                                "1 (-0.7071, 0.25)-(-0.7071, 0.25)"}));
}

TEST_F(ContourOffset, AnArcSmallerThanTheToolWritesNoRowAndItsLinesAreJoined) {
  addLine(0.1F, 0, 1.9F, 0);
  addArc(kCounterClockwiseArc, {1.9F, 0}, {2, 0.1F}, {1.9F, 0.1F});
  addLine(2, 0.1F, 2, 2);
  addLine(2, 2, 0, 2);
  addLine(0, 2, 0, 0.1F);
  addArc(kCounterClockwiseArc, {0, 0.1F}, {0.1F, 0}, {0.1F, 0.1F});
  EXPECT_EQ(offset(along(1, {1, 1})),
            (Texts{"1 (0.25, 0.25)-(1.75, 0.25)", "1 (1.75, 0.25)-(1.75, 1.75)",
                   "1 (1.75, 1.75)-(0.25, 1.75)", "1 (0.25, 1.75)-(0.25, 0.25)"}));
}

TEST_F(ContourOffset, ACollapsedFirstArcLeavesTheRestToClose) {
  addArc(kCounterClockwiseArc, {1.9F, 0}, {2, 0.1F}, {1.9F, 0.1F});
  addLine(2, 0.1F, 2, 2);
  addLine(2, 2, 0, 0);
  addLine(0, 0, 1.9F, 0);
  EXPECT_EQ(offset(along(1, {1.9F, 0.1F})).size(), 3U);
  EXPECT_EQ(rows(), (Texts{"1 (1.75, 0.25)-(1.75, 1.3964)", "1 (1.75, 1.3964)-(0.6036, 0.25)",
                           "1 (0.6036, 0.25)-(1.75, 0.25)"}));
}

TEST_F(ContourOffset, NothingIsPlacedInACircleSmallerThanTheTool) {
  addArc(kClockwiseArc, {0.2F, 0}, {0.2F, 0}, {0, 0});
  store.cfg_lead_in_path = true;
  store.cfg_lead_in_angle = 30;
  store.cfg_lead_in_length = 0.5F;
  EXPECT_EQ(offset(along(1, {0.1F, 0})), Texts{});
  EXPECT_EQ(context.changelog.changecount, 0);
}

// Two arcs that meet twice at a joint: the second hit is taken, however far it lies.
TEST_F(ContourOffset, ArcsThatMeetTwiceAreTrimmedToTheSecondHit) {
  addArc(kCounterClockwiseArc, {2, 0}, {0.5F, 1.9364917F}, {0, 0});
  addArc(kCounterClockwiseArc, {0.5F, 1.9364917F}, {-1, 0}, {1, 0});
  const Texts placed = offset(along(1, {0, 0}));
  ASSERT_EQ(placed.size(), 2U);
  EXPECT_EQ(store.psx1[1], store.psx0[2]);
  EXPECT_EQ(store.psy1[1], store.psy0[2]);
}

// ---- Leads

struct ContourOffsetLeads : ContourOffset {
  ContourOffsetLeads() {
    store.cfg_lead_in_path = true;
    store.cfg_lead_in_angle = 30;
    store.cfg_lead_in_length = 0.5F;
  }
};

TEST_F(ContourOffsetLeads, AClosedPathBeginsAndEndsAtTheMidpointOfItsFirstLine) {
  addSquare();
  EXPECT_EQ(
      offset(along(1, {1, 1})),
      (Texts{"1 (0.567, 0.5)-(1, 0.25)", "1 (1, 0.25)-(1.75, 0.25)", "1 (1.75, 0.25)-(1.75, 1.75)",
             "1 (1.75, 1.75)-(0.25, 1.75)", "1 (0.25, 1.75)-(0.25, 0.25)",
             "1 (0.25, 0.25)-(1, 0.25)", "1 (1, 0.25)-(1.433, 0.5)"}));
}

// Outside, the closing bridge is the last row but the half line.
TEST_F(ContourOffsetLeads, ABridgedPathIsClosedBeforeItIsSplit) {
  addSquare();
  const Texts placed = offset(along(1, {1, -1}));
  ASSERT_EQ(placed.size(), 11U);
  EXPECT_EQ(placed[0], "1 (0.567, -0.5)-(1, -0.25)");
  EXPECT_EQ(placed[1], "1 (1, -0.25)-(2, -0.25)");
  EXPECT_EQ(placed[8], "3 (-0.25, 0)-(0, -0.25) c (0, 0)");
  EXPECT_EQ(placed[9], "1 (0, -0.25)-(1, -0.25)");
  EXPECT_EQ(placed[10], "1 (1, -0.25)-(1.433, -0.5)");
}

TEST_F(ContourOffsetLeads, AClosedPathThatBeginsWithAnArcIsEnteredThere) {
  addArc(kCounterClockwiseArc, {1, 0}, {-1, 0}, {0, 0});
  addArc(kCounterClockwiseArc, {-1, 0}, {1, 0}, {0, 0});
  EXPECT_EQ(offset(along(1, {2, 0})),
            (Texts{"1 (1.5, -0.433)-(1.25, 0)", "3 (1.25, 0)-(-1.25, 0) c (0, 0)",
                   "3 (-1.25, 0)-(1.25, 0) c (0, 0)", "1 (1.25, 0)-(1.5, 0.433)"}));
}

TEST_F(ContourOffsetLeads, AnOpenChainOfALineAndAnArc) {
  addLine(0, -1, 2, -1);
  addArc(kCounterClockwiseArc, {2, -1}, {3, 0}, {2, 0});
  EXPECT_EQ(offset(along(1, {1, -2})),
            (Texts{"1 (-0.433, -1.5)-(0, -1.25)", "1 (0, -1.25)-(2, -1.25)",
                   "3 (2, -1.25)-(3.25, 0) c (2, 0)", "1 (3.25, 0)-(3.5, 0.433)"}));
}

TEST_F(ContourOffsetLeads, ArcLeadsOfAClosedPath) {
  store.cfg_lead_in_arc = true;
  addSquare();
  const Texts placed = offset(along(1, {1, 1}));
  ASSERT_EQ(placed.size(), 7U);
  EXPECT_EQ(placed.front(), "3 (0.567, 0.5)-(1, 0.25) c (1.025, 0.7933)");
  EXPECT_EQ(placed.back(), "3 (1, 0.25)-(1.433, 0.5) c (0.975, 0.7933)");
}

TEST_F(ContourOffsetLeads, NeedAnAngleALengthAndAKind) {
  addSquare();
  store.cfg_lead_in_angle = 0;
  EXPECT_EQ(offset(along(1, {1, 1})).size(), 4U);
  store.cfg_lead_in_angle = 30;
  store.cfg_lead_in_length = 0;
  EXPECT_EQ(offset(along(1, {1, 1})).size(), 4U);
  store.cfg_lead_in_length = 0.5F;
  store.cfg_lead_in_path = false;
  EXPECT_EQ(offset(along(1, {1, 1})).size(), 4U);
}

// ---- The rows' other fields and their place

TEST_F(ContourOffset, RowsCarryDepthFeedToolAndAGroupOfTheirOwn) {
  addLine(0, 0, 2, 0);
  store.selectedtool = 3;
  store.toolradius[3] = 0.5F;
  addPathLine(5, 5, 6, 6, 700);
  offsetPathChain(cam, along(1, {1, -1}));
  EXPECT_EQ(pathTexts(store),
            (Texts{"1 (5, 5)-(6, 6) @700 z 0", "1 (0, -0.5)-(2, -0.5) @803 z -0.5 f 10"}));
  EXPECT_EQ(store.currentpathgroup, 8);
  EXPECT_EQ(store.lastplacedgroup, 8);
  EXPECT_FALSE(store.drawingsaved);
}

TEST_F(ContourOffset, AGivenRadiusReplacesThatOfTheTool) {
  addLine(0, 0, 2, 0);
  OffsetRequest request = along(1, {1, -1});
  request.radius = 1;
  EXPECT_EQ(offset(request), (Texts{"1 (0, -1)-(2, -1)"}));
}

TEST_F(ContourOffset, OneRowAloneHasNeitherJointsNorLeads) {
  addSquare();
  store.cfg_lead_in_path = store.cfg_lead_in_arc = true;
  store.cfg_lead_in_angle = 30;
  store.cfg_lead_in_length = 0.5F;
  OffsetRequest request = along(1, {1, -1});
  request.chain = false;
  EXPECT_EQ(offset(request), (Texts{"1 (0, -0.25)-(2, -0.25)"}));
}

TEST_F(ContourOffset, RowsAreInsertedBeforeTheGroupThatTheEditorNamed) {
  addLine(0, 0, 2, 0);
  addLine(2, 0, 2, 2);
  addPathLine(5, 5, 6, 6, 100);
  addPathLine(6, 6, 7, 7, 200);
  cam.pathInsertMode = PathInsertMode::BeforeGroup;
  cam.pathInsertGroup = 2;
  offsetPathChain(cam, along(1, {1, 1}));
  EXPECT_EQ(rows(), (Texts{"1 (5, 5)-(6, 6)", "1 (0, 0.25)-(1.75, 0.25)",
                           "1 (1.75, 0.25)-(1.75, 2)", "1 (6, 6)-(7, 7)"}));
}

TEST_F(ContourOffset, ThePlacementEndsTheArmedAction) {
  addLine(0, 0, 2, 0);
  arm(context, PendingAction::StartRoughing);
  offset(along(1, {1, 1}));
  EXPECT_EQ(pending(), 0);
}

// ---- The walk

TEST_F(ContourOffset, ALooseEndLeavesThePathOpen) {
  addLine(0, 0, 2, 0);
  addLine(2, 0, 2, 2);
  addLine(2, 2, 0, 2);
  EXPECT_EQ(
      offset(along(1, {1, -1})),
      (Texts{"1 (0, -0.25)-(2, -0.25)", "3 (2, -0.25)-(2.25, 0) c (2, 0)", "1 (2.25, 0)-(2.25, 2)",
             "3 (2.25, 2)-(2, 2.25) c (2, 2)", "1 (2, 2.25)-(0, 2.25)"}));
}

TEST_F(ContourOffset, SelectedRowsLeadOnAtABranch) {
  addLine(0, 0, 2, 0);
  addLine(2, 0, 4, 0);
  addLine(2, 0, 2, 2);
  store.segattr[3] = kSelectedRow;
  EXPECT_EQ(offset(along(1, {1, 1})),
            (Texts{"1 (0, 0.25)-(1.75, 0.25)", "1 (1.75, 0.25)-(1.75, 2)"}));
}

TEST_F(ContourOffset, AWalkIntoALoopEndsThereWithoutAClosingJoint) {
  addLine(0, 0, 1, 0);
  addLine(1, 0, 2, 1);
  addLine(2, 1, 2, -1);
  addLine(2, -1, 1, 0);
  const Texts placed = offset(along(1, {0.5F, 0.04F}));
  EXPECT_EQ(placed,
            (Texts{"1 (0, 0)-(1, 0)", "1 (1, 0)-(2, 1)", "1 (2, 1)-(2, -1)", "1 (2, -1)-(1, 0)"}));
}

TEST_F(ContourOffset, AnEqualStartAndDirectionBeeps) {
  addLine(0, 0, 2, 0);
  OffsetRequest request = along(1, {1, 1});
  request.direction = {0.0005F, 0};
  EXPECT_EQ(offset(request), Texts{});
  EXPECT_EQ(beeps(), 1);
}

// Circles and rectangles have no rule: what comes out is not a path.
TEST_F(ContourOffset, ARectangleRepeatsTheCoordinatesBeforeIt) {
  addLine(0, 0, 1, 0);
  add({.type = kRectangle, .x0 = 1, .y0 = 0, .x1 = 2, .y1 = 2});
  EXPECT_EQ(offset(along(1, {0.5F, -1})),
            (Texts{"1 (0, -0.25)-(1, -0.25)", "3 (1, -0.25)-(0, -0.25) c (1, 0)",
                   "6 (0, -0.25)-(1, -0.25)"}));
  EXPECT_EQ(offset(along(2, {0.5F, -1})).front(), "6 (0, 0)-(0, 0)");
}

// ---- The modes

TEST_F(ContourOffset, InPocketModeTheOutlineDecidesTheSide) {
  addSquare();
  mark(kVerifiedRow);
  addLine(2, 0, 4, 0);
  OffsetRequest request = along(1, {1, -1});
  request.pocketMode = true;
  const Texts inside{"1 (0.25, 0.25)-(1.75, 0.25)", "1 (1.75, 0.25)-(1.75, 1.75)",
                     "1 (1.75, 1.75)-(0.25, 1.75)", "1 (0.25, 1.75)-(0.25, 0.25)"};
  EXPECT_EQ(offset(request), inside);
  store.cfg_lead_in_path = true;
  store.cfg_lead_in_angle = 30;
  store.cfg_lead_in_length = 0.5F;
  EXPECT_EQ(offset(request), inside);
}

TEST_F(ContourOffset, InPocketModeAnArcGoesByTheClickAllTheSame) {
  addArc(kCounterClockwiseArc, {1, 0}, {0, 1}, {0, 0});
  addLine(0, 1, -2, 1);
  addLine(-2, 1, -2, 0);
  addLine(-2, 0, 1, 0);
  mark(kVerifiedRow);
  OffsetRequest request = along(1, {0, 3});
  request.pocketMode = true;
  EXPECT_EQ(offset(request).front(), "3 (1.25, 0)-(0, 1.25) c (0, 0)");
  request.click = {0, 0.5F};
  EXPECT_EQ(offset(request).front(), "3 (0.7071, 0.25)-(0, 0.75) c (0, 0)");
}

TEST_F(ContourOffset, TheCallersGroupIsKeptInPocketAndExactMode) {
  addSquare();
  mark(kVerifiedRow);
  store.currentpathgroup = 5;
  OffsetRequest request = along(1, {1, -1});
  request.pocketMode = true;
  offset(request);
  EXPECT_EQ(store.pscode[1], 500);
  mark(kSelectedRow);
  request.pocketMode = false;
  request.exactMode = true;
  offset(request);
  EXPECT_EQ(store.pscode[1], 500);
}

TEST_F(ContourOffset, ExactModeFollowsSelectedRowsOnTheProfile) {
  addLine(0, 0, 2, 0);
  addLine(2, 0, 4, 0);
  addArc(kCounterClockwiseArc, {2, 0}, {2.1F, 0.1F}, {2, 0.1F});
  store.segattr[1] = store.segattr[3] = kSelectedRow;
  OffsetRequest request = along(1, {1, -1});
  request.exactMode = true;
  EXPECT_EQ(offset(request), (Texts{"1 (0, 0)-(2, 0)", "3 (2, 0)-(2.1, 0.1) c (2, 0.1)"}));
}

// An arc that is smaller than the tool stays: the path is not displaced.
TEST_F(ContourOffset, InExactModeNoElementCollapses) {
  addArc(kCounterClockwiseArc, {0.1F, 0}, {0, 0.1F}, {0, 0});
  mark(kSelectedRow);
  for (const Point click : {Point{0, 0}, Point{0.01F, 0.01F}, Point{3, 3}}) {
    OffsetRequest request = along(1, click);
    request.exactMode = true;
    EXPECT_EQ(offset(request), (Texts{"3 (0.1, 0)-(0, 0.1) c (0, 0)"}));
  }
}

// ---- The log

TEST_F(ContourOffset, APlacementIsOneStepOfItsFinalRows) {
  addSquare();
  offset(along(1, {1, 1}));
  ASSERT_EQ(context.changelog.changecount, 4);
  for (int record = 0; record < 4; ++record) {
    EXPECT_EQ(context.changelog.record(record).AddOrDelete, "A");
    EXPECT_EQ(context.changelog.record(record).StartOfSegment, record == 0);
  }
}

// With leads, joints of both kinds and rows on either side.
TEST_F(ContourOffset, UndoTakesBackAPlacementAndRedoGivesItAgain) {
  addLine(0, 0, 2, 0);
  addLine(2, 0, 2, 2);
  addLine(2, 2, 4, 2);
  addPathLine(5, 5, 6, 6, 100);
  addPathLine(6, 6, 7, 7, 200);
  cam.pathInsertMode = PathInsertMode::BeforeGroup;
  cam.pathInsertGroup = 2;
  store.cfg_lead_in_path = true;
  store.cfg_lead_in_angle = 30;
  store.cfg_lead_in_length = 0.5F;
  const Texts before = pathTexts(store);
  offsetPathChain(cam, along(1, {1, 1}));
  const Texts after = pathTexts(store);
  ASSERT_EQ(after.size(), before.size() + 6);
  Undo_Last_Change(context);
  EXPECT_EQ(pathTexts(store), before);
  EXPECT_FALSE(context.changelog.canUndo());
  RedoLastChange(context);
  EXPECT_EQ(pathTexts(store), after);
}

// The table has no room for the leads: neither rows nor records stay behind.
TEST_F(ContourOffset, AFailureLeavesNothingBehind) {
  addLine(0, 0, 2, 0);
  for (int ps = 1; ps <= 32766; ++ps) addPathLine(5, 5, 6, 6, 100);
  store.cfg_lead_in_path = true;
  store.cfg_lead_in_angle = 30;
  store.cfg_lead_in_length = 0.5F;
  EXPECT_EQ(testing::numberOfFailure([&] {
              offsetPathChain(cam, along(1, {1, 1}));
            }),
            FailureNumber::Overflow);
  EXPECT_EQ(store.NumPathSegments, 32766);
  EXPECT_FALSE(context.changelog.canUndo());
}

TEST_F(ContourOffset, InAFullLogOlderStepsGiveWay) {
  addSquare();
  addPathLine(5, 5, 6, 6, 100);
  for (int record = 0; record < 32766; ++record) {
    logPathSegment(context.changelog, store, 1, "A", true);
  }
  offsetPathChain(cam, along(1, {1, 1}));
  EXPECT_EQ(store.NumPathSegments, 5);
  EXPECT_EQ(context.changelog.changecount, 32767);
  EXPECT_EQ(context.changelog.lastStepSize(), 4);
}

TEST_F(ContourOffset, APlacementThatFailsBeforeItsFirstRowKeepsWhatCanBeRedone) {
  addLine(0, 0, 2, 0);
  addPathLine(5, 5, 6, 6, 100);
  logPathSegment(context.changelog, store, 1, "A", true);
  Undo_Last_Change(context);
  { const Placement placement(cam); }
  EXPECT_TRUE(context.changelog.canRedo());
}

// ---- Large outlines

TEST_F(ContourOffset, ALongOutlineGoesRoundOnce) {
  for (const auto kind : {testing::OutlineKind::Lines, testing::OutlineKind::LinesAndArcs}) {
    store.NumSegments = 0;
    testing::addOutline(store, testing::wavyStar({.rows = 2000, .kind = kind}));
    const OffsetRequest request = along(1, {0, 0});
    offset(request);
    EXPECT_GE(store.NumPathSegments, 2000);
    EXPECT_TRUE(samePoint({store.psx0[1], store.psy0[1]},
                          {store.psx1[store.NumPathSegments], store.psy1[store.NumPathSegments]},
                          store.cfg_tolerance));
  }
}

}  // namespace
}  // namespace tess
