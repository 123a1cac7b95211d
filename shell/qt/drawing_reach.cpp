// One dialog and the drawing.
#include "shell/qt/drawing_reach.h"

#include <QApplication>
#include <QTimer>

#include "shell/qt/operator_input.h"
#include "shell/qt/surface_widget.h"

namespace tess {

namespace {

// A touch that the drawing does not take becomes a press of the pointer.
bool isPointerEvent(QEvent::Type type) {
  return type == QEvent::TouchBegin || type == QEvent::MouseButtonPress ||
         type == QEvent::MouseButtonRelease || type == QEvent::MouseButtonDblClick ||
         type == QEvent::MouseMove;
}

bool isPress(QEvent::Type type) {
  return type == QEvent::MouseButtonPress || type == QEvent::MouseButtonDblClick;
}

}  // namespace

DrawingReach::DrawingReach(QWidget& dialog) : dialog_(dialog) {
  qApp->installEventFilter(this);
}

DrawingReach::~DrawingReach() {
  qApp->removeEventFilter(this);
}

// An action or shortcut that is no widget belongs to the window that has the keyboard.
bool DrawingReach::isInReach(const QObject& watched, QEvent::Type type) const {
  const auto* widget = qobject_cast<const QWidget*>(&watched);
  if (widget == nullptr) widget = QApplication::activeWindow();
  if (widget == nullptr || widget->window()->isModal()) return true;
  if (dynamic_cast<const SurfaceWidget*>(widget) != nullptr) return isPointerEvent(type);
  while (widget != nullptr && widget != &dialog_) widget = widget->parentWidget();
  return widget != nullptr;
}

// The window manager has given the keyboard to the main window.
void DrawingReach::comeBack() {
  QTimer::singleShot(0, this, [this] {
    if (dialog_.isVisible() && QApplication::activeModalWidget() == nullptr) {
      dialog_.activateWindow();
    }
  });
}

bool DrawingReach::eventFilter(QObject* watched, QEvent* event) {
  const QEvent::Type type = event->type();
  const bool closes = type == QEvent::Close && event->spontaneous();
  if (!closes && !isOperatorInput(type)) return false;
  if (!watched->isWidgetType() && type != QEvent::Shortcut) return false;
  const bool inReach = isInReach(*watched, type);
  const bool onDrawing = dynamic_cast<SurfaceWidget*>(watched) != nullptr;
  if (isPress(type) && (onDrawing || !inReach)) comeBack();
  if (inReach) return false;
  if (closes) event->ignore();
  if (closes || isPress(type)) QApplication::beep();
  return true;
}

}  // namespace tess
