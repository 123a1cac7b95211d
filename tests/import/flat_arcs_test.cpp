// Arcs that can hardly be told from their chords: lines from a tenth of the tolerance on, whatever
// kind of entity they come from.
#include "import/flat_arcs.h"

#include <algorithm>
#include <cmath>

#include "core/drawing_store.h"
#include "tests/import/exact_import.h"

namespace tess {
namespace {

using testing::Curve;
using testing::ExactImport;
using testing::polylineText;
using Texts = std::vector<std::string>;

using FlatArcs = ExactImport;  // with a tolerance of 0.001

TEST(RiseOver, IsExactForFlatAndForRoundArcs) {
  EXPECT_DOUBLE_EQ(riseOver(2, 1), 1);
  EXPECT_DOUBLE_EQ(riseOver(8, 5), 2);
  EXPECT_DOUBLE_EQ(riseOver(0.001, 1e9), 1.25e-16);
  EXPECT_DOUBLE_EQ(riseOver(0, 1), 0);
}

// The rise of an edge is half its bulge times its length.
TEST_F(FlatArcs, ABulgeBelowATenthOfTheToleranceIsALine) {
  EXPECT_EQ(convert(polylineText({{"0", "0", "0.0000199"}, {"10", "0"}})),
            Texts{"1 (0, 0)-(10, 0)"});
  store = DrawingStore();
  document = DxfDocument();
  convert(polylineText({{"0", "0", "0.0000201"}, {"10", "0"}}));
  EXPECT_EQ(store.segtype[1], kCounterClockwiseArc);
}

TEST_F(FlatArcs, SoIsAnArc) {
  // Half a degree of a radius of 10: rises 9.5e-5; and of 11: 1.05e-4.
  convert("0 ARC, 10 0, 20 0, 40 10, 50 45, 51 45.5");
  ASSERT_EQ(store.NumSegments, 1);
  EXPECT_EQ(store.segtype[1], kLine);
  EXPECT_EQ(store.centerx[1], 0);
  store = DrawingStore();
  document = DxfDocument();
  convert("0 ARC, 10 0, 20 0, 40 11, 50 45, 51 45.5");
  EXPECT_EQ(store.segtype[1], kCounterClockwiseArc);
}

TEST_F(FlatArcs, SoIsAPartOfARoundEllipse) {
  convert("0 ELLIPSE, 10 0, 20 0, 11 7, 21 7, 40 1, 41 0, 42 0.0085");
  ASSERT_EQ(store.NumSegments, 1);
  EXPECT_EQ(store.segtype[1], kLine);
}

TEST_F(FlatArcs, WholeCirclesStayHoweverSmall) {
  options.tolerence = 0.1F;  // curves keep within 0.025
  EXPECT_EQ(convert("0 CIRCLE, 10 1, 20 1, 40 0.002"), Texts{"2 (1.002, 1)-(1.002, 1) c (1, 1)"});
}

// An arc that is flat though it rises by more than the tolerance has its centre 10^10 units away.
TEST_F(FlatArcs, AVeryLongFlatArcIsARowOfLines) {
  convert(polylineText({{"0", "0", "0.000001"}, {"300000", "0"}}));
  ASSERT_GT(int(store.NumSegments), 4);
  double lowest = 0;
  for (const Curve& curve : curves()) {
    EXPECT_FALSE(curve.isArc);
    lowest = std::min({lowest, curve.start.y, curve.end.y});
  }
  EXPECT_NEAR(lowest, -0.15, 0.001);
  EXPECT_EQ(curves().back().end.x, 300000);
}

// A nearly straight spline: its arcs had radii of millions.
TEST_F(FlatArcs, ANearlyStraightSplineHasNoFarCenters) {
  convert(
      "0 SPLINE, 70 8, 71 3, 40 0, 40 0, 40 0, 40 0, 40 1, 40 2, 40 2, 40 2, 40 2, 10 0, 20 0, "
      "10 60, 20 0.002, 10 150, 20 -0.001, 10 240, 20 0.004, 10 300, 20 0");
  ASSERT_GE(int(store.NumSegments), 1);
  for (const Curve& curve : curves()) {
    if (!curve.isArc) continue;
    const double chord = lengthOf(curve.end - curve.start);
    EXPECT_GE(riseOver(chord, curve.radius), 0.99e-4) << "radius " << curve.radius;
  }
}

TEST(StraightenFlatArcs, LeavesLinesCirclesAndLongArcsAlone) {
  const DxfRow tiny{.type = 3, .x0 = 1e-5, .y0 = 0, .x1 = 0, .y1 = -1e-5};
  const DxfRow circle{.type = 2, .x0 = 1e-5, .y0 = 0, .x1 = 1e-5, .y1 = 0};
  const DxfRow line{.x0 = 0, .y0 = 0, .x1 = 1, .y1 = 0};
  const DxfRow flat{.type = 2, .x0 = -1, .y0 = 0, .x1 = 1, .y1 = 0, .xc = 0, .yc = -1e5};
  std::vector<PlacedRow> rows{{tiny}, {circle}, {line}, {flat}};
  straightenFlatArcs(rows, 0.001);
  EXPECT_EQ(rows[0].row.type, 3);
  EXPECT_EQ(rows[1].row.type, 2);
  EXPECT_EQ(rows[2].row.type, kLine);
  EXPECT_EQ(rows[3].row.type, kLine);
  EXPECT_EQ(rows[3].row.yc, 0);
}

}  // namespace
}  // namespace tess
