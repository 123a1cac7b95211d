// The line in which positions are typed.
#include "shell/qt/position_line.h"

#include <QKeyEvent>

namespace tess {

namespace {

// Letters are commands on the drawing, and plus and minus may be: these are not.
constexpr char kBeginnings[] = "0123456789.@(";
// One that is too long is told, not cut; of what the toolkit can lay out only in many seconds, as a
// file on the clipboard, the beginning is enough to tell.
constexpr int kLongestText = 100000;
constexpr int kLetters = 31;

}  // namespace

PositionLine::PositionLine(QWidget* parent) : QLineEdit(parent) {
  setObjectName("txtPosition");
  setMaxLength(kLongestText);
  setPlaceholderText("x,y  @dx,dy  @length<angle");
  setToolTip(
      "A position for the next click: x,y or @dx,dy or @length<angle from the marker, with "
      "sums such as 25.4/2.\nEnter clicks there, Shift+Enter puts the marker there.");
  setAccessibleName("Position");
  setAccessibleDescription(toolTip());
  setFixedWidth(kLetters * fontMetrics().averageCharWidth());
  connect(this, &QLineEdit::textEdited, this, [this] {
    if (onEdited) onEdited();
  });
}

bool PositionLine::begin(const QKeyEvent& key) {
  const bool plain = (key.modifiers() & (Qt::ControlModifier | Qt::AltModifier)) == 0;
  const QString text = key.text();
  if (!plain || text.size() != 1 || !QString(kBeginnings).contains(text)) return false;
  begunOnDrawing_ = true;
  setFocus(Qt::OtherFocusReason);
  // What was refused or left half typed would stand before the digit and make another place of it.
  setText(text);
  if (onEdited) onEdited();
  return true;
}

void PositionLine::keyPressEvent(QKeyEvent* event) {
  switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
      return enter(event->modifiers().testFlag(Qt::ShiftModifier));
    case Qt::Key_Escape:
      return leave();
    default:
      break;
  }
  QLineEdit::keyPressEvent(event);
  // What a field leaves of its keys is no command of the drawing, but for the function keys.
  const bool function = event->key() >= Qt::Key_F1 && event->key() <= Qt::Key_F35;
  if (!function) event->accept();
}

void PositionLine::enter(bool rightButton) {
  if (!onEntered || !onEntered(text(), rightButton)) return selectAll();
  clear();
  if (begunOnDrawing_) leave();
}

void PositionLine::leave() {
  begunOnDrawing_ = false;
  clear();
  if (onEdited) onEdited();
  if (onLeft) onLeft();
}

}  // namespace tess
