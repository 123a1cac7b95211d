// The unit that stands inside a field behind its figure.
// Owns: UnitMark, UnitMarks.
#pragma once

#include <QLabel>
#include <QLineEdit>
#include <functional>
#include <vector>

namespace tess {

// In the field, at its right end. What the field's property `unit` says decides: "length" and
// "feed" go by the drawing, any other word is the unit itself.
class UnitMark : public QLabel {
 public:
  explicit UnitMark(QLineEdit& field);
  void show(bool metric);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void place();

  QLineEdit& field_;
  const QString unit_;
  const int leastWidth_;  // of the field without the mark
};

// Those of all fields below a form's root that have that property. Where the root's property
// `metricOption` names a radio button, that one decides instead of the drawing.
class UnitMarks {
 public:
  // Without `isMetric` there are none.
  UnitMarks(QWidget& root, std::function<bool()> isMetric);
  void show();

 private:
  bool isMetric() const;

  QWidget& root_;
  std::function<bool()> drawingIsMetric_;
  std::vector<UnitMark*> marks_;  // the fields'
};

}  // namespace tess
