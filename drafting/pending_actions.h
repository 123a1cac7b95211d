// The numbered pending actions: what a command arms, what it asks of the operator, and what happens
// when the pointer release completes it.
// Owns: goOnWith, addUnarmedActions, kMoveAllPrompt, pendingPrompt, refreshStatus,
//       refreshCoordinates, do_pending, completeRelease, Handle_esc, arm.
#pragma once

#include <string>

#include "core/pending_action.h"
#include "drafting/drafting_context.h"

namespace tess {

// An action that wants another click leaves the next step as a negative number: that survives the
// reset and the redraw at the end of the release, and only then becomes the armed action.
constexpr int goOnWith(PendingAction next) {
  return -static_cast<int>(next);
}

// Makes the context know the actions that have a prompt but no command.
void addUnarmedActions(DraftingContext& context);

// The prompt of Move while nothing is selected.
inline constexpr char kMoveAllPrompt[] =
    "Click at new position to move.  All drawing and path segments will be moved.";

// The prompt of an armed action; "" for 0, "Pending Function #" and the number for an unknown one.
// The prompt of Move depends on whether segments are selected.
std::string pendingPrompt(const DraftingContext& context, int number);

// Blanks the status line, then shows counts, zoom, prompt and coordinates.
void refreshStatus(DraftingContext& context);
// X, Y and Z in their panels; Z is minus the final depth's absolute value.
void refreshCoordinates(DraftingContext& context);

// Runs the armed action for the click at MouseX, MouseY. A number above 47 does nothing.
void do_pending(DraftingContext& context);

// What a completed release does with the armed action or drawing mode, by the button released.
void completeRelease(DraftingContext& context, int button);

// Esc: cancels the armed action. The drawing mode stays.
void Handle_esc(DraftingContext& context);

// Arms an action: pending action first, then drawing mode, then the repeat key's memory.
void arm(DraftingContext& context, PendingAction action, int drawMode = 0);

}  // namespace tess
