// What placing commands note for the proof.
#include "toolpath/job_notes.h"

#include "gmock/gmock.h"
#include "gtest/gtest.h"

#include "core/drawing_store.h"
#include "tests/support/recorded_cam.h"

namespace tess {
namespace {

using ::testing::IsEmpty;
using testing::RecordedCam;
using ::testing::SizeIs;

struct JobNotes : ::testing::Test {
  RecordedCam recorded;
  CamContext& cam = recorded.cam;

  std::vector<const PathJob*> jobs() const {
    return cam.context.session.pathJobs.inForce(cam.store);
  }
  void place() {
    cam.store.currentpathgroup = 4;
    cam.store.selectedtool = 1;
    cam.store.toolradius[1] = 0.25F;
    addPathSegment(cam.store, {.type = kLine, .x1 = 1, .z = -1, .code = pathCode(4, 1)});
  }
};

TEST_F(JobNotes, HoldToolAndWalls) {
  place();
  const Curve line = lineCurve({0, 0}, {1, 0});
  const Curve arc = arcCurve({1, 0}, {0, 0}, {0.5, 0}, -1);
  noteJob(cam, JobKind::Contour, 0.5,
          {.loops = {{line, arc}}, .isClosed = true, .isUnbounded = true});
  ASSERT_THAT(jobs(), SizeIs(1));
  const PathJob& job = *jobs()[0];
  EXPECT_EQ(job.group, 4);
  EXPECT_EQ(job.kind, JobKind::Contour);
  EXPECT_EQ(job.toolRadius, 0.25);
  EXPECT_EQ(job.distance, 0.5);
  EXPECT_TRUE(job.isUnbounded);
  const JobWall bottom{.x0 = 0, .y0 = 0, .x1 = 1, .y1 = 0};
  const JobWall top{.x0 = 1, .x1 = 0, .xc = 0.5, .turn = -1};
  ASSERT_THAT(job.loops, SizeIs(1));
  EXPECT_TRUE(job.loops[0].isClosed);
  EXPECT_EQ(job.loops[0].walls, (std::vector<JobWall>{bottom, top}));
}

TEST_F(JobNotes, ALatheToolHasNoRadius) {
  place();
  noteJob(cam, JobKind::Lathe, 0.1, {.loops = {{lineCurve({0, 0}, {1, 0})}}});
  EXPECT_EQ(jobs().at(0)->toolRadius, 0);
}

TEST_F(JobNotes, NothingIsNotedWhereNothingWasPlaced) {
  place();
  cam.store.currentpathgroup = 5;
  noteJob(cam, JobKind::None, 0.1);
  addPathSegment(cam.store, {.type = kLine, .x1 = 1, .z = -1, .code = pathCode(5, 1)});
  EXPECT_THAT(jobs(), IsEmpty());
}

TEST_F(JobNotes, WithoutWallsThereIsNoJobThatNeedsThem) {
  for (const JobKind kind : {JobKind::Clearing, JobKind::Contour, JobKind::Lathe}) {
    place();
    noteJob(cam, kind, 0.1);
    EXPECT_THAT(jobs(), IsEmpty());
  }
}

}  // namespace
}  // namespace tess
