// Spindle speed and feed range for a tool in the part's material, out of the speeds-and-feeds
// database.
// Owns: MillType, millTypeOf, kUsualToolMaterial, kUnableToCompute, CuttingFigures, cuttingFigures,
//       RecommendSpeeds, toolMaterials.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "tools/speeds_feeds.h"

namespace tess {

struct DrawingStore;

// Values of toolmilltype.
enum class MillType { End = 0, Face = 1, Slot = 2 };
MillType millTypeOf(int toolmilltype);  // an end mill for any other value

inline constexpr char kUsualToolMaterial[] = "HSS";  // of a tool that has none
inline constexpr char kUnableToCompute[] = "Unable to compute.";

// What the database says of one material, cut by one kind of tool; 0 where it says nothing.
struct CuttingFigures {
  double speed = 0;                 // surface feet per minute
  double chipMin = 0, chipMax = 0;  // inches per tooth
};
CuttingFigures cuttingFigures(const SpeedsFeeds& database, const PartMaterial& part, MillType type,
                              const std::string& toolMaterial);

// Fills toolcuttingspeed, toolrecspindle and toolfeedrate of row `tool`, and toolspindlespeed when
// it is exactly 0. The formulas take `diameter` for inches whatever the drawing's units are. Speeds
// are 0 and the feed is kUnableToCompute when the database has no figures, or when the result is
// no number that the row can hold. A row outside the table: nothing happens.
void RecommendSpeeds(DrawingStore& store, const SpeedsFeeds& database, int tool, int flutes,
                     float diameter, MillType type);

// The tool materials for which the table of a category has figures, in the order of its columns.
std::vector<std::string> toolMaterials(const SpeedsFeeds& database, std::string_view category,
                                       MillType type);

}  // namespace tess
