// What can wreck a part in programs as they have always been, and how each of it goes away with the
// keys that ask for care.
#include <string>
#include <vector>

#include "gmock/gmock.h"
#include "gtest/gtest.h"

#include "core/drawing_store.h"
#include "drafting/entity_creation.h"
#include "tests/cnc/cnc_fixture.h"
#include "tests/support/temp_folder.h"

namespace tess::testing {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::StartsWith;

class SafeProgramsTest : public CncFixture {
 protected:
  using Lines = std::vector<std::string>;

  SafeProgramsTest() {
    store.xchange = 1;
    store.ychange = 2;
    store.zchange = 3;
    session.startupdone = true;
  }

  // The lines behind the three that open every program, without remarks and the trailer.
  Lines commands(CncMode mode = CncMode::Mill) {
    Lines found;
    for (const std::string& line : body(mode)) {
      if (!line.empty() && line[0] != '-' && line[0] != ' ') found.push_back(line);
    }
    return {found.begin() + 3, found.end()};
  }

  // From the last tool change on.
  Lines behindLastChange(CncMode mode = CncMode::Mill) {
    const Lines all = commands(mode);
    auto change = all.end();
    while (!std::prev(change)->starts_with("M06")) --change;
    return {std::prev(change), all.end()};
  }

  // Two tools; the second begins where the first one ended.
  void placeTwoTools() {
    place(lineRow({0, 0}, {1, 0}, -0.25F, 10), 1);
    place(lineRow({1, 0}, {1, 2}, -0.5F, 10), 2);
  }
};

constexpr char kStaysOnTool[] = "LISTSTART,RESETTEXT\r\nLISTEND\r\n";

// --- Feeds in tenths

TEST_F(SafeProgramsTest, FeedsReadAsTenTimesTooFastUnlessTheDefinitionScalesThem) {
  place(lineRow({0, 0}, {1, 0}, -0.25F, 12));
  EXPECT_THAT(commands(), Contains("G01 X1.0 F120"));
  define("FEEDSCALE,1\r\nFEEDFORMAT,###0.0##\r\n");
  EXPECT_THAT(commands(), Contains("G01 X1.0 F12.0"));
}

// --- Cycles that leave out their depth

TEST_F(SafeProgramsTest, CycleAsDeepAsTheSafeHeightLosesItsDepth) {
  place(cycleRow(81, {1, 1}, 0, 0, -0.5F, 4));
  place(cycleRow(81, {2, 1}, 0, 0, -0.5F, 4));
  EXPECT_THAT(commands(),
              ElementsAre("M06 T1", "G00 Z0.5", "G81 X1.0 Y1.0 F40", "G00 Z0.5", "G81 X2.0 Y1.0"));
}

TEST_F(SafeProgramsTest, CycleWordsGiveEveryCycleItsDepthAndFeed) {
  place(cycleRow(81, {1, 1}, 0, 0, -0.5F, 4));
  place(cycleRow(83, {2, 1}, 0.125F, 0, -0.5F, 4));
  place(cycleRow(82, {2, 1}, 0, 0.25F, -0.5F, 4));
  define("CYCLEWORDS,Y\r\n");
  EXPECT_THAT(commands(), ElementsAre("M06 T1", "G00 Z0.5", "G81 X1.0 Y1.0 Z0.5 F40", "G00 Z0.5",
                                      "G83 X2.0 Y1.0 Z0.5 K0.125 F40", "G00 Z0.5",
                                      "G82 X2.0 Y1.0 Z0.5 F40 D0.25"));
}

// The height behind such a cycle is the safe one, whatever the Z word of the cycle has said.
TEST_F(SafeProgramsTest, RowAboveThePartBehindACycleIsWhereItBelongs) {
  place(cycleRow(81, {1, 1}, 0, 0, -0.25F, 4));
  place(lineRow({1, 1}, {2, 1}, 0.25F, 10));
  EXPECT_EQ(commands().back(), "G01 X2.0 F100") << "at the safe height";
  define("CYCLEWORDS,Y\r\nSAFECHANGE,Y\r\n");
  const Lines all = commands();
  EXPECT_THAT(Lines(all.end() - 2, all.end()), ElementsAre("G01 Z0.25 F30", "G01 X2.0 F100"));
}

// --- The way down behind a tool change

TEST_F(SafeProgramsTest, FreshToolGoesDownAtRapidSpeed) {
  placeTwoTools();
  define(kStaysOnTool);
  EXPECT_THAT(behindLastChange(), ElementsAre("M06 T2", "G00 Z-0.5", "G01 Y2.0"));
  define(std::string(kStaysOnTool) + "FORCEXYZ,Y\r\n");
  EXPECT_THAT(behindLastChange(),
              ElementsAre("M06 T2", "G00 X1.0 Y0.0 Z-0.5", "G01 X1.0 Y2.0 Z-0.5"))
      << "from the change position that is slantwise through the part";
}

TEST_F(SafeProgramsTest, SafeChangeBringsTheToolBackByPlacesToldInFull) {
  placeTwoTools();
  define(std::string(kStaysOnTool) + "SAFECHANGE,Y\r\n");
  EXPECT_THAT(commands(),
              ElementsAre("G00 Z0.5", "M06 T1", "G00 Z0.5", "G00 X0.0 Y0.0", "G01 Z-0.25 F30",
                          "G01 X1.0 F100", "G00 Z0.5", "M06 T2", "G00 Z0.5", "G00 X1.0 Y0.0",
                          "G01 Z-0.5 F30", "G01 Y2.0 F100"));
}

bool has(const std::string& line, const char* word) {
  return line.find(word) != std::string::npos;
}

// Where a line of every word goes, and whether that is downwards and sideways at once.
bool slantsDown(const std::string& line, std::string& x, std::string& y, float& z) {
  const auto word = [&line](char letter) {
    const std::size_t at = line.find(std::string(" ") + letter);
    return at == std::string::npos ? std::string()
                                   : line.substr(at + 2, line.find(' ', at + 1) - at - 2);
  };
  const std::string newx = word('X').empty() ? x : word('X');
  const std::string newy = word('Y').empty() ? y : word('Y');
  const float newz = word('Z').empty() ? z : std::stof(word('Z'));
  const bool slants = newz < z && (newx != x || newy != y);
  x = newx, y = newy, z = newz;
  return slants;
}

// The control may stand anywhere behind a change, so the place counts as unknown there.
TEST_F(SafeProgramsTest, NoPlungeIsSlantwiseWithForcedWordsAndSafeChanges) {
  placeTwoTools();
  place(lineRow({4, 4}, {4, 5}, -0.75F, 10), 2);
  place(lineRow({4, 5}, {5, 5}, -1, 10), 2);
  place(cycleRow(81, {6, 6}, 0, 0, -0.25F, 4), 3);
  place(lineRow({6, 6}, {7, 6}, -0.25F, 10), 3);
  place(lineRow({6, 6}, {7, 6}, -0.25F, 10), 1);
  const auto slantwise = [this] {
    int slants = 0;
    std::string x = "?", y = "?";
    float z = 99;
    for (const std::string& line : commands()) {
      if (line.starts_with("M06")) x = y = "?", z = 99;
      const float height = z;
      const bool slant = line[0] == 'G' && slantsDown(line, x, y, z);
      const bool cycle = has(line, "G81");
      if (cycle) z = height;  // it comes back up
      if (slant && !cycle) ++slants;
    }
    return slants;
  };
  define("FORCEXYZ,Y\r\n");
  EXPECT_GT(slantwise(), 0);
  define("FORCEXYZ,Y\r\nSAFECHANGE,Y\r\n");
  // The first places behind each of the changes, which are at the safe height.
  const Lines all = commands();
  for (std::size_t line = 0; line + 3 < all.size(); ++line) {
    if (!all[line].starts_with("M06")) continue;
    EXPECT_EQ(all[line + 1], "G00 Z0.5");
    if (has(all[line + 2], "G81")) continue;
    EXPECT_THAT(all[line + 2], HasSubstr(" Z0.5"));
    EXPECT_THAT(all[line + 3], StartsWith("G01"));
  }
  EXPECT_EQ(slantwise(), 0);
}

// --- No Z word behind a change, before a rapid across the part

TEST_F(SafeProgramsTest, RapidAcrossThePartFollowsAChangeWithoutAHeight) {
  place(lineRow({0, 0}, {1, 0}, -0.25F, 10), 1);
  place(lineRow({5, 5}, {6, 5}, -0.5F, 10), 2);
  define(kStaysOnTool);
  EXPECT_THAT(behindLastChange(), ElementsAre("M06 T2", "G00 X5.0 Y5.0", "G00 Z-0.5", "G01 X6.0"));
  define(std::string(kStaysOnTool) + "SAFECHANGE,Y\r\n");
  EXPECT_THAT(behindLastChange(),
              ElementsAre("M06 T2", "G00 Z0.5", "G00 X5.0 Y5.0", "G01 Z-0.5 F30", "G01 X6.0 F100"));
}

TEST_F(SafeProgramsTest, CycleBehindAChangeIsReachedAtTheSafeHeight) {
  place(lineRow({0, 0}, {1, 0}, -0.25F, 10), 1);
  place(cycleRow(81, {1, 0}, 0, 0, -0.75F, 4), 2);
  for (const char* cycles : {"", "CYCLES,ISO\r\n", "CYCLES,EXPAND\r\n"}) {
    define(std::string(kStaysOnTool) + "SAFECHANGE,Y\r\nCYCLEWORDS,Y\r\n" + cycles);
    const Lines behind = behindLastChange();
    EXPECT_EQ(behind[1], "G00 Z0.5") << cycles;
    EXPECT_THAT(behind[2], HasSubstr("X1.0 Y0.0")) << cycles;
  }
}

// --- A lathe's first move

TEST_F(SafeProgramsTest, LathesFirstMoveLacksAWordOfTheRunBefore) {
  place(lineRow({0.25F, 0.75F}, {-2, 0.75F}, 0, 10));
  program(CncMode::Lathe);
  EXPECT_THAT(commands(CncMode::Lathe), ElementsAre("M06 T1", "G00 Z0.25", "G01 Z-2.0 F100"));
  define("SAFECHANGE,Y\r\n");
  program(CncMode::Lathe);
  EXPECT_THAT(commands(CncMode::Lathe), ElementsAre("M06 T1", "G00 X0.75 Z0.25", "G01 Z-2.0 F100"));
}

TEST_F(SafeProgramsTest, LathesMoveBehindAChangeHasBothWords) {
  place(lineRow({0.25F, 0.75F}, {-2, 0.75F}, 0, 10), 1);
  place(lineRow({-2, 0.75F}, {-2, 0.5F}, 0, 10), 2);
  place(cycleRow(84, {-2, 0.5F}, 0, 0.5F, 0, 2), 1);
  EXPECT_THAT(commands(CncMode::Lathe),
              ElementsAre("M06 T1", "G00 X0.75 Z0.25", "G01 Z-2.0 F100", "M06 T2", "G01 X0.5",
                          "M06 T1", "G84 X0.5 Y0.0 F20 D0.5"));
  define("SAFECHANGE,Y\r\n");
  EXPECT_THAT(
      commands(CncMode::Lathe),
      ElementsAre("M06 T1", "G00 X0.75 Z0.25", "G01 Z-2.0 F100", "M06 T2", "G00 X0.75 Z-2.0",
                  "G01 X0.5 F100", "M06 T1", "G00 X0.5 Z-2.0", "G84 X0.5 Y0.0 F20 D0.5"));
}

TEST_F(SafeProgramsTest, LatheThatBeginsWithACycleMovesThereFirst) {
  place(cycleRow(84, {0, 0}, 0, 0.5F, 0, 2));
  EXPECT_THAT(commands(CncMode::Lathe), ElementsAre("M06 T1", "G84 X0.0 Y0.0 F20 D0.5"));
  define("SAFECHANGE,Y\r\n");
  EXPECT_THAT(commands(CncMode::Lathe),
              ElementsAre("M06 T1", "G00 X0.0 Z0.0", "G84 X0.0 Y0.0 F20 D0.5"));
}

TEST_F(SafeProgramsTest, ArcBehindAChangeShowsItsCentre) {
  store.cfg_tolerance = 0.5F;
  place(lineRow({0, 0}, {1, 0}, -0.25F, 10), 1);
  place(arcRow(kClockwiseArc, {1, 0}, {2, 1}, {2, 0}, -0.25F, 10), 2);
  define(std::string(kStaysOnTool) + "SAFECHANGE,Y\r\nABSCENTER,Y\r\n");
  EXPECT_EQ(commands().back(), "G02 X2.0 Y1.0 I2.0 F100");
}

// --- The end of the program

TEST_F(SafeProgramsTest, SpindleStopsWhileTheToolStandsInTheCut) {
  placeTwoTools();
  const Lines stated = commands();
  EXPECT_THAT(Lines(stated.end() - 3, stated.end()), ElementsAre("G01 Y2.0", "M05", "M06 T1"));
  for (const char* keys : {"ENDLIFT,Y\r\n", "SAFECHANGE,Y\r\n", "ENDLIFT,Y\r\nSAFECHANGE,Y\r\n"}) {
    define(keys);
    const Lines safe = commands();
    EXPECT_THAT(safe[safe.size() - 4], StartsWith("G01 Y2.0")) << keys;
    EXPECT_THAT(Lines(safe.end() - 3, safe.end()), ElementsAre("G00 Z0.5", "M05", "M06 T1"));
  }
}

TEST_F(SafeProgramsTest, EndLiftComesBeforeTheTrailer) {
  place(lineRow({0, 0}, {1, 0}, -0.25F, 10));
  const std::string trailer = "LISTSTART,TRAILERTEXT\r\nM05\r\nM30\r\nLISTEND\r\n";
  define(trailer);
  EXPECT_THAT(program(), HasSubstr("G01 X1.0 F100\r\nM05\r\nM30\r\n"));
  define(trailer + "ENDLIFT,Y\r\n");
  EXPECT_THAT(program(), HasSubstr("G01 X1.0 F100\r\nG00 Z0.5\r\nM05\r\nM30\r\n"));
}

TEST_F(SafeProgramsTest, EndLiftIsWrittenAlsoWhereTheHeightSeemsRight) {
  place(lineRow({0, 0}, {1, 0}, 0.5F, 10));
  define("ENDLIFT,Y\r\n");
  EXPECT_EQ(commands().back(), "G00 Z0.5");
}

TEST_F(SafeProgramsTest, LatheLeavesAtTheEndWithAChangePositionOnly) {
  place(lineRow({0.25F, 0.75F}, {-2, 0.75F}, 0, 10));
  define("ENDLIFT,Y\r\n");
  EXPECT_EQ(commands(CncMode::Lathe).back(), "G01 Z-2.0 F100");
  define("ENDLIFT,Y\r\nCHANGEPOS,Y\r\n");
  const Lines all = commands(CncMode::Lathe);
  EXPECT_THAT(Lines(all.end() - 2, all.end()), ElementsAre("G00 X2.0", "G00 Z1.0"));
}

// --- The change position

TEST_F(SafeProgramsTest, ToolsAreChangedAtTheChangePosition) {
  placeTwoTools();
  define(std::string(kStaysOnTool) + "CHANGEPOS,Y\r\n");
  EXPECT_THAT(commands(), ElementsAre("G00 Z0.5", "G00 Z3.0", "G00 X1.0 Y2.0", "M06 T1", "G00 Z0.5",
                                      "G00 X0.0 Y0.0", "G01 Z-0.25 F30", "G01 X1.0 F100",
                                      "G00 Z0.5", "G00 Z3.0", "G00 X1.0 Y2.0", "M06 T2", "G00 Z0.5",
                                      "G00 X1.0 Y0.0", "G01 Z-0.5 F30", "G01 Y2.0 F100"));
}

TEST_F(SafeProgramsTest, ChangeHeightBelowTheSafeOneIsPassedOver) {
  store.zchange = 0;
  place(lineRow({0, 0}, {1, 0}, -0.25F, 10));
  define("CHANGEPOS,Y\r\n");
  const Lines all = commands();
  EXPECT_THAT(Lines(all.begin(), all.begin() + 3),
              ElementsAre("G00 Z0.5", "G00 X1.0 Y2.0", "M06 T1"));
}

// As a program begins the tool may stand anywhere, above a clamp too: it does not come down to the
// safe height before it goes up to the change position. A program written after another one, whose
// tool has stood there last, says so as well.
TEST_F(SafeProgramsTest, ProgramBeginsStraightAtTheChangeHeight) {
  placeTwoTools();
  define(std::string(kStaysOnTool) + "CHANGEPOS,Y\r\nSTARTHIGH,Y\r\n");
  for (int run = 1; run <= 2; ++run) {
    EXPECT_THAT(
        commands(),
        ElementsAre("G00 Z3.0", "G00 X1.0 Y2.0", "M06 T1", "G00 Z0.5", "G00 X0.0 Y0.0",
                    "G01 Z-0.25 F30", "G01 X1.0 F100", "G00 Z0.5", "G00 Z3.0", "G00 X1.0 Y2.0",
                    "M06 T2", "G00 Z0.5", "G00 X1.0 Y0.0", "G01 Z-0.5 F30", "G01 Y2.0 F100"))
        << run;
  }
}

TEST_F(SafeProgramsTest, ProgramBeginsAtTheSafeHeightWhereTheChangeHeightIsLower) {
  store.zchange = 0;
  place(lineRow({0, 0}, {1, 0}, -0.25F, 10));
  define("CHANGEPOS,Y\r\nSTARTHIGH,Y\r\n");
  EXPECT_EQ(commands().front(), "G00 Z0.5");
}

TEST_F(SafeProgramsTest, BeginningHighNeedsAChangePosition) {
  place(lineRow({0, 0}, {1, 0}, -0.25F, 10));
  define("SAFECHANGE,Y\r\nSTARTHIGH,Y\r\n");
  EXPECT_EQ(commands().front(), "G00 Z0.5");
}

TEST_F(SafeProgramsTest, FirstToolComesBackAtTheChangePosition) {
  placeTwoTools();
  define("CHANGEPOS,Y\r\nENDLIFT,Y\r\n");
  const Lines all = commands();
  EXPECT_THAT(Lines(all.end() - 6, all.end()), ElementsAre("G01 Y2.0 F100", "G00 Z0.5", "G00 Z3.0",
                                                           "G00 X1.0 Y2.0", "M05", "M06 T1"));
}

TEST_F(SafeProgramsTest, LatheGoesToItsChangePositionAwayFromTheAxisFirst) {
  place(lineRow({0.25F, 0.75F}, {-2, 0.75F}, 0, 10), 1);
  place(lineRow({-2, 0.75F}, {-2, 0.5F}, 0, 10), 2);
  define(std::string(kStaysOnTool) + "CHANGEPOS,Y\r\n");
  EXPECT_THAT(commands(CncMode::Lathe),
              ElementsAre("G00 X2.0 Z1.0", "M06 T1", "G00 X0.75 Z0.25", "G01 Z-2.0 F100",
                          "G00 X2.0", "G00 Z1.0", "M06 T2", "G00 X0.75 Z-2.0", "G01 X0.5 F100"));
}

// --- Tools that do not turn

class SpindleDueTest : public SafeProgramsTest {
 protected:
  SpindleDueTest() {
    store.drawingpath = folder();
    store.toolspindlespeed[1] = 900;
    place(lineRow({0, 0}, {1, 0}, -0.25F, 10), 3);
    place(lineRow({0, 0}, {1, 0}, -0.25F, 10), 2);
    place(lineRow({0, 0}, {1, 0}, -0.25F, 10), 1);
    place(lineRow({0, 0}, {1, 0}, -0.25F, 10), 3);
  }

  TempFolder folder;
};

TEST_F(SpindleDueTest, ToolsWithoutASpeedPassUnseen) {
  EXPECT_TRUE(make_cnc(session, definition, state, CncMode::Mill));
  EXPECT_TRUE(host.prompts.messages.empty());
}

TEST_F(SpindleDueTest, MessageNamesToolsWithoutASpeed) {
  define("SPINDLEDUE,Y\r\n");
  EXPECT_TRUE(make_cnc(session, definition, state, CncMode::Mill));
  ASSERT_EQ(host.prompts.messages.size(), 1U);
  EXPECT_EQ(host.prompts.messages[0].text,
            "No spindle speed! The program does not start the spindle for tool 3, 1.");
  EXPECT_TRUE(folder.has("part.CNC"));
}

TEST_F(SpindleDueTest, NothingIsSaidWhenAllToolsTurn) {
  define("SPINDLEDUE,Y\r\n");
  store.toolspindlespeed[0] = store.toolspindlespeed[2] = 1;
  EXPECT_TRUE(make_cnc(session, definition, state, CncMode::Mill));
  EXPECT_TRUE(host.prompts.messages.empty());
}

// --- Rapids down to just above the part

TEST_F(SafeProgramsTest, RowsBelowThePartAreReachedByARapidToJustAboveIt) {
  place(lineRow({0, 0}, {1, 0}, -0.25F, 10));
  place(lineRow({5, 5}, {6, 5}, -0.25F, 10));
  place(lineRow({6, 5}, {7, 5}, -0.5F, 10));   // from the cut: no way back up
  place(lineRow({8, 8}, {9, 8}, 0.125F, 10));  // above the part
  define("PLUNGEFROM,0.05\r\n");
  EXPECT_THAT(commands(),
              ElementsAre("M06 T1", "G00 Z0.5", "G00 X0.0 Y0.0", "G00 Z0.05", "G01 Z-0.25 F30",
                          "G01 X1.0 F100", "G00 Z0.5", "G00 X5.0 Y5.0", "G00 Z0.05",
                          "G01 Z-0.25 F30", "G01 X6.0 F100", "G01 Z-0.5 F30", "G01 X7.0 F100",
                          "G00 Z0.5", "G00 X8.0 Y8.0", "G01 Z0.125 F30", "G01 X9.0 F100"));
}

TEST_F(SafeProgramsTest, PlungeFromAboveTheSafeHeightSaysNothing) {
  place(lineRow({0, 0}, {1, 0}, -0.25F, 10));
  const Lines stated = commands();
  define("PLUNGEFROM,0.5\r\n");
  EXPECT_EQ(commands(), stated);
}

// The length of a tool that was just changed has proved nothing yet.
TEST_F(SafeProgramsTest, FreshToolPlungesAllTheWayWhenChangesAreSafe) {
  placeTwoTools();
  place(lineRow({5, 5}, {6, 5}, -0.25F, 10), 2);
  define(std::string(kStaysOnTool) + "PLUNGEFROM,0.05\r\n");
  EXPECT_THAT(behindLastChange(),
              ElementsAre("M06 T2", "G00 Z0.05", "G01 Z-0.5 F30", "G01 Y2.0 F100", "G00 Z0.5",
                          "G00 X5.0 Y5.0", "G00 Z0.05", "G01 Z-0.25 F30", "G01 X6.0 F100"));
  define(std::string(kStaysOnTool) + "PLUNGEFROM,0.05\r\nSAFECHANGE,Y\r\n");
  EXPECT_THAT(
      behindLastChange(),
      ElementsAre("M06 T2", "G00 Z0.5", "G00 X1.0 Y0.0", "G01 Z-0.5 F30", "G01 Y2.0 F100",
                  "G00 Z0.5", "G00 X5.0 Y5.0", "G00 Z0.05", "G01 Z-0.25 F30", "G01 X6.0 F100"));
}

TEST_F(SafeProgramsTest, ExpandedCyclesFeedFromJustAboveThePart) {
  place(cycleRow(81, {1, 1}, 0, 0, -0.5F, 4));
  define("CYCLES,EXPAND\r\nPLUNGEFROM,0.05\r\n");
  EXPECT_THAT(commands(), ElementsAre("M06 T1", "G00 Z0.5", "G00 X1.0 Y1.0", "G00 Z0.05",
                                      "G01 Z-0.5 F40", "G00 Z0.5"));
}

}  // namespace
}  // namespace tess::testing
