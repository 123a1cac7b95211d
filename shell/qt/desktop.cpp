// The process of the desktop: the toolkit, the one instance, and the program.
#include "shell/qt/desktop.h"

#include <QApplication>
#include <QDir>
#include <QFontInfo>
#include <QLockFile>
#include <QMessageBox>
#include <QStandardPaths>
#include <cstdio>
#include <filesystem>
#include <iostream>
#include <memory>
#include <stdexcept>

#include "core/version.h"
#include "shell/automation/reports.h"
#include "shell/automation/watchdog.h"
#include "shell/program_folder.h"
#include "shell/qt/desktop_limits.h"
#include "shell/qt/desktop_program.h"
#include "shell/qt/instance_door.h"
#include "shell/qt/plain_locale.h"
#include "shell/qt/plot.h"
#include "shell/qt/script_player.h"
#include "shell/qt/theme.h"
#include "shell/qt/toolkit_messages.h"

namespace tess {

namespace {

constexpr int kExitFailed = 1;
constexpr char kNoDisplay[] =
    "there is no display for the window; tessimo --help tells what it does without one";

constexpr char kNoFont[] =
    "no font is installed for the texts of the window; Debian has some in fonts-dejavu-core";

// Without a display the toolkit would end the program by itself, with less to say.
bool hasDisplay() {
  return !qEnvironmentVariableIsEmpty("DISPLAY") ||
         !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY") ||
         !qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM");
}

// Why no window can come; "" when one can, as far as it can be known before.
std::string obstacle() {
  return hasDisplay() ? troubleWith(processLimits()) : kNoDisplay;
}

// The display that the environment means, as an operator knows it.
std::string displayName() {
  const QByteArray platform = qgetenv("QT_QPA_PLATFORM");
  QByteArray display = qgetenv("DISPLAY");
  if (display.isEmpty()) display = qgetenv("WAYLAND_DISPLAY");
  if (display.isEmpty()) return platform.toStdString();
  return (platform.isEmpty() ? display : display + " (" + platform + ")").toStdString();
}

std::string unreachable() {
  return "the display " + displayName() +
         " cannot be reached; tessimo --help tells what it does without one";
}

// While the toolkit looks for its display. One that refuses would abort the program, with several
// lines; one that takes the connection and never answers would keep it for ever, and so would a
// window whose thread for what the display has to say could not be started.
class DisplaySearch {
 public:
  DisplaySearch() : before_(qInstallMessageHandler(hear)) {
    try {
      patience_.start();
    } catch (const std::runtime_error& failure) {
      exitAtOnce("tessimo: " + oneLine(failure.what()));
    }
  }
  ~DisplaySearch() { qInstallMessageHandler(before_); }
  DisplaySearch(const DisplaySearch&) = delete;
  DisplaySearch& operator=(const DisplaySearch&) = delete;

 private:
  static constexpr double kSeconds = 10;

  static void hear(QtMsgType type, const QMessageLogContext& where, const QString& text) {
    if (type == QtFatalMsg) exitAtOnce("tessimo: " + oneLine(unreachable()));
    if (text.startsWith("QThread::start")) exitAtOnce("tessimo: " + oneLine(kNoThread));
    const bool aboutDisplays = QByteArrayView(where.category).startsWith("qt.qpa");
    if (!aboutDisplays) std::fprintf(stderr, "%s\n", text.toUtf8().constData());
  }

  QtMessageHandler before_;
  Watchdog patience_{kSeconds, [] { exitAtOnce("tessimo: " + oneLine(unreachable())); }};
};

// Where the environment names a display of X alone, the toolkit is not to try the other platforms
// that are installed after it: these write lines of their own about why they cannot.
std::vector<std::string> withPlatform(std::vector<std::string> arguments) {
  const bool onlyX = qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY") &&
                     qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM");
  if (onlyX) arguments.insert(arguments.end(), {"-platform", "xcb"});
  return arguments;
}

// The toolkit's application; it keeps references to the arguments.
class Toolkit {
 public:
  explicit Toolkit(std::vector<std::string> arguments)
      : arguments_(withPlatform(std::move(arguments))),
        texts_(pointersTo(arguments_)),
        search_(std::make_unique<DisplaySearch>()),
        application_(count_, texts_.data()) {
    keepPlainLocale();
    search_.reset();
    if (QFontInfo(QApplication::font()).family().isEmpty())
      exitAtOnce("tessimo: " + oneLine(kNoFont));
    QApplication::setApplicationName("tessimo");
    QApplication::setDesktopFileName("tessimo");
    startTheme(application_);
  }

 private:
  static std::vector<char*> pointersTo(std::vector<std::string>& arguments) {
    std::vector<char*> texts;
    for (std::string& argument : arguments) texts.push_back(argument.data());
    texts.push_back(nullptr);
    return texts;
  }

  std::vector<std::string> arguments_;
  std::vector<char*> texts_;
  int count_ = static_cast<int>(arguments_.size());
  std::unique_ptr<DisplaySearch> search_;
  QApplication application_;
};

// In the folder of this user's running programs, which nobody else can enter; "" where there is no
// such folder, since the one where the program was started is not ours to fill.
QString runtimeFile(const char* name) {
  const QString folder = QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation);
  return folder.isEmpty() ? QString() : QDir(folder).filePath(name);
}

std::string doorPath() {
  return runtimeFile("tessimo.socket").toStdString();
}

// Held while the program runs, so that a second instance knows.
std::unique_ptr<QLockFile> takeLock() {
  auto lock = std::make_unique<QLockFile>(runtimeFile("tessimo.lock"));
  lock->setStaleLockTime(0);  // only the death of its owner ends it
  return lock->tryLock() || lock->error() != QLockFile::LockFailedError ? std::move(lock) : nullptr;
}

// A second start with a file: the window that is open takes it.
bool handOver(const std::string& typed) {
  if (typed.empty()) return false;
  std::error_code unknown;  // the folder where it was typed may be gone
  const std::filesystem::path file = std::filesystem::absolute(typed, unknown);
  return !unknown && handToRunning(doorPath(), file.string());
}

void tellThatItRuns() {
  QMessageBox(QMessageBox::Critical, "User Error",
              "Tessimo is already running!!!\n"
              "Only one instance of this program can be running at one time.",
              QMessageBox::Ok)
      .exec();
}

ExitStatus fail(std::string_view line) {
  say(std::cerr, line);
  return ExitStatus::JobFailed;
}

ExitStatus playInWindow(const ScriptJob& job, std::vector<std::string> arguments) {
  const std::optional<std::string> text = readScript(job, std::cerr);
  if (!text) return ExitStatus::JobFailed;
  if (const std::string trouble = obstacle(); !trouble.empty()) return fail(trouble);
  qInstallMessageHandler(passOverWarnings);
  keepUsableScale();
  const Toolkit toolkit(std::move(arguments));
  const std::unique_ptr<QLockFile> lock = takeLock();
  if (!lock) return fail("Tessimo is already running");
  return ScriptPlayer(job, QtPictureWriter()).play(*text, std::cout, std::cerr);
}

}  // namespace

int runDesktop(const DesktopRequest& request, std::vector<std::string> arguments) {
  if (const std::string trouble = obstacle(); !trouble.empty()) {
    say(std::cerr, trouble);
    return kExitFailed;
  }
  keepUsableScale();
  const Toolkit toolkit(std::move(arguments));
  const std::unique_ptr<QLockFile> lock = takeLock();
  if (!lock) {
    if (handOver(request.drawing)) return 0;
    tellThatItRuns();
    return kExitFailed;
  }
  try {
    const FolderRequest wanted = folderRequest(request.home);
    const std::string folder = programFolder(wanted);
    DesktopProgram program(folder, request.jetReader, userFolder(wanted),
                           helpFiles(wanted.executableFolder));
    InstanceDoor door(doorPath());
    door.onFile = [&](const std::string& file) { return program.takeFile(file); };
    program.open(request.drawing, isFirstStart(wanted, folder));
    return program.serve();
  } catch (const RuntimeFailure& failure) {
    say(std::cerr, describe(failure));
    QMessageBox::critical(nullptr, kProductName, QString::fromStdString(failure.what()));
    return kExitFailed;
  }
}

ExitStatus playScript(const CommandLine& line, std::vector<std::string> arguments) {
  return reportingFailures(std::cerr,
                           [&] { return playInWindow(scriptJob(line), std::move(arguments)); });
}

}  // namespace tess
