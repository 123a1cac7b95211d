// Print Preview where there is no window for pages: whether to print what was composed.
// Owns: frmPrintPreview.
#pragma once

#include "core/controls.h"
#include "core/form.h"

namespace tess {

class frmPrintPreview : public Form {
 public:
  frmPrintPreview() : Form("frmPrintPreview", "Print Preview") {
    cmdPrint.setCaption("&Print...");
    cmdClose.setCaption("&Close");
    setDefaultButton(cmdPrint);
    setCancelButton(cmdClose);
    cmdPrint.onClick = [this] { accept(); };
    cmdClose.onClick = [this] { close(); };
  }

  Button cmdPrint{*this, "cmdPrint"};
  Button cmdClose{*this, "cmdClose"};
};

}  // namespace tess
