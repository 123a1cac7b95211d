// New Start Position.
#include "drafting/start_position.h"

#include "core/drawing_store.h"

namespace tess {

void clickStartPosition(DraftingContext& context) {
  Change change(context.changes);
  change.marksUnsaved();
  context.store.xstartpos = context.pointer.MouseX;
  context.store.ystartpos = context.pointer.MouseY;
  change.keep({.redraws = false});
}

}  // namespace tess
