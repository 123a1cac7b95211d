// What single entities look like as lines and arcs.
// Owns: EntityChain, chainOf.
#pragma once

#include <vector>

#include "import/block_placement.h"
#include "import/dxf_document.h"
#include "import/dxf_rows.h"

namespace tess {

// Rows end to end, in the order and direction of their entity.
using EntityChain = std::vector<DxfRow>;

// Appends the rows of an entity, in the coordinates of the drawing, to an empty chain; curves
// within `tolerance`. A part without length gives no row. `whole` becomes false when a curve would
// go on beyond the rows that it may have. False for an entity that is no curve of the plane, or a
// damaged one: POINT and INSERT, which are no chains, among them.
bool chainOf(const DxfEntity& entity, const BlockPlacement& placement, double tolerance,
             EntityChain& chain, bool& whole);

}  // namespace tess
