// The recommendation of the tool chest.
#include "tools/recommendation.h"

#include <cmath>

#include "core/drawing_store.h"
#include "core/number_text.h"
#include "core/rounding.h"
#include "core/text.h"
#include "geometry/float_constants.h"

namespace tess {
namespace {

constexpr double kThousandths = 1000;  // chip loads stand in the tables in thousandths of an inch
constexpr double kInchesPerFoot = 12;
constexpr int kFeedDecimals = 1;
constexpr char kNoFeed[] = "0 to 0 ipm";
constexpr std::string_view kSpeedColumn = "Tool_";

const char* prefixOf(MillType type) {
  switch (type) {
    case MillType::Face:
      return "Face_";
    case MillType::Slot:
      return "Slot_";
    case MillType::End:
      break;
  }
  return "End_";
}

// What a recommendation writes into the row.
struct Recommendation {
  float cuttingSpeed = 0, spindle = 0;
  std::string feed = kUnableToCompute;
};

float finite(double value) {
  const auto narrow = static_cast<float>(value);
  if (!std::isfinite(narrow)) throw overflow();
  return narrow;
}

std::string feedText(double chip, int flutes, int spindle) {
  return plainText(finite(roundTo(chip * flutes * spindle, kFeedDecimals)));
}

// Raises Overflow when a figure is no number that the row can hold.
Recommendation recommended(const CuttingFigures& figures, int flutes, float diameter) {
  Recommendation result;
  result.cuttingSpeed = finite(figures.speed);
  result.spindle =
      finite(roundTo(result.cuttingSpeed / (diameter * kPi) * kInchesPerFoot, /*places=*/0));
  const int spindle = roundHalfEven(result.spindle);
  const std::string feed = feedText(figures.chipMin, flutes, spindle) + " to " +
                           feedText(figures.chipMax, flutes, spindle) + " ipm";
  if (feed != kNoFeed) result.feed = feed;
  return result;
}

Recommendation recommendedOrNone(const CuttingFigures& figures, int flutes, float diameter) {
  try {
    return recommended(figures, flutes, diameter);
  } catch (const RuntimeFailure&) {
    takeCallChain();
    return {};
  }
}

}  // namespace

MillType millTypeOf(int toolmilltype) {
  const auto type = static_cast<MillType>(toolmilltype);
  return type == MillType::Face || type == MillType::Slot ? type : MillType::End;
}

CuttingFigures cuttingFigures(const SpeedsFeeds& database, const PartMaterial& part, MillType type,
                              const std::string& toolMaterial) {
  CuttingFigures figures;
  const std::string table = tableOfCategory(database, part.category);
  if (table.empty()) return figures;
  std::string code;
  if (!part.condition.empty()) LookupConditionCode(database, part.condition, code);
  const std::string key = prefixOf(type) + toolMaterial;
  database.query(recommendationStatement(table, part, code), [&](const FeedsRow& row) {
    figures = {.speed = row.number(std::string(kSpeedColumn) + key),
               .chipMin = row.number("FeedMin_" + key) / kThousandths,
               .chipMax = row.number("FeedMax_" + key) / kThousandths};
    return false;
  });
  return figures;
}

// Fixed: figures are in inches whatever the unit; shops enter inch diameters in metric jobs.
void RecommendSpeeds(DrawingStore& store, const SpeedsFeeds& database, int tool, int flutes,
                     float diameter, MillType type) {
  const Procedure here("RecommendSpeeds(tool,flutes,diameter)");
  if (tool < 0 || tool > kLastTool) return;
  const std::string& own = store.toolmaterial[tool];
  const std::string material = trimmed(own).empty() ? kUsualToolMaterial : own;
  const CuttingFigures figures = cuttingFigures(database, partMaterial(store), type, material);
  const Recommendation result = recommendedOrNone(figures, flutes, diameter);
  store.toolcuttingspeed[tool] = result.cuttingSpeed;
  store.toolrecspindle[tool] = result.spindle;
  store.toolfeedrate[tool] = result.feed;
  if (store.toolspindlespeed[tool] == 0) store.toolspindlespeed[tool] = result.spindle;
}

std::vector<std::string> toolMaterials(const SpeedsFeeds& database, std::string_view category,
                                       MillType type) {
  FeedsTexts materials;
  const std::string table = tableOfCategory(database, category);
  if (table.empty()) return {};
  for (const std::string& column : database.columnsOf(materialsStatement(table))) {
    const bool isSpeed = findIgnoringCase(column, kSpeedColumn) == 0;
    if (!isSpeed || findIgnoringCase(column, prefixOf(type)) == std::string::npos) continue;
    materials.add(column.substr(column.rfind('_') + 1));
  }
  return materials.take();
}

}  // namespace tess
