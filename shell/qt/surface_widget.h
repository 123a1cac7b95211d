// The widget that shows the drawing surface and reports what the operator does on it.
// Owns: SurfaceWidget.
#pragma once

#include <QKeyEvent>
#include <QWidget>
#include <functional>

#include "shell/qt/raster_surface.h"

namespace tess {

// Buttons are 1 left, 2 right, 0 none and 3 both; shift is 1 with the shift key, 2 with control.
class SurfaceWidget : public QWidget {
 public:
  using PointerHandler = std::function<void(int button, int shift, float x, float y)>;

  explicit SurfaceWidget(QWidget* parent = nullptr);

  RasterSurface& drawing() { return drawing_; }

  // Positions in drawing units. A disabled surface reports no press and no idle move; a drag that
  // began before goes on and ends, or a button would seem to stay down.
  PointerHandler onPress, onMove, onRelease;
  std::function<void(int steps, int shift)> onWheel;
  std::function<void()> onLeave;  // the pointer is no longer over it
  // A key; false when it has no meaning here.
  std::function<bool(const QKeyEvent& key)> onKey;
  bool handleKey(const QKeyEvent& key) { return onKey && onKey(key); }
  // The picture is empty after the window moved to a screen of another density.
  std::function<void()> onPictureLost;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override { mousePressEvent(event); }
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void leaveEvent(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  bool focusNextPrevChild(bool /*next*/) override { return false; }  // Tab is a command here

 private:
  void report(const PointerHandler& handler, int button, const QMouseEvent& event);
  void updateDevicePixels(const QRect& box);
  bool followDensity();

  RasterSurface drawing_;
  QRect painted_;  // in device pixels, since the last paint event
  bool dragging_ = false;
  int wheelRest_ = 0;  // turned, but less than a step
};

}  // namespace tess
