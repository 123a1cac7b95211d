// Rotate: the point, the angle and its sense, and which rows.
// Owns: frmRotate.
#pragma once

#include "drafting/rotate.h"
#include "drafting/row_images_form.h"

namespace tess {

class frmRotate : public RowImagesForm {
 public:
  explicit frmRotate(DraftingContext& context);

  // What OK took; nothing after Cancel.
  const std::optional<Turn>& taken() const { return taken_; }

  TextBox txtDegrees{*this, "txtDegrees"};
  TextBox txtRotateX{*this, "txtRotateX"};
  TextBox txtRotateY{*this, "txtRotateY"};
  Label lblMarkerXY{*this, "lblMarkerXY"};
  Frame fraDirection{*this, "fraDirection"};
  Option optClockwise{*this, "optClockwise", fraDirection};
  Option optCounterClockwise{*this, "optCounterClockwise", fraDirection};
  Frame fraAction{*this, "fraAction"};
  Option optMove{*this, "optMove", fraAction};
  Option optCopy{*this, "optCopy", fraAction};
  CheckBox chkSelectedSegments{*this, "chkSelectedSegments"};
  Button cmdOK{*this, "cmdOK"};
  Button cmdCancel{*this, "cmdCancel"};

 private:
  std::optional<RowImage> image() const override;
  bool takeOver() override;
  // Without a sign; nothing for what is no number or out of range.
  std::optional<float> degrees() const;
  std::optional<Turn> turn() const;

  std::optional<Turn> taken_;
};

}  // namespace tess
