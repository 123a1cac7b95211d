// The drafting context comes to life: its timer, the commands that it knows, and what setting its
// state brings about.
#include "drafting/drafting_context.h"

#include "display/display_commands.h"
#include "drafting/change_effects.h"
#include "drafting/drafting_commands.h"
#include "drafting/draw_mode_tools.h"
#include "drafting/entity_creation.h"
#include "drafting/pending_actions.h"
#include "drafting/pointer_events.h"
#include "drafting/rubber_band.h"

namespace tess {

DraftingContext::DraftingContext(const DraftingParts& parts)
    : DraftingParts(parts),
      store(parts.session.store),
      changeHost(std::make_unique<ChangeEffects>(*this)),
      changes(store, changelog, changeHost.get()),
      gridSnapTimer(std::make_unique<GridSnapTimer>(*this)) {
  addUnarmedActions(*this);
  for (const ViewCommand* const known : displayCommands()) addCommand(viewCommands, *known);
  for (const DraftingCommand* const known : draftingCommands()) addCommand(*this, *known);
  state.effects = {.refreshStatus = [this] { refreshStatus(*this); },
                   .showDrawMode = [this] { refreshDrawMode(); },
                   .actionEnded = [this](int action) { endAction(action); }};
  redraw.onCleared = [this] { forgetInverted(); };
  redraw.onPainted = [this] {
    showSecondPoint(*this);
    showPreview(*this);
    showHoverLines(*this);
  };
}

DraftingContext::~DraftingContext() {
  redraw.onCleared = nullptr;
  redraw.onPainted = nullptr;
  state.effects = {};
}

// Whatever ends a mode takes its band off the screen, and of a three-point mode it drops the
// command that is half done.
void DraftingContext::refreshDrawMode() {
  if (pointer.RubberKind != state.DrawMode()) eraseRubberBand(*this);
  if (!takesThreePoints(*this, state.DrawMode())) dropThreePointCommand(*this);
  showDrawMode(*this);
}

void DraftingContext::forgetInverted() {
  pointer.RubberKind = 0;
  pointer.DragBand = 0;
  hovering.clear();
  formPreview.shown = false;
  hoverLines.shown = false;
  command.secondCrossShown = false;
  state.forgetMark();
}

// Whatever ends the placing of a text takes its outline off the screen.
void DraftingContext::endAction(int action) {
  if (action != static_cast<int>(PendingAction::PlaceText)) return;
  endHoverLines(*this);
  listener.textPlacementEnded();
}

}  // namespace tess
