// What the rules of the tool paths leave to the operator: each case with its figure, so that a
// change of it is seen. docs/limits.md tells what to do instead.
//
// Depths are how far the tool enters what must stay; a share is of the area that the tool can
// reach.
#include <cmath>
#include <string>
#include <utility>
#include <vector>

#include "gtest/gtest.h"

#include "core/drawing_store.h"
#include "core/pocketing_choices.h"
#include "tests/toolpath/pocket_job.h"
#include "tests/toolpath/working_outline_rows.h"
#include "toolpath/path_groups.h"

namespace tess {
namespace {

using namespace tess::testing;
using Rows = std::vector<SegmentRow>;
using Texts = std::vector<std::string>;
using ToolPath = std::vector<Curve>;

constexpr float kRadius = 0.25F;
constexpr double kExact = 1e-4;
constexpr double kGrain = 0.005;  // of shares

SegmentRow arcRow(Point from, Point to, Point center, int type = kCounterClockwiseArc) {
  return {.type = type,
          .x0 = from.x,
          .y0 = from.y,
          .x1 = to.x,
          .y1 = to.y,
          .xc = center.x,
          .yc = center.y};
}

SegmentRow lineRow(Point from, Point to) {
  return {.type = kLine, .x0 = from.x, .y0 = from.y, .x1 = to.x, .y1 = to.y};
}

Rows boxRows(Point low, Point high) {
  return polygonRows({low, {high.x, low.y}, high, {low.x, high.y}});
}

double depthOf(const TestPocket& pocket, const ToolPath& path) {
  return deepestGouge(pocket.part, path, pocket.toolRadius).depth;
}

double shareOf(const TestPocket& pocket, const ToolPath& path) {
  return ReachableArea(pocket.part, pocket.toolRadius).coverageOf(path).share;
}

double roughDepth(const TestPocket& pocket, const JobSettings& settings = {}) {
  PocketJob job(pocket, settings);
  EXPECT_TRUE(job.isVerified());
  return depthOf(pocket, job.rough());
}

// The question of verification, and what is left when the answer is Yes.
void expectHalfIsRemoved(const TestPocket& pocket) {
  PocketJob job(pocket, {});
  ASSERT_FALSE(job.messages().empty());
  EXPECT_EQ(job.messages()[0].text,
            "There are duplicate drawing entities.  Would you like to delete all duplicates?");
  EXPECT_EQ(job.store.NumSegments, 1);
  EXPECT_FALSE(job.isVerified());
}

ToolPath together(ToolPath first, const ToolPath& second) {
  first.insert(first.end(), second.begin(), second.end());
  return first;
}

double shareOfJob(const TestPocket& pocket, const JobSettings& settings = {}) {
  PocketJob job(pocket, settings);
  EXPECT_TRUE(job.isVerified());
  ToolPath rough = job.rough();
  return shareOf(pocket, together(std::move(rough), job.finish()));
}

// A pocket like a U that is open at the top, with a tongue 2 wide.
const TestPocket kChannel = pocketOfRows(
    polygonRows({{0, 0}, {6, 0}, {6, 4}, {4, 4}, {4, 1.5F}, {2, 1.5F}, {2, 4}, {0, 4}}));

// ---- The lowest corner tells roughing where the inside is

TEST(KnownLimits, AnObtuseLowestCornerPutsRoughingOnTheWall) {
  const TestPocket pocket = pocketOfRows(polygonRows({{-1, 0}, {1, 0}, {4, 3}, {-4, 3}}));
  EXPECT_NEAR(roughDepth(pocket), kRadius, kExact);
  const TestPocket turned = pocketOfRows(polygonRows({{1, 0}, {-1, 0}, {-4, -3}, {4, -3}}));
  EXPECT_NEAR(roughDepth(turned), 0, kExact);
}

TEST(KnownLimits, ALowestCornerOfALineAndAnArcPutsRoughingOnTheWall) {
  const TestPocket pocket =
      pocketOfRows({lineRow({-2, 0}, {2, 0}), arcRow({2, 0}, {-2, 0}, {0, 0})});
  EXPECT_NEAR(roughDepth(pocket), kRadius, kExact);
  const TestPocket broken = pocketOfRows(
      {lineRow({-2, 0}, {2, 0}), arcRow({2, 0}, {0, 2}, {0, 0}), arcRow({0, 2}, {-2, 0}, {0, 0})});
  EXPECT_NEAR(roughDepth(broken), 0, kExact);
  EXPECT_NEAR(shareOfJob(broken), 1, kGrain);
}

// Three quarters and one quarter; the long arc is drawn first and holds the lowest point.
TEST(KnownLimits, ACircleOfALongAndAShortArcIsRoughedOutside) {
  const TestPocket pocket =
      pocketOfRows({arcRow({0, 2}, {2, 0}, {0, 0}), arcRow({0, 2}, {2, 0}, {0, 0}, kClockwiseArc)});
  EXPECT_NEAR(roughDepth(pocket), 2 * kRadius, kExact);
}

TEST(KnownLimits, ALongAndAShortArcOfOneSenseCountAsDuplicates) {
  const TestPocket pocket =
      pocketOfRows({arcRow({0, 2}, {2, 0}, {0, 0}), arcRow({2, 0}, {0, 2}, {0, 0})});
  expectHalfIsRemoved(pocket);
  EXPECT_NEAR(roughDepth(pocket, {.keepsDuplicates = true}), 2 * kRadius, kExact);
}

TEST(KnownLimits, TwoHalfCirclesOfOneSenseCountAsDuplicates) {
  const TestPocket pocket =
      pocketOfRows({arcRow({-2, 0}, {2, 0}, {0, 0}), arcRow({2, 0}, {-2, 0}, {0, 0})});
  expectHalfIsRemoved(pocket);
  EXPECT_NEAR(roughDepth(pocket, {.keepsDuplicates = true}), 0, kExact);
}

// The outline with the lowest row end is the pocket, and a circle has one end: where it was begun.
TEST(KnownLimits, AnIslandBelowTheStartOfARoundPocketIsTakenForThePocket) {
  const SegmentRow circle = arcRow({3, 0}, {3, 0}, {0, 0}, kClockwiseArc);
  const TestPocket pocket = pocketOfRows({circle}, {boxRows({-1, -1}, {1, 1})});
  EXPECT_NEAR(roughDepth(pocket), 2 * kRadius, kExact);
  const TestPocket above = pocketOfRows({circle}, {boxRows({-1, 0.5F}, {1, 2})});
  EXPECT_NEAR(roughDepth(above), 0, kExact);
  const TestPocket fromBelow =
      pocketOfRows({arcRow({0, -3}, {0, -3}, {0, 0}, kClockwiseArc)}, {boxRows({-1, -1}, {1, 1})});
  EXPECT_NEAR(roughDepth(fromBelow), 0, kExact);
}

// ---- Joints

TEST(KnownLimits, TwoArcsThatMeetTwiceAtAJointAreTrimmedAtTheSecondHit) {
  const TestPocket pocket =
      pocketOfRows({arcRow({-2, 0}, {2, 0}, {0, 1}), arcRow({2, 0}, {-2, 0}, {0, -1})});
  EXPECT_NEAR(roughDepth(pocket), 1.951, 1e-3);
  EXPECT_NEAR(shareOfJob(pocket), 0.585, kGrain);
  const float top = std::sqrt(5.0F) - 1;
  const TestPocket broken =
      pocketOfRows({arcRow({-2, 0}, {0, -top}, {0, 1}), arcRow({0, -top}, {2, 0}, {0, 1}),
                    arcRow({2, 0}, {0, top}, {0, -1}), arcRow({0, top}, {-2, 0}, {0, -1})});
  EXPECT_NEAR(roughDepth(broken), 0, kExact);
  EXPECT_NEAR(shareOfJob(broken), 1, kGrain);
}

TEST(KnownLimits, AFinishPathStartedOnAShortChamferKeepsTheFoldAndLosesTheRest) {
  const TestPocket pocket =
      pocketOfRows(polygonRows({{0, 0}, {4, 0}, {4, 3.875F}, {3.875F, 4}, {0, 4}}));
  PocketJob job(pocket, {});
  const ToolPath path = job.finishAt({{4, 3.875F}, {3.9375F, 3.9375F}, {3.5F, 3.5F}});
  EXPECT_NEAR(shareOf(pocket, path), 0.016, kGrain);
  EXPECT_NEAR(depthOf(pocket, path), 2 * kRadius, kExact);
}

// A joint whose rows miss each other by up to 0.0015 counts as a crossing.
TEST(KnownLimits, AChamferJustTooShortForTheToolIsCutByAHair) {
  const float leg = 0.1455F;  // the tool needs 0.14645
  const TestPocket pocket =
      pocketOfRows(polygonRows({{0, 0}, {4, 0}, {4, 4 - leg}, {4 - leg, 4}, {0, 4}}));
  PocketJob job(pocket, {});
  EXPECT_NEAR(depthOf(pocket, job.finish()), 0.00095, 1e-5);
}

// A slot on a slant: with five decimals its straights run into its ends but for a hair, and gouge
// avoidance takes the first joint for a fold.
TEST(KnownLimits, APathThatStartsAtASmoothJointMayBeThrownAwayButForASliver) {
  const TestPocket pocket =
      pocketOfRows({lineRow({-0.05542F, -6.29433F}, {1.59976F, -3.43936F}),
                    arcRow({1.59976F, -3.43936F}, {0.82198F, -2.98844F}, {1.21087F, -3.2139F}),
                    lineRow({0.82198F, -2.98844F}, {-0.8332F, -5.8434F}),
                    arcRow({-0.8332F, -5.8434F}, {-0.05542F, -6.29433F}, {-0.44431F, -6.06887F})});
  EXPECT_NEAR(shareOfJob(pocket), 0.055, kGrain);
  EXPECT_NEAR(shareOfJob(pocket, {.avoidsGouges = false}), 1, kGrain);
}

// ---- Room

TEST(KnownLimits, BehindANeckNarrowerThanTheToolARoomIsLeft) {
  const TestPocket pocket = pocketOfRows(polygonRows({{0, 0},
                                                      {2, 0},
                                                      {2, 1},
                                                      {3, 1},
                                                      {3, 0},
                                                      {5, 0},
                                                      {5, 2},
                                                      {3, 2},
                                                      {3, 1.375F},
                                                      {2, 1.375F},
                                                      {2, 2},
                                                      {0, 2}}));
  EXPECT_NEAR(shareOfJob(pocket), 0.5, kGrain);
  EXPECT_NEAR(roughDepth(pocket), 0, kExact);
}

TEST(KnownLimits, APocketNarrowerThanTheToolIsCutTooWide) {
  const TestPocket pocket = pocketOfRows(boxRows({0, 0}, {4, 0.375F}));
  EXPECT_NEAR(roughDepth(pocket), 2 * kRadius, kExact);
  PocketJob job(pocket, {});
  EXPECT_NEAR(depthOf(pocket, job.finish()), 2 * kRadius, kExact);
}

TEST(KnownLimits, AnIslandNearerToTheWallThanTheToolSpoilsBothOutlines) {
  const TestPocket pocket = pocketOfRows(boxRows({0, 0}, {6, 6}), {boxRows({0.3F, 2}, {2, 4})});
  EXPECT_NEAR(roughDepth(pocket), 1.1, kExact);
  EXPECT_NEAR(shareOfJob(pocket), 0.83, kGrain);
}

TEST(KnownLimits, ArcLeadsCutTheOtherWallOfANarrowSlot) {
  const TestPocket pocket = pocketOfRows(boxRows({0, 0}, {4, 1}));
  PocketJob job(pocket, {});
  job.store.cfg_lead_in_path = false;
  job.store.cfg_lead_in_arc = true;
  job.store.cfg_lead_in_length = 0.75F;
  job.store.cfg_lead_in_angle = 60;
  EXPECT_NEAR(depthOf(pocket, job.finishAt({{0, 0}, {2, 0}, {2, 0.5F}})), 0.1495, kExact);
  EXPECT_TRUE(job.messages().empty());
}

// ---- Links

TEST(KnownLimits, LinksCutAcrossTheTongueOfAUShapedPocket) {
  EXPECT_NEAR(roughDepth(kChannel), 0, kExact);
  EXPECT_NEAR(roughDepth(kChannel, {.connects = true}), 1.25, kExact);
}

// A block with three of its sides to be milled; the path comes back through the middle of it.
TEST(KnownLimits, LinksBetweenTheLevelsOfAnOpenProfileCutThroughThePart) {
  const Rows block = boxRows({-3, 0}, {2, 2});
  const TestPocket around = pocketOfRows(boxRows({-9, -9}, {9, 9}), {block});
  TestPocket profile =
      pocketOfRows({lineRow({0, 0}, {2, 0}), lineRow({2, 0}, {2, 2}), lineRow({2, 2}, {0, 2})});
  PocketJob job(profile, {.connects = true});
  job.store.cfg_z_cut_per_pass = 0.25F;
  const ToolPath path = job.finishAt({{0, 0}, {1, 0}, {1, -1}});
  EXPECT_NEAR(depthOf(around, path), 1.25, kExact);
}

// ---- The spiral

TEST(KnownLimits, ASpiralStartedAtAnEdgeOfExactly135DegreesRunsOutside) {
  const TestPocket pocket = pocketOfRows(polygonRows({{0, -3}, {3, 0}, {0, 3}, {-3, 0}}));
  PocketJob job(pocket, {.style = PocketingStyle::ParallelSpiral});
  EXPECT_NEAR(depthOf(pocket, job.roughFrom({1.25F, 1.25F})), 3.25, kExact);
}

TEST(KnownLimits, ASpiralRoundAnIslandLeavesTheRingsThatMeetIt) {
  const TestPocket pocket = pocketOfRows(boxRows({0, 0}, {6, 6}), {boxRows({2, 2}, {3, 3})});
  EXPECT_NEAR(shareOfJob(pocket, {.style = PocketingStyle::ParallelSpiral}), 0.948, kGrain);
}

TEST(KnownLimits, ASpiralInATriangleStartsWithRingsThatAreTurnedInsideOut) {
  const TestPocket pocket = pocketOfRows(polygonRows({{0, 0}, {3, 5}, {-3, 5}}));
  EXPECT_NEAR(roughDepth(pocket, {.style = PocketingStyle::ParallelSpiral}), 1.5372, kExact);
  EXPECT_NEAR(roughDepth(pocket, {.style = PocketingStyle::ParallelSpiral, .firstRing = 1.5}), 0,
              kExact);
}

TEST(KnownLimits, ASpiralInAnLStartsWithRingsThatAreTurnedInsideOut) {
  const TestPocket pocket =
      pocketOfRows(polygonRows({{0, 0}, {6, 0}, {6, 2}, {2, 2}, {2, 6}, {0, 6}}));
  EXPECT_NEAR(roughDepth(pocket, {.style = PocketingStyle::ParallelSpiral}), 1.5429, kExact);
  EXPECT_NEAR(roughDepth(pocket, {.style = PocketingStyle::ParallelSpiral, .firstRing = 0.9}), 0,
              kExact);
}

// ---- Scan lines

TEST(KnownLimits, WidestVerticesExactlyOnAScanLineEndTheRoughing) {
  const TestPocket pocket =
      pocketOfRows(polygonRows({{1, 0}, {5, 0}, {6, 2}, {5, 4}, {1, 4}, {0, 2}}));
  PocketJob job(pocket, {});
  job.store.cfg_tool_spacing = 100;
  EXPECT_NEAR(shareOf(pocket, job.rough()), 0.363, kGrain);
  EXPECT_EQ(job.store.psy1[job.store.NumPathSegments], 1.5F);
  PocketJob vertical(pocket, {.style = PocketingStyle::Vertical});
  vertical.store.cfg_tool_spacing = 100;
  EXPECT_GT(shareOf(pocket, vertical.rough()), 0.9);
}

TEST(KnownLimits, VerticesOnBothSidesExactlyOnAScanLineEndTheRoughing) {
  // Both sides are drawn in two pieces that meet at half the height.
  const TestPocket pocket =
      pocketOfRows(polygonRows({{0, 0}, {4, 0}, {4, 2.125F}, {4, 4}, {0, 4}, {0, 2.125F}}));
  PocketJob job(pocket, {.cuttingMode = CuttingMode::Conventional});
  const ToolPath rough = job.rough();
  EXPECT_NEAR(shareOf(pocket, rough), 0.496, kGrain);
  EXPECT_NEAR(depthOf(pocket, rough), 0, kExact);
}

TEST(KnownLimits, ArcJointsExactlyOnAScanLineLeaveThatLine) {
  constexpr float kPocketRadius = 2.6875F;  // the seventh line then is the one through the middle
  const Point at[] = {
      {kPocketRadius, 0}, {0, kPocketRadius}, {-kPocketRadius, 0}, {0, -kPocketRadius}};
  Rows rows;
  for (int k = 0; k < 4; ++k) rows.push_back(arcRow(at[k], at[(k + 1) % 4], {0, 0}));
  const TestPocket pocket = pocketOfRows(rows);
  PocketJob job(pocket, {.cuttingMode = CuttingMode::Conventional});
  job.store.cfg_tool_spacing = 75;
  ToolPath rough = job.rough();
  EXPECT_NEAR(shareOf(pocket, together(std::move(rough), job.finish())), 0.957, kGrain);
}

// Scan lines begin below the whole circle of every arc, and a thousand empty ones are the end.
TEST(KnownLimits, AVeryFlatArcEndsTheRoughingBeforeItBegins) {
  const float depth = 0.0078125F;  // of the arc, so its radius is about 256
  const float radius = (4 + depth * depth) / (2 * depth);
  const TestPocket pocket =
      pocketOfRows({arcRow({0, 0}, {4, 0}, {2, radius - depth}), lineRow({4, 0}, {4, 3}),
                    arcRow({4, 3}, {0, 3}, {2, 3 + depth - radius}), lineRow({0, 3}, {0, 0})});
  PocketJob job(pocket, {});
  EXPECT_TRUE(job.rough().empty());
  EXPECT_TRUE(job.messages().empty());
}

// ---- Orders of work

TEST(KnownLimits, ASecondPocketAcceptedBeforeTheFirstIsUnselectedIsCutTooWide) {
  const Rows second = boxRows({6, 1}, {9, 4});
  const TestPocket both = pocketOfRows(boxRows({0, 0}, {4, 5}), {second});
  PocketJob job(both, {});
  const ToolPath path = job.rough();
  ToolPath inSecond;
  for (const Curve& curve : path) {
    if (curve.start.x > 5) inSecond.push_back(curve);
  }
  EXPECT_NEAR(depthOf(pocketOfRows(second), inSecond), 2 * kRadius, kExact);
}

TEST(KnownLimits, LevelsOfAPathInsertedBeforeAnotherGroupAreCopiesOfThatGroup) {
  const TestPocket pocket = pocketOfRows(boxRows({0, 0}, {2, 2}));
  PocketJob job(pocket, {});
  job.addPathLine(5, 5, 6, 6);
  job.store.cfg_z_cut_per_pass = 0.25F;
  job.cam.pathInsertMode = PathInsertMode::BeforeGroup;
  job.cam.pathInsertGroup = 1;
  job.finish();
  std::vector<float> depths;
  for (int ps = 1; ps <= job.store.NumPathSegments; ++ps) depths.push_back(job.store.psz[ps]);
  EXPECT_EQ(depths, (std::vector<float>{-0.25F, -0.25F, -0.25F, -0.25F, 0, -0.5F}));
  EXPECT_EQ(pathTexts(job.store).back(), "1 (5, 5)-(6, 6) @100 z -0.5 f 20");
}

TEST(KnownLimits, ALathePartWithOneSpanEndsWithARapidToTheAxis) {
  PocketJob job(pocketOfRows(boxRows({0, 2}, {10, 3})), {});
  job.store.cfg_lathe_style_pocketing = true;
  job.store.partdimy = 4;
  setSpacing(job.store, 1);
  job.rough();
  EXPECT_EQ(pathEnds(job.store), (Texts{"(0, 2.5)-(10, 2.5)", "(10, 2.5)-(10, 0) rapid"}));
}

}  // namespace
}  // namespace tess
