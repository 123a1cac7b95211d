// Rest machining: what rows of before have left of what a tool reaches, and which parts of a way
// take it.
// Owns: cutBefore, isLargerThanAll, RestPlaces, restOfRegion, restOfWays, orderedByPlace.
#pragma once

#include <vector>

#include "core/cancellable_work.h"
#include "geometry/curve_index.h"
#include "toolpath/cam_context.h"
#include "toolpath/level_strips.h"
#include "toolpath/pocket_region.h"
#include "toolpath/swept_spans.h"

namespace tess {

// All that rows sweep that go down to a floor, and what tabs leave on purpose.
std::vector<SweptCurve> cutBefore(CamContext& cam, float floor, const Breathing& breathing);

// Whether all that has cut is smaller than a tool.
bool isLargerThanAll(double toolRadius, const std::vector<SweptCurve>& taken);

class RestPlaces {
 public:
  // As lines, for a tool of that radius.
  RestPlaces(std::vector<Curve> lines, double toolRadius);

  bool isEmpty() const { return index_.curves().empty(); }

  // How far into an offset, from its loops, something of it lies: never less than it is.
  double depthIn(const PocketRegion& offset, const Breathing& breathing) const;

  // The parts of a way on which the tool takes some of it, and a tenth of the radius more at either
  // end. A way that ends where it begins is cut beginning behind a part that is left out.
  std::vector<std::vector<Curve>> partsOf(const std::vector<Curve>& way) const;

 private:
  CurveIndex index_;
  double toolRadius_;
};

// What is left of what a tool can reach whose centre may be in `centers`.
RestPlaces restOfRegion(const PocketRegion& centers, double toolRadius,
                        const std::vector<SweptCurve>& taken, const Breathing& breathing);

// What is left of what the tool sweeps along some ways.
RestPlaces restOfWays(const std::vector<Curve>& ways, double toolRadius,
                      const std::vector<SweptCurve>& taken, const Breathing& breathing);

// Pieces that lie within `near` of one another come one after the other, in their order; of what
// lies apart always the nearest next.
std::vector<std::vector<Curve>> orderedByPlace(std::vector<std::vector<Curve>> pieces, double near,
                                               PlanePoint from);

}  // namespace tess
