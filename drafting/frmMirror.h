// Mirror: the point, the directions, and which rows.
// Owns: frmMirror.
#pragma once

#include "drafting/mirror.h"
#include "drafting/row_images_form.h"

namespace tess {

class frmMirror : public RowImagesForm {
 public:
  explicit frmMirror(DraftingContext& context);

  // What OK took; nothing after Cancel.
  const std::optional<Mirroring>& taken() const { return taken_; }

  TextBox txtMirrorX{*this, "txtMirrorX"};
  TextBox txtMirrorY{*this, "txtMirrorY"};
  Label lblMarkerXY{*this, "lblMarkerXY"};
  Frame fraDirection{*this, "fraDirection"};
  Option optHorizontally{*this, "optHorizontally", fraDirection};
  Option optVertically{*this, "optVertically", fraDirection};
  Option optBoth{*this, "optBoth", fraDirection};
  Frame fraAction{*this, "fraAction"};
  Option optMove{*this, "optMove", fraAction};
  Option optCopy{*this, "optCopy", fraAction};
  CheckBox chkSelectedSegments{*this, "chkSelectedSegments"};
  Button cmdOK{*this, "cmdOK"};
  Button cmdCancel{*this, "cmdCancel"};

 private:
  std::optional<RowImage> image() const override;
  bool takeOver() override;
  std::optional<Mirroring> mirroring() const;

  std::optional<Mirroring> taken_;
};

}  // namespace tess
