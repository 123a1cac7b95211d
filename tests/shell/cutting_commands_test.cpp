// The tool chest and the title block at the road of all commands, and the cutter in use on show.
#include <filesystem>

#include "gtest/gtest.h"

#include "core/conventions.h"
#include "core/drawing_store.h"
#include "tests/support/running_program.h"
#include "tests/support/source_folder.h"
#include "tools/dlgColor.h"
#include "tools/dlgTitleBlock.h"
#include "tools/dlgToolPrms.h"

namespace tess {
namespace {

using testing::RunningProgram;

class Cutting : public ::testing::Test, public RunningProgram {
 protected:
  Cutting() {
    std::filesystem::copy(TESSIMO_SOURCE_DIR "/data/SpeedsFeeds.MDB", home(kSpeedsFeedsName));
    for (int tool = 0; tool <= kLastTool; ++tool) store.toolname[tool].clear();
    store.toolname[2] = "end mill";
    store.toolradius[2] = 0.125F;
    store.toolname[4] = "slot mill";
    store.toolradius[4] = 0.25F;
    store.selectedtool = 2;
    store.materialcategory = "Alluminum Alloys";
  }

  // What a dialog does with its form of the given kind.
  template <class Dialog>
  void when(const std::function<void(Dialog&)>& act) {
    platform.prompts.onForm = [act](Form& form) {
      auto* const dialog = dynamic_cast<Dialog*>(&form);
      ASSERT_NE(dialog, nullptr) << form.name();
      act(*dialog);
    };
  }

  std::string shownTool() { return application.interaction.statusBar.panel(StatusPanel::Tool); }

  DrawingStore& store = application.store;
};

TEST_F(Cutting, BothToolsOpenTheChestOnTheToolInUse) {
  int opened = 0;
  when<dlgToolPrms>([&](dlgToolPrms& chest) {
    ++opened;
    EXPECT_EQ(chest.tool(), 2);
  });
  application.clickTool("miSelectTool");
  application.clickTool("miToolChest");
  EXPECT_EQ(opened, 2);
}

TEST_F(Cutting, TheCutterInUseStandsInTheStatusArea) {
  application.clickTool("miCenter");
  EXPECT_EQ(shownTool(), "Tool 3: end mill, 0.2500 in");
  when<dlgToolPrms>([](dlgToolPrms& chest) {
    chest.List1.setIndex(1);
    chest.cmdAccept.press();
  });
  application.clickTool("miSelectTool");
  EXPECT_EQ(store.selectedtool, 4);
  EXPECT_EQ(shownTool(), "Tool 5: slot mill, 0.5000 in");
}

TEST_F(Cutting, ACutterThatIsGoneIsToldAsNone) {
  store.selectedtool = 50;
  application.clickTool("miCenter");
  EXPECT_EQ(shownTool(), "No tool");
}

TEST_F(Cutting, TheCutterIsShownFromTheStart) {
  RunningProgram fresh;
  EXPECT_EQ(fresh.application.interaction.statusBar.panel(StatusPanel::Tool),
            toolInUseText(fresh.application.session));
  EXPECT_NE(toolInUseText(fresh.application.session), "");
}

TEST_F(Cutting, TheChestReadsTheDatabaseOfTheProgramsFolder) {
  when<dlgToolPrms>([](dlgToolPrms& chest) {
    EXPECT_EQ(chest.cmbToolMaterial.items(), (std::vector<std::string>{"HSS", "Carbide"}));
  });
  application.clickTool("miSelectTool");
  EXPECT_EQ(platform.prompts.modalForms, 1);
}

TEST_F(Cutting, WithoutAToolkitAFormAsksForTheColor) {
  platform.prompts.onForm = [this](Form& form) {
    if (auto* const chest = dynamic_cast<dlgToolPrms*>(&form)) {
      chest->cmdColorPalette.press();
    } else {
      auto& color = dynamic_cast<dlgColor&>(form);
      color.txtRed.setText("10");
      color.txtGreen.setText("20");
      color.txtBlue.setText("30");
      color.cmdAccept.press();
    }
  };
  application.clickTool("miSelectTool");
  EXPECT_EQ(store.toolcolor[2], 10 | 20 << 8 | 30 << 16);
}

TEST_F(Cutting, AColorDialogOfThePlatformIsAskedInstead) {
  struct Green : ColorDialog {
    std::optional<Rgb> chooseColor(Rgb /*present*/) override { return 0x00FF00; }
  } green;
  Application other({platform.host, reporting, screen.ports, "", &green});
  other.start(/*drawing=*/"", home());
  when<dlgToolPrms>([](dlgToolPrms& chest) { chest.cmdColorPalette.press(); });
  other.clickTool("miSelectTool");
  EXPECT_EQ(other.store.toolcolor[other.store.selectedtool], 0x00FF00);
}

TEST_F(Cutting, PathsAreDrawnAnewInTheColorsOfTheChest) {
  pass(1000);
  EXPECT_TRUE(desk().ScreenProxy.surface().Enabled());
  when<dlgToolPrms>([](dlgToolPrms& chest) { chest.Slider1.setValue(4); });
  application.clickTool("miSelectTool");
  EXPECT_FALSE(desk().ScreenProxy.surface().Enabled()) << "as it is for a while after a redraw";
}

TEST_F(Cutting, TheTitleBlockStoresWhatItShows) {
  when<dlgTitleBlock>([](dlgTitleBlock& block) {
    block.txtDrawingTitle.setText("Bracket");
    block.cmdAccept.press();
  });
  application.clickTool("miDrawingTitleBlock");
  EXPECT_EQ(store.drawingtitle, "Bracket");
}

}  // namespace
}  // namespace tess
