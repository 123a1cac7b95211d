// Bringing windows back.
#include "shell/qt/windows_in_sight.h"

#include <QApplication>
#include <QRegion>
#include <QWidget>
#include <algorithm>

#include "shell/qt/form_window.h"

namespace tess {

namespace {

constexpr int kSettledAfter = 200;  // milliseconds

QRegion roomOfScreens() {
  QRegion room;
  for (const QScreen* const screen : QGuiApplication::screens())
    room += screen->availableGeometry();
  return room;
}

// Others go with what opened them, or have the window manager look after them.
bool standsByItself(const QWidget& window) {
  const Qt::WindowType type = window.windowType();
  return window.isVisible() && !window.isMaximized() && !window.isFullScreen() &&
         !window.isMinimized() && (type == Qt::Window || type == Qt::Dialog || type == Qt::Tool);
}

void bringIntoSight(QWidget& window) {
  if (!standsByItself(window) || (QRegion(window.frameGeometry()) - roomOfScreens()).isEmpty()) {
    return;
  }
  if (auto* const form = dynamic_cast<FormWindow*>(&window)) form->takeSizeAnew();
  const QSize frame = window.frameGeometry().size() - window.size();
  const QRect place = placeInSight(window.frameGeometry(), window.screen()->availableGeometry());
  window.resize(place.size() - frame);
  window.move(place.topLeft());
}

}  // namespace

QRect placeInSight(const QRect& frame, const QRect& room) {
  QRect place(QPoint(), frame.size().boundedTo(room.size()));
  place.moveTopLeft({std::clamp(frame.left(), room.left(), room.right() + 1 - place.width()),
                     std::clamp(frame.top(), room.top(), room.bottom() + 1 - place.height())});
  return place;
}

WindowsInSight::WindowsInSight() {
  settled_.setSingleShot(true);
  settled_.setInterval(kSettledAfter);
  QObject::connect(&settled_, &QTimer::timeout, &context_, [] {
    for (QWidget* const window : QApplication::topLevelWidgets()) bringIntoSight(*window);
  });
  for (const QScreen* const screen : QGuiApplication::screens()) watch(*screen);
  QObject::connect(qApp, &QGuiApplication::screenAdded, &context_,
                   [this](const QScreen* screen) { watch(*screen); });
  QObject::connect(qApp, &QGuiApplication::screenRemoved, &context_, [this] { settled_.start(); });
}

void WindowsInSight::watch(const QScreen& screen) {
  QObject::connect(&screen, &QScreen::availableGeometryChanged, &context_,
                   [this] { settled_.start(); });
}

}  // namespace tess
