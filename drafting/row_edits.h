// Taking rows out of the tables and putting path rows in between.
// Owns: deleteSegment, deletePathSegment, deleteSegments, deletePathSegments, insertPathSegment,
//       PathInsertion, insertPathSegments.
#pragma once

#include <span>
#include <vector>

#include "core/drawing_store.h"

namespace tess {

// Removes a row from the tables, moving every later row down by one; marks the drawing changed. An
// index outside the rows in use changes nothing.
void deleteSegment(DrawingStore& store, int sg);
void deletePathSegment(DrawingStore& store, int ps);
// The same for rows `first` to `last` at one go.
void deleteSegments(DrawingStore& store, int first, int last);
void deletePathSegments(DrawingStore& store, int first, int last);

// Removes all path rows that are marked in `gone`, which is indexed by row number, in one pass.
void deletePathSegments(DrawingStore& store, const std::vector<bool>& gone);

// Puts a visible path row of tool `tool` (index from 0; above 100 its remainder by 100) and of the
// current path group in front of row `index`, moving the rows from there up by one; `row.code` is
// not looked at. Marks the drawing changed. Raises Overflow at row 32768.
void insertPathSegment(DrawingStore& store, int index, const PathRow& row, int tool);

// A row to come in front of row `before` of the table as it stands; NumPathSegments + 1 is the end.
struct PathInsertion {
  int before = 0;
  PathRow row;
};

// The same for many rows in one pass: all of them or, with Overflow, none. They are given in the
// order of their places.
void insertPathSegments(DrawingStore& store, std::span<const PathInsertion> insertions, int tool);

}  // namespace tess
