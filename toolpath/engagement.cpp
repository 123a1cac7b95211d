// Engagement by the front half of a tool's rim: which of its places still have material before
// them.
#include "toolpath/engagement.h"

#include <algorithm>
#include <set>

#include "core/drawing_store.h"
#include "toolpath/cutter_rim.h"
#include "toolpath/entry_moves.h"
#include "toolpath/proof_groups.h"
#include "toolpath/row_shapes.h"

namespace tess {
namespace {

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
      const SweptCurve reach{curve, cut.radius * (1 + 2 * CutterRim::kBeforeRim)};
      std::vector<SweptCurve> before = ground_.takenNear(reach, cut.z + step_, ps);
      before.insert(before.end(), taken.begin(), taken.end());
      const EngagedPlace place = mostEngagedAlong(curve, cut.radius, most.share, before, effort_);
      if (place.share > 0) most = {place.share, ps, place.at.x, place.at.y};
      if (most.share >= 1) return;
      taken.push_back({curve, cut.radius});
    }
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
