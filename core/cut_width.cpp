// The step-over of the settings.
#include "core/cut_width.h"

#include <cmath>

#include "core/drawing_store.h"
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
  if (store.cfg_cut_width_type == 0) store.cfg_cut_width_type = kStepByPercent;
  const int type = store.cfg_cut_width_type;
  if (type != kStepByPercent && type != kStepByDistance) return;
  const double diameter = 2.0 * store.toolradius[store.selectedtool];
  if (type == kStepByPercent) {
    store.cfg_tool_spacing_distance =
        rounded(diameter * store.cfg_tool_spacing / 100, kDistanceDecimals);
  } else {
    if (diameter == 0) throw divisionByZero();
    store.cfg_tool_spacing =
        rounded(store.cfg_tool_spacing_distance / diameter * 100, kPercentDecimals);
  }
}

}  // namespace tess
