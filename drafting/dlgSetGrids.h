// Grid Setup: spacings and flags of both grids, object snap and its persistent kinds.
// Owns: dlgSetGrids.
#pragma once

#include "core/controls.h"
#include "core/form.h"
#include "drafting/drafting_context.h"

namespace tess {

class dlgSetGrids : public Form {
 public:
  explicit dlgSetGrids(DraftingContext& context);

  TextBox txtvgrid{*this, "txtvgrid"};
  CheckBox chkvgrid{*this, "chkvgrid"};
  TextBox txtcgrid{*this, "txtcgrid"};
  CheckBox chkcgrid{*this, "chkcgrid"};
  CheckBox chkOSnap{*this, "chkOSnap"};
  Frame fraOSnapFeatures{*this, "fraOSnapFeatures"};
  ControlArray<CheckBox> chkOSnapFeatures{
      *this, "chkOSnapFeatures", {1, 2, 3, 4, 5}, fraOSnapFeatures};
  Button cmdAccept{*this, "cmdAccept"};
  Button cmdCancel{*this, "cmdCancel"};

 private:
  void fill();
  void enableFeatures();
  void takeOver();
  void pressTools();

  DraftingContext& context_;
};

}  // namespace tess
