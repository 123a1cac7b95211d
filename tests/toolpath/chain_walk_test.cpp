// From row to row along a chain: the order of preference, and the index against plain passes.
#include "toolpath/chain_walk.h"

#include "gtest/gtest.h"

#include "core/drawing_store.h"
#include "tests/geometry/rows.h"
#include "tests/geometry/scenes.h"

namespace tess {

bool operator==(const ChainStep& a, const ChainStep& b) {
  return a.row == b.row && a.end == b.end;
}

namespace {

using testing::addSegment;
using testing::Dice;

struct ChainWalks : ::testing::Test {
  ChainWalks() { store.cfg_tolerance = testing::kTolerence; }
  void line(Point from, Point to, int attr = kOrdinaryClass) {
    addSegment(store, lineEntity(from, to), attr);
  }
  std::optional<ChainStep> next(int from, Point at) {
    const auto plain = nextChainSeg(store, from, at);
    EXPECT_EQ(ChainWalk(store).nextChainSeg(from, at), plain);
    return plain;
  }
  std::optional<ChainStep> nextWithAttr(int from, Point at, int attr) {
    const auto plain = nextChainSegWithAttr(store, from, at, attr);
    EXPECT_EQ(ChainWalk(store).nextChainSegWithAttr(from, at, attr), plain);
    return plain;
  }

  DrawingStore store;
};

TEST_F(ChainWalks, ARowThatBeginsThereIsLeftByItsEnd) {
  line({0, 0}, {1, 0});
  line({1, 0}, {1, 1});
  EXPECT_EQ(next(1, {1, 0}), (ChainStep{2, {1, 1}}));
}

TEST_F(ChainWalks, ARowThatEndsThereIsLeftByItsStart) {
  line({0, 0}, {1, 0});
  line({1, 1}, {1, 0});
  EXPECT_EQ(next(1, {1, 0}), (ChainStep{2, {1, 1}}));
}

TEST_F(ChainWalks, ARowClosedOnItselfIsLeftByItsEnd) {
  line({0, 0}, {1, 0});
  line({1, 0.0005F}, {1.0005F, 0});
  EXPECT_EQ(next(1, {1, 0}), (ChainStep{2, {1.0005F, 0}}));
}

TEST_F(ChainWalks, TheLowestRowWinsAtABranch) {
  line({0, 0}, {1, 0});
  line({2, 2}, {1, 0});
  line({1, 0}, {3, 3});
  EXPECT_EQ(next(1, {1, 0}), (ChainStep{2, {2, 2}}));
}

TEST_F(ChainWalks, SelectedRowsWinAtABranch) {
  line({0, 0}, {1, 0});
  line({1, 0}, {2, 2});
  line({1, 0}, {3, 3}, kSelectedRow);
  line({1, 0}, {4, 4}, kVerifiedRow);
  EXPECT_EQ(next(1, {1, 0}), (ChainStep{3, {3, 3}}));
}

TEST_F(ChainWalks, ParkedRowsAreNotSelected) {
  line({0, 0}, {1, 0});
  line({1, 0}, {2, 2}, kParkedRow);
  line({1, 0}, {3, 3}, kVerifiedRow);
  EXPECT_EQ(next(1, {1, 0}), (ChainStep{3, {3, 3}}));
}

TEST_F(ChainWalks, TheRowItselfIsNotItsNext) {
  line({0, 0}, {1, 0}, kSelectedRow);
  EXPECT_EQ(next(1, {1, 0}), std::nullopt);
}

TEST_F(ChainWalks, WithinTheToleranceCountsAsThere) {
  line({0, 0}, {1, 0});
  line({1.0009F, 0.0009F}, {1, 1});
  EXPECT_EQ(next(1, {1, 0}), (ChainStep{2, {1, 1}}));
  EXPECT_EQ(next(1, {1, -0.0005F}), std::nullopt);
}

TEST_F(ChainWalks, AnAttributeMustBeExactlyTheOneAskedFor) {
  line({0, 0}, {1, 0}, kVerifiedRow);
  line({1, 0}, {2, 2}, kSelectedRow);
  line({1, 0}, {3, 3}, kVerifiedRow);
  EXPECT_EQ(nextWithAttr(1, {1, 0}, kVerifiedRow), (ChainStep{3, {3, 3}}));
  EXPECT_EQ(nextWithAttr(1, {1, 0}, kSelectedRow), (ChainStep{2, {2, 2}}));
  EXPECT_EQ(nextWithAttr(1, {1, 0}, kOrdinaryClass), std::nullopt);
}

TEST_F(ChainWalks, AttributesMayChangeAndRowsMayBeAppendedMeanwhile) {
  line({0, 0}, {1, 0}, kSelectedRow);
  line({1, 0}, {2, 2}, kSelectedRow);
  ChainWalk walk(store);
  store.segattr[2] = kParkedRow;
  line({1, 0}, {3, 3}, 10);
  EXPECT_EQ(walk.nextChainSeg(1, {1, 0}), (ChainStep{2, {2, 2}}));
  EXPECT_EQ(walk.nextChainSegWithAttr(1, {1, 0}, kSelectedRow), std::nullopt);
  EXPECT_EQ(walk.nextChainSegWithAttr(1, {1, 0}, kParkedRow), (ChainStep{2, {2, 2}}));
}

TEST_F(ChainWalks, TheIndexAnswersAsPlainPasses) {
  constexpr int kAttributes[] = {8, 8, 10, kSelectedRow, kVerifiedRow, kParkedRow};
  int found = 0;
  for (int number = 0; number < 20 * testing::kSceneKinds; ++number) {
    const testing::Scene scene = testing::sceneOf(number);
    store = testing::storeWith(scene.entities);
    Dice dice(static_cast<std::uint32_t>(number) + 1U);
    for (int sg = 1; sg <= store.NumSegments; ++sg) store.segattr[sg] = kAttributes[dice.below(6)];
    ChainWalk walk(store);
    for (int query = 0; query < 30; ++query) {
      const Point at = testing::queryPoint(scene, dice);
      const int from = dice.below(store.NumSegments + 1);
      const int attr = kAttributes[dice.below(6)];
      const auto expected = nextChainSeg(store, from, at);
      ASSERT_EQ(walk.nextChainSeg(from, at), expected) << "scene " << number;
      ASSERT_EQ(walk.nextChainSegWithAttr(from, at, attr),
                nextChainSegWithAttr(store, from, at, attr))
          << "scene " << number;
      if (expected) ++found;
    }
  }
  EXPECT_GT(found, 300);
}

}  // namespace
}  // namespace tess
