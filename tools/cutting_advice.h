// Advice beside the recommendation: true figures in the drawing's own units, with a chip load for
// the cutter's diameter, chip thinning by the step-over, and the spindle's highest speed.
// Owns: ChipLoad, ChipLoads, chipLoads, CuttingConditions, CuttingAdvice, adviseCutting,
//       chipThinning, stepOverShare, adviceText, chipRangeText.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "tools/recommendation.h"

namespace tess {

struct DrawingSettings;

// What tooth and tool of one diameter can take, in inches.
struct ChipLoad {
  double diameter = 0;
  double least = 0, most = 0;
};
using ChipLoads = std::vector<ChipLoad>;  // by rising diameter

// The chip loads by diameter that the database has for a material and a tool material; none when it
// has no such tables, or the material stands in no group.
ChipLoads chipLoads(const SpeedsFeeds& database, const PartMaterial& part,
                    const std::string& toolMaterial);

struct CuttingConditions {
  MillType type = MillType::End;
  double diameter = 0;  // drawing units
  int flutes = 0;
  bool metric = false;
  double stepOver = 0;        // share of the diameter that one pass takes off
  double highestSpindle = 0;  // rpm; 0: no limit is known
};

// Lengths are in drawing units.
struct CuttingAdvice {
  int spindle = 0;                             // rpm
  int rightSpindle = 0;                        // the same without the limit
  double finishingChip = 0, roughingChip = 0;  // per tooth, before thinning
  double thinning = 1;                         // by which the roughing feed is raised
  float finishingFeed = 0, roughingFeed = 0;   // per minute
};

// Nothing when a figure that it takes is missing, or the result cannot be a speed or a feed.
std::optional<CuttingAdvice> adviseCutting(const CuttingFigures& figures, const ChipLoads& loads,
                                           const CuttingConditions& conditions);

// How much thinner than the feed per tooth the chips of a narrow cut are: 1 from half the diameter
// on, more below, at most 3.
double chipThinning(double stepOver);

// The step-over of the settings as a share of the diameter (in drawing units).
double stepOverShare(const DrawingSettings& settings, double diameter);

// The advice in lines for the operator; a metric drawing is told how the recommendation differs.
std::string adviceText(const CuttingAdvice& advice, const CuttingConditions& conditions);

// The chip loads of the database for any diameter; "" when it has none.
std::string chipRangeText(const CuttingFigures& figures);

}  // namespace tess
