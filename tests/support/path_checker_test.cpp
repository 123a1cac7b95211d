// The sweep of a tool, on cases that a pencil can check.
#include "tests/support/path_checker.h"

#include <cmath>

#include "gtest/gtest.h"

#include "core/drawing_store.h"

namespace tess::testing {
namespace {

constexpr double kPiExact = kFullTurn / 2;
constexpr double kRadius = 0.5;

std::vector<Curve> linesThrough(const std::vector<Vec>& places) {
  std::vector<Curve> lines;
  for (std::size_t k = 1; k < places.size(); ++k)
    lines.push_back(lineCurve(places[k - 1], places[k]));
  return lines;
}

Loop polygon(std::vector<Vec> corners) {
  corners.push_back(corners.front());
  return linesThrough(corners);
}

Loop box(Vec low, Vec high) {
  return polygon({low, {high.x, low.y}, high, {low.x, high.y}});
}

// A square of 4 without islands.
const PartShape kSquare{box({0, 0}, {4, 4}), {}};

// Material in the quarter beyond (2, 2).
const PartShape kAngle{polygon({{0, 0}, {4, 0}, {4, 2}, {2, 2}, {2, 4}, {0, 4}}), {}};

std::vector<Curve> ringInside(double inset) {
  return box({inset, inset}, {4 - inset, 4 - inset});
}

TEST(DeepestGouge, ARingInASquareIsInByWhatItsInsetLacks) {
  EXPECT_NEAR(deepestGouge(kSquare, ringInside(0.5), kRadius).depth, 0, 1e-12);
  EXPECT_NEAR(deepestGouge(kSquare, ringInside(0.4), kRadius).depth, 0.1, 1e-12);
  EXPECT_NEAR(deepestGouge(kSquare, ringInside(0.75), kRadius).depth, -0.25, 1e-12);
  EXPECT_NEAR(deepestGouge(kSquare, ringInside(0), kRadius).depth, 0.5, 1e-9);
}

TEST(DeepestGouge, TellsRowAndPlace) {
  const std::vector<Curve> path = linesThrough({{1, 1}, {3, 1}, {3.75, 2}, {1, 3}});
  const Gouge gouge = deepestGouge(kSquare, path, kRadius);
  EXPECT_NEAR(gouge.depth, 0.25, 1e-9);
  EXPECT_EQ(gouge.curve, 1);
  EXPECT_NEAR(gouge.place.x, 3.75, 1e-6);
  EXPECT_NEAR(gouge.place.y, 2, 1e-6);
}

TEST(DeepestGouge, WithoutRowsThereIsNone) {
  const Gouge gouge = deepestGouge(kSquare, {}, kRadius);
  EXPECT_EQ(gouge.curve, -1);
  EXPECT_LT(gouge.depth, 0);
}

TEST(DeepestGouge, ACenterBeyondTheWallIsInByMoreThanTheRadius) {
  const Gouge gouge = deepestGouge(kSquare, linesThrough({{2, 2}, {2, 5}}), kRadius);
  EXPECT_NEAR(gouge.depth, kRadius + 1, 1e-9);
  EXPECT_NEAR(gouge.place.y, 5, 1e-6);
  // Wholly outside, and parallel to the wall.
  EXPECT_NEAR(deepestGouge(kSquare, linesThrough({{1, 5}, {3, 5}}), kRadius).depth, kRadius + 1,
              1e-9);
}

// Through the middle of a round island the centre is deepest at the island's.
TEST(DeepestGouge, AWayThroughAnIslandIsDeepestInItsMiddle) {
  const PartShape part{kSquare.pocket, {{circleCurve({2, 2}, 0.75)}}};
  const Gouge gouge = deepestGouge(part, linesThrough({{0.5, 2}, {3.5, 2}}), kRadius);
  EXPECT_NEAR(gouge.depth, kRadius + 0.75, 1e-6);
  EXPECT_NEAR(gouge.place.x, 2, 1e-6);
  // Beside the middle by 0.25, the walls are nearest a little off it.
  const double depth = deepestGouge(part, linesThrough({{0.5, 2.25}, {3.5, 2.25}}), kRadius).depth;
  EXPECT_NEAR(depth, kRadius + 0.5, 1e-6);
}

TEST(DeepestGouge, AnIslandIsClearedByTheRadius) {
  const PartShape part{kSquare.pocket, {box({1.5, 1.5}, {2.5, 2.5})}};
  std::vector<Curve> path = box({1, 1}, {3, 3});
  EXPECT_NEAR(deepestGouge(part, path, kRadius).depth, 0, 1e-12);
  // Its corners stand square: a ring of arcs about them is as near.
  path = {lineCurve({1.5, 1}, {2.5, 1}), arcCurve({2.5, 1}, {3, 1.5}, {2.5, 1.5}, false),
          lineCurve({3, 1.5}, {3, 2.5})};
  EXPECT_NEAR(deepestGouge(part, path, kRadius).depth, 0, 1e-12);
}

// Round a corner of the material: an arc touches, a chord of it cuts in.
TEST(DeepestGouge, AChordAcrossAnOutsideCornerCutsIt) {
  std::vector<Curve> path = {lineCurve({1.5, 3}, {1.5, 2}),
                             arcCurve({1.5, 2}, {2, 1.5}, {2, 2}, /*clockwise=*/false),
                             lineCurve({2, 1.5}, {3, 1.5})};
  EXPECT_NEAR(deepestGouge(kAngle, path, kRadius).depth, 0, 1e-12);
  path[1] = lineCurve({1.5, 2}, {2, 1.5});
  const Gouge gouge = deepestGouge(kAngle, path, kRadius);
  EXPECT_NEAR(gouge.depth, kRadius - std::sqrt(0.125), 1e-12);
  EXPECT_EQ(gouge.curve, 1);
  EXPECT_NEAR(gouge.place.x, 1.75, 1e-6);
}

TEST(DeepestGouge, ARingInARoundPocket) {
  const PartShape part{{circleCurve({1, 1}, 2)}, {}};
  EXPECT_NEAR(deepestGouge(part, {circleCurve({1, 1}, 1.5)}, kRadius).depth, 0, 1e-12);
  EXPECT_NEAR(deepestGouge(part, {circleCurve({1.25, 1}, 1.5)}, kRadius).depth, 0.25, 1e-12);
  EXPECT_NEAR(deepestGouge(part, linesThrough({{0, 1}, {2.75, 1}}), kRadius).depth, 0.25, 1e-12);
}

// ---- What is left

// A corner that a tool cannot reach: the square of its radius less the quarter disc.
constexpr double kCorner = kRadius * kRadius * (1 - kPiExact / 4);

TEST(ReachableArea, LacksTheCornersAndNothingElse) {
  EXPECT_NEAR(ReachableArea(kSquare, kRadius).area(), 16 - 4 * kCorner, 0.05);
  const PartShape round{{circleCurve({0, 0}, 1.5)}, {}};
  EXPECT_NEAR(ReachableArea(round, kRadius).area(), kPiExact * 2.25, 0.05);
  const PartShape ring{round.pocket, {{circleCurve({0, 0}, 0.25)}}};
  EXPECT_NEAR(ReachableArea(ring, kRadius).area(), kPiExact * (2.25 - 0.0625), 0.05);
}

TEST(ReachableArea, APocketNarrowerThanTheToolHasNone) {
  const PartShape slot{box({0, 0}, {4, 0.9}), {}};
  const ReachableArea area(slot, kRadius);
  EXPECT_EQ(area.area(), 0);
  EXPECT_EQ(area.coverageOf(std::vector<Curve>()).share, 1);
}

// Two rooms of 2 by 2 with a neck of 0.9 between: the tool peeps into the mouths alone.
TEST(ReachableArea, StopsAtANeckNarrowerThanTheTool) {
  const auto dumbbell = [](double half) {
    return PartShape{polygon({{0, 0},
                              {2, 0},
                              {2, 1 - half},
                              {5, 1 - half},
                              {5, 0},
                              {7, 0},
                              {7, 2},
                              {5, 2},
                              {5, 1 + half},
                              {2, 1 + half},
                              {2, 2},
                              {0, 2}}),
                     {}};
  };
  const double rooms = 2 * (4 - 4 * kCorner);
  const double closed = ReachableArea(dumbbell(0.45), kRadius).area();
  EXPECT_GT(closed, rooms - 0.1);
  EXPECT_LT(closed, rooms + 0.6);
  // Wide enough, the whole neck of 3 is reached.
  const double open = ReachableArea(dumbbell(0.55), kRadius).area();
  EXPECT_NEAR(open, rooms + 3 * 1.1, 0.1);
}

TEST(Coverage, EverythingCutLeavesNothing) {
  const ReachableArea area({box({0, 0}, {4, 2}), {}}, kRadius);
  std::vector<Curve> path = box({0.5, 0.5}, {3.5, 1.5});
  path.push_back(lineCurve({0.5, 1}, {3.5, 1}));
  const Coverage coverage = area.coverageOf(path);
  EXPECT_EQ(coverage.share, 1);
  EXPECT_EQ(coverage.rest, 0);
  EXPECT_NEAR(coverage.cut, 8 - 4 * kCorner, 0.05);
}

// One ring leaves the square of 2 in the middle, whose own middle is 1 away from the cut.
TEST(Coverage, ARingLeavesTheMiddle) {
  const Coverage coverage = ReachableArea(kSquare, kRadius).coverageOf(ringInside(0.5));
  EXPECT_NEAR(coverage.reachable - coverage.cut, 4, 0.1);
  EXPECT_NEAR(coverage.rest, 1, 0.05);
  EXPECT_NEAR(coverage.restPlace.x, 2, 0.06);
  EXPECT_NEAR(coverage.restPlace.y, 2, 0.06);
}

TEST(Coverage, NoWayLeavesAll) {
  const Coverage coverage = ReachableArea(kSquare, kRadius).coverageOf(std::vector<Curve>());
  EXPECT_EQ(coverage.share, 0);
  EXPECT_TRUE(std::isinf(coverage.rest));
}

// What is cut where it must not be does not count as cut.
TEST(Coverage, GougesDoNotRaiseTheShare) {
  const Coverage coverage =
      ReachableArea(kSquare, kRadius).coverageOf(linesThrough({{-1, 2}, {5, 2}}));
  EXPECT_NEAR(coverage.cut, 4, 0.1);
}

// A side that is an arc of a circle far larger than the pocket.
TEST(Coverage, AFlatArcMakesNoLargeRaster) {
  PartShape part = kSquare;
  part.pocket[0] = arcCurve({0, 0}, {4, 0}, {2, 20000}, /*clockwise=*/false);
  EXPECT_NEAR(ReachableArea(part, kRadius).area(), 16, 0.3);
}

// ---- Rooms

TEST(ToolRooms, ASquareIsOneRoomWhileTheToolFits) {
  EXPECT_EQ(toolRooms(kSquare, 0.5), 1);
  EXPECT_EQ(toolRooms(kSquare, 1.9), 1);
  EXPECT_EQ(toolRooms(kSquare, 2.1), 0);
}

TEST(ToolRooms, ANeckNarrowerThanTheToolParts) {
  // Two rooms of 4 by 4 with a passage 1 wide.
  const PartShape part{polygon({{0, 0},
                                {4, 0},
                                {4, 1},
                                {6, 1},
                                {6, 0},
                                {10, 0},
                                {10, 4},
                                {6, 4},
                                {6, 2},
                                {4, 2},
                                {4, 4},
                                {0, 4}}),
                       {}};
  EXPECT_EQ(toolRooms(part, 0.4), 1);
  EXPECT_EQ(toolRooms(part, 0.6), 2);
}

// ---- From rows to shapes

TEST(PartOf, TakesRowsThatRunEitherWay) {
  const std::vector<SegmentRow> rows = {
      {.type = kLine, .x0 = 4, .y0 = 0, .x1 = 0, .y1 = 0},
      {.type = kLine, .x0 = 4, .y0 = 0, .x1 = 4, .y1 = 4},
      {.type = kCounterClockwiseArc, .x0 = 4, .y0 = 4, .x1 = 0, .y1 = 4, .xc = 2, .yc = 4},
      {.type = kLine, .x0 = 0, .y0 = 0, .x1 = 0, .y1 = 4},
  };
  const PartShape part = partOf(rows, {{{.type = kCircle, .x0 = 3, .y0 = 2, .xc = 2, .yc = 2}}});
  for (std::size_t k = 0; k < part.pocket.size(); ++k) {
    const Vec next = part.pocket[(k + 1) % part.pocket.size()].start;
    EXPECT_EQ(part.pocket[k].end, next) << k;
  }
  EXPECT_TRUE(isAllowed(part, {0.5, 2}));
  EXPECT_TRUE(isAllowed(part, {2, 5.5}));
  EXPECT_FALSE(isAllowed(part, {2, 2}));
  EXPECT_FALSE(isAllowed(part, {5, 2}));
  EXPECT_EQ(clearance(part, {0.25, 2}), 0.25);
  EXPECT_EQ(clearance(part, {2, 2}), -1);
  EXPECT_EQ(clearance(part, {-2, 2}), -2);
}

TEST(PartOf, TakesTwoHalvesOfACircle) {
  const PartShape part = partOf({{.type = kCounterClockwiseArc, .x0 = 2, .x1 = -2},
                                 {.type = kClockwiseArc, .x0 = 2, .x1 = -2}});
  EXPECT_TRUE(isAllowed(part, {0, 1}));
  EXPECT_TRUE(isAllowed(part, {0, -1}));
  EXPECT_FALSE(isAllowed(part, {2, 2}));
}

TEST(ToolPath, LeavesOutRapidsAndCycles) {
  DrawingStore store;
  for (const int type : {kRapid, kLine, kClockwiseArc, 81, kCounterClockwiseArc}) {
    addPathSegment(store, {.type = type, .x0 = 1, .x1 = -1});
  }
  addPathSegment(store, {.type = kLine, .x0 = 1, .x1 = -1, .z = kLatheRapidZ});
  EXPECT_EQ(toolPath(store).size(), 3U);
  EXPECT_EQ(toolPath(store, 3, 4).size(), 1U);
}

}  // namespace
}  // namespace tess::testing
