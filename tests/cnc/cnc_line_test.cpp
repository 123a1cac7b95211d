// One motion line: which words it gets.
#include "cnc/cnc_line.h"

#include <limits>
#include <string>

#include "gtest/gtest.h"

#include "core/drawing_store.h"
#include "tests/cnc/cnc_fixture.h"
#include "tests/support/failure_of.h"

namespace tess::testing {
namespace {

class CncLineTest : public CncFixture {
 protected:
  // The line that comes out, without its line end; "" for none.
  std::string form(MotionLine line) {
    std::string out;
    FormCncLine(out, LineFormat(session, definition), last, line);
    if (out.empty()) return out;
    EXPECT_TRUE(out.ends_with("\r\n"));
    return out.substr(0, out.size() - 2);
  }

  LastMove last{.x = 1, .y = 2, .z = 3, .f = 40};
};

TEST_F(CncLineTest, OnlyChangedWordsAreWritten) {
  EXPECT_EQ(form({.g = "G01", .x = 1, .y = 5, .z = 3, .feed = 4, .useY = true}), "G01 Y5.0");
  EXPECT_EQ(last.y, 5);
}

TEST_F(CncLineTest, RapidOrFeedMoveToTheSamePlaceGivesNoLine) {
  EXPECT_EQ(form({.g = "G00", .x = 1, .y = 2, .z = 3, .useY = true}), "");
  EXPECT_EQ(form({.g = "G01", .x = 1, .y = 2, .z = 3, .feed = 9, .useY = true}), "");
  EXPECT_EQ(last.f, 40) << "a line that is not written says no feed";
}

TEST_F(CncLineTest, BareMotionWordIsNotWrittenInAnyCase) {
  last.x = 0;
  EXPECT_EQ(form({.g = "g00", .x = 0, .y = 7, .z = 3}), "");
  EXPECT_EQ(last.y, 7) << "the place is taken note of all the same";
}

TEST_F(CncLineTest, OtherBareWordIsWritten) {
  EXPECT_EQ(form({.g = "G83", .x = 1, .y = 2, .z = 3}), "G83");
}

TEST_F(CncLineTest, ForcedXAndYAreWrittenUnchangedEvenWithoutAYWord) {
  EXPECT_EQ(form({.g = "G00", .x = 1, .y = 2, .z = 3, .forceXY = true}), "G00 X1.0 Y2.0");
}

TEST_F(CncLineTest, ZOnlyLineWritesAnUnchangedZAndForgetsXAndY) {
  EXPECT_EQ(form({.g = "G00", .x = 8, .y = 9, .z = 3, .useY = true, .zOnly = true}), "G00 Z3.0");
  EXPECT_EQ(last.x, 1);
  EXPECT_EQ(last.y, 2);
}

TEST_F(CncLineTest, NewFileWritesEveryWordAndTheFeedAnew) {
  EXPECT_EQ(form({.g = "G01", .x = 1, .y = 2, .z = 3, .feed = 4, .newfile = true, .useY = true}),
            "G01 X1.0 Y2.0 Z3.0 F40");
}

TEST_F(CncLineTest, ResetForgetsTheFeedAndWritesNothing) {
  EXPECT_EQ(form({.g = "G01", .x = 9, .resetOnly = true}), "");
  EXPECT_EQ(last.f, 0);
  EXPECT_EQ(last.x, 1);
}

TEST_F(CncLineTest, ForcedWordsOfTheDefinitionAreWrittenUnchanged) {
  definition.forceXYZ = true;
  EXPECT_EQ(form({.g = "G01", .x = 1, .y = 5, .z = 3, .useY = true}), "G01 X1.0 Y5.0 Z3.0");
  EXPECT_EQ(form({.g = "G01", .x = 2, .y = 5, .z = 3}), "G01 X2.0 Z3.0");
}

TEST_F(CncLineTest, FeedIsWrittenInTenthsAndRoundedToAWholeNumber) {
  struct Case {
    float feed;
    const char* line;
  };
  for (const Case& c : {Case{12.5F, "G01 X9.0 F125"},
                        {12.54F, "G01 X9.0 F125"},
                        {0.05F, "G01 X9.0 F1"},
                        {1234.5F, "G01 X9.0 F12345"},
                        {0.0F, "G01 X9.0"},
                        {-5.0F, "G01 X9.0"}}) {
    last = {.x = 1, .y = 2, .z = 3};
    EXPECT_EQ(form({.g = "G01", .x = 9, .y = 2, .z = 3, .feed = c.feed}), c.line) << c.feed;
  }
}

TEST_F(CncLineTest, FeedTooSmallForATenthWritesNoFeedWord) {
  EXPECT_EQ(form({.g = "G01", .x = 9, .y = 2, .z = 3, .feed = 0.04F}), "G01 X9.0");
}

TEST_F(CncLineTest, FeedThatDiffersOnlyBehindTheRoundingIsWrittenAgain) {
  EXPECT_EQ(form({.g = "G01", .x = 9, .y = 2, .z = 3, .feed = 4.02F}), "G01 X9.0 F40");
}

TEST_F(CncLineTest, FeedWordBelongsToFeedMovesOnly) {
  for (const char* g : {"G00", "G92", "M03"}) {
    last.x = 1;
    EXPECT_EQ(form({.g = g, .x = 9, .y = 2, .z = 3, .feed = 7}), std::string(g) + " X9.0");
  }
}

TEST_F(CncLineTest, WordsStandInTheirOrder) {
  EXPECT_EQ(form({.g = "G02",
                  .x = 4,
                  .y = 5,
                  .z = 6,
                  .i = 7,
                  .j = 8,
                  .k = 9,
                  .feed = 10,
                  .d = 11,
                  .useY = true}),
            "G02 X4.0 Y5.0 Z6.0 I7.0 J8.0 K9.0 F100 D11.0");
}

TEST_F(CncLineTest, RadiusTakesThePlaceOfAllCenterWords) {
  store.userparamforarcs = true;
  EXPECT_EQ(form({.g = "G03",
                  .x = 4,
                  .y = 5,
                  .z = 3,
                  .i = 7,
                  .j = 8,
                  .k = 9,
                  .feed = 10,
                  .d = 11,
                  .r = -6.5F,
                  .useY = true}),
            "G03 X4.0 Y5.0 R-6.5 F100 D11.0");
}

TEST_F(CncLineTest, CenterWordsOfZeroOffsetAreLeftOut) {
  EXPECT_EQ(form({.g = "G02", .x = 4, .y = 2, .z = 3, .j = 1, .useY = true}), "G02 X4.0 J1.0");
  EXPECT_EQ(form({.g = "G02", .x = 5, .y = 2, .z = 3, .i = 1, .useY = true}), "G02 X5.0 I1.0");
}

TEST_F(CncLineTest, AbsoluteCenterWordsEqualToTheStartAreLeftOut) {
  definition.absCenter = true;
  EXPECT_EQ(form({.g = "G02", .x = 4, .y = 2, .z = 3, .i = 1, .j = 0, .useY = true}),
            "G02 X4.0 J0.0");
  EXPECT_EQ(form({.g = "G02", .x = 5, .y = 2, .z = 3, .i = 0, .j = 2, .useY = true}),
            "G02 X5.0 I0.0");
}

TEST_F(CncLineTest, ForcedCenterWordsAreWrittenThoughRedundant) {
  definition.forceIJK = true;
  EXPECT_EQ(form({.g = "G02", .x = 4, .y = 2, .z = 3, .useY = true}), "G02 X4.0 I0.0 J0.0");
}

TEST_F(CncLineTest, ArcThatVanishesAtTheProgramsResolutionIsDropped) {
  EXPECT_EQ(form({.g = "G02", .x = 1.000001F, .y = 2, .z = 3, .i = 1, .useY = true}), "");
  EXPECT_EQ(last.x, 1) << "a dropped move is not taken note of";
}

TEST_F(CncLineTest, ArcThatEndsExactlyAtItsStartIsAFullCircle) {
  EXPECT_EQ(form({.g = "G02", .x = 1, .y = 2, .z = 3, .i = 1, .useY = true}), "G02 I1.0");
}

TEST_F(CncLineTest, CycleThatVanishesAtTheProgramsResolutionIsDroppedToo) {
  EXPECT_EQ(form({.g = "G81", .x = 1, .y = 2.000001F, .z = 3, .useY = true, .forceXY = true}), "");
}

TEST_F(CncLineTest, StraightMoveBelowTheResolutionIsWritten) {
  EXPECT_EQ(form({.g = "G01", .x = 1.000001F, .y = 2, .z = 3, .useY = true}), "G01 X1.0");
}

TEST_F(CncLineTest, CallersWordAndCenterAreCleared) {
  std::string out;
  MotionLine line{.g = "G02", .x = 4, .y = 2, .z = 3, .i = 1, .j = 2, .k = 3, .d = 5};
  FormCncLine(out, LineFormat(session, definition), last, line);
  EXPECT_EQ(line.g, "");
  EXPECT_EQ(line.i, 0);
  EXPECT_EQ(line.j, 0);
  EXPECT_EQ(line.k, 0);
  EXPECT_EQ(line.d, 5);
}

TEST_F(CncLineTest, LineThatIsNotWrittenLeavesItsCallersValues) {
  std::string out;
  MotionLine line{.g = "G02", .x = 1.000001F, .y = 2, .z = 3, .i = 1};
  FormCncLine(out, LineFormat(session, definition), last, line);
  EXPECT_EQ(line.g, "G02");
  EXPECT_EQ(line.i, 1);
}

TEST_F(CncLineTest, PatternThatIsSilentAboutZeroStillGivesAWordItsNumber) {
  session.formats.cncfmt = "####";
  EXPECT_EQ(form({.g = "G01", .x = 0, .y = 5, .z = 3, .useY = true}), "G01 X0 Y5");
}

TEST_F(CncLineTest, PatternWithoutDigitsGivesPlainNumbers) {
  session.formats.cncfmt = "";
  EXPECT_EQ(form({.g = "G01", .x = 0.25F, .y = 5, .z = 3, .useY = true}), "G01 X0.25 Y5");
}

TEST_F(CncLineTest, NoWordIsWrittenThatIsNoNumber) {
  for (const float value :
       {std::numeric_limits<float>::quiet_NaN(), std::numeric_limits<float>::infinity()}) {
    const auto write = [&] { form({.g = "G01", .x = value, .y = 2, .z = 3}); };
    EXPECT_EQ(numberOfFailure(write), FailureNumber::InvalidProcedureCall);
  }
}

}  // namespace
}  // namespace tess::testing
