// The numbered pending actions: what a command arms, what it asks of the operator, and what happens
// when the pointer release completes it.
// Owns: PendingAction, kScaleCommand, kEnterPositionCommand, goOnWith, ActionRow, pendingActions,
//       findAction, pendingPrompt, refreshStatus, refreshCoordinates, do_pending, completeRelease,
//       Handle_esc, arm.
#pragma once

#include <span>
#include <string>

#include "drafting/desk.h"

namespace tess {

// The numbers are part of the interface: scripts and LastCommand show them.
enum class PendingAction : int {
  None = 0,
  Delete = 1,
  FlipArc = 2,
  ChangeRadius = 4,
  EntityInfo = 6,
  Move = 7,
  Copy = 8,
  Break = 9,
  MoveEndPoint = 10,
  NewPosition = 11,
  NewStartPosition = 12,
  ReverseArc = 14,
  TrimPick = 16,
  TrimBy = 17,
  JoinFirst = 18,
  JoinSecond = 19,
  FinishStart = 20,
  FinishDirection = 21,
  FinishReference = 22,
  Select = 24,
  Unselect = 25,
  PocketEntity = 26,
  IslandEntity = 27,
  ZoomWindow = 28,
  Pan = 29,
  PlaceText = 30,
  SelectContiguous = 31,
  UnselectContiguous = 32,
  PlaceCycle = 33,
  DeleteVertex = 34,
  SetOrigin = 35,
  Measure = 36,
  StartRoughing = 39,
  GougeGroup = 41,
  ReversePath = 42,
  JoinArcFirst = 43,
  JoinArcSecond = 44,
  JoinArcThird = 45,
  FilletFirst = 46,
  FilletSecond = 47,
};

// Values of LastCommand that are no pending actions.
inline constexpr int kScaleCommand = 37;
inline constexpr int kEnterPositionCommand = 38;

// An action that wants another click leaves the next step as a negative number: that survives the
// reset and the redraw at the end of the release, and only then becomes the armed action.
constexpr int goOnWith(PendingAction next) {
  return -static_cast<int>(next);
}

struct ActionRow {
  PendingAction action;
  const char* prompt;
  bool staysArmed;  // for another click
};

// All actions that have a prompt, in the order of their numbers.
std::span<const ActionRow> pendingActions();
const ActionRow* findAction(int number);

// The prompt of an armed action; "" for 0, "Pending Function #" and the number for an unknown one.
// The prompt of Move depends on whether segments are selected.
std::string pendingPrompt(const DrawingStore& store, int number);

// Blanks the status line, then shows counts, zoom, prompt and coordinates.
void refreshStatus(Desk& desk);
// X, Y and Z in their panels; Z is minus the final depth's absolute value.
void refreshCoordinates(Desk& desk);

// Runs the armed action for the click at MouseX, MouseY. A number above 47 does nothing.
void do_pending(Desk& desk);

// What a completed release does with the armed action or drawing mode, by the button released.
void completeRelease(Desk& desk, int button);

// Esc: cancels the armed action. The drawing mode stays.
void Handle_esc(Desk& desk);

// Arms an action: pending action first, then drawing mode, then the repeat key's memory.
void arm(Desk& desk, PendingAction action, int drawMode = 0);

}  // namespace tess
