// Position Cursor.
#include "drafting/dlgPositionCursor.h"

#include "core/drawing_store.h"
#include "core/number_text.h"

namespace tess {

dlgPositionCursor::dlgPositionCursor(Desk& desk)
    : Form("dlgPositionCursor", "Position Cursor"), desk_(desk) {
  cmdUseMarkerX.setCaption("Use Marker X");
  cmdUseMarkerY.setCaption("Use Marker Y");
  cmdAccept.setCaption("&Accept");
  cmdCancel.setCaption("&Cancel");
  setDefaultButton(cmdAccept);
  setCancelButton(cmdCancel);
  onLoad = [this] {
    txtx.setText(shown(desk_.lastTypedPosition.x));
    txty.setText(shown(desk_.lastTypedPosition.y));
  };
  tidyOnLeave(txtx);
  tidyOnLeave(txty);
  cmdUseMarkerX.onClick = [this] { txtx.setText(shown(desk_.store.markerx)); };
  cmdUseMarkerY.onClick = [this] { txty.setText(shown(desk_.store.markery)); };
  cmdAccept.onClick = [this] { accept(); };
  cmdCancel.onClick = [this] { close(); };
  onAccept = [this] { position_ = {parseFloat(txtx.text()), parseFloat(txty.text())}; };
}

std::string dlgPositionCursor::shown(float value) const {
  return formatNumber(value, desk_.session.formats.coordfmt);
}

void dlgPositionCursor::tidyOnLeave(TextBox& box) {
  box.onLeave = [this, &box] { box.setText(shown(parseFloat(box.text()))); };
}

}  // namespace tess
