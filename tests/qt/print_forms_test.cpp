// The forms of printing in their windows: fields stand below one another, no button touches the
// next, and a small screen of double density has room for them.
#include <QAccessible>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPrintPreviewDialog>
#include <QPrinter>
#include <QPushButton>
#include <gtest/gtest.h>

#include "display/print_preview.h"
#include "shell/frmPageSetup.h"
#include "shell/frmPrintScale.h"
#include "shell/qt/spoken_names.h"
#include "tests/qt/desktop_test_support.h"
#include "tests/qt/dialog_test_support.h"
#include "tests/qt/plate_program.h"

namespace tess {
namespace {

using testing::expectWholeLayout;
using testing::PlateProgram;
using testing::whenModal;
using testing::widgetIn;

constexpr QSize kSmallScreen(683, 384);  // 1366 by 768, two pixels each way for one

QRect placeIn(const QWidget& dialog, const QWidget& widget) {
  return {widget.mapTo(&dialog, QPoint(0, 0)), widget.size()};
}

class PrintForms : public PlateProgram {
 protected:
  Session& session() { return program->application().session; }

  // The form in its window, for `look`.
  void show(Form& form, const std::function<void(QWidget&)>& look) {
    whenModal([&](QWidget& dialog) {
      look(dialog);
      form.close();
    });
    session().host.prompts.showModal(form);
  }

  static void expectInARow(QWidget& dialog, const std::vector<const char*>& buttons) {
    for (std::size_t n = 1; n < buttons.size(); ++n) {
      const QRect before = placeIn(dialog, widgetIn<QPushButton>(dialog, buttons[n - 1]));
      const QRect after = placeIn(dialog, widgetIn<QPushButton>(dialog, buttons[n]));
      EXPECT_EQ(before.top(), after.top()) << buttons[n];
      EXPECT_GE(after.left() - before.right(), 6) << buttons[n];
    }
  }
  // A label beside its field, and all fields from the same place on.
  static void expectColumn(QWidget& dialog,
                           const std::vector<std::pair<const char*, const char*>>& rows) {
    const int left = placeIn(dialog, widgetIn<QWidget>(dialog, rows.front().second)).left();
    for (const auto& [label, field] : rows) {
      const QRect beside = placeIn(dialog, widgetIn<QLabel>(dialog, label));
      const QRect place = placeIn(dialog, widgetIn<QWidget>(dialog, field));
      EXPECT_EQ(place.left(), left) << field;
      EXPECT_LT(beside.right(), left) << label;
      EXPECT_NEAR(beside.center().y(), place.center().y(), 1) << label;
    }
  }
  static void expectRoomFor(const QWidget& dialog) {
    EXPECT_LE(dialog.frameSize().width(), kSmallScreen.width());
    EXPECT_LE(dialog.frameSize().height(), kSmallScreen.height());
  }
};

TEST_F(PrintForms, LayoutsHaveEveryControl) {
  PageSetup setup;
  expectWholeLayout(frmPageSetup(setup, session().host.prompts));
  ScaledPrint print;
  expectWholeLayout(frmPrintScale(session(), Box{}, print));
}

TEST_F(PrintForms, ThePageSetUpStandsInColumns) {
  PageSetup setup;
  frmPageSetup form(setup, session().host.prompts);
  show(form, [](QWidget& dialog) {
    expectColumn(dialog, {{"lblPaper", "cmbPaper"}, {"lblMargin", "txtMargin"}});
    expectInARow(dialog, {"cmdAccept", "cmdCancel"});
    expectRoomFor(dialog);
  });
}

TEST_F(PrintForms, PrintToScaleStandsInColumns) {
  ScaledPrint print;
  frmPrintScale form(session(), Box{0, 0, 4, 3}, print);
  show(form, [&](QWidget& dialog) {
    expectColumn(
        dialog, {{"lblScale", "cmbScale"}, {"lblPaper", "cmbPaper"}, {"lblOverlap", "txtOverlap"}});
    expectInARow(dialog, {"cmdPrint", "cmdPreview", "cmdFile", "cmdClose"});
    expectRoomFor(dialog);
  });
}

// ---- Screen readers

QString nameIn(QWidget& widget) {
  QAccessibleInterface* const spoken = QAccessible::queryAccessibleInterface(&widget);
  return spoken == nullptr ? QString() : spoken->text(QAccessible::Name);
}

TEST_F(PrintForms, TheFieldOfAListThatIsTypedIntoHasItsName) {
  ScaledPrint print;
  frmPrintScale form(session(), Box{0, 0, 4, 3}, print);
  show(form, [](QWidget& dialog) {
    int typed = 0;
    for (auto* const list : dialog.findChildren<QComboBox*>()) {
      if (list->lineEdit() == nullptr) continue;
      ++typed;
      EXPECT_EQ(nameIn(*list->lineEdit()), "Scale, paper to part");
    }
    EXPECT_EQ(typed, 1);
  });
}

TEST(PrintPreviewNames, EveryStopOfTheTabKeyHasAName) {
  QPrinter printer;
  printer.setOutputFormat(QPrinter::PdfFormat);
  QPrintPreviewDialog dialog(&printer);
  namePreviewForReaders(dialog);
  int stops = 0;
  for (auto* const widget : dialog.findChildren<QWidget*>()) {
    const bool stop = (widget->focusPolicy() & Qt::TabFocus) != 0 && widget->isEnabledTo(&dialog);
    if (!stop || widget->focusProxy() != nullptr || widget->window() != &dialog) continue;
    ++stops;
    EXPECT_NE(nameIn(*widget), "")
        << widget->metaObject()->className() << " " << widget->objectName().toStdString();
  }
  EXPECT_GT(stops, 10) << "its buttons are reached too";
}

}  // namespace
}  // namespace tess
