// Names of rows.
#include "drafting/segment_name.h"

#include "gtest/gtest.h"

#include "core/conventions.h"

namespace tess {
namespace {

TEST(SegmentNames, SayNumberAndKind) {
  EXPECT_EQ(segmentName(3, kCircle), "Entity 3-Circle");
  EXPECT_EQ(segmentName(32767, kLine), "Entity 32767-Line");
}

TEST(SegmentNames, LeadBackToTheRowInAnyCase) {
  EXPECT_EQ(segmentNumberIn("Entity 3-Circle"), 3);
  EXPECT_EQ(segmentNumberIn("eNTITY 12"), 12);
}

TEST(SegmentNames, AnyOtherTextIsNoRow) {
  for (const char* const name : {"", "Entity", "Circle 3", "3", "Entity -Circle"}) {
    EXPECT_EQ(segmentNumberIn(name), 0) << name;
  }
}

}  // namespace
}  // namespace tess
