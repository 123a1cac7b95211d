// The toolkit without a window.
#include "shell/qt/toolkit.h"

#include <QGuiApplication>

#include "shell/qt/plain_locale.h"
#include "shell/qt/toolkit_messages.h"

namespace tess {

OffscreenToolkit::OffscreenToolkit() = default;
OffscreenToolkit::~OffscreenToolkit() = default;

// What it has to say about the desktop that is not there is of no interest.
void OffscreenToolkit::start() {
  if (QCoreApplication::instance() != nullptr) return;
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QtMessageHandler before = qInstallMessageHandler(passOverWarnings);
  application_ = std::make_unique<QGuiApplication>(count_, arguments_.data());
  keepPlainLocale();
  qInstallMessageHandler(before);
}

}  // namespace tess
