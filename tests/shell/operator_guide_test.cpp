// What the window tells: what buttons, wheel and keys do for every action and mode there is, what
// may come next through a whole job, the state of the drawing, and the results of commands.
#include "shell/operator_guide.h"

#include <set>

#include "gtest/gtest.h"

#include "core/drawing_store.h"
#include "drafting/drafting_commands.h"
#include "drafting/entity_creation.h"
#include "drafting/pending_actions.h"
#include "import/import_commands.h"
#include "shell/keys.h"
#include "tests/support/running_program.h"
#include "tests/support/write_file.h"
#include "toolpath/toolpath_commands.h"

namespace tess {
namespace {

using testing::RunningProgram;
using Texts = std::vector<std::string>;

class Guide : public ::testing::Test, public RunningProgram {
 protected:
  Guide() { pass(1000); }

  std::string shown(StatusPanel panel) { return application.interaction.statusBar.panel(panel); }
  std::string guide() { return shown(StatusPanel::Guide); }
  void settle() {
    application.guarded("test", [] {});
  }
  void arm(PendingAction action) {
    application.guarded("test", [&] { tess::arm(context(), action); });
  }
  std::string armedTool() {
    std::string armed;
    for (const std::string& name : tools().toolNames()) {
      if (tools().tool(name)->armed) armed += name;
    }
    return armed;
  }
  std::string lastResult() {
    const auto& told = application.session.results.told();
    return told.empty() ? "" : told.back().text;
  }

  DrawingStore& store = application.store;
};

// ---- Every action and every mode

TEST_F(Guide, EveryActionSaysWhatTheButtonsDo) {
  std::set<std::string> lefts;
  int actions = 0;
  for (int number = 1; number < kActionNumbers; ++number) {
    const ActionText* const action = findAction(context(), number);
    if (action == nullptr) continue;
    SCOPED_TRACE(action->prompt);
    ++actions;
    EXPECT_STRNE(action->left, "") << "the descriptor has to say what its click does";
    arm(static_cast<PendingAction>(number));
    const PointerGuide guide = pointerGuide(application.interaction);
    EXPECT_EQ(guide.left, std::string(action->drags ? "drag " : "click ") + action->left);
    EXPECT_EQ(guide.right, "cancels");
    EXPECT_EQ(guide.keys.substr(0, 11), "Esc cancels");
    EXPECT_EQ(shown(StatusPanel::Guide), guideText(guide));
    application.key(*keyNamed("Esc"));
    EXPECT_EQ(pendingaction(), 0);
  }
  EXPECT_EQ(actions, 39);
}

TEST_F(Guide, EveryModeSaysWhatTheButtonsDo) {
  EXPECT_GE(context().modes.size(), 6U);
  for (const DraftingCommand* const command : context().modes) {
    SCOPED_TRACE(command->info.tool);
    EXPECT_STRNE(command->mode.left, "") << "the descriptor has to say what its click does";
    EXPECT_EQ(command->mode.threePoints, *command->mode.secondLeft != '\0');
    application.clickTool(command->info.tool);
    EXPECT_EQ(pointerGuide(application.interaction).left,
              std::string("click ") + command->mode.left);
    EXPECT_EQ(pointerGuide(application.interaction).right, "moves the marker");
    if (!command->mode.threePoints) continue;
    click({1, 1});
    EXPECT_EQ(pointerGuide(application.interaction).left,
              std::string("click ") + command->mode.secondLeft);
    EXPECT_EQ(pointerGuide(application.interaction).right, "drops the shape and moves the marker");
    click({2, 1}, kRightButton);
    EXPECT_EQ(context().command.clickstage, 0);
  }
}

// Every command that arms something is named while its action waits, and its tool shows it.
TEST_F(Guide, TheArmedCommandIsNamedAndItsToolShowsIt) {
  AddSeg(store, {.type = kLine, .x1 = 1}, nullptr);
  addPathSegment(store, {.type = kLine, .x1 = 1, .code = 100});
  platform.prompts.onForm = [](Form& form) { form.pressDefault(); };
  int armed = 0;
  for (int number = 1; number < kActionNumbers; ++number) {
    const CommandInfo* const command = context().actionCommands[static_cast<std::size_t>(number)];
    if (command == nullptr) continue;
    SCOPED_TRACE(command->tool);
    ++armed;
    arm(static_cast<PendingAction>(number));
    EXPECT_NE(armedTool(), "");
    EXPECT_NE(pointerGuide(application.interaction).command, "");
    application.key(*keyNamed("Esc"));
    EXPECT_EQ(armedTool(), "");
  }
  EXPECT_GE(armed, 30);
}

TEST_F(Guide, ATextsToolShowsWhileItIsPlaced) {
  arm(PendingAction::PlaceText);
  EXPECT_EQ(armedTool(), "miText");
  EXPECT_EQ(pointerGuide(application.interaction).wheel,
            "spaces the letters, with Ctrl turns, with Shift bends, with both sizes the text");
}

TEST_F(Guide, TheTwoPlacingCommandsAreToldApart) {
  AddSeg(store, {.type = kLine, .x1 = 1}, nullptr);
  application.clickTool("miPlaceOnePathSegment");
  EXPECT_EQ(armedTool(), "miPlaceOnePathSegment");
  application.clickTool("miPlaceFinishPath");
  EXPECT_EQ(armedTool(), "miPlaceFinishPath");
}

TEST_F(Guide, TheArmedMarkIsNoCheckMarkAndStandsInNoLayout) {
  const std::string layout = tools().layoutText();
  application.clickTool("miSetOrigin");
  EXPECT_EQ(armedTool(), "miSetOrigin");
  EXPECT_FALSE(tools().isChecked("miSetOrigin"));
  EXPECT_EQ(tools().layoutText(), layout);
}

// ---- Words

TEST_F(Guide, SaysItInOneLine) {
  application.clickTool("miLine");
  EXPECT_EQ(guide(),
            "Line: left click next point, right click moves the marker, type x,y or @dx,dy or "
            "@length<angle");
  application.clickTool("miDelete");
  EXPECT_EQ(guide(),
            "Delete: left click deletes the nearest item, right click cancels, Esc cancels");
  application.clickTool("miMeasureDist");
  EXPECT_EQ(guide(),
            "Measure Distance: left drag from the start point to the end point, right click "
            "cancels, Esc cancels");
}

TEST_F(Guide, TellsOfTheWheelWhereItZooms) {
  application.clickTool("miDelete");
  EXPECT_EQ(pointerGuide(application.interaction).wheel, "");
  store.desktopkeys = true;
  settle();
  EXPECT_EQ(guide(),
            "Delete: left click deletes the nearest item, right click cancels, wheel zooms, its "
            "button pans, Esc cancels");
  arm(PendingAction::PlaceText);
  EXPECT_EQ(pointerGuide(application.interaction).wheel.substr(0, 18), "spaces the letters");
}

TEST_F(Guide, AnUnknownActionHasNoGuide) {
  context().state.setPendingaction(40);
  settle();
  EXPECT_EQ(guide(), "");
}

TEST_F(Guide, TheRepeatKeyIsOfferedWhileNothingIsArmed) {
  AddSeg(store, {.type = kLine, .x1 = 1}, nullptr);
  application.clickTool("miBreakSegment");
  application.key(*keyNamed("Esc"));
  EXPECT_EQ(guide(),
            "Select Contiguous takes an outline: right click moves the marker, F3 repeats Break "
            "Segment");
}

// ---- A whole job

TEST_F(Guide, LeadsThroughAPocketToAProgram) {
  store.toolradius[0] = 0.125F;
  store.selectedtool = 0;
  EXPECT_EQ(guide(),
            "Draw by Line (L) or Rectangle (R) from the marker, or open a drawing: right click "
            "moves the marker");
  application.clickTool("miRectangle");
  EXPECT_EQ(pointerGuide(application.interaction).left, "click opposite corner");
  EXPECT_EQ(application.typePosition("3,2"), "");
  EXPECT_EQ(lastResult(), "4 rows added");
  application.clickTool("miSelectContiguous");
  EXPECT_EQ(pointerGuide(application.interaction).keys,
            "Esc cancels; next: Select Contiguous takes an outline");
  click({1.5F, 0.1F});
  EXPECT_EQ(shown(StatusPanel::Selected), "4 rows selected");
  EXPECT_EQ(pointerGuide(application.interaction).keys,
            "Esc cancels; next: Verify/Accept Pocket takes what is selected");
  application.clickTool("miVerify/AcceptPocket");
  EXPECT_EQ(lastResult(), "Pocket verified, 4 rows");
  EXPECT_EQ(shown(StatusPanel::Selected), "0 rows selected, 4 verified");
  EXPECT_EQ(pointerGuide(application.interaction).command,
            "Rough Cut Pocket or Place Finish Path cuts what is verified");
  Change change(context().changes);
  change.paths.append({.type = kLine, .x1 = 2, .z = -0.5F, .feed = 10, .code = 100});
  change.keep();
  settle();
  EXPECT_EQ(lastResult().substr(0, 12), "1 path row, ");
  EXPECT_EQ(lastResult().substr(lastResult().size() - 4), " min");
  EXPECT_EQ(pointerGuide(application.interaction).command,
            "Place Finish Path finishes a wall, Make CNC Mill File (Ctrl+M) makes a program");
  store.lathesetup = true;
  EXPECT_EQ(pointerGuide(application.interaction).command,
            "Place Finish Path finishes a wall, Make CNC Lathe File (Ctrl+L) makes a program");
}

// ---- State

TEST_F(Guide, ShowsWhetherWorkIsSavedTheUnitsAndThePlace) {
  settle();
  EXPECT_EQ(shown(StatusPanel::Modified), "Unchanged");
  EXPECT_EQ(shown(StatusPanel::Units), "inch");
  application.clickTool("miLine");
  click({1, 1});
  EXPECT_EQ(shown(StatusPanel::Modified), "Modified");
  application.move({.X = 1, .Y = 3});
  EXPECT_EQ(shown(StatusPanel::Relative), "From marker: 0.0000, 2.0000; 2.0000 at 90.00");
  application.move({.X = 0, .Y = 1});
  EXPECT_EQ(shown(StatusPanel::Relative), "From marker: -1.0000, 0.0000; 1.0000 at 180.00");
  application.move({.X = 2, .Y = 0});
  EXPECT_EQ(shown(StatusPanel::Relative), "From marker: 1.0000, -1.0000; 1.4142 at 315.00");
  store.units = "M";
  settle();
  EXPECT_EQ(shown(StatusPanel::Units), "mm");
}

TEST_F(Guide, CountsPathRowsWhileTheyAreEdited) {
  addPathSegment(store, {.type = kLine, .x1 = 1, .code = 100 + kSelected});
  context().command.EditPaths = true;
  settle();
  EXPECT_EQ(shown(StatusPanel::Selected), "1 path row selected");
}

TEST_F(Guide, NamesWhatThePointerSnapsTo) {
  settle();
  store.cursorgridf = 0;
  settle();
  EXPECT_EQ(shown(StatusPanel::Snap), "No snap");
  store.cursorgridf = 1;
  store.cursorgrid = 0.5F;
  settle();
  EXPECT_EQ(shown(StatusPanel::Snap), "Snap: grid");
  AddSeg(store, {.type = kLine, .x1 = 3, .y1 = 1}, nullptr);
  store.hoverpreview = true;
  application.clickTool("OSnap");
  application.move({.X = 2.9F, .Y = 1});
  EXPECT_EQ(shown(StatusPanel::Snap), "Snap: end point");
  application.leave();
  EXPECT_EQ(shown(StatusPanel::Snap), "Snap: grid");
}

// ---- Results

TEST_F(Guide, RowsThatCameAndWentAreAResult) {
  application.clickTool("miRectangle");
  click({3, 2});
  EXPECT_EQ(lastResult(), "4 rows added");
  application.clickTool("miUndo");
  EXPECT_EQ(lastResult(), "4 rows removed");
  const std::size_t told = application.session.results.count();
  application.clickTool("miUndo");
  application.move({.X = 2, .Y = 0});
  EXPECT_EQ(application.session.results.count(), told) << "nothing came of these";
}

TEST_F(Guide, SelectingIsNoResult) {
  AddSeg(store, {.type = kLine, .x1 = 1}, nullptr);
  application.clickTool("miSelectAll");
  EXPECT_EQ(lastResult(), "");
}

TEST_F(Guide, WithNothingSelectedVerifyingSaysWhatToDo) {
  application.clickTool("miVerify/AcceptIsland");
  EXPECT_EQ(lastResult(), "Nothing to verify: select the rows of one outline first");
}

TEST_F(Guide, AnOutlineThatDoesNotCloseIsNotVerified) {
  AddSeg(store, {.type = kLine, .x1 = 1}, nullptr);
  AddSeg(store, {.type = kLine, .x0 = 1, .x1 = 1, .y1 = 1}, nullptr);
  application.clickTool("miSelectAll");
  application.clickTool("miVerify/AcceptIsland");
  EXPECT_EQ(lastResult(), "Island not verified: the outline does not close");
}

TEST_F(Guide, FilesAreResults) {
  AddSeg(store, {.type = kLine, .x1 = 1}, nullptr);
  addPathSegment(store, {.type = kLine, .x1 = 1, .feed = 10, .code = 100});
  platform.prompts.files.emplace_back(home("CNC/PART.CDM"));
  application.clickTool("miSaveAs");
  EXPECT_EQ(lastResult(), "Saved: PART.CDM, 1 row, 1 path row");
  platform.prompts.files.emplace_back(home("CNC/PART.CDM"));
  application.clickTool("miOpen");
  EXPECT_EQ(lastResult(), "Opened: PART.CDM, 1 row, 1 path row");
  application.clickTool("miMakeCNCFile");
  const std::string program = home.read("CNC/PART.CNC");
  const auto lines = std::count(program.begin(), program.end(), '\n');
  EXPECT_GT(lines, 20);
  EXPECT_EQ(lastResult(), "Written: PART.CNC, " + std::to_string(lines) + " lines");
}

// ---- A program of another kind

class OtherKind : public Guide {
 protected:
  OtherKind() {
    AddSeg(store, {.type = kLine, .x1 = 1}, nullptr);
    addPathSegment(store, {.type = kLine, .x1 = 1, .feed = 10, .code = 100});
    platform.prompts.files.emplace_back(home("CNC/PART.CDM"));
    application.clickTool("miSaveAs");
    application.clickTool("miMakeCNCLatheFile");
    platform.prompts.messages.clear();
  }
};

TEST_F(OtherKind, IsAskedAboutBeforeItIsReplaced) {
  store.cfg_true_paths = true;
  application.cnc.objections = nullptr;
  const std::string lathe = home.read("CNC/PART.CNC");
  platform.prompts.answers.push_back(Answer::No);
  application.clickTool("miMakeCNCFile");
  ASSERT_EQ(platform.prompts.messages.size(), 1U);
  EXPECT_EQ(platform.prompts.messages[0].text,
            "PART.CNC holds a lathe program, and this one is for a mill.\n"
            "Do you want to write the program anyway ?");
  EXPECT_EQ(home.read("CNC/PART.CNC"), lathe);
  platform.prompts.answers.push_back(Answer::Yes);
  application.clickTool("miMakeCNCFile");
  EXPECT_NE(home.read("CNC/PART.CNC"), lathe);
  EXPECT_EQ(lastResult().substr(lastResult().rfind(',')), ", in place of a lathe program");
}

TEST_F(OtherKind, IsToldAfterwardsWhereNothingMayBeAsked) {
  store.cfg_true_paths = false;
  application.clickTool("miMakeCNCFile");
  EXPECT_TRUE(platform.prompts.messages.empty());
  EXPECT_EQ(lastResult().substr(lastResult().rfind(',')), ", in place of a lathe program");
  application.clickTool("miMakeCNCLatheFile");
  EXPECT_EQ(lastResult().substr(lastResult().rfind(',')), ", in place of a mill program");
  application.clickTool("miMakeCNCLatheFile");
  EXPECT_EQ(lastResult().substr(lastResult().size() - 6), " lines");
}

}  // namespace
}  // namespace tess
