// Plunges into material.
#include "toolpath/plunge_findings.h"

#include <algorithm>

#include "core/drawing_store.h"
#include "toolpath/entry_moves.h"

namespace tess {
namespace {

// Stretches that all plunges together may look at; there are programs of nothing else.
constexpr int kMaxEffort = 4000000;
// Depths are 32-bit numbers.
constexpr double kDepthSlack = 1e-5;

bool isJudged(JobKind kind) {
  return kind == JobKind::Clearing || kind == JobKind::Contour;
}

std::vector<const ProofGroup*> groupsOfRows(const DrawingStore& store,
                                            const std::vector<ProofGroup>& groups) {
  std::vector<const ProofGroup*> byRow(static_cast<std::size_t>(store.NumPathSegments) + 1);
  for (const ProofGroup& group : groups) {
    for (const int ps : group.rows) byRow[static_cast<std::size_t>(ps)] = &group;
  }
  return byRow;
}

}  // namespace

std::vector<PlungeFinding> findPlunges(const DrawingStore& store,
                                       const std::vector<ProofGroup>& groups,
                                       const std::vector<ToldMove>& moves,
                                       std::vector<int>& unjudged, const Breathing& breathing) {
  std::vector<PlungeFinding> findings;
  if (std::none_of(groups.begin(), groups.end(),
                   [](const ProofGroup& group) { return isJudged(group.kind); })) {
    return findings;
  }
  const std::vector<const ProofGroup*> byRow = groupsOfRows(store, groups);
  const ClearedGround ground(groundCuts(store, groups, CycleCuts::Holes));
  const double least = entryStep(store) + kDepthSlack;
  int effort = 0;
  for (const ToldMove& move : moves) {
    breathe(breathing);
    if (move.rapid || move.row == 0 || move.to.z >= 0 || move.to.z >= move.from.z) continue;
    const ProofGroup& group = *byRow[static_cast<std::size_t>(move.row)];
    if (!isJudged(group.kind)) continue;
    if (effort > kMaxEffort) {
      if (wantsEntries(store)) unjudged.push_back(move.row);
      continue;
    }
    const double radius = radiusOfRow(store, move.row, group);
    const double depth =
        ground.depthBelow({move.to.x, move.to.y}, radius, move.row, effort) - move.to.z;
    if (depth > least) {
      findings.push_back({move.row, group.group, move.to.x, move.to.y, depth});
    }
  }
  return findings;
}

}  // namespace tess
