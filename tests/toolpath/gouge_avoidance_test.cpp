// Cutting the folds of a chain, by rows, by states and messages, and against trying all pairs.
#include "toolpath/gouge_avoidance.h"

#include <utility>

#include "gtest/gtest.h"

#include "core/drawing_store.h"
#include "geometry/float_intersections.h"
#include "geometry/row_entity.h"
#include "tests/geometry/rows.h"
#include "tests/geometry/scenes.h"
#include "tests/support/plain_edits.h"
#include "tests/support/recorded_cam.h"
#include "toolpath/path_groups.h"

namespace tess {
namespace {

using testing::deletePathSegment;
using testing::deleteSegment;
using testing::Dice;
using testing::pathTexts;
using testing::RecordedCam;
using testing::segmentTexts;
using Texts = std::vector<std::string>;

constexpr char kUnfinished[] =
    "Gouge Avoidance has completed 11 iterations without completing!  Please check the tool path "
    "output.";

// Rows from point to point.
std::vector<Entity> polyline(const std::vector<Point>& points) {
  std::vector<Entity> rows;
  for (std::size_t k = 1; k < points.size(); ++k)
    rows.push_back(lineEntity(points[k - 1], points[k]));
  return rows;
}

void addPaths(DrawingStore& store, const std::vector<Entity>& rows, int code = 100) {
  for (const Entity& row : rows) testing::addPath(store, row, code);
}

void addSegments(DrawingStore& store, const std::vector<Entity>& rows) {
  for (const Entity& row : rows) testing::addSegment(store, row);
}

struct Gouge : ::testing::Test, RecordedCam {
  void cleanPath(int first = 1) { removeSelfIntersections(cam, first, ChainKind::Path); }
  void cleanSegs(int first = 1) { removeSelfIntersections(cam, first, ChainKind::Segs); }
};

// Loops in a row, each of which crosses itself once, ten units apart.
std::vector<Entity> loops(int count) {
  std::vector<Point> points;
  for (int k = 0; k < count; ++k) {
    const float x = 10.0F * static_cast<float>(k);
    for (const Point p : {Point{0, 0}, {2, 0}, {2, 1}, {1, 1}, {1, -1}})
      points.push_back({x + p.x, p.y});
  }
  return polyline(points);
}

// Three rows of each loop stay, and the rows that lead to the next one.
constexpr int rowsAfter(int loopCount, int foldsCut) {
  return 5 * loopCount - 1 - 2 * foldsCut;
}

TEST_F(Gouge, ANotchNarrowerThanTheToolIsPassedByStraight) {
  // Round a square with a slot 0.3 wide and 1 deep in its upper side, by a tool of radius 0.25.
  const std::vector<Entity> outside{
      lineEntity({-0.25F, 0}, {-0.25F, 10}),
      {kClockwiseArc, {-0.25F, 10}, {0, 10.25F}, {0, 10}},
      lineEntity({0, 10.25F}, {4.85F, 10.25F}),
      {kClockwiseArc, {4.85F, 10.25F}, {5.1F, 10}, {4.85F, 10}},
      lineEntity({5.1F, 10}, {5.1F, 9.25F}),
      lineEntity({5.1F, 9.25F}, {4.9F, 9.25F}),
      lineEntity({4.9F, 9.25F}, {4.9F, 10}),
      {kClockwiseArc, {4.9F, 10}, {5.15F, 10.25F}, {5.15F, 10}},
      lineEntity({5.15F, 10.25F}, {10, 10.25F}),
      {kClockwiseArc, {10, 10.25F}, {10.25F, 10}, {10, 10}},
      lineEntity({10.25F, 10}, {10.25F, 0}),
      {kClockwiseArc, {10.25F, 0}, {10, -0.25F}, {10, 0}},
      lineEntity({10, -0.25F}, {0, -0.25F}),
      {kClockwiseArc, {0, -0.25F}, {-0.25F, 0}, {0, 0}},
  };
  addPaths(store, outside);
  cleanPath();
  EXPECT_EQ(pathTexts(store), (Texts{
                                  "1 (-0.25, 0)-(-0.25, 10) @100 z 0",
                                  "2 (-0.25, 10)-(0, 10.25) c (0, 10) @100 z 0",
                                  "1 (0, 10.25)-(4.85, 10.25) @100 z 0",
                                  "2 (4.85, 10.25)-(5, 10.2) c (4.85, 10) @100 z 0",
                                  "2 (5, 10.2)-(5.15, 10.25) c (5.15, 10) @100 z 0",
                                  "1 (5.15, 10.25)-(10, 10.25) @100 z 0",
                                  "2 (10, 10.25)-(10.25, 10) c (10, 10) @100 z 0",
                                  "1 (10.25, 10)-(10.25, 0) @100 z 0",
                                  "2 (10.25, 0)-(10, -0.25) c (10, 0) @100 z 0",
                                  "1 (10, -0.25)-(0, -0.25) @100 z 0",
                                  "2 (0, -0.25)-(-0.25, 0) c (0, 0) @100 z 0",
                              }));
  EXPECT_TRUE(messages().empty());
}

// A square whose last row runs over the start of the first by `overrun`, which is more than the
// tolerance.
std::vector<Entity> closedSquare(float overrun) {
  return polyline({{-overrun, 0}, {10, 0}, {10, 10}, {0, 10}, {0, -overrun}});
}

TEST_F(Gouge, TheClosingPointOfAChainIsNoCrossing) {
  store.cfg_tolerance = 0.0001F;
  addPaths(store, closedSquare(0.0005F));
  addSegments(store, closedSquare(0.0005F));
  const Texts paths = pathTexts(store);
  const Texts segments = segmentTexts(store);
  cleanPath();
  cleanSegs();
  EXPECT_EQ(pathTexts(store), paths);
  EXPECT_EQ(segmentTexts(store), segments);
}

TEST_F(Gouge, FartherThanAThousandthAClosingPointIsACrossing) {
  store.cfg_tolerance = 0.0001F;
  addPaths(store, closedSquare(0.002F));
  addSegments(store, closedSquare(0.002F));
  cleanPath();
  cleanSegs();
  EXPECT_EQ(segmentTexts(store), (Texts{"1 (-0.002, 0)-(0, 0)", "1 (0, 0)-(0, -0.002)"}));
  EXPECT_EQ(pathTexts(store),
            (Texts{"1 (-0.002, 0)-(0, 0) @100 z 0", "1 (0, 0)-(0, -0.002) @100 z 0"}));
}

TEST_F(Gouge, APathClosesOnlyFromItsLastRowToItsFirst) {
  // Working outlines stand one behind the other, so there any two rows may close one.
  store.cfg_tolerance = 0.0001F;
  std::vector<Entity> rows = closedSquare(0.0005F);
  rows.push_back(lineEntity({-5, -5}, {-6, -5}));
  addPaths(store, rows);
  addSegments(store, rows);
  cleanSegs();
  EXPECT_EQ(store.NumSegments, 5);
  cleanPath();
  EXPECT_EQ(pathTexts(store),
            (Texts{"1 (-0.0005, 0)-(0, 0) @100 z 0", "1 (0, 0)-(0, -0.0005) @100 z 0",
                   "1 (-5, -5)-(-6, -5) @100 z 0"}));
}

TEST_F(Gouge, RowsThatMeetAtAnEndAreNoCrossing) {
  // The chain comes back and touches its first row: with an end of a later row in the midst of it,
  // at its end, and at its start.
  addPaths(store, polyline({{0, 0}, {4, 0}, {4, 2}, {2, 0}, {2, 3}, {0, 0}, {-1, 0}}));
  addPaths(store, polyline({{0, 0}, {4, 0}, {5, 2}, {4, 0}, {5, 3}}), 200);
  const Texts before = pathTexts(store);
  store.drawingsaved = true;
  cleanPath(1);
  cleanPath(7);
  EXPECT_EQ(pathTexts(store), before);
  EXPECT_TRUE(store.drawingsaved);
}

TEST_F(Gouge, TwelveFoldsLeaveOneAndAMessage) {
  addPaths(store, loops(12));
  cleanPath();
  EXPECT_EQ(store.NumPathSegments, rowsAfter(12, 11));
  ASSERT_EQ(messages().size(), 1U);
  EXPECT_EQ(messages()[0].text, kUnfinished);
  EXPECT_EQ(messages()[0].title, "Gouge Detection");
  EXPECT_EQ(messages()[0].icon, MessageIcon::Error);
  EXPECT_EQ(messages()[0].buttons, MessageButtons::Ok);
  cleanPath();
  EXPECT_EQ(store.NumPathSegments, rowsAfter(12, 12));
  EXPECT_EQ(messages().size(), 1U);
}

TEST_F(Gouge, ElevenFoldsEndCleanButWithTheMessage) {
  addSegments(store, loops(11));
  cleanSegs();
  EXPECT_EQ(store.NumSegments, rowsAfter(11, 11));
  ASSERT_EQ(messages().size(), 1U);
  EXPECT_EQ(messages()[0].text, kUnfinished);
}

TEST_F(Gouge, TenFoldsEndSilently) {
  addPaths(store, loops(10));
  cleanPath();
  EXPECT_EQ(store.NumPathSegments, rowsAfter(10, 10));
  EXPECT_TRUE(messages().empty());
}

TEST_F(Gouge, AFoldIsCutAtItsRoot) {
  addPaths(store, loops(2));
  store.drawingsaved = true;
  cleanPath();
  EXPECT_EQ(pathTexts(store), (Texts{"1 (0, 0)-(1, 0) @100 z 0", "1 (1, 0)-(1, -1) @100 z 0",
                                     "1 (1, -1)-(10, 0) @100 z 0", "1 (10, 0)-(11, 0) @100 z 0",
                                     "1 (11, 0)-(11, -1) @100 z 0"}));
  EXPECT_FALSE(store.drawingsaved);
  EXPECT_EQ(context.changelog.changecount, 0);
}

TEST_F(Gouge, AChainWithoutCrossingsStays) {
  addPaths(store, polyline({{0, 0}, {4, 0}, {4, 4}, {2, 4}, {2, 2}, {0, 2}, {0, 0}}));
  const Texts before = pathTexts(store);
  store.drawingsaved = true;
  cleanPath();
  EXPECT_EQ(pathTexts(store), before);
  EXPECT_TRUE(store.drawingsaved);
  EXPECT_TRUE(messages().empty());
}

TEST_F(Gouge, OnlyTheUnbrokenRunOfAGroupIsTreated) {
  addPaths(store, loops(1), 100);
  addPaths(store, polyline({{0, 5}, {5, 5}}), 200);
  addPaths(store, loops(1), 100);
  cleanPath();
  EXPECT_EQ(pathTexts(store), (Texts{"1 (0, 0)-(1, 0) @100 z 0", "1 (1, 0)-(1, -1) @100 z 0",
                                     "1 (0, 5)-(5, 5) @200 z 0", "1 (0, 0)-(2, 0) @100 z 0",
                                     "1 (2, 0)-(2, 1) @100 z 0", "1 (2, 1)-(1, 1) @100 z 0",
                                     "1 (1, 1)-(1, -1) @100 z 0"}));
}

TEST_F(Gouge, GroupsThatRoundToOneNumberCountAsOne) {
  const std::vector<Entity> rows = loops(1);
  addPaths(store, {rows[0], rows[1]}, 360);
  addPaths(store, {rows[2], rows[3]}, 410);
  cleanPath();
  EXPECT_EQ(pathTexts(store), (Texts{"1 (0, 0)-(1, 0) @360 z 0", "1 (1, 0)-(1, -1) @410 z 0"}));
}

TEST_F(Gouge, WorkingRowsAreTreatedFromTheFirstToTheLastOfAll) {
  addSegments(store, loops(1));
  addSegments(store, loops(2));
  cleanSegs(5);
  EXPECT_EQ(segmentTexts(store),
            (Texts{"1 (0, 0)-(2, 0)", "1 (2, 0)-(2, 1)", "1 (2, 1)-(1, 1)", "1 (1, 1)-(1, -1)",
                   "1 (0, 0)-(1, 0)", "1 (1, 0)-(1, -1)", "1 (1, -1)-(10, 0)", "1 (10, 0)-(11, 0)",
                   "1 (11, 0)-(11, -1)"}));
}

TEST_F(Gouge, AnEmptyRangeIsLeftAlone) {
  cleanPath();
  cleanSegs();
  addPaths(store, loops(1));
  addSegments(store, loops(1));
  cleanPath(5);
  cleanSegs(5);
  EXPECT_EQ(store.NumPathSegments, 4);
  EXPECT_EQ(store.NumSegments, 4);
  EXPECT_TRUE(messages().empty());
}

TEST_F(Gouge, KindsWithoutACrossingRuleStay) {
  addPaths(store, {lineEntity({0, 0}, {4, 0}),
                   lineEntity({4, 0}, {4, 2}),
                   {81, {2, -1}, {2, 1}, {}},
                   {kRapid, {2, -1}, {2, 1}, {}},
                   lineEntity({4, 2}, {0, 2})});
  addSegments(store, {lineEntity({0, 0}, {4, 0}),
                      lineEntity({4, 0}, {4, 2}),
                      {kCircle, {2, 1}, {2, 1}, {2, 0}},
                      {kRectangle, {1, -1}, {3, 1}, {}}});
  cleanPath();
  cleanSegs();
  EXPECT_EQ(store.NumPathSegments, 5);
  EXPECT_EQ(store.NumSegments, 4);
}

TEST_F(Gouge, OfTwoCrossingsTheOneNearerToTheStartIsTheRoot) {
  const Entity arc{kCounterClockwiseArc, {3, 0}, {-3, 0}, {0, 0}};
  const Entity between = lineEntity({9, 1}, {9, 2});
  addPaths(store, {lineEntity({-4, 1}, {4, 1}), between, arc}, 100);
  addPaths(store, {lineEntity({4, 1}, {-4, 1}), between, arc}, 200);
  cleanPath(1);
  cleanPath(3);
  EXPECT_EQ(pathTexts(store),
            (Texts{"1 (-4, 1)-(-2.8284, 1) @100 z 0", "3 (-2.8284, 1)-(-3, 0) c (0, 0) @100 z 0",
                   "1 (4, 1)-(2.8284, 1) @200 z 0", "3 (2.8284, 1)-(-3, 0) c (0, 0) @200 z 0"}));
}

TEST_F(Gouge, TwoCrossingsEquallyFarFromTheStartTakeTheFirst) {
  // The start of the arc lies above the middle of the line; the first hit is the one to the right.
  addPaths(store, {{kClockwiseArc, {0, 3}, {-0.5F, 2.9580398F}, {0, 0}},
                   lineEntity({9, 1}, {9, 2}),
                   lineEntity({-4, 1}, {4, 1})});
  cleanPath();
  EXPECT_EQ(pathTexts(store),
            (Texts{"2 (0, 3)-(2.8284, 1) c (0, 0) @100 z 0", "1 (2.8284, 1)-(4, 1) @100 z 0"}));
}

TEST_F(Gouge, OfTwoCrossingsAnEndHidesTheOther) {
  // The nearer crossing is the end of the later row, so the farther one is not looked at.
  addPaths(store, {lineEntity({-4, 1}, {4, 1}),
                   lineEntity({9, 1}, {9, 2}),
                   {kCounterClockwiseArc, {3, 0}, {-2.828427F, 1}, {0, 0}}});
  const Texts before = pathTexts(store);
  cleanPath();
  EXPECT_EQ(pathTexts(store), before);
}

// ---- Against all pairs

// Tries all pairs from the beginning in each pass, and deletes row by row.
class AllPairs {
 public:
  AllPairs(DrawingStore& store, int first, ChainKind kind)
      : store_(store), first_(first), path_(kind == ChainKind::Path) {}

  // True when it gives up.
  bool clean() {
    for (int passes = 0;; ++passes) {
      if (passes > 10) return true;
      if (!pass()) return false;
    }
  }

 private:
  Entity at(int row) const { return path_ ? pathEntity(store_, row) : segmentEntity(store_, row); }

  bool pass() {
    const int last = path_ ? lastOfPathGroup(store_, first_) : int{store_.NumSegments};
    for (int i = first_; i < last; ++i) {
      for (int j = i + 2; j <= last; ++j) {
        Point p;
        if (!isCrossing(i, j, last, p)) continue;
        trim(i, j, p);
        return true;
      }
    }
    return false;
  }

  bool isCrossing(int i, int j, int last, Point& p) const {
    const Crossing crossing = path_ ? intersectPathSegs(store_, i, j) : intersectSegs(store_, i, j);
    if (!crossing) return false;
    const PointPair& hits = crossing.at;
    const Entity a = at(i);
    const Entity b = at(j);
    const bool second = crossing.second && (!crossing.first || distance(hits.second, a.start) <
                                                                   distance(hits.first, a.start));
    p = second ? hits.second : hits.first;
    for (const Point end : {a.start, a.end, b.start, b.end})
      if (samePoint(p, end, store_.cfg_tolerance)) return false;
    const bool closes = near(p, b.end) && near(p, a.start);
    return !(closes && (!path_ || (i == first_ && j == last)));
  }

  static bool near(Point a, Point b) {
    return std::abs(double{a.x} - b.x) < 0.001 && std::abs(double{a.y} - b.y) < 0.001;
  }

  void trim(int i, int j, Point p) {
    if (path_) {
      store_.psx1[i] = store_.psx0[j] = p.x;
      store_.psy1[i] = store_.psy0[j] = p.y;
      for (int row = j - 1; row > i; --row) deletePathSegment(store_, row);
    } else {
      store_.x1[i] = store_.x0[j] = p.x;
      store_.y1[i] = store_.y0[j] = p.y;
      for (int row = j - 1; row > i; --row) deleteSegment(store_, row);
    }
  }

  DrawingStore& store_;
  int first_;
  bool path_;
};

bool sameRow(const Entity& a, const Entity& b) {
  return a.type == b.type && a.start == b.start && a.end == b.end && a.center == b.center;
}

void expectAsAllPairs(RecordedCam& cleaned, const std::vector<Entity>& rows, float tolerence,
                      int first, ChainKind kind) {
  cleaned.store.NumPathSegments = cleaned.store.NumSegments = 0;
  cleaned.messages().clear();
  cleaned.store.cfg_tolerance = tolerence;
  addPaths(cleaned.store, rows);
  addSegments(cleaned.store, rows);
  DrawingStore plain = cleaned.store;
  removeSelfIntersections(cleaned.cam, first, kind);
  const bool gaveUp = AllPairs(plain, first, kind).clean();
  ASSERT_EQ(cleaned.messages().size(), gaveUp ? 1U : 0U);
  ASSERT_EQ(cleaned.store.NumPathSegments, plain.NumPathSegments);
  ASSERT_EQ(cleaned.store.NumSegments, plain.NumSegments);
  for (int ps = 1; ps <= plain.NumPathSegments; ++ps)
    ASSERT_TRUE(sameRow(pathEntity(cleaned.store, ps), pathEntity(plain, ps))) << "path " << ps;
  for (int sg = 1; sg <= plain.NumSegments; ++sg)
    ASSERT_TRUE(sameRow(segmentEntity(cleaned.store, sg), segmentEntity(plain, sg))) << sg;
}

// From point to point, by lines and by arcs whose two ends now and then differ in radius.
std::vector<Entity> wanderingChain(Dice& dice, int rows, double stride) {
  std::vector<Entity> chain;
  Point at{0, 0};
  for (int k = 0; k < rows; ++k) {
    const Point next =
        k % 9 == 8 && dice.below(3) == 0 ? chain.front().start : testing::nearby(at, stride, dice);
    const Point middle{(at.x + next.x) / 2, (at.y + next.y) / 2};
    const auto bulge = static_cast<float>(dice.below(2) == 0 ? 0 : dice.unit());
    const Point center{middle.x - bulge * (next.y - at.y), middle.y + bulge * (next.x - at.x)};
    const Point uneven = testing::nearby(center, 0.1, dice);
    const int kind = dice.below(5);
    if (kind < 2) chain.push_back(lineEntity(at, next));
    if (kind >= 2) chain.push_back({2 + dice.below(2), at, next, kind == 4 ? uneven : center});
    at = next;
  }
  return chain;
}

TEST(GougeAvoidance, CutsAsATrialOfAllPairsDoesOnChains) {
  RecordedCam cleaned;
  constexpr float kTolerences[] = {0.001F, 0, 0.05F, 0.0001F};
  for (int number = 0; number < 1500; ++number) {
    SCOPED_TRACE(::testing::Message() << "chain " << number);
    Dice dice(static_cast<std::uint32_t>(number) + 5);
    const int rows = 2 + dice.below(60);
    const std::vector<Entity> chain = wanderingChain(dice, rows, number % 2 == 0 ? 0.7 : 3);
    expectAsAllPairs(cleaned, chain, kTolerences[number % 4], 1 + dice.below(3),
                     number % 3 == 0 ? ChainKind::Segs : ChainKind::Path);
    if (::testing::Test::HasFatalFailure()) return;
  }
}

TEST(GougeAvoidance, CutsAsATrialOfAllPairsDoesOnAnyRows) {
  RecordedCam cleaned;
  for (int number = 0; number < 40 * testing::kSceneKinds; ++number) {
    SCOPED_TRACE(::testing::Message() << "scene " << number);
    std::vector<Entity> rows = testing::sceneOf(number).entities;
    if (rows.size() > 150) rows.resize(150);
    if (rows.empty()) continue;
    expectAsAllPairs(cleaned, rows, number % 2 == 0 ? 0.001F : 0, 1,
                     number % 3 == 0 ? ChainKind::Segs : ChainKind::Path);
    if (::testing::Test::HasFatalFailure()) return;
  }
}

// ---- The menu

TEST_F(Gouge, WithoutPathsTheMenuEntryDoesNothing) {
  miGougeAvoidance_Click(cam);
  EXPECT_EQ(pending(), 0);
  EXPECT_EQ(log.take(), "");
}

TEST_F(Gouge, OneGroupIsCleanedAtOnceAndShown) {
  addPaths(store, loops(1));
  miGougeAvoidance_Click(cam);
  EXPECT_EQ(store.NumPathSegments, rowsAfter(1, 1));
  EXPECT_EQ(pending(), 0);
  EXPECT_NE(log.take(), "");
  EXPECT_EQ(context.changelog.changecount, 0);
}

TEST_F(Gouge, ASecondGroupIsCleanedByItsClick) {
  addPaths(store, loops(1), 100);
  std::vector<Entity> above = loops(1);
  for (Entity& row : above) row.start.y += 2, row.end.y += 2;
  addPaths(store, above, 200);
  miGougeAvoidance_Click(cam);
  EXPECT_EQ(pending(), 41);
  refreshStatus(context);
  EXPECT_EQ(prompt(), "Click near the desired Path Group.  ");
  click(2.1F, 2.5F);
  EXPECT_EQ(pending(), 0);
  EXPECT_EQ(pathTexts(store), (Texts{"1 (0, 0)-(2, 0) @100 z 0", "1 (2, 0)-(2, 1) @100 z 0",
                                     "1 (2, 1)-(1, 1) @100 z 0", "1 (1, 1)-(1, -1) @100 z 0",
                                     "1 (0, 2)-(1, 2) @200 z 0", "1 (1, 2)-(1, 1) @200 z 0"}));
  EXPECT_EQ(context.changelog.changecount, 0);
}

TEST_F(Gouge, AClickWithNoVisiblePathDoesNothing) {
  addPaths(store, loops(1), 100);
  addPaths(store, loops(1), 200);
  for (int ps = 1; ps <= store.NumPathSegments; ++ps) store.psvisible[ps] = false;
  miGougeAvoidance_Click(cam);
  click(0, 0);
  EXPECT_EQ(store.NumPathSegments, 8);
  EXPECT_EQ(beeps(), 0);
}

TEST_F(Gouge, ToolsAboveFiftyCountAsTheNextGroupHereToo) {
  // One group of tool 61 reads as group 2, so the program asks which group is meant.
  addPaths(store, loops(1), 160);
  miGougeAvoidance_Click(cam);
  EXPECT_EQ(pending(), 41);
}

}  // namespace
}  // namespace tess
