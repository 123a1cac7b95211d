// Moving the view by wheel and middle button, where the setup has the keys of the desktop.
// Owns: ViewNavigation.
#pragma once

#include <optional>

#include "display/view_commands.h"

namespace tess {

// Positions are in drawing units of the view current at each event.
class ViewNavigation {
 public:
  explicit ViewNavigation(ViewCommands& commands) : parts_(commands.parts()), commands_(commands) {}

  // False where the setup lacks the keys of the desktop, and while a text is being placed, which
  // has the wheel to itself.
  bool wheelZooms() const;

  // A fifth closer or a quarter farther for each step, and what is shown at the position stays
  // there. From 64 times the full view to a 64th of it; a view outside of that keeps its scale.
  void turnWheel(int steps, Point at);

  // A drag that keeps the grabbed point under the pointer.
  void beginPan(Point at);
  void movePan(Point at);
  void endPan(Point at);

 private:
  ViewParts parts_;
  ViewCommands& commands_;
  std::optional<Point> grabbed_;
  int shapeBefore_ = kDefaultShape;
};

}  // namespace tess
