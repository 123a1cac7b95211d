// Taking single rows out of the tables and putting rows in between, as the path generators and
// scripts do: unlogged, since their rows are logged together when they have got their last form.
// Owns: deleteSegment, deletePathSegment, insertSegment, insertPathSegment, PathInsertion,
//       insertPathSegments, roundRows.
#pragma once

#include <span>

#include "drafting/change.h"

namespace tess {

// Removes a row; marks the drawing changed. An index outside the rows in use changes nothing.
void deleteSegment(Changes& changes, int sg);
void deletePathSegment(Changes& changes, int ps);

// Puts a drawing row in front of row `index` and marks the drawing changed. One that ends exactly
// where it starts is refused: false.
bool insertSegment(Changes& changes, int index, const SegmentRow& row);

// Puts a visible path row of tool `tool` (index from 0; above 100 its remainder by 100) and of the
// current path group in front of row `index`, moving the rows from there up by one; `row.code` is
// not looked at. Marks the drawing changed. Raises Overflow at row 32768.
void insertPathSegment(Changes& changes, int index, const PathRow& row, int tool);

// The same for many rows in one pass: all of them or, with Overflow, none. They are given in the
// order of their places.
using PathInsertion = RowInsertion<PathRow>;
void insertPathSegments(Changes& changes, std::span<const PathInsertion> insertions, int tool);

// Rounds the drawing rows as a save does, before paths are placed beside them.
void roundRows(Changes& changes);

}  // namespace tess
