// The whole program on a virtual screen, started with the test home: the fixture of tests that
// enter where an operator does.
// Owns: RunningProgram.
#pragma once

#include "shell/application.h"
#include "shell/commands.h"
#include "shell/virtual_screen.h"
#include "tests/support/recording_host.h"
#include "tests/support/recording_programs.h"
#include "tests/support/temp_folder.h"

namespace tess::testing {

// Time stands still until pass() is called. A failure of a command stands in
// reporting.lastReport().
struct RunningProgram {
  // Without paper nothing can be printed.
  explicit RunningProgram(Paper* paper = nullptr);
  ~RunningProgram();
  RunningProgram(const RunningProgram&) = delete;
  RunningProgram& operator=(const RunningProgram&) = delete;

  DraftingContext& context() { return application.interaction.context; }
  ToolHost& tools() { return application.interaction.tools; }
  int pendingaction() { return context().state.pendingaction(); }
  int DrawMode() { return context().state.DrawMode(); }

  void type(char ascii) { application.key({.ascii = ascii}); }
  void type(SpecialKey special) { application.key({.special = special}); }
  // The usual sequences of pointer events.
  void click(Point at, int button = kLeftButton, int shift = 0) {
    application.move({.Button = 0, .Shift = shift, .X = at.x, .Y = at.y});
    application.press({button, shift, at.x, at.y});
    application.release({button, shift, at.x, at.y});
  }
  void pass(int ms) {
    screen.timers.advance(ms);
    platform.clock.elapsed += ms;
  }

  TempFolder home;
  TempFolder userfolder;
  RecordingHost platform;
  HuntERR reporting{
      platform.prompts, platform.clock, {.folder = {}, .display = ReportDisplay::None}};
  VirtualScreen screen;
  RecordingPrograms others;
  Application application;

 private:
  void arrive(int pixelX, int pixelY) {
    const PointerRecord& pointer = context().pointer;
    const Point at = context().ScreenProxy.surface().toWorld(pixelX, pixelY);
    const int rightOrNone = pointer.RightDown ? kRightButton : 0;
    application.move(
        {.Button = pointer.LeftDown ? kLeftButton : rightOrNone, .Shift = 0, .X = at.x, .Y = at.y});
  }
};

}  // namespace tess::testing
