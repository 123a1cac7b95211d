// Position Cursor.
#include "drafting/dlgPositionCursor.h"

#include "core/drawing_store.h"
#include "core/number_text.h"

namespace tess {

dlgPositionCursor::dlgPositionCursor(DraftingContext& context)
    : Form("dlgPositionCursor", "Position Cursor"), context_(context) {
  cmdUseMarkerX.setCaption("Use Marker X");
  cmdUseMarkerY.setCaption("Use Marker Y");
  cmdAccept.setCaption("&Accept");
  cmdCancel.setCaption("&Cancel");
  setDefaultButton(cmdAccept);
  setCancelButton(cmdCancel);
  onLoad = [this] {
    txtx.setText(shown(context_.lastTypedPosition.x));
    txty.setText(shown(context_.lastTypedPosition.y));
  };
  tidyOnLeave(txtx);
  tidyOnLeave(txty);
  cmdUseMarkerX.onClick = [this] { txtx.setText(shown(context_.store.markerx)); };
  cmdUseMarkerY.onClick = [this] { txty.setText(shown(context_.store.markery)); };
  cmdAccept.onClick = [this] { accept(); };
  cmdCancel.onClick = [this] { close(); };
  onAccept = [this] { position_ = {parseFloat(txtx.text()), parseFloat(txty.text())}; };
}

std::string dlgPositionCursor::shown(float value) const {
  return formatNumber(value, context_.session.formats.coordfmt);
}

void dlgPositionCursor::tidyOnLeave(TextBox& box) {
  box.onLeave = [this, &box] { box.setText(shown(parseFloat(box.text()))); };
}

}  // namespace tess
