// The exact conversion: each kind of entity by hand, blocks, units, orientation, and what it names.
#include "import/exact_geometry.h"

#include <algorithm>
#include <cmath>

#include "core/drawing_store.h"
#include "import/dxf_import.h"
#include "tests/import/exact_import.h"

namespace tess {
namespace {

using testing::Curve;
using testing::ExactImport;
using testing::polylineText;
using testing::Vec;
using Texts = std::vector<std::string>;

const char* const kQuarterBulge = "0.41421356237309503";

std::string block(const std::string& name, const std::string& entities,
                  const std::string& base = "10 0, 20 0") {
  return "0 BLOCK, 2 " + name + ", " + base + ", " + entities + ", 0 ENDBLK";
}

const std::string kUnitLine = "0 LINE, 10 0, 20 0, 11 1, 21 0";

// ---- Polylines

struct BulgeCase {
  const char* name;
  std::string x0, y0, bulge, x1, y1;
  const char* row;
};

TEST_F(ExactImport, BulgesBecomeArcsThroughBothVertices) {
  const BulgeCase cases[] = {
      {"half turn to the left", "0", "0", "1", "2", "0", "3 (0, 0)-(2, 0) c (1, 0)"},
      {"half turn to the right", "0", "0", "-1", "2", "0", "2 (0, 0)-(2, 0) c (1, 0)"},
      {"quarter to the left", "1", "0", kQuarterBulge, "0", "1", "3 (1, 0)-(0, 1) c (0, 0)"},
      {"quarter to the right", "0", "1", "-0.41421356237309503", "1", "0",
       "2 (0, 1)-(1, 0) c (0, 0)"},
      {"three quarters", "1", "0", "2.414213562373095", "0", "-1", "3 (1, 0)-(0, -1) c (0, 0)"},
      {"flatter than the tables tell", "0", "0", "1e-9", "2", "0", "1 (0, 0)-(2, 0)"},
      {"no bulge", "0", "0", "0", "2", "0", "1 (0, 0)-(2, 0)"},
  };
  for (const BulgeCase& c : cases) {
    SCOPED_TRACE(c.name);
    store = DrawingStore();
    document = DxfDocument();
    EXPECT_EQ(convert(polylineText({{c.x0, c.y0, c.bulge}, {c.x1, c.y1}})), Texts{c.row});
  }
}

TEST_F(ExactImport, ClosedPolylineHasItsLastEdge) {
  const Texts expected{"1 (0, 0)-(4, 0)", "1 (4, 0)-(4, 3)", "1 (4, 3)-(0, 0)"};
  EXPECT_EQ(convert(polylineText({{"0", "0"}, {"4", "0"}, {"4", "3"}}, 1)), expected);
}

TEST_F(ExactImport, ClosingEdgeTakesTheLastBulge) {
  const Texts expected{"3 (0, 0)-(2, 0) c (1, 0)", "2 (2, 0)-(0, 0) c (1, 0)"};
  EXPECT_EQ(convert(polylineText({{"0", "0", "1"}, {"2", "0", "-1"}}, 1)), expected);
}

// As two half circles they would pass for duplicates.
TEST_F(ExactImport, TwoArcsThatMakeACircleBecomeOneRow) {
  const Texts whole{"2 (0, 0)-(0, 0) c (1, 0)"};
  EXPECT_EQ(convert(polylineText({{"0", "0", "1"}, {"2", "0", "1"}}, 1)), whole);
  store = DrawingStore();
  document = DxfDocument();
  const Texts withLine{"2 (2, 0)-(2, 0) c (1, 0)", "1 (5, 5)-(6, 6)"};
  EXPECT_EQ(convert("0 ARC, 10 1, 20 0, 40 1, 50 0, 51 120, 0 LINE, 10 5, 20 5, 11 6, 21 6, "
                    "0 ARC, 10 1, 20 0, 40 1, 50 120, 51 360"),
            withLine);
}

TEST_F(ExactImport, TwoArcsOfDifferentCirclesStayTwo) {
  convert(polylineText({{"0", "0", "1"}, {"2", "0", "0.5"}}, 1));
  EXPECT_EQ(store.NumSegments, 2);
}

TEST_F(ExactImport, RepeatedVertexGivesNoRow) {
  const Texts expected{"1 (0, 0)-(4, 0)", "1 (4, 0)-(4, 3)", "1 (4, 3)-(0, 0)"};
  EXPECT_EQ(
      convert(polylineText({{"0", "0"}, {"4", "0", "1"}, {"4", "0"}, {"4", "3"}, {"0", "0"}}, 1)),
      expected);
}

TEST_F(ExactImport, OldPolylineSkipsTheFrameOfItsSpline) {
  const Texts expected{"1 (0, 0)-(1, 1)", "1 (1, 1)-(2, 0)"};
  EXPECT_EQ(convert("0 POLYLINE, 70 4, 0 VERTEX, 10 0, 20 9, 70 16, 0 VERTEX, 10 0, 20 0, 70 8, "
                    "0 VERTEX, 10 1, 20 1, 70 8, 0 VERTEX, 10 2, 20 0, 70 8, 0 SEQEND"),
            expected);
}

TEST_F(ExactImport, MeshesAreNamed) {
  for (const char* const flags : {"16", "64"}) {
    EXPECT_EQ(convert(std::string("0 POLYLINE, 70 ") + flags +
                      ", 0 VERTEX, 10 0, 20 9, 0 VERTEX, 10 1, 20 0, 0 SEQEND"),
              Texts{});
    EXPECT_EQ(unconverted, Texts{"POLYLINE"});
  }
}

TEST_F(ExactImport, MirroredPolylineIsSeenFromBehind) {
  EXPECT_EQ(convert(polylineText({{"0", "0", "1"}, {"2", "0"}}) + ", 230 -1"),
            Texts{"2 (0, 0)-(-2, 0) c (-1, 0)"});
}

// ---- Lines, arcs, circles, points

TEST_F(ExactImport, SimpleEntitiesAreRowsAsEver) {
  const Texts expected{"1 (1, 2)-(3, 4)", "3 (15, 10)-(10, 15) c (10, 10)",
                       "2 (7, 2)-(7, 2) c (5, 2)"};
  EXPECT_EQ(convert("0 LINE, 10 1, 20 2, 11 3, 21 4, 0 ARC, 10 10, 20 10, 40 5, 50 0, 51 90, "
                    "0 CIRCLE, 10 5, 20 2, 40 2"),
            expected);
}

TEST_F(ExactImport, MirroredArcsAndCirclesAreSeenFromBehind) {
  const Texts expected{"2 (-15, 10)-(-10, 15) c (-10, 10)", "2 (-7, 2)-(-7, 2) c (-5, 2)"};
  EXPECT_EQ(convert("0 ARC, 10 10, 20 10, 40 5, 50 0, 51 90, 230 -1, "
                    "0 CIRCLE, 10 5, 20 2, 40 2, 230 -1"),
            expected);
}

TEST_F(ExactImport, LinesKeepTheWorldsAxesWhateverTheirExtrusion) {
  EXPECT_EQ(convert("0 LINE, 10 1, 20 2, 11 3, 21 4, 230 -1"), Texts{"1 (1, 2)-(3, 4)"});
}

TEST_F(ExactImport, ArcOfEqualAnglesOrAWholeTurnIsACircle) {
  for (const char* const angles : {"50 0, 51 0", "50 0, 51 360", "50 0, 51 359.99999999999"}) {
    SCOPED_TRACE(angles);
    store = DrawingStore();
    document = DxfDocument();
    EXPECT_EQ(convert(std::string("0 ARC, 10 1, 20 2, 40 5, ") + angles),
              Texts{"3 (6, 2)-(6, 2) c (1, 2)"});
  }
}

TEST_F(ExactImport, RowsWithoutLengthAreLeftOut) {
  EXPECT_EQ(convert("0 LINE, 10 1, 20 1, 11 1, 21 1, 0 CIRCLE, 10 1, 20 1, 40 0, "
                    "0 ARC, 10 9, 20 9, 40 0.0001, 50 0, 51 40"),
            Texts{});
  EXPECT_EQ(unconverted, Texts{});
}

TEST_F(ExactImport, PointsAreConnectedOnDemandOnly) {
  const char* const points = "0 POINT, 10 1, 20 1, 0 POINT, 10 2, 20 1, 0 POINT, 10 2, 20 5";
  EXPECT_EQ(convert(points), Texts{});
  options.connectPoints = true;
  const Texts expected{"1 (1, 1)-(2, 1)", "1 (2, 1)-(2, 5)"};
  EXPECT_EQ(convertDocument(), expected);
}

TEST_F(ExactImport, ChainsGoOnHeadToTail) {
  const Texts expected{"1 (0, 0)-(1, 0)", "2 (1, 0)-(0, 1) c (0, 0)", "1 (0, 1)-(0, 5)"};
  EXPECT_EQ(convert("0 LINE, 10 0, 20 0, 11 1, 21 0, 0 ARC, 10 0, 20 0, 40 1, 50 90, 51 360, "
                    "0 LINE, 10 0, 20 5, 11 0, 21 1"),
            expected);
}

// ---- Ends

TEST_F(ExactImport, EndsWithinTheToleranceMeetExactly) {
  const Texts expected{"1 (0, 0)-(4, 0)", "1 (4, 0)-(4, 3)", "1 (4, 3)-(0, 0)"};
  EXPECT_EQ(convert("0 LINE, 10 0, 20 0, 11 4, 21 0, 0 LINE, 10 4.0008, 20 -0.0008, 11 4, 21 3, "
                    "0 LINE, 10 4.0005, 20 3, 11 0.0001, 21 0.0009"),
            expected);
}

TEST_F(ExactImport, EndsFartherApartStayWhereTheyAre) {
  const Texts expected{"1 (0, 0)-(4, 0)", "1 (4.0015, 0)-(4, 3)"};
  EXPECT_EQ(convert("0 LINE, 10 0, 20 0, 11 4, 21 0, 0 LINE, 10 4.0015, 20 0, 11 4, 21 3"),
            expected);
}

// ---- Ellipses

TEST_F(ExactImport, RoundEllipseIsAnArcOrACircle) {
  const Texts expected{"3 (3, 1)-(1, 3) c (1, 1)", "3 (9, 1)-(9, 1) c (7, 1)"};
  EXPECT_EQ(convert("0 ELLIPSE, 10 1, 20 1, 11 2, 21 0, 40 1, 41 0, 42 1.5707963267948966, "
                    "0 ELLIPSE, 10 7, 20 1, 11 2, 21 0, 40 1, 41 0, 42 6.283185307179587"),
            expected);
}

TEST_F(ExactImport, MirroredEllipseRunsTheOtherWay) {
  EXPECT_EQ(convert("0 ELLIPSE, 10 1, 20 1, 11 2, 21 0, 40 1, 41 0, 42 1.5707963267948966, 230 -1"),
            Texts{"2 (3, 1)-(1, -1) c (1, 1)"});
}

TEST_F(ExactImport, WholeEllipseClosesExactly) {
  convert("0 ELLIPSE, 10 5, 20 5, 11 3, 21 1, 40 0.4, 41 0, 42 6.283185307179586");
  ASSERT_GT(int(store.NumSegments), 8);
  for (int sg = 1; sg <= store.NumSegments; ++sg) {
    const int next = sg % store.NumSegments + 1;
    EXPECT_EQ(store.x1[sg], store.x0[next]);
    EXPECT_EQ(store.y1[sg], store.y0[next]);
  }
}

TEST_F(ExactImport, FlatEllipseIsALineThereAndBack) {
  convert("0 ELLIPSE, 10 0, 20 0, 11 3, 21 0, 40 0, 41 0, 42 3.141592653589793");
  for (const Curve& curve : curves()) EXPECT_FALSE(curve.isArc);
  EXPECT_GE(int(store.NumSegments), 1);
}

// ---- Splines

TEST_F(ExactImport, SplineOfDegreeOneIsItsControlPolygon) {
  const Texts expected{"1 (0, 0)-(4, 0)", "1 (4, 0)-(4, 3)"};
  EXPECT_EQ(convert("0 SPLINE, 70 8, 71 1, 40 0, 40 0, 40 1, 40 2, 40 2, 10 0, 20 0, 10 4, 20 0, "
                    "10 4, 20 3"),
            expected);
}

TEST_F(ExactImport, StraightCubicIsALine) {
  EXPECT_EQ(convert("0 SPLINE, 70 8, 71 3, 40 0, 40 0, 40 0, 40 0, 40 1, 40 1, 40 1, 40 1, "
                    "10 0, 20 0, 10 1, 20 0, 10 2, 20 0, 10 3, 20 0"),
            Texts{"1 (0, 0)-(3, 0)"});
}

TEST_F(ExactImport, RationalCircleIsACircleAgain) {
  const std::string w = "0.7071067811865476";
  convert(
      "0 SPLINE, 70 15, 71 2, 40 0, 40 0, 40 0, 40 1, 40 1, 40 2, 40 2, 40 3, 40 3, 40 4, "
      "40 4, 40 4, 10 1, 20 0, 41 1, 10 1, 20 1, 41 " +
      w +
      ", 10 0, 20 1, 41 1, 10 -1, 20 1, "
      "41 " +
      w + ", 10 -1, 20 0, 41 1, 10 -1, 20 -1, 41 " + w +
      ", 10 0, 20 -1, 41 1, "
      "10 1, 20 -1, 41 " +
      w + ", 10 1, 20 0, 41 1");
  ASSERT_EQ(store.NumSegments, 1);
  const Curve circle = curves().front();
  EXPECT_NEAR(circle.center.x, 0, 1e-6);
  EXPECT_NEAR(circle.center.y, 0, 1e-6);
  EXPECT_NEAR(circle.radius, 1, 1e-6);
  EXPECT_EQ(std::abs(circle.sweep), testing::kFullTurn);
}

TEST_F(ExactImport, FitPointsLieOnTheirSpline) {
  convert("0 SPLINE, 70 0, 71 3, 11 0, 21 0, 11 2, 21 3, 11 5, 21 1, 11 9, 21 4");
  ASSERT_GT(int(store.NumSegments), 3);
  for (const Vec point : {Vec{0, 0}, Vec{2, 3}, Vec{5, 1}, Vec{9, 4}}) {
    double nearest = 1;
    for (const Curve& curve : curves()) nearest = std::min(nearest, distanceBetween(curve, point));
    EXPECT_LT(nearest, 0.001);
  }
}

TEST_F(ExactImport, GivenTangentsLeadTheFitPoints) {
  convert("0 SPLINE, 70 0, 71 3, 11 0, 21 0, 11 4, 21 0, 12 0, 22 1, 13 0, 23 -1");
  const std::vector<Curve> all = curves();
  ASSERT_FALSE(all.empty());
  const Vec start = pointOn(all.front(), 1e-3) - pointOn(all.front(), 0);
  EXPECT_LT(std::abs(start.x), 0.01 * start.y);
  const Vec end = pointOn(all.back(), 1) - pointOn(all.back(), 1 - 1e-3);
  EXPECT_LT(std::abs(end.x), -0.01 * end.y);
}

TEST_F(ExactImport, ClosedFitPointsComeBackSmoothly) {
  convert("0 SPLINE, 70 1, 71 3, 11 0, 21 0, 11 4, 21 -1, 11 4, 21 4, 11 -1, 21 3");
  ASSERT_GT(int(store.NumSegments), 3);
  const std::vector<Curve> all = curves();
  EXPECT_EQ(all.back().end, all.front().start);
  const Vec out = pointOn(all.front(), 1e-4) - all.front().start;
  const Vec in = all.back().end - pointOn(all.back(), 1 - 1e-4);
  EXPECT_LT(std::abs(cross(in, out)), 1e-2 * lengthOf(in) * lengthOf(out));
}

TEST_F(ExactImport, DamagedSplinesAreNamed) {
  const char* const kLine = "10 0, 20 0, 10 1, 20 1";
  const std::string damaged[] = {
      "0 SPLINE",
      "0 SPLINE, 71 1, 40 0, 40 0, 40 1, 40 1",
      std::string("0 SPLINE, 71 1, 40 0, 40 0, 40 1, ") + kLine,
      std::string("0 SPLINE, 71 1, 40 1, 40 0, 40 1, 40 1, ") + kLine,
      std::string("0 SPLINE, 71 1, 40 2, 40 2, 40 2, 40 2, ") + kLine,
      std::string("0 SPLINE, 71 0, 40 0, 40 0, 40 1, ") + kLine,
      std::string("0 SPLINE, 71 2, 40 0, 40 0, 40 1, 40 1, 40 1, ") + kLine,
      std::string("0 SPLINE, 71 1, 40 0, 40 0, 40 1, 40 1, 41 1, 41 0, ") + kLine,
      std::string("0 SPLINE, 71 1, 40 0, 40 0, 40 1, 40 1, 41 1, ") + kLine,
      std::string("0 SPLINE, 71 1, 40 -1e308, 40 -1e308, 40 1e308, 40 1e308, ") + kLine,
      "0 SPLINE, 71 1, 40 0, 40 0, 40 1, 40 1, 10 0, 20 0, 10 1e300, 20 1",
      "0 SPLINE, 71 3, 11 1, 21 1",
      "0 SPLINE, 71 3, 11 1, 21 1, 11 1e300, 21 1",
      "0 SPLINE, 70 1, 71 3, 11 1, 21 1, 11 1, 21 1",
  };
  for (const std::string& spline : damaged) {
    SCOPED_TRACE(spline);
    document = DxfDocument();
    EXPECT_EQ(convert(spline), Texts{});
    EXPECT_EQ(unconverted, Texts{"SPLINE"});
  }
}

TEST_F(ExactImport, OverlargeEllipseIsNamed) {
  EXPECT_EQ(convert("0 ELLIPSE, 10 0, 20 0, 11 1e300, 21 0, 40 0.5, 41 0, 42 1"), Texts{});
  EXPECT_EQ(unconverted, Texts{"ELLIPSE"});
}

TEST_F(ExactImport, CuspEndsInRowsThatMeetThere) {
  // The cubic comes back on itself: its two inner control points cross.
  convert(
      "0 SPLINE, 70 8, 71 3, 40 0, 40 0, 40 0, 40 0, 40 1, 40 1, 40 1, 40 1, "
      "10 0, 20 0, 10 4, 20 4, 10 0, 20 4, 10 4, 20 0");
  ASSERT_GT(int(store.NumSegments), 3);
  ASSERT_LT(int(store.NumSegments), 400);
  for (int sg = 1; sg < store.NumSegments; ++sg) {
    EXPECT_EQ(store.x1[sg], store.x0[sg + 1]);
    EXPECT_EQ(store.y1[sg], store.y0[sg + 1]);
  }
}

// ---- Blocks

TEST_F(ExactImport, InsertPlacesItsBlock) {
  EXPECT_EQ(convert("0 INSERT, 2 part, 10 10, 20 20, 41 2, 42 2, 43 2, 50 90",
                    block("PART", "0 LINE, 10 1, 20 1, 11 4, 21 1", "10 1, 20 1")),
            Texts{"1 (10, 20)-(10, 26)"});
}

TEST_F(ExactImport, ArrayOfAnInsertIsTurnedAndNotScaled) {
  const Texts expected{"1 (0, 0)-(0, 2)", "1 (0, 5)-(0, 7)", "1 (-3, 0)-(-3, 2)",
                       "1 (-3, 5)-(-3, 7)"};
  EXPECT_EQ(convert("0 INSERT, 2 PART, 10 0, 20 0, 41 2, 42 2, 50 90, 70 2, 71 2, 44 5, 45 3",
                    block("PART", kUnitLine)),
            expected);
}

TEST_F(ExactImport, MirroredScaleTurnsArcsRound) {
  EXPECT_EQ(convert("0 INSERT, 2 PART, 10 0, 20 0, 41 -1, 42 1",
                    block("PART", "0 ARC, 10 0, 20 0, 40 1, 50 0, 51 90")),
            Texts{"2 (-1, 0)-(0, 1) c (0, 0)"});
}

TEST_F(ExactImport, MirroredInsertIsSeenFromBehind) {
  EXPECT_EQ(convert("0 INSERT, 2 PART, 10 3, 20 0, 50 90, 230 -1", block("PART", kUnitLine)),
            Texts{"1 (-3, 0)-(-3, 1)"});
}

TEST_F(ExactImport, NestedBlocksAreExpanded) {
  EXPECT_EQ(convert("0 INSERT, 2 OUTER, 10 100, 20 0, 41 2, 42 2",
                    block("INNER", kUnitLine) + ", " +
                        block("OUTER", "0 INSERT, 2 INNER, 10 1, 20 1, 50 180")),
            Texts{"1 (102, 2)-(100, 2)"});
}

TEST_F(ExactImport, UnequalScaleMakesAnEllipse) {
  convert("0 INSERT, 2 PART, 10 0, 20 0, 41 3, 42 1", block("PART", "0 CIRCLE, 10 0, 20 0, 40 1"));
  ASSERT_GT(int(store.NumSegments), 7);
  for (int step = 0; step < 60; ++step) {
    const double angle = testing::kFullTurn * step / 60;
    const Vec point{3 * std::cos(angle), std::sin(angle)};
    double nearest = 1;
    for (const Curve& curve : curves()) nearest = std::min(nearest, distanceBetween(curve, point));
    EXPECT_LT(nearest, 0.001);
  }
}

TEST_F(ExactImport, UnequalScaleKeepsTheEndsOfABulge) {
  convert("0 INSERT, 2 PART, 10 0, 20 0, 41 2, 42 1",
          block("PART", polylineText({{"0", "0", "1"}, {"2", "0", "0"}, {"2", "5"}})));
  const std::vector<Curve> all = curves();
  ASSERT_GT(all.size(), 3U);
  EXPECT_EQ(all.front().start, (Vec{0, 0}));
  EXPECT_EQ(all[all.size() - 2].end, (Vec{4, 0}));
  EXPECT_EQ(all.back().end, (Vec{4, 5}));
}

TEST_F(ExactImport, MissingBlockIsNamed) {
  EXPECT_EQ(convert("0 INSERT, 2 gone, 10 0, 20 0, " + kUnitLine), Texts{"1 (0, 0)-(1, 0)"});
  EXPECT_EQ(unconverted, Texts{"INSERT (BLOCK \"GONE\" IS MISSING)"});
}

TEST_F(ExactImport, BlockThatContainsItselfIsNamedAndTheRestStays) {
  EXPECT_EQ(
      convert("0 INSERT, 2 A, 10 0, 20 0", block("A", "0 INSERT, 2 B, 10 0, 20 1, " + kUnitLine) +
                                               ", " + block("B", "0 INSERT, 2 A, 10 0, 20 1")),
      Texts{"1 (0, 0)-(1, 0)"});
  EXPECT_EQ(unconverted, Texts{"INSERT (BLOCK \"A\" CONTAINS ITSELF)"});
}

TEST_F(ExactImport, NestingHasItsLimit) {
  std::string blocks = block("B0", kUnitLine);
  for (int level = 1; level <= 64; ++level) {
    blocks += ", " + block("B" + std::to_string(level),
                           "0 INSERT, 2 B" + std::to_string(level - 1) + ", 10 0, 20 0");
  }
  EXPECT_EQ(convert("0 INSERT, 2 B63, 10 0, 20 0", blocks), Texts{"1 (0, 0)-(1, 0)"});
  EXPECT_EQ(unconverted, Texts{});
  document = DxfDocument();
  store = DrawingStore();
  EXPECT_EQ(convert("0 INSERT, 2 B64, 10 0, 20 0", blocks), Texts{});
  EXPECT_EQ(unconverted, Texts{"INSERT (BLOCK \"B0\" IS NESTED TOO DEEPLY)"});
}

TEST_F(ExactImport, ArrayWithoutEndOrContentComesToAnEnd) {
  EXPECT_EQ(convert("0 INSERT, 2 EMPTY, 10 0, 20 0, 70 32767, 71 32767, " + kUnitLine,
                    block("EMPTY", "0 TEXT")),
            Texts{"1 (0, 0)-(1, 0)"});
  const Texts expected{"TEXT", "INSERT (BLOCK \"EMPTY\" HAS TOO MANY PARTS)"};
  EXPECT_EQ(unconverted, expected);
}

// A spline costs as much as the points that it is made of, though it may be a single row: ten
// thousand of them in a block, placed a hundred thousand times, are not worth their while.
TEST_F(ExactImport, ABlockCountsWithThePointsOfItsEntities) {
  std::string spline = "0 SPLINE, 70 8, 71 3";
  std::string fitted = "0 SPLINE, 70 8, 71 3";
  std::string polyline = "0 LWPOLYLINE";
  for (int k = 0; k < 1004; ++k) spline += ", 40 " + std::to_string(std::clamp(k - 3, 0, 997));
  for (int k = 0; k < 1000; ++k) {
    const std::string x = std::to_string(k / 1000.0);
    spline += ", 10 " + x + ", 20 0";
    fitted += ", 11 " + x + ", 21 0";
    polyline += ", 10 1, 20 1";
  }
  const struct {
    std::string entity;
    int rows;
  } cases[] = {{spline, 334}, {fitted, 999}, {polyline, 0}};
  for (const auto& c : cases) {
    store = DrawingStore();
    document = DxfDocument();
    convert("0 INSERT, 2 PART, 10 0, 20 0, 70 300, 71 300, 44 2, 45 2", block("PART", c.entity));
    EXPECT_EQ(store.NumSegments, c.rows);
    EXPECT_EQ(unconverted, Texts{"INSERT (BLOCK \"PART\" HAS TOO MANY PARTS)"});
  }
}

TEST_F(ExactImport, ABlockThatIsNotPlacedToItsEndIsNamed) {
  convert("0 INSERT, 2 PART, 10 0, 20 0",
          block("EMPTY", "0 TEXT") + ", " +
              block("PART", "0 INSERT, 2 EMPTY, 10 0, 20 0, 70 32767, 71 32767, " + kUnitLine));
  const Texts expected{"TEXT", "INSERT (BLOCK \"EMPTY\" HAS TOO MANY PARTS)",
                       "INSERT (BLOCK \"PART\" HAS TOO MANY PARTS)"};
  EXPECT_EQ(unconverted, expected);
}

TEST_F(ExactImport, FullDrawingCountsWhatItLost) {
  convert("0 INSERT, 2 PART, 10 0, 20 0, 70 200, 71 200, 44 2, 45 2", block("PART", kUnitLine));
  EXPECT_EQ(store.NumSegments, 32767);
  EXPECT_EQ(lost, 40000 - 32767);
  EXPECT_TRUE(prompts.messages.empty());
}

// ---- Units and what is named

TEST_F(ExactImport, FileUnitsBecomeDrawingUnits) {
  struct Case {
    int insunits;
    bool metric;
    double factor;
  };
  const Case cases[] = {
      {0, true, 1},     {0, false, 1},           {4, true, 1},
      {1, false, 1},    {1, true, 25.4},         {4, false, 1 / 25.4},
      {2, false, 12},   {2, true, 304.8},        {5, true, 10},
      {6, true, 1000},  {6, false, 1000 / 25.4}, {10, false, 36},
      {14, true, 100},  {13, true, 0.001},       {9, false, 0.001},
      {8, false, 1e-6}, {20, true, 1},           {-7, true, 1},
  };
  for (const Case& c : cases) {
    EXPECT_DOUBLE_EQ(unitFactor(c.insunits, c.metric), c.factor) << c.insunits << " " << c.metric;
  }
}

TEST_F(ExactImport, LengthsComeInTheDrawingsUnits) {
  units = "1";
  const Texts expected{"1 (25.4, 0)-(50.8, 254)", "2 (50.8, 0)-(50.8, 0) c (25.4, 0)"};
  EXPECT_EQ(convert("0 LINE, 10 1, 20 0, 11 2, 21 10, 0 CIRCLE, 10 1, 20 0, 40 1"), expected);
}

TEST_F(ExactImport, ToleranceOfCurvesIsTheDrawingsUpToItsLimit) {
  EXPECT_FLOAT_EQ(static_cast<float>(curveTolerance({.metric = true, .tolerence = 0.002F})),
                  0.002F);
  EXPECT_EQ(curveTolerance({.metric = true, .tolerence = 0.5F}), 0.025);
  EXPECT_EQ(curveTolerance({.metric = false, .tolerence = 0.5F}), 0.001);
}

TEST_F(ExactImport, OtherKindsAreNamedOnceEach) {
  EXPECT_EQ(convert("0 TEXT, 0 HATCH, 0 TEXT, 0 3DFACE"), Texts{});
  const Texts expected{"TEXT", "HATCH", "3DFACE"};
  EXPECT_EQ(unconverted, expected);
}

TEST_F(ExactImport, NumbersBeyondTheTablesAskAndGoOn) {
  prompts.answers = {Answer::Yes};
  EXPECT_EQ(convert("0 LINE, 10 1e300, 20 0, 11 1, 21 5, " + kUnitLine), Texts{"1 (0, 0)-(1, 0)"});
  ASSERT_EQ(prompts.messages.size(), 1U);
  EXPECT_EQ(prompts.messages[0].text,
            "Error Importing DXF File:  Overflow (LINE, part.dxf line 5)\n\n"
            "Would you like to continue importing this file?");
}

TEST_F(ExactImport, FarDrawingKeepsItsDecimalsWhenItIsMovedNear) {
  const char* const far = "0 LINE, 10 5000000.125, 20 3000000.25, 11 5000001.625, 21 3000002.5";
  EXPECT_NE(convert(far), Texts{"1 (0.125, 0.25)-(1.625, 2.5)"});
  store = DrawingStore();
  options.nearOrigin = true;
  EXPECT_EQ(convertDocument(), Texts{"1 (0.125, 0.25)-(1.625, 2.5)"});
}

TEST_F(ExactImport, DefaultConversionIsUntouched) {
  read(polylineText({{"0", "0", "1"}, {"2", "0"}, {"2", "2"}}, 1) + ", 0 SPLINE, 0 INSERT, 2 X");
  testing::LooseChange loose(store);
  DxfRows rows(loose.change, prompts, document);
  importDxf(document, store, rows, {});
  const Texts expected{"1 (0, 0)-(2, 0)", "1 (2, 0)-(2, 2)"};
  EXPECT_EQ(testing::segmentTexts(store), expected);
  const Texts named{"SPLINE", "INSERT"};
  EXPECT_EQ(rows.unconverted(), named);
}

TEST_F(ExactImport, OptionLeadsHere) {
  units = "1";
  read(polylineText({{"0", "0", "1"}, {"2", "0"}}));
  store.units = "M";
  store.cfg_tolerance = 0.001F;
  testing::LooseChange loose(store);
  DxfRows rows(loose.change, prompts, document);
  importDxf(document, store, rows, {.exactGeometry = true});
  EXPECT_EQ(testing::segmentTexts(store), Texts{"3 (0, 0)-(50.8, 0) c (25.4, 0)"});
}

}  // namespace
}  // namespace tess
