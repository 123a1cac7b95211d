// Edit Radius: a radius, beside the smallest one that is possible.
// Owns: dlgEditRadius.
#pragma once

#include "core/controls.h"
#include "core/form.h"
#include "drafting/drafting_context.h"

namespace tess {

class dlgEditRadius : public Form {
 public:
  // In drawing units. A smallest radius of 0 is not shown.
  dlgEditRadius(DraftingContext& context, float radius, float minimum);

  // As it came in, until the dialog is accepted: then what the text begins with, or 0.
  float radius() const { return radius_; }

  Label lblradius{*this, "lblradius"};
  TextBox txtradius{*this, "txtradius"};
  Label lblminradius{*this, "lblminradius"};
  TextBox txtminradius{*this, "txtminradius"};
  Button cmdAccept{*this, "cmdAccept"};
  Button cmdCancel{*this, "cmdCancel"};

 private:
  float radius_;
};

}  // namespace tess
