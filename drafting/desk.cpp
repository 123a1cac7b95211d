// The drafting desk comes to life: its state, its timer, and the clicks and repeats that drafting
// itself brings.
#include "drafting/desk.h"

#include "drafting/change_effects.h"
#include "drafting/draw_mode_tools.h"
#include "drafting/entity_creation.h"
#include "drafting/pending_actions.h"
#include "drafting/pointer_events.h"
#include "drafting/repeat_key.h"
#include "drafting/selection.h"
#include "drafting/start_position.h"

namespace tess {

Desk::Desk(const DeskParts& parts)
    : DeskParts(parts),
      store(parts.session.store),
      state(parts.ScreenProxy, {.refreshStatus = [this] { refreshStatus(*this); },
                                .showDrawMode = [this] { refreshDrawMode(); }}),
      changeHost(std::make_unique<ChangeEffects>(*this)),
      changes(store, changelog, changeHost.get()),
      gridSnapTimer(std::make_unique<GridSnapTimer>(*this)) {
  addSelectionClicks(clickActions);
  addStartPositionClick(clickActions);
  addRepeatCommands(repeatCommands);
  redraw.onCleared = [this] { forgetInverted(); };
  redraw.onPainted = [this] { showSecondPoint(*this); };
}

Desk::~Desk() {
  redraw.onCleared = nullptr;
  redraw.onPainted = nullptr;
}

// Whatever ends a three-point mode drops the command that is half done in it.
void Desk::refreshDrawMode() {
  if (!takesThreePoints(state.DrawMode())) dropThreePointCommand(*this);
  showDrawMode(*this);
}

void Desk::forgetInverted() {
  pointer.RubberKind = 0;
  pointer.DragBand = 0;
  command.secondCrossShown = false;
  state.forgetMark();
}

}  // namespace tess
