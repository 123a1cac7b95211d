// `proof` in scripts, the question before a program is written, and --check on the command line.
#include <sstream>

#include "gmock/gmock.h"
#include "gtest/gtest.h"

#include "shell/automation/file_jobs.h"
#include "tests/support/script_run.h"

namespace tess {
namespace {

using testing::ScriptRun;

class ProofBinding : public ::testing::Test, protected ScriptRun {
 protected:
  // A square pocket of 4 by 4, cleared by lines with the tool of radius 0.5.
  static std::string cleared(const std::string& then) {
    return "setting['true paths'] = true "
           "setting['z start pos'] = 1 "
           "add_segment{type=1, x0=0, y0=0, x1=4, y1=0} "
           "add_segment{type=1, x0=4, y0=0, x1=4, y1=4} "
           "add_segment{type=1, x0=4, y0=4, x1=0, y1=4} "
           "add_segment{type=1, x0=0, y0=4, x1=0, y1=0} "
           "store.selectedtool = 0 store.toolname[0] = 'mill' store.toolradius[0] = 0.5 "
           "setting['start depth'] = 0 setting['final depth'] = 0.25 "
           "setting['z cut per pass'] = 0.25 setting['minimum z finish'] = 0 "
           "setting['minimum roughing clearance'] = 0 "
           "setting['lathe style pocketing'] = false "
           "setting['pocketing style'] = 1 "
           "tool('miSelectAll') tool('miVerify/AcceptPocket') tool('miRoughCutPocket') " +
           then;
  }
};

TEST_F(ProofBinding, OfACleanPathIsClean) {
  EXPECT_EQ(outputOf(cleared("local p = proof() print(p.gouge.depth, p.gouge.row, "
                             "p.missed[1].share, p.missed[1].wall.share, #p.missed[1].places) "
                             "print(#p.rapids, #p.unjudged, #p.jobs, p.jobs[1].group, "
                             "p.jobs[1].kind, p.jobs[1].by, p.clean) print(p.text)")),
            "0.0\t0\t0.0\t0.0\t0\n"
            "0\t0\t1\t1\tclearing\trecord\ttrue\n"
            "In by 0.0000   Left 0.00 %   Rapids 0\n"
            "Group 1: clearing, by record; left 0.00 % at its clearance, 0.00 % at the wall; "
            "up to 100 % of the cutter's width in material at X = 0.5000, Y = 0.7500 (row 1)\n\n");
}

TEST_F(ProofBinding, TellsWhatIsFound) {
  EXPECT_EQ(outputOf(cleared("store.psy0[1] = 0.25 store.psy1[1] = 0.25 local p = proof() "
                             "print(p.gouge.depth, p.gouge.row, p.gouge.y, p.clean) "
                             "store.NumPathSegments = 2 p = proof() local m = p.missed[1] "
                             "print(m.share > 0.5, m.area > 8, m.reach > 15, m.group, "
                             "m.places[1].y > 2, m.places[1].width > 3.9, "
                             "m.places[1].height > 2, m.places[1].area > 8)")),
            "0.25\t1\t0.25\tfalse\ntrue\ttrue\ttrue\t1\ttrue\ttrue\ttrue\ttrue\n");
}

TEST_F(ProofBinding, NamesRapidsThroughMaterial) {
  EXPECT_EQ(outputOf(cleared("add_path{type=0, x0=0.5, y0=0.5, x1=0.5, y1=0.5, z=-1, code=100} "
                             "local p = proof() print(#p.rapids, "
                             "p.rapids[1].row == store.NumPathSegments, p.rapids[1].group)")),
            "1\ttrue\t1\n");
}

// Each line that is not connected is one. Listed in any case; a limit and words only where the
// setup asks for an entry.
TEST_F(ProofBinding, ListsPlungesAndHoldsThemAgainstTheEntry) {
  const std::string told =
      "local p = proof() print(#p.plunges, p.clean, p.text:match('Plunges %d') or '') ";
  EXPECT_EQ(
      outputOf(cleared(told + "local l = p.plunges[1] print(l.row, l.group, l.x, l.y, l.depth)")),
      "6\ttrue\t\n1\t1\t0.5\t0.75\t0.25\n");
  EXPECT_EQ(outputOf(cleared("setting['entry kind'] = 1 " + told)), "6\tfalse\tPlunges 6\n");
  EXPECT_EQ(outputOf("setting['entry kind'] = 1 setting['entry angle'] = 3 " + cleared(told)),
            "0\ttrue\tPlunges 0\n");
}

TEST_F(ProofBinding, TellsTheEngagementOfEachGroup) {
  EXPECT_EQ(outputOf(cleared("local e = proof().jobs[1].engagement "
                             "print(e.share, e.row, e.x, e.y)")),
            "1.0\t1\t0.5\t0.75\n");
}

// The notes about the corners go with the drawing, and a script picks corners by clicks.
TEST_F(ProofBinding, ListsCornersThatWereMeantToBeCutOver) {
  const std::string finished = cleared(
      "store.cursorgridf = 0 view{-1, -1, 5, 5} setting['corner overcut'] = 2 "
      "on_form('frmFinishPath', function(f) f.cmdOK:click() end) "
      "on_form('frmCornerOvercut', function(f) click(4, 4) click(0.1, 0) "
      "print(f.lblCorners.caption) "
      "f.cmdOK:click() end) "
      "tool('miPlaceFinishPath') click(0, 0) click(2, 0) click(2, 1) ");
  const std::string told =
      "local p = proof() print(p.clean, #p.overcuts) for _, c in ipairs(p.overcuts) do "
      "print(c.group, c.x, c.y, string.format('%.4f %.4f', c.depth, c.left)) end ";
  const std::string corners = "true\t2\n2\t4.0\t4.0\t0.1464 0.0000\n2\t0.0\t0.0\t0.1464 0.0000\n";
  EXPECT_EQ(outputOf(finished + told + "save('part') open('part') " + told),
            "2 of 4 corners. Click one in the drawing to pick it, or to leave it out.\n" + corners +
                corners);
  EXPECT_THAT(outputOf(finished + "setting['true paths'] = false save('plain') open('plain') " +
                       "print(proof().gouge.depth > 0.14, #proof().overcuts)"),
              ::testing::EndsWith("\ntrue\t0\n"));
}

TEST_F(ProofBinding, WithoutJobsGoesByTheRows) {
  EXPECT_EQ(outputOf("setting['true paths'] = false save('part') open('part') "
                     "print(#proof().jobs)"),
            "0\n");
  EXPECT_EQ(outputOf(cleared("setting['true paths'] = false save('part') open('part') "
                             "local p = proof() print(p.jobs[1].kind, p.jobs[1].by)")),
            "contour\trows\n");
  EXPECT_EQ(outputOf(cleared("save('part') open('part') "
                             "local p = proof() print(p.jobs[1].kind, p.jobs[1].by)")),
            "clearing\trecord\n");
}

constexpr char kMakeGouge[] =
    "store.psy0[1] = 0.25 store.psy1[1] = 0.25 save('part') make_cnc('mill') "
    "for _, m in ipairs(messages) do if m.title == 'Path Proof' then "
    "print(m.text) print(m.icon, table.concat(m.buttons, ' ')) end end ";

TEST_F(ProofBinding, AsksBeforeAProgramThatCutsIntoThePart) {
  const std::string text = outputOf(cleared(kMakeGouge));
  EXPECT_THAT(text, ::testing::StartsWith("Row 1 of group 1 cuts into the part by 0.2500 at X = "));
  EXPECT_THAT(text, ::testing::EndsWith(", Y = 0.2500.\n\nDo you want to write the program anyway "
                                        "?\nwarning\tYes No\n"));
  EXPECT_TRUE(home.has("CNC/part.CNC"));
}

TEST_F(ProofBinding, NoWritesNothing) {
  outputOf("on_message(function(text, title) if title == 'Path Proof' then return 'No' end end) " +
           cleared(kMakeGouge));
  EXPECT_TRUE(home.has("CNC/part.CDM"));
  EXPECT_FALSE(home.has("CNC/part.CNC"));
}

TEST_F(ProofBinding, AsksNothingOfACleanPath) {
  EXPECT_EQ(outputOf(cleared("save('part') make_cnc('mill') print(#messages)")), "0\n");
  EXPECT_TRUE(home.has("CNC/part.CNC"));
}

TEST_F(ProofBinding, WithoutTheKeyNobodyIsAsked) {
  EXPECT_EQ(outputOf(cleared(std::string("setting['true paths'] = false ") + kMakeGouge)), "");
  EXPECT_TRUE(home.has("CNC/part.CNC"));
}

struct Checked {
  ExitStatus status;
  std::string out, err;
};

TEST_F(ProofBinding, CheckPrintsTheProofAndFailsBeyondTheLimits) {
  const auto check = [this] {
    std::ostringstream printed;
    std::ostringstream told;
    const ExitStatus result =
        checkPaths({.drawing = home("CNC/part.CDM"), .appfolder = home()}, printed, told);
    return Checked{result, printed.str(), told.str()};
  };
  job.folders.push_back(home());
  // The tools of a drawing are those of the setup.
  outputOf(cleared("tool('miSaveSetup') save('part')"));
  const Checked clean = check();
  EXPECT_EQ(clean.status, ExitStatus::Done);
  EXPECT_EQ(clean.out,
            "In by 0.0000   Left 0.00 %   Rapids 0\n"
            "Group 1: clearing, by record; left 0.00 % at its clearance, 0.00 % at the wall; "
            "up to 100 % of the cutter's width in material at X = 0.5000, Y = 0.7500 (row 1)\n");
  outputOf(cleared("store.psy0[1] = 0.25 store.psy1[1] = 0.25 save('part')"));
  const Checked gouge = check();
  EXPECT_EQ(gouge.status, ExitStatus::JobFailed);
  EXPECT_THAT(gouge.out, ::testing::StartsWith("In by 0.2500   Left 0.00 %   Rapids 0\n"));
  EXPECT_EQ(gouge.err, "");
}

}  // namespace
}  // namespace tess
