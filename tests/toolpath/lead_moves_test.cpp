// Leads: where they begin and end, on which side, and in which form.
#include "toolpath/lead_moves.h"

#include <cmath>

#include "gtest/gtest.h"

#include "core/drawing_store.h"
#include "tests/support/recorded_cam.h"

namespace tess {
namespace {

using testing::pathTexts;
using testing::RecordedCam;
using Texts = std::vector<std::string>;

// A tool of radius 0.25 leads over a length of 1 at 30 degrees.
struct LeadMoves : RecordedCam, ::testing::Test {
  LeadMoves() {
    store.cfg_lead_in_path = true;
    store.cfg_lead_in_length = 1;
    store.cfg_lead_in_angle = 30;
    store.currentpathgroup = 1;
  }
  void addPath(const PathRow& row) {
    PathRow placed = row;
    placed.code = 100;
    addPathSegment(store, placed);
  }
  // The profile one radius below its path, or above it.
  void addProfileAt(float y) { addLine(0, y, 4, y); }
  Texts leads(bool closed) {
    addLeadInOut(cam, {closed, 1, store.NumPathSegments, -0.5F, 10});
    Texts all;
    for (const std::string& text : pathTexts(store)) all.push_back(text.substr(0, text.find(" @")));
    return all;
  }
};

TEST_F(LeadMoves, WithTheProfileOnTheLeftAnOpenPathIsEnteredAndLeftOnTheRight) {
  addProfileAt(0.25F);
  addPath({.type = kLine, .x0 = 0, .y0 = 0, .x1 = 4, .y1 = 0});
  EXPECT_EQ(leads(/*closed=*/false),
            (Texts{"1 (-0.866, -0.5)-(0, 0)", "1 (0, 0)-(4, 0)", "1 (4, 0)-(4.866, -0.5)"}));
}

TEST_F(LeadMoves, WithTheProfileOnTheRightAnOpenPathIsEnteredAndLeftOnTheLeft) {
  addProfileAt(-0.25F);
  addPath({.type = kLine, .x0 = 0, .y0 = 0, .x1 = 4, .y1 = 0});
  EXPECT_EQ(leads(/*closed=*/false),
            (Texts{"1 (-0.866, 0.5)-(0, 0)", "1 (0, 0)-(4, 0)", "1 (4, 0)-(4.866, 0.5)"}));
}

TEST_F(LeadMoves, EachEndOfAnOpenPathIsJudgedByItself) {
  addLine(0, 0.25F, 1, 0.25F);
  addLine(3, -0.25F, 4, -0.25F);
  addPath({.type = kLine, .x0 = 0, .y0 = 0, .x1 = 4, .y1 = 0});
  EXPECT_EQ(leads(/*closed=*/false),
            (Texts{"1 (-0.866, -0.5)-(0, 0)", "1 (0, 0)-(4, 0)", "1 (4, 0)-(4.866, 0.5)"}));
}

TEST_F(LeadMoves, LeadsCarryTheDepthFeedAndToolOfThePlacement) {
  addProfileAt(0.25F);
  store.currentpathgroup = 4;
  store.selectedtool = 2;
  store.toolradius[2] = 0.25F;
  addPath({.type = kLine, .x0 = 0, .y0 = 0, .x1 = 4, .y1 = 0});
  addLeadInOut(cam, {false, 1, 1, -0.5F, 10});
  EXPECT_EQ(pathTexts(store),
            (Texts{"1 (-0.866, -0.5)-(0, 0) @402 z -0.5 f 10", "1 (0, 0)-(4, 0) @100 z 0",
                   "1 (4, 0)-(4.866, -0.5) @402 z -0.5 f 10"}));
}

TEST_F(LeadMoves, AClosedPathThatBeginsWithALineBeginsAndEndsAtItsMidpoint) {
  addLine(0, 0, 2, 0);
  addLine(2, 0, 2, 2);
  addLine(2, 2, 0, 2);
  addLine(0, 2, 0, 0);
  addPath({.type = kLine, .x0 = 0.25F, .y0 = 0.25F, .x1 = 1.75F, .y1 = 0.25F});
  addPath({.type = kLine, .x0 = 1.75F, .y0 = 0.25F, .x1 = 1.75F, .y1 = 1.75F});
  addPath({.type = kLine, .x0 = 1.75F, .y0 = 1.75F, .x1 = 0.25F, .y1 = 1.75F});
  addPath({.type = kLine, .x0 = 0.25F, .y0 = 1.75F, .x1 = 0.25F, .y1 = 0.25F});
  EXPECT_EQ(
      leads(/*closed=*/true),
      (Texts{"1 (0.134, 0.75)-(1, 0.25)", "1 (1, 0.25)-(1.75, 0.25)", "1 (1.75, 0.25)-(1.75, 1.75)",
             "1 (1.75, 1.75)-(0.25, 1.75)", "1 (0.25, 1.75)-(0.25, 0.25)",
             "1 (0.25, 0.25)-(1, 0.25)", "1 (1, 0.25)-(1.866, 0.75)"}));
}

// A full circle is entered where it begins.
TEST_F(LeadMoves, AClosedPathThatBeginsWithAnArcStaysWhole) {
  add({.type = kClockwiseArc, .x0 = 2, .x1 = 2});
  addPath({.type = kClockwiseArc, .x0 = 2.25F, .x1 = 2.25F});
  EXPECT_EQ(leads(/*closed=*/true),
            (Texts{"1 (2.75, 0.866)-(2.25, 0)", "2 (2.25, 0)-(2.25, 0) c (0, 0)",
                   "1 (2.25, 0)-(2.75, -0.866)"}));
}

TEST_F(LeadMoves, ACounterClockwiseCircleIsLedFromItsInside) {
  add({.type = kClockwiseArc, .x0 = 2, .x1 = 2});
  addPath({.type = kCounterClockwiseArc, .x0 = 1.75F, .x1 = 1.75F});
  EXPECT_EQ(leads(/*closed=*/true),
            (Texts{"1 (1.25, -0.866)-(1.75, 0)", "3 (1.75, 0)-(1.75, 0) c (0, 0)",
                   "1 (1.75, 0)-(1.25, 0.866)"}));
}

TEST_F(LeadMoves, TheEndOfAnArcHasATangentOfItsOwn) {
  add({.type = kCounterClockwiseArc, .x0 = 2, .y0 = 0, .x1 = 0, .y1 = 2});
  addPath({.type = kCounterClockwiseArc, .x0 = 2.25F, .y0 = 0, .x1 = 0, .y1 = 2.25F});
  EXPECT_EQ(leads(/*closed=*/false),
            (Texts{"1 (2.75, -0.866)-(2.25, 0)", "3 (2.25, 0)-(0, 2.25) c (0, 0)",
                   "1 (0, 2.25)-(-0.866, 2.75)"}));
}

TEST_F(LeadMoves, ArcLeadsBulgeTheShorterWayRound) {
  store.cfg_lead_in_arc = true;
  addProfileAt(0.25F);
  addPath({.type = kLine, .x0 = 0, .y0 = 0, .x1 = 4, .y1 = 0});
  EXPECT_EQ(leads(/*closed=*/false),
            (Texts{"2 (-0.866, -0.5)-(0, 0) c (0.05, -1.0865)", "1 (0, 0)-(4, 0)",
                   "2 (4, 0)-(4.866, -0.5) c (3.9501, -1.0865)"}));
}

// Neither way round is the shorter one.
TEST_F(LeadMoves, ArcLeadsOfHalfATurnRunCounterClockwise) {
  store.cfg_lead_in_arc = true;
  store.cfg_lead_in_angle = 180;
  addProfileAt(2.25F);
  addPath({.type = kLine, .x0 = 0, .y0 = 2, .x1 = 4, .y1 = 2});
  EXPECT_EQ(leads(/*closed=*/false),
            (Texts{"3 (1, 2)-(0, 2) c (0.5, 2)", "1 (0, 2)-(4, 2)", "3 (4, 2)-(3, 2) c (3.5, 2)"}));
}

TEST_F(LeadMoves, ArcLeadsOnTheOtherSideAreMirrored) {
  store.cfg_lead_in_arc = true;
  addProfileAt(-0.25F);
  addPath({.type = kLine, .x0 = 0, .y0 = 0, .x1 = 4, .y1 = 0});
  EXPECT_EQ(leads(/*closed=*/false),
            (Texts{"3 (-0.866, 0.5)-(0, 0) c (0.05, 1.0865)", "1 (0, 0)-(4, 0)",
                   "3 (4, 0)-(4.866, 0.5) c (3.9501, 1.0865)"}));
}

TEST_F(LeadMoves, AnArcLeadAloneNeedsNoLineLead) {
  store.cfg_lead_in_path = false;
  store.cfg_lead_in_arc = true;
  addProfileAt(0.25F);
  addPath({.type = kLine, .x0 = 0, .y0 = 0, .x1 = 4, .y1 = 0});
  const Texts rows = leads(/*closed=*/false);
  ASSERT_EQ(rows.size(), 3U);
  EXPECT_EQ(rows.front().front(), '2');
}

// Both ends of an arc lead lie on its circle.
TEST_F(LeadMoves, TheCenterOfAnArcLeadIsAsFarFromBothEnds) {
  store.cfg_lead_in_arc = true;
  store.cfg_lead_in_angle = 75;
  addProfileAt(0.25F);
  addPath({.type = kLine, .x0 = 0, .y0 = 0, .x1 = 4, .y1 = 1});
  leads(/*closed=*/false);
  for (const int ps : {1, 3}) {
    const PathRow lead = pathRow(store, ps);
    EXPECT_NEAR(distance({lead.x0, lead.y0}, {lead.xc, lead.yc}),
                distance({lead.x1, lead.y1}, {lead.xc, lead.yc}), 1e-5)
        << ps;
  }
}

TEST_F(LeadMoves, WithoutAProfileTheFreeSideIsTheLeftOne) {
  addPath({.type = kLine, .x0 = 0, .y0 = 0, .x1 = 4, .y1 = 0});
  EXPECT_EQ(leads(/*closed=*/false).front(), "1 (-0.866, 0.5)-(0, 0)");
}

}  // namespace
}  // namespace tess
