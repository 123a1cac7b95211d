// Corner overcut: by a sweep that shares nothing with what makes the drops a square mate fits into
// every corner, and nothing else of the part is cut; the proof knows what was meant, and only that.
#include "toolpath/corner_overcut.h"

#include <cmath>
#include <string>
#include <vector>

#include "gmock/gmock.h"
#include "gtest/gtest.h"

#include "drafting/undo.h"
#include "tests/support/proof_of.h"
#include "tests/toolpath/overcut_job.h"
#include "toolpath/proof_text.h"

namespace tess {
namespace {

using namespace tess::testing;
using ::testing::IsEmpty;
using ::testing::SizeIs;

constexpr double kReached = 0.001;

// ---- The sweep

struct Corner {
  Vec at;
  std::vector<const testing::Curve*> walls;  // that meet there
  double angle = 0;                          // of what is free
};

std::vector<const testing::Curve*> wallsOf(const PartShape& part) {
  std::vector<const testing::Curve*> walls;
  for (const auto& wall : part.pocket) walls.push_back(&wall);
  for (const Loop& island : part.islands) {
    for (const auto& wall : island) walls.push_back(&wall);
  }
  return walls;
}

// What of a small circle round a place is free.
double freeAngle(const PartShape& part, Vec at) {
  constexpr int kLooks = 720;
  int free = 0;
  for (int look = 0; look < kLooks; ++look) {
    free += isAllowed(part, onCircle(at, 1e-4, kFullTurn * (look + 0.5) / kLooks));
  }
  return kFullTurn * free / kLooks;
}

std::vector<Corner> insideCornersOf(const PartShape& part) {
  constexpr double kFlat = 0.1;  // the cutter leaves less than is reached anyway
  std::vector<Corner> corners;
  for (const testing::Curve* wall : wallsOf(part)) {
    Corner corner{wall->end, {}, freeAngle(part, wall->end)};
    if (corner.angle > kFullTurn / 2 - kFlat) continue;
    for (const testing::Curve* other : wallsOf(part)) {
      if (distanceBetween(*other, corner.at) < 1e-5) corner.walls.push_back(other);
    }
    corners.push_back(corner);
  }
  return corners;
}

double toCut(const std::vector<testing::Curve>& path, double radius, Vec at) {
  double least = 1e9;
  for (const testing::Curve& curve : path) least = std::min(least, distanceBetween(curve, at));
  return least - radius;
}

bool isReached(const std::vector<testing::Curve>& path, double radius, const Corner& corner) {
  return toCut(path, radius, corner.at) <= kReached;
}

// A row that the next one goes back.
bool isDrop(const std::vector<testing::Curve>& path, std::size_t k) {
  return !path[k].isArc && k + 1 < path.size() && !path[k + 1].isArc &&
         path[k].start == path[k + 1].end && path[k].end == path[k + 1].start;
}

struct SplitPath {
  std::vector<testing::Curve> along, drops;
};
SplitPath splitOf(const std::vector<testing::Curve>& path) {
  SplitPath split;
  for (std::size_t k = 0; k < path.size(); ++k) {
    const bool drops = isDrop(path, k);
    (drops ? split.drops : split.along).push_back(path[k]);
    if (drops) ++k;
  }
  return split;
}

// Of what the path left of the walls without a drop.
void expectMateFits(const std::vector<testing::Curve>& path, double radius, const Corner& corner) {
  for (const testing::Curve* wall : corner.walls) {
    const double length = std::min(lengthOf(*wall) / 2, radius / std::tan(corner.angle / 2));
    const bool fromStart = lengthOf(wall->start - corner.at) < lengthOf(wall->end - corner.at);
    for (const double share : {0.0, 0.1, 0.25, 0.4, 0.6, 0.8}) {
      const double along = share * length / lengthOf(*wall);
      EXPECT_LE(toCut(path, radius, pointOn(*wall, fromStart ? along : 1 - along)), kReached)
          << corner.at.x << ", " << corner.at.y << " share " << share;
    }
  }
}

// No deeper than to the corner, and into no wall but those that meet there.
void expectCutsTheCornerAlone(const PartShape& part, const testing::Curve& drop, double radius,
                              const std::vector<Corner>& corners) {
  constexpr double kRounding = 1e-4;
  const auto into = std::min_element(corners.begin(), corners.end(), [&](auto& a, auto& b) {
    return lengthOf(a.at - drop.end) < lengthOf(b.at - drop.end);
  });
  ASSERT_NE(into, corners.end());
  EXPECT_NEAR(lengthOf(into->at - drop.end), radius, kRounding);
  EXPECT_NEAR(cross(into->at - drop.start, drop.end - drop.start), 0, kRounding) << "straight";
  EXPECT_TRUE(isAllowed(part, drop.end));
  for (const testing::Curve* wall : wallsOf(part)) {
    if (std::find(into->walls.begin(), into->walls.end(), wall) != into->walls.end()) continue;
    for (int look = 0; look <= 20; ++look) {
      EXPECT_GE(distanceBetween(*wall, pointOn(drop, look / 20.0)), radius - kRounding);
    }
  }
}

// Of the message that not all corners can be cut over.
int blockedIn(const std::vector<Message>& messages) {
  int blocked = 0;
  for (const Message& message : messages) {
    const std::size_t of = message.text.find(" of ");
    if (message.text.find("inside corners can be cut over") == std::string::npos) continue;
    blocked += std::stoi(message.text.substr(of + 4));
    if (message.text.starts_with("Only ")) blocked -= std::stoi(message.text.substr(5));
  }
  return blocked;
}

TEST(CornerOvercut, LetsASquareMateIntoTheCornersOfGeneratedPockets) {
  int drops = 0, reached = 0, blocked = 0;
  for (int number = 0; number < 150; ++number) {
    const TestPocket pocket = pocketOf(number);
    SCOPED_TRACE(pocket.name);
    OvercutJob job(pocket);
    job.store.cfg_cutting_mode = 1 + number % 2;
    job.store.cfg_lead_in_arc = number % 3 == 2;
    job.store.cfg_lead_in_path = number % 3 != 0;
    job.store.cfg_lead_in_length = 0.2F;
    job.store.cfg_lead_in_angle = 40;
    const double radius = job.toolRadius();
    const std::vector<testing::Curve> path = job.finish();
    const std::vector<Corner> corners = insideCornersOf(pocket.part);
    const SplitPath split = splitOf(path);
    EXPECT_LE(deepestGouge(pocket.part, split.along, radius).depth, 1e-4);
    for (const testing::Curve& drop : split.drops) {
      expectCutsTheCornerAlone(pocket.part, drop, radius, corners);
    }
    int unreached = 0;
    for (const Corner& corner : corners) {
      if (isReached(path, radius, corner)) {
        expectMateFits(path, radius, corner);
        ++reached;
      } else {
        ++unreached;
      }
    }
    EXPECT_LE(unreached, blockedIn(job.messages()));
    const PathProof proof = job.proof();
    EXPECT_EQ(proof.overcuts.size(), split.drops.size());
    for (const OvercutFinding& corner : proof.overcuts) EXPECT_TRUE(corner.reachesCorner());
    EXPECT_FALSE(proof.isBeyondLimits()) << proofText(proof);
    drops += static_cast<int>(split.drops.size());
    blocked += blockedIn(job.messages());
  }
  EXPECT_GT(drops, 400);
  EXPECT_GT(reached, 400);
  EXPECT_GT(blocked, 10);
}

// ---- Where the path drops

std::vector<testing::Curve> dropsOf(const std::vector<testing::Curve>& path) {
  return splitOf(path).drops;
}

TEST(CornerOvercut, GoesStraightUntilTheCutterTouchesTheCorner) {
  OvercutJob job(rectangle(4, 2));
  const std::vector<testing::Curve> path = job.finish();
  ASSERT_THAT(path, SizeIs(12));
  const std::vector<testing::Curve> drops = dropsOf(path);
  ASSERT_THAT(drops, SizeIs(4));
  const double in = 0.25 / std::sqrt(2);
  for (const testing::Curve& drop : drops) {
    EXPECT_NEAR(std::min(drop.start.x, 4 - drop.start.x), 0.25, 1e-6);
    EXPECT_NEAR(std::min(drop.start.y, 2 - drop.start.y), 0.25, 1e-6);
    EXPECT_NEAR(std::min(drop.end.x, 4 - drop.end.x), in, 1e-6);
    EXPECT_NEAR(std::min(drop.end.y, 2 - drop.end.y), in, 1e-6);
  }
  for (std::size_t k = 1; k < path.size(); ++k) EXPECT_EQ(path[k].start, path[k - 1].end) << k;
}

TEST(CornerOvercut, IsAtEachLevel) {
  OvercutJob job(rectangle(4, 2));
  job.store.cfg_z_cut_per_pass = 0.125F;
  job.finish();
  for (const float z : {-0.125F, -0.25F, -0.375F, -0.5F}) {
    std::vector<testing::Curve> level;
    for (int ps = 1; ps <= job.store.NumPathSegments; ++ps) {
      if (job.store.psz[ps] == z) level.push_back(curveOf(pathRow(job.store, ps)));
    }
    EXPECT_THAT(dropsOf(level), SizeIs(4)) << z;
  }
  EXPECT_THAT(job.proof().overcuts, SizeIs(4));
  EXPECT_FALSE(job.proof().isBeyondLimits());
}

TEST(CornerOvercut, IsOnlyOnTheFinishedSize) {
  OvercutJob job(rectangle(4, 2));
  job.store.cfg_min_rough_clearance = 0.1F;
  job.test.recording.prompts.onForm = [](Form& form) {
    if (form.name() == "frmFinishPath") form.control("txtNumPasses")->set("text", "2");
    form.pressDefault();
  };
  const std::vector<testing::Curve> path = job.finish();
  EXPECT_THAT(path, SizeIs(4 + 12));
  EXPECT_THAT(dropsOf({path.begin(), path.begin() + 4}), IsEmpty());
}

TEST(CornerOvercut, IsNeverOnALead) {
  for (const bool arcs : {false, true}) {
    OvercutJob job(rectangle(4, 2));
    job.store.cfg_lead_in_path = !arcs;
    job.store.cfg_lead_in_arc = arcs;
    job.store.cfg_lead_in_length = 0.3F;
    job.store.cfg_lead_in_angle = 45;
    const std::vector<testing::Curve> path = job.finish();
    ASSERT_THAT(path, SizeIs(15)) << "a row is two halves, and there are two leads";
    EXPECT_THAT(dropsOf({path.begin() + 2, path.end() - 2}), SizeIs(4));
    EXPECT_FALSE(job.proof().isBeyondLimits());
  }
}

TEST(CornerOvercut, ReachesCornersOfArcs) {
  // An arc on a chord, and two arcs: their corners are sharper the smaller the sweep.
  const SegmentRow chord{.type = kLine, .x0 = 0, .y0 = 0, .x1 = 4, .y1 = 0};
  const SegmentRow upper{
      .type = kCounterClockwiseArc, .x0 = 4, .y0 = 0, .x1 = 0, .y1 = 0, .xc = 2, .yc = -0.5F};
  const SegmentRow lower{
      .type = kCounterClockwiseArc, .x0 = 0, .y0 = 0, .x1 = 4, .y1 = 0, .xc = 2, .yc = 1};
  for (const auto& outline : {std::vector{chord, upper}, std::vector{lower, upper}}) {
    const TestPocket pocket = pocketOfRows(outline);
    OvercutJob job(pocket);
    const std::vector<testing::Curve> path = job.finish();
    EXPECT_THAT(dropsOf(path), SizeIs(2));
    for (const Corner& corner : insideCornersOf(pocket.part)) {
      EXPECT_NEAR(toCut(path, 0.25, corner.at), 0, 1e-5);
    }
    EXPECT_FALSE(job.proof().isBeyondLimits());
  }
}

TEST(CornerOvercut, OfAWallInSeveralPiecesIsThatOfOneWall) {
  const TestPocket pocket = pocketOfRows(
      polygonRows({{0, 0}, {3.8F, 0}, {3.9F, 0}, {4, 0}, {4, 0.1F}, {4, 2}, {0.3F, 2}, {0, 2}}));
  OvercutJob job(pocket);
  EXPECT_THAT(dropsOf(job.finish()), SizeIs(4));
  EXPECT_THAT(job.messages(), IsEmpty());
  EXPECT_FALSE(job.proof().isBeyondLimits());
}

TEST(CornerOvercut, IsOnOpenChainsToo) {
  for (const Point side : {Point{1, 1}, Point{-1, -1}}) {
    RecordedCam job;
    job.store.zstartpos = 1;
    job.store.cfg_true_paths = true;
    job.store.cfg_corner_overcut = 1;
    job.add({.type = kLine, .x0 = 4, .y0 = 0, .x1 = 0, .y1 = 0});
    job.add({.type = kLine, .x0 = 0, .y0 = 3, .x1 = 0, .y1 = 0});
    job.test.recording.prompts.onForm = [](Form& form) { form.pressDefault(); };
    mnuCAMPlaceFinishPath_Click(job.cam);
    for (const Point at : {Point{4, 0}, Point{2, 0}, side}) job.click(at.x, at.y);
    const std::vector<testing::Curve> path = toolPath(job.store);
    EXPECT_THAT(dropsOf(path), SizeIs(side.x > 0 ? 1 : 0));
    const PathProof proof = proofOf(job.store, job.cam.context.session.pathJobs);
    EXPECT_THAT(proof.overcuts, SizeIs(side.x > 0 ? 1 : 0));
    EXPECT_FALSE(proof.isBeyondLimits()) << proofText(proof);
  }
}

// ---- What cannot be

TEST(CornerOvercut, ThatWouldCutAnotherWallIsBlockedAndTold) {
  OvercutJob job(rectangle(4, 2));
  for (const SegmentRow& row : polygonRows({{4.05F, -1}, {6, -1}, {6, 3}, {4.05F, 3}})) {
    job.add(row);
    job.store.segattr[job.store.NumSegments] = kVerifiedRow;
  }
  const std::vector<testing::Curve> drops = dropsOf(job.finish());
  ASSERT_THAT(drops, SizeIs(2));
  for (const testing::Curve& drop : drops) EXPECT_LT(drop.end.x, 1);
  ASSERT_THAT(job.messages(), SizeIs(1));
  EXPECT_EQ(job.messages()[0].text,
            "Only 2 of 4 inside corners can be cut over. In the others the cutter would cut "
            "another wall, or cannot touch both walls.");
  EXPECT_EQ(job.messages()[0].title, "Corner Overcut");
  EXPECT_FALSE(job.proof().isBeyondLimits());
}

TEST(CornerOvercut, WhereItCannotBeAtAllIsToldAndThePathPlaced) {
  const TestPocket pocket = pocketOfRows(polygonRows(
      {{0.1F, 0}, {3.9F, 0}, {4, 0.1F}, {4, 1.9F}, {3.9F, 2}, {0.1F, 2}, {0, 1.9F}, {0, 0.1F}}));
  OvercutJob job(pocket);
  EXPECT_THAT(job.finish(), SizeIs(4));
  EXPECT_EQ(job.formsOfCorners(), 0);
  ASSERT_THAT(job.messages(), SizeIs(1));
  EXPECT_EQ(job.messages()[0].text,
            "None of 8 inside corners can be cut over. In the others the cutter would cut another "
            "wall, or cannot touch both walls.");
  EXPECT_EQ(job.messages()[0].title, "Place Finish Path");
}

// Rounding to 32 bits may leave rows out, and then that is told; none of those placed is a gouge.
TEST(CornerOvercut, FarFromTheOriginPlacesNoRowThatTheProofRejects) {
  for (const float far : {100.0F, 1000.7F, 2000.3F, 30000.1F}) {
    OvercutJob job(pocketOfRows(polygonRows(
        {{far, far}, {far + 4, far + 0.5F}, {far + 3.5F, far + 2.5F}, {far - 0.5F, far + 2}})));
    const std::size_t drops = dropsOf(job.finish()).size();
    const PathProof proof = job.proof();
    EXPECT_LE(proof.gouge.depth, proof.limits.depth) << far;
    EXPECT_THAT(job.messages(), SizeIs(drops == 4 ? 0 : 1)) << far;
    EXPECT_TRUE(drops == 4 || far > 1000) << far;
  }
}

TEST(CornerOvercut, AsksNothingWhereThereAreNoInsideCorners) {
  OvercutJob job(rectangle(4, 2));
  job.finishAt({{0, 0}, {2, 0}, {2, -0.5F}});
  EXPECT_GT(job.store.NumPathSegments, 0);
  EXPECT_EQ(job.formsOfCorners(), 0);
  EXPECT_THAT(job.messages(), IsEmpty());
}

TEST(CornerOvercut, IsNothingWithoutTruePathsItsKeyOrAChain) {
  const auto rowsWith = [](auto change) {
    OvercutJob job(rectangle(4, 2));
    change(job);
    job.finish();
    EXPECT_EQ(job.formsOfCorners(), 0);
    return job.store.NumPathSegments;
  };
  EXPECT_EQ(rowsWith([](OvercutJob& job) { job.store.cfg_corner_overcut = 0; }), 4);
  EXPECT_EQ(rowsWith([](OvercutJob& job) { job.store.cfg_corner_overcut = 7; }), 4);
  EXPECT_EQ(rowsWith([](OvercutJob& job) { job.store.cfg_true_paths = false; }), 4);
}

// ---- With other settings

TEST(CornerOvercut, WithWhatIsLeftGoesOnlyWhereTheCornerStands) {
  OvercutJob job(rectangle(4, 2));
  job.store.cfg_corner_overcut = 0;
  const std::vector<testing::Curve> whole = job.finish();
  job.store.cfg_corner_overcut = 1;
  job.store.cfg_finish_what_is_left = true;
  const std::vector<testing::Curve> rest = job.finish();
  EXPECT_THAT(dropsOf(rest), SizeIs(4));
  double length = 0;
  for (const testing::Curve& curve : rest) length += lengthOf(curve);
  EXPECT_LT(length, 4 * (2 * 0.104 + 2 * 0.25)) << "the drops, and a radius beside them";
  for (const Corner& corner : insideCornersOf(rectangle(4, 2).part)) {
    EXPECT_NEAR(toCut(rest, 0.25, corner.at), 0, 1e-5);
  }
  EXPECT_FALSE(job.proof().isBeyondLimits()) << proofText(job.proof());
  job.finish();
  EXPECT_EQ(job.messages().back().text,
            "Nothing is left that the selected tool can reach.\n\nNothing was placed.");
}

TEST(CornerOvercut, AfterALargerCutterReachesTheCorners) {
  OvercutJob job(rectangle(4, 2));
  job.finish();
  job.store.toolradius[1] = 0.1F;
  job.store.toolname[1] = "small";
  job.store.selectedtool = 1;
  job.store.cfg_finish_what_is_left = true;
  const std::vector<testing::Curve> none = job.finish();
  job.store.NumPathSegments = 0;
  job.store.selectedtool = 0;
  job.store.cfg_corner_overcut = 0;
  job.finish();
  job.store.selectedtool = 1;
  job.store.cfg_corner_overcut = 1;
  const std::vector<testing::Curve> rest = job.finish();
  EXPECT_THAT(dropsOf(none), IsEmpty()) << "a mate fits already";
  EXPECT_THAT(dropsOf(rest), SizeIs(4));
}

// An L that is cut free: one inside corner, and tabs on its rows.
TEST(CornerOvercut, AndTabsKeepOffOneAnother) {
  const TestPocket part =
      pocketOfRows(polygonRows({{0, 0}, {4, 0}, {4, 1}, {1, 1}, {1, 4}, {0, 4}}));
  OvercutJob job(part);
  job.store.cfg_holding_tabs = true;
  job.store.cfg_tab_number = 20;
  job.store.cfg_tab_width = 0.2F;
  job.store.cfg_tab_height = 0.1F;
  job.store.cfg_z_cut_per_pass = 0.125F;
  job.test.recording.prompts.onForm = [](Form& form) { form.pressDefault(); };
  job.finishAt({{0, 0}, {2, 0}, {2, -0.5F}});
  const PathProof proof = job.proof();
  EXPECT_FALSE(proof.isBeyondLimits()) << proofText(proof);
  ASSERT_THAT(proof.overcuts, SizeIs(1));
  EXPECT_TRUE(proof.overcuts[0].reachesCorner());
  EXPECT_GT(proof.tabs.size(), 10U);
  for (const TabFinding& tab : proof.tabs) {
    EXPECT_TRUE(tab.standsAsAsked());
    EXPECT_GT(std::hypot(tab.x - 1, tab.y - 1), 0.7) << "away from the corner";
  }
}

// A first row shorter than the tool is wide takes the drop behind it into the ramp.
TEST(CornerOvercut, IsNoHindranceToARamp) {
  OvercutJob job(rectangle(0.9F, 0.8F));
  job.store.cfg_entry_kind = choiceNumber(EntryKind::Ramp);
  job.store.cfg_entry_angle = 10;
  job.finish();
  const PathProof proof = job.proof();
  EXPECT_THAT(job.messages(), IsEmpty());
  EXPECT_THAT(proof.plunges, IsEmpty());
  EXPECT_THAT(proof.overcuts, SizeIs(4));
  EXPECT_FALSE(proof.isBeyondLimits()) << proofText(proof);
}

TEST(CornerOvercut, IsOneStepOfUndoWithItsPath) {
  OvercutJob job(rectangle(4, 2));
  job.finish();
  EXPECT_EQ(job.store.NumPathSegments, 12);
  Undo_Last_Change(job.context);
  EXPECT_EQ(job.store.NumPathSegments, 0);
}

}  // namespace
}  // namespace tess
