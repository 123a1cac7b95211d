// Discs of a tool along moves that are far longer than the view or far finer than a pixel.
#include "display/disc_row.h"

#include <cmath>
#include <set>

#include "core/drawing_store.h"
#include "tests/display/display_bench.h"

namespace tess {
namespace {

using testing::DisplayBench;

// The surface shows -5 to 5 by -4 to 4 with 100 pixels to the unit.
class DiscRowTest : public DisplayBench {
 protected:
  DiscRowTest() { store.tooloutline = 1; }

  static constexpr int kSides = 1000 + 800;

  // The circles that a row takes with a tool of that radius.
  std::vector<std::string> discsOf(const PathRow& row, float radius) {
    store.toolradius[0] = radius;
    renderer.drawtoolpath(addPath(row), screen);
    std::vector<std::string> lines;
    std::swap(lines, log.lines);
    std::erase_if(lines, [](const std::string& line) { return !line.starts_with("circle"); });
    return lines;
  }

  static PathRow line(float x0, float y0, float x1, float y1) {
    return {.type = 1, .x0 = x0, .y0 = y0, .x1 = x1, .y1 = y1, .code = 100};
  }
  // About a centre on the x axis, through world zero, the long way round.
  static PathRow nearlyWholeCircle(float radius) {
    return {.type = 3,
            .x0 = 2 * radius,
            .y0 = 0,
            .x1 = radius + radius * std::cos(0.01F),
            .y1 = -radius * std::sin(0.01F),
            .xc = radius,
            .code = 100};
  }
};

TEST_F(DiscRowTest, AsManyDiscsAsPixelsAreAllTraced) {
  // 144 units and a disc every 0.08 of them: 1801 discs, most of them out of sight.
  EXPECT_EQ(discsOf(line(0, 0, 143.9F, 0), 0.1F).size(), 1799U);
}

TEST_F(DiscRowTest, OfMoreDiscsThoseInSightAreTheSame) {
  const std::vector<std::string> all = discsOf(line(-70, 0.5F, 73, -0.5F), 0.1F);
  ASSERT_EQ(all.size(), 1788U);
  // The same way as a part of one that is a thousand times as long.
  const std::vector<std::string> seen = discsOf(line(0, 1, 1e6F, 1), 0.1F);
  EXPECT_GE(seen.size(), 5.1 / 0.08);
  EXPECT_LE(seen.size(), 5.1 / 0.08 + 10);
  EXPECT_EQ(seen.front(), "circle (0.08, 1) r 0.1 #000000");
}

TEST_F(DiscRowTest, FinerThanAPixelTheyAreThinnedOut) {
  const std::vector<std::string> discs = discsOf(line(-5, 0, 5, 0), 1e-6F);
  EXPECT_LE(discs.size(), 1000U);
  EXPECT_GE(discs.size(), 990U) << "one a pixel";
  EXPECT_EQ(std::set(discs.begin(), discs.end()).size(), discs.size());
}

TEST_F(DiscRowTest, ALongMoveOutOfSightTakesNone) {
  EXPECT_EQ(discsOf(line(-1e6F, 10, 1e6F, 10), 0.01F).size(), 0U);
  EXPECT_EQ(discsOf(line(-1e6F, 10, 1e6F, 10), 5.9F).size(), 0U);
  EXPECT_GT(discsOf(line(-1e6F, 10, 1e6F, 10), 6.1F).size(), 0U) << "they reach into the view";
}

TEST_F(DiscRowTest, ALargeArcTakesWhatIsInSight) {
  const std::vector<std::string> discs = discsOf(nearlyWholeCircle(1000), 0.1F);
  // It comes down through the view at its left edge: 8 units high.
  EXPECT_GE(discs.size(), 8 / 0.08);
  EXPECT_LE(discs.size(), 8.4 / 0.08 + 10);
  EXPECT_LE(discsOf(nearlyWholeCircle(1e5F), 1e-3F).size(), static_cast<std::size_t>(kSides));
}

TEST_F(DiscRowTest, ASmallArcOfAFineToolStaysWhole) {
  // 6.27 units of way at 100 pixels a unit.
  const std::vector<std::string> discs = discsOf(nearlyWholeCircle(1), 1e-5F);
  EXPECT_GE(discs.size(), 610U);
  EXPECT_LE(discs.size(), 630U);
}

TEST_F(DiscRowTest, ATurnedArcIsTheSameTheOtherWayRound) {
  PathRow back = nearlyWholeCircle(1000);
  std::swap(back.x0, back.x1);
  std::swap(back.y0, back.y1);
  back.type = 2;
  EXPECT_GE(discsOf(back, 0.1F).size(), 8 / 0.08);
}

}  // namespace
}  // namespace tess
