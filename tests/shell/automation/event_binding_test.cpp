// Tools, keys, the pointer and time, as scripts use them.
#include "gtest/gtest.h"

#include "core/drawing_store.h"
#include "tests/support/script_run.h"

namespace tess {
namespace {

using testing::ScriptRun;

class EventBinding : public ::testing::Test, protected ScriptRun {
 protected:
  static constexpr char kRows[] =
      " for s in segments() do print(s.type, s.x0, s.y0, s.x1, s.y1) end";
};

// ---- Tools

TEST_F(EventBinding, AToolThatMatchesNoEntryDoesNothing) {
  EXPECT_EQ(outputOf("tool('miNothing') print(#messages, state.pendingaction)"), "0\t0\n");
}

TEST_F(EventBinding, AToolIsClickedByItsName) {
  EXPECT_EQ(outputOf("tool('miRectangle') print(state.DrawMode, tool_state('miRectangle').checked, "
                     "tool_state('miLine').checked)"),
            "6\ttrue\tfalse\n");
}

TEST_F(EventBinding, TheStateOfATool) {
  EXPECT_EQ(outputOf("local t = tool_state('miUndo') print(t.enabled, t.checked, t.visible, "
                     "t.caption, tool_state('miNothing'))"),
            "false\tfalse\ttrue\t&Undo\tnil\n");
}

TEST_F(EventBinding, TheSelectedRowsInTheOrderOfTheirSelection) {
  const std::string rows = "for n = 0, 2 do add_segment{type=1, x0=n, x1=n, y1=1} end ";
  EXPECT_EQ(outputOf(rows + "print(#state.Selected) tool('miSelect') click(2, 0.5) click(0, 0.5) "
                            "print(table.concat(state.Selected, ' ')) "
                            "tool('miSelectAll') print(table.concat(state.Selected, ' ')) "
                            "tool('miUnselectAll') print(#state.Selected)"),
            "0\n3 1\n1 2 3\n0\n");
}

TEST_F(EventBinding, ADisabledToolDoesNothing) {
  EXPECT_EQ(outputOf("tool('miUndo') print(state.changecount, #messages)"), "0\t0\n");
}

TEST_F(EventBinding, ToolsTouchOnlyFilesOfTheScript) {
  const testing::TempFolder elsewhere;
  const std::string drawing = "store.drawingpath = '" + elsewhere() + "' store.drawingname = 'x' ";
  for (const char* statement : {"tool('miSave')", "tool('miNew')", "tool('miMakeCNCFile')",
                                "key('Ctrl+M')", "key('Ctrl+L')"}) {
    const std::string error = errorOf(drawing + statement);
    EXPECT_NE(error.find("is outside the folders that this script may use"), std::string::npos)
        << statement << ": " << error;
  }
  const std::string dialog =
      errorOf("on_file(function() return '" + elsewhere("x.cdm") + "' end) tool('miSaveAs')");
  EXPECT_NE(dialog.find("is outside the folders"), std::string::npos) << dialog;
  EXPECT_FALSE(elsewhere.has("x.cdm"));
}

TEST_F(EventBinding, ExitClosesTheProgramAndEndsTheScript) {
  EXPECT_EQ(outputOf("print('before') pcall(tool, 'miExit') print('after')"), "before\n");
  EXPECT_TRUE(home.has("Layout.tb3")) << "as the main window leaves it";
}

TEST_F(EventBinding, ExitThatIsCancelledGoesOn) {
  EXPECT_EQ(outputOf("add_segment{type=1, x1=1} on_message(function() return 'Cancel' end) "
                     "tool('miExit') print(messages[1].text)"),
            "Drawing not saved! Save now?\n");
}

// ---- Keys

TEST_F(EventBinding, KeysGoThroughTheKeyTable) {
  const struct {
    const char* keys;
    const char* state;
  } cases[] = {
      {"key('L')", "1\t0"},   {"key('l')", "1\t0"},   {"key('R')", "6\t0"},
      {"key('Tab')", "0\t6"}, {"key('tab')", "0\t6"}, {"key('T') key('Esc')", "0\t0"},
      {"key('P')", "0\t0"},   {"key('Q')", "0\t0"},   {"key('Ctrl+R')", "0\t0"},
  };
  for (const auto& [keys, expected] : cases) {
    EXPECT_EQ(outputOf(std::string(keys) + " print(state.DrawMode, state.pendingaction)"),
              std::string(expected) + "\n")
        << keys;
  }
}

TEST_F(EventBinding, PWithAnEmptyPasteBufferDoesNothing) {
  EXPECT_EQ(outputOf("key('P') print(store.NumSegments, state.changecount, #messages, beeps)"),
            "0\t0\t0\t0\n");
}

TEST_F(EventBinding, UnknownKeysSayWhatWasMeant) {
  EXPECT_EQ(errorOf("key('Entr')"), "there is no key 'Entr' (did you mean 'Enter'?)");
  EXPECT_EQ(errorOf("key('F2')"), "there is no key 'F2' (did you mean 'F1'?)");
  EXPECT_EQ(errorOf("key('Ctrl+5')"), "there is no key 'Ctrl+5'");
  EXPECT_EQ(errorOf("key('')"), "there is no key ''");
  EXPECT_EQ(errorOf("key()"), "Type mismatch: argument 1 is missing");
}

TEST_F(EventBinding, PressingTTwiceArmsTheTrimOnceAndF3ArmsAFinishedTrimAgain) {
  EXPECT_EQ(outputOf("add_segment{type=1, x0=0, y0=1, x1=2, y1=1} "
                     "add_segment{type=1, x0=1.5, y0=0, x1=1.5, y1=2} "
                     "key('T') key('T') print(state.pendingaction, state.LastCommand) "
                     "click(2, 1) click(1.5, 0.5) print(state.pendingaction) "
                     "key('F3') print(state.pendingaction, state.prompt)"),
            "16\t16\n0\n16\tClick on end point to trim.\n");
}

TEST_F(EventBinding, ArrowKeysMoveByOnePixel) {
  EXPECT_EQ(outputOf("move(0, 1, 1) local x = state.MouseX key('Right') "
                     "local pixel = 2 * state.viewspan / 1000 "
                     "print(math.abs(state.MouseX - x - pixel) < 1e-6, state.MouseY)"),
            "true\t1.0\n");
}

// ---- The pointer

TEST_F(EventBinding, AClickLandsExactlyWhereItIs) {
  EXPECT_EQ(outputOf("click(1.25, 0.5) print(state.MouseX, state.MouseY) click(1.25, 0.5) "
                     "print(state.MouseX, state.MouseY)"),
            "1.25\t0.5\n1.25\t0.5\n");
}

TEST_F(EventBinding, TheCursorGridTakesTheClick) {
  EXPECT_EQ(outputOf("setting['cursor grid'] = 0.25 setting['cursor grid f'] = true "
                     "click(0.125, -0.125) print(state.MouseX, state.MouseY)"),
            "0.25\t0.0\n");
}

TEST_F(EventBinding, ASnapFeatureTakesTheClickEvenOnTheGrid) {
  EXPECT_EQ(outputOf("add_segment{type=1, x0=0.1, y0=0.1, x1=3, y1=2} "
                     "setting['cursor grid'] = 0.25 setting['cursor grid f'] = true "
                     "tool('OSnap') tool('miLine') rightclick(2, 0) print(state.OSnapOn) "
                     "click(0.15, 0.12) print(state.MouseX, state.MouseY)"),
            "-1\n0.10000000149012\t0.10000000149012\n");
}

TEST_F(EventBinding, APositionIsTyped) {
  EXPECT_EQ(outputOf("setting['cursor grid'] = 0.25 setting['cursor grid f'] = true "
                     "tool('miLine') type_position('25.4/2,1') type_position('@2<90') "
                     "print(store.NumSegments, store.x1[1], store.y1[2])"),
            "2\t12.699999809265\t3.0\n");
}

TEST_F(EventBinding, ATextThatIsNoPositionIsAnErrorOfTheScript) {
  EXPECT_EQ(errorOf("tool('miLine') type_position('1/0,2')"),
            "'1/0,2': The division at character 2 is by zero.");
  EXPECT_EQ(errorOf("type_position('1,2')"),
            "'1,2': No command waits for a position: choose one first. Shift+Enter puts the marker "
            "there.");
}

TEST_F(EventBinding, ARightClickMovesTheMarker) {
  EXPECT_EQ(outputOf("rightclick(2, 1) print(store.markerx, store.markery)"), "2.0\t1.0\n");
}

TEST_F(EventBinding, ARectangleFromMarkerToClick) {
  EXPECT_EQ(outputOf(std::string("tool('miRectangle') click(4, 3)") + kRows),
            "1\t0.0\t0.0\t4.0\t0.0\n"
            "1\t4.0\t0.0\t4.0\t3.0\n"
            "1\t4.0\t3.0\t0.0\t3.0\n"
            "1\t0.0\t3.0\t0.0\t0.0\n");
}

TEST_F(EventBinding, ATypedPositionHoldsUntilThePointerMovesOn) {
  EXPECT_EQ(outputOf("on_form('dlgPositionCursor', function(form) form.txtx:change('1.5') "
                     "form.txty:change('0.75') form.cmdAccept:click() end) "
                     "key('E') print(state.MouseX, state.MouseY) wait(1000) "
                     "print(state.MouseX, state.MouseY) key('Insert') "
                     "print(store.markerx, store.markery) "
                     "click(2, 2) print(state.MouseX, state.MouseY)"),
            "1.5\t0.75\n1.5\t0.75\n1.5\t0.75\n2.0\t2.0\n");
}

TEST_F(EventBinding, AClickLandsAlsoAfterAPositionBeyondTheScreenWasTyped) {
  EXPECT_EQ(outputOf("on_form('dlgPositionCursor', function(form) form.txtx:change('500') "
                     "form.cmdAccept:click() end) "
                     "click(2, 2) key('E') print(state.MouseX) click(2, 2) print(state.MouseX)"),
            "500.0\n2.0\n");
}

TEST_F(EventBinding, ADragOpensASelectionWindow) {
  EXPECT_EQ(outputOf("add_segment{type=1, x0=1, y0=1, x1=2, y1=1} "
                     "add_segment{type=1, x0=1, y0=2, x1=3, y1=2} "
                     "tool('miSelect') drag(0.5, 0.5, 2.5, 1.5) "
                     "print(store.segattr[1], store.segattr[2]) "
                     "drag(0.5, 0.5, 2.5, 2.5, 1) print(store.segattr[1], store.segattr[2])"),
            "30008\t8\n30008\t8\n")
      << "with Shift a row that sticks out stays as it is";
}

TEST_F(EventBinding, ADragPansInUnitsOfTheViewAtThePress) {
  const char* const shows = "print(state.viewcx, state.viewcy, state.viewspan) ";
  const std::string full = outputOf(shows);
  EXPECT_EQ(full, "2.0\t1.5\t2.5999999046326\n") << "the stock of the test setup";
  EXPECT_EQ(outputOf(std::string("drag(1, 1, 2, 1.5, 2) ") + shows), "1.0\t1.0\t2.5999999046326\n");
  EXPECT_EQ(outputOf(std::string("tool('miPan') drag(1, 1, 2, 1.5) ") + shows +
                     "drag(1, 1, 0, 0.5) " + shows + "click(1, 1) " + shows),
            "1.0\t1.0\t2.5999999046326\n2.0\t1.5\t2.5999999046326\n2.0\t1.5\t2.5999999046326\n")
      << "and a click without movement leaves the view";
}

TEST_F(EventBinding, SinglePointerEvents) {
  EXPECT_EQ(outputOf("tool('miLine') move(0, 1, 1) press(1, 1, 1) print(state.MouseX) "
                     "move(1, 2, 1) print(store.NumSegments) release(1, 2, 1) "
                     "print(store.NumSegments, store.x1[1], store.y1[1])"),
            "1.0\n0\n1\t2.0\t1.0\n");
}

TEST_F(EventBinding, NoClickIsLostToARedraw) {
  EXPECT_EQ(outputOf("tool('miLine') for x = 1, 5 do tool('miFullView') click(x / 2, 1) end "
                     "print(store.NumSegments)"),
            "5\n");
}

TEST_F(EventBinding, WrongEventsAreErrors) {
  EXPECT_EQ(errorOf("click(1)"), "Type mismatch: argument 2 is missing");
  EXPECT_EQ(errorOf("click('x', 1)"), "Type mismatch: argument 1");
  EXPECT_EQ(errorOf("click(1e39, 1)"), "Overflow: argument 1");
  EXPECT_EQ(errorOf("press(3, 1, 1)"), "a button is 1 for left, 2 for right or 0 for none, not 3");
  EXPECT_EQ(errorOf("click(1, 1, 4)"), "shift is 0, 1 for Shift, 2 for Ctrl or 3 for both, not 4");
  EXPECT_EQ(errorOf("click(1, 1, -1)"),
            "shift is 0, 1 for Shift, 2 for Ctrl or 3 for both, not -1");
  EXPECT_EQ(outputOf("for shift = 0, 3 do click(1, 1, shift) print(shift) end"), "0\n1\n2\n3\n");
  EXPECT_EQ(errorOf("wheel(2000)"), "Overflow");
  EXPECT_EQ(outputOf("wheel(1) wheel(-1, 1) print(#messages)"), "0\n");
}

// ---- Time

TEST_F(EventBinding, WaitingLetsTheStagesOfARedrawCome) {
  EXPECT_EQ(outputOf("wait(0) wait(10000) print(#messages)"), "0\n");
  EXPECT_EQ(errorOf("wait(-1)"), "a wait takes 0 to 86400000 milliseconds, not -1");
}

TEST_F(EventBinding, AfterAToolTheViewIsTheOneThatAnOperatorSees) {
  EXPECT_EQ(outputOf("tool('miZoomIn') print(state.zoomfactor, state.panel[6]) tool('miFullView') "
                     "print(state.zoomfactor, state.panel[6])"),
            "2.0\t 2\n1.0\t 1\n");
}

// ---- State, status line and beeps

TEST_F(EventBinding, TheStateOfTheInteraction) {
  EXPECT_EQ(outputOf("for _, name in ipairs{'pendingaction', 'DrawMode', 'MouseX', 'MouseY', "
                     "'clickstage', 'EditPaths', 'LastCommand', 'OSnapOn', 'viewcx', 'viewcy', "
                     "'viewspan', 'homespan', 'zoomfactor', 'changecount', 'changetop', "
                     "'lastPlacedGroup'} do assert(math.type(state[name]), name) end "
                     "tool('miArc3P') rightclick(1, 1) click(2, 1) print(state.clickstage) "
                     "print(state.caption, state.panel[1], state.panel[3])"),
            "1\nTessimo Mill - Version 0.1.0\tDrawing:<Untitled>\tX: 2.0000\n");
}

TEST_F(EventBinding, TheStateIsReadOnly) {
  EXPECT_EQ(errorOf("state.MouseX = 1"), "state.MouseX can only be read");
  EXPECT_EQ(errorOf("state.panel[2] = 'x'"), "state.2 can only be read");
  EXPECT_EQ(errorOf("print(state.mousex)"), "state has no 'mousex' (did you mean 'MouseX'?)");
  EXPECT_EQ(errorOf("print(state.panel[7])"), "Subscript out of range");
}

TEST_F(EventBinding, TheStatusLogKeepsEveryText) {
  EXPECT_EQ(outputOf("local before = #status_log key('J') print(state.prompt) add_segment{type=1, "
                     "x1=1} key('J') print(#status_log > before, status_log[#status_log])"),
            "\ntrue\tClick on 1st end-point to join.\n")
      << "without a segment nothing is armed";
}

TEST_F(EventBinding, BeepsAreCounted) {
  EXPECT_EQ(outputOf("print(beeps) tool('miCircle3P') rightclick(0, 0) click(1, 0) click(2, 0) "
                     "print(beeps, store.NumSegments)"),
            "0\n1\t0\n")
      << "no circle goes through three points of a line";
}

// ---- Views and pictures

TEST_F(EventBinding, AViewShowsARectangle) {
  EXPECT_EQ(outputOf("view{-10, -8, 10, 8} print(state.viewcx, state.viewcy, state.viewspan)"),
            "0.0\t0.0\t10.0\n")
      << "also one that is larger than the view; the width rules";
  EXPECT_EQ(errorOf("view(1)"), "a view is a table of two corners, as {x0, y0, x1, y1}");
  EXPECT_EQ(errorOf("view{1, 2, 3}"), "Type mismatch: number 4 of the corners");
}

TEST_F(EventBinding, OpeningADrawingShowsItWhole) {
  EXPECT_EQ(outputOf("save('a') tool('miZoomIn') open('a.cdm') print(state.zoomfactor, "
                     "state.viewspan == state.homespan, state.panel[6], state.panel[1])"),
            "1.0\ttrue\t 1\tDrawing:A.CDM\n");
}

TEST_F(EventBinding, PicturesAreWrittenInTheSizeThatIsAskedFor) {
  std::string written;
  writePicture = [&](Application& /*application*/, const std::string& path, PixelSize size) {
    written += path + " " + std::to_string(size.width) + "x" + std::to_string(size.height) + ";";
  };
  job.size = {640, 480};
  outputOf("plot('a') plot('b.png', 10) plot('c.png', 10, 20)");
  const std::string folderOfDrawings = home("CNC/");
  EXPECT_EQ(written, folderOfDrawings + "a.png 640x480;" + folderOfDrawings + "b.png 10x480;" +
                         folderOfDrawings + "c.png 10x20;");
  EXPECT_EQ(errorOf("plot('a', 0, 10)"), "a picture has sides of 1 to 16384 pixels, not 0 by 10");
  EXPECT_EQ(errorOf("plot('a', 16385)"),
            "a picture has sides of 1 to 16384 pixels, not 16385 by 480");
  EXPECT_NE(errorOf("plot('/a.png')").find("is outside the folders"), std::string::npos);
}

TEST_F(EventBinding, WithoutAWriterThereAreNoPictures) {
  EXPECT_EQ(errorOf("plot('a')"), "this program writes no pictures");
}

TEST_F(EventBinding, TheSurfaceHasTheSizeOfTheJob) {
  job.size = {400, 400};
  EXPECT_EQ(outputOf("view{0, 0, 4, 4} print(state.viewspan)"), "2.0\n");
}

// Nobody is there to answer: the message stands in the list, and nothing was placed.
TEST_F(EventBinding, ADepthPerPassOfNothingPlacesNothing) {
  EXPECT_EQ(outputOf("add_segment{type=1, x1=2} setting['final depth'] = 1 "
                     "setting['z cut per pass'] = 0 tool('miSelectAll') tool('miQuickPlace') "
                     "print(store.NumPathSegments, #messages, messages[1].title) "
                     "print(messages[1].text:match('^[^\\n]*'))"),
            "0\t1\tQuick Place\n"
            "The Depth Per Pass, Z, is 0.  It must be above 0 for the levels from 0 to -1.\n");
}

// ---- Failures

TEST_F(EventBinding, AFailureOfACommandIsReportedAndTheScriptGoesOn) {
  // The outline of a tool without a radius cannot be drawn.
  EXPECT_EQ(outputOf("add_path{type = 1, x1 = 1, code = 100} store.toolradius[0] = 0 "
                     "setting['tool outline'] = 1 store.showpaths = 1 tool('miReDraw') "
                     "print(messages[1].kind, messages[1].text:match('^%a+ %a+ %a+'))"),
            "error\tDivision by zero\n");
}

}  // namespace
}  // namespace tess
