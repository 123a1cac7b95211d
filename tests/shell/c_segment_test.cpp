// One drawing row in the property window: names, texts, and what an edit makes of the row.
#include "shell/c_segment.h"

#include <cmath>
#include <limits>

#include "gtest/gtest.h"

#include "core/drawing_store.h"
#include "tests/support/running_program.h"

namespace tess {
namespace {

using testing::RunningProgram;
using Texts = std::vector<std::string>;

// "NAME=VALUE: DESCRIPTION" of each row.
struct ListedRows : PropertyAdder {
  void AddProperty(const std::string& name, const PropertyContent& value,
                   const std::string& description, const std::string& category) override {
    const auto* const number = std::get_if<float>(&value);
    texts.push_back(name + "=" +
                    (number != nullptr ? std::to_string(*number) : std::get<std::string>(value)) +
                    ": " + description);
    categories.push_back(category);
  }
  Texts texts, categories;
};

class SegmentRows : public ::testing::Test, public RunningProgram {
 protected:
  int add(const SegmentRow& row) {
    Change change(context().changes);
    const int sg = change.segments.append(row, Entry::Unmarked);
    change.keep();
    return sg;
  }
  CSegment& at(int sg) {
    segment.setSegmentNumber(sg);
    return segment;
  }
  Texts rowsOf(int sg) {
    ListedRows rows;
    at(sg).EnumerateProperties(rows);
    for (const std::string& category : rows.categories) EXPECT_EQ(category, "Geometry");
    return rows.texts;
  }
  // The text that an edit leaves.
  std::string edit(int sg, const std::string& name, std::string value) {
    Flag cancel = true;
    at(sg).PropertyChange(name, value, cancel);
    EXPECT_FALSE(cancel) << name;
    return value;
  }
  void expectRow(int sg, const SegmentRow& row) {
    constexpr float kClose = 1e-5F;
    const DrawingStore& s = store;
    EXPECT_EQ(s.segtype[sg], row.type);
    EXPECT_EQ(s.segattr[sg], row.attr);
    EXPECT_NEAR(s.x0[sg], row.x0, kClose);
    EXPECT_NEAR(s.y0[sg], row.y0, kClose);
    EXPECT_NEAR(s.x1[sg], row.x1, kClose);
    EXPECT_NEAR(s.y1[sg], row.y1, kClose);
    EXPECT_NEAR(s.centerx[sg], row.xc, kClose);
    EXPECT_NEAR(s.centery[sg], row.yc, kClose);
  }

  DrawingStore& store = application.store;
  CSegment segment{application.session, context().changes};
  const int line = add({.type = kLine, .x0 = 1, .y0 = 1, .x1 = 4, .y1 = 5});
  const int arc = add({.type = kCounterClockwiseArc, .x0 = 2, .y0 = 0, .x1 = 0, .y1 = 2});
  const int circle = add({.type = kCircle, .x0 = 3, .y0 = 1, .x1 = 3, .y1 = 1, .xc = 1, .yc = 1});
  const int rectangle = add({.type = kRectangle, .x0 = 0, .y0 = 0, .x1 = 2, .y1 = 1});
};

TEST_F(SegmentRows, AreNamedByNumberAndKind) {
  EXPECT_EQ(at(line).SegmentName(), "Entity 1-Line");
  EXPECT_EQ(at(arc).SegmentName(), "Entity 2-CCW Arc");
  EXPECT_EQ(at(circle).SegmentName(), "Entity 3-Circle");
  EXPECT_EQ(at(rectangle).SegmentName(), "Entity 4-Rect");
  EXPECT_STREQ(segmentTypeWord(kClockwiseArc), "CW Arc");
  EXPECT_STREQ(segmentTypeWord(kPoint), "");
}

TEST_F(SegmentRows, AreFoundByTheirNamesInEitherCase) {
  for (const char* const name : {"Entity 3-Circle", "entity 3-circle", "ENTITY 3", "eNTITY 3.2x"}) {
    segment.InitializeSegmentFromName(name);
    EXPECT_EQ(segment.SegmentNumber(), 3) << name;
    EXPECT_EQ(segment.radius(), 2) << name;
  }
}

TEST_F(SegmentRows, ATextWithoutTheWordIsRowZero) {
  for (const char* const name : {"", "3", "Entity", "Entity3", " Entity 3", "Row 3", "Entity x"}) {
    segment.setSegmentNumber(line);
    segment.InitializeSegmentFromName(name);
    EXPECT_EQ(segment.SegmentNumber(), 0) << name;
    EXPECT_EQ(segment.SegmentName(), "Entity 0-") << name;
  }
}

TEST_F(SegmentRows, ANumberBeyondTheDrawingIsAFailure) {
  EXPECT_THROW(segment.InitializeSegmentFromName("Entity 5"), RuntimeFailure);
  EXPECT_THROW(segment.InitializeSegmentFromName("Entity -1"), RuntimeFailure);
  EXPECT_THROW(segment.InitializeSegmentFromName("Entity 99999999999"), RuntimeFailure);
  EXPECT_THROW(segment.setSegmentNumber(5), RuntimeFailure);
}

TEST_F(SegmentRows, EachKindHasItsOwn) {
  const char* const start = "Start point of the line or arc.";
  EXPECT_EQ(rowsOf(line),
            (Texts{std::string("Start X=1.0000: ") + start, std::string("Start Y=1.0000: ") + start,
                   "End X=4.0000: End point of the line or arc.",
                   "End Y=5.0000: End point of the line or arc.",
                   "Bearing=53.1301: ", "Length=5.000000: "}));
  EXPECT_EQ(
      rowsOf(arc),
      (Texts{std::string("Start X=2.0000: ") + start, std::string("Start Y=0.0000: ") + start,
             "End X=0.0000: End point of the line or arc.",
             "End Y=2.0000: End point of the line or arc.", "Center X=0.0000: Center of the arc.",
             "Center Y=0.0000: Center of the arc.", "Radius=2.000000: Radius of the arc or circle.",
             "Starting Angle=0: ", "Ending Angle=90.: "}));
  EXPECT_EQ(
      rowsOf(circle),
      (Texts{std::string("Start X=3.0000: ") + start, std::string("Start Y=1.0000: ") + start,
             "End X=3.0000: End point of the line or arc.",
             "End Y=1.0000: End point of the line or arc.",
             "Center X=1.0000: Center of the circle.", "Center Y=1.0000: Center of the circle.",
             "Radius=2.000000: Radius of the arc or circle."}));
}

TEST_F(SegmentRows, ARectangleHasOnlyFour) {
  EXPECT_EQ(rowsOf(rectangle).size(), 4U);
}

TEST_F(SegmentRows, AnglesAreDegreesAndOnesBelowZeroAreBlank) {
  EXPECT_EQ(AngleAsString(0), "0");
  EXPECT_EQ(AngleAsString(0.5F), "28.6479");
  EXPECT_EQ(AngleAsString(static_cast<float>(kPi)), "180.");
  EXPECT_EQ(AngleAsString(-0.5F), "");
}

TEST_F(SegmentRows, CoordinatesFollowTheDrawingsFormat) {
  EXPECT_EQ(CoordinateAsString(application.session, 1.5F), "1.5000");
  EXPECT_EQ(PointAsString(application.session, 1.5F, -2), "(1.5000, -2.0000)");
  application.session.formats.coordfmt = "0.0#";
  EXPECT_EQ(PointAsString(application.session, 1.555F, 0), "(1.56, 0.0)");
}

TEST_F(SegmentRows, CoordinatesOfALineAreWritten) {
  EXPECT_EQ(edit(line, "Start X", "0"), "0.0000");
  edit(line, "Start Y", "-1");
  edit(line, "End X", "2.5");
  edit(line, "End Y", "3.25");
  expectRow(line, {.type = kLine, .x0 = 0, .y0 = -1, .x1 = 2.5F, .y1 = 3.25F});
}

TEST_F(SegmentRows, PointsAreTakenByTheirPlaces) {
  EXPECT_EQ(edit(line, "Start", "(0.5, 2)"), "(0.5000, 2.0000)");
  EXPECT_EQ(edit(line, "End", "[7,8]"), "(7.0000, 8.0000)");
  expectRow(line, {.type = kLine, .x0 = 0.5F, .y0 = 2, .x1 = 7, .y1 = 8});
  EXPECT_EQ(edit(circle, "Center", "(0, 0)"), "(0.0000, 0.0000)");
  expectRow(circle, {.type = kCircle, .x0 = 2, .x1 = 2});
}

TEST_F(SegmentRows, PiecesOfAPointThatAreMissingAreZero) {
  for (const char* const text : {"", "(", ",", "()", "(,", "x"}) {
    EXPECT_EQ(edit(line, "Start", text), "(0.0000, 0.0000)") << text;
  }
}

TEST_F(SegmentRows, ABearingTurnsALineAboutItsStart) {
  EXPECT_EQ(edit(line, "Bearing", "90"), "90.");
  expectRow(line, {.type = kLine, .x0 = 1, .y0 = 1, .x1 = 1, .y1 = 6});
  EXPECT_EQ(edit(line, "Bearing", "-90"), "270.");
  expectRow(line, {.type = kLine, .x0 = 1, .y0 = 1, .x1 = 1, .y1 = -4});
}

TEST_F(SegmentRows, ALengthMovesTheEnd) {
  EXPECT_EQ(edit(line, "Length", "10"), "10");
  expectRow(line, {.type = kLine, .x0 = 1, .y0 = 1, .x1 = 7, .y1 = 9});
}

TEST_F(SegmentRows, ALengthOfZeroCollapsesTheLineToItsStart) {
  EXPECT_EQ(edit(line, "Length", "0"), "0");
  expectRow(line, {.type = kLine, .x0 = 1, .y0 = 1, .x1 = 1, .y1 = 1});
}

TEST_F(SegmentRows, AValueThatDoesNotParseIsZero) {
  EXPECT_EQ(edit(line, "End X", "five"), "0.0000");
  EXPECT_EQ(store.x1[line], 0);
}

TEST_F(SegmentRows, AnEndOfAnArcGivesRadiusAndAnglesAnew) {
  edit(arc, "Start X", "3");
  expectRow(arc, {.type = kCounterClockwiseArc, .x0 = 3, .x1 = 0, .y1 = 2});
  EXPECT_EQ(at(arc).radius(), 3);
}

TEST_F(SegmentRows, ACenterTakesTheEndsOfAnArcAlong) {
  edit(arc, "Center X", "10");
  edit(arc, "Center Y", "5");
  expectRow(
      arc, {.type = kCounterClockwiseArc, .x0 = 12, .y0 = 5, .x1 = 10, .y1 = 7, .xc = 10, .yc = 5});
}

TEST_F(SegmentRows, ARadiusMovesTheEndsOfAnArc) {
  EXPECT_EQ(edit(arc, "Radius", "4"), "4");
  expectRow(arc, {.type = kCounterClockwiseArc, .x0 = 4, .x1 = 0, .y1 = 4});
}

TEST_F(SegmentRows, AnglesPlaceTheEndsOfAnArc) {
  EXPECT_EQ(edit(arc, "Starting Angle", "180"), "180.");
  expectRow(arc, {.type = kCounterClockwiseArc, .x0 = -2, .x1 = 0, .y1 = 2});
  EXPECT_EQ(edit(arc, "Ending Angle", "270"), "270.");
  expectRow(arc, {.type = kCounterClockwiseArc, .x0 = -2, .x1 = 0, .y1 = -2});
}

TEST_F(SegmentRows, TheOnePointOfACircleIsBothItsEnds) {
  edit(circle, "Start X", "4");
  expectRow(circle, {.type = kCircle, .x0 = 4, .y0 = 1, .x1 = 4, .y1 = 1, .xc = 1, .yc = 1});
  edit(circle, "End Y", "2");
  expectRow(circle, {.type = kCircle, .x0 = 4, .y0 = 2, .x1 = 4, .y1 = 2, .xc = 1, .yc = 1});
}

TEST_F(SegmentRows, ACenterTakesThePointOfACircleAlong) {
  edit(circle, "Center X", "0");
  expectRow(circle, {.type = kCircle, .x0 = 2, .y0 = 1, .x1 = 2, .y1 = 1, .xc = 0, .yc = 1});
}

TEST_F(SegmentRows, ARadiusMovesThePointOfACircleAlone) {
  edit(circle, "Radius", "5");
  expectRow(circle, {.type = kCircle, .x0 = 6, .y0 = 1, .x1 = 6, .y1 = 1, .xc = 1, .yc = 1});
}

TEST_F(SegmentRows, ARowThatTheKindLacksIsCancelled) {
  for (const auto& [sg, name] : std::vector<std::pair<int, std::string>>{{line, "Radius"},
                                                                         {line, "Center"},
                                                                         {circle, "Bearing"},
                                                                         {rectangle, "Length"},
                                                                         {arc, "Length"},
                                                                         {line, "start x"},
                                                                         {line, "Width"}}) {
    std::string value = "1";
    Flag cancel = false;
    at(sg).PropertyChange(name, value, cancel);
    EXPECT_TRUE(cancel) << name;
    EXPECT_EQ(value, "1");
  }
  EXPECT_EQ(context().changelog.changecount, 0);
}

TEST_F(SegmentRows, EveryEditIsOneStepOfUndo) {
  store.drawingsaved = true;
  edit(line, "End X", "9");
  EXPECT_EQ(context().changelog.changecount, 2) << "the row as it was, and as it is";
  EXPECT_FALSE(store.drawingsaved);
  application.clickTool("miUndo");
  EXPECT_EQ(context().changelog.changecount, 0);
  const int back = store.NumSegments;
  expectRow(back, {.type = kLine, .x0 = 1, .y0 = 1, .x1 = 4, .y1 = 5});
}

TEST_F(SegmentRows, WhatIsNoNumberOfTheTablesIsAFailureAndChangesNothing) {
  const int far = add({.type = kLine, .x0 = 3e38F, .x1 = 3.2e38F});
  const std::tuple<int, const char*, const char*> edits[] = {
      {line, "End X", "1e39"}, {far, "Length", "3e38"}, {circle, "Radius", "1e300"}};
  for (const auto& [sg, name, text] : edits) {
    const SegmentRow before = segmentRow(store, sg);
    std::string value = text;
    Flag cancel;
    EXPECT_THROW(at(sg).PropertyChange(name, value, cancel), RuntimeFailure) << name;
    EXPECT_EQ(segmentRow(store, sg), before) << name;
  }
  EXPECT_EQ(context().changelog.changecount, 0);
}

}  // namespace
}  // namespace tess
