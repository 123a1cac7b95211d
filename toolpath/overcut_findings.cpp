// Drops that were meant.
#include "toolpath/overcut_findings.h"

#include <algorithm>
#include <set>
#include <utility>

#include "toolpath/proof_groups.h"

namespace tess {
namespace {

// A table of paths has no room for more drops.
constexpr std::size_t kMostCorners = 16384;

}  // namespace

bool OvercutFinding::reachesCorner() const {
  constexpr double kReached = 0.001;
  return depth > 0 && left <= kReached;
}

MeantDrops::MeantDrops(const ProofGroup& group, double radius, double slack)
    : walls_(group.region.index(), group.isClosed ? WallSense::FreeLeft : WallSense::Either),
      slack_(slack) {
  std::set<std::pair<double, double>> seen;
  for (const JobOvercut& corner : group.overcuts) {
    if (seen.size() == kMostCorners) break;
    if (!seen.emplace(corner.x, corner.y).second) continue;
    const std::vector<CornerDrop> drops = walls_.dropsInto({corner.x, corner.y}, radius);
    if (drops.empty()) continue;
    const double left = normOf(drops.front().place - drops.front().bottom);
    findings_.push_back({group.group, corner.x, corner.y, 0, left});
  }
}

const MeantDrops::OfRadius& MeantDrops::ofRadius(double radius) {
  const auto known = byRadius_.find(radius);
  if (known != byRadius_.end()) return known->second;
  std::vector<CornerDrop> drops;
  OfRadius made;
  for (std::size_t k = 0; k < findings_.size(); ++k) {
    for (const CornerDrop& drop : walls_.dropsInto({findings_[k].x, findings_[k].y}, radius)) {
      if (!drop.isClear) continue;
      drops.push_back(drop);
      made.findingOf.push_back(k);
    }
  }
  made.drops = CornerDrops(std::move(drops));
  return byRadius_.emplace(radius, std::move(made)).first->second;
}

bool MeantDrops::accepts(const Curve& move, double radius) {
  return !findings_.empty() && ofRadius(radius).drops.around(move, slack_) >= 0;
}

void MeantDrops::measure(const Curve& move, double radius) {
  if (findings_.empty()) return;
  const OfRadius& of = ofRadius(radius);
  const int number = of.drops.around(move, slack_);
  if (number < 0) return;
  const auto k = static_cast<std::size_t>(number);
  const CornerDrop& drop = of.drops.drops()[k];
  OvercutFinding& finding = findings_[of.findingOf[k]];
  finding.left = std::min(finding.left, std::max(distanceTo(move, drop.corner) - radius, 0.0));
  finding.depth = drop.depth;
}

}  // namespace tess
