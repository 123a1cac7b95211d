// Tool Select & Definition: what it shows, what it stores and when, adding and deleting.
#include "tools/dlgToolPrms.h"

#include <ctime>

#include "gtest/gtest.h"

#include "core/file_system.h"
#include "core/tool_text.h"
#include "tests/support/feeds_samples.h"
#include "tests/support/tool_chest_fixture.h"

namespace tess {
namespace {

using testing::Chest;
using testing::kTwentyBlanks;
using Texts = std::vector<std::string>;

// ---- Showing

struct CaptionCase {
  const char* control;
  const char* caption;
};

const CaptionCase kCaptions[] = {
    {"cmdAdd", "A&dd"},
    {"cmdDelete", "De&lete"},
    {"cmdImport", "&Import..."},
    {"cmdExport", "Ex&port..."},
    {"fraType", "Type"},
    {"optEndMill", "&End Mill"},
    {"optFaceMill", "&Face Mill"},
    {"optSlotMill", "&Slot Mill"},
    {"lblDiameter", "Dia&meter:"},
    {"lblNumberFlutes", "&Number of Flutes:"},
    {"lblToolMaterial", "&Tool Material:"},
    {"lblColor", "&Color:"},
    {"cmdColorPalette", "Palette..."},
    {"fraRecommended", "Recommended"},
    {"lblFeedRateCaption", "Feed Rate:"},
    {"lblSpindleSpeedCaption", "Spindle Speed:"},
    {"lblCuttingSpeedCaption", "Cutting Speed:"},
    {"lblFeedDepthCaption", "Chip Load:"},
    {"lblUse", "Spindle Speed in Pro&grams:"},
    {"cmdUse", "&Use"},
    {"fraAdvice", "In the Drawing's Units"},
    {"cmdUseAdvice", "Use T&hese Feeds and Speed"},
    {"cmdAccept", "&Accept"},
    {"cmdExit", "E&xit"},
};

TEST_F(Chest, CaptionsStandAsTheOperatorReadsThem) {
  work([](dlgToolPrms& chest) {
    EXPECT_EQ(chest.caption(), "Tool Select & Definition");
    for (const auto& [control, caption] : kCaptions) {
      ASSERT_NE(chest.control(control), nullptr) << control;
      EXPECT_EQ(chest.control(control)->caption(), caption);
    }
    EXPECT_EQ(chest.defaultButton(), &chest.cmdAccept);
    EXPECT_EQ(chest.cancelButton(), &chest.cmdExit);
  });
  EXPECT_EQ(test.recording.prompts.formNames, Texts{"dlgToolPrms"});
}

TEST_F(Chest, OpensOnTheToolInUse) {
  store.selectedtool = 2;
  work([&](dlgToolPrms& chest) {
    EXPECT_EQ(chest.tool(), 2);
    EXPECT_EQ(chest.lbltool.caption(), "Tool #3:");
    EXPECT_EQ(chest.txttool.text(), "slot                ");
    EXPECT_EQ(chest.txtdiameter.text(), "0.0156");
    EXPECT_EQ(chest.txtNumberFlutes.text(), "2");
    EXPECT_EQ(chest.cmbToolMaterial.text(), "HSS");
    EXPECT_TRUE(chest.optSlotMill.value());
    EXPECT_EQ(chest.List1.text(), " 3: slot");
  });
}

TEST_F(Chest, OfALatheAsksWhetherAToolWorksInside) {
  work([](dlgToolPrms& chest) { EXPECT_FALSE(chest.chkInside.isVisible()); });
  store.lathesetup = true;
  store.toolinside[0] = 1;
  store.setupchanged = false;
  work([&](dlgToolPrms& chest) {
    EXPECT_TRUE(chest.chkInside.isVisible());
    EXPECT_EQ(chest.chkInside.caption(), "&Works Inside");
    EXPECT_TRUE(chest.chkInside.isChecked());
    EXPECT_FALSE(store.setupchanged) << "looking changes nothing";
    chest.chkInside.press();
    EXPECT_EQ(store.toolinside[0], 0);
    chest.cmdAdd.press();
    EXPECT_FALSE(chest.chkInside.isChecked());
  });
  EXPECT_TRUE(store.setupchanged);
}

TEST_F(Chest, AToolInUseOutsideTheTableOpensOnTheFirstRow) {
  for (const int tool : {-1, 100, 32767}) {
    store.selectedtool = tool;
    work([&](dlgToolPrms& chest) {
      EXPECT_EQ(chest.tool(), 0);
      EXPECT_EQ(chest.List1.text(), " 1: 1/4 end mill");
    });
    EXPECT_EQ(store.selectedtool, tool) << "and stays what it was";
  }
}

TEST_F(Chest, ListsTheNamedRowsUpToRow98) {
  store.toolname[98] = "  last ";
  store.toolname[99] = "beyond";
  store.toolname[50] = kTwentyBlanks;
  work([](dlgToolPrms& chest) {
    EXPECT_EQ(chest.List1.items(), (Texts{" 1: 1/4 end mill", " 3: slot",
                                          "41: a face mill of a name that is long", "99: last"}));
    EXPECT_EQ(chest.List1.index(), 0);
  });
}

TEST_F(Chest, TheLastRowOpensThoughItIsNotListed) {
  store.selectedtool = 99;
  put(99, "beyond", 0.5F, "HSS", 2, 0);
  work([](dlgToolPrms& chest) {
    EXPECT_EQ(chest.tool(), 99);
    EXPECT_EQ(chest.List1.index(), -1);
    EXPECT_EQ(chest.lbltool.caption(), "Tool #100:");
  });
}

TEST_F(Chest, ANameIsShownInTwentyCharacters) {
  store.selectedtool = 40;
  work([](dlgToolPrms& chest) {
    EXPECT_EQ(chest.txttool.text(), "a face mill of a nam");
    chest.cmdAccept.press();
  });
  EXPECT_EQ(store.toolname[40], "a face mill of a name that is long") << "but not cut by that";
  store.toolname[40] = "fr\xC3\xA4ser \xC3\xBC";
  work([](dlgToolPrms& chest) {
    EXPECT_EQ(chest.txttool.text(), "fr\xC3\xA4ser \xC3\xBC            ");
  });
}

TEST_F(Chest, ARowWithoutFlutesOrMaterialShowsTheUsualOnes) {
  store.toolflutes[0] = 0;
  store.toolmaterial[0] = "";
  store.toolmilltype[0] = 7;
  work([](dlgToolPrms& chest) {
    EXPECT_EQ(chest.txtNumberFlutes.text(), "2");
    EXPECT_EQ(chest.cmbToolMaterial.text(), "HSS");
    EXPECT_TRUE(chest.optEndMill.value());
    EXPECT_EQ(chest.lblCuttingSpeed.caption(), "95");
    chest.cmdAccept.press();
  });
  EXPECT_EQ(store.toolflutes[0], 2);
  EXPECT_EQ(store.toolmaterial[0], "HSS");
  EXPECT_EQ(store.toolmilltype[0], 0);
}

TEST_F(Chest, ADiameterBeyondTheFormatIsShownAsNone) {
  store.toolradius[0] = 3e38F;
  work([](dlgToolPrms& chest) { EXPECT_EQ(chest.txtdiameter.text(), "0.0000"); });
  EXPECT_EQ(store.toolradius[0], 3e38F);
}

TEST_F(Chest, AMetricDrawingShowsItsFormat) {
  store.units = "M";
  set_num_formats(test.session);
  store.toolradius[0] = 3;
  work([](dlgToolPrms& chest) { EXPECT_EQ(chest.txtdiameter.text(), "6.0000"); });
}

// ---- Storing

TEST_F(Chest, ChoosingALineStoresTheRowAndShowsTheOther) {
  work([&](dlgToolPrms& chest) {
    chest.txttool.type("  New Name ");
    chest.txtNumberFlutes.type("3");
    chest.optSlotMill.press();
    choose(chest, 1);
    EXPECT_EQ(chest.tool(), 2);
    EXPECT_EQ(chest.lbltool.caption(), "Tool #3:");
    EXPECT_EQ(chest.List1.items()[0], " 1: new name");
    EXPECT_EQ(chest.List1.text(), " 3: slot");
  });
  EXPECT_EQ(store.toolname[0], "new name");
  EXPECT_EQ(store.toolflutes[0], 3);
  EXPECT_EQ(store.toolmilltype[0], 2);
  EXPECT_EQ(store.selectedtool, 0) << "the tool in use changes by Accept alone";
  EXPECT_TRUE(store.setupchanged);
}

TEST_F(Chest, ARowWhoseNameIsBlankedLeavesTheList) {
  work([&](dlgToolPrms& chest) {
    chest.txttool.type("   ");
    choose(chest, 1);
    EXPECT_EQ(chest.List1.items(), (Texts{" 3: slot", "41: a face mill of a name that is long"}));
    EXPECT_EQ(chest.List1.index(), 0);
  });
  EXPECT_EQ(store.toolname[0], "");
}

TEST_F(Chest, ABlankRowThatIsNamedEntersTheList) {
  store.selectedtool = 1;
  work([&](dlgToolPrms& chest) {
    EXPECT_EQ(chest.List1.index(), -1);
    chest.txttool.type("Drill");
    choose(chest, 0);
    EXPECT_EQ(chest.List1.items()[1], " 2: drill");
  });
}

TEST_F(Chest, FlutesThatDoNotFitAreNotStored) {
  work([](dlgToolPrms& chest) {
    chest.txtNumberFlutes.setText("99999");
    chest.cmdAccept.press();
  });
  EXPECT_EQ(store.toolflutes[0], 2);
  work([](dlgToolPrms& chest) {
    chest.txtNumberFlutes.setText("none");
    chest.cmdAccept.press();
  });
  EXPECT_EQ(store.toolflutes[0], 0) << "no number is 0";
}

TEST_F(Chest, AcceptTakesTheRowOnShowIntoUse) {
  work([&](dlgToolPrms& chest) {
    choose(chest, 2);
    chest.cmdAccept.press();
    EXPECT_FALSE(chest.isShown());
  });
  EXPECT_EQ(store.selectedtool, 40);
  EXPECT_TRUE(store.setupchanged);
  EXPECT_EQ(store.toolfeedrate[40], "59.5 to 89.2 ipm") << "as it was shown";
}

TEST_F(Chest, ExitStoresNothingOfTheRowOnShow) {
  work([](dlgToolPrms& chest) {
    chest.txttool.type("other");
    chest.txtNumberFlutes.type("9");
    chest.cmdExit.press();
  });
  EXPECT_EQ(store.toolname[0], "1/4 end mill");
  EXPECT_EQ(store.toolflutes[0], 2);
  EXPECT_EQ(store.selectedtool, 0);
}

TEST_F(Chest, OpeningAndLeavingUntouchedChangesNoSetup) {
  work([](dlgToolPrms& chest) { chest.cmdExit.press(); });
  EXPECT_FALSE(store.setupchanged);
  work([](dlgToolPrms& chest) {
    choose(chest, 2);
    choose(chest, 0);
    chest.cmdExit.press();
  });
  EXPECT_FALSE(store.setupchanged) << "nor does looking at other tools";
}

// ---- Adding

TEST_F(Chest, AddTakesTheFirstFreeRow) {
  store.toolmaterial[1] = "Carbide";
  store.toolmilltype[1] = 2;
  store.toolspindlespeed[1] = 500;
  store.toolrecspindle[1] = 501;
  store.toolcuttingspeed[1] = 502;
  store.toolcolor[1] = 5;
  work([&](dlgToolPrms& chest) {
    chest.cmdAdd.press();
    EXPECT_EQ(chest.tool(), 1);
    EXPECT_EQ(chest.List1.text(), " 2: tool #2");
    EXPECT_EQ(chest.txtNumberFlutes.text(), "2");
    EXPECT_EQ(chest.cmbToolMaterial.text(), "HSS");
    EXPECT_EQ(chest.lblFeedRate.caption(), "0");
    EXPECT_EQ(chest.txtSpindleSpeed.text(), "0");
    EXPECT_EQ(chest.lblMaterial.caption(), "1018, cold - Invalid Tool Diameter");
  });
  EXPECT_EQ(store.toolname[1], "tool #2");
  EXPECT_EQ(store.toolcolor[1], 0);
  EXPECT_EQ(store.toolradius[1], 0);
  EXPECT_EQ(store.toolflutes[1], 0);
  EXPECT_EQ(store.toolfeedrate[1], "0");
  EXPECT_EQ(store.toolmaterial[1], "");
  EXPECT_EQ(store.toolmilltype[1], 0);
  EXPECT_EQ(store.toolspindlespeed[1], 0);
  EXPECT_EQ(store.toolrecspindle[1], 0);
  EXPECT_EQ(store.toolcuttingspeed[1], 0);
  EXPECT_TRUE(store.setupchanged);
}

TEST_F(Chest, AddFirstStoresANamedRow) {
  work([](dlgToolPrms& chest) {
    chest.txttool.type("Renamed");
    chest.cmdAdd.press();
    EXPECT_EQ(chest.List1.items()[0], " 1: renamed");
  });
  EXPECT_EQ(store.toolname[0], "renamed");
}

TEST_F(Chest, AddStoresNothingOfARowWithoutAName) {
  store.selectedtool = 1;
  work([](dlgToolPrms& chest) {
    chest.txtNumberFlutes.setText("7");
    chest.cmdAdd.press();
    EXPECT_EQ(chest.tool(), 1) << "it is free";
    EXPECT_EQ(chest.txtNumberFlutes.text(), "2");
  });
}

TEST_F(Chest, WhenAllRowsAreNamedAddSaysSoThoughTheLastOneIsFree) {
  for (int tool = 0; tool <= 98; ++tool) store.toolname[tool] = "t";
  work([](dlgToolPrms& chest) {
    EXPECT_EQ(chest.List1.count(), 99);
    chest.cmdAdd.press();
    EXPECT_EQ(chest.tool(), 0);
  });
  ASSERT_EQ(test.messages().size(), 1U);
  EXPECT_EQ(test.messages()[0].text, "All available tools are used.");
  EXPECT_EQ(test.messages()[0].title, "Add Tool");
  EXPECT_EQ(store.toolname[99], "");
}

// ---- Deleting

TEST_F(Chest, DeletingTheToolInUseLeavesABlankRowInUse) {
  store.toolcolor[0] = 4;
  work([&](dlgToolPrms& chest) {
    chest.txttool.type("typed before");
    chest.cmdDelete.press();
    EXPECT_EQ(chest.tool(), 0);
    EXPECT_EQ(chest.txttool.text(), kTwentyBlanks);
    EXPECT_EQ(chest.List1.index(), -1);
    EXPECT_EQ(chest.List1.items(), (Texts{" 3: slot", "41: a face mill of a name that is long"}));
    EXPECT_TRUE(store.setupchanged);
    chest.cmdAccept.press();
  });
  EXPECT_EQ(store.selectedtool, 0);
  EXPECT_EQ(store.toolname[0], kTwentyBlanks);
  EXPECT_EQ(store.toolcolor[0], 0);
  EXPECT_EQ(store.toolradius[0], 0);
  EXPECT_EQ(test.messages().size(), 0U) << "nothing is asked";
}

TEST_F(Chest, DeletingAnotherToolReturnsToTheOneInUse) {
  work([&](dlgToolPrms& chest) {
    choose(chest, 2);
    chest.cmdDelete.press();
    EXPECT_EQ(chest.tool(), 0);
    EXPECT_EQ(chest.List1.text(), " 1: 1/4 end mill");
  });
  EXPECT_EQ(store.toolname[40], kTwentyBlanks);
}

TEST_F(Chest, WithoutALineThereIsNothingToDelete) {
  store.selectedtool = 1;
  work([](dlgToolPrms& chest) { chest.cmdDelete.press(); });
  EXPECT_EQ(store.toolname[0], "1/4 end mill");
  EXPECT_FALSE(store.setupchanged);
}

// ---- The tool in use, in one line

TEST_F(Chest, TheToolInUseIsToldInOneLine) {
  EXPECT_EQ(toolInUseText(test.session), "Tool 1: 1/4 end mill, 0.2500 in");
  store.units = "M";
  set_num_formats(test.session);
  store.toolradius[0] = 3;
  EXPECT_EQ(toolInUseText(test.session), "Tool 1: 1/4 end mill, 6.0000 mm");
  for (const int tool : {1, -1, 100}) {
    store.selectedtool = tool;
    EXPECT_EQ(toolInUseText(test.session), "No tool") << tool;
  }
}

// ---- Speed; the budgets are for an optimised program

double millisecondsOf(const std::function<void()>& work) {
  const std::clock_t begin = std::clock();
  work();
  return 1000.0 * static_cast<double>(std::clock() - begin) / CLOCKS_PER_SEC;
}

TEST_F(Chest, OpensAndFollowsAKeyQuickly) {
  test.home.write(kSpeedsFeedsName, readFile(testing::shippedFeeds()));
  store.materialcategory = "Carbon Steels";
  store.partmaterial = "1030-1055 (1045)";
  double key = 0;
  const double first = millisecondsOf([&] {
    work([&](dlgToolPrms& chest) {
      key = millisecondsOf([&] {
        for (int i = 0; i < 100; ++i) chest.txtNumberFlutes.type(std::to_string(1 + i % 9));
      });
    });
  });
  const double second = millisecondsOf([&] { work([](dlgToolPrms&) {}); });
  RecordProperty("first", std::to_string(first - key));
  RecordProperty("second", std::to_string(second));
  RecordProperty("key", std::to_string(key / 100));
  EXPECT_LT(first - key, 50) << "10 ms";
  EXPECT_LT(second, 20) << "1 ms";
  EXPECT_LT(key / 100, 5) << "1 ms";
}

}  // namespace
}  // namespace tess
