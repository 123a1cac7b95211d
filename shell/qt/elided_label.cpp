// A line of text that is cut with dots.
#include "shell/qt/elided_label.h"

#include <QAccessible>
#include <QPainter>
#include <QStyle>
#include <QStyleOption>

namespace tess {

ElidedLabel::ElidedLabel(const QString& about, QWidget* parent) : QLabel(parent) {
  setTextFormat(Qt::PlainText);
  setAccessibleDescription(about);
  setContentsMargins(6, 1, 6, 1);
}

void ElidedLabel::keepLetters(int letters) {
  letters_ = letters;
  updateGeometry();
}

void ElidedLabel::tell(const QString& text, bool alert) {
  setText(text);
  if (!alert || text.isEmpty()) return;
  QAccessibleEvent event(this, QAccessible::Alert);
  QAccessible::updateAccessibility(&event);
}

QSize ElidedLabel::minimumSizeHint() const {
  const int width = letters_ * fontMetrics().averageCharWidth();
  return {width, QLabel::minimumSizeHint().height()};
}

void ElidedLabel::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  const QRect room = contentsRect();
  const QString shown = fontMetrics().elidedText(text(), Qt::ElideRight, room.width());
  setToolTip(shown == text() ? QString() : text());
  style()->drawItemText(&painter, room, static_cast<int>(Qt::AlignVCenter | Qt::AlignLeft),
                        palette(), isEnabled(), shown, foregroundRole());
}

}  // namespace tess
