// The moving part of a mill program: its motions, and the lines that come of them.
#include "cnc/mill_motions.h"

#include <limits>
#include <string>

#include "gmock/gmock.h"
#include "gtest/gtest.h"

#include "cnc/program_motions.h"
#include "core/drawing_store.h"
#include "tests/cnc/cnc_fixture.h"
#include "tests/cnc/recorded_motions.h"
#include "tests/support/failure_of.h"

namespace tess::testing {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::StartsWith;

using MillMotionsTest = CncFixture;

const std::string kBar(75, '-');

TEST_F(MillMotionsTest, OneRapidRowStillGivesPositionsAndTheWholeFrame) {
  place({.type = kRapid, .x0 = 1, .y0 = 1, .x1 = 2, .y1 = 1, .z = 0.25F, .feed = 9});
  EXPECT_THAT(body(),
              ElementsAre("G70", "G90", "G75", "", kBar, "     << Tool #1 code >>", kBar, "M06 T1",
                          "G00 Z0.5", "G00 X1.0 Y1.0", "G01 Z0.25 F30", "G00 X2.0", ""));
}

TEST_F(MillMotionsTest, MetricProgramOpensWithItsUnitsWord) {
  useMetric();
  place(lineRow({0, 0}, {1, 0}, -1, 10));
  EXPECT_EQ(body()[0], "G71");
}

TEST_F(MillMotionsTest, AutoCommentsAnnounceTheFirstMove) {
  store.autocomments = 1;
  store.toolspindlespeed[0] = 1200;
  place(lineRow({0, 0}, {1, 0}, -0.25F, 10));
  EXPECT_THAT(body(),
              ElementsAre("G70", "G90", "G75", "", kBar, "     << Tool #1 code >>", kBar, "M06 T1",
                          "M03 S1200", "", "-- Begin Machine Movement Here.", "G00 Z0.5",
                          "G00 X0.0 Y0.0", "G01 Z-0.25 F30", "G01 X1.0 F100", ""));
}

TEST_F(MillMotionsTest, PathThatStartsWithACycleSkipsTheFirstPosition) {
  place(cycleRow(81, {1, 2}, 0, 0, -0.5F, 4));
  EXPECT_THAT(moves(), ElementsAre("G00 Z0.5", "G81 X1.0 Y2.0 F40"));
}

TEST_F(MillMotionsTest, TwoToolsAreChangedAndTheProgramReturnsToTheFirst) {
  store.toolspindlespeed[1] = 850.5F;
  place(lineRow({0, 0}, {1, 0}, -0.25F, 10), 1);
  place(lineRow({2, 0}, {3, 0}, -0.125F, 10), 2);
  EXPECT_THAT(body(),
              ElementsAre("G70", "G90", "G75", "", kBar, "     << Tool #1 code >>", kBar, "M06 T1",
                          "G00 Z0.5", "G00 X0.0 Y0.0", "G01 Z-0.25 F30", "G01 X1.0 F100",  //
                          "G00 Z0.5", kBar, "     << Tool #2 code >>", kBar, "M06 T2", "M03 S850.5",
                          "G00 X2.0", "G00 Z-0.125", "G01 X3.0",  //
                          kBar, "     << Reset to first tool used.  Tool #1 >>", kBar, "M05",
                          "M06 T1", "", ""));
}

TEST_F(MillMotionsTest, ReturnToTheFirstToolWritesNoSpindleWord) {
  store.toolspindlespeed[0] = 1000;
  place(lineRow({0, 0}, {1, 0}, -0.25F, 10), 1);
  place(lineRow({2, 0}, {3, 0}, -0.25F, 10), 2);
  const auto lines = body();
  EXPECT_EQ(std::count(lines.begin(), lines.end(), "M03 S1000"), 1);
}

TEST_F(MillMotionsTest, SameToolAtBothEndsNeedsNoReturn) {
  place(lineRow({0, 0}, {1, 0}, -0.25F, 10), 1);
  place(lineRow({1, 0}, {2, 0}, -0.25F, 10), 2);
  place(lineRow({2, 0}, {3, 0}, -0.25F, 10), 1);
  EXPECT_THAT(body(), Not(Contains("M05")));
  const auto lines = body();
  EXPECT_EQ(std::count(lines.begin(), lines.end(), "M06 T1"), 2);
}

TEST_F(MillMotionsTest, SpindleSpeedOfZeroGivesNoSpindleWord) {
  store.toolspindlespeed[0] = 0;
  place(lineRow({0, 0}, {1, 0}, -0.25F, 10));
  EXPECT_THAT(body(), Not(Contains(StartsWith("M03"))));
}

TEST_F(MillMotionsTest, FeedOfTwelveAndAHalfGivesOneHundredTwentyFiveOnce) {
  place(lineRow({0, 0}, {1, 0}, -0.25F, 12.5F));
  place(lineRow({1, 0}, {2, 0}, -0.25F, 12.5F));
  place({.type = kRapid, .x0 = 2, .x1 = 3, .z = -0.25F, .feed = 99});
  EXPECT_THAT(moves(), ElementsAre("G00 Z0.5", "G00 X0.0 Y0.0", "G01 Z-0.25 F30", "G01 X1.0 F125",
                                   "G01 X2.0", "G00 X3.0"));
}

TEST_F(MillMotionsTest, FeedBetweenTheTenthsIsRounded) {
  place(lineRow({0, 0}, {1, 0}, -0.25F, 12.54F));
  EXPECT_THAT(moves(), Contains("G01 X1.0 F125"));
}

TEST_F(MillMotionsTest, SecondOfTwoLikeRowsHasOnlyTheWordsThatChanged) {
  place(lineRow({0, 0}, {1, 1}, -0.25F, 10));
  place(lineRow({1, 1}, {1, 3}, -0.25F, 10));
  EXPECT_THAT(moves(), ElementsAre("G00 Z0.5", "G00 X0.0 Y0.0", "G01 Z-0.25 F30",
                                   "G01 X1.0 Y1.0 F100", "G01 Y3.0"));
}

TEST_F(MillMotionsTest, GapBetweenRowsIsCrossedAtTheSafeHeight) {
  place(lineRow({0, 0}, {1, 0}, -0.25F, 10));
  place(lineRow({2, 1}, {3, 1}, -0.25F, 10));
  EXPECT_THAT(moves(), ElementsAre("G00 Z0.5", "G00 X0.0 Y0.0", "G01 Z-0.25 F30", "G01 X1.0 F100",
                                   "G00 Z0.5", "G00 X2.0 Y1.0", "G01 Z-0.25 F30", "G01 X3.0 F100"));
}

TEST_F(MillMotionsTest, GapWithinTheToleranceIsNoGap) {
  place(lineRow({0, 0}, {1, 0}, -0.25F, 10));
  place(lineRow({1.0005F, 0}, {2, 0}, -0.25F, 10));
  EXPECT_THAT(moves(), ElementsAre("G00 Z0.5", "G00 X0.0 Y0.0", "G01 Z-0.25 F30", "G01 X1.0 F100",
                                   "G01 X2.0"));
}

TEST_F(MillMotionsTest, DeeperRowAtTheSamePlacePlungesStraightDown) {
  place(lineRow({0, 0}, {1, 0}, -0.25F, 10));
  place(lineRow({1, 0}, {0, 0}, -0.5F, 10));
  EXPECT_THAT(moves(), ElementsAre("G00 Z0.5", "G00 X0.0 Y0.0", "G01 Z-0.25 F30", "G01 X1.0 F100",
                                   "G01 Z-0.5 F30", "G01 X0.0 F100"));
}

TEST_F(MillMotionsTest, CycleAfterAToolChangeIsReachedByTheCycleItself) {
  place(lineRow({0, 0}, {1, 0}, -0.25F, 10), 1);
  place(cycleRow(83, {2, 2}, 0.125F, 5, -0.75F, 6), 3);
  EXPECT_THAT(moves(), ElementsAre("G00 Z0.5", "G00 X0.0 Y0.0", "G01 Z-0.25 F30", "G01 X1.0 F100",
                                   "G00 Z0.5", "G00 Z0.5", "G83 X2.0 Y2.0 Z0.75 K0.125 F60"));
}

TEST_F(MillMotionsTest, EachCycleCarriesItsOwnWords) {
  struct Case {
    int g;
    const char* line;
  };
  for (const Case& c : {Case{81, "G81 X1.0 Y2.0 Z0.75 F60"},
                        {82, "G82 X1.0 Y2.0 Z0.75 F60 D0.5"},
                        {83, "G83 X1.0 Y2.0 Z0.75 K0.125 F60"},
                        {84, "G84 X1.0 Y2.0 Z0.75 K0.125 F60 D0.5"},
                        {85, "G85 X1.0 Y2.0 Z0.75 F60 D0.5"},
                        {86, "G86 X1.0 Y2.0 Z0.75 K0.125 F60 D0.5"},
                        {87, "G87 X1.0 Y2.0 Z0.75 K0.125 F60"},
                        {88, "G88 X1.0 Y2.0 Z0.75 K0.125 F60 D0.5"},
                        {89, "G89 X1.0 Y2.0 Z0.75 F60 D0.5"}}) {
    store.NumPathSegments = 0;
    place(cycleRow(c.g, {1, 2}, 0.125F, 0.5F, -0.75F, 6));
    EXPECT_THAT(moves(), ElementsAre("G00 Z0.5", c.line)) << c.g;
  }
}

TEST_F(MillMotionsTest, CycleSeventyNineFirstGoesToTheStartAtTheSafeHeight) {
  PathRow row = cycleRow(79, {1, 2}, 0.125F, 0.5F, -0.75F, 6);
  row.x0 = 3;
  place(row);
  EXPECT_THAT(moves(), ElementsAre("G00 Z0.5", "G00 X3.0 Y2.0", "G79 X1.0 Y2.0 Z0.75 K0.125 F60"));
}

TEST_F(MillMotionsTest, CycleSeventyNineNamesBothAxesOfItsStartEvenWhenItIsThere) {
  place(cycleRow(81, {3, 2}, 0, 0, -0.75F, 6));
  PathRow row = cycleRow(79, {1, 2}, 0.125F, 0.5F, -0.75F, 6);
  row.x0 = 3;
  place(row);
  EXPECT_THAT(moves(), ElementsAre("G00 Z0.5", "G81 X3.0 Y2.0 Z0.75 F60", "G00 Z0.5",
                                   "G00 X3.0 Y2.0", "G79 X1.0 Y2.0 Z0.75 K0.125"));
}

TEST_F(MillMotionsTest, CycleWordIsTheLastTwoDigitsOfTheKind) {
  place(cycleRow(21, {1, 2}, 0, 0, -0.75F, 6));
  place(cycleRow(183, {1, 2}, 0, 0, -0.5F, 6));
  place(cycleRow(105, {1, 2}, 0, 0, -0.25F, 6));
  EXPECT_THAT(moves(), ElementsAre("G00 Z0.5", "G21 X1.0 Y2.0 Z0.75 F60", "G00 Z0.5",
                                   "G83 X1.0 Y2.0", "G00 Z0.5", "G05 X1.0 Y2.0 Z0.25"));
}

TEST_F(MillMotionsTest, KindsFromFourToTwentyMakeNoMoveOfTheirOwn) {
  place(lineRow({0, 0}, {1, 0}, -0.25F, 10));
  PathRow unknown = lineRow({1, 0}, {5, 5}, -0.25F, 10);
  for (const int type : {4, 19, -1}) {
    unknown.type = type;
    place(unknown);
  }
  unknown.type = 20;
  place(unknown);
  EXPECT_THAT(moves(), ElementsAre("G00 Z0.5", "G00 X0.0 Y0.0", "G01 Z-0.25 F30", "G01 X1.0 F100",
                                   "G00 Z0.5"));
}

class MillArcTest : public CncFixture {
 protected:
  // The words of the one arc placed.
  std::string arc() {
    const auto lines = moves();
    return lines.empty() ? "" : lines.back();
  }
};

TEST_F(MillArcTest, OffsetsFromTheStartShowTheCenter) {
  place(arcRow(kCounterClockwiseArc, {3, 1}, {2, 2}, {2, 1}, -0.25F, 10));
  EXPECT_EQ(arc(), "G03 X2.0 Y2.0 I-1.0 F100");
}

TEST_F(MillArcTest, AbsoluteCenterAboveTheStartHasNoIWord) {
  definition.absCenter = true;
  place(arcRow(kCounterClockwiseArc, {2, 0}, {3, 1}, {2, 1}, -0.25F, 10));
  EXPECT_EQ(arc(), "G03 X3.0 Y1.0 J1.0 F100");
}

TEST_F(MillArcTest, AbsoluteCenterBesideTheStartHasNoJWord) {
  definition.absCenter = true;
  place(arcRow(kCounterClockwiseArc, {3, 1}, {2, 2}, {2, 1}, -0.25F, 10));
  EXPECT_EQ(arc(), "G03 X2.0 Y2.0 I2.0 F100");
}

TEST_F(MillArcTest, ThreeQuartersWithARadiusWordAreNegative) {
  store.userparamforarcs = true;
  place(arcRow(kCounterClockwiseArc, {3, 1}, {2, 0}, {2, 1}, -0.25F, 10));
  EXPECT_EQ(arc(), "G03 X2.0 Y0.0 R-1.0 F100");
}

TEST_F(MillArcTest, FullCircleShowsItsCenterEvenWithRadiusWords) {
  store.userparamforarcs = true;
  place(arcRow(kClockwiseArc, {3, 2}, {3, 2}, {2, 1}, -0.25F, 10));
  EXPECT_EQ(arc(), "G02 I-1.0 J-1.0 F100");
}

TEST_F(MillArcTest, RadiusWordsTakeThePlaceOfAbsoluteCenters) {
  store.userparamforarcs = true;
  definition.absCenter = true;
  place(arcRow(kClockwiseArc, {3, 1}, {2, 0}, {2, 1}, -0.25F, 10));
  EXPECT_EQ(arc(), "G02 X2.0 Y0.0 R1.0 F100");
}

TEST_F(MillArcTest, RadiusBelowTheToleranceShowsTheCenter) {
  store.userparamforarcs = true;
  store.cfg_tolerance = 0.125F;
  place(arcRow(kClockwiseArc, {0, 0}, {0.125F, 0.1875F}, {0.0625F, 0.0625F}, -0.25F, 10));
  EXPECT_EQ(arc(), "G02 X0.125 Y0.1875 I0.0625 J0.0625 F100");
}

// Radius words of half turns stay positive in every quadrant: only beyond 180 degrees is the long
// way meant.
TEST_F(MillArcTest, HalfTurnsAreNeverTheLongWay) {
  store.userparamforarcs = true;
  for (const Point offset : {Point{1, 0}, Point{0, 1}, Point{-1, 0}, Point{0, -1}}) {
    for (const int type : {kClockwiseArc, kCounterClockwiseArc}) {
      store.NumPathSegments = 0;
      place(arcRow(type, {2 + offset.x, 1 + offset.y}, {2 - offset.x, 1 - offset.y}, {2, 1}, -0.25F,
                   10));
      EXPECT_THAT(arc(), ::testing::HasSubstr(" R1.0 ")) << type << " " << offset.x << offset.y;
    }
  }
}

TEST_F(MillArcTest, NegativeToleranceLeavesNoTwoPointsTheSameAndTravelsAgain) {
  store.cfg_tolerance = -1;
  place(arcRow(kClockwiseArc, {1, 0}, {0, -1}, {0, 0}, -0.25F, 10));
  EXPECT_THAT(moves(), ElementsAre("G00 Z0.5", "G00 X1.0 Y0.0", "G01 Z-0.25 F30",  // first place
                                   "G00 Z0.5", "G01 Z-0.25",                       // approach
                                   "G00 Z0.5", "G00 Z-0.25",                       // the arc's own
                                   "G02 X0.0 Y-1.0 I-1.0 F100"));
}

TEST_F(MillMotionsTest, SecondRunStartsWithTheLastPlaceAndForcesTheFirst) {
  place(lineRow({0, 0}, {1, 0}, -0.25F, 10));
  const auto first = moves();
  EXPECT_EQ(state.lastmove.x, 1);
  EXPECT_EQ(moves(), first);
}

TEST_F(MillMotionsTest, ValueThatIsNoNumberNamesItsRow) {
  place(lineRow({0, 0}, {1, 0}, -0.25F, 10));
  place(lineRow({1, 0}, {std::numeric_limits<float>::infinity(), 0}, -0.25F, 10));
  const RuntimeFailure failure = failureOf([this] { program(); });
  EXPECT_EQ(failure.number(), FailureNumber::InvalidProcedureCall);
  EXPECT_EQ(failure.description(), "Invalid procedure call or argument");
  EXPECT_EQ(failure.source(), "path row 2: a value that is not a number");
}

TEST_F(MillMotionsTest, EveryValueThatIsNoNumberIsRefusedWhateverItsColumn) {
  const float nan = std::numeric_limits<float>::quiet_NaN();
  const float infinite = std::numeric_limits<float>::infinity();
  for (const bool radius : {false, true}) {
    store.userparamforarcs = radius;
    for (const float bad : {nan, infinite, -infinite}) {
      for (float PathRow::*field : {&PathRow::x0, &PathRow::y0, &PathRow::x1, &PathRow::y1,
                                    &PathRow::xc, &PathRow::yc, &PathRow::z}) {
        store.NumPathSegments = 0;
        PathRow row = arcRow(kClockwiseArc, {1, 0}, {0, -1}, {0, 0}, -0.25F, 10);
        row.*field = bad;
        place(row);
        const RuntimeFailure failure = failureOf([this] { program(); });
        EXPECT_EQ(failure.number(), FailureNumber::InvalidProcedureCall);
        EXPECT_THAT(failure.source(), StartsWith("path row 1"));
      }
    }
  }
}

// A definition may say anything about its formats and texts.
TEST_F(MillMotionsTest, AProgramWithoutBoundsIsRefused) {
  const std::string refusal =
      "The program is longer than 64 MB: a number format or the comment text of the post-processor "
      "definition is far too long";
  for (int row = 0; row < 400; ++row) {
    place(lineRow({0, 0}, {static_cast<float>(row % 7), 1}, -0.25F * static_cast<float>(row % 3),
                  10));
    store.pscode[store.NumPathSegments] = row % 2;
  }
  EXPECT_LT(program().size(), 100000U);
  const std::string format = session.formats.cncfmt;
  session.formats.cncfmt = "0." + std::string(1000000, '0');
  const RuntimeFailure ofFormat = failureOf([this] { program(); });
  EXPECT_EQ(ofFormat.number(), FailureNumber::Overflow);
  EXPECT_EQ(ofFormat.description(), refusal);
  EXPECT_THAT(ofFormat.source(), StartsWith("path row "));
  session.formats.cncfmt = format;
  definition.cnccomment = std::string(1000000, ';');
  EXPECT_EQ(failureOf([this] { program(); }).description(), refusal);
}

TEST_F(MillMotionsTest, RowWithoutAToolNamesItself) {
  place(lineRow({0, 0}, {1, 0}, -0.25F, 10));
  PathRow row = lineRow({1, 0}, {2, 0}, -0.25F, 10);
  place(row);
  store.pscode[2] = -5;
  RecordedMotions motions;
  const RuntimeFailure failure = failureOf([&] { tellMotions(store, CncMode::Mill, motions); });
  EXPECT_EQ(failure.number(), FailureNumber::SubscriptOutOfRange);
  EXPECT_EQ(failure.source(), "path row 2");
}

}  // namespace
}  // namespace tess::testing
