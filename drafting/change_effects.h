// What a change of the drawing brings about on the context: undo and redo follow, the screen is
// redrawn, and a step that is too long for the log is put to the operator.
// Owns: ChangeEffects.
#pragma once

#include "drafting/change.h"

namespace tess {

struct DraftingContext;

class ChangeEffects : public ChangeHost {
 public:
  explicit ChangeEffects(DraftingContext& context) : context_(context) {}

  bool agreesToLoseUndo(int records) override;
  void changeKept(const Keeping& keeping, bool logged) override;
  // The screen follows with the next ticks of the redraw: whoever failed is on the way out.
  void changeTakenBack() override;

 private:
  DraftingContext& context_;
};

}  // namespace tess
