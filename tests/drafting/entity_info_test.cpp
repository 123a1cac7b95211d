// What there is to know of one row.
#include "drafting/entity_info.h"

#include "gtest/gtest.h"

#include "drafting/pending_actions.h"
#include "tests/support/drafting_test_context.h"
#include "tests/support/edit_checks.h"
#include "tests/support/failure_of.h"

namespace tess {
namespace {

using testing::expectNoStep;
using testing::RecordedDrafting;

struct InfoContext : RecordedDrafting {
  InfoContext() { test.session.formats.coordfmt = "0.000"; }
  std::string infoOf(const SegmentRow& row) {
    add(row);
    return entityInfo(context, store.NumSegments);
  }
  std::string infoOf(const PathRow& row) {
    addPathSegment(store, row);
    return pathEntityInfo(context, store.NumPathSegments);
  }
};

TEST(EntityInfo, TellsLengthAndBearingOfALine) {
  InfoContext d;
  EXPECT_EQ(d.infoOf(SegmentRow{.type = 1, .x0 = 1, .y0 = 1, .x1 = 4, .y1 = -2}),
            "Entity #: 1\nType: Line\n_____________________________________\n"
            "Start point: (1.000,1.000)\nEnd point: (4.000,-2.000)\n"
            "Line Length: 4.243\nBearing: -45.");
}

TEST(EntityInfo, TellsCenterRadiusAndAnglesOfAnArc) {
  InfoContext d;
  EXPECT_EQ(d.infoOf(SegmentRow{.type = 3, .x0 = 3, .y0 = 1, .x1 = 1, .y1 = -1, .xc = 1, .yc = 1}),
            "Entity #: 1\nType: CCW Arc\n_____________________________________\n"
            "Start point: (3.000,1.000)\nEnd point: (1.000,-1.000)\nCenter point: (1.000,1.000)\n"
            "Radius: 2.000\nStart Angle: 0.\nEnd Angle: 270.");
}

TEST(EntityInfo, NamesEveryKind) {
  const std::pair<SegmentRow, const char*> kKinds[] = {
      {{.type = 0, .x1 = 1}, "Point"},
      {{.type = 1, .x1 = 1}, "Line"},
      {{.type = 2, .x0 = 1, .x1 = -1}, "CW Arc"},
      {{.type = 3, .x0 = 1, .x1 = -1}, "CCW Arc"},
      {{.type = 2, .x0 = 1, .x1 = 1}, "Circle"},
      {{.type = 3, .x0 = 1, .x1 = 1.0005F}, "Circle"},
      {{.type = 5, .x0 = 1, .x1 = 1}, "Circle"},
      {{.type = 6, .x1 = 1, .y1 = 1}, "Rect"},
  };
  for (const auto& [row, kind] : kKinds) {
    InfoContext d;
    EXPECT_NE(d.infoOf(row).find("\nType: " + std::string(kind) + "\n"), std::string::npos);
  }
}

TEST(EntityInfo, OfARectangleTellsNoMoreThanItsCorners) {
  InfoContext d;
  EXPECT_EQ(d.infoOf(SegmentRow{.type = 6, .x1 = 2, .y1 = 1}),
            "Entity #: 1\nType: Rect\n_____________________________________\n"
            "Start point: (0.000,0.000)\nEnd point: (2.000,1.000)");
}

TEST(EntityInfo, OfAPathRowTellsDepthAndFeedToo) {
  InfoContext d;
  EXPECT_EQ(d.infoOf(PathRow{.type = 1, .x1 = 2, .z = -0.5F, .feed = 12.5F, .code = 100}),
            "Entity #: 1\nType: Line\n_____________________________________\n"
            "Start point: (0.000,0.000)\nEnd point: (2.000,0.000)\n"
            "Line Length: 2.000\nBearing: 0.\nZ: -0.500\nFeed: 12.5");
  EXPECT_NE(d.infoOf(PathRow{.type = 0, .x1 = 2}).find("Type: Rapid"), std::string::npos);
  EXPECT_NE(d.infoOf(PathRow{.type = 83, .x0 = 1, .x1 = 1}).find("Type: Cycle"), std::string::npos);
}

TEST(EntityInfo, OutsideTheTablesFails) {
  InfoContext d;
  d.addLine(0, 0, 1, 0);
  for (const int row : {0, 2, 30000}) {
    EXPECT_EQ(testing::numberOfFailure([&] { entityInfo(d.context, row); }),
              FailureNumber::SubscriptOutOfRange);
    EXPECT_EQ(testing::numberOfFailure([&] { pathEntityInfo(d.context, row); }),
              FailureNumber::SubscriptOutOfRange);
  }
}

TEST(EntityInfoClick, ShowsTheNearestRowAndEnds) {
  InfoContext d;
  d.addLine(0, 0, 1, 0);
  d.addLine(0, 2, 1, 2);
  mnuEditEntityInfo_Click(d.context);
  EXPECT_EQ(d.prompt(), "Click near item to display data.");
  expectNoStep(d, [&d] { d.click(0.5F, 1.5F); });
  ASSERT_EQ(d.messages().size(), 1U);
  EXPECT_EQ(d.messages()[0].text, entityInfo(d.context, 2));
  EXPECT_EQ(d.messages()[0].icon, MessageIcon::Warning);
  EXPECT_EQ(d.messages()[0].buttons, MessageButtons::Ok);
  EXPECT_EQ(d.pending(), 0);
}

TEST(EntityInfoClick, HasEndedBeforeTheBoxIsShown) {
  InfoContext d;
  d.addLine(0, 0, 1, 0);
  mnuEditEntityInfo_Click(d.context);
  int armed = -1;
  d.test.recording.prompts.onMessage = [&] { armed = d.pending(); };
  d.click(0.5F, 1.5F);
  EXPECT_EQ(armed, 0);
}

TEST(EntityInfoClick, ShowsThePathRowWhilePathsAreEdited) {
  InfoContext d;
  d.addLine(0, 0, 1, 0);
  d.addPathLine(0, 0, 1, 0);
  d.context.command.EditPaths = true;
  mnuEditEntityInfo_Click(d.context);
  d.click(0.5F, 1);
  ASSERT_EQ(d.messages().size(), 1U);
  EXPECT_EQ(d.messages()[0].text, pathEntityInfo(d.context, 1));
}

TEST(EntityInfoClick, WithoutRowsEndsSilently) {
  InfoContext d;
  mnuEditEntityInfo_Click(d.context);
  d.click(1, 1);
  EXPECT_TRUE(d.messages().empty());
  EXPECT_EQ(d.pending(), 0);
}

}  // namespace
}  // namespace tess
