// The cuts that a lathe run has made, and how far they let the tool stay down on its way.
// Owns: LatheSpan, rememberLatheSpan, latheClearHeight, clearHeight.
#pragma once

#include <vector>

namespace tess {

struct DrawingStore;

struct LatheSpan {
  float spanMin = 0, spanMax = 0;
  float spanLevel = 0;
};

// Appends the cut between `xa` and `xb`, in either order.
void rememberLatheSpan(std::vector<LatheSpan>& list, float xa, float xb, float level);

// The height at which the tool may go from `xa` to `xb`: half a step above the newest cut that
// holds both, within the tolerance, and never above the stock height, which is the answer when no
// cut holds both.
float latheClearHeight(const DrawingStore& store, const std::vector<LatheSpan>& list, float xa,
                       float xb, float spacing);
// The same for spans and stock of any heights, `top` that of the stock.
float clearHeight(const std::vector<LatheSpan>& list, float xa, float xb, float spacing, float top,
                  float tolerence);

}  // namespace tess
