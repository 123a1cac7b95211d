// The moving part of a lathe program: its motions, and the lines that come of them.
#include "cnc/lathe_motions.h"

#include <string>

#include "gmock/gmock.h"
#include "gtest/gtest.h"

#include "core/drawing_store.h"
#include "tests/cnc/cnc_fixture.h"

namespace tess::testing {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::Not;

class LatheMotionsTest : public CncFixture {
 protected:
  std::vector<std::string> moves() { return CncFixture::moves(CncMode::Lathe); }
};

const std::string kBar(75, '-');

TEST_F(LatheMotionsTest, XWordIsPathYAndZWordIsPathX) {
  place(lineRow({0.125F, 1}, {2, 1.5F}, -7, 10));
  EXPECT_THAT(body(CncMode::Lathe),
              ElementsAre("G70", "G90", "G75", "", kBar, "     << Tool #1 code >>", kBar, "M06 T1",
                          "G00 X1.0 Z0.125", "G01 X1.5 Z2.0 F100", ""));
}

TEST_F(LatheMotionsTest, LineNeverHasAYWord) {
  definition.forceXYZ = true;
  place(lineRow({1, 1}, {2, 1.5F}, 0, 10));
  place(arcRow(kClockwiseArc, {2, 1.5F}, {3, 2.5F}, {3, 1.5F}, 0, 10));
  place(lineRow({5, 5}, {4, 4}, kLatheRapidZ, 10));
  EXPECT_THAT(moves(), Not(Contains(HasSubstr("Y"))));
}

TEST_F(LatheMotionsTest, CycleCarriesAYWordOfZeroAndADwellButNoIncrement) {
  place(cycleRow(84, {1, 2}, 0.125F, 0.5F, -0.75F, 6));
  EXPECT_THAT(moves(), ElementsAre("G00 X2.0 Z1.0", "G84 X2.0 Y0.0 F60 D0.5"));
}

TEST_F(LatheMotionsTest, CycleSeventyNineNeedsNoMoveOfItsOwn) {
  place(cycleRow(79, {1, 2}, 0.125F, 0.5F, -0.75F, 6));
  EXPECT_THAT(moves(), ElementsAre("G00 X2.0 Z1.0", "G79 X2.0 Y0.0 F60"));
}

TEST_F(LatheMotionsTest, RowWithTheRapidMarkComesOutAsRapid) {
  place(lineRow({1, 1}, {2, 0.5F}, kLatheRapidZ, 10));
  EXPECT_THAT(moves(), ElementsAre("G00 X1.0 Z1.0", "G00 X0.5 Z2.0"));
}

TEST_F(LatheMotionsTest, DepthNearTheRapidMarkIsNoMark) {
  place(lineRow({1, 1}, {2, 0.5F}, -98.999F, 10));
  EXPECT_THAT(moves(), ElementsAre("G00 X1.0 Z1.0", "G01 X0.5 Z2.0 F100"));
}

TEST_F(LatheMotionsTest, RetractStraightAwayFromTheAxisIsRapid) {
  place(lineRow({1, 1}, {1, 2}, 0, 10));
  EXPECT_THAT(moves(), ElementsAre("G00 X1.0 Z1.0", "G00 X2.0"));
}

TEST_F(LatheMotionsTest, MoveStraightTowardTheAxisIsACut) {
  place(lineRow({1, 2}, {1, 1}, 0, 10));
  EXPECT_THAT(moves(), ElementsAre("G00 X2.0 Z1.0", "G01 X1.0 F100"));
}

TEST_F(LatheMotionsTest, RetractIsJudgedFromWhereTheLastRowEnded) {
  place(lineRow({1, 1}, {2, 1}, 0, 10));
  place(lineRow({5, 1}, {2, 3}, 0, 10));
  EXPECT_THAT(moves(), ElementsAre("G00 X1.0 Z1.0", "G01 Z2.0 F100", "G00 Z5.0", "G00 X3.0 Z2.0"));
}

TEST_F(LatheMotionsTest, RapidRowGoesThereAtOnce) {
  place({.type = kRapid, .x0 = 1, .y0 = 1, .x1 = 4, .y1 = 3});
  EXPECT_THAT(moves(), ElementsAre("G00 X1.0 Z1.0", "G00 X3.0 Z4.0"));
}

TEST_F(LatheMotionsTest, ArcShowsItsCenterByIAndK) {
  place(arcRow(kClockwiseArc, {2, 1.5F}, {3, 2.5F}, {3, 1.25F}, 0, 10));
  EXPECT_THAT(moves(), ElementsAre("G00 X1.5 Z2.0", "G02 X2.5 Z3.0 I-0.25 K1.0 F100"));
}

TEST_F(LatheMotionsTest, AbsoluteCenterIsShownByIAndK) {
  definition.absCenter = true;
  place(arcRow(kCounterClockwiseArc, {2, 1.5F}, {3, 2.5F}, {3, 1.5F}, 0, 10));
  EXPECT_THAT(moves(), ElementsAre("G00 X1.5 Z2.0", "G03 X2.5 Z3.0 K3.0 F100"));
}

TEST_F(LatheMotionsTest, RadiusWordTakesThePlaceOfIAndK) {
  store.userparamforarcs = true;
  place(arcRow(kCounterClockwiseArc, {3, 1}, {2, 0}, {2, 1}, 0, 10));
  EXPECT_THAT(moves(), ElementsAre("G00 X1.0 Z3.0", "G03 X0.0 Z2.0 R-1.0 F100"));
}

TEST_F(LatheMotionsTest, ArcAwayFromTheLastPlaceIsReachedByOneRapid) {
  place(lineRow({1, 1}, {2, 1}, 0, 10));
  place(arcRow(kClockwiseArc, {4, 1}, {5, 2}, {5, 1}, 0, 10));
  EXPECT_THAT(moves(),
              ElementsAre("G00 X1.0 Z1.0", "G01 Z2.0 F100", "G00 Z4.0", "G02 X2.0 Z5.0 K1.0"));
}

TEST_F(LatheMotionsTest, ToolChangeMakesNoMove) {
  place(lineRow({1, 1}, {2, 1}, 0, 10), 1);
  place(lineRow({2, 1}, {3, 1}, 0, 10), 2);
  EXPECT_THAT(body(CncMode::Lathe),
              ElementsAre("G70", "G90", "G75", "", kBar, "     << Tool #1 code >>", kBar, "M06 T1",
                          "G00 X1.0 Z1.0", "G01 Z2.0 F100",                             //
                          kBar, "     << Tool #2 code >>", kBar, "M06 T2", "G01 Z3.0",  //
                          kBar, "     << Reset to first tool used.  Tool #1 >>", kBar, "M05",
                          "M06 T1", "", ""));
}

// Only a mill forces the words of its first place: what a lathe program leaves out because the one
// before ended there is left out.
TEST_F(LatheMotionsTest, SecondRunLeavesOutAFirstPlaceWhereTheLastEnded) {
  place(lineRow({1, 1}, {2, 0.5F}, 0, 10));
  place(lineRow({2, 0.5F}, {1, 1}, 0, 10));
  EXPECT_EQ(moves().front(), "G00 X1.0 Z1.0");
  EXPECT_EQ(moves().front(), "G01 X0.5 Z2.0 F100");
}

}  // namespace
}  // namespace tess::testing
