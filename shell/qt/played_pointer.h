// The pointer of a script that plays in the window: a drawn arrow that goes where the script's hand
// goes, while the operator's own pointer stays his.
// Owns: DrawnPointer, PlayedPointer.
#pragma once

#include <QWidget>

#include "shell/qt/ports.h"
#include "shell/virtual_screen.h"

namespace tess {

// An arrow over the surface, with a ring while a button is held. It takes no events.
class DrawnPointer : public QWidget {
 public:
  explicit DrawnPointer(QWidget& surface);

  // The tip, in pixels of the surface.
  QPointF tip() const { return tip_; }
  void point(QPointF tip, bool pressed);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QPointF tip_;
  bool pressed_ = false;
};

// Arrives by the script's own time, as without a window; only its shape is the desktop's.
class PlayedPointer : public VirtualPointer {
 public:
  PlayedPointer(Timers& timers, DesktopPointer& shown) : VirtualPointer(timers), shown_(shown) {}
  int MousePointer() const override { return shown_.MousePointer(); }
  void setMousePointer(int shape) override { shown_.setMousePointer(shape); }
  void setMouseIcon(const std::string& path) override { shown_.setMouseIcon(path); }

 private:
  DesktopPointer& shown_;
};

}  // namespace tess
