// Which lines of the visual grid a view takes: as many as it can show, however far it lies from
// zero and however fine the grid is.
#include "display/grid_lines.h"

#include <cmath>
#include <random>
#include <vector>

#include "core/drawing_store.h"
#include "tests/display/display_bench.h"

namespace tess {
namespace {

using testing::DisplayBench;

std::vector<double> linesOf(const GridRun& run) {
  std::vector<double> lines;
  for (int i = 0; i < run.count; ++i) lines.push_back((run.first + i) * run.step);
  return lines;
}

// From zero line by line, as the grid is defined.
std::vector<double> walkedLines(double spacing, const GridSide& side) {
  std::vector<double> lines;
  for (double at = 0; at <= side.to; at += spacing) lines.push_back(at);
  return lines;
}

TEST(GridRun, IsTheWalkFromZeroWhereThatIsShort) {
  EXPECT_EQ(linesOf(gridRun(0.5, {-1, 1, 100})), (std::vector<double>{0, 0.5, 1}));
  EXPECT_EQ(linesOf(gridRun(1, {2, 3, 100})), (std::vector<double>{0, 1, 2, 3}));
  EXPECT_EQ(linesOf(gridRun(1, {-3, 0, 100})), std::vector<double>{0});
  EXPECT_EQ(linesOf(gridRun(1, {-3, -2, 100})), std::vector<double>{}) << "it goes the other way";
  EXPECT_EQ(linesOf(gridRun(7, {2, 3, 100})), std::vector<double>{0});
}

TEST(GridRun, ThinsOutToRoundSteps) {
  const auto stepAt = [](double pitchInPixels) {
    return gridRun(0.5, {0, 100 * 0.5 / pitchInPixels, 100}, /*closest=*/8).step / 0.5;
  };
  EXPECT_DOUBLE_EQ(stepAt(20), 1);
  EXPECT_DOUBLE_EQ(stepAt(8), 1);
  EXPECT_DOUBLE_EQ(stepAt(7.9), 2);
  EXPECT_DOUBLE_EQ(stepAt(4), 2);
  EXPECT_DOUBLE_EQ(stepAt(3.9), 5);
  EXPECT_DOUBLE_EQ(stepAt(1), 10);
  EXPECT_DOUBLE_EQ(stepAt(0.75), 20);
  EXPECT_DOUBLE_EQ(stepAt(0.008), 1000);
}

TEST(GridRun, LinesAreNeverCloserThanAskedFor) {
  for (const double spacing : {1e-30, 1e-9, 0.001, 0.3, 7.0, 1e9, 1e30}) {
    for (const double span : {1e-6, 1.0, 12345.0, 1e30}) {
      const GridRun run = gridRun(spacing, {-span, span, 1000}, /*closest=*/8);
      EXPECT_GE(run.step * 1000 / (2 * span), 8 * (1 - 1e-9)) << spacing << " " << span;
      EXPECT_GE(run.step, spacing);
      EXPECT_LE(run.count, 2002);
    }
  }
  for (const double spacing : {0.0, -1.0, -1e9}) {
    EXPECT_EQ(gridRun(spacing, {-1, 1, 1000}, /*closest=*/8).count, 0) << spacing;
  }
}

TEST(GridRun, BeginsAtTheViewWhereTheWayIsLong) {
  EXPECT_EQ(linesOf(gridRun(0.5, {1e7, 1e7 + 1, 100})),
            (std::vector<double>{1e7, 1e7 + 0.5, 1e7 + 1}));
  EXPECT_EQ(linesOf(gridRun(2, {1e9 + 1, 1e9 + 4, 100})), (std::vector<double>{1e9 + 2, 1e9 + 4}));
}

TEST(GridRun, HasTheLineThatColoursTheFirstPixel) {
  // A pixel is 0.01 wide and reaches half of that to both sides.
  EXPECT_EQ(linesOf(gridRun(0.5, {1000.004, 1001.004, 100})),
            (std::vector<double>{1000, 1000.5, 1001}));
  EXPECT_EQ(linesOf(gridRun(0.5, {1000.006, 1001.006, 100})), (std::vector<double>{1000.5, 1001}));
}

TEST(GridRun, LinesAreAPixelApartAtLeastAndStayOnTheGrid) {
  const GridRun fine = gridRun(0.0625, {0, 100, 100});
  EXPECT_EQ(fine.step, 1);
  EXPECT_EQ(fine.count, 101);
  const GridRun odd = gridRun(0.375, {0, 100, 100});
  EXPECT_EQ(odd.step, 1.125) << "three of its lines, the fewest that a pixel has room between";
}

TEST(GridRun, NoSpacingAndNoViewHaveNoLines) {
  EXPECT_EQ(gridRun(0, {-1, 1, 100}).count, 0);
  EXPECT_EQ(gridRun(-1, {-1, 1, 100}).count, 0);
  EXPECT_EQ(gridRun(std::nan(""), {-1, 1, 100}).count, 0);
  EXPECT_EQ(gridRun(1, {-INFINITY, 1, 100}).count, 0);
  EXPECT_EQ(gridRun(1, {-1, INFINITY, 100}).count, 0);
  EXPECT_LE(gridRun(1, {-1, 1000, 0}).count, 4) << "a surface without pixels";
}

TEST(GridRun, EqualsTheWalkFromZeroAsFarAsItIsSeen) {
  std::mt19937 random(2);
  std::uniform_real_distribution<float> exponent(-3, 4);
  std::uniform_real_distribution<double> place(-3000, 3000);
  int near = 0;
  int far = 0;
  for (int round = 0; round < 3000; ++round) {
    const double spacing = std::pow(10.0F, exponent(random));
    const double from = place(random);
    const GridSide side{from, from + std::pow(10.0, exponent(random)), 100};
    const double pixel = (side.to - side.from) / side.pixels;
    if (spacing < pixel || std::max(side.to, 0.0) / spacing > 1e6) continue;
    std::vector<double> walked = walkedLines(spacing, side);
    const std::vector<double> lines = linesOf(gridRun(spacing, side));
    if (lines.empty() || lines.front() > 0) {
      ++far;
      std::erase_if(walked, [&](double at) { return at < side.from - pixel / 2; });
    } else {
      ++near;
    }
    EXPECT_EQ(lines, walked) << spacing << " from " << side.from << " to " << side.to;
  }
  EXPECT_GT(near, 200);
  EXPECT_GT(far, 200);
}

// ---- The grid on the surface, in views that never came to their end

class EndlessGridTest : public DisplayBench {
 protected:
  // Grid lines traced by a redraw in a view; a walk without end is stopped.
  int linesIn(float left, float bottom, float right, float top) {
    constexpr int kFarTooMany = 100000;
    log.take();
    int events = 0;
    surroundings.onEvents = [&] {
      if (++events > kFarTooMany) throw overflow();
    };
    SetScale(left, bottom, right, top, screen);
    EXPECT_NO_THROW(renderer.DisplayGrid(screen));
    return log.count("line ");
  }

  // Each direction has room for one line a pixel, and may walk as many from zero.
  static constexpr int kMax = 2 * (2 * 1000 + 2 * 800 + 4);
};

TEST_F(EndlessGridTest, AViewFarFromZero) {
  store.visualgrid = 0.25F;
  const int lines = linesIn(1e7F, 1e7F, 1e7F + 10, 1e7F + 8);
  EXPECT_GE(lines, 41 + 33);
  EXPECT_LE(lines, 41 + 33 + 4);
}

TEST_F(EndlessGridTest, AViewAsFarAsLengthsAreExactNoLonger) {
  store.visualgrid = 0.25F;
  for (const float far : {1e6F, 1e9F, 1e12F, 3e38F}) {
    EXPECT_LE(linesIn(far, -far, far, -far), kMax) << far << ", without extent";
    EXPECT_LE(linesIn(-far, -far, far / 2, far / 2), kMax) << far;
  }
}

TEST_F(EndlessGridTest, AGridFinerThanAnyPixel) {
  for (const float spacing : {1e-3F, 1e-9F, 1e-30F, 1e-45F}) {
    store.visualgrid = spacing;
    EXPECT_LE(linesIn(-5, -4, 5, 4), kMax) << spacing;
    EXPECT_GE(log.count("line "), 1000) << "it is still there";
    EXPECT_LE(linesIn(4e6F, -4, 5e6F, 4), kMax) << spacing;
  }
}

}  // namespace
}  // namespace tess
