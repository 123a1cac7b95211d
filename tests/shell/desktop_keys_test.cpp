// The keys of the desktop beside those of the program.
#include "shell/desktop_keys.h"

#include <map>
#include <set>
#include <string>
#include <vector>

#include "gtest/gtest.h"

#include "core/drawing_store.h"
#include "tests/support/running_program.h"

namespace tess {
namespace {

using testing::RunningProgram;

class DesktopKeys : public ::testing::Test, public RunningProgram {
 protected:
  DesktopKeys() {
    application.guarded("test", [this] { application.store.desktopkeys = true; });
  }

  void press(const char* key) { application.key(keyNamed(key).value()); }
  void addLine(float x) { AddSeg(application.store, {.type = 1, .x0 = x, .x1 = 1}, nullptr); }
  std::string keyOf(const char* tool) { return tools().tool(tool)->key; }
};

bool isTheProgramsOwn(const KeyStroke& stroke) {
  if (commandOfKey(stroke) != nullptr) return true;
  for (const char* name : keysWithoutTool()) {
    const KeyStroke own = keyNamed(name).value();
    if (own.special == stroke.special && own.ascii == stroke.ascii) return true;
  }
  return false;
}

TEST(DesktopKeyTable, NoKeyHasAMeaningOfTheProgramsOwn) {
  std::set<std::string> keys;
  for (const DesktopKey& row : desktopKeys()) {
    const std::optional<KeyStroke> stroke = keyNamed(row.key);
    ASSERT_TRUE(stroke) << row.key;
    EXPECT_FALSE(isTheProgramsOwn(*stroke)) << row.key;
    EXPECT_TRUE(keys.insert(row.key).second) << row.key;
    EXPECT_EQ(desktopKeyOf(*stroke), &row) << row.key;
  }
  for (const char* own : {"Ctrl+L", "Ctrl+M", "Ctrl+R", "Delete", "F3", "Tab", "Esc"}) {
    EXPECT_EQ(desktopKeyOf(keyNamed(own).value()), nullptr) << own;
    EXPECT_TRUE(isTheProgramsOwn(keyNamed(own).value())) << own;
  }
}

TEST(DesktopKeyTable, HasWhatADesktopHas) {
  std::map<std::string, std::string> tools;
  for (const DesktopKey& row : desktopKeys()) tools[row.key] = row.tool;
  EXPECT_EQ(tools, (std::map<std::string, std::string>{{"Ctrl+N", "miNew"},
                                                       {"Ctrl+O", "miOpen"},
                                                       {"Ctrl+S", "miSave"},
                                                       {"Ctrl+Shift+S", "miSaveAs"},
                                                       {"Ctrl+Z", "miUndo"},
                                                       {"Ctrl+Y", "miRedo"},
                                                       {"Ctrl+Shift+Z", "miRedo"},
                                                       {"Ctrl+A", "miSelectAll"},
                                                       {"Ctrl+C", "miCopy"},
                                                       {"Ctrl+X", "miCut"},
                                                       {"Ctrl+V", "miPaste"},
                                                       {"Ctrl+P", "miPrintPicture"},
                                                       {"Ctrl+Q", "miExit"},
                                                       {"+", "miZoomIn"},
                                                       {"-", "miZoomOut"},
                                                       {"Home", "miFullView"},
                                                       {"Space", ""}}));
}

TEST(DesktopKeyTable, ShiftCountsBesideCtrlAlone) {
  EXPECT_STREQ(desktopKeyOf({.ascii = '+', .shift = true})->tool, "miZoomIn");
  EXPECT_STREQ(desktopKeyOf({.ascii = '+', .control = true})->tool, "miZoomIn");
  EXPECT_EQ(desktopKeyOf({.ascii = 1, .shift = true, .control = true}), nullptr);
  EXPECT_EQ(desktopKeyOf({.ascii = 26}), nullptr) << "without Ctrl it is no letter";
  EXPECT_EQ(desktopKeyOf({}), nullptr);
}

// What an operator finds after a command.
struct Found {
  int rows = 0, firstState = 0, pendingaction = 0;
  float viewspan = 0;
  bool canPaste = false, closes = false;
  std::vector<std::string> forms;
  std::size_t files = 0;
  friend bool operator==(const Found&, const Found&) = default;
};

// A program with a selected line, one to paste and one to undo and to redo.
struct Workshop : RunningProgram {
  Workshop() {
    application.store.desktopkeys = true;
    application.onCloseMainWindow = [this] { closes = true; };
    for (const float x : {2.0F, 3.0F, 4.0F}) drawLine(x);
    application.clickTool("miUndo");
    application.clickTool("miSelectAll");
    application.clickTool("miCopy");
    application.clickTool("miZoomIn");
  }
  void drawLine(float x) {
    application.clickTool("miLine");
    click({x, 1});
    application.key({.ascii = 27});
  }
  Found found() {
    const DrawingStore& store = application.store;
    return {store.NumSegments,
            store.segattr[1],
            pendingaction(),
            context().view.viewspan,
            context().paste.pasteavailable,
            closes,
            platform.prompts.formNames,
            platform.prompts.fileRequests.size()};
  }
  bool closes = false;
};

TEST_F(DesktopKeys, EachDoesWhatItsToolDoes) {
  Workshop untouched;
  for (const DesktopKey& row : desktopKeys()) {
    if (*row.tool == '\0') continue;
    Workshop byKey, byTool;
    byKey.application.key(keyNamed(row.key).value());
    byTool.application.clickTool(row.tool);
    EXPECT_EQ(byKey.reporting.lastReport(), "") << row.key;
    EXPECT_TRUE(byKey.found() == byTool.found()) << row.key;
    const bool shows = std::string(row.key) != "Ctrl+A" && std::string(row.key) != "Ctrl+C" &&
                       std::string(row.key) != "Ctrl+P";
    EXPECT_EQ(byKey.found() == untouched.found(), !shows) << row.key;
  }
}

TEST_F(DesktopKeys, DoNothingWhereTheSetupLacksThem) {
  for (const DesktopKey& row : desktopKeys()) {
    Workshop program;
    program.application.store.desktopkeys = false;
    const Found before = program.found();
    program.application.key(keyNamed(row.key).value());
    EXPECT_TRUE(program.found() == before) << row.key;
  }
}

TEST_F(DesktopKeys, ADisabledToolStaysQuiet) {
  addLine(0);
  tools().setEnabled("miUndo", false);
  press("Ctrl+Z");
  EXPECT_EQ(application.store.NumSegments, 1);
  EXPECT_EQ(reporting.lastReport(), "");
}

TEST_F(DesktopKeys, SpaceRepeatsTheLastCommand) {
  addLine(0);
  application.key({.ascii = 'T'});
  application.key({.ascii = 27});
  EXPECT_EQ(pendingaction(), 0);
  press("Space");
  EXPECT_EQ(pendingaction(), 16);
}

TEST_F(DesktopKeys, MenusAndHintsShowThemBesideTheProgramsOwn) {
  EXPECT_EQ(keyOf("miSave"), "Ctrl+S");
  EXPECT_EQ(keyOf("miRedo"), "Ctrl+Y, Ctrl+Shift+Z");
  EXPECT_EQ(keyOf("miCopy"), "C, Ctrl+C");
  EXPECT_EQ(keyOf("miZoomIn"), "I, +");
  EXPECT_EQ(keyOf("miTrimEntity"), "T");
  EXPECT_EQ(tools().tool("miZoomIn")->hint, "Zoom In (I, +)");
  EXPECT_EQ(tools().tool("miSave")->hint, "Save (Ctrl+S)");
}

TEST_F(DesktopKeys, MenusFollowTheSetup) {
  application.guarded("test", [this] { application.store.desktopkeys = false; });
  EXPECT_EQ(keyOf("miSave"), "");
  EXPECT_EQ(keyOf("miCopy"), "C");
  EXPECT_EQ(keyOf("miDelete"), "Del");
  EXPECT_EQ(tools().tool("miCopy")->hint, "Copy (C)");
}

TEST_F(DesktopKeys, TheWheelZoomsWhereThePointerIs) {
  const View& view = context().view;
  const float before = view.viewspan;
  application.wheelAt(1, 0, {1, 1});
  EXPECT_FLOAT_EQ(view.viewspan, before * 0.8F);
  application.store.desktopkeys = false;
  application.wheelAt(1, 0, {1, 1});
  EXPECT_FLOAT_EQ(view.viewspan, before * 0.8F);
}

TEST_F(DesktopKeys, APlacedTextKeepsTheWheel) {
  const float before = context().view.viewspan;
  context().state.setPendingaction(30);
  application.wheelAt(1, 0, {1, 1});
  EXPECT_EQ(context().view.viewspan, before);
}

TEST_F(DesktopKeys, TheMiddleButtonPans) {
  const View& view = context().view;
  const Point before{view.viewcx, view.viewcy};
  application.beginPan({1, 1});
  application.movePan({1.5F, 1});
  EXPECT_FLOAT_EQ(view.viewcx, before.x - 0.5F);
  application.endPan({1, 1.25F});
  EXPECT_FLOAT_EQ(view.viewcy, before.y - 0.25F);
}

}  // namespace
}  // namespace tess
