// Ways with a limit, made by going along them: a look ahead tells how far the tool may go, and
// where that ends a loop as far ahead as it may be clears what comes.
#include "toolpath/limited_way.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <utility>

#include "toolpath/cutter_rim.h"
#include "toolpath/trochoid.h"
#include "toolpath/true_links.h"
#include "toolpath/way_by_length.h"

namespace tess {
namespace {

// Lengths in radii of the tool.
constexpr double kLargestLoop = 0.6;      // a ramp to and fro along it fits into its two halves
constexpr double kSmallestLoop = 0.0015;  // for the tip of a corner
constexpr double kLook = 2;               // ahead
constexpr double kFirstPlace = 0.001;     // of a look, then farther and farther apart
constexpr double kPlacesApart = 0.1;
constexpr double kLoopPlaces = 0.1;  // along a loop
constexpr double kForced = 0.1;      // past the limit, before loops are tried again
constexpr double kNear = 5;          // what may matter for a look and its loops
constexpr double kFarthestLead = 8;
constexpr double kLeadAlong = 2;
constexpr double kTip = 0.05;
constexpr double kSearchedStart = 12;
// Loops of one radius of the way: a neck that would take more is hardly wider than the cutter.
constexpr int kMostLoops = 60;
constexpr double kFirstStep = 0.5;  // that is tried, or more than the one before
constexpr double kShrink = 0.65;    // from try to try of a step
constexpr double kLeastStep = 0.1;  // of the loop's radius
constexpr double kGrowth = 1.1;     // of a loop at the place of the last one
// Below the limit: what is aimed at, and what is taken where that cannot be.
constexpr double kMargin = 2.0 / CutterRim::kPlaces;
constexpr double kLeastMargin = 0.5 / CutterRim::kPlaces;

class WaySplit {
 public:
  WaySplit(LimiterState& state, const PocketRegion& region, double distance,
           const Breathing& breathing)
      : state_(state),
        radius_(state.rules.radius),
        aim_(state.rules.share - kMargin),
        region_(region),
        distance_(distance),
        room_(region, distance, kLargestLoop * state.rules.radius),
        breathing_(breathing) {}

  std::vector<Curve> split(const std::vector<Curve>& way) {
    way_ = WayByLength(way);
    begin();
    double at = 0;
    while (at < way_.length() && !isTooLong()) {
      breathe(breathing_);
      at = advanced(at);
    }
    write(way_.length());
    return std::move(made_);
  }

 private:
  // As far as the tool may go without a loop, and what is engaged behind that.
  struct Look {
    double end = 0;
    double next = 0;  // where it is too much; where the look ends when it never is
    double share = 0;
    bool isTooMuch = false;
  };
  struct Place {
    double length = 0;  // of the way
    double asked = 0;   // where it is asked, shortly before the end of a curve
  };

  // A loop: on which side, how large as a share of the largest, and how much it may engage.
  struct Wanted {
    int turn = 1;
    double size = 1, share = 1;
  };

  bool isTooLong() const { return state_.curves > state_.rules.mostCurves; }

  // ---- The start

  void begin() {
    const PlanePoint start = way_.at(0);
    if (state_.ground.isCleared(start, radius_) && !isTip()) return;
    if (leadFromCleared(start)) return;
    beginWhereThereIsRoom();
    beginWithLoop();
  }

  // The end of what is cleared: no loop can begin there.
  bool isTip() {
    near_ = state_.ground.near(way_.at(0), kNear * radius_);
    const Look look = lookAhead(0, aim_);
    return look.isTooMuch && look.end < kTip * radius_;
  }

  // Along a cut of before, and straight on to the start; the nearest way that does not set out from
  // a tip, or the nearest.
  bool leadFromCleared(PlanePoint start) {
    constexpr std::size_t kTries = 12;
    const WayByLength bare = way_;
    std::optional<WayByLength> nearest;
    std::vector<SweptCurve> cuts = state_.ground.cutsNear(start, radius_, kFarthestLead * radius_);
    if (cuts.size() > kTries) cuts.resize(kTries);
    for (const SweptCurve& cut : cuts) {
      const std::vector<Curve> lead = leadAlong(cut.curve, start);
      if (lead.empty() || !region_.isClear(lead.back(), distance_ - kRounding)) continue;
      prepend(lead);
      if (!isTip()) return true;
      if (!nearest) nearest = way_;
      way_ = bare;
    }
    if (nearest) way_ = *nearest;
    return nearest.has_value();
  }

  std::vector<Curve> leadAlong(const Curve& cut, PlanePoint start) const {
    const double all = lengthOf(cut);
    const PlanePoint off = nearestOn(cut, start).at;
    std::vector<Curve> lead;
    if (all > 0) {
      const double share = shareOf(cut, off);
      const double back = kLeadAlong * radius_ / all;
      lead = share > 0.5 ? std::vector{partOf(cut, std::max(0.0, share - back), share)}
                         : turnedRound({partOf(cut, share, std::min(1.0, share + back))});
    }
    if (off != start) lead.push_back(lineCurve(off, start));
    return lead;
  }

  void prepend(std::vector<Curve> curves) {
    curves.insert(curves.end(), way_.curves().begin(), way_.curves().end());
    way_ = WayByLength(std::move(curves));
  }

  // A corner has none: the way is gone back first from a place that has.
  void beginWhereThereIsRoom() {
    constexpr double kStep = 0.25;
    constexpr double kEnough = 0.99;
    double best = 0;
    double most = largestLoopAt(0).radius();
    const double last = std::min(way_.length(), kSearchedStart * radius_);
    for (double at = kStep * radius_; at < last; at += kStep * radius_) {
      if (most >= kEnough * room_.largest()) break;
      const double found = largestLoopAt(at).radius();
      if (found <= most) continue;
      most = found;
      best = at;
    }
    if (best > 0) prepend(turnedRound(way_.part(0, best)));
  }

  // The way in goes down there, and what it leaves of the loop is thin.
  void beginWithLoop() {
    const TrochoidLoop loop = largestLoopAt(0);
    state_.ground.add({lineCurve(loop.start, loop.start), radius_});
    if (loop.radius() >= kSmallestLoop * radius_) addLoop(0, loop);
  }

  // ---- Step by step

  TrochoidLoop loopAt(double at, int turn) const {
    return room_.loopAt(way_.at(at), way_.directionAt(at), turn);
  }

  // On the side that has more room.
  TrochoidLoop largestLoopAt(double at) const {
    const TrochoidLoop loop = loopAt(at, state_.rules.turn);
    const TrochoidLoop other = loopAt(at, -state_.rules.turn);
    return other.radius() > loop.radius() ? other : loop;
  }

  double advanced(double at) {
    near_ = state_.ground.near(way_.at(at), kNear * radius_);
    const Look look = lookAhead(at, aim_);
    if (!look.isTooMuch) {
      // Half of what was looked at, for loops that may be wanted there; at the end all of it.
      // A last curve that is shorter than what is left out before its end has no place of its own.
      const bool isEnd = look.next + CutterRim::kBeforeEnd * radius_ >= way_.length();
      const double to = isEnd ? way_.length() : (at + look.next) / 2;
      goOn(at, to);
      return to;
    }
    if (at > stretch_ + radius_) {
      stretch_ = at;
      loops_ = 0;
    }
    const double most = state_.rules.share - kLeastMargin;
    if (loops_ < kMostLoops) {
      if (const auto place = loopAhead(at, look, aim_)) return *place;
      if (const auto place = loopAhead(at, look, most)) return *place;
    }
    const Look farther = lookAhead(at, most);
    if (farther.end > look.end) {
      goOn(at, farther.end);
      return farther.end;
    }
    return forced(at, look);
  }

  // Past the limit.
  double forced(double at, const Look& look) {
    const double to = std::min(way_.length(), std::max(look.next, at + kForced * radius_));
    goOn(at, to);
    return to;
  }

  // Close together at first, as little may be left to go.
  std::vector<Place> lookPlaces(double at) const {
    const double end = std::min(way_.length(), at + kLook * radius_);
    std::vector<Place> places;
    std::size_t curve = way_.curveAt(at);
    for (double apart = kFirstPlace * radius_; at < end;
         apart = std::min(1.6 * apart, kPlacesApart * radius_)) {
      const double joint = way_.endOf(curve);
      const double nearEnd = joint - CutterRim::kBeforeEnd * radius_;
      if (at + apart < nearEnd) {
        at += apart;
        places.push_back({at, at});
        continue;
      }
      if (at < nearEnd) places.push_back({joint, nearEnd});
      at = joint;
      if (++curve < way_.curves().size()) places.push_back({joint, joint});
      if (curve >= way_.curves().size()) break;
    }
    return places;
  }

  Look lookAhead(double at, double most) {
    Look look{at, at, 0, false};
    for (const Place place : lookPlaces(at)) {
      look.share = shareBehind(at, place.asked);
      look.next = place.length;
      look.isTooMuch = look.share > most;
      if (look.isTooMuch) break;
      look.end = place.length;
    }
    return look;
  }

  // What is engaged at a place of the way to which the tool has gone from another.
  double shareBehind(double from, double at) {
    const std::size_t before = near_.size();
    for (const Curve& own : way_.part(from, at)) near_.push_back({own, radius_});
    const double share = shareAt(way_.at(at), way_.directionAt(at));
    near_.resize(before);
    return share;
  }

  double shareAt(PlanePoint at, PlanePoint along) {
    return CutterRim{at, along, radius_}.engagedShare(near_, effort_);
  }

  // A loop that lies as far ahead as it may. Where the largest takes too much, as behind a turn
  // into solid material, smaller ones make room for it.
  std::optional<double> loopAhead(double at, const Look& look, double share) {
    for (const int turn : {state_.rules.turn, -state_.rules.turn}) {
      for (const double size : {1.0, 0.8, 0.6, 0.45, 0.33, 0.25, 0.18, 0.13, 0.09, 0.06, 0.04}) {
        if (const auto place = loopAhead(at, look.end - at, {turn, size, share})) return place;
      }
    }
    return std::nullopt;
  }

  // Of a size, as a share of the largest: ahead, or where the tool is.
  std::optional<double> loopAhead(double at, double most, const Wanted& wanted) {
    const double first = std::max(1.5 * state_.lastStep, kFirstStep * radius_);
    for (double step = std::min(most, first); step > 0; step *= kShrink) {
      const TrochoidLoop loop = resized(loopAt(at + step, wanted.turn), wanted.size);
      const bool isTooNear = step < std::max(kLeastStep * loop.radius(), 5e-4 * radius_);
      if (isTooNear && step < most) break;
      if (made(loop, at, step, wanted.share)) return at + step;
    }
    const TrochoidLoop here = resized(loopAt(at, wanted.turn), wanted.size);
    const bool isLarger = at > lastLoop_ || here.radius() > kGrowth * lastRadius_;
    if (isLarger && made(here, at, 0, wanted.share)) return at;
    return std::nullopt;
  }

  // The loop, if it is large enough and gentle.
  bool made(const TrochoidLoop& loop, double at, double step, double share) {
    if (loop.radius() < kSmallestLoop * radius_ || !isGentle(loop, at, at + step, share))
      return false;
    state_.lastStep = step;
    ++loops_;
    goOn(at, at + step);
    addLoop(at + step, loop);
    return true;
  }

  // Whether no more than the limit is engaged on a loop, behind the way to it.
  bool isGentle(const TrochoidLoop& loop, double from, double to, double share) {
    const std::size_t before = near_.size();
    for (const Curve& own : way_.part(from, to)) near_.push_back({own, radius_});
    const bool gentle = isGentle(loop, share);
    near_.resize(before);
    return gentle;
  }
  bool isGentle(const TrochoidLoop& loop, double most) {
    for (const Curve& half : loop.curves()) {
      const int places =
          std::clamp(static_cast<int>(lengthOf(half) / (kLoopPlaces * radius_)), 8, 20);
      for (int k = 0; k <= places; ++k) {
        const double share = static_cast<double>(k) / places;
        if (k > 0) near_.push_back({partOf(half, 0, share), radius_});
        const double engaged = shareAt(pointAt(half, share), directionAt(half, share));
        if (k > 0 && k < places) near_.pop_back();
        if (engaged > most) return false;
      }
    }
    return true;
  }

  // ---- What is made

  // A loop is smaller than the tool: it leaves no core.
  void addLoop(double at, const TrochoidLoop& loop) {
    write(at);
    for (const Curve& half : loop.curves()) append(half);
    state_.ground.add({lineCurve(loop.center, loop.center), radius_ + loop.radius()});
    lastLoop_ = at;
    lastRadius_ = loop.radius();
  }

  void goOn(double from, double to) { state_.ground.add(way_.part(from, to), radius_); }

  void write(double to) {
    for (const Curve& curve : way_.part(written_, to)) append(curve);
    written_ = to;
  }

  void append(const Curve& curve) {
    made_.push_back(curve);
    ++state_.curves;
  }

  static constexpr double kRounding = 1e-6;

  LimiterState& state_;
  double radius_;
  double aim_;
  const PocketRegion& region_;
  double distance_;
  LoopRoom room_;
  const Breathing& breathing_;
  WayByLength way_{{}};
  std::vector<Curve> made_;
  double written_ = 0;    // the way up to there stands in it
  double lastLoop_ = -1;  // where the last loop is
  double lastRadius_ = 0;
  double stretch_ = 0;  // where the loops begin that are counted
  int loops_ = 0;
  std::vector<SweptCurve> near_;  // what is taken round the tool
  long long effort_ = 0;
};

}  // namespace

std::vector<Curve> EngagementLimiter::limited(const PocketRegion& region, double distance,
                                              const std::vector<Curve>& way) {
  if (way.empty()) return {};
  return WaySplit(state_, region, distance, breathing_).split(way);
}

}  // namespace tess
