// Position Cursor: a typed position for the pointer.
// Owns: dlgPositionCursor.
#pragma once

#include "core/controls.h"
#include "core/form.h"
#include "drafting/drafting_context.h"

namespace tess {

class dlgPositionCursor : public Form {
 public:
  explicit dlgPositionCursor(DraftingContext& context);

  // What the boxes held when the dialog was accepted, in drawing units.
  Point position() const { return position_; }

  TextBox txtx{*this, "txtx"};
  Button cmdUseMarkerX{*this, "cmdUseMarkerX"};
  TextBox txty{*this, "txty"};
  Button cmdUseMarkerY{*this, "cmdUseMarkerY"};
  Button cmdAccept{*this, "cmdAccept"};
  Button cmdCancel{*this, "cmdCancel"};

 private:
  std::string shown(float value) const;
  void tidyOnLeave(TextBox& box);

  DraftingContext& context_;
  Point position_;
};

}  // namespace tess
