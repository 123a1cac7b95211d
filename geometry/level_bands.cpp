// Loops by height. Bands are as many as let each part stand in three of them or so.
#include "geometry/level_bands.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace tess {
namespace {

constexpr double kBandsPerPart = 3;

// The places of an arc at which it turns from rising to falling, in its order.
class TurningPlaces {
 public:
  explicit TurningPlaces(const Curve& arc) {
    const PlanePoint top{arc.center.x, arc.center.y + arc.radius};
    const PlanePoint bottom{arc.center.x, arc.center.y - arc.radius};
    if (isWithin(arc, top)) places_[count_++] = top;
    if (isWithin(arc, bottom)) places_[count_++] = bottom;
    if (count_ == 2 && shareOf(arc, top) > shareOf(arc, bottom)) std::swap(places_[0], places_[1]);
  }
  std::span<const PlanePoint> places() const { return {places_.data(), count_}; }

 private:
  // Ends turn nothing.
  static bool isWithin(const Curve& arc, PlanePoint at) {
    return isBeside(arc, at) && at.y != arc.start.y && at.y != arc.end.y;
  }
  std::array<PlanePoint, 2> places_;
  std::size_t count_ = 0;
};

}  // namespace

double LevelBands::Part::xAt(double y) const {
  if (radius == 0) return lowX + (y - lowY) * ((highX - lowX) / (highY - lowY));
  const double up = y - center.y;
  const double half = (radius - up) * (radius + up);
  return center.x + side * std::sqrt(std::max(half, 0.0));
}

LevelBands::LevelBands(std::span<const Curve> curves) {
  parts_.reserve(curves.size());
  for (std::size_t k = 0; k < curves.size(); ++k) addParts(curves[k], static_cast<int>(k));
  build();
}

void LevelBands::addParts(const Curve& curve, int number) {
  PlanePoint from = curve.start;
  if (curve.isArc()) {
    const TurningPlaces turning(curve);
    for (const PlanePoint place : turning.places()) {
      addPart(curve, number, from, place);
      from = place;
    }
  }
  addPart(curve, number, from, curve.end);
}

// A part without height crosses no level. Counter-clockwise an arc rises on its right half.
void LevelBands::addPart(const Curve& curve, int number, PlanePoint from, PlanePoint to) {
  if (from.y == to.y) return;
  const bool rises = from.y < to.y;
  const PlanePoint low = rises ? from : to;
  const PlanePoint high = rises ? to : from;
  Part part{low.y, high.y, low.x, high.x, std::min(low.x, high.x), std::max(low.x, high.x), {}};
  part.curve = number;
  if (curve.isArc()) {
    part.center = curve.center;
    part.radius = curve.radius;
    part.side = rises == (curve.turn > 0) ? 1 : -1;
    const double outmost = curve.center.x + part.side * curve.radius;
    part.minX = std::min(part.minX, outmost);
    part.maxX = std::max(part.maxX, outmost);
  }
  parts_.push_back(part);
}

void LevelBands::build() {
  if (parts_.empty()) return;
  lowY_ = parts_.front().lowY;
  highY_ = parts_.front().highY;
  double heights = 0;
  for (const Part& part : parts_) {
    lowY_ = std::min(lowY_, part.lowY);
    highY_ = std::max(highY_, part.highY);
    heights += part.highY - part.lowY;
  }
  const double count = static_cast<double>(parts_.size());
  const double wanted = kBandsPerPart * count * (highY_ - lowY_) / heights;
  bands_ = static_cast<int>(std::clamp(wanted, 1.0, kBandsPerPart * count));
  bandsPerUnit_ = bands_ / (highY_ - lowY_);

  bandStart_.assign(static_cast<std::size_t>(bands_) + 1, 0);
  const auto forBandsOf = [this](const Part& part, auto visit) {
    const int last = bandOf(part.highY);
    for (int band = bandOf(part.lowY); band <= last; ++band) visit(static_cast<std::size_t>(band));
  };
  for (const Part& part : parts_) {
    forBandsOf(part, [this](std::size_t band) { ++bandStart_[band + 1]; });
  }
  for (std::size_t band = 1; band < bandStart_.size(); ++band) {
    bandStart_[band] += bandStart_[band - 1];
  }
  std::vector<int> next(bandStart_.begin(), bandStart_.end() - 1);
  bandParts_.resize(static_cast<std::size_t>(bandStart_.back()));
  for (std::size_t k = 0; k < parts_.size(); ++k) {
    forBandsOf(parts_[k], [&](std::size_t band) {
      bandParts_[static_cast<std::size_t>(next[band]++)] = static_cast<int>(k);
    });
  }
}

int LevelBands::bandOf(double y) const {
  return std::clamp(static_cast<int>((y - lowY_) * bandsPerUnit_), 0, bands_ - 1);
}

std::span<const int> LevelBands::partsAt(double y) const {
  const bool isBeside = y >= lowY_ && y <= highY_;
  if (parts_.empty() || !isBeside) return {};
  const auto band = static_cast<std::size_t>(bandOf(y));
  const auto first = static_cast<std::size_t>(bandStart_[band]);
  return std::span(bandParts_)
      .subspan(first, static_cast<std::size_t>(bandStart_[band + 1]) - first);
}

void LevelBands::crossingsAt(double y, std::vector<LevelCrossing>& found) const {
  found.clear();
  for (const int number : partsAt(y)) {
    const Part& part = parts_[static_cast<std::size_t>(number)];
    if (part.crosses(y)) found.push_back({part.xAt(y), part.curve});
  }
}

void LevelBands::crossedLeftOf(PlanePoint at, std::vector<int>& curves) const {
  curves.clear();
  for (const int number : partsAt(at.y)) {
    const Part& part = parts_[static_cast<std::size_t>(number)];
    if (!part.crosses(at.y) || at.x <= part.minX) continue;
    if (at.x > part.maxX || part.xAt(at.y) < at.x) curves.push_back(part.curve);
  }
}

}  // namespace tess
