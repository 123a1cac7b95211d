// Descriptors of commands that work on the drafting desk. One that draws brings its drawing mode
// with it.
// Owns: kSelectingMode, kNoMode, DrawingMode, DeskCommand.
#pragma once

#include "core/command.h"
#include "display/drawing_target.h"

namespace tess {

struct Desk;

// The values of DrawMode that are no drawing modes.
inline constexpr int kSelectingMode = -1;
inline constexpr int kNoMode = 0;

// What the clicks of a drawing mode add, and what is seen before the click.
struct DrawingMode {
  int number = kNoMode;      // the value of DrawMode; scripts know it. Fixed are 1 to 7, 4 unused
  bool threePoints = false;  // takes the marker and two clicks
  // Adds what the mode makes of the marker and the click at MouseX, MouseY.
  void (*draw)(Desk&, PictureBoxProxy& target) = nullptr;
  // Paints what would come of a click at MouseMoveX, MouseMoveY, in the inverting pen: painted once
  // more, it is gone. In a three-point mode only the second click has one.
  void (*hover)(Desk&) = nullptr;
};

struct DeskCommand {
  CommandInfo info;
  CommandRoutine<Desk> run;
  std::span<const Action<Desk>> actions = {};  // that it arms, and those that follow by steps
  Repeat<Desk> repeat = {};
  DrawingMode mode = {};
};

}  // namespace tess
