// Creating entities in the drawing modes, by clicks.
#include "drafting/entity_creation.h"

#include "gtest/gtest.h"

#include "core/drawing_format.h"
#include "core/drawing_store.h"
#include "drafting/object_snap.h"
#include "drafting/selection.h"
#include "drafting/trim.h"
#include "drafting/undo.h"
#include "geometry/float_circles.h"
#include "tests/support/drafting_test_context.h"
#include "tests/support/failure_of.h"

namespace tess {
namespace {

using testing::RecordedDrafting;
using testing::segmentTexts;
using Texts = std::vector<std::string>;

// The kinds and step flags of the records, as in "A* A A".
std::string logText(const RecordedDrafting& d) {
  std::string text;
  const ChangeLog& log = d.context.changelog;
  for (int at = 0; at < log.changecount; ++at) {
    if (at > 0) text += ' ';
    text += log.record(at).added() ? "A" : "D";
    if (log.record(at).StartOfSegment) text += "*";
  }
  return text;
}

struct CommandCase {
  void (*command)(DraftingContext&);
  int mode;
};

constexpr CommandCase kCommands[] = {
    {mnuDrawLine_Click, 1},     {mnuDrawArc3P_Click, 2}, {mnuDrawArcC2P_Click, 3},
    {mnuDrawCircle3P_Click, 5}, {mnuDrawRect_Click, 6},  {mnuDrawCircleC1P_Click, 7},
};

TEST(DrawingCommands, SetTheirModeAndReplaceThePendingAction) {
  for (const CommandCase& row : kCommands) {
    RecordedDrafting d;
    mnuEditTrimEntity_Click(d.context);
    row.command(d.context);
    EXPECT_EQ(d.mode(), row.mode);
    EXPECT_EQ(d.pending(), 0);
    EXPECT_EQ(d.context.command.LastCommand, 16);
  }
}

TEST(DrawingCommands, DropAHalfDoneThreePointCommand) {
  for (const CommandCase& row : kCommands) {
    RecordedDrafting d;
    mnuDrawArc3P_Click(d.context);
    d.click(2, 1);
    ASSERT_TRUE(d.context.command.secondCrossShown);
    row.command(d.context);
    EXPECT_EQ(d.context.command.clickstage, 0);
    EXPECT_FALSE(d.context.command.secondCrossShown);
  }
}

// ---- Lines

TEST(DrawLine, ChainsFromTheMarker) {
  RecordedDrafting d;
  mnuDrawLine_Click(d.context);
  d.click(1, 0);
  d.click(1, 2);
  EXPECT_EQ(segmentTexts(d.store), (Texts{"1 (0, 0)-(1, 0)", "1 (1, 0)-(1, 2)"}));
  EXPECT_EQ(d.marker(), (Point{1, 2}));
  EXPECT_EQ((Point{d.context.command.prevmarkerx, d.context.command.prevmarkery}), (Point{1, 0}));
  EXPECT_EQ(logText(d), "A* A*");
  EXPECT_EQ(d.context.changelog.UndoMark, 1);
  EXPECT_TRUE(d.tools.isEnabled("miUndo"));
  EXPECT_FALSE(d.tools.isEnabled("miRedo"));
  EXPECT_FALSE(d.store.drawingsaved);
  EXPECT_EQ(d.mode(), 1);
}

TEST(DrawLine, AtTheMarkersExactPositionAddsNothing) {
  RecordedDrafting d;
  mnuDrawLine_Click(d.context);
  d.rightClick(1, 1);
  d.click(1, 1);
  EXPECT_EQ(d.store.NumSegments, 0);
  EXPECT_EQ(logText(d), "");
  EXPECT_TRUE(d.store.drawingsaved);
}

TEST(DrawLine, InAFullTableFailsAndLeavesTheMarker) {
  RecordedDrafting d;
  ensureSegmentCapacity(d.store, 32767);
  d.store.NumSegments = 32767;
  d.context.state.setDrawMode(1);
  d.context.pointer.MouseX = 1;
  EXPECT_EQ(testing::numberOfFailure([&] { draw_Action(d.context, d.ScreenProxy); }),
            FailureNumber::Overflow);
  EXPECT_EQ(d.marker(), (Point{0, 0}));
  EXPECT_EQ(logText(d), "");
}

TEST(DrawRectangle, WithoutRoomForAllSidesDrawsNone) {
  RecordedDrafting d;
  ensureSegmentCapacity(d.store, 32767);
  d.store.NumSegments = 32765;
  d.context.state.setDrawMode(6);
  d.context.pointer.MouseX = 1;
  d.context.pointer.MouseY = 2;
  EXPECT_EQ(testing::numberOfFailure([&] { draw_Action(d.context, d.ScreenProxy); }),
            FailureNumber::Overflow);
  EXPECT_EQ(d.store.NumSegments, 32765);
  EXPECT_TRUE(d.store.drawingsaved);
  EXPECT_EQ(logText(d), "");
  EXPECT_NE(d.redraw.TaskQueueState(), 0);  // what was drawn of it goes from the screen
}

TEST(DrawLine, EndsASingleUseOfSnap) {
  RecordedDrafting d;
  mnuDrawLine_Click(d.context);
  d.context.state.UpdateOSnapFeature(/*once=*/true, 4);
  d.click(1, 0);
  EXPECT_EQ(d.context.state.OSnapActive, SnapSet{});
}

TEST(DrawLine, RefreshesTheStatus) {
  RecordedDrafting d;
  mnuDrawLine_Click(d.context);
  d.click(1, 0);
  EXPECT_EQ(d.statistics, "1 0  1");
}

// ---- Rectangles

TEST(DrawRectangle, AddsFourLinesAsOneStep) {
  RecordedDrafting d;
  mnuDrawRect_Click(d.context);
  d.click(2, 1);
  EXPECT_EQ(segmentTexts(d.store),
            (Texts{"1 (0, 0)-(2, 0)", "1 (2, 0)-(2, 1)", "1 (2, 1)-(0, 1)", "1 (0, 1)-(0, 0)"}));
  EXPECT_EQ(logText(d), "A* A A A");
  EXPECT_EQ(d.context.changelog.UndoMark, 4);
  EXPECT_EQ(d.marker(), (Point{0, 0}));
}

TEST(DrawRectangle, WithAZeroSideIsOneLine) {
  for (const Point corner : {Point{2, 0}, Point{0, 2}}) {
    RecordedDrafting d;
    mnuDrawRect_Click(d.context);
    d.click(corner.x, corner.y);
    EXPECT_EQ(segmentTexts(d.store),
              Texts{"1 (0, 0)-" + testing::recordedPoint(corner.x, corner.y)});
    EXPECT_EQ(logText(d), "A*");
    EXPECT_EQ(d.context.changelog.UndoMark, 4);
  }
}

// ---- Circles

TEST(DrawCircleC1P, AddsAClosedClockwiseArcAboutTheMarker) {
  RecordedDrafting d;
  d.rightClick(1, 1);
  mnuDrawCircleC1P_Click(d.context);
  d.click(2, 1);
  EXPECT_EQ(segmentTexts(d.store), Texts{"2 (2, 1)-(2, 1) c (1, 1)"});
  EXPECT_EQ(d.marker(), (Point{1, 1}));
  EXPECT_EQ((Point{d.context.command.prevmarkerx, d.context.command.prevmarkery}), (Point{1, 1}));
  EXPECT_EQ(logText(d), "A*");
  EXPECT_EQ(d.context.changelog.UndoMark, 1);
}

TEST(DrawCircleC1P, OnItsCenterAddsNothing) {
  RecordedDrafting d;
  mnuDrawCircleC1P_Click(d.context);
  draw_Action(d.context, d.ScreenProxy);
  EXPECT_EQ(d.store.NumSegments, 0);
  EXPECT_EQ(logText(d), "");
}

TEST(DrawCircle3P, GoesThroughTheMarkerAndTwoClicks) {
  RecordedDrafting d;
  d.rightClick(1, 0);
  mnuDrawCircle3P_Click(d.context);
  d.click(-1, 0);
  EXPECT_EQ(d.context.command.clickstage, 1);
  d.click(0, 1);
  EXPECT_EQ(d.context.command.clickstage, 0);
  EXPECT_EQ(segmentTexts(d.store), Texts{"2 (1, 0)-(1, 0) c (0, 0)"});
  EXPECT_EQ(d.marker(), (Point{-1, 0}));
  EXPECT_EQ((Point{d.context.command.prevmarkerx, d.context.command.prevmarkery}), (Point{1, 0}));
  EXPECT_EQ(logText(d), "A*");
}

TEST(DrawnCircles, AreArcsInTableAndFileAndCirclesToTheFeatures) {
  RecordedDrafting d;
  mnuDrawCircleC1P_Click(d.context);
  d.click(2, 1);
  EXPECT_EQ(d.store.segtype[1], 2);
  EXPECT_EQ(effectiveType(d.store, 1), 5);
  std::string file;
  appendSegments(file, d.store);
  EXPECT_EQ(file, "2,8,2,1,2,1,0,0\r\n");
}

// ---- Arcs

struct ArcCase {
  const char* name;
  Point marker, second, third;
  const char* row;
};

// The third click lies on the arc.
const ArcCase kArcs3P[] = {
    {"upper half", {1, 0}, {-1, 0}, {0, 1}, "3 (1, 0)-(-1, 0) c (0, 0)"},
    {"lower half", {1, 0}, {-1, 0}, {0, -1}, "2 (1, 0)-(-1, 0) c (0, 0)"},
    {"small quarter", {1, 0}, {0, 1}, {0.6F, 0.8F}, "3 (1, 0)-(0, 1) c (0, 0)"},
    {"large rest", {1, 0}, {0, 1}, {-0.6F, -0.8F}, "2 (1, 0)-(0, 1) c (0, 0)"},
    {"through angle zero", {0, -1}, {0, 1}, {1, 0}, "3 (0, -1)-(0, 1) c (0, 0)"},
};

TEST(DrawArc3P, PassesThroughTheThirdPoint) {
  for (const ArcCase& row : kArcs3P) {
    SCOPED_TRACE(row.name);
    RecordedDrafting d;
    d.rightClick(row.marker.x, row.marker.y);
    mnuDrawArc3P_Click(d.context);
    d.click(row.second.x, row.second.y);
    d.click(row.third.x, row.third.y);
    EXPECT_EQ(segmentTexts(d.store), Texts{row.row});
    EXPECT_EQ(d.marker(), row.second);
    EXPECT_EQ(logText(d), "A*");
    EXPECT_EQ(d.context.changelog.UndoMark, 1);
    EXPECT_EQ(d.beeps(), 0);
  }
}

TEST(DrawArc3P, ChainsFromItsEnd) {
  RecordedDrafting d;
  d.rightClick(1, 0);
  mnuDrawArc3P_Click(d.context);
  d.click(-1, 0);
  d.click(0, 1);
  d.click(-3, 0);
  d.click(-2, -1);
  EXPECT_EQ(segmentTexts(d.store),
            (Texts{"3 (1, 0)-(-1, 0) c (0, 0)", "2 (-1, 0)-(-3, 0) c (-2, 0)"}));
  EXPECT_EQ(d.marker(), (Point{-3, 0}));
}

TEST(DrawArc3P, TheSecondClickMarksThePointWithACross) {
  RecordedDrafting d;
  mnuDrawArc3P_Click(d.context);
  d.move(0, 2, 1);
  d.press(1, 2, 1);
  d.log.take();
  d.release(1, 2, 1);
  EXPECT_EQ((Point{d.context.command.marker2x, d.context.command.marker2y}), (Point{2, 1}));
  EXPECT_EQ(d.log.count("line (1.95, 1.05)-(2.05, 0.95)"), 1);
  EXPECT_EQ(d.marker(), (Point{0, 0}));
}

TEST(ThreePointCommands, WithThreeCollinearPointsBeepAndMoveOn) {
  for (const auto command : {mnuDrawArc3P_Click, mnuDrawCircle3P_Click}) {
    RecordedDrafting d;
    command(d.context);
    d.click(1, 1);
    d.click(2, 2);
    EXPECT_EQ(d.beeps(), 1);
    EXPECT_EQ(d.store.NumSegments, 0);
    EXPECT_EQ(logText(d), "");
    EXPECT_EQ(d.marker(), (Point{1, 1}));
    EXPECT_EQ((Point{d.context.command.prevmarkerx, d.context.command.prevmarkery}), (Point{0, 0}));
    EXPECT_EQ(d.context.command.clickstage, 0);
  }
}

// The last click marks the side of the centre, at about its distance.
// Its direction from the centre says which way the arc runs.
const ArcCase kArcsC2P[] = {
    {"right of the centre below", {1, 0}, {-1, 0}, {0.5F, -1}, "2 (1, 0)-(-1, 0) c (0, -1.0643)"},
    {"left of the centre above", {1, 0}, {-1, 0}, {-0.5F, 1}, "3 (1, 0)-(-1, 0) c (0, 1.0643)"},
    {"on the chord: a half circle", {1, 0}, {-1, 0}, {0.5F, 0}, "3 (1, 0)-(-1, 0) c (0, 0)"},
};

TEST(DrawArcC2P, TakesTheCenterOnTheSideOfTheClick) {
  for (const ArcCase& row : kArcsC2P) {
    SCOPED_TRACE(row.name);
    RecordedDrafting d;
    d.rightClick(row.marker.x, row.marker.y);
    mnuDrawArcC2P_Click(d.context);
    d.click(row.second.x, row.second.y);
    d.click(row.third.x, row.third.y);
    EXPECT_EQ(segmentTexts(d.store), Texts{row.row});
    EXPECT_EQ(d.marker(), row.second);
    EXPECT_EQ(logText(d), "A*");
  }
}

TEST(DrawArcC2P, BetweenTheEndsTakesTheSecondCenterOnATie) {
  RecordedDrafting d;
  d.rightClick(1, 0);
  mnuDrawArcC2P_Click(d.context);
  d.click(-1, 0);
  d.click(2, 0);  // radius 2, both centres equally far
  const PointPair centers = centersFromChord({1, 0}, {-1, 0}, 2).value();
  EXPECT_EQ((Point{d.store.centerx[1], d.store.centery[1]}), centers.second);
}

TEST(ArcPreview, ExchangesItsAnglesForAClockwiseArc) {
  RecordedDrafting d;
  d.rightClick(1, 0);
  d.context.command.marker2x = -1;
  d.log.take();
  EXPECT_TRUE(draw_arc3p(d.context, 0, 1));
  EXPECT_EQ(d.log.take(), "arc (0, 0) r 1 from 0 to 3.1416 #008080\n");
  EXPECT_EQ(d.context.arc.arcdir, 3);
  EXPECT_TRUE(draw_arc3p(d.context, 0, -1));
  EXPECT_EQ(d.log.take(), "arc (0, 0) r 1 from 3.1416 to 0 #008080\n");
  EXPECT_EQ(d.context.arc.arcdir, 2);
  EXPECT_FALSE(draw_arc3p(d.context, 3, 0));
  EXPECT_EQ(d.log.take(), "");
}

TEST(ArcPreview, ExchangesThemOnceMoreForAReversedArcAboutACenter) {
  RecordedDrafting d;
  d.rightClick(1, 0);
  d.context.command.marker2x = -1;
  d.context.arc.reversearc = true;
  d.log.take();
  EXPECT_TRUE(draw_arcc2p(d.context, 0, 2));
  EXPECT_EQ(d.log.take(), "arc (0, 2) r 2.2361 from 4.2487 to 5.176 #008080\n");
  d.context.arc.reversearc = false;
  EXPECT_TRUE(draw_arcc2p(d.context, 0, 2));
  EXPECT_EQ(d.log.take(), "arc (0, 2) r 2.2361 from 5.176 to 4.2487 #008080\n");
}

TEST(CirclePreview, PaintsTheCircleThroughThePoint) {
  RecordedDrafting d;
  d.rightClick(1, 0);
  d.context.command.marker2x = -1;
  d.log.take();
  EXPECT_TRUE(draw_circle3p(d.context, 0, 1));
  EXPECT_EQ(d.log.take(), "circle (0, 0) r 1 #008080\n");
  EXPECT_FALSE(draw_circle3p(d.context, 2, 0));
  EXPECT_EQ(d.log.take(), "");
}

// ---- Dropping

TEST(ThreePointCommands, AreDroppedWithTheirModeAndKeptWithIt) {
  RecordedDrafting d;
  mnuDrawArc3P_Click(d.context);
  d.click(2, 1);
  d.context.state.setDrawMode(2);
  EXPECT_EQ(d.context.command.clickstage, 1);
  mnuDrawSelectAll_Click(d.context);
  EXPECT_EQ(d.context.command.clickstage, 0);
}

TEST(ThreePointCommands, ShowTheSecondPointAgainAfterARedraw) {
  RecordedDrafting d;
  mnuDrawArc3P_Click(d.context);
  d.click(2, 1);
  d.log.take();
  d.redraw.redrawscreen();
  EXPECT_EQ(d.log.count("line (1.95, 1.05)-(2.05, 0.95)"), 1);
  mnuDrawArc3P_Click(d.context);
  d.log.take();
  d.redraw.redrawscreen();
  EXPECT_EQ(d.log.count("line (1.95, 1.05)-(2.05, 0.95)"), 0);
}

// ---- Lines in a batch

TEST(BatchAddLines, AddsThemAsOneStep) {
  RecordedDrafting d;
  const BatchLine lines[] = {{0, 0, 1, 0}, {1, 0, 1, 1}, {1, 1, 0, 0}};
  BatchAddLines(d.context, lines);
  EXPECT_EQ(segmentTexts(d.store),
            (Texts{"1 (0, 0)-(1, 0)", "1 (1, 0)-(1, 1)", "1 (1, 1)-(0, 0)"}));
  EXPECT_EQ(logText(d), "A* A A");
  EXPECT_FALSE(d.store.drawingsaved);
  EXPECT_TRUE(d.tools.isEnabled("miUndo"));
  Undo_Last_Change(d.context);
  EXPECT_EQ(d.store.NumSegments, 0);
}

TEST(BatchAddLines, OfNoLinesLogsNothingAndLeavesTheUndoStep) {
  RecordedDrafting d;
  mnuDrawLine_Click(d.context);
  d.click(1, 0);
  d.store.drawingsaved = true;
  d.context.changelog.UndoMark = 4;
  BatchAddLines(d.context, {});
  EXPECT_EQ(logText(d), "A*");
  EXPECT_EQ(d.context.changelog.UndoMark, 4);
  EXPECT_TRUE(d.store.drawingsaved);
}

}  // namespace
}  // namespace tess
