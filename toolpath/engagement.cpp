// Engagement by the front half of a tool's rim: which of its places still have material before
// them.
#include "toolpath/engagement.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>
#include <set>

#include "core/drawing_store.h"
#include "toolpath/entry_moves.h"
#include "toolpath/proof_groups.h"
#include "toolpath/row_shapes.h"

namespace tess {
namespace {

constexpr int kRimPlaces = 40;       // evenly across the cutter's width
constexpr double kBeforeRim = 1e-3;  // that a place lies in front of the rim, in radii
constexpr double kStep = 0.5;        // from place to place of a row, in radii
constexpr int kMostPlaces = 64;      // of a row
constexpr double kSameDepth = 1e-6;
// Distances that are reckoned for all rows together.
constexpr long long kMaxEffort = 100000000;

// Rows that are followed without a gap by a deeper one: the tool is on its way down.
std::vector<bool> leadsDown(const DrawingStore& store) {
  std::vector<bool> leads(static_cast<std::size_t>(store.NumPathSegments) + 2, false);
  float deepest = 0;
  for (int ps = store.NumPathSegments; ps >= 1; --ps) {
    const bool goesOn = ps < store.NumPathSegments &&
                        groupCutOff(store.pscode[ps]) == groupCutOff(store.pscode[ps + 1]) &&
                        samePoint({store.psx1[ps], store.psy1[ps]},
                                  {store.psx0[ps + 1], store.psy0[ps + 1]}, store.cfg_tolerance);
    if (!goesOn) deepest = store.psz[ps];
    leads[static_cast<std::size_t>(ps)] = deepest < store.psz[ps] - kSameDepth;
    deepest = std::min(deepest, float{store.psz[ps]});
  }
  return leads;
}

class EngagementSearch {
 public:
  EngagementSearch(const DrawingStore& store, const std::vector<ProofGroup>& groups)
      : store_(store),
        step_(entryStep(store) + kSameDepth),
        cuts_(groundCuts(store, groups, CycleCuts::Holes)),
        ground_(cuts_),
        leadsDown_(leadsDown(store)) {}

  Engagement largest(const ProofGroup& group, const Breathing& breathing) {
    Engagement most;
    std::set<std::pair<int, int>> seen;
    for (const int ps : group.rows) {
      if (most.share >= 1 || effort_ > kMaxEffort) break;
      const GroundCut& cut = cuts_[static_cast<std::size_t>(ps) - 1];
      if (cut.curves.empty() || isCycle(ps) || !(cut.radius > 0)) continue;
      if (cut.z >= -step_ || leadsDown_[static_cast<std::size_t>(ps)]) continue;
      const int before = ps > 1 ? ground_.wayOf(ps - 1) : -1;
      if (!seen.emplace(ground_.wayOf(ps), before).second) continue;
      breathe(breathing);
      lookAlong(ps, cut, most);
    }
    return most;
  }

 private:
  bool isCycle(int ps) const { return store_.pstype[ps] >= kFirstCycle; }

  void lookAlong(int ps, const GroundCut& cut, Engagement& most) {
    std::vector<SweptCurve> taken;
    for (const Curve& curve : cut.curves) {
      const SweptCurve reach{curve, cut.radius * (1 + 2 * kBeforeRim)};
      std::vector<SweptCurve> before = ground_.takenNear(reach, cut.z + step_, ps);
      before.insert(before.end(), taken.begin(), taken.end());
      const int places = std::clamp(
          static_cast<int>(std::ceil(lengthOf(curve) / (kStep * cut.radius))), 1, kMostPlaces);
      // Up to the end, but not beyond it: places aside are taken a little later than those ahead.
      const double last = 1 - 6 * kBeforeRim * cut.radius / lengthOf(curve);
      for (int k = 0; k <= places; ++k) {
        const double share = std::max(0.0, last * k / places);
        const double engaged = shareAt(curve, share, cut.radius, before);
        if (engaged <= most.share) continue;
        const PlanePoint at = pointAt(curve, share);
        most = {engaged, ps, at.x, at.y};
        if (engaged >= 1) return;
      }
      taken.push_back({curve, cut.radius});
    }
  }

  // With what the row itself has taken on its way there.
  double shareAt(const Curve& curve, double share, double radius, std::vector<SweptCurve>& taken) {
    const bool hasOwn = share > 0;
    if (hasOwn) taken.push_back({partOf(curve, 0, share), radius});
    const PlanePoint at = pointAt(curve, share);
    const PlanePoint along = directionAt(curve, share);
    std::size_t last = 0;
    int engaged = 0;
    for (int k = 0; k < kRimPlaces; ++k) {
      const double aside = (2 * k + 1.0) / kRimPlaces - 1;
      const double ahead = std::sqrt(1 - aside * aside);
      const PlanePoint place =
          at + radius * (1 + kBeforeRim) * (ahead * along + aside * leftOf(along));
      engaged += isTaken(place, taken, last) ? 0 : 1;
    }
    if (hasOwn) taken.pop_back();
    return static_cast<double>(engaged) / kRimPlaces;
  }

  // `last` is what took the place before: its neighbour mostly is taken by the same.
  bool isTaken(PlanePoint place, const std::vector<SweptCurve>& taken, std::size_t& last) {
    const auto takes = [&](std::size_t k) {
      ++effort_;
      return distanceTo(taken[k].curve, place) <= taken[k].radius;
    };
    if (last < taken.size() && takes(last)) return true;
    for (std::size_t k = 0; k < taken.size(); ++k) {
      if (k == last || !takes(k)) continue;
      last = k;
      return true;
    }
    return false;
  }

  const DrawingStore& store_;
  double step_;
  std::vector<GroundCut> cuts_;
  ClearedGround ground_;
  std::vector<bool> leadsDown_;
  long long effort_ = 0;
};

}  // namespace

std::vector<Engagement> groupEngagements(const DrawingStore& store,
                                         const std::vector<ProofGroup>& groups,
                                         const Breathing& breathing) {
  EngagementSearch search(store, groups);
  std::vector<Engagement> found;
  found.reserve(groups.size());
  for (const ProofGroup& group : groups) {
    found.push_back(group.kind == JobKind::Lathe ? Engagement{} : search.largest(group, breathing));
  }
  return found;
}

}  // namespace tess
