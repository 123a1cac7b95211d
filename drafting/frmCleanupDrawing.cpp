// Cleanup Drawing.
#include "drafting/frmCleanupDrawing.h"

#include "drafting/drafting_commands.h"
#include "drafting/drawing_cleanup.h"

namespace tess {

frmCleanupDrawing::frmCleanupDrawing(DraftingContext& context)
    : Form("frmCleanupDrawing", "Cleanup Drawing"), context_(context) {
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
  lblTotalZeroLengthSegs.setCaption(std::to_string(countZeroLength(context_.store)));
  lblTotalDupSegs.setCaption(std::to_string(countDuplicates(context_.store)));
}

void frmCleanupDrawing::cleanUp() {
  Change change(context_.changes);
  if (chkZeroLengthSegs.isChecked()) removeZeroLength(context_.changes);
  if (chkDuplicateSegs.isChecked()) {
    removeDuplicates(context_.changes, context_.session.host.prompts, /*deleteSilently=*/true);
  }
  change.keep({.redraws = false});
  context_.redraw.redrawscreen();
}

void mnuCleanupDrawing(DraftingContext& context) {
  const Procedure here("frmMain.mnuCleanupDrawing()");
  frmCleanupDrawing form(context);
  context.session.host.prompts.showModal(form);
}

// ---- Descriptors

constexpr DraftingCommand kCleanupCommand{
    .info = {.tool = "miCleanupDrawing", .caption = "&Cleanup Drawing...", .menu = {"miCAM", 350}},
    .run = mnuCleanupDrawing,
};

}  // namespace tess
