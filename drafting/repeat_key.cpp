// The repeat key.
#include "drafting/repeat_key.h"

#include "drafting/edit_commands.h"
#include "drafting/enter_position.h"
#include "drafting/measure.h"
#include "drafting/pending_actions.h"
#include "drafting/selection.h"

namespace tess {
namespace {

void askForPositionAgain(Desk& desk) {
  collect_Set_New_pos(desk);
}

constexpr int number(PendingAction action) {
  return static_cast<int>(action);
}

struct RepeatRow {
  int lastCommand;
  void (*issue)(Desk&);
};

constexpr RepeatRow kRepeats[] = {
    {number(PendingAction::Break), mnuEditBreakSeg_Click},
    {number(PendingAction::MoveEndPoint), mnuEditMoveEnd_Click},
    {number(PendingAction::JoinFirst), mnuEditJoinEnd_Click},
    {number(PendingAction::JoinArcFirst), mnuEditJoinEndPtsArc},
    {number(PendingAction::ReverseArc), mnuEditRevArc_Click},
    {number(PendingAction::FlipArc), mnuEditFlipArc_Click},
    {number(PendingAction::Move), mnuEditMoveProf_Click},
    {number(PendingAction::TrimPick), mnuEditTrimEntity_Click},
    {number(PendingAction::DeleteVertex), mnuDeleteVertex_Click},
    {number(PendingAction::SetOrigin), SetOrigin},
    {number(PendingAction::EntityInfo), mnuEditEntityInfo_Click},
    {kEnterPositionCommand, askForPositionAgain},
    {number(PendingAction::ChangeRadius), mnuChangeRad_Click},
    {number(PendingAction::SelectContiguous), mnuDrawSelectContiguous},
    {number(PendingAction::Measure), miMeasureDist_Click},
    {number(PendingAction::ReversePath), mnuRevPathDir_Click},
    {number(PendingAction::FilletFirst), mnuAddFillet_Click},
    {number(PendingAction::FilletSecond), mnuAddFillet_Click},
};

}  // namespace

void repeatLastCommand(Desk& desk) {
  const int last = desk.command.LastCommand;
  if (last < 0 || last >= static_cast<int>(desk.repeatCommands.size())) return;
  const auto& issue = desk.repeatCommands[static_cast<std::size_t>(last)];
  if (issue) issue(desk);
}

void addRepeatCommands(RepeatCommands& commands) {
  for (const RepeatRow& row : kRepeats) {
    commands[static_cast<std::size_t>(row.lastCommand)] = row.issue;
  }
}

}  // namespace tess
