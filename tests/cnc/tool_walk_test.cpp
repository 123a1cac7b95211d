// Where the tool is at each moment.
#include "cnc/tool_walk.h"

#include <algorithm>

#include "gtest/gtest.h"

#include "cnc/path_report.h"
#include "core/conventions.h"
#include "core/drawing_rows.h"
#include "core/drawing_store.h"

namespace tess {
namespace {

class ToolWalkTest : public ::testing::Test {
 protected:
  ToolWalkTest() {
    store.zstartpos = 0.25F;
    store.cfg_rapid_rate = 100;
    store.cfg_z_plunge_rate = 5;
    store.NumPathSegments = 0;
  }
  void add(const PathRow& row) { addPathSegment(store, row); }
  void addLine(Point from, Point to) {
    add({.type = kLine,
         .x0 = from.x,
         .y0 = from.y,
         .x1 = to.x,
         .y1 = to.y,
         .z = -0.1F,
         .feed = 10,
         .code = 100});
  }
  // The step during which a row is cut.
  const ToolStep& cutOf(const ToolWalk& walk, int row) {
    for (const ToolStep& step : walk.steps) {
      if (step.row == row && !step.isRapid && step.from.z == step.to.z) return step;
    }
    ADD_FAILURE() << "no cut for row " << row;
    return walk.steps.front();
  }

  DrawingStore store;
};

TEST_F(ToolWalkTest, WithoutRowsThereAreNoSteps) {
  EXPECT_TRUE(toolWalk(store).steps.empty());
  EXPECT_EQ(toolWalk(store).seconds(), 0);
}

TEST_F(ToolWalkTest, StepsFollowOneAnotherInPlaceAndTime) {
  addLine({1, 1}, {3, 1});
  addLine({3, 1}, {3, 2});
  addLine({0, 0}, {0, 2});
  const ToolWalk walk = toolWalk(store);
  ASSERT_GT(walk.steps.size(), 5U);
  EXPECT_EQ(walk.steps.front().begin, 0);
  for (std::size_t at = 1; at < walk.steps.size(); ++at) {
    EXPECT_EQ(walk.steps[at].from, walk.steps[at - 1].to) << at;
    EXPECT_EQ(walk.steps[at].begin, walk.steps[at - 1].end) << at;
    EXPECT_GE(walk.steps[at].row, walk.steps[at - 1].row) << at;
  }
}

TEST_F(ToolWalkTest, TakesAsLongAsTheReportSays) {
  addLine({1, 1}, {3, 1});
  addLine({0, 0}, {0, 2});
  for (const float acceleration : {0.0F, 10.0F}) {
    store.cfg_acceleration = acceleration;
    EXPECT_NEAR(toolWalk(store).seconds(), reportPaths(store).machineMinutes * 60, 1e-6);
  }
}

TEST_F(ToolWalkTest, APlaceLiesOnTheWayByItsTime) {
  addLine({1, 1}, {3, 1});
  const ToolWalk walk = toolWalk(store);
  const ToolStep& cut = cutOf(walk, 1);
  EXPECT_NEAR(cut.end - cut.begin, 12, 1e-4) << "2 at 10 a minute";
  const ToolPlace middle = walk.placeAt((cut.begin + cut.end) / 2);
  EXPECT_NEAR(middle.x, 2, 1e-5);
  EXPECT_NEAR(middle.y, 1, 1e-5);
  EXPECT_NEAR(middle.z, -0.1, 1e-6);
}

TEST_F(ToolWalkTest, ArcsAreFollowedAlongTheirCurve) {
  add({.type = kCounterClockwiseArc,
       .x0 = 1,
       .y0 = 0,
       .x1 = -1,
       .y1 = 0,
       .z = -0.1F,
       .feed = 10,
       .code = 100});
  add({.type = kClockwiseArc,
       .x0 = -1,
       .y0 = 0,
       .x1 = 1,
       .y1 = 0,
       .z = -0.1F,
       .feed = 10,
       .code = 100});
  const ToolWalk walk = toolWalk(store);
  for (const int row : {1, 2}) {
    const ToolStep& cut = cutOf(walk, row);
    const ToolPlace top = walk.placeAt((cut.begin + cut.end) / 2);
    EXPECT_NEAR(top.x, 0, 1e-5) << row;
    EXPECT_NEAR(top.y, 1, 1e-5) << row;
  }
}

TEST_F(ToolWalkTest, ACycleGoesDownAndOut) {
  add({.type = 81, .x0 = 2, .y0 = 1, .x1 = 2, .y1 = 1, .z = -0.5F, .feed = 10, .code = 100});
  const ToolWalk walk = toolWalk(store);
  float lowest = 0;
  for (const ToolStep& step : walk.steps) lowest = std::min(lowest, step.to.z);
  EXPECT_FLOAT_EQ(lowest, -0.5F);
  EXPECT_GE(walk.steps.back().to.z, 0);
}

TEST_F(ToolWalkTest, RowsAreFoundByTheirNumber) {
  addLine({1, 1}, {3, 1});
  addLine({0, 0}, {0, 2});
  const ToolWalk walk = toolWalk(store);
  EXPECT_EQ(walk.steps[walk.stepAt(walk.beginOf(2) + 1e-9)].row, 2);
  EXPECT_EQ(walk.beginOf(77), 0);
}

TEST_F(ToolWalkTest, MomentsOutsideAreTheEnds) {
  addLine({1, 1}, {3, 1});
  const ToolWalk walk = toolWalk(store);
  EXPECT_EQ(walk.stepAt(-5), 0U);
  EXPECT_EQ(walk.stepAt(1e9), walk.steps.size() - 1);
  EXPECT_EQ(walk.placeAt(1e9), walk.steps.back().to);
  EXPECT_EQ(walk.placeAt(-5), walk.steps.front().from);
}

TEST_F(ToolWalkTest, ALatheHasNoHeights) {
  add({.type = kLine,
       .x0 = 0,
       .y0 = 0,
       .x1 = 1,
       .y1 = 1,
       .z = kLatheRapidZ,
       .feed = 10,
       .code = 100});
  EXPECT_FALSE(toolWalk(store).hasHeights);
}

}  // namespace
}  // namespace tess
