// What tests of the desktop share: the toolkit on a platform without a screen, a gateway that lets
// failures through to the test, and pictures kept for the eye.
// Owns: ToolkitEnvironment, kToolkitEnvironment, toolkit, passThrough, kPatienceMs, waitFor,
//       kSmoothing, largestDifference, keepScreenshot.
#pragma once

#include <QApplication>
#include <QColor>
#include <QDir>
#include <QElapsedTimer>
#include <QImage>
#include <QPixmap>
#include <QTimer>
#include <QWidget>
#include <algorithm>
#include <cstdlib>
#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <string>

#include "shell/qt/gateway.h"
#include "shell/qt/plain_locale.h"

namespace tess::testing {

// The toolkit lives from before the first test to after the last: it does not bear to be ended by
// the end of the process.
class ToolkitEnvironment : public ::testing::Environment {
 public:
  void SetUp() override {
    // Whoever runs the tests may have chosen another screen of the same platform.
    const bool chosen = qgetenv("QT_QPA_PLATFORM").startsWith("offscreen:");
    if (!chosen) qputenv("QT_QPA_PLATFORM", "offscreen");
    application_ = std::make_unique<QApplication>(count_, arguments_);
    keepPlainLocale();
  }
  void TearDown() override { application_.reset(); }

 private:
  int count_ = 1;
  char name_[11] = "desktop-ui";
  char* arguments_[2] = {name_, nullptr};
  std::unique_ptr<QApplication> application_;
};

inline ::testing::Environment* const kToolkitEnvironment =
    ::testing::AddGlobalTestEnvironment(new ToolkitEnvironment);

inline QApplication& toolkit() {
  return *qApp;
}

inline Guard passThrough() {
  return [](std::string_view /*entry*/, const std::function<void()>& run) {
    run();
    return true;
  };
}

// Under sanitizers a busy machine takes long for anything.
inline constexpr int kPatienceMs = 300000;

// Serves events until the condition holds, asleep while there are none; false when that takes so
// long that it never will.
inline bool waitFor(const std::function<bool()>& condition) {
  QElapsedTimer time;
  time.start();
  QTimer pulse;  // wakes the loop for another look at the condition
  pulse.start(2);
  while (!condition()) {
    if (time.elapsed() > kPatienceMs) return false;
    QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
  }
  return true;
}

// What the smoothing of letters over lines may differ by from one redraw to the next; whatever an
// inverting pen leaves differs by far more.
inline constexpr int kSmoothing = 4;

inline int largestDifference(const QImage& a, const QImage& b) {
  if (a.size() != b.size()) return 255;
  int largest = 0;
  for (int y = 0; y < a.height(); ++y) {
    for (int x = 0; x < a.width(); ++x) {
      const QColor one = a.pixelColor(x, y);
      const QColor other = b.pixelColor(x, y);
      largest =
          std::max({largest, std::abs(one.red() - other.red()),
                    std::abs(one.green() - other.green()), std::abs(one.blue() - other.blue())});
    }
  }
  return largest;
}

// Where screenshots are kept: the folder that TESSIMO_SCREENSHOTS names. Without one none is kept.
inline void keepScreenshot(QWidget& widget, const std::string& name) {
  const char* folder = std::getenv("TESSIMO_SCREENSHOTS");
  if (folder == nullptr) return;
  QDir().mkpath(folder);
  widget.grab().save(QDir(folder).filePath(QString::fromStdString(name + ".png")));
}

}  // namespace tess::testing
