// Listings of canonical calls, and the interpreter that prints them.
#include "tests/support/canon_listing.h"

#include "gtest/gtest.h"

#include "tests/support/rs274.h"

namespace tess::testing {
namespace {

constexpr const char* kBegin =
    "    1 N..... USE_LENGTH_UNITS(CANON_UNITS_INCHES)\n"
    "    2 N..... SELECT_PLANE(CANON_PLANE_XY)\n"
    "    3 N..... SELECT_TOOL(3)\n"
    "    4 N..... CHANGE_TOOL(2)\n"
    "    5 N..... USE_TOOL_LENGTH_OFFSET(0.0 0.0 0.003, 0.0 0.0 0.0, 0.0 0.0 0.0)\n";
constexpr const char* kEnd = "   90 N..... PROGRAM_END()\n   91 N..... ON_RESET()\n";

std::string refusalOf(const std::string& listing) {
  try {
    readCanonListing(listing, /*lathe=*/false);
  } catch (const GcodeError& error) {
    return error.what();
  }
  return {};
}

TEST(CanonListing, TellsTheMotionsOfAMill) {
  const GcodeProgram program =
      readCanonListing(std::string(kBegin) +
                           "    6 N..... SET_SPINDLE_SPEED(0, 1200.0000)\n"
                           "    7 N..... START_SPINDLE_CLOCKWISE(0)\n"
                           "    8 N..... COMMENT(\"a (remark)\")\n"
                           "    9 N..... STRAIGHT_TRAVERSE(1.0, 2.0, 0.5, 0.0, 0.0, 0.0)\n"
                           "   10 N..... SET_FEED_RATE(3.5)\n"
                           "   11 N..... STRAIGHT_FEED(1.0, 2.0, -0.1, 0.0, 0.0, 0.0)\n"
                           "   12 N..... ARC_FEED(2.0, 3.0, 1.0, 3.0, 1, -0.1, 0.0, 0.0, 0.0)\n"
                           "   13 N..... DWELL(0.25)\n"
                           "   14 N..... STOP_SPINDLE_TURNING(0)\n"
                           "   15 N..... STRAIGHT_TRAVERSE(2.0, 3.0, 0.5, 0.0, 0.0, 0.0)\n" +
                           kEnd,
                       /*lathe=*/false);
  EXPECT_EQ(program.units, "I");
  ASSERT_EQ(program.motions.size(), 5U);
  const GcodeMotion& arc = program.motions[2];
  EXPECT_EQ(arc.line, 12);
  EXPECT_EQ(arc.g, 3);
  EXPECT_EQ(arc.from, (Vec{1, 2}));
  EXPECT_EQ(arc.to, (Vec{2, 3}));
  EXPECT_EQ(arc.center, (Vec{1, 3}));
  EXPECT_EQ(arc.toZ, -0.1);
  EXPECT_EQ(arc.feed, 3.5);
  EXPECT_EQ(arc.tool, 3);
  EXPECT_EQ(arc.spindle, 1200);
  EXPECT_EQ(program.motions[3].dwell, 0.25);
  EXPECT_EQ(program.motions[4].spindle, 0);
}

TEST(CanonListing, ALathesAxesAreThoseOfThePath) {
  const GcodeProgram program = readCanonListing(
      "1 N..... USE_LENGTH_UNITS(CANON_UNITS_MM)\n2 N..... SELECT_PLANE(CANON_PLANE_XZ)\n"
      "3 N..... STRAIGHT_FEED(10.0, 0.0, -5.0, 0.0, 0.0, 0.0)\n"
      "4 N..... ARC_FEED(-7.0, 12.0, -5.0, 12.0, -1, 0.0, 0.0, 0.0, 0.0)\n" +
          std::string(kEnd),
      /*lathe=*/true);
  EXPECT_EQ(program.units, "M");
  ASSERT_EQ(program.motions.size(), 2U);
  EXPECT_EQ(program.motions[0].to, (Vec{-5, 10}));
  EXPECT_EQ(program.motions[0].toZ, 0);
  EXPECT_EQ(program.motions[1].g, 2);
  EXPECT_EQ(program.motions[1].to, (Vec{-7, 12}));
  EXPECT_EQ(program.motions[1].center, (Vec{-5, 12}));
}

TEST(CanonListing, StopsAtWhatNoDrawingAsksFor) {
  const std::string begin = kBegin;
  const std::string traverse = "7 N..... STRAIGHT_TRAVERSE(1.0, 2.0, 0.5, 0.0, 0.0, 0.0)\n";
  EXPECT_EQ(refusalOf(begin + "6 N..... STRAIGHT_PROBE(1.0, 2.0)\n" + kEnd),
            "line 6: no reason for STRAIGHT_PROBE");
  EXPECT_EQ(refusalOf(begin + traverse), "the program does not end");
  EXPECT_EQ(refusalOf(begin + kEnd + traverse), "line 8: a motion behind the end");
  EXPECT_EQ(
      refusalOf(begin + "6 N..... SELECT_TOOL(4)\n7 N..... CHANGE_TOOL(3)\n" + traverse + kEnd),
      "line 8: a motion with the length of another tool");
  EXPECT_EQ(refusalOf(begin + "6 N..... ARC_FEED(1.0, 0.0, 1.0, 1.0, 2, 0.0)\n" + kEnd),
            "line 6: an arc of more than one turn");
  EXPECT_EQ(refusalOf(begin +
                      "6 N..... SELECT_PLANE(CANON_PLANE_XZ)\n"
                      "7 N..... ARC_FEED(1.0, 0.0, 1.0, 1.0, 1, 0.0)\n" +
                      kEnd),
            "line 7: an arc in another plane");
  EXPECT_EQ(refusalOf(begin + "6 N..... DWELL()\n" + kEnd), "line 6: DWELL lacks an argument");
}

TEST(Interpreter, ReadsAProgramWithMoreDecimalsThanItLists) {
  if (const auto reason = whyNoInterpreter()) GTEST_SKIP() << *reason;
  const GcodeProgram program = interpreted(
      "G20 G90 G17\nT2 M6\nG43 H2\nM3 S900\nG0 X1.00003 Y2 Z0.5\nG1 Z-0.1 F12.5\n"
      "G3 X2.00003 Y3 I0 J1\nM5\nM30\n",
      /*lathe=*/false);
  EXPECT_EQ(program.units, "I");
  ASSERT_EQ(program.motions.size(), 3U);
  EXPECT_EQ(program.motions[0].to, (Vec{1.00003, 2}));
  EXPECT_EQ(program.motions[2].center, (Vec{1.00003, 3}));
  EXPECT_EQ(program.motions[2].tool, 2);
  EXPECT_EQ(program.motions[2].spindle, 900);
}

TEST(Interpreter, TellsWhyItStops) {
  if (const auto reason = whyNoInterpreter()) GTEST_SKIP() << *reason;
  for (const char* program : {"G20\nG70\nM30\n", "G20 G90\nG1 X1\nM30\n", "G20 G90\nG0 X1\n"}) {
    EXPECT_THROW(interpreted(program, /*lathe=*/false), GcodeError) << program;
  }
}

}  // namespace
}  // namespace tess::testing
