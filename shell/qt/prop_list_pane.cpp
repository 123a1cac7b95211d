// The list of named values.
#include "shell/qt/prop_list_pane.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>

namespace tess {

namespace {

constexpr int kTextMargin = 6;
constexpr int kEditorMargin = 3;  // so that a text stays where it was
constexpr int kRowMargin = 5;     // above and below a text
constexpr int kRowsWanted = 9;
constexpr int kNoRow = -2;  // a key that moves nothing
constexpr int kRowsPerNotch = 1;

Rgb rgbOf(const QColor& color) {
  return color.red() | color.green() << 8 | color.blue() << 16;
}

QColor colorOf(Rgb color) {
  return {color & 0xFF, color >> 8 & 0xFF, color >> 16 & 0xFF};
}

QRect rectOf(const Bounds& area) {
  return {area.left, area.top, area.width, area.height};
}

// The canvas of one painting.
class PainterCanvas : public PropCanvas {
 public:
  PainterCanvas(QPainter& painter, QColor lines) : painter_(painter), lines_(lines) {}

  void fill(const Bounds& area, Rgb color) override {
    painter_.fillRect(rectOf(area), colorOf(color));
  }

  // Every field has a line below it and one at its right.
  void text(const Bounds& area, const std::string& text, Rgb color, bool heading) override {
    const QRect field = rectOf(area);
    painter_.setPen(lines_);
    painter_.drawLine(field.bottomLeft(), field.bottomRight());
    painter_.drawLine(field.topRight(), field.bottomRight());
    QFont font = painter_.font();
    font.setBold(heading);
    painter_.setFont(font);
    painter_.setPen(colorOf(color));
    const QRect inner = field.adjusted(kTextMargin, 0, -kTextMargin, 0);
    const QString shown = painter_.fontMetrics().elidedText(QString::fromStdString(text),
                                                            Qt::ElideRight, inner.width());
    painter_.drawText(inner, Qt::AlignLeft | Qt::AlignVCenter, shown);
  }

 private:
  QPainter& painter_;
  QColor lines_;
};

}  // namespace

PropListPane::PropListPane(QWidget* parent) : QWidget(parent) {
  setFocusPolicy(Qt::StrongFocus);
}

void PropListPane::setModel(PropList* model) {
  model_ = model;
  if (QLineEdit* const field = editor(); field != nullptr && !watchesEditor_) {
    field->installEventFilter(this);
    field->setFrame(false);
    field->setTextMargins(kEditorMargin, 0, 0, 0);
    watchesEditor_ = true;
  }
  takeMetrics();
}

QSize PropListPane::sizeHint() const {
  return {fontMetrics().averageCharWidth() * 34, rowHeight() * kRowsWanted};
}

int PropListPane::rowHeight() const {
  return fontMetrics().height() + 2 * kRowMargin;
}

void PropListPane::takeMetrics() {
  if (model_ == nullptr) return;
  model_->PropListItems().setMetrics(width(), height(), rowHeight());
  showRows();
}

void PropListPane::showRows() {
  placeEditor();
  update();
}

void PropListPane::placeEditor() {
  QLineEdit* const field = editor();
  const CPropListItem* const row =
      model_ == nullptr ? nullptr : std::as_const(*model_).PropListItems().SelectedItem();
  if (field == nullptr || row == nullptr) return;
  field->setGeometry(rectOf(row->valueField()).adjusted(1, 0, -1, -1));
}

PropColors PropListPane::colors() const {
  const QPalette& theme = palette();
  const QPalette::ColorGroup group = QPalette::Active;
  return {.ForeColor = rgbOf(theme.color(group, QPalette::Text)),
          .BackColor = rgbOf(theme.color(group, QPalette::Base)),
          .ForeColorSelected = rgbOf(theme.color(group, QPalette::HighlightedText)),
          .BackColorSelected = rgbOf(theme.color(group, QPalette::Highlight)),
          .ForeColorDisabled = rgbOf(theme.color(QPalette::Disabled, QPalette::Text)),
          .BackColorCategory = rgbOf(theme.color(group, QPalette::Window))};
}

void PropListPane::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.fillRect(rect(), palette().color(QPalette::Active, QPalette::Base));
  if (model_ == nullptr) return;
  PainterCanvas canvas(painter, palette().color(QPalette::Active, QPalette::Mid));
  std::as_const(*model_).PropListItems().Paint(canvas, colors());
}

void PropListPane::resizeEvent(QResizeEvent* /*event*/) {
  takeMetrics();
}

void PropListPane::changeEvent(QEvent* event) {
  if (event->type() == QEvent::FontChange) takeMetrics();
  QWidget::changeEvent(event);
}

void PropListPane::pick(int row) {
  if (row >= 0 && onPick) onPick(row);
}

// A click on a value begins its editing.
void PropListPane::mousePressEvent(QMouseEvent* event) {
  if (model_ == nullptr) return;
  const QPoint at = event->position().toPoint();
  const PropField field = model_->PropListItems().HitTestField(at.x(), at.y());
  pick(model_->PropListItems().HitTest(at.x(), at.y()));
  if (field == PropField::Value && onOpen) onOpen();
}

void PropListPane::wheelEvent(QWheelEvent* event) {
  if (model_ == nullptr) return;
  model_->PropListItems().Scroll(event->angleDelta().y() > 0 ? -kRowsPerNotch : kRowsPerNotch);
  showRows();
  event->accept();
}

int PropListPane::rowOf(const QKeyEvent& key) const {
  const CPropListItems& rows = std::as_const(*model_).PropListItems();
  switch (key.key()) {
    case Qt::Key_Up:
      return rows.SelectPrev();
    case Qt::Key_Down:
      return rows.SelectNext();
    case Qt::Key_Home:
      return rows.SelectFirst();
    case Qt::Key_End:
      return rows.SelectLast();
    default:
      return kNoRow;
  }
}

// They come from the value too, where they are none of the field's own.
void PropListPane::keyPressEvent(QKeyEvent* event) {
  if (model_ == nullptr) return;
  const QLineEdit* const field = editor();
  const bool edits = field != nullptr && field->hasFocus();
  const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  if (const int row = rowOf(*event); row != kNoRow) {
    pick(row);
  } else if (enter && edits) {
    pick(model_->index());
  } else if (enter && onOpen) {
    onOpen();
  } else if (event->key() == Qt::Key_Escape && edits && onRestore) {
    onRestore();
  } else if (!edits && !event->text().isEmpty() && event->text().at(0).isPrint()) {
    typeInto(*event);
  } else {
    event->ignore();
  }
}

// A letter over a chosen row begins its value anew.
void PropListPane::typeInto(QKeyEvent& key) {
  if (onOpen) onOpen();
  QLineEdit* const field = editor();
  if (field == nullptr || !field->hasFocus()) return;
  field->selectAll();
  QApplication::sendEvent(field, &key);
}

bool PropListPane::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::FocusOut) {
    const Qt::FocusReason reason = static_cast<QFocusEvent*>(event)->reason();
    const bool stays = reason == Qt::ActiveWindowFocusReason || reason == Qt::PopupFocusReason;
    const QWidget* const next = QApplication::focusWidget();
    const bool within = next != nullptr && parentWidget()->parentWidget() != nullptr &&
                        parentWidget()->parentWidget()->isAncestorOf(next);
    if (!stays && !within && onLeft) onLeft();
  }
  return QWidget::eventFilter(watched, event);
}

}  // namespace tess
