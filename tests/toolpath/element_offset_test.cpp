// Elements displaced one by one, their joints, and whole walks in memory.
#include "toolpath/element_offset.h"

#include <cmath>
#include <string>

#include "gtest/gtest.h"

#include "core/drawing_store.h"
#include "tests/geometry/rows.h"
#include "tests/support/drafting_test_context.h"

namespace tess {
namespace {

using testing::addSegment;
using testing::segmentText;
using Texts = std::vector<std::string>;

std::string text(const Entity& e) {
  return segmentText({.type = e.type,
                      .x0 = e.start.x,
                      .y0 = e.start.y,
                      .x1 = e.end.x,
                      .y1 = e.end.y,
                      .xc = e.center.x,
                      .yc = e.center.y});
}

Texts texts(const OffsetChain& chain) {
  Texts all;
  for (const Entity& element : chain.elements()) all.push_back(text(element));
  return all;
}

DrawingStore drawing(const std::vector<Entity>& rows) {
  DrawingStore store;
  store.cfg_tolerance = testing::kTolerence;
  for (const Entity& row : rows) addSegment(store, row);
  return store;
}

Entity arc(int type, Point start, Point end, Point center) {
  return {type, start, end, center};
}

// The walk from row `sg` at `start`, as a list.
Texts offsetRows(const DrawingStore& store, int sg, Point start, Side side, float radius) {
  ChainWalk rows(store);
  OffsetWalk walk{
      .sg = sg, .start = start, .end = otherEnd(store, sg, start), .next = {}, .taken = {}};
  walk.next = [&rows](int from, Point at) { return rows.nextChainSeg(from, at); };
  OffsetChain chain({side, radius, store.cfg_tolerance});
  offsetAlong(store, walk, chain);
  return texts(chain);
}

TEST(TravelledRow, AnArcEnteredAtItsEndHasTheOtherSense) {
  const DrawingStore store = drawing({arc(kClockwiseArc, {1, 0}, {0, -1}, {0, 0}),
                                      arc(kCounterClockwiseArc, {1, 0}, {0, 1}, {0, 0})});
  EXPECT_EQ(travelledRow(store, 1, {1, 0}, {0, -1}).type, kClockwiseArc);
  EXPECT_EQ(travelledRow(store, 1, {0, -1}, {1, 0}).type, kCounterClockwiseArc);
  EXPECT_EQ(travelledRow(store, 2, {1, 0}, {0, 1}).type, kCounterClockwiseArc);
  EXPECT_EQ(travelledRow(store, 2, {0, 1}, {1, 0}).type, kClockwiseArc);
}

TEST(TravelledRow, AClosedArcIsClockwise) {
  const DrawingStore store = drawing({arc(kClockwiseArc, {1, 0}, {1, 0}, {0, 0}),
                                      arc(kCounterClockwiseArc, {1, 0}, {1, 0}, {0, 0})});
  EXPECT_EQ(travelledRow(store, 1, {1, 0}, {1, 0}).type, kClockwiseArc);
  EXPECT_EQ(travelledRow(store, 2, {1, 0}, {1, 0}).type, kClockwiseArc);
}

TEST(OtherEnd, IsTheEndUnlessTheWalkEntersThere) {
  const DrawingStore store = drawing({lineEntity({0, 0}, {1, 0})});
  EXPECT_EQ(otherEnd(store, 1, {0, 0}), (Point{1, 0}));
  EXPECT_EQ(otherEnd(store, 1, {1, 0}), (Point{0, 0}));
}

// Every direction of travel against every place of the reference round the line.
TEST(SideOfLine, FollowsTheReferenceInAllDirections) {
  struct Case {
    const char* name;
    Point direction;
    SideSigns reference;
    Side side;
  };
  constexpr Case kCases[] = {
      {"right, above", {1, 0}, {0, 1}, Side::Left},
      {"right, below", {1, 0}, {0, -1}, Side::Right},
      {"left, above", {-1, 0}, {0, 1}, Side::Right},
      {"left, below", {-1, 0}, {0, -1}, Side::Left},
      {"up, to the right", {0, 1}, {1, 0}, Side::Right},
      {"up, to the left", {0, 1}, {-1, 0}, Side::Left},
      {"down, to the right", {0, -1}, {1, 0}, Side::Left},
      {"down, to the left", {0, -1}, {-1, 0}, Side::Right},
      {"up right, below right", {1, 1}, {1, -1}, Side::Right},
      {"up right, above left", {1, 1}, {-1, 1}, Side::Left},
      {"up left, above right", {-1, 1}, {1, 1}, Side::Right},
      {"up left, below left", {-1, 1}, {-1, -1}, Side::Left},
      {"down left, above left", {-1, -1}, {-1, 1}, Side::Right},
      {"down right, above right", {1, -1}, {1, 1}, Side::Left},
      {"x undecided", {1, 1}, {0, -1}, Side::Right},
      {"y undecided", {1, 1}, {1, 0}, Side::Right},
      {"on the line", {1, 1}, {0, 0}, Side::On},
      {"on a horizontal line", {1, 0}, {0, 0}, Side::On},
      {"beyond the end along the line", {1, 1}, {1, 1}, Side::On},
      {"straight ahead", {1, 0}, {1, 0}, Side::On},
  };
  for (const Case& row : kCases) {
    EXPECT_EQ(sideOfLine(lineEntity({0, 0}, row.direction), row.reference), row.side) << row.name;
  }
}

TEST(OffsetElement, ALineMovesAlongItsNormal) {
  const Entity line = lineEntity({0, 0}, {3, 4});
  EXPECT_EQ(text(*offsetElement(line, Side::Right, 0.5F)), "1 (0.4, -0.3)-(3.4, 3.7)");
  EXPECT_EQ(text(*offsetElement(line, Side::Left, 0.5F)), "1 (-0.4, 0.3)-(2.6, 4.3)");
  EXPECT_EQ(text(*offsetElement(line, Side::On, 0.5F)), "1 (0, 0)-(3, 4)");
}

TEST(OffsetElement, AnUprightLineKeepsItsOtherCoordinate) {
  EXPECT_EQ(text(*offsetElement(lineEntity({0, 0}, {0, 2}), Side::Right, 0.25F)),
            "1 (0.25, 0)-(0.25, 2)");
  EXPECT_EQ(text(*offsetElement(lineEntity({0, 0}, {2, 0}), Side::Right, 0.25F)),
            "1 (0, -0.25)-(2, -0.25)");
}

TEST(OffsetElement, AnArcGrowsOrShrinksAboutItsCenter) {
  const Entity ccw = arc(kCounterClockwiseArc, {1, 0}, {0, 1}, {0, 0});
  const Entity cw = arc(kClockwiseArc, {0, 1}, {1, 0}, {0, 0});
  EXPECT_EQ(text(*offsetElement(ccw, Side::Right, 0.25F)), "3 (1.25, 0)-(0, 1.25) c (0, 0)");
  EXPECT_EQ(text(*offsetElement(ccw, Side::Left, 0.25F)), "3 (0.75, 0)-(0, 0.75) c (0, 0)");
  EXPECT_EQ(text(*offsetElement(ccw, Side::On, 0.25F)), "3 (1, 0)-(0, 1) c (0, 0)");
  EXPECT_EQ(text(*offsetElement(cw, Side::Right, 0.25F)), "2 (0, 0.75)-(0.75, 0) c (0, 0)");
  EXPECT_EQ(text(*offsetElement(cw, Side::Left, 0.25F)), "2 (0, 1.25)-(1.25, 0) c (0, 0)");
}

TEST(OffsetElement, AnArcCollapsesAtItsCenter) {
  const Entity ccw = arc(kCounterClockwiseArc, {1, 0}, {0, 1}, {0, 0});
  EXPECT_FALSE(offsetElement(ccw, Side::Left, 1));
  EXPECT_FALSE(offsetElement(ccw, Side::Left, 1.5F));
  EXPECT_TRUE(offsetElement(ccw, Side::Left, 0.999F));
  EXPECT_TRUE(offsetElement(ccw, Side::On, 1.5F));
}

TEST(OffsetElement, AnArcWithoutRadiusStaysAPoint) {
  const Entity point = arc(kCounterClockwiseArc, {1, 1}, {1, 1}, {1, 1});
  EXPECT_EQ(text(*offsetElement(point, Side::Right, 0.25F)), "3 (1, 1)-(1, 1) c (1, 1)");
}

TEST(OffsetAlong, AnInsideCornerIsTrimmed) {
  const DrawingStore store = drawing({lineEntity({0, 0}, {2, 0}), lineEntity({2, 0}, {2, 2})});
  EXPECT_EQ(offsetRows(store, 1, {0, 0}, Side::Left, 0.25F),
            (Texts{"1 (0, 0.25)-(1.75, 0.25)", "1 (1.75, 0.25)-(1.75, 2)"}));
}

TEST(OffsetAlong, AnOutsideCornerIsBridgedRoundTheVertex) {
  const DrawingStore store = drawing({lineEntity({0, 0}, {2, 0}), lineEntity({2, 0}, {2, 2})});
  EXPECT_EQ(offsetRows(store, 1, {0, 0}, Side::Right, 0.25F),
            (Texts{"1 (0, -0.25)-(2, -0.25)", "3 (2, -0.25)-(2.25, 0) c (2, 0)",
                   "1 (2.25, 0)-(2.25, 2)"}));
}

TEST(OffsetAlong, ALeftHandBridgeIsClockwise) {
  const DrawingStore store = drawing({lineEntity({0, 0}, {2, 0}), lineEntity({2, 0}, {2, -2})});
  EXPECT_EQ(
      offsetRows(store, 1, {0, 0}, Side::Left, 0.25F),
      (Texts{"1 (0, 0.25)-(2, 0.25)", "2 (2, 0.25)-(2.25, 0) c (2, 0)", "1 (2.25, 0)-(2.25, -2)"}));
}

TEST(OffsetAlong, TangentRowsNeedNoJoint) {
  const DrawingStore store =
      drawing({lineEntity({0, -1}, {2, -1}), arc(kCounterClockwiseArc, {2, -1}, {3, 0}, {2, 0})});
  EXPECT_EQ(offsetRows(store, 1, {0, -1}, Side::Right, 0.25F),
            (Texts{"1 (0, -1.25)-(2, -1.25)", "3 (2, -1.25)-(3.25, 0) c (2, 0)"}));
}

TEST(OffsetAlong, TheNeighboursOfACollapsedArcAreJoined) {
  const DrawingStore store = drawing({lineEntity({0, 0}, {1.9F, 0}),
                                      arc(kCounterClockwiseArc, {1.9F, 0}, {2, 0.1F}, {1.9F, 0.1F}),
                                      lineEntity({2, 0.1F}, {2, 2})});
  EXPECT_EQ(offsetRows(store, 1, {0, 0}, Side::Left, 0.25F),
            (Texts{"1 (0, 0.25)-(1.75, 0.25)", "1 (1.75, 0.25)-(1.75, 2)"}));
}

TEST(OffsetAlong, NeighboursOfACollapsedArcThatDoNotMeetAreBridgedWhereTheNextRowBegins) {
  const DrawingStore store =
      drawing({lineEntity({0, 0}, {2, 0}), arc(kClockwiseArc, {2, 0}, {2.2F, 0}, {2.1F, 0}),
               lineEntity({2.2F, 0}, {4, 0})});
  EXPECT_EQ(offsetRows(store, 1, {0, 0}, Side::Right, 0.25F),
            (Texts{"1 (0, -0.25)-(2, -0.25)", "3 (2, -0.25)-(2.2, -0.25) c (2.2, 0)",
                   "1 (2.2, -0.25)-(4, -0.25)"}));
}

// Two arcs that meet twice: the second hit counts, however far it lies.
TEST(OffsetAlong, OfTwoHitsTheSecondIsTaken) {
  OffsetChain chain({Side::Left, 0, testing::kTolerence});
  chain.append(lineEntity({-2, 0.6F}, {2, 0.6F}));
  chain.append(arc(kCounterClockwiseArc, {1, 0}, {0.9F, -0.43588989F}, {0, 0}));
  chain.joinLast({0, 0});
  EXPECT_EQ(texts(chain),
            (Texts{"1 (-2, 0.6)-(-0.8, 0.6)", "3 (-0.8, 0.6)-(0.9, -0.4359) c (0, 0)"}));
}

TEST(OffsetAlong, AWalkEndsAtARowThatItPassedWithoutAClosingJoint) {
  // A tail that runs into a triangle: the walk comes back to the triangle's first row.
  const DrawingStore store = drawing({lineEntity({0, 0}, {1, 0}), lineEntity({1, 0}, {2, 1}),
                                      lineEntity({2, 1}, {2, -1}), lineEntity({2, -1}, {1, 0})});
  ChainWalk rows(store);
  OffsetWalk walk{.sg = 1, .start = {0, 0}, .end = {1, 0}, .next = {}, .taken = {}};
  walk.next = [&rows](int from, Point at) { return rows.nextChainSeg(from, at); };
  std::vector<int> taken;
  walk.taken = [&taken](int sg) { taken.push_back(sg); };
  OffsetChain chain({Side::On, 0.25F, store.cfg_tolerance});
  EXPECT_TRUE(offsetAlong(store, walk, chain));
  EXPECT_EQ(taken, (std::vector<int>{1, 2, 3, 4}));
  EXPECT_EQ(chain.elements().size(), 4U);
}

TEST(OffsetAlong, ALooseEndLeavesTheWalkOpen) {
  const DrawingStore store = drawing({lineEntity({0, 0}, {1, 0})});
  ChainWalk rows(store);
  OffsetWalk walk{.sg = 1, .start = {0, 0}, .end = {1, 0}, .next = {}, .taken = {}};
  walk.next = [&rows](int from, Point at) { return rows.nextChainSeg(from, at); };
  OffsetChain chain({Side::Right, 0.25F, store.cfg_tolerance});
  EXPECT_FALSE(offsetAlong(store, walk, chain));
  EXPECT_EQ(texts(chain), (Texts{"1 (0, -0.25)-(1, -0.25)"}));
}

// Circles and rectangles have no rule: they repeat what was there before them.
TEST(OffsetAlong, ARowWithoutARuleRepeatsTheElementBefore) {
  const DrawingStore store =
      drawing({lineEntity({0, 0}, {1, 0}), {kRectangle, {1, 0}, {2, 2}, {}}});
  EXPECT_EQ(offsetRows(store, 1, {0, 0}, Side::Right, 0.25F),
            (Texts{"1 (0, -0.25)-(1, -0.25)", "3 (1, -0.25)-(0, -0.25) c (1, 0)",
                   "6 (0, -0.25)-(1, -0.25)"}));
}

// What is left of a D whose arc has collapsed: one line that is joined to itself. The rules say so;
// the pocket is smaller than the tool.
TEST(OffsetAlong, ASingleElementIsBridgedToItself) {
  const DrawingStore store =
      drawing({lineEntity({0, -1}, {0, 1}), arc(kClockwiseArc, {0, 1}, {0, -1}, {0, 0})});
  EXPECT_EQ(offsetRows(store, 1, {0, -1}, Side::Right, 1.5F),
            (Texts{"1 (1.5, -1)-(1.5, 1)", "3 (1.5, 1)-(1.5, -1) c (0, -1)"}));
}

TEST(OffsetAlong, NothingIsLeftOfACircleSmallerThanTheTool) {
  const DrawingStore store = drawing({arc(kCounterClockwiseArc, {1, 0}, {1, 0}, {0, 0})});
  EXPECT_EQ(offsetRows(store, 1, {1, 0}, Side::Right, 1.5F), Texts{});
  EXPECT_EQ(offsetRows(store, 1, {1, 0}, Side::Right, 0.25F),
            (Texts{"2 (0.75, 0)-(0.75, 0) c (0, 0)"}));
}

}  // namespace
}  // namespace tess
