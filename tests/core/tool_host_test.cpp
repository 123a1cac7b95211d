// Tools and bands: state by name, clicks, pop-ups and panels, layouts as text.
#include "core/tool_host.h"

#include <string>
#include <utility>
#include <vector>

#include "gtest/gtest.h"

#include "core/form.h"
#include "core/runtime_failure.h"

namespace tess {
namespace {

using Log = std::vector<std::string>;

Tool named(const char* name, bool toggles = false) {
  Tool tool;
  tool.name = name;
  tool.caption = std::string("Caption of ") + name;
  tool.toggles = toggles;
  return tool;
}

Band band(const char* name, BandKind kind, std::vector<std::string> tools = {}) {
  Band result;
  result.name = name;
  result.kind = kind;
  result.tools = std::move(tools);
  return result;
}

struct Fixture : ToolHostObserver {
  Fixture() {
    for (const char* name : {"miUndo", "miVerify/AcceptPocket"}) host.addTool(named(name));
    for (const char* name : {"OSnap", "VGrid"}) host.addTool(named(name, /*toggles=*/true));
    host.addBand(band("miEdit", BandKind::Menu, {"miUndo", ""}));
    host.addBand(band("Options", BandKind::ToolBar, {"OSnap", "VGrid"}));
    host.addBand(band("OSnapMenu", BandKind::PopUp));
    host.addBand(band("barText", BandKind::Panel));
    host.onToolClick = [this](const std::string& name) { log.push_back("click " + name); };
    host.onBandOpen = [this](const std::string& name) { log.push_back("open " + name); };
    host.onBandClose = [this](const std::string& name) { log.push_back("close " + name); };
    watch = host.observe(*this);
  }
  void toolChanged(const Tool& tool, ToolProperty property) override {
    changes.push_back({tool.name, property});
  }
  void bandChanged(const Band& changed, BandProperty property) override {
    log.push_back((property == BandProperty::Open ? "seen " : "changed ") + changed.name);
  }
  void keepArrangement(std::string& text) override { text += arrangement; }
  void restoreArrangement(const std::string& text) override { arrangement = text; }

  ToolHost host;
  Log log;
  std::vector<std::pair<std::string, ToolProperty>> changes;
  std::string arrangement;
  Subscription watch;
};

TEST(ToolHost, StateIsReadAndSetByName) {
  Fixture f;
  f.host.setCaption("miUndo", "&Undo");
  f.host.setEnabled("miUndo", false);
  f.host.setVisible("miUndo", false);
  f.host.setChecked("miUndo", true);
  EXPECT_EQ(f.host.tool("miUndo")->caption, "&Undo");
  EXPECT_FALSE(f.host.isEnabled("miUndo"));
  EXPECT_FALSE(f.host.isVisible("miUndo"));
  EXPECT_TRUE(f.host.isChecked("miUndo"));
  const std::vector<std::pair<std::string, ToolProperty>> expected = {
      {"miUndo", ToolProperty::Caption},
      {"miUndo", ToolProperty::Enabled},
      {"miUndo", ToolProperty::Visible},
      {"miUndo", ToolProperty::Checked}};
  EXPECT_EQ(f.changes, expected);
}

TEST(ToolHost, SameStateTellsNothing) {
  Fixture f;
  f.host.setCaption("miUndo", "Caption of miUndo");
  f.host.setEnabled("miUndo", true);
  f.host.setChecked("miUndo", false);
  EXPECT_TRUE(f.changes.empty());
}

TEST(ToolHost, UnknownNamesDoNothingAndAreAbsent) {
  Fixture f;
  f.host.setCaption("miNone", "x");
  f.host.setEnabled("miNone", true);
  f.host.setChecked("miNone", true);
  f.host.setVisible("miundo", false);  // names are exact
  f.host.setBandTools("miNone", {});
  f.host.setPanel("miNone", nullptr);
  EXPECT_EQ(f.host.tool("miNone"), nullptr);
  EXPECT_EQ(f.host.band("miNone"), nullptr);
  EXPECT_FALSE(f.host.isEnabled("miNone"));
  EXPECT_FALSE(f.host.isVisible("miNone"));
  EXPECT_FALSE(f.host.isChecked("miNone"));
  EXPECT_FALSE(f.host.click("miNone"));
  EXPECT_FALSE(f.host.openBand("miNone"));
  EXPECT_FALSE(f.host.closeBand("miNone"));
  EXPECT_TRUE(f.log.empty());
  EXPECT_TRUE(f.changes.empty());
}

TEST(ToolHost, ClickReportsTheName) {
  Fixture f;
  EXPECT_TRUE(f.host.click("miVerify/AcceptPocket"));
  EXPECT_EQ(f.log, Log{"click miVerify/AcceptPocket"});
}

TEST(ToolHost, DisabledAndHiddenToolsTakeNoClick) {
  Fixture f;
  f.host.setEnabled("OSnap", false);
  f.host.setVisible("VGrid", false);
  EXPECT_FALSE(f.host.click("OSnap"));
  EXPECT_FALSE(f.host.click("VGrid"));
  EXPECT_FALSE(f.host.isChecked("OSnap"));
  EXPECT_TRUE(f.log.empty());
}

TEST(ToolHost, ToggleIsTurnedOverBeforeItsClickIsTold) {
  Fixture f;
  bool seen = false;
  f.host.onToolClick = [&](const std::string& name) { seen = f.host.isChecked(name); };
  f.host.click("OSnap");
  EXPECT_TRUE(seen);
  f.host.click("OSnap");
  EXPECT_FALSE(seen);
  f.host.click("miUndo");
  EXPECT_FALSE(f.host.isChecked("miUndo"));
}

TEST(ToolHost, ClickWithoutHandlerIsTaken) {
  ToolHost host;
  host.addTool(named("miNew"));
  EXPECT_TRUE(host.click("miNew"));
}

TEST(ToolHost, NamesAreTakenOnce) {
  Fixture f;
  EXPECT_THROW(f.host.addTool(named("miUndo")), RuntimeFailure);
  EXPECT_THROW(f.host.addBand(band("miEdit", BandKind::Menu)), RuntimeFailure);
  EXPECT_EQ(f.host.toolNames(), (Log{"OSnap", "VGrid", "miUndo", "miVerify/AcceptPocket"}));
}

TEST(ToolHost, BandsKeepTheOrderOfTheirTools) {
  Fixture f;
  EXPECT_EQ(f.host.band("Options")->tools, (Log{"OSnap", "VGrid"}));
  f.host.setBandTools("Options", {"VGrid", "OSnap"});
  EXPECT_EQ(f.host.band("Options")->tools, (Log{"VGrid", "OSnap"}));
  EXPECT_EQ(f.log, Log{"changed Options"});
  EXPECT_EQ(f.host.bands().size(), 4U);
}

TEST(ToolHost, PopUpIsFilledBeforeItIsSeen) {
  Fixture f;
  EXPECT_TRUE(f.host.openBand("OSnapMenu"));
  EXPECT_FALSE(f.host.openBand("OSnapMenu"));
  EXPECT_TRUE(f.host.closeBand("OSnapMenu"));
  EXPECT_FALSE(f.host.closeBand("OSnapMenu"));
  EXPECT_EQ(f.log, (Log{"open OSnapMenu", "seen OSnapMenu", "seen OSnapMenu", "close OSnapMenu"}));
}

TEST(ToolHost, BandThatItsOpeningClosesIsNotSeen) {
  Fixture f;
  f.host.onBandOpen = [&](const std::string& name) { f.host.closeBand(name); };
  f.host.openBand("barText");
  EXPECT_FALSE(f.host.band("barText")->open);
  EXPECT_EQ(f.log, (Log{"seen barText", "close barText"}));
}

TEST(ToolHost, PanelTellsItsSizesAndForm) {
  struct Panel : DockedPanel {
    Form& form() override { return text; }
    int DockedHorzWidth() const override { return 400; }
    int DockedHorzHeight() const override { return 90; }
    int DockedVertWidth() const override { return 120; }
    int DockedVertHeight() const override { return 300; }
    void LayoutHorizontally() override {}
    void LayoutVertically() override {}
    Form text{"frmText"};
  } panel;
  Fixture f;
  f.host.setPanel("barText", &panel);
  f.host.setPanel("barText", &panel);
  EXPECT_EQ(f.log, Log{"changed barText"});
  EXPECT_EQ(f.host.band("barText")->panel->form().name(), "frmText");
  EXPECT_EQ(f.host.band("barText")->panel->DockedHorzHeight(), 90);
}

TEST(ToolHost, ClientAreaIsToldWhenItDiffers) {
  Fixture f;
  int told = 0;
  f.host.setClientArea({0, 0, 10, 10});
  f.host.onClientAreaChanged = [&] { ++told; };
  f.host.setClientArea({0, 20, 800, 600});
  f.host.setClientArea({0, 20, 800, 600});
  EXPECT_EQ(told, 1);
  EXPECT_EQ(f.host.clientArea(), (Bounds{0, 20, 800, 600}));
}

TEST(ToolLayout, HoldsTogglesBarsPanelsAndArrangement) {
  Fixture f;
  f.host.setChecked("OSnap", true);
  f.host.openBand("barText");
  f.host.openBand("OSnapMenu");
  f.arrangement = "00ff two words";
  EXPECT_EQ(f.host.layoutText(),
            "Tessimo layout 1\n"
            "toggle OSnap 1\n"
            "toggle VGrid 0\n"
            "band Options 0\n"
            "band barText 1\n"
            "arrangement 00ff two words\n");
}

TEST(ToolLayout, LoadingBringsTheStateBackWithoutClicks) {
  Fixture saved;
  saved.host.setChecked("VGrid", true);
  saved.host.openBand("barText");
  saved.arrangement = "state";
  Fixture loaded;
  loaded.host.setChecked("OSnap", true);
  loaded.host.openBand("Options");
  loaded.log.clear();
  EXPECT_TRUE(loaded.host.loadLayoutText(saved.host.layoutText()));
  EXPECT_FALSE(loaded.host.isChecked("OSnap"));
  EXPECT_TRUE(loaded.host.isChecked("VGrid"));
  EXPECT_EQ(loaded.arrangement, "state");
  EXPECT_EQ(loaded.log, (Log{"seen Options", "close Options", "open barText", "seen barText"}));
}

TEST(ToolLayout, UnknownNamesAndLinesAreSkipped) {
  Fixture f;
  EXPECT_TRUE(
      f.host.loadLayoutText("Tessimo layout 1\r\ntoggle miNone 1\r\ntoggle miUndo 1\r\nband miNone "
                            "1\r\ncolour red\r\n\r\n"
                            "toggle OSnap 1"));
  EXPECT_TRUE(f.host.isChecked("OSnap"));
  EXPECT_FALSE(f.host.isChecked("miUndo"));
}

TEST(ToolLayout, TextThatIsNoLayoutChangesNothing) {
  Fixture f;
  EXPECT_FALSE(f.host.loadLayoutText(""));
  EXPECT_FALSE(f.host.loadLayoutText("toggle OSnap 1\n"));
  EXPECT_FALSE(f.host.isChecked("OSnap"));
}

}  // namespace
}  // namespace tess
