// Rows that hover in the inverting pen.
#include "drafting/form_preview.h"

#include "gtest/gtest.h"

#include "core/drawing_store.h"
#include "drafting/entity_creation.h"
#include "tests/support/drafting_desk.h"

namespace tess {
namespace {

using testing::RecordedDesk;

const std::vector<SegmentRow> kLineRow{{.type = 1, .x1 = 1, .y1 = 2}};

TEST(FormPreview, AreRemovedByTheCallsThatDrewThem) {
  RecordedDesk d;
  previewRows(d.desk, {{.type = 1, .x1 = 1},
                       {.type = 2, .x0 = 1, .y1 = 1},
                       {.type = 5, .x0 = 1, .x1 = 1},
                       {.type = 6, .x1 = 2, .y1 = 1}});
  const std::string drawn = d.log.take();
  EXPECT_NE(drawn, "");
  endPreview(d.desk);
  EXPECT_EQ(d.log.take(), drawn);
  EXPECT_FALSE(d.desk.formPreview.shown);
  endPreview(d.desk);
  EXPECT_EQ(d.log.take(), "");
}

TEST(FormPreview, TakeThePlaceOfThoseBefore) {
  RecordedDesk d;
  previewRows(d.desk, kLineRow);
  const std::string first = d.log.take();
  previewRows(d.desk, {{.type = 1, .x1 = 3}});
  const std::string both = d.log.take();
  EXPECT_TRUE(both.starts_with(first));
  EXPECT_GT(both.size(), first.size());
}

TEST(FormPreview, ComeBackAtTheEndOfARedrawThatHasWipedThem) {
  RecordedDesk d;
  previewRows(d.desk, kLineRow);
  const std::string drawn = d.log.take();
  d.desk.redraw.redrawscreen();
  EXPECT_TRUE(d.desk.formPreview.shown);
  EXPECT_NE(d.log.take().find(drawn), std::string::npos);
}

TEST(FormPreview, WaitForAPictureThatIsPaintedInStages) {
  RecordedDesk d;
  d.desk.redraw.setTaskQueueState(1);
  d.pass(60);
  ASSERT_FALSE(d.desk.redraw.markerShown());
  previewRows(d.desk, kLineRow);
  EXPECT_FALSE(d.desk.formPreview.shown);
  d.pass(1000);
  EXPECT_TRUE(d.desk.formPreview.shown);
}

TEST(FormPreview, OfTooManyTheirBoxHovers) {
  RecordedDesk d;
  std::vector<SegmentRow> rows;
  for (int row = 0; row <= kMaxHovering; ++row) {
    rows.push_back({.type = 1, .x0 = static_cast<float>(row % 3), .x1 = -1, .y1 = 2});
  }
  previewRows(d.desk, rows);
  const std::string many = d.log.take();
  endPreview(d.desk);
  d.log.take();
  previewRows(d.desk, {{.type = 6, .x0 = -1, .y0 = 0, .x1 = 2, .y1 = 2}});
  EXPECT_EQ(d.log.take(), many);
}

}  // namespace
}  // namespace tess
