// Drawings with gently curved sides: their extents are those of their rows, not of circles a
// hundred times as large.
#include "import/axis_split.h"

#include <algorithm>
#include <cmath>
#include <random>

#include "core/drawing_store.h"
#include "display/drawing_extents.h"
#include "geometry/row_boxes.h"
#include "tests/import/exact_import.h"

namespace tess {
namespace {

using testing::Curve;
using testing::ExactImport;
using testing::polylineText;
using testing::Vec;

class AxisSplit : public ExactImport {
 protected:
  void expectExtents(double minx, double miny, double maxx, double maxy, double within = 0.01) {
    const auto extents = GetDrawingExtents(store);
    ASSERT_TRUE(extents);
    EXPECT_NEAR(extents->minx, minx, within);
    EXPECT_NEAR(extents->miny, miny, within);
    EXPECT_NEAR(extents->maxx, maxx, within);
    EXPECT_NEAR(extents->maxy, maxy, within);
  }

  void expectChain() {
    for (int sg = 1; sg < store.NumSegments; ++sg) {
      EXPECT_EQ(store.x1[sg], store.x0[sg + 1]) << sg;
      EXPECT_EQ(store.y1[sg], store.y0[sg + 1]) << sg;
    }
  }
};

// Which side bulges, and to where. The rise is 0.05 over 200, the radius 100000.
struct SideCase {
  const char* name;
  std::vector<testing::VertexText> plate;
  double minx, maxx;
  int rows;
};

TEST_F(AxisSplit, APlateWithACurvedSideIsAsLargeAsItIs) {
  const std::string bulge = "0.0005";
  const SideCase cases[] = {
      {"right side outward",
       {{"0", "0"}, {"300", "0", bulge}, {"300", "200"}, {"0", "200"}},
       0,
       300.05,
       5},
      {"right side outward, downward",
       {{"0", "0"}, {"0", "200"}, {"300", "200", "-" + bulge}, {"300", "0"}},
       0,
       300.05,
       5},
      {"left side inward",
       {{"0", "0"}, {"300", "0"}, {"300", "200"}, {"0", "200", "-" + bulge}},
       0,
       300,
       5},
      {"right side inward",
       {{"0", "0"}, {"300", "0", "-" + bulge}, {"300", "200"}, {"0", "200"}},
       0,
       300,
       4},
  };
  for (const SideCase& c : cases) {
    SCOPED_TRACE(c.name);
    store = DrawingStore();
    document = DxfDocument();
    convert(polylineText(c.plate, 1));
    EXPECT_EQ(store.NumSegments, c.rows);
    expectExtents(c.minx, 0, c.maxx, 200, 0.06);
    expectChain();
  }
}

TEST_F(AxisSplit, BothPartsGoOnFromTheRightmostPoint) {
  convert(polylineText({{"300", "0", "0.0005"}, {"300", "200"}}));
  ASSERT_EQ(store.NumSegments, 2);
  EXPECT_NEAR(store.x1[1], 300.05, 1e-4);
  EXPECT_NEAR(store.y1[1], 100, 1e-3);
  EXPECT_EQ(store.segtype[1], kCounterClockwiseArc);
  EXPECT_EQ(store.segtype[2], kCounterClockwiseArc);
  expectChain();
}

TEST_F(AxisSplit, RoundingToFiveDecimalsKeepsTheExtents) {
  for (const char* const size : {"1", "50", "3000"}) {
    SCOPED_TRACE(size);
    store = DrawingStore();
    document = DxfDocument();
    convert(polylineText({{"0", "0", "0.05"}, {"0", size}}));
    roundall(store);
    const double length = std::stod(size);
    expectExtents(0, 0, 0.025 * length, length, 0.001 * length);
  }
}

// Quarter circles end at the axis and stay as they are.
TEST_F(AxisSplit, ARoundedRectangleKeepsItsRows) {
  const std::string q = "0.41421356237309503";
  convert(polylineText({{"5", "0"},
                        {"95", "0", q},
                        {"100", "5"},
                        {"100", "45", q},
                        {"95", "50"},
                        {"5", "50", q},
                        {"0", "45"},
                        {"0", "5", q}},
                       1));
  EXPECT_EQ(store.NumSegments, 8);
  EXPECT_EQ(store.centerx[2], 95);
  EXPECT_EQ(store.centery[2], 5);
}

// From a little below the axis up to it: no place to cut.
TEST_F(AxisSplit, AnArcThatEndsAtTheAxisGetsItsCenterMovedOnly) {
  convert("0 ARC, 10 -100000, 20 0, 40 100000, 50 359.9, 51 360");
  ASSERT_EQ(store.NumSegments, 1);
  expectExtents(-0.16, -174.53, 0, 0, 0.2);
  EXPECT_EQ(store.x1[1], 0);
  EXPECT_GT(store.centery[1], 0);
  EXPECT_LT(store.centery[1], 0.2F);
}

TEST_F(AxisSplit, AnArcThatHardlyPassesTheAxisGetsItsCenterMovedOnly) {
  // Radius 1000; its ends are 20 below and 0.0002 above the axis, and the other way round.
  convert("0 ARC, 10 0, 20 0, 40 1000, 50 358.854, 51 0.00001");
  EXPECT_EQ(store.NumSegments, 1);
  expectExtents(999.8, -20, 1000, 0.0002, 0.01);
  store = DrawingStore();
  document = DxfDocument();
  convert("0 ARC, 10 0, 20 0, 40 1000, 50 359.99999, 51 1.146");
  EXPECT_EQ(store.NumSegments, 1);
  expectExtents(999.8, -0.0002, 1000, 20, 0.01);
}

// Random arcs: extents within the arcs' own boxes, and the rows stay at the arcs.
TEST_F(AxisSplit, ExtentsAndShapesOfRandomArcsHold) {
  std::mt19937 random(11);
  const auto between = [&random](double low, double high) {
    return std::uniform_real_distribution<double>(low, high)(random);
  };
  int parts = 0;
  for (int round = 0; round < 2000; ++round) {
    const double radius = std::pow(10.0, between(0, 5.5));
    const double sweep = std::min(between(0.002, 3), 100 * between(0.1, 1) / radius);
    const double from = -sweep * between(-0.2, 1.2);
    const double rise = radius * (1 - std::cos(sweep / 2));
    if (rise < 0.0002) continue;
    const Vec center{between(-10, 10) - radius, between(-10, 10)};
    Curve arc{.start = testing::onCircle(center, radius, from),
              .end = testing::onCircle(center, radius, from + sweep),
              .isArc = true,
              .center = center,
              .radius = radius,
              .from = from,
              .sweep = sweep};
    DxfRow row{.type = kCounterClockwiseArc,
               .x0 = static_cast<float>(arc.start.x),
               .y0 = static_cast<float>(arc.start.y),
               .x1 = static_cast<float>(arc.end.x),
               .y1 = static_cast<float>(arc.end.y),
               .xc = center.x,
               .yc = center.y};
    if (round % 2 == 1) {
      row.type = kClockwiseArc;
      std::swap(row.x0, row.x1);
      std::swap(row.y0, row.y1);
    }
    std::vector<PlacedRow> rows{{row}};
    splitAtAxis(rows, 0.001F, 0.001);
    parts += rows.size() == 2 ? 1 : 0;
    store = DrawingStore();
    for (const PlacedRow& placed : rows) {
      AddSeg(store,
             {.type = placed.row.type,
              .attr = 8,
              .x0 = static_cast<float>(placed.row.x0),
              .y0 = static_cast<float>(placed.row.y0),
              .x1 = static_cast<float>(placed.row.x1),
              .y1 = static_cast<float>(placed.row.y1),
              .xc = static_cast<float>(placed.row.xc),
              .yc = static_cast<float>(placed.row.yc)},
             nullptr);
    }
    const auto extents = GetDrawingExtents(store);
    if (!extents) continue;
    const double stretch = std::max(extents->maxy - std::max(arc.start.y, arc.end.y),
                                    std::min(arc.start.y, arc.end.y) - extents->miny);
    const bool endsAtAxis = std::abs(from) < 1e-3 || std::abs(from + sweep) < 1e-3;
    const bool holdsTop = from < testing::kFullTurn / 4 && from + sweep > testing::kFullTurn / 4;
    if (!endsAtAxis && !holdsTop && from + sweep < 1.5 && from > -1.5) {
      EXPECT_LE(stretch, 0.002 + 1e-6 * radius) << radius << " " << from << " " << sweep;
    }
    for (int step = 0; step <= 20; ++step) {
      double nearest = 1e9;
      for (const Curve& curve : curves()) {
        nearest = std::min(nearest, distanceBetween(curve, pointOn(arc, step / 20.0)));
      }
      EXPECT_LE(nearest, 0.0005 + 3e-7 * radius) << radius << " " << from << " " << sweep;
    }
  }
  EXPECT_GT(parts, 300);
}

TEST(SplitAtAxis, NothingStaysNothing) {
  std::vector<PlacedRow> rows;
  splitAtAxis(rows, 0.001F, 0.001);
  EXPECT_TRUE(rows.empty());
}

}  // namespace
}  // namespace tess
