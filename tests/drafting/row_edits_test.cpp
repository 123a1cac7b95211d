// Taking rows out of the tables and putting rows in between.
#include "drafting/row_edits.h"

#include <utility>
#include <vector>

#include "gtest/gtest.h"

#include "core/drawing_store.h"
#include "tests/support/drafting_test_context.h"
#include "tests/support/failure_of.h"
#include "tests/support/plain_edits.h"

namespace tess {
namespace {

using testing::deletePathSegment;
using testing::deleteSegment;
using testing::insertPathSegment;
using testing::insertPathSegments;
using testing::pathTexts;
using testing::segmentTexts;
using Texts = std::vector<std::string>;

DrawingStore threeRows() {
  DrawingStore store;
  for (const float x : {1.0F, 2.0F, 3.0F}) {
    AddSeg(store, {.type = 2, .attr = 8, .x1 = x, .xc = x, .yc = -x}, nullptr);
    addPathSegment(store, {.type = 1, .x1 = x, .z = -x, .feed = x, .code = 100});
  }
  store.drawingsaved = true;
  return store;
}

TEST(DeleteSegment, MovesLaterRowsDown) {
  DrawingStore store = threeRows();
  deleteSegment(store, 2);
  EXPECT_EQ(segmentTexts(store), (Texts{"2 (0, 0)-(1, 0) c (1, -1)", "2 (0, 0)-(3, 0) c (3, -3)"}));
  EXPECT_FALSE(store.drawingsaved);
  EXPECT_EQ(store.NumPathSegments, 3);
}

TEST(DeleteSegment, OutsideTheRowsChangesNothing) {
  DrawingStore store = threeRows();
  for (const int row : {-1, 0, 4}) {
    deleteSegment(store, row);
    deletePathSegment(store, row);
  }
  EXPECT_EQ(store.NumSegments, 3);
  EXPECT_EQ(store.NumPathSegments, 3);
  EXPECT_TRUE(store.drawingsaved);
}

TEST(DeletePathSegment, MovesLaterRowsDown) {
  DrawingStore store = threeRows();
  deletePathSegment(store, 1);
  EXPECT_EQ(pathTexts(store),
            (Texts{"1 (0, 0)-(2, 0) @100 z -2 f 2", "1 (0, 0)-(3, 0) @100 z -3 f 3"}));
  EXPECT_FALSE(store.drawingsaved);
}

TEST(InsertSegment, MovesLaterRowsUp) {
  DrawingStore store = threeRows();
  EXPECT_TRUE(testing::editing(store, [](Changes& changes) {
    return insertSegment(changes, 2,
                         {.type = kClockwiseArc, .attr = 10, .x0 = 5, .x1 = 6, .xc = 5.5F});
  }));
  EXPECT_EQ(segmentTexts(store),
            (Texts{"2 (0, 0)-(1, 0) c (1, -1)", "2 (5, 0)-(6, 0) c (5.5, 0) @10",
                   "2 (0, 0)-(2, 0) c (2, -2)", "2 (0, 0)-(3, 0) c (3, -3)"}));
  EXPECT_FALSE(store.drawingsaved);
}

TEST(InsertSegment, RefusesARowThatEndsWhereItStarts) {
  DrawingStore store = threeRows();
  EXPECT_FALSE(testing::editing(store, [](Changes& changes) {
    return insertSegment(changes, 1, {.type = kLine, .x0 = 5, .y0 = 1, .x1 = 5, .y1 = 1});
  }));
  EXPECT_EQ(store.NumSegments, 3);
  EXPECT_TRUE(store.drawingsaved);
}

TEST(InsertPathSegment, PutsARowOfTheCurrentGroupInFront) {
  DrawingStore store = threeRows();
  store.currentpathgroup = 12;
  insertPathSegment(store, 2, {.type = 3, .x1 = 9, .z = -1, .feed = 5, .visible = false}, 3);
  EXPECT_EQ(pathTexts(store),
            (Texts{"1 (0, 0)-(1, 0) @100 z -1 f 1", "3 (0, 0)-(9, 0) c (0, 0) @1203 z -1 f 5",
                   "1 (0, 0)-(2, 0) @100 z -2 f 2", "1 (0, 0)-(3, 0) @100 z -3 f 3"}));
  EXPECT_TRUE(store.psvisible[2]);
  EXPECT_EQ(store.lastplacedgroup, 12);
  EXPECT_FALSE(store.drawingsaved);
}

TEST(InsertPathSegment, ReducesAToolAboveOneHundred) {
  struct ToolCase {
    int tool, code;
  };
  for (const ToolCase& row : {ToolCase{99, 299}, {100, 300}, {101, 201}, {1203, 203}}) {
    DrawingStore store = threeRows();
    store.currentpathgroup = 2;
    insertPathSegment(store, 1, {}, row.tool);
    EXPECT_EQ(store.pscode[1], row.code) << row.tool;
  }
}

TEST(InsertPathSegments, PutsEachInFrontOfItsRow) {
  DrawingStore together = threeRows();
  DrawingStore oneByOne = threeRows();
  const std::vector<PathInsertion> insertions = {{1, {.type = 1, .x1 = 7}},
                                                 {3, {.type = 1, .x1 = 8}},
                                                 {3, {.type = 1, .x1 = 9}},
                                                 {4, {.type = 2, .x1 = 10}}};
  together.currentpathgroup = oneByOne.currentpathgroup = 5;
  insertPathSegments(together, insertions, 2);
  int inserted = 0;
  for (const PathInsertion& insertion : insertions) {
    insertPathSegment(oneByOne, insertion.before + inserted++, insertion.row, 2);
  }
  EXPECT_EQ(pathTexts(together), pathTexts(oneByOne));
  EXPECT_EQ(pathTexts(together), (Texts{"1 (0, 0)-(7, 0) @502 z 0", "1 (0, 0)-(1, 0) @100 z -1 f 1",
                                        "1 (0, 0)-(2, 0) @100 z -2 f 2", "1 (0, 0)-(8, 0) @502 z 0",
                                        "1 (0, 0)-(9, 0) @502 z 0", "1 (0, 0)-(3, 0) @100 z -3 f 3",
                                        "2 (0, 0)-(10, 0) c (0, 0) @502 z 0"}));
  EXPECT_EQ(together.lastplacedgroup, 5);
  EXPECT_FALSE(together.drawingsaved);
}

TEST(InsertPathSegments, OfNoneChangesNothing) {
  DrawingStore store = threeRows();
  store.currentpathgroup = 5;
  insertPathSegments(store, {}, 2);
  EXPECT_EQ(store.NumPathSegments, 3);
  EXPECT_EQ(store.lastplacedgroup, 1);
  EXPECT_TRUE(store.drawingsaved);
}

TEST(InsertPathSegments, InAFullTableInsertsNone) {
  DrawingStore store;
  ensurePathCapacity(store, 32767);
  store.NumPathSegments = 32766;
  const std::vector<PathInsertion> insertions(2, PathInsertion{1, {.type = 1}});
  EXPECT_EQ(testing::numberOfFailure([&] { insertPathSegments(store, insertions, 0); }),
            FailureNumber::Overflow);
  EXPECT_EQ(store.NumPathSegments, 32766);
  EXPECT_EQ(store.pstype[1], 0);
}

TEST(InsertPathSegment, InAFullTableFails) {
  DrawingStore store;
  ensurePathCapacity(store, 32767);
  store.NumPathSegments = 32767;
  EXPECT_EQ(testing::numberOfFailure([&] { insertPathSegment(store, 1, {}, 0); }),
            FailureNumber::Overflow);
}

}  // namespace
}  // namespace tess
