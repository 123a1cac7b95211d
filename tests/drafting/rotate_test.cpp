// Turning, by its form.
#include "drafting/rotate.h"

#include <functional>

#include "gtest/gtest.h"

#include "core/drawing_store.h"
#include "drafting/frmRotate.h"
#include "drafting/selection.h"
#include "tests/support/back_and_forth.h"
#include "tests/support/drafting_test_context.h"
#include "tests/support/failure_of.h"

namespace tess {
namespace {

using testing::expectBackAndForth;
using testing::RecordedDrafting;
using testing::segmentTexts;
using testing::TableBits;
using Texts = std::vector<std::string>;

// Works the form while it is shown.
void rotateWith(RecordedDrafting& d, const std::function<void(frmRotate&)>& work) {
  d.test.recording.prompts.onForm = [work](Form& form) { work(dynamic_cast<frmRotate&>(form)); };
  mnuEditRotate_Click(d.context);
}

std::function<void(frmRotate&)> by(const std::string& degrees) {
  return [degrees](frmRotate& form) {
    form.txtDegrees.setText(degrees);
    form.cmdOK.click();
  };
}

// The coordinates of all rows, for those that are no plain numbers after a turn.
void expectNear(const DrawingStore& store, const std::vector<SegmentRow>& rows) {
  ASSERT_EQ(store.NumSegments, static_cast<int>(rows.size()));
  for (int sg = 1; sg <= store.NumSegments; ++sg) {
    SCOPED_TRACE(sg);
    const SegmentRow& expected = rows[static_cast<std::size_t>(sg) - 1];
    const SegmentRow row = segmentRow(store, sg);
    EXPECT_EQ(row.type, expected.type);
    EXPECT_EQ(row.attr, expected.attr);
    EXPECT_NEAR(row.x0, expected.x0, 1e-6);
    EXPECT_NEAR(row.y0, expected.y0, 1e-6);
    EXPECT_NEAR(row.x1, expected.x1, 1e-6);
    EXPECT_NEAR(row.y1, expected.y1, 1e-6);
    EXPECT_NEAR(row.xc, expected.xc, 1e-6);
    EXPECT_NEAR(row.yc, expected.yc, 1e-6);
  }
}

struct RotateContext : RecordedDrafting {
  RotateContext() {
    addLine(1, 1, 3, 1);
    add({.type = 3, .x0 = 1, .y0 = 0, .x1 = 0, .y1 = 1});
    add({.type = 5, .x0 = 2, .y0 = 2, .x1 = 2, .y1 = 2, .xc = 1, .yc = 2});
    addPathLine(1, 1, 2, 2);
    store.drawingsaved = true;
  }
};

TEST(RotatePoint, GoesByAngleAndLengthRoundedToFourPlaces) {
  // The angle of (1, 1/3) is 18.43494882..., its length 1.05409255...
  const Point turned = rotatePoint({0, 0}, {1, 1.0F / 3}, 90);
  EXPECT_FLOAT_EQ(turned.x, static_cast<float>(1.0541 * std::cos(108.4349 * M_PI / 180)));
  EXPECT_FLOAT_EQ(turned.y, static_cast<float>(1.0541 * std::sin(108.4349 * M_PI / 180)));
  EXPECT_NE(turned.x, -1.0F / 3) << "an exact turn would be another one";
}

TEST(RotatePoint, LeavesTheCenterWhereItIs) {
  EXPECT_EQ(rotatePoint({0.1F, 0.7F}, {0.1F, 0.7F}, 33), (Point{0.1F, 0.7F}));
}

TEST(RotatePoint, TakesTheFourthQuadrantAsNegative) {
  const Point turned = rotatePoint({0, 0}, {1, -1}, 45);
  EXPECT_NEAR(turned.x, 1.4142F, 1e-6);
  EXPECT_NEAR(turned.y, 0, 1e-6);
}

TEST(Rotate, OpensAtTheMarkerWithItsDefaults) {
  RecordedDrafting d;
  d.addLine(0, 0, 1, 0);
  d.rightClick(1.25F, -2);
  rotateWith(d, [](frmRotate& form) {
    EXPECT_EQ(form.name(), "frmRotate");
    EXPECT_EQ(form.txtDegrees.text(), "45");
    EXPECT_EQ(form.txtRotateX.text(), "1.25");
    EXPECT_EQ(form.txtRotateY.text(), "-2.0");
    EXPECT_EQ(form.lblMarkerXY.caption(), "Marker: X=1.25, Y=-2.0");
    EXPECT_FALSE(form.optClockwise.value());
    EXPECT_TRUE(form.optCounterClockwise.value());
    EXPECT_TRUE(form.optMove.value());
    EXPECT_FALSE(form.optCopy.value());
    EXPECT_TRUE(form.chkSelectedSegments.isChecked());
    EXPECT_FALSE(form.chkSelectedSegments.isEnabled());
  });
  EXPECT_EQ(segmentTexts(d.store), Texts{"1 (0, 0)-(1, 0)"});
}

TEST(Rotate, TurnsLinesArcsAndCirclesCounterClockwise) {
  RotateContext d;
  const TableBits before(d.store);
  rotateWith(d, by("90"));
  const float d5 = 2.8284F, r5 = 2.2361F, r10 = 3.1623F, r2 = 1.4142F;  // lengths at four places
  const auto at = [](float length, double degrees) {
    return Point{static_cast<float>(length * std::cos(degrees * M_PI / 180)),
                 static_cast<float>(length * std::sin(degrees * M_PI / 180))};
  };
  const Point a = at(r2, 135), b = at(r10, 108.4349), c = at(d5, 135), m = at(r5, 153.4349);
  expectNear(d.store,
             {{.type = 1, .x0 = a.x, .y0 = a.y, .x1 = b.x, .y1 = b.y},
              {.type = 3, .x0 = 0, .y0 = 1, .x1 = -1, .y1 = 0},
              {.type = 5, .x0 = c.x, .y0 = c.y, .x1 = c.x, .y1 = c.y, .xc = m.x, .yc = m.y}});
  EXPECT_EQ(testing::pathTexts(d.store), Texts{"1 (1, 1)-(2, 2) @100 z 0"});
  EXPECT_EQ(d.context.changelog.changecount, 6);
  EXPECT_TRUE(d.context.changelog.record(0).StartOfSegment);
  EXPECT_FALSE(d.store.drawingsaved);
  expectBackAndForth(d, before);
}

TEST(Rotate, OfALineByNinetyDegreesAboutItsStartKeepsTheStart) {
  RecordedDrafting d;
  d.addLine(1, 1, 2, 1);
  const TableBits before(d.store);
  rotateWith(d, [](frmRotate& form) {
    form.txtRotateX.setText("1");
    form.txtRotateY.setText(" 1 ");
    form.txtDegrees.setText("90");
    form.cmdOK.click();
  });
  expectNear(d.store, {{.type = 1, .x0 = 1, .y0 = 1, .x1 = 1, .y1 = 2}});
  EXPECT_EQ((Point{d.store.x0[1], d.store.y0[1]}), (Point{1, 1}));
  expectBackAndForth(d, before);
}

TEST(Rotate, ClockwiseTurnsTheOtherWay) {
  RecordedDrafting d;
  d.addLine(0, 0, 1, 0);
  rotateWith(d, [](frmRotate& form) {
    form.txtDegrees.setText("90");
    form.optClockwise.setValue(true);
    form.cmdOK.click();
  });
  expectNear(d.store, {{.type = 1, .x1 = 0, .y1 = -1}});
}

TEST(Rotate, AsACopyLeavesTheRowsAndTheirAttributes) {
  RecordedDrafting d;
  d.addLine(0, 0, 1, 0);
  d.addLine(2, 0, 3, 0);
  d.store.segattr[1] = kSelectedRow;
  d.store.segattr[2] = 30108;
  const TableBits before(d.store);
  rotateWith(d, [](frmRotate& form) {
    form.txtDegrees.setText("180");
    form.optCopy.setValue(true);
    form.chkSelectedSegments.setChecked(false);
    form.cmdOK.click();
  });
  expectNear(d.store, {{.type = 1, .attr = kSelectedRow, .x1 = 1},
                       {.type = 1, .attr = 30108, .x0 = 2, .x1 = 3},
                       {.type = 1, .attr = kSelectedRow, .x1 = -1},
                       {.type = 1, .attr = 30108, .x0 = -2, .x1 = -3}});
  EXPECT_EQ(d.context.changelog.changecount, 2);
  EXPECT_EQ(d.context.state.Selected.rows(), (std::vector<int>{1, 2, 3, 4}));
  expectBackAndForth(d, before);
}

TEST(Rotate, OfTheSelectionTakesItAlone) {
  RecordedDrafting d;
  d.addLine(0, 0, 1, 0);
  d.addLine(0, 0, 2, 0);
  d.store.segattr[1] = kSelectedRow;
  const TableBits before(d.store);
  rotateWith(d, by("180"));
  expectNear(d.store, {{.type = 1, .x1 = 2}, {.type = 1, .attr = kSelectedRow, .x1 = -1}});
  expectBackAndForth(d, before);
}

TEST(Rotate, OfKindsWithoutShapeTakesTheStoredPointAlone) {
  for (const int type : {0, 80}) {
    RecordedDrafting d;
    d.add({.type = type, .x0 = 1, .y0 = 0, .x1 = 3, .y1 = 4, .xc = 5, .yc = 6});
    rotateWith(d, by("180"));
    expectNear(d.store, {{.type = type, .x0 = -1, .x1 = 3, .y1 = 4, .xc = 5, .yc = 6}});
  }
}

TEST(Rotate, OfARectangleTurnsItsCorners) {
  RecordedDrafting d;
  d.add({.type = 6, .x0 = 1, .y0 = 0, .x1 = 0, .y1 = 2});
  rotateWith(d, by("90"));
  expectNear(d.store, {{.type = 6, .x0 = 0, .y0 = 1, .x1 = -2, .y1 = 0}});
}

TEST(Rotate, ByTheEndsOfItsRangeIsTaken) {
  for (const char* const degrees : {"0", "360"}) {
    RecordedDrafting d;
    d.addLine(0, 0, 1, 0);
    rotateWith(d, by(degrees));
    EXPECT_TRUE(d.messages().empty());
    EXPECT_EQ(d.context.changelog.changecount, 2);
    expectNear(d.store, {{.type = 1, .x1 = 1}});
  }
}

TEST(Rotate, KeepsTheDegreesThatOkTook) {
  RecordedDrafting d;
  d.addLine(0, 0, 1, 0);
  rotateWith(d, by("12.5"));
  rotateWith(d, [](frmRotate& form) {
    EXPECT_EQ(form.txtDegrees.text(), "12.5");
    form.txtDegrees.setText("30");
    form.cmdCancel.click();
  });
  rotateWith(d, [](frmRotate& form) {
    EXPECT_EQ(form.txtDegrees.text(), "12.5") << "Cancel takes nothing";
    form.txtDegrees.setText("0");
    form.cmdOK.click();
  });
  rotateWith(d, [](frmRotate& form) { EXPECT_EQ(form.txtDegrees.text(), "45"); });
}

TEST(Rotate, OfAFaultTellsSoAndGoesToTheField) {
  struct Fault {
    const char* degrees;
    const char* x;
    const char* y;
    const char* message;
    TextBox frmRotate::*field;
  };
  const Fault faults[] = {
      {"", "0", "0", "Degrees must be numeric.", &frmRotate::txtDegrees},
      {"90 deg", "x", "0", "Degrees must be numeric.", &frmRotate::txtDegrees},
      {"1e39", "0", "0", "Degrees must be numeric.", &frmRotate::txtDegrees},
      {"-0.1", "0", "0", "Degrees must be between 0 and 360.", &frmRotate::txtDegrees},
      {"360.001", "x", "0", "Degrees must be between 0 and 360.", &frmRotate::txtDegrees},
      {"1e30", "0", "0", "Degrees must be between 0 and 360.", &frmRotate::txtDegrees},
      {"90", "", "y", "Rotation Point X, Y coordinates must be numeric.", &frmRotate::txtRotateX},
      {"90", "0", "1/2", "Rotation Point X, Y coordinates must be numeric.",
       &frmRotate::txtRotateY},
  };
  for (const Fault& fault : faults) {
    SCOPED_TRACE(fault.degrees);
    RotateContext d;
    const TableBits before(d.store);
    rotateWith(d, [&](frmRotate& form) {
      form.txtDegrees.setText(fault.degrees);
      form.txtRotateX.setText(fault.x);
      form.txtRotateY.setText(fault.y);
      EXPECT_TRUE(d.context.formPreview.rows.empty());
      form.cmdOK.focus();
      form.cmdOK.click();
      EXPECT_TRUE(form.isShown());
      EXPECT_EQ(form.focused(), &(form.*fault.field));
    });
    ASSERT_EQ(d.messages().size(), 1U);
    EXPECT_EQ(d.messages()[0].text, fault.message);
    EXPECT_EQ(d.messages()[0].title, "Rotate");
    EXPECT_EQ(d.messages()[0].icon, MessageIcon::Warning);
    EXPECT_TRUE(TableBits(d.store) == before);
    EXPECT_EQ(d.context.command.rotateDegrees, 0);
  }
}

TEST(Rotate, BeyondTheLargestNumberChangesNothing) {
  RecordedDrafting d;
  d.addLine(3e38F, 3e38F, 1, 0);
  const TableBits before(d.store);
  EXPECT_EQ(testing::numberOfFailure([&] { rotateWith(d, by("45")); }), FailureNumber::Overflow);
  EXPECT_TRUE(TableBits(d.store) == before);
  EXPECT_EQ(d.context.changelog.changecount, 0);
}

TEST(Rotate, IntoAFullTableAddsNothing) {
  RecordedDrafting d;
  for (int row = 0; row < 32767; ++row) d.addLine(static_cast<float>(row), 0, 1, 1);
  const auto rotate = [&] {
    rotateWith(d, [](frmRotate& form) {
      form.optCopy.setValue(true);
      form.cmdOK.click();
    });
  };
  EXPECT_EQ(testing::numberOfFailure(rotate), FailureNumber::Overflow);
  EXPECT_EQ(d.store.NumSegments, 32767);
}

TEST(Rotate, ThatTheLogCannotHoldAsksFirst) {
  RecordedDrafting d;
  for (int row = 0; row < 16384; ++row) d.addLine(static_cast<float>(row), 0, 1, 1);
  const TableBits before(d.store);
  d.test.recording.prompts.answers = {Answer::Cancel};
  rotateWith(d, by("90"));
  ASSERT_EQ(d.messages().size(), 1U);
  EXPECT_TRUE(d.messages()[0].text.starts_with("This change takes 32768 records"));
  EXPECT_TRUE(TableBits(d.store) == before);
}

TEST(Rotate, ShowsTheImagesBeforeOk) {
  RecordedDrafting d;
  d.addLine(0, 0, 1, 0);
  rotateWith(d, [&d](frmRotate& form) {
    form.txtDegrees.setText("180");
    ASSERT_EQ(d.context.formPreview.rows.size(), 1U);
    EXPECT_NEAR(d.context.formPreview.rows[0].x1, -1, 1e-6);
    form.optClockwise.setValue(true);
    form.txtDegrees.setText("90");
    EXPECT_NEAR(d.context.formPreview.rows[0].y1, -1, 1e-6);
    EXPECT_TRUE(d.context.formPreview.shown);
    form.cmdOK.click();
  });
  EXPECT_FALSE(d.context.formPreview.shown);
  EXPECT_TRUE(d.context.formPreview.rows.empty());
}

}  // namespace
}  // namespace tess
