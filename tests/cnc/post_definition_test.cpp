// The post-processor definition: its keys, its lists and the file that belongs to a setup.
#include "cnc/post_definition.h"

#include <filesystem>
#include <string>
#include <vector>

#include "gmock/gmock.h"
#include "gtest/gtest.h"

#include "drafting/entity_creation.h"
#include "tests/cnc/cnc_fixture.h"
#include "tests/support/failure_of.h"
#include "tests/support/temp_folder.h"

namespace tess::testing {
namespace {

using ::testing::ElementsAre;

using PostDefinitionTest = CncFixture;

TEST_F(PostDefinitionTest, StartsWithTheStandardLettersAndNothingElse) {
  EXPECT_EQ(definition.cncheadertext, "");
  EXPECT_EQ(definition.cnctrailertext, "");
  EXPECT_EQ(definition.cnccomment, "");
  EXPECT_FALSE(definition.absCenter);
  EXPECT_FALSE(definition.forceXYZ);
  EXPECT_FALSE(definition.forceIJK);
  EXPECT_EQ(definition.cncletters, "XYZIJK");
  EXPECT_EQ(session.formats.cncfmtinch, "##0.0####");
  EXPECT_EQ(session.formats.cncfmtmm, "####0.0###");
}

TEST_F(PostDefinitionTest, AbsoluteCentersAreOnForAnyTextThatBeginsWithY) {
  struct Case {
    const char* value;
    bool on;
  };
  for (const Case& c : {Case{"yes", true},
                        {"Y", true},
                        {" y", true},
                        {"\"Yo\"", true},
                        {"N", false},
                        {"no", false},
                        {"1", false},
                        {"true", false},
                        {"", false}}) {
    definition.absCenter = !c.on;
    define(std::string("ABSCENTER,") + c.value + "\r\n");
    EXPECT_EQ(definition.absCenter, c.on) << c.value;
  }
}

TEST_F(PostDefinitionTest, ForcedWordsFollowTheSameRule) {
  define("ForceXYZ,Yes\r\nforceijk\r\ny\r\n");
  EXPECT_TRUE(definition.forceXYZ);
  EXPECT_TRUE(definition.forceIJK);
  define("ForceXYZ,No\r\nforceijk\r\nnever\r\n");
  EXPECT_FALSE(definition.forceXYZ);
  EXPECT_FALSE(definition.forceIJK);
}

TEST_F(PostDefinitionTest, UnquotedCommaInAHeaderLineMakesTwoLines) {
  define("LISTSTART,HEADERTEXT\r\nO1000, first part\r\nLISTEND\r\n");
  EXPECT_EQ(definition.cncheadertext, "O1000\r\nfirst part");
}

TEST_F(PostDefinitionTest, QuotedHeaderLineKeepsItsCommasAndItsCase) {
  define("LISTSTART,HEADERTEXT\r\n\"(Mill A, spindle 2)\"\r\nListing\r\nLISTEND\r\n");
  EXPECT_EQ(definition.cncheadertext, "(Mill A, spindle 2)\r\nListing");
}

TEST_F(PostDefinitionTest, LowerCaseListEndEndsAList) {
  define("liststart,trailertext\r\nM30\r\nlistend\r\nCOMMENTCHR,;\r\n");
  EXPECT_EQ(definition.cnctrailertext, "M30");
  EXPECT_EQ(definition.cnccomment, ";");
}

TEST_F(PostDefinitionTest, EmptyTokenInAListIsAnEmptyLine) {
  define("LISTSTART,HEADERTEXT\r\n%\r\n\r\nO1\r\n\r\nLISTEND\r\n");
  EXPECT_EQ(definition.cncheadertext, "%\r\n\r\nO1\r\n");
}

TEST_F(PostDefinitionTest, EmptyFirstLineOfAListStays) {
  define("LISTSTART,HEADERTEXT\r\n\r\nO1\r\nLISTEND\r\n");
  EXPECT_EQ(definition.cncheadertext, "\r\nO1");
}

TEST_F(PostDefinitionTest, NewListReplacesTheOldText) {
  define("LISTSTART,HEADERTEXT\r\nA\r\nLISTEND\r\nLISTSTART,TRAILERTEXT\r\nB\r\nLISTEND\r\n");
  define("LISTSTART,HEADERTEXT\r\nLISTEND\r\n");
  EXPECT_EQ(definition.cncheadertext, "");
  EXPECT_EQ(definition.cnctrailertext, "B");
}

TEST_F(PostDefinitionTest, ListOfAnotherNameIsReadAsKeys) {
  session.startupdone = true;
  define("LISTSTART,FOOTER\r\nABSCENTER\r\nY\r\nLISTEND\r\n");
  EXPECT_TRUE(definition.absCenter);
  ASSERT_EQ(host.prompts.messages.size(), 1U);
  EXPECT_EQ(host.prompts.messages[0].text,
            "Error in Post processor definition file:LISTEND\ntest.msx line 4 field 1");
}

TEST_F(PostDefinitionTest, CommentPrefixStandsAsWritten) {
  define("COMMENTCHR,\" (msg, \"\r\n");
  EXPECT_EQ(definition.cnccomment, " (msg, ");
}

TEST_F(PostDefinitionTest, DefinitionWithoutMapKeepsTheLettersFromTheOneBefore) {
  define("MAP,abcijk\r\n");
  define("ABSCENTER,Y\r\n");
  EXPECT_EQ(definition.cncletters, "ABCIJK");
}

TEST_F(PostDefinitionTest, MapGivesOtherLettersToTheWords) {
  define("MAP, \" abcijk \"\r\n");
  place(lineRow({1, 2}, {3, 4}, -0.25F, 10));
  EXPECT_THAT(moves(),
              ElementsAre("G00 C0.5", "G00 A1.0 B2.0", "G01 C-0.25 F30", "G01 A3.0 B4.0 F100"));
}

TEST_F(PostDefinitionTest, MapWithTooFewLettersLeavesTheOthersAtTheDefault) {
  define("MAP,UV\r\n");
  place(arcRow(kClockwiseArc, {0, 1}, {1, 2}, {1, 1}, -0.25F, 10));
  EXPECT_THAT(moves(), ElementsAre("G00 Z0.5", "G00 U0.0 V1.0", "G01 Z-0.25 F30",
                                   "G02 U1.0 V2.0 I1.0 F100"));
}

TEST_F(PostDefinitionTest, MapOfTheSixthLetterDoesNotReachTheKWord) {
  define("MAP,XYZIJQ\r\n");
  place(cycleRow(83, {1, 1}, 0.125F, 0, -0.5F, 5));
  EXPECT_THAT(moves(), ElementsAre("G00 Z0.5", "G83 X1.0 Y1.0 K0.125 F50"));
}

TEST_F(PostDefinitionTest, NumberFormatsAreInForceAfterTheLoad) {
  define("informat, 0.000 \r\nMMFORMAT,0.##\r\n");
  EXPECT_EQ(session.formats.cncfmtinch, "0.000");
  EXPECT_EQ(session.formats.cncfmtmm, "0.##");
  EXPECT_EQ(session.formats.cncfmt, "0.000");
  useMetric();
  EXPECT_EQ(session.formats.cncfmt, "0.##");
}

TEST_F(PostDefinitionTest, UnknownKeyGivesOneMessagePerTokenAndTheLoadGoesOn) {
  session.startupdone = true;
  define("SPINDLE,CW\r\nabscenter,Y\r\n");
  ASSERT_EQ(host.prompts.messages.size(), 2U);
  EXPECT_EQ(host.prompts.messages[0].text,
            "Error in Post processor definition file:SPINDLE\ntest.msx line 1 field 1");
  EXPECT_EQ(host.prompts.messages[1].text,
            "Error in Post processor definition file:CW\ntest.msx line 1 field 2");
  EXPECT_EQ(host.prompts.messages[0].buttons, MessageButtons::Ok);
  EXPECT_TRUE(definition.absCenter);
}

TEST_F(PostDefinitionTest, BeforeTheStartIsDoneTheMessageIsPrintedOnTheMainWindow) {
  define("Feedmax\r\n");
  EXPECT_TRUE(host.prompts.messages.empty());
  EXPECT_THAT(
      host.surroundings.printed,
      ElementsAre("Error in Post processor definition file:Feedmax\ntest.msx line 1 field 1"));
}

TEST_F(PostDefinitionTest, TheFirstDamageOfADefinitionIsKnown) {
  define("ABSCENTER,Y\r\n\r\nSPINDLE,CW\r\n");
  EXPECT_EQ(definition.damage, "test.msx line 3 field 1 has the unknown word 'SPINDLE'");
  define("ABSCENTER,Y\r\n");
  EXPECT_EQ(definition.damage, "");
}

TEST_F(PostDefinitionTest, EmptyTokensBetweenKeysAreSkipped) {
  define("\r\n,,\r\nABSCENTER,Y\r\n\r\n");
  EXPECT_TRUE(definition.absCenter);
  EXPECT_TRUE(host.surroundings.printed.empty());
}

TEST_F(PostDefinitionTest, ListWithoutItsEndRunsIntoTheEndOfTheFile) {
  const auto cutOff = [this] { define("LISTSTART,HEADERTEXT\r\nO1\r\n"); };
  EXPECT_EQ(numberOfFailure(cutOff), FailureNumber::InputPastEnd);
}

TEST_F(PostDefinitionTest, KeyWithoutItsValueRunsIntoTheEndOfTheFile) {
  EXPECT_EQ(numberOfFailure([this] { define("MAP\r\n"); }), FailureNumber::InputPastEnd);
}

class DefinitionFileTest : public CncFixture {
 protected:
  DefinitionFileTest() {
    session.appfolder = folder();
    session.setupname = "Shop.MSU";
  }

  TempFolder folder;
};

TEST_F(DefinitionFileTest, SetupsOwnDefinitionIsTaken) {
  folder.write("Shop.msx", "COMMENTCHR,;\r\n");
  folder.write("standard.msx", "COMMENTCHR,#\r\n");
  load_xsetup(session, definition);
  EXPECT_EQ(definition.cnccomment, ";");
}

TEST_F(DefinitionFileTest, StandardDefinitionStandsInForAMissingOne) {
  folder.write("standard.msx", "COMMENTCHR,#\r\n");
  load_xsetup(session, definition);
  EXPECT_EQ(definition.cnccomment, "#");
}

TEST_F(DefinitionFileTest, SetupWithoutANameTakesTheStandardDefinition) {
  session.setupname.clear();
  folder.write("standard.msx", "COMMENTCHR,#\r\n");
  load_xsetup(session, definition);
  EXPECT_EQ(definition.cnccomment, "#");
}

TEST_F(DefinitionFileTest, NameThatOnlyTheWorkingFolderHasIsOpenedInTheProgramsFolder) {
  const TempFolder elsewhere;
  elsewhere.write("Shop.msx", "COMMENTCHR,;\r\n");
  folder.write("standard.msx", "COMMENTCHR,#\r\n");
  const WorkingFolder working(elsewhere());
  load_xsetup(session, definition);
  EXPECT_EQ(definition.cnccomment, "");
  ASSERT_EQ(host.failures.reported.size(), 1U);
  EXPECT_EQ(host.failures.reported[0].number(), FailureNumber::FileNotFound);
}

TEST_F(DefinitionFileTest, MissingStandardDefinitionIsReportedAndFormatsStayInForce) {
  session.formats.cncfmt = "stale";
  load_xsetup(session, definition);
  ASSERT_EQ(host.failures.reported.size(), 1U);
  EXPECT_EQ(host.failures.reported[0].number(), FailureNumber::FileNotFound);
  EXPECT_EQ(host.failures.reported[0].description(), "File not found");
  EXPECT_EQ(session.formats.cncfmt, "##0.0####");
}

TEST_F(DefinitionFileTest, CutOffListIsReportedAndWhatWasReadHolds) {
  folder.write("Shop.msx", "ABSCENTER,Y\r\nINFORMAT,0.00\r\nLISTSTART,HEADERTEXT\r\nO1\r\n");
  load_xsetup(session, definition);
  ASSERT_EQ(host.failures.reported.size(), 1U);
  EXPECT_EQ(host.failures.reported[0].number(), FailureNumber::InputPastEnd);
  EXPECT_TRUE(definition.absCenter);
  EXPECT_EQ(session.formats.cncfmt, "0.00");
}

}  // namespace
}  // namespace tess::testing
