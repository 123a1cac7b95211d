// Views of long lists.
#include "shell/qt/items_binding.h"

#include <QHeaderView>
#include <QItemSelectionModel>
#include <QScrollBar>
#include <QTableView>
#include <algorithm>

namespace tess {

namespace {

constexpr int kLineGap = 6;     // between the lines of a table, in pixels
constexpr int kColumnGap = 14;  // beside the widest text of a column, in pixels
constexpr char kWidestNumber[] = "-88.8888";
constexpr char kWidestCount[] = "30000";

// Whole rows in one size, so that none has to be measured.
void setUpTable(QTableView& table) {
  table.verticalHeader()->hide();
  table.verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  table.verticalHeader()->setDefaultSectionSize(table.fontMetrics().height() + kLineGap);
  table.horizontalHeader()->setHighlightSections(false);
  table.horizontalHeader()->setStretchLastSection(true);
  table.setSelectionBehavior(QAbstractItemView::SelectRows);
  table.setShowGrid(false);
  table.setWordWrap(false);
  table.setTabKeyNavigation(false);
}

}  // namespace

void ItemsModel::setHeadings(const QString& headings) {
  const QStringList wanted = headings.isEmpty() ? QStringList() : headings.split('\t');
  if (wanted == headings_) return;
  beginResetModel();
  headings_ = wanted;
  endResetModel();
}

void ItemsModel::update() {
  const int count = list_->count();
  if (count < rows_) {
    beginRemoveRows({}, count, rows_ - 1);
    rows_ = count;
    endRemoveRows();
  } else if (count > rows_) {
    beginInsertRows({}, rows_, count - 1);
    rows_ = count;
    endInsertRows();
  }
  if (rows_ > 0) emit dataChanged(index(0, 0), index(rows_ - 1, columnCount() - 1));
}

void ItemsModel::forgetList() {
  beginResetModel();
  list_ = nullptr;
  rows_ = 0;
  endResetModel();
}

int ItemsModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : rows_;
}

int ItemsModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : std::max<int>(1, static_cast<int>(headings_.size()));
}

// The list may have become shorter before it told.
QString ItemsModel::textAt(int row, int column) const {
  if (list_ == nullptr || row < 0 || row >= list_->count()) return {};
  const QString text = QString::fromStdString(list_->item(row));
  return headings_.isEmpty() ? text : text.section('\t', column, column);
}

QVariant ItemsModel::data(const QModelIndex& index, int role) const {
  if (role == Qt::DisplayRole) return textAt(index.row(), index.column());
  if (role != Qt::TextAlignmentRole || headings_.isEmpty()) return {};
  bool isNumber = false;
  textAt(index.row(), index.column()).toDouble(&isNumber);
  return int(isNumber ? Qt::AlignRight | Qt::AlignVCenter : Qt::AlignLeft | Qt::AlignVCenter);
}

QVariant ItemsModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal || role != Qt::DisplayRole) return {};
  return section < headings_.size() ? headings_[section] : QString();
}

ItemsBinding::ItemsBinding(Control& control, QAbstractItemView& view, FormActions& actions)
    : ControlBinding(control, view, actions),
      list_(static_cast<ListBox&>(control)),
      view_(view),
      items_(new ItemsModel(list_, this)) {
  view.setModel(items_);
  view.setSelectionMode(QAbstractItemView::SingleSelection);
  view.setEditTriggers(QAbstractItemView::NoEditTriggers);
  if (auto* table = qobject_cast<QTableView*>(&view)) setUpTable(*table);
  connect(view.selectionModel(), &QItemSelectionModel::currentRowChanged, this,
          [this](const QModelIndex& current) { pick(current.row()); });
  connect(&view, &QAbstractItemView::doubleClicked, this, [this](const QModelIndex& index) {
    act("DblClick", [&] {
      if (list_.pick(index.row())) list_.open();
    });
  });
}

void ItemsBinding::showCaption(const QString& caption) {
  items_->setHeadings(caption);
  fitColumns();
}

// By what a column can hold: the widths of thirty thousand rows are not measured.
void ItemsBinding::fitColumns() {
  auto* table = qobject_cast<QTableView*>(&view_);
  if (table == nullptr) return;
  const QFontMetrics letters(table->font());
  int whole = 2 * table->frameWidth() + table->verticalScrollBar()->sizeHint().width();
  for (int column = 0; column < items_->columnCount(); ++column) {
    const QString heading = items_->headerData(column, Qt::Horizontal, Qt::DisplayRole).toString();
    const char* const widest = column < 3 ? kWidestCount : kWidestNumber;
    const int width =
        std::max(letters.horizontalAdvance(heading), letters.horizontalAdvance(widest));
    table->setColumnWidth(column, width + kColumnGap);
    whole += width + kColumnGap;
  }
  table->setMinimumWidth(whole);
}

void ItemsBinding::showOwn(Property property) {
  if (property != Property::Items && property != Property::Index) return;
  showing_ = true;
  if (shownRevision_ != list_.revision()) {
    shownRevision_ = list_.revision();
    items_->update();
  }
  const QModelIndex wanted = items_->index(list_.index(), 0);
  if (view_.currentIndex().row() != wanted.row()) makeCurrent(wanted);
  showing_ = false;
}

// An item out of sight comes to the middle, with its neighbours on both sides.
void ItemsBinding::makeCurrent(const QModelIndex& item) {
  const bool inSight = view_.viewport()->rect().contains(view_.visualRect(item).center());
  view_.setCurrentIndex(item);
  if (item.isValid() && !inSight) view_.scrollTo(item, QAbstractItemView::PositionAtCenter);
}

void ItemsBinding::pick(int row) {
  if (showing_ || row < 0 || row == list_.index()) return;
  act("Click", [&] { list_.pick(row); });
}

}  // namespace tess
