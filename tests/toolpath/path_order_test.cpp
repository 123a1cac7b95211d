// The order of path rows: groups exchanged and arranged on a copy, and kept as one step.
#include "toolpath/path_order.h"

#include <limits>
#include <random>

#include "gtest/gtest.h"

#include "core/drawing_store.h"
#include "drafting/undo.h"
#include "tests/support/edit_checks.h"
#include "tests/support/failure_of.h"
#include "tests/support/recorded_cam.h"

namespace tess {
namespace {

using testing::expectNoStep;
using testing::expectOneStep;
using testing::RecordedCam;
using Numbers = std::vector<int>;

// Rows of one length, told apart by their depth, which is their number.
struct OrderContext : RecordedCam {
  explicit OrderContext(const Numbers& codes) {
    for (const int code : codes) {
      const auto at = static_cast<float>(store.NumPathSegments + 1);
      addPathSegment(store, {.type = kLine, .x0 = at, .x1 = at + 1, .z = at, .code = code});
    }
    store.drawingsaved = true;
  }
};

Numbers numbersOf(const PathOrder& order) {
  Numbers numbers;
  for (int place = 1; place <= order.count(); ++place) {
    numbers.push_back(static_cast<int>(order.row(place).z));
  }
  return numbers;
}

Numbers numbersOf(const DrawingStore& store) {
  return numbersOf(PathOrder(store));
}

Numbers visibleRows(const DrawingStore& store) {
  Numbers rows;
  for (int ps = 1; ps <= store.NumPathSegments; ++ps) {
    if (store.psvisible[ps]) rows.push_back(ps);
  }
  return rows;
}

TEST(PathOrder, ReadsGroupsCutOff) {
  OrderContext d({152, 30152, 200});
  const PathOrder order(d.store);
  EXPECT_EQ(order.group(1), 1);
  EXPECT_EQ(order.group(2), 1);
  EXPECT_TRUE(order.startsRun(1));
  EXPECT_FALSE(order.startsRun(2));
  EXPECT_TRUE(order.startsRun(3));
}

TEST(PathOrder, ExchangesTheFirstRunsOfTwoGroups) {
  struct Case {
    Numbers codes;
    int a, b;
    Numbers numbers;
  };
  const std::vector<Case> cases = {
      {{100, 100, 200, 200, 200}, 1, 2, {3, 4, 5, 1, 2}},
      {{100, 100, 200, 200, 200}, 2, 1, {3, 4, 5, 1, 2}},
      {{100, 200, 300, 300, 400}, 1, 3, {3, 4, 1, 2, 5}},  // what lies between goes with the first
      {{100, 200, 100, 200}, 1, 2, {2, 1, 3, 4}},
      {{100, 200}, 1, 1, {1, 2}},
      {{100, 200}, 1, 7, {1, 2}},
      {{100, 200}, 7, 8, {1, 2}},
  };
  for (const Case& row : cases) {
    OrderContext d(row.codes);
    PathOrder order(d.store);
    order.exchangeGroups(row.a, row.b);
    EXPECT_EQ(numbersOf(order), row.numbers) << row.a << " and " << row.b;
  }
}

TEST(PathOrder, OfAPlaceThatIsNotThereFails) {
  OrderContext d({100});
  PathOrder order(d.store);
  EXPECT_THROW(order.row(0), RuntimeFailure);
  EXPECT_THROW(order.row(2), RuntimeFailure);
  EXPECT_THROW(order.exchangeRows(1, 2), RuntimeFailure);
}

TEST(PathOrder, NamesAGroupWithoutOne) {
  OrderContext d({100, 20000, -500});
  d.store.pathgroupname[1] = "Outside";
  PathOrder order(d.store);
  EXPECT_EQ(order.nameOf(1), "Outside");
  EXPECT_EQ(order.nameOf(200), "Group 200");
  EXPECT_EQ(order.nameOf(-5), "Group -5");
  EXPECT_EQ(d.store.pathgroupname.upperBound(), kStartUpperBound);
  expectNoStep(d, [&] { EXPECT_TRUE(order.keep(d.context)); });
  EXPECT_EQ(d.store.pathgroupname.upperBound(), 210);
  EXPECT_EQ(d.store.pathgroupname[200], "Group 200");
}

// ---- The order that is proposed

struct Place {
  int code;
  float x;
};

Numbers arranged(const std::vector<Place>& places, Point start) {
  RecordedCam d;
  for (const Place& place : places) {
    addPathSegment(d.store, {.type = kLine,
                             .x0 = place.x,
                             .x1 = place.x + 0.5F,
                             .z = static_cast<float>(d.store.NumPathSegments + 1),
                             .code = place.code});
  }
  PathOrder order(d.store);
  order.arrangeByTool(start);
  return numbersOf(order);
}

TEST(ArrangeByTool, KeepsToAToolBeforeTheNextOne) {
  EXPECT_EQ(arranged({{105, 0}, {202, 1}, {305, 2}, {402, 3}}, {0, 0}), (Numbers{1, 3, 4, 2}));
}

TEST(ArrangeByTool, GoesToTheNearestGroupFromWhereTheLastOneEnds) {
  const std::vector<Place> groups = {{100, 9}, {200, 1}, {300, 5}, {400, 3}};
  EXPECT_EQ(arranged(groups, {0, 0}), (Numbers{2, 4, 3, 1}));
  EXPECT_EQ(arranged(groups, {10, 0}), (Numbers{1, 3, 4, 2}));
}

TEST(ArrangeByTool, LeavesGroupsThatAreAsNearInTheirOrder) {
  EXPECT_EQ(arranged({{300, 1}, {100, 1}, {200, 1}}, {1, 0}), (Numbers{1, 2, 3}));
}

TEST(ArrangeByTool, BringsTheRunsOfAGroupTogether) {
  EXPECT_EQ(arranged({{100, 0}, {200, 5}, {100, 1}, {200, 6}}, {0, 0}), (Numbers{1, 3, 2, 4}));
}

TEST(ArrangeByTool, OfNoRowsIsNothing) {
  EXPECT_EQ(arranged({}, {0, 0}), Numbers{});
}

TEST(PathOrder, MeasuresTheWaysBetweenTheRows) {
  RecordedCam d;
  EXPECT_EQ(PathOrder(d.store).rapidLength(), 0);
  d.addPathLine(0, 0, 1, 0);
  d.addPathLine(4, 4, 5, 5);  // 5 away
  d.addPathLine(5, 5, 6, 6);
  d.addPathLine(6, 8, 0, 0);  // 2 away
  EXPECT_EQ(PathOrder(d.store).rapidLength(), 7);
  d.addPathLine(3e38F, 3e38F, -3e38F, 0);
  d.addPathLine(3e38F, 0, 0, 0);
  EXPECT_EQ(PathOrder(d.store).rapidLength(), std::numeric_limits<float>::max());
}

// ---- Keeping it

TEST(KeptPathOrder, IsOneStepOfTheFewestRows) {
  OrderContext d({100, 100, 200, 200, 200});
  PathOrder order(d.store);
  order.exchangeGroups(1, 2);
  expectOneStep(d, [&] { EXPECT_TRUE(order.keep(d.context)); });
  EXPECT_EQ(numbersOf(d.store), (Numbers{3, 4, 5, 1, 2}));
  EXPECT_EQ(d.context.changelog.changecount, 4) << "two rows have gone and come back";
}

TEST(KeptPathOrder, OfAnyOrderIsUndoneAndRedone) {
  std::mt19937 random(20);
  for (int round = 0; round < 50; ++round) {
    OrderContext d(Numbers(static_cast<std::size_t>(12), 100));
    PathOrder order(d.store);
    for (int place = 1; place <= 1 + round % 11; ++place) {
      order.exchangeRows(place, place + 1 + static_cast<int>(random() % (12U - place)));
    }
    const Numbers wanted = numbersOf(order);
    expectOneStep(d, [&] { EXPECT_TRUE(order.keep(d.context)); });
    EXPECT_EQ(numbersOf(d.store), wanted);
  }
}

TEST(KeptPathOrder, LeavesVisibilityWithTheNumberAndTheLastPlacedGroup) {
  OrderContext d({100, 200, 300});
  {
    Change change(d.context.changes);
    change.paths.show(1, false);
    change.keep();
  }
  d.store.lastplacedgroup = 3;
  d.store.currentpathgroup = 9;
  PathOrder order(d.store);
  order.exchangeRows(1, 3);
  EXPECT_TRUE(order.keep(d.context));
  EXPECT_EQ(numbersOf(d.store), (Numbers{3, 2, 1}));
  EXPECT_EQ(visibleRows(d.store), (Numbers{2, 3}));
  EXPECT_EQ(d.store.lastplacedgroup, 3);
  EXPECT_EQ(d.store.currentpathgroup, 9);
}

TEST(KeptPathOrder, ThatIsTheOldOneIsNoStep) {
  OrderContext d({100, 200});
  PathOrder order(d.store);
  order.exchangeRows(1, 2);
  order.exchangeRows(1, 2);
  expectNoStep(d, [&] { EXPECT_TRUE(order.keep(d.context)); });
}

TEST(KeptPathOrder, OfRowsThatHaveChangedMeanwhileFails) {
  OrderContext d({100, 200});
  PathOrder order(d.store);
  order.exchangeRows(1, 2);
  d.addPathLine(0, 0, 1, 1);
  d.store.drawingsaved = true;
  expectNoStep(d, [&] {
    const RuntimeFailure failure = testing::failureOf([&] { order.keep(d.context); });
    EXPECT_EQ(failure.description(), "The path rows have changed since their order was copied.");
  });
  EXPECT_EQ(numbersOf(d.store), (Numbers{1, 2, 0}));
}

// 30000 rows in reverse are more records than the log holds.
TEST(KeptPathOrder, OfMoreRowsThanTheLogHoldsIsPutToTheOperator) {
  OrderContext d(Numbers(static_cast<std::size_t>(30000), 100));
  PathOrder order(d.store);
  for (int place = 1; place <= 15000; ++place) order.exchangeRows(place, 30001 - place);
  d.test.recording.prompts.answers = {Answer::Cancel, Answer::Ok};
  expectNoStep(d, [&] { EXPECT_FALSE(order.keep(d.context)); });
  ASSERT_EQ(d.messages().size(), 1U);
  EXPECT_EQ(d.messages()[0].text.substr(0, 39), "This change takes 59998 records, and th");
  EXPECT_TRUE(order.keep(d.context));
  EXPECT_EQ(d.store.psz[1], 30000);
  EXPECT_FALSE(d.store.drawingsaved);
}

TEST(KeptPathOrder, OfTwoHalvesOfALargeTableIsUndone) {
  Numbers codes(static_cast<std::size_t>(15000), 100);
  codes.resize(30000, 200);
  OrderContext d(codes);
  PathOrder order(d.store);
  order.exchangeGroups(1, 2);
  expectOneStep(d, [&] { EXPECT_TRUE(order.keep(d.context)); });
  EXPECT_EQ(d.store.psz[1], 15001);
  EXPECT_TRUE(d.messages().empty());
}

}  // namespace
}  // namespace tess
