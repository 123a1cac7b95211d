// The process of the desktop: the toolkit, the one instance, and the program.
#include "shell/qt/desktop.h"

#include <QApplication>
#include <QDir>
#include <QLockFile>
#include <QMessageBox>
#include <QStandardPaths>
#include <cstdio>
#include <memory>

#include "core/version.h"
#include "shell/program_folder.h"
#include "shell/qt/desktop_program.h"
#include "shell/qt/theme.h"

namespace tess {

namespace {

constexpr int kExitFailed = 1;

// Without a display the toolkit would end the program by itself, with less to say.
bool hasDisplay() {
  return !qEnvironmentVariableIsEmpty("DISPLAY") ||
         !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY") ||
         !qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM");
}

// Held while the program runs, so that a second instance knows.
std::unique_ptr<QLockFile> takeLock() {
  const QDir folder(QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation));
  auto lock = std::make_unique<QLockFile>(folder.filePath("tessimo.lock"));
  lock->setStaleLockTime(0);  // only the death of its owner ends it
  return lock->tryLock() || lock->error() != QLockFile::LockFailedError ? std::move(lock) : nullptr;
}

void tellThatItRuns() {
  QMessageBox(QMessageBox::Critical, "User Error",
              "Tessimo is already running!!!\n"
              "Only one instance of this program can be running at one time.",
              QMessageBox::Ok)
      .exec();
}

}  // namespace

int runDesktop(const DesktopRequest& request, std::vector<std::string> arguments) {
  if (!hasDisplay()) {
    std::fputs(
        "tessimo: there is no display for the window; tessimo --help tells what it does "
        "without one\n",
        stderr);
    return kExitFailed;
  }
  std::vector<char*> texts;
  for (std::string& argument : arguments) texts.push_back(argument.data());
  int count = static_cast<int>(texts.size());
  texts.push_back(nullptr);
  QApplication application(count, texts.data());
  QApplication::setApplicationName("tessimo");
  QApplication::setDesktopFileName("tessimo");
  applyTheme(application, systemPrefersDark(QApplication::palette()));

  const std::unique_ptr<QLockFile> lock = takeLock();
  if (!lock) {
    tellThatItRuns();
    return kExitFailed;
  }
  try {
    DesktopProgram program(programFolder(folderRequest(request.home)));
    program.open(request.drawing);
    return program.serve();
  } catch (const RuntimeFailure& failure) {
    std::fprintf(stderr, "tessimo: %s\n", failure.what());
    QMessageBox::critical(nullptr, kProductName, QString::fromStdString(failure.what()));
    return kExitFailed;
  }
}

}  // namespace tess
