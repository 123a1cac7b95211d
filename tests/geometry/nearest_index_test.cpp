// The nearest index against the plain scans.
#include "geometry/nearest_index.h"

#include "gtest/gtest.h"

#include "core/drawing_store.h"
#include "geometry/float_nearest_scans.h"
#include "tests/geometry/rows.h"
#include "tests/geometry/scenes.h"

namespace tess {
namespace {

using testing::Dice;
using testing::Scene;

DrawingStore storeOf(const Scene& scene, Dice& dice) {
  DrawingStore store = testing::storeWith(scene.entities);
  for (int ps = 1; ps <= store.NumPathSegments; ++ps) store.psvisible[ps] = dice.below(5) != 0;
  return store;
}

void expectSameAnswers(const DrawingStore& store, const NearestSegIndex& segments,
                       const NearestPathIndex& paths, Point at) {
  ASSERT_EQ(segments.nearestSeg(at), nearestSeg(store, at));
  ASSERT_EQ(paths.nearestPathSeg(at), nearestPathSeg(store, at, /*group=*/0));
  ASSERT_EQ(segments.nearestSegEndpoint(at), nearestSegEndpoint(store, at));
  ASSERT_EQ(paths.nearestPathEndpoint(at), nearestPathEndpoint(store, at));
}

TEST(NearestIndex, AnswersAsTheScans) {
  for (int number = 0; number < 25 * testing::kSceneKinds; ++number) {
    SCOPED_TRACE(::testing::Message() << "scene " << number);
    const Scene scene = testing::sceneOf(number);
    Dice dice(static_cast<std::uint32_t>(number) + 3U);
    const DrawingStore store = storeOf(scene, dice);
    const NearestSegIndex segments(store);
    const NearestPathIndex paths(store);
    for (int query = 0; query < 30; ++query) {
      expectSameAnswers(store, segments, paths, testing::queryPoint(scene, dice));
      if (HasFatalFailure()) return;
    }
  }
}

TEST(NearestIndex, UpdatesAnswerAsTheScans) {
  for (int number = 0; number < 3 * testing::kSceneKinds; ++number) {
    SCOPED_TRACE(::testing::Message() << "scene " << number);
    const Scene scene = testing::sceneOf(number);
    if (scene.entities.empty()) continue;
    Dice dice(static_cast<std::uint32_t>(number) + 33U);
    DrawingStore store = storeOf(scene, dice);
    NearestSegIndex segments(store);
    NearestPathIndex paths(store);
    for (int step = 0; step < 60; ++step) {
      const Entity entity = testing::sceneEntity(scene.kind, dice);
      testing::addSegment(store, entity);
      segments.update(store.NumSegments);
      const int ps = 1 + dice.below(store.NumPathSegments);
      store.psvisible[ps] = dice.below(2) != 0;
      store.psx1[ps] = entity.end.x;
      paths.update(ps);
      expectSameAnswers(store, segments, paths, testing::queryPoint(scene, dice));
      if (HasFatalFailure()) return;
    }
  }
}

TEST(NearestIndex, NothingIsFoundAMillionAway) {
  const DrawingStore store = testing::storeWith({lineEntity({0, 0}, {1, 0})});
  const NearestSegIndex segments(store);
  EXPECT_EQ(segments.nearestSeg({0.5F, 1e6F}), 0);
  EXPECT_EQ(segments.nearestSeg({0.5F, 999999.9F}), 1);
  EXPECT_EQ(segments.nearestSeg({0.5F, 1e30F}), 0);
  EXPECT_FALSE(segments.nearestSegEndpoint({0, 1e6F}));
}

TEST(NearestIndex, FarRowsThatHaveNoNearestPointArePassedOver) {
  const DrawingStore store = testing::storeWith({
      {kClockwiseArc, {1, 1}, {1, 1}, {1, 1}},
      {4, {1, 1}, {1, 1}, {}},
      lineEntity({500, 0}, {500, 9}),
  });
  EXPECT_EQ(NearestSegIndex(store).nearestSeg({1, 1}), 3);
  EXPECT_EQ(NearestPathIndex(store).nearestPathSeg({1, 1}), 3);
}

}  // namespace
}  // namespace tess
