// Long lists: of their items only those are made that are seen.
// Owns: ItemsModel, ItemsBinding.
#pragma once

#include <QAbstractItemView>
#include <QAbstractTableModel>
#include <QStringList>

#include "core/controls.h"
#include "shell/qt/control_binding.h"

namespace tess {

// The items of a list, with what stands between tabs in columns where there are headings.
class ItemsModel : public QAbstractTableModel {
 public:
  ItemsModel(const ListBox& list, QObject* parent) : QAbstractTableModel(parent), list_(&list) {}

  void setHeadings(const QString& headings);
  // Takes over what the list has now.
  void update();
  // Nothing is in it from now on.
  void forgetList();

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

 private:
  QString textAt(int row, int column) const;

  const ListBox* list_;
  QStringList headings_;
  int rows_ = 0;
};

// A list as a view of the toolkit that asks for what it shows: a QListView, or a QTableView, whose
// headings are the list's caption.
class ItemsBinding : public ControlBinding {
 public:
  ItemsBinding(Control& control, QAbstractItemView& view, FormActions& actions);

 protected:
  void showCaption(const QString& caption) override;
  void showOwn(Property property) override;
  void forgetModel() override { items_->forgetList(); }

 private:
  void fitColumns();
  void makeCurrent(const QModelIndex& item);
  void pick(int row);

  ListBox& list_;
  QAbstractItemView& view_;
  ItemsModel* items_;
  unsigned shownRevision_ = 0;
  bool showing_ = false;
};

}  // namespace tess
