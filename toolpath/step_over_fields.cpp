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
  controls_.OptCutWidth[choiceNumber(StepOver::ByPercent)].setCaption("Percentage :");
  controls_.OptCutWidth[choiceNumber(StepOver::ByDistance)].setCaption("Distance :");
  controls_.OptCutWidth.onClick = [this](int index) { choose(static_cast<StepOver>(index)); };
  controls_.txtToolSpacingPercent.onChange = [this] { percentChanged(); };
  controls_.txtToolSpacingDistance.onChange = [this] { distanceChanged(); };
}

void StepOverFields::load() {
  fillStepOver(store_);
  follow(controls_.txtToolSpacingPercent, store_.cfg_tool_spacing);
  follow(controls_.txtToolSpacingDistance, store_.cfg_tool_spacing_distance);
  const bool byDistance = stepOver(store_) == StepOver::ByDistance;
  const StepOver shown = byDistance ? StepOver::ByDistance : StepOver::ByPercent;
  controls_.OptCutWidth[choiceNumber(shown)].setValue(true);
}

void StepOverFields::takeOver() const {
  store_.cfg_cut_width_type = choiceNumber(chosen_);
  store_.cfg_tool_spacing_distance = parseFloat(controls_.txtToolSpacingDistance.text());
  store_.cfg_tool_spacing = parseFloat(controls_.txtToolSpacingPercent.text());
}

void StepOverFields::choose(StepOver chosen) {
  chosen_ = chosen;
  controls_.txtToolSpacingPercent.setEnabled(chosen == StepOver::ByPercent);
  controls_.txtToolSpacingDistance.setEnabled(chosen == StepOver::ByDistance);
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
