// Taken ground, found by boxes.
#include "toolpath/taken_ground.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <utility>

#include "geometry/curve_distance.h"

namespace tess {
namespace {

// What rounding takes from a radius.
constexpr double kRounding = 1e-6;

Box boxOf(const SweptCurve& swept) {
  return grown(boxOf(swept.curve), swept.radius);
}

std::vector<Box> boxesOf(const std::vector<SweptCurve>& taken) {
  std::vector<Box> boxes;
  boxes.reserve(taken.size());
  for (const SweptCurve& swept : taken) boxes.push_back(boxOf(swept));
  return boxes;
}

}  // namespace

TakenGround::TakenGround(std::vector<SweptCurve> taken)
    : taken_(std::move(taken)), index_(boxesOf(taken_)) {}

void TakenGround::add(const SweptCurve& swept) {
  taken_.push_back(swept);
  index_.update(index_.rows() + 1, boxOf(swept));
}

void TakenGround::add(const std::vector<Curve>& ways, double radius) {
  for (const Curve& way : ways) add({way, radius});
}

std::vector<SweptCurve> TakenGround::near(PlanePoint at, double reach) const {
  std::vector<int> rows;
  index_.rowsOverlapping(grown(boxOf(lineCurve(at, at)), reach), /*after=*/0, rows);
  std::vector<SweptCurve> found;
  found.reserve(rows.size());
  for (const int row : rows) found.push_back(taken_[static_cast<std::size_t>(row) - 1]);
  return found;
}

// What is left inside of a cleared rim would be a core that no tool leaves.
bool TakenGround::isCleared(PlanePoint at, double radius) const {
  constexpr int kRimPlaces = 360;
  const std::vector<SweptCurve> taken = near(at, radius);
  const auto isTaken = [&taken](PlanePoint place) {
    return std::any_of(taken.begin(), taken.end(), [place](const SweptCurve& swept) {
      return distanceTo(swept.curve, place) <= swept.radius + kRounding;
    });
  };
  if (!isTaken(at)) return false;
  for (int k = 0; k < kRimPlaces; ++k) {
    const double angle = 2 * std::numbers::pi * k / kRimPlaces;
    if (!isTaken(at + radius * PlanePoint{std::cos(angle), std::sin(angle)})) return false;
  }
  return true;
}

std::vector<SweptCurve> TakenGround::cutsNear(PlanePoint at, double radius, double reach) const {
  std::vector<std::pair<double, SweptCurve>> cuts;
  for (const SweptCurve& swept : near(at, reach)) {
    const double away = distanceTo(swept.curve, at);
    if (swept.radius >= radius - kRounding && away <= reach) cuts.emplace_back(away, swept);
  }
  std::stable_sort(cuts.begin(), cuts.end(),
                   [](const auto& a, const auto& b) { return a.first < b.first; });
  std::vector<SweptCurve> sorted;
  for (const auto& [away, cut] : cuts) sorted.push_back(cut);
  return sorted;
}

}  // namespace tess
