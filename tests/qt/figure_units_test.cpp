// Units behind the figures of a form: those of the drawing, or of the option that a form has for
// it.
#include "shell/qt/figure_units.h"

#include <QRadioButton>
#include <gtest/gtest.h>

#include "shell/qt/form_window.h"
#include "tests/qt/desktop_test_support.h"
#include "tests/qt/dialog_test_support.h"

namespace tess {
namespace {

struct Fields {
  Fields() {
    for (QLineEdit* field : {&length, &feed, &angle}) field->resize(150, 28);
    length.setProperty("unit", "length");
    feed.setProperty("unit", "feed");
    angle.setProperty("unit", "°");
  }
  static std::string unitOf(const QLineEdit& field) {
    return field.findChild<QLabel*>()->text().toStdString();
  }

  QWidget root;
  QLineEdit length{&root}, feed{&root}, angle{&root}, name{&root};
  bool metric = false;
};

TEST(FigureUnits, AreTheDrawings) {
  Fields fields;
  UnitMarks marks(fields.root, [&] { return fields.metric; });
  EXPECT_EQ(Fields::unitOf(fields.length), "in");
  EXPECT_EQ(Fields::unitOf(fields.feed), "in/min");
  EXPECT_EQ(Fields::unitOf(fields.angle), "°");
  EXPECT_EQ(fields.name.findChild<QLabel*>(), nullptr);
  fields.metric = true;
  marks.show();
  EXPECT_EQ(Fields::unitOf(fields.length), "mm");
  EXPECT_EQ(Fields::unitOf(fields.feed), "mm/min");
  EXPECT_EQ(fields.length.accessibleDescription(), "millimetres");
}

TEST(FigureUnits, FollowAnOptionOfTheForm) {
  Fields fields;
  QRadioButton option(&fields.root);
  option.setObjectName("optMM");
  fields.root.setProperty("metricOption", "optMM");
  UnitMarks marks(fields.root, [] { return false; });
  EXPECT_EQ(Fields::unitOf(fields.length), "in");
  option.setChecked(true);
  marks.show();
  EXPECT_EQ(Fields::unitOf(fields.length), "mm");
}

TEST(FigureUnits, LeaveRoomForTheFigure) {
  Fields fields;
  UnitMarks marks(fields.root, [] { return true; });
  const int figure = fields.feed.fontMetrics().horizontalAdvance("-123.4567");
  const int mark = fields.feed.findChild<QLabel*>()->sizeHint().width();
  EXPECT_GE(fields.feed.minimumWidth(), figure + mark);
  EXPECT_GE(fields.feed.textMargins().right(), mark);
}

TEST(FigureUnits, AreNotShownWhereNobodyKnowsTheDrawing) {
  Fields fields;
  UnitMarks marks(fields.root, nullptr);
  EXPECT_EQ(fields.length.findChild<QLabel*>(), nullptr);
}

}  // namespace
}  // namespace tess
