// What the path rows of a drawing amount to.
#include "cnc/path_report.h"

#include "gtest/gtest.h"

#include "core/drawing_store.h"
#include "geometry/float_constants.h"
#include "tests/support/failure_of.h"

namespace tess {
namespace {

PathRow line(float length, float feed, int code) {
  return {.type = kLine, .x1 = length, .z = -1, .feed = feed, .code = code};
}

TEST(PathReport, OfNoRowsIsNothing) {
  const DrawingStore store;
  const PathReport report = reportPaths(store);
  EXPECT_EQ(report.rows, 0);
  EXPECT_EQ(report.length, 0);
  EXPECT_EQ(report.minutes, 0);
  EXPECT_EQ(report.programMinutes, 0);
  EXPECT_EQ(report.machineMinutes, 0);
  EXPECT_TRUE(report.tools.empty());
}

TEST(PathReport, SharesLengthAndTimeAmongTheTools) {
  DrawingStore store;
  for (const PathRow& row : {line(6, 12, 102), line(3, 2, 201), line(4, 8, 302)}) {
    addPathSegment(store, row);
  }
  const PathReport report = reportPaths(store);
  ASSERT_EQ(report.tools.size(), 2U);
  EXPECT_EQ(report.tools[0].tool, 2);
  EXPECT_EQ(report.tools[0].rows, 2);
  EXPECT_DOUBLE_EQ(report.tools[0].length, 10);
  EXPECT_DOUBLE_EQ(report.tools[0].minutes, 1);
  EXPECT_EQ(report.tools[1].tool, 1);
  EXPECT_DOUBLE_EQ(report.tools[1].minutes, 1.5);
  EXPECT_EQ(report.rows, 3);
  EXPECT_DOUBLE_EQ(report.length, 13);
  EXPECT_DOUBLE_EQ(report.minutes, 2.5);
}

TEST(PathReport, MeasuresArcsAlongTheirSweep) {
  DrawingStore store;
  const PathRow quarter{
      .type = kCounterClockwiseArc, .x0 = 2, .y1 = 2, .z = -1, .feed = 1, .code = 100};
  PathRow threeQuarters = quarter;
  threeQuarters.type = kClockwiseArc;
  PathRow circle{.type = kClockwiseArc, .x0 = 2, .x1 = 2, .z = -1, .feed = 1, .code = 200};
  const double expected[] = {kPi, 3 * kPi, 4 * kPi};
  int row = 0;
  for (const PathRow& arc : {quarter, threeQuarters, circle}) {
    store.NumPathSegments = 0;
    addPathSegment(store, arc);
    EXPECT_NEAR(reportPaths(store).length, expected[row++], 1e-5);
  }
}

TEST(PathReport, RapidsHaveNoLengthAndCyclesTheirDepth) {
  DrawingStore store;
  PathRow rapid = line(5, 0, 100);
  rapid.type = kRapid;
  PathRow latheRapid = line(5, 10, 100);
  latheRapid.z = kLatheRapidZ;
  const PathRow drilled{.type = 81, .x0 = 1, .x1 = 1, .z = 0.5F, .feed = 5, .code = 100};
  for (const PathRow& row : {rapid, latheRapid, drilled}) addPathSegment(store, row);
  const PathReport report = reportPaths(store);
  EXPECT_EQ(report.rows, 3);
  EXPECT_DOUBLE_EQ(report.length, 0.5);
  EXPECT_DOUBLE_EQ(report.minutes, 0.1);
}

// A mill goes along a row that is marked as a rapid of the lathe style at its feed, and down to it;
// neither is a cut.
TEST(PathReport, CountsTheCutsAloneOfAProgramWithAllKindsOfMoves) {
  DrawingStore store;
  store.cfg_z_plunge_rate = 1;
  store.zstartpos = 5;
  PathRow latheRapid = line(5, 10, 100);
  latheRapid.z = kLatheRapidZ;
  PathRow noKind = line(9, 10, 201);
  noKind.type = 4;
  for (const PathRow& row : {line(6, 12, 100), latheRapid, noKind, line(6, 12, 100)}) {
    addPathSegment(store, row);
  }
  const PathReport report = reportPaths(store);
  EXPECT_EQ(report.rows, 4);
  EXPECT_DOUBLE_EQ(report.length, 12);
  EXPECT_DOUBLE_EQ(report.minutes, 1);
  ASSERT_EQ(report.tools.size(), 2U);
  EXPECT_EQ(report.tools[0].rows, 3);
  EXPECT_EQ(report.tools[1].rows, 1);
  EXPECT_DOUBLE_EQ(report.tools[1].length, 0);
}

TEST(PathReport, ARowWithoutAToolIsNamed) {
  DrawingStore store;
  for (const PathRow& row : {line(6, 12, 100), line(6, 12, -5)}) addPathSegment(store, row);
  const RuntimeFailure failure = testing::failureOf([&store] { reportPaths(store); });
  EXPECT_EQ(failure.number(), FailureNumber::SubscriptOutOfRange);
  EXPECT_EQ(failure.source(), "path row 2");
}

// Without a feed the time is not known, and must not be endless.
TEST(PathReport, RowsWithoutAFeedTakeNoTime) {
  DrawingStore store;
  addPathSegment(store, line(5, 0, 100));
  EXPECT_EQ(reportPaths(store).minutes, 0);
}

// --- Times of the program

struct TimedStore : DrawingStore {
  TimedStore() {
    units = "I";
    zstartpos = 0.5F;
    cfg_z_plunge_rate = 2;
  }
};

PathRow lineFrom(float x, float y, float length, float z, int code = 100) {
  return {
      .type = kLine, .x0 = x, .y0 = y, .x1 = x + length, .y1 = y, .z = z, .feed = 12, .code = code};
}

// Across 5 and down 1.5, then 6 along.
TEST(PathReport, TimeOfTheProgramCountsRapidsAndPlunges) {
  TimedStore store;
  addPathSegment(store, lineFrom(3, 4, 6, -1));
  PathReport report = reportPaths(store);
  EXPECT_DOUBLE_EQ(report.minutes, 0.5);
  EXPECT_NEAR(report.programMinutes, 0.05 + 0.75 + 0.5, 1e-9);
  EXPECT_EQ(report.machineMinutes, report.programMinutes);
  store.cfg_rapid_rate = 50;
  report = reportPaths(store);
  EXPECT_NEAR(report.programMinutes, 0.1 + 0.75 + 0.5, 1e-9);
  store.units = "M";
  store.cfg_rapid_rate = 0;
  report = reportPaths(store);
  EXPECT_NEAR(report.programMinutes, 0.002 + 0.75 + 0.5, 1e-9) << "2500 mm a minute";
}

TEST(PathReport, TimeOfTheProgramFollowsTheRulesOfTheDefinition) {
  TimedStore store;
  addPathSegment(store, lineFrom(3, 4, 6, -1));
  EXPECT_NEAR(reportPaths(store, {.plungeFrom = 0.1F}).programMinutes, 0.05 + 0.004 + 0.55 + 0.5,
              1e-9);
  EXPECT_NEAR(reportPaths(store, {.endLift = true}).programMinutes, 0.05 + 0.75 + 0.5 + 0.015,
              1e-9);
}

TEST(PathReport, CyclesTakeTheTimeOfTheirMoves) {
  struct Case {
    int type;
    float increment, dwell;
    double minutes;
  };
  // Down 1.5 at 5, and back up at 100.
  const double down = 0.3;
  const double up = 0.015;
  for (const Case& c : {Case{81, 0, 0, down + up},
                        {82, 0, 6, down + 0.1 + up},
                        {83, 0, 0, down + up},
                        // To -0.5 and back up; down to 0.01 above that, and the rest.
                        {83, 0.5F, 0, 0.2 + 0.01 + 0.0099 + 0.102 + up},
                        {83, 1e-6F, 0, down + up},
                        {84, 0, 6, down + 0.1 + up},
                        {85, 0, 0, down + down},
                        {86, 0, 6, down + 0.1 + up}}) {
    TimedStore store;
    addPathSegment(store, {.type = c.type,
                           .x0 = 1,
                           .x1 = 1,
                           .xc = c.increment,
                           .yc = c.dwell,
                           .z = -1,
                           .feed = 5,
                           .code = 100});
    const double across = 0.01;
    EXPECT_NEAR(reportPaths(store).programMinutes, across + c.minutes, 1e-7)
        << c.type << " by " << c.increment;
    EXPECT_DOUBLE_EQ(reportPaths(store).minutes, 0.2) << "that of the cut is its depth alone";
  }
}

// Rules that leave a cycle to nobody stop a program, but no report.
TEST(PathReport, CyclesThatTheDefinitionRefusesAreTimedAllTheSame) {
  TimedStore store;
  addPathSegment(store, {.type = 84, .z = -1, .feed = 5, .code = 100});
  MotionRules rules;
  rules.keptCycles.reset();
  EXPECT_NEAR(reportPaths(store, rules).programMinutes, 0.3 + 0.015, 1e-9);
}

// Three to and fro at 5, a third deeper each time at 2.
TEST(PathReport, SlotTakesTheTimeOfItsPasses) {
  TimedStore store;
  addPathSegment(store, {.type = 79, .x1 = 2, .xc = 0.5F, .z = -1.5F, .feed = 5, .code = 100});
  EXPECT_NEAR(reportPaths(store).programMinutes, 3 * 0.4 + 2.0 / 2 + 0.02, 1e-9);
}

TEST(PathReport, TimesAreSharedAmongTheToolsAndAddUp) {
  TimedStore store;
  addPathSegment(store, lineFrom(0, 0, 6, -1, 101));
  addPathSegment(store, lineFrom(6, 0, 12, -1, 102));
  const PathReport report = reportPaths(store);
  ASSERT_EQ(report.tools.size(), 2U);
  EXPECT_NEAR(report.tools[0].programMinutes, 0.75 + 0.5, 1e-9);
  EXPECT_NEAR(report.tools[1].programMinutes, 0.015 + 0.015 + 1, 1e-9) << "up, and down rapidly";
  EXPECT_NEAR(report.programMinutes,
              report.tools[0].programMinutes + report.tools[1].programMinutes, 1e-12);
}

TEST(PathReport, LathesRapidsAreRapidsAndHaveNoDepth) {
  TimedStore store;
  PathRow rapid = lineFrom(6, 0, 10, kLatheRapidZ);
  for (const PathRow& row : {lineFrom(0, 0, 6, -1), rapid}) addPathSegment(store, row);
  EXPECT_NEAR(reportPaths(store).programMinutes, 0.5 + 0.1, 1e-9);
}

// From the start across (5, at 100 a minute), down and along, with a stop between any two.
TEST(PathReport, TimeOfTheMachineCountsItsAcceleration) {
  TimedStore store;
  store.cfg_acceleration = 1;
  store.cfg_junction_deviation = 1e-12F;
  store.cfg_rapid_rate = 60;
  store.cfg_z_plunge_rate = 60;
  PathRow row = lineFrom(3, 4, 6, -1);
  row.feed = 60;
  addPathSegment(store, row);
  // A way of the length l under a speed of 1 and an acceleration of 1 takes l + 1 seconds.
  EXPECT_NEAR(reportPaths(store).machineMinutes, (5 + 1 + 1.5 + 1 + 6 + 1) / 60, 1e-5);
  EXPECT_NEAR(reportPaths(store).programMinutes, (5 + 1.5 + 6) / 60, 1e-9);
}

// A full circle is entered and left along its tangent, from a line that leads there.
TEST(PathReport, CircleBehindALineIsNoCorner) {
  TimedStore store;
  store.zstartpos = 0;
  store.cfg_acceleration = 1;
  PathRow row = lineFrom(0, 0, 6, 0);
  row.feed = 60;
  const PathRow circle{
      .type = kCounterClockwiseArc, .x0 = 6, .x1 = 6, .xc = 6, .yc = 4, .feed = 60, .code = 100};
  for (const PathRow& placed : {row, circle}) addPathSegment(store, placed);
  EXPECT_NEAR(reportPaths(store).machineMinutes, (6 + 8 * kPi + 1) / 60, 1e-6);
  store.psyc[2] = -4;  // on the other side: it turns straight back
  EXPECT_NEAR(reportPaths(store).machineMinutes, (6 + 1 + 8 * kPi + 1) / 60, 1e-6);
}

TEST(PathReport, SummaryHasRowsLengthAndTimeOfTheMachine) {
  TimedStore store;
  addPathSegment(store, lineFrom(3, 4, 6, -1));
  EXPECT_EQ(summaryOf(store, reportPaths(store)), "1 path rows, 6.0 in, about 1.3 min");
  store.units = "M";
  EXPECT_EQ(summaryOf(store, {}), "0 path rows, 0.0 mm, about 0.0 min");
}

}  // namespace
}  // namespace tess
