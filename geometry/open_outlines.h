// Outlines that do not close, counted.
// Owns: openOutlines.
#pragma once

namespace tess {

struct DrawingStore;

// How many chains of the drawing rows `first` to `last` have a loose end: one that meets no other
// end of these rows within "tolerence". Circles, rectangles and rows that end where they begin have
// none.
int openOutlines(const DrawingStore& store, int first, int last);

}  // namespace tess
