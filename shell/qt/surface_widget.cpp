// From the toolkit's events to drawing units, and from the picture to the screen.
#include "shell/qt/surface_widget.h"

#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QTimer>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>
#include <utility>

namespace tess {

namespace {

constexpr int kWheelStep = 120;      // eighths of a degree times 15
constexpr int kMostTurned = 120000;  // in one event; some devices report nonsense

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
  drawing_.onFrameRequested = [this] { return requestFrame(); };
}

// Behind the events that have come already, so that a key that is held down is not waited for.
bool SurfaceWidget::requestFrame() {
  if (!onFrame || !isVisible()) return false;
  QTimer::singleShot(0, this, [this] { onFrame(); });
  return true;
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
  QPainter painter(this);
  if (drawing_.isEmpty()) return painter.fillRect(rect(), drawing_.ground());
  const QImage& picture = drawing_.picture();
  // The same pixels under the screen's density, without a copy.
  QImage shown(picture.constBits(), picture.width(), picture.height(), picture.bytesPerLine(),
               picture.format());
  shown.setDevicePixelRatio(drawing_.density());
  painter.setCompositionMode(QPainter::CompositionMode_Source);
  const QSizeF covered = shown.deviceIndependentSize();
  if (covered.width() < width() || covered.height() < height()) {
    painter.fillRect(rect(), QColor::fromRgb(picture.pixel(picture.width() - 1, 0)));
  }
  painter.drawImage(0, 0, shown);
  if (cutter_) paintCutter(painter);
}

// ---- Cutter

// A ring of the cutter's size, in pixels, with room for its pen; never too small to be seen.
QRectF SurfaceWidget::cutterBounds() const {
  constexpr double kLeast = 3;
  constexpr double kMost = 1e5;  // the painter's own limit lies somewhat above
  const PixelPoint center = drawing_.toPixels(cutter_->at.x, cutter_->at.y);
  const PixelPoint edge = drawing_.toPixels(cutter_->at.x + cutter_->radius, cutter_->at.y);
  if (!std::isfinite(center.x) || !std::isfinite(center.y)) return {};
  const double radius = std::clamp(std::abs(edge.x - center.x), kLeast, kMost);
  return {center.x - radius, center.y - radius, 2 * radius, 2 * radius};
}

void SurfaceWidget::showCutter(const std::optional<CutterPlace>& place) {
  constexpr int kPen = 3;
  const auto updateCutter = [this] {
    if (cutter_) update(cutterBounds().toAlignedRect().adjusted(-kPen, -kPen, kPen, kPen));
  };
  updateCutter();
  cutter_ = place;
  updateCutter();
}

// Over the picture and not in it: it moves without any row being painted.
void SurfaceWidget::paintCutter(QPainter& painter) const {
  const QRectF ring = cutterBounds();
  if (ring.isEmpty()) return;
  QColor ink = palette().color(QPalette::Highlight);
  painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(ink, 2, cutter_->isRapid ? Qt::DashLine : Qt::SolidLine));
  ink.setAlphaF(cutter_->isRapid ? 0 : 0.25F);
  painter.setBrush(ink);
  painter.drawEllipse(ring);
}

void SurfaceWidget::report(const PointerHandler& handler, int button, const QMouseEvent& event) {
  if (!handler) return;
  const Point at = drawing_.toWorld(event.position().x(), event.position().y());
  handler(button, shiftOf(event.modifiers()), at.x, at.y);
}

// ---- Motions

namespace {

constexpr int kWhileBusy = 10;  // milliseconds

bool holds(const std::function<bool()>& condition) {
  return condition && condition();
}

}  // namespace

// While one is carried out others may come in, faster than the drawing can follow: the operator
// wants to see where the pointer is, not where it was. They are taken together as soon as all that
// has come in was looked at, which is when the toolkit comes to what is posted now.
void SurfaceWidget::settleLater() {
  QTimer::singleShot(holds(isBusy) ? kWhileBusy : 0, this, [this] { settle(); });
}

void SurfaceWidget::settle() {
  if (holds(isBusy)) return settleLater();
  settling_ = false;
  carryOutWaiting();
}

// In the order in which they came: a turn that comes after a motion does not wait with it.
void SurfaceWidget::carryOutWaiting() {
  if (const auto turned = std::exchange(waitingTurn_, nullptr)) {
    turn(std::exchange(waitingSteps_, 0), *turned);
  }
  if (const auto motion = std::exchange(waitingMotion_, nullptr)) carryOut(*motion);
}

void SurfaceWidget::carryOut(const QMouseEvent& motion) {
  const bool settlesAlready = std::exchange(settling_, true);
  if (panning_) {
    const bool held = motion.buttons().testFlag(Qt::MiddleButton);
    pan(held ? PanPhase::Move : PanPhase::End, motion);
  } else {
    report(onMove, buttonsOf(motion.buttons()), motion);
  }
  if (!settlesAlready) settleLater();
}

void SurfaceWidget::turn(int steps, const QWheelEvent& event) {
  const bool settlesAlready = std::exchange(settling_, true);
  if (onWheel) {
    onWheel(steps, shiftOf(event.modifiers()),
            drawing_.toWorld(event.position().x(), event.position().y()));
  }
  if (!settlesAlready) settleLater();
}

void SurfaceWidget::pan(PanPhase phase, const QMouseEvent& event) {
  panning_ = phase != PanPhase::End;
  if (onPan) onPan(phase, drawing_.toWorld(event.position().x(), event.position().y()));
}

void SurfaceWidget::mousePressEvent(QMouseEvent* event) {
  carryOutWaiting();
  if (event->button() == Qt::MiddleButton) return pan(PanPhase::Begin, *event);
  const int button = buttonOf(event->button());
  if (button == 0 || !drawing_.Enabled()) return;
  dragging_ = true;
  report(onPress, button, *event);
}

void SurfaceWidget::mouseMoveEvent(QMouseEvent* event) {
  if (!dragging_ && !panning_ && !drawing_.Enabled()) return;
  const bool waits = settling_ && !holds(wantsEachMotion);
  if (!waits) carryOutWaiting();
  if (!waits) return carryOut(*event);
  waitingMotion_.reset(event->clone());
}

void SurfaceWidget::mouseReleaseEvent(QMouseEvent* event) {
  carryOutWaiting();
  if (event->button() == Qt::MiddleButton) {
    if (panning_) pan(PanPhase::End, *event);
    return;
  }
  const int button = buttonOf(event->button());
  if (button == 0 || (!dragging_ && !drawing_.Enabled())) return;
  dragging_ = buttonsOf(event->buttons()) != 0;
  report(onRelease, button, *event);
}

void SurfaceWidget::wheelEvent(QWheelEvent* event) {
  const bool waits = settling_ && holds(sumsTurns);
  if (waitingMotion_ || !waits) carryOutWaiting();
  wheelRest_ += std::clamp(event->angleDelta().y(), -kMostTurned, kMostTurned);
  const int steps = wheelRest_ / kWheelStep;
  wheelRest_ -= steps * kWheelStep;
  if (steps == 0) return;
  if (!waits) return turn(steps, *event);
  waitingSteps_ = std::clamp(waitingSteps_ + steps, -kMostTurned, kMostTurned);
  waitingTurn_.reset(event->clone());
}

bool SurfaceWidget::handleKey(const QKeyEvent& key) {
  carryOutWaiting();
  return onKey && onKey(key);
}

void SurfaceWidget::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() == QEvent::PaletteChange && onThemeChanged) onThemeChanged();
}

// What follows on another widget comes after what was meant here.
void SurfaceWidget::leaveEvent(QEvent* event) {
  carryOutWaiting();
  QWidget::leaveEvent(event);
  if (!dragging_ && !panning_ && onLeave) onLeave();
}

void SurfaceWidget::keyPressEvent(QKeyEvent* event) {
  if (!handleKey(*event)) QWidget::keyPressEvent(event);
}

}  // namespace tess
