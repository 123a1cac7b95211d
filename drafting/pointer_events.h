// Pointer events of the drawing surface, in drawing units: the snapped position, the drags, and the
// two-stage release that completes an action.
// Owns: kLeftButton, kRightButton, kShiftKey, kControlKey, kPositionDecimals, PointerEvent,
//       picDrawing_MouseDown, picDrawing_MouseMove, picDrawing_MouseUp, inPresentView,
//       offerFeature, MouseWheel1_MouseWheel, keyboardClick, msetpos, armMenuGuard, GridSnapTimer.
#pragma once

#include <memory>

#include "drafting/drafting_context.h"

namespace tess {

inline constexpr int kLeftButton = 1;
inline constexpr int kRightButton = 2;
inline constexpr int kShiftKey = 1;
inline constexpr int kControlKey = 2;
inline constexpr int kPositionDecimals = 6;  // of the place of a click

struct PointerEvent {
  int Button = 0;  // the button concerned; 0 none
  int Shift = 0;   // kShiftKey and kControlKey added up
  float X = 0, Y = 0;

  bool shift() const { return (Shift & kShiftKey) != 0; }
  bool control() const { return (Shift & kControlKey) != 0; }
};

void picDrawing_MouseDown(DraftingContext& context, const PointerEvent& event);
void picDrawing_MouseMove(DraftingContext& context, const PointerEvent& event);
void picDrawing_MouseUp(DraftingContext& context, const PointerEvent& event);
// An event of a drag whose places were all stated beforehand, in units of the view at its press, as
// a script states them. While the drag moves the view, its place in units of the present view,
// which is what the routines above take; else the event as it is.
PointerEvent inPresentView(const DraftingContext& context, const PointerEvent& stated);

// The feature that a press at the event's place would snap to becomes the current one, if any.
void offerFeature(DraftingContext& context, const PointerEvent& event);

// Matters only while text is being placed.
void MouseWheel1_MouseWheel(DraftingContext& context, int steps, int shift);

// A click at the present position without the pointer: Enter and Insert.
void keyboardClick(DraftingContext& context, int button);

// Moves the system's pointer to a drawing position.
void msetpos(DraftingContext& context, float x, float y);

// A menu or pop-up has just ended a command: the click that closes it is none.
void armMenuGuard(DraftingContext& context);

// The pause in a drag after which the pointer itself jumps to the snapped position.
class GridSnapTimer {
 public:
  explicit GridSnapTimer(DraftingContext& context);
  void restart();
  void start() { timer_->setEnabled(true); }
  void stop() { timer_->setEnabled(false); }

 private:
  std::unique_ptr<Timer> timer_;
};

}  // namespace tess
