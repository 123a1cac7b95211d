// The program with its main window: the ports of the desktop, the application, and the window,
// wired to each other.
#include "shell/qt/desktop.h"

#include <QApplication>
#include <QDir>
#include <QLockFile>
#include <QMessageBox>
#include <QStandardPaths>
#include <cstdio>
#include <memory>
#include <optional>

#include "core/lifecycle.h"
#include "core/version.h"
#include "shell/application.h"
#include "shell/program_folder.h"
#include "shell/qt/customize_dialog.h"
#include "shell/qt/key_strokes.h"
#include "shell/qt/main_window.h"
#include "shell/qt/ports.h"
#include "shell/qt/splash.h"
#include "shell/qt/theme.h"

namespace tess {

namespace {

constexpr int kExitFailed = 1;
constexpr Bounds kFirstArea{0, 0, 800, 600};  // until the window has a size

Message endMessage(const std::string& line) {
  return {.text = line, .title = kProductName, .icon = MessageIcon::Error};
}

class Desktop {
 public:
  explicit Desktop(const std::string& appfolder)
      : appfolder_(appfolder),
        reporting_(prompts_, clock_, ErrorReporting{.folder = appfolder}),
        application_({host_, reporting_, {surface_.drawing(), pointer_, timers_, kFirstArea}}),
        window_({application_.interaction.tools, application_.interaction.statusBar,
                 application_.interaction.forms, gateway_, surface_}) {
    prompts_.setWindow(&window_);
    wirePlatform();
    wireSurface();
    wireWindow();
  }

  // The window is shown first, since the drawing is fitted to it.
  int run(const std::string& drawing) {
    window_.setWindowTitle(QString::fromStdString(application_.caption()));
    window_.showAtStart();
    Splash::show(application_.session, gateway_, window_);
    gateway_.enter("frmMain.Form_Load()", [&] { application_.load(drawing, appfolder_); });
    surface_.setFocus();
    return failed_ ? kExitFailed : QApplication::exec();
  }

 private:
  void wirePlatform();
  void wireSurface();
  void wireWindow();
  PointerEvent event(int button, int shift, float x, float y) const {
    return {.Button = button, .Shift = shift, .X = x, .Y = y};
  }
  void end(const std::string& line);

  std::string appfolder_;
  Gateway gateway_{[this](std::string_view entry, const std::function<void()>& run) {
    return reporting_.guarded(entry, run);
  }};
  DesktopPrompts prompts_{gateway_};
  DesktopClock clock_;
  DesktopSurroundings surroundings_{gateway_};
  DesktopTimers timers_{gateway_};
  HuntERR reporting_;
  Host host_{prompts_, clock_, surroundings_, reporting_};
  SurfaceWidget surface_;
  DesktopPointer pointer_{surface_};
  Application application_;
  MainWindow window_;
  bool failed_ = false;
};

void Desktop::wirePlatform() {
  gateway_.onEnd = [this](const std::string& line) { end(line); };
  surroundings_.onPrint = [this](const std::string& line) { window_.print(line); };
}

void Desktop::end(const std::string& line) {
  failed_ = true;
  std::fprintf(stderr, "tessimo: %s\n", line.c_str());
  prompts_.showMessage(endMessage(line));
  QApplication::exit(kExitFailed);
}

void Desktop::wireSurface() {
  surface_.onPress = [this](int button, int shift, float x, float y) {
    gateway_.enter("press", [&] { application_.press(event(button, shift, x, y)); });
  };
  surface_.onMove = [this](int button, int shift, float x, float y) {
    gateway_.enter("move", [&] { application_.move(event(button, shift, x, y)); });
  };
  surface_.onRelease = [this](int button, int shift, float x, float y) {
    gateway_.enter("release", [&] { application_.release(event(button, shift, x, y)); });
  };
  surface_.onWheel = [this](int steps, int shift) {
    gateway_.enter("wheel", [&] { application_.wheel(steps, shift); });
  };
  surface_.onKey = [this](const QKeyEvent& key) {
    const std::optional<KeyStroke> stroke = keyStroke(key);
    if (stroke) gateway_.enter("key", [&] { application_.key(*stroke); });
    return stroke.has_value();
  };
  surface_.onPictureLost = [this] {
    gateway_.enter("redraw", [&] { application_.interaction.redraw.redrawscreen(); });
  };
}

void Desktop::wireWindow() {
  window_.onQueryClose = [this] { return application_.mayClose(); };
  window_.onClosed = [this] {
    gateway_.enter("unload", [this] { application_.unload(); });
    QApplication::quit();
  };
  window_.onFilesDropped = [this](const std::vector<std::string>& paths) {
    dropFiles(application_.session, paths);
  };
  window_.toolBars().onMenuCommand = [this] { armMenuGuard(application_.interaction.desk); };
  // The command that asked for it comes to its end first.
  application_.onCloseMainWindow = [this] {
    QMetaObject::invokeMethod(
        &window_, [this] { window_.close(); }, Qt::QueuedConnection);
  };
  application_.onCaptionChanged = [this] {
    window_.setWindowTitle(QString::fromStdString(application_.caption()));
  };
  application_.onCustomize = [this] { customizeWindow(window_, gateway_); };
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
    Desktop desktop(programFolder(folderRequest(request.home)));
    return desktop.run(request.drawing);
  } catch (const RuntimeFailure& failure) {
    std::fprintf(stderr, "tessimo: %s\n", failure.what());
    QMessageBox::critical(nullptr, kProductName, QString::fromStdString(failure.what()));
    return kExitFailed;
  }
}

}  // namespace tess
