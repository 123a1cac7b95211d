// Grid Setup.
#include "drafting/dlgSetGrids.h"

#include "core/drawing_store.h"
#include "core/number_text.h"
#include "drafting/drafting_commands.h"
#include "drafting/grids.h"

namespace tess {

dlgSetGrids::dlgSetGrids(Desk& desk) : Form("dlgSetGrids", "Grid Setup"), desk_(desk) {
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
  const std::string& format = desk_.session.formats.dimfmt;
  txtvgrid.setText(formatNumber(desk_.store.visualgrid, format));
  txtcgrid.setText(formatNumber(desk_.store.cursorgrid, format));
  chkvgrid.setChecked(desk_.store.visualgridf != 0);
  chkcgrid.setChecked(desk_.store.cursorgridf != 0);
  for (const int kind : chkOSnapFeatures.indices()) {
    chkOSnapFeatures[kind].setChecked(desk_.state.OSnapFeatures[static_cast<std::size_t>(kind)]);
  }
  chkOSnap.setChecked(desk_.state.OSnapOn);
  enableFeatures();
}

void dlgSetGrids::enableFeatures() {
  fraOSnapFeatures.setEnabled(chkOSnap.isChecked());
  for (const int kind : chkOSnapFeatures.indices()) {
    chkOSnapFeatures[kind].setEnabled(chkOSnap.isChecked());
  }
}

void dlgSetGrids::takeOver() {
  const float spacingBefore = desk_.store.visualgrid;
  const bool snapBefore = desk_.state.OSnapOn;
  desk_.store.visualgrid = parseFloat(txtvgrid.text());
  desk_.store.cursorgrid = parseFloat(txtcgrid.text());
  desk_.store.visualgridf = chkvgrid.isChecked() ? 1 : 0;
  desk_.store.cursorgridf = chkcgrid.isChecked() ? 1 : 0;
  desk_.state.OSnapOn = chkOSnap.isChecked();
  for (const int kind : chkOSnapFeatures.indices()) {
    desk_.state.OSnapFeatures[static_cast<std::size_t>(kind)] = chkOSnapFeatures[kind].isChecked();
  }
  pressTools();
  if (desk_.state.OSnapOn != snapBefore) desk_.state.RevertOSnapFeatures();
  if (desk_.store.visualgrid != spacingBefore) desk_.redraw.redrawscreen();
}

// Fixed: with both grids on CGrid stays as it was; layouts were saved with the tool so.
void dlgSetGrids::pressTools() {
  desk_.tools.setChecked(kVisualGridCommand.info.tool, chkvgrid.isChecked());
  if (!chkvgrid.isChecked() || !chkcgrid.isChecked()) {
    desk_.tools.setChecked(kCursorGridCommand.info.tool, chkcgrid.isChecked());
  }
  desk_.tools.setChecked(kObjectSnapCommand.info.tool, chkOSnap.isChecked());
}

}  // namespace tess
