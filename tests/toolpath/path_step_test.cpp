// One step of the log for whatever a command did to the path rows.
#include "toolpath/path_step.h"

#include "gtest/gtest.h"

#include "drafting/row_edits.h"
#include "drafting/undo.h"
#include "tests/geometry/scenes.h"
#include "tests/support/failure_of.h"
#include "tests/support/recorded_cam.h"

namespace tess {
namespace {

using testing::Dice;
using testing::pathTexts;
using testing::RecordedCam;

struct Step : ::testing::Test, RecordedCam {
  std::vector<PathRow> rows() const {
    std::vector<PathRow> all;
    for (int ps = 1; ps <= store.NumPathSegments; ++ps) all.push_back(pathRow(store, ps));
    return all;
  }
  void logAndDelete(int ps) {
    logPathSegment(desk.changelog, store, ps, "D", /*start=*/true);
    deletePathSegment(store, ps);
  }
};

TEST_F(Step, WhatIsLoggedMeanwhileCountsForNothing) {
  addPathLine(0, 0, 1, 0);
  addPathLine(1, 0, 2, 0);
  logPathSegment(desk.changelog, store, 2, "A", /*start=*/true);
  PathStep step(cam);
  logAndDelete(1);
  addPathLine(5, 5, 6, 6, 200);
  logPathSegment(desk.changelog, store, 2, "A", /*start=*/true);
  step.keep();
  EXPECT_EQ(desk.changelog.changecount, 3);
  EXPECT_EQ(desk.changelog.record(1).AddOrDelete, "D");
  EXPECT_TRUE(desk.changelog.record(1).StartOfSegment);
  EXPECT_EQ(desk.changelog.record(2).AddOrDelete, "A");
  EXPECT_FALSE(desk.changelog.record(2).StartOfSegment);
}

TEST_F(Step, WithoutAChangeNothingIsLoggedAndRedoStays) {
  addPathLine(0, 0, 1, 0);
  logAndDelete(1);
  Undo_Last_Change(desk);
  PathStep step(cam);
  step.keep();
  EXPECT_EQ(desk.changelog.changecount, 0);
  EXPECT_TRUE(desk.changelog.canRedo());
}

TEST_F(Step, UnlessKeptRowsAndLogAreAsBefore) {
  addPathLine(0, 0, 1, 0);
  addPathLine(1, 0, 2, 0);
  logPathSegment(desk.changelog, store, 2, "A", /*start=*/true);
  const std::vector<PathRow> before = rows();
  {
    PathStep step(cam);
    logAndDelete(1);
    logAndDelete(1);
    addPathLine(5, 5, 6, 6, 200);
  }
  EXPECT_EQ(rows(), before);
  EXPECT_EQ(desk.changelog.changecount, 1);
  EXPECT_EQ(desk.changelog.record(0).x1, 2);
}

TEST_F(Step, AFullLogTakesTheChangeBack) {
  addPathLine(0, 0, 1, 0);
  const std::vector<PathRow> before = rows();
  clsSegment record;
  record.SetSegment({}, "A", /*start=*/true);
  while (desk.changelog.changecount < 32766) desk.changelog.logRecord(record, /*cutRedo=*/true);
  EXPECT_EQ(testing::numberOfFailure([&] {
              PathStep step(cam);
              addPathLine(5, 5, 6, 6, 200);
              addPathLine(5, 5, 6, 7, 200);
              step.keep();
            }),
            FailureNumber::Overflow);
  EXPECT_EQ(rows(), before);
  EXPECT_EQ(desk.changelog.changecount, 32766);
  EXPECT_FALSE(desk.changelog.canRedo());
}

// Rows come, go and change anywhere, also within old groups.
TEST_F(Step, UndoAndRedoGiveBackExactlyTheRowsOnEitherSide) {
  for (int number = 0; number < 300; ++number) {
    SCOPED_TRACE(::testing::Message() << "case " << number);
    Dice dice(static_cast<std::uint32_t>(number) + 3);
    store.NumPathSegments = 0;
    resetUndoState(desk);
    const auto coordinate = [&] { return static_cast<float>(dice.below(4)); };
    const auto addRow = [&](int code) {
      addPathLine(coordinate(), coordinate(), coordinate(), coordinate(), code);
    };
    for (int row = dice.below(20); row > 0; --row) addRow(100 * (1 + dice.below(3)));
    const std::vector<PathRow> before = rows();
    PathStep step(cam);
    for (int change = dice.below(15); change > 0; --change) {
      const int ps = 1 + dice.below(store.NumPathSegments + 1);
      store.currentpathgroup = 1 + dice.below(6);
      switch (dice.below(4)) {
        case 0:
          deletePathSegment(store, ps);
          break;
        case 1:
          insertPathSegment(store, ps, {.type = kLine, .x1 = coordinate()}, 0);
          break;
        case 2:
          addRow(400);
          break;
        default:
          if (ps <= store.NumPathSegments) store.psx1[ps] = coordinate();
      }
    }
    step.keep();
    const std::vector<PathRow> after = rows();
    if (after == before) continue;
    Undo_Last_Change(desk);
    ASSERT_EQ(rows(), before);
    ASSERT_FALSE(desk.changelog.canUndo());
    RedoLastChange(desk);
    ASSERT_EQ(rows(), after);
    ASSERT_FALSE(desk.changelog.canRedo());
  }
}

}  // namespace
}  // namespace tess
