// The lathe style in rows: from the top down, with its retreats.
#include "toolpath/scan_lathe.h"

#include "gtest/gtest.h"

#include "core/drawing_store.h"
#include "core/pocketing_choices.h"
#include "drafting/undo.h"
#include "geometry/row_entity.h"
#include "tests/geometry/scenes.h"
#include "tests/toolpath/plain_scan.h"
#include "tests/toolpath/working_outline_rows.h"

namespace tess {
namespace {

using testing::addWorkingBox;
using testing::addWorkingPolygon;
using testing::pathEnds;
using testing::PlainScan;
using testing::RecordedCam;
using testing::setSpacing;
using Texts = std::vector<std::string>;

struct LatheCam : RecordedCam {
  LatheCam() {
    store.partdimy = 4;
    setSpacing(store, 1);
  }
};

TEST(ScanPocketLathe, CutsFromTheTopDownWithRetreatsHalfAStepAboveTheCutBefore) {
  LatheCam c;
  addWorkingBox(c.store, {0, 0}, {10, 3});
  EXPECT_EQ(scanPocketLathe(c.cam, 20), Clearing::Done);
  EXPECT_EQ(pathEnds(c.store), (Texts{
                                   "(0, 2.5)-(10, 2.5)",       // nothing before the first cut
                                   "(10, 2.5)-(10, 3) rapid",  // half a step above it
                                   "(10, 3)-(0, 3) rapid", "(0, 3)-(0, 1.5)", "(0, 1.5)-(10, 1.5)",
                                   "(10, 1.5)-(10, 2) rapid", "(10, 2)-(0, 2) rapid",
                                   "(0, 2)-(0, 0.5)", "(0, 0.5)-(10, 0.5)",
                                   "(10, 0.5)-(10, 3) rapid",  // the first retreat's height again
                               }));
}

TEST(ScanPocketLathe, RowsHaveTheFeedDepthZeroAndRapidsTheirMark) {
  LatheCam c;
  addWorkingBox(c.store, {0, 0}, {10, 2});
  scanPocketLathe(c.cam, 20);
  EXPECT_EQ(testing::pathTexts(c.store)[0], "1 (0, 1.5)-(10, 1.5) @100 z 0 f 20");
  EXPECT_EQ(testing::pathTexts(c.store)[1], "1 (10, 1.5)-(10, 2) @100 z -99 f 20");
}

TEST(ScanPocketLathe, AfterOneSpanTheToolLeavesToHeightZero) {
  LatheCam c;
  addWorkingBox(c.store, {0, 0}, {10, 1});
  scanPocketLathe(c.cam, 20);
  EXPECT_EQ(pathEnds(c.store), (Texts{"(0, 0.5)-(10, 0.5)", "(10, 0.5)-(10, 0) rapid"}));
}

// The way across the tooth is held by the cut above it alone.
TEST(ScanPocketLathe, AWayThatNoNewerCutHoldsGoesBackAboveAnOlderOne) {
  LatheCam c;
  addWorkingPolygon(c.store,
                    {{0, 0}, {4, 0}, {4, 1.875F}, {6, 1.875F}, {6, 0}, {10, 0}, {10, 3}, {0, 3}});
  scanPocketLathe(c.cam, 20);
  EXPECT_EQ(pathEnds(c.store), (Texts{
                                   "(0, 2.5)-(10, 2.5)",
                                   "(10, 2.5)-(10, 3) rapid",
                                   "(10, 3)-(0, 3) rapid",
                                   "(0, 3)-(0, 1.5)",
                                   "(0, 1.5)-(4, 1.5)",
                                   "(4, 1.5)-(4, 3) rapid",
                                   "(4, 3)-(6, 3) rapid",
                                   "(6, 3)-(6, 1.5)",
                                   "(6, 1.5)-(10, 1.5)",
                                   "(10, 1.5)-(10, 3) rapid",
                                   "(10, 3)-(0, 3) rapid",
                                   "(0, 3)-(0, 0.5)",
                                   "(0, 0.5)-(4, 0.5)",
                                   "(4, 0.5)-(4, 3) rapid",
                                   "(4, 3)-(6, 3) rapid",
                                   "(6, 3)-(6, 0.5)",
                                   "(6, 0.5)-(10, 0.5)",
                                   "(10, 0.5)-(10, 3) rapid",
                               }));
}

// Straight above the end of the last cut there is no way to go: the tool stays where it is.
TEST(ScanPocketLathe, BidirectionalCutsFollowEachOtherWithoutARetreat) {
  LatheCam c;
  c.store.cfg_cutting_mode = choiceNumber(CuttingMode::Bidirectional);
  addWorkingBox(c.store, {0, 0}, {10, 4});
  scanPocketLathe(c.cam, 20);
  EXPECT_EQ(pathEnds(c.store),
            (Texts{
                "(10, 3.5)-(0, 3.5)",  // turned at the first line already
                "(0, 2.5)-(10, 2.5)",
                "(10, 1.5)-(0, 1.5)",
                "(0, 0.5)-(10, 0.5)",
                "(10, 0.5)-(10, 4) rapid",
            }));
}

TEST(ScanPocketLathe, ClimbMillingCutsTowardSmallerXButForTheLowestPair) {
  LatheCam c;
  c.store.cfg_cutting_mode = choiceNumber(CuttingMode::Climb);
  addWorkingBox(c.store, {0, 0}, {10, 2});
  scanPocketLathe(c.cam, 20);
  EXPECT_EQ(pathEnds(c.store), (Texts{
                                   "(10, 1.5)-(0, 1.5)",
                                   "(0, 0.5)-(10, 0.5)",  // never turned round
                                   "(10, 0.5)-(10, 2) rapid",
                               }));
}

// Cuts above the stock need no retreat: the tool goes over at its own height.
TEST(ScanPocketLathe, AboveTheStockTheToolCrossesAtItsHeight) {
  LatheCam c;
  c.store.partdimy = 1;
  addWorkingBox(c.store, {0, 0}, {10, 3});
  scanPocketLathe(c.cam, 20);
  EXPECT_EQ(pathEnds(c.store), (Texts{
                                   "(0, 2.5)-(10, 2.5)",
                                   "(10, 2.5)-(0, 2.5) rapid",
                                   "(0, 2.5)-(0, 1.5)",
                                   "(0, 1.5)-(10, 1.5)",
                                   "(10, 1.5)-(0, 1.5) rapid",
                                   "(0, 1.5)-(0, 0.5)",
                                   "(0, 0.5)-(10, 0.5)",
                                   "(10, 0.5)-(10, 0) rapid",
                               }));
}

TEST(ScanPocketLathe, IsOneStepOfTheChangeLog) {
  LatheCam c;
  addWorkingBox(c.store, {0, 0}, {10, 3});
  scanPocketLathe(c.cam, 20);
  const Texts after = testing::pathTexts(c.store);
  Undo_Last_Change(c.context);
  EXPECT_EQ(c.store.NumPathSegments, 0);
  EXPECT_FALSE(c.context.changelog.canUndo());
  RedoLastChange(c.context);
  EXPECT_EQ(testing::pathTexts(c.store), after);
}

TEST(ScanPocketLathe, RandomOutlinesGiveTheCutsOfExchangeSorts) {
  int exchanges = 0;
  for (int number = 0; number < 200; ++number) {
    SCOPED_TRACE(::testing::Message() << "outline " << number);
    testing::Dice dice(static_cast<std::uint32_t>(number) * 61U + 11U);
    LatheCam c;
    c.store.cfg_cutting_mode = 1 + number % 3;
    for (int row = 3 + dice.below(30); row > 0; --row) {
      const Entity e = testing::sceneEntity(testing::SceneKind::Spread, dice);
      c.add(
          {e.type, kPocketOutline, e.start.x, e.start.y, e.end.x, e.end.y, e.center.x, e.center.y});
    }
    PlainScan plain{.store = c.store, .style = PlainScan::Style::Lathe, .spacing = 1};
    if (!plain.collect()) continue;
    plain.sort();
    scanPocketLathe(c.cam, 20);
    // Between the cuts stand their ways; the cuts themselves come in this order.
    int ps = 0;
    plain.placeDownward(c.store.cfg_cutting_mode, [&](int i) {
      const auto isCut = [&] {
        const Entity placed = pathEntity(c.store, ps);
        return placed.start == plain.point(i) && placed.end == plain.point(i + 1);
      };
      do {
        ASSERT_LT(ps, c.store.NumPathSegments);
        ++ps;
      } while (!isCut());
    });
    ASSERT_FALSE(HasFatalFailure());
    exchanges += plain.exchanges;
  }
  EXPECT_GT(exchanges, 1500);
}

// ---- From inside

// A bore from y 1 to 4, with a hole of radius 1 and a step in it.
ScanRun boreRun() {
  return {ScanStyle::Lathe, 1, {0, 1}, {{1.5F, 0, 10}, {2.5F, 0, 10}, {3.5F, 5, 10}}};
}

TEST(CutLatheSpansInside, GoesFromTheHoleOutwardAndRetreatsTowardTheAxis) {
  LatheCam c;
  cutLatheSpans(c.cam, boreRun(), 20, LatheLeave::ToStock, {.isInside = true, .clearance = 0.25F});
  EXPECT_EQ(pathEnds(c.store), (Texts{
                                   "(0, 1.5)-(10, 1.5)",
                                   "(10, 1.5)-(10, 1) rapid",  // half a step below it
                                   "(10, 1)-(0, 1) rapid", "(0, 1)-(0, 2.5)", "(0, 2.5)-(10, 2.5)",
                                   "(10, 2.5)-(10, 2) rapid", "(10, 2)-(5, 2) rapid",
                                   "(5, 2)-(5, 3.5)", "(5, 3.5)-(10, 3.5)",
                                   "(10, 3.5)-(10, 0.75) rapid",  // into the hole
                               }));
}

TEST(CutLatheSpansInside, TowardTheChuckEveryCutIsTurnedRound) {
  LatheCam c;
  c.store.cfg_cutting_mode = choiceNumber(CuttingMode::Climb);
  ScanRun run = boreRun();
  run.spans.resize(1);
  cutLatheSpans(c.cam, run, 20, LatheLeave::ToStock, {.isInside = true, .clearance = 0.25F});
  EXPECT_EQ(pathEnds(c.store), (Texts{"(10, 1.5)-(0, 1.5)", "(0, 1.5)-(0, 0.75) rapid"}));
}

TEST(CutLatheSpansInside, NeverRetreatsBeyondTheAxis) {
  LatheCam c;
  ScanRun run = boreRun();
  run.spans.resize(1);
  cutLatheSpans(c.cam, run, 20, LatheLeave::ToStock, {.isInside = true, .clearance = 2});
  EXPECT_EQ(pathEnds(c.store), (Texts{"(0, 1.5)-(10, 1.5)", "(10, 1.5)-(10, 0) rapid"}));
}

}  // namespace
}  // namespace tess
