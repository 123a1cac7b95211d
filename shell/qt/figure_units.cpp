// Units behind figures.
#include "shell/qt/figure_units.h"

#include <QEvent>
#include <QRadioButton>
#include <QVariant>
#include <algorithm>
#include <utility>

namespace tess {

namespace {

constexpr char kUnit[] = "unit";
constexpr char kMetricOption[] = "metricOption";
constexpr int kGap = 6;          // pixels on either side of the mark
constexpr int kFigureWidth = 9;  // digits that have room beside it

// The word and how it is spoken.
struct Unit {
  QString shown;
  QString spoken;
};

Unit unitOf(const QString& kind, bool metric) {
  if (kind == "length") return metric ? Unit{"mm", "millimetres"} : Unit{"in", "inches"};
  if (kind == "feed") {
    return metric ? Unit{"mm/min", "millimetres per minute"} : Unit{"in/min", "inches per minute"};
  }
  return {kind, kind == "°" ? "degrees" : kind == "%" ? "per cent" : kind};
}

}  // namespace

UnitMark::UnitMark(QLineEdit& field)
    : QLabel(&field),
      field_(field),
      unit_(field.property(kUnit).toString()),
      leastWidth_(field.minimumWidth()) {
  setObjectName(field.objectName() + "_unit");
  setAttribute(Qt::WA_TransparentForMouseEvents);
  setForegroundRole(QPalette::PlaceholderText);
  field.installEventFilter(this);
  QLabel::show();
}

// The field keeps room for a whole figure beside the mark.
void UnitMark::show(bool metric) {
  const Unit unit = unitOf(unit_, metric);
  if (unit.shown == text()) return;
  setText(unit.shown);
  field_.setAccessibleDescription(unit.spoken);
  const int room = sizeHint().width() + 2 * kGap;
  field_.setTextMargins(0, 0, room - kGap, 0);
  const int figure = kFigureWidth * field_.fontMetrics().horizontalAdvance('0');
  const int width = std::max(leastWidth_, figure + room);
  field_.setMaximumWidth(std::max(field_.maximumWidth(), width));
  field_.setMinimumWidth(width);
  place();
}

void UnitMark::place() {
  const QSize size = sizeHint();
  setGeometry(field_.width() - size.width() - kGap, (field_.height() - size.height()) / 2,
              size.width(), size.height());
}

bool UnitMark::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::Resize) place();
  return QLabel::eventFilter(watched, event);
}

UnitMarks::UnitMarks(QWidget& root, std::function<bool()> isMetric)
    : root_(root), drawingIsMetric_(std::move(isMetric)) {
  if (!drawingIsMetric_) return;
  for (QLineEdit* field : root.findChildren<QLineEdit*>()) {
    if (field->property(kUnit).isValid()) marks_.push_back(new UnitMark(*field));
  }
  show();
}

bool UnitMarks::isMetric() const {
  const QString option = root_.property(kMetricOption).toString();
  const auto* chosen = option.isEmpty() ? nullptr : root_.findChild<QRadioButton*>(option);
  return chosen != nullptr ? chosen->isChecked() : drawingIsMetric_();
}

void UnitMarks::show() {
  if (marks_.empty()) return;
  const bool metric = isMetric();
  for (UnitMark* mark : marks_) mark->show(metric);
}

}  // namespace tess
