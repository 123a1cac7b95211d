// Programs held against path rows: one that does what they ask for, and each way to stray from it.
#include "tests/support/row_follower.h"

#include "gtest/gtest.h"

#include "tests/cnc/cnc_fixture.h"
#include "tests/support/grbl_reader.h"

namespace tess::testing {
namespace {

constexpr const char* kHead = "G20 G90 G17\nT1\nM3 S1200\nG0 Z0.5\n";
constexpr const char* kFoot = "G0 Z0.5\nM5\nM30\n";

class FirstDetour : public CncFixture {
 protected:
  FirstDetour() { store.toolspindlespeed[0] = 1200; }

  std::string detourOf(const std::string& lines) {
    return firstDetour(store, readGrblProgram(kHead + lines + kFoot), {});
  }

  // Without what stands there of the motion.
  std::string detour(const std::string& lines) {
    const std::string text = detourOf(lines);
    return text.substr(0, text.find(", line"));
  }
};

constexpr const char* kLine = "G0 X1 Y0\nG1 Z-0.1 F3\nG1 X2 F10\n";

TEST_F(FirstDetour, OfALine) {
  place(lineRow({1, 0}, {2, 0}, -0.1F, 10));
  EXPECT_EQ(detourOf(kLine), "");
  EXPECT_EQ(detourOf("G0 X1 Y0\nG0 Z0.05\nG1 Z-0.1 F3\nG4 P1\nG1 X2 F10\n"), "");
  EXPECT_EQ(detourOf("G0 X1 Y0\nG1 Z-0.1 F3\nG1 X2.001 F10\n"),
            "row 1: another end, line 7: 1 (1, 0, -0.1)-(2.001, 0, -0.1) c (0, 0) f 10 tool 1");
  const struct {
    const char* lines;
    const char* detour;
  } cases[] = {
      {"", "row 1: the program ends"},
      {"G0 X1 Y0\nG1 Z-0.1 F3\nG2 X2 I0.5 F10\n", "row 1: another kind of move"},
      {"G0 X1.001 Y0\nG1 Z-0.1 F3\nG1 X2 F10\n", "row 1: a feed that no row asks for"},
      {"G0 X1 Y0\nG1 Z-0.11 F3\nG1 X2 F10\n", "row 1: a feed that no row asks for"},
      {"G0 X1 Y0\nG1 X2 Z-0.11 F10\n", "row 1: another depth"},
      {"G0 X1.001 Y0\nG1 X2 Z-0.1 F10\n", "row 1: another start"},
      {"G0 X1 Y0\nG1 Z-0.1 F4\nG1 X2 F10\n", "row 1: another feed"},
      {"G0 X1 Y0\nG1 Z-0.1 F3\nG1 X2 F11\n", "row 1: another feed"},
      {"T2\nG0 X1 Y0\nG1 Z-0.1 F3\nG1 X2 F10\n", "row 1: another tool"},
      {"S1100\nG0 X1 Y0\nG1 Z-0.1 F3\nG1 X2 F10\n", "row 1: another spindle speed"},
      {"M5\nG0 X1 Y0\nG1 Z-0.1 F3\nG1 X2 F10\n", "row 1: another spindle speed"},
      {"G0 X1 Y0\nG0 Z-0.1\nG1 X2 F10\n", "row 1: a rapid that may touch the work"},
      {"G0 X1 Y0\nG0 Z0\nG1 Z-0.1 F3\nG1 X2 F10\n", "row 1: a rapid that may touch the work"},
      {"G0 Z0.4\nG0 X1 Y0\nG1 Z-0.1 F3\nG1 X2 F10\n", "row 1: a rapid that may touch the work"},
      {"G0 X1 Y0 Z0.1\nG1 Z-0.1 F3\nG1 X2 F10\n", "row 1: a rapid that may touch the work"},
      {"G0 X1 Y0\nG1 Z-0.1 F3\nG1 X2 F10\nG0 X3\n",
       "behind the last row: a rapid that may touch the work"},
      {"G0 X1 Y0\nG1 Z-0.1 F3\nG1 X2 F10\nX3\n",
       "behind the last row: a feed that no row asks for"},
  };
  for (const auto& c : cases) EXPECT_EQ(detour(c.lines), c.detour) << c.lines;
}

TEST_F(FirstDetour, OfTheEnd) {
  place(lineRow({1, 0}, {2, 0}, -0.1F, 10));
  EXPECT_EQ(firstDetour(store, readGrblProgram(std::string(kHead) + kLine + "M5\n"), {}),
            "behind the last row: the end in the work");
  EXPECT_EQ(firstDetour(store, {}, {}), "units ");
  GcodeProgram nothing;
  nothing.units = "I";
  EXPECT_EQ(firstDetour(store, nothing, {}), "no motions");
  useMetric();
  EXPECT_EQ(detourOf(kLine), "units I");
}

TEST_F(FirstDetour, OfAnArc) {
  place(arcRow(kCounterClockwiseArc, {1, 0}, {1, 0}, {0.5F, 0}, -0.1F, 10));
  const std::string before = "G0 X1 Y0\nG1 Z-0.1 F3\n";
  EXPECT_EQ(detourOf(before + "G3 X1 I-0.5 F10\n"), "");
  EXPECT_EQ(detour(before + "G3 X1 I-0.501 F10\n"), "row 1: another centre");
  EXPECT_EQ(detour(before + "G2 X1 I-0.5 F10\n"), "row 1: another kind of move");
}

TEST_F(FirstDetour, OfAnArcByItsRadius) {
  place(arcRow(kClockwiseArc, {1, 0}, {1.02F, -0.0002F}, {1, -1}, -0.1F, 10));
  const auto detourOfRadius = [this](const std::string& arc) {
    const std::string lines = "G0 X1 Y0\nG1 Z-0.1 F3\n" + arc;
    const std::string text =
        firstDetour(store, readGrblProgram(kHead + lines + kFoot), {.radiusWords = true});
    return text.substr(0, text.find(", line"));
  };
  EXPECT_EQ(detourOfRadius("G2 X1.02 Y-0.0002 R1 F10\n"), "");
  EXPECT_EQ(detourOfRadius("G2 X1.02 Y-0.0002 R-1 F10\n"), "row 1: another arc");
  EXPECT_EQ(detourOfRadius("G2 X1.02 Y-0.0002 R0.02 F10\n"), "row 1: another arc");
}

TEST_F(FirstDetour, OfARapidRow) {
  place({.type = kRapid, .x0 = 1, .y0 = 0, .x1 = 2, .y1 = 0, .z = 0.25F});
  place(lineRow({2, 0}, {3, 0}, -0.1F, 10));
  EXPECT_EQ(detourOf("G0 X1 Y0\nG1 Z0.25 F3\nG0 X2\nG1 Z-0.1\nX3 F10\n"), "");
  EXPECT_EQ(detour("G0 X1 Y0\nG1 Z0.25 F3\nG1 X2\nG1 Z-0.1\nX3 F10\n"),
            "row 1: a rapid row that is not reached");
  EXPECT_EQ(detour("G0 X1 Y0\nG1 Z0.25 F4\nG0 X2\nG1 Z-0.1 F3\nX3 F10\n"), "row 1: another feed");
}

TEST_F(FirstDetour, OfACycle) {
  place(cycleRow(83, {1, 1}, 0.3F, 0, -0.5F, 8));
  place(cycleRow(82, {2, 1}, 0, 0.5F, -0.2F, 8));
  const std::string first = "G0 X1 Y1\nG1 Z-0.3 F8\nG0 Z0.5\nG0 Z-0.29\nG1 Z-0.5\nG0 Z0.5\n";
  const std::string second = "G0 X2 Y1\nG1 Z-0.2\nG4 P0.5\nG0 Z0.5\n";
  EXPECT_EQ(detourOf(first + second), "");
  EXPECT_EQ(detourOf("G0 X1 Y1\nG1 Z-0.3 F8\nG0 Z0.5\nG0 Z-0.29\nG1 Z-0.49999\nG0 Z0.5\n"
                     "G0 Z-0.49\nG1 Z-0.5\nG0 Z0.5\n" +
                     second),
            "");
  const struct {
    std::string lines;
    const char* detour;
  } cases[] = {
      {"G0 X1 Y1\nG1 Z-0.4 F8\nG0 Z0.5\nG1 Z-0.5\n", "row 1: more than a step"},
      {"G0 X1 Y1\nG1 Z-0.3 F8\nG0 Z0.5\nG0 Z-0.31\nG1 Z-0.5\n", "row 1: a rapid into the work"},
      {"G0 X1 Y1\nG0 Z-0.1\n", "row 1: a rapid into the work"},
      {"G0 X1 Y1\nG1 Z-0.3 F9\n", "row 1: another feed"},
      {"G0 X1 Y1\nG1 Z-0.3 F8\nG0 Z0.5\nG1 Z-0.501\n", "row 1: deeper than the cycle"},
      {"G0 X1 Y1\nG1 Z-0.3 F8\nG0 Z0.5\nG0 X2 Y1\n", "row 1: a move across in a hole"},
      {"T3\nG0 X1 Y1\nG1 Z-0.3 F8\n", "row 1: another tool"},
      {"G0 Z0.1\nG0 X1 Y1\nG1 Z-0.3 F8\n", "row 1: a rapid that may touch the work"},
      {first + "G0 X2 Y1\nG1 Z-0.2\nG4 P0.4\nG0 Z0.5\n", "row 2: another dwell"},
      {first + "G0 X2 Y1\nG1 Z-0.2\nG0 Z0.5\n", "row 2: another dwell"},
      {first, "row 2: the program ends"},
  };
  for (const auto& c : cases) EXPECT_EQ(detour(c.lines), c.detour) << c.lines;
}

TEST_F(FirstDetour, OfTheWayOutOfAHole) {
  place(cycleRow(86, {1, 1}, 0, 0, -0.5F, 8));
  place(cycleRow(85, {2, 1}, 0, 0, -0.5F, 8));
  const std::string first = "G0 X1 Y1\nG1 Z-0.5 F8\nM5\nG0 Z0.5\nM3\n";
  EXPECT_EQ(detourOf(first + "G0 X2\nG1 Z-0.5\nG1 Z0.5\n"), "");
  EXPECT_EQ(detour(first + "G0 X2\nG1 Z-0.5\nG0 Z0.5\n"), "row 2: a rapid out of a hole");
  EXPECT_EQ(detour("G0 X1 Y1\nG1 Z-0.5 F8\nG0 Z0.5\n"), "row 1: a turning spindle");
}

TEST_F(FirstDetour, OfASlot) {
  PathRow slot = lineRow({1, 1}, {3, 1}, -0.2F, 9);
  slot.type = 79;
  slot.xc = 0.1F;
  place(slot);
  EXPECT_EQ(detourOf("G0 X1 Y1\nG1 Z-0.1 F3\nX3 F9\nZ-0.2 F3\nX1 F9\n"), "");
  EXPECT_EQ(detour("G0 X1 Y1\nG1 Z-0.2 F3\nX3 F9\n"), "row 1: more than a step");
  EXPECT_EQ(detour("G0 X1 Y1\nG1 Z-0.1 F3\nX2 F9\n"), "row 1: a place off the slot's ends");
  EXPECT_EQ(detour("G0 X1 Y1\nG1 Z-0.1 F3\nX3 F8\n"), "row 1: another feed");
  EXPECT_EQ(detour("G0 X1 Y1\nG1 Z-0.1 F3\nX3 F9\n"), "row 1: the program ends");
  EXPECT_EQ(detour("G0 X1 Y1\nG1 Z-0.1 F3\nG2 X3 I1 F9\n"), "row 1: no line along the slot");
}

// A lathe's program as canonical moves in path axes; the reader of text knows mills only.
GcodeMotion turned(int g, Vec from, Vec to, double feed) {
  GcodeMotion motion;
  motion.g = g;
  motion.from = from;
  motion.to = to;
  motion.feed = feed;
  motion.tool = 1;
  motion.spindle = 1200;
  return motion;
}

TEST_F(FirstDetour, OfALathe) {
  place(lineRow({1, 2}, {0, 2}, 0, 10));
  place(lineRow({0, 2}, {0, 3}, 0, 10));  // away from the axis: a rapid
  place(lineRow({0, 3}, {1, 1}, kLatheRapidZ, 10));
  place(lineRow({1, 1}, {0, 1}, 0, 10));
  GcodeProgram program;
  program.units = "I";
  program.motions = {turned(0, {0, 0}, {1, 2}, 0), turned(1, {1, 2}, {0, 2}, 10),
                     turned(0, {0, 2}, {0, 3}, 10), turned(0, {0, 3}, {1, 1}, 10),
                     turned(1, {1, 1}, {0, 1}, 10)};
  const FollowRules lathe{.lathe = true};
  EXPECT_EQ(firstDetour(store, program, lathe), "");
  GcodeProgram fed = program;
  fed.motions[2].g = 1;
  EXPECT_TRUE(firstDetour(store, fed, lathe).starts_with("row 2: a rapid row that is not reached"));
  GcodeProgram off = program;
  off.motions[4].to.y = 1.001;
  EXPECT_TRUE(firstDetour(store, off, lathe).starts_with("row 4: another end"));
  place(cycleRow(81, {1, 1}, 0, 0, -0.2F, 8));
  EXPECT_EQ(firstDetour(store, program, lathe), "row 5: a cycle of a lathe");
}

}  // namespace
}  // namespace tess::testing
