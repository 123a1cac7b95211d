// Path rows as lines of a list, the search in them, and which one a click means.
#include "toolpath/path_list.h"

#include <cmath>
#include <limits>

#include "gtest/gtest.h"

#include "tests/support/recorded_cam.h"

namespace tess {
namespace {

using testing::RecordedCam;
using testing::segmentTexts;
using Texts = std::vector<std::string>;

constexpr char kLengths[] = "0.0000";

struct PathRows : RecordedCam {
  void add(const PathRow& row) { addPathSegment(store, row); }
  std::string line(int ps) const { return pathListLine(store, ps, kLengths); }
  int find(int current, PathValue what, double value) const {
    return findPathRow(store, current, what, value, kLengths);
  }
};

TEST(PathListLine, HasACellForEachHeading) {
  PathRows d;
  d.add({.type = kClockwiseArc, .x1 = 1.5F, .y1 = -2, .z = -0.25F, .feed = 12.5F, .code = 304});
  EXPECT_EQ(std::string(kPathListHeadings), "#\tGroup\tTool\tType\tEnd X\tEnd Y\tZ\tFeed");
  EXPECT_EQ(d.line(1), "1\t3\t5\tCW Arc\t1.5000\t-2.0000\t-0.2500\t12.5");
}

TEST(PathListLine, CutsOffTheGroupOfASelectedRowWithTool53) {
  PathRows d;
  d.add({.type = kLine, .code = 30152});
  EXPECT_EQ(d.line(1), "1\t1\t53\tLine\t0.0000\t0.0000\t0.0000\t0");
}

TEST(PathListLine, NamesEachKindOfRow) {
  PathRows d;
  const std::vector<int> types = {0, 1, 2, 3, 4, 78, 79, 89};
  Texts shown;
  for (const int type : types) {
    d.add({.type = type, .code = 100});
    const std::string line = d.line(d.store.NumPathSegments);
    const std::size_t start = line.find("\t1\t1\t") + 5;
    shown.push_back(line.substr(start, line.find('\t', start) - start));
  }
  EXPECT_EQ(shown, (Texts{"Rapid", "Line", "CW Arc", "CCW Arc", "Type 4", "Type 78", "Cycle 79",
                          "Cycle 89"}));
}

TEST(PathListLine, OfANumberThatIsNoneIsALineAllTheSame) {
  PathRows d;
  d.add({.type = kLine,
         .x1 = std::nanf(""),
         .z = std::numeric_limits<float>::infinity(),
         .feed = std::nanf(""),
         .code = -250});
  EXPECT_EQ(d.line(1), "1\t-2\t-49\tLine\t?\t0.0000\t?\t?");
}

// ---- The search

struct Searched : PathRows {
  Searched() {
    add({.type = kLine, .z = -0.5F, .feed = 10, .code = 100});
    add({.type = kLine, .z = -0.25F, .feed = 12.5F, .code = 204});
    add({.type = kLine, .z = -0.50001F, .feed = 10, .code = 30204});
    add({.type = kLine, .z = 0, .feed = 10, .code = 352});
  }
};

TEST(FindPathRow, GoesOnBehindTheCurrentRowAndRoundTheEnd) {
  const Searched d;
  EXPECT_EQ(d.find(1, PathValue::Feed, 10), 3);
  EXPECT_EQ(d.find(3, PathValue::Feed, 10), 4);
  EXPECT_EQ(d.find(4, PathValue::Feed, 10), 1);
}

TEST(FindPathRow, FindsByEachValue) {
  const Searched d;
  EXPECT_EQ(d.find(1, PathValue::Tool, 5), 2);
  EXPECT_EQ(d.find(2, PathValue::Tool, 5), 3) << "selected";
  EXPECT_EQ(d.find(1, PathValue::Tool, 53), 4);
  EXPECT_EQ(d.find(1, PathValue::Group, 3), 4) << "cut off, with tool 53";
  EXPECT_EQ(d.find(1, PathValue::Depth, -0.25), 2);
  EXPECT_EQ(d.find(1, PathValue::Feed, 12.5), 2);
}

TEST(FindPathRow, ComparesWhatIsShown) {
  const Searched d;
  EXPECT_EQ(d.find(1, PathValue::Depth, -0.5), 3) << "shown as -0.5000";
  EXPECT_EQ(d.find(1, PathValue::Depth, -0.49999), 3);
  EXPECT_EQ(d.find(1, PathValue::Tool, 5.5), 0);
}

TEST(FindPathRow, TellsTheCurrentRowWhenItIsTheOnlyOneAndNoneOtherwise) {
  const Searched d;
  EXPECT_EQ(d.find(2, PathValue::Feed, 12.5), 2);
  EXPECT_EQ(d.find(2, PathValue::Feed, 99), 0);
  EXPECT_EQ(d.find(2, PathValue::Feed, 1e300), 0);
  EXPECT_EQ(PathRows().find(1, PathValue::Tool, 1), 0);
}

// ---- A click

TEST(PathRowAt, IsTheNearestShownRow) {
  PathRows d;
  d.addPathLine(0, 0, 1, 0);
  d.addPathLine(0, 2, 1, 2);
  EXPECT_EQ(pathRowAt(d.store, {0.5F, 1.5F}, 1), 2);
  d.store.psvisible[2] = false;
  EXPECT_EQ(pathRowAt(d.store, {0.5F, 1.5F}, 1), 1);
}

TEST(PathRowAt, GoesThroughTheRowsThatLieOnOneAnother) {
  PathRows d;
  for (int level = 0; level < 3; ++level) d.addPathLine(0, 0, 1, 0);
  d.addPathLine(0, 2, 1, 2);
  d.store.psvisible[2] = false;
  const Point at{0.5F, 0.25F};
  EXPECT_EQ(pathRowAt(d.store, at, 4), 1);
  EXPECT_EQ(pathRowAt(d.store, at, 1), 3) << "the second is hidden";
  EXPECT_EQ(pathRowAt(d.store, at, 3), 1);
}

TEST(PathRowAt, WithoutAShownRowIsNone) {
  PathRows d;
  EXPECT_EQ(pathRowAt(d.store, {0, 0}, 1), 0);
  d.addPathLine(0, 0, 1, 0);
  d.store.psvisible[1] = false;
  EXPECT_EQ(pathRowAt(d.store, {0, 0}, 1), 0);
}

// ---- What stands out

Texts outlines(const PathRows& d, const std::vector<int>& rows, float smallest = 0) {
  Texts texts;
  for (const SegmentRow& row : pathOutlines(d.store, rows, smallest)) {
    texts.push_back(testing::segmentText(row));
  }
  return texts;
}

TEST(PathOutlines, ShowRowsThatLieOnOneAnotherOnce) {
  PathRows d;
  d.addPathLine(0, 0, 1, 0);
  d.addPathLine(1, 0, 0, 0, 200);
  d.add({.type = kClockwiseArc, .x0 = 1, .y1 = -1, .code = 100});
  d.add({.type = kCounterClockwiseArc, .y0 = -1, .x1 = 1, .code = 100});
  d.add({.type = kCounterClockwiseArc, .x0 = 1, .y1 = -1, .code = 100});
  EXPECT_EQ(outlines(d, {1, 2, 3, 4, 5}),
            (Texts{"1 (0, 0)-(1, 0)", "3 (0, -1)-(1, 0) c (0, 0)", "3 (1, 0)-(0, -1) c (0, 0)"}));
  EXPECT_EQ(outlines(d, {2}), Texts{"1 (0, 0)-(1, 0)"});
}

TEST(PathOutlines, ShowPointsAsRings) {
  PathRows d;
  d.add({.type = 81, .x0 = 2, .y0 = 1, .x1 = 2, .y1 = 1, .xc = 9, .code = 100});
  d.add({.type = 79, .x0 = 0, .x1 = 3, .code = 100});
  d.add({.type = kLine, .code = 100});
  d.add({.type = kLine, .code = -150});
  EXPECT_EQ(outlines(d, {1}), Texts{"5 (2.25, 1)-(2.25, 1) c (2, 1)"}) << "of the tool's radius";
  EXPECT_EQ(outlines(d, {1}, 0.5F), Texts{"5 (2.5, 1)-(2.5, 1) c (2, 1)"});
  EXPECT_EQ(outlines(d, {2}),
            (Texts{"1 (0, 0)-(3, 0)", "5 (0.25, 0)-(0.25, 0)", "5 (3.25, 0)-(3.25, 0) c (3, 0)"}));
  EXPECT_EQ(outlines(d, {3}), Texts{"5 (0.25, 0)-(0.25, 0)"}) << "not placed yet";
  EXPECT_EQ(outlines(d, {4}, 0.125F), Texts{"5 (0.125, 0)-(0.125, 0)"}) << "a damaged code";
}

}  // namespace
}  // namespace tess
