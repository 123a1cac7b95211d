// `call`: the routines of the tool paths by their names, and what `state` tells of them.
#include "gtest/gtest.h"

#include "core/drawing_store.h"
#include "tests/support/script_run.h"

namespace tess {
namespace {

using testing::ScriptRun;

// A square of 2 by 2, counter-clockwise from the origin.
constexpr char kSquare[] = R"(
local function line(x0, y0, x1, y1, attr)
  add_segment{type=1, x0=x0, y0=y0, x1=x1, y1=y1, attr=attr}
end
function square(attr)
  line(0, 0, 2, 0, attr) line(2, 0, 2, 2, attr) line(2, 2, 0, 2, attr) line(0, 2, 0, 0, attr)
end
function rows()
  for p in paths() do print(p.type, p.code, p.x0, p.y0, p.x1, p.y1, p.z) end
end
store.cfg_tolerance = 0.001 store.selectedtool = 0 store.toolradius[0] = 0.5
)";

class ToolpathRoutines : public ::testing::Test, protected ScriptRun {
 protected:
  std::string outputAfterSquare(const std::string& script) { return outputOf(kSquare + script); }
};

TEST_F(ToolpathRoutines, VerificationGivesTheMeasureAndTheBounds) {
  EXPECT_EQ(outputAfterSquare("square(30008) print(call.verifypocket()) print(store.segattr[1])"),
            "2.0\t2.0\n30108\n");
  EXPECT_EQ(outputAfterSquare("add_segment{type=2, x0=1, x1=1} print(call.arcBounds(1))"),
            "-1.0\t1.0\t-1.0\t1.0\n");
  EXPECT_EQ(outputAfterSquare("square(30008) tool('miVerify/AcceptPocket') "
                              "print(state.PocketXDim, state.PocketYDim)"),
            "2.0\t2.0\n");
}

TEST_F(ToolpathRoutines, ChainsGiveTheNextRowAndItsOtherEnd) {
  EXPECT_EQ(outputAfterSquare("square(8) print(call.nextChainSeg(1, 2, 0)) "
                              "print(call.nextChainSeg(1, 5, 5)) "
                              "print(call.nextChainSegWithAttr(2, 2, 0, 8))"),
            "2\t2.0\t2.0\n0\t0.0\t0.0\n1\t0.0\t0.0\n");
  EXPECT_EQ(outputAfterSquare("square(30108) print(call.pocketSideOf(0, 0, 2, 0), "
                              "call.pocketSideOf(2, 0, 0, 0))"),
            "-1\t1\n");
  EXPECT_EQ(valueOf("call.arcSweep(0, 1, 3), call.arcSweep(1, 0, 2)"), "1.0\t-1.0");
}

TEST_F(ToolpathRoutines, OffsetsRunWhereTheOriginalsWere) {
  EXPECT_EQ(outputAfterSquare("square(30108) "
                              "call.offsetPathChain(1, 0, 0, 2, 0, -1, 5, true, true, false, 0) "
                              "print(store.NumPathSegments, store.psx0[1], store.psy0[1], "
                              "store.psz[1], store.psfeed[1])"),
            "4\t0.5\t0.5\t-1.0\t5.0\n");
  EXPECT_EQ(outputAfterSquare("square(30108) move(0, 1, 1) "
                              "print(call.offsetSegChain(1, 0, 0, 2, 0, 10, 0.5)) "
                              "print(store.NumSegments, store.segattr[1], store.segattr[5]) "
                              "call.restoreParkedRows() print(store.segattr[1])"),
            "1\t0.0\t0.0\t2.0\t0.0\n8\t29108\t10\n30108\n");
}

TEST_F(ToolpathRoutines, RoughingRoutinesTellWhetherSomethingWasCut) {
  EXPECT_EQ(
      outputAfterSquare("setting['tool spacing'] = 50 setting['cut width type'] = 1 "
                        "setting['pocketing style'] = 1 "
                        "setting['minimum roughing clearance'] = 0 square(30108) "
                        "print(call.roughCutLevel(-1, 5, 0.25)) print(store.NumPathSegments)"),
      "0\t-1.0\t5.0\n3\n");
  for (const char* const style :
       {"scanPocketHorizontal(-1, 5)", "scanPocketVertical(-1, 5)", "scanPocketLathe(5)"}) {
    EXPECT_TRUE(valueOf(std::string("call.") + style).starts_with("-1\t")) << style;
  }
  EXPECT_EQ(outputOf("call.parallelSpiralPocket(0) print(messages[1].text)"),
            "No Pocketing Segments have been selected.\n");
}

TEST_F(ToolpathRoutines, PlacementWorksOnTheTableOfPaths) {
  const std::string twoGroups =
      "add_path{type=1, x1=1, z=-1, code=100} add_path{type=1, x0=2, x1=3, z=-1, code=200} ";
  EXPECT_EQ(outputOf(twoGroups + "print(call.pathInsertIndex(1, 2), call.pathInsertIndex(2, 1), "
                                 "call.pathInsertIndex(3, 1), call.firstOfPathGroup(2), "
                                 "call.lastOfPathGroup(1))"),
            "2\t2\t3\t2\t1\n");
  EXPECT_EQ(outputAfterSquare(twoGroups + "call.insertPathSegment(1, 1, 7, 0, 8, 0, 0, 0, -2, 4, 3)"
                                          " rows()"),
            "1\t3\t7.0\t0.0\t8.0\t0.0\t-2.0\n1\t100\t0.0\t0.0\t1.0\t0.0\t-1.0\n"
            "1\t200\t2.0\t0.0\t3.0\t0.0\t-1.0\n");
  EXPECT_EQ(outputAfterSquare(twoGroups + "call.connectPathSegs(1, 2) call.replicatePathAtZ(-2, 9) "
                                          "print(store.NumPathSegments, store.psz[4]) "
                                          "call.deletePathGroup(2) rows()"),
            "4\t-2.0\n1\t100\t0.0\t0.0\t1.0\t0.0\t-1.0\n1\t0\t1.0\t0.0\t2.0\t0.0\t-1.0\n");
}

TEST_F(ToolpathRoutines, GougeAvoidanceTakesTheKindByItsWord) {
  const std::string fold =
      "add_path{type=1, x1=4, code=100} "
      "add_path{type=1, x0=4, x1=4, y1=1, code=100} "
      "add_path{type=1, x0=4, y0=1, x1=2, y1=-1, code=100} ";
  EXPECT_EQ(outputAfterSquare(fold + "call.removeSelfIntersections(1, 'Path') rows()"),
            "1\t100\t0.0\t0.0\t3.0\t0.0\t0.0\n1\t100\t3.0\t0.0\t2.0\t-1.0\t0.0\n");
  EXPECT_EQ(outputAfterSquare(fold + "call.removeSelfIntersections(1, 'the SEGS') "
                                     "print(store.NumPathSegments)"),
            "3\n");
}

TEST_F(ToolpathRoutines, RowsAreFoundByTheirFields) {
  EXPECT_EQ(outputAfterSquare("square(8) print(call.findSegment(1, 2, 0, 2, 2, 0, 0), "
                              "call.findSegment(1, 2, 0, 2, 3, 0, 0))"),
            "2\t-1\n");
}

TEST_F(ToolpathRoutines, ReportTellsRowsLengthAndTime) {
  const std::string placed =
      "store.toolname[0], store.toolname[1] = 'mill', 'drill' "
      "add_segment{type=1} add_path{type=1, x1=6, z=-1, feed=12, code=100} "
      "add_path{type=81, z=0.5, feed=5, code=201} local r = report() ";
  EXPECT_EQ(outputOf(placed + "print(r.segments, r.rows, r.length, r.minutes, #r.tools)"),
            "1\t2\t6.5\t0.6\t2\n");
  EXPECT_EQ(outputOf(placed + "local t = r.tools[2] print(t.tool, t.name, t.rows, t.length)"),
            "2\tdrill\t1\t0.5\n");
  EXPECT_EQ(outputOf(placed + "print(r.text)"),
            "tool 1, mill: 1 path rows, 6.0 in, 0.5 min\n"
            "tool 2, drill: 1 path rows, 0.5 in, 0.1 min\n"
            "1 segments: 2 path rows, 6.5 in, 0.6 min\n");
}

// Down 1 at 2 a minute and 6 at 12; across and up at 100, 0.5 in and out of the hole.
TEST_F(ToolpathRoutines, ReportTellsTheTimeOfTheProgramAndOfTheMachine) {
  const std::string placed =
      "setting['z start pos'], setting['z plunge rate'] = 0, 2 "
      "add_path{type=1, x1=6, z=-1, feed=12, code=100} "
      "add_path{type=81, x0=6, x1=6, z=0.5, feed=5, code=201} local r = report() ";
  EXPECT_EQ(outputOf(placed + "print(('%.3f %.3f'):format(r.program_minutes, r.machine_minutes))"),
            "1.115 1.115\n");
  EXPECT_EQ(outputOf(placed + "print(r.summary)"), "2 path rows, 6.5 in, about 1.1 min\n");
  EXPECT_EQ(outputOf(placed + "print(('%.3f'):format(r.tools[1].program_minutes))"), "1.000\n");
  // 33.0 s down and 49.7 s along, with a corner between them; 20 s up; 14.1 s each into the hole
  // and out of it, all three without ever reaching their speed.
  EXPECT_EQ(outputOf("setting['rapid rate'], setting['acceleration'] = 10, 0.01 " + placed +
                     "print(('%.2f %.2f'):format(r.program_minutes, r.machine_minutes))"),
            "1.25 2.18\n");
}

TEST_F(ToolpathRoutines, StateTellsOfPlacement) {
  EXPECT_EQ(valueOf("state.pathInsertMode, state.numFinishPasses, state.PocketXDim"), "0\t0\t0.0");
}

// ---- The path editor by the names of its controls

constexpr char kThreePaths[] = R"(
for x = 0, 2 do add_path{type=1, x0=x, x1=x+1, z=-x/4, feed=10, code=100*(x+1)+x} end
store.showpaths = 1
)";

TEST_F(ToolpathRoutines, ThePathEditorListsFindsAndPicksRows) {
  EXPECT_EQ(outputOf(std::string(kThreePaths) + R"(
on_form("dlgEditPath", function(f)
  print(f.lstRows.caption)
  print(f.lstRows.count, f.lstRows.index, f.lstRows.text)
  f.lstRows.index = 2
  print(f.txtps.text, f.txtToolNumber.text)
  f.cmbFind.text = "Z Depth"
  f.txtFind.text = "-.25"
  f.cmdFindNext:click()
  print(f.txtps.text, f.lstRows.items[2])
  f.txtFind.text = "9"
  f.cmdFindNext:click()
  print(messages[#messages].text)
  click(0.5, 0.25)
  print(f.txtps.text, f.lstRows.index)
  f.cmdExit:click()
end)
tool("miEditPath/Cycle"))"),
            "#\tGroup\tTool\tType\tEnd X\tEnd Y\tZ\tFeed\n"
            "3\t0\t1\t1\t1\tLine\t1.0000\t0.0000\t0.0000\t10\n"
            "3\t3\n"
            "2\t2\t2\t2\tLine\t2.0000\t0.0000\t-0.2500\t10\n"
            "There is no path segment with Z Depth 9.\n"
            "1\t0\n");
}

TEST_F(ToolpathRoutines, TheMapChangesTheOrder) {
  EXPECT_EQ(outputOf(std::string(kThreePaths) + R"(
on_form("frmPathMap", function(f)
  print(f.lstPathSegments.count, f.lstPathSegments.items[3])
  f.lstPathSegments.index = 2
  f.cmdPromote:click()
  print(f.lstPathSegments.text, f.lblRapids.caption, f.lblRapidsBefore.caption)
  f.cmdApply:click()
end)
on_form("dlgEditPath", function(f) f.cmdOrderPaths:click() print(f.lstRows.text) f.cmdExit:click() end)
tool("miEditPath/Cycle"))"),
            "6\tPath Group #2:  Group 2\n"
            "Path Group #2:  Group 2\tRapids between Rows: 3.0000\tBefore: 0.0000\n"
            "1\t2\t2\tLine\t2.0000\t0.0000\t-0.2500\t10\n");
}

}  // namespace
}  // namespace tess
