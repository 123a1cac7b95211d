// The program on the desktop.
#include "shell/qt/desktop_program.h"

#include <QApplication>
#include <QClipboard>
#include <QGuiApplication>
#include <QScreen>
#include <QSysInfo>
#include <QTimer>
#include <iostream>
#include <optional>
#include <utility>

#include "core/file_system.h"
#include "core/lifecycle.h"
#include "core/version.h"
#include "shell/automation/reports.h"
#include "shell/control_choice.h"
#include "shell/help_commands.h"
#include "shell/picture.h"
#include "shell/program_folder.h"
#include "shell/qt/customize_dialog.h"
#include "shell/qt/key_strokes.h"
#include "shell/qt/splash.h"
#include "shell/qt/theme.h"

namespace tess {

namespace {

constexpr int kExitFailed = 1;
constexpr Bounds kFirstArea{0, 0, 800, 600};  // until the window has a size

// The toolkit, the system, and the screens.
std::string describeSystem() {
  QString text = QString("Qt %1, %2\n%3, %4")
                     .arg(qVersion(), QGuiApplication::platformName(),
                          QSysInfo::prettyProductName(), QSysInfo::currentCpuArchitecture());
  for (const QScreen* const screen : QGuiApplication::screens()) {
    text += QString("\nScreen %1 x %2, %3 to 1")
                .arg(screen->size().width())
                .arg(screen->size().height())
                .arg(screen->devicePixelRatio());
  }
  return text.toStdString();
}

// Of a file that was named and cannot be opened.
std::string whyNot(const std::string& file) {
  const bool isThere = fileExists(file) || folderExists(file);
  return isThere ? file + " is neither a drawing nor a DXF file."
                 : "There is no file " + file + ".";
}

PointerEvent pointerEvent(int button, int shift, float x, float y) {
  return {.Button = button, .Shift = shift, .X = x, .Y = y};
}

}  // namespace

DesktopProgram::DesktopProgram(const std::string& appfolder, const std::string& jetReader,
                               const std::string& userfolder, const HelpFiles& help)
    : appfolder_(appfolder),
      reporting_(prompts_, clock_, ErrorReporting{.folder = appfolder}),
      application_({host_,
                    reporting_,
                    {surface_.drawing(), pointer_, timers_, kFirstArea},
                    jetReader,
                    &colors_,
                    &programs_,
                    userfolder,
                    &paper_,
                    help}),
      window_({application_.interaction.tools, application_.interaction.statusBar,
               application_.interaction.forms, gateway_, surface_}),
      theme_(window_, host_, userfolder) {
  prompts_.setWindow(&window_);
  colors_.setWindow(&window_);
  paper_.setWindow(&window_);
  paper_.takeScreenShot = [this] { return bitmapFile(pictureForPaper()); };
  application_.interaction.renderer.look.darkTheme = isDark(surface_.palette());
  wirePlatform();
  wireSurface();
  wireWindow();
  window_.toolBars().addSubmenu("miOptions", theme_.menu());
  wireGuide();
  // Before the window is shown and a layout read, which may have closed it.
  application_.interaction.tools.openBand("barPathProof");
}

// The window is shown first, since the drawing is fitted to it.
bool DesktopProgram::open(const std::string& drawing, bool firstStart) {
  window_.setWindowTitle(QString::fromStdString(application_.caption()));
  window_.showAtStart();
  Splash::show(application_.session, gateway_, window_);
  gateway_.enter("frmMain.Form_Load()", [&] { application_.load(drawing, appfolder_); });
  if (!failed_ && firstStart) finishFirstStart();
  if (!failed_) gateway_.enter("frmMain.keepJournal()", [&] { application_.keepJournal(); });
  if (!startPanel_.isAncestorOf(window_.focusWidget())) surface_.setFocus();
  return !failed_;
}

// Whatever comes of the question, it is not asked again.
void DesktopProgram::finishFirstStart() {
  gateway_.enter("frmMain.askForControl()", [this] {
    application_.guarded("frmMain.askForControl()", [this] { askForControl(application_); });
    endFirstStart(appfolder_);
  });
}

bool DesktopProgram::takeFile(const std::string& file) {
  if (failed_ || gateway_.isBusy() || QApplication::activeModalWidget() != nullptr) return false;
  QTimer::singleShot(0, &window_, [this, file] {
    window_.setWindowState(window_.windowState() & ~Qt::WindowMinimized);
    window_.raise();
    window_.activateWindow();
    // A bare name may mean one of the drawings.
    const std::string drawings = application_.store.drawingpath;
    gateway_.enter("frmMain.takeFile(file)", [&] {
      const std::vector<std::string> meant{file, drawings + std::string(fileNameOf(file))};
      if (droppedFile(meant)) return dropFiles(application_.session, meant);
      tell(whyNot(file));
    });
  });
  return true;
}

// Nothing is said while there is something to take; other files beside it are passed over.
void DesktopProgram::drop(const std::vector<std::string>& names) {
  if (names.empty()) return tell("Only files of this computer can be opened.");
  const bool any = droppedFile(names).has_value();
  dropFiles(application_.session, names);
  if (any) return;
  tell(names.size() == 1 ? whyNot(names.front())
                         : "None of these files is a drawing or a DXF file.");
}

void DesktopProgram::tell(const std::string& text) {
  prompts_.showMessage({.text = text,
                        .title = application_.session.productname,
                        .icon = MessageIcon::Information,
                        .buttons = MessageButtons::Ok});
}

int DesktopProgram::serve() {
  return failed_ ? kExitFailed : QApplication::exec();
}

void DesktopProgram::wirePlatform() {
  gateway_.isMetric = [this] { return application_.store.units == "M"; };
  gateway_.onHelp = [this](const Form& form) { helpOnForm(application_, form); };
  gateway_.onEnd = [this](const std::string& line) { end(line); };
  surroundings_.onPrint = [this](const std::string& line) { window_.print(line); };
}

void DesktopProgram::end(const std::string& line) {
  failed_ = true;
  say(std::cerr, line);
  prompts_.showMessage({.text = line, .title = kProductName, .icon = MessageIcon::Error});
  QApplication::exit(kExitFailed);
}

void DesktopProgram::wireSurface() {
  surface_.onPress = [this](int button, int shift, float x, float y) {
    gateway_.enter("press", [&] { application_.press(pointerEvent(button, shift, x, y)); });
  };
  surface_.onMove = [this](int button, int shift, float x, float y) {
    gateway_.enter("move", [&] { application_.move(pointerEvent(button, shift, x, y)); });
  };
  surface_.onRelease = [this](int button, int shift, float x, float y) {
    gateway_.enter("release", [&] { application_.release(pointerEvent(button, shift, x, y)); });
  };
  surface_.onWheel = [this](int steps, int shift, Point at) {
    gateway_.enter("wheel", [&] { application_.wheelAt(steps, shift, at); });
  };
  surface_.onPan = [this](PanPhase phase, Point at) {
    gateway_.enter("pan", [&] { pan(phase, at); });
  };
  surface_.wantsEachMotion = [this] {
    return application_.interaction.context.pointer.SkipPointerUpdate;
  };
  surface_.sumsTurns = [this] { return application_.interaction.navigation.wheelZooms(); };
  surface_.isBusy = [this] { return gateway_.isBusy(); };
  surface_.onLeave = [this] { gateway_.enter("leave", [&] { application_.leave(); }); };
  surface_.onKey = [this](const QKeyEvent& key) {
    if (window_.guideBar().position().begin(key)) return true;
    const std::optional<KeyStroke> stroke = keyStroke(key);
    if (stroke) gateway_.enter("key", [&] { application_.key(*stroke); });
    return stroke.has_value();
  };
  application_.backplot.onCutter = [this](const std::optional<CutterPlace>& place) {
    surface_.showCutter(place);
  };
  surface_.onThemeChanged = [this] { followTheme(); };
  surface_.onPictureLost = [this] {
    gateway_.enter("redraw", [&] { application_.interaction.redraw.redrawscreen(); });
  };
  surface_.onFrame = [this] {
    gateway_.pass("redraw", [&] { application_.interaction.redraw.paintFrame(); });
  };
}

// The screen as it stands, but for its look.
QImage DesktopProgram::pictureForPaper() {
  RasterSurface& shown = surface_.drawing();
  if (!application_.interaction.renderer.look.isSoft()) return shown.picture();
  RasterSurface plain(shown.area(), shown.density());
  paintPicture(application_, plain, /*onPaper=*/true);
  return plain.picture();
}

void DesktopProgram::followTheme() {
  Interaction& interaction = application_.interaction;
  const bool dark = isDark(surface_.palette());
  if (std::exchange(interaction.renderer.look.darkTheme, dark) == dark) return;
  if (interaction.renderer.look.isSoft()) interaction.redraw.soil();
}

void DesktopProgram::pan(PanPhase phase, Point at) {
  if (phase == PanPhase::Begin) application_.beginPan(at);
  if (phase == PanPhase::Move) application_.movePan(at);
  if (phase == PanPhase::End) application_.endPan(at);
}

void DesktopProgram::wireGuide() {
  GuideBar& guide = window_.guideBar();
  guide.onPosition = [this](const std::string& text, bool rightButton) {
    std::string trouble;
    gateway_.enter("position", [&] {
      trouble = application_.typePosition(text, rightButton ? kRightButton : kLeftButton);
    });
    return trouble;
  };
  guide.onLog = [this] { return application_.session.results.log(); };
  application_.session.results.onTold = [this, &guide] {
    guide.showResult(QString::fromStdString(application_.session.results.told().back().text));
  };
  pointer_.mayTakeFocus = [&guide] { return !guide.position().isWriting(); };
}

void DesktopProgram::wireWindow() {
  window_.onQueryClose = [this] { return application_.mayClose(); };
  window_.onClosed = [this] {
    gateway_.enter("unload", [this] { application_.unload(); });
    QApplication::quit();
  };
  window_.onFilesDropped = [this](const std::vector<std::string>& paths) { drop(paths); };
  window_.toolBars().onMenuCommand = [this] { armMenuGuard(application_.interaction.context); };
  application_.onSettled = [this] { startPanel_.settle(); };
  startPanel_.onChosen = [this](const std::string& tool) {
    gateway_.enter("frmMain.startChosen(tool)", [&] { startOffer_.choose(tool); });
  };
  // The command that asked for it comes to its end first.
  application_.onCloseMainWindow = [this] {
    QMetaObject::invokeMethod(
        &window_, [this] { window_.closeOnce(); }, Qt::QueuedConnection);
  };
  application_.onCaptionChanged = [this] {
    window_.setWindowTitle(QString::fromStdString(application_.caption()));
  };
  application_.onCopyText = [](const std::string& text) {
    QApplication::clipboard()->setText(QString::fromStdString(text));
  };
  application_.viewer.form.onCopyText = application_.onCopyText;
  application_.onDescribeSystem = describeSystem;
  application_.onCustomize = [this] { customizeWindow(window_, gateway_); };
}

}  // namespace tess
