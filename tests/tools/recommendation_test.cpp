// The recommendation of speeds and feeds, held against a computation of its own from the tables.
#include "tools/recommendation.h"

#include <charconv>
#include <cmath>
#include <ctime>
#include <numbers>

#include "gtest/gtest.h"

#include "core/drawing_store.h"
#include "tests/support/feeds_samples.h"

namespace tess {
namespace {

using testing::smallFeeds;
using testing::TempFolder;
using Texts = std::vector<std::string>;

constexpr int kTool = 3;

// ---- All of the shipped tables

struct Wanted {
  float cuttingSpeed = 0, spindle = 0;
  std::string feed = "Unable to compute.";
};

// Many feeds lie halfway between two tenths; the order of the factors decides such a case.
double feed(const std::string& thousandths, int flutes, double spindle) {
  const double chip = std::stod(thousandths) / 1000;
  return std::floor(10 * (chip * flutes * spindle) + 0.5) / 10;
}

std::string shortest(double value) {
  char text[32];
  const auto end = std::to_chars(text, text + sizeof text, static_cast<float>(value)).ptr;
  return {text, end};
}

// From the cells of a row, by hand.
Wanted byHand(const std::map<std::string, std::string>& row, const std::string& key, int flutes,
              double diameter) {
  Wanted wanted;
  wanted.cuttingSpeed = std::stof(row.at("Tool_" + key));
  const double spindle =
      std::floor(12.0 * wanted.cuttingSpeed / (std::numbers::pi * diameter) + 0.5);
  wanted.spindle = static_cast<float>(spindle);
  const double least = feed(row.at("FeedMin_" + key), flutes, spindle);
  const double most = feed(row.at("FeedMax_" + key), flutes, spindle);
  if (most > 0) wanted.feed = shortest(least) + " to " + shortest(most) + " ipm";
  return wanted;
}

struct Shipped {
  std::string category;
  std::map<std::string, std::string> row;
};

// Every row of every material.
std::vector<Shipped> shippedRows() {
  std::vector<Shipped> rows;
  for (const auto& category : testing::feedsTable("MaterialCategory")) {
    for (const auto& row : testing::feedsTable(category.at("Table Name"))) {
      rows.push_back({category.at("Material Category"), row});
    }
  }
  return rows;
}

std::string cell(const std::map<std::string, std::string>& row, const std::string& column) {
  const auto found = row.find(column);
  return found == row.end() ? "" : found->second;
}

std::string describedBy(const std::string& code) {
  for (const auto& row : testing::feedsTable("MaterialCodes")) {
    if (row.at("ConditionCode") == code) return row.at("Description");
  }
  return "";
}

void choose(DrawingStore& store, const Shipped& shipped) {
  store.materialcategory = shipped.category;
  store.partmaterial = shipped.row.at("Material");
  store.parthardness = cell(shipped.row, "Hardness");
  store.materialcondition = describedBy(cell(shipped.row, "Material Condition"));
}

TEST(RecommendSpeeds, AgreesWithTheTablesForEveryMaterialAndTool) {
  SpeedsFeeds database;
  ASSERT_TRUE(OpenSpeedsFeeds(database, testing::shippedFeeds()));
  const std::pair<MillType, std::string> types[] = {
      {MillType::End, "End_"}, {MillType::Slot, "Slot_"}, {MillType::Face, "Face_"}};
  DrawingStore store;
  std::set<std::string> materials;
  int compared = 0;
  for (const Shipped& shipped : shippedRows()) {
    choose(store, shipped);
    materials.insert(shipped.category + store.partmaterial);
    for (const auto& [type, prefix] : types) {
      for (const std::string& of : toolMaterials(database, shipped.category, type)) {
        for (const auto& [flutes, diameter] : {std::pair{2, 0.125F}, {4, 0.5F}, {3, 6.0F}}) {
          store.toolmaterial[kTool] = of;
          RecommendSpeeds(store, database, kTool, flutes, diameter, type);
          const Wanted wanted = byHand(shipped.row, prefix + of, flutes, diameter);
          const std::string where =
              store.partmaterial + " " + store.parthardness + " " + prefix + of;
          ASSERT_EQ(store.toolcuttingspeed[kTool], wanted.cuttingSpeed) << where;
          ASSERT_EQ(store.toolrecspindle[kTool], wanted.spindle) << where;
          ASSERT_EQ(store.toolfeedrate[kTool], wanted.feed) << where;
          ++compared;
        }
      }
    }
  }
  EXPECT_EQ(materials.size(), 89U);
  EXPECT_EQ(compared, 172 * 3 * 2 * 3);
}

// ---- One material

class Recommendation : public ::testing::Test {
 protected:
  Recommendation() {
    EXPECT_TRUE(OpenSpeedsFeeds(database, smallFeeds(folder)));
    store.materialcategory = "Steels";
    store.partmaterial = "1018, cold";
    store.parthardness = "125-175";
    store.materialcondition = "Annealed";
    store.toolmaterial[kTool] = "HSS";
  }
  void recommend(int flutes = 2, float diameter = 0.25F, MillType type = MillType::End) {
    RecommendSpeeds(store, database, kTool, flutes, diameter, type);
  }
  void expectUnable() {
    EXPECT_EQ(store.toolfeedrate[kTool], "Unable to compute.");
    EXPECT_EQ(store.toolcuttingspeed[kTool], 0);
    EXPECT_EQ(store.toolrecspindle[kTool], 0);
  }

  TempFolder folder;
  SpeedsFeeds database;
  DrawingStore store;
};

TEST_F(Recommendation, FollowsTheFormulas) {
  recommend();
  EXPECT_EQ(store.toolcuttingspeed[kTool], 95);
  EXPECT_EQ(store.toolrecspindle[kTool], 1451);  // 95 * 12 / (0.25 * 3.14159) = 1451.5 cut short
  EXPECT_EQ(store.toolfeedrate[kTool], "2.6 to 10.7 ipm");
  recommend(4, 0.5F);
  EXPECT_EQ(store.toolrecspindle[kTool], 726);
  EXPECT_EQ(store.toolfeedrate[kTool], "2.6 to 10.7 ipm");
}

TEST_F(Recommendation, TakesMillimetresForInches) {
  store.units = "M";
  recommend(2, 6);
  EXPECT_EQ(store.toolrecspindle[kTool], 60);
}

TEST_F(Recommendation, HardnessAndConditionCountWhenTheyAreSet) {
  store.parthardness.clear();
  store.materialcondition.clear();
  recommend();
  EXPECT_EQ(store.toolcuttingspeed[kTool], 85) << "the first row of the material";
  store.parthardness = "125-175";
  recommend();
  EXPECT_EQ(store.toolcuttingspeed[kTool], 95);
  store.parthardness.clear();
  store.materialcondition = "Cold Drawn";
  recommend();
  EXPECT_EQ(store.toolcuttingspeed[kTool], 85);
  store.parthardness = "125-175";
  recommend();
  expectUnable();
}

TEST_F(Recommendation, AConditionWithoutADescriptionStandsAsItsCode) {
  store.materialcondition = "XX";
  recommend();
  EXPECT_EQ(store.toolcuttingspeed[kTool], 90);
}

TEST_F(Recommendation, ANullCountsAsZero) {
  store.materialcondition = "XX";
  recommend();
  EXPECT_EQ(store.toolfeedrate[kTool], "2.5 to 0 ipm");
  store.toolmaterial[kTool] = "Carbide";
  recommend();
  expectUnable();
}

TEST_F(Recommendation, ThreeTypesHaveTheirOwnColumns) {
  recommend(2, 0.25F, MillType::Slot);
  EXPECT_EQ(store.toolcuttingspeed[kTool], 75);
  store.toolmaterial[kTool] = "Carbide";
  recommend(2, 0.25F, MillType::Face);
  EXPECT_EQ(store.toolcuttingspeed[kTool], 730);
  recommend(2, 0.25F, MillType::Slot);
  expectUnable();
}

TEST_F(Recommendation, AToolWithoutAMaterialIsOfHss) {
  for (const char* material : {"", "  ", "hss"}) {
    store.toolmaterial[kTool] = material;
    recommend();
    EXPECT_EQ(store.toolcuttingspeed[kTool], 95) << material;
  }
  store.toolmaterial[kTool] = "Wood";
  recommend();
  expectUnable();
}

TEST_F(Recommendation, AnEmptyMaterialFindsNoRow) {
  store.partmaterial.clear();
  recommend();
  expectUnable();
}

TEST_F(Recommendation, ATypedMaterialThatIsNotInTheTablesFindsNoRow) {
  store.partmaterial = "Unobtainium";
  recommend();
  expectUnable();
}

TEST_F(Recommendation, AnUnknownCategoryOrAMissingTableFindsNoRow) {
  for (const char* category : {"", "Stone", "Ghosts", "Drills"}) {
    store.materialcategory = category;
    recommend();
    expectUnable();
  }
}

TEST_F(Recommendation, AQuoteBreaksTheStatement) {
  store.partmaterial = "O'Brien steel";
  recommend();
  expectUnable();
  store.partmaterial = "1018, cold";
  store.parthardness = "') OR ('1' = '1";
  store.materialcondition.clear();
  recommend();
  EXPECT_EQ(store.toolcuttingspeed[kTool], 85) << "the text goes in as it stands";
}

TEST_F(Recommendation, WithoutADatabaseThereIsNone) {
  SpeedsFeeds none;
  store.toolcuttingspeed[kTool] = 12;
  RecommendSpeeds(store, none, kTool, 2, 0.25F, MillType::End);
  expectUnable();
}

TEST_F(Recommendation, ASpeedOfZeroTakesTheRecommendedOne) {
  recommend();
  EXPECT_EQ(store.toolspindlespeed[kTool], 1451);
  recommend(2, 0.5F);
  EXPECT_EQ(store.toolspindlespeed[kTool], 1451) << "any other is kept";
  store.toolspindlespeed[kTool] = -1;
  recommend();
  EXPECT_EQ(store.toolspindlespeed[kTool], -1);
}

TEST_F(Recommendation, AResultThatIsNoNumberIsNone) {
  for (const float diameter : {0.0F, 1e-30F, 1e-9F}) {
    store.toolspindlespeed[kTool] = 0;
    recommend(2, diameter);
    expectUnable();
    EXPECT_EQ(store.toolspindlespeed[kTool], 0);
  }
  recommend(32767, 1e-7F);
  expectUnable();
}

TEST_F(Recommendation, AVeryLargeCutterStandsStill) {
  recommend(2, 1e30F);
  EXPECT_EQ(store.toolrecspindle[kTool], 0);
  EXPECT_EQ(store.toolfeedrate[kTool], "Unable to compute.");
  EXPECT_EQ(store.toolcuttingspeed[kTool], 95);
}

TEST_F(Recommendation, FlutesOfZeroFeedNothing) {
  recommend(0);
  EXPECT_EQ(store.toolfeedrate[kTool], "Unable to compute.");
  EXPECT_EQ(store.toolrecspindle[kTool], 1451);
}

TEST_F(Recommendation, ARowOutsideTheTableIsLeftAlone) {
  for (const int tool : {-1, 100, 32767}) {
    RecommendSpeeds(store, database, tool, 2, 0.25F, MillType::End);
  }
  for (int tool = 0; tool <= kLastTool; ++tool) EXPECT_EQ(store.toolfeedrate[tool], "");
}

TEST_F(Recommendation, AnUnknownTypeIsAnEndMill) {
  EXPECT_EQ(millTypeOf(0), MillType::End);
  EXPECT_EQ(millTypeOf(1), MillType::Face);
  EXPECT_EQ(millTypeOf(2), MillType::Slot);
  EXPECT_EQ(millTypeOf(3), MillType::End);
  EXPECT_EQ(millTypeOf(-1), MillType::End);
}

// ---- Tool materials

TEST_F(Recommendation, ToolMaterialsAreReadFromTheColumns) {
  EXPECT_EQ(toolMaterials(database, "Steels", MillType::End), (Texts{"HSS", "Carbide"}));
  EXPECT_EQ(toolMaterials(database, "Steels", MillType::Slot), Texts{"HSS"});
  EXPECT_EQ(toolMaterials(database, "Steels", MillType::Face), Texts{"Carbide"});
  EXPECT_EQ(toolMaterials(database, "Plastics", MillType::Face), Texts{});
  EXPECT_EQ(toolMaterials(database, "Ghosts", MillType::End), Texts{});
  EXPECT_EQ(toolMaterials(database, "", MillType::End), Texts{});
}

TEST(ToolMaterials, StandOnceWhateverTheColumnsCase) {
  const TempFolder folder;
  SpeedsFeeds database;
  const std::string path = smallFeeds(folder,
                                      "CREATE TABLE Odd (Material, TOOL_END_hss, Tool_End_2_HSS, "
                                      "Tool_Slot_End_Cobalt, Tool_Front_X,"
                                      " FeedMin_End_Wood);"
                                      "INSERT INTO MaterialCategory VALUES ('Odd', 'Odd', 5, 1);");
  ASSERT_TRUE(OpenSpeedsFeeds(database, path));
  EXPECT_EQ(toolMaterials(database, "Odd", MillType::End), (Texts{"hss", "Cobalt"}));
}

TEST(ToolMaterials, ARecommendationTakesLessThanAMillisecond) {
  SpeedsFeeds database;
  ASSERT_TRUE(OpenSpeedsFeeds(database, testing::shippedFeeds()));
  DrawingStore store;
  choose(store, shippedRows().front());
  const std::clock_t begin = std::clock();
  for (int i = 0; i < 100; ++i) {
    RecommendSpeeds(store, database, kTool, 2, 0.25F, MillType::End);
    toolMaterials(database, store.materialcategory, MillType::End);
  }
  EXPECT_LT(static_cast<double>(std::clock() - begin) / CLOCKS_PER_SEC, 0.1);
}

}  // namespace
}  // namespace tess
