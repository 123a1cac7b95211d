// Sweeps at a floor.
#include "toolpath/swept_floor.h"

#include <algorithm>

#include "core/drawing_store.h"
#include "toolpath/row_shapes.h"

namespace tess {
namespace {

constexpr float kSameDepth = 1e-6F;

// Every row that is of a kind is added once, whatever its level.
template <typename Counts>
std::vector<SweptCurve> sweptBy(const DrawingStore& store, const std::vector<ProofGroup>& groups,
                                const Counts& counts) {
  RowShapes shapes;
  std::vector<SweptCurve> swept;
  for (const ProofGroup& group : groups) {
    if (group.kind == JobKind::Lathe) continue;
    for (const int ps : group.rows) {
      if (!counts(group, ps) || !shapes.add(store, ps)) continue;
      const double radius = radiusOfRow(store, ps, group);
      for (const Curve& curve : feedCurves(store, ps, group.kind)) {
        swept.push_back({curve, radius});
      }
    }
  }
  return swept;
}

bool runsIn(const JobTab& tab, const DrawingStore& store, int ps) {
  constexpr double kRounding = 1e-4;
  const PlanePoint middle{(tab.x0 + tab.x1) / 2, (tab.y0 + tab.y1) / 2};
  const double reach = normOf(PlanePoint{tab.x1 - tab.x0, tab.y1 - tab.y0}) / 2 + kRounding;
  const PlanePoint from{store.psx0[ps], store.psy0[ps]};
  const PlanePoint to{store.psx1[ps], store.psy1[ps]};
  return store.psz[ps] <= tab.top + kSameDepth && normOf(from - middle) <= reach &&
         normOf(to - middle) <= reach;
}

}  // namespace

bool isFeedRow(const DrawingStore& store, int ps) {
  const int type = store.pstype[ps];
  return (type == kLine || isArc(type)) && store.psz[ps] != kLatheRapidZ;
}

float floorOf(const DrawingStore& store, const ProofGroup& group) {
  float floor = 0;
  for (const int ps : group.rows) {
    if (isFeedRow(store, ps)) floor = std::min(floor, store.psz[ps]);
  }
  return floor;
}

std::vector<SweptCurve> sweptAt(const DrawingStore& store, const std::vector<ProofGroup>& groups,
                                float floor) {
  return sweptBy(store, groups,
                 [&](const ProofGroup&, int ps) { return store.psz[ps] <= floor + kSameDepth; });
}

std::vector<SweptCurve> leftByTabsAt(const DrawingStore& store,
                                     const std::vector<ProofGroup>& groups, float floor) {
  return sweptBy(store, groups, [&](const ProofGroup& group, int ps) {
    return isFeedRow(store, ps) && store.psz[ps] > floor + kSameDepth &&
           std::any_of(group.tabs.begin(), group.tabs.end(),
                       [&](const JobTab& tab) { return runsIn(tab, store, ps); });
  });
}

}  // namespace tess
