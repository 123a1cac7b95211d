// One step of the log for whatever a command did to the path rows.
#include "drafting/path_difference.h"

#include "gtest/gtest.h"

#include "core/drawing_store.h"
#include "drafting/undo.h"
#include "tests/geometry/scenes.h"
#include "tests/support/drafting_test_context.h"

namespace tess {
namespace {

using testing::Dice;
using testing::RecordedDrafting;

struct Difference : ::testing::Test, RecordedDrafting {
  std::vector<PathRow> rows() const {
    std::vector<PathRow> all;
    for (int ps = 1; ps <= store.NumPathSegments; ++ps) all.push_back(pathRow(store, ps));
    return all;
  }
};

TEST_F(Difference, OfEqualRowsIsEmpty) {
  addPathLine(0, 0, 1, 0);
  addPathLine(0, 0, 1, 0);
  EXPECT_TRUE(pathDifference(rows(), rows()).empty());
  EXPECT_TRUE(pathDifference({}, {}).empty());
}

TEST_F(Difference, NamesThePlaceThatEachRowHasAtThatMoment) {
  for (const float x : {1.0F, 2.0F, 3.0F}) addPathLine(x, 0, x, 1);
  const std::vector<PathRow> before = rows();
  PathRow of2 = before[1];
  PathRow new4 = {.type = kLine, .x0 = 4, .code = 200};
  const std::vector<clsSegment> records = pathDifference(before, {new4, of2, new4});
  ASSERT_EQ(records.size(), 4U);
  const struct {
    const char* kind;
    int row;
    float x0;
  } expected[] = {{"A", 1, 4}, {"D", 2, 1}, {"A", 3, 4}, {"D", 4, 3}};
  for (std::size_t at = 0; at < records.size(); ++at) {
    EXPECT_EQ(records[at].AddOrDelete, expected[at].kind) << at;
    EXPECT_EQ(records[at].row, expected[at].row) << at;
    EXPECT_EQ(records[at].x0, expected[at].x0) << at;
    EXPECT_FALSE(records[at].StartOfSegment) << at;
  }
}

// Rows come, go and change anywhere, also within old groups.
TEST_F(Difference, UndoAndRedoGiveBackExactlyTheRowsOnEitherSide) {
  for (int number = 0; number < 300; ++number) {
    SCOPED_TRACE(::testing::Message() << "case " << number);
    Dice dice(static_cast<std::uint32_t>(number) + 3);
    store.NumPathSegments = 0;
    resetUndoState(context);
    const auto coordinate = [&] { return static_cast<float>(dice.below(4)); };
    const auto anyRow = [&](int code) {
      return PathRow{.type = kLine,
                     .x0 = coordinate(),
                     .y0 = coordinate(),
                     .x1 = coordinate(),
                     .y1 = coordinate(),
                     .code = code};
    };
    for (int row = dice.below(20); row > 0; --row) {
      addPathSegment(store, anyRow(100 * (1 + dice.below(3))));
    }
    const std::vector<PathRow> before = rows();
    Change change(context.changes, Step::PathDifference);
    for (int edit = dice.below(15); edit > 0; --edit) {
      const int ps = 1 + dice.below(store.NumPathSegments + 1);
      const bool isRow = ps <= store.NumPathSegments;
      switch (dice.below(4)) {
        case 0:
          if (isRow) change.paths.erase(ps);
          break;
        case 1:
          change.paths.insert(ps, anyRow(100 * (1 + dice.below(6))));
          break;
        case 2:
          change.paths.append(anyRow(400));
          break;
        default:
          if (isRow) change.paths.replace(ps, anyRow(store.pscode[ps]));
      }
    }
    change.keep({.redraws = false});
    const std::vector<PathRow> after = rows();
    if (after == before) continue;
    Undo_Last_Change(context);
    ASSERT_EQ(rows(), before);
    ASSERT_FALSE(context.changelog.canUndo());
    RedoLastChange(context);
    ASSERT_EQ(rows(), after);
    ASSERT_FALSE(context.changelog.canRedo());
  }
}

}  // namespace
}  // namespace tess
