// What tests of dialogs share: working one while it is open, its widgets by name, and its layout.
// Owns: waitingDialog, whenModal, widgetIn, expectWholeLayout.
#pragma once

#include <QApplication>
#include <QFile>
#include <QPointer>
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

// Acts on the next dialog that opens, once it has the keyboard; whatever serves events before that
// is let pass. Without one until the end of the test nothing happens.
inline void whenModal(const std::function<void(QWidget&)>& act) {
  const QPointer<QWidget> before = waitingDialog();
  auto* const pulse = new QTimer(qApp);
  const auto* const test = ::testing::UnitTest::GetInstance()->current_test_info();
  QObject::connect(pulse, &QTimer::timeout, pulse, [act, before, pulse, test] {
    const bool ended = ::testing::UnitTest::GetInstance()->current_test_info() != test;
    QWidget* const dialog = ended ? nullptr : waitingDialog();
    if (!ended && (dialog == nullptr || dialog == before)) return;
    pulse->stop();
    pulse->deleteLater();
    if (ended) return;
    QApplication::setActiveWindow(dialog);
    QCoreApplication::processEvents();
    act(*dialog);
  });
  pulse->start(1);
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
