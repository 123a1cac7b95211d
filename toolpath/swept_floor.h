// What the rows of a drawing cut down to a floor, and what tabs leave of it on purpose.
// Owns: isFeedRow, floorOf, sweptAt, leftByTabsAt.
#pragma once

#include <vector>

#include "toolpath/proof_groups.h"
#include "toolpath/swept_spans.h"

namespace tess {

// Lines and arcs, at whatever depth.
bool isFeedRow(const DrawingStore& store, int ps);

// The deepest feed row of the group; 0 where none is below that.
float floorOf(const DrawingStore& store, const ProofGroup& group);

// What all rows sweep that go down to a floor, whatever group and tool they are of.
std::vector<SweptCurve> sweptAt(const DrawingStore& store, const std::vector<ProofGroup>& groups,
                                float floor);

// What rows would sweep that stay above the floor since a tab of their own group is there: those
// that run within the tab, no higher than its top.
std::vector<SweptCurve> leftByTabsAt(const DrawingStore& store,
                                     const std::vector<ProofGroup>& groups, float floor);

}  // namespace tess
