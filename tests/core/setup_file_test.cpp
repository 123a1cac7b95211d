// Setup files in and out, the files around them, and the option menu's commands.
#include "core/setup_file.h"

#include <algorithm>
#include <filesystem>
#include <random>
#include <sstream>

#include "gmock/gmock.h"
#include "gtest/gtest.h"
#include "rapidcheck/gtest.h"

#include "core/drawing_store.h"
#include "core/file_system.h"
#include "core/settings.h"
#include "tests/support/failure_of.h"
#include "tests/support/recording_session.h"

namespace tess {
namespace {

using ::testing::ElementsAre;
using testing::failureOf;
using ::testing::HasSubstr;
using ::testing::Not;
using testing::TestSession;

// A whole setup as the writer gives it.
const char kSetup[] =
    "x origin = 1\r\ny origin =-1\r\nz origin =-1\r\ndrawing title =Plate\r\n"
    "designer name =A. Smith\r\ndrawing revision =B\r\npart material =6061| T6\r\n"
    "part hardness =95 HB\r\nmaterial condition =Cold Drawn\r\n"
    "material category =Alluminum Alloys\r\nround stock =False\r\npart dim x = 4\r\n"
    "part dim y = 3\r\npart dim z = .5\r\nfinal depth =-.25\r\nx start pos = 0\r\n"
    "y start pos = 0\r\nz start pos = 1\r\nx change = 0\r\ny change = 0\r\nz change = 2\r\n"
    "minimum roughing clearance = .05\r\ntool spacing = 60\r\ntool spacing distance = .15\r\n"
    "final depth =-.25\r\nstart depth = 0\r\nz cut per pass = .1\r\nminimum z finish = .01\r\n"
    "roughing feedrate = 12\r\nfinishing feedrate = 9.5\r\nz plunge rate = 4\r\n"
    "cutting mode = 1\r\npocketing style = 2\r\nlathe style pocketing = 0\r\n"
    "cut width type = 1\r\ngouge avoidance =-1\r\nconnect pocketing paths = 0\r\n"
    "pocket distance from center = 0\r\nauto place finish path =-1\r\ntolerence =0.0001\r\n"
    "use r-param for arcs =True\r\nlead in path =False\r\nlead in arc =True\r\n"
    "lead in length =0.25\r\nlead in angle =45\r\nselected tool = 0\r\nauto comments = 1\r\n"
    "using chuck = 0\r\ncnc output path =c:\\out\\\r\nend markers = 1\r\npart template = 0\r\n"
    "tool outline = 1\r\nvisual grid = .5\r\nvisual grid f = 1\r\ncursor grid = .125\r\n"
    "cursor grid f =-1\r\nunits of measure =I\r\nbackground color = 15\r\nstock color = 7\r\n"
    "draw color = 1\r\nselect color = 4\r\nverified color = 2\r\ngrid color = 8\r\n"
    "marker color = 12\r\n";

const char kCycles[] =
    "cycle # = 1\r\ncycle text =G81 Drill\r\ncycle final depth =-.5\r\ncycle incr depth = .1\r\n"
    "cycle dwell = 0\r\ncycle feedrate = 6\r\ncycle # = 2\r\ncycle text =G83 Peck\r\n"
    "cycle final depth =-1\r\ncycle incr depth = .25\r\ncycle dwell = 1.5\r\n"
    "cycle feedrate = 4\r\n";

const char kTools[] =
    "tool # = 1\r\ntool name =end mill\r\ntool radius = .125\r\ntool path color = 12\r\n"
    "tool material =Carbide\r\ntool milltype = 1\r\ntool number of flutes = 4\r\n"
    "feed rate =12.5\r\nspindle speed = 2500\r\nrecommended spindle speed = 2600.5\r\n"
    "cutting speed = 300\r\ntool # = 5\r\ntool name =drill\r\ntool radius = .0625\r\n"
    "tool path color = 16711680\r\ntool material =HSS\r\ntool milltype = 0\r\n"
    "tool number of flutes = 2\r\nfeed rate =3\r\nspindle speed = 0\r\n"
    "recommended spindle speed = 0\r\ncutting speed = 90\r\n";

std::string wholeSetup() {
  return std::string(kSetup) + kCycles + kTools;
}

class SetupFile : public ::testing::Test {
 protected:
  void read(const std::string& content) {
    FieldReader fields("mill.msu", content);
    readSetup(session, fields);
  }
  // The text of a setup after defaults went live, as it is when a setup is saved.
  std::string written() {
    for (const SettingRow& row : settingRows()) {
      if (row.goesTo == GoesTo::Default) makeLive(row);
    }
    return setupText(session);
  }
  void makeLive(const SettingRow& row) {
    std::visit(
        [this](auto field) {
          if constexpr (!std::is_same_v<decltype(field), ColorTableSlot>) {
            store.*field = store.defaults.*field;
          }
        },
        row.field);
  }

  TestSession test;
  Session& session = test.session;
  DrawingStore& store = test.store;
};

TEST_F(SetupFile, WhatIsReadIsWrittenAgain) {
  read(wholeSetup());
  EXPECT_EQ(written(), wholeSetup());
  EXPECT_TRUE(test.messages().empty());
}

TEST_F(SetupFile, ValuesReachSettingsDefaultsAndTables) {
  read(wholeSetup());
  EXPECT_EQ(store.defaults.drawingtitle, "Plate");
  EXPECT_EQ(store.drawingtitle, "") << "held for the next new drawing";
  EXPECT_EQ(store.defaults.partmaterial, "6061, T6");
  EXPECT_EQ(store.cfg_final_depth, -0.25F);
  EXPECT_EQ(store.NumCycles, 2);
  EXPECT_EQ(store.cycletext[1], "G83 Peck");
  EXPECT_EQ(store.cycletext.upperBound(), 1);
  EXPECT_EQ(store.toolname[4], "drill");
  EXPECT_EQ(store.toolfeedrate[0], "12.5");
  EXPECT_EQ(store.colorsinuse[7], 12);
  EXPECT_TRUE(isConsistent(store));
}

TEST_F(SetupFile, EffectsAreAnnouncedInTheirOrder) {
  store.setupchanged = true;
  store.units = "M";
  read("units of measure =I\r\n");
  EXPECT_FALSE(store.setupchanged);
  EXPECT_EQ(session.formats.coordfmt, "##0.0000");
  EXPECT_THAT(test.listener.take(), ElementsAre("resetObjectSnap", "load_xsetup",
                                                "UpdateGridButtons", "Update_menu_checks"));
}

TEST_F(SetupFile, EventsAreServedBetweenEntries) {
  read("x origin = 1\r\nno entry\r\ny origin = 1\r\n");
  EXPECT_EQ(test.recording.surroundings.eventsServed, 2);
}

// The lines of a setup, tools and cycles as blocks that keep together.
std::vector<std::string> blocksOf(const std::string& text) {
  std::vector<std::string> blocks;
  std::istringstream lines(text);
  for (std::string line; std::getline(lines, line);) {
    const bool continues = line.find("ycle ") != std::string::npos || line.starts_with("tool ") ||
                           line.starts_with("feed rate") ||
                           line.find("pindle speed") != std::string::npos ||
                           line.starts_with("cutting speed");
    const bool ofARow = continues && !line.starts_with("tool #") && !line.starts_with("cycle #") &&
                        findSetting(line.substr(0, line.find('='))) == nullptr;
    if (ofARow) {
      blocks.back() += line + "\n";
    } else {
      blocks.push_back(line + "\n");
    }
  }
  return blocks;
}

TEST_F(SetupFile, EntriesInAnyOrderGiveTheSameState) {
  std::mt19937 random(20260309);
  std::vector<std::string> blocks = blocksOf(wholeSetup());
  ASSERT_EQ(blocks.size(), 68U);
  for (int round = 0; round < 20; ++round) {
    std::shuffle(blocks.begin(), blocks.end(), random);
    std::string shuffled;
    for (const std::string& block : blocks) shuffled += block;
    read(shuffled);
    EXPECT_EQ(written(), wholeSetup());
  }
}

TEST_F(SetupFile, KeysIgnoreCaseAndBlanksAndLinesWithoutEqualsAreSkipped) {
  read("a remark\r\n  Final Depth=2=3\r\nSTART DEPTH = 1.5 \r\n");
  EXPECT_EQ(store.cfg_final_depth, 2.0F) << "the value begins behind the first sign";
  EXPECT_EQ(store.cfg_start_depth, 1.5F);
  EXPECT_TRUE(test.messages().empty());
}

TEST_F(SetupFile, UnknownEntryIsShownAndReadingGoesOn) {
  read("main color = 3\r\nstart depth = 2\r\n");
  ASSERT_EQ(test.messages().size(), 1U);
  EXPECT_EQ(test.messages()[0].text,
            "Unknown setup file entry: \nmain color = 3\n\nPress OK to continue loading.\n"
            "mill.msu line 1 field 1");
  EXPECT_EQ(store.cfg_start_depth, 2.0F);
}

TEST_F(SetupFile, MaterialWithACommaSurvives) {
  store.partmaterial = "Steel, mild, 1018";
  const std::string text = setupText(session);
  EXPECT_THAT(text, HasSubstr("part material =Steel| mild| 1018\r\n"));
  read(text);
  EXPECT_EQ(store.defaults.partmaterial, "Steel, mild, 1018");
}

TEST_F(SetupFile, ToolNameIsCutAtItsComma) {
  store.toolname[0] = "Tool A, rough";
  read(setupText(session));
  EXPECT_EQ(store.toolname[0], "tool a");
  EXPECT_TRUE(test.messages().empty()) << "the rest of the line has no sign and is skipped";
}

TEST_F(SetupFile, HundredthToolIsReadAndLostAtTheNextWrite) {
  read("tool # = 100\r\ntool name =last\r\ntool # = 99\r\ntool name =last but one\r\n");
  EXPECT_EQ(store.toolname[99], "last");
  const std::string text = setupText(session);
  EXPECT_THAT(text, HasSubstr("tool name =last but one\r\n"));
  EXPECT_THAT(text, ::testing::Not(HasSubstr("tool name =last\r\n")));
}

TEST_F(SetupFile, CycleFiveAsTheFirstEntryGivesFiveCyclesTheFirstOnesEmpty) {
  read(wholeSetup());
  read("cycle # = 5\r\ncycle text =G89\r\n");
  EXPECT_EQ(store.NumCycles, 5);
  EXPECT_EQ(store.cycletext.upperBound(), 4);
  EXPECT_EQ(store.cycletext[4], "G89");
  for (int row = 0; row < 4; ++row) {
    EXPECT_EQ(store.cycletext[row], "") << row;
    EXPECT_EQ(store.cyclefinaldepth[row], 0.0F) << row;
  }
}

TEST_F(SetupFile, FieldBeforeItsFirstRowGoesToRowZero) {
  read("tool name =stray\r\ncycle text =G80\r\n");
  EXPECT_EQ(store.toolname[0], "stray");
  EXPECT_EQ(store.cycletext[0], "G80");
  EXPECT_EQ(store.NumCycles, 0);
}

TEST_F(SetupFile, ChestIsThatOfTheFile) {
  store.toolname[7] = "left over";
  read(kTools);
  EXPECT_EQ(store.toolname[7], "");
  EXPECT_EQ(store.toolname[0], "end mill");
}

TEST_F(SetupFile, ChuckSetByTheDialogReadsBackAsFalse) {
  store.usingchuck = -1;
  const std::string text = setupText(session);
  EXPECT_THAT(text, HasSubstr("using chuck =-1\r\n"));
  read(text);
  EXPECT_EQ(store.usingchuck, 0);
}

TEST_F(SetupFile, CommentsReadAsOneStayOneThroughWritingAndReading) {
  read("auto comments = 1\r\nusing chuck = 1\r\n");
  for (int round = 0; round < 2; ++round) {
    EXPECT_EQ(store.autocomments, 1);
    EXPECT_EQ(store.usingchuck, 1);
    read(setupText(session));
  }
}

TEST_F(SetupFile, ToleranceOfZeroOrLessBecomesTheSmallest) {
  for (const char* value : {"0", "-1", ""}) {
    read(std::string("tolerence =") + value + "\r\n");
    EXPECT_EQ(store.cfg_tolerance, 0.0001F) << value;
  }
  read("tolerence =0.002\r\n");
  EXPECT_EQ(store.cfg_tolerance, 0.002F);
}

TEST_F(SetupFile, WidthByPercentSetsTheDistance) {
  read(std::string(kTools) + "cut width type = 0\r\ntool spacing = 33.333\r\n");
  EXPECT_EQ(store.cfg_cut_width_type, 1);
  EXPECT_EQ(store.cfg_tool_spacing_distance, 0.0833F);
}

TEST_F(SetupFile, WidthByDistanceSetsThePercentage) {
  read(std::string(kTools) +
       "cut width type = 2\r\ntool spacing distance = .1\r\nselected tool = 4\r\n");
  EXPECT_EQ(store.cfg_tool_spacing, 80.0F);
  read(std::string(kTools) +
       "cut width type = 2\r\ntool spacing distance = .0333\r\n"
       "selected tool = 0\r\n");
  EXPECT_EQ(store.cfg_tool_spacing, 13.32F);
}

TEST_F(SetupFile, RadiusOfZeroIsADivisionFailureAndTheStepsBehindItRun) {
  read("cut width type = 2\r\nselected tool = 9\r\ntolerence =0\r\nmarker color = 5\r\n");
  ASSERT_EQ(test.recording.failures.reported.size(), 1U);
  EXPECT_EQ(test.recording.failures.reported[0].number(), FailureNumber::DivisionByZero);
  EXPECT_EQ(store.cfg_tolerance, 0.0001F);
  EXPECT_EQ(store.colorsinuse[7], 5);
  EXPECT_THAT(test.listener.take(), ::testing::Contains("load_xsetup"));
}

TEST_F(SetupFile, SelectedToolOutsideTheChestIsReported) {
  read("selected tool = 100\r\n");
  ASSERT_EQ(test.recording.failures.reported.size(), 1U);
  EXPECT_EQ(test.recording.failures.reported[0].number(), FailureNumber::SubscriptOutOfRange);
}

TEST_F(SetupFile, WidthThatFitsNoNumberIsReported) {
  read("tool # = 1\r\ntool radius = 1e38\r\nselected tool = 0\r\ntool spacing = 1e38\r\n");
  ASSERT_EQ(test.recording.failures.reported.size(), 1U);
  EXPECT_EQ(test.recording.failures.reported[0].number(), FailureNumber::Overflow);
}

struct BadEntry {
  const char* content;
  FailureNumber number;
  const char* source;
};

TEST_F(SetupFile, ValueThatDoesNotFitNamesItsPlace) {
  const BadEntry cases[] = {
      {"x origin = 1\r\ny origin = 40000\r\n", FailureNumber::Overflow, "mill.msu line 2 field 1"},
      {"part dim x = 1e39", FailureNumber::Overflow, "mill.msu line 1 field 1"},
      {"a,tool # = 99999", FailureNumber::Overflow, "mill.msu line 1 field 2"},
      {"tool # = 101\r\ntool name =x", FailureNumber::SubscriptOutOfRange,
       "mill.msu line 2 field 1"},
      {"cycle # = 0\r\ncycle dwell = 1", FailureNumber::SubscriptOutOfRange,
       "mill.msu line 2 field 1"},
  };
  for (const BadEntry& c : cases) {
    const RuntimeFailure failure = failureOf([&] { read(c.content); });
    EXPECT_EQ(failure.number(), c.number) << c.content;
    EXPECT_EQ(failure.source(), c.source) << c.content;
  }
}

TEST_F(SetupFile, SetupCutAtEveryByteReadsOrFailsCleanly) {
  const std::string whole = wholeSetup();
  for (std::size_t length = 0; length <= whole.size(); ++length) {
    test.messages().clear();
    read(whole.substr(0, length));
    EXPECT_TRUE(isConsistent(store)) << length;
    EXPECT_LE(test.messages().size(), 1U) << length;
  }
}

TEST_F(SetupFile, TheHighestSpindleSpeedIsWrittenOnlyWhenItIsSet) {
  read(wholeSetup());
  EXPECT_EQ(store.highestspindle, 0);
  EXPECT_THAT(written(), Not(HasSubstr("highest spindle speed")));
  store.highestspindle = 5000;
  EXPECT_THAT(written(), HasSubstr("z plunge rate = 4\r\nhighest spindle speed = 5000\r\ncutting"));
  read("Highest Spindle Speed = 2800\r\n");
  EXPECT_EQ(store.highestspindle, 2800);
  EXPECT_TRUE(test.messages().empty());
  read(wholeSetup());
  EXPECT_EQ(store.highestspindle, 0) << "a setup that does not tell it has none";
}

TEST_F(SetupFile, TheHoverPreviewIsWrittenOnlyWhenItIsOn) {
  read(wholeSetup());
  EXPECT_FALSE(store.hoverpreview);
  EXPECT_THAT(written(), Not(HasSubstr("hover preview")));
  store.hoverpreview = true;
  EXPECT_THAT(written(), HasSubstr("\r\nhover preview =-1\r\nunits of measure"));
  read("hover preview =-1\r\n");
  EXPECT_TRUE(store.hoverpreview);
  EXPECT_TRUE(test.messages().empty());
  read(wholeSetup());
  EXPECT_FALSE(store.hoverpreview) << "a setup that does not tell it does without";
}

TEST_F(SetupFile, TruePathsAreWrittenOnlyWhenTheyAreOn) {
  read(wholeSetup());
  EXPECT_FALSE(store.cfg_true_paths);
  EXPECT_THAT(written(), Not(HasSubstr("true paths")));
  store.cfg_true_paths = true;
  EXPECT_THAT(written(), HasSubstr("\r\ntrue paths =-1\r\ntolerence"));
  read("true paths =-1\r\n");
  EXPECT_TRUE(store.cfg_true_paths);
  EXPECT_TRUE(test.messages().empty());
  read(wholeSetup());
  EXPECT_FALSE(store.cfg_true_paths) << "a setup that does not tell it does without";
}

TEST_F(SetupFile, TheLooksOfTheScreenAreWrittenOnlyWhenTheyAreSet) {
  read(wholeSetup());
  for (const char* key : {"path direction", "path colors", "screen look"}) {
    EXPECT_THAT(written(), Not(HasSubstr(key)));
  }
  read("path direction = 1\r\npath colors = 1\r\nscreen look = 3\r\n");
  EXPECT_EQ(store.pathdirection, 1);
  EXPECT_EQ(store.pathcolors, 1);
  EXPECT_EQ(store.screenlook, 3);
  EXPECT_THAT(written(),
              HasSubstr("\r\npath direction = 1\r\npath colors = 1\r\nscreen look = 3\r\nvisual"));
  read(wholeSetup());
  EXPECT_EQ(store.pathdirection + store.pathcolors + store.screenlook, 0);
}

TEST_F(SetupFile, DesktopKeysAreWrittenOnlyWhenTheyAreOn) {
  read(wholeSetup());
  EXPECT_FALSE(store.desktopkeys);
  EXPECT_THAT(written(), Not(HasSubstr("desktop keys")));
  store.desktopkeys = true;
  EXPECT_THAT(written(), HasSubstr("\r\ndesktop keys =-1\r\nvisual grid"));
  read("desktop keys =-1\r\n");
  EXPECT_TRUE(store.desktopkeys);
  read(wholeSetup());
  EXPECT_FALSE(store.desktopkeys) << "a setup that does not tell it does without";
}

TEST_F(SetupFile, TheEngagementLimitIsWrittenWhereThereIsOne) {
  read(wholeSetup());
  EXPECT_THAT(written(), Not(HasSubstr("engagement")));
  store.cfg_engagement_limit = 37.5F;
  EXPECT_THAT(written(), HasSubstr("\r\nengagement limit = 37.5\r\ntolerence"));
  read("Engagement Limit = 25\r\n");
  EXPECT_EQ(store.cfg_engagement_limit, 25);
  EXPECT_TRUE(test.messages().empty());
  read(wholeSetup());
  EXPECT_EQ(store.cfg_engagement_limit, 0);
}

TEST_F(SetupFile, TheEntryIsWrittenAsFarAsItIsToldAndBackToThePlungeWithoutIt) {
  read(wholeSetup());
  EXPECT_THAT(written(), Not(HasSubstr("entry")));
  store.cfg_true_paths = true;
  store.cfg_entry_kind = 2;
  store.cfg_entry_angle = 3.5F;
  EXPECT_THAT(written(), HasSubstr("\r\ntrue paths =-1\r\nentry kind = 2\r\nentry angle = 3.5\r\n"
                                   "tolerence"));
  store.cfg_entry_radius = 0.25F;
  store.cfg_entry_feedrate = 6;
  EXPECT_THAT(written(), HasSubstr("entry radius = .25\r\nentry feedrate = 6\r\ntolerence"));
  read("Entry Kind = 1\r\nentry angle = 5\r\n");
  EXPECT_EQ(store.cfg_entry_kind, 1);
  EXPECT_EQ(store.cfg_entry_angle, 5);
  EXPECT_TRUE(test.messages().empty());
  read(wholeSetup());
  EXPECT_EQ(store.cfg_entry_kind, 0);
  EXPECT_EQ(store.cfg_entry_angle, 0);
}

TEST_F(SetupFile, PartHeightOfZeroIsWrittenAsAQuarter) {
  EXPECT_THAT(setupText(session), HasSubstr("part dim z = .25\r\n"));
  EXPECT_EQ(store.partdimz, 0.25F);
}

RC_GTEST_FIXTURE_PROP(SetupFile, NumbersSurviveWritingAndReading, ()) {
  for (const SettingRow& row : settingRows()) {
    if (isTextSetting(row) || row.kind == SettingKind::B || row.reading != Reading::Plain) continue;
    setSettingNumber(store, row, *rc::gen::inRange(1, 90));
  }
  store.cfg_final_depth = static_cast<float>(*rc::gen::inRange(-9999, 9999)) / 1024;
  store.cfg_tolerance = static_cast<float>(*rc::gen::inRange(1, 9999)) / 1e6F;
  store.cfg_cut_width_type = 3;
  const std::string text = setupText(session);
  read(text);
  RC_ASSERT(written() == text);
}

// The files.

TEST_F(SetupFile, OtherWordsThanLoadAndSaveDoNothing) {
  session.setupname = "mill.msu";
  for (const char* word : {"", "l", "s", "X"}) SetupTESS(session, word);
  EXPECT_FALSE(test.home.has("mill.msu"));
  EXPECT_TRUE(test.listener.take().empty());
}

TEST_F(SetupFile, SaveWritesBesideTheProgramAndClearsTheChange) {
  session.setupname = "mill.msu";
  store.setupchanged = true;
  store.toolname[3] = "drill";
  SetupTESS(session, "S");
  EXPECT_FALSE(store.setupchanged);
  EXPECT_EQ(test.home.read("mill.msu"), setupText(session));
  EXPECT_EQ(test.recording.surroundings.eventsServed, 2) << "once for the tool in each text";
  SetupTESS(session, "L");
  EXPECT_EQ(store.toolname[3], "drill");
}

TEST_F(SetupFile, DefaultsFileNamesTheSetup) {
  test.home.write("tess.def", "1.0\r\nmill.msu\r\n");
  test.home.write("Mill.msu", "start depth = 3\r\n");
  load_defaults(session);
  EXPECT_EQ(store.cfg_start_depth, 3.0F);
  EXPECT_EQ(session.setuppath, "mill.msu");
  EXPECT_EQ(session.setupname, "mill.msu");
}

TEST_F(SetupFile, MissingDefaultsFileIsTheOrdinaryFileFailure) {
  const RuntimeFailure failure = failureOf([&] { load_defaults(session); });
  EXPECT_EQ(failure.number(), FailureNumber::FileNotFound);
  EXPECT_EQ(failure.source(), test.home("tess.def"));
}

TEST_F(SetupFile, MissingSetupIsPrintedAndEndsTheProgram) {
  session.setuppath = "c:\\cnc\\gone.msu";
  EXPECT_THROW(load_setup(session), EndProgram);
  EXPECT_THAT(test.recording.surroundings.printed,
              ElementsAre("Could not find setup file: c:\\cnc\\gone.msu\nlooked for as " +
                          test.home("gone.msu")));
}

TEST_F(SetupFile, SetupOfAnotherFolderIsReadBesideTheProgram) {
  test.home.write("mill.msu", "start depth = 3\r\n");
  session.setuppath = "c:\\gone\\mill.msu";
  load_setup(session);
  EXPECT_EQ(store.cfg_start_depth, 3.0F);
  const std::string elsewhere = test.home.write("CNC/other.msu", "start depth = 4\r\n");
  session.setuppath = elsewhere;
  EXPECT_EQ(failureOf([&] { load_setup(session); }).source(), test.home("other.msu"));
}

TEST_F(SetupFile, SaveDefaultsNamesTheSetupAndSavesIt) {
  session.setuppath = test.home("CNC/mine.msu");
  save_defaults(session);
  EXPECT_EQ(test.home.read("tess.def"), "1.0\r\nmine.msu\r\n");
  EXPECT_TRUE(test.home.has("mine.msu"));
}

TEST_F(SetupFile, SaveAsDefaultLoadsWhatItSaved) {
  session.setuppath = "mine.msu";
  store.cfg_tolerance = 0;
  mnuOptionsSaveAsDefault_Click(session);
  EXPECT_EQ(store.cfg_tolerance, 0.0001F);
  EXPECT_TRUE(test.home.has("mine.msu"));
}

TEST_F(SetupFile, BlankSetupPathBecomesTheFirstName) {
  mnuOptionsSaveSetup_Click(session);
  EXPECT_EQ(session.setuppath, test.home("Mill"));
  EXPECT_TRUE(test.home.has("Mill"));
}

TEST_F(SetupFile, SaveSetupAsTakesANewName) {
  session.setupname = "mill.msu";
  test.recording.prompts.files = {test.home("CNC/new")};
  mnuOptionsSaveSetupAs_Click(session);
  const FileRequest& request = test.recording.prompts.fileRequests.at(0);
  EXPECT_EQ(request.title, "Save Setup As");
  EXPECT_EQ(request.pattern, "Setup Files (*.msu)|*.msu");
  EXPECT_EQ(request.folder, test.home());
  EXPECT_EQ(request.name, "mill.msu");
  EXPECT_TRUE(request.forSaving);
  EXPECT_EQ(session.setuppath, test.home("CNC/new.MSU"));
  EXPECT_EQ(store.drawingpath, test.home("CNC/"));
  EXPECT_TRUE(test.home.has("new.MSU")) << "beside the program, whatever folder was chosen";
}

TEST_F(SetupFile, SaveSetupAsStopsWithoutAName) {
  save_setup_As(session);
  test.recording.prompts.files = {std::string()};
  save_setup_As(session);
  EXPECT_EQ(session.setuppath, "");
}

TEST_F(SetupFile, SaveSetupAsAsksBeforeItOverwrites) {
  test.home.write("old.msu", "old");
  const std::string folder = store.drawingpath;
  test.recording.prompts.files = {test.home("old")};
  test.recording.prompts.answers = {Answer::Cancel};
  save_setup_As(session);
  ASSERT_EQ(test.messages().size(), 1U);
  EXPECT_EQ(test.messages()[0].text, "File already exists! Overwrite?");
  EXPECT_EQ(test.messages()[0].buttons, MessageButtons::YesNoCancel);
  EXPECT_EQ(test.home.read("old.msu"), "old");

  test.recording.prompts.files = {test.home("old")};
  test.recording.prompts.answers = {Answer::No};
  save_setup_As(session);
  EXPECT_EQ(test.recording.prompts.fileRequests.back().title, "Save As")
      << "a No goes on to the drawing's dialog";
  EXPECT_EQ(test.home.read("old.msu"), "old");
  EXPECT_EQ(store.drawingpath, folder);

  test.recording.prompts.files = {test.home("old")};
  test.recording.prompts.answers = {Answer::Yes};
  save_setup_As(session);
  EXPECT_NE(test.home.read("old.msu"), "old");
}

TEST_F(SetupFile, LoadSetupReadsTheChosenFileAndAppliesIt) {
  test.home.write("lathe.msu", "drawing title =Shaft\r\nunits of measure =m\r\n");
  test.recording.prompts.files = {test.home("lathe.msu")};
  mnuOptionLoadSetup_Click(session);
  const FileRequest& request = test.recording.prompts.fileRequests.at(0);
  EXPECT_EQ(request.title, "Setup File Selector");
  EXPECT_EQ(request.pattern, "*.MSU");
  EXPECT_EQ(request.folder, test.home());
  EXPECT_EQ(session.setupname, "lathe.msu");
  EXPECT_EQ(store.drawingtitle, "Shaft");
  EXPECT_EQ(session.formats.coordfmt, "####0.0000");
  EXPECT_EQ(test.listener.take().back(), "updateStatusDisplay");
}

TEST_F(SetupFile, LoadSetupAsksForUnsavedWork) {
  store.drawingsaved = false;
  for (const Answer answer : {Answer::Cancel, Answer::No}) {
    test.recording.prompts.answers = {answer};
    mnuOptionLoadSetup_Click(session);
    EXPECT_TRUE(test.recording.prompts.fileRequests.empty()) << "the drawing is still not saved";
  }
  EXPECT_EQ(test.messages()[0].text, "Drawing not saved! Save now?");
  EXPECT_EQ(test.messages()[0].buttons, MessageButtons::YesNoCancel);
  test.name("PART.CDM");
  test.recording.prompts.answers = {Answer::Yes};
  mnuOptionLoadSetup_Click(session);
  EXPECT_TRUE(test.home.has("CNC/PART.CDM"));
  EXPECT_EQ(test.recording.prompts.fileRequests.size(), 1U);
}

TEST_F(SetupFile, RevertReloadsTheDefaultsAfterAQuestion) {
  test.home.write("tess.def", "1.0\r\nmill.msu\r\n");
  test.home.write("mill.msu", "start depth = 3\r\ndrawing title =Plate\r\n");
  test.recording.prompts.answers = {Answer::Cancel, Answer::Ok};
  mnuOptionsRevertSaved_Click(session);
  EXPECT_EQ(store.cfg_start_depth, 0.0F);
  mnuOptionsRevertSaved_Click(session);
  EXPECT_EQ(test.messages()[0].text, "Changes will be lost! Load defaults from disk now?");
  EXPECT_EQ(test.messages()[0].buttons, MessageButtons::OkCancel);
  EXPECT_EQ(store.cfg_start_depth, 3.0F);
  EXPECT_EQ(store.drawingtitle, "Plate");
  EXPECT_EQ(test.listener.take().back(), "recover");
}

// Branding.

TEST_F(SetupFile, BrandingNamesProductAndCompany) {
  test.home.write("tess.cfg",
                  "; remark\r\n OEM Name =  Acme Mill, Pro \r\nother = 1\r\n"
                  "oem company=Acme, Inc.\r\n");
  readcfg(session);
  EXPECT_EQ(session.productname, "Acme Mill, Pro");
  EXPECT_EQ(session.companyname, "Acme, Inc.");
  EXPECT_THAT(test.listener.take(), ElementsAre("brandingRead"));
}

TEST_F(SetupFile, WithoutFileOrNameTheProductHasItsOwn) {
  readcfg(session);
  EXPECT_EQ(session.productname, "Tessimo Mill");
  test.home.write("tess.cfg", "oem name =  \r\noem company = Acme\r\n");
  readcfg(session);
  EXPECT_EQ(session.productname, "Tessimo Mill");
  EXPECT_EQ(session.companyname, "Acme");
}

}  // namespace
}  // namespace tess
