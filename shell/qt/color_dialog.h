// The choice of a colour by the toolkit's own dialog.
// Owns: DesktopColorDialog.
#pragma once

#include <QPointer>
#include <QWidget>

#include "tools/dlgColor.h"

namespace tess {

class DesktopColorDialog : public ColorDialog {
 public:
  // What the dialog stands over when no other one is open.
  void setWindow(QWidget* window) { window_ = window; }

  std::optional<Rgb> chooseColor(Rgb present) override;

 private:
  QPointer<QWidget> window_;
};

}  // namespace tess
