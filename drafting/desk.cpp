// The drafting desk comes to life: its state, its timer and the clicks that drafting itself brings.
#include "drafting/desk.h"

#include "drafting/draw_mode_tools.h"
#include "drafting/pending_actions.h"
#include "drafting/pointer_events.h"
#include "drafting/selection.h"

namespace tess {

Desk::Desk(const DeskParts& parts)
    : DeskParts(parts),
      store(parts.session.store),
      state(parts.ScreenProxy, {.refreshStatus = [this] { refreshStatus(*this); },
                                .showDrawMode = [this] { showDrawMode(*this); }}),
      gridSnapTimer(std::make_unique<GridSnapTimer>(*this)) {
  addSelectionClicks(clickActions);
}

Desk::~Desk() = default;

}  // namespace tess
