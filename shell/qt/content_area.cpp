// Contents that scroll, and buttons that do not.
#include "shell/qt/content_area.h"

#include <QEvent>
#include <QKeyEvent>
#include <QLayout>
#include <QScrollBar>
#include <algorithm>

#include "shell/qt/form_layout.h"

namespace tess {

namespace {

// The row of a layout, however deep, that holds the widget itself.
QBoxLayout* rowOf(QLayout* layout, const QWidget* widget) {
  if (layout == nullptr) return nullptr;
  if (layout->indexOf(widget) >= 0) {
    auto* row = qobject_cast<QBoxLayout*>(layout);
    return row != nullptr && row->direction() == QBoxLayout::LeftToRight ? row : nullptr;
  }
  for (int at = 0; at < layout->count(); ++at) {
    QLayoutItem* item = layout->itemAt(at);
    QLayout* inner = item->widget() != nullptr ? item->widget()->layout() : item->layout();
    if (QBoxLayout* row = rowOf(inner, widget)) return row;
  }
  return nullptr;
}

}  // namespace

ContentArea::ContentArea(QWidget& content) : content_(content) {
  setWidget(&content);
  setFrameShape(QFrame::NoFrame);
  setFocusPolicy(Qt::NoFocus);
  content.installEventFilter(this);
}

void ContentArea::setRoom(const QSize& room) {
  room_ = room;
  // How large a content would rather be is no reason to scroll what its layout can make smaller.
  const QSize wanted = content_.minimumSize();
  if (content_.layout() != nullptr) content_.setMinimumSize(wanted.boundedTo(room));
  updateGeometry();
}

void ContentArea::setLeast(const QSize& least) {
  least_ = least;
  updateGeometry();
}

// What does not fit one way needs a scroll bar's breadth the other way.
QSize ContentArea::within(QSize wanted) const {
  const int bar = verticalScrollBar()->sizeHint().width();
  const bool tall = wanted.height() > room_.height();
  const bool broad = wanted.width() + (tall ? bar : 0) > room_.width();
  if (tall) wanted.rwidth() += bar;
  if (broad) wanted.rheight() += bar;
  return wanted.boundedTo(room_);
}

QSize ContentArea::sizeHint() const {
  return within(content_.sizeHint());
}

QSize ContentArea::minimumSizeHint() const {
  const QSize whole = within(content_.minimumSizeHint().expandedTo(content_.minimumSize()));
  return whole.boundedTo(least_);
}

bool ContentArea::hasHeightForWidth() const {
  return content_.hasHeightForWidth();
}

int ContentArea::heightForWidth(int width) const {
  const int height = std::max(content_.heightForWidth(width), content_.minimumSizeHint().height());
  return std::min(height, room_.height());
}

bool ContentArea::eventFilter(QObject* watched, QEvent* event) {
  const bool grew = watched == &content_ && event->type() == QEvent::LayoutRequest;
  const bool taken = QScrollArea::eventFilter(watched, event);
  if (grew) {
    updateGeometry();
    fitContent();
  }
  return taken;
}

void ContentArea::resizeEvent(QResizeEvent* event) {
  QScrollArea::resizeEvent(event);
  fitContent();
}

// The toolkit's own way scrolls a content with wrapped lines at the height that it would like to
// have, not at the smallest that it can do with.
void ContentArea::fitContent() {
  const QSize room = maximumViewportSize();
  QSize size = room.expandedTo({leastWidth(), leastHeight(room.width())});
  if (size.height() > room.height()) {
    const int width =
        std::max(room.width() - verticalScrollBar()->sizeHint().width(), leastWidth());
    size = {width, leastHeight(width)};
  }
  content_.resize(size);
}

int ContentArea::leastWidth() const {
  return std::max(content_.minimumSizeHint().width(), content_.minimumWidth());
}

int ContentArea::leastHeight(int width) const {
  const QLayout* const layout = content_.layout();
  const bool wraps = layout != nullptr && layout->hasHeightForWidth();
  const int height = wraps ? layout->totalMinimumHeightForWidth(std::max(width, leastWidth()))
                           : content_.minimumSizeHint().height();
  return std::max(height, content_.minimumHeight());
}

// Keys that a field leaves are the form's, not the scroll bars'.
void ContentArea::keyPressEvent(QKeyEvent* event) {
  event->ignore();
}

QLayout* takeButtonRow(const Form& form, const QWidget& root) {
  for (const Button* button : {form.cancelButton(), form.defaultButton()}) {
    if (button == nullptr) continue;
    const auto* widget = root.findChild<QWidget*>(widgetName(*button));
    QBoxLayout* row = widget == nullptr ? nullptr : rowOf(root.layout(), widget);
    if (row == nullptr || row == root.layout() || row->parent()->isWidgetType()) continue;
    static_cast<QLayout*>(row->parent())->removeItem(row);
    row->setParent(nullptr);
    return row;
  }
  return nullptr;
}

}  // namespace tess
