// Path rows as lines of a list, and the ways to one of them: by a value that it shows, and by its
// place in the drawing.
// Owns: kPathListHeadings, pathListLine, PathValue, findPathRow, pathRowAt, pathOutlines.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "core/drawing_rows.h"
#include "geometry/float_points.h"

namespace tess {

struct DrawingStore;

// The columns of a line stand between tabs.
inline constexpr char kPathListHeadings[] = "#\tGroup\tTool\tType\tEnd X\tEnd Y\tZ\tFeed";

// Row `ps` as its line; lengths in the pattern `lengths`.
std::string pathListLine(const DrawingStore& store, int ps, std::string_view lengths);

// What a row can be found by, in the order in which the operator is offered it.
enum class PathValue : int { Tool, Group, Depth, Feed };

// The next row behind `current` whose value is `value` as it is shown: tools counted from 1, depths
// in the pattern `lengths`. Behind the last row comes the first, and `current` itself at the end; 0
// for none.
int findPathRow(const DrawingStore& store, int current, PathValue what, double value,
                std::string_view lengths);

// The shown row nearest to `at`. Of rows that are as near, as those of several depths are, the one
// behind `current` when that is one of them, else the first; 0 for none.
int pathRowAt(const DrawingStore& store, Point at, int current);

// The rows as outlines to be traced, those that lie on one another once. What is a point, as a
// hole, becomes a ring of its tool's radius, or of `smallest` when that is more.
std::vector<SegmentRow> pathOutlines(const DrawingStore& store, const std::vector<int>& rows,
                                     float smallest);

}  // namespace tess
