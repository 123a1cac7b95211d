// Grid Setup.
#include "drafting/dlgSetGrids.h"

#include "core/drawing_store.h"
#include "core/number_text.h"
#include "drafting/drafting_commands.h"
#include "drafting/grids.h"

namespace tess {

dlgSetGrids::dlgSetGrids(DraftingContext& context)
    : Form("dlgSetGrids", "Grid Setup"), context_(context) {
  chkvgrid.setCaption("Visual Grid");
  chkcgrid.setCaption("Cursor Grid");
  chkOSnap.setCaption("Object Snap");
  fraOSnapFeatures.setCaption("Snap Features");
  constexpr const char* kKinds[] = {"Endpoints", "Center", "Midpoint", "Quadrant", "Perpendicular"};
  for (const int kind : chkOSnapFeatures.indices()) {
    chkOSnapFeatures[kind].setCaption(kKinds[kind - 1]);
  }
  cmdAccept.setCaption("&Accept");
  cmdCancel.setCaption("&Cancel");
  setDefaultButton(cmdAccept);
  setCancelButton(cmdCancel);
  onLoad = [this] { fill(); };
  chkOSnap.onClick = [this] { enableFeatures(); };
  cmdAccept.onClick = [this] { accept(); };
  cmdCancel.onClick = [this] { close(); };
  onAccept = [this] { takeOver(); };
}

void dlgSetGrids::fill() {
  const std::string& format = context_.session.formats.dimfmt;
  txtvgrid.setText(formatNumber(context_.store.visualgrid, format));
  txtcgrid.setText(formatNumber(context_.store.cursorgrid, format));
  chkvgrid.setChecked(context_.store.visualgridf != 0);
  chkcgrid.setChecked(context_.store.cursorgridf != 0);
  for (const int kind : chkOSnapFeatures.indices()) {
    chkOSnapFeatures[kind].setChecked(context_.state.OSnapFeatures[static_cast<std::size_t>(kind)]);
  }
  chkOSnap.setChecked(context_.state.OSnapOn);
  enableFeatures();
}

void dlgSetGrids::enableFeatures() {
  fraOSnapFeatures.setEnabled(chkOSnap.isChecked());
  for (const int kind : chkOSnapFeatures.indices()) {
    chkOSnapFeatures[kind].setEnabled(chkOSnap.isChecked());
  }
}

void dlgSetGrids::takeOver() {
  const float spacingBefore = context_.store.visualgrid;
  const bool snapBefore = context_.state.OSnapOn;
  context_.store.visualgrid = parseFloat(txtvgrid.text());
  context_.store.cursorgrid = parseFloat(txtcgrid.text());
  context_.store.visualgridf = chkvgrid.isChecked() ? 1 : 0;
  context_.store.cursorgridf = chkcgrid.isChecked() ? 1 : 0;
  context_.state.OSnapOn = chkOSnap.isChecked();
  for (const int kind : chkOSnapFeatures.indices()) {
    context_.state.OSnapFeatures[static_cast<std::size_t>(kind)] =
        chkOSnapFeatures[kind].isChecked();
  }
  pressTools();
  if (context_.state.OSnapOn != snapBefore) context_.state.RevertOSnapFeatures();
  if (context_.store.visualgrid != spacingBefore) context_.redraw.redrawscreen();
}

// Fixed: with both grids on CGrid stays as it was; layouts were saved with the tool so.
void dlgSetGrids::pressTools() {
  context_.tools.setChecked(kVisualGridCommand.info.tool, chkvgrid.isChecked());
  if (!chkvgrid.isChecked() || !chkcgrid.isChecked()) {
    context_.tools.setChecked(kCursorGridCommand.info.tool, chkcgrid.isChecked());
  }
  context_.tools.setChecked(kObjectSnapCommand.info.tool, chkOSnap.isChecked());
}

}  // namespace tess
