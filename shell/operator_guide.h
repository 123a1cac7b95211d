// What the window tells beside the stated panels: what buttons, wheel and keys do now and what may
// come next, the state of the drawing, where the pointer is from the marker, and which tool is
// armed.
// Owns: PointerGuide, pointerGuide, guideText, OperatorGuide.
#pragma once

#include <string>

#include "core/command.h"
#include "drafting/change.h"

namespace tess {

class Interaction;
struct Session;

// Each in a few words; "" where there is nothing to tell.
struct PointerGuide {
  std::string command;  // the name of the command or mode, or what may come next
  std::string left;     // with the word click or drag: "click next point"
  std::string right;    // "moves the marker"
  std::string wheel;
  std::string keys;
};

PointerGuide pointerGuide(const Interaction& interaction);
// "Line: left click next point, right click moves the marker, Esc ..."
std::string guideText(const PointerGuide& guide);

// Tells them all in the panels, and what commands did to the rows as results.
class OperatorGuide : public ChangeListener {
 public:
  // Both must outlive it.
  OperatorGuide(Session& session, Interaction& interaction);

  // Every entry point ends with it.
  void settle();
  // Only the pointer has moved.
  void pointerMoved();

 private:
  void changed(const KeptChange& change) override;
  void rewritten() override {}
  void tellRows();
  void showState();

  Session& session_;
  Interaction& interaction_;
  int added_ = 0, changed_ = 0, removed_ = 0;  // drawing rows, since results were told last
  std::size_t toldBefore_ = 0;                 // results by then
  Subscription subscription_;
};

}  // namespace tess
