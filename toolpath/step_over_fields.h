// The step-over of a dialog: a percentage of the tool's diameter and a distance, of which one is
// entered and the other one follows.
// Owns: StepOverControls, StepOverFields.
#pragma once

#include "core/controls.h"
#include "core/pocketing_choices.h"

namespace tess {

struct DrawingStore;

// The indices of OptCutWidth are the values of "cut width type".
struct StepOverControls {
  ControlArray<Option>& OptCutWidth;
  TextBox& txtToolSpacingPercent;
  TextBox& txtToolSpacingDistance;
};

// Wires the controls; they must outlive it.
class StepOverFields {
 public:
  StepOverFields(DrawingStore& store, const StepOverControls& controls);

  // Shows the settings; a missing choice becomes that of the percentage, in the settings too.
  void load();
  // Writes the settings.
  void takeOver() const;

  // What entering a field brings about: the other one follows.
  void percentChanged();
  void distanceChanged();

 private:
  void choose(StepOver chosen);
  void follow(TextBox& follower, float value);
  double diameter() const;

  DrawingStore& store_;
  StepOverControls controls_;
  StepOver chosen_ = StepOver::ByPercent;
  bool following_ = false;  // a field is being written, not entered
};

}  // namespace tess
