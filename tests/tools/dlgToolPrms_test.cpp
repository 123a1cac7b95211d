// Tool Select & Definition: what it shows, what it recommends, what it stores and when.
#include "tools/dlgToolPrms.h"

#include <ctime>

#include "gtest/gtest.h"

#include "core/drawing_store.h"
#include "core/file_system.h"
#include "core/units.h"
#include "tests/support/feeds_samples.h"
#include "tests/support/recording_session.h"

namespace tess {
namespace {

using testing::TestSession;
using Texts = std::vector<std::string>;

constexpr int kRed = 255;
constexpr char kTwentyBlanks[] = "                    ";

class FixedColor : public ColorDialog {
 public:
  std::optional<Rgb> chooseColor(Rgb present) override {
    asked.push_back(present);
    return answer;
  }
  std::optional<Rgb> answer;
  std::vector<Rgb> asked;
};

// Three tools: 1/4 end mill in use, a 1/64 slot mill, and a face mill with a long name.
class Chest : public ::testing::Test {
 protected:
  Chest() {
    set_num_formats(test.session);
    testing::smallFeeds(test.home);
    store.materialcategory = "Steels";
    store.partmaterial = "1018, cold";
    store.parthardness = "125-175";
    store.materialcondition = "Annealed";
    put(0, "1/4 end mill", 0.125F, "HSS", 2, 2000);
    put(2, "slot", 1.0F / 128, "HSS", 2, 0);
    store.toolmilltype[2] = 2;
    put(40, "a face mill of a name that is long", 0.75F, "Carbide", 4, 300);
    store.toolmilltype[40] = 1;
    store.selectedtool = 0;
    store.cfg_tool_spacing = 40;
  }

  void put(int tool, const char* name, float radius, const char* material, int flutes,
           float speed) {
    store.toolname[tool] = name;
    store.toolradius[tool] = radius;
    store.toolmaterial[tool] = material;
    store.toolflutes[tool] = flutes;
    store.toolspindlespeed[tool] = speed;
  }

  // Shows the chest and lets the operator work it.
  void work(const std::function<void(dlgToolPrms&)>& operate) {
    test.recording.prompts.onForm = [&](Form& form) { operate(dynamic_cast<dlgToolPrms&>(form)); };
    mnuCAMSelectTool_Click({test.session, database, colors});
  }
  static void choose(dlgToolPrms& chest, int line) { EXPECT_TRUE(chest.List1.pick(line)); }

  TestSession test;
  DrawingStore& store = test.store;
  SpeedsFeeds database;
  FixedColor colors;
};

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
      EXPECT_EQ(chest.lblMaterial.color(), kRed);
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
      EXPECT_EQ(chest.lblMaterial.color(), kRed);
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
  EXPECT_EQ(chest.lblMaterial.color(), kRed);
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

// ---- Colours

TEST_F(Chest, TheSliderHoldsTheIndexOfThePalette) {
  store.toolcolor[0] = 12;
  work([&](dlgToolPrms& chest) {
    EXPECT_EQ(chest.Slider1.minimum(), 0);
    EXPECT_EQ(chest.Slider1.maximum(), 15);
    EXPECT_EQ(chest.Slider1.value(), 12);
    EXPECT_EQ(chest.picColor.color(), paletteColor(12));
    EXPECT_FALSE(store.setupchanged);
    chest.Slider1.slide(3);
    EXPECT_EQ(store.toolcolor[0], 3);
    EXPECT_EQ(chest.picColor.color(), paletteColor(3));
    EXPECT_TRUE(store.setupchanged);
    chest.Slider1.setValue(4.4);
    EXPECT_EQ(store.toolcolor[0], 4);
  });
}

TEST_F(Chest, ADirectColorLeavesTheSliderWhereItWas) {
  store.toolcolor[0] = 9;
  store.toolcolor[2] = 0x123456;
  store.toolcolor[40] = -1;
  work([&](dlgToolPrms& chest) {
    choose(chest, 1);
    EXPECT_EQ(chest.Slider1.value(), 9);
    EXPECT_EQ(chest.picColor.color(), 0x123456);
    choose(chest, 2);
    EXPECT_EQ(chest.Slider1.value(), 9);
    EXPECT_EQ(chest.picColor.color(), 0) << "black";
    chest.cmdAccept.press();
  });
  EXPECT_EQ(store.toolcolor[2], 0x123456);
  EXPECT_EQ(store.toolcolor[40], -1);
}

TEST_F(Chest, ThePaletteButtonTakesADirectColor) {
  store.toolcolor[0] = 2;
  work([&](dlgToolPrms& chest) {
    chest.cmdColorPalette.press();
    EXPECT_EQ(store.toolcolor[0], 2) << "cancelled";
    EXPECT_FALSE(store.setupchanged);
    colors.answer = 0x0000FF;
    chest.cmdColorPalette.press();
    EXPECT_EQ(store.toolcolor[0], 0x0000FF);
    EXPECT_EQ(chest.picColor.color(), 0x0000FF);
    EXPECT_EQ(chest.Slider1.value(), 2);
    EXPECT_TRUE(store.setupchanged);
  });
  EXPECT_EQ(colors.asked, (std::vector<Rgb>{paletteColor(2), paletteColor(2)}));
}

TEST_F(Chest, TheDarkestRedsStayDirectColors) {
  for (const auto& [chosen, stored] : {std::pair{0, 0}, {1, 16}, {12, 16}, {16, 16}}) {
    colors.answer = chosen;
    work([&](dlgToolPrms& chest) { chest.cmdColorPalette.press(); });
    EXPECT_EQ(store.toolcolor[0], stored);
  }
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

// ---- Advice

TEST_F(Chest, AdvisesInTheDrawingsUnits) {
  work([](dlgToolPrms& chest) {
    EXPECT_EQ(chest.lblAdvice.caption(),
              "Spindle: 1451 rpm\n"
              "Chip load for this diameter: 0.0018 in per tooth\n"
              "Feed: 5.3 ipm roughing, 5.2 ipm finishing\n"
              "The roughing feed is 1.02 times larger because of the step-over of 40 %");
  });
  store.units = "M";
  set_num_formats(test.session);
  store.toolradius[0] = 3;
  store.cfg_tool_spacing = 50;
  work([](dlgToolPrms& chest) {
    EXPECT_EQ(chest.lblSpindleSpeed.caption(), "60") << "millimetres taken for inches";
    EXPECT_EQ(chest.lblAdvice.caption(),
              "Spindle: 1536 rpm\n"
              "Chip load for this diameter: 0.043 mm per tooth\n"
              "Feed: 133 mm/min roughing, 133 mm/min finishing\n"
              "The recommendation above takes millimetres for inches.");
  });
}

TEST_F(Chest, AdviceEndsAtTheSpindlesHighestSpeed) {
  store.highestspindle = 1000;
  work([](dlgToolPrms& chest) {
    EXPECT_EQ(chest.lblAdvice.caption().substr(0, 51),
              "Spindle: 1000 rpm, the highest (right would be 1451");
    EXPECT_EQ(chest.lblSpindleSpeed.caption(), "1451") << "the recommendation knows no limit";
    chest.cmdUseAdvice.press();
  });
  EXPECT_EQ(store.toolspindlespeed[0], 1000);
  EXPECT_EQ(store.cfg_finish_feedrate, 3.6F);
}

TEST_F(Chest, OneButtonTakesFeedsAndSpeed) {
  work([&](dlgToolPrms& chest) {
    EXPECT_TRUE(chest.cmdUseAdvice.isEnabled());
    chest.cmdUseAdvice.press();
    EXPECT_EQ(chest.txtSpindleSpeed.text(), "1451");
    chest.cmdExit.press();
  });
  EXPECT_EQ(store.cfg_rough_feedrate, 5.3F);
  EXPECT_EQ(store.cfg_finish_feedrate, 5.2F);
  EXPECT_EQ(store.toolspindlespeed[0], 1451);
  EXPECT_TRUE(store.setupchanged);
}

// ---- The library

TEST_F(Chest, ExportsWhatItShows) {
  test.recording.prompts.files = {test.home("tools.csv"), test.home("tools.tbl"), std::nullopt};
  work([](dlgToolPrms& chest) {
    chest.txttool.type("renamed");
    chest.cmdExport.press();
    chest.cmdExport.press();
    chest.cmdExport.press();
  });
  const FileRequest& asked = test.recording.prompts.fileRequests.at(0);
  EXPECT_EQ(asked.title, "Export Tools");
  EXPECT_EQ(asked.pattern, "Tool Libraries (*.csv;*.tbl)|*.csv;*.tbl|All Files (*.*)|*.*");
  EXPECT_EQ(asked.name, "tools.csv");
  EXPECT_TRUE(asked.forSaving);
  EXPECT_NE(test.home.read("tools.csv").find("1,renamed,end,HSS,2,0.25,in"), std::string::npos);
  EXPECT_EQ(test.home.read("tools.tbl").find("T1 P1 D0.25 ;renamed\n"), 0U);
}

TEST_F(Chest, ImportsAndSaysWhatCameOfIt) {
  const std::string path = test.home.write("my.csv", "number,name\n1,first\n2,a new one\n");
  test.recording.prompts.files = {path};
  work([](dlgToolPrms& chest) {
    chest.cmdImport.press();
    EXPECT_EQ(chest.txttool.text(), "first               ");
    EXPECT_EQ(chest.List1.items()[1], " 2: a new one");
  });
  ASSERT_EQ(test.messages().size(), 1U);
  EXPECT_EQ(test.messages()[0].text, "2 tools were taken over.");
  EXPECT_EQ(test.messages()[0].title, "Import Tools");
  EXPECT_FALSE(test.recording.prompts.fileRequests.at(0).forSaving);
}

TEST_F(Chest, NamesTheLinesThatItCouldNotTake) {
  std::string text = "number,name\n1,first\n";
  for (int i = 0; i < 17; ++i) text += "x,y\n";
  const std::string path = test.home.write("my.csv", text);
  test.recording.prompts.files = {path};
  work([](dlgToolPrms& chest) { chest.cmdImport.press(); });
  ASSERT_EQ(test.messages().size(), 1U);
  const std::string& shown = test.messages()[0].text;
  EXPECT_EQ(
      shown.find("1 tool was taken over.\n" + path + ":3: The tool number \"x\" is not a number\n"),
      0U);
  EXPECT_TRUE(shown.ends_with(":17: The tool number \"x\" is not a number\nand 2 more."));
  EXPECT_EQ(test.messages()[0].icon, MessageIcon::Warning);
}

TEST_F(Chest, AFileOfAnotherEndingIsNeitherReadNorWritten) {
  test.recording.prompts.files = {test.home("tools.txt"), test.home.write("x.msu", "")};
  work([](dlgToolPrms& chest) {
    chest.cmdExport.press();
    chest.cmdImport.press();
  });
  ASSERT_EQ(test.messages().size(), 2U);
  EXPECT_EQ(test.messages()[0].text,
            "tools.txt: a tool library is a .csv file or a tool table, .tbl");
  EXPECT_EQ(test.messages()[1].text, "x.msu: a tool library is a .csv file or a tool table, .tbl");
  EXPECT_FALSE(test.home.has("tools.txt"));
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

// ---- The choice of a colour

TEST(ColorForm, ShowsAndGivesBackAColor) {
  TestSession test;
  FormColorDialog dialog(test.recording.prompts);
  test.recording.prompts.onForm = [](Form& form) {
    auto& color = dynamic_cast<dlgColor&>(form);
    EXPECT_EQ(color.caption(), "Color");
    EXPECT_EQ(color.txtRed.text(), "86");
    EXPECT_EQ(color.txtGreen.text(), "52");
    EXPECT_EQ(color.txtBlue.text(), "18");
    EXPECT_EQ(color.picColor.color(), 0x123456);
    color.txtBlue.type("255");
    EXPECT_EQ(color.picColor.color(), 0xFF3456);
    color.cmdAccept.press();
  };
  EXPECT_EQ(dialog.chooseColor(0x123456), 0xFF3456);
  EXPECT_EQ(test.recording.prompts.formNames, Texts{"dlgColor"});
}

TEST(ColorForm, CancelGivesNone) {
  TestSession test;
  FormColorDialog dialog(test.recording.prompts);
  test.recording.prompts.onForm = [](Form& form) {
    dynamic_cast<dlgColor&>(form).cmdCancel.press();
  };
  EXPECT_EQ(dialog.chooseColor(0), std::nullopt);
}

TEST(ColorForm, ValuesOutsideTheRangeAreTheNearestInside) {
  TestSession test;
  FormColorDialog dialog(test.recording.prompts);
  test.recording.prompts.onForm = [](Form& form) {
    auto& color = dynamic_cast<dlgColor&>(form);
    color.txtRed.setText("300");
    color.txtGreen.setText("-4");
    color.txtBlue.setText("blue");
    color.cmdAccept.press();
  };
  EXPECT_EQ(dialog.chooseColor(0x123456), 0x0000FF);
}

}  // namespace
}  // namespace tess
