// The list of named values as a widget: it paints the rows of its model and holds the field in
// which the value of the chosen one is edited.
// Owns: PropListPane.
#pragma once

#include <QLineEdit>
#include <QWidget>
#include <functional>

#include "shell/prop_list.h"

namespace tess {

class PropListPane : public QWidget {
 public:
  explicit PropListPane(QWidget* parent = nullptr);

  // Null to begin with, and from the end of the form on.
  void setModel(PropList* model);
  // The rows, or the chosen one, are others.
  void showRows();

  // What the operator does. A row is chosen by its place; Enter opens its value or takes it over.
  std::function<void(int row)> onPick;
  std::function<void()> onOpen;
  std::function<void()> onRestore;
  std::function<void()> onLeft;  // the keyboard has gone elsewhere from the value

  QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void changeEvent(QEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  QLineEdit* editor() const { return findChild<QLineEdit*>("txtValue"); }
  int rowHeight() const;
  PropColors colors() const;
  int rowOf(const QKeyEvent& key) const;
  void pick(int row);
  void placeEditor();
  void takeMetrics();
  void typeInto(QKeyEvent& key);

  PropList* model_ = nullptr;
  bool watchesEditor_ = false;
};

}  // namespace tess
