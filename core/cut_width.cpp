// The step-over of the settings.
#include "core/cut_width.h"

#include <cmath>

#include "core/conventions.h"
#include "core/drawing_store.h"
#include "core/pocketing_choices.h"
#include "core/rounding.h"
#include "core/runtime_failure.h"

namespace tess {
namespace {

constexpr int kDistanceDecimals = 4;
constexpr int kPercentDecimals = 2;

float rounded(double value, int places) {
  const float result = roundTo(value, places);
  if (!std::isfinite(result)) throw overflow();
  return result;
}

}  // namespace

void settleCutWidth(DrawingStore& store) {
  fillStepOver(store);
  const StepOver chosen = stepOver(store);
  if (chosen != StepOver::ByPercent && chosen != StepOver::ByDistance) return;
  const double diameter = 2.0 * store.toolradius[store.selectedtool];
  if (chosen == StepOver::ByPercent) {
    store.cfg_tool_spacing_distance =
        rounded(diameter * store.cfg_tool_spacing / 100, kDistanceDecimals);
  } else {
    if (diameter == 0) throw divisionByZero();
    store.cfg_tool_spacing =
        rounded(store.cfg_tool_spacing_distance / diameter * 100, kPercentDecimals);
  }
}

void settleByToolInUse(DrawingStore& store) {
  const int tool = store.selectedtool;
  if (tool < 0 || tool > kLastTool) return;
  const bool byDistance = stepOver(store) == StepOver::ByDistance;
  if (byDistance && store.toolradius[tool] == 0) return;
  settleCutWidth(store);
}

}  // namespace tess
