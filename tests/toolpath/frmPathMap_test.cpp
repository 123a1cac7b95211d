// Path Segments: what it lists, what it says, and how groups and rows change places.
#include "toolpath/frmPathMap.h"

#include "gtest/gtest.h"

#include "core/drawing_store.h"
#include "tests/support/edit_checks.h"
#include "tests/support/recorded_cam.h"

namespace tess {
namespace {

using testing::expectNoStep;
using testing::expectOneStep;
using testing::RecordedCam;
using Texts = std::vector<std::string>;

struct PathMap : RecordedCam, ::testing::Test {
  void addRow(int type, int code) {
    const auto at = static_cast<float>(store.NumPathSegments + 1);
    addPathSegment(store, {.type = type, .x0 = at, .y0 = at, .x1 = at + 1, .code = code});
  }
  void addRows(const std::vector<int>& codes) {
    for (const int code : codes) addRow(kLine, code);
  }
  void open() {
    store.drawingsaved = true;
    form.open(Modality::Modal);
  }
  int line() const { return form.lstPathSegments.index(); }
  const Texts& lines() const { return form.lstPathSegments.items(); }
  void promote(int at) {
    form.lstPathSegments.pick(at);
    form.cmdPromote.press();
  }
  void demote(int at) {
    form.lstPathSegments.pick(at);
    form.cmdDemote.press();
  }
  // The only message since the last call; nothing may have changed.
  std::string message() {
    if (messages().size() != 1) return "(" + std::to_string(messages().size()) + " messages)";
    const Message shown = messages().front();
    messages().clear();
    EXPECT_EQ(shown.title, "Path Segments");
    EXPECT_EQ(shown.icon, MessageIcon::Information);
    EXPECT_EQ(shown.buttons, MessageButtons::Ok);
    return shown.text;
  }
  Texts labels() const {
    return {form.lblPathOrSeg.caption(), form.lblSegmentName.caption(), form.lblStart.caption(),
            form.lblEnd.caption(),       form.lblCenter.caption(),      form.lblZDepth.caption(),
            form.lblFeedRate.caption()};
  }

  frmPathMap form{cam};
};

TEST_F(PathMap, ListsGroupsAndRowsInTheOrderOfTheTable) {
  addRow(kLine, 300);
  addRow(kClockwiseArc, 300);
  addRow(kCounterClockwiseArc, 130);
  addRow(kRapid, 130);
  addRow(78, 130);
  addRow(79, 330);
  store.pathgroupname[1] = "Outside";
  open();
  EXPECT_EQ(form.caption(), "Path Segments");
  EXPECT_EQ(form.cmdPromote.caption(), "&Promote");
  EXPECT_EQ(form.cmdDemote.caption(), "&Demote");
  EXPECT_EQ(form.cmdApply.caption(), "&Apply");
  EXPECT_EQ(lines(), (Texts{"Path Group #3:  Group 3", "   Line Segment 1", "   CW Arc Segment 2",
                            "Path Group #1:  Outside", "   CCW Arc Segment 3", "   Segment 4",
                            "   Segment 5", "Path Group #3:  Group 3", "   Machine Cylcle 6"}));
  EXPECT_EQ(line(), 0);
}

TEST_F(PathMap, ARowOfType81IsACycle) {
  addRow(81, 100);
  open();
  EXPECT_EQ(lines()[1], "   Machine Cylcle 1");
}

TEST_F(PathMap, CutsOffTheGroupOfATool52) {
  addRows({152, 30152, 200});
  open();
  EXPECT_EQ(lines(), (Texts{"Path Group #1:  Group 1", "   Line Segment 1", "   Line Segment 2",
                            "Path Group #2:  Group 2", "   Line Segment 3"}));
}

TEST_F(PathMap, ShowsAGroupWithoutValues) {
  addRows({100});
  store.pathgroupname[1] = "Outside";
  open();
  EXPECT_EQ(labels(),
            (Texts{"Path Group", "Outside", "Starting Point: (0, 0)", "Ending Point: (0, 0)",
                   "Center Point: (0, 0)", "Depth of Cut: 0", "Feed Rate: 0"}));
}

TEST_F(PathMap, ShowsTheValuesOfARow) {
  addPathSegment(store, {.type = kClockwiseArc,
                         .x0 = 1,
                         .y0 = 2,
                         .x1 = 3,
                         .y1 = 2.5F,
                         .xc = 2,
                         .yc = -2,
                         .z = -0.125F,
                         .feed = 12.5F,
                         .code = 100});
  open();
  form.lstPathSegments.pick(1);
  EXPECT_EQ(labels(), (Texts{"Path Segment", "CW Arc Segment 1", "Starting Point: (1, 2)",
                             "Ending Point: (3, 2.5)", "Center Point: (2, -2)",
                             "Depth of Cut: -0.125", "Feed Rate: 12.5"}));
}

// ---- Rows

TEST_F(PathMap, TheFirstRowOfAGroupCannotBePromoted) {
  addRows({100, 100, 200});
  open();
  promote(1);
  EXPECT_EQ(message(), "You cannot promote the first segment of a Path Group.");
  promote(4);
  EXPECT_EQ(message(), "You cannot promote the first segment of a Path Group.");
}

TEST_F(PathMap, TheSecondRowOfAGroupCanBePromoted) {
  addRow(kLine, 100);
  addRow(kClockwiseArc, 101);
  open();
  promote(2);
  EXPECT_EQ(lines(),
            (Texts{"Path Group #1:  Group 1", "   CW Arc Segment 1", "   Line Segment 2"}));
  EXPECT_EQ(line(), 1);
  EXPECT_EQ(labels()[1], "CW Arc Segment 1");
  EXPECT_EQ(labels()[2], "Starting Point: (2, 2)");
  EXPECT_EQ(store.pstype[1], kLine) << "only the copy has changed";
  const auto rows = testing::pathTexts(store);
  expectOneStep(*this, [this] { form.cmdApply.press(); });
  EXPECT_EQ(testing::pathTexts(store), (Texts{rows[1], rows[0]})) << "all fields, the tool too";
  EXPECT_FALSE(form.isShown());
}

TEST_F(PathMap, TheLastRowOfAllCannotBeDemoted) {
  addRows({100, 200, 200});
  open();
  demote(4);
  EXPECT_EQ(message(), "You cannot demote the last segment.");
}

TEST_F(PathMap, TheLastRowOfAGroupCannotBeDemoted) {
  addRows({100, 200, 200});
  open();
  demote(1);
  EXPECT_EQ(message(), "You cannot demote the last segment of a Path Group.");
}

TEST_F(PathMap, ADemotedRowStaysSelected) {
  addRow(kLine, 100);
  addRow(kClockwiseArc, 100);
  addRow(kLine, 100);
  open();
  demote(1);
  demote(2);
  EXPECT_EQ(line(), 3);
  EXPECT_EQ(lines(), (Texts{"Path Group #1:  Group 1", "   CW Arc Segment 1", "   Line Segment 2",
                            "   Line Segment 3"}));
  form.cmdApply.press();
  EXPECT_EQ(store.psx0[3], 1);
}

// ---- Groups

TEST_F(PathMap, TheOnlyGroupCannotBePromotedOrDemoted) {
  addRows({100, 100});
  open();
  promote(0);
  EXPECT_EQ(message(), "You cannot promote the first Path Group.");
  demote(0);
  EXPECT_EQ(message(), "You cannot demote the last Path Group.");
}

TEST_F(PathMap, GroupsKeepTheirNumbersAndRowsGetNewOnes) {
  addRow(kLine, 100);
  addRow(kLine, 100);
  addRow(kClockwiseArc, 200);
  store.pathgroupname[1] = "Outside";
  open();
  promote(3);
  EXPECT_EQ(lines(), (Texts{"Path Group #2:  Group 2", "   CW Arc Segment 1",
                            "Path Group #1:  Outside", "   Line Segment 2", "   Line Segment 3"}));
  EXPECT_EQ(line(), 0);
  EXPECT_EQ(labels()[1], "Group 2");
  demote(0);
  EXPECT_EQ(line(), 3);
  EXPECT_EQ(lines()[0], "Path Group #1:  Outside");
  expectNoStep(*this, [this] { form.cmdApply.press(); });
}

TEST_F(PathMap, GroupsInSeveralRunsExchangeTheFirst) {
  addRows({100, 200, 300, 200});
  open();
  promote(6);  // the second run of group 2, with group 3 before it
  EXPECT_EQ(lines(), (Texts{"Path Group #1:  Group 1", "   Line Segment 1",
                            "Path Group #3:  Group 3", "   Line Segment 2",
                            "Path Group #2:  Group 2", "   Line Segment 3", "   Line Segment 4"}));
  EXPECT_EQ(line(), 4);
}

TEST_F(PathMap, AnExchangeOfGroupsIsOneStep) {
  addRows({100, 100, 200});
  open();
  promote(3);
  expectOneStep(*this, [this] { form.cmdApply.press(); });
  EXPECT_EQ(store.pscode[1], 200) << "redone";
  EXPECT_EQ(store.psx0[2], 1);
}

// ---- Leaving

TEST_F(PathMap, ApplyClearsTheMarkOfSavedWorkOnlyForAnotherOrder) {
  addRows({100, 100});
  open();
  expectNoStep(*this, [this] { form.cmdApply.press(); });
  EXPECT_EQ(store.pathgroupname[1], "Group 1") << "the name that was filled in";
  form.open(Modality::Modal);
  promote(2);
  form.cmdApply.press();
  EXPECT_FALSE(store.drawingsaved);
}

TEST_F(PathMap, CancelLeavesTheTableAsItWas) {
  addRows({100, 100, 200});
  open();
  promote(2);
  promote(3);
  expectNoStep(*this, [this] { form.cmdExit.press(); });
  EXPECT_FALSE(form.isShown());
  EXPECT_EQ(store.pathgroupname[1], "");
}

TEST_F(PathMap, EscLeavesTheTableAsItWas) {
  addRows({100, 100});
  open();
  promote(2);
  expectNoStep(*this, [this] { form.pressCancel(); });
  EXPECT_FALSE(form.isShown());
}

TEST_F(PathMap, StaysOpenWhenTheOperatorWillNotLoseUndo) {
  std::vector<int> codes;
  for (int ps = 0; ps < 30000; ++ps) codes.push_back(100 + 100 * (ps % 3));
  addRows(codes);
  open();
  form.cmdPropose.press();
  test.recording.prompts.answers = {Answer::Cancel};
  expectNoStep(*this, [this] { form.cmdApply.press(); });
  EXPECT_TRUE(form.isShown());
  EXPECT_EQ(messages()[0].title, "Undo");
  form.cmdApply.press();
  EXPECT_FALSE(form.isShown());
  EXPECT_EQ(store.psx0[2], 4);
}

TEST_F(PathMap, WithoutRowsHasNothingToMove) {
  open();
  EXPECT_EQ(lines(), Texts{});
  EXPECT_EQ(line(), -1);
  form.cmdPromote.press();
  form.cmdDemote.press();
  form.cmdPropose.press();
  EXPECT_TRUE(messages().empty());
  expectNoStep(*this, [this] { form.cmdApply.press(); });
}

TEST_F(PathMap, WithoutASelectedLineNothingMoves) {
  addRows({100, 100});
  open();
  form.lstPathSegments.setIndex(-1);
  form.cmdPromote.press();
  form.cmdDemote.press();
  EXPECT_TRUE(messages().empty());
  expectNoStep(*this, [this] { form.cmdApply.press(); });
}

TEST_F(PathMap, ItemsThatAScriptHasPutThereDoNoHarm) {
  addRows({100, 100, 200});
  open();
  const auto shown = labels();
  form.lstPathSegments.setItems(Texts(100, "   Line Segment 99"));
  form.lstPathSegments.setIndex(99);
  form.cmdPromote.press();
  form.cmdDemote.press();
  EXPECT_EQ(labels(), shown);
  form.lstPathSegments.setIndex(2);
  form.cmdPromote.press();
  EXPECT_EQ(lines().size(), 5U) << "the rows again";
  EXPECT_EQ(line(), 1);
  form.cmdPropose.press();
  EXPECT_TRUE(messages().empty());
}

// ---- Travel

TEST_F(PathMap, TellsTheRapidsOfBothOrders) {
  addPathLine(0, 0, 1, 0, 100);
  addPathLine(9, 0, 8, 0, 200);
  addPathLine(2, 0, 3, 0, 300);
  open();
  EXPECT_EQ(form.lblRapids.caption(), "Rapids between Rows: 14.0000");
  EXPECT_EQ(form.lblRapidsBefore.caption(), "Before: 14.0000");
  promote(4);
  promote(2);
  EXPECT_EQ(form.lblRapids.caption(), "Rapids between Rows: 11.0000");
  EXPECT_EQ(form.lblRapidsBefore.caption(), "Before: 14.0000");
}

TEST_F(PathMap, ProposesByToolAndTravelOnTheCopy) {
  addPathLine(0, 0, 1, 0, 100);
  addPathLine(9, 0, 8, 0, 200);
  addPathLine(2, 0, 3, 0, 300);
  addPathLine(1, 0, 2, 0, 401);
  open();
  form.lstPathSegments.pick(2);
  expectNoStep(*this, [this] { form.cmdPropose.press(); });
  EXPECT_EQ(lines()[0], "Path Group #1:  Group 1");
  EXPECT_EQ(lines()[2], "Path Group #3:  Group 3");
  EXPECT_EQ(lines()[4], "Path Group #2:  Group 2");
  EXPECT_EQ(lines()[6], "Path Group #4:  Group 4");
  EXPECT_EQ(line(), 4) << "the group that was selected";
  EXPECT_EQ(form.lblRapids.caption(), "Rapids between Rows: 14.0000");
  EXPECT_EQ(form.lblRapidsBefore.caption(), "Before: 16.0000");
  expectOneStep(*this, [this] { form.cmdApply.press(); });
}

}  // namespace
}  // namespace tess
