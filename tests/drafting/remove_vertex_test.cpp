// Removing a vertex.
#include "drafting/remove_vertex.h"

#include "gtest/gtest.h"

#include "core/drawing_store.h"
#include "tests/geometry/rows.h"

namespace tess {
namespace {

using testing::addPath;
using testing::addSegment;

DrawingStore emptyStore() {
  DrawingStore store;
  store.cfg_tolerance = 0.25F;
  return store;
}

TEST(JoinedLineCount, CountsLinesWithAnEndThereOnceEach) {
  DrawingStore store = emptyStore();
  addSegment(store, lineEntity({1, 1}, {5, 5}));
  addSegment(store, lineEntity({5, 5}, {1.25F, 0.75F}), 30008);  // just within the tolerance
  addSegment(store, lineEntity({1, 1}, {1, 1}));
  addSegment(store, lineEntity({1.5F, 1}, {5, 5}));
  addSegment(store, {kClockwiseArc, {1, 1}, {3, 1}, {2, 1}});
  addSegment(store, {kRectangle, {1, 1}, {3, 3}, {}});
  EXPECT_EQ(joinedLineCount(store, {1, 1}), 3);
  EXPECT_EQ(joinedLineCount(store, {3, 1}), 0);
}

TEST(JoinedPathCount, CountsVisibleLinesAndArcs) {
  DrawingStore store = emptyStore();
  addPath(store, lineEntity({1, 1}, {5, 5}));
  addPath(store, {kClockwiseArc, {3, 1}, {1, 1}, {2, 1}});
  addPath(store, {kCounterClockwiseArc, {1, 1.25F}, {3, 1}, {2, 1}});
  addPath(store, lineEntity({1, 1}, {5, 5}), 100, /*visible=*/false);
  addPath(store, {kRapid, {1, 1}, {5, 5}, {}});
  addPath(store, {81, {1, 1}, {1, 1}, {}});
  EXPECT_EQ(joinedPathCount(store, {1, 1}), 3);
  EXPECT_EQ(joinedPathCount(store, {2, 2}), 0);
}

}  // namespace
}  // namespace tess
