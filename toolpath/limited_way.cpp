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
constexpr double kLargestLoop = 0.6;    // a ramp to and fro along it fits into its two halves
constexpr double kSmallestLoop = 0.04;  // that a control still follows
constexpr double kLook = 2;             // ahead
constexpr double kFirstPlace = 0.001;   // of a look, then farther and farther apart
constexpr double kPlacesApart = 0.1;
constexpr double kLoopPlaces = 0.06;  // along a loop
constexpr double kForced = 0.1;       // past the limit, before loops are tried again
constexpr double kNear = 5;           // what may matter for a look and its loops
constexpr double kFarthestLead = 8;
constexpr double kLeadAlong = 2;
constexpr double kTip = 0.05;
constexpr double kSearchedStart = 12;
constexpr double kFirstStep = 0.5;  // that is tried, or more than the one before
constexpr double kLeastArc = 0.0005;
constexpr double kLargestArc = 1.2;  // its radius

// Loops of one radius of the way: a neck that would take more is hardly wider than the cutter.
constexpr int kMostLoops = 120;
constexpr int kMostLooks = 1000;        // of one radius too: the cost is bounded
constexpr int kMostSmall = 12;          // one after the other, that do not grow
constexpr double kShrink = 0.8;         // from try to try of a step
constexpr double kLeastStep = 0.1;      // of the loop's radius
constexpr double kLeastArcStep = 0.05;  // of the arc
constexpr double kGrown = 1.05;         // than the last loop: larger
constexpr double kCorner = 0.9;         // of the last loop's radius: less room, as in a corner
constexpr double kGrowths[] = {1.4, 1.25, 1.12};
// Of the largest loop.
constexpr double kSizes[] = {0.8,  0.64, 0.51, 0.41, 0.33, 0.26, 0.21,
                             0.17, 0.13, 0.11, 0.09, 0.07, 0.05, 0.04};
constexpr double kWideningSizes[] = {1, 0.7, 0.5, 0.3, 0.15, 0.1};
constexpr double kWideningSteps[] = {0.5, 0.35, 0.25, 0.18, 0.12, 0.08, 0.05, 0.03};
// Below the limit, for what lies between the places that are looked at.
constexpr double kMargin = 1.0 / CutterRim::kPlaces;
constexpr double kMarginOfSmall = 1.5 / CutterRim::kPlaces;
constexpr double kSmallLimit = 1.0 / 3;
constexpr double kHairOfShare = 1e-6;

class WaySplit {
 public:
  WaySplit(LimiterState& state, const PocketRegion& region, double distance,
           const Breathing& breathing)
      : state_(state),
        radius_(state.rules.radius),
        aim_(state.rules.share - (state.rules.share < kSmallLimit ? kMarginOfSmall : kMargin)),
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

  // What is cut from a place of the way back to it.
  struct Round {
    std::vector<Curve> curves;  // none where too much would be engaged
    bool takes = false;         // something, at any of the places that were looked at
  };
  // A round at a place ahead: a loop, or without one an arc across a corner.
  struct Stroke {
    double step = 0;  // to the place
    Round round;
    std::optional<TrochoidLoop> loop;
    bool isLargest = false;  // loop for which there is room

    bool isPossible() const { return !round.curves.empty(); }
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
    if (at > stretch_ + radius_) {
      stretch_ = at;
      loops_ = 0;
      looks_ = 0;
    }
    if (++looks_ > kMostLooks) return forced(at, look);
    if (!look.isTooMuch) {
      // Half of what was looked at, for loops that may be wanted there; at the end all of it.
      // A last curve that is shorter than what is left out before its end has no place of its own.
      const bool isEnd = look.next + CutterRim::kBeforeEnd * radius_ >= way_.length();
      const double to = isEnd ? way_.length() : (at + look.next) / 2;
      goOn(at, to);
      return to;
    }
    const double most = state_.rules.share + kHairOfShare;
    if (loops_ < kMostLoops) {
      // Somewhat more than the limit is better than the whole width.
      for (const double share : {aim_, most, most + 0.1, most + 0.2, most + 0.3}) {
        if (share >= 1) break;
        const Stroke stroke = strokeAhead(at, look, share);
        if (!stroke.isPossible()) continue;
        take(stroke, at);
        return at + stroke.step;
      }
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
    smallLoops_ = 0;
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
  // into solid material, smaller ones make room for it. In a corner, where they become small, arcs
  // round the last one go from wall to wall.
  Stroke strokeAhead(double at, const Look& look, double share) {
    const double most = look.end - at;
    Stroke loop = largestLoopAhead(at, most, share);
    if (isCornerAhead(look)) {
      Stroke arc = arcAhead(at, most, share);
      if (arc.step > loop.step) return arc;
    }
    if (loop.isPossible()) return loop;
    loop = smallerLoopAhead(at, most, share);
    return loop.isPossible() ? loop : widening(at, share);
  }

  bool isCornerAhead(const Look& look) const {
    return lastLoop_ >= 0 && largestLoopAt(look.next).radius() < kCorner * lastRadius_;
  }

  Stroke largestLoopAhead(double at, double most, double share) {
    return onEitherSide(at, most, {.size = 1, .share = share});
  }

  // First those that are somewhat larger than the last one.
  Stroke smallerLoopAhead(double at, double most, double share) {
    const double room = largestLoopAt(at).radius();
    if (isBehindLast(at) && room > 0) {
      for (const double growth : kGrowths) {
        const double size = growth * lastRadius_ / room;
        if (size >= 1) continue;
        Stroke stroke = onEitherSide(at, most, {.size = size, .share = share});
        if (stroke.isPossible()) return stroke;
      }
    }
    for (const double size : kSizes) {
      Stroke stroke = onEitherSide(at, most, {.size = size, .share = share});
      if (stroke.isPossible()) return stroke;
    }
    return {};
  }

  Stroke onEitherSide(double at, double most, Wanted wanted) {
    wanted.turn = state_.rules.turn;
    Stroke stroke = loopAhead(at, most, wanted);
    if (stroke.isPossible()) return stroke;
    wanted.turn = -wanted.turn;
    return loopAhead(at, most, wanted);
  }

  // Ahead, or where the tool is.
  Stroke loopAhead(double at, double most, const Wanted& wanted) {
    for (double step = std::min(most, firstStep()); step > 0; step *= kShrink) {
      const TrochoidLoop loop = resized(loopAt(at + step, wanted.turn), wanted.size);
      const bool isTooNear = step < std::max(kLeastStep * loop.radius(), 5e-4 * radius_);
      if (isTooNear && step < most) break;
      Stroke stroke = strokeOf(loop, at, step, wanted);
      if (stroke.isPossible()) return stroke;
    }
    const TrochoidLoop here = resized(loopAt(at, wanted.turn), wanted.size);
    const bool isLarger = at > lastLoop_ || here.radius() > kGrown * lastRadius_;
    return isLarger ? strokeOf(here, at, 0, wanted) : Stroke{};
  }

  double firstStep() const { return std::max(1.5 * state_.lastStep, kFirstStep * radius_); }

  Stroke strokeOf(const TrochoidLoop& loop, double at, double step, const Wanted& wanted) {
    if (loop.radius() < kSmallestLoop * radius_) return {};
    if (!mayFollow(loop, at + step, wanted)) return {};
    return {step, cutRound(loop.curves(), at, at + step, wanted.share), loop, wanted.size == 1};
  }

  // Loops that are smaller than there is room for only make room for larger ones: they may not go
  // on and on in a slot of their own.
  bool mayFollow(const TrochoidLoop& loop, double at, const Wanted& wanted) const {
    return wanted.size == 1 || !isBehindLast(at) || smallLoops_ < kMostSmall ||
           loop.radius() > kGrown * lastRadius_;
  }

  bool isBehindLast(double at) const { return lastLoop_ >= 0 && at <= lastLoop_ + radius_; }

  // A loop across the way ahead, which the tool reaches through what is cleared: where the way
  // leads straight away from that, none can touch it.
  Stroke widening(double at, double share) {
    for (const double ahead : kWideningSteps) {
      const PlanePoint front = way_.at(at + ahead * radius_);
      if (front == way_.at(at)) continue;
      for (const double size : kWideningSizes) {
        const TrochoidLoop loop = loopBehind(front, way_.at(at), size * room_.largest());
        Round round = roundBy(loop, at, share);
        if (round.takes && !round.curves.empty()) return {0, std::move(round), loop, true};
      }
    }
    return {};
  }

  // It touches a line across the way at its front, and begins at its back.
  TrochoidLoop loopBehind(PlanePoint front, PlanePoint from, double radius) const {
    const PlanePoint back = (radius / normOf(from - front)) * (from - front);
    return {front + 2 * back, front + back, state_.rules.turn};
  }

  Round roundBy(const TrochoidLoop& loop, double at, double share) {
    const PlanePoint from = way_.at(at);
    std::vector<Curve> curves = loop.curves();
    curves.insert(curves.begin(), lineCurve(from, loop.start));
    curves.push_back(lineCurve(loop.start, from));
    return std::all_of(curves.begin(), curves.end(), [this](const Curve& c) { return fits(c); })
               ? cutRound(curves, at, at, share)
               : Round{};
  }

  bool fits(const Curve& curve) const { return region_.isClear(curve, distance_ - kRounding); }

  // Round the last loop, from the way as far as the walls leave it, and straight back.
  Stroke arcAhead(double at, double most, double share) {
    for (double step = std::min(most, firstStep()); step > kLeastArc * radius_; step *= kShrink) {
      const std::vector<Curve> arc = arcFrom(at + step);
      if (arc.empty()) continue;
      if (step < kLeastArcStep * lengthOf(arc.front())) break;
      Round round = cutRound(arc, at, at + step, share);
      if (!round.curves.empty()) return {step, std::move(round), std::nullopt, false};
    }
    return {};
  }

  // Nothing where there are no walls, or where they leave too little.
  std::vector<Curve> arcFrom(double at) const {
    const PlanePoint start = way_.at(at);
    const PlanePoint out = start - lastCenter_;
    if (normOf(out) > kLargestArc * radius_) return {};
    const int turn = dot(leftOf(out), way_.directionAt(at)) > 0 ? 1 : -1;
    const Curve half = TrochoidLoop{start, lastCenter_, turn}.curves().front();
    const double share = shareThatFits(half);
    if (share == 1 || share * lengthOf(half) < kLeastArc * radius_) return {};
    const Curve arc = partOf(half, 0, share);
    const Curve back = lineCurve(arc.end, start);
    return fits(back) ? std::vector{arc, back} : std::vector<Curve>{};
  }

  double shareThatFits(const Curve& curve) const {
    constexpr int kHalvings = 10;
    if (fits(curve)) return 1;
    double small = 0;
    double large = 1;
    for (int k = 0; k < kHalvings; ++k) {
      const double share = (small + large) / 2;
      (fits(partOf(curve, 0, share)) ? small : large) = share;
    }
    return small;
  }

  // Curves that lead from a place of the way back to it, as far as they take something, and from
  // there straight back. Nothing when more than `most` is engaged, behind the way to that place.
  Round cutRound(const std::vector<Curve>& curves, double from, double to, double most) {
    const std::size_t before = near_.size();
    for (const Curve& own : way_.part(from, to)) near_.push_back({own, radius_});
    Round round = gentleRound(curves, most);
    near_.resize(before);
    return round;
  }

  Round gentleRound(const std::vector<Curve>& curves, double most) {
    Round round;
    std::vector<Curve> rest;  // behind the last place where something is taken
    for (const Curve& curve : curves) {
      const auto taken = takenShare(curve, most);
      if (!taken) return {};
      if (*taken == 0) {
        rest.push_back(curve);
        continue;
      }
      round.takes = true;
      round.curves.insert(round.curves.end(), rest.begin(), rest.end());
      round.curves.push_back(partOf(curve, 0, *taken));
      rest.clear();
      if (*taken < 1) rest.push_back(partOf(curve, *taken, 1));
    }
    if (round.takes && !rest.empty()) rest = wayBack(std::move(rest), most);
    round.curves.insert(round.curves.end(), rest.begin(), rest.end());
    return round;
  }

  // Straight, where that is cleared.
  std::vector<Curve> wayBack(std::vector<Curve> rest, double most) {
    const Curve straight = lineCurve(rest.front().start, rest.back().end);
    const std::size_t before = near_.size();
    const bool isBack = fits(straight) && takenShare(straight, most);
    near_.resize(before);
    return isBack ? std::vector{straight} : rest;
  }

  // Up to where a curve takes something, a little farther; 0 for nowhere. Nothing when it takes too
  // much. The curve counts as cut then.
  std::optional<double> takenShare(const Curve& curve, double most) {
    const double length = lengthOf(curve);
    const int places = std::clamp(static_cast<int>(length / (kLoopPlaces * radius_)), 8, 32);
    const double last = std::max(0.0, 1 - CutterRim::kBeforeEnd * radius_ / length);
    double taken = 0;
    for (int k = 0; k <= places; ++k) {
      const double share = last * k / places;
      near_.push_back({partOf(curve, 0, share), radius_});
      const double engaged = shareAt(pointAt(curve, share), directionAt(curve, share));
      near_.pop_back();
      if (engaged > most) return std::nullopt;
      if (engaged > 0) taken = std::min(1.0, (k + 1.0) / places);
    }
    near_.push_back({curve, radius_});
    return taken;
  }

  // ---- What is made

  // A whole loop is smaller than the tool: it leaves no core.
  void addLoop(double at, const TrochoidLoop& loop) {
    write(at);
    for (const Curve& half : loop.curves()) append(half);
    state_.ground.add({lineCurve(loop.center, loop.center), radius_ + loop.radius()});
    note(loop, at);
  }

  // Behind the way to it.
  void take(const Stroke& stroke, double from) {
    const double to = from + stroke.step;
    state_.lastStep = stroke.step;
    ++loops_;
    goOn(from, to);
    write(to);
    for (const Curve& curve : stroke.round.curves) append(curve);
    state_.ground.add(stroke.round.curves, radius_);
    if (!stroke.loop) return;
    note(*stroke.loop, to);
    smallLoops_ = stroke.isLargest ? 0 : smallLoops_ + 1;
  }

  void note(const TrochoidLoop& loop, double at) {
    lastLoop_ = at;
    lastCenter_ = loop.center;
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
  PlanePoint lastCenter_;
  double lastRadius_ = 0;
  int smallLoops_ = 0;  // since one for which there was no more room
  double stretch_ = 0;  // where the loops begin that are counted
  int loops_ = 0;
  int looks_ = 0;
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
