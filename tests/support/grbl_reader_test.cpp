// GRBL's rules, each by a line that breaks it alone, and what a program that keeps them does.
#include "tests/support/grbl_reader.h"

#include "gtest/gtest.h"

namespace tess::testing {
namespace {

std::string refusalOf(const std::string& text) {
  try {
    readGrblProgram(text);
  } catch (const GcodeError& error) {
    return error.what();
  }
  return {};
}

constexpr const char* kHead = "G21 G90 F100\r\n";

TEST(GrblReader, RefusesByTheNumbersOfItsList) {
  const struct {
    const char* line;
    const char* refusal;
  } cases[] = {
      {"%", "error:1 no letter but %"},
      {"1X", "error:1 no letter but 1"},
      {"G1 X", "error:2 no number behind a letter"},
      {"(a (nested) remark)", "error:2 no number behind a letter"},
      {"G1 X-", "error:2 no number behind a letter"},
      {"G1 X.", "error:2 no number behind a letter"},
      {"$H", "error:3 a command to the control itself"},
      {"G1 X1 F-5", "error:4 F-5"},
      {"M3 S-1", "error:4 S-1"},
      {"G4 P-1", "error:4 P-1"},
      {"T-1", "error:4 T-1"},
      {"N-1 G0 X1", "error:4 N-1"},
      {"G1 X1.000000000000000000000000000000 Y1.000000000000000000000000000000 Z1.00000000000",
       "error:11 a line that is too long"},
      {"G70", "error:20 G70 is unknown"},
      {"G71", "error:20 G71 is unknown"},
      {"G75", "error:20 G75 is unknown"},
      {"G81 X1 Y1 Z-1 R1", "error:20 G81 is unknown"},
      {"G98", "error:20 G98 is unknown"},
      {"G64", "error:20 G64 is unknown"},
      {"G43 H1", "error:20 G43 is unknown"},
      {"G90.1", "error:20 G90.1 is unknown"},
      {"G61.1", "error:20 G61.1 is unknown"},
      {"G28.2", "error:20 G28.2 is unknown"},
      {"G38.1 X1", "error:20 G38.1 is unknown"},
      {"M6", "error:20 M6 is unknown"},
      {"M06 T1", "error:20 M6 is unknown"},
      {"M7", "error:20 M7 is unknown"},
      {"G0 A1", "error:20 A1 is unknown"},
      {"G0 D1", "error:20 D1 is unknown"},
      {"G43.1 H1", "error:20 H1 is unknown"},
      {"G0 Q1", "error:20 Q1 is unknown"},
      {"G10 L3 P1 X1", "error:20 G10 in another form than L2 and L20"},
      {"G10 L2 P1 R1 X1", "error:20 G10 in another form than L2 and L20"},
      {"G0 G1 X1", "error:24 G1 beside another word that takes the axes"},
      {"G17 G18", "error:21 G18 beside another word of its group"},
      {"G20 G21", "error:21 G21 beside another word of its group"},
      {"G0 G80", "error:21 G80 beside another word of its group"},
      {"M3 M5", "error:21 M5 beside another word of its group"},
      {"M0 M30", "error:21 M30 beside another word of its group"},
      {"G1 X1 F0", "error:22 a motion without a feed"},
      {"G93 G1 X1", "error:22 inverse time without F"},
      {"G1.5 X1", "error:23 G1.5 with decimals"},
      {"G59.1", "error:23 G59.1 with decimals"},
      {"M3.5", "error:23 M3.5 with decimals"},
      {"G28 G1 X1", "error:24 G1 beside another word that takes the axes"},
      {"G92 G0 X1", "error:24 G0 beside another word that takes the axes"},
      {"G43.1 G0 Z1", "error:24 G0 beside another word that takes the axes"},
      {"G1 X1 X2", "error:25 X2"},
      {"G2", "error:26 an arc without axes"},
      {"G3 I1", "error:26 an arc without axes"},
      {"G92", "error:26 G92 alone"},
      {"G10 L2 P1", "error:26 G10 without axes"},
      {"G38.2", "error:26 a probe without axes"},
      {"N10000001", "error:27 a high number"},
      {"G4", "error:28 a dwell without P"},
      {"G10 X1", "error:28 G10 without P and L"},
      {"G10 L2 P7 X1", "error:29 G10 for a system that there is not"},
      {"G53 G2 X1 I1", "error:30 G53 with another motion than G0 or G1"},
      {"G80 X1", "error:31 axes without a motion"},
      {"G2 Z1 I1", "error:32 an arc without an axis of its plane"},
      {"G2 X0 R1", "error:33 a full circle by its radius"},
      {"G2 X2 Y0 I1.01", "error:33 an arc whose radii differ by 0.020000 mm"},
      {"G2 X2000 Y0 I1000.4", "error:33 an arc whose radii differ by 0.800000 mm"},
      {"G38.2 X0", "error:33 a probe to where it is"},
      {"G2 X2 R0.9", "error:34 a radius that does not reach"},
      {"G2 X2 Y0", "error:35 an arc without a centre"},
      {"G2 X2 Y0 K1", "error:35 an arc without a centre"},
      {"G18 G2 X2 Z0 J1", "error:35 an arc without a centre"},
      {"G1 X1 I1", "error:36 no use for I"},
      {"G2 X2 R1 I1", "error:36 no use for I"},
      {"G0 X1 P1", "error:36 no use for P"},
      {"G0 X1 L1", "error:36 no use for L"},
      {"G1 X1 R1", "error:36 no use for R"},
      {"G43.1 X1", "error:37 G43.1 with another axis than Z"},
      {"T256", "error:38 T256"},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(refusalOf(std::string(kHead) + c.line + "\r\n"), "line 2: " + std::string(c.refusal))
        << c.line;
  }
}

TEST(GrblReader, TakesWhatGrblTakes) {
  for (const char* line :
       {"", "(a remark", "; a remark, 100 %", "G0 X1 (in between) Y2", "/G0 X1", "g1x1y2f30",
        "G17 G40 G49 G54 G61 G80 G91.1 G94", "G2 X2 Y0 I1", "G2 X2 Y0 I1.002",
        "G2 X2000 Y0 I1000.2", "G2 X0 Y0 I1 J0", "G3 X2 R-1.5", "G1", "G0", "G4 P0.5", "M3 S1200",
        "M4", "M5", "M8", "M9", "M0", "M1", "M2", "M30", "T255", "N10 G0 X1", "S100", "G1 Z-1 F1.5",
        "G2 X2 Z-1 I1",
        // 79 characters without the blanks and the remark
        "G1 X1.00000000000000000000000 Y1.00000000000000000000000 Z1.00000000000000 F1.0000 "
        "(all)"}) {
    EXPECT_EQ(refusalOf(std::string(kHead) + line + "\r\n"), "") << line;
  }
}

TEST(GrblReader, TheFeedHasToBeSaidOnce) {
  EXPECT_EQ(refusalOf("G21 G90\r\nG0 X1\r\nG1 X2\r\n"), "line 3: error:22 a motion without a feed");
  EXPECT_EQ(refusalOf("G21 G90\r\nG1 X2 F5\r\nG1 X3\r\n"), "");
}

TEST(GrblReader, AnArcsRadiiAreComparedInMillimetres) {
  EXPECT_EQ(refusalOf("G20 G90 F10\r\nG2 X0.2 Y0 I0.1001\r\n"),
            "line 2: error:33 an arc whose radii differ by 0.005080 mm");
  EXPECT_EQ(refusalOf("G20 G90 F10\r\nG2 X0.2 Y0 I0.10009\r\n"), "");
}

TEST(GrblReader, RefusesWhatActsAtOnce) {
  EXPECT_EQ(refusalOf("(ready?)\r\n"), "line 1: the byte 63 acts at once, wherever it stands");
  EXPECT_EQ(refusalOf("; go!\r\n"), "line 1: the byte 33 acts at once, wherever it stands");
  EXPECT_EQ(refusalOf("G0 X1 ~\r\n"), "line 1: the byte 126 acts at once, wherever it stands");
  EXPECT_EQ(refusalOf("; \x18\r\n"), "line 1: the byte 24 acts at once, wherever it stands");
  EXPECT_EQ(refusalOf("; \xc3\xa4\r\n"), "line 1: the byte 195 acts at once, wherever it stands");
}

TEST(GrblReader, RefusesMovesToUnknownPlaces) {
  EXPECT_EQ(refusalOf("G90\r\nG0 X1\r\n"), "line 2: a motion before the units");
  EXPECT_EQ(refusalOf("G21\r\nG0 X1\r\n"), "line 2: a motion that is not absolute");
  EXPECT_EQ(refusalOf("G21 G91\r\nG0 X1\r\n"), "line 2: a motion that is not absolute");
  for (const char* line : {"G28", "G30 Z0", "G92 X0", "G53 G0 X1", "G10 L20 P1 X0", "G43.1 Z1",
                           "G38.2 Z-1", "G92.1"}) {
    EXPECT_EQ(refusalOf(std::string(kHead) + line + "\r\n"),
              "line 2: a place that the program does not tell")
        << line;
  }
  EXPECT_EQ(refusalOf(std::string(kHead) + "G18 G2 X2 Z0 I1\r\n"),
            "line 2: an arc in another plane");
}

TEST(GrblReader, FollowsTheProgram) {
  const GcodeProgram program = readProgram(
      "G20 G90 G17\r\nT3\r\nM0 (tool 3)\r\nM3 S1200\r\nG4 P2\r\nG0 Z0.5\r\nG0 X1 Y2\r\n"
      "G1 Z-0.1 F3\r\nG3 X2 Y3 J1 F12.5\r\nG1 X2.5\r\nX3\r\nG2 X4 Y4 R-1\r\nM5\r\nG0 "
      "Z0.5\r\nM30\r\n",
      {.grbl = true});
  EXPECT_EQ(program.units, "I");
  ASSERT_EQ(program.motions.size(), 9U);
  const GcodeMotion& dwell = program.motions[0];
  EXPECT_EQ(dwell.g, 4);
  EXPECT_EQ(dwell.dwell, 2);
  EXPECT_EQ(dwell.spindle, 1200);
  const GcodeMotion& plunge = program.motions[3];
  EXPECT_EQ(plunge.g, 1);
  EXPECT_EQ(plunge.to, (Vec{1, 2}));
  EXPECT_EQ(plunge.fromZ, 0.5);
  EXPECT_EQ(plunge.toZ, -0.1);
  EXPECT_EQ(plunge.feed, 3);
  EXPECT_EQ(plunge.tool, 3);
  const GcodeMotion& arc = program.motions[4];
  EXPECT_EQ(arc.line, 9);
  EXPECT_EQ(arc.g, 3);
  EXPECT_EQ(arc.center, (Vec{1, 3}));
  EXPECT_EQ(arc.feed, 12.5);
  EXPECT_EQ(program.motions[6].g, 1) << "the motion word holds";
}

}  // namespace
}  // namespace tess::testing
