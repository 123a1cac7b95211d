// Lines that hover under the pointer while a text is being placed. Shown a second time they are
// gone.
// Owns: HoverLines, setHoverLines, showHoverLines, endHoverLines.
#pragma once

#include <vector>

#include "display/drawing_target.h"

namespace tess {

struct DraftingContext;

struct HoverLines {
  std::vector<WorldBox> lines;
  bool shown = false;  // on the screen: a redraw wipes them, and shows them again at its end
};

// These lines hover in the place of those that did before.
void setHoverLines(DraftingContext& context, std::vector<WorldBox> lines);
// Shows them, unless the picture under them is not complete.
void showHoverLines(DraftingContext& context);
void endHoverLines(DraftingContext& context);

}  // namespace tess
