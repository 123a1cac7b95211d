// The choice of a colour.
#include "shell/qt/color_dialog.h"

#include <QApplication>
#include <QColorDialog>

namespace tess {

std::optional<Rgb> DesktopColorDialog::chooseColor(Rgb present) {
  QWidget* const modal = QApplication::activeModalWidget();
  QColorDialog dialog(modal != nullptr ? modal : window_.data());
  // The system's own would know neither the program's theme nor its size of letters.
  dialog.setOption(QColorDialog::DontUseNativeDialog);
  dialog.setWindowTitle("Color");
  dialog.setCurrentColor(QColor(present & 0xFF, present >> 8 & 0xFF, present >> 16 & 0xFF));
  if (dialog.exec() != QDialog::Accepted) return std::nullopt;
  const QColor chosen = dialog.selectedColor();
  return chosen.red() | chosen.green() << 8 | chosen.blue() << 16;
}

}  // namespace tess
