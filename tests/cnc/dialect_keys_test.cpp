// The keys by which a definition sets its dialect: what they take, and what comes of wrong ones.
#include "cnc/dialect_keys.h"

#include <string>
#include <vector>

#include "gmock/gmock.h"
#include "gtest/gtest.h"

#include "tests/cnc/cnc_fixture.h"
#include "tests/support/failure_of.h"
#include "tests/support/temp_folder.h"

namespace tess::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class DialectKeysTest : public CncFixture {
 protected:
  DialectKeysTest() { session.startupdone = true; }

  const Dialect& dialect() const { return definition.dialect; }

  std::vector<std::string> messages() const {
    std::vector<std::string> texts;
    for (const auto& message : host.prompts.messages) texts.push_back(message.text);
    return texts;
  }
};

std::string error(const std::string& what, const std::string& place) {
  return "Error in Post processor definition file:" + what + "\ntest.msx " + place;
}

// Every key with a value that is none of the defaults.
constexpr char kEveryKey[] =
    "UNITSIN,G20\r\nUNITSMM,\"G21, G64\"\r\nFEEDSCALE,1\r\nFEEDFORMAT,##0.0##\r\n"
    "SPEEDFORMAT,####0.\r\nCOMMENTEND,)\r\nCOMMENTCLEAN,()\r\nCOMMENTUPPER,Y\r\nHEADING,N\r\n"
    "CYCLES,ISO\r\nCYCLEKEEP,81 82 83\r\nCYCLEPECK,Q\r\nCYCLEDWELL,p\r\nDWELLSCALE,1000\r\n"
    "DWELLFORMAT,###0\r\nFULLCIRCLE,HALVES\r\nRMAXSWEEP,180\r\nARCTOL,0.0002\r\n"
    "LINENUMBERS,100,10\r\nSAFECHANGE,Y\r\nCYCLEWORDS,yes\r\nENDLIFT,Y\r\nCHANGEPOS,Y\r\n"
    "STARTHIGH,Y\r\nSPINDLEDUE,Y\r\nPLUNGEFROM,0.05\r\n"
    "LISTSTART,STARTTEXT\r\nG90 G94\r\nLISTEND\r\n"
    "LISTSTART,TOOLTEXT\r\nT{TOOL} M06\r\nG43 H{TOOL}\r\nLISTEND\r\n"
    "LISTSTART,SPINDLETEXT\r\nS{SPEED} M03\r\nG04 P2\r\nLISTEND\r\n"
    "LISTSTART,RESETTEXT\r\nLISTEND\r\n";

TEST_F(DialectKeysTest, EveryKeySetsItsValue) {
  define(kEveryKey);
  EXPECT_THAT(messages(), IsEmpty());
  EXPECT_EQ(definition.damage, "");
  EXPECT_EQ(dialect().unitsInch, "G20");
  EXPECT_EQ(dialect().unitsMetric, "G21, G64");
  EXPECT_EQ(dialect().feedScale, 1);
  EXPECT_EQ(dialect().feedFormat, "##0.0##");
  EXPECT_EQ(dialect().speedFormat, "####0.");
  EXPECT_EQ(dialect().commentEnd, ")");
  EXPECT_EQ(dialect().commentClean, "()");
  EXPECT_TRUE(dialect().commentUpper);
  EXPECT_FALSE(dialect().heading);
  EXPECT_EQ(dialect().cycles, CycleStyle::Iso);
  EXPECT_EQ(dialect().cycleKeep, CycleNumbers().set(81).set(82).set(83));
  EXPECT_EQ(dialect().cyclePeck, 'Q');
  EXPECT_EQ(dialect().cycleDwell, 'P');
  EXPECT_EQ(dialect().dwellScale, 1000);
  EXPECT_EQ(dialect().dwellFormat, "###0");
  EXPECT_EQ(dialect().fullCircle, FullCircle::Halves);
  EXPECT_EQ(dialect().rMaxSweep, 180);
  EXPECT_EQ(dialect().arcTol, 0.0002F);
  EXPECT_EQ(dialect().lineNumbers, (LineNumbers{.start = 100, .step = 10}));
  EXPECT_TRUE(dialect().safeChange);
  EXPECT_TRUE(dialect().cycleWords);
  EXPECT_TRUE(dialect().endLift);
  EXPECT_TRUE(dialect().changePos);
  EXPECT_TRUE(dialect().startHigh);
  EXPECT_TRUE(dialect().spindleDue);
  EXPECT_EQ(dialect().plungeFrom, 0.05F);
  EXPECT_THAT(dialect().startText, ElementsAre("G90 G94"));
  EXPECT_THAT(dialect().toolText, ElementsAre("T{TOOL} M06", "G43 H{TOOL}"));
  EXPECT_THAT(dialect().spindleText, ElementsAre("S{SPEED} M03", "G04 P2"));
  EXPECT_THAT(dialect().resetText, IsEmpty());
}

void expectDefaults(const Dialect& dialect) {
  EXPECT_EQ(dialect.unitsInch, "G70");
  EXPECT_EQ(dialect.unitsMetric, "G71");
  EXPECT_EQ(dialect.feedScale, 10);
  EXPECT_EQ(dialect.feedFormat, "####");
  EXPECT_EQ(dialect.speedFormat, "");
  EXPECT_EQ(dialect.commentEnd, "");
  EXPECT_EQ(dialect.commentClean, "");
  EXPECT_FALSE(dialect.commentUpper);
  EXPECT_TRUE(dialect.heading);
  EXPECT_EQ(dialect.cycles, CycleStyle::Native);
  EXPECT_EQ(dialect.cycleKeep, std::nullopt);
  EXPECT_EQ(dialect.cyclePeck, 'K');
  EXPECT_EQ(dialect.cycleDwell, std::nullopt);
  EXPECT_EQ(dialect.dwellScale, 1);
  EXPECT_EQ(dialect.dwellFormat, "");
  EXPECT_EQ(dialect.fullCircle, FullCircle::Bare);
  EXPECT_EQ(dialect.rMaxSweep, 360);
  EXPECT_EQ(dialect.arcTol, 0);
  EXPECT_EQ(dialect.lineNumbers, LineNumbers{});
  EXPECT_FALSE(dialect.safeChange);
  EXPECT_FALSE(dialect.cycleWords);
  EXPECT_FALSE(dialect.endLift);
  EXPECT_FALSE(dialect.changePos);
  EXPECT_FALSE(dialect.startHigh);
  EXPECT_FALSE(dialect.spindleDue);
  EXPECT_EQ(dialect.plungeFrom, std::nullopt);
  EXPECT_THAT(dialect.startText, ElementsAre("G90", "G75"));
  EXPECT_THAT(dialect.toolText, ElementsAre("M06 T{TOOL}"));
  EXPECT_THAT(dialect.spindleText, ElementsAre("M03 S{SPEED}"));
  EXPECT_THAT(dialect.resetText, ElementsAre("M05", "M06 T{TOOL}"));
}

TEST_F(DialectKeysTest, AreAtTheirDefaultsAtFirst) {
  expectDefaults(dialect());
}

TEST_F(DialectKeysTest, DefinitionInheritsNoneOfThemFromTheOneBefore) {
  define(kEveryKey);
  define("COMMENTCHR,;\r\n");
  expectDefaults(dialect());
}

TEST_F(DialectKeysTest, DefinitionThatIsNotThereInheritsNoneEither) {
  const TempFolder folder;
  define(kEveryKey);
  session.appfolder = folder();
  load_xsetup(session, definition);
  expectDefaults(dialect());
}

TEST_F(DialectKeysTest, EveryKeyThatStandsTwiceKeepsItsDefault) {
  define(std::string(kEveryKey) + kEveryKey);
  expectDefaults(dialect());
  EXPECT_EQ(messages().size(), 30U);
  EXPECT_EQ(messages()[0], error("UNITSIN stands twice and keeps its default", "line 40 field 1"));
  EXPECT_EQ(messages().back(),
            error("RESETTEXT stands twice and keeps its default", "line 77 field 2"));
  EXPECT_EQ(definition.damage,
            "test.msx line 40 field 1: UNITSIN stands twice and keeps its default");
}

TEST_F(DialectKeysTest, WrongValuesAreToldAndKeepTheDefault) {
  struct Case {
    const char* line;
    const char* what;
  };
  for (const Case& c : {
           Case{"FEEDSCALE,ten", "FEEDSCALE wants a number above 0, not 'ten'"},
           {"FEEDSCALE,0", "FEEDSCALE wants a number above 0, not '0'"},
           {"FEEDSCALE,1e99", "FEEDSCALE wants a number above 0, not '1e99'"},
           {"FEEDSCALE,", "FEEDSCALE wants a number above 0, not ''"},
           {"FEEDFORMAT,F4", "FEEDFORMAT wants a number pattern of 0, # and a point, not 'F4'"},
           {"SPEEDFORMAT,.", "SPEEDFORMAT wants a number pattern of 0, # and a point, not '.'"},
           {"COMMENTCLEAN,\"( )\"", "COMMENTCLEAN wants characters without blanks, not '( )'"},
           {"COMMENTUPPER,1", "COMMENTUPPER wants Y or N, not '1'"},
           {"HEADING,maybe", "HEADING wants Y or N, not 'maybe'"},
           {"CYCLES,FANCY", "CYCLES wants NATIVE, ISO or EXPAND, not 'FANCY'"},
           {"CYCLEKEEP,81 x", "CYCLEKEEP wants ALL or numbers of cycles, not '81 x'"},
           {"CYCLEKEEP,100", "CYCLEKEEP wants ALL or numbers of cycles, not '100'"},
           {"CYCLEPECK,QQ", "CYCLEPECK wants one letter, not 'QQ'"},
           {"CYCLEDWELL,1", "CYCLEDWELL wants one letter, not '1'"},
           {"DWELLSCALE,-1", "DWELLSCALE wants a number above 0, not '-1'"},
           {"DWELLFORMAT,s", "DWELLFORMAT wants a number pattern of 0, # and a point, not 's'"},
           {"FULLCIRCLE,ROUND", "FULLCIRCLE wants BARE, WORDS or HALVES, not 'ROUND'"},
           {"RMAXSWEEP,half", "RMAXSWEEP wants a number from 0 on, not 'half'"},
           {"ARCTOL,-0.1", "ARCTOL wants a number from 0 on, not '-0.1'"},
           {"LINENUMBERS,10,ten", "LINENUMBERS wants two numbers up to 99999, not '10 ten'"},
           {"LINENUMBERS,10,100000", "LINENUMBERS wants two numbers up to 99999, not '10 100000'"},
           {"SAFECHANGE,", "SAFECHANGE wants Y or N, not ''"},
           {"CYCLEWORDS,on", "CYCLEWORDS wants Y or N, not 'on'"},
           {"ENDLIFT,on", "ENDLIFT wants Y or N, not 'on'"},
           {"CHANGEPOS,on", "CHANGEPOS wants Y or N, not 'on'"},
           {"STARTHIGH,up", "STARTHIGH wants Y or N, not 'up'"},
           {"SPINDLEDUE,on", "SPINDLEDUE wants Y or N, not 'on'"},
           {"PLUNGEFROM,0", "PLUNGEFROM wants a number above 0, not '0'"},
       }) {
    host.prompts.messages.clear();
    define(std::string("COMMENTCHR,;\r\n") + c.line + "\r\nABSCENTER,Y\r\n");
    EXPECT_THAT(messages(), ElementsAre(error(c.what, "line 2 field 2")));
    EXPECT_EQ(definition.damage, "test.msx line 2 field 2: " + std::string(c.what));
    EXPECT_TRUE(definition.absCenter) << "what follows is read";
    expectDefaults(dialect());
  }
}

TEST_F(DialectKeysTest, PatternOfHundredsOfDigitsIsNone) {
  define("FEEDFORMAT," + std::string(65, '0') + "\r\n");
  ASSERT_EQ(messages().size(), 1U);
  EXPECT_EQ(dialect().feedFormat, "####");
}

TEST_F(DialectKeysTest, MisspeltPlaceholderIsToldWithItsLineAndTheListKeepsItsDefault) {
  define("LISTSTART,TOOLTEXT\r\nT{TOOL} M06\r\n(TOOL {NMAE})\r\nG43 H{TOL}\r\nLISTEND\r\n");
  EXPECT_THAT(messages(),
              ElementsAre(error("TOOLTEXT has the unknown placeholder {NMAE}", "line 3 field 1")));
  EXPECT_THAT(dialect().toolText, ElementsAre("M06 T{TOOL}"));
}

TEST_F(DialectKeysTest, PlaceholderWithoutItsEndIsOneThatIsMisspelt) {
  define("LISTSTART,STARTTEXT\r\nG00 Z{SAFEZ\r\nLISTEND\r\n");
  EXPECT_THAT(messages(),
              ElementsAre(error("STARTTEXT has the unknown placeholder {SAFEZ", "line 2 field 1")));
  EXPECT_THAT(dialect().startText, ElementsAre("G90", "G75"));
}

TEST_F(DialectKeysTest, ListThatIsCutOffKeepsItsDefault) {
  const RuntimeFailure failure =
      failureOf([this] { define("FEEDSCALE,1\r\nLISTSTART,TOOLTEXT\r\nT{TOOL}\r\n"); });
  EXPECT_EQ(failure.number(), FailureNumber::InputPastEnd);
  EXPECT_EQ(failure.source(), "test.msx line 4 field 1");
  EXPECT_EQ(dialect().feedScale, 1);
  EXPECT_THAT(dialect().toolText, ElementsAre("M06 T{TOOL}"));
}

TEST_F(DialectKeysTest, KeyWithoutItsValueRunsIntoTheEndOfTheFile) {
  EXPECT_EQ(numberOfFailure([this] { define("LINENUMBERS,10"); }), FailureNumber::InputPastEnd);
}

TEST_F(DialectKeysTest, AllCyclesAreKeptByTheWordForThem) {
  define("CYCLEKEEP,all\r\n");
  EXPECT_EQ(dialect().cycleKeep, CycleNumbers().set());
  define("CYCLEKEEP,\"81,89\"\r\n");
  EXPECT_EQ(dialect().cycleKeep, CycleNumbers().set(81).set(89));
  define("CYCLEKEEP,\r\n");
  EXPECT_EQ(dialect().cycleKeep, CycleNumbers());
}

}  // namespace
}  // namespace tess::testing
