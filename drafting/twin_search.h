// Tells rows that no other row can match from those that have to be looked for, with one look at a
// table for each: hardly a drawing has rows that lie on one another.
// Owns: rowsThatMayMatch.
#pragma once

#include <span>
#include <vector>

#include "core/drawing_rows.h"

namespace tess {

// For each row of each list whether it may match a row of the first list, other than itself. It may
// say so of a row that does not, but never the other way round.
std::vector<std::vector<bool>> rowsThatMayMatch(float tolerence,
                                                std::span<const std::span<const SegmentRow>> lists);

}  // namespace tess
