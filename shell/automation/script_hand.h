// The operator's hand in a script: clicks on tools, keys and pointer events, each through the entry
// point that a window uses, with the time between them that a hand would take.
// Owns: ScriptHand, deliverArrival.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#include "drafting/pointer_events.h"
#include "shell/application.h"
#include "shell/automation/script_host.h"
#include "shell/automation/script_stage.h"
#include "shell/automation/script_time.h"
#include "shell/commands.h"

namespace tess {

// Every step begins when the picture stands and the surface takes events, and ends when that is so
// again: no event is lost to a redraw, and what a script reads after a step is what an operator
// would see. Failures of a step are reported before it returns.
class ScriptHand {
 public:
  ScriptHand(Application& application, ScriptHost& host, ScriptTime& time, ScriptStage& stage)
      : application_(application), host_(host), time_(time), stage_(stage) {}

  // A tool that is absent, disabled or hidden does nothing. No menu closes by it, so the guard
  // against a menu's closing click is not armed.
  void tool(std::string_view name);
  void key(const KeyStroke& key);

  // Single pointer events.
  void press(const PointerEvent& event);
  void move(const PointerEvent& event);
  void release(const PointerEvent& event);
  void wheel(int steps, int shift);
  // A typed position in the place of a left click; gives back what is wrong with it.
  std::string typePosition(std::string_view text);

  // The pointer comes along, presses, rests on the place (which is when snap features are offered)
  // and releases there.
  void click(const PointerEvent& event);
  // From `event` to (x, y). Both places are in units of the view at the press, also when the drag
  // moves the view.
  void drag(const PointerEvent& event, float x, float y);

  void wait(std::int64_t ms);
  // Any other step that an operator could take.
  void act(const std::function<void()>& step);
  // Lets time pass until no redraw is under way and the surface takes events.
  void settle();

  // A control has been worked: failures are reported, and who watches may look.
  void controlWorked();
  // In the middle of the script's own calculations.
  void breathe() { stage_.breathe(); }

 private:
  void approach(const PointerEvent& event);
  bool isSettled() const;

  Application& application_;
  ScriptHost& host_;
  ScriptTime& time_;
  ScriptStage& stage_;
};

// The program has sent the pointer to a pixel of the surface: a move like any other.
void deliverArrival(Application& application, int pixelX, int pixelY);

}  // namespace tess
