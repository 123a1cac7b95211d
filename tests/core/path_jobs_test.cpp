// Jobs of path rows: which of them a group of rows belongs to.
#include "core/path_jobs.h"

#include "gmock/gmock.h"
#include "gtest/gtest.h"

#include "core/drawing_store.h"

namespace tess {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class PathJobsOfGroups : public ::testing::Test {
 protected:
  void place(int group, float x1, int count = 1) {
    for (int row = 0; row < count; ++row) {
      addPathSegment(store_, {.type = kLine,
                              .x0 = static_cast<float>(row),
                              .x1 = x1,
                              .z = -0.5F,
                              .code = pathCode(group, 2)});
    }
  }
  void note(int group, double distance) {
    jobs_.note(store_, {.group = group, .kind = JobKind::Contour, .distance = distance});
  }
  void takeBack() { store_.NumPathSegments = 0; }
  std::vector<double> distances() const {
    std::vector<double> found;
    for (const PathJob* const job : jobs_.inForce(store_)) found.push_back(job->distance);
    return found;
  }

  DrawingStore store_;
  PathJobs jobs_;
};

TEST_F(PathJobsOfGroups, AreThoseOfGroupsWithRows) {
  place(7, 1);
  note(7, 0.7);
  place(3, 2);
  note(3, 0.3);
  place(5, 3);
  EXPECT_THAT(distances(), ElementsAre(0.3, 0.7));
  takeBack();
  EXPECT_THAT(distances(), IsEmpty());
}

TEST_F(PathJobsOfGroups, AreThoseOfSelectedRowsToo) {
  place(3, 2);
  note(3, 0.3);
  store_.pscode[1] += kSelected;
  EXPECT_THAT(distances(), ElementsAre(0.3));
}

TEST_F(PathJobsOfGroups, ComeBackWithTheirRows) {
  place(1, 10, 20);
  note(1, 0.1);
  takeBack();
  place(1, 20, 20);
  note(1, 0.2);
  EXPECT_THAT(distances(), ElementsAre(0.2));
  takeBack();
  place(1, 10, 20);
  EXPECT_THAT(distances(), ElementsAre(0.1));
}

TEST_F(PathJobsOfGroups, StayWithRowsThatWereChanged) {
  place(1, 10, 20);
  note(1, 0.1);
  takeBack();
  place(1, 20, 20);
  note(1, 0.2);
  for (int ps = 1; ps <= 10; ++ps) store_.psx1[ps] += 1;
  EXPECT_THAT(distances(), ElementsAre(0.2));
  for (int ps = 11; ps <= 20; ++ps) store_.psx1[ps] += 1;
  EXPECT_THAT(distances(), ElementsAre(0.2));
}

TEST_F(PathJobsOfGroups, OldOnesOfTheSameNumberGiveWay) {
  for (int attempt = 1; attempt <= 20; ++attempt) {
    takeBack();
    place(1, static_cast<float>(attempt), 20);
    note(1, attempt);
  }
  takeBack();
  place(1, 13, 20);
  EXPECT_THAT(distances(), ElementsAre(13));
  takeBack();
  place(1, 12, 20);
  EXPECT_THAT(distances(), ElementsAre(20));
}

}  // namespace
}  // namespace tess
