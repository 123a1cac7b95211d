// The panel of the backplot.
#include "shell/frmBackplot.h"

namespace tess {

frmBackplot::frmBackplot() : Form("frmBackplot", "Backplot") {
  sldTime.setRange(0, kSteps);
  cmdPlay.setCaption("Pl&ay");
  txtRow.setHint("Number of a row");
  cmdPrevious.setCaption("P&revious Row");
  cmdNext.setCaption("&Next Row");
  cmdRow.setCaption("&Go to Row");
}

}  // namespace tess
