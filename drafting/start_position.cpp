// New Start Position.
#include "drafting/start_position.h"

#include "core/drawing_store.h"

namespace tess {

void clickStartPosition(Desk& desk) {
  Change change(desk.changes);
  change.marksUnsaved();
  desk.store.xstartpos = desk.pointer.MouseX;
  desk.store.ystartpos = desk.pointer.MouseY;
  change.keep({.redraws = false});
}

}  // namespace tess
