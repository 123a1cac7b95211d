// Hiding path rows from the screen, and showing them again.
#include "toolpath/path_visibility.h"

#include "gtest/gtest.h"

#include "core/drawing_store.h"
#include "tests/support/recorded_cam.h"

namespace tess {
namespace {

using testing::RecordedCam;

std::vector<bool> visibility(const DrawingStore& store) {
  std::vector<bool> visible;
  for (int ps = 1; ps <= store.NumPathSegments; ++ps) visible.push_back(store.psvisible[ps]);
  return visible;
}

RecordedCam& withThreePaths(RecordedCam& d) {
  for (const float y : {0.0F, 1.0F, 2.0F}) d.addPathLine(0, y, 1, y);
  d.store.drawingsaved = true;
  return d;
}

TEST(PathVisibility, TakesAllRowsWhileNoneIsSelected) {
  RecordedCam d;
  withThreePaths(d);
  miInvisible_Click(d.cam);
  EXPECT_EQ(visibility(d.store), (std::vector<bool>{false, false, false}));
  miVisible_Click(d.cam);
  EXPECT_EQ(visibility(d.store), (std::vector<bool>{true, true, true}));
  EXPECT_TRUE(d.store.drawingsaved);
  EXPECT_EQ(d.context.changelog.changecount, 0);
}

TEST(PathVisibility, TakesTheSelectedRowsAlone) {
  RecordedCam d;
  withThreePaths(d);
  d.store.pscode[2] = 30100;
  miInvisible_Click(d.cam);
  EXPECT_EQ(visibility(d.store), (std::vector<bool>{true, false, true}));
  EXPECT_EQ(d.store.pscode[2], 30100);  // so that it can be shown again
  miVisible_Click(d.cam);
  EXPECT_EQ(visibility(d.store), (std::vector<bool>{true, true, true}));
}

TEST(PathVisibility, RedrawsTheScreen) {
  RecordedCam d;
  withThreePaths(d);
  d.store.showpaths = 1;
  d.log.take();
  miInvisible_Click(d.cam);
  d.pass(1000);
  const auto hidden = d.log.take().size();
  miVisible_Click(d.cam);
  d.pass(1000);
  EXPECT_GT(d.log.take().size(), hidden);
}

TEST(PathVisibility, OfNoRowsIsNothing) {
  RecordedCam d;
  miInvisible_Click(d.cam);
  EXPECT_EQ(d.store.NumPathSegments, 0);
}

}  // namespace
}  // namespace tess
