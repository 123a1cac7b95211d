// The arrow and its ring.
#include "shell/qt/played_pointer.h"

#include <QPainter>
#include <QPolygonF>

namespace tess {

namespace {

constexpr int kReach = 14;    // from the tip to the ring's edge, in pixels
constexpr int kExtent = 40;   // of the widget
constexpr double kRing = 12;  // its radius

QPolygonF arrow() {
  return QPolygonF({{0, 0}, {0, 17}, {4, 13.2}, {6.8, 19.6}, {9.4, 18.4}, {6.7, 12.3}, {12, 12}});
}

}  // namespace

DrawnPointer::DrawnPointer(QWidget& surface) : QWidget(&surface) {
  setAttribute(Qt::WA_TransparentForMouseEvents);
  setAttribute(Qt::WA_NoSystemBackground);
  setObjectName("drawnPointer");
  resize(kExtent, kExtent);
  hide();
}

void DrawnPointer::point(QPointF tip, bool pressed) {
  tip_ = tip;
  pressed_ = pressed;
  move((tip - QPointF(kReach, kReach)).toPoint());
  show();
  raise();
  update();
}

void DrawnPointer::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.translate(kReach, kReach);
  if (pressed_) {
    painter.setPen(QPen(palette().color(QPalette::Highlight), 2));
    painter.drawEllipse(QPointF(0, 0), kRing, kRing);
  }
  painter.setPen(QPen(Qt::black, 1));
  painter.setBrush(Qt::white);
  painter.drawPolygon(arrow());
}

}  // namespace tess
