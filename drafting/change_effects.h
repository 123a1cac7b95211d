// What a change of the drawing brings about on the desk: undo and redo follow, the screen is
// redrawn, and a step that is too long for the log is put to the operator.
// Owns: ChangeEffects.
#pragma once

#include "drafting/change.h"

namespace tess {

struct Desk;

class ChangeEffects : public ChangeHost {
 public:
  explicit ChangeEffects(Desk& desk) : desk_(desk) {}

  bool agreesToLoseUndo(int records) override;
  void changeKept(const Keeping& keeping, bool logged) override;
  // The screen follows with the next ticks of the redraw: whoever failed is on the way out.
  void changeTakenBack() override;

 private:
  Desk& desk_;
};

}  // namespace tess
