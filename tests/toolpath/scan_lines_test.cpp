// Scan-line roughing in rows: direction, order, what is shown and logged.
#include "toolpath/scan_lines.h"

#include <limits>

#include "gtest/gtest.h"

#include "core/drawing_store.h"
#include "core/pocketing_choices.h"
#include "drafting/undo.h"
#include "geometry/row_entity.h"
#include "tests/geometry/scenes.h"
#include "tests/support/failure_of.h"
#include "tests/toolpath/plain_scan.h"
#include "tests/toolpath/working_outline_rows.h"
#include "toolpath/scan_lathe.h"
#include "toolpath/scan_run.h"

namespace tess {
namespace {

using testing::addWorkingBox;
using testing::pathEnds;
using testing::PlainScan;
using testing::RecordedCam;
using testing::setSpacing;
using Texts = std::vector<std::string>;

constexpr int kConventional = choiceNumber(CuttingMode::Conventional);
constexpr int kClimb = choiceNumber(CuttingMode::Climb);
constexpr int kBidirectional = choiceNumber(CuttingMode::Bidirectional);

TEST(ScanPocketHorizontal, CutsARectangleOnLinesHalfAStepInside) {
  RecordedCam c;
  addWorkingBox(c.store, {0, 0}, {10, 4});
  setSpacing(c.store, 1);
  EXPECT_EQ(scanPocketHorizontal(c.cam, -0.5F, 20), Clearing::Done);
  EXPECT_EQ(
      testing::pathTexts(c.store),
      (Texts{"1 (0, 0.5)-(10, 0.5) @100 z -0.5 f 20", "1 (0, 1.5)-(10, 1.5) @100 z -0.5 f 20",
             "1 (0, 2.5)-(10, 2.5) @100 z -0.5 f 20", "1 (0, 3.5)-(10, 3.5) @100 z -0.5 f 20"}));
}

TEST(ScanPocketVertical, CutsARectangleFromTopToBottom) {
  RecordedCam c;
  addWorkingBox(c.store, {0, 0}, {3, 10});
  setSpacing(c.store, 1);
  EXPECT_EQ(scanPocketVertical(c.cam, -0.5F, 20), Clearing::Done);
  EXPECT_EQ(pathEnds(c.store),
            (Texts{"(0.5, 10)-(0.5, 0)", "(1.5, 10)-(1.5, 0)", "(2.5, 10)-(2.5, 0)"}));
}

struct DirectionCase {
  const char* name;
  int mode;
  Texts horizontal, vertical;
};

const DirectionCase kDirections[] = {
    {"conventional",
     kConventional,
     {"(0, 0.5)-(2, 0.5)", "(0, 1.5)-(2, 1.5)"},
     {"(0.5, 2)-(0.5, 0)", "(1.5, 2)-(1.5, 0)"}},
    {"climb",
     kClimb,
     {"(2, 0.5)-(0, 0.5)", "(2, 1.5)-(0, 1.5)"},
     {"(0.5, 0)-(0.5, 2)", "(1.5, 0)-(1.5, 2)"}},
    {"bidirectional",
     kBidirectional,
     {"(0, 0.5)-(2, 0.5)", "(2, 1.5)-(0, 1.5)"},
     {"(0.5, 2)-(0.5, 0)", "(1.5, 0)-(1.5, 2)"}},
};

TEST(ScanPocket, OneWayModesKeepTheirWayAndBidirectionalTurnsAtEachLine) {
  for (const DirectionCase& test : kDirections) {
    SCOPED_TRACE(test.name);
    RecordedCam c;
    addWorkingBox(c.store, {0, 0}, {2, 2});
    setSpacing(c.store, 1);
    c.store.cfg_cutting_mode = test.mode;
    scanPocketHorizontal(c.cam, 0, 20);
    EXPECT_EQ(pathEnds(c.store), test.horizontal);
    c.store.NumPathSegments = 0;
    scanPocketVertical(c.cam, 0, 20);
    EXPECT_EQ(pathEnds(c.store), test.vertical);
  }
}

TEST(ScanPocket, AnIslandSplitsALineIntoSpansOrderedAlongTheDirection) {
  RecordedCam c;
  addWorkingBox(c.store, {0, 0}, {10, 2});
  addWorkingBox(c.store, {4, 0}, {6, 2}, kIslandOutline);
  setSpacing(c.store, 1);
  c.store.cfg_cutting_mode = kBidirectional;
  scanPocketHorizontal(c.cam, 0, 20);
  EXPECT_EQ(pathEnds(c.store), (Texts{"(0, 0.5)-(4, 0.5)", "(6, 0.5)-(10, 0.5)",
                                      "(10, 1.5)-(6, 1.5)", "(4, 1.5)-(0, 1.5)"}));
}

TEST(ScanPocket, ASelectedWorkingRowIsOneStill) {
  RecordedCam c;
  addWorkingBox(c.store, {0, 0}, {2, 1}, kSelected + kPocketOutline);
  setSpacing(c.store, 1);
  scanPocketHorizontal(c.cam, 0, 20);
  EXPECT_EQ(pathEnds(c.store), (Texts{"(0, 0.5)-(2, 0.5)"}));
}

// ---- The step

TEST(ScanPocket, ThePercentageIsOfTheToolsDiameter) {
  RecordedCam c;
  c.store.cfg_tool_spacing = 80;
  c.store.toolradius[0] = 0.625F;  // a step of 1
  addWorkingBox(c.store, {0, 0}, {5, 2});
  scanPocketHorizontal(c.cam, 0, 20);
  EXPECT_EQ(pathEnds(c.store), (Texts{"(0, 0.5)-(5, 0.5)", "(0, 1.5)-(5, 1.5)"}));
}

TEST(ScanPocket, ADistanceCountsOnlyWhereItIsChosenAndPositive) {
  for (const auto& [type, distance, lines] :
       {std::tuple{1, 2.0F, 4}, {2, 0.0F, 4}, {2, -1.0F, 4}, {2, 2.0F, 2}}) {
    RecordedCam c;
    c.store.cfg_tool_spacing = 80;
    c.store.toolradius[0] = 0.625F;
    c.store.cfg_cut_width_type = type;
    c.store.cfg_tool_spacing_distance = distance;
    addWorkingBox(c.store, {0, 0}, {5, 4});
    scanPocketHorizontal(c.cam, 0, 20);
    EXPECT_EQ(c.store.NumPathSegments, lines) << type << " " << distance;
  }
}

// ---- Groups, messages and what is shown

TEST(ScanPocket, TakesANewGroupAndTheSelectedTool) {
  RecordedCam c;
  c.addPathLine(0, 0, 1, 0, 700);
  c.store.selectedtool = 3;
  c.store.toolradius[3] = 0.5F;
  addWorkingBox(c.store, {0, 0}, {2, 0.5F});
  scanPocketHorizontal(c.cam, 0, 20);
  EXPECT_EQ(c.store.currentpathgroup, 8);
  EXPECT_EQ(c.store.pscode[2], 803);
}

TEST(ScanPocket, WithoutWorkingRowsAMessageAndNoPath) {
  using Style = Clearing (*)(RecordedCam&);
  const Style styles[] = {[](RecordedCam& c) { return scanPocketHorizontal(c.cam, 0, 20); },
                          [](RecordedCam& c) { return scanPocketVertical(c.cam, 0, 20); },
                          [](RecordedCam& c) { return scanPocketLathe(c.cam, 20); }};
  for (const Style style : styles) {
    RecordedCam c;
    addWorkingBox(c.store, {0, 0}, {2, 2}, kVerifiedRow);
    EXPECT_EQ(style(c), Clearing::NothingToCut);
    ASSERT_EQ(c.messages().size(), 1U);
    EXPECT_EQ(c.messages()[0].text, "No pocketing segments available!");
    EXPECT_EQ(c.messages()[0].icon, MessageIcon::Warning);
    EXPECT_EQ(c.store.NumPathSegments, 0);
  }
}

TEST(ScanPocket, ThousandEmptyLinesAreARunWithoutRows) {
  RecordedCam c;
  // The circle reaches far below its arc, and so does the bound.
  c.add({.type = kCounterClockwiseArc,
         .attr = kPocketOutline,
         .x0 = -1,
         .y0 = 1999.9998F,
         .x1 = -1.1F,
         .y1 = 1999.9997F});
  setSpacing(c.store, 1);
  EXPECT_EQ(scanPocketHorizontal(c.cam, 0, 20), Clearing::Done);
  EXPECT_EQ(c.store.NumPathSegments, 0);
  EXPECT_EQ(c.statusLog.size(), 1001U);
  EXPECT_EQ(scanPocketLathe(c.cam, 20), Clearing::Done);
  EXPECT_EQ(c.store.NumPathSegments, 0);
}

TEST(ScanPocket, ShowsWhatItCollectsUnderABusyPointer) {
  RecordedCam c;
  addWorkingBox(c.store, {0, 0}, {10, 2});
  setSpacing(c.store, 1);
  c.log.take();
  scanPocketHorizontal(c.cam, 0, 20);
  EXPECT_EQ(c.statusLog, (Texts{"Collecting Roughing Points    ", "4:2", "4:4", "4:4"}));
  EXPECT_EQ(c.log.take(), "MousePointer 11\nMousePointer 0\n");
}

TEST(ScanPocket, ServesEventsBetweenItsStages) {
  RecordedCam c;
  addWorkingBox(c.store, {0, 0}, {10, 2});
  const int before = c.test.recording.surroundings.eventsServed;
  scanPocketHorizontal(c.cam, 0, 20);
  EXPECT_EQ(c.test.recording.surroundings.eventsServed, before + 4);
}

TEST(ScanPocket, AnOverflowOfCrossingsGivesThePointerBack) {
  RecordedCam c;
  addWorkingBox(c.store, {0, 0}, {10, 4});
  setSpacing(c.store, 0.0001F);
  EXPECT_EQ(testing::numberOfFailure([&] { scanPocketHorizontal(c.cam, 0, 20); }),
            FailureNumber::Overflow);
  EXPECT_EQ(c.pointer.MousePointer(), kDefaultShape);
  EXPECT_EQ(c.store.NumPathSegments, 0);
}

TEST(ScanPocket, IsOneStepOfTheChangeLog) {
  RecordedCam c;
  c.addPathLine(0, 0, 1, 0);
  const Texts before = testing::pathTexts(c.store);
  addWorkingBox(c.store, {0, 0}, {10, 3});
  setSpacing(c.store, 1);
  scanPocketHorizontal(c.cam, -0.5F, 20);
  const Texts after = testing::pathTexts(c.store);
  EXPECT_EQ(c.context.changelog.changecount, 3);
  Undo_Last_Change(c.context);
  EXPECT_EQ(testing::pathTexts(c.store), before);
  EXPECT_FALSE(c.context.changelog.canUndo());
  RedoLastChange(c.context);
  EXPECT_EQ(testing::pathTexts(c.store), after);
}

TEST(ScanPocket, LeavesTheWorkingRowsAsTheyAre) {
  RecordedCam c;
  addWorkingBox(c.store, {0, 0}, {10, 3});
  const Texts before = testing::segmentTexts(c.store);
  scanPocketVertical(c.cam, 0, 20);
  EXPECT_EQ(testing::segmentTexts(c.store), before);
}

// ---- Random outlines against exchange sorts

TEST(ScanPocket, RandomOutlinesGiveTheRowsOfExchangeSorts) {
  int exchanges = 0;
  for (int number = 0; number < 240; ++number) {
    SCOPED_TRACE(::testing::Message() << "outline " << number);
    testing::Dice dice(static_cast<std::uint32_t>(number) * 97U + 3U);
    RecordedCam c;
    setSpacing(c.store, 0.5F);
    c.store.cfg_cutting_mode = 1 + number / 2 % 3;
    for (int row = 5 + dice.below(40); row > 0; --row) {
      const Entity e = testing::sceneEntity(testing::SceneKind::Spread, dice);
      c.add({e.type, row % 2 == 0 ? kPocketOutline : kIslandOutline, e.start.x, e.start.y, e.end.x,
             e.end.y, e.center.x, e.center.y});
    }
    const bool vertical = number % 2 != 0;
    PlainScan plain{.store = c.store,
                    .style = vertical ? PlainScan::Style::Vertical : PlainScan::Style::Horizontal,
                    .spacing = 0.5F};
    if (!plain.collect()) continue;
    plain.sort();
    vertical ? scanPocketVertical(c.cam, 0, 20) : scanPocketHorizontal(c.cam, 0, 20);
    int ps = 0;
    plain.place(c.store.cfg_cutting_mode, [&](int i) {
      const Entity placed = pathEntity(c.store, ++ps);
      EXPECT_EQ(placed.start, plain.point(i)) << "row " << ps;
      EXPECT_EQ(placed.end, plain.point(i + 1)) << "row " << ps;
    });
    ASSERT_EQ(c.store.NumPathSegments, ps);
    ASSERT_FALSE(HasFailure());
    exchanges += plain.exchanges;
  }
  EXPECT_GT(exchanges, 5000);
}

TEST(OrderLine, SpansWithTheSameMiddleKeepTheirOrder) {
  std::vector<ScanSpan> line{{1, 4, 6}, {1, 3, 7}, {1, 0, 2}};
  orderLine(line, -1);
  EXPECT_EQ(line[0].from, 4);
  EXPECT_EQ(line[1].from, 3);
  EXPECT_EQ(line[2].from, 0);
}

}  // namespace
}  // namespace tess
