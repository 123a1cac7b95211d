// Engagement by the front half of a tool's rim: which of its places still have material before
// them.
#include "toolpath/engagement.h"

#include <algorithm>
#include <set>
#include <utility>

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

// The rows of a table in their order, and what each takes.
struct CutTable {
  std::vector<PathRow> rows;
  std::vector<GroundCut> cuts;

  const PathRow& row(int ps) const { return rows[static_cast<std::size_t>(ps) - 1]; }
  const GroundCut& cut(int ps) const { return cuts[static_cast<std::size_t>(ps) - 1]; }
  int size() const { return static_cast<int>(rows.size()); }
};

CutTable tableOf(const DrawingStore& store, const std::vector<ProofGroup>& groups) {
  CutTable table{{}, groundCuts(store, groups, CycleCuts::Holes)};
  table.rows.reserve(table.cuts.size());
  for (int ps = 1; ps <= store.NumPathSegments; ++ps) table.rows.push_back(pathRow(store, ps));
  return table;
}

// Puts a path into the table; the numbers of its rows.
std::vector<int> inserted(const PlannedPath& path, int group, CutTable& table) {
  std::vector<int> numbers;
  auto at = static_cast<std::ptrdiff_t>(path.index) - 1;
  for (const LevelRows& level : path.levels) {
    std::vector<PathRow> rows = level;
    std::vector<GroundCut> cuts;
    for (PathRow& row : rows) {
      row.code = pathCode(group, /*tool=*/0);
      cuts.push_back({feedCurves(row, JobKind::Clearing), path.radius, double{row.z}});
      numbers.push_back(static_cast<int>(at) + static_cast<int>(cuts.size()));
    }
    table.rows.insert(table.rows.begin() + at, rows.begin(), rows.end());
    table.cuts.insert(table.cuts.begin() + at, cuts.begin(), cuts.end());
    at = static_cast<std::ptrdiff_t>(table.rows.size());
  }
  return numbers;
}

// Rows that are followed without a gap by a deeper one: the tool is on its way down.
std::vector<bool> leadsDown(const CutTable& table, float tolerance) {
  std::vector<bool> leads(table.rows.size() + 2, false);
  float deepest = 0;
  for (int ps = table.size(); ps >= 1; --ps) {
    const PathRow& row = table.row(ps);
    const bool goesOn =
        ps < table.size() && groupCutOff(row.code) == groupCutOff(table.row(ps + 1).code) &&
        samePoint({row.x1, row.y1}, {table.row(ps + 1).x0, table.row(ps + 1).y0}, tolerance);
    if (!goesOn) deepest = row.z;
    leads[static_cast<std::size_t>(ps)] = deepest < row.z - kSameDepth;
    deepest = std::min(deepest, row.z);
  }
  return leads;
}

class EngagementSearch {
 public:
  EngagementSearch(const DrawingStore& store, CutTable table)
      : table_(std::move(table)),
        step_(entryStep(store) + kSameDepth),
        ground_(table_.cuts),
        leadsDown_(leadsDown(table_, store.cfg_tolerance)) {}

  // Of the rows of a group, ascending.
  Engagement largest(const std::vector<int>& rows, const Breathing& breathing) {
    Engagement most;
    Ways seen;
    for (const int ps : rows) {
      if (most.share >= 1 || effort_ > kMaxEffort) break;
      if (!isJudged(ps, seen)) continue;
      breathe(breathing);
      const Engagement found = mostAlong(ps, most.share);
      if (found.row > 0) most = found;
    }
    return most;
  }

  EngagementExcess above(double limit, const std::vector<int>& rows, const Breathing& breathing) {
    EngagementExcess excess;
    Ways seen;
    bool wasAbove = false;
    for (const int ps : rows) {
      if (effort_ > kMaxEffort) break;
      if (!isJudged(ps, seen)) continue;
      breathe(breathing);
      const Engagement found = mostAlong(ps, limit);
      excess.places += found.row > 0 && !wasAbove ? 1 : 0;
      wasAbove = found.row > 0;
      if (found.share > excess.most.share) excess.most = found;
    }
    return excess;
  }

 private:
  using Ways = std::set<std::pair<int, int>>;  // a row's, and that of the row before it

  // A row that feeds in material, for the first of those that go the same way.
  bool isJudged(int ps, Ways& seen) const {
    const GroundCut& cut = table_.cut(ps);
    if (cut.curves.empty() || table_.row(ps).type >= kFirstCycle || !(cut.radius > 0)) return false;
    if (cut.z >= -step_ || leadsDown_[static_cast<std::size_t>(ps)]) return false;
    const int before = ps > 1 ? ground_.wayOf(ps - 1) : -1;
    return seen.emplace(ground_.wayOf(ps), before).second;
  }

  // Only what is more than `least`; row 0 for none.
  Engagement mostAlong(int ps, double least) {
    const GroundCut& cut = table_.cut(ps);
    Engagement most{.share = least};
    std::vector<SweptCurve> taken;
    for (const Curve& curve : cut.curves) {
      const SweptCurve reach{curve, cut.radius * (1 + 2 * CutterRim::kBeforeRim)};
      std::vector<SweptCurve> before = ground_.takenNear(reach, cut.z + step_, ps);
      before.insert(before.end(), taken.begin(), taken.end());
      const EngagedPlace place = mostEngagedAlong(curve, cut.radius, most.share, before, effort_);
      if (place.share > 0) most = {place.share, ps, place.at.x, place.at.y};
      if (most.share >= 1) break;
      taken.push_back({curve, cut.radius});
    }
    return most.row > 0 ? most : Engagement{};
  }

  CutTable table_;
  double step_;
  ClearedGround ground_;
  std::vector<bool> leadsDown_;
  long long effort_ = 0;
};

}  // namespace

std::vector<Engagement> groupEngagements(const DrawingStore& store,
                                         const std::vector<ProofGroup>& groups,
                                         const Breathing& breathing) {
  EngagementSearch search(store, tableOf(store, groups));
  std::vector<Engagement> found;
  found.reserve(groups.size());
  for (const ProofGroup& group : groups) {
    found.push_back(group.kind == JobKind::Lathe ? Engagement{}
                                                 : search.largest(group.rows, breathing));
  }
  return found;
}

EngagementExcess excessOf(const DrawingStore& store, const std::vector<ProofGroup>& groups,
                          const PlannedPath& path, double limit, const Breathing& breathing) {
  CutTable table = tableOf(store, groups);
  const std::vector<int> rows = inserted(path, nextPathGroup(store), table);
  return EngagementSearch(store, std::move(table)).above(limit, rows, breathing);
}

}  // namespace tess
