// The holes of a bolt circle in small.
#include "shell/qt/bolt_pane.h"

#include <QFontMetricsF>
#include <QPainter>
#include <algorithm>

namespace tess {

namespace {

constexpr double kMargin = 6;        // round everything that is painted, in pixels
constexpr double kSmallestHole = 2;  // pixels: a hole of no width is still to be seen
constexpr double kTextGap = 2;

QPointF placeOf(const BoltMark& mark, double scale) {
  return {mark.x * scale, -mark.y * scale};
}

}  // namespace

BoltPane::BoltPane(QWidget* parent) : QFrame(parent) {
  setFrameShape(QFrame::StyledPanel);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

void BoltPane::show(const std::vector<BoltMark>& marks) {
  marks_ = marks;
  update();
}

double BoltPane::pixelsPerUnit() const {
  const double hole = marks_.empty() ? 0 : std::max(marks_.front().radius, 0.0);
  const double reach = std::min(width(), height()) / 2.0 - kMargin;
  return std::max(reach, 1.0) / (kBoltFrame + hole);
}

void BoltPane::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.fillRect(rect(), palette().color(QPalette::Base));
  drawFrame(&painter);
  if (marks_.empty()) return;
  painter.translate(width() / 2.0, height() / 2.0);
  const double radius = kBoltFrame * pixelsPerUnit();
  painter.setPen(QPen(palette().color(QPalette::Mid), 1, Qt::DashLine));
  painter.drawEllipse(QPointF(), radius, radius);
  for (const BoltMark& mark : marks_) paintMark(painter, mark, &mark == &marks_.front());
  for (const BoltMark& mark : marks_) paintText(painter, mark);
}

void BoltPane::paintMark(QPainter& painter, const BoltMark& mark, bool isFirst) const {
  const double scale = pixelsPerUnit();
  const double radius = std::max(mark.radius * scale, kSmallestHole);
  painter.setPen(QPen(palette().color(QPalette::Text), 1));
  painter.setBrush(Qt::NoBrush);
  painter.drawEllipse(placeOf(mark, scale), radius, radius);
  if (!isFirst) return;
  painter.setPen(Qt::NoPen);
  painter.setBrush(palette().color(QPalette::Highlight));
  painter.drawEllipse(placeOf(mark, scale), radius / 2, radius / 2);
}

// Below its hole, and never beyond the edge of the picture.
void BoltPane::paintText(QPainter& painter, const BoltMark& mark) const {
  if (mark.text.empty()) return;
  const double scale = pixelsPerUnit();
  const QPointF hole = placeOf(mark, scale);
  const QString text = QString::fromStdString(mark.text);
  const QSizeF size = QFontMetricsF(font()).size(0, text);
  const double mostX = std::max(width() / 2.0 - size.width(), -width() / 2.0);
  const double mostY = height() / 2.0 - size.height();
  const double below = hole.y() + std::max(mark.radius * scale, kSmallestHole) + kTextGap;
  const QPointF corner(std::clamp(hole.x() - size.width() / 2, -width() / 2.0, mostX),
                       std::min(below, mostY));
  painter.setPen(palette().color(QPalette::Text));
  painter.drawText(QRectF(corner, size), Qt::AlignCenter, text);
}

}  // namespace tess
