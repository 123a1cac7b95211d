// The table of settings: every line of it once through file, script and store.
#include "core/settings.h"

#include <set>

#include "gtest/gtest.h"

#include "core/drawing_store.h"
#include "core/runtime_failure.h"
#include "core/text.h"
#include "tests/support/failure_of.h"

namespace tess {
namespace {

using testing::numberOfFailure;

const SettingRow& setting(std::string_view key) {
  const SettingRow* row = findSetting(key);
  if (row == nullptr) throw typeMismatch();
  return *row;
}

std::string entry(const DrawingStore& store, std::string_view key) {
  std::string text;
  appendSetting(text, store, setting(key));
  return text;
}

TEST(SettingRows, KeysAreLowerCaseAndUniqueButForTheRepeatedOne) {
  std::set<std::string_view> keys;
  int repeated = 0;
  for (const SettingRow& row : settingRows()) {
    EXPECT_EQ(row.key, lowerCased(trimmed(row.key)));
    EXPECT_NE(keys.insert(row.key).second, row.repeated) << row.key;
    repeated += row.repeated;
  }
  EXPECT_EQ(repeated, 1);
  EXPECT_EQ(settingRows().size(), 88U);
}

TEST(SettingRows, NoRowKeyIsASettingKey) {
  for (const auto rows : {toolSettings(), cycleSettings()}) {
    ASSERT_FALSE(rows.empty());
    for (const RowSetting& row : rows) EXPECT_EQ(findSetting(row.key), nullptr) << row.key;
  }
}

TEST(FindSetting, CaseAndBlanksDoNotMatter) {
  EXPECT_EQ(findSetting(" Final DEPTH\t"), findSetting("final depth"));
  EXPECT_NE(findSetting("final depth"), nullptr);
  EXPECT_EQ(findSetting("main color"), nullptr);
  EXPECT_EQ(findSetting(""), nullptr);
}

TEST(FindRowSetting, KnowsTheKeysOfItsTable) {
  EXPECT_NE(findRowSetting(toolSettings(), "Tool Radius "), nullptr);
  EXPECT_EQ(findRowSetting(toolSettings(), "cycle dwell"), nullptr);
  EXPECT_NE(findRowSetting(cycleSettings(), "cycle dwell"), nullptr);
}

TEST(Settings, NumbersAndTextsReachTheVariable) {
  DrawingStore store;
  setSettingNumber(store, setting("final depth"), 0.25);
  EXPECT_EQ(store.cfg_final_depth, 0.25F);
  EXPECT_EQ(settingNumber(store, setting("final depth")), 0.25);
  EXPECT_EQ(settingText(store, setting("final depth")), "0.25");
  setSettingText(store, setting("final depth"), " +.5 ");
  EXPECT_EQ(store.cfg_final_depth, 0.5F);
  setSettingNumber(store, setting("cutting mode"), 2.5);
  EXPECT_EQ(store.cfg_cutting_mode, 2) << "ties go to the even number";
  EXPECT_EQ(settingText(store, setting("cutting mode")), "2");
  setSettingNumber(store, setting("round stock"), -1);
  EXPECT_TRUE(store.roundstock);
  EXPECT_EQ(settingNumber(store, setting("round stock")), -1);
  EXPECT_EQ(settingText(store, setting("round stock")), "-1");
  setSettingText(store, setting("drawing title"), "Plate 7");
  EXPECT_EQ(store.drawingtitle, "Plate 7");
  EXPECT_EQ(settingText(store, setting("drawing title")), "Plate 7");
  EXPECT_EQ(settingNumber(store, setting("drawing title")), 0);
  setSettingNumber(store, setting("drawing title"), 7.5);
  EXPECT_EQ(store.drawingtitle, "7.5");
  EXPECT_EQ(settingNumber(store, setting("drawing title")), 7.5);
  setSettingNumber(store, setting("marker color"), 12);
  EXPECT_EQ(store.colortable[7], 12);
  EXPECT_EQ(settingNumber(store, setting("marker color")), 12);
  EXPECT_TRUE(isTextSetting(setting("drawing title")));
  EXPECT_FALSE(isTextSetting(setting("marker color")));
}

TEST(Settings, ValuesThatDoNotFitAreRefused) {
  DrawingStore store;
  const SettingRow& mode = setting("cutting mode");
  const SettingRow& depth = setting("final depth");
  EXPECT_EQ(numberOfFailure([&] { setSettingNumber(store, mode, 32768); }),
            FailureNumber::Overflow);
  EXPECT_EQ(numberOfFailure([&] { setSettingNumber(store, depth, 1e39); }),
            FailureNumber::Overflow);
  for (const char* text : {"abc", "1x", "", "-"}) {
    EXPECT_EQ(numberOfFailure([&] { setSettingText(store, depth, text); }),
              FailureNumber::TypeMismatch)
        << text;
  }
}

TEST(ReadSetting, LandsWhereTheRowSays) {
  DrawingStore store;
  readSetting(store, setting("visual grid"), " .5");
  EXPECT_EQ(store.defaults.visualgrid, 0.5F);
  EXPECT_EQ(store.visualgrid, 0.0F);
  readSetting(store, setting("start depth"), "2");
  EXPECT_EQ(store.cfg_start_depth, 2.0F);
  EXPECT_EQ(store.defaults.cfg_start_depth, 0.0F);
  readSetting(store, setting("units of measure"), "m");
  EXPECT_EQ(store.units, "M");
  EXPECT_EQ(store.defaults.units, "M");
  readSetting(store, setting("cnc output path"), "C:\\Out\\");
  EXPECT_EQ(store.cncoutputpath, "c:\\out\\");
}

TEST(ReadSetting, OnlyTheTextOneIsOne) {
  DrawingStore store;
  for (const char* key :
       {"auto comments", "using chuck", "end markers", "part template", "tool outline"}) {
    for (const char* text : {"-1", "1.0", "True", "0", "", "11"}) {
      setSettingNumber(store, setting(key), 1);
      readSetting(store, setting(key), text);
      EXPECT_EQ(settingNumber(store, setting(key)), 0) << key << text;
    }
    readSetting(store, setting(key), " 1 ");
    EXPECT_EQ(settingNumber(store, setting(key)), 1) << key;
  }
}

TEST(ReadSetting, BooleanIsTrueForTheWordOrANumber) {
  DrawingStore store;
  for (const char* text : {"True", "TRUE", "-1", "2"}) {
    store.roundstock = false;
    readSetting(store, setting("round stock"), text);
    EXPECT_TRUE(store.roundstock) << text;
  }
  for (const char* text : {"False", "0", "", "yes"}) {
    readSetting(store, setting("round stock"), text);
    EXPECT_FALSE(store.roundstock) << text;
  }
}

TEST(AppendSetting, EachKindHasItsForm) {
  DrawingStore store;
  store.cfg_final_depth = -0.25F;
  store.xorigin = 1;
  store.cfg_tolerance = 0.0001F;
  store.cfg_lead_in_angle = 45;
  store.cfg_gouge_avoidance = true;
  store.roundstock = true;
  store.partdimx = 0.5F;
  EXPECT_EQ(entry(store, "final depth"), "final depth =-.25\r\n");
  EXPECT_EQ(entry(store, "x origin"), "x origin = 1\r\n");
  EXPECT_EQ(entry(store, "part dim x"), "part dim x = .5\r\n");
  EXPECT_EQ(entry(store, "tolerence"), "tolerence =0.0001\r\n");
  EXPECT_EQ(entry(store, "lead in angle"), "lead in angle =45\r\n");
  EXPECT_EQ(entry(store, "gouge avoidance"), "gouge avoidance =-1\r\n");
  EXPECT_EQ(entry(store, "round stock"), "round stock =True\r\n");
  EXPECT_EQ(entry(store, "lead in path"), "lead in path =False\r\n");
}

TEST(AppendSetting, TextStandsOnOneLine) {
  DrawingStore store;
  store.drawingtitle = "two\r\nlines";
  store.partmaterial = "6061, T6";
  EXPECT_EQ(entry(store, "drawing title"), "drawing title =two  lines\r\n");
  EXPECT_EQ(entry(store, "part material"), "part material =6061| T6\r\n");
}

TEST(RowSettings, ReachTheirColumns) {
  DrawingStore store;
  readRowSetting(store, *findRowSetting(toolSettings(), "tool name"), 3, "End MILL");
  EXPECT_EQ(store.toolname[3], "end mill");
  readRowSetting(store, *findRowSetting(toolSettings(), "tool path color"), 3, "16711680");
  EXPECT_EQ(store.toolcolor[3], 16711680);
  std::string text;
  appendRowSetting(text, store, *findRowSetting(toolSettings(), "tool path color"), 3);
  appendRowSetting(text, store, *findRowSetting(toolSettings(), "tool name"), 3);
  EXPECT_EQ(text, "tool path color = 16711680\r\ntool name =end mill\r\n");
  const RowSetting& flutes = *findRowSetting(toolSettings(), "tool number of flutes");
  EXPECT_EQ(numberOfFailure([&] { readRowSetting(store, flutes, 100, "2"); }),
            FailureNumber::SubscriptOutOfRange);
  EXPECT_EQ(numberOfFailure([&] { readRowSetting(store, flutes, 0, "40000"); }),
            FailureNumber::Overflow);
}

}  // namespace
}  // namespace tess
