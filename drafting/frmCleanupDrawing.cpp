// Cleanup Drawing.
#include "drafting/frmCleanupDrawing.h"

#include "drafting/drafting_commands.h"
#include "drafting/drawing_cleanup.h"

namespace tess {

frmCleanupDrawing::frmCleanupDrawing(Desk& desk)
    : Form("frmCleanupDrawing", "Cleanup Drawing"), desk_(desk) {
  chkZeroLengthSegs.setCaption("&Zero-length lines");
  chkDuplicateSegs.setCaption("&Duplicate entities");
  cmdCleanup.setCaption("C&leanup");
  cmdCancel.setCaption("&Cancel");
  setDefaultButton(cmdCleanup);
  setCancelButton(cmdCancel);
  onLoad = [this] { showCounts(); };
  cmdCleanup.onClick = [this] { accept(); };
  cmdCancel.onClick = [this] { close(); };
  onAccept = [this] { cleanUp(); };
}

void frmCleanupDrawing::showCounts() {
  lblTotalZeroLengthSegs.setCaption(std::to_string(countZeroLength(desk_.store)));
  lblTotalDupSegs.setCaption(std::to_string(countDuplicates(desk_.store)));
}

void frmCleanupDrawing::cleanUp() {
  Change change(desk_.changes);
  if (chkZeroLengthSegs.isChecked()) removeZeroLength(desk_.changes);
  if (chkDuplicateSegs.isChecked()) {
    removeDuplicates(desk_.changes, desk_.session.host.prompts, /*deleteSilently=*/true);
  }
  change.keep({.redraws = false});
  desk_.redraw.redrawscreen();
}

void mnuCleanupDrawing(Desk& desk) {
  const Procedure here("frmMain.mnuCleanupDrawing()");
  frmCleanupDrawing form(desk);
  desk.session.host.prompts.showModal(form);
}

// ---- Descriptors

constexpr DeskCommand kCleanupCommand{
    .info = {.tool = "miCleanupDrawing", .caption = "&Cleanup Drawing...", .menu = {"miCAM", 350}},
    .run = mnuCleanupDrawing,
};

}  // namespace tess
