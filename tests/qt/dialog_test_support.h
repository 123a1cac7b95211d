// What tests of dialogs share: working one while it is open, its widgets by name, and its layout.
// Owns: whenModal, widgetIn, expectWholeLayout.
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

namespace tess::testing {

// Acts on the next modal dialog once it is open and has the keyboard.
inline void whenModal(const std::function<void(QWidget&)>& act) {
  QTimer::singleShot(0, [act] {
    QWidget* dialog = QApplication::activeModalWidget();
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
