// The painting order at once and in stages: surface calls, events, timers, and leaving early.
#include "display/redraw_sequence.h"

#include "core/drawing_store.h"
#include "core/file_system.h"
#include "tests/display/display_bench.h"
#include "tests/support/source_folder.h"

namespace tess {
namespace {

using testing::DisplayBench;

// What ends every redraw of an otherwise empty screen, from the marker to the repaint.
const char* const kClosing =
    "DrawMode 10\n"
    "line (-0.05, 0.05)-(0.05, -0.05) #000000\n"
    "line (0.05, 0.05)-(-0.05, -0.05) #000000\n"
    "DrawMode 13\n"
    "DrawMode 13\n"
    "DrawStyle 0\n"
    "DrawWidth 2\n"
    "line (0, 0)-(0.25, 0) #000000\n"
    "line (0.25, 0)-(0.1534, -0.0259) #000000\n"
    "line (0, 0)-(0, 0.25) #000000\n"
    "line (0, 0.25)-(-0.0259, 0.1534) #000000\n"
    "DrawWidth 1\n"
    "FontTransparent 1\n"
    "text (0.1875, -0.0625) X #000000\n"
    "text (-0.125, 0.25) Y #000000\n"
    "FontTransparent 1\n"
    "showDrawingName\n"
    "updateStatusDisplay\n"
    "repaint on\n"
    "Refresh\n"
    "MousePointer 0\n";

const char* const kOpening =
    "repaint off\n"
    "Cls\n"
    "ScaleMode 0\n"
    "ScaleLeft -5\n"
    "ScaleWidth 10\n"
    "ScaleTop 4\n"
    "ScaleHeight -8\n"
    "events\n";

class RedrawTest : public DisplayBench {
 protected:
  RedrawTest() { store.toolradius[0] = 0.1F; }

  void addCircle(float radius, int attr = 8) { addSegment({5, attr, radius, 0, radius, 0}); }
  void addHole(float x) {
    addPath({81, x, 0, x, 0});
    store.showpaths = 1;
  }
  std::string redrawn() {
    redraw.redrawscreen();
    return log.take();
  }
};

using Redrawscreen = RedrawTest;

TEST_F(Redrawscreen, OfAnEmptyDrawingKeepsItsOrder) {
  EXPECT_EQ(redrawn(), "MousePointer 11\nDisabled\n" + std::string(kOpening) + kClosing);
}

TEST_F(Redrawscreen, LeavesTheSurfaceDisabledForTheTimer) {
  redraw.redrawscreen();
  EXPECT_FALSE(surface.Enabled());
  timers.advance(124);
  EXPECT_FALSE(surface.Enabled());
  timers.advance(1);
  EXPECT_TRUE(surface.Enabled());
  surface.setEnabled(false);
  timers.advance(1000);  // one shot
  EXPECT_FALSE(surface.Enabled());
}

TEST_F(Redrawscreen, WithoutDisableEventsTheSurfaceStaysEnabled) {
  redraw.redrawscreen(nullptr, false, false, /*DisableEvents=*/false);
  EXPECT_EQ(log.lines[1], "Enabled");
  EXPECT_TRUE(surface.Enabled());
  log.take();
  timers.advance(1000);
  EXPECT_EQ(log.take(), "");
}

TEST_F(Redrawscreen, EndingAnEarlierOneEnabledStopsItsTimer) {
  redraw.redrawscreen();
  redraw.redrawscreen(nullptr, true, true, /*DisableEvents=*/false);
  log.take();
  timers.advance(1000);
  EXPECT_EQ(log.take(), "");
}

TEST_F(Redrawscreen, ACustomPointerKeepsItsShape) {
  pointer.setMousePointer(kCustomShape);
  log.take();
  redraw.redrawscreen();
  EXPECT_EQ(log.count("MousePointer"), 0);
}

TEST_F(Redrawscreen, OnPaperTakesTheScreenShotAlone) {
  redraw.redrawscreen(&paper, true, true, true);
  EXPECT_EQ(log.take(), "PrintPreviewScreenShotWorkAround\n");
}

TEST_F(Redrawscreen, SoonIsAtOnceOnASurfaceWithoutFrames) {
  const std::string atOnce = redrawn();
  redraw.redrawSoon();
  EXPECT_EQ(log.take(), atOnce);
  redraw.paintFrame();
  EXPECT_EQ(log.take(), "");
}

TEST_F(Redrawscreen, SoonIsOnceWithTheNextFrame) {
  const std::string atOnce = redrawn();
  surface.hasFrames = true;
  redraw.redrawSoon();
  redraw.redrawSoon();
  EXPECT_EQ(log.take(), "frame requested\n");
  redraw.paintFrame();
  EXPECT_EQ(log.take(), atOnce);
  redraw.paintFrame();
  EXPECT_EQ(log.take(), "");
  redraw.redrawSoon();
  EXPECT_EQ(log.take(), "frame requested\n");
}

TEST_F(Redrawscreen, AnyOtherRedrawStandsForTheOneThatIsToComeSoon) {
  surface.hasFrames = true;
  redraw.redrawSoon();
  redraw.redrawscreen();
  log.take();
  redraw.paintFrame();
  EXPECT_EQ(log.take(), "");
  redraw.redrawSoon();
  redraw.setTaskQueueState(1);
  timers.advance(50);
  log.take();
  redraw.paintFrame();
  EXPECT_EQ(log.take(), "");
}

TEST_F(Redrawscreen, PaperTakesThePictureThatIsToComeSoon) {
  const std::string atOnce = redrawn();
  surface.hasFrames = true;
  redraw.redrawSoon();
  log.take();
  redraw.redrawscreen(&paper, true, true, true);
  EXPECT_EQ(log.take(), atOnce + "PrintPreviewScreenShotWorkAround\n");
  redraw.paintFrame();
  EXPECT_EQ(log.take(), "");
}

TEST_F(Redrawscreen, AFrameWhileARedrawIsUnderWayPaintsNothing) {
  addCircle(1);
  const std::string atOnce = redrawn();
  surface.hasFrames = true;
  redraw.redrawSoon();
  log.take();
  surroundings.onEvents = [this] { redraw.paintFrame(); };
  redraw.redrawscreen();
  EXPECT_EQ(log.take(), atOnce);
}

TEST_F(Redrawscreen, TheFlagsForGridAndTemplateAreNotConsulted) {
  store.visualgridf = 1;
  store.visualgrid = 10;
  store.parttemplate = 1;
  redraw.redrawscreen(&screen, false, false, true);
  const std::string without = log.take();
  redraw.redrawscreen(&screen, true, true, true);
  EXPECT_EQ(log.take(), without);
  EXPECT_NE(without.find("filled box"), std::string::npos);
  EXPECT_NE(without.find("DrawStyle 2"), std::string::npos);
}

TEST_F(Redrawscreen, TheBackgroundColourIsSetWhenItHasChanged) {
  store.colortable[1] = 0;
  const std::string first = redrawn();
  EXPECT_NE(first.find("repaint off\nBackColor 0\nCls\n"), std::string::npos);
  EXPECT_EQ(redrawn().find("BackColor"), std::string::npos);
}

TEST_F(Redrawscreen, TheOriginArrowsTakeTheDrawColourThroughThePaletteOnly) {
  store.colortable[3] = 300;  // a direct colour for entities; its low four bits are bright red
  addCircle(1);
  redraw.redrawscreen();
  EXPECT_EQ(log.count("circle (0, 0) r 1 #2C0100"), 1);
  EXPECT_EQ(log.count("line (0, 0)-(0.25, 0) #FF0000"), 1);
}

TEST_F(Redrawscreen, RectangularStockIsAFilledBoxOnItsSideOfZero) {
  store.parttemplate = 1;
  store.partdimx = 3;
  store.partdimy = 2;
  store.xorigin = 1;
  store.yorigin = -1;
  redraw.redrawscreen();
  EXPECT_EQ(log.count("filled box (0, 0)-(3, -2) #C0C0C0"), 1);
}

TEST_F(Redrawscreen, RoundStockIsAFilledCircleAboutZeroWhateverTheOriginSays) {
  store.parttemplate = 1;
  store.roundstock = true;
  store.partdimx = 3;
  store.xorigin = 1;
  surface.setFillColor(0x00FF00);
  const std::string all = redrawn();
  EXPECT_NE(all.find("FillStyle 0\n"
                     "FillColor 12632256\n"
                     "circle (0, 0) r 1.5 #C0C0C0\n"
                     "FillStyle 1\n"
                     "FillColor 65280\n"),
            std::string::npos);
}

TEST_F(Redrawscreen, PathsAreShownOnlyWithTheirFlag) {
  addHole(1);
  redraw.redrawscreen();
  EXPECT_EQ(log.count("circle"), 3);
  log.take();
  store.showpaths = 0;
  redraw.redrawscreen();
  EXPECT_EQ(log.count("circle"), 0);
}

TEST_F(Redrawscreen, EventsAreServedAfterEachEntity) {
  addCircle(1);
  addCircle(2);
  addHole(1);
  redraw.redrawscreen();
  EXPECT_EQ(log.count("events"), 4);
}

TEST_F(Redrawscreen, WithEndMarkersPathsStayWithoutThem) {
  store.endmarkers = 1;
  addSegment({1, 8, 0, 0, 1, 0});
  addPath({1, 0, 0, 1, 0});
  store.showpaths = 1;
  redraw.redrawscreen();
  EXPECT_EQ(log.count("filled box"), 2);
  EXPECT_FALSE(renderer.pathdrawing);
}

TEST_F(Redrawscreen, RowsAddedMeanwhileAreWithinThePicture) {
  addCircle(1);
  surroundings.onEvents = [this] {
    surroundings.onEvents = nullptr;
    addCircle(2);
  };
  redraw.redrawscreen();
  EXPECT_EQ(log.count("circle"), 2);
}

TEST_F(Redrawscreen, ClosingTheWindowLeavesAtTheNextEntity) {
  for (int i = 1; i <= 5; ++i) addCircle(static_cast<float>(i));
  int served = 0;
  surroundings.onEvents = [&] { redraw.redrawabort = ++served == 3; };  // after the second circle
  redraw.redrawscreen();
  EXPECT_EQ(log.count("circle"), 2);
  EXPECT_EQ(log.lines.back(), "events");
}

TEST_F(Redrawscreen, ClosingTheWindowLeavesThePathsToo) {
  addHole(1);
  addHole(2);
  int served = 0;
  surroundings.onEvents = [&] { redraw.redrawabort = ++served == 2; };
  redraw.redrawscreen();
  EXPECT_EQ(log.count("circle"), 3);
  EXPECT_EQ(log.lines.back(), "events");
}

TEST_F(Redrawscreen, ClosingTheWindowBeforeTheFirstEntityPaintsNone) {
  addCircle(1);
  redraw.redrawabort = true;
  EXPECT_EQ(redrawn(), "MousePointer 11\nDisabled\n" + std::string(kOpening));
}

TEST_F(Redrawscreen, AFailureNamesItsRoutineAndLeavesTheSurfaceAlive) {
  store.tooloutline = 1;
  store.toolradius[0] = 0;
  store.showpaths = 1;
  addPath({1, 0, 0, 1, 0});
  takeCallChain();
  EXPECT_THROW(redraw.redrawscreen(), RuntimeFailure);
  const std::vector<CallLevel> chain = takeCallChain();
  ASSERT_EQ(chain.size(), 2U);
  EXPECT_EQ(chain[1].method,
            "frmMain.redrawscreen(target,ShowGrid,FillPartTemplate,DisableEvents)");
  const auto n = log.lines.size();
  EXPECT_EQ(log.lines[n - 3], "repaint on");
  EXPECT_EQ(log.lines[n - 2], "Refresh");
  EXPECT_EQ(log.lines[n - 1], "MousePointer 0");
  EXPECT_FALSE(renderer.pathdrawing);
  timers.advance(125);
  EXPECT_TRUE(surface.Enabled());
}

using StagedRedraw = RedrawTest;

TEST_F(StagedRedraw, RunsOneStagePerTickAndThenStops) {
  addCircle(1);
  addHole(2);
  redraw.setTaskQueueState(1);
  timers.advance(49);
  EXPECT_EQ(log.take(), "");
  timers.advance(1);
  EXPECT_EQ(log.take(), "MousePointer 11\nDisabled\n" + std::string(kOpening) + "Refresh\n");
  EXPECT_EQ(redraw.TaskQueueState(), 2);
  timers.advance(50);
  EXPECT_EQ(log.take(), "circle (0, 0) r 1 #000000\nevents\n");
  EXPECT_EQ(redraw.TaskQueueState(), 3);
  timers.advance(50);
  EXPECT_EQ(log.count("line"), 2);
  EXPECT_EQ(log.lines.back(), "events");
  log.take();
  EXPECT_EQ(redraw.TaskQueueState(), 4);
  timers.advance(50);
  EXPECT_EQ(log.take(), kClosing);
  EXPECT_EQ(redraw.TaskQueueState(), 0);
  timers.advance(50);  // the idle tick ends the timer
  EXPECT_EQ(log.take(), "");
  timers.advance(1000);
  EXPECT_EQ(log.take(), "Enabled\n");
}

TEST_F(StagedRedraw, PaintsTheSamePictureAsTheOneAtOnce) {
  store.parttemplate = 1;
  store.visualgridf = 1;
  store.visualgrid = 1;
  addCircle(1);
  addHole(2);
  const std::string atOnce = redrawn();
  redraw.setTaskQueueState(1);
  timers.advance(200);
  std::string staged = log.take();
  // The same calls but for the repaint after the first stage and the timer's own call.
  const std::string refresh = "events\nDrawStyle 0\nRefresh\n";
  const auto extra = staged.find(refresh);
  ASSERT_NE(extra, std::string::npos);
  staged.erase(extra + refresh.size() - 8, 8);
  const auto enabled = staged.find("Enabled\n");  // of the first redraw, after 125 ms
  ASSERT_NE(enabled, std::string::npos);
  staged.erase(enabled, 8);
  EXPECT_EQ(staged, atOnce);
}

// Lines with smooth edges grow darker where they are painted twice.
TEST_F(StagedRedraw, DoesNotPaintAgainWhatARedrawAtOnceHasFinished) {
  addCircle(1);
  addHole(2);
  for (const int stagesBefore : {1, 2}) {
    redraw.setTaskQueueState(1);
    timers.advance(50 * stagesBefore);
    log.take();
    redraw.redrawscreen();
    EXPECT_EQ(log.count("events"), 3) << "one for each row, and for the opening";
    log.take();
    timers.advance(200 - 50 * stagesBefore);
    EXPECT_EQ(log.count("events"), 0) << stagesBefore;
    EXPECT_EQ(redraw.TaskQueueState(), 0);
  }
  log.take();
  redraw.setTaskQueueState(1);
  timers.advance(200);
  EXPECT_EQ(log.count("events"), 3) << "the next one paints all";
}

TEST_F(StagedRedraw, TakesTheHourglassWithoutAnyTest) {
  pointer.setMousePointer(kCustomShape);
  log.take();
  redraw.RedrawScreen_Init();
  EXPECT_EQ(log.lines[0], "MousePointer 11");
}

TEST_F(StagedRedraw, ReadsTheViewAfreshInEachStage) {
  addPath({1, 0, 0, 0.25F, 0});
  store.showpaths = 1;
  redraw.setTaskQueueState(1);
  timers.advance(100);
  log.take();
  SetScale(-2.5F, -2, 2.5F, 2, screen);  // now the row has more than 30 pixels
  log.take();
  timers.advance(50);
  EXPECT_EQ(log.count("line"), 4);
}

TEST_F(StagedRedraw, ClosingTheWindowLeavesItsStageUnchanged) {
  addCircle(1);
  addCircle(2);
  redraw.setTaskQueueState(1);
  timers.advance(50);
  log.take();
  redraw.redrawabort = true;
  timers.advance(50);
  EXPECT_EQ(log.count("circle"), 1);
  EXPECT_EQ(redraw.TaskQueueState(), 2);
}

TEST_F(StagedRedraw, ClosingTheWindowLeavesTheFirstAndTheThirdStageToo) {
  addHole(1);
  addHole(2);
  redraw.redrawabort = true;
  redraw.setTaskQueueState(1);
  timers.advance(50);
  EXPECT_EQ(redraw.TaskQueueState(), 1);
  redraw.setTaskQueueState(3);
  timers.advance(50);
  EXPECT_EQ(redraw.TaskQueueState(), 3);
  EXPECT_EQ(log.count("circle"), 3);
}

TEST_F(StagedRedraw, StartedAnewDuringAStageBeginsFromTheFirst) {
  addCircle(1);
  redraw.setTaskQueueState(2);
  surroundings.onEvents = [this] {
    surroundings.onEvents = nullptr;
    redraw.setTaskQueueState(1);
  };
  timers.advance(50);
  EXPECT_EQ(redraw.TaskQueueState(), 1);
}

// As when the window takes another size while its picture is opened.
TEST_F(StagedRedraw, StartedAnewDuringTheFirstStageRunsItAgain) {
  redraw.setTaskQueueState(1);
  surroundings.onEvents = [this] {
    surroundings.onEvents = nullptr;
    redraw.setTaskQueueState(1);
  };
  timers.advance(50);
  EXPECT_EQ(redraw.TaskQueueState(), 1);
  timers.advance(50);
  EXPECT_EQ(redraw.TaskQueueState(), 2);
}

TEST_F(StagedRedraw, ATickWithinAStageIsPassedOver) {
  addCircle(1);
  redraw.setTaskQueueState(2);
  surroundings.onEvents = [this] {
    surroundings.onEvents = nullptr;
    timers.advance(60);
  };
  timers.advance(50);
  EXPECT_EQ(log.count("circle"), 1);
  EXPECT_EQ(redraw.TaskQueueState(), 3);
}

TEST_F(StagedRedraw, AFailureEndsTheSequence) {
  store.tooloutline = 1;
  store.toolradius[0] = 0;
  store.showpaths = 1;
  addPath({1, 0, 0, 1, 0});
  redraw.setTaskQueueState(3);
  EXPECT_THROW(timers.advance(50), RuntimeFailure);
  takeCallChain();
  EXPECT_EQ(redraw.TaskQueueState(), 0);
  EXPECT_EQ(log.lines.back(), "MousePointer 0");
  EXPECT_FALSE(renderer.pathdrawing);
  timers.advance(1000);
  redraw.setTaskQueueState(1);  // and a new one runs
  timers.advance(50);
  EXPECT_EQ(redraw.TaskQueueState(), 2);
}

// All kinds of rows, selected and verified, paths with cycles, arrows, grid, marker, origin arrows
// and the part template, as one picture.
TEST_F(RedrawTest, TheSmallDrawingIsAsItWasReviewed) {
  store.parttemplate = 1;
  store.partdimx = 6;
  store.partdimy = 4;
  store.visualgridf = 1;
  store.visualgrid = 2;
  store.endmarkers = 1;
  store.showpaths = 1;
  store.markerx = 1;
  store.markery = -1;
  store.toolradius[0] = 0.125F;
  store.toolcolor[0] = 5;
  store.xorigin = store.yorigin = 0;  // the stock lies about zero
  store.toolradius[1] = 0.25F;
  store.toolcolor[1] = 0x336699;
  addSegment({1, 8, -2, -1, 2, -1});
  addSegment({2, 30008, 2, -1, 2, 1, 2, 0});
  addSegment({3, 30108, 2, 1, 0, 1, 1, 1});
  addSegment({5, 29108, 1, 0, 1, 0, 0, 0});
  addSegment({6, 8, -3, -2, 3, 2});
  addSegment({0, 8, 1, 1});
  addSegment({1, 500, 0, 0, 1, 1});
  addPath({0, 0, 0, -2, -1, 0, 0, 0.5F, 0, 100});
  addPath({1, -2, -1, 2, -1, 0, 0, -0.25F, 10, 100});
  addPath({3, 2, -1, 2, 1, 2, 0, -0.25F, 10, 100});
  addPath({2, 2, 1, 1, 0, 1, 1, -0.25F, 10, 30100});
  addPath({79, -1, 0, 1, 0, 0.1F, 0, -0.5F, 5, 201});
  addPath({83, 0, -1, 0, -1, 0.1F, 0, -0.5F, 5, 201});
  log.take();
  const std::string golden =
      readFile(std::string(TESSIMO_SOURCE_DIR) + "/tests/display/golden/small_drawing.txt");
  EXPECT_EQ(redrawn(), golden);
}

}  // namespace
}  // namespace tess
