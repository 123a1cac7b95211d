// The two fields of the step-over.
#include "toolpath/step_over_fields.h"

#include "core/drawing_store.h"
#include "core/number_text.h"
#include "core/rounding.h"

namespace tess {
namespace {

// As the setup rounds them.
constexpr int kDistanceDecimals = 4;
constexpr int kPercentDecimals = 2;

}  // namespace

StepOverFields::StepOverFields(DrawingStore& store, const StepOverControls& controls)
    : store_(store), controls_(controls) {
  controls_.OptCutWidth[kStepByPercent].setCaption("Percentage :");
  controls_.OptCutWidth[kStepByDistance].setCaption("Distance :");
  controls_.OptCutWidth.onClick = [this](int index) { choose(index); };
  controls_.txtToolSpacingPercent.onChange = [this] { percentChanged(); };
  controls_.txtToolSpacingDistance.onChange = [this] { distanceChanged(); };
}

void StepOverFields::load() {
  if (store_.cfg_cut_width_type == 0) store_.cfg_cut_width_type = kStepByPercent;
  follow(controls_.txtToolSpacingPercent, store_.cfg_tool_spacing);
  follow(controls_.txtToolSpacingDistance, store_.cfg_tool_spacing_distance);
  const bool byDistance = store_.cfg_cut_width_type == kStepByDistance;
  controls_.OptCutWidth[byDistance ? kStepByDistance : kStepByPercent].setValue(true);
}

void StepOverFields::takeOver() const {
  store_.cfg_cut_width_type = chosen_;
  store_.cfg_tool_spacing_distance = parseFloat(controls_.txtToolSpacingDistance.text());
  store_.cfg_tool_spacing = parseFloat(controls_.txtToolSpacingPercent.text());
}

void StepOverFields::choose(int index) {
  chosen_ = index;
  controls_.txtToolSpacingPercent.setEnabled(index == kStepByPercent);
  controls_.txtToolSpacingDistance.setEnabled(index == kStepByDistance);
}

void StepOverFields::follow(TextBox& follower, float value) {
  following_ = true;
  follower.setText(plainText(value));
  following_ = false;
}

void StepOverFields::percentChanged() {
  if (following_) return;
  const float percent = parseFloat(controls_.txtToolSpacingPercent.text());
  follow(controls_.txtToolSpacingDistance, roundTo(diameter() * percent / 100, kDistanceDecimals));
}

// Without a diameter there is no percentage: the field stays as it is.
void StepOverFields::distanceChanged() {
  if (following_ || diameter() == 0) return;
  const float entered = parseFloat(controls_.txtToolSpacingDistance.text());
  follow(controls_.txtToolSpacingPercent, roundTo(entered / diameter() * 100, kPercentDecimals));
}

// Of no tool: none.
double StepOverFields::diameter() const {
  const int tool = store_.selectedtool;
  return tool < 0 ? 0 : 2.0 * store_.toolradius[tool];
}

}  // namespace tess
