// Rows that hover in the inverting pen.
#include "drafting/form_preview.h"

#include "gtest/gtest.h"

#include "core/drawing_store.h"
#include "drafting/entity_creation.h"
#include "tests/support/drafting_test_context.h"

namespace tess {
namespace {

using testing::RecordedDrafting;

const std::vector<SegmentRow> kLineRow{{.type = 1, .x1 = 1, .y1 = 2}};

TEST(FormPreview, AreRemovedByTheCallsThatDrewThem) {
  RecordedDrafting d;
  previewRows(d.context, {{.type = 1, .x1 = 1},
                          {.type = 2, .x0 = 1, .y1 = 1},
                          {.type = 5, .x0 = 1, .x1 = 1},
                          {.type = 6, .x1 = 2, .y1 = 1}});
  const std::string drawn = d.log.take();
  EXPECT_NE(drawn, "");
  endPreview(d.context);
  EXPECT_EQ(d.log.take(), drawn);
  EXPECT_FALSE(d.context.formPreview.shown);
  endPreview(d.context);
  EXPECT_EQ(d.log.take(), "");
}

TEST(FormPreview, InAWidePenAreDrawnAndRemovedByIt) {
  RecordedDrafting d;
  previewRows(d.context, kLineRow, 3);
  const std::string drawn = d.log.take();
  ASSERT_NE(drawn.find("DrawWidth 3"), std::string::npos);
  EXPECT_LT(drawn.find("DrawWidth 3"), drawn.find("DrawWidth 1"));
  endPreview(d.context);
  EXPECT_EQ(d.log.take(), drawn);
  previewRows(d.context, kLineRow);
  EXPECT_EQ(d.log.take().find("DrawWidth"), std::string::npos);
}

TEST(FormPreview, TakeThePlaceOfThoseBefore) {
  RecordedDrafting d;
  previewRows(d.context, kLineRow);
  const std::string first = d.log.take();
  previewRows(d.context, {{.type = 1, .x1 = 3}});
  const std::string both = d.log.take();
  EXPECT_TRUE(both.starts_with(first));
  EXPECT_GT(both.size(), first.size());
}

TEST(FormPreview, ComeBackAtTheEndOfARedrawThatHasWipedThem) {
  RecordedDrafting d;
  previewRows(d.context, kLineRow);
  const std::string drawn = d.log.take();
  d.context.redraw.redrawscreen();
  EXPECT_TRUE(d.context.formPreview.shown);
  EXPECT_NE(d.log.take().find(drawn), std::string::npos);
}

TEST(FormPreview, WaitForAPictureThatIsPaintedInStages) {
  RecordedDrafting d;
  d.context.redraw.setTaskQueueState(1);
  d.pass(60);
  ASSERT_FALSE(d.context.redraw.markerShown());
  previewRows(d.context, kLineRow);
  EXPECT_FALSE(d.context.formPreview.shown);
  d.pass(1000);
  EXPECT_TRUE(d.context.formPreview.shown);
}

TEST(FormPreview, OfTooManyTheirBoxHovers) {
  RecordedDrafting d;
  std::vector<SegmentRow> rows;
  for (int row = 0; row <= kMaxHovering; ++row) {
    rows.push_back({.type = 1, .x0 = static_cast<float>(row % 3), .x1 = -1, .y1 = 2});
  }
  previewRows(d.context, rows);
  const std::string many = d.log.take();
  endPreview(d.context);
  d.log.take();
  previewRows(d.context, {{.type = 6, .x0 = -1, .y0 = 0, .x1 = 2, .y1 = 2}});
  EXPECT_EQ(d.log.take(), many);
}

}  // namespace
}  // namespace tess
