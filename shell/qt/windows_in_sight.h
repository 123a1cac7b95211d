// Dialogs, floating panels and whatever else has a window of its own come back into sight when a
// screen shrinks, is turned, or is taken away. Where the operator puts them is his own affair.
// Owns: placeInSight, WindowsInSight.
#pragma once

#include <QObject>
#include <QRect>
#include <QScreen>
#include <QTimer>

namespace tess {

// The frame within `room`, moved as little as that takes, and made smaller where it must be.
QRect placeInSight(const QRect& frame, const QRect& room);

// Looks after the windows of the program for as long as it lives.
class WindowsInSight {
 public:
  WindowsInSight();

 private:
  void watch(const QScreen& screen);

  QObject context_;  // of the connections
  QTimer settled_;   // window managers move windows too, and come first
};

}  // namespace tess
