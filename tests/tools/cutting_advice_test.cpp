// Advice in the drawing's own units: chip loads by diameter, thinning, the spindle's limit.
#include "tools/cutting_advice.h"

#include <cmath>

#include "gtest/gtest.h"

#include "core/drawing_settings.h"
#include "tests/support/feeds_samples.h"

namespace tess {
namespace {

using testing::TempFolder;

constexpr CuttingFigures kAluminium{.speed = 300, .chipMin = 0.001, .chipMax = 0.0037};

CuttingConditions quarterInch() {
  return {.type = MillType::End,
          .diameter = 0.25,
          .flutes = 2,
          .metric = false,
          .stepOver = 0.5,
          .highestSpindle = 0};
}

PartMaterial of(const std::string& category, const std::string& material) {
  return {.category = category, .material = material, .hardness = {}, .condition = {}};
}

CuttingAdvice advise(const CuttingConditions& conditions, const ChipLoads& loads = {},
                     const CuttingFigures& figures = kAluminium) {
  const auto advice = adviseCutting(figures, loads, conditions);
  EXPECT_TRUE(advice.has_value());
  return advice.value_or(CuttingAdvice{});
}

TEST(CuttingAdvice, InInchesItIsTheRecommendationForTheDiameter) {
  const CuttingAdvice advice = advise(quarterInch());
  EXPECT_EQ(advice.spindle, 4584);  // 300 * 12 / (0.25 * 3.14159)
  EXPECT_EQ(advice.rightSpindle, 4584);
  EXPECT_DOUBLE_EQ(advice.roughingChip, 0.002);
  EXPECT_DOUBLE_EQ(advice.finishingChip, 0.002);
  EXPECT_EQ(advice.roughingFeed, 18.3F);  // 0.002 * 2 * 4584
  EXPECT_EQ(advice.finishingFeed, 18.3F);
  EXPECT_EQ(advice.thinning, 1);
}

TEST(CuttingAdvice, InMillimetresItIsTheSameCutterAndTheSameCut) {
  CuttingConditions conditions = quarterInch();
  conditions.metric = true;
  conditions.diameter = 6.35;
  const CuttingAdvice advice = advise(conditions);
  EXPECT_EQ(advice.spindle, 4584);
  EXPECT_DOUBLE_EQ(advice.roughingChip, 0.0508);
  EXPECT_EQ(advice.roughingFeed, 466);  // 18.336 * 25.4
}

TEST(CuttingAdvice, ARowsChipLoadGrowsWithTheDiameter) {
  const std::pair<double, double> cases[] = {{1.0 / 16, 0.0005}, {0.125, 0.001},   {0.1875, 0.0015},
                                             {0.25, 0.002},      {0.375, 0.00285}, {0.5, 0.0037},
                                             {0.75, 0.0054},     {1, 0.0071},      {3, 0.0071}};
  for (const auto& [diameter, chip] : cases) {
    CuttingConditions conditions = quarterInch();
    conditions.diameter = diameter;
    EXPECT_NEAR(advise(conditions).roughingChip, chip, 1e-12) << diameter;
  }
}

TEST(CuttingAdvice, ARowWhoseChipLoadsAreCloseNeverPassesTheLargerOneEarly) {
  const CuttingFigures figures{.speed = 300, .chipMin = 0.004, .chipMax = 0.005};
  CuttingConditions conditions = quarterInch();
  EXPECT_DOUBLE_EQ(advise(conditions, {}, figures).roughingChip, 0.005);
  conditions.diameter = 1;
  EXPECT_DOUBLE_EQ(advise(conditions, {}, figures).roughingChip, 0.005);
  const CuttingFigures swapped{.speed = 300, .chipMin = 0.005, .chipMax = 0.004};
  EXPECT_DOUBLE_EQ(advise(conditions, {}, swapped).roughingChip, 0.004);
}

TEST(CuttingAdvice, TheSmallerOfRowAndSourcesCounts) {
  const ChipLoads loads{{0.125, 0.0005, 0.0006}, {0.25, 0.0015, 0.0025}, {0.5, 0.004, 0.006}};
  CuttingConditions conditions = quarterInch();
  const CuttingAdvice at = advise(conditions, loads);
  EXPECT_DOUBLE_EQ(at.finishingChip, 0.0015);
  EXPECT_DOUBLE_EQ(at.roughingChip, 0.002) << "the row's";
  conditions.diameter = 0.1875;
  const CuttingAdvice between = advise(conditions, loads);
  EXPECT_NEAR(between.finishingChip, 0.001, 1e-12) << "halfway between two diameters";
  conditions.diameter = 1.0 / 16;
  const CuttingAdvice below = advise(conditions, loads);
  EXPECT_NEAR(below.roughingChip, 0.0003, 1e-12) << "in proportion below the first";
  conditions.diameter = 2;
  EXPECT_DOUBLE_EQ(advise(conditions, loads).finishingChip, 0.004) << "and no more than the last";
}

TEST(CuttingAdvice, ASlotTakesLess) {
  const ChipLoads loads{{0.25, 0.001, 0.001}};
  CuttingConditions conditions = quarterInch();
  conditions.type = MillType::Slot;
  conditions.stepOver = 0.1;
  const CuttingAdvice advice = advise(conditions, loads);
  EXPECT_DOUBLE_EQ(advice.roughingChip, 0.00073);
  EXPECT_EQ(advice.thinning, 1) << "both sides of a slot are cut at once";
}

TEST(CuttingAdvice, AFaceMillKnowsNoDiameter) {
  const ChipLoads loads{{0.25, 0.0001, 0.0001}};
  CuttingConditions conditions = quarterInch();
  conditions.type = MillType::Face;
  conditions.diameter = 2;
  const CuttingAdvice advice = advise(conditions, loads);
  EXPECT_DOUBLE_EQ(advice.finishingChip, 0.001);
  EXPECT_DOUBLE_EQ(advice.roughingChip, 0.0037);
  EXPECT_EQ(advice.spindle, 573);
}

// ---- Thinning

TEST(ChipThinning, FollowsTheChipsThickness) {
  EXPECT_EQ(chipThinning(0.5), 1);
  EXPECT_EQ(chipThinning(0.8), 1);
  EXPECT_NEAR(chipThinning(0.4), 1.0206, 0.0001);
  EXPECT_NEAR(chipThinning(0.25), 1.1547, 0.0001);
  EXPECT_NEAR(chipThinning(0.1), 1.6667, 0.0001);
  EXPECT_EQ(chipThinning(0.01), 3) << "5 would be right, but no machine holds such a cut";
  for (const double none : {0.0, -0.1, std::nan("")}) EXPECT_EQ(chipThinning(none), 1);
}

// The thickest chip of a tooth is its feed times the sine of the angle at which it leaves.
TEST(ChipThinning, GivesBackTheChipLoad) {
  for (double e = 0.04; e < 0.5; e += 0.01) {
    const double angle = std::acos(1 - 2 * e);
    EXPECT_NEAR(chipThinning(e) * std::sin(angle), 1, 1e-9) << e;
  }
}

TEST(CuttingAdvice, OnlyRoughingIsRaisedForThinChips) {
  CuttingConditions conditions = quarterInch();
  conditions.stepOver = 0.1;
  const CuttingAdvice advice = advise(conditions);
  EXPECT_NEAR(advice.thinning, 1.6667, 0.0001);
  EXPECT_EQ(advice.roughingFeed, 30.6F);  // 18.336 / 0.6
  EXPECT_EQ(advice.finishingFeed, 18.3F);
}

TEST(StepOverShare, IsAPercentageOrADistance) {
  DrawingSettings settings;
  settings.cfg_tool_spacing = 40;
  settings.cfg_tool_spacing_distance = 0.05F;
  for (const int type : {0, 1}) {
    settings.cfg_cut_width_type = type;
    EXPECT_DOUBLE_EQ(stepOverShare(settings, 0.25), 0.4);
  }
  settings.cfg_cut_width_type = 2;
  EXPECT_NEAR(stepOverShare(settings, 0.25), 0.2, 1e-7);
  EXPECT_EQ(stepOverShare(settings, 0), 0);
}

// ---- The spindle's limit

TEST(CuttingAdvice, TheSpindleEndsAtItsHighestSpeed) {
  CuttingConditions conditions = quarterInch();
  conditions.highestSpindle = 2500;
  const CuttingAdvice advice = advise(conditions);
  EXPECT_EQ(advice.spindle, 2500);
  EXPECT_EQ(advice.rightSpindle, 4584);
  EXPECT_EQ(advice.roughingFeed, 10) << "the chip load stays: 0.002 * 2 * 2500";
  conditions.highestSpindle = 10000;
  EXPECT_EQ(advise(conditions).spindle, 4584);
  for (const double none : {0.0, -5.0, 0.5}) {
    conditions.highestSpindle = none;
    EXPECT_EQ(advise(conditions).spindle, 4584);
  }
}

// ---- No advice

TEST(CuttingAdvice, WithoutAFigureThereIsNone) {
  const CuttingConditions good = quarterInch();
  EXPECT_FALSE(adviseCutting({}, {}, good));
  EXPECT_FALSE(adviseCutting({.speed = 300, .chipMin = 0, .chipMax = 0}, {}, good));
  EXPECT_FALSE(adviseCutting({.speed = 0, .chipMin = 0.001, .chipMax = 0.002}, {}, good));
  EXPECT_FALSE(adviseCutting({.speed = -5, .chipMin = 0.001, .chipMax = 0.002}, {}, good));
  for (const double diameter : {0.0, -1.0, 1e-12, 1e9, std::nan("")}) {
    CuttingConditions conditions = good;
    conditions.diameter = diameter;
    EXPECT_FALSE(adviseCutting(kAluminium, {}, conditions)) << diameter;
  }
  CuttingConditions conditions = good;
  conditions.flutes = 0;
  EXPECT_FALSE(adviseCutting(kAluminium, {}, conditions));
}

TEST(CuttingAdvice, AFeedBeyondAllBoundsIsNone) {
  EXPECT_FALSE(adviseCutting({.speed = 300, .chipMin = 1e37, .chipMax = 1e38}, {}, quarterInch()));
}

// ---- From the tables

class ShippedLoads : public ::testing::Test {
 protected:
  ShippedLoads() { EXPECT_TRUE(OpenSpeedsFeeds(database, testing::shippedFeeds())); }
  ChipLoads loadsOf(const char* category, const char* material, const char* tool) const {
    return chipLoads(database, of(category, material), tool);
  }
  SpeedsFeeds database;
};

TEST_F(ShippedLoads, AreThoseOfTheGroup) {
  const ChipLoads loads = loadsOf("Alluminum Alloys", "6061", "Carbide");
  ASSERT_EQ(loads.size(), 8U);
  EXPECT_EQ(loads.front().diameter, 0.125);
  EXPECT_EQ(loads.front().least, 0.001);
  EXPECT_EQ(loads.back().diameter, 1);
  EXPECT_EQ(loads.back().most, 0.007);
}

TEST_F(ShippedLoads, AreReadForTheToolsThatTheSourcesMean) {
  EXPECT_TRUE(loadsOf("Alluminum Alloys", "6061", "HSS").empty());
  EXPECT_EQ(loadsOf("Plastics and Laminates", "HDPE, UHMW", "HSS").size(), 6U) << "any tool";
  EXPECT_EQ(loadsOf("Woods and Boards", "Plywood", "carbide").size(), 4U) << "router bits";
  EXPECT_TRUE(loadsOf("Plastics and Laminates", "PTFE", "Carbide").empty()) << "in no group";
  EXPECT_TRUE(loadsOf("Alluminum Alloys", "O'Brien", "Carbide").empty());
}

TEST_F(ShippedLoads, GiveAdviceForEveryMaterialAndEveryCutter) {
  int given = 0;
  for (const auto& category : testing::feedsTable("MaterialCategory")) {
    for (const auto& row : testing::feedsTable(category.at("Table Name"))) {
      const auto cell = [&row](const char* name) { return row.count(name) ? row.at(name) : ""; };
      const PartMaterial part{
          .category = category.at("Material Category"),
          .material = row.at("Material"),
          .hardness = cell("Hardness"),
          .condition = conditionDescription(database, cell("Material Condition"))};
      for (const char* tool : {"HSS", "Carbide"}) {
        const CuttingFigures figures = cuttingFigures(database, part, MillType::End, tool);
        for (double diameter = 0.03; diameter < 1.2; diameter *= 1.3) {
          CuttingConditions conditions = quarterInch();
          conditions.diameter = diameter;
          const auto advice = adviseCutting(figures, chipLoads(database, part, tool), conditions);
          ASSERT_TRUE(advice) << part.material << " " << diameter;
          EXPECT_LE(advice->finishingFeed, advice->roughingFeed) << part.material;
          EXPECT_LT(advice->roughingChip, diameter / 15) << part.material << " " << diameter;
          ++given;
        }
      }
    }
  }
  EXPECT_EQ(given, 172 * 2 * 15);
}

TEST(ChipLoads, ADatabaseWithoutThemHasNone) {
  const TempFolder folder;
  SpeedsFeeds database;
  ASSERT_TRUE(OpenSpeedsFeeds(database, testing::smallFeeds(folder)));
  EXPECT_TRUE(chipLoads(database, of("Steels", "1018, cold"), "HSS").empty());
}

TEST(ChipLoads, PointsThatDoNotRiseAreLeftOut) {
  const TempFolder folder;
  SpeedsFeeds database;
  ASSERT_TRUE(OpenSpeedsFeeds(
      database,
      testing::smallFeeds(
          folder,
          "CREATE TABLE ChipLoadGroups (\"Material Category\", Material, \"Chip Load Group\");"
          "CREATE TABLE ChipLoads (\"Chip Load Group\", Tool, Diameter REAL, ChipMin, ChipMax);"
          "INSERT INTO ChipLoadGroups VALUES ('Steels', '1018, cold', 'g');"
          "INSERT INTO ChipLoads VALUES ('g', 'any', 0.5, 3, 4), ('g', 'any', 0.25, 1, 2),"
          "('g', 'any', 0.5, 9, 9), ('g', 'any', -1, 9, 9), ('g', NULL, 0.3, 9, 9);")));
  const ChipLoads loads = chipLoads(database, of("Steels", "1018, cold"), "HSS");
  ASSERT_EQ(loads.size(), 2U);
  EXPECT_EQ(loads[0].least, 0.001);
  EXPECT_EQ(loads[1].most, 0.004);
}

// ---- What the operator reads

TEST(AdviceText, SaysWhatItIsMadeOf) {
  CuttingConditions conditions = quarterInch();
  EXPECT_EQ(adviceText(advise(conditions), conditions),
            "Spindle: 4584 rpm\n"
            "Chip load for this diameter: 0.002 in per tooth\n"
            "Feed: 18.3 ipm roughing, 18.3 ipm finishing");
  conditions.stepOver = 0.4;
  conditions.highestSpindle = 2500;
  EXPECT_EQ(adviceText(advise(conditions, {{0.25, 0.001, 0.002}}), conditions),
            "Spindle: 2500 rpm, the highest (right would be 4584)\n"
            "Chip load for this diameter: 0.001 to 0.002 in per tooth\n"
            "Feed: 10.2 ipm roughing, 5 ipm finishing\n"
            "The roughing feed is 1.02 times larger because of the step-over of 40 %");
}

TEST(AdviceText, TellsAMetricDrawingHowTheRecommendationDiffers) {
  CuttingConditions conditions = quarterInch();
  conditions.metric = true;
  conditions.diameter = 6;
  EXPECT_EQ(adviceText(advise(conditions), conditions),
            "Spindle: 4851 rpm\n"
            "Chip load for this diameter: 0.048 mm per tooth\n"
            "Feed: 466 mm/min roughing, 466 mm/min finishing\n"
            "The recommendation above takes millimetres for inches.");
}

TEST(AdviceText, AFaceMillsChipsAreForLightAndNormalCuts) {
  CuttingConditions conditions = quarterInch();
  conditions.type = MillType::Face;
  EXPECT_EQ(adviceText(advise(conditions), conditions),
            "Spindle: 4584 rpm\n"
            "Chip load: 0.001 to 0.0037 in per tooth\n"
            "Feed: 33.9 ipm roughing, 9.2 ipm finishing");
}

}  // namespace
}  // namespace tess
