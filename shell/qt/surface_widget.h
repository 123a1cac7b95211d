// The widget that shows the drawing surface and reports what the operator does on it.
// Owns: PanPhase, SurfaceWidget.
#pragma once

#include <QKeyEvent>
#include <QWidget>
#include <functional>
#include <memory>

#include "shell/qt/raster_surface.h"

namespace tess {

// Of a drag with the middle button.
enum class PanPhase { Begin, Move, End };

// Buttons are 1 left, 2 right, 0 none and 3 both; shift is 1 with the shift key, 2 with control.
class SurfaceWidget : public QWidget {
 public:
  using PointerHandler = std::function<void(int button, int shift, float x, float y)>;

  explicit SurfaceWidget(QWidget* parent = nullptr);

  RasterSurface& drawing() { return drawing_; }

  // Positions in drawing units. A disabled surface reports no press and no idle move; a drag that
  // began before goes on and ends, or a button would seem to stay down.
  PointerHandler onPress, onMove, onRelease;
  std::function<void(int steps, int shift, Point at)> onWheel;
  std::function<void(PanPhase phase, Point at)> onPan;
  // Of motions that come while one is being carried out only the newest is reported, but for those
  // that have a meaning of their own. Turns of the wheel are added up where that is wanted.
  std::function<bool()> wantsEachMotion, sumsTurns;
  // While a command runs nothing that waited is reported.
  std::function<bool()> isBusy;
  std::function<void()> onLeave;  // the pointer is no longer over it
  // A key; false when it has no meaning here.
  std::function<bool(const QKeyEvent& key)> onKey;
  bool handleKey(const QKeyEvent& key);
  // The picture is empty after the window moved to a screen of another density.
  std::function<void()> onPictureLost;
  // The frame that was requested has come. Without it none can be.
  std::function<void()> onFrame;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override { mousePressEvent(event); }
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void leaveEvent(QEvent* event) override;
  bool focusNextPrevChild(bool /*next*/) override { return false; }  // Tab is a command here

 private:
  void report(const PointerHandler& handler, int button, const QMouseEvent& event);
  void carryOut(const QMouseEvent& motion);
  void carryOutWaiting();
  void settleLater();
  void settle();
  void turn(int steps, const QWheelEvent& event);
  void pan(PanPhase phase, const QMouseEvent& event);
  void updateDevicePixels(const QRect& box);
  bool followDensity();
  bool requestFrame();

  RasterSurface drawing_;
  QRect painted_;  // in device pixels, since the last paint event
  bool dragging_ = false;
  bool panning_ = false;
  bool settling_ = false;  // from a motion on until all that came in meanwhile was looked at
  std::unique_ptr<QMouseEvent> waitingMotion_;  // the newest since then
  std::unique_ptr<QWheelEvent> waitingTurn_;    // the same of the wheel
  int waitingSteps_ = 0;                        // of all its turns since then
  int wheelRest_ = 0;                           // turned, but less than a step
};

}  // namespace tess
