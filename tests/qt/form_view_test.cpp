// Forms and their widgets, both ways, for each kind of control.
#include "shell/qt/form_view.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSlider>
#include <QTimer>
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "shell/qt/form_window.h"
#include "shell/qt/theme.h"
#include "tests/qt/desktop_test_support.h"
#include "tests/qt/seen_contrast.h"

namespace tess {
namespace {

// One control of each kind; no layout file bears its name.
class frmEverything : public Form {
 public:
  frmEverything() : Form("frmEverything", "Everything") {
    lblName.setCaption("&Name");
    chkOn.setCaption("On");
    cmdOK.setCaption("&OK");
    cmdCancel.setCaption("&Cancel");
    fraMore.setCaption("More");
    txtPages.multiLine = true;
    lstItems.setItems({"one", "two", "three"});
    cmbUnit.setItems({"inch", "mm"});
    sldSpeed.setRange(0, 100);
    for (const int index : OptCutWidth.indices()) OptCutWidth[index].setCaption("Width");
    setDefaultButton(cmdOK);
    setCancelButton(cmdCancel);
    cmdOK.onClick = [this] { accept(); };
    cmdCancel.onClick = [this] { close(); };
    chkOn.onClick = [this] { log.push_back("chkOn " + std::to_string(chkOn.value())); };
    txtName.onChange = [this] { log.push_back("txtName " + txtName.text()); };
    lstItems.onClick = [this] { log.push_back("lstItems " + std::to_string(lstItems.index())); };
    cmbUnit.onClick = [this] { log.push_back("cmbUnit " + cmbUnit.text()); };
    cmbUnit.onDropDown = [this] { log.push_back("dropped"); };
    OptCutWidth.onClick = [this](int index) { log.push_back("opt " + std::to_string(index)); };
    sldSpeed.onChange = [this] {
      log.push_back("sldSpeed " + std::to_string(std::lround(sldSpeed.value())));
    };
  }

  Label lblName{*this, "lblName"};
  TextBox txtName{*this, "txtName"};
  TextBox txtPages{*this, "txtPages"};
  CheckBox chkOn{*this, "chkOn"};
  ListBox lstItems{*this, "lstItems"};
  ComboBox cmbUnit{*this, "cmbUnit"};
  ComboBox cmbFree{*this, "cmbFree", ComboStyle::Editable};
  Slider sldSpeed{*this, "sldSpeed"};
  Frame fraMore{*this, "fraMore"};
  ControlArray<Option> OptCutWidth{*this, "OptCutWidth", {1, 2}, fraMore};
  Picture picMap{*this, "picMap"};
  Button cmdOK{*this, "cmdOK"};
  Button cmdCancel{*this, "cmdCancel"};
  std::vector<std::string> log;
};

class FormViewTest : public ::testing::Test {
 protected:
  FormViewTest() {
    window = std::make_unique<FormWindow>(form, gateway, nullptr);
    form.open(Modality::Modeless);
    QApplication::setActiveWindow(window.get());
    QCoreApplication::processEvents();
  }

  template <class Shown>
  Shown& widget(const char* name) {
    auto* found = window->findChild<Shown*>(name);
    EXPECT_NE(found, nullptr) << name;
    return *found;
  }

  static void key(QWidget& target, int key, const QString& text = {}) {
    QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier, text);
    QApplication::sendEvent(&target, &press);
  }

  using Log = std::vector<std::string>;

  Gateway gateway{testing::passThrough()};
  frmEverything form;
  std::unique_ptr<FormWindow> window;
};

TEST_F(FormViewTest, EveryControlHasAWidget) {
  for (const Control* control : form.controls()) {
    EXPECT_NE(window->findChild<QWidget*>(widgetName(*control)), nullptr) << control->name();
  }
  EXPECT_EQ(window->windowTitle(), "Everything");
  testing::keepScreenshot(*window, "form_everything");
}

TEST_F(FormViewTest, TextGoesBothWays) {
  auto& line = widget<QLineEdit>("txtName");
  form.txtName.setText("abc");
  EXPECT_EQ(line.text(), "abc");
  line.end(false);
  key(line, Qt::Key_D, "d");
  EXPECT_EQ(form.txtName.text(), "abcd");
  EXPECT_EQ(form.log, (Log{"txtName abc", "txtName abcd"}));
}

TEST_F(FormViewTest, AHandlerThatChangesTheTextIsSeenAtOnce) {
  form.txtName.onChange = [this] { form.txtName.setText("ONLY"); };
  auto& line = widget<QLineEdit>("txtName");
  key(line, Qt::Key_X, "x");
  EXPECT_EQ(line.text(), "ONLY");
}

TEST_F(FormViewTest, PagesGoBothWaysWithEitherLineEnd) {
  auto& pages = widget<QPlainTextEdit>("txtPages");
  form.txtPages.setText("a\r\nb");
  EXPECT_EQ(pages.toPlainText(), "a\nb");
  EXPECT_EQ(form.txtPages.text(), "a\r\nb") << "showing a text does not change it";
  pages.setPlainText("c");
  EXPECT_EQ(form.txtPages.text(), "c");
}

TEST_F(FormViewTest, CheckBoxesGoBothWays) {
  auto& box = widget<QCheckBox>("chkOn");
  form.chkOn.setValue(2);
  EXPECT_EQ(box.checkState(), Qt::PartiallyChecked);
  box.click();
  EXPECT_EQ(form.chkOn.value(), 0);
  box.click();
  EXPECT_EQ(form.chkOn.value(), 1);
  EXPECT_TRUE(box.isChecked());
  EXPECT_EQ(form.log, (Log{"chkOn 2", "chkOn 0", "chkOn 1"}));
}

TEST_F(FormViewTest, OptionsOfAnArrayExcludeEachOther) {
  auto& first = widget<QRadioButton>("OptCutWidth_1");
  auto& second = widget<QRadioButton>("OptCutWidth_2");
  first.click();
  second.click();
  EXPECT_FALSE(first.isChecked());
  EXPECT_TRUE(second.isChecked());
  second.click();
  EXPECT_TRUE(second.isChecked()) << "a second click does not clear it";
  EXPECT_EQ(form.log, (Log{"opt 1", "opt 2"}));
}

TEST_F(FormViewTest, ListsGoBothWays) {
  auto& list = widget<QListWidget>("lstItems");
  ASSERT_EQ(list.count(), 3);
  list.setCurrentRow(1);
  EXPECT_EQ(form.lstItems.index(), 1);
  form.lstItems.addItem("four");
  EXPECT_EQ(list.count(), 4);
  EXPECT_EQ(list.currentRow(), 1);
  form.lstItems.setIndex(-1);
  EXPECT_EQ(list.currentRow(), -1);
  EXPECT_EQ(form.log.front(), "lstItems 1");
}

TEST_F(FormViewTest, CombosGoBothWaysAndTellThatTheyDropDown) {
  auto& box = widget<QComboBox>("cmbUnit");
  form.cmbUnit.setIndex(0);
  EXPECT_EQ(box.currentText(), "inch");
  box.showPopup();
  box.hidePopup();
  box.setCurrentIndex(1);
  emit box.activated(1);
  EXPECT_EQ(form.cmbUnit.text(), "mm");
  EXPECT_EQ(form.log, (Log{"cmbUnit inch", "dropped", "cmbUnit mm"}));
}

TEST_F(FormViewTest, EditableCombosTakeAnyText) {
  auto& box = widget<QComboBox>("cmbFree");
  form.cmbFree.setItems({"A", "B"});
  form.cmbFree.setText("C");
  EXPECT_EQ(box.currentText(), "C");
  key(*box.lineEdit(), Qt::Key_D, "d");
  EXPECT_EQ(form.cmbFree.text(), "Cd");
}

TEST_F(FormViewTest, SlidersGoBothWays) {
  auto& slider = widget<QSlider>("sldSpeed");
  form.sldSpeed.setValue(40);
  EXPECT_EQ(slider.value(), 40);
  slider.setValue(55);
  EXPECT_EQ(form.sldSpeed.value(), 55);
  form.sldSpeed.setRange(0, 1);
  slider.setValue(500);
  EXPECT_DOUBLE_EQ(form.sldSpeed.value(), 0.5);
}

TEST_F(FormViewTest, CaptionsFlagsHintsAndColorsAreShown) {
  applyTheme(testing::toolkit(), /*dark=*/false);
  form.lblName.setCaption("Other");
  EXPECT_EQ(widget<QLabel>("lblName").text(), "Other");
  form.cmdOK.setEnabled(false);
  EXPECT_FALSE(widget<QPushButton>("cmdOK").isEnabled());
  form.chkOn.setVisible(false);
  EXPECT_TRUE(widget<QCheckBox>("chkOn").isHidden());
  form.chkOn.setHint("what it does");
  EXPECT_EQ(widget<QCheckBox>("chkOn").toolTip(), "what it does");
  form.lblName.setColor(0x0000FF);
  EXPECT_EQ(widget<QLabel>("lblName").palette().color(QPalette::WindowText), QColor(223, 0, 0))
      << "red, as far as letters of it can be read";
  form.lblName.setColor(std::nullopt);
  EXPECT_EQ(widget<QLabel>("lblName").palette().color(QPalette::WindowText),
            window->palette().color(QPalette::WindowText));
  form.setCaption("Renamed");
  EXPECT_EQ(window->windowTitle(), "Renamed");
}

// Green and orange are too light for a light window, blue is too dark for a dark one.
TEST_F(FormViewTest, AColorOfItsOwnIsLegibleInEveryTheme) {
  for (const bool dark : {false, true, false}) {
    applyTheme(testing::toolkit(), dark);
    for (const int color : {0x50A030, 0x0082D2, 0x3C3CE6, 0xFF0000}) {
      form.lblName.setColor(color);
      applyTheme(testing::toolkit(), !dark);
      applyTheme(testing::toolkit(), dark);
      const QPalette palette = widget<QLabel>("lblName").palette();
      const QRgb ink = palette.color(QPalette::WindowText).rgb();
      EXPECT_GE(testing::contrast(ink, palette.color(QPalette::Window).rgb()), 4.5) << color;
      EXPECT_NE(QColor(ink).hue(), -1) << "a grey";
    }
    form.lblName.setColor(0x50A030);
    applyTheme(testing::toolkit(), !dark);
    const QPalette turned = widget<QLabel>("lblName").palette();
    EXPECT_GE(testing::contrast(turned.color(QPalette::WindowText).rgb(),
                                turned.color(QPalette::Window).rgb()),
              4.5)
        << "after the theme has changed";
  }
  applyTheme(testing::toolkit(), /*dark=*/false);
}

TEST_F(FormViewTest, AFrameDisablesWhatIsInside) {
  form.fraMore.setEnabled(false);
  EXPECT_FALSE(widget<QRadioButton>("OptCutWidth_1").isEnabled());
  form.fraMore.setEnabled(true);
  EXPECT_TRUE(widget<QRadioButton>("OptCutWidth_1").isEnabled());
  EXPECT_EQ(widget<QGroupBox>("fraMore").title(), "More");
}

// Of itself, and not by its place in the widgets: a layout may put it outside the box of its frame.
TEST_F(FormViewTest, AFrameHidesWhatIsInside) {
  form.OptCutWidth[2].setVisible(false);
  form.fraMore.setVisible(false);
  EXPECT_TRUE(widget<QRadioButton>("OptCutWidth_1").isHidden());
  form.fraMore.setVisible(true);
  EXPECT_FALSE(widget<QRadioButton>("OptCutWidth_1").isHidden());
  EXPECT_TRUE(widget<QRadioButton>("OptCutWidth_2").isHidden());
}

TEST_F(FormViewTest, TheFocusMovesWithTheKeyboard) {
  form.txtName.onLeave = [this] { form.log.emplace_back("left txtName"); };
  widget<QLineEdit>("txtName").setFocus();
  EXPECT_EQ(form.focused(), &form.txtName);
  widget<QCheckBox>("chkOn").setFocus();
  EXPECT_EQ(form.focused(), &form.chkOn);
  EXPECT_EQ(form.log, Log{"left txtName"});
  form.txtName.focus();
  EXPECT_TRUE(widget<QLineEdit>("txtName").hasFocus());
}

TEST_F(FormViewTest, AFieldThatRefusesToBeLeftKeepsTheKeyboard) {
  form.txtName.focus();
  form.txtName.onValidate = [](Validation& validation) { validation.refuse(); };
  widget<QCheckBox>("chkOn").setFocus();
  QCoreApplication::processEvents();
  EXPECT_EQ(form.focused(), &form.txtName);
  EXPECT_TRUE(widget<QLineEdit>("txtName").hasFocus());
  widget<QCheckBox>("chkOn").click();
  EXPECT_FALSE(widget<QCheckBox>("chkOn").isChecked());
  EXPECT_EQ(form.chkOn.value(), 0);
}

TEST_F(FormViewTest, ASelectedTextIsMarked) {
  form.txtName.setText("abc");
  form.chkOn.focus();
  form.txtName.focus();
  QCoreApplication::processEvents();
  EXPECT_EQ(widget<QLineEdit>("txtName").selectedText(), "abc");
}

TEST_F(FormViewTest, EnterPressesTheDefaultButtonAndEscTheOther) {
  key(widget<QLineEdit>("txtName"), Qt::Key_Return, "\r");
  EXPECT_FALSE(form.isShown());
  EXPECT_TRUE(form.accepted());
  form.open(Modality::Modeless);
  EXPECT_TRUE(window->isVisible());
  key(*window, Qt::Key_Escape);
  EXPECT_FALSE(form.isShown());
  EXPECT_FALSE(form.accepted());
}

// Whatever has the keyboard, but for what takes the key itself.
TEST_F(FormViewTest, EnterAndEscReachTheButtonsFromEveryKindOfControl) {
  for (Control* control : form.controls()) {
    if (!control->takesFocus()) continue;
    SCOPED_TRACE(widgetName(*control).toStdString());
    form.open(Modality::Modeless);
    control->focus();
    ASSERT_NE(window->focusWidget(), nullptr);
    ASSERT_EQ(form.focused(), control);
    const bool takesEnter = control == &form.txtPages || control == &form.cmdCancel;
    if (!takesEnter) {
      key(*window->focusWidget(), Qt::Key_Return, "\r");
      EXPECT_TRUE(form.accepted());
      EXPECT_FALSE(window->isVisible());
      form.open(Modality::Modeless);
      control->focus();
    }
    key(*window->focusWidget(), Qt::Key_Escape, "\x1b");
    EXPECT_FALSE(form.accepted());
    EXPECT_FALSE(window->isVisible());
  }
}

TEST_F(FormViewTest, ADoubleClickAndTheEnterKeyOpenAnItem) {
  form.lstItems.onOpen = [this] { form.log.push_back("open " + form.lstItems.text()); };
  auto& list = widget<QListWidget>("lstItems");
  const QPointF at = list.visualItemRect(list.item(1)).center();
  for (const auto type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease,
                          QEvent::MouseButtonDblClick, QEvent::MouseButtonRelease}) {
    QMouseEvent event(type, at, list.viewport()->mapToGlobal(at), Qt::LeftButton, Qt::LeftButton,
                      Qt::NoModifier);
    QApplication::sendEvent(list.viewport(), &event);
  }
  EXPECT_EQ(form.log.back(), "open two");
  form.log.clear();
  key(list, Qt::Key_Down);
  key(list, Qt::Key_Return, "\r");
  EXPECT_EQ(form.log, (Log{"lstItems 2", "open three"}));
  EXPECT_TRUE(form.isShown());
}

TEST_F(FormViewTest, TheClosingButtonAsksTheForm) {
  form.onQueryClose = [](CloseQuery& query) { query.refuse(); };
  EXPECT_FALSE(window->close());
  EXPECT_TRUE(form.isShown());
  form.onQueryClose = nullptr;
  EXPECT_TRUE(window->close());
  EXPECT_FALSE(form.isShown());
}

TEST_F(FormViewTest, TheFormKnowsTheSizeOfItsView) {
  window->resize(500, 700);
  QCoreApplication::processEvents();
  EXPECT_EQ(form.width(), 500);
  EXPECT_EQ(form.height(), 700);
}

TEST(FormWindow, OutlivesItsForm) {
  Gateway gateway(testing::passThrough());
  auto form = std::make_unique<frmEverything>();
  FormWindow window(*form, gateway, nullptr);
  form->open(Modality::Modeless);
  form.reset();
  EXPECT_FALSE(window.isVisible());
  EXPECT_EQ(window.view().form(), nullptr);
  window.findChild<QPushButton*>("cmdOK")->click();
}

TEST(FormWindow, AModalFormReturnsWhenItIsClosed) {
  Gateway gateway(testing::passThrough());
  frmEverything form;
  FormWindow window(form, gateway, nullptr);
  QTimer::singleShot(0, &window, [&] { window.findChild<QPushButton*>("cmdOK")->click(); });
  window.runModal();
  EXPECT_TRUE(form.accepted());
}

TEST(FormWindow, AModalFormThatClosesWhileItLoadsDoesNotWait) {
  Gateway gateway(testing::passThrough());
  frmEverything form;
  form.onLoad = [&] { form.close(); };
  FormWindow window(form, gateway, nullptr);
  window.runModal();
  EXPECT_FALSE(form.isShown());
}

// A form of the name of a layout file, whose fields it binds.
class dlgPositionCursorLike : public Form {
 public:
  dlgPositionCursorLike() : Form("dlgPositionCursor", "Position Cursor") {}
  TextBox txtx{*this, "txtx"};
  Button cmdUseMarkerX{*this, "cmdUseMarkerX"};
  TextBox txtExtra{*this, "txtExtra"};
};

TEST(FormView, UsesTheLayoutOfItsNameAndAddsWhatThatLacks) {
  Gateway gateway(testing::passThrough());
  dlgPositionCursorLike form;
  form.txtx.setText("1.5");
  QWidget parent;
  FormView view(form, gateway, parent);
  EXPECT_EQ(parent.findChild<QLineEdit*>("txtx")->text(), "1.5");
  EXPECT_EQ(parent.findChild<QPushButton*>("cmdUseMarkerX")->text(), "Use Marker X")
      << "a caption that only the layout has stays";
  EXPECT_NE(parent.findChild<QLineEdit*>("txty"), nullptr) << "the layout's own";
  EXPECT_NE(parent.findChild<QLineEdit*>("txtExtra"), nullptr);
}

}  // namespace
}  // namespace tess
