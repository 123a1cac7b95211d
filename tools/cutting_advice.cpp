// Advice in the drawing's own units.
#include "tools/cutting_advice.h"

#include <algorithm>
#include <cmath>

#include "core/conventions.h"
#include "core/drawing_store.h"
#include "core/number_text.h"
#include "core/pocketing_choices.h"
#include "core/rounding.h"
#include "core/text.h"
#include "geometry/float_constants.h"

namespace tess {
namespace {

constexpr double kInchesPerFoot = 12;
constexpr double kThousandths = 1000;
constexpr double kFastestSpindle = 1e6;  // rpm; beyond that a figure is wrong

// A row of the tables knows no diameter: its smaller chip load is for the first of these, twice
// that for the second, its larger one for the third, and from there it grows on to the fourth.
constexpr double kSmallCutter = 0.125;
constexpr double kQuarterCutter = 0.25;
constexpr double kHalfCutter = 0.5;
constexpr double kLargeCutter = 1;

// In a slot, chips cannot leave the cut and both sides rub.
constexpr double kSlotShare = 0.73;

// A wall that is barely touched would ask for any feed.
constexpr double kMaxThinning = 3;

double between(double x, double x0, double y0, double x1, double y1) {
  return y0 + (y1 - y0) * (x - x0) / (x1 - x0);
}

double inches(double length, bool metric) {
  return metric ? length / kMillimetresPerInch : length;
}

double inUnits(double length, bool metric) {
  return metric ? length * kMillimetresPerInch : length;
}

// ---- Chip loads

std::string groupStatement(const PartMaterial& part) {
  return "SELECT * FROM ChipLoadGroups WHERE ([Material Category] = " +
         textInStatement(part.category) + ") AND (Material = " + textInStatement(part.material) +
         ");";
}

std::string loadsStatement(const std::string& group) {
  return "SELECT * FROM ChipLoads WHERE ([Chip Load Group] = " + textInStatement(group) +
         ") ORDER BY Diameter;";
}

bool isFor(const std::string& tool, const std::string& toolMaterial) {
  return sameFeedsText(tool, "any") || findIgnoringCase(tool, toolMaterial) != std::string::npos;
}

// What the material's own row allows for a diameter, in inches.
double rowLoad(const CuttingFigures& figures, double diameter) {
  const double most = figures.chipMax;
  const double small = std::min(figures.chipMin, most);
  const double quarter = std::min(2 * small, most);
  if (diameter <= kSmallCutter) return small * diameter / kSmallCutter;
  if (diameter <= kQuarterCutter)
    return between(diameter, kSmallCutter, small, kQuarterCutter, quarter);
  return between(std::min(diameter, kLargeCutter), kQuarterCutter, quarter, kHalfCutter, most);
}

// What the sources give for a diameter: between their points along straight lines, below the first
// one in proportion.
ChipLoad loadAt(const ChipLoads& loads, double diameter) {
  const auto next = std::find_if(loads.begin(), loads.end(),
                                 [=](const ChipLoad& load) { return load.diameter >= diameter; });
  if (next == loads.end()) return loads.back();
  const ChipLoad from = next == loads.begin() ? ChipLoad{} : *(next - 1);
  const ChipLoad& to = *next;
  return {diameter, between(diameter, from.diameter, from.least, to.diameter, to.least),
          between(diameter, from.diameter, from.most, to.diameter, to.most)};
}

// Chips for finishing and for roughing, in inches. A face mill's row tells both; a hard material
// takes less than its group, so the smaller figure counts.
ChipLoad chosenLoad(const CuttingFigures& figures, const ChipLoads& loads, MillType type,
                    double diameter) {
  if (type == MillType::Face) return {diameter, figures.chipMin, figures.chipMax};
  const double row = rowLoad(figures, diameter);
  if (loads.empty()) return {diameter, row, row};
  const double share = type == MillType::Slot ? kSlotShare : 1;
  const ChipLoad group = loadAt(loads, diameter);
  return {diameter, std::min(row, share * group.least), std::min(row, share * group.most)};
}

// ---- Texts

std::string number(double value, const char* pattern) {
  return formatNumber(static_cast<float>(value), pattern);
}

std::string chipText(const CuttingAdvice& advice, bool metric) {
  const char* const pattern = metric ? "0.0##" : "0.0###";
  const std::string least = number(advice.finishingChip, pattern);
  const std::string most = number(advice.roughingChip, pattern);
  return (least == most ? least : least + " to " + most) + (metric ? " mm" : " in");
}

}  // namespace

ChipLoads chipLoads(const SpeedsFeeds& database, const PartMaterial& part,
                    const std::string& toolMaterial) {
  std::string group;
  database.query(groupStatement(part), [&](const FeedsRow& row) {
    group = row.text("Chip Load Group").value_or("");
    return false;
  });
  ChipLoads loads;
  database.query(loadsStatement(group), [&](const FeedsRow& row) {
    const ChipLoad load{row.number("Diameter"), row.number("ChipMin") / kThousandths,
                        row.number("ChipMax") / kThousandths};
    const bool rises = load.diameter > (loads.empty() ? 0 : loads.back().diameter);
    if (rises && isFor(row.text("Tool").value_or(""), toolMaterial)) loads.push_back(load);
    return true;
  });
  return loads;
}

// The chip is as thick as the feed where the tooth runs square to it; at a step-over e of the
// diameter it leaves the cut before, at the angle whose cosine is 1 - 2e.
double chipThinning(double stepOver) {
  if (!(stepOver > 0) || stepOver >= 0.5) return 1;
  const double cosine = 1 - 2 * stepOver;
  return std::min(1 / std::sqrt(1 - cosine * cosine), kMaxThinning);
}

double stepOverShare(const DrawingSettings& settings, double diameter) {
  if (stepOver(settings) != StepOver::ByDistance) return settings.cfg_tool_spacing / 100.0;
  return diameter > 0 ? settings.cfg_tool_spacing_distance / diameter : 0;
}

std::optional<CuttingAdvice> adviseCutting(const CuttingFigures& figures, const ChipLoads& loads,
                                           const CuttingConditions& conditions) {
  const double diameter = inches(conditions.diameter, conditions.metric);
  const double right = figures.speed * kInchesPerFoot / (kPi * diameter);
  if (!(diameter > 0) || conditions.flutes < 1 || !(right >= 0.5) || right > kFastestSpindle) {
    return std::nullopt;
  }
  const ChipLoad chip = chosenLoad(figures, loads, conditions.type, diameter);
  if (!(chip.least > 0) || !(chip.most > 0)) return std::nullopt;
  CuttingAdvice advice;
  advice.rightSpindle = static_cast<int>(std::floor(right + 0.5));
  advice.spindle = advice.rightSpindle;
  if (conditions.highestSpindle >= 1) {
    advice.spindle = static_cast<int>(std::min(right + 0.5, conditions.highestSpindle));
  }
  advice.thinning = conditions.type == MillType::Slot ? 1 : chipThinning(conditions.stepOver);
  advice.finishingChip = inUnits(chip.least, conditions.metric);
  advice.roughingChip = inUnits(chip.most, conditions.metric);
  const double teeth = static_cast<double>(conditions.flutes) * advice.spindle;
  const int decimals = conditions.metric ? 0 : 1;
  advice.finishingFeed = roundTo(advice.finishingChip * teeth, decimals);
  advice.roughingFeed = roundTo(advice.roughingChip * advice.thinning * teeth, decimals);
  if (!std::isfinite(advice.roughingFeed)) return std::nullopt;
  return advice;
}

std::string adviceText(const CuttingAdvice& advice, const CuttingConditions& conditions) {
  const bool metric = conditions.metric;
  const std::string perMinute = metric ? " mm/min" : " ipm";
  std::string text = "Spindle: " + std::to_string(advice.spindle) + " rpm";
  if (advice.spindle < advice.rightSpindle) {
    text += ", the highest (right would be " + std::to_string(advice.rightSpindle) + ")";
  }
  text += conditions.type == MillType::Face ? "\nChip load: " : "\nChip load for this diameter: ";
  text += chipText(advice, metric) + " per tooth";
  text += "\nFeed: " + plainText(advice.roughingFeed) + perMinute + " roughing, " +
          plainText(advice.finishingFeed) + perMinute + " finishing";
  if (advice.thinning > 1) {
    text += "\nThe roughing feed is " + number(advice.thinning, "0.0#") +
            " times larger because of the step-over of " +
            plainText(roundTo(100 * conditions.stepOver, 1)) + " %";
  }
  if (metric) text += "\nThe recommendation above takes millimetres for inches.";
  return text;
}

std::string chipRangeText(const CuttingFigures& figures) {
  if (!(figures.chipMax > 0)) return {};
  return number(figures.chipMin, "0.0####") + " to " + number(figures.chipMax, "0.0####") +
         " in per tooth";
}

}  // namespace tess
