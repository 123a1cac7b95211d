// Random drawings on which an index is held against a plain pass: many ties, null rows, arcs of
// every kind, and coordinates from dense to far out. One seed gives one scene on every machine.
// Owns: Dice, SceneKind, kSceneKinds, Scene, scenePoint, nearby, alignedCenter, arcAbout,
//       sceneEntity, sceneOf, queryPoint.
#pragma once

#include <cmath>
#include <cstdint>
#include <random>
#include <vector>

#include "geometry/entity.h"

namespace tess::testing {

// The standard distributions differ between libraries; these draw the same everywhere.
class Dice {
 public:
  explicit Dice(std::uint32_t seed) : engine_(seed) {}
  int below(int limit) { return static_cast<int>(engine_() % static_cast<std::uint32_t>(limit)); }
  // From -1 to 1.
  double unit() { return static_cast<double>(engine_()) / 2147483648.0 - 1; }

 private:
  std::mt19937 engine_;
};

enum class SceneKind {
  Empty,
  Spread,       // all over a square
  Grid,         // whole coordinates: ties everywhere
  OnePoint,     // everything in one place
  OneLine,      // all coordinates on one horizontal
  Tiny,         // thousandths
  FarOut,       // small rows a million away from the origin
  Huge,         // coordinates up to 1e30
  Clusters,     // two dense places far apart
  Outliers,     // a dense place and a few rows very far away
  Hatching,     // long parallel lines
  AlignedArcs,  // arc centres almost on one line
  Lattice,      // arc centres on few rows and columns, exactly
};
inline constexpr int kSceneKinds = 13;

struct Scene {
  SceneKind kind = SceneKind::Empty;
  std::vector<Entity> entities;
};

inline Point scenePoint(SceneKind kind, Dice& dice) {
  const auto at = [](double x, double y) {
    return Point{static_cast<float>(x), static_cast<float>(y)};
  };
  switch (kind) {
    case SceneKind::Empty:
    case SceneKind::Spread:
    case SceneKind::AlignedArcs:
      return at(10 * dice.unit(), 10 * dice.unit());
    case SceneKind::Lattice:
    case SceneKind::Grid:
      return at(dice.below(8), dice.below(8));
    case SceneKind::OnePoint:
      return at(3.25, -7.5);
    case SceneKind::OneLine:
      return at(10 * dice.unit(), 2);
    case SceneKind::Tiny:
      return at(0.003 * dice.unit(), 0.003 * dice.unit());
    case SceneKind::FarOut:
      return at(1e6 + 4 * dice.unit(), -1e6 + 4 * dice.unit());
    case SceneKind::Huge:
      return at(std::pow(10.0, 15 * dice.unit() + 15) * dice.unit(), 1e30 * dice.unit());
    case SceneKind::Clusters:
      return at(dice.below(2) * 1e5 + dice.unit(), dice.unit());
    case SceneKind::Outliers: {
      const double scale = dice.below(40) == 0 ? 1e7 : 5;
      return at(scale * dice.unit(), scale * dice.unit());
    }
    case SceneKind::Hatching:
      return at(100 * dice.unit(), dice.below(200) * 0.1);
  }
  return {};
}

inline Point nearby(Point p, double reach, Dice& dice) {
  return {static_cast<float>(p.x + reach * dice.unit()),
          static_cast<float>(p.y + reach * dice.unit())};
}

// A centre beside others by hairs, or exactly.
inline Point alignedCenter(SceneKind kind, Dice& dice) {
  if (kind == SceneKind::Lattice)
    return {static_cast<float>(dice.below(60)) * 0.05F, static_cast<float>(dice.below(3))};
  const float hair = static_cast<float>(std::pow(10.0, -3 - dice.below(8)) * dice.unit());
  const float along = static_cast<float>(4 * dice.unit());
  return dice.below(2) == 0 ? Point{along, hair} : Point{hair, along};
}

// An arc of a sensible radius about `center`; one in four is closed, some are slightly uneven.
inline Entity arcAbout(Point center, double radius, Dice& dice) {
  constexpr double kTurn = 6.283185307179586;
  const auto on = [&](double angle) {
    return Point{static_cast<float>(center.x + radius * std::cos(angle)),
                 static_cast<float>(center.y + radius * std::sin(angle))};
  };
  const double start = dice.below(3) == 0 ? dice.below(8) * kTurn / 8 : kTurn * dice.unit();
  const double end = dice.below(3) == 0 ? dice.below(8) * kTurn / 8 : kTurn * dice.unit();
  Entity arc{2 + dice.below(2), on(start), on(end), center};
  if (dice.below(4) == 0) arc.end = arc.start;
  if (dice.below(8) == 0) arc.end = nearby(arc.end, 0.1 * radius, dice);
  return arc;
}

inline Entity sceneEntity(SceneKind kind, Dice& dice) {
  const Point a = scenePoint(kind, dice);
  const Point b = dice.below(3) == 0 ? scenePoint(kind, dice) : nearby(a, 1, dice);
  const bool aligned = kind == SceneKind::AlignedArcs || kind == SceneKind::Lattice;
  const double alignedSizes[] = {0.02, 0.2, 2};
  const double size = kind == SceneKind::Tiny   ? 0.001
                      : kind == SceneKind::Huge ? 1e29
                      : aligned                 ? alignedSizes[dice.below(3)]
                                                : 2;
  const double radius = size * (1.001 + dice.unit());
  switch (aligned ? 4 : dice.below(9)) {
    case 0:
    case 1:
      return lineEntity(a, b);
    case 2:
      return lineEntity(a, dice.below(2) == 0 ? Point{b.x, a.y} : Point{a.x, b.y});
    case 3:
      return lineEntity(a, a);
    case 4:
    case 5:
      return arcAbout(aligned ? alignedCenter(kind, dice) : a, radius, dice);
    case 6:
      // Three independent points: the ends lie on different radii.
      return {2 + dice.below(2), a, b, scenePoint(kind, dice)};
    case 7:
      return {dice.below(2) == 0 ? kCircle : kRectangle, a, dice.below(2) == 0 ? a : b, b};
    default:
      return {dice.below(2) == 0 ? kPoint : 81, a, a, {}};
  }
}

// Every kind in turn, each with another number of rows.
inline Scene sceneOf(int number) {
  Dice dice(static_cast<std::uint32_t>(number) * 7919U + 17U);
  Scene scene;
  scene.kind = static_cast<SceneKind>(number % kSceneKinds);
  if (scene.kind == SceneKind::Empty) return scene;
  const int rows = 1 + dice.below(number % 5 == 0 ? 600 : 120);
  for (int row = 0; row < rows; ++row) {
    const bool repeated = row > 0 && dice.below(10) == 0;
    const auto other = static_cast<std::size_t>(dice.below(row + 1));
    scene.entities.push_back(repeated && other < scene.entities.size()
                                 ? scene.entities[other]
                                 : sceneEntity(scene.kind, dice));
  }
  return scene;
}

// A point to ask for: an end of a row, near one, or anywhere, far out too.
inline Point queryPoint(const Scene& scene, Dice& dice) {
  if (dice.below(4) == 0 || scene.entities.empty()) return scenePoint(SceneKind::Spread, dice);
  const auto row = static_cast<std::size_t>(dice.below(static_cast<int>(scene.entities.size())));
  const Entity& entity = scene.entities[row];
  const Point end = dice.below(2) == 0 ? entity.start : entity.end;
  const double reaches[] = {0, 0.001, 0.5, 50};
  return nearby(end, reaches[dice.below(4)], dice);
}

}  // namespace tess::testing
