// `geometry`: the order of arguments and results of every routine.
#include <sstream>
#include <string>
#include <vector>

#include "gtest/gtest.h"

#include "tests/support/script_run.h"

namespace tess {
namespace {

using testing::ScriptRun;

struct Call {
  std::string call, results;
};

class GeometryBinding : public ::testing::Test, protected ScriptRun {
 protected:
  // What each of the calls gives on a drawing.
  void expectResults(const std::string& drawing, const std::vector<Call>& calls) {
    std::string script = drawing;
    for (const Call& c : calls) script += "print(geometry." + c.call + ")\n";
    std::istringstream results(outputOf(script));
    for (const Call& c : calls) {
      std::string line;
      std::getline(results, line);
      EXPECT_EQ(line, c.results) << c.call;
    }
  }
};

TEST_F(GeometryBinding, EveryRoutineTakesAndGivesInOrder) {
  // A drawing with a line, a quarter arc and a selected circle, and the same as paths.
  const std::string drawing =
      "add_segment{type=1, x0=0, y0=0, x1=4, y1=0} "
      "add_segment{type=3, x0=2, y0=0, x1=0, y1=2, xc=0, yc=0} "
      "add_segment{type=5, attr=30108, x0=9, y0=0, x1=9, y1=0, xc=8, yc=0} "
      "add_path{type=1, code=100, x0=0, y0=1, x1=4, y1=1} "
      "add_path{type=3, code=200, x0=2, y0=0, x1=0, y1=2, xc=0, yc=0} "
      "add_path{type=81, code=200, x0=7, y0=7, x1=7, y1=7} ";
  expectResults(
      drawing,
      {
          {"distance(0, 0, 3, 4)", "5.0"},
          {"nonZero(2)", "2.0"},
          {"roundTo(1.25, 1)", "1.2999999523163"},
          {"swapValues(1, 2)", "2.0\t1.0"},
          {"samePoint(1, 1, 1.00005, 1)", "true"},
          {"samePoint(1, 1, 1.01, 1)", "false"},
          {"pointInSegBox(1.001, 0, 0, 0, 1, 0)", "true"},
          {"midpointAndSlope(0, 0, 2, 4)", "1.0\t2.0\t2.0"},
          {"midpointAndSlope(1, 0, 1, 4)", "1.0\t2.0\t999999.0"},
          {"reflectThroughMidpoint(0, 0, 2, 2, 0, 1)", "2.0\t1.0"},
          {"vectorAngle(0, 0, 1, 0)", "0.0"},
          {"arcRadiusAndAngles(2, 0, 2, 0, 0, 0)", "2.0\t0.0\t0.0"},
          {"angleInSweep(1, 0, 2, 3)", "true"},
          {"angleInSweep(1, 0, 2, 2)", "false"},
          {"polarOf(0, 0, 0, 2)", "90.0\t2.0"},
          {"pointAlong(1, 1, 5, 1, 2)", "3.0\t1.0"},
          {"circleFrom3Points(4, 6, -3, 5, 1, -3)", "1.0\t2.0\t-1"},
          {"circleFrom3Points(0, 0, 0, 1, 0, 2)", "0.0\t0.0\t0"},
          {"perpBisector(2, 0, 0, 2)", "2.0\t0.0\t0.0\t2.0\t1.0\t0.0"},
          {"centersFromChord(-3, 0, 3, 0, 5)", "0.0\t4.0\t0.0\t-4.0\t0"},
          {"centersFromChord(-3, 0, 3, 0, 1)", "0.0\t0.0\t0.0\t0.0\t-1"},
          {"nearestOnLine(0, 0, 4, 0, 1, 3)", "1\t1.0\t0.0"},
          {"nearestOnArc(3, 0, 0, 2, 0, 0, 2, 5, -1)", "1\t2.0\t0.0"},
          {"nearestOnArc(3, 0, 0, 0, 0, 0, 0, 5, 0)", "-1\t0.0\t0.0"},
          {"nearestOnCircle(0, 0, 2, 0, 5, 0)", "1\t2.0\t0.0"},
          {"nearestOnRect(0, 0, 4, 4, 5, 1)", "1\t4.0\t1.0"},
          {"nearestOnSeg(1, 1, 3)", "1\t1.0\t0.0"},
          {"nearestOnPathSeg(3, 0, 0)", "1\t7.0\t7.0"},
          {"nearestLineSeg(1, 1)", "1"},
          {"nearestArcSeg(1, 1)", "2"},
          {"nearestRoundSeg(9, 0)", "3"},
          {"nearestSeg(3, 0)", "1"},
          {"nearestSelectedSeg(0, 0)", "3"},
          {"nearestSegEndpoint(4, 1)", "1\t4.0\t0.0"},
          {"nearestPathEndpoint(6, 6)", "1\t7.0\t7.0"},
          {"nearestPathChord(3, 1)", "1"},
          {"nearestPathSeg(7, 7, 0)", "3"},
          {"nearestPathSeg(7, 7, 2)", "1"},
          {"intersectSlopes(1, 0, -1, 2)", "1\t1.0\t1.0"},
          {"intersectLines(0, 0, 2, 2, 0, 2, 2, 0)", "1\t1.0\t1.0"},
          {"intersectLines(0, 0, 1, 0, 0, 1, 1, 1)", "-1\t0.0\t0.0"},
          {"lineCircle(0, 0, 0, 0, 0, 2)", "2\t2.0\t0.0\t-2.0\t0.0"},
          {"slopeLineCircle(0, 0, 0, 0, 2)", "2\t2.0\t0.0\t-2.0\t0.0"},
          {"horizontalCircle(0, 1, 0, 2)", "2\t3.0\t-1.0"},
          {"verticalCircle(0, 0, 1, 2)", "2\t3.0\t-1.0"},
          {"horizontalCircle(0, 0, 0, 0)", "-1\t0.0\t0.0"},
          {"intersectLineArc(-3, 0, 3, 0, 3, 0, 0, 2, 0, -2, 0)", "3\t2.0\t0.0\t-2.0\t0.0"},
          {"intersectArcs(3, 0, 0, 2, 0, 2, 0, 3, 9, 0, 10, 0, 10, 0)", "0\t0.0\t0.0\t0.0\t0.0"},
          {"intersectSegs(1, 2)", "1\t2.0\t0.0\t-2.0\t0.0"},
          {"intersectSegs(1, 1)", "-1\t0.0\t0.0\t0.0\t0.0"},
          {"intersectPathSegs(1, 1)", "-1\t0.0\t0.0\t0.0\t0.0"},
          {"intersectWithSeg(1, 1, -1, 1, 1, 0, 0, 1)", "1\t1.0\t0.0\t0.0\t0.0"},
      });
}

// Scripts compare these numbers: 1 and more is found, 0 and less is not, for various reasons.
TEST_F(GeometryBinding, CodesSayWhatWasFoundAndWhyNothingWas) {
  const std::string drawing =
      "add_segment{type=1, x0=0, y0=0, x1=4, y1=0} "
      "add_segment{type=5, x0=9, y0=0, x1=9, y1=0, xc=8, yc=0} "
      "add_segment{type=0, x0=1, y0=1, x1=1, y1=1} "
      "add_path{type=0, x0=1, y0=1, x1=2, y1=2} ";
  const std::string nowhere = "\t0.0\t0.0";
  const std::string noPair = nowhere + nowhere;
  expectResults(
      drawing,
      {
          {"lineCircle(0, 0, 0, 0, 0, 2)", "2\t2.0\t0.0\t-2.0\t0.0"},
          {"lineCircle(9, 2, 0, 0, 0, 2)", "1\t0.0\t2.0\t0.0\t2.0"},
          {"lineCircle(0, 0, 1, 0, 0, 0)", "-1" + noPair},
          {"lineCircle(0, 5, 1, 0, 0, 1)", "-2" + noPair},
          {"slopeLineCircle(0, 2, 0, 0, 2)", "1\t0.0\t2.0\t0.0\t2.0"},
          {"slopeLineCircle(0, 0, 0, 0, -1)", "-1" + noPair},
          {"slopeLineCircle(1, 9, 0, 0, 2)", "-2" + noPair},
          {"horizontalCircle(2, 0, 0, 2)", "1\t0.0\t0.0"},
          {"horizontalCircle(3, 0, 0, 2)", "-2\t0.0\t0.0"},
          {"verticalCircle(2, 0, 0, 2)", "1\t0.0\t0.0"},
          {"verticalCircle(0, 0, 0, 0)", "-1\t0.0\t0.0"},
          {"verticalCircle(3, 0, 0, 2)", "-2\t0.0\t0.0"},
          {"intersectSlopes(2, 0, 2, 5)", "-1\t0.0\t0.0"},
          {"intersectLines(0, 0, 1, 1, 0, 4, 4, 0)", "0\t2.0\t2.0"},
          {"intersectLineArc(0, 0, 3, 0, 3, 0, 0, 2, 0, -2, 0)", "1\t2.0\t0.0\t-2.0\t0.0"},
          {"intersectLineArc(0, 0, -3, 0, 3, 0, 0, 2, 0, -2, 0)", "2\t2.0\t0.0\t-2.0\t0.0"},
          {"intersectLineArc(-3, -1, 3, -1, 3, 0, 0, 2, 0, -2, 0)", "0" + noPair},
          {"intersectLineArc(-3, 0, 3, 0, 3, 0, 0, 0, 0, 0, 0)", "-1" + noPair},
          {"intersectLineArc(-3, 5, 3, 6, 3, 0, 0, 2, 0, -2, 0)", "-2" + noPair},
          {"intersectArcs(3, 0, 0, 5, 0, 5, 0, 3, 0, 8, 5, 8, 5, 8)", "3\t3.0\t4.0\t-3.0\t4.0"},
          {"intersectArcs(3, 0, 0, 0, 0, 0, 0, 3, 0, 8, 5, 8, 5, 8)", "0" + noPair},
          {"intersectSegs(1, 2)", "0" + noPair},
          {"intersectWithSeg(6, 1, -1, 2, 2, 0, 0, 1)", "0" + noPair},
          {"nearestOnArc(3, 0, 0, 0, 0, 0, 0, 5, 0)", "-1" + nowhere},
          {"nearestOnCircle(0, 0, 0, 0, 5, 0)", "-1" + nowhere},
          {"nearestOnSeg(3, 5, 0)", "0" + nowhere},
          {"nearestOnPathSeg(1, 5, 0)", "1" + nowhere},
      });
}

TEST_F(GeometryBinding, EveryRoutineIsCovered) {
  const std::string names = outputOf(
      "local names = {} for name in pairs(geometry) do names[#names + 1] = name end "
      "table.sort(names) print(table.concat(names, ' '))");
  EXPECT_EQ(names,
            "angleInSweep arcRadiusAndAngles centersFromChord circleFrom3Points distance "
            "horizontalCircle intersectArcs intersectLineArc intersectLines intersectPathSegs "
            "intersectSegs intersectSlopes intersectWithSeg lineCircle midpointAndSlope "
            "nearestArcSeg nearestLineSeg nearestOnArc nearestOnCircle nearestOnLine "
            "nearestOnPathSeg nearestOnRect nearestOnSeg nearestPathChord nearestPathEndpoint "
            "nearestPathSeg nearestRoundSeg nearestSeg nearestSegEndpoint nearestSelectedSeg "
            "nonZero perpBisector pointAlong pointInSegBox polarOf reflectThroughMidpoint roundTo "
            "samePoint slopeLineCircle swapValues vectorAngle verticalCircle\n");
}

TEST_F(GeometryBinding, NothingNearIsNothingFound) {
  EXPECT_EQ(valueOf("geometry.nearestSeg(0, 0)"), "0");
  EXPECT_EQ(valueOf("geometry.nearestSegEndpoint(0, 0)"), "0\t0.0\t0.0");
  EXPECT_EQ(valueOf("geometry.nearestPathEndpoint(0, 0)"), "0\t0.0\t0.0");
}

TEST_F(GeometryBinding, TheToleranceOfTheSettingsCounts) {
  EXPECT_EQ(outputOf("setting.tolerence = 0.5 print(geometry.samePoint(1, 1, 1.4, 0.6))"),
            "true\n");
}

TEST_F(GeometryBinding, WrongArgumentsNameTheirPlace) {
  EXPECT_EQ(errorOf("geometry.distance(1, 2, 3)"), "Type mismatch: argument 4 is missing");
  EXPECT_EQ(errorOf("geometry.distance(1, {}, 3, 4)"), "Type mismatch: argument 2");
  EXPECT_EQ(errorOf("geometry.distance(1, 2, 0/0, 4)"), "Type mismatch: argument 3");
  EXPECT_EQ(errorOf("geometry.distance(1e300, 2, 3, 4)"), "Overflow: argument 1");
  EXPECT_EQ(errorOf("geometry.distance(-3e38, 0, 3e38, 0)"), "Overflow");
  EXPECT_EQ(errorOf("geometry.nearestOnSeg(99, 0, 0)"), "Subscript out of range");
  EXPECT_EQ(errorOf("geometry.intersectSegs(-1, 2)"), "Subscript out of range");
}

TEST_F(GeometryBinding, UnknownRoutinesAreErrors) {
  EXPECT_EQ(errorOf("geometry.intersectLnes()"),
            "geometry has no routine 'intersectLnes' (did you mean 'intersectLines'?)");
  EXPECT_EQ(errorOf("call.roundal()"), "call has no routine 'roundal' (did you mean 'roundall'?)");
}

}  // namespace
}  // namespace tess
