// Removing a vertex.
#include "drafting/remove_vertex.h"

#include "gtest/gtest.h"

#include "core/drawing_store.h"
#include "tests/geometry/rows.h"
#include "tests/support/drafting_test_context.h"
#include "tests/support/edit_checks.h"

namespace tess {
namespace {

using testing::addPath;
using testing::addSegment;
using testing::expectNoStep;
using testing::expectOneStep;
using testing::pathTexts;
using testing::RecordedDrafting;
using testing::segmentTexts;
using Texts = std::vector<std::string>;

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

// ---- The command

struct VertexContext : RecordedDrafting {
  void remove(float x, float y) {
    mnuDeleteVertex_Click(context);
    click(x, y);
  }
  void expectTold(const std::string& text) {
    ASSERT_EQ(messages().size(), 1U);
    EXPECT_EQ(messages()[0].text, text);
    EXPECT_EQ(messages()[0].title, "Remove Vertex");
    EXPECT_EQ(messages()[0].icon, MessageIcon::Warning);
    EXPECT_EQ(messages()[0].buttons, MessageButtons::Ok);
    EXPECT_EQ(pending(), 0);
  }
};

TEST(RemoveVertex, MakesOneLineOfTwo) {
  VertexContext d;
  d.addLine(0, 0, 2, 1);
  d.addLine(4, 0, 2, 1);
  d.store.segattr[2] = 10;
  mnuDeleteVertex_Click(d.context);
  EXPECT_EQ(d.prompt(), "Click near vertex to remove.");
  expectOneStep(d, [&d] { d.click(2, 2); });
  EXPECT_EQ(segmentTexts(d.store), (Texts{"1 (4, 0)-(0, 0) @10"}));
  EXPECT_EQ(d.context.changelog.changecount, 3);
  EXPECT_EQ(d.pending(), 0);
}

TEST(RemoveVertex, TakesTheTwoLowestOfThreeLines) {
  VertexContext d;
  d.addLine(-3, -3, -2, -3);
  d.addLine(0, 0, 1, 0);
  d.addLine(1, 0, 2, 0);
  d.addLine(1, 0, 1, 2);
  d.remove(1, 0.1F);
  EXPECT_EQ(segmentTexts(d.store),
            (Texts{"1 (-3, -3)-(-2, -3)", "1 (0, 0)-(2, 0)", "1 (1, 0)-(1, 2)"}));
}

TEST(RemoveVertex, WhereOneLineEndsTellsSo) {
  VertexContext d;
  d.addLine(0, 0, 2, 0);
  expectNoStep(d, [&d] { d.remove(2, 0); });
  d.expectTold("There must be at least 2 line segments joined at the selected point.");
}

TEST(RemoveVertex, DoesNotCountAnArc) {
  VertexContext d;
  d.addLine(0, 0, 2, 0);
  d.add({.type = 3, .x0 = 2, .y0 = 0, .x1 = 2, .y1 = 2, .xc = 2, .yc = 1});
  expectNoStep(d, [&d] { d.remove(2, 0); });
  d.expectTold("There must be at least 2 line segments joined at the selected point.");
}

TEST(RemoveVertex, TakesEndsWithinTheTolerance) {
  VertexContext d;
  d.addLine(0, 0, 2, 0);
  d.addLine(2.0009F, 0, 2, 2);
  d.remove(2, -1);
  EXPECT_EQ(segmentTexts(d.store), (Texts{"1 (0, 0)-(2, 2)"}));
}

TEST(RemoveVertex, KeepsTheCollectionToTheRowsThatAreMarked) {
  VertexContext d;
  d.addLine(0, 0, 2, 0);
  d.addLine(2, 0, 2, 2);
  d.store.segattr[2] = 30008;
  d.remove(2, 0);
  EXPECT_EQ(d.context.state.Selected.rows(), (std::vector<int>{1}));
}

// ---- Path rows

struct PathVertexContext : VertexContext {
  PathVertexContext() { context.command.EditPaths = true; }
  void add(const PathRow& row) { addPathSegment(store, row); }
};

TEST(RemovePathVertex, MakesOneMoveOfTwo) {
  PathVertexContext d;
  d.add({.type = 1, .x1 = 2, .z = -1, .feed = 5, .code = 203});
  d.add({.type = 1, .x0 = 2, .x1 = 2, .y1 = 2, .z = -2, .feed = 6, .code = 100});
  d.add({.type = 1, .x0 = 2, .y0 = 2, .x1 = 4, .y1 = 2, .z = -2, .feed = 6, .code = 100});
  expectOneStep(d, [&d] { d.remove(2, 0); });
  EXPECT_EQ(pathTexts(d.store),
            (Texts{"1 (0, 0)-(2, 2) @100 z -2 f 6", "1 (2, 2)-(4, 2) @100 z -2 f 6"}));
}

TEST(RemovePathVertex, KeepsTheRadiusOfAnArcThatReaches) {
  PathVertexContext d;
  d.add({.type = 1, .x0 = 0, .y0 = 5, .x1 = 3, .y1 = 4, .code = 100});
  d.add({.type = 2, .x0 = 3, .y0 = 4, .x1 = 5, .y1 = 0, .code = 100});
  expectOneStep(d, [&d] { d.remove(3, 4); });
  ASSERT_EQ(d.store.NumPathSegments, 1);
  EXPECT_EQ(d.store.psy0[1], 5);
  EXPECT_NEAR(d.store.psxc[1], 0, 2e-6);
  EXPECT_NEAR(d.store.psyc[1], 0, 2e-6);
}

TEST(RemovePathVertex, MakesAHalfCircleOfAnArcThatDoesNot) {
  PathVertexContext d;
  d.add({.type = 1, .x0 = -4, .x1 = 0, .code = 100});
  d.add({.type = 3, .x0 = 0, .x1 = 1, .y1 = 1, .xc = 0, .yc = 1, .code = 100});
  expectOneStep(d, [&d] { d.remove(0, 0); });
  EXPECT_EQ(pathTexts(d.store), (Texts{"3 (-4, 0)-(1, 1) c (-1.5, 0.5) @100 z 0"}));
}

TEST(RemovePathVertex, WhereOneRowEndsTellsSo) {
  PathVertexContext d;
  d.add({.type = 1, .x1 = 2, .code = 100});
  d.add({.type = 0, .x0 = 2, .x1 = 4, .code = 100});
  expectNoStep(d, [&d] { d.remove(2, 0); });
  d.expectTold("There must be at least 2 path segments joined at the selected point.");
}

TEST(RemovePathVertex, PassesOverHiddenRows) {
  PathVertexContext d;
  d.add({.type = 1, .x1 = 2, .code = 100});
  d.add({.type = 1, .x0 = 2, .x1 = 4, .code = 200});
  d.store.psvisible[2] = false;
  expectNoStep(d, [&d] { d.remove(2, 0); });
  d.expectTold("There must be at least 2 path segments joined at the selected point.");
}

}  // namespace
}  // namespace tess
