// The cuts of a lathe run, and the height that they leave free.
#include "toolpath/lathe_spans.h"

#include "gtest/gtest.h"

#include "core/drawing_store.h"

namespace tess {
namespace {

DrawingStore stockOf(float height) {
  DrawingStore store;
  store.cfg_tolerance = 0.001F;
  store.partdimy = height;
  return store;
}

TEST(RememberLatheSpan, KeepsTheEndsInRisingOrder) {
  std::vector<LatheSpan> spans;
  rememberLatheSpan(spans, 5, 2, 1.5F);
  ASSERT_EQ(spans.size(), 1U);
  EXPECT_EQ(spans[0].spanMin, 2);
  EXPECT_EQ(spans[0].spanMax, 5);
  EXPECT_EQ(spans[0].spanLevel, 1.5F);
}

TEST(LatheClearHeight, IsTheStockHeightWhileNothingIsCut) {
  EXPECT_EQ(latheClearHeight(stockOf(4), {}, 0, 1, 0.5F), 4);
}

TEST(LatheClearHeight, LiesHalfAStepAboveTheNewestCutThatHoldsBothEnds) {
  const std::vector<LatheSpan> spans{{0, 10, 3}, {1, 8, 2}, {4, 5, 1}};
  EXPECT_EQ(latheClearHeight(stockOf(4), spans, 4.5F, 2, 0.5F), 2.25F);
  EXPECT_EQ(latheClearHeight(stockOf(4), spans, 9, 2, 0.5F), 3.25F);
  EXPECT_EQ(latheClearHeight(stockOf(4), spans, 4, 5, 0.5F), 1.25F);
}

TEST(LatheClearHeight, IsTheStockHeightWhereNoCutHoldsBothEnds) {
  const std::vector<LatheSpan> spans{{0, 3, 3}, {5, 8, 2}};
  EXPECT_EQ(latheClearHeight(stockOf(4), spans, 2, 6, 0.5F), 4);
}

TEST(LatheClearHeight, NeverPassesTheStockHeight) {
  EXPECT_EQ(latheClearHeight(stockOf(4), {{0, 3, 3.9F}}, 1, 2, 0.5F), 4);
}

TEST(LatheClearHeight, BothEndsOfACutReachOutByTheTolerance) {
  const std::vector<LatheSpan> spans{{1, 3, 2}};
  EXPECT_EQ(latheClearHeight(stockOf(4), spans, 0.9995F, 3.0005F, 1), 2.5F);
  EXPECT_EQ(latheClearHeight(stockOf(4), spans, 0.9985F, 2, 1), 4);
  EXPECT_EQ(latheClearHeight(stockOf(4), spans, 2, 3.0015F, 1), 4);
}

}  // namespace
}  // namespace tess
