// The finish path as the operator places it: dialog, three clicks, passes and levels.
#include "toolpath/finish_path.h"

#include "gtest/gtest.h"

#include "core/drawing_store.h"
#include "drafting/repeat_key.h"
#include "drafting/undo.h"
#include "tests/support/failure_of.h"
#include "tests/support/recorded_cam.h"
#include "toolpath/frmFinishPath.h"
#include "toolpath/path_placement.h"

namespace tess {
namespace {

using testing::pathTexts;
using testing::RecordedCam;
using Texts = std::vector<std::string>;

struct FinishPath : RecordedCam, ::testing::Test {
  void answerForm(const std::function<void(frmFinishPath&)>& work) {
    test.recording.prompts.onForm = [work](Form& form) {
      work(dynamic_cast<frmFinishPath&>(form));
    };
  }
  // The command with so many passes; the clicks are still to come.
  void start(int passes) {
    answerForm([passes](frmFinishPath& form) {
      form.txtNumPasses.setText(std::to_string(passes));
      form.cmdOK.click();
    });
    mnuCAMPlaceFinishPath_Click(cam);
  }
  void clicks(Point from, Point along, Point reference) {
    click(from.x, from.y);
    click(along.x, along.y);
    click(reference.x, reference.y);
  }
  void place(int passes, Point from, Point along, Point reference) {
    start(passes);
    clicks(from, along, reference);
  }
  void addSquare() {
    addLine(0, 0, 2, 0);
    addLine(2, 0, 2, 2);
    addLine(2, 2, 0, 2);
    addLine(0, 2, 0, 0);
  }
  // Final depth 1 in steps of 0.3, leaving 0.02 for the floor.
  void setLevels() {
    store.cfg_final_depth = 1;
    store.cfg_z_cut_per_pass = 0.3F;
    store.cfg_min_z_finish = 0.02F;
  }
  Texts depths() const {
    Texts all;
    for (int ps = 1; ps <= store.NumPathSegments; ++ps) {
      all.push_back(testing::recorded(store.psz[ps]) + " f " + testing::recorded(store.psfeed[ps]));
    }
    return all;
  }
};

// ---- The clicks

TEST_F(FinishPath, TheCommandRoundsTheDrawingShowsTheDialogAndAsksForTheStart) {
  addLine(0, 0, 2.0000014F, 0);
  start(1);
  EXPECT_EQ(test.recording.prompts.formNames, (Texts{"frmFinishPath"}));
  EXPECT_EQ(store.x1[1], 2);
  EXPECT_EQ(cam.PlaceChain, 1);
  EXPECT_EQ(pending(), 20);
  EXPECT_EQ(prompt(), "Click near start point.");
}

TEST_F(FinishPath, ThreeClicksEachWithItsPrompt) {
  addLine(0, 0, 2, 0);
  start(1);
  click(0.1F, 0.2F);
  EXPECT_EQ(prompt(), "Click to indicate direction.");
  EXPECT_EQ(pending(), 21);
  click(1, 0.1F);
  EXPECT_EQ(prompt(), "Click to indicate finish reference.");
  EXPECT_EQ(pending(), 22);
  click(1, 1);
  EXPECT_EQ(pending(), 0);
  EXPECT_EQ(pathTexts(store), (Texts{"1 (0, 0.25)-(2, 0.25) @100 z -0.5 f 10"}));
  EXPECT_EQ(store.showpaths, 1);
  EXPECT_TRUE(tools.isEnabled("miUndo"));
}

TEST_F(FinishPath, TheDirectionTakesTheRowNearTheStart) {
  addLine(0, 0, 2, 0);
  addLine(0, 0, 0, 2);
  addLine(2, 2, 2, 1);
  // The click itself is nearest to the third row; a tenth of the way it is the first one.
  place(1, {0, 0}, {1.9F, 1}, {1, -1});
  EXPECT_EQ(cam.finishSegment, 1);
  EXPECT_EQ(cam.finishDirection, (Point{1.9F, 0}));
}

TEST_F(FinishPath, CancellingTheDialogGoesOnToOnePass) {
  addLine(0, 0, 2, 0);
  answerForm([](frmFinishPath& form) {
    form.txtNumPasses.setText("3");
    form.cmdCancel.click();
  });
  mnuCAMPlaceFinishPath_Click(cam);
  EXPECT_EQ(pending(), 20);
  clicks({0, 0}, {1, 0}, {1, 1});
  EXPECT_EQ(store.NumPathSegments, 1);
}

TEST_F(FinishPath, WithoutRowsTheStartIsNotFound) {
  start(1);
  click(0, 0);
  EXPECT_EQ(pending(), 0);
  EXPECT_EQ(beeps(), 0);
}

TEST_F(FinishPath, WithoutARowNearTheDirectionItBeepsAndAsksAgain) {
  addLine(0, 0, 2, 0);
  start(1);
  click(0, 0);
  click(2e7F, 0);
  EXPECT_EQ(beeps(), 1);
  EXPECT_EQ(pending(), 21);
  EXPECT_EQ(prompt(), "Click to indicate direction.");
}

TEST_F(FinishPath, ADirectionAtTheStartBeepsAndPlacesNothing) {
  addLine(0, 0, 2, 0);
  place(1, {0, 0}, {0, 0}, {1, 1});
  EXPECT_EQ(beeps(), 1);
  EXPECT_EQ(pending(), 0);
  EXPECT_EQ(store.NumPathSegments, 0);
}

// A bare point is nearest, and has no nearest point itself.
TEST_F(FinishPath, ADirectionOnABarePointBeeps) {
  addLine(0, 0, 2, 0);
  add({.type = kPoint, .x0 = 0, .y0 = 0.3F, .x1 = 0, .y1 = 0.3F});
  place(1, {0, 0}, {0, 3}, {1, 1});
  EXPECT_EQ(cam.finishSegment, 2);
  EXPECT_EQ(beeps(), 1);
  EXPECT_EQ(store.NumPathSegments, 0);
}

TEST_F(FinishPath, TheRepeatKeyRepeatsTheLastPlacingCommand) {
  addLine(0, 0, 2, 0);
  start(1);
  context.state.setPendingaction(0);
  repeatLastCommand(context);
  EXPECT_EQ(test.recording.prompts.modalForms, 2);
  EXPECT_EQ(pending(), 20);
  mnuCAMPlace1PathSeg_Click(cam);
  context.state.setPendingaction(0);
  repeatLastCommand(context);
  EXPECT_EQ(test.recording.prompts.modalForms, 2);
  EXPECT_EQ(pending(), 20);
  EXPECT_EQ(cam.PlaceChain, 0);
}

// ---- One segment

TEST_F(FinishPath, PlacingOneSegmentNeedsTheDialogToHaveBeenClosedOnce) {
  addSquare();
  mnuCAMPlace1PathSeg_Click(cam);
  clicks({0, 0}, {1, 0}, {1, 1});
  EXPECT_EQ(store.NumPathSegments, 0);
  start(1);
  mnuCAMPlace1PathSeg_Click(cam);
  clicks({0, 0}, {1, 0}, {1, 1});
  EXPECT_EQ(pathTexts(store), (Texts{"1 (0, 0.25)-(2, 0.25) @100 z -0.5 f 10"}));
}

TEST_F(FinishPath, PlacingOneSegmentPlacesNoJointsAndNoLeads) {
  addSquare();
  store.cfg_lead_in_path = store.cfg_lead_in_arc = true;
  store.cfg_lead_in_angle = 30;
  store.cfg_lead_in_length = 0.5F;
  store.cfg_gouge_avoidance = true;
  start(1);
  mnuCAMPlace1PathSeg_Click(cam);
  clicks({0, 0}, {1, 0}, {1, -1});
  EXPECT_EQ(pathTexts(store), (Texts{"1 (0, -0.25)-(2, -0.25) @100 z -0.5 f 10"}));
  EXPECT_TRUE(messages().empty());
}

TEST_F(FinishPath, AfterAFinishOfThreePassesOneSegmentMakesThreeRows) {
  addSquare();
  store.cfg_min_rough_clearance = 0.05F;
  store.cfg_tool_spacing_distance = 0.2F;
  start(3);
  mnuCAMPlace1PathSeg_Click(cam);
  clicks({0, 0}, {1, 0}, {1, -1});
  EXPECT_EQ(pathTexts(store), (Texts{"1 (0, -0.5)-(2, -0.5) @100 z -0.5 f 10",
                                     "1 (0, -0.3)-(2, -0.3) @200 z -0.5 f 10",
                                     "1 (0, -0.25)-(2, -0.25) @300 z -0.5 f 10"}));
}

// ---- Passes and levels

TEST_F(FinishPath, ThreePassesRunFromTheOutermostToTheFinishedSize) {
  addLine(0, 0, 2, 0);
  store.cfg_min_rough_clearance = 0.05F;
  store.cfg_tool_spacing_distance = 0.2F;
  place(3, {0, 0}, {1, 0}, {1, 2});
  EXPECT_EQ(pathTexts(store),
            (Texts{"1 (0, 0.5)-(2, 0.5) @100 z -0.5 f 10", "1 (0, 0.3)-(2, 0.3) @200 z -0.5 f 10",
                   "1 (0, 0.25)-(2, 0.25) @300 z -0.5 f 10"}));
}

TEST_F(FinishPath, EveryPassGoesDownItsLevelsBeforeTheNext) {
  addLine(0, 0, 2, 0);
  setLevels();
  place(2, {0, 0}, {1, 0}, {1, 2});
  const Texts onePass{"-0.3 f 10", "-0.6 f 20", "-0.9 f 20", "-0.98 f 20", "-1 f 10"};
  Texts both = onePass;
  both.insert(both.end(), onePass.begin(), onePass.end());
  EXPECT_EQ(depths(), both);
}

TEST_F(FinishPath, AClosedOutlineInThreePassesAndTwoLevels) {
  addSquare();
  store.cfg_min_rough_clearance = 0.05F;
  store.cfg_tool_spacing_distance = 0.2F;
  store.cfg_z_cut_per_pass = 0.25F;
  place(3, {0, 0}, {1, 0}, {1, 1});
  EXPECT_EQ(pathTexts(store), (Texts{"1 (0.5, 0.5)-(1.5, 0.5) @100 z -0.25 f 10",
                                     "1 (1.5, 0.5)-(1.5, 1.5) @100 z -0.25 f 10",
                                     "1 (1.5, 1.5)-(0.5, 1.5) @100 z -0.25 f 10",
                                     "1 (0.5, 1.5)-(0.5, 0.5) @100 z -0.25 f 10",
                                     "1 (0.5, 0.5)-(1.5, 0.5) @100 z -0.5 f 20",
                                     "1 (1.5, 0.5)-(1.5, 1.5) @100 z -0.5 f 20",
                                     "1 (1.5, 1.5)-(0.5, 1.5) @100 z -0.5 f 20",
                                     "1 (0.5, 1.5)-(0.5, 0.5) @100 z -0.5 f 20",
                                     "1 (0.3, 0.3)-(1.7, 0.3) @200 z -0.25 f 10",
                                     "1 (1.7, 0.3)-(1.7, 1.7) @200 z -0.25 f 10",
                                     "1 (1.7, 1.7)-(0.3, 1.7) @200 z -0.25 f 10",
                                     "1 (0.3, 1.7)-(0.3, 0.3) @200 z -0.25 f 10",
                                     "1 (0.3, 0.3)-(1.7, 0.3) @200 z -0.5 f 20",
                                     "1 (1.7, 0.3)-(1.7, 1.7) @200 z -0.5 f 20",
                                     "1 (1.7, 1.7)-(0.3, 1.7) @200 z -0.5 f 20",
                                     "1 (0.3, 1.7)-(0.3, 0.3) @200 z -0.5 f 20",
                                     "1 (0.25, 0.25)-(1.75, 0.25) @300 z -0.25 f 10",
                                     "1 (1.75, 0.25)-(1.75, 1.75) @300 z -0.25 f 10",
                                     "1 (1.75, 1.75)-(0.25, 1.75) @300 z -0.25 f 10",
                                     "1 (0.25, 1.75)-(0.25, 0.25) @300 z -0.25 f 10",
                                     "1 (0.25, 0.25)-(1.75, 0.25) @300 z -0.5 f 20",
                                     "1 (1.75, 0.25)-(1.75, 1.75) @300 z -0.5 f 20",
                                     "1 (1.75, 1.75)-(0.25, 1.75) @300 z -0.5 f 20",
                                     "1 (0.25, 1.75)-(0.25, 0.25) @300 z -0.5 f 20"}));
}

TEST_F(FinishPath, AStartBelowTheFloorMakesOneLevelAtTheFinalDepth) {
  addLine(0, 0, 2, 0);
  setLevels();
  store.cfg_start_depth = 0.99F;
  place(1, {0, 0}, {1, 0}, {1, 2});
  EXPECT_EQ(depths(), (Texts{"-1 f 10"}));
}

TEST_F(FinishPath, AStartAtTheFloorIsTheFirstOfSeveralLevels) {
  addLine(0, 0, 2, 0);
  setLevels();
  store.cfg_start_depth = 0.98F;
  place(1, {0, 0}, {1, 0}, {1, 2});
  EXPECT_EQ(depths(), (Texts{"-0.98 f 10", "-1 f 10"}));
}

TEST_F(FinishPath, ACutOfNothingPerPassPlacesNothing) {
  addLine(0, 0, 2, 0);
  store.cfg_z_cut_per_pass = 0;
  store.cfg_start_depth = 0.1F;
  place(1, {0, 0}, {1, 0}, {1, 2});
  EXPECT_EQ(depths(), Texts{});
  ASSERT_EQ(messages().size(), 1U);
  EXPECT_EQ(messages()[0].text,
            "The Depth Per Pass, Z, is 0.  It must be above 0 for the levels from -0.1 to -0.5."
            "\n\nNothing was placed.  It is set in Pocketing & Profiling Parameters.");
  EXPECT_EQ(messages()[0].title, "Place Finish Path");
  EXPECT_EQ(messages()[0].icon, MessageIcon::Warning);
  EXPECT_EQ(messages()[0].buttons, MessageButtons::Ok);
  EXPECT_EQ(pending(), 0);
  EXPECT_FALSE(cam.changes.log.canUndo());
}

TEST_F(FinishPath, SoForOneSegmentButNotWithoutPasses) {
  addLine(0, 0, 2, 0);
  store.cfg_z_cut_per_pass = -0.25F;
  mnuCAMPlace1PathSeg_Click(cam);
  clicks({0, 0}, {1, 0}, {1, 2});
  EXPECT_TRUE(messages().empty()) << "there are no passes to place before the dialog was closed";
  cam.numFinishPasses = 1;
  mnuCAMPlace1PathSeg_Click(cam);
  clicks({0, 0}, {1, 0}, {1, 2});
  ASSERT_EQ(messages().size(), 1U);
  EXPECT_EQ(messages()[0].text,
            "The Depth Per Pass, Z, is -0.25.  It must be above 0 for the levels from -0.25 to "
            "-0.5.\n\nNothing was placed.  It is set in Pocketing & Profiling Parameters.");
  EXPECT_EQ(messages()[0].title, "Place One Path Segment");
  EXPECT_EQ(store.NumPathSegments, 0);
}

TEST_F(FinishPath, ASingleLevelNeedsNoCutPerPass) {
  addLine(0, 0, 2, 0);
  store.cfg_z_cut_per_pass = 0;
  store.cfg_start_depth = 0.75F;
  place(1, {0, 0}, {1, 0}, {1, 2});
  EXPECT_EQ(depths(), (Texts{"-0.5 f 10"}));
  EXPECT_TRUE(messages().empty());
}

TEST_F(FinishPath, APassThatPlacesNothingCopiesNothing) {
  add({.type = kClockwiseArc, .x0 = 0.2F, .x1 = 0.2F});
  addPathLine(5, 5, 6, 6);
  setLevels();
  place(1, {0.2F, 0}, {-0.2F, 0}, {0.1F, 0});
  EXPECT_EQ(pathTexts(store), (Texts{"1 (5, 5)-(6, 6) @100 z 0"}));
  EXPECT_EQ(beeps(), 0);
}

// Copies are those of the last run in the table: a path that was inserted before another group
// copies that other group. The rules say so; the docs tell the operator.
TEST_F(FinishPath, LevelsOfAPathInsertedBeforeAGroupCopyThatGroup) {
  addLine(0, 0, 2, 0);
  addPathLine(5, 5, 6, 6);
  store.cfg_z_cut_per_pass = 0.25F;
  cam.pathInsertMode = PathInsertMode::BeforeGroup;
  cam.pathInsertGroup = 1;
  place(1, {0, 0}, {1, 0}, {1, 2});
  EXPECT_EQ(pathTexts(store),
            (Texts{"1 (0, 0.25)-(2, 0.25) @200 z -0.25 f 10", "1 (5, 5)-(6, 6) @100 z 0",
                   "1 (5, 5)-(6, 6) @100 z -0.5 f 20"}));
}

// ---- Links

TEST_F(FinishPath, LinksAreMadeOnceAfterTheLastPass) {
  addLine(0, 0, 2, 0);
  store.cfg_connect_pocketing_paths = true;
  store.cfg_min_rough_clearance = 0.05F;
  addPathLine(5, 5, 6, 6);
  place(2, {0, 0}, {1, 0}, {1, 2});
  EXPECT_EQ(
      pathTexts(store),
      (Texts{"1 (5, 5)-(6, 6) @100 z 0", "1 (0, 0.3)-(2, 0.3) @200 z -0.5 f 10",
             "1 (2, 0.3)-(0, 0.25) @300 z -0.5 f 10", "1 (0, 0.25)-(2, 0.25) @300 z -0.5 f 10"}));
}

TEST_F(FinishPath, InsertedPassesAreLinkedAmongThemselvesAlone) {
  addLine(0, 0, 2, 0);
  store.cfg_connect_pocketing_paths = true;
  store.cfg_min_rough_clearance = 0.05F;
  addPathLine(5, 5, 6, 6);
  addPathLine(6, 6, 7, 7, 200);
  cam.pathInsertMode = PathInsertMode::BeforeGroup;
  cam.pathInsertGroup = 2;
  place(2, {0, 0}, {1, 0}, {1, 2});
  EXPECT_EQ(pathTexts(store),
            (Texts{"1 (5, 5)-(6, 6) @100 z 0", "1 (0, 0.3)-(2, 0.3) @300 z -0.5 f 10",
                   "1 (2, 0.3)-(0, 0.25) @400 z -0.5 f 10",
                   "1 (0, 0.25)-(2, 0.25) @400 z -0.5 f 10", "1 (6, 6)-(7, 7) @200 z 0"}));
}

// ---- Gouges

struct FinishPathGouge : FinishPath {
  FinishPathGouge() {
    store.cfg_gouge_avoidance = true;
    store.cfg_lead_in_path = true;
    store.cfg_lead_in_angle = 30;
    store.cfg_lead_in_length = 2;
  }
};

constexpr const char* kLeadQuestion =
    "A possible Gouge was detected betweeen the Lead In/Lead Out paths and the Finishing Path.  We "
    "recommend a Lead In/Out distance of 0.86603.\n\nDo you wish to continue using the recommended "
    "Lead In/Out distance ?";

TEST_F(FinishPathGouge, LeadsThatCrossThePathAreAskedAbout) {
  addSquare();
  place(1, {0, 0}, {1, 0}, {1, 1});
  ASSERT_EQ(messages().size(), 1U);
  EXPECT_EQ(messages()[0].text, kLeadQuestion);
  EXPECT_EQ(messages()[0].title, "Gouge Detected");
  EXPECT_EQ(messages()[0].icon, MessageIcon::Question);
  EXPECT_EQ(messages()[0].buttons, MessageButtons::YesNo);
}

TEST_F(FinishPathGouge, YesShortensBothLeads) {
  addSquare();
  test.recording.prompts.answers = {Answer::Yes};
  place(1, {0, 0}, {1, 0}, {1, 1});
  const Texts rows = pathTexts(store);
  ASSERT_EQ(rows.size(), 7U);
  EXPECT_EQ(rows.front(), "1 (0.25, 0.683)-(1, 0.25) @100 z -0.5 f 10");
  EXPECT_EQ(rows.back(), "1 (1, 0.25)-(1.75, 0.683) @100 z -0.5 f 10");
}

// The folds that such leads make are cut off: of the path, what lies between is lost.
TEST_F(FinishPathGouge, NoKeepsTheLeadsForTheGougeAvoidance) {
  addSquare();
  test.recording.prompts.answers = {Answer::No};
  place(1, {0, 0}, {1, 0}, {1, 1});
  const Texts rows = pathTexts(store);
  EXPECT_EQ(rows, (Texts{"1 (-0.7321, 1.25)-(0.25, 0.683) @100 z -0.5 f 10",
                         "1 (0.25, 0.683)-(0.25, 0.25) @100 z -0.5 f 10",
                         "1 (0.25, 0.25)-(1, 0.25) @100 z -0.5 f 10",
                         "1 (1, 0.25)-(2.7321, 1.25) @100 z -0.5 f 10"}));
}

TEST_F(FinishPathGouge, TheQuestionNeedsLineLeadsAndSeveralLevels) {
  addSquare();
  struct Case {
    const char* name;
    std::function<void()> set;
  };
  const Case kCases[] = {
      {"an arc lead alone",
       [this] {
         store.cfg_lead_in_path = false;
         store.cfg_lead_in_arc = true;
       }},
      {"no angle", [this] { store.cfg_lead_in_angle = 0; }},
      {"no length", [this] { store.cfg_lead_in_length = 0; }},
      {"no gouge avoidance", [this] { store.cfg_gouge_avoidance = false; }},
      {"one level", [this] { store.cfg_start_depth = 0.6F; }},
      {"short enough", [this] { store.cfg_lead_in_length = 0.8F; }},
  };
  const DrawingSettings kept = store;
  for (const Case& row : kCases) {
    static_cast<DrawingSettings&>(store) = kept;
    row.set();
    place(1, {0, 0}, {1, 0}, {1, 1});
    EXPECT_GT(store.NumPathSegments, 0) << row.name;
    EXPECT_TRUE(messages().empty()) << row.name;
    store.NumPathSegments = 0;
  }
}

struct FinishPathNotch : FinishPath {
  // A square with a notch in its lower side that is narrower than the tool.
  FinishPathNotch() {
    store.cfg_gouge_avoidance = true;
    const Point corners[] = {{0, 0},    {1.8F, 0}, {1.8F, -1}, {2.2F, -1},
                             {2.2F, 0}, {4, 0},    {4, 3},     {0, 3}};
    for (std::size_t k = 0; k < 8; ++k) {
      const Point to = corners[(k + 1) % 8];
      addLine(corners[k].x, corners[k].y, to.x, to.y);
    }
  }
};

// The tool dips into the notch as far as its two vertices let it.
TEST_F(FinishPathNotch, TheFoldInTheNotchIsCutOff) {
  place(1, {0, 0}, {1, 0}, {1, 1});
  EXPECT_TRUE(messages().empty());
  EXPECT_EQ(pathTexts(store), (Texts{"1 (0.25, 0.25)-(1.8, 0.25) @100 z -0.5 f 10",
                                     "2 (1.8, 0.25)-(2, 0.15) c (1.8, 0) @100 z -0.5 f 10",
                                     "2 (2, 0.15)-(2.2, 0.25) c (2.2, 0) @100 z -0.5 f 10",
                                     "1 (2.2, 0.25)-(3.75, 0.25) @100 z -0.5 f 10",
                                     "1 (3.75, 0.25)-(3.75, 2.75) @100 z -0.5 f 10",
                                     "1 (3.75, 2.75)-(0.25, 2.75) @100 z -0.5 f 10",
                                     "1 (0.25, 2.75)-(0.25, 0.25) @100 z -0.5 f 10"}));
}

// What gouge avoidance cut off and levels and links that followed included.
TEST_F(FinishPathNotch, UndoStepByStepTakesEverythingBackAndRedoGivesItAgain) {
  store.cfg_connect_pocketing_paths = true;
  store.cfg_min_rough_clearance = 0.05F;
  store.cfg_lead_in_path = true;
  store.cfg_lead_in_angle = 30;
  store.cfg_lead_in_length = 0.2F;
  store.cfg_z_cut_per_pass = 0.25F;
  addPathLine(5, 5, 6, 6);
  const Texts before = pathTexts(store);
  place(2, {0, 0}, {1, 0}, {1, 1});
  const Texts after = pathTexts(store);
  int steps = 0;
  while (context.changelog.canUndo()) {
    Undo_Last_Change(context);
    ++steps;
  }
  EXPECT_EQ(steps, 4);  // two passes of two levels
  EXPECT_EQ(pathTexts(store), before);
  while (context.changelog.canRedo()) RedoLastChange(context);
  EXPECT_EQ(pathTexts(store), after);
}

// ---- Failures

TEST_F(FinishPath, AFailureMidwayLeavesNoPassAndThePointer) {
  addSquare();
  for (int ps = 1; ps <= 32760; ++ps) addPathLine(5, 5, 6, 6);
  start(2);
  click(0, 0);
  click(1, 0);
  EXPECT_EQ(testing::numberOfFailure([&] { click(1, 1); }), FailureNumber::Overflow);
  EXPECT_EQ(store.NumPathSegments, 32760);
  EXPECT_EQ(context.changelog.changecount, 0);
  EXPECT_EQ(store.lastplacedgroup, 1);
  EXPECT_EQ(pointer.MousePointer(), kDefaultShape);
}

}  // namespace
}  // namespace tess
