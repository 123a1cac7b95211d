// From row to row along an outline: which row goes on where another ends.
// Owns: ChainStep, ChainWalk, nextChainSeg, nextChainSegWithAttr.
#pragma once

#include <optional>
#include <vector>

#include "geometry/end_point_index.h"
#include "geometry/float_points.h"

namespace tess {

struct DrawingStore;

// The row found and its other end.
struct ChainStep {
  int row = 0;
  Point end;
};

// Answers for many steps over a drawing whose ends do not move meanwhile; attributes may change,
// and rows may be appended without being looked at.
class ChainWalk {
 public:
  explicit ChainWalk(const DrawingStore& store);

  // The lowest row but `from` with an end at `at`, selected rows before all others. A row that
  // begins there is left by its end, another by its start.
  std::optional<ChainStep> nextChainSeg(int from, Point at);
  // The same among the rows whose attribute is exactly `attr`.
  std::optional<ChainStep> nextChainSegWithAttr(int from, Point at, int attr);

 private:
  ChainStep step(const EndMatch& match) const;

  const DrawingStore& store_;
  EndPointIndex ends_;
  std::vector<EndMatch> found_;
};

// The same as plain passes over all rows.
std::optional<ChainStep> nextChainSeg(const DrawingStore& store, int from, Point at);
std::optional<ChainStep> nextChainSegWithAttr(const DrawingStore& store, int from, Point at,
                                              int attr);

}  // namespace tess
