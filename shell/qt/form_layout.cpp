// Loading and generating the layouts of forms.
#include "shell/qt/form_layout.h"

#include <QCheckBox>
#include <QCoreApplication>
#include <QFile>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSlider>
#include <QTabBar>
#include <QUiLoader>
#include <QVBoxLayout>
#include <algorithm>
#include <array>
#include <cctype>
#include <string_view>
#include <utility>
#include <vector>

#include "shell/qt/bolt_pane.h"
#include "shell/qt/control_binding.h"
#include "shell/qt/file_text_pane.h"
#include "shell/qt/icons.h"
#include "shell/qt/pdf_pane.h"
#include "shell/qt/prop_list_pane.h"
#include "shell/qt/rows_pane.h"

namespace tess {

namespace {

constexpr int kMargin = 16;
constexpr int kSpacing = 10;
constexpr int kFieldWidth = 110;
constexpr int kButtonWidth = 84;

// A button for a short word is as wide as its neighbours, and one for a long word is never narrower
// than that, as a least width of the style sheet would let it be.
class WordButton : public QPushButton {
 public:
  using QPushButton::QPushButton;
  QSize sizeHint() const override { return QPushButton::sizeHint().expandedTo({kButtonWidth, 0}); }
};

template <class Made>
QWidget* make(QWidget* parent) {
  return new Made(parent);
}

// Classes of layout files that are the program's own.
struct OwnClass {
  std::string_view name;
  QWidget* (*make)(QWidget*);
};

constexpr std::array kOwnClasses{
    OwnClass{"QComboBox", make<DropDownBox>},     OwnClass{"QPushButton", make<WordButton>},
    OwnClass{"PdfPane", make<PdfPane>},           OwnClass{"BoltPane", make<BoltPane>},
    OwnClass{"RowsPane", make<RowsPane>},         OwnClass{"FileTextPane", make<FileTextPane>},
    OwnClass{"PropListPane", make<PropListPane>}, OwnClass{"QTabBar", make<QTabBar>}};

class Loader : public QUiLoader {
 public:
  QWidget* createWidget(const QString& className, QWidget* parent, const QString& name) override {
    for (const OwnClass& own : kOwnClasses) {
      if (className != QLatin1StringView(own.name.data(), own.name.size())) continue;
      QWidget* widget = own.make(parent);
      widget->setObjectName(name);
      return widget;
    }
    return QUiLoader::createWidget(className, parent, name);
  }
};

// Forms that look like another one.
constexpr std::array<std::pair<std::string_view, const char*>, 1> kSharedLayouts{
    {{"DlgSaveFile", "dlgGetFile"}}};

QString layoutName(const Form& form) {
  for (const auto& [name, layout] : kSharedLayouts) {
    if (name == form.name()) return layout;
  }
  return QString::fromStdString(form.name());
}

// A loader loads all designer plug-ins as it is made, and with them libraries of some 5 MB for
// widgets that no layout here has. It finds them on the library paths.
std::unique_ptr<Loader> makeLoader() {
  const QStringList paths = QCoreApplication::libraryPaths();
  QCoreApplication::setLibraryPaths({});
  auto loader = std::make_unique<Loader>();
  QCoreApplication::setLibraryPaths(paths);
  return loader;
}

// The property of a label that shows the program's icon: how large, in pixels of the layout.
constexpr char kProgramIcon[] = "programIcon";

// As fine as the screen is.
void showProgramIcon(const QWidget& root) {
  for (auto* label : root.findChildren<QLabel*>()) {
    const int size = label->property(kProgramIcon).toInt();
    if (size == 0) continue;
    label->setPixmap(programIcon().pixmap(QSize(size, size), label->devicePixelRatio()));
  }
}

QWidget* loadLayoutFile(const Form& form, QWidget* parent) {
  QFile file(QString(":/forms/%1.ui").arg(layoutName(form)));
  if (!file.open(QIODevice::ReadOnly)) return nullptr;
  QWidget* root = makeLoader()->load(&file, parent);
  if (root != nullptr) showProgramIcon(*root);
  return root;
}

QWidget* makeTextBox(const Control& control, QWidget* parent) {
  if (static_cast<const TextBox&>(control).multiLine) return new QPlainTextEdit(parent);
  auto* line = new QLineEdit(parent);
  line->setMinimumWidth(kFieldWidth);
  return line;
}

template <class Shown>
QWidget* plain(const Control& /*control*/, QWidget* parent) {
  return new Shown(parent);
}

QWidget* makeCombo(const Control& /*control*/, QWidget* parent) {
  auto* box = new DropDownBox(parent);
  box->setMinimumWidth(kFieldWidth);
  box->setSizeAdjustPolicy(QComboBox::AdjustToContents);
  return box;
}

QWidget* makeSlider(const Control& /*control*/, QWidget* parent) {
  return new QSlider(Qt::Horizontal, parent);
}

QWidget* makePicture(const Control& /*control*/, QWidget* parent) {
  auto* area = new QWidget(parent);
  area->setMinimumSize(220, 160);
  area->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
  return area;
}

struct WidgetOfKind {
  ControlKind kind;
  QWidget* (*make)(const Control&, QWidget*);
};

constexpr std::array kWidgets{
    WidgetOfKind{ControlKind::TextBox, makeTextBox},
    WidgetOfKind{ControlKind::Button, plain<WordButton>},
    WidgetOfKind{ControlKind::CheckBox, plain<QCheckBox>},
    WidgetOfKind{ControlKind::Option, plain<QRadioButton>},
    WidgetOfKind{ControlKind::List, plain<QListWidget>},
    WidgetOfKind{ControlKind::Combo, makeCombo},
    WidgetOfKind{ControlKind::Label, plain<QLabel>},
    WidgetOfKind{ControlKind::Slider, makeSlider},
    WidgetOfKind{ControlKind::Picture, makePicture},
    WidgetOfKind{ControlKind::Frame, plain<QGroupBox>},
};

QWidget* makeWidget(const Control& control, QWidget* parent) {
  for (const auto& [kind, make] : kWidgets) {
    if (kind != control.kind()) continue;
    QWidget* widget = make(control, parent);
    widget->setObjectName(widgetName(control));
    return widget;
  }
  return nullptr;
}

// Arranges the controls of one frame, or those directly on the form, from top to bottom: fields
// beside their labels, buttons side by side.
class ControlColumn {
 public:
  ControlColumn(FormLayout& layout, const Form& form, QWidget* parent, QVBoxLayout* column)
      : layout_(layout), form_(form), parent_(parent), column_(column) {
    column_->setSpacing(kSpacing);
  }

  void arrange(const std::vector<Control*>& controls, const Frame* frame) {
    for (Control* control : controls) {
      if (control->frame() != frame || layout_.widgets.contains(control)) continue;
      add(*control);
      if (control->kind() == ControlKind::Frame) fill(static_cast<Frame&>(*control), controls);
    }
    placeLabel();
  }

 private:
  static bool isField(const Control& control) {
    if (control.kind() == ControlKind::TextBox) {
      return !static_cast<const TextBox&>(control).multiLine;
    }
    return control.kind() == ControlKind::Combo || control.kind() == ControlKind::Slider;
  }

  void add(Control& control) {
    QWidget* widget = makeWidget(control, parent_);
    layout_.widgets[&control] = widget;
    if (isField(control)) {
      addField(control, widget);
    } else if (control.kind() == ControlKind::Button) {
      addButton(control, static_cast<QPushButton*>(widget));
    } else {
      placeLabel();
      fields_ = nullptr;
      buttons_ = nullptr;
      if (control.kind() == ControlKind::Label) {
        label_ = static_cast<QLabel*>(widget);
      } else {
        column_->addWidget(widget);
      }
    }
  }

  void fill(Frame& frame, const std::vector<Control*>& controls) {
    QWidget* box = layout_.widgets.at(&frame);
    ControlColumn(layout_, form_, box, new QVBoxLayout(box)).arrange(controls, &frame);
  }

  // A label waits for the field that it names; none came.
  void placeLabel() {
    if (label_ == nullptr) return;
    label_->setWordWrap(true);
    column_->addWidget(label_);
    label_ = nullptr;
    fields_ = nullptr;
  }

  void addField(const Control& control, QWidget* field) {
    buttons_ = nullptr;
    if (fields_ == nullptr) {
      fields_ = new QFormLayout;
      fields_->setLabelAlignment(Qt::AlignLeft | Qt::AlignVCenter);
      column_->addLayout(fields_);
    }
    if (label_ != nullptr) {
      label_->setBuddy(field);
      fields_->addRow(label_, field);
      label_ = nullptr;
    } else {
      const QString caption = QString::fromStdString(control.caption());
      fields_->addRow(caption.isEmpty() ? spokenName(control) : caption, field);
    }
  }

  void addButton(const Control& control, QPushButton* button) {
    placeLabel();
    fields_ = nullptr;
    if (buttons_ == nullptr) {
      buttons_ = new QHBoxLayout;
      buttons_->addStretch();
      column_->addLayout(buttons_);
    }
    if (control.caption().empty()) button->setText(spokenName(control));
    button->setDefault(&control == form_.defaultButton());
    buttons_->addWidget(button);
  }

  FormLayout& layout_;
  const Form& form_;
  QWidget* parent_;
  QVBoxLayout* column_;
  QLabel* label_ = nullptr;
  QFormLayout* fields_ = nullptr;
  QHBoxLayout* buttons_ = nullptr;
};

// The widgets of a layout file that bear the name of a control.
void findWidgets(const Form& form, FormLayout& layout) {
  for (const Control* control : form.controls()) {
    auto* widget = layout.root->findChild<QWidget*>(widgetName(*control));
    if (widget != nullptr) layout.widgets[control] = widget;
  }
}

}  // namespace

QString widgetName(const Control& control) {
  const QString name = QString::fromStdString(control.name());
  return control.arrayIndex() ? QString("%1_%2").arg(name).arg(*control.arrayIndex()) : name;
}

QString spokenName(const Control& control) {
  const std::string& name = control.name();
  const auto start = std::find_if(name.begin(), name.end(),
                                  [](unsigned char letter) { return std::isupper(letter) != 0; });
  QString spoken;
  for (auto at = start; at != name.end(); ++at) {
    const bool starts = at != start && std::isupper(static_cast<unsigned char>(*at)) != 0 &&
                        std::islower(static_cast<unsigned char>(at[-1])) != 0;
    if (starts) spoken += ' ';
    spoken += *at;
  }
  return spoken;
}

FormLayout makeFormLayout(const Form& form, QWidget* parent) {
  FormLayout layout;
  layout.root = loadLayoutFile(form, parent);
  if (layout.root != nullptr) findWidgets(form, layout);
  if (layout.widgets.size() == form.controls().size() && layout.root != nullptr) return layout;

  auto* whole = new QWidget(parent);
  auto* column = new QVBoxLayout(whole);
  if (layout.root != nullptr) column->addWidget(layout.root);
  if (layout.root == nullptr) column->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
  layout.root = whole;
  ControlColumn(layout, form, whole, column).arrange(form.controls(), nullptr);
  return layout;
}

}  // namespace tess
