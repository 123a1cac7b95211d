// How a lathe's tools go from row to row round the work, and that no rapid touches the bar.
#include <optional>
#include <random>
#include <string>
#include <variant>
#include <vector>

#include "gmock/gmock.h"
#include "gtest/gtest.h"

#include "core/drawing_store.h"
#include "tests/cnc/cnc_fixture.h"

namespace tess::testing {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;

constexpr int kTurning = 1;  // tool numbers
constexpr int kBoring = 2;

// A bar of 1 inch, 2 long, with its face at 0.
class LatheWaysTest : public CncFixture {
 protected:
  LatheWaysTest() {
    store.xorigin = -1;
    store.partdimx = 2;
    store.partdimy = 0.5F;
    store.xchange = 2;
    store.ychange = 1;
    store.toolinside[kBoring - 1] = 1;
    session.startupdone = true;
    define("LATHECLEAR,0.125\r\nCHANGEPOS,Y\r\nENDLIFT,Y\r\n");
  }

  std::vector<std::string> moves() { return CncFixture::moves(CncMode::Lathe); }
};

TEST_F(LatheWaysTest, WhatLiesAboveARowInTheBarIsCutAtItsFeed) {
  place(lineRow({-0.5F, 0.25F}, {-1, 0.25F}, 0, 5), kTurning);
  EXPECT_THAT(moves(), ElementsAre("G00 X1.0 Z2.0",                      // the change position
                                   "G00 X0.625 Z-0.5", "G01 X0.25 F50",  //
                                   "G01 Z-1.0",                          //
                                   "G00 X0.625", "G00 X1.0 Z2.0"));
}

TEST_F(LatheWaysTest, RowBeforeTheFaceIsReachedStraight) {
  place(lineRow({0.0625F, 0.25F}, {-1, 0.25F}, 0, 5), kTurning);
  EXPECT_THAT(moves(), ElementsAre("G00 X1.0 Z2.0", "G00 X0.25 Z0.0625", "G01 Z-1.0 F50",
                                   "G00 X0.625", "G00 X1.0 Z2.0"));
}

TEST_F(LatheWaysTest, ToolLeavesOneGrooveBeforeItGoesToTheNext) {
  place(lineRow({-0.5F, 0.5625F}, {-0.5F, 0.25F}, 0, 2), kTurning);
  place(lineRow({-1, 0.5625F}, {-1, 0.25F}, 0, 2), kTurning);
  EXPECT_THAT(moves(), ElementsAre("G00 X1.0 Z2.0", "G00 X0.5625 Z-0.5", "G01 X0.25 F20",
                                   "G00 X0.625", "G00 X0.5625 Z-1.0", "G01 X0.25",  //
                                   "G00 X0.625", "G00 X1.0 Z2.0"));
}

TEST_F(LatheWaysTest, ToolGoesRoundTheCornerOfTheBar) {
  place(lineRow({-1.5F, 0.5625F}, {-1.5F, 0.5F}, 0, 2), kTurning);
  place(lineRow({0.0625F, 0.25F}, {-0.25F, 0.25F}, 0, 2), kTurning);
  EXPECT_THAT(moves(),
              ElementsAre("G00 X1.0 Z2.0", "G00 X0.5625 Z-1.5", "G01 X0.5 F20", "G00 X0.625",
                          "G00 Z0.0625", "G00 X0.25", "G01 Z-0.25", "G00 X0.625", "G00 X1.0 Z2.0"));
}

TEST_F(LatheWaysTest, CutStraightAwayFromTheAxisKeepsItsFeed) {
  place(lineRow({0.0625F, 0.25F}, {-1, 0.25F}, 0, 5), kTurning);
  place(lineRow({-1, 0.25F}, {-1, 0.5F}, 0, 5), kTurning);
  place(lineRow({-1, 0.5F}, {-1, 0.75F}, kLatheRapidZ, 5), kTurning);
  EXPECT_THAT(moves(), ElementsAre("G00 X1.0 Z2.0", "G00 X0.25 Z0.0625", "G01 Z-1.0 F50",
                                   "G01 X0.5", "G00 X0.75", "G00 X1.0 Z2.0"));
}

TEST_F(LatheWaysTest, InsideToolComesOutOfItsBoreAlongTheAxis) {
  place(lineRow({0.0625F, 0.375F}, {-0.75F, 0.375F}, 0, 2), kBoring);
  place(lineRow({-0.75F, 0.375F}, {-0.75F, 0.25F}, 0, 2), kBoring);
  EXPECT_THAT(moves(), ElementsAre("G00 X1.0 Z2.0", "G00 X0.375 Z0.0625", "G01 Z-0.75 F20",
                                   "G01 X0.25", "G00 X0.125", "G00 Z0.125", "G00 X1.0 Z2.0"));
}

TEST_F(LatheWaysTest, InsideToolEntersItsBoreAlongTheAxis) {
  place(lineRow({-0.5F, 0.25F}, {-0.5F, 0.375F}, 0, 2), kBoring);
  EXPECT_THAT(moves(),
              ElementsAre("G00 X1.0 Z2.0", "G00 X0.125 Z0.125", "G00 Z-0.5", "G01 X0.25 F20",
                          "G01 X0.375", "G00 X0.125", "G00 Z0.125", "G00 X1.0 Z2.0"));
}

TEST_F(LatheWaysTest, InsideToolKeepsOffTheLowestPlaceOfAnArc) {
  place(arcRow(kCounterClockwiseArc, {-0.75F, 0.375F}, {-0.25F, 0.375F}, {-0.5F, 0.375F}, 0, 2),
        kBoring);
  EXPECT_THAT(moves(), Contains("G00 X0.0 Z0.125")) << "it comes down to 0.125";
}

TEST_F(LatheWaysTest, DrillComesBackAlongTheAxis) {
  place(lineRow({0.125F, 0}, {-1, 0}, 0, 2), kBoring);
  EXPECT_THAT(moves(), ElementsAre("G00 X1.0 Z2.0", "G00 X0.0 Z0.125", "G01 Z-1.0 F20",
                                   "G00 Z0.125", "G00 X1.0 Z2.0"));
}

TEST_F(LatheWaysTest, DrawingBelowTheAxisIsLeftDownward) {
  store.ychange = -1;
  place(lineRow({-0.5F, -0.25F}, {-1, -0.25F}, 0, 5), kTurning);
  EXPECT_THAT(moves(), ElementsAre("G00 X-1.0 Z2.0", "G00 X-0.625 Z-0.5", "G01 X-0.25 F50",
                                   "G01 Z-1.0", "G00 X-0.625", "G00 X-1.0 Z2.0"));
}

TEST_F(LatheWaysTest, WithoutAChangePositionAFreshToolGoesBesideTheBarFirst) {
  define("LATHECLEAR,0.125\r\nENDLIFT,Y\r\n");
  place(lineRow({-0.5F, 0.25F}, {-1, 0.25F}, 0, 5), kTurning);
  EXPECT_THAT(moves(), ElementsAre("G00 X0.625 Z0.125", "G00 Z-0.5", "G01 X0.25 F50", "G01 Z-1.0",
                                   "G00 X0.625"));
}

TEST_F(LatheWaysTest, ToolIsOutOfTheWorkBeforeItIsChanged) {
  define("LATHECLEAR,0.125\r\nSAFECHANGE,Y\r\n");
  place(lineRow({0.0625F, 0.25F}, {-1, 0.25F}, 0, 5), kTurning);
  place(lineRow({0.0625F, 0.125F}, {-0.5F, 0.125F}, 0, 5), kBoring);
  const std::string text = program(CncMode::Lathe);
  EXPECT_LT(text.find("G01 Z-1.0"), text.find("G00 X0.625\r\n"));
  EXPECT_LT(text.find("G00 X0.625\r\n"), text.find("M06 T2"));
}

TEST_F(LatheWaysTest, WithoutTheKeyTheWayIsStraight) {
  define("CHANGEPOS,Y\r\n");
  place(lineRow({-0.5F, 0.25F}, {-1, 0.25F}, 0, 5), kTurning);
  EXPECT_THAT(moves(), ElementsAre("G00 X1.0 Z2.0", "G00 X0.25 Z-0.5", "G01 Z-1.0 F50"));
}

TEST_F(LatheWaysTest, KeyWantsALengthAboveZero) {
  define("LATHECLEAR,0\r\n");
  ASSERT_EQ(host.prompts.messages.size(), 1U);
  EXPECT_THAT(host.prompts.messages[0].text,
              ::testing::HasSubstr("LATHECLEAR wants a number above 0, not '0'"));
}

// Each way at rapid speed, with the tool that goes it.
class RapidCollector : public MotionReader {
 public:
  struct Way {
    Point from, to;
    int tool;
  };
  void read(const MotionEvent& event) override {
    if (const auto* const row = std::get_if<RowStart>(&event)) tool_ = row->tool;
    if (const auto* const rapid = std::get_if<RapidMove>(&event)) {
      if (at_) ways.push_back({*at_, {rapid->to.x, rapid->to.y}, changedFrom_});
      go(rapid->to);
    }
    if (const auto* const feed = std::get_if<FeedMove>(&event)) go(feed->to);
    if (const auto* const plunge = std::get_if<PlungeMove>(&event)) go(plunge->to);
    if (std::holds_alternative<ToolChange>(event)) changedFrom_ = tool_;
  }
  std::vector<Way> ways;

 private:
  void go(ToolPlace to) { at_ = {to.x, to.y}; }
  std::optional<Point> at_;
  int tool_ = 0;
  int changedFrom_ = 0;  // the tool in use: a row's is chosen before its own change
};

// Wherever rows lie, a rapid keeps out of the bar, but for lifting the tool off its own cut, and
// for a tool inside at the height of its bore.
TEST_F(LatheWaysTest, NoRapidPassesThroughTheBar) {
  std::mt19937 random(20);
  std::uniform_real_distribution<float> x(-1.5F, 0.25F);
  std::uniform_real_distribution<float> y(0.25F, 0.75F);
  std::uniform_int_distribution<int> tools(kTurning, kBoring);
  for (int row = 0; row < 400; ++row) {
    place(lineRow({x(random), y(random)}, {x(random), y(random)}, 0, 5), tools(random));
  }
  RapidCollector rapids;
  tellMotions(store, CncMode::Lathe, rapids, motionRules(definition.dialect));
  constexpr float kHair = 0.002F;
  for (const RapidCollector::Way& way : rapids.ways) {
    if (way.from.x == way.to.x) continue;  // off a cut
    for (float share = 0; share <= 1; share += 1.0F / 64) {
      const Point at{way.from.x + share * (way.to.x - way.from.x),
                     way.from.y + share * (way.to.y - way.from.y)};
      const bool inBore = way.tool == kBoring && at.y <= 0.125F + kHair;
      EXPECT_TRUE(at.x > -kHair || at.y > store.partdimy - kHair || inBore) << at.x << ", " << at.y;
    }
  }
  EXPECT_GT(rapids.ways.size(), 1000U);
}

// --- Diameters

class LatheDiameterTest : public LatheWaysTest {
 protected:
  LatheDiameterTest() { define("DIAMETER,Y\r\n"); }
};

TEST_F(LatheDiameterTest, XWordsAreTwiceTheHeight) {
  place(lineRow({0, 0.25F}, {-1, 0.375F}, 0, 5));
  EXPECT_THAT(moves(), ElementsAre("G00 X0.5", "G01 X0.75 Z-1.0 F50"));
}

TEST_F(LatheDiameterTest, CentersStayDistances) {
  place(arcRow(kClockwiseArc, {0, 0.25F}, {-0.25F, 0.5F}, {0, 0.5F}, 0, 5));
  EXPECT_THAT(moves(), ElementsAre("G00 X0.5", "G02 X1.0 Z-0.25 I0.25 F50"));
}

TEST_F(LatheDiameterTest, CentersAsPlacesAreDiametersToo) {
  definition.absCenter = true;
  place(arcRow(kClockwiseArc, {0, 0.25F}, {-0.25F, 0.5F}, {0, 0.5F}, 0, 5));
  EXPECT_THAT(moves(), ElementsAre("G00 X0.5", "G02 X1.0 Z-0.25 I1.0 F50"));
}

TEST_F(LatheDiameterTest, RadiusWordsStayRadii) {
  store.userparamforarcs = true;
  place(arcRow(kClockwiseArc, {0, 0.25F}, {-0.25F, 0.5F}, {0, 0.5F}, 0, 5));
  EXPECT_THAT(moves(), ElementsAre("G00 X0.5", "G02 X1.0 Z-0.25 R0.25 F50"));
}

TEST_F(LatheDiameterTest, ArcsAreTrueByTheirRadii) {
  define("DIAMETER,Y\r\nARCTOL,0.0005\r\n");
  place(lineRow({0.25F, 0.25F}, {0, 0.25F}, 0, 5));
  place(arcRow(kClockwiseArc, {0, 0.25F}, {-0.25F, 0.5F}, {0, 0.5F}, 0, 5));
  EXPECT_THAT(moves(), Contains("G02 X1.0 Z-0.25 I0.25"));
}

TEST_F(LatheDiameterTest, MillsHaveNoDiameters) {
  place(lineRow({1, 1}, {2, 1}, -0.25F, 5));
  EXPECT_THAT(CncFixture::moves(), Contains("G00 X1.0 Y1.0"));
}

}  // namespace
}  // namespace tess::testing
