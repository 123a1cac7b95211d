// The tool chest and the title block at the road of all commands, and the cutter in use on show.
#include <ctime>
#include <filesystem>

#include "gtest/gtest.h"

#include "core/conventions.h"
#include "core/drawing_store.h"
#include "core/number_text.h"
#include "core/tool_text.h"
#include "drafting/change.h"
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

TEST_F(Cutting, WhatThePathAmountsToStandsInTheStatusArea) {
  const auto shown = [this] { return application.interaction.statusBar.panel(StatusPanel::Path); };
  application.clickTool("miCenter");
  EXPECT_EQ(shown(), "No path");
  store.zstartpos = 0.5F;
  store.cfg_z_plunge_rate = 5;
  store.cfg_rapid_rate = 100;
  Change change(context().changes);
  change.paths.append({.type = kLine, .x1 = 20, .z = -0.5F, .feed = 10, .code = 102});
  change.keep();
  const std::string prompt = application.interaction.statusBar.text();
  application.clickTool("miCenter");
  EXPECT_EQ(shown(), application.pathTotals.text());
  EXPECT_EQ(shown().substr(0, shown().rfind(',')), "1 path row, 20.0 in");
  EXPECT_GE(parseFloat(shown().substr(shown().rfind(',') + 2)), 2.2F) << "the plunge counts too";
  EXPECT_EQ(application.interaction.statusBar.text(), prompt);
}

TEST_F(Cutting, ThePathsTimeFollowsTheSettingsOnceAProgramIsMade) {
  const auto shown = [this] { return application.interaction.statusBar.panel(StatusPanel::Path); };
  store.zstartpos = 0.5F;
  Change change(context().changes);
  change.paths.append({.type = kLine, .x1 = 20, .z = -0.5F, .feed = 10, .code = 102});
  change.paths.append({.type = kLine, .x0 = 200, .x1 = 220, .z = -0.5F, .feed = 10, .code = 102});
  change.keep();
  store.cfg_rapid_rate = 1000;
  application.clickTool("miCenter");
  const std::string fast = shown();
  store.cfg_rapid_rate = 10;
  application.clickTool("miMakeCNCFile");
  EXPECT_NE(shown(), fast);
  EXPECT_EQ(shown(), application.pathTotals.text());
}

TEST_F(Cutting, APathThatNoProgramCanBeMadeOfHasRowsAlone) {
  Change change(context().changes);
  change.paths.append({.type = kLine, .x1 = 2, .z = -0.5F, .feed = 10, .code = -1});
  change.keep();
  EXPECT_EQ(application.pathTotals.text(), "1 path row");
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
  EXPECT_TRUE(context().ScreenProxy.surface().Enabled());
  when<dlgToolPrms>([](dlgToolPrms& chest) { chest.Slider1.setValue(4); });
  application.clickTool("miSelectTool");
  EXPECT_FALSE(context().ScreenProxy.surface().Enabled()) << "as it is for a while after a redraw";
}

TEST_F(Cutting, TheTitleBlockStoresWhatItShows) {
  when<dlgTitleBlock>([](dlgTitleBlock& block) {
    block.txtDrawingTitle.setText("Bracket");
    block.cmdAccept.press();
  });
  application.clickTool("miDrawingTitleBlock");
  EXPECT_EQ(store.drawingtitle, "Bracket");
}

// ---- The change of units

class Units : public Cutting {
 protected:
  void add(const SegmentRow& row) {
    Change change(context().changes);
    change.segments.append(row, Entry::Unmarked);
    change.keep({.redraws = false});
  }
  void acceptIn(Option dlgTitleBlock::*unit) {
    when<dlgTitleBlock>([unit](dlgTitleBlock& block) {
      (block.*unit).press();
      block.cmdAccept.press();
    });
    application.clickTool("miDrawingTitleBlock");
  }
};

TEST_F(Units, TheDrawingIsConvertedThereAndBack) {
  add({.type = kLine, .x0 = 1, .y0 = 2, .x1 = 3, .y1 = -4});
  add({.type = kCounterClockwiseArc, .x0 = 1, .x1 = 0, .y1 = 1});
  store.cfg_final_depth = 0.5F;
  store.drawingsaved = true;
  acceptIn(&dlgTitleBlock::optMM);
  EXPECT_EQ(store.units, "M");
  EXPECT_FLOAT_EQ(store.x1[1], 76.2F);
  EXPECT_FLOAT_EQ(store.y1[1], -101.6F);
  EXPECT_FLOAT_EQ(store.x0[2], 25.4F);
  EXPECT_FLOAT_EQ(store.cfg_final_depth, 12.7F);
  EXPECT_FALSE(store.drawingsaved);
  EXPECT_TRUE(platform.prompts.messages.empty());
  EXPECT_EQ(shownTool(), "Tool 3: end mill, 0.2500 mm") << "tools keep their numbers";
  acceptIn(&dlgTitleBlock::optInch);
  EXPECT_FLOAT_EQ(store.x1[1], 3);
  EXPECT_FLOAT_EQ(store.cfg_final_depth, 0.5F);
}

TEST_F(Units, PathRowsStayAndTheOperatorIsTold) {
  {
    Change change(context().changes);
    change.paths.append({.type = kLine, .x1 = 1, .y1 = 2, .z = -0.5F, .code = 100});
    change.keep({.redraws = false});
  }
  acceptIn(&dlgTitleBlock::optMM);
  EXPECT_EQ(store.psx1[1], 1);
  EXPECT_EQ(store.psz[1], -0.5F);
  ASSERT_EQ(platform.prompts.messages.size(), 1U);
  EXPECT_EQ(
      platform.prompts.messages[0].text,
      "The drawing was converted. The tool paths were not: they keep their numbers, which now "
      "stand for the new units. Clear them and place them anew.");
}

TEST_F(Units, ADrawingThatDoesNotFitIntoTheOtherUnitStaysInItsOwn) {
  add({.type = kLine, .x0 = 1, .x1 = 2e38F});
  store.cfg_final_depth = 0.5F;
  store.partdimx = 4;
  platform.prompts.answers.push_back(Answer::No);  // to a retry
  acceptIn(&dlgTitleBlock::optMM);
  EXPECT_NE(reporting.lastReport().find("Overflow"), std::string::npos);
  EXPECT_EQ(store.units, "I");
  EXPECT_EQ(store.x0[1], 1);
  EXPECT_EQ(store.cfg_final_depth, 0.5F);
  EXPECT_EQ(store.partdimx, 4);
  EXPECT_EQ(application.session.formats.coordfmt, "##0.0000");
}

TEST_F(Units, AFullDrawingIsConvertedQuickly) {
  constexpr int kRows = 32767;
  {
    Change change(context().changes);
    for (int n = 0; n < kRows; ++n) {
      change.segments.append({.type = kLine, .x0 = static_cast<float>(n), .x1 = 1},
                             Entry::Unmarked);
    }
    change.keep({.redraws = false});
  }
  const std::clock_t begin = std::clock();
  acceptIn(&dlgTitleBlock::optMM);
  const double ms = 1000.0 * static_cast<double>(std::clock() - begin) / CLOCKS_PER_SEC;
  EXPECT_FLOAT_EQ(store.x0[kRows], 25.4F * (kRows - 1));
  RecordProperty("milliseconds", std::to_string(ms));
  EXPECT_LT(ms, 250) << "50 ms, redraws and the checks of a test build aside";
}

}  // namespace
}  // namespace tess
