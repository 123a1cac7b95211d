// Closed shapes of DXF files are pockets: what comes in exactly verifies as it is.
#include "gtest/gtest.h"

#include "core/drawing_store.h"
#include "import/exact_geometry.h"
#include "tests/import/dxf_content.h"
#include "tests/import/exact_import.h"
#include "tests/support/outlines.h"
#include "tests/support/recorded_cam.h"
#include "toolpath/verification.h"

namespace tess {
namespace {

using testing::polylineText;

struct ClosedShape {
  const char* name;
  std::string entities;
};

const ClosedShape kClosedShapes[] = {
    {"slot of bulges", polylineText({{"0", "0"}, {"4", "0", "1"}, {"4", "2"}, {"0", "2", "1"}}, 1)},
    {"donut", polylineText({{"0", "0", "1"}, {"3", "0", "1"}}, 1)},
    {"mirrored", polylineText({{"0", "0"}, {"4", "0", "0.3"}, {"4", "2"}}, 1) + ", 230 -1"},
    {"circle", "0 CIRCLE, 10 1, 20 1, 40 2"},
    {"ellipse", "0 ELLIPSE, 10 1, 20 1, 11 3, 21 1, 40 0.5, 41 0, 42 6.283185"},
    {"spline with fit points",
     "0 SPLINE, 70 1, 71 3, 11 0, 21 0, 11 4, 21 -1, 11 4, 21 4, 11 -1, 21 3"},
    {"half ellipse with its chord",
     "0 ELLIPSE, 10 0, 20 0, 11 3, 21 0, 40 0.5, 41 0, 42 3.141592653589793, "
     "0 LINE, 10 3, 20 0, 11 -3, 21 0"},
    {"loose lines and an arc, each its own way",
     "0 LINE, 10 0, 20 0, 11 4, 21 0, 0 LINE, 10 0, 20 2.00004, 11 0.00003, 21 0, "
     "0 ARC, 10 4, 20 1, 40 1, 50 270, 51 90, 0 LINE, 10 0, 20 2, 11 3.99996, 21 2"},
};

TEST(ExactPocket, ClosedShapesVerify) {
  for (const ClosedShape& shape : kClosedShapes) {
    SCOPED_TRACE(shape.name);
    testing::RecordedCam bench;
    DxfDocument document;
    readDxf(document, testing::inTextForm(testing::entitySection(shape.entities)), "part.dxf");
    Change change(bench.context.changes);
    DxfRows rows(change, bench.test.recording.prompts, document);
    convertDxfExactly(document, rows, {.tolerence = bench.store.cfg_tolerance});
    change.keep({.redraws = false});
    ASSERT_GT(int(bench.store.NumSegments), 0);
    testing::selectRows(bench.store, 1, bench.store.NumSegments);
    verifypocket(bench.cam);
    EXPECT_TRUE(bench.messages().empty()) << bench.messages().front().text;
    for (int sg = 1; sg <= bench.store.NumSegments; ++sg) {
      EXPECT_EQ(bench.store.segattr[sg], kVerifiedRow) << sg;
    }
  }
}

}  // namespace
}  // namespace tess
