// Cleanup Drawing: how many zero-length lines and duplicate rows there are, and which of the two to
// take out.
// Owns: frmCleanupDrawing, mnuCleanupDrawing.
#pragma once

#include "core/controls.h"
#include "core/form.h"
#include "drafting/drafting_context.h"

namespace tess {

class frmCleanupDrawing : public Form {
 public:
  explicit frmCleanupDrawing(DraftingContext& context);

  CheckBox chkZeroLengthSegs{*this, "chkZeroLengthSegs"};
  Label lblTotalZeroLengthSegs{*this, "lblTotalZeroLengthSegs"};
  CheckBox chkDuplicateSegs{*this, "chkDuplicateSegs"};
  Label lblTotalDupSegs{*this, "lblTotalDupSegs"};
  Button cmdCleanup{*this, "cmdCleanup"};
  Button cmdCancel{*this, "cmdCancel"};

 private:
  void showCounts();
  void cleanUp();

  DraftingContext& context_;
};

void mnuCleanupDrawing(DraftingContext& context);

}  // namespace tess
