// Tool Select & Definition: what it recommends, and the fields that follow one another.
#include "gtest/gtest.h"

#include "tests/support/feeds_samples.h"
#include "tests/support/tool_chest_fixture.h"
#include "tools/dlgToolPrms.h"

namespace tess {
namespace {

using testing::Chest;
using testing::kWarningRed;
using Texts = std::vector<std::string>;

// ---- The recommendation

TEST_F(Chest, RecommendsForTheRowOnShow) {
  work([&](dlgToolPrms& chest) {
    EXPECT_EQ(chest.lblMaterial.caption(), "Material:   1018, cold");
    EXPECT_EQ(chest.lblMaterial.color(), std::nullopt);
    EXPECT_EQ(chest.lblFeedRate.caption(), "2.6 to 10.7 ipm");
    EXPECT_EQ(chest.lblSpindleSpeed.caption(), "1451");
    EXPECT_EQ(chest.lblCuttingSpeed.caption(), "95");
    EXPECT_EQ(chest.lblFeedDepth.caption(), "0.0009 to 0.0037 in per tooth");
    EXPECT_EQ(chest.txtSpindleSpeed.text(), "2000") << "the tool's own";
    EXPECT_EQ(store.toolfeedrate[0], "2.6 to 10.7 ipm");
  });
}

TEST_F(Chest, FollowsFlutesDiameterTypeAndToolMaterial) {
  work([](dlgToolPrms& chest) {
    chest.txtNumberFlutes.type("4");
    EXPECT_EQ(chest.lblFeedRate.caption(), "5.2 to 21.5 ipm");
    chest.txtdiameter.type("0.5");
    EXPECT_EQ(chest.lblSpindleSpeed.caption(), "726");
    chest.cmbToolMaterial.pick(1);
    EXPECT_EQ(chest.cmbToolMaterial.text(), "Carbide");
    EXPECT_EQ(chest.lblCuttingSpeed.caption(), "425");
    chest.optSlotMill.press();
    EXPECT_EQ(chest.lblCuttingSpeed.caption(), "75") << "slots have HSS only";
  });
}

TEST_F(Chest, FlutesAreRoundedToWholeOnes) {
  work([](dlgToolPrms& chest) {
    chest.txtNumberFlutes.type("2.4");
    EXPECT_EQ(chest.lblFeedRate.caption(), "2.6 to 10.7 ipm");
    chest.txtNumberFlutes.type(" 1.5 ");
    EXPECT_EQ(chest.lblFeedRate.caption(), "2.6 to 10.7 ipm");
    chest.txtNumberFlutes.type("0.2");
    EXPECT_EQ(chest.lblFeedRate.caption(), "Unable to compute.");
  });
}

TEST_F(Chest, InvalidFlutesAreNamed) {
  for (const char* text : {"", "x", "0", "-2", "2 flutes", "1e9", "nan"}) {
    SCOPED_TRACE(text);
    store.toolfeedrate[0] = "stored feed";
    store.toolrecspindle[0] = 11;
    store.toolcuttingspeed[0] = 12;
    work([&](dlgToolPrms& chest) {
      chest.txtNumberFlutes.type("3");
      store.toolfeedrate[0] = "stored feed";
      chest.txtNumberFlutes.type(text);
      EXPECT_EQ(chest.lblMaterial.caption(), "1018, cold - Invalid # of Flutes");
      EXPECT_EQ(chest.lblMaterial.color(), kWarningRed);
      EXPECT_EQ(chest.lblFeedRate.caption(), "stored feed");
      EXPECT_EQ(chest.lblAdvice.caption(), "");
      EXPECT_EQ(chest.lblFeedDepth.caption(), "");
      EXPECT_FALSE(chest.cmdUseAdvice.isEnabled());
      chest.txtNumberFlutes.type("2");
      EXPECT_EQ(chest.lblMaterial.caption(), "Material:   1018, cold");
      EXPECT_EQ(chest.lblMaterial.color(), std::nullopt);
    });
  }
}

TEST_F(Chest, InvalidDiametersAreNamed) {
  for (const char* text : {"", "x", "0", "-0.25", "1/4", "1e50", "1e-60"}) {
    SCOPED_TRACE(text);
    work([&](dlgToolPrms& chest) {
      chest.txtdiameter.type(text);
      EXPECT_EQ(chest.lblMaterial.caption(), "1018, cold - Invalid Tool Diameter");
      EXPECT_EQ(chest.lblMaterial.color(), kWarningRed);
      EXPECT_EQ(chest.lblFeedRate.caption(), store.toolfeedrate[0]);
      chest.txtNumberFlutes.setText("none");
      EXPECT_EQ(chest.lblMaterial.caption(), "1018, cold - Invalid # of Flutes") << "these first";
    });
  }
}

TEST_F(Chest, WithInvalidTextsTheLabelsShowTheRowsOwn) {
  store.toolradius[0] = 0;
  store.toolfeedrate[0] = "5 ipm";
  store.toolrecspindle[0] = 1234;
  store.toolcuttingspeed[0] = 80;
  work([](dlgToolPrms& chest) {
    EXPECT_EQ(chest.lblFeedRate.caption(), "5 ipm");
    EXPECT_EQ(chest.lblSpindleSpeed.caption(), "1234");
    EXPECT_EQ(chest.lblCuttingSpeed.caption(), "80");
    EXPECT_EQ(chest.txtSpindleSpeed.text(), "2000");
  });
}

void expectUnable(const dlgToolPrms& chest, const std::string& material) {
  EXPECT_EQ(chest.lblFeedRate.caption(), "Unable to compute.");
  EXPECT_EQ(chest.lblMaterial.caption(),
            "Material:   " + material + " - Unable to recommend Spindle Speed.");
  EXPECT_EQ(chest.lblMaterial.color(), kWarningRed);
  EXPECT_EQ(chest.lblSpindleSpeed.caption(), "0");
  EXPECT_EQ(chest.lblCuttingSpeed.caption(), "0");
  EXPECT_EQ(chest.lblAdvice.caption(), "");
  EXPECT_FALSE(chest.cmdUseAdvice.isEnabled());
}

TEST_F(Chest, AnEmptyMaterialCannotBeComputed) {
  store.partmaterial.clear();
  work([](dlgToolPrms& chest) { expectUnable(chest, ""); });
}

TEST_F(Chest, ATypedMaterialThatIsNotInTheTablesCannotBeComputed) {
  store.partmaterial = "Unobtainium";
  work([](dlgToolPrms& chest) { expectUnable(chest, "Unobtainium"); });
}

TEST_F(Chest, AQuoteInTheMaterialCannotBeComputed) {
  store.partmaterial = "O'Brien";
  work([](dlgToolPrms& chest) { expectUnable(chest, "O'Brien"); });
}

// No file, a folder, a text, a file that breaks off, tables without what is asked for.
TEST_F(Chest, WithoutADatabaseItStaysUsable) {
  const std::string path = test.home(kSpeedsFeedsName);
  const std::string image = testing::sqliteImage(testing::kSmallFeeds);
  const std::function<void()> kinds[] = {
      [] {},
      [&] { std::filesystem::create_directory(path); },
      [&] { test.home.write(kSpeedsFeedsName, "Material,Hardness\n"); },
      [&] { test.home.write(kSpeedsFeedsName, image.substr(0, image.size() / 3)); },
      [&] { test.home.write(kSpeedsFeedsName, std::string("\0\1\0\0Standard Jet DB\0", 20)); },
      [&] { test.home.write(kSpeedsFeedsName, testing::sqliteImage("CREATE TABLE t (a);")); },
      [&] {
        test.home.write(
            kSpeedsFeedsName,
            testing::sqliteImage("CREATE TABLE MaterialCategory (\"Material Category\");"
                                 "INSERT INTO MaterialCategory VALUES ('Steels');"));
      },
      [&] {
        test.home.write(kSpeedsFeedsName,
                        testing::sqliteImage(std::string(testing::kSmallFeeds) +
                                             "ALTER TABLE Steels DROP COLUMN Material;"));
      },
  };
  for (const auto& make : kinds) {
    std::filesystem::remove_all(path);
    make();
    store.selectedtool = 0;
    work([&](dlgToolPrms& chest) {
      expectUnable(chest, "1018, cold");
      EXPECT_GE(chest.cmbToolMaterial.count(), 1);
      EXPECT_EQ(chest.cmbToolMaterial.text(), "HSS");
      choose(chest, 1);
      chest.cmdAccept.press();
    });
    EXPECT_EQ(store.selectedtool, 2);
    EXPECT_EQ(test.messages().size(), 0U);
  }
}

// ---- The spindle's speed

TEST_F(Chest, ATypedSpeedIsKeptAcrossLaterChanges) {
  work([&](dlgToolPrms& chest) {
    chest.txtSpindleSpeed.type("1800");
    EXPECT_EQ(store.toolspindlespeed[0], 2000) << "until the field is left";
    chest.txtNumberFlutes.type("3");
    EXPECT_EQ(store.toolspindlespeed[0], 1800);
    chest.txtdiameter.type("0.3");
    EXPECT_EQ(chest.txtSpindleSpeed.text(), "1800");
  });
  EXPECT_EQ(store.toolspindlespeed[0], 1800);
}

TEST_F(Chest, ASpeedOfZeroFollowsTheRecommendationUntilOneIsTyped) {
  store.toolspindlespeed[0] = 0;
  work([&](dlgToolPrms& chest) {
    EXPECT_EQ(chest.txtSpindleSpeed.text(), "1451");
    EXPECT_EQ(store.toolspindlespeed[0], 1451);
    chest.txtdiameter.type("0.5");
    EXPECT_EQ(chest.txtSpindleSpeed.text(), "726");
    EXPECT_EQ(store.toolspindlespeed[0], 726);
    chest.txtSpindleSpeed.type("700");
    chest.txtdiameter.type("0.25");
    EXPECT_EQ(chest.txtSpindleSpeed.text(), "700");
    chest.txtSpindleSpeed.type("0");
    chest.txtdiameter.type("0.5");
    EXPECT_EQ(chest.txtSpindleSpeed.text(), "726") << "a 0 follows again";
  });
}

TEST_F(Chest, ASpeedSetWithoutTheFocusIsTakenOverToo) {
  work([&](dlgToolPrms& chest) {
    chest.txtSpindleSpeed.setText("1500");
    chest.txtNumberFlutes.setText("3");
    EXPECT_EQ(store.toolspindlespeed[0], 1500);
    chest.txtSpindleSpeed.setText("1600");
    chest.cmdAccept.click();
  });
  EXPECT_EQ(store.toolspindlespeed[0], 1600);
}

TEST_F(Chest, ASpeedBelowZeroShowsTheRecommendedOne) {
  store.toolspindlespeed[0] = -5;
  work([&](dlgToolPrms& chest) { EXPECT_EQ(chest.txtSpindleSpeed.text(), "1451"); });
  EXPECT_EQ(store.toolspindlespeed[0], -5);
}

TEST_F(Chest, UseTakesTheSpeedAtOnce) {
  work([&](dlgToolPrms& chest) {
    chest.txtSpindleSpeed.setText("1234.5");
    chest.cmdUse.click();
    EXPECT_EQ(store.toolspindlespeed[0], 1234.5F);
    EXPECT_TRUE(store.setupchanged);
    chest.txtSpindleSpeed.setText("fast");
    chest.cmdUse.click();
    EXPECT_EQ(store.toolspindlespeed[0], 0) << "no number is 0";
  });
}

TEST_F(Chest, ASpeedThatDoesNotFitIsNotTaken) {
  work([&](dlgToolPrms& chest) {
    chest.txtSpindleSpeed.setText("1e99");
    chest.cmdUse.click();
    EXPECT_EQ(chest.txtSpindleSpeed.text(), "2000");
  });
  EXPECT_EQ(store.toolspindlespeed[0], 2000);
}

// ---- Tool materials

TEST_F(Chest, ToolMaterialsAreThoseOfTheType) {
  work([&](dlgToolPrms& chest) {
    EXPECT_EQ(chest.cmbToolMaterial.items(), (Texts{"HSS", "Carbide"}));
    chest.optFaceMill.press();
    EXPECT_EQ(chest.cmbToolMaterial.items(), Texts{"Carbide"});
    EXPECT_EQ(store.toolmaterial[0], "Carbide") << "what is shown is what it is made of";
    chest.optEndMill.press();
    EXPECT_EQ(chest.cmbToolMaterial.text(), "Carbide");
    choose(chest, 1);
    EXPECT_EQ(chest.cmbToolMaterial.items(), Texts{"HSS"}) << "and of the row";
  });
}

TEST_F(Chest, AChosenToolMaterialIsWrittenAtOnce) {
  work([&](dlgToolPrms& chest) {
    chest.cmbToolMaterial.pick(1);
    EXPECT_EQ(store.toolmaterial[0], "Carbide");
    EXPECT_TRUE(store.setupchanged);
    chest.cmdExit.press();
  });
  EXPECT_EQ(store.toolmaterial[0], "Carbide");
}

TEST_F(Chest, AToolMaterialThatIsNotAmongThemShowsTheFirst) {
  store.toolmaterial[0] = "Cobalt";
  work([&](dlgToolPrms& chest) {
    EXPECT_EQ(chest.cmbToolMaterial.text(), "HSS");
    EXPECT_EQ(store.toolmaterial[0], "Cobalt") << "until the row is stored";
    EXPECT_EQ(chest.lblFeedRate.caption(), "Unable to compute.");
    chest.cmbToolMaterial.pick(0);
    EXPECT_EQ(chest.lblCuttingSpeed.caption(), "95");
    EXPECT_EQ(store.toolmaterial[0], "HSS");
  });
}

TEST_F(Chest, WithoutEntriesTheListHoldsTheRowsOwn) {
  store.materialcategory = "Plastics";
  store.toolmaterial[40] = "Carbide";
  store.selectedtool = 40;
  work([&](dlgToolPrms& chest) {
    EXPECT_EQ(chest.cmbToolMaterial.items(), Texts{"Carbide"});
    store.toolmaterial[40] = "  ";
    chest.optSlotMill.press();
    EXPECT_EQ(chest.cmbToolMaterial.items(), Texts{"HSS"});
  });
}

// ---- The diameter

TEST_F(Chest, TheRadiusFollowsTheTypingAtOnce) {
  work([&](dlgToolPrms& chest) {
    chest.txtdiameter.type("0.375");
    EXPECT_EQ(store.toolradius[0], 0.1875F);
    EXPECT_TRUE(store.setupchanged);
    for (const char* text : {"0", "-1", "", "x", "1e99", "1e-50"}) {
      chest.txtdiameter.type(text);
      EXPECT_EQ(store.toolradius[0], 0.1875F) << text;
    }
    chest.cmdExit.press();
  });
  EXPECT_EQ(store.toolradius[0], 0.1875F);
}

TEST_F(Chest, ATextThatWasNotEditedRoundsNothing) {
  store.selectedtool = 2;
  work([&](dlgToolPrms& chest) {
    EXPECT_EQ(chest.txtdiameter.text(), "0.0156");
    choose(chest, 0);
    choose(chest, 1);
    chest.cmdAccept.press();
  });
  EXPECT_EQ(store.toolradius[2], 1.0F / 128);
  EXPECT_EQ(store.toolname[2], "slot");
}

TEST_F(Chest, ADiameterOfZeroHoldsTheFocus) {
  work([&](dlgToolPrms& chest) {
    for (const char* text : {"0", "-0.5", "", "x"}) {
      chest.txtdiameter.type(text);
      EXPECT_FALSE(chest.txttool.focus());
      EXPECT_EQ(chest.focused(), &chest.txtdiameter);
      ASSERT_FALSE(test.messages().empty());
      EXPECT_EQ(test.messages().back().text, "Diameter must be greater than 0.");
      EXPECT_EQ(test.messages().back().title, "Tool Chest");
    }
    EXPECT_FALSE(chest.cmdAccept.press());
    EXPECT_TRUE(chest.isShown());
    EXPECT_EQ(test.messages().size(), 5U);
    EXPECT_FALSE(chest.List1.pick(1));
    EXPECT_EQ(chest.tool(), 0);
    chest.txtdiameter.type("0.5 in");
    EXPECT_TRUE(chest.txttool.focus()) << "it begins with a number";
  });
}

TEST_F(Chest, DeleteAndExitAreNotHeldByTheDiameter) {
  work([&](dlgToolPrms& chest) {
    chest.txtdiameter.type("0");
    EXPECT_TRUE(chest.cmdDelete.press());
    chest.txtdiameter.type("0");
    EXPECT_TRUE(chest.cmdExit.press());
    EXPECT_FALSE(chest.isShown());
  });
  EXPECT_EQ(test.messages().size(), 0U);
}

// ---- Spacing

TEST_F(Chest, APercentageGivesTheDistanceOfTheToolInUse) {
  for (const int type : {0, 1}) {
    store.cfg_cut_width_type = type;
    store.cfg_tool_spacing = 33;
    work([](dlgToolPrms& chest) { chest.cmdAccept.press(); });
    EXPECT_EQ(store.cfg_tool_spacing_distance, 0.0825F);
    EXPECT_EQ(store.cfg_cut_width_type, 1) << "0 becomes 1";
  }
}

TEST_F(Chest, ADistanceGivesThePercentageOfTheToolInUse) {
  store.cfg_cut_width_type = 2;
  store.cfg_tool_spacing_distance = 0.1F;
  work([](dlgToolPrms& chest) {
    choose(chest, 2);
    chest.cmdAccept.press();
  });
  EXPECT_EQ(store.cfg_tool_spacing, 6.67F);
}

TEST_F(Chest, WithoutADiameterThePercentageStays) {
  store.cfg_cut_width_type = 2;
  store.cfg_tool_spacing = 55;
  store.toolradius[0] = 0;
  work([](dlgToolPrms& chest) { chest.cmdAccept.press(); });
  EXPECT_EQ(store.cfg_tool_spacing, 55);
  store.cfg_cut_width_type = 1;
  work([](dlgToolPrms& chest) { chest.cmdAccept.press(); });
  EXPECT_EQ(store.cfg_tool_spacing_distance, 0);
}

TEST_F(Chest, WithoutAToolInUseTheSpacingStays) {
  store.selectedtool = -1;
  store.cfg_tool_spacing_distance = 7;
  work([](dlgToolPrms& chest) { choose(chest, 1); });
  EXPECT_EQ(store.cfg_tool_spacing_distance, 7);
}

}  // namespace
}  // namespace tess
