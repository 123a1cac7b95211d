// What lathe tools are like.
// Owns: worksInside.
#pragma once

namespace tess {

struct DrawingStore;

// Whether the tool of a path code works from the axis outward, as a boring bar or a drill does. A
// damaged code has none that does.
bool worksInside(const DrawingStore& store, int pscode);

}  // namespace tess
