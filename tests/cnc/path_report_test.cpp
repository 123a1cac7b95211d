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

}  // namespace
}  // namespace tess
