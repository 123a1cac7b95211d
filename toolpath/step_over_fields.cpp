// The step-over of a form.
#include "toolpath/step_over_fields.h"

#include "core/number_text.h"
#include "core/rounding.h"

namespace tess {
namespace {

constexpr int kStepOverPlaces = 5;

}  // namespace

StepOverFields::StepOverFields(const DrawingStore& store, const Controls& controls)
    : store_(store), controls_(controls) {
  controls_.OptCutWidth.onClick = [this](int index) { chosen(index); };
  controls_.txtToolSpacingPercent.onChange = [this] { percentEdited(); };
  controls_.txtToolSpacingDistance.onChange = [this] { distanceEdited(); };
}

void StepOverFields::chosen(int index) {
  cutWidthType_ = index;
  controls_.txtToolSpacingPercent.setEnabled(index == kByPercentage);
  controls_.txtToolSpacingDistance.setEnabled(index == kByDistance);
}

void StepOverFields::percentEdited() {
  const double percent = Val(controls_.txtToolSpacingPercent.text());
  show(controls_.txtToolSpacingDistance, diameter() * percent / 100);
}

// A tool without a diameter has no share of it.
void StepOverFields::distanceEdited() {
  const double distance = Val(controls_.txtToolSpacingDistance.text());
  const double whole = diameter();
  show(controls_.txtToolSpacingPercent, whole != 0 ? distance / whole * 100 : 0);
}

double StepOverFields::diameter() const {
  const int tool = store_.selectedtool;
  return tool < 0 ? 0 : 2.0 * store_.toolradius[tool];
}

// The box that is being computed must not compute the other one in turn.
void StepOverFields::show(TextBox& box, double value) {
  if (computing_) return;
  const std::string text = plainText(roundTo(value, kStepOverPlaces));
  computing_ = true;
  box.setText(text);
  computing_ = false;
}

}  // namespace tess
