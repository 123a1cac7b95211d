// `call`: the other routines, and how those in the error path end.
#include "gtest/gtest.h"

#include "core/drawing_store.h"
#include "tests/support/script_run.h"

namespace tess {
namespace {

using testing::ScriptRun;

class RoutineBinding : public ::testing::Test, protected ScriptRun {};

TEST_F(RoutineBinding, RoutinesOfTheStore) {
  EXPECT_EQ(outputOf("call.AddSeg(2, 8, 1, 2, 3, 4, 5, 6) call.AddSegLine(1, 8, 2, 1, 4, 3) "
                     "for s in segments() do print(s.type, s.x0, s.y0, s.x1, s.y1, s.xc, s.yc) "
                     "end"),
            "2\t1.0\t2.0\t3.0\t4.0\t5.0\t6.0\n1\t1.0\t2.0\t3.0\t4.0\t0.0\t0.0\n");
  EXPECT_EQ(outputOf("print(call.nextPathGroup()) "
                     "call.addPathSegment(1, 1, 2, 3, 4, 5, 6, -7, 8, 1203) "
                     "print(store.NumPathSegments, store.psx0[1], store.psyc[1], store.psz[1], "
                     "store.psfeed[1], store.pscode[1], call.nextPathGroup())"),
            "1\n1\t1.0\t6.0\t-7.0\t8.0\t1203\t13\n");
  EXPECT_EQ(outputOf("add_segment{type=1, x0=1.0000049} call.roundall() print(store.x0[1])"),
            "1.0\n");
  EXPECT_EQ(outputOf("call.ensureSegmentCapacity(50) call.ensurePathCapacity(200) "
                     "store.x0[70] = 1 store.psz[300] = 1 print(store.NumSegments)"),
            "0\n");
}

TEST_F(RoutineBinding, EditingOfRows) {
  EXPECT_EQ(outputOf("add_segment{type=1, x1=4} add_segment{type=1, x0=1, y0=-1, x1=1, y1=1} "
                     "print(call.trimSegment(1, 2, 3, 0), call.trimSegment(1, 1, 3, 0)) "
                     "print(call.breakSegment(1, 0.5, 0), call.breakSegment(1, 0, 0), "
                     "call.breakSegment(9, 0, 0), call.joinedLineCount(0.5, 0)) "
                     "call.moveEndpoints(0.5, 0, 0.5, 0.25) call.deleteSegment(2) "
                     "for s in segments() do print(s.x0, s.y0, s.x1, s.y1) end "
                     "print(store.drawingsaved)"),
            "0\t-1\n0\t-6\t-1\t2\n0.0\t0.0\t0.5\t0.25\n0.5\t0.25\t1.0\t0.0\n0\n");
  EXPECT_EQ(outputOf("add_path{type=1, x1=4, z=-1} add_path{type=1, x0=1, y0=-1, x1=1, y1=1} "
                     "print(call.trimPathSegment(1, 2, 3, 0), call.breakPathSegment(1, 0.5, 0), "
                     "call.joinedPathCount(0.5, 0)) "
                     "call.movePathEndpoints(0.5, 0, 0.5, 0.25) call.deletePathSegment(3) "
                     "for p in paths() do print(p.x0, p.y0, p.x1, p.y1, p.z) end "
                     "print(call.pathEntityInfo(2):match('Type: %a+'), "
                     "call.pathEntityInfo(2):match('Z: .*'):gsub('\\n', ' '))"),
            "0\t0\t2\n0.0\t0.0\t0.5\t0.25\t-1.0\n0.5\t0.25\t1.0\t0.0\t-1.0\n"
            "Type: Line\tZ: -1.0000 Feed: 0\t1\n");
}

TEST_F(RoutineBinding, ARefusedFilletIsTold) {
  EXPECT_EQ(outputOf("add_segment{type=1, x1=4} add_segment{type=1, y1=3} "
                     "add_segment{type=1, x0=8, x1=9} "
                     "call.addFillet(1, 2, 0) print(beeps, store.NumSegments) "
                     "call.addFillet(1, 2, 0.5) print(store.NumSegments, store.segtype[4]) "
                     "call.addFillet(1, 3, 0.5) print(messages[1].text, messages[1].title) "
                     "add_path{type=1, x1=4} add_path{type=1, y1=3} call.addPathFillet(1, 2, 0.5) "
                     "print(store.NumPathSegments, store.pstype[2])"),
            "1\t3\n4\t2\n"
            "The 2 line segments must intersect at exactly one point.\tAdd Fillet\n3\t2\n");
}

TEST_F(RoutineBinding, CopiesAndTransforms) {
  const std::string drawing =
      "add_segment{type=1, x1=1} add_segment{type=1, y0=1, x1=1, y1=1, attr=30008} "
      "add_path{type=1, x1=1} ";
  const std::string show =
      "for s in segments() do io.write(s.x0, ' ', s.y0, '; ') end "
      "for p in paths() do print(p.x0, p.y0) end";
  const auto after = [&](const std::string& calls) {
    std::string text = outputOf(
        "io = {write = function(...) out = (out or '') .. "
        "table.concat({...}) end} out = nil call.new_drawing() " +
        drawing + calls + show.substr(0, show.find(" for p")) +
        " for p in paths() do print(out .. p.x0, p.y0) end");
    return text;
  };
  EXPECT_EQ(after("call.moveAll(1, 2, 1) "), "1.0 2.0; 1.0 3.0; 1.0\t2.0\n");
  EXPECT_EQ(after("call.moveAll(1, 2, 2) "), "0.0 0.0; 1.0 3.0; 1.0\t2.0\n");
  EXPECT_EQ(after("call.moveSelected(1, 2) "), "0.0 0.0; 1.0 3.0; 0.0\t0.0\n");
  EXPECT_EQ(after("call.scaleSegments(3, false) "), "0.0 0.0; 0.0 3.0; 0.0\t0.0\n");
  EXPECT_EQ(after("call.scaleSegments(3, true) call.scaleSegments(2, false) "),
            "0.0 0.0; 0.0 6.0; 0.0\t0.0\n");
  EXPECT_EQ(after("call.Copy_segment() store.markerx = 5 call.Paste_segment() "),
            "0.0 0.0; 0.0 1.0; 5.0 1.0; 0.0\t0.0\n");
  EXPECT_EQ(after("call.Copy_segment() call.Clear_Paste() tool('miPaste') "),
            "0.0 0.0; 0.0 1.0; 0.0\t0.0\n");
  EXPECT_EQ(valueOf("call.mirrorCoord(3, 1), call.rotatePoint(1, 1, 1, 1, 90)"), "-1.0\t1.0\t1.0");
  EXPECT_EQ(valueOf("call.fieldOfItem('Y', '1 - X=5, Y=6')"), "6");
}

TEST_F(RoutineBinding, NumbersAndTexts) {
  EXPECT_EQ(valueOf("call.formatNumber(1.23456, '##0.0##'), call.formatNumber(0, '####')"),
            "1.235\t");
  EXPECT_EQ(valueOf("call.roundTo(-0.25, 1), call.Val('  12.5 mm'), call.Val('x')"),
            "-0.20000000298023\t12.5\t0.0");
  EXPECT_EQ(valueOf("call.splitPath('before/', 'a/b', 'CDM')"), "b.CDM\ta/");
  EXPECT_EQ(valueOf("call.splitPath('before/', 'b.old', '.CNC')"), "b.CNC\tbefore/");
}

TEST_F(RoutineBinding, SetupsAndTheLifeOfADrawing) {
  job.folders.push_back(home());  // where setups are saved
  EXPECT_EQ(outputOf("add_segment{type=1} add_path{type=1} store.markerx = 5 "
                     "call.new_drawing() "
                     "print(store.NumSegments, store.NumPathSegments, store.markerx)"),
            "0\t0\t0.0\n");
  EXPECT_EQ(outputOf("store.partdimx = 99 call.applydefaults() print(store.partdimx)"), "4.0\n");
  EXPECT_EQ(outputOf("setting['final depth'] = 9 call.load_setup() print(setting['final depth'])"),
            "0.25\n");
  EXPECT_EQ(outputOf("store.units = 'M' call.set_num_formats() print(setting.cncfmt)"),
            "####0.0###\n");
  EXPECT_EQ(outputOf("setting.cnccomment = '(' call.load_xsetup() print(setting.cnccomment)"),
            ";\n");
  EXPECT_EQ(outputOf("setting['final depth'] = 0.75 call.SetupTESS('S') "
                     "setting['final depth'] = 1 call.SetupTESS('L') "
                     "call.SetupTESS('neither') print(setting['final depth'])"),
            "0.75\n");
  EXPECT_EQ(outputOf("store.unitfactor = 2 setting['final depth'] = 0.5 call.convert() "
                     "print(setting['final depth'])"),
            "1.0\n");
}

TEST_F(RoutineBinding, TheOnePromptGivesItsAnswerAsANumber) {
  EXPECT_EQ(outputOf("on_message(function(text) return text end) "
                     "print(call.askUser('OK', 1), call.askUser('Cancel', 2), "
                     "call.askUser('No', 3), call.askUser('Cancel', 3))"),
            "1\t2\t2\t3\n");
  EXPECT_EQ(outputOf("print(call.askUser('?', 4), messages[1].kind)"), "0\terror\n");
  EXPECT_EQ(outputOf("call.showDrawingName() call.readcfg() print(#messages)"), "0\n");
}

TEST_F(RoutineBinding, TheDrawingsExtents) {
  const std::string rows = "add_segment{type=1, x0=1, y0=2, x1=4, y1=6} ";
  EXPECT_EQ(outputOf("print(call.GetDrawingExtents()) print(extents())"),
            "0\t0.0\t0.0\t0.0\t0.0\n\n");
  EXPECT_EQ(outputOf(rows + "print(call.GetDrawingExtents()) print(extents())"),
            "-1\t1.0\t2.0\t4.0\t6.0\n1.0\t2.0\t4.0\t6.0\n");
}

TEST_F(RoutineBinding, OneLineOfAProgram) {
  EXPECT_EQ(valueOf("call.FormCncLine('G01', 1, 2, 0, 0, 0, 0, 12.5, 0, false, true)"),
            "G01 X1.0 Y2.0 F125\t\t0.0\t0.0\t0.0");
  EXPECT_EQ(outputOf("call.FormCncLine('G01', 1, 2, 0, 0, 0, 0, 12.5, 0, false, true) "
                     "print(call.FormCncLine('G01', 1, 2, 0, 0, 0, 0, 12.5, 0, false, true))"),
            "\tG01\t0.0\t0.0\t0.0\n")
      << "no movement, no line, and nothing is cleared";
}

TEST_F(RoutineBinding, AFailureInTheErrorPathIsShownLoggedAndOver) {
  job.fileAccess = true;
  const std::string shown =
      outputOf("os.remove('" + home("tess.def") +
               "') call.load_defaults() local m = messages[#messages] "
               "print(m.kind, m.icon, m.answer, #m.buttons, m.buttons[1]) print(m.text)");
  EXPECT_TRUE(shown.starts_with("error\terror\tOK\t1\tOK\nFile not found")) << shown;
  EXPECT_NE(shown.find("Number: 53"), std::string::npos) << shown;
  EXPECT_NE(shown.find("load_defaults()"), std::string::npos) << shown;
  EXPECT_NE(home.read("Errors.txt").find("File not found"), std::string::npos);
}

TEST_F(RoutineBinding, WhatARoutineSurvivesIsReportedToo) {
  job.folders.push_back(home());  // where setups are saved
  const std::string shown = outputOf(
      "store.toolradius[0] = 0 call.SetupTESS('S') print(#messages) "
      "setting['cut width type'] = 2 call.SetupTESS('S') call.load_setup() "
      "print(messages[1].kind, messages[1].text:match('^[^\\n]+'))");
  EXPECT_TRUE(shown.starts_with("0\nerror\tDivision by zero")) << shown;
}

TEST_F(RoutineBinding, MisuseOfARoutineIsAnErrorOfTheLine) {
  EXPECT_EQ(errorOf("call.SetupTESS()"), "Type mismatch: argument 1 is missing");
  EXPECT_EQ(errorOf("call.addPathSegment(1)"), "Type mismatch: argument 2 is missing");
  EXPECT_EQ(errorOf("call.formatNumber(0/0, '0')"), "Type mismatch: argument 1");
  EXPECT_EQ(errorOf("call.AddSeg(1, 70000, 0, 0, 0, 0, 0, 0)"), "Overflow: argument 2");
}

TEST_F(RoutineBinding, TheEndOfTheProgramEndsTheScriptForGood) {
  job.fileAccess = true;
  EXPECT_EQ(failureOf("os.remove('" + home("test.msu") +
                      "') "
                      "print('before') pcall(call.load_setup) print('behind') "
                      "while true do pcall(print, 'for ever') end"),
            "Could not find setup file: test.msu named in " + home("tess.def") + " line 2 field 1");
  EXPECT_EQ(out, "before\n");
}

}  // namespace
}  // namespace tess
