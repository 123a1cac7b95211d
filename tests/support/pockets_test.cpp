// The generated pockets are what they promise.
#include "tests/support/pockets.h"

#include <cmath>
#include <map>

#include "gtest/gtest.h"

#include "core/drawing_store.h"
#include "drafting/drawing_cleanup.h"

namespace tess::testing {
namespace {

constexpr int kPockets = 300;

void expectClosed(const Loop& loop, const std::string& name) {
  for (std::size_t k = 0; k < loop.size(); ++k) {
    EXPECT_EQ(loop[k].end, loop[(k + 1) % loop.size()].start) << name;
  }
}

// Rounded once more, nothing moves; and arcs end on their circle.
void expectTidyRows(const std::vector<SegmentRow>& rows, const std::string& name) {
  DrawingStore store;
  for (const SegmentRow& row : rows) AddSeg(store, row, nullptr);
  roundall(store);
  for (int sg = 1; sg <= store.NumSegments; ++sg) {
    const SegmentRow& row = rows[static_cast<std::size_t>(sg) - 1];
    const SegmentRow after = segmentRow(store, sg);
    EXPECT_TRUE(row.x0 == after.x0 && row.y0 == after.y0 && row.x1 == after.x1 &&
                row.y1 == after.y1 && row.xc == after.xc && row.yc == after.yc)
        << name << " row " << sg;
    const PathRow move{.type = row.type,
                       .x0 = row.x0,
                       .y0 = row.y0,
                       .x1 = row.x1,
                       .y1 = row.y1,
                       .xc = row.xc,
                       .yc = row.yc};
    EXPECT_LT(arcMismatch(move), 2e-5) << name << " row " << sg;
  }
}

TEST(PocketOf, GivesClosedOutlinesOfRoundedRows) {
  for (int number = 0; number < kPockets; ++number) {
    const TestPocket pocket = pocketOf(number);
    expectClosed(pocket.part.pocket, pocket.name);
    expectTidyRows(pocket.outline, pocket.name);
    EXPECT_EQ(pocket.outline.size(), pocket.part.pocket.size()) << pocket.name;
    EXPECT_EQ(pocket.islands.size(), pocket.part.islands.size()) << pocket.name;
    for (const auto& island : pocket.islands) expectTidyRows(island, pocket.name);
  }
}

TEST(PocketOf, TurnsCounterClockwiseOnce) {
  for (int number = 0; number < kPockets; ++number) {
    const TestPocket pocket = pocketOf(number);
    // A point just to the left of the middle of each side.
    for (const Curve& wall : pocket.part.pocket) {
      const Vec before = pointOn(wall, 0.5 - 1e-6);
      const Vec after = pointOn(wall, 0.5 + 1e-6);
      const Vec left = (0.001 / lengthOf(after - before)) * leftOf(after - before);
      EXPECT_EQ(windingNumber(pocket.part.pocket, pointOn(wall, 0.5) + left), 1) << pocket.name;
      EXPECT_EQ(windingNumber(pocket.part.pocket, pointOn(wall, 0.5) - left), 0) << pocket.name;
    }
  }
}

TEST(PocketOf, IslandsLieFreeInThePocket) {
  for (int number = 0; number < kPockets; ++number) {
    const TestPocket pocket = pocketOf(number);
    for (std::size_t k = 0; k < pocket.part.islands.size(); ++k) {
      PartShape others = pocket.part;
      others.islands.erase(others.islands.begin() + static_cast<std::ptrdiff_t>(k));
      for (const Curve& wall : pocket.part.islands[k]) {
        for (const double share : {0.0, 0.25, 0.5, 0.75}) {
          EXPECT_GE(clearance(others, pointOn(wall, share)), pocket.islandGap - 1e-9)
              << pocket.name;
        }
      }
    }
  }
}

// Otherwise the duplicate sweep of verification would take rows of the outline away.
TEST(PocketOf, NoRowPassesForACopyOfAnother) {
  for (int number = 0; number < kPockets; ++number) {
    DrawingStore store;
    addPocket(store, pocketOf(number));
    EXPECT_EQ(countDuplicates(store), 0) << pocketOf(number).name;
    EXPECT_EQ(countZeroLength(store), 0) << pocketOf(number).name;
  }
}

TEST(PocketOf, EveryKindOccurs) {
  std::map<std::string, int> seen;
  for (int number = 0; number < kPockets; ++number) {
    const TestPocket pocket = pocketOf(number);
    const float r = pocket.toolRadius;
    if (pocket.outline.size() == 1) ++seen["circle"];
    ++seen["islands " + std::to_string(pocket.islands.size())];
    if (!pocket.islands.empty()) ++seen[pocket.islandGap < 2 * r ? "tight" : "wide"];
    if (pocket.neck > 0) ++seen[pocket.neck < 2 * r ? "closed neck" : "open neck"];
    for (const Curve& wall : pocket.part.pocket) {
      if (!wall.isArc) continue;
      ++seen[wall.sweep > 0 ? "outward arc" : "inward arc"];
      if (wall.sweep > 0 && wall.radius < r) ++seen["sharper than the tool"];
    }
  }
  for (const char* const kind :
       {"circle", "islands 0", "islands 1", "islands 2", "islands 3", "tight", "wide",
        "closed neck", "open neck", "outward arc", "inward arc", "sharper than the tool"}) {
    EXPECT_GE(seen[kind], 5) << kind;
  }
}

TEST(PocketOf, TheToolReachesMostOfThem) {
  for (int number = 0; number < kPockets; number += 7) {
    const TestPocket pocket = pocketOf(number);
    const ReachableArea area(pocket.part, pocket.toolRadius, /*cellsPerRadius=*/4);
    EXPECT_GT(area.area(), pocket.toolRadius * pocket.toolRadius) << pocket.name;
  }
}

TEST(PocketOf, OneNumberGivesOnePocket) {
  const TestPocket a = pocketOf(42);
  const TestPocket b = pocketOf(42);
  ASSERT_EQ(a.outline.size(), b.outline.size());
  EXPECT_EQ(a.outline[0].x0, b.outline[0].x0);
  EXPECT_EQ(a.name, "filleted 42");
}

TEST(AddPocket, AppendsOutlineAndIslands) {
  DrawingStore store;
  int number = 0;
  while (pocketOf(number).islands.size() < 2) ++number;
  const TestPocket pocket = pocketOf(number);
  addPocket(store, pocket, 30008);
  std::size_t rows = pocket.outline.size();
  for (const auto& island : pocket.islands) rows += island.size();
  EXPECT_EQ(store.NumSegments, static_cast<int>(rows));
  EXPECT_EQ(store.segattr[store.NumSegments], 30008);
}

}  // namespace
}  // namespace tess::testing
