// Taking rows out of the tables and putting path rows in between.
// Owns: deleteSegment, deletePathSegment, deleteSegments, deletePathSegments, insertPathSegment.
#pragma once

#include "core/drawing_store.h"

namespace tess {

// Removes a row from the tables, moving every later row down by one; marks the drawing changed. An
// index outside the rows in use changes nothing.
void deleteSegment(DrawingStore& store, int sg);
void deletePathSegment(DrawingStore& store, int ps);
// The same for rows `first` to `last` at one go.
void deleteSegments(DrawingStore& store, int first, int last);
void deletePathSegments(DrawingStore& store, int first, int last);

// Puts a visible path row of tool `tool` (index from 0) and of the current path group in front of
// row `index`, moving the rows from there up by one; `row.code` is not looked at. Marks the drawing
// changed. Raises Overflow at row 32768.
void insertPathSegment(DrawingStore& store, int index, const PathRow& row, int tool);

}  // namespace tess
