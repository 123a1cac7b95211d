// Corner overcut before the proof and in its form: what was meant is named, anything else is a
// gouge, also after the jobs have been a file; corners are picked in the drawing.
#include <cmath>
#include <string>
#include <vector>

#include "gmock/gmock.h"
#include "gtest/gtest.h"

#include "core/path_job_file.h"
#include "tests/support/proof_of.h"
#include "tests/toolpath/overcut_job.h"
#include "toolpath/frmCornerOvercut.h"
#include "toolpath/proof_text.h"

namespace tess {
namespace {

using namespace tess::testing;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::SizeIs;

// The only job of a drawing, changed.
template <typename Change>
PathJobs changedJobs(const OvercutJob& job, Change change) {
  PathJob only = *job.cam.context.session.pathJobs.inForce(job.store).at(0);
  change(only);
  PathJobs jobs;
  jobs.add(std::move(only));
  return jobs;
}

// The rows into the corner at (4, 2) and back.
std::vector<int> rowsInto(const DrawingStore& store, Point corner) {
  std::vector<int> rows;
  for (int ps = 1; ps <= store.NumPathSegments; ++ps) {
    const PathRow row = pathRow(store, ps);
    const float end = std::min(std::hypot(row.x0 - corner.x, row.y0 - corner.y),
                               std::hypot(row.x1 - corner.x, row.y1 - corner.y));
    if (end < 0.251F) rows.push_back(ps);
  }
  return rows;
}

// Takes the bottom of the drop into (4, 2) to another distance from the corner.
void moveBottom(DrawingStore& store, float distance) {
  const std::vector<int> rows = rowsInto(store, {4, 2});
  ASSERT_THAT(rows, SizeIs(2));
  const float in = distance / std::sqrt(2.0F);
  store.psx1[rows[0]] = store.psx0[rows[1]] = 4 - in;
  store.psy1[rows[0]] = store.psy0[rows[1]] = 2 - in;
}

// ---- The proof

TEST(ProofOfOvercut, NamesWhatWasMeantAndFindsNoFault) {
  OvercutJob job(rectangle(4, 2));
  job.finish();
  const PathProof proof = job.proof();
  EXPECT_EQ(gradeOf(proof), ProofGrade::Clean);
  EXPECT_LT(proof.gouge.depth, 1e-6);
  EXPECT_THAT(proof.tooDeep, IsEmpty());
  EXPECT_THAT(proofText(proof),
              HasSubstr("Group 1: corner at X = 4.0000, Y = 2.0000 meant to be cut over, 0.0732 "
                        "deep\n"));
  ASSERT_THAT(proof.overcuts, SizeIs(4));
  for (const OvercutFinding& corner : proof.overcuts) {
    EXPECT_NEAR(corner.depth, 0.25 - 0.125 * std::sqrt(2), 1e-9);
    EXPECT_NEAR(corner.left, 0, 1e-6);
    EXPECT_TRUE(corner.reachesCorner());
  }
}

TEST(ProofOfOvercut, WhatIsNotNotedIsAGouge) {
  OvercutJob job(rectangle(4, 2));
  job.finish();
  const PathProof without =
      proofOf(job.store, changedJobs(job, [](PathJob& noted) { noted.overcuts.clear(); }));
  EXPECT_NEAR(without.gouge.depth, 0.0732, 1e-4);
  EXPECT_TRUE(without.isBeyondLimits());
  EXPECT_THAT(without.overcuts, IsEmpty());
  EXPECT_THAT(without.tooDeep, Not(IsEmpty()));
  const PathProof three = proofOf(job.store, changedJobs(job, [](PathJob& noted) {
                                    std::erase(noted.overcuts, JobOvercut{4, 2});
                                  }));
  EXPECT_NEAR(three.gouge.depth, 0.0732, 1e-4);
  EXPECT_GT(three.gouge.x, 3.7);
  EXPECT_GT(three.gouge.y, 1.7);
  EXPECT_THAT(three.overcuts, SizeIs(3));
}

TEST(ProofOfOvercut, ADropDeeperThanNeededIsAGouge) {
  OvercutJob job(rectangle(4, 2));
  job.finish();
  moveBottom(job.store, 0.249F);
  const PathProof proof = job.proof();
  EXPECT_NEAR(proof.gouge.depth, 0.25 - 0.249 / std::sqrt(2), 1e-4);
  EXPECT_TRUE(proof.isBeyondLimits());
  EXPECT_THAT(proofText(proof), HasSubstr("corner at X = 4.0000, Y = 2.0000 meant to be cut over, "
                                          "not cut by 0.1036"));
}

TEST(ProofOfOvercut, ADropAsideIsAGouge) {
  OvercutJob job(rectangle(4, 2));
  job.finish();
  const int row = rowsInto(job.store, {4, 2}).at(0);
  job.store.psx1[row] += 0.001F;
  EXPECT_GT(job.proof().gouge.depth, 0.07);
}

TEST(ProofOfOvercut, TellsACornerThatIsNotReached) {
  OvercutJob job(rectangle(4, 2));
  job.store.cfg_z_cut_per_pass = 0.25F;
  job.finish();
  const auto leftAt = [&](float x, float y) {
    for (const OvercutFinding& corner : job.proof().overcuts) {
      if (corner.x == x && corner.y == y) return corner.left;
    }
    return -1.0;
  };
  EXPECT_NEAR(leftAt(4, 2), 0, 1e-6);
  for (const int row : rowsInto(job.store, {4, 2})) {
    if (job.store.psz[row] == -0.5F) job.store.psx1[row] = job.store.psx0[row];
    if (job.store.psz[row] == -0.5F) job.store.psy1[row] = job.store.psy0[row];
  }
  EXPECT_NEAR(leftAt(4, 2), 0.1036, 1e-4) << "at the floor, whatever the level above does";
  EXPECT_FALSE(job.proof().isBeyondLimits());
}

// A note excuses nothing but the drop: neither another cut there, nor anything where no corner is.
TEST(ProofOfOvercut, ANoteAloneExcusesNothing) {
  OvercutJob job(rectangle(4, 2));
  job.store.cfg_corner_overcut = 0;
  job.finish();
  const PathJobs jobs = changedJobs(job, [](PathJob& noted) {
    noted.overcuts = {{4, 2}, {4, 2}, {4, 1}, {3, 1}, {1e30, -1e30}};
  });
  EXPECT_FALSE(proofOf(job.store, jobs).isBeyondLimits());
  ASSERT_THAT(proofOf(job.store, jobs).overcuts, SizeIs(1)) << "one is a corner";
  addPathSegment(job.store, {.type = kLine,
                             .x0 = 3.75F,
                             .y0 = 1,
                             .x1 = 3.85F,
                             .y1 = 1,
                             .z = -0.5F,
                             .code = job.store.pscode[1]});
  EXPECT_NEAR(proofOf(job.store, jobs).gouge.depth, 0.1, 1e-5);
}

TEST(ProofOfOvercut, AnotherToolIsHeldAgainstItsOwnDrop) {
  OvercutJob job(rectangle(4, 2));
  job.finish();
  job.store.toolradius[0] = 0.26F;
  EXPECT_GT(job.proof().gouge.depth, 0.07);
}

// The walls of an open chain are noted as they are drawn, and of outlines as they are free.
TEST(ProofOfOvercut, IsTheSameAfterTheJobsWereAFile) {
  OvercutJob job(rectangle(4, 2));
  job.finish();
  const auto jobs = job.cam.context.session.pathJobs.inForce(job.store);
  const std::string text = jobFileText(jobs, {});
  EXPECT_THAT(text, HasSubstr("overcut,4,2\r\n"));
  FieldReader fields("PART.TPJ", text);
  auto noted = readJobFile(fields, {});
  ASSERT_TRUE(noted);
  PathJobs read;
  for (PathJob& one : *noted) read.add(std::move(one));
  EXPECT_EQ(proofText(proofOf(job.store, read)), proofText(job.proof()));
  EXPECT_EQ(gradeOf(proofOf(job.store, read)), ProofGrade::Clean);
}

// However many notes a file has at one place.
TEST(ProofOfOvercut, OfVeryManyNotesEndsInTime) {
  OvercutJob job(rectangle(4, 2));
  job.finish();
  const PathJobs jobs = changedJobs(job, [](PathJob& noted) {
    for (int k = 0; k < 40000; ++k) noted.overcuts.push_back({4 + 1e-13 * k, 2});
    JobLoop& loop = noted.loops.front();
    for (int k = 0; k < 4000; ++k) loop.walls.push_back({.x0 = 4, .y0 = 2, .x1 = 5, .y1 = 3.0 + k});
  });
  const PathProof proof = proofOf(job.store, jobs);
  EXPECT_TRUE(proof.isBeyondLimits()) << "of so many walls none is known to be a corner's";
}

// ---- The form

frmCornerOvercut& corners(Form& form) {
  return dynamic_cast<frmCornerOvercut&>(form);
}

TEST(CornerOvercutForm, ShowsAllCornersAndTakesThemAll) {
  OvercutJob job(rectangle(4, 2));
  job.onCorners = [&](Form& form) {
    EXPECT_EQ(form.caption(), "Corner Overcut");
    EXPECT_TRUE(corners(form).optCorners[1].value());
    EXPECT_EQ(corners(form).lblCorners.caption(),
              "4 of 4 corners. Click one in the drawing to pick it, or to leave it out.");
    ASSERT_THAT(job.context.formPreview.rows, SizeIs(4));
    for (const SegmentRow& row : job.context.formPreview.rows) {
      EXPECT_NEAR(row.x0 - row.xc, 0.25, 1e-6) << "the cutter";
    }
    form.pressDefault();
  };
  EXPECT_THAT(job.finish(), SizeIs(12));
  EXPECT_EQ(job.formsOfCorners(), 1);
  EXPECT_THAT(job.context.formPreview.rows, IsEmpty());
  EXPECT_FALSE(job.context.onFormClick);
  EXPECT_EQ(job.store.cfg_corner_overcut, 1);
}

TEST(CornerOvercutForm, PicksSingleCornersByClicks) {
  OvercutJob job(rectangle(4, 2));
  job.store.cfg_corner_overcut = 2;
  job.onCorners = [&](Form& form) {
    EXPECT_TRUE(corners(form).optCorners[2].value());
    EXPECT_EQ(corners(form).lblCorners.caption(),
              "0 of 4 corners. Click one in the drawing to pick it, or to leave it out.");
    job.click(3.7F, 1.8F);
    job.click(0.1F, -0.1F);
    job.click(0.1F, 1.9F);
    job.click(0.1F, 1.9F);
    EXPECT_EQ(corners(form).lblCorners.caption(),
              "2 of 4 corners. Click one in the drawing to pick it, or to leave it out.");
    ASSERT_THAT(job.context.formPreview.rows, SizeIs(4));
    form.pressDefault();
  };
  EXPECT_THAT(job.finish(), SizeIs(8));
  EXPECT_THAT(rowsInto(job.store, {4, 2}), SizeIs(2));
  EXPECT_THAT(rowsInto(job.store, {0, 0}), SizeIs(2));
  EXPECT_THAT(rowsInto(job.store, {0, 2}), IsEmpty());
  EXPECT_EQ(job.store.cfg_corner_overcut, 2);
  EXPECT_THAT(job.proof().overcuts, SizeIs(2));
}

TEST(CornerOvercutForm, AClickLeavesOneOfAllOut) {
  OvercutJob job(rectangle(4, 2));
  job.onCorners = [&](Form& form) {
    job.click(4, 0);
    EXPECT_TRUE(corners(form).optCorners[2].value());
    form.pressDefault();
  };
  EXPECT_THAT(job.finish(), SizeIs(10));
  EXPECT_THAT(rowsInto(job.store, {4, 0}), IsEmpty());
  EXPECT_EQ(job.store.cfg_corner_overcut, 2);
}

TEST(CornerOvercutForm, TheChoiceTakesAllOrBeginsAnew) {
  OvercutJob job(rectangle(4, 2));
  job.onCorners = [&](Form& form) {
    const auto count = [&] { return corners(form).picked().size(); };
    corners(form).optCorners[2].setValue(true);
    EXPECT_EQ(count(), 0U);
    job.click(4, 0);
    EXPECT_EQ(count(), 1U);
    corners(form).optCorners[1].setValue(true);
    EXPECT_EQ(count(), 4U);
    form.pressDefault();
  };
  EXPECT_THAT(job.finish(), SizeIs(12));
}

TEST(CornerOvercutForm, WithoutACornerStays) {
  OvercutJob job(rectangle(4, 2));
  job.store.cfg_corner_overcut = 2;
  job.onCorners = [](Form& form) {
    form.pressDefault();
    EXPECT_TRUE(form.isShown());
    form.pressCancel();
  };
  EXPECT_THAT(job.finish(), IsEmpty());
  ASSERT_THAT(job.messages(), SizeIs(1));
  EXPECT_EQ(job.messages()[0].text,
            "No corner is picked. Click one in the drawing, or choose All Inside Corners.");
  EXPECT_EQ(job.messages()[0].title, "Corner Overcut");
}

TEST(CornerOvercutForm, CancelPlacesNothing) {
  OvercutJob job(rectangle(4, 2));
  job.onCorners = [](Form& form) {
    corners(form).optCorners[2].setValue(true);
    form.pressCancel();
  };
  EXPECT_THAT(job.finish(), IsEmpty());
  EXPECT_EQ(job.store.cfg_corner_overcut, 1) << "the setting stays";
  EXPECT_THAT(job.messages(), IsEmpty());
}

TEST(CornerOvercutForm, TellsHowManyCannotBe) {
  OvercutJob job(pocketOfRows(polygonRows({{0.1F, 0}, {4, 0}, {4, 2}, {0, 2}, {0, 0.1F}})));
  job.onCorners = [](Form& form) {
    EXPECT_EQ(corners(form).lblCorners.caption(),
              "3 of 3 corners. Click one in the drawing to pick it, or to leave it out.\n"
              "In 2 more the cutter would cut another wall, or cannot touch both walls.");
    form.pressDefault();
  };
  EXPECT_THAT(job.finish(), SizeIs(4 + 6));
  ASSERT_THAT(job.messages(), SizeIs(1));
  EXPECT_THAT(job.messages()[0].text, ::testing::StartsWith("Only 3 of 5 inside corners"));
}

}  // namespace
}  // namespace tess
