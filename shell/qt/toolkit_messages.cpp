// The message handler of jobs.
#include "shell/qt/toolkit_messages.h"

#include <cstdio>

namespace tess {

void passOverWarnings(QtMsgType type, const QMessageLogContext& /*where*/, const QString& text) {
  if (type == QtFatalMsg) std::fprintf(stderr, "tessimo: %s\n", text.toUtf8().constData());
}

}  // namespace tess
