// Holding tabs, by the length along a way.
#include "toolpath/holding_tabs.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>
#include <utility>

#include "core/number_text.h"

namespace tess {
namespace {

// Where a way turns by more it has a corner.
constexpr double kCorner = 10 * std::numbers::pi / 180;
// Rows that turn by less are one straight row.
constexpr double kStraight = 1e-3;
// An arc sharper than this share of what a tab raises is as good as a corner.
constexpr double kSharpArc = 0.6;
// When straight rows are less of the outline, arcs hold the part as well as they.
constexpr double kStraightEnough = 0.25;
constexpr double kTouching = 1e-6;

double turnBetween(const Curve& before, const Curve& after) {
  const PlanePoint in = directionAt(before, 1);
  const PlanePoint out = directionAt(after, 0);
  return std::abs(std::atan2(cross(in, out), dot(in, out)));
}

}  // namespace

// ---- Levels

std::vector<RaisedRun> raisedRuns(const WayByLength& way, std::span<const RaisedRange> ranges,
                                  double z) {
  std::vector<double> cuts{0, way.length()};
  for (const RaisedRange& range : ranges) {
    if (range.top <= z) continue;
    cuts.push_back(range.from);
    cuts.push_back(range.to);
  }
  std::sort(cuts.begin(), cuts.end());
  const auto heightAt = [&](double length) {
    double height = z;
    for (const RaisedRange& range : ranges) {
      if (range.from <= length && length < range.to) height = std::max(height, range.top);
    }
    return height;
  };
  std::vector<RaisedRun> runs;
  for (std::size_t k = 0; k + 1 < cuts.size(); ++k) {
    std::vector<Curve> part = way.part(cuts[k], cuts[k + 1]);
    if (part.empty()) continue;
    const double height = heightAt((cuts[k] + cuts[k + 1]) / 2);
    if (runs.empty() || runs.back().z != height) {
      runs.push_back({std::move(part), height});
    } else {
      runs.back().curves.insert(runs.back().curves.end(), part.begin(), part.end());
    }
  }
  return runs;
}

double tabTop(const TabRules& rules, float floor) {
  return static_cast<double>(narrow(floor + rules.height));
}

// ---- One pass

TabTrack::TabTrack(TabPass pass, double width)
    : pass_(std::move(pass)),
      width_(width),
      chord_(width + 2 * pass_.toolRadius),
      way_(pass_.way),
      index_(pass_.way) {
  for (const Run& run : runs()) {
    if (!run.isStraight) {
      smooth_.push_back({.run = run});
    } else if (const auto zone = zoneOf(run)) {
      straight_.push_back(*zone);
    }
  }
}

// An arc round a corner of the outline has the distance for its radius and turns away from the free
// side.
bool TabTrack::isSharp(const Curve& curve) const {
  if (!curve.isArc()) return false;
  const bool roundCorner = std::abs(curve.radius - pass_.distance) < kTouching &&
                           (curve.turn < 0) == pass_.freeLeft && sweepOf(curve) > kCorner;
  return roundCorner || curve.radius < kSharpArc * chord_;
}

// A row that is gone along and back is a drop into a corner.
std::vector<TabTrack::Run> TabTrack::runs() const {
  constexpr double kBack = std::numbers::pi - kCorner;
  const std::vector<Curve>& curves = way_.curves();
  std::vector<bool> barred(curves.size());
  std::vector<double> turns(curves.size());  // from the curve before
  for (std::size_t k = 0; k < curves.size(); ++k) {
    if (isSharp(curves[k])) barred[k] = true;
    if (k > 0) turns[k] = turnBetween(curves[k - 1], curves[k]);
    if (turns[k] < kBack) continue;
    barred[k - 1] = barred[k] = true;
  }
  std::vector<Run> straight, smooth;
  const auto add = [&](std::vector<Run>& runs, std::size_t k, double turn, bool isStraight) {
    const bool goesOn =
        k > 0 && !runs.empty() && runs.back().to == way_.startOf(k) && turns[k] < turn;
    if (goesOn) {
      runs.back().to = way_.endOf(k);
    } else {
      runs.push_back({way_.startOf(k), way_.endOf(k), isStraight});
    }
  };
  for (std::size_t k = 0; k < curves.size(); ++k) {
    if (barred[k]) continue;
    if (!curves[k].isArc()) add(straight, k, kStraight, true);
    add(smooth, k, kCorner, false);
  }
  straight.insert(straight.end(), smooth.begin(), smooth.end());
  return straight;
}

std::optional<TabTrack::Zone> TabTrack::zoneOf(const Run& run) const {
  const double from = std::max(run.from, pass_.startRoom);
  const double to = std::min(run.to, way_.length() - pass_.startRoom);
  double half = chord_ / 2;
  const auto isTooShort = [&] { return !(from + half <= to - half); };
  if (isTooShort()) return std::nullopt;
  if (!run.isStraight) {
    // What a curved row needs is longer than the chord: the most of a few places.
    constexpr int kLooks = 16;
    for (int look = 0; look <= kLooks; ++look) {
      const double middle = from + look * (to - from) / kLooks;
      const auto lift = symmetricLift(middle);
      if (lift) half = std::max(half, (lift->to - lift->from) / 2);
    }
  }
  if (isTooShort()) return std::nullopt;
  return Zone{from + half, to - half, run.isStraight};
}

const std::optional<TabTrack::Zone>& TabTrack::zoneOf(SmoothRun& smooth) const {
  if (!std::exchange(smooth.isKnown, true)) smooth.zone = zoneOf(smooth.run);
  return smooth.zone;
}

std::vector<TabTrack::Zone> TabTrack::smoothZones() const {
  std::vector<Zone> zones;
  for (SmoothRun& smooth : smooth_) {
    if (const auto& zone = zoneOf(smooth)) zones.push_back(*zone);
  }
  return zones;
}

bool TabTrack::isInZone(double middle) const {
  const auto isIn = [middle](const auto& range) {
    return range.from - kTouching <= middle && middle <= range.to + kTouching;
  };
  return std::any_of(straight_.begin(), straight_.end(), isIn) ||
         std::any_of(smooth_.begin(), smooth_.end(), [&](SmoothRun& smooth) {
           return isIn(smooth.run) && zoneOf(smooth) && isIn(*smooth.zone);
         });
}

double TabTrack::nearestTo(PlanePoint at) const {
  double nearest = std::numeric_limits<double>::infinity();
  double length = 0;
  for (std::size_t k = 0; k < way_.curves().size(); ++k) {
    const Curve& curve = way_.curves()[k];
    const CurvePlace place = nearestOn(curve, at);
    if (place.distance >= nearest) continue;
    nearest = place.distance;
    length = way_.startOf(k) + shareOf(curve, place.at) * (way_.endOf(k) - way_.startOf(k));
  }
  return length;
}

// Both ends as far along the way from the middle, and the chord apart.
std::optional<TabTrack::Lift> TabTrack::symmetricLift(double middle) const {
  const double most = std::min(middle, way_.length() - middle);
  const auto chordOf = [&](double half) {
    return normOf(way_.at(middle + half) - way_.at(middle - half));
  };
  double low = chord_ / 2;
  double high = std::min(most, chord_);  // an arc of 109 degrees is that long
  if (low > most) return std::nullopt;
  if (chordOf(low) >= chord_ - kTouching / 10) return Lift{middle - low, middle + low};
  if (high < low || chordOf(high) < chord_) return std::nullopt;
  for (int step = 0; step < 50; ++step) {
    const double half = (low + high) / 2;
    (chordOf(half) < chord_ ? low : high) = half;
  }
  return Lift{middle - high, middle + high};
}

// Nothing else of the way comes so near that it would cut the bridge.
bool TabTrack::standsFree(const Lift& lift) const {
  const PlanePoint from = way_.at(lift.from);
  const PlanePoint to = way_.at(lift.to);
  const double share = pass_.toolRadius / chord_;
  const Curve bridge = lineCurve(from + share * (to - from), to + share * (from - to));
  std::vector<int> near;
  index_.candidates(bridge, pass_.toolRadius, near);
  const auto isClear = [&](double begin, double end) {
    const std::vector<Curve> parts = way_.part(begin, end);
    return std::all_of(parts.begin(), parts.end(), [&](const Curve& part) {
      return gapBetween(part, bridge).distance >= pass_.toolRadius - kTouching;
    });
  };
  return std::all_of(near.begin(), near.end(), [&](int number) {
    const auto k = static_cast<std::size_t>(number);
    return isClear(way_.startOf(k), std::min(way_.endOf(k), lift.from)) &&
           isClear(std::max(way_.startOf(k), lift.to), way_.endOf(k));
  });
}

std::optional<TabTrack::Lift> TabTrack::liftAt(double middle) const {
  if (!isInZone(middle)) return std::nullopt;
  const auto lift = symmetricLift(middle);
  if (!lift || !standsFree(*lift)) return std::nullopt;
  return lift;
}

// ---- All passes

TabPlan::TabPlan(const std::vector<TabPass>& passes, double width)
    : width_(width), toolRadius_(passes.back().toolRadius) {
  tracks_.reserve(passes.size());
  for (const TabPass& pass : passes) tracks_.emplace_back(pass, width);
}

// Between two bridges the cutter comes down to the floor.
double TabPlan::apart() const {
  return guide().chord() + toolRadius_;
}

int TabPlan::wanted(const TabRules& rules) const {
  const double bySpacing = std::ceil(guide().way().length() / rules.spacing - kTouching);
  const double count = rules.spacing > 0 ? bySpacing : rules.number;
  return static_cast<int>(std::clamp<double>(count, 0, kMost));
}

// In all passes, and away from the other tabs.
bool TabPlan::fits(double middle, int besides) const {
  for (int other = 0; other < count(); ++other) {
    const double gap = std::abs(middles_[static_cast<std::size_t>(other)] - middle);
    const double nearest = std::min(gap, guide().way().length() - gap);
    if (other != besides && nearest < apart() - kTouching) return false;
  }
  const PlanePoint at = guide().way().at(middle);
  return std::all_of(tracks_.begin(), tracks_.end(), [&](const TabTrack& track) {
    return track.liftAt(&track == &guide() ? middle : track.nearestTo(at)).has_value();
  });
}

// The nearest place of a zone where it fits.
std::optional<double> TabPlan::settled(const TabTrack::Zone& zone, double middle) const {
  const double step = guide().chord() / 4;
  for (double away = 0; away <= zone.length(); away += step) {
    for (const double at : {middle + away, middle - away}) {
      if (at >= zone.from && at <= zone.to && fits(at, /*besides=*/-1)) return at;
    }
  }
  return std::nullopt;
}

// To each zone by its length what it has room for, the largest remainders first.
int TabPlan::placeIn(const std::vector<TabTrack::Zone>& zones, int number) {
  double all = 0;
  for (const TabTrack::Zone& zone : zones) all += zone.length() + guide().chord();
  struct Share {
    std::size_t zone;
    int room = 0, given = 0;
    double remainder = 0;
  };
  std::vector<Share> shares;
  int given = 0;
  for (std::size_t k = 0; k < zones.size(); ++k) {
    const double wanted = number * (zones[k].length() + guide().chord()) / all;
    const int room = 1 + static_cast<int>((zones[k].length() + kTouching) / apart());
    const int count = std::min(room, static_cast<int>(wanted));
    shares.push_back({k, room, count, wanted - count});
    given += count;
  }
  std::stable_sort(shares.begin(), shares.end(),
                   [](const Share& a, const Share& b) { return a.remainder > b.remainder; });
  for (bool some = true; some && given < number;) {
    some = false;
    for (Share& share : shares) {
      if (given == number || share.given == share.room) continue;
      ++share.given, ++given;
      some = true;
    }
  }
  const int before = count();
  for (const Share& share : shares) {
    const TabTrack::Zone& zone = zones[share.zone];
    // Evenly, with half a gap at either end, but so that the gaps between them suffice.
    const double gap = std::max(zone.length() / std::max(share.given, 1), apart());
    const double first = (zone.from + zone.to - gap * (share.given - 1)) / 2;
    for (int k = 0; k < share.given; ++k) {
      const auto at = settled(zone, std::clamp(first + k * gap, zone.from, zone.to));
      if (at) middles_.push_back(*at);
    }
  }
  return count() - before;
}

int TabPlan::place(int number) {
  middles_.clear();
  const std::vector<TabTrack::Zone>& straight = guide().straightZones();
  double length = 0;
  for (const TabTrack::Zone& zone : straight) length += zone.length() + guide().chord();
  int left = number;
  const bool straightFirst = length >= kStraightEnough * guide().way().length();
  if (straightFirst && left > 0) left -= placeIn(straight, left);
  // A row that both kinds of zones have is taken once: tabs stay apart.
  if (left > 0) {
    const std::vector<TabTrack::Zone> rest = guide().smoothZones();
    if (!rest.empty()) placeIn(rest, left);
  }
  std::sort(middles_.begin(), middles_.end());
  return count();
}

PlanePoint TabPlan::placeOf(int tab) const {
  return guide().way().at(middles_[static_cast<std::size_t>(tab)]);
}

int TabPlan::nearestTab(PlanePoint at) const {
  int nearest = -1;
  for (int tab = 0; tab < count(); ++tab) {
    if (nearest < 0 || normOf(placeOf(tab) - at) < normOf(placeOf(nearest) - at)) nearest = tab;
  }
  return nearest;
}

void TabPlan::move(int tab, PlanePoint toward) {
  const double wanted = guide().nearestTo(toward);
  std::vector<double> places;
  std::vector<TabTrack::Zone> zones = guide().straightZones();
  const std::vector<TabTrack::Zone> smooth = guide().smoothZones();
  zones.insert(zones.end(), smooth.begin(), smooth.end());
  for (const TabTrack::Zone& zone : zones) {
    places.push_back(std::clamp(wanted, zone.from, zone.to));
    for (const double other : middles_) {
      for (const double beside : {other - apart(), other + apart()}) {
        if (beside >= zone.from && beside <= zone.to) places.push_back(beside);
      }
    }
  }
  std::sort(places.begin(), places.end(), [&](double a, double b) {
    return normOf(guide().way().at(a) - toward) < normOf(guide().way().at(b) - toward);
  });
  const auto found =
      std::find_if(places.begin(), places.end(), [&](double place) { return fits(place, tab); });
  if (found != places.end()) middles_[static_cast<std::size_t>(tab)] = *found;
}

std::vector<TabTrack::Lift> TabPlan::lifts(std::size_t pass) const {
  const TabTrack& track = tracks_[pass];
  std::vector<TabTrack::Lift> found;
  for (const double middle : middles_) {
    const bool isGuide = &track == &guide();
    const auto lift = track.liftAt(isGuide ? middle : track.nearestTo(guide().way().at(middle)));
    if (lift) found.push_back(*lift);
  }
  return found;
}

std::vector<TabPlan::Bridge> TabPlan::bridges(std::size_t pass) const {
  std::vector<Bridge> found;
  for (const TabTrack::Lift& lift : lifts(pass)) {
    found.push_back({way(pass).at(lift.from), way(pass).at(lift.to)});
  }
  return found;
}

// A ramp lies within the bridge, which has its width at the floor then.
std::vector<RaisedRange> TabPlan::ranges(std::size_t pass, double floor, double top,
                                         const TabRamp& ramp) const {
  std::vector<RaisedRange> all;
  const double height = top - floor;
  int steps = 1;
  double length = 0;
  if (ramp.angle > 0) {
    steps = std::max(1, static_cast<int>(std::ceil(height / ramp.step)));
    length = std::min(height / std::tan(ramp.angle * std::numbers::pi / 180), width_ / 2);
  }
  for (const TabTrack::Lift& lift : lifts(pass)) {
    for (int step = 0; step < steps; ++step) {
      const double in = length * step / steps;
      const double z = step + 1 == steps ? top : floor + height * (step + 1) / steps;
      all.push_back({lift.from + in, lift.to - in, z});
    }
  }
  return all;
}

}  // namespace tess
