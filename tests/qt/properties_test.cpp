// The property window in the main window: its rows are painted and chosen, its values edited by
// hand, and it looks right in both themes.
#include <QApplication>
#include <QComboBox>
#include <QDockWidget>
#include <QFile>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QTabBar>
#include <ctime>
#include <filesystem>
#include <gtest/gtest.h>

#include "core/drawing_store.h"
#include "drafting/change.h"
#include "shell/qt/desktop_program.h"
#include "shell/qt/form_layout.h"
#include "shell/qt/prop_list_pane.h"
#include "shell/qt/theme.h"
#include "tests/qt/desktop_test_support.h"
#include "tests/support/source_folder.h"
#include "tests/support/temp_folder.h"

namespace tess {
namespace {

class PropertiesPanel : public ::testing::TestWithParam<bool> {
 protected:
  PropertiesPanel() {
    applyTheme(testing::toolkit(), GetParam());
    std::filesystem::copy(TESSIMO_SOURCE_DIR "/data", home(),
                          std::filesystem::copy_options::recursive);
    std::filesystem::create_directories(home("CNC"));
    home.write("CNC/TSMO.MRU", "");
    program = std::make_unique<DesktopProgram>(home());
    program->open("");
    program->window().setWindowState(Qt::WindowNoState);
    program->window().resize(1280, 800);
    delete program->window().findChild<QWidget*>("frmSplash");
  }
  ~PropertiesPanel() override { applyTheme(testing::toolkit(), /*dark=*/false); }

  void addRows() {
    Change change(program->application().interaction.context.changes);
    change.segments.append({.type = kLine, .x0 = 1, .y0 = 1, .x1 = 4, .y1 = 5}, Entry::Unmarked);
    change.segments.append(
        {.type = kCounterClockwiseArc, .x0 = 3, .y0 = 2, .x1 = 2, .y1 = 3, .xc = 2, .yc = 2},
        Entry::Unmarked);
    change.keep();
    program->application().clickTool("miSelectAll");
  }
  void open() {
    program->application().clickTool("miShowProperties");
    serve();
  }
  static void serve() { QCoreApplication::processEvents(); }
  // As an operator's window is; no field has the keyboard in another. On a platform without a
  // window manager any window that goes may take it away.
  void activate() { QApplication::setActiveWindow(&program->window()); }

  template <class Kind>
  Kind& part(const char* name) {
    auto* const found = program->window().panels().dock("barProperties")->findChild<Kind*>(name);
    if (found == nullptr) throw std::runtime_error(name);
    return *found;
  }
  PropListPane& pane() {
    auto* const found = dynamic_cast<PropListPane*>(&part<QWidget>("PropList1"));
    if (found == nullptr) throw std::runtime_error("PropList1");
    return *found;
  }
  QLineEdit& value() { return part<QLineEdit>("txtValue"); }
  frmProperties& form() { return program->application().interaction.properties; }
  DrawingStore& store() { return program->application().store; }

  void click(int row, bool onValue) {
    const CPropListItem& item = form().PropList1.PropListItems().Item(row);
    const Bounds field = onValue ? item.valueField() : item.nameField();
    const QPointF at(field.left + field.width / 2.0, field.top + field.height / 2.0);
    QMouseEvent press(QEvent::MouseButtonPress, at, pane().mapToGlobal(at), Qt::LeftButton,
                      Qt::LeftButton, Qt::NoModifier);
    activate();
    QApplication::sendEvent(&pane(), &press);
    serve();
  }
  void key(QWidget& to, int key, const QString& text = {}) {
    QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier, text);
    activate();
    QApplication::sendEvent(&to, &press);
    serve();
  }
  void typeValue(const std::string& text) {
    value().selectAll();
    for (const char letter : text) key(value(), 0, QString(QChar::fromLatin1(letter)));
  }
  void keep(const std::string& name) {
    testing::keepScreenshot(program->window(), name + (GetParam() ? "_dark" : "_light"));
  }

  testing::TempFolder home;
  std::unique_ptr<DesktopProgram> program;
};

TEST_P(PropertiesPanel, TheLayoutHasEveryControl) {
  QFile file(":/forms/frmProperties.ui");
  ASSERT_TRUE(file.open(QIODevice::ReadOnly));
  const QString layout = QString::fromUtf8(file.readAll());
  for (const Control* control : form().controls()) {
    EXPECT_TRUE(layout.contains(QString("name=\"%1\"").arg(widgetName(*control))))
        << control->name();
  }
}

TEST_P(PropertiesPanel, ShowsTheSelection) {
  addRows();
  open();
  EXPECT_TRUE(program->window().panels().dock("barProperties")->isVisible());
  EXPECT_EQ(part<QComboBox>("cboObject").currentText(), "Entity 1-Line");
  EXPECT_EQ(part<QTabBar>("TabStrip").tabText(1), "Categorized");
  EXPECT_TRUE(value().isHidden());
  testing::waitFor([this] { return pane().height() > 200; });
  keep("properties");
  part<QTabBar>("TabStrip").setCurrentIndex(1);
  form().cboObject.setText("Entity 2-CCW Arc");
  click(7, /*onValue=*/true);
  EXPECT_EQ(part<QLabel>("lblDescription").text(), "Radius of the arc or circle.");
  keep("properties_categorized");
}

TEST_P(PropertiesPanel, AValueIsEditedByHand) {
  addRows();
  open();
  click(3, /*onValue=*/true);
  EXPECT_EQ(value().text(), "5");
  const CPropListItem& length = form().PropList1.PropListItems().Item(3);
  EXPECT_TRUE(QRect(length.valueField().left, length.valueField().top, length.valueField().width,
                    length.valueField().height)
                  .contains(value().geometry()));
  typeValue("10");
  EXPECT_EQ(store().x1[1], 4) << "not before it is taken over";
  key(value(), Qt::Key_Return);
  EXPECT_FLOAT_EQ(store().x1[1], 7);
  EXPECT_EQ(value().text(), "10");
  click(1, /*onValue=*/true);
  typeValue("2");
  key(value(), Qt::Key_Escape);
  EXPECT_EQ(value().text(), "7.0000");
  EXPECT_FLOAT_EQ(store().x1[1], 7);
}

TEST_P(PropertiesPanel, KeysMoveThroughTheRows) {
  addRows();
  open();
  click(0, /*onValue=*/false);
  EXPECT_EQ(form().PropList1.text(), "Bearing");
  key(pane(), Qt::Key_Down);
  EXPECT_EQ(form().PropList1.text(), "End X");
  key(pane(), Qt::Key_End);
  EXPECT_EQ(form().PropList1.text(), "Start Y");
  key(pane(), Qt::Key_Home);
  key(pane(), Qt::Key_Up);
  EXPECT_EQ(form().PropList1.text(), "Bearing");
  key(pane(), Qt::Key_Down);
  key(pane(), Qt::Key_8, "8");
  EXPECT_EQ(value().text(), "8") << "a letter begins the value";
  key(value(), Qt::Key_Down);
  EXPECT_EQ(store().x1[1], 8) << "and another row takes it over";
  EXPECT_EQ(form().PropList1.text(), "End Y");
}

TEST_P(PropertiesPanel, LeavingForTheDrawingTakesTheValueOver) {
  addRows();
  open();
  click(1, /*onValue=*/true);
  ASSERT_TRUE(value().hasFocus());
  typeValue("6");
  program->surface().setFocus(Qt::MouseFocusReason);
  EXPECT_EQ(store().x1[1], 6);
}

TEST_P(PropertiesPanel, ItsKeysAreNoCommands) {
  addRows();
  open();
  click(1, /*onValue=*/true);
  key(value(), Qt::Key_L, "l");
  EXPECT_EQ(program->application().interaction.state.DrawMode(), -1) << "as Select All left it";
  EXPECT_EQ(value().text(), "l");
}

TEST_P(PropertiesPanel, TheWheelScrollsALowList) {
  addRows();
  open();
  pane().setFixedHeight(form().PropList1.PropListItems().Item(0).Height * 3);
  serve();
  QWheelEvent down({10, 10}, pane().mapToGlobal(QPointF(10, 10)), {}, {0, -120}, Qt::NoButton,
                   Qt::NoModifier, Qt::NoScrollPhase, false);
  QApplication::sendEvent(&pane(), &down);
  EXPECT_EQ(form().PropList1.PropListItems().firstShown(), 1);
}

TEST_P(PropertiesPanel, ClosedItLetsGoOfItsForm) {
  addRows();
  open();
  program->window().panels().dock("barProperties")->close();
  serve();
  EXPECT_FALSE(form().isShown());
  open();
  EXPECT_EQ(part<QComboBox>("cboObject").count(), 3);
}

TEST_P(PropertiesPanel, FollowsManySelectedRowsQuickly) {
  Application& application = program->application();
  Change change(application.interaction.context.changes);
  constexpr int kRows = 32767;
  for (int n = 0; n < kRows; ++n) {
    change.segments.append(
        {.type = kLine, .x0 = static_cast<float>(n), .y0 = 0, .x1 = static_cast<float>(n), .y1 = 1},
        Entry::Unmarked);
  }
  change.keep({.redraws = false});
  open();
  const auto follow = [&] {
    application.interaction.state.updateProperties = true;
    application.interaction.UpdatePropertyWindow();
  };
  double best = 1e9;
  for (int n = 0; n < 3; ++n) {
    application.interaction.state.Selected.clear();
    follow();
    application.interaction.state.Selected.fill(kRows);
    const std::clock_t start = std::clock();
    follow();
    best = std::min(best, 1000.0 * static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC);
  }
  EXPECT_EQ(part<QComboBox>("cboObject").count(), kRows + 1);
  RecordProperty("milliseconds", std::to_string(best));
  constexpr double kAllowed = 400;  // 50 without the checks of a test build
  EXPECT_LT(best, kAllowed);
}

INSTANTIATE_TEST_SUITE_P(Themes, PropertiesPanel, ::testing::Bool());

}  // namespace
}  // namespace tess
