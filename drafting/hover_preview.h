// What a click would make, shown while the pointer only passes over the drawing: the band of the
// drawing mode or action, and the mark of the feature that it snaps to. With "hover preview" of the
// setup alone; without it nothing is shown before a button is down.
// Owns: hoverOver, endHoverPreview, snapName.
#pragma once

#include <string>

#include "drafting/pointer_events.h"

namespace tess {

// A motion without a button.
void hoverOver(DraftingContext& context, const PointerEvent& event);
// Whatever is shown goes off the screen: something else begins. Nothing in the middle of a drag.
void endHoverPreview(DraftingContext& context);

// What a click at the pointer snaps to now, as "end point" or "grid"; "" for its own place.
std::string snapName(const DraftingContext& context);

}  // namespace tess
