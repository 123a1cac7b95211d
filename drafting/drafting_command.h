// Descriptors of commands that work on the drafting context. One that draws brings its drawing mode
// with it.
// Owns: kSelectingMode, kNoMode, DrawingMode, DraftingCommand.
#pragma once

#include "core/command.h"
#include "display/drawing_target.h"

namespace tess {

struct DraftingContext;

// The values of DrawMode that are no drawing modes.
inline constexpr int kSelectingMode = -1;
inline constexpr int kNoMode = 0;

// What the clicks of a drawing mode add, and what is seen before the click.
struct DrawingMode {
  int number = kNoMode;      // the value of DrawMode; scripts know it. Fixed are 1 to 7, 4 unused
  bool threePoints = false;  // takes the marker and two clicks
  // What the window says of the click, or the first of two, and of the second: the words that
  // follow "left click".
  const char* left = "";
  const char* secondLeft = "";
  // Adds what the mode makes of the marker and the click at MouseX, MouseY.
  void (*draw)(DraftingContext&, PictureBoxProxy& target) = nullptr;
  // Paints what would come of a click at MouseMoveX, MouseMoveY, in the inverting pen: painted once
  // more, it is gone. In a three-point mode only the second click has one.
  void (*hover)(DraftingContext&) = nullptr;
};

struct DraftingCommand {
  CommandInfo info;
  CommandRoutine<DraftingContext> run;
  std::span<const Action<DraftingContext>> actions =
      {};  // that it arms, and those that follow by steps
  Repeat<DraftingContext> repeat = {};
  DrawingMode mode = {};
};

}  // namespace tess
