// Reading layouts.
#include "shell/qt/tab_order.h"

#include <QGridLayout>
#include <QScrollArea>
#include <QVariant>
#include <algorithm>
#include <tuple>

namespace tess {

namespace {

constexpr char kTabLater[] = "tabLater";

void read(const QLayout& layout, std::vector<QWidget*>& order);

void read(QWidget& widget, std::vector<QWidget*>& order) {
  order.push_back(&widget);
  const auto* area = qobject_cast<const QScrollArea*>(&widget);
  if (area != nullptr && area->widget() != nullptr) return read(*area->widget(), order);
  if (widget.layout() != nullptr) read(*widget.layout(), order);
}

// Items in the order of reading: those of a grid by row and column, whatever order they came in.
std::vector<QLayoutItem*> itemsOf(const QLayout& layout) {
  std::vector<QLayoutItem*> items;
  for (int at = 0; at < layout.count(); ++at) items.push_back(layout.itemAt(at));
  const auto* grid = qobject_cast<const QGridLayout*>(&layout);
  if (grid == nullptr) return items;
  const auto place = [&](QLayoutItem* item) {
    int row = 0;
    int column = 0;
    int rows = 0;
    int columns = 0;
    grid->getItemPosition(grid->indexOf(item), &row, &column, &rows, &columns);
    return std::tuple(row, column);
  };
  std::stable_sort(items.begin(), items.end(),
                   [&](QLayoutItem* a, QLayoutItem* b) { return place(a) < place(b); });
  return items;
}

void read(const QLayout& layout, std::vector<QWidget*>& order) {
  for (QLayoutItem* item : itemsOf(layout)) {
    if (item->widget() != nullptr) {
      read(*item->widget(), order);
    } else if (item->layout() != nullptr) {
      read(*item->layout(), order);
    }
  }
}

}  // namespace

std::vector<QWidget*> readingOrder(const QWidget& root) {
  std::vector<QWidget*> order;
  if (root.layout() != nullptr) read(*root.layout(), order);
  std::stable_partition(order.begin(), order.end(),
                        [](QWidget* widget) { return !widget->property(kTabLater).toBool(); });
  return order;
}

void arrangeTabOrder(const QWidget& root) {
  QWidget* before = nullptr;
  for (QWidget* widget : readingOrder(root)) {
    if ((widget->focusPolicy() & Qt::TabFocus) == 0) continue;
    if (before != nullptr) QWidget::setTabOrder(before, widget);
    before = widget;
  }
}

}  // namespace tess
