// A script in the visible main window, at a pace that a person can follow. It works the program as
// a script without a window does, on the same virtual clock, so that it comes to the same result;
// the window shows it, and takes no input but the wish to close it.
// Owns: Pace, kWithoutWaiting, ScriptPlayer.
#pragma once

#include <QObject>
#include <iosfwd>
#include <memory>
#include <string_view>

#include "shell/automation/script_runner.h"
#include "shell/qt/main_window.h"
#include "shell/qt/played_pointer.h"
#include "shell/qt/ports.h"

namespace tess {

// How long things take, in milliseconds.
struct Pace {
  double millisecond = 1;  // a millisecond of the script's time; 0 plays without waiting
  int glide = 220;         // the pointer's way to a new place
  int step = 60;           // after a step
  int control = 450;       // after a control of a dialog
  int dialog = 700;        // before a dialog is worked, and before a message is answered
  int last = 1500;         // after the script's end
};

inline constexpr Pace kWithoutWaiting{0, 0, 0, 0, 0, 0};

class ScriptPlayer : public QObject {
 public:
  ScriptPlayer(const ScriptJob& job, PictureWriter writePicture, const Pace& pace = {});
  ~ScriptPlayer() override;

  // Shows the window, plays the script and waits a moment. Closing the window ends the script with
  // a failure. Afterwards the window stands as the script left it.
  ExitStatus play(std::string_view text, std::ostream& out, std::ostream& err);

  Application& application() { return application_; }
  MainWindow& window() { return window_; }

 protected:
  // Keeps the operator's input from all windows while the script plays.
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  class Time;
  class Stage;
  class ShownForm;

  void wire();
  void showWindow();
  void serveEvents(double milliseconds);
  void rest(double milliseconds);

  ScriptJob job_;
  PictureWriter writePicture_;
  Pace pace_;
  AllowedFolders folders_;
  VirtualTimers timers_;
  VirtualClock clock_{timers_, job_.date};
  Gateway gateway_;
  DesktopSurroundings surroundings_{gateway_};
  ScriptHost host_{folders_, clock_, surroundings_};
  SurfaceWidget surface_;
  DesktopPointer shape_{surface_};
  PlayedPointer pointer_{timers_, shape_};
  Application application_;
  MainWindow window_;
  DrawnPointer arrow_{surface_};
  bool playing_ = false;
  bool stopped_ = false;
};

}  // namespace tess
