// Rows that hover in the inverting pen.
#include "drafting/hovering_rows.h"

#include "gtest/gtest.h"

#include "core/drawing_store.h"
#include "drafting/entity_creation.h"
#include "tests/support/drafting_desk.h"

namespace tess {
namespace {

using testing::RecordedDesk;

const std::vector<SegmentRow> kLineRow{{.type = 1, .x1 = 1, .y1 = 2}};

TEST(HoveringRows, AreRemovedByTheCallsThatDrewThem) {
  RecordedDesk d;
  hoverRows(d.desk, {{.type = 1, .x1 = 1},
                     {.type = 2, .x0 = 1, .y1 = 1},
                     {.type = 5, .x0 = 1, .x1 = 1},
                     {.type = 6, .x1 = 2, .y1 = 1}});
  const std::string drawn = d.log.take();
  EXPECT_NE(drawn, "");
  stopHovering(d.desk);
  EXPECT_EQ(d.log.take(), drawn);
  EXPECT_FALSE(d.desk.hovering.shown);
  stopHovering(d.desk);
  EXPECT_EQ(d.log.take(), "");
}

TEST(HoveringRows, TakeThePlaceOfThoseBefore) {
  RecordedDesk d;
  hoverRows(d.desk, kLineRow);
  const std::string first = d.log.take();
  hoverRows(d.desk, {{.type = 1, .x1 = 3}});
  const std::string both = d.log.take();
  EXPECT_TRUE(both.starts_with(first));
  EXPECT_GT(both.size(), first.size());
}

TEST(HoveringRows, ComeBackAtTheEndOfARedrawThatHasWipedThem) {
  RecordedDesk d;
  hoverRows(d.desk, kLineRow);
  const std::string drawn = d.log.take();
  d.desk.redraw.redrawscreen();
  EXPECT_TRUE(d.desk.hovering.shown);
  EXPECT_NE(d.log.take().find(drawn), std::string::npos);
}

TEST(HoveringRows, WaitForAPictureThatIsPaintedInStages) {
  RecordedDesk d;
  d.desk.redraw.setTaskQueueState(1);
  d.pass(60);
  ASSERT_FALSE(d.desk.redraw.markerShown());
  hoverRows(d.desk, kLineRow);
  EXPECT_FALSE(d.desk.hovering.shown);
  d.pass(1000);
  EXPECT_TRUE(d.desk.hovering.shown);
}

TEST(HoveringRows, OfTooManyTheirBoxHovers) {
  RecordedDesk d;
  std::vector<SegmentRow> rows;
  for (int row = 0; row <= kMostHovering; ++row) {
    rows.push_back({.type = 1, .x0 = static_cast<float>(row % 3), .x1 = -1, .y1 = 2});
  }
  hoverRows(d.desk, rows);
  const std::string many = d.log.take();
  stopHovering(d.desk);
  d.log.take();
  hoverRows(d.desk, {{.type = 6, .x0 = -1, .y0 = 0, .x1 = 2, .y1 = 2}});
  EXPECT_EQ(d.log.take(), many);
}

}  // namespace
}  // namespace tess
