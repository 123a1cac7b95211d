// The step-over of a form: a percentage of the tool's diameter and a distance, of which the
// operator edits one while the other follows.
// Owns: kByPercentage, kByDistance, StepOverFields.
#pragma once

#include "core/controls.h"
#include "core/drawing_store.h"

namespace tess {

// The values of cfg_cut_width_type and the indices of OptCutWidth.
inline constexpr int kByPercentage = 1;
inline constexpr int kByDistance = 2;

class StepOverFields {
 public:
  struct Controls {
    ControlArray<Option>& OptCutWidth;
    TextBox& txtToolSpacingPercent;
    TextBox& txtToolSpacingDistance;
  };
  // Takes the click events of the options and the change events of the boxes.
  StepOverFields(const DrawingStore& store, const Controls& controls);
  StepOverFields(const StepOverFields&) = delete;
  StepOverFields& operator=(const StepOverFields&) = delete;

  // The option clicked last; 0 before any.
  int cutWidthType() const { return cutWidthType_; }

  // What editing a box brings about: the other one is computed, to 5 places.
  void percentEdited();
  void distanceEdited();

 private:
  void chosen(int index);
  double diameter() const;
  void show(TextBox& box, double value);

  const DrawingStore& store_;
  Controls controls_;
  int cutWidthType_ = 0;
  bool computing_ = false;
};

}  // namespace tess
