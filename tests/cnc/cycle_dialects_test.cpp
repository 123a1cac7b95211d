// Machine cycles in the words of other controls, and as the moves that they are made of.
#include <string>
#include <vector>

#include "gmock/gmock.h"
#include "gtest/gtest.h"

#include "cnc/cycle_expansion.h"
#include "core/drawing_store.h"
#include "drafting/entity_creation.h"
#include "tests/cnc/cnc_fixture.h"
#include "tests/cnc/recorded_motions.h"
#include "tests/support/failure_of.h"

namespace tess::testing {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::Not;

class CycleDialectTest : public CncFixture {
 protected:
  using Lines = std::vector<std::string>;

  // The lines behind the start of the first tool.
  Lines cycles() {
    const Lines all = body();
    auto first = all.begin();
    while (!first->starts_with("M0")) ++first;
    while (first->starts_with("M0")) ++first;
    return {first, std::prev(all.end())};  // the trailer is empty
  }

  RuntimeFailure refused() {
    return failureOf([this] { program(); });
  }

  // The lines between the first that lifts the tool and the end.
  Lines linesOfCycle(int g, float increment, float dwell) {
    store.NumPathSegments = 0;
    place(cycleRow(g, {1, 2}, increment, dwell, -0.5F, 4));
    return cycles();
  }
};

constexpr char kIso[] = "CYCLES,ISO\r\nCYCLEPECK,Q\r\nCYCLEDWELL,P\r\nFEEDSCALE,1\r\n";
constexpr char kExpand[] = "CYCLES,EXPAND\r\nFEEDSCALE,1\r\n";

TEST_F(CycleDialectTest, IsoCycleHasEveryWordEveryTimeAndIsCancelledBehindTheRun) {
  define(kIso);
  place(cycleRow(81, {1, 2}, 0, 0, -0.5F, 4));
  place(cycleRow(81, {2, 2}, 0, 0, 0.5F, 4));
  place(cycleRow(83, {2, 3}, 0.125F, 0, -0.75F, 4));
  place(lineRow({4, 4}, {5, 4}, -0.25F, 10));
  EXPECT_THAT(cycles(), ElementsAre("G00 Z0.5", "G98 G81 X1.0 Y2.0 Z-0.5 R0.5 F4",
                                    "G98 G81 X2.0 Y2.0 Z-0.5 R0.5 F4",
                                    "G98 G83 X2.0 Y3.0 Z-0.75 R0.5 Q0.125 F4", "G80",
                                    "G00 X4.0 Y4.0", "G01 Z-0.25 F3", "G01 X5.0 F10"));
}

TEST_F(CycleDialectTest, IsoRunEndsWithTheProgramAndWithAToolChange) {
  define(kIso);
  place(cycleRow(81, {1, 2}, 0, 0, -0.5F, 4));
  EXPECT_EQ(cycles().back(), "G80");
  place(cycleRow(82, {1, 2}, 0, 0.25F, -0.5F, 4), 2);
  EXPECT_THAT(program(), HasSubstr("F4\r\nG80\r\n---"));
  EXPECT_THAT(program(), HasSubstr("M06 T2\r\nG00 Z0.5\r\nG98 G82 X1.0 Y2.0 Z-0.5 R0.5 F4 P0.25"));
}

TEST_F(CycleDialectTest, IsoCyclesHaveTheWordsThatTheirControlsWant) {
  define(kIso);
  struct Case {
    int g;
    const char* words;
  };
  for (const Case& c : {Case{81, "F4"},
                        {82, "F4 P1.5"},
                        {83, "Q0.125 F4"},
                        {84, "F4 P1.5"},
                        {85, "F4"},
                        {86, "F4 P1.5"},
                        {87, "F4"},
                        {88, "F4 P1.5"},
                        {89, "F4 P1.5"}}) {
    EXPECT_THAT(linesOfCycle(c.g, 0.125F, 1.5F),
                Contains("G98 G" + std::to_string(c.g) + " X1.0 Y2.0 Z-0.5 R0.5 " + c.words));
  }
}

TEST_F(CycleDialectTest, IsoCyclesThatNeedAWordGetItAlsoWhenItIsNothing) {
  define(kIso);
  EXPECT_THAT(linesOfCycle(82, 0, 0), Contains("G98 G82 X1.0 Y2.0 Z-0.5 R0.5 F4 P0.0"));
  EXPECT_THAT(linesOfCycle(83, 0, 0), Contains("G98 G83 X1.0 Y2.0 Z-0.5 R0.5 Q1.0 F4"));
  EXPECT_THAT(linesOfCycle(84, 0, 0), Contains("G98 G84 X1.0 Y2.0 Z-0.5 R0.5 F4"));
}

TEST_F(CycleDialectTest, IsoSlotIsExpandedUnlessItIsKeptByName) {
  define(kIso);
  EXPECT_THAT(linesOfCycle(79, 0, 0), Not(Contains(HasSubstr("G79"))));
  define(std::string(kIso) + "CYCLEKEEP,79\r\n");
  EXPECT_THAT(linesOfCycle(79, 0, 0), Contains("G98 G79 X1.0 Y2.0 Z-0.5 R0.5 F4"));
}

TEST_F(CycleDialectTest, DwellHasItsScaleAndPattern) {
  define(std::string(kIso) + "DWELLSCALE,1000\r\nDWELLFORMAT,###0\r\n");
  EXPECT_THAT(linesOfCycle(82, 0, 1.5F), Contains("G98 G82 X1.0 Y2.0 Z-0.5 R0.5 F4 P1500"));
  define("CYCLES,EXPAND\r\nDWELLSCALE,1000\r\nDWELLFORMAT,###0\r\n");
  EXPECT_THAT(linesOfCycle(82, 0, 1.5F), Contains("G04 P1500"));
}

TEST_F(CycleDialectTest, NativeCyclesMayHaveOtherLetters) {
  define("CYCLEPECK,Q\r\nCYCLEDWELL,P\r\nDWELLSCALE,2\r\n");
  EXPECT_THAT(linesOfCycle(84, 0.125F, 1.5F), Contains("G84 X1.0 Y2.0 Q0.125 F40 P3.0"));
}

TEST_F(CycleDialectTest, CyclesThatAreNotKeptAreExpanded) {
  define(std::string(kIso) + "CYCLEKEEP,81 84\r\n");
  place(cycleRow(81, {1, 2}, 0, 0, -0.5F, 4));
  place(cycleRow(85, {2, 2}, 0, 0, -0.5F, 4));
  place(cycleRow(84, {3, 2}, 0, 0, -0.5F, 4));
  EXPECT_THAT(cycles(),
              ElementsAre("G00 Z0.5", "G98 G81 X1.0 Y2.0 Z-0.5 R0.5 F4", "G80", "G00 X2.0 Y2.0",
                          "G01 Z-0.5", "G01 Z0.5", "G98 G84 X3.0 Y2.0 Z-0.5 R0.5 F4", "G80"));
  define("CYCLEKEEP,81\r\n");
  store.NumPathSegments = 2;
  EXPECT_THAT(cycles(), ElementsAre("G00 Z0.5", "G81 X1.0 Y2.0 F40", "G00 Z0.5", "G00 X2.0 Y2.0",
                                    "G01 Z-0.5", "G01 Z0.5"));
}

TEST_F(CycleDialectTest, DrillingIsExpandedIntoItsMoves) {
  define(kExpand);
  place(cycleRow(81, {1, 2}, 0, 0, -0.5F, 4));
  place(cycleRow(82, {2, 2}, 0, 0.25F, 0.75F, 4));
  EXPECT_THAT(cycles(), ElementsAre("G00 Z0.5", "G00 X1.0 Y2.0", "G01 Z-0.5 F4", "G00 Z0.5",
                                    "G00 X2.0 Y2.0", "G01 Z-0.75", "G04 P0.25", "G00 Z0.5"));
}

TEST_F(CycleDialectTest, PecksComeOutEachTimeAndGoBackToJustAbove) {
  define(kExpand);
  EXPECT_THAT(linesOfCycle(83, 0.2F, 0),
              ElementsAre("G00 Z0.5", "G00 X1.0 Y2.0", "G01 Z-0.2 F4", "G00 Z0.5", "G00 Z-0.19",
                          "G01 Z-0.4", "G00 Z0.5", "G00 Z-0.39", "G01 Z-0.5", "G00 Z0.5"));
  useMetric();
  EXPECT_THAT(linesOfCycle(83, 0.25F, 0),
              ElementsAre("G00 Z0.5", "G00 X1.0 Y2.0", "G01 Z-0.25 F4", "G00 Z0.5", "G00 Z0.0",
                          "G01 Z-0.5", "G00 Z0.5"));
}

// In 32 bits 0.5 is more than five times 0.1.
TEST_F(CycleDialectTest, DepthOfFivePecksHasNoSixth) {
  define(kExpand);
  const Lines pecks = linesOfCycle(83, 0.1F, 0);
  EXPECT_EQ(pecks.size(), 2U + 3 * 5 - 1);
  EXPECT_EQ(pecks[pecks.size() - 2], "G01 Z-0.5");
}

TEST_F(CycleDialectTest, PeckOfNothingGoesDownAtOnce) {
  define(kExpand);
  EXPECT_THAT(linesOfCycle(83, 0, 0),
              ElementsAre("G00 Z0.5", "G00 X1.0 Y2.0", "G01 Z-0.5 F4", "G00 Z0.5"));
}

TEST_F(CycleDialectTest, ReamingFeedsOutAndMayDwell) {
  define(kExpand);
  EXPECT_THAT(linesOfCycle(85, 0, 0),
              ElementsAre("G00 Z0.5", "G00 X1.0 Y2.0", "G01 Z-0.5 F4", "G01 Z0.5"));
  EXPECT_THAT(linesOfCycle(89, 0, 2),
              ElementsAre("G00 Z0.5", "G00 X1.0 Y2.0", "G01 Z-0.5 F4", "G04 P2.0", "G01 Z0.5"));
}

TEST_F(CycleDialectTest, BoringStopsTheSpindleAtTheBottomAndStartsItAgain) {
  define(std::string(kExpand) + "LISTSTART,SPINDLETEXT\r\nS{SPEED} M03\r\nG04 P2\r\nLISTEND\r\n");
  store.toolspindlespeed[0] = 600;
  place(cycleRow(86, {1, 2}, 0, 1, -0.5F, 4));
  EXPECT_THAT(program(), HasSubstr("G01 Z-0.5 F4\r\nG04 P1.0\r\nM05\r\nG00 Z0.5\r\nS600 M03\r\n"
                                   "G04 P2\r\n"));
}

TEST_F(CycleDialectTest, BoringWithoutASpeedIsRefusedWithItsRow) {
  define(kExpand);
  place(lineRow({4, 4}, {5, 4}, -0.25F, 10), 3);
  place(cycleRow(86, {1, 2}, 0, 1, -0.5F, 4), 3);
  EXPECT_EQ(refused().source(), "path row 2");
  EXPECT_EQ(refused().description(),
            "The cycle stops the spindle, and tool 3 has no speed to start it again");
}

PathRow slotRow(Point from, Point to, float step, float z, float feed) {
  return arcRow(79, from, to, {step, 0}, z, feed);
}

TEST_F(CycleDialectTest, SlotIsFedToAndFroAndTheToolEndsAtItsEnd) {
  define(kExpand);
  place(slotRow({1, 2}, {3, 2}, 0.1F, -0.3F, 8));
  EXPECT_THAT(cycles(), ElementsAre("G00 Z0.5", "G00 X1.0 Y2.0", "G01 Z-0.1 F3", "G01 X3.0 F8",
                                    "G01 Z-0.2 F3", "G01 X1.0 F8", "G01 Z-0.3 F3", "G01 X3.0 F8",
                                    "G00 Z0.5"));
  store.NumPathSegments = 0;
  place(slotRow({1, 2}, {3, 2}, 0.1F, -0.2F, 8));
  const Lines even = cycles();
  EXPECT_THAT(Lines(even.end() - 3, even.end()),
              ElementsAre("G01 X1.0 F8", "G00 Z0.5", "G00 X3.0"));
}

TEST_F(CycleDialectTest, SlotWithoutAPlungeRateGoesDownAtItsOwnFeed) {
  define(kExpand);
  store.cfg_z_plunge_rate = 0;
  place(slotRow({1, 2}, {3, 2}, 0, -0.3F, 8));
  EXPECT_THAT(cycles(),
              ElementsAre("G00 Z0.5", "G00 X1.0 Y2.0", "G01 Z-0.3 F8", "G01 X3.0", "G00 Z0.5"));
}

// Its plunge would otherwise go across the part from the other end.
TEST_F(CycleDialectTest, RowBehindASlotPlungesWhereTheSlotEnds) {
  define(kExpand);
  place(slotRow({1, 2}, {3, 2}, 0.1F, -0.2F, 8));
  place(lineRow({3, 2}, {3, 4}, -0.1F, 10));
  const Lines all = cycles();
  EXPECT_THAT(Lines(all.end() - 3, all.end()),
              ElementsAre("G00 X3.0", "G01 Z-0.1 F3", "G01 Y4.0 F10"));
}

TEST_F(CycleDialectTest, CyclesThatCannotBeExpandedAreRefusedWithTheirRow) {
  define(kExpand);
  for (const int g : {73, 84, 87, 88}) {
    EXPECT_FALSE(isExpandable(g));
    store.NumPathSegments = 0;
    place(cycleRow(81, {1, 2}, 0, 0, -0.5F, 4));
    place(cycleRow(g, {1, 2}, 0.1F, 0, -0.5F, 4));
    EXPECT_EQ(refused().source(), "path row 2");
    EXPECT_EQ(refused().description(),
              "Cycle " + std::to_string(g) +
                  " cannot be written as moves, and the post-processor definition does not keep "
                  "it");
  }
}

TEST_F(CycleDialectTest, CycleOfTooManyPecksIsRefused) {
  define(kExpand);
  for (const float peck : {1e-5F, 1e-44F}) {
    store.NumPathSegments = 0;
    place(cycleRow(83, {1, 2}, peck, 0, -0.5F, 4));
    EXPECT_EQ(refused().description(), "A cycle of more than 10000 pecks");
  }
}

TEST_F(CycleDialectTest, CycleThatDoesNotGoDownIsRefused) {
  store.zstartpos = -1;
  place(cycleRow(81, {1, 2}, 0, 0, -0.5F, 4));
  for (const char* dialect : {kIso, kExpand}) {
    define(dialect);
    EXPECT_EQ(refused().source(), "path row 1");
    EXPECT_EQ(refused().description(),
              "The bottom of the cycle, -0.5, is not below the safe height -1");
  }
}

TEST_F(CycleDialectTest, LathesCycleIsLeftToTheControlOrRefused) {
  place(cycleRow(81, {1, 2}, 0, 0, -0.5F, 4));
  EXPECT_THAT(program(CncMode::Lathe), HasSubstr("G81 X2.0"));
  for (const char* dialect : {kIso, kExpand}) {
    define(dialect);
    const RuntimeFailure failure = failureOf([this] { program(CncMode::Lathe); });
    EXPECT_EQ(failure.source(), "path row 1");
    EXPECT_EQ(failure.description(),
              "A lathe's cycle 81 can only be left to the control, and the post-processor "
              "definition does not keep it");
  }
}

TEST_F(CycleDialectTest, MotionsOfAnExpandedCycleSayWhatTheyAreFor) {
  store.cfg_z_plunge_rate = 3;
  place(cycleRow(82, {1, 2}, 0, 0.25F, -0.5F, 4));
  MotionRules rules;
  rules.keptCycles.reset();
  const std::vector<MotionEvent> events = motionsOf(store, CncMode::Mill, rules);
  const ToolPlace top{1, 2, 0.5F};
  const ToolPlace bottom{1, 2, -0.5F};
  EXPECT_THAT(
      events,
      ElementsAre(ProgramStart{}, RowStart{1, 1}, ToolChange{.tool = 1},
                  RapidMove{{0, 0, 0.5F}, MoveReason::Lift, MovedAxes::Height},
                  RapidMove{top, MoveReason::Travel, MovedAxes::Place}, FeedMove{top, bottom, 4},
                  Dwell{0.25F}, RapidMove{top, MoveReason::Lift, MovedAxes::Height}, ProgramEnd{}));
}

}  // namespace
}  // namespace tess::testing
