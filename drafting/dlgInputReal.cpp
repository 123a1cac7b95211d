// One number asked for.
#include "drafting/dlgInputReal.h"

#include "core/number_text.h"
#include "drafting/number_fields.h"

namespace tess {

dlgInputReal::dlgInputReal(Prompts& prompts, const std::string& title, float value,
                           bool anySelected)
    : Form("dlgInputReal", title), value_(value) {
  chkSelectedItemsOnly.setCaption("&Selected items only");
  cmdAccept.setCaption("&Accept");
  cmdCancel.setCaption("&Cancel");
  setDefaultButton(cmdAccept);
  setCancelButton(cmdCancel);
  onLoad = [this, anySelected] {
    txtValue.setText(plainText(value_));
    chkSelectedItemsOnly.setEnabled(anySelected);
  };
  cmdAccept.onClick = [this, &prompts] { acceptNumber(prompts); };
  cmdCancel.onClick = [this] { close(); };
}

void dlgInputReal::acceptNumber(Prompts& prompts) {
  const std::optional<float> value = numberIn(txtValue);
  if (!value) return refuseField(prompts, txtValue, "Value must be numeric.");
  value_ = *value;
  selectedItemsOnly_ = chkSelectedItemsOnly.isEnabled() && chkSelectedItemsOnly.isChecked();
  accept();
}

}  // namespace tess
