// Outlines that no one would draw on purpose, in every style and as a finish path: a path that the
// proof finds clean, or a message that names the place, and then nothing is placed.
#include <algorithm>
#include <cmath>
#include <limits>
#include <string>
#include <utility>
#include <vector>

#include "gmock/gmock.h"
#include "gtest/gtest.h"

#include "core/number_text.h"
#include "core/pocketing_choices.h"
#include "tests/support/proof_of.h"
#include "tests/toolpath/pocket_job.h"
#include "toolpath/proof_text.h"

namespace tess {
namespace {

using namespace tess::testing;
using ::testing::IsEmpty;
using ::testing::SizeIs;

constexpr PocketingStyle kStyles[] = {PocketingStyle::Horizontal, PocketingStyle::Vertical,
                                      PocketingStyle::ParallelSpiral};
constexpr float kNotANumber = std::numeric_limits<float>::quiet_NaN();

struct Outline {
  std::vector<SegmentRow> rows;
  bool isIsland = false;
};

struct Shape {
  std::string name;
  std::vector<Outline> outlines;
  std::string fault;  // what roughing and the finish path say; empty: nothing
  float radius = 0.25F;
};

std::vector<SegmentRow> rectangle(float x0, float y0, float x1, float y1) {
  return polygonRows({{x0, y0}, {x1, y0}, {x1, y1}, {x0, y1}});
}

std::vector<SegmentRow> plain() {
  return rectangle(0, 0, 4, 3);
}

// The last row ends short of the first one.
std::vector<SegmentRow> open(float by) {
  std::vector<SegmentRow> rows = plain();
  rows[3].y1 = by;
  return rows;
}

std::vector<SegmentRow> with(std::vector<SegmentRow> rows, const SegmentRow& more) {
  rows.push_back(more);
  return rows;
}

SegmentRow reversedRow(SegmentRow row) {
  std::swap(row.x0, row.x1);
  std::swap(row.y0, row.y1);
  return row;
}

std::vector<SegmentRow> doubled() {
  std::vector<SegmentRow> rows = plain();
  for (const SegmentRow& row : plain()) rows.push_back(row);
  return rows;
}

// Its right side is an arc with its centre at that height, 1.5 being right.
std::vector<SegmentRow> bulged(float yc) {
  std::vector<SegmentRow> rows = plain();
  rows[1] = {.type = kCounterClockwiseArc, .x0 = 4, .y0 = 0, .x1 = 4, .y1 = 3, .xc = 4, .yc = yc};
  return rows;
}

std::vector<SegmentRow> circle(float radius) {
  return {{.type = kCounterClockwiseArc, .x0 = radius, .y0 = 0, .x1 = -radius, .y1 = 0},
          {.type = kCounterClockwiseArc, .x0 = -radius, .y0 = 0, .x1 = radius, .y1 = 0}};
}

std::vector<Outline> nested(int deep) {
  std::vector<Outline> outlines;
  for (int k = 0; k < deep; ++k) {
    const auto inset = static_cast<float>(k);
    outlines.push_back({rectangle(inset, inset, 12 - inset, 12 - inset), k % 2 != 0});
  }
  return outlines;
}

std::vector<SegmentRow> far(float from, float scale) {
  std::vector<SegmentRow> rows = plain();
  for (SegmentRow& row : rows) {
    row.x0 = from + scale * row.x0, row.y0 = from + scale * row.y0;
    row.x1 = from + scale * row.x1, row.y1 = from + scale * row.y1;
  }
  return rows;
}

const std::string kTooSmall = "The tool does not fit into the pocket.";
const std::string kOpenEnd = "Pocket or Island profile discontinuous at:  ";
const std::string kTwoRadii = "An arc of the outline has two radii:  ";

std::vector<Shape> crossings() {
  return {
      {"crosses itself once", {{polygonRows({{0, 0}, {4, 4}, {4, 0}, {0, 4}})}}, ""},
      {"five-pointed star",
       {{polygonRows({{0, 3}, {1.8F, -2.4F}, {-2.9F, 0.9F}, {2.9F, 0.9F}, {-1.8F, -2.4F}})}},
       ""},
      {"two pockets touch in a corner", {{rectangle(0, 0, 2, 2)}, {rectangle(2, 2, 4, 4)}}, ""},
      {"touches itself in a point",
       {{polygonRows({{0, 0}, {2, 0}, {2, 2}, {4, 2}, {4, 4}, {2, 4}, {2, 2}, {0, 2}})}},
       ""},
      {"an island touches the wall in a point",
       {{plain()}, {polygonRows({{2, 0}, {2.5F, 0.5F}, {2, 1}, {1.5F, 0.5F}}), true}},
       ""},
      {"an island shares a wall", {{plain()}, {rectangle(1, 0, 2, 1), true}}, ""},
      {"an island crosses the wall", {{plain()}, {rectangle(1, -0.5F, 2, 1), true}}, ""},
      {"five deep", nested(5), ""},
  };
}

std::vector<Shape> badRows() {
  return {
      {"open by 0.0001", {{open(0.0001F)}}, ""},
      {"open by 0.001", {{open(0.001F)}}, ""},
      {"a row twice", {{with(plain(), plain()[0])}}, ""},
      {"a row there and back", {{with(plain(), reversedRow(plain()[1]))}}, ""},
      {"every row twice", {{doubled()}}, ""},
      {"half a row twice", {{with(plain(), {.type = kLine, .x1 = 2})}}, kOpenEnd + "X = 2   Y = 0"},
      {"a centre off by a little", {{bulged(1.5004F)}}, ""},
      {"a wrong centre", {{bulged(1.75F)}}, kTwoRadii + "X = 4   Y = 0"},
      {"a centre at the start", {{bulged(0)}}, kTwoRadii + "X = 4   Y = 0"},
      {"rows shorter than the tolerance",
       {{polygonRows({{0, 0}, {2, 0}, {2.0001F, 0}, {2.0002F, 0}, {4, 0}, {4, 3}, {0, 3}})}},
       ""},
      {"a row without length",
       {{polygonRows({{0, 0}, {2, 0}, {2, 0}, {4, 0}, {4, 3}, {0, 3}})}},
       ""},
  };
}

std::vector<Shape> slivers() {
  return {
      {"a thorn out of the pocket",
       {{polygonRows({{0, 0}, {4, 0}, {4, 3}, {2.0002F, 3}, {2, 3.5F}, {2, 3}, {0, 3}})}},
       ""},
      {"a wall without thickness",
       {{polygonRows({{0, 0}, {2, 0}, {2, 1}, {2, 0}, {4, 0}, {4, 3}, {0, 3}})}},
       ""},
      {"a wall without thickness from above",
       {{polygonRows({{0, 0}, {4, 0}, {4, 3}, {2, 3}, {2, 1}, {2, 3}, {0, 3}})}},
       ""},
      {"a wall thinner than the tolerance",
       {{polygonRows(
           {{0, 0}, {4, 0}, {4, 3}, {2.0002F, 3}, {2.0002F, 1}, {2, 1}, {2, 3}, {0, 3}})}},
       ""},
  };
}

std::vector<Shape> sizes() {
  return {
      {"coordinates of 1e6", {{far(1e6F, 100)}}, "", 20},
      {"a part of 1e6", {{rectangle(0, 0, 1e6F, 8e5F)}}, "", 1e5F},
      {"a part of 1e9", {{rectangle(0, 0, 1e9F, 8e8F)}}, "", 1e8F},
      {"a slot of the tool's width", {{rectangle(0, 0, 4, 0.5F)}}, ""},
      {"a hole of the tool's size", {{circle(0.25F)}}, ""},
      {"a square of the tool's size", {{rectangle(0, 0, 0.5F, 0.5F)}}, ""},
      {"a triangle round the tool",
       {{polygonRows({{0, 0}, {0.8660254F, 0}, {0.4330127F, 0.75F}})}},
       ""},
      {"a hair smaller than the tool", {{rectangle(0, 0, 0.4999F, 0.4999F)}}, kTooSmall},
      {"a tool without end", {{plain()}}, kTooSmall, std::numeric_limits<float>::infinity()},
      {"a tool that is no number",
       {{plain()}},
       "The radius of the selected tool is not a number.  It must be above 0.\n\nNothing was "
       "placed.",
       kNotANumber},
      {"a tool of less than nothing",
       {{plain()}},
       "The radius of the selected tool is -1.  It must be above 0.\n\nNothing was placed.",
       -1},
  };
}

// All outlines verified, the radius, and links wherever they are possible.
struct ShapeJob : RecordedCam {
  explicit ShapeJob(const Shape& shape) : outlines(shape.outlines) {
    store.cfg_true_paths = true;
    store.cfg_connect_pocketing_paths = true;
    store.cfg_tolerance = 0.001F;
    store.zstartpos = 1;
    store.toolradius[0] = shape.radius;
    for (const Outline& outline : outlines) {
      for (SegmentRow row : outline.rows) {
        row.attr = kVerifiedRow;
        add(row);
      }
    }
  }

  void rough(PocketingStyle style) {
    store.cfg_pocketing_style = choiceNumber(style);
    mnuCAMRoughCutPocket_Click(cam);
    const SegmentRow& row = outlines[0].rows[0];
    if (style == PocketingStyle::ParallelSpiral) click(row.x0, row.y0);
  }

  void finish(const Outline& outline) {
    const SegmentRow& row = outline.rows[0];
    const Point middle{(row.x0 + row.x1) / 2, (row.y0 + row.y1) / 2};
    const float side = outline.isIsland ? -0.1F : 0.1F;  // of the row's length
    const Point beside{middle.x - side * (row.y1 - row.y0), middle.y + side * (row.x1 - row.x0)};
    const bool isArcRow = isArc(row.type);
    cam.numFinishPasses = 1;
    mnuCAMPlaceFinishPath_Click(cam);
    cam.numFinishPasses = 1;
    click(row.x0, row.y0);
    isArcRow ? click(row.xc, row.y0 + (row.x0 - row.xc)) : click(middle.x, middle.y);
    isArcRow ? click(row.xc, row.yc) : click(beside.x, beside.y);
  }

  PathProof proof() const { return proofOf(store, test.session.pathJobs); }

  std::vector<Outline> outlines;
};

void expectOutcome(ShapeJob& job, const std::string& fault, const std::string& title) {
  if (fault.empty()) {
    EXPECT_THAT(job.messages(), IsEmpty());
    EXPECT_GT(job.store.NumPathSegments, 0);
    const PathProof proof = job.proof();
    EXPECT_FALSE(proof.isBeyondLimits()) << proofText(proof);
    EXPECT_THAT(proof.unjudged, IsEmpty());
    return;
  }
  ASSERT_THAT(job.messages(), SizeIs(1));
  EXPECT_EQ(job.messages()[0].text, fault);
  EXPECT_EQ(job.messages()[0].title, title);
  EXPECT_EQ(job.store.NumPathSegments, 0);
}

void judge(const Shape& shape) {
  SCOPED_TRACE(shape.name);
  for (const PocketingStyle style : kStyles) {
    SCOPED_TRACE(choiceNumber(style));
    ShapeJob job(shape);
    job.rough(style);
    expectOutcome(job, shape.fault, "Rough Cut Pocket");
  }
  for (const Outline& outline : shape.outlines) {
    ShapeJob job(shape);
    job.finish(outline);
    expectOutcome(job, shape.fault, "Place Finish Path");
  }
}

TEST(TruePathsOfBadInput, OutlinesThatCrossAndTouch) {
  for (const Shape& shape : crossings()) judge(shape);
}

TEST(TruePathsOfBadInput, RowsThatDoNotFitTogether) {
  for (const Shape& shape : badRows()) judge(shape);
}

TEST(TruePathsOfBadInput, Slivers) {
  for (const Shape& shape : slivers()) judge(shape);
}

TEST(TruePathsOfBadInput, SizesOutOfProportion) {
  for (const Shape& shape : sizes()) judge(shape);
}

// Roughing does not fit into it; the click for the finish path lies outside, and so does the path.
TEST(TruePathsOfBadInput, AnOutlineThinnerThanTheTolerance) {
  const Shape shape{"", {{polygonRows({{0, 0}, {4, 0}, {4, 0.0005F}, {0, 0.0005F}})}}, ""};
  for (const PocketingStyle style : kStyles) {
    ShapeJob job(shape);
    job.rough(style);
    expectOutcome(job, kTooSmall, "Rough Cut Pocket");
  }
  ShapeJob job(shape);
  job.finish(shape.outlines[0]);
  expectOutcome(job, "", "");
}

// Roughing needs a closed outline; a finish path follows an open one.
TEST(TruePathsOfBadInput, AGapWiderThanTheTolerance) {
  const Shape shape{"", {{open(0.0011F)}}, ""};
  for (const PocketingStyle style : kStyles) {
    ShapeJob job(shape);
    job.rough(style);
    expectOutcome(job, kOpenEnd + "X = 0   Y = 0.0011", "Rough Cut Pocket");
  }
  ShapeJob job(shape);
  job.finish(shape.outlines[0]);
  expectOutcome(job, "", "");
}

// A row that rounding would move into the part is left out, and that is told.
TEST(TruePathsOfBadInput, TooFarFromTheOriginForTheNumbersOfARow) {
  const Shape shape{"", {{far(1e9F, 1000)}}, "", 200};
  const auto expectToBeTold = [](ShapeJob& job) {
    ASSERT_THAT(job.messages(), SizeIs(1));
    EXPECT_EQ(job.messages()[0].text,
              "A part of the path could not be placed. Please check the path proof.");
    EXPECT_LE(job.proof().gouge.depth, job.proof().limits.depth);
  };
  for (const PocketingStyle style : kStyles) {
    ShapeJob job(shape);
    job.rough(style);
    expectToBeTold(job);
  }
  ShapeJob job(shape);
  job.finish(shape.outlines[0]);
  expectToBeTold(job);
}

TEST(TruePathsOfBadInput, AStepThatIsNoStep) {
  const std::string rest =
      ".  It must be above 0.\n\nNothing was placed.  It is set in Pocketing & Profiling "
      "Parameters.";
  const Shape shape{"", {{plain()}}, ""};
  for (const PocketingStyle style : kStyles) {
    ShapeJob back(shape);
    back.store.cfg_tool_spacing = -50;
    back.rough(style);
    expectOutcome(back, "The Step Over Amount is -0.25" + rest, "Rough Cut Pocket");
    ShapeJob none(shape);
    none.store.cfg_tool_spacing = kNotANumber;
    none.rough(style);
    expectOutcome(none, "The Step Over Amount is not a number" + rest, "Rough Cut Pocket");
    ShapeJob text(shape);
    text.store.cfg_tool_spacing = parseFloat("NaN");
    text.rough(style);
    expectOutcome(text, "The Step Over Amount is 0" + rest, "Rough Cut Pocket");
    ShapeJob wide(shape);
    wide.store.cfg_cut_width_type = choiceNumber(StepOver::ByDistance);
    wide.store.cfg_tool_spacing_distance = 100;
    wide.rough(style);
    expectOutcome(wide, "", "");
  }
}

// A clearance below 0 counts as none, and so does one that is no number.
TEST(TruePathsOfBadInput, AClearanceThatIsNone) {
  const Shape shape{"", {{plain()}}, ""};
  for (const PocketingStyle style : kStyles) {
    for (const float clearance : {-1.0F, kNotANumber}) {
      ShapeJob job(shape);
      job.store.cfg_min_rough_clearance = clearance;
      job.rough(style);
      expectOutcome(job, "", "");
    }
  }
}

}  // namespace
}  // namespace tess
