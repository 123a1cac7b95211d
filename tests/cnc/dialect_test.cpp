// What the keys of a dialect make of a program's lines.
#include "cnc/dialect.h"

#include <string>
#include <vector>

#include "gmock/gmock.h"
#include "gtest/gtest.h"

#include "core/drawing_store.h"
#include "drafting/entity_creation.h"
#include "tests/cnc/cnc_fixture.h"
#include "tests/support/failure_of.h"

namespace tess::testing {
namespace {

using ::testing::Contains;
using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::Not;

class DialectTest : public CncFixture {
 protected:
  using Lines = std::vector<std::string>;

  Lines lines(CncMode mode = CncMode::Mill) { return linesOf(program(mode)); }

  // From the line behind the last remark on, which is the first motion here.
  Lines motions(CncMode mode = CncMode::Mill) {
    const Lines all = lines(mode);
    auto first = all.end();
    while (first != all.begin() && !std::prev(first)->starts_with("M06")) --first;
    return {first, std::prev(all.end())};  // the trailer is empty
  }

  void placeLine() { place(lineRow({3, 0}, {3, 1}, -0.1F, 12.5F)); }
  void placeCircle() { place(arcRow(kClockwiseArc, {3, 1}, {3, 1}, {2, 1}, -0.1F, 10)); }
};

TEST_F(DialectTest, UnitAndStartLinesAreTheDefinitions) {
  define(
      "UNITSIN,G20\r\nUNITSMM,G21\r\n"
      "LISTSTART,STARTTEXT\r\nG90 G94\r\nG00 Z{SAFEZ}\r\n(first {TOOL})\r\nLISTEND\r\n");
  place(lineRow({3, 0}, {3, 1}, -0.1F, 10), 4);
  EXPECT_THAT(program(), HasSubstr("\r\nG20\r\nG90 G94\r\nG00 Z0.5\r\n(first 4)\r\n"));
  useMetric();
  EXPECT_THAT(program(), HasSubstr("\r\nG21\r\nG90 G94\r\n"));
}

TEST_F(DialectTest, EmptyUnitAndStartTextsLeaveTheLinesOut) {
  define("UNITSIN,\r\nLISTSTART,STARTTEXT\r\nLISTEND\r\n");
  placeLine();
  EXPECT_THAT(lines(), Not(Contains("G70")));
  EXPECT_THAT(lines(), Not(Contains("G90")));
  EXPECT_THAT(program(), HasSubstr("*\r\n\r\n---")) << "the tool's comment follows the heading's";
}

TEST_F(DialectTest, FeedsAndSpeedsHaveTheirScaleAndPattern) {
  store.toolspindlespeed[0] = 1200;
  define("FEEDSCALE,1\r\nFEEDFORMAT,###0.0##\r\nSPEEDFORMAT,###0.0\r\n");
  placeLine();
  EXPECT_THAT(lines(), Contains("M03 S1200.0"));
  EXPECT_THAT(lines(), Contains("G01 Z-0.1 F3.0"));
  EXPECT_THAT(lines(), Contains("G01 Y1.0 F12.5"));
}

TEST_F(DialectTest, FeedThatThePatternSilencesHasNoWord) {
  define("FEEDSCALE,0.01\r\nFEEDFORMAT,####\r\n");
  placeLine();
  EXPECT_THAT(motions(), ElementsAre("G00 Z0.5", "G00 X3.0 Y0.0", "G01 Z-0.1", "G01 Y1.0"));
}

TEST_F(DialectTest, CommentsAreClosedCleanAndInCapitals) {
  store.drawingtitle = "Plate (left) {new}";
  define("COMMENTCHR,(\r\nCOMMENTEND,)\r\nCOMMENTCLEAN,(){}\r\nCOMMENTUPPER,Y\r\n");
  placeLine();
  EXPECT_THAT(lines(), Contains("(*   DRAWING TITLE :  PLATE  LEFT   NEW      REV : )"));
  EXPECT_THAT(lines(), Contains("(     << TOOL #1 CODE >>)"));
  for (const std::string& line : lines()) {
    if (!line.starts_with('(')) continue;
    EXPECT_EQ(line.find_first_of("()", 1), line.size() - 1) << line;
  }
}

TEST_F(DialectTest, HeadingIsLeftOutButNotTheDefinitionsOwnLines) {
  define("HEADING,N\r\nLISTSTART,HEADERTEXT\r\n%\r\nO100\r\nLISTEND\r\n");
  placeLine();
  const Lines all = lines();
  EXPECT_THAT(Lines(all.begin(), all.begin() + 3), ElementsAre("%", "O100", "G70"));
}

TEST_F(DialectTest, ToolTextsAreFilledIn) {
  store.toolname[0] = " 1/4 (long) ";
  store.toolspindlespeed[0] = 1200.5F;
  define(
      "COMMENTCLEAN,()\r\nLISTSTART,TOOLTEXT\r\n(T{TOOL} {name})\r\nT{TOOL} M6\r\nLISTEND\r\n"
      "LISTSTART,SPINDLETEXT\r\nS{SPEED} M3\r\nG4 P2\r\nM8\r\nLISTEND\r\n");
  placeLine();
  EXPECT_THAT(program(),
              HasSubstr("---\r\n(T1 1/4  long )\r\nT1 M6\r\nS1200.5 M3\r\nG4 P2\r\nM8\r\n"
                        "G00 Z0.5\r\n"));
}

TEST_F(DialectTest, ToolWithoutASpeedHasNoSpindleText) {
  define("LISTSTART,SPINDLETEXT\r\nS{SPEED} M3\r\nLISTEND\r\n");
  placeLine();
  EXPECT_THAT(program(), Not(HasSubstr("M3")));
}

TEST_F(DialectTest, ResetTextEndsAProgramOfTwoTools) {
  store.toolspindlespeed[0] = 900;
  define("LISTSTART,RESETTEXT\r\nM5 (then {SPEED} again)\r\nT{TOOL} M6\r\nLISTEND\r\n");
  placeLine();
  place(lineRow({3, 1}, {3, 2}, -0.1F, 10), 2);
  EXPECT_THAT(program(), HasSubstr("\r\nM5 (then 900 again)\r\nT1 M6\r\n"));
  EXPECT_THAT(program(), HasSubstr("Reset to first tool used."));
}

TEST_F(DialectTest, EmptyResetTextLeavesTheChangeOut) {
  define("LISTSTART,RESETTEXT\r\nLISTEND\r\n");
  placeLine();
  place(lineRow({3, 1}, {3, 2}, -0.1F, 10), 2);
  EXPECT_THAT(program(), Not(HasSubstr("Reset to first tool used.")));
  EXPECT_THAT(program(), Not(HasSubstr("M05")));
}

TEST_F(DialectTest, LinesAreNumberedButRemarksAndMarksAreNot) {
  store.toolspindlespeed[0] = 900;
  define(
      "HEADING,N\r\nCOMMENTCHR,;\r\nLINENUMBERS,100,10\r\n"
      "LISTSTART,HEADERTEXT\r\n%\r\nLISTEND\r\nLISTSTART,TRAILERTEXT\r\nM30\r\n%\r\nLISTEND\r\n"
      "LISTSTART,TOOLTEXT\r\n(tool)\r\n\r\nT{TOOL} M6\r\nLISTEND\r\n");
  placeLine();
  placeLine();  // once more: it moves to the start and is a line less at the same depth
  const std::string bar = ";" + std::string(75, '-');
  EXPECT_THAT(
      lines(),
      ElementsAre("%", "N100 G70", "N110 G90", "N120 G75", ";", bar, ";     << Tool #1 code >>",
                  bar, "(tool)", "", "N130 T1 M6", "N140 M03 S900", "N150 G00 Z0.5",
                  "N160 G00 X3.0 Y0.0", "N170 G01 Z-0.1 F30", "N180 G01 Y1.0 F125", "N190 G00 Z0.5",
                  "N200 G00 Y0.0", "N210 G01 Z-0.1 F30", "N220 G01 Y1.0 F125", "M30", "%"));
}

TEST_F(DialectTest, LineNumbersBeginAgainBehindFiveDigits) {
  define("LINENUMBERS,7,30000\r\n");
  placeLine();
  EXPECT_THAT(program(), HasSubstr("N7 G70\r\nN30007 G90\r\nN60007 G75\r\n"));
  EXPECT_THAT(program(), HasSubstr("N90007 M06 T1\r\nN7 G00 Z0.5\r\nN30007 G00 X3.0 Y0.0\r\n"));
}

TEST_F(DialectTest, FullCirclesHaveTheirPlace) {
  placeCircle();
  EXPECT_EQ(motions().back(), "G02 I-1.0 F100");
  define("FULLCIRCLE,WORDS\r\n");
  EXPECT_EQ(motions().back(), "G02 X3.0 Y1.0 I-1.0 F100");
  define("FULLCIRCLE,HALVES\r\n");
  const Lines halves = motions();
  EXPECT_THAT(Lines(halves.end() - 2, halves.end()),
              ElementsAre("G02 X1.0 I-1.0 F100", "G02 X3.0 I1.0"));
}

TEST_F(DialectTest, FullCirclesOfALatheHaveTheirPlace) {
  place(arcRow(kClockwiseArc, {3, 1}, {3, 1}, {2, 1}, 0, 10));
  define("FULLCIRCLE,WORDS\r\n");
  EXPECT_EQ(motions(CncMode::Lathe).back(), "G02 X1.0 Z3.0 K-1.0 F100");
}

// Its ends are one only at the resolution of the program, which drops it otherwise.
TEST_F(DialectTest, NearlyFullCircleIsAFullOne) {
  place(arcRow(kClockwiseArc, {3, 1}, {3, 1.00001F}, {2, 1}, -0.1F, 10));
  session.formats.cncfmtinch = session.formats.cncfmt = "0.000";
  EXPECT_EQ(motions().back(), "G01 Z-0.100 F30");
  define("FULLCIRCLE,WORDS\r\n");
  EXPECT_EQ(motions().back(), "G02 X3.000 Y1.000 I-1.000 F100");
  define("FULLCIRCLE,HALVES\r\n");
  const Lines halves = motions();
  EXPECT_THAT(Lines(halves.end() - 2, halves.end()),
              ElementsAre("G02 X1.000 I-1.000 F100", "G02 X3.000 Y1.000 I1.000"));
}

TEST_F(DialectTest, FullCirclesOfRadiusWordsHaveCentresOfTheDefinitionsKind) {
  store.userparamforarcs = true;
  placeCircle();
  define("ABSCENTER,Y\r\n");
  EXPECT_EQ(motions().back(), "G02 I-1.0 J0.0 F100");
  define("ABSCENTER,Y\r\nFORCEIJK,Y\r\nFULLCIRCLE,WORDS\r\n");
  EXPECT_EQ(motions().back(), "G02 X3.0 Y1.0 I2.0 J1.0 F100");
}

TEST_F(DialectTest, RadiusWordsEndAtTheGreatestSweep) {
  store.userparamforarcs = true;
  place(arcRow(kCounterClockwiseArc, {3, 1}, {1, 1}, {2, 1}, -0.1F, 10));  // half a turn
  place(arcRow(kCounterClockwiseArc, {1, 1}, {2, 2}, {2, 1}, -0.1F, 10));  // three quarters
  EXPECT_EQ(motions().back(), "G03 X2.0 Y2.0 R-1.0");
  define("RMAXSWEEP,180\r\n");
  EXPECT_THAT(motions(), Contains("G03 X1.0 R1.0 F100"));
  EXPECT_EQ(motions().back(), "G03 X2.0 Y2.0 I1.0");
  define("RMAXSWEEP,179\r\n");
  EXPECT_THAT(motions(), Contains("G03 X1.0 I-1.0 F100"));
}

TEST_F(DialectTest, ArcOfTwoRadiiIsRefusedWithItsRowAndTheDifference) {
  placeLine();
  place(arcRow(kClockwiseArc, {3, 1}, {2, 2.25F}, {2, 1}, -0.1F, 10));
  EXPECT_THAT(program(), HasSubstr("G02 X2.0 Y2.25 I-1.0 F100"));
  define("ARCTOL,0.25\r\n");
  EXPECT_THAT(program(), HasSubstr("G02 X2.0 Y2.25 I-1.0 F100"));
  define("ARCTOL,0.2\r\n");
  const RuntimeFailure failure = failureOf([this] { program(); });
  EXPECT_EQ(failure.source(), "path row 2");
  EXPECT_EQ(failure.description(),
            "The two radii of the arc differ by 0.25, and the post-processor definition allows "
            "0.2");
}

// The control adds the offsets to where the tool stands, not to where the row begins.
TEST_F(DialectTest, RadiiAreMeasuredFromWhereTheToolStands) {
  store.cfg_tolerance = 0.5F;
  placeLine();
  place(arcRow(kClockwiseArc, {3.25F, 1}, {2, 2.25F}, {2, 1}, -0.1F, 10));
  define("ARCTOL,0.01\r\n");
  EXPECT_EQ(failureOf([this] { program(); }).description(),
            "The two radii of the arc differ by 0.024754878, and the post-processor definition "
            "allows 0.01");
}

TEST_F(DialectTest, ToolTextOfManyNamesDoesNotFillTheDisk) {
  store.toolname[0] = std::string(100000, 'n');
  std::string line;
  for (int name = 0; name < 1000; ++name) line += "{NAME}";
  define("LISTSTART,TOOLTEXT\r\n" + line + "\r\nLISTEND\r\n");
  placeLine();
  EXPECT_EQ(numberOfFailure([this] { program(); }), FailureNumber::Overflow);
}

}  // namespace
}  // namespace tess::testing
