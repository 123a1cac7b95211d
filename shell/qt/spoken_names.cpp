// Names and roles for screen readers.
#include "shell/qt/spoken_names.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QComboBox>
#include <QGraphicsView>
#include <QKeySequence>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>
#include <QToolButton>
#include <algorithm>
#include <cstdlib>

#include "shell/qt/bolt_pane.h"
#include "shell/qt/file_text_pane.h"
#include "shell/qt/form_layout.h"
#include "shell/qt/pdf_pane.h"
#include "shell/qt/prop_list_pane.h"
#include "shell/qt/rows_pane.h"

namespace tess {

namespace {

QString readable(QString text) {
  text.remove('&');
  text = text.simplified();
  while (text.endsWith(':') || text.endsWith('.')) text.chop(1);
  return text.trimmed();
}

QString presentName(QWidget& widget) {
  QAccessibleInterface* const spoken = QAccessible::queryAccessibleInterface(&widget);
  return spoken == nullptr ? QString() : spoken->text(QAccessible::Name).trimmed();
}

// The text of the label that stands at the left of the widget, or above it.
QString textBeside(const QWidget& widget) {
  if (widget.parentWidget() == nullptr) return {};
  const QLabel* nearest = nullptr;
  int least = QWIDGETSIZE_MAX;
  const QRect place = widget.geometry();
  for (const auto* label :
       widget.parentWidget()->findChildren<QLabel*>(QString(), Qt::FindDirectChildrenOnly)) {
    const QRect other = label->geometry();
    const bool left = other.right() <= place.left() && other.bottom() >= place.top() &&
                      other.top() <= place.bottom();
    const bool above = other.bottom() <= place.top() && other.right() >= place.left() &&
                       other.left() <= place.right();
    if (label->text().isEmpty() || (!left && !above)) continue;
    const int far = left ? place.left() - other.right() : place.top() - other.bottom();
    if (far < least) nearest = label;
    least = std::min(least, far);
  }
  return nearest == nullptr ? QString() : readable(nearest->text());
}

// A pane with a role of its own.
class PaneForReaders : public QAccessibleWidget {
 public:
  using QAccessibleWidget::QAccessibleWidget;
};

// One of several options. The toolkit calls a button that does not switch its neighbours off a
// check box; here the form does that.
class OptionForReaders : public QAccessibleWidget {
 public:
  explicit OptionForReaders(QRadioButton& option)
      : QAccessibleWidget(&option, QAccessible::RadioButton), option_(option) {}

  QString text(QAccessible::Text which) const override {
    // A plain widget without a name of its own would be called by the box round it.
    if (which == QAccessible::Name && option_.accessibleName().isEmpty()) {
      return readable(option_.text());
    }
    if (which == QAccessible::Accelerator) {
      return QKeySequence::mnemonic(option_.text()).toString(QKeySequence::NativeText);
    }
    return QAccessibleWidget::text(which);
  }
  QAccessible::State state() const override {
    QAccessible::State state = QAccessibleWidget::state();
    state.checkable = true;
    state.checked = option_.isChecked();
    return state;
  }
  QStringList actionNames() const override {
    return QStringList(pressAction()) + QAccessibleWidget::actionNames();
  }
  void doAction(const QString& action) override {
    if (action != pressAction()) return QAccessibleWidget::doAction(action);
    if (option_.isEnabled()) option_.click();
  }

 private:
  QRadioButton& option_;
};

QAccessibleInterface* paneForReaders(const QString& /*className*/, QObject* object) {
  auto* widget = qobject_cast<QWidget*>(object);
  if (widget == nullptr) return nullptr;
  if (auto* option = qobject_cast<QRadioButton*>(widget)) return new OptionForReaders(*option);
  const bool picture =
      dynamic_cast<RowsPane*>(widget) != nullptr || dynamic_cast<BoltPane*>(widget) != nullptr;
  if (picture) return new PaneForReaders(widget, QAccessible::Graphic);
  if (dynamic_cast<PropListPane*>(widget) != nullptr) {
    return new PaneForReaders(widget, QAccessible::List);
  }
  if (dynamic_cast<FileTextPane*>(widget) != nullptr || dynamic_cast<PdfPane*>(widget) != nullptr) {
    return new PaneForReaders(widget, QAccessible::Document);
  }
  return nullptr;
}

// The toolkit calls a drop-down list by its choice; what it is for is its label's relation to it.
bool lacksLabel(QWidget& widget) {
  QAccessibleInterface* const spoken = QAccessible::queryAccessibleInterface(&widget);
  return qobject_cast<QComboBox*>(&widget) != nullptr && spoken != nullptr &&
         spoken->relations(QAccessible::Label).isEmpty() &&
         widget.accessibleDescription().isEmpty();
}

QString labelOf(QWidget& widget) {
  QAccessibleInterface* const spoken = QAccessible::queryAccessibleInterface(&widget);
  if (spoken == nullptr) return {};
  const auto labels = spoken->relations(QAccessible::Label);
  return labels.isEmpty() ? QString() : readable(labels.first().first->text(QAccessible::Name));
}

// What is typed into a drop-down list goes to a field of its own.
void nameTypingField(QWidget& widget) {
  auto* const list = qobject_cast<QComboBox*>(&widget);
  if (list == nullptr || list->lineEdit() == nullptr) return;
  QString name = list->accessibleName();
  if (name.isEmpty()) name = labelOf(widget);
  if (name.isEmpty()) name = list->accessibleDescription();
  list->lineEdit()->setAccessibleName(name);
}

}  // namespace

void nameForReaders(QWidget& widget, const Control& control) {
  if (lacksLabel(widget)) {
    const QString name =
        widget.accessibleName().isEmpty() ? textBeside(widget) : widget.accessibleName();
    widget.setAccessibleDescription(name.isEmpty() ? spokenName(control) : name);
  }
  if (!presentName(widget).isEmpty()) return nameTypingField(widget);
  QString name = readable(QString::fromStdString(control.caption()));
  if (name.isEmpty()) name = textBeside(widget);
  if (name.isEmpty()) name = readable(QString::fromStdString(control.hint()));
  if (name.isEmpty()) name = spokenName(control);
  widget.setAccessibleName(name);
  nameTypingField(widget);
}

void namePreviewForReaders(QWidget& dialog) {
  for (auto* const button : dialog.findChildren<QToolButton*>()) {
    button->setFocusPolicy(Qt::StrongFocus);
    if (presentName(*button).isEmpty()) button->setAccessibleName("More tools");
  }
  for (auto* const field : dialog.findChildren<QLineEdit*>()) {
    const bool zooms = qobject_cast<QComboBox*>(field->parentWidget()) != nullptr;
    field->setAccessibleName(zooms ? "Zoom" : "Page");
  }
  for (auto* const zoom : dialog.findChildren<QComboBox*>()) zoom->setAccessibleName("Zoom");
  for (auto* const pages : dialog.findChildren<QGraphicsView*>()) {
    pages->setAccessibleName("Pages as they will be printed");
  }
}

void giveRolesToPanes() {
  static const bool once = [] {
    QAccessible::installFactory(paneForReaders);
    return true;
  }();
  static_cast<void>(once);
}

}  // namespace tess
