// Drawing rows in small, as large as the pane lets them be, and a line of text below.
// Owns: RowsPane.
#pragma once

#include <QFrame>
#include <QPainterPath>

#include "core/drawing_preview.h"

namespace tess {

class RowsPane : public QFrame {
 public:
  explicit RowsPane(QWidget* parent);

  void show(const PreviewRows& rows);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QPainterPath outline_;  // in drawing units, y upward
  QString note_;
};

}  // namespace tess
