// The report window: one text, as large as the form.
#include "shell/frmShowError.h"

namespace tess {

frmShowError::frmShowError(Prompts& prompts) : Form("frmShowError", "Error"), prompts_(prompts) {
  txtError.multiLine = true;
  txtError.readOnly = true;
  onResize = [this] { txtError.setBounds(Bounds{0, 0, width(), height()}); };
}

void frmShowError::ErrorReport(const std::string& text) noexcept {
  try {
    txtError.setText(text);
    prompts_.showModal(*this);
  } catch (...) {
    showPlainReport(prompts_, text);
  }
}

void showPlainReport(Prompts& prompts, const std::string& text) noexcept {
  try {
    prompts.showMessage({.text = text, .title = "Error", .icon = MessageIcon::Error});
  } catch (...) {
    // No display is left; the log still gets the report.
  }
}

}  // namespace tess
