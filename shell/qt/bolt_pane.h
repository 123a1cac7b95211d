// The holes of a bolt circle in small: the circle, the holes on it, and a mark on the first one.
// Owns: BoltPane.
#pragma once

#include <QFrame>
#include <vector>

#include "toolpath/BoltCircle.h"

class QPainter;

namespace tess {

class BoltPane : public QFrame {
 public:
  explicit BoltPane(QWidget* parent);

  void show(const std::vector<BoltMark>& marks);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  double pixelsPerUnit() const;
  void paintMark(QPainter& painter, const BoltMark& mark, bool isFirst) const;
  void paintText(QPainter& painter, const BoltMark& mark) const;

  std::vector<BoltMark> marks_;
};

}  // namespace tess
