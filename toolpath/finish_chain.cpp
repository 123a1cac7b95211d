// The chain of a finish path: from row to row, or as one of the outlines that the rows make.
#include "toolpath/finish_chain.h"

#include <algorithm>
#include <utility>

#include "toolpath/chain_walk.h"
#include "toolpath/connected_rows.h"
#include "toolpath/element_offset.h"
#include "toolpath/pocket_region.h"

namespace tess {
namespace {

// The rows as the operator's clicks lead along them.
FinishChain walkFrom(const DrawingStore& store, int sg, Point start) {
  FinishChain chain;
  ChainWalk walk(store);
  std::vector<bool> passed(static_cast<std::size_t>(store.NumSegments) + 1, false);
  Point at = start;
  for (int row = sg;;) {
    const Point end = otherEnd(store, row, at);
    passed[static_cast<std::size_t>(row)] = true;
    chain.rows.push_back(row);
    chain.travelled.push_back(travelledRow(store, row, at, end));
    at = end;
    if (samePoint(at, start, store.cfg_tolerance)) {
      chain.closed = true;
      return chain;
    }
    const auto next = walk.nextChainSeg(row, at);
    if (!next || passed[static_cast<std::size_t>(next->row)]) return chain;
    row = next->row;
  }
}

// The rows of the closed outline that a row is one of, among all that hang together with it; none
// where these make no outlines.
std::vector<int> outlineOf(const DrawingStore& store, int sg) {
  const std::vector<int> rows = rowsConnectedTo(store, sg);
  const OutlineRegion outlines = regionOf(segmentEntities(store, rows), store.cfg_tolerance);
  for (const RegionLoop& loop : outlines.region.loops()) {
    std::vector<int> found;
    found.reserve(loop.sources.size());
    for (const int source : loop.sources) found.push_back(rows[static_cast<std::size_t>(source)]);
    if (std::find(found.begin(), found.end(), sg) == found.end()) continue;
    found.erase(std::unique(found.begin(), found.end()), found.end());
    std::rotate(found.begin(), std::find(found.begin(), found.end(), sg), found.end());
    return found;
  }
  return {};
}

}  // namespace

// A walk from row to row goes astray where an outline touches itself, and at rows shorter than the
// tolerance.
FinishChain chainFrom(const DrawingStore& store, int sg, Point start) {
  FinishChain chain = walkFrom(store, sg, start);
  if (chain.closed) return chain;
  std::vector<int> outline = outlineOf(store, sg);
  if (outline.empty()) return chain;
  const Entity first = travelledRow(store, sg, start, otherEnd(store, sg, start));
  return {std::move(outline), {first}, /*closed=*/true};
}

}  // namespace tess
