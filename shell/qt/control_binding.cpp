// The bindings by kind of control.
#include "shell/qt/control_binding.h"

#include <QAbstractButton>
#include <QAbstractSlider>
#include <QCheckBox>
#include <QEvent>
#include <QFocusEvent>
#include <QGroupBox>
#include <QLabel>
#include <QLayout>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalBlocker>
#include <QTabBar>
#include <QTimer>
#include <array>
#include <cmath>
#include <utility>

#include "cnc/file_text.h"
#include "display/screen_look.h"
#include "shell/frmPDFHelp.h"
#include "shell/qt/bolt_pane.h"
#include "shell/qt/file_text_pane.h"
#include "shell/qt/icons.h"
#include "shell/qt/items_binding.h"
#include "shell/qt/pdf_pane.h"
#include "shell/qt/prop_list_pane.h"
#include "shell/qt/rows_pane.h"

namespace tess {

namespace {

constexpr std::array kProperties{
    Property::Caption, Property::Items,   Property::Index,    Property::Range,  Property::Value,
    Property::Text,    Property::Hint,    Property::Color,    Property::Bounds, Property::Enabled,
    Property::Visible, Property::Content, Property::Selection};

QString shown(const std::string& text) {
  return QString::fromStdString(text);
}

// The toolkit ends lines by a line feed alone.
QString shownLines(const std::string& text) {
  return shown(text).replace("\r\n", "\n");
}

QColor colorOf(Rgb color) {
  return {color & 0xFF, color >> 8 & 0xFF, color >> 16 & 0xFF};
}

Rgb rgbOf(const QColor& color) {
  return color.red() | color.green() << 8 | color.blue() << 16;
}

// The colour, or the nearest to it that letters can have in a theme.
Rgb legibleOn(const QPalette& palette, Rgb color) {
  return legible(color,
                 {rgbOf(palette.color(QPalette::Window)), rgbOf(palette.color(QPalette::Button)),
                  rgbOf(palette.color(QPalette::Base))},
                 ScreenLook::kTextContrast);
}

bool framesAllow(const Control& control, bool (Control::*flag)() const) {
  for (const Frame* frame = control.frame(); frame != nullptr; frame = frame->frame()) {
    if (!(frame->*flag)()) return false;
  }
  return true;
}

}  // namespace

ControlBinding::ControlBinding(Control& control, QWidget& widget, FormActions& actions)
    : control_(control), widget_(&widget), actions_(actions) {
  widget.installEventFilter(this);
}

void ControlBinding::showAll() {
  for (const Property property : kProperties) {
    const bool laidOutText = property == Property::Caption && control_.caption().empty();
    if (!laidOutText) show(property);
  }
}

void ControlBinding::show(Property property) {
  if (widget_ == nullptr) return;
  const QSignalBlocker quiet(widget_);
  switch (property) {
    case Property::Enabled:
      widget_->setEnabled(control_.isEnabled() && framesAllow(control_, &Control::isEnabled));
      return;
    case Property::Visible:
      widget_->setVisible(control_.isVisible() && framesAllow(control_, &Control::isVisible));
      return;
    case Property::Hint:
      if (!control_.hint().empty()) widget_->setToolTip(shown(control_.hint()));
      return;
    case Property::Caption:
      showCaption(shown(control_.caption()));
      return;
    case Property::Color:
      showColor();
      return;
    case Property::Bounds:
      showPlace();
      return;
    case Property::Text:
    case Property::Value:
    case Property::Items:
    case Property::Index:
    case Property::Selection:
    case Property::Range:
    case Property::Content:
      showOwn(property);
  }
}

// Without a colour of its own a widget has those of the theme again.
void ControlBinding::showColor() {
  if (!control_.color()) {
    if (std::exchange(colored_, false)) widget_->setPalette(QPalette());
    return;
  }
  colored_ = true;
  const int color = *control_.color();
  QPalette palette = widget_->palette();
  const bool area = control_.kind() == ControlKind::Picture;
  const QColor ink = colorOf(area ? color : legibleOn(palette, color));
  for (const QPalette::ColorRole role :
       {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
    palette.setColor(area ? QPalette::Window : role, ink);
  }
  widget_->setAutoFillBackground(area);
  if (palette != widget_->palette()) widget_->setPalette(palette);
}

// A control with a place of its own leaves the layout.
void ControlBinding::showPlace() {
  if (!control_.bounds()) return;
  if (QWidget* parent = widget_->parentWidget(); parent != nullptr && parent->layout() != nullptr) {
    parent->layout()->removeWidget(widget_);
  }
  const Bounds& place = *control_.bounds();
  widget_->setGeometry(place.left, place.top, place.width, place.height);
}

void ControlBinding::act(const char* event, const std::function<void()>& action) {
  if (!formLives()) return;
  if (actions_.run(control_.name() + "_" + event, action)) showAll();
}

void ControlBinding::detach() {
  forgetModel();
  if (widget_ == nullptr) return;
  widget_->removeEventFilter(this);
  widget_->disconnect(this);
  for (QObject* inner : widget_->findChildren<QObject*>()) {
    inner->removeEventFilter(this);
    inner->disconnect(this);
  }
}

void ControlBinding::takeFocus() {
  if (widget_ != nullptr && !widget_->hasFocus()) widget_->setFocus(Qt::OtherFocusReason);
}

bool ControlBinding::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::FocusIn) {
    const Qt::FocusReason reason = static_cast<QFocusEvent*>(event)->reason();
    if (reason != Qt::ActiveWindowFocusReason && reason != Qt::PopupFocusReason) focusArrived();
  }
  // Another theme: a colour of the control's own has other grounds.
  if (event->type() == QEvent::PaletteChange && colored_ && formLives()) showColor();
  return QObject::eventFilter(watched, event);
}

void ControlBinding::focusArrived() {
  if (!formLives() || control_.hasFocus() || !control_.takesFocus()) return;
  bool came = false;
  const bool lives = actions_.run(control_.name() + "_GotFocus", [&] { came = control_.focus(); });
  // The toolkit is in the middle of its own move of the focus.
  if (lives && !came) QTimer::singleShot(0, this, [this] { focusWasKept(); });
}

// A button that was pressed on the way comes up without a click.
void ControlBinding::focusWasKept() {
  if (auto* button = qobject_cast<QAbstractButton*>(widget_.data())) button->setDown(false);
  if (formLives() && actions_.onFocusKept) actions_.onFocusKept();
}

namespace {

// A control and its widget, both by their own types.
template <class Model, class Shown>
class BindingOf : public ControlBinding {
 public:
  BindingOf(Control& control, Shown& widget, FormActions& actions)
      : ControlBinding(control, widget, actions),
        model_(static_cast<Model&>(control)),
        shown_(widget) {}

 protected:
  void showOwn(Property /*property*/) override {}

  Model& model_;
  Shown& shown_;
};

class ButtonBinding : public BindingOf<Button, QAbstractButton> {
 public:
  ButtonBinding(Control& control, QAbstractButton& button, FormActions& actions)
      : BindingOf(control, button, actions) {
    // The form knows what Enter does.
    if (auto* push = qobject_cast<QPushButton*>(&button)) push->setAutoDefault(false);
    connect(&button, &QAbstractButton::clicked, this,
            [this] { act("Click", [this] { model_.press(); }); });
  }

 protected:
  void showCaption(const QString& caption) override { shown_.setText(caption); }
};

class CheckBinding : public BindingOf<CheckBox, QCheckBox> {
 public:
  CheckBinding(Control& control, QCheckBox& box, FormActions& actions)
      : BindingOf(control, box, actions) {
    connect(&box, &QCheckBox::clicked, this, [this] { act("Click", [this] { model_.press(); }); });
  }

 protected:
  void showCaption(const QString& caption) override { shown_.setText(caption); }
  void showOwn(Property property) override {
    if (property != Property::Value) return;
    constexpr std::array kStates{Qt::Unchecked, Qt::Checked, Qt::PartiallyChecked};
    shown_.setTristate(model_.value() == 2);
    shown_.setCheckState(kStates[static_cast<std::size_t>(model_.value())]);
  }
};

// The form, not the toolkit, knows which options belong together.
class OptionBinding : public BindingOf<Option, QAbstractButton> {
 public:
  OptionBinding(Control& control, QAbstractButton& button, FormActions& actions)
      : BindingOf(control, button, actions) {
    button.setAutoExclusive(false);
    button.setCheckable(true);
    connect(&button, &QAbstractButton::clicked, this,
            [this] { act("Click", [this] { model_.press(); }); });
  }

 protected:
  void showCaption(const QString& caption) override { shown_.setText(caption); }
  void showOwn(Property property) override {
    if (property == Property::Value) shown_.setChecked(model_.value());
  }
};

class LineBinding : public BindingOf<TextBox, QLineEdit> {
 public:
  LineBinding(Control& control, QLineEdit& line, FormActions& actions)
      : BindingOf(control, line, actions) {
    line.setReadOnly(model_.readOnly);
    connect(&line, &QLineEdit::textEdited, this, [this](const QString& typed) {
      act("Change", [&] { model_.type(typed.toStdString()); });
    });
  }

 protected:
  void showOwn(Property property) override {
    if (property == Property::Text && shown_.text() != shown(model_.text())) {
      shown_.setText(shown(model_.text()));
    }
    // A click that brings the focus would put its cursor in afterwards.
    if (property == Property::Selection && model_.isAllSelected()) {
      QTimer::singleShot(0, this, [this] {
        if (formLives() && model_.isAllSelected()) shown_.selectAll();
      });
    }
  }
};

class PagesBinding : public BindingOf<TextBox, QPlainTextEdit> {
 public:
  PagesBinding(Control& control, QPlainTextEdit& pages, FormActions& actions)
      : BindingOf(control, pages, actions) {
    pages.setReadOnly(model_.readOnly);
    pages.setTabChangesFocus(true);
    connect(&pages, &QPlainTextEdit::textChanged, this, [this] {
      if (!isShown()) act("Change", [this] { model_.type(shown_.toPlainText().toStdString()); });
    });
  }

 protected:
  void showOwn(Property property) override {
    if (property == Property::Text && !isShown()) shown_.setPlainText(shownLines(model_.text()));
    if (property == Property::Selection && model_.isAllSelected()) shown_.selectAll();
  }

 private:
  bool isShown() const { return shown_.toPlainText() == shownLines(model_.text()); }
};

// The property of a list's widget that names the icon of its items.
constexpr char kItemIcon[] = "itemIcon";

class ListBinding : public BindingOf<ListBox, QListWidget> {
 public:
  ListBinding(Control& control, QListWidget& list, FormActions& actions)
      : BindingOf(control, list, actions) {
    // The keyboard that comes to a list makes a row current without choosing it.
    connect(&list, &QListWidget::currentRowChanged, this, [this](int row) {
      if (row < 0 || shown_.item(row)->isSelected()) pick(row);
    });
    // A click on the row that was chosen already counts too.
    connect(&list, &QListWidget::itemClicked, this, [this](QListWidgetItem* item) {
      const int row = shown_.row(item);
      if (std::exchange(picked_, -1) != row) pick(row);
    });
    connect(&list, &QListWidget::itemDoubleClicked, this, [this](QListWidgetItem* item) {
      const int row = shown_.row(item);
      act("DblClick", [&] {
        if (model_.pick(row)) model_.open();
      });
    });
    connect(&list, &QListWidget::itemPressed, this, [this](QListWidgetItem* item) {
      if (shown_.row(item) != picked_) picked_ = -1;
    });
  }

 protected:
  void showOwn(Property property) override {
    if (property == Property::Items) showItems();
    if (property == Property::Items || property == Property::Index) {
      shown_.setCurrentRow(model_.index());
    }
  }

 private:
  void pick(int row) {
    picked_ = row;
    if (row >= 0) act("Click", [&] { model_.pick(row); });
  }
  void showItems() {
    QStringList items;
    for (const std::string& item : model_.items()) items << shown(item);
    if (items.size() == shown_.count()) return renameItems(items);
    const QIcon icon = namedIcon(shown_.property(kItemIcon).toString());
    shown_.clear();
    for (const QString& item : items) shown_.addItem(new QListWidgetItem(icon, item));
  }
  // Only what differs: a list can be long.
  void renameItems(const QStringList& items) {
    for (int row = 0; row < shown_.count(); ++row) {
      if (shown_.item(row)->text() != items[row]) shown_.item(row)->setText(items[row]);
    }
  }

  int picked_ = -1;  // by the press that a click will follow
};

// A list whose items are tabs.
class TabsBinding : public BindingOf<ListBox, QTabBar> {
 public:
  TabsBinding(Control& control, QTabBar& tabs, FormActions& actions)
      : BindingOf(control, tabs, actions) {
    connect(&tabs, &QTabBar::currentChanged, this, [this](int tab) {
      if (tab >= 0) act("Click", [&] { model_.pick(tab); });
    });
  }

 protected:
  void showOwn(Property property) override {
    if (property == Property::Items) showItems();
    if (property == Property::Items || property == Property::Index) {
      shown_.setCurrentIndex(model_.index());
    }
  }

 private:
  void showItems() {
    while (shown_.count() > model_.count()) shown_.removeTab(shown_.count() - 1);
    while (shown_.count() < model_.count()) shown_.addTab({});
    for (int tab = 0; tab < model_.count(); ++tab) shown_.setTabText(tab, shown(model_.item(tab)));
  }
};

class ComboBinding : public BindingOf<ComboBox, QComboBox> {
 public:
  ComboBinding(Control& control, QComboBox& combo, FormActions& actions)
      : BindingOf(control, combo, actions) {
    combo.setEditable(model_.style() == ComboStyle::Editable);
    combo.setInsertPolicy(QComboBox::NoInsert);
    if (combo.lineEdit() != nullptr) {
      combo.setCompleter(nullptr);
      combo.lineEdit()->installEventFilter(this);
      connect(combo.lineEdit(), &QLineEdit::textEdited, this, [this](const QString& typed) {
        act("Change", [&] { model_.type(typed.toStdString()); });
      });
    }
    connect(&combo, &QComboBox::activated, this,
            [this](int row) { act("Click", [&] { model_.pick(row); }); });
    if (auto* dropDown = dynamic_cast<DropDownBox*>(&combo)) {
      dropDown->onDropDown = [this] { act("DropDown", [this] { model_.open(); }); };
    }
  }

 protected:
  void showOwn(Property property) override {
    if (property == Property::Items) showItems();
    if (property == Property::Items || property == Property::Index) {
      shown_.setCurrentIndex(model_.index());
    }
    if (shown_.isEditable() && shown_.currentText() != shown(model_.text())) {
      const QSignalBlocker quiet(shown_.lineEdit());
      shown_.setEditText(shown(model_.text()));
    }
  }

 private:
  void showItems() {
    QStringList items;
    for (const std::string& item : model_.items()) items << shown(item);
    QStringList present;
    for (int row = 0; row < shown_.count(); ++row) present << shown_.itemText(row);
    if (items == present) return;
    shown_.clear();
    shown_.addItems(items);
  }
};

class LabelBinding : public BindingOf<Label, QLabel> {
 public:
  LabelBinding(Control& control, QLabel& label, FormActions& actions)
      : BindingOf(control, label, actions) {
    label.setTextFormat(Qt::PlainText);
    label.installEventFilter(this);
  }

 protected:
  void showCaption(const QString& caption) override { shown_.setText(caption); }
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::MouseButtonRelease && model_.onClick) {
      act("Click", [this] { model_.press(); });
    }
    return ControlBinding::eventFilter(watched, event);
  }
};

class FrameBinding : public BindingOf<Frame, QWidget> {
 public:
  using BindingOf::BindingOf;

 protected:
  void showCaption(const QString& caption) override {
    if (auto* box = qobject_cast<QGroupBox*>(&shown_)) box->setTitle(caption);
  }
};

// Positions of the widget are steps of the range: whole numbers where the range is of such.
class SliderBinding : public BindingOf<Slider, QAbstractSlider> {
 public:
  SliderBinding(Control& control, QAbstractSlider& slider, FormActions& actions)
      : BindingOf(control, slider, actions) {
    connect(&slider, &QAbstractSlider::valueChanged, this,
            [this](int position) { act("Change", [&] { model_.slide(valueAt(position)); }); });
  }

 protected:
  void showOwn(Property property) override {
    if (property == Property::Range) shown_.setRange(0, steps());
    if (property == Property::Value && valueAt(shown_.value()) != model_.value()) {
      shown_.setValue(static_cast<int>(std::lround((model_.value() - model_.minimum()) / step())));
    }
  }

 private:
  static constexpr int kFineSteps = 1000;

  double extent() const { return model_.maximum() - model_.minimum(); }
  bool hasWholeSteps() const {
    return model_.minimum() == std::floor(model_.minimum()) && extent() == std::floor(extent()) &&
           extent() > 1 && extent() <= 100 * kFineSteps;
  }
  int steps() const { return hasWholeSteps() ? static_cast<int>(extent()) : kFineSteps; }
  double step() const { return extent() > 0 ? extent() / steps() : 1; }
  double valueAt(int position) const { return model_.minimum() + position * step(); }
};

class PictureBinding : public BindingOf<Picture, QWidget> {
 public:
  using BindingOf::BindingOf;

 protected:
  void showOwn(Property property) override {
    if (property == Property::Content) shown_.update();
  }
};

// The control of a document, when that is shown by a pane that can.
class PdfBinding : public BindingOf<PdfViewer, PdfPane> {
 public:
  PdfBinding(Control& control, PdfPane& pane, FormActions& actions)
      : BindingOf(control, pane, actions) {
    // The pane may search on after the view has gone.
    pane.onFindings = [self = QPointer<PdfBinding>(this)](const auto& findings) {
      if (self) self->act("Found", [&] { self->model_.tellFindings(findings); });
    };
  }

 protected:
  void showOwn(Property property) override {
    if (property != Property::Content) return;
    shown_.setThumbnails(model_.showsThumbnails());
    shown_.search(model_.searched());
    if (!shown_.open(model_.document())) model_.tellUnreadable();
    shown_.showFinding(model_.shownFinding());
    if (model_.wantedPage() > 0) shown_.showPage(model_.wantedPage() - 1);
    model_.tellPageShown();
  }
};

class BoltBinding : public BindingOf<BoltPreview, BoltPane> {
 public:
  using BindingOf::BindingOf;

 protected:
  void showOwn(Property property) override {
    if (property == Property::Content) shown_.show(model_.marks());
  }
};

class RowsBinding : public BindingOf<RowsPreview, RowsPane> {
 public:
  using BindingOf::BindingOf;

 protected:
  void showOwn(Property property) override {
    if (property == Property::Content) shown_.show(model_.rows());
  }
};

// A control that a pane of its own paints, where both are there.
template <class Binding, class Model, class Pane>
std::unique_ptr<ControlBinding> boundPane(Control& control, QWidget& widget, FormActions& actions) {
  auto* pane = dynamic_cast<Pane*>(&widget);
  if (pane == nullptr || dynamic_cast<Model*>(&control) == nullptr) return nullptr;
  return std::make_unique<Binding>(control, *pane, actions);
}

// The list of named values, when that is shown by a pane that paints its rows.
class PropListBinding : public BindingOf<PropList, PropListPane> {
 public:
  PropListBinding(Control& control, PropListPane& pane, FormActions& actions)
      : BindingOf(control, pane, actions) {
    pane.onPick = [this](int row) { act("Click", [&] { model_.pick(row); }); };
    pane.onOpen = [this] { act("DblClick", [this] { model_.open(); }); };
    pane.onRestore = [this] { act("KeyDown", [this] { model_.restore(); }); };
    pane.onLeft = [this] { act("LostFocus", [this] { model_.form().moveFocus(nullptr); }); };
    pane.setModel(&model_);
  }
  ~PropListBinding() override { forgetModel(); }

 protected:
  // The pane lives on for a while.
  void forgetModel() override {
    if (pane_ == nullptr) return;
    pane_->setModel(nullptr);
    pane_->onPick = nullptr;
    pane_->onOpen = nullptr;
    pane_->onRestore = nullptr;
    pane_->onLeft = nullptr;
  }
  void showOwn(Property property) override {
    if (property == Property::Items || property == Property::Index) shown_.showRows();
  }

 private:
  QPointer<PropListPane> pane_{&shown_};
};

// A text to be read, when that is shown by a pane that paints its lines.
class FileTextBinding : public BindingOf<FileText, FileTextPane> {
 public:
  FileTextBinding(Control& control, FileTextPane& pane, FormActions& actions)
      : BindingOf(control, pane, actions) {
    pane.onPick = [this](int line) { act("Click", [&] { model_.pickLine(line); }); };
    pane.onChoose = [this](int anchor, int last) {
      act("Select", [&] { model_.choose(anchor, last); });
    };
    pane.onFind = [this] { act("Find", [this] { model_.askToFind(); }); };
    pane.setModel(&model_);
  }
  ~FileTextBinding() override { forgetModel(); }

 protected:
  // The pane lives on for a while.
  void forgetModel() override {
    if (pane_ == nullptr) return;
    pane_->setModel(nullptr);
    pane_->onPick = nullptr;
    pane_->onChoose = nullptr;
    pane_->onFind = nullptr;
  }
  void showOwn(Property property) override {
    if (property == Property::Text || property == Property::Content) shown_.showModel();
  }

 private:
  QPointer<FileTextPane> pane_{&shown_};
};

template <class Binding, class Shown>
std::unique_ptr<ControlBinding> bound(Control& control, QWidget& widget, FormActions& actions) {
  auto* fitting = qobject_cast<Shown*>(&widget);
  if (fitting == nullptr) return nullptr;
  return std::make_unique<Binding>(control, *fitting, actions);
}

using Maker = std::unique_ptr<ControlBinding> (*)(Control&, QWidget&, FormActions&);

struct KindOfBinding {
  ControlKind kind;
  Maker make;
};

// Of one kind the first that fits: a text box as a line, else as pages.
constexpr std::array kBindings{
    KindOfBinding{ControlKind::TextBox, bound<LineBinding, QLineEdit>},
    KindOfBinding{ControlKind::TextBox, bound<PagesBinding, QPlainTextEdit>},
    KindOfBinding{ControlKind::TextBox, boundPane<FileTextBinding, FileText, FileTextPane>},
    KindOfBinding{ControlKind::Button, bound<ButtonBinding, QAbstractButton>},
    KindOfBinding{ControlKind::CheckBox, bound<CheckBinding, QCheckBox>},
    KindOfBinding{ControlKind::Option, bound<OptionBinding, QAbstractButton>},
    KindOfBinding{ControlKind::List, bound<ListBinding, QListWidget>},
    KindOfBinding{ControlKind::List, bound<ItemsBinding, QAbstractItemView>},
    KindOfBinding{ControlKind::List, bound<TabsBinding, QTabBar>},
    KindOfBinding{ControlKind::List, boundPane<PropListBinding, PropList, PropListPane>},
    KindOfBinding{ControlKind::Combo, bound<ComboBinding, QComboBox>},
    KindOfBinding{ControlKind::Label, bound<LabelBinding, QLabel>},
    KindOfBinding{ControlKind::Slider, bound<SliderBinding, QAbstractSlider>},
    KindOfBinding{ControlKind::Picture, boundPane<PdfBinding, PdfViewer, PdfPane>},
    KindOfBinding{ControlKind::Picture, boundPane<BoltBinding, BoltPreview, BoltPane>},
    KindOfBinding{ControlKind::Picture, boundPane<RowsBinding, RowsPreview, RowsPane>},
    KindOfBinding{ControlKind::Picture, bound<PictureBinding, QWidget>},
    KindOfBinding{ControlKind::Frame, bound<FrameBinding, QWidget>},
};

}  // namespace

std::unique_ptr<ControlBinding> makeBinding(Control& control, QWidget& widget,
                                            FormActions& actions) {
  for (const auto& [kind, make] : kBindings) {
    if (kind != control.kind()) continue;
    if (auto binding = make(control, widget, actions)) return binding;
  }
  return nullptr;
}

}  // namespace tess
