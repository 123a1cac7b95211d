// What tests of the desktop share: the toolkit on a platform without a screen, a gateway that lets
// failures through to the test, and pictures kept for the eye.
// Owns: toolkit, passThrough, keepScreenshot.
#pragma once

#include <QApplication>
#include <QDir>
#include <QPixmap>
#include <QWidget>
#include <cstdlib>
#include <string>

#include "shell/qt/gateway.h"

namespace tess::testing {

// The toolkit lives as long as the test program; made on first use.
inline QApplication& toolkit() {
  struct Toolkit {
    Toolkit() { qputenv("QT_QPA_PLATFORM", "offscreen"); }
    int count = 1;
    char name[11] = "desktop-ui";
    char* arguments[2] = {name, nullptr};
  };
  static Toolkit environment;
  static QApplication application(environment.count, environment.arguments);
  return application;
}

inline Guard passThrough() {
  return [](std::string_view /*entry*/, const std::function<void()>& run) {
    run();
    return true;
  };
}

// Where screenshots are kept: the folder that TESSIMO_SCREENSHOTS names. Without one none is kept.
inline void keepScreenshot(QWidget& widget, const std::string& name) {
  const char* folder = std::getenv("TESSIMO_SCREENSHOTS");
  if (folder == nullptr) return;
  QDir().mkpath(folder);
  widget.grab().save(QDir(folder).filePath(QString::fromStdString(name + ".png")));
}

}  // namespace tess::testing
