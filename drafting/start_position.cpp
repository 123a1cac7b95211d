// New Start Position.
#include "drafting/start_position.h"

#include "drafting/pending_actions.h"

namespace tess {
namespace {

void clickStartPosition(Desk& desk) {
  Change change(desk.changes);
  change.marksUnsaved();
  desk.store.xstartpos = desk.pointer.MouseX;
  desk.store.ystartpos = desk.pointer.MouseY;
  change.keep({.redraws = false});
}

}  // namespace

void addStartPositionClick(ClickActions& clicks) {
  clicks[static_cast<std::size_t>(PendingAction::NewStartPosition)] = clickStartPosition;
}

}  // namespace tess
