// From the toolkit's events to drawing units, and from the picture to the screen.
#include "shell/qt/surface_widget.h"

#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QWheelEvent>

namespace tess {

namespace {

constexpr int kWheelStep = 120;  // eighths of a degree times 15

int shiftOf(Qt::KeyboardModifiers modifiers) {
  return (modifiers.testFlag(Qt::ShiftModifier) ? 1 : 0) |
         (modifiers.testFlag(Qt::ControlModifier) ? 2 : 0);
}

int buttonOf(Qt::MouseButton button) {
  if (button == Qt::LeftButton) return 1;
  return button == Qt::RightButton ? 2 : 0;
}

int buttonsOf(Qt::MouseButtons buttons) {
  return (buttons.testFlag(Qt::LeftButton) ? 1 : 0) | (buttons.testFlag(Qt::RightButton) ? 2 : 0);
}

}  // namespace

SurfaceWidget::SurfaceWidget(QWidget* parent) : QWidget(parent) {
  setObjectName("picDrawing");
  setMouseTracking(true);
  setFocusPolicy(Qt::StrongFocus);
  setAttribute(Qt::WA_OpaquePaintEvent);
  drawing_.onPainted = [this](const QRect& box) { updateDevicePixels(box); };
  drawing_.onRefresh = [this] {
    if (isVisible()) repaint();
  };
}

// One rectangle round all that was painted: a region of thousands, as a selection leaves them,
// would take the toolkit far longer than the pixels.
void SurfaceWidget::updateDevicePixels(const QRect& box) {
  if (painted_.contains(box)) return;
  painted_ |= box;
  const double density = drawing_.density();
  const QRectF pixels(painted_.x() / density, painted_.y() / density, painted_.width() / density,
                      painted_.height() / density);
  update(pixels.toAlignedRect());
}

// The density of the screen is known for certain only when the widget paints.
bool SurfaceWidget::followDensity() {
  if (devicePixelRatioF() == drawing_.density()) return true;
  drawing_.setDensity(devicePixelRatioF());
  if (onPictureLost) {
    QMetaObject::invokeMethod(
        this, [this] { onPictureLost(); }, Qt::QueuedConnection);
  }
  return false;
}

void SurfaceWidget::paintEvent(QPaintEvent* /*event*/) {
  painted_ = QRect();
  followDensity();
  const QImage& picture = drawing_.picture();
  // The same pixels under the screen's density, without a copy.
  QImage shown(picture.constBits(), picture.width(), picture.height(), picture.bytesPerLine(),
               picture.format());
  shown.setDevicePixelRatio(drawing_.density());
  QPainter painter(this);
  painter.setCompositionMode(QPainter::CompositionMode_Source);
  const QSizeF covered = shown.deviceIndependentSize();
  if (covered.width() < width() || covered.height() < height()) {
    painter.fillRect(rect(), QColor::fromRgb(picture.pixel(picture.width() - 1, 0)));
  }
  painter.drawImage(0, 0, shown);
}

void SurfaceWidget::report(const PointerHandler& handler, int button, const QMouseEvent& event) {
  if (!handler) return;
  const Point at = drawing_.toWorld(event.position().x(), event.position().y());
  handler(button, shiftOf(event.modifiers()), at.x, at.y);
}

void SurfaceWidget::mousePressEvent(QMouseEvent* event) {
  const int button = buttonOf(event->button());
  if (button == 0 || !drawing_.Enabled()) return;
  dragging_ = true;
  report(onPress, button, *event);
}

void SurfaceWidget::mouseMoveEvent(QMouseEvent* event) {
  if (!dragging_ && !drawing_.Enabled()) return;
  report(onMove, buttonsOf(event->buttons()), *event);
}

void SurfaceWidget::mouseReleaseEvent(QMouseEvent* event) {
  const int button = buttonOf(event->button());
  if (button == 0 || (!dragging_ && !drawing_.Enabled())) return;
  dragging_ = buttonsOf(event->buttons()) != 0;
  report(onRelease, button, *event);
}

void SurfaceWidget::wheelEvent(QWheelEvent* event) {
  wheelRest_ += event->angleDelta().y();
  const int steps = wheelRest_ / kWheelStep;
  wheelRest_ -= steps * kWheelStep;
  if (steps != 0 && onWheel) onWheel(steps, shiftOf(event->modifiers()));
}

void SurfaceWidget::leaveEvent(QEvent* event) {
  QWidget::leaveEvent(event);
  if (!dragging_ && onLeave) onLeave();
}

void SurfaceWidget::keyPressEvent(QKeyEvent* event) {
  if (!handleKey(*event)) QWidget::keyPressEvent(event);
}

}  // namespace tess
