// The platform as the desktop has it: message boxes, file dialogs, forms in windows, the clock,
// timers, the pointer and the event loop.
// Owns: DesktopPrompts, DesktopClock, DesktopSurroundings, DesktopTimers, DesktopPointer.
#pragma once

#include <QCursor>
#include <QElapsedTimer>
#include <QPointer>
#include <QTimer>
#include <QWidget>
#include <functional>
#include <map>
#include <memory>
#include <string>

#include "core/host.h"
#include "core/timers.h"
#include "display/pointer.h"
#include "shell/qt/gateway.h"
#include "shell/qt/surface_widget.h"

namespace tess {

class InputHold;

class DesktopPrompts : public Prompts {
 public:
  explicit DesktopPrompts(Gateway& gateway) : gateway_(gateway) {}

  // What boxes stand over when no other one is open.
  void setWindow(QWidget* window) { window_ = window; }

  Answer showMessage(const Message& message) override;
  std::optional<std::string> chooseFile(const FileRequest& request) override;
  void showModal(Form& form) override;

 private:
  QWidget* owner() const;
  bool wasToldEnough(const Message& message);

  Gateway& gateway_;
  QPointer<QWidget> window_;
  QPointer<QWidget> dialog_;  // the last that was opened of those that wait, modal or not
  QElapsedTimer sinceTold_;
  std::map<std::string, int> told_;  // how often each, one right behind the other
};

class DesktopClock : public Clock {
 public:
  DesktopClock() { elapsed_.start(); }
  DateTime now() override;
  double elapsedMilliseconds() override;
  void sleep(double milliseconds) override;

 private:
  QElapsedTimer elapsed_;
};

class DesktopSurroundings : public Surroundings {
 public:
  explicit DesktopSurroundings(const Gateway& gateway);
  ~DesktopSurroundings() override;

  // Cheap enough to be called for every row: looks for events a few times per frame only.
  void serveEvents() override;
  void beep() override;
  Trash moveToTrash(const std::string& path) override;
  void waitForKey() override;
  // With Esc; any other input waits until the work is done.
  void setCancellable(bool on) override;
  bool isCancelled() const override;
  void printOnMainWindow(const std::string& text) override;

  std::function<void(const std::string&)> onPrint;

 private:
  const Gateway& gateway_;
  std::unique_ptr<InputHold> hold_;  // while the work under way can be cancelled
  qint64 served_ = 0;                // when events were served last, in milliseconds
};

class DesktopTimers : public Timers {
 public:
  explicit DesktopTimers(Gateway& gateway) : gateway_(gateway) {}
  std::unique_ptr<Timer> create(const TimerSpec& spec, std::function<void()> tick) override;

 private:
  Gateway& gateway_;
};

class DesktopPointer : public Pointer {
 public:
  explicit DesktopPointer(SurfaceWidget& surface);

  int MousePointer() const override { return shape_; }
  void setMousePointer(int shape) override;
  void setMouseIcon(const std::string& path) override;
  void warp(int pixelX, int pixelY) override;
  bool isOverSurface() const override;
  void releaseCapture() override;
  void focusSurface() override;

  // Whether the keyboard may go to the drawing now; it may where this is not set.
  std::function<bool()> mayTakeFocus;

 private:
  void showShape();

  SurfaceWidget& surface_;
  int shape_ = kDefaultShape;
  QCursor icon_;
  QTimer hourglassDelay_;  // a wait shorter than that shows no hourglass
};

}  // namespace tess
