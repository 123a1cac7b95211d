// New Start Position.
#include "drafting/start_position.h"

#include "drafting/pending_actions.h"

namespace tess {
namespace {

void clickStartPosition(Desk& desk) {
  desk.store.xstartpos = desk.pointer.MouseX;
  desk.store.ystartpos = desk.pointer.MouseY;
  desk.store.drawingsaved = false;
}

}  // namespace

void addStartPositionClick(ClickActions& clicks) {
  clicks[static_cast<std::size_t>(PendingAction::NewStartPosition)] = clickStartPosition;
}

}  // namespace tess
