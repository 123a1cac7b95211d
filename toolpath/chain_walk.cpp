// Chain steps, by the index and by plain passes. Selected rows come first, so that a selected chain
// is followed where an unselected row branches off it.
#include "toolpath/chain_walk.h"

#include "core/drawing_store.h"

namespace tess {
namespace {

constexpr bool anyRow(int /*segattr*/) {
  return true;
}

// One pass: the lowest row but `from` that `wanted` accepts, the start of a row before its end.
template <typename Wanted>
std::optional<ChainStep> firstRowAt(const DrawingStore& store, int from, Point at, Wanted wanted) {
  for (int sg = 1; sg <= store.NumSegments; ++sg) {
    if (sg == from || !wanted(store.segattr[sg])) continue;
    const Point start{store.x0[sg], store.y0[sg]};
    const Point end{store.x1[sg], store.y1[sg]};
    if (samePoint(start, at, store.cfg_tolerance)) return ChainStep{sg, end};
    if (samePoint(end, at, store.cfg_tolerance)) return ChainStep{sg, start};
  }
  return std::nullopt;
}

}  // namespace

ChainWalk::ChainWalk(const DrawingStore& store) : store_(store), ends_(segmentEndIndex(store)) {}

std::optional<ChainStep> ChainWalk::nextChainSeg(int from, Point at) {
  ends_.rowsAt(at, found_);
  const EndMatch* fallback = nullptr;
  for (const EndMatch& match : found_) {
    if (match.row == from) continue;
    if (isSelected(store_.segattr[match.row])) return step(match);
    if (fallback == nullptr) fallback = &match;
  }
  return fallback != nullptr ? std::optional(step(*fallback)) : std::nullopt;
}

std::optional<ChainStep> ChainWalk::nextChainSegWithAttr(int from, Point at, int attr) {
  ends_.rowsAt(at, found_);
  for (const EndMatch& match : found_) {
    if (match.row != from && store_.segattr[match.row] == attr) return step(match);
  }
  return std::nullopt;
}

ChainStep ChainWalk::step(const EndMatch& match) const {
  const int sg = match.row;
  if (match.atStart) return {sg, {store_.x1[sg], store_.y1[sg]}};
  return {sg, {store_.x0[sg], store_.y0[sg]}};
}

std::optional<ChainStep> nextChainSeg(const DrawingStore& store, int from, Point at) {
  const auto selected =
      firstRowAt(store, from, at, [](int segattr) { return isSelected(segattr); });
  return selected ? selected : firstRowAt(store, from, at, anyRow);
}

std::optional<ChainStep> nextChainSegWithAttr(const DrawingStore& store, int from, Point at,
                                              int attr) {
  return firstRowAt(store, from, at, [attr](int segattr) { return segattr == attr; });
}

}  // namespace tess
