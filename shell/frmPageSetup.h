// Printer Options: the sheet that pages are printed on.
// Owns: frmPageSetup.
#pragma once

#include "core/controls.h"
#include "core/form.h"
#include "core/host.h"
#include "display/page_setup.h"

namespace tess {

class frmPageSetup : public Form {
 public:
  // Accepting writes `setup`; a margin that is none is told and keeps the form open.
  frmPageSetup(PageSetup& setup, Prompts& prompts);

  Label lblPaper{*this, "lblPaper"};
  ComboBox cmbPaper{*this, "cmbPaper"};
  Frame fraOrientation{*this, "fraOrientation"};
  Option optAutomatic{*this, "optAutomatic", fraOrientation};
  Option optPortrait{*this, "optPortrait", fraOrientation};
  Option optLandscape{*this, "optLandscape", fraOrientation};
  Label lblMargin{*this, "lblMargin"};
  TextBox txtMargin{*this, "txtMargin"};
  Button cmdAccept{*this, "cmdAccept"};
  Button cmdCancel{*this, "cmdCancel"};

 private:
  void fill();
  void take();

  PageSetup& setup_;
  Prompts& prompts_;
};

}  // namespace tess
