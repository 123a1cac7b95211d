// What tests of dialogs share: working one while it is open, its widgets by name, and its layout.
// Owns: waitingDialog, whenModal, widgetIn, expectWholeLayout.
#pragma once

#include <QApplication>
#include <QFile>
#include <QTimer>
#include <QWidget>
#include <functional>
#include <gtest/gtest.h>
#include <stdexcept>

#include "core/form.h"
#include "shell/qt/form_layout.h"
#include "shell/qt/form_window.h"

namespace tess::testing {

// The dialog that the program waits for: a modal one, or one that leaves the drawing in reach.
inline QWidget* waitingDialog() {
  if (QWidget* const modal = QApplication::activeModalWidget()) return modal;
  for (QWidget* const window : QApplication::topLevelWidgets()) {
    if (dynamic_cast<FormWindow*>(window) != nullptr && window->isVisible()) return window;
  }
  return nullptr;
}

// Acts on the next dialog once it is open and has the keyboard.
inline void whenModal(const std::function<void(QWidget&)>& act) {
  QTimer::singleShot(0, [act] {
    QWidget* dialog = waitingDialog();
    ASSERT_NE(dialog, nullptr);
    QApplication::setActiveWindow(dialog);
    QCoreApplication::processEvents();
    act(*dialog);
  });
}

// Raises std::runtime_error with the name when there is none.
template <class Kind>
Kind& widgetIn(QWidget& dialog, const char* name) {
  auto* const found = dialog.findChild<Kind*>(name);
  if (found == nullptr) throw std::runtime_error(name);
  return *found;
}

// Every control stands in the layout file itself, not below it.
inline void expectWholeLayout(const Form& form) {
  QFile file(QString(":/forms/%1.ui").arg(QString::fromStdString(form.name())));
  ASSERT_TRUE(file.open(QIODevice::ReadOnly)) << form.name();
  const QString layout = QString::fromUtf8(file.readAll());
  for (const Control* control : form.controls()) {
    const QString name = QString("name=\"%1\"").arg(widgetName(*control));
    EXPECT_TRUE(layout.contains(name)) << control->name();
  }
}

}  // namespace tess::testing
