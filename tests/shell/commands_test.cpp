// Tools and keys at the road of all commands.
#include "shell/commands.h"

#include <algorithm>
#include <functional>

#include "gtest/gtest.h"

#include "core/drawing_store.h"
#include "drafting/drafting_commands.h"
#include "tests/support/running_program.h"

namespace tess {
namespace {

using testing::RunningProgram;

class Commands : public ::testing::Test, public RunningProgram {
 protected:
  ToolHost& tools = application.interaction.tools;
  const std::vector<Form*> openForms = application.interaction.forms.openForms();
};

TEST_F(Commands, TheBandsAreThoseOfTheProgram) {
  for (const char* band : {"miFile", "miEdit", "miDraw", "miView", "miOptions", "miCAM", "miHelp",
                           "Options", "OSnapMenu", "barText", "barStatistics", "barProperties"}) {
    EXPECT_NE(tools.band(band), nullptr) << band;
  }
}

TEST_F(Commands, NamesAreComparedInTheirOrder) {
  const auto place = [](const std::string& name) {
    const auto found =
        std::find_if(commands().begin(), commands().end(),
                     [&](const CommandEntry& row) { return row.info->tool == name; });
    return found - commands().begin();
  };
  const std::vector<const char*> order = {"miNew",
                                          "miExit",
                                          "miUndo",
                                          "miRevPath",
                                          "miLine",
                                          "miReDraw",
                                          "miDrawingTitleBlock",
                                          "miSelectTool",
                                          "miContents",
                                          "VGrid",
                                          "CGrid",
                                          "OSnap",
                                          "miOSnapEndpoints",
                                          "miOSnapPerpendicularSingle",
                                          "miInvisible"};
  for (std::size_t at = 1; at < order.size(); ++at) {
    EXPECT_LT(place(order[at - 1]), place(order[at])) << order[at];
  }
}

TEST_F(Commands, AToolThatMatchesNoEntryDoesNothing) {
  EXPECT_FALSE(application.clickTool("miNothing"));
  abMain_ToolClick(application, "miNothing");
  abMain_ToolClick(application, "");
  EXPECT_EQ(pendingaction(), 0);
  EXPECT_EQ(DrawMode(), 0);
  EXPECT_TRUE(platform.prompts.messages.empty());
}

TEST_F(Commands, RecentFilesAreTheNamesBetweenTheFirstAndTheLast) {
  application.session.recentfiles[1] = home("gone.cdm");
  abMain_ToolClick(application, "miRecentFile");
  abMain_ToolClick(application, "miRecentFileX");
  EXPECT_TRUE(platform.prompts.messages.empty()) << "these are none";
  abMain_ToolClick(application, "miRecentFile2");
  ASSERT_EQ(platform.prompts.messages.size(), 1U) << "this one is tried, and is not there";
}

struct SnapTool {
  const char* tool;
  int kind;
};

constexpr SnapTool kSnapTools[] = {
    {"miOSnapEndpoints", 1}, {"miOSnapCenter", 2},        {"miOSnapMidpoint", 3},
    {"miOSnapQuadrant", 4},  {"miOSnapPerpendicular", 5},
};

SnapSet only(int kind) {
  SnapSet set{};
  set[static_cast<std::size_t>(kind)] = true;
  return set;
}

TEST_F(Commands, SnapEntriesCarryTheirKindAndTurnItOverWhileTheButtonIsDown) {
  CState& state = application.interaction.context.state;
  application.clickTool("OSnap");
  for (const auto& [tool, kind] : kSnapTools) {
    EXPECT_EQ(tools.tool(tool)->tag, std::to_string(kind));
    const bool before = state.OSnapFeatures[static_cast<std::size_t>(kind)];
    application.clickTool(tool);
    EXPECT_EQ(state.OSnapFeatures[static_cast<std::size_t>(kind)], !before) << tool;
    EXPECT_EQ(state.OSnapActive, state.OSnapFeatures) << tool;
  }
}

TEST_F(Commands, SnapEntriesOfferTheirKindOnceWhileTheButtonIsUp) {
  CState& state = application.interaction.context.state;
  const SnapSet persistent = state.OSnapFeatures;
  for (const auto& [tool, kind] : kSnapTools) {
    application.interaction.resetPendingAction();
    application.clickTool(tool);
    EXPECT_EQ(state.OSnapActive, only(kind)) << tool;
  }
  EXPECT_EQ(state.OSnapFeatures, persistent);
}

TEST_F(Commands, SingleSnapEntriesOfferTheirKindOnceInEitherState) {
  CState& state = application.interaction.context.state;
  for (const bool down : {false, true}) {
    if (down) application.clickTool("OSnap");
    const SnapSet persistent = state.OSnapFeatures;
    for (const auto& [tool, kind] : kSnapTools) {
      const std::string single = std::string(tool) + "Single";
      EXPECT_EQ(tools.tool(single)->tag, std::to_string(kind));
      application.interaction.resetPendingAction();
      application.clickTool(single);
      EXPECT_TRUE(state.OSnapActive[static_cast<std::size_t>(kind)]) << single;
    }
    EXPECT_EQ(state.OSnapFeatures, persistent);
  }
}

TEST_F(Commands, OpeningTheSnapMenuMarksThePersistentKinds) {
  application.clickTool("OSnap");
  tools.openBand("OSnapMenu");
  EXPECT_EQ(tools.tool("miOSnapEndpoints")->caption, "× Endpoints");
  EXPECT_EQ(tools.tool("miOSnapMidpoint")->caption, "  Midpoint");
  tools.closeBand("OSnapMenu");
  application.clickTool("OSnap");
  tools.openBand("OSnapMenu");
  EXPECT_EQ(tools.tool("miOSnapEndpoints")->caption, "  Endpoints");
}

// A tool either has a command or stands disabled; commands that arm an action do so by tool.
TEST_F(Commands, ToolsArmTheirActions) {
  application.store.NumSegments = 0;
  AddSeg(application.store, {.type = 1, .x1 = 1}, nullptr);
  addPathSegment(application.store, {.type = 1, .x1 = 1, .code = 100});
  const struct {
    const char* tool;
    int pendingaction;
    int DrawMode;
  } cases[] = {
      {"miLine", 0, 1},
      {"miRectangle", 0, 6},
      {"miArc3P", 0, 2},
      {"miArcC+2P", 0, 3},
      {"miCircle3P", 0, 5},
      {"miCircleC+1P", 0, 7},
      {"miSelect", 24, -1},
      {"miUnselect", 25, -1},
      {"miSelectContiguous", 31, -1},
      {"miUnselectContiguous", 32, -1},
      {"miDelete", 1, 0},
      {"miCopy", 8, 0},
      {"miFlipArc", 2, 0},
      {"miRevArcDir", 14, 0},
      {"miJoinEndpoints", 18, 0},
      {"miMoveEndpoints", 10, 0},
      {"miBreakSegment", 9, 0},
      {"miJoinEndPtsArc", 43, 0},
      {"miDeleteVertex", 34, 0},
      {"miChangeRadius", 4, 0},
      {"miMoveProfile", 7, 0},
      {"miAddFillet", 46, 0},
      {"miSetOrigin", 35, 0},
      {"miTrimEntity", 16, 0},
      {"miEntityInfo", 6, 0},
      {"miRevPath", 42, 0},
      {"miMeasureDist", 36, 0},
  };
  for (const auto& [tool, action, mode] : cases) {
    application.interaction.resetPendingAction();
    EXPECT_TRUE(application.clickTool(tool)) << tool;
    EXPECT_EQ(pendingaction(), action) << tool;
    EXPECT_EQ(DrawMode(), mode) << tool;
  }
}

// ---- Keys

TEST_F(Commands, LettersArmTheirActionsInEitherCase) {
  AddSeg(application.store, {.type = 1, .x1 = 1}, nullptr);
  const struct {
    char key;
    int pendingaction;
    int DrawMode;
  } cases[] = {
      {'A', 0, 2}, {'B', 9, 0}, {'C', 8, 0}, {'D', 14, 0}, {'F', 2, 0},  {'J', 18, 0},
      {'L', 0, 1}, {'M', 7, 0}, {'R', 0, 6}, {'T', 16, 0}, {'V', 10, 0}, {'\t', 6, 0},
  };
  for (const auto& [key, action, mode] : cases) {
    for (const int lower : {0, 'a' - 'A'}) {
      if (key == '\t' && lower != 0) continue;
      application.interaction.resetPendingAction();
      type(static_cast<char>(key + lower));
      EXPECT_EQ(pendingaction(), action) << key;
      EXPECT_EQ(DrawMode(), mode) << key;
      if (action == 0) continue;
      EXPECT_EQ(application.interaction.context.command.LastCommand, action) << key;
    }
  }
}

// Where a command leaves the interaction that was in the middle of a three-point command.
struct Interruption {
  int pendingaction = 0, DrawMode = 0, LastCommand = 0, clickstage = 0;
  bool secondCrossShown = false;
  std::string prompt;
  bool operator==(const Interruption&) const = default;
};

// Of a program of its own, whose forms are accepted as they open.
Interruption after(const std::function<void(Application&)>& command) {
  RunningProgram program;
  AddSeg(program.application.store, {.type = 1, .x1 = 1}, nullptr);
  program.platform.prompts.onForm = [](Form& form) { form.pressDefault(); };
  program.application.clickTool("miCircle3P");
  program.click({2, 2});
  const CommandRecord& record = program.context().command;
  EXPECT_EQ(record.clickstage, 1);
  command(program.application);
  return {program.pendingaction(), program.DrawMode(),
          record.LastCommand,      record.clickstage,
          record.secondCrossShown, program.application.interaction.statusBar.text()};
}

TEST(CommandTwins, AKeyDoesAllThatItsToolDoes) {
  int keys = 0;
  for (const CommandEntry& command : commands()) {
    const std::optional<KeyStroke> key = keyNamed(command.info->key);
    if (!key) continue;
    ++keys;
    const Interruption byKey = after([&](Application& program) { program.key(*key); });
    EXPECT_EQ(byKey, after([&](Application& program) { program.clickTool(command.info->tool); }))
        << command.info->tool;
  }
  EXPECT_GE(keys, 12);
}

TEST(CommandTwins, EveryCommandThatDrawsOrArmsDropsAHalfDoneOne) {
  int dropped = 0;
  for (const DraftingCommand* const command : draftingCommands()) {
    const bool drawsOrArms = command->mode.number != kNoMode || !command->actions.empty();
    if (!drawsOrArms) continue;
    ++dropped;
    const Interruption left =
        after([&](Application& program) { program.clickTool(command->info.tool); });
    EXPECT_EQ(left.clickstage, 0) << command->info.tool;
    EXPECT_FALSE(left.secondCrossShown) << command->info.tool;
  }
  EXPECT_GE(dropped, 25);
}

bool isAKey(char character) {
  const auto means = [character](const char* name) {
    const std::optional<KeyStroke> key = keyNamed(name);
    return key && key->special == SpecialKey::None && key->ascii == character;
  };
  const std::vector<const char*> alone = keysWithoutTool();
  return std::any_of(alone.begin(), alone.end(), means) ||
         std::any_of(commands().begin(), commands().end(),
                     [&](const CommandEntry& command) { return means(command.info->key); });
}

// Small letters are the same keys, so only what no capital stands for is tried.
TEST_F(Commands, OtherLettersDoNothing) {
  const auto statusBefore = application.interaction.statusBar.text();
  int tried = 0;
  for (int code = 1; code < 0x7F; ++code) {
    const char key = static_cast<char>(code);
    const bool small = key >= 'a' && key <= 'z';
    if (isAKey(small ? static_cast<char>(key - 'a' + 'A') : key)) continue;
    ++tried;
    type(key);
    EXPECT_EQ(pendingaction(), 0) << code;
    EXPECT_EQ(DrawMode(), 0) << code;
    EXPECT_TRUE(platform.prompts.messages.empty()) << code;
    EXPECT_TRUE(platform.prompts.formNames.empty()) << code;
    EXPECT_TRUE(platform.prompts.fileRequests.empty()) << code;
    EXPECT_EQ(application.interaction.forms.openForms(), openForms) << code;
    EXPECT_EQ(application.interaction.statusBar.text(), statusBefore) << code;
  }
  EXPECT_GT(tried, 60);
}

TEST_F(Commands, PWithAnEmptyPasteBufferDoesNothing) {
  type('P');
  EXPECT_EQ(application.store.NumSegments, 0);
  EXPECT_TRUE(platform.prompts.messages.empty());
}

TEST_F(Commands, PressingTTwiceArmsTheTrimOnce) {
  type('T');
  type('T');
  EXPECT_EQ(pendingaction(), 16);
  type('\x1b');
  EXPECT_EQ(pendingaction(), 0) << "one Esc disarms it";
}

TEST_F(Commands, F3AndF12ArmAFinishedCommandAgain) {
  for (const SpecialKey key : {SpecialKey::F3, SpecialKey::F12}) {
    type('T');
    type('\x1b');
    type(key);
    EXPECT_EQ(pendingaction(), 16);
    type('\x1b');
  }
}

TEST_F(Commands, RepeatKeysWithAModifierDoNothing) {
  type('T');
  type('\x1b');
  application.key({.special = SpecialKey::F3, .shift = true});
  application.key({.special = SpecialKey::F12, .control = true});
  EXPECT_EQ(pendingaction(), 0);
}

TEST_F(Commands, InsertClicksRightUnlessShiftIsHeld) {
  application.move({.X = 2, .Y = 1});
  application.key({.special = SpecialKey::Insert, .shift = true});
  EXPECT_EQ(application.store.markerx, 0);
  application.key({.special = SpecialKey::Insert, .control = true});
  EXPECT_EQ(application.store.markerx, 2);
  EXPECT_EQ(application.store.markery, 1);
}

TEST_F(Commands, EnterClicksLeftAtThePresentPosition) {
  type('L');
  application.move({.X = 2, .Y = 1});
  type(SpecialKey::Enter);
  ASSERT_EQ(application.store.NumSegments, 1);
  EXPECT_EQ(application.store.x1[1], 2);
  application.move({.X = 3, .Y = 1});
  application.key({.special = SpecialKey::Enter, .shift = true});
  EXPECT_EQ(application.store.NumSegments, 2);
}

TEST_F(Commands, ArrowKeysMoveThePositionByOnePixel) {
  pass(1000);  // the first picture gives the surface its scale
  application.move({.X = 1, .Y = 1});
  const PointerRecord& pointer = application.interaction.context.pointer;
  const auto pixel = static_cast<float>(1 / PixelsPerInchX(application.interaction.ScreenProxy));
  type(SpecialKey::Right);
  EXPECT_FLOAT_EQ(pointer.MouseX, 1 + pixel);
  type(SpecialKey::Up);
  EXPECT_FLOAT_EQ(pointer.MouseY, 1 + pixel);
  application.key({.special = SpecialKey::Left, .shift = true});
  type(SpecialKey::Down);
  EXPECT_FLOAT_EQ(pointer.MouseX, 1);
  EXPECT_FLOAT_EQ(pointer.MouseY, 1);
}

TEST_F(Commands, CtrlRRedraws) {
  application.interaction.statusBar.setText("stale");
  type('\x12');
  EXPECT_EQ(application.interaction.statusBar.text(), "");
}

TEST_F(Commands, F3AfterEnterPositionOpensTheDialogAgain) {
  type('e');
  type(SpecialKey::F3);
  EXPECT_EQ(platform.prompts.formNames,
            (std::vector<std::string>{"dlgPositionCursor", "dlgPositionCursor"}));
}

TEST_F(Commands, AToolArmsNoMenuGuard) {
  type('B');
  application.clickTool("miTrimEntity");
  click({1, 1});
  EXPECT_EQ(pendingaction(), 0) << "the click ran the trim";
}

TEST_F(Commands, ALoadedSetupPutsSnapBack) {
  CState& state = application.interaction.context.state;
  application.clickTool("OSnap");
  application.clickTool("miOSnapEndpoints");
  application.clickTool("miOSnapMidpoint");
  ASSERT_TRUE(state.OSnapFeatures[3]);
  platform.prompts.files.emplace_back(home("test.msu"));
  application.clickTool("miLoadSetup");
  EXPECT_EQ(state.OSnapFeatures, (SnapSet{false, true, true, false, false, true, false}));
  EXPECT_FALSE(state.OSnapOn);
  EXPECT_EQ(state.OSnapActive, SnapSet{});
  EXPECT_EQ(state.OSnapRadius, 0.1F);
  EXPECT_FALSE(tools.isChecked("OSnap"));
}

TEST_F(Commands, TheStatisticsPanelShowsCountsAndZoom) {
  const class frmStatistics& panel = application.interaction.frmStatistics;
  EXPECT_TRUE(panel.isShown());
  type('L');
  click({1, 1});
  type('I');
  EXPECT_EQ(panel.lblEntities.caption(), "1");
  EXPECT_EQ(panel.lblToolPaths.caption(), "0");
  EXPECT_EQ(panel.lblZoomLevel.caption(), " 2");
  application.clickTool("miZoomOut");
  application.clickTool("miZoomOut");
  EXPECT_EQ(panel.lblZoomLevel.caption(), "1 / 2");
  application.clickTool("miShowStatistics");
  EXPECT_FALSE(panel.isShown());
  application.clickTool("miShowStatistics");
  EXPECT_TRUE(panel.isShown());
}

TEST_F(Commands, ZoomKeys) {
  const float full = application.interaction.view.viewspan;
  type('i');
  EXPECT_EQ(application.interaction.view.viewspan, full / 2);
  type('O');
  EXPECT_EQ(application.interaction.view.viewspan, full);
}

TEST_F(Commands, WhileTextIsPlacedTheZoomKeysAndToolsAreInert) {
  const float full = application.interaction.view.viewspan;
  application.interaction.context.state.setPendingaction(30);
  for (const char key : {'i', 'I', 'o', 'O'}) type(key);
  application.clickTool("miZoomIn");
  application.clickTool("miZoomOut");
  EXPECT_EQ(application.interaction.view.viewspan, full);
}

TEST_F(Commands, GFlipsBothGrids) {
  DrawingStore& store = application.store;
  store.visualgridf = 1;
  store.cursorgridf = 0;
  type('G');
  EXPECT_EQ(store.visualgridf, 0);
  EXPECT_EQ(store.cursorgridf, 1);
  EXPECT_FALSE(tools.isChecked("VGrid"));
  EXPECT_TRUE(tools.isChecked("CGrid"));
}

TEST_F(Commands, ProgramsByKey) {
  for (const char key : {'\x0C', '\x0D'}) {
    platform.prompts.messages.clear();
    type(key);
    ASSERT_EQ(platform.prompts.messages.size(), 1U);
    EXPECT_EQ(platform.prompts.messages.front().text, "No Path Segments Placed!");
  }
}

TEST_F(Commands, TheDeleteKeyArmsTheDeletion) {
  type(SpecialKey::Delete);
  EXPECT_EQ(pendingaction(), 1);
}

}  // namespace
}  // namespace tess
