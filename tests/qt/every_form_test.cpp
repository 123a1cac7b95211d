// What holds for every form in its window: the order of its keyboard, and that the screen has room
// for its buttons.
#include "tests/qt/every_form.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScreen>
#include <QWindow>
#include <algorithm>
#include <array>
#include <gtest/gtest.h>
#include <map>
#include <set>

#include "core/file_system.h"
#include "shell/qt/content_area.h"
#include "shell/qt/form_window.h"
#include "shell/qt/tab_order.h"
#include "tests/qt/plate_program.h"
#include "tests/support/source_folder.h"
#include "toolpath/dlgPocketingPrm.h"

namespace tess {
namespace {

class EveryForm : public testing::PlateProgram {
 protected:
  // Shows each form in its window and looks at it.
  void forEach(const std::function<void(Form&, FormWindow&)>& look) {
    for (const testing::NamedForm& named : testing::everyForm(*program)) {
      SCOPED_TRACE(named.name);
      const std::unique_ptr<Form> form = named.make();
      FormWindow window(*form, program->gateway(), &program->window());
      form->open(Modality::Modeless);
      QApplication::setActiveWindow(&window);
      QCoreApplication::processEvents();
      look(*form, window);
    }
  }

  static std::vector<QWidget*> reachable(const Form& form, const FormWindow& window) {
    std::vector<QWidget*> all;
    for (const Control* control : form.controls()) {
      auto* widget = window.findChild<QWidget*>(widgetName(*control));
      const bool takes = (widget->focusPolicy() & Qt::TabFocus) != 0;
      if (takes && widget->isEnabled() && widget->isVisible()) all.push_back(widget);
    }
    return all;
  }

  // The widgets that the Tab key goes to, once round.
  static std::vector<QWidget*> visited(QWidget& first) {
    std::vector<QWidget*> way;
    first.setFocus();
    QWidget* at = &first;
    constexpr int kMost = 200;
    do {
      way.push_back(at);
      QKeyEvent tab(QEvent::KeyPress, Qt::Key_Tab, Qt::NoModifier);
      QApplication::sendEvent(QApplication::focusWidget(), &tab);
      at = QApplication::focusWidget();
    } while (at != &first && way.size() < kMost);
    return way;
  }

  // The control that a widget belongs to: of a pane, what is inside it.
  static QWidget* controlOf(QWidget* widget, const std::vector<QWidget*>& controls) {
    while (widget != nullptr &&
           std::find(controls.begin(), controls.end(), widget) == controls.end())
      widget = widget->parentWidget();
    return widget;
  }

  static bool isField(ControlKind kind) {
    constexpr std::array kFields{ControlKind::TextBox, ControlKind::CheckBox, ControlKind::Option,
                                 ControlKind::Combo, ControlKind::Slider};
    return std::find(kFields.begin(), kFields.end(), kind) != kFields.end();
  }

  // What a field is called: a drop-down list by its label, for its name is what is chosen.
  static std::string fieldName(const QWidget& widget) {
    QAccessibleInterface* spoken =
        QAccessible::queryAccessibleInterface(const_cast<QWidget*>(&widget));
    QString name = spoken->text(QAccessible::Name);
    if (qobject_cast<const QComboBox*>(&widget) != nullptr) {
      const auto labels = spoken->relations(QAccessible::Label);
      name = labels.isEmpty() ? widget.accessibleDescription()
                              : labels.front().first->text(QAccessible::Name);
    }
    name = name.trimmed();
    while (name.endsWith(':') || name.endsWith(' ')) name.chop(1);
    return name.toStdString();
  }

  // Each as its form, a bar and its name.
  static std::set<std::string> fieldsOfTheManual() {
    std::set<std::string> all;
    const std::string text = readFile(TESSIMO_SOURCE_DIR "/docs/manual/fields.txt");
    for (const QString& line : QString::fromStdString(text).split('\n', Qt::SkipEmptyParts)) {
      if (line.startsWith('#')) continue;
      const QStringList parts = line.split(" | ");
      for (const QString& field : parts.at(1).split(';')) {
        all.insert((parts.at(0) + " | " + field.trimmed()).toStdString());
      }
    }
    return all;
  }

  static QRect placeOf(const QWidget& widget, const FormWindow& window) {
    return {widget.mapTo(&window, QPoint()), widget.size()};
  }
};

// No form is passed over: each layout is that of one of them.
TEST_F(EveryForm, HasAPlaceHere) {
  std::set<QString> known;
  for (const testing::NamedForm& named : testing::everyForm(*program)) {
    known.insert(QString::fromStdString(named.name) + ".ui");
  }
  const QStringList layouts = QDir(":/forms").entryList();
  EXPECT_FALSE(layouts.isEmpty());
  for (const QString& layout : layouts) EXPECT_TRUE(known.contains(layout)) << layout.toStdString();
}

TEST_F(EveryForm, TabVisitsEveryEnabledControlOnce) {
  forEach([](Form& form, FormWindow& window) {
    const std::vector<QWidget*> controls = reachable(form, window);
    if (controls.empty()) return;
    std::vector<QWidget*> way;
    for (QWidget* widget : visited(*controls.front())) {
      QWidget* control = controlOf(widget, controls);
      ASSERT_NE(control, nullptr) << widget->objectName().toStdString();
      if (way.empty() || way.back() != control) way.push_back(control);
    }
    std::multiset<QWidget*> once(controls.begin(), controls.end());
    EXPECT_EQ(std::multiset<QWidget*>(way.begin(), way.end()), once);
  });
}

TEST_F(EveryForm, TabNeverGoesBackUpOrToTheLeft) {
  forEach([](Form& form, FormWindow& window) {
    const std::vector<QWidget*> controls = reachable(form, window);
    if (controls.size() < 2) return;
    const std::vector<QWidget*> order = readingOrder(window);
    const auto first =
        std::find_first_of(order.begin(), order.end(), controls.begin(), controls.end());
    ASSERT_NE(first, order.end());
    QWidget* before = nullptr;
    for (QWidget* widget : visited(**first)) {
      const bool later = widget->property("tabLater").toBool();
      if (before != nullptr && !later) {
        const QRect from = placeOf(*before, window);
        const QRect to = placeOf(*widget, window);
        EXPECT_TRUE(to.left() >= from.right() || to.top() >= from.bottom() || from.contains(to))
            << before->objectName().toStdString() << " to " << widget->objectName().toStdString();
      }
      before = widget;
    }
  });
}

// What a screen reader has to say of each control.
TEST_F(EveryForm, EveryControlHasANameAndARole) {
  forEach([](Form& form, FormWindow& window) {
    for (const Control* control : form.controls()) {
      auto* widget = window.findChild<QWidget*>(widgetName(*control));
      QAccessibleInterface* spoken = QAccessible::queryAccessibleInterface(widget);
      ASSERT_NE(spoken, nullptr) << control->name();
      const std::string name = spoken->text(QAccessible::Name).trimmed().toStdString();
      const bool silent = control->kind() == ControlKind::Label && control->caption().empty();
      EXPECT_TRUE(silent || !name.empty()) << control->name();
      EXPECT_TRUE(control->kind() != ControlKind::Combo ||
                  !spoken->relations(QAccessible::Label).isEmpty() ||
                  !widget->accessibleDescription().isEmpty())
          << control->name() << " is called by its choice, and nothing tells what for";
      EXPECT_NE(name, control->name()) << "a word of the program's, not of the operator's";
      const QAccessible::Role role = spoken->role();
      EXPECT_NE(role, QAccessible::NoRole) << control->name();
      EXPECT_TRUE(!control->takesFocus() || role != QAccessible::Client) << control->name();
    }
    EXPECT_FALSE(QAccessible::queryAccessibleInterface(&window)->text(QAccessible::Name).isEmpty());
  });
}

// The form, not the toolkit, switches the neighbours of an option off; to a reader it is one of
// several all the same.
TEST_F(EveryForm, OptionsAreOneOfSeveralToAReader) {
  int options = 0;
  std::set<QString> names;
  forEach([&](Form& form, FormWindow& window) {
    for (const Control* control : form.controls()) {
      if (control->kind() != ControlKind::Option) continue;
      ++options;
      auto* widget = window.findChild<QAbstractButton*>(widgetName(*control));
      QAccessibleInterface* spoken = QAccessible::queryAccessibleInterface(widget);
      EXPECT_EQ(spoken->role(), QAccessible::RadioButton) << control->name();
      EXPECT_TRUE(spoken->state().checkable);
      EXPECT_EQ(spoken->state().checked, static_cast<const Option*>(control)->value());
      EXPECT_EQ(spoken->text(QAccessible::Name).contains('&'), false);
      names.insert(spoken->text(QAccessible::Name));
    }
  });
  EXPECT_GT(options, 30);
  EXPECT_GT(names.size(), 25U) << "each by its own caption, not by that of its box";
}

// The manual explains every field, and none that a form does not have.
TEST_F(EveryForm, EveryFieldHasItsPlaceInTheManual) {
  std::set<std::string> wanted;
  forEach([&](Form& form, FormWindow& window) {
    for (const Control* control : form.controls()) {
      if (!isField(control->kind())) continue;
      const auto* widget = window.findChild<QWidget*>(widgetName(*control));
      wanted.insert(form.name() + " | " + fieldName(*widget));
    }
  });
  EXPECT_GT(wanted.size(), 150U);
  EXPECT_EQ(fieldsOfTheManual(), wanted);
}

TEST_F(EveryForm, AReaderChoosesAnOption) {
  dlgPocketingPrm form(program->application().store);
  FormWindow window(form, program->gateway(), &program->window());
  form.open(Modality::Modeless);
  auto* spiral = window.findChild<QRadioButton*>("optPocketingStyle_3");
  auto* across = window.findChild<QRadioButton*>("optPocketingStyle_1");
  ASSERT_FALSE(spiral->isChecked());
  QAccessibleInterface* spoken = QAccessible::queryAccessibleInterface(spiral);
  ASSERT_NE(spoken->actionInterface(), nullptr);
  spoken->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
  EXPECT_TRUE(spoken->state().checked);
  EXPECT_FALSE(QAccessible::queryAccessibleInterface(across)->state().checked);
  EXPECT_EQ(spoken->text(QAccessible::Name), "Parallel Spiral");
}

// Figures that stand below one another begin and end at the same places.
TEST_F(EveryForm, FieldsOfAColumnAreEquallyWide) {
  forEach([](Form& /*form*/, FormWindow& window) {
    for (const auto* grid : window.findChildren<QGridLayout*>()) {
      std::map<std::pair<int, int>, QRect> seen;
      for (int at = 0; at < grid->count(); ++at) {
        auto* field = qobject_cast<QLineEdit*>(grid->itemAt(at)->widget());
        if (field == nullptr || !field->isVisible()) continue;
        int row = 0;
        int column = 0;
        int rows = 0;
        int columns = 0;
        grid->getItemPosition(at, &row, &column, &rows, &columns);
        const auto [first, isFirst] = seen.emplace(std::pair(column, columns), field->geometry());
        EXPECT_EQ(field->x(), first->second.x()) << field->objectName().toStdString();
        EXPECT_EQ(field->width(), first->second.width()) << field->objectName().toStdString();
      }
    }
  });
}

// The program's own icon is as fine as the screen.
TEST_F(EveryForm, TheIconOfTheProgramIsSharp) {
  int icons = 0;
  forEach([&](Form& /*form*/, FormWindow& window) {
    const auto* label = window.findChild<QLabel*>("picture");
    if (label == nullptr) return;
    ++icons;
    const QPixmap icon = label->pixmap();
    EXPECT_EQ(icon.devicePixelRatio(), window.devicePixelRatio());
    EXPECT_EQ(icon.deviceIndependentSize(), QSizeF(64, 64));
  });
  EXPECT_EQ(icons, 2);
}

// At any scale of the screen; the suite runs at 200 per cent too.
TEST_F(EveryForm, TextsAreNotCut) {
  forEach([](Form& /*form*/, FormWindow& window) {
    for (const auto* label : window.findChildren<QLabel*>()) {
      if (!label->isVisible() || label->text().isEmpty() || label->wordWrap()) continue;
      const bool shrinks = label->sizePolicy().horizontalPolicy() == QSizePolicy::Ignored;
      EXPECT_TRUE(shrinks || label->width() >= label->sizeHint().width())
          << label->text().toStdString();
    }
    for (const auto* button : window.findChildren<QAbstractButton*>()) {
      if (!button->isVisible() || button->text().isEmpty()) continue;
      const QSize text = button->fontMetrics().size(Qt::TextShowMnemonic, button->text());
      EXPECT_GT(button->width(), text.width()) << button->text().toStdString();
      EXPECT_GE(button->height(), text.height()) << button->text().toStdString();
    }
    for (const auto* field : window.findChildren<QLineEdit*>()) {
      if (qobject_cast<QComboBox*>(field->parentWidget()) != nullptr) continue;
      EXPECT_TRUE(!field->isVisible() || field->height() >= field->minimumSizeHint().height())
          << field->objectName().toStdString();
    }
  });
}

// However little room there is, as in a docked panel on a small screen.
TEST_F(EveryForm, ButtonsAreNeverNarrowerThanTheirWords) {
  forEach([](Form& /*form*/, FormWindow& window) {
    for (auto* button : window.findChildren<QPushButton*>()) {
      EXPECT_GE(QWidgetItem(button).minimumSize().width(), button->sizeHint().width())
          << button->text().toStdString();
      EXPECT_GE(button->sizeHint().width(), 84) << button->text().toStdString();
    }
  });
}

TEST_F(EveryForm, FitsTheScreenWithItsButtonsInSight) {
  forEach([](Form& form, FormWindow& window) {
    const QSize screen = window.screen()->availableSize();
    EXPECT_LE(window.width(), screen.width());
    EXPECT_LE(window.height(), screen.height());
    for (const Button* button : {form.defaultButton(), form.cancelButton()}) {
      if (button == nullptr) continue;
      auto* widget = window.findChild<QWidget*>(widgetName(*button));
      // Enter may stand for a button that ends nothing, as one that searches.
      const bool ends = button == form.cancelButton() || form.cancelButton() == nullptr ||
                        widget->parentWidget() == &window;
      if (!ends) continue;
      EXPECT_TRUE(window.rect().contains(placeOf(*widget, window))) << button->name();
      EXPECT_FALSE(widget->visibleRegion().isEmpty()) << button->name();
    }
  });
}

// On a screen of 1366 x 768 nothing has to be scrolled.
TEST_F(EveryForm, IsWholeOnASmallScreen) {
  forEach([](Form& /*form*/, FormWindow& window) {
    QWidget& content = *window.findChild<ContentArea*>()->widget();
    QSize wanted = content.sizeHint().expandedTo(content.minimumSizeHint());
    wanted = wanted.expandedTo(content.minimumSize());
    if (content.hasHeightForWidth()) {
      wanted.setHeight(std::max(content.heightForWidth(wanted.width()), wanted.height()));
    }
    const QLayoutItem* const buttons = window.layout()->itemAt(1);
    if (buttons != nullptr) {
      wanted.rheight() += buttons->sizeHint().height();
      wanted.setWidth(std::max(wanted.width(), buttons->sizeHint().width()));
    }
    EXPECT_LE(wanted.width(), 1366 - 4);
    EXPECT_LE(wanted.height(), 768 - 36);
    constexpr int kScrollBar = 24;
    EXPECT_LE(window.width(), wanted.width() + kScrollBar) << "wider than what is in it";
  });
}

TEST_F(EveryForm, ItsButtonsStandApart) {
  int rows = 0;
  forEach([&](Form& form, FormWindow& window) {
    if (form.defaultButton() == nullptr || form.cancelButton() == nullptr) return;
    const QRect one =
        placeOf(*window.findChild<QWidget*>(widgetName(*form.defaultButton())), window);
    const QRect other =
        placeOf(*window.findChild<QWidget*>(widgetName(*form.cancelButton())), window);
    if (one == other || one.top() != other.top()) return;
    ++rows;
    EXPECT_GE(std::max(one.left(), other.left()) - std::min(one.right(), other.right()), 6);
  });
  EXPECT_GT(rows, 10);
}

TEST_F(EveryForm, LooksLikeItsTheme) {
  for (const bool dark : {false, true}) {
    applyTheme(testing::toolkit(), dark);
    forEach([dark](Form& form, FormWindow& window) {
      EXPECT_EQ(isDark(window.palette()), dark);
      testing::keepScreenshot(window, "form_" + form.name() + (dark ? "_dark" : "_light"));
    });
  }
  applyTheme(testing::toolkit(), /*dark=*/false);
}

}  // namespace
}  // namespace tess
