// Drawing rows in small.
#include "shell/qt/rows_pane.h"

#include <QPainter>
#include <algorithm>
#include <cmath>
#include <numbers>

namespace tess {

namespace {

constexpr double kMargin = 8;  // pixels
constexpr double kDegrees = 180 / std::numbers::pi;

bool isFinite(const SegmentRow& row) {
  return std::isfinite(row.x0 + row.y0 + row.x1 + row.y1 + row.xc + row.yc);
}

// The angle from the start to the end in the direction of the row: a whole turn where they meet.
double sweepOf(const SegmentRow& row, double start) {
  const double end = std::atan2(row.y1 - row.yc, row.x1 - row.xc);
  const double turn = 2 * std::numbers::pi;
  if (row.x0 == row.x1 && row.y0 == row.y1) return turn;
  double sweep = std::fmod(end - start + turn, turn);
  if (row.type == kClockwiseArc) sweep -= turn;
  return sweep;
}

// The painter counts angles with y downward.
void addArc(QPainterPath& path, const SegmentRow& row) {
  const double radius = std::hypot(row.x0 - row.xc, row.y0 - row.yc);
  const double start = std::atan2(row.y0 - row.yc, row.x0 - row.xc);
  const QRectF round(row.xc - radius, row.yc - radius, 2 * radius, 2 * radius);
  path.moveTo(row.x0, row.y0);
  path.arcTo(round, -start * kDegrees, -sweepOf(row, start) * kDegrees);
}

void add(QPainterPath& path, const SegmentRow& row) {
  if (!isFinite(row)) return;
  if (row.type == kLine) {
    path.moveTo(row.x0, row.y0);
    path.lineTo(row.x1, row.y1);
  } else if (row.type == kRectangle) {
    path.addRect(QRectF(QPointF(row.x0, row.y0), QPointF(row.x1, row.y1)).normalized());
  } else {
    addArc(path, row);
  }
}

}  // namespace

RowsPane::RowsPane(QWidget* parent) : QFrame(parent) {
  setFrameShape(QFrame::StyledPanel);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

void RowsPane::show(const PreviewRows& rows) {
  outline_ = QPainterPath();
  for (const SegmentRow& row : rows.rows) add(outline_, row);
  note_ = QString::fromStdString(rows.note);
  setAccessibleDescription(note_);
  update();
}

void RowsPane::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.fillRect(rect(), palette().color(QPalette::Base));
  drawFrame(&painter);
  painter.setPen(palette().color(QPalette::Text));
  const QRectF inside = QRectF(rect()).adjusted(kMargin, kMargin, -kMargin, -kMargin);
  QRectF text;
  const int flags = Qt::AlignBottom | Qt::AlignHCenter | Qt::TextWordWrap;
  painter.drawText(inside, flags, note_, &text);
  const QRectF box = outline_.boundingRect();
  const QRectF room = inside.adjusted(0, 0, 0, -text.height() - kMargin);
  const double largest = std::max({box.width() / room.width(), box.height() / room.height(), 0.0});
  if (outline_.isEmpty() || largest <= 0 || !room.isValid()) return;
  painter.translate(room.center());
  painter.scale(1 / largest, -1 / largest);
  painter.translate(-box.center());
  painter.setPen(QPen(palette().color(QPalette::Text), 0));
  painter.drawPath(outline_);
}

}  // namespace tess
