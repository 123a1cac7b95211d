// The running program on the desktop: its ports, the application and the main window, wired to each
// other.
// Owns: DesktopProgram.
#pragma once

#include <string>

#include "shell/application.h"
#include "shell/qt/color_dialog.h"
#include "shell/qt/main_window.h"
#include "shell/qt/paper.h"
#include "shell/qt/ports.h"
#include "shell/qt/start_panel.h"
#include "shell/qt/theme_menu.h"
#include "shell/qt/windows_in_sight.h"

namespace tess {

class DesktopProgram {
 public:
  // `appfolder` ends with a separator. The toolkit's application exists already.
  // `jetReader` reads Jet databases; "" for none. `userfolder` keeps what belongs to this user
  // alone; "": nothing is kept. `help` is what the help menu shows.
  explicit DesktopProgram(const std::string& appfolder, const std::string& jetReader = {},
                          const std::string& userfolder = {}, const HelpFiles& help = {});
  // The toolkit still tells the surface things while the window goes, as that the pointer left it.
  ~DesktopProgram() { gateway_.close(); }
  DesktopProgram(const DesktopProgram&) = delete;
  DesktopProgram& operator=(const DesktopProgram&) = delete;

  // Shows the main window and loads as at the program's start, with the drawing named, "" for none.
  // A first start asks for the control and the units. False when the program cannot go on.
  bool open(const std::string& drawing, bool firstStart = false);
  // Opens a file of another start of the program as one that is dropped on the window: with the
  // question about unsaved work, in a moment. False while a command or a dialog is under way.
  bool takeFile(const std::string& file);
  // Serves the window until it is closed; gives the exit status of the process.
  int serve();

  Application& application() { return application_; }
  MainWindow& window() { return window_; }
  SurfaceWidget& surface() { return surface_; }
  ThemeMenu& theme() { return theme_; }
  Gateway& gateway() { return gateway_; }

 private:
  void finishFirstStart();
  void wirePlatform();
  void wireSurface();
  void pan(PanPhase phase, Point at);
  QImage pictureForPaper();
  void followTheme();
  void wireWindow();
  void drop(const std::vector<std::string>& names);
  void tell(const std::string& text);
  void wireGuide();
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
  NoGuard guard_;
  LocalPrograms programs_;
  Host host_{prompts_, clock_, surroundings_, reporting_, guard_};
  SurfaceWidget surface_;
  DesktopPointer pointer_{surface_};
  DesktopColorDialog colors_;
  QtPaper paper_;
  Application application_;
  MainWindow window_;
  StartOffer startOffer_{application_};
  StartPanel startPanel_{startOffer_, surface_};
  ThemeMenu theme_;
  WindowsInSight windowsInSight_;
  bool failed_ = false;
};

}  // namespace tess
