// What the placing commands note: kind of job, distance and walls of what they have just placed.
#include "toolpath/job_walls.h"

#include "gmock/gmock.h"
#include "gtest/gtest.h"

#include "tests/toolpath/pocket_job.h"
#include "toolpath/cycles.h"
#include "toolpath/quick_place.h"

namespace tess {
namespace {

using testing::JobSettings;
using testing::PocketJob;
using ::testing::SizeIs;

const std::vector<SegmentRow> kSquare = testing::polygonRows({{0, 0}, {4, 0}, {4, 4}, {0, 4}});
const std::vector<SegmentRow> kIsland =
    testing::polygonRows({{1.5F, 1.5F}, {2.5F, 1.5F}, {2.5F, 2.5F}, {1.5F, 2.5F}});

struct NotedJobs : ::testing::Test {
  PocketJob job{testing::pocketOfRows(kSquare, {kIsland}), settings()};
  DrawingStore& store = job.store;

  static JobSettings settings() {
    JobSettings settings;
    settings.clearance = 0.0625F;
    return settings;
  }
  std::vector<const PathJob*> jobs() { return job.context.session.pathJobs.inForce(store); }
  const PathJob& last() { return *jobs().back(); }
  std::vector<double> areas() {
    std::vector<double> found;
    for (const JobLoop& loop : last().loops) {
      std::vector<Curve> curves;
      for (const JobWall& wall : loop.walls) {
        curves.push_back(lineCurve({wall.x0, wall.y0}, {wall.x1, wall.y1}));
      }
      found.push_back(areaOf(curves));
    }
    return found;
  }
  void unverify() {
    for (int sg = 1; sg <= store.NumSegments; ++sg) store.segattr[sg] = kOrdinaryClass;
  }
  // A path along the lower edge of the square, with the click beside it.
  void finishAt(Point reference) {
    job.cam.numFinishPasses = 1;
    job.finishAt({{0, 0}, {2, 0}, reference});
  }
};

TEST_F(NotedJobs, RoughingByLinesClearsBetweenPocketAndIslands) {
  for (const PocketingStyle style : {PocketingStyle::Horizontal, PocketingStyle::Vertical}) {
    store.cfg_pocketing_style = choiceNumber(style);
    job.rough();
    EXPECT_EQ(last().kind, JobKind::Clearing);
    EXPECT_EQ(last().toolRadius, 0.25);
    EXPECT_EQ(last().distance, 0.3125);
    EXPECT_FALSE(last().isUnbounded);
    EXPECT_EQ(areas(), (std::vector<double>{16, -1}));
  }
}

TEST_F(NotedJobs, RingsClearToo) {
  store.cfg_pocketing_style = choiceNumber(PocketingStyle::ParallelSpiral);
  job.rough();
  EXPECT_EQ(last().kind, JobKind::Clearing);
  EXPECT_EQ(last().distance, 0.3125);
  EXPECT_EQ(areas(), (std::vector<double>{16, -1}));
}

TEST_F(NotedJobs, TheLatheStyleHasItsOwn) {
  store.cfg_lathe_style_pocketing = true;
  job.rough();
  EXPECT_EQ(last().kind, JobKind::Lathe);
  EXPECT_EQ(last().toolRadius, 0);
  EXPECT_EQ(last().distance, 0.0625);
}

TEST_F(NotedJobs, AFinishPathInAVerifiedPocketHasAllVerifiedWalls) {
  finishAt({2, 0.25F});
  EXPECT_EQ(last().kind, JobKind::Contour);
  EXPECT_EQ(last().distance, 0.25);
  EXPECT_EQ(areas(), (std::vector<double>{16, -1}));
}

TEST_F(NotedJobs, AFinishPathRoundAVerifiedPocketHasItsOutlineAlone) {
  finishAt({2, -0.25F});
  EXPECT_TRUE(last().isUnbounded);
  EXPECT_EQ(areas(), (std::vector<double>{-16}));
}

TEST_F(NotedJobs, AFinishPathBesideAPlainOutlineHasThatAlone) {
  unverify();
  finishAt({2, 0.25F});
  EXPECT_FALSE(last().isUnbounded);
  EXPECT_EQ(areas(), (std::vector<double>{16}));
  finishAt({2, -0.25F});
  EXPECT_TRUE(last().isUnbounded);
  EXPECT_EQ(areas(), (std::vector<double>{-16}));
}

TEST_F(NotedJobs, AFinishPathBesideAnOpenChainHasItOnBothSides) {
  unverify();
  store.segattr[1] = 9;  // of another class: three sides are left
  job.finishAt({{4, 0}, {4, 2}, {4.25F, 2}});
  EXPECT_EQ(last().kind, JobKind::Contour);
  ASSERT_THAT(last().loops, SizeIs(1));
  EXPECT_FALSE(last().loops[0].isClosed);
  EXPECT_THAT(last().loops[0].walls, SizeIs(3));
}

TEST_F(NotedJobs, EachPassOfAFinishPathHasItsDistance) {
  store.cfg_tool_spacing_distance = 0.125F;
  job.test.recording.prompts.onForm = [](Form& form) {
    form.control("txtNumPasses")->set("text", "3");
    form.pressDefault();
  };
  job.finishAt({{0, 0}, {2, 0}, {2, 0.25F}});
  ASSERT_THAT(jobs(), SizeIs(3));
  EXPECT_EQ(jobs()[0]->distance, 0.4375);
  EXPECT_EQ(jobs()[1]->distance, 0.3125);
  EXPECT_EQ(jobs()[2]->distance, 0.25);
}

TEST_F(NotedJobs, PathsOnTheProfileHaveNoWalls) {
  finishAt({2, 0});
  EXPECT_EQ(last().kind, JobKind::OnTheLine);
  unverify();
  testing::selectRows(store, 1, 8);
  store.NumPathSegments = 0;
  quickPlacePaths(job.cam);
  EXPECT_EQ(last().kind, JobKind::OnTheLine);
  EXPECT_THAT(last().loops, SizeIs(0));
}

TEST_F(NotedJobs, MachineCyclesAreNoPathsBesideWalls) {
  resizeCycles(store, 1);
  store.NumCycles = 1;
  store.cycletext[0] = "G81";
  const Point hole{1, 1};
  placeCyclesAt(job.cam, 0, {&hole, 1});
  EXPECT_EQ(last().kind, JobKind::None);
}

TEST_F(NotedJobs, UndoLeavesThem) {
  job.rough();
  const int group = last().group;
  mnuCAMUndoLastPlace_Click(job.cam);
  EXPECT_THAT(jobs(), SizeIs(0));
  addPathSegment(store, {.type = kLine, .x1 = 1, .z = -1, .code = pathCode(group, 0)});
  EXPECT_THAT(jobs(), SizeIs(1));
}

}  // namespace
}  // namespace tess
