// What the window tells beside the stated panels.
#include "shell/operator_guide.h"

#include <cmath>
#include <numbers>
#include <utility>

#include "core/count_text.h"
#include "core/drawing_store.h"
#include "core/lifecycle.h"
#include "core/number_text.h"
#include "core/units.h"
#include "drafting/drafting_commands.h"
#include "drafting/entity_creation.h"
#include "drafting/hover_preview.h"
#include "import/import_commands.h"
#include "shell/interaction.h"
#include "shell/keys.h"
#include "shell/shell_commands.h"
#include "toolpath/toolpath_commands.h"

namespace tess {
namespace {

constexpr char kAngleFormat[] = "##0.00";
constexpr double kFullTurn = 360;

std::string nameOf(const CommandInfo& info) {
  std::string name;
  for (const char* letter = info.caption; *letter != '\0'; ++letter) {
    if (*letter != '&') name += *letter;
  }
  if (name.ends_with("...")) name.erase(name.size() - 3);
  return name;
}

// "Line (L)".
std::string nameWithKey(const CommandInfo& info) {
  const std::string key = shownKey(info.key);
  return key.empty() ? nameOf(info) : nameOf(info) + " (" + key + ")";
}

// ---- Rows by their marks

struct Marks {
  int selected = 0, verified = 0;
};

Marks marksOfSegments(const DrawingStore& store) {
  Marks marks;
  for (int sg = 1; sg <= store.NumSegments; ++sg) {
    const int attr = store.segattr[sg];
    if (attr < kSelected) continue;
    ++(attr == kVerifiedRow ? marks.verified : marks.selected);
  }
  return marks;
}

int selectedPaths(const DrawingStore& store) {
  int selected = 0;
  for (int ps = 1; ps <= store.NumPathSegments; ++ps) selected += isSelected(store.pscode[ps]);
  return selected;
}

// ---- The armed action

bool isFinishStep(int action) {
  return action >= static_cast<int>(PendingAction::FinishStart) &&
         action <= static_cast<int>(PendingAction::FinishReference);
}

// Null while no action is armed. Two commands share the steps of the finish path, and text is armed
// by its panel.
const CommandInfo* armedCommand(const Interaction& interaction) {
  const int action = interaction.state.pendingaction();
  if (action <= 0 || action >= kActionNumbers) return nullptr;
  if (isFinishStep(action) && interaction.cam.PlaceChain == 0) return &kPlaceOnePathCommand.info;
  if (action == static_cast<int>(PendingAction::PlaceText)) return &kTextCommand.info;
  return interaction.context.actionCommands[static_cast<std::size_t>(action)];
}

bool selects(int action) {
  return action == static_cast<int>(PendingAction::Select) ||
         action == static_cast<int>(PendingAction::SelectContiguous);
}

// ---- What may come next

std::string nextStep(const Interaction& interaction) {
  const DrawingStore& store = interaction.context.store;
  const Marks marks = marksOfSegments(store);
  if (store.NumPathSegments > 0) {
    const ShellCommand& make = store.lathesetup ? kMakeLatheFileCommand : kMakeMillFileCommand;
    const std::string program = nameWithKey(make.info) + " makes a program";
    return marks.verified > 0
               ? nameOf(kPlaceFinishPathCommand.info) + " finishes a wall, " + program
               : program;
  }
  if (marks.verified > 0) {
    return nameOf(kRoughCutPocketCommand.info) + " or " + nameOf(kPlaceFinishPathCommand.info) +
           " cuts what is verified";
  }
  if (marks.selected > 0) return nameOf(kVerifyPocketCommand.info) + " takes what is selected";
  if (store.NumSegments > 0) return nameOf(kSelectContiguousCommand.info) + " takes an outline";
  return "Draw by " + nameWithKey(kLineCommand.info) + " or " +
         nameWithKey(kRectangleCommand.info) + " from the marker, or open a drawing";
}

std::string repeatHint(const Interaction& interaction) {
  const int last = interaction.context.command.LastCommand;
  if (last <= 0 || last >= kActionNumbers) return {};
  const auto number = static_cast<std::size_t>(last);
  const CommandInfo* const command = interaction.context.actionCommands[number];
  if (command == nullptr || !interaction.context.repeatCommands[number]) return {};
  return "F3 repeats " + nameOf(*command);
}

// ---- By state

PointerGuide armedGuide(const Interaction& interaction) {
  const int action = interaction.state.pendingaction();
  const ActionText* const text = findAction(interaction.context, action);
  if (text == nullptr) return {};
  PointerGuide guide;
  if (const CommandInfo* const command = armedCommand(interaction))
    guide.command = nameOf(*command);
  guide.left = std::string(text->drags ? "drag " : "click ") + text->left;
  guide.right = "cancels";
  guide.keys = "Esc cancels";
  if (action == static_cast<int>(PendingAction::PlaceText)) {
    guide.wheel = "spaces the letters, with Ctrl turns, with Shift bends, with both sizes the text";
  }
  if (selects(action) && !interaction.context.command.EditPaths) {
    guide.keys += "; next: " + nextStep(interaction);
  }
  return guide;
}

PointerGuide drawingGuide(const Interaction& interaction, const DraftingCommand& command) {
  const bool second = interaction.context.command.clickstage == kFirstPointTaken;
  const bool halfDone = command.mode.threePoints && second;
  PointerGuide guide;
  guide.command = nameOf(command.info);
  guide.left = std::string("click ") + (halfDone ? command.mode.secondLeft : command.mode.left);
  guide.right = halfDone ? "drops the shape and moves the marker" : "moves the marker";
  guide.keys = "type x,y or @dx,dy or @length<angle";
  return guide;
}

const DraftingCommand* drawingCommand(const Interaction& interaction) {
  for (const DraftingCommand* const command : interaction.context.modes) {
    if (command->mode.number == interaction.state.DrawMode()) return command;
  }
  return nullptr;
}

PointerGuide guideOfState(const Interaction& interaction) {
  if (interaction.state.pendingaction() != 0) return armedGuide(interaction);
  if (const DraftingCommand* const command = drawingCommand(interaction)) {
    return drawingGuide(interaction, *command);
  }
  return {.command = nextStep(interaction),
          .left = {},
          .right = "moves the marker",
          .wheel = {},
          .keys = repeatHint(interaction)};
}

// ---- State

std::string selectedText(const Interaction& interaction) {
  const DrawingStore& store = interaction.context.store;
  if (interaction.context.command.EditPaths) {
    return countText(selectedPaths(store), "path row") + " selected";
  }
  const Marks marks = marksOfSegments(store);
  std::string text = countText(marks.selected, "row") + " selected";
  if (marks.verified > 0) text += ", " + std::to_string(marks.verified) + " verified";
  return text;
}

// "From marker: 3.0000, 4.0000; 5.0000 at 53.13".
std::string relativeText(const Interaction& interaction, const std::string& pattern) {
  const Point marker = markerOf(interaction.context);
  const Point mouse = mouseOf(interaction.context);
  const double x = static_cast<double>(mouse.x) - marker.x;
  const double y = static_cast<double>(mouse.y) - marker.y;
  double degrees = std::atan2(y, x) * 180 / std::numbers::pi;
  if (degrees < 0) degrees += kFullTurn;
  return "From marker: " + formatNumber(narrow(x), pattern) + ", " +
         formatNumber(narrow(y), pattern) + "; " + formatNumber(distance(marker, mouse), pattern) +
         " at " + formatNumber(narrow(degrees), kAngleFormat);
}

std::string snapText(const Interaction& interaction) {
  const std::string name = snapName(interaction.context);
  return name.empty() ? "No snap" : "Snap: " + name;
}

int rowsOf(std::span<const RowEdit<SegmentRow>> edits, EditKind kind) {
  std::size_t rows = 0;
  for (const auto& edit : edits) rows += edit.kind == kind ? edit.numbers.size() : 0;
  return static_cast<int>(rows);
}

void addCount(std::string& text, int count, const char* what) {
  if (count == 0) return;
  text += (text.empty() ? "" : ", ") + countText(count, "row") + " " + what;
}

}  // namespace

PointerGuide pointerGuide(const Interaction& interaction) {
  PointerGuide guide = guideOfState(interaction);
  if (interaction.navigation.wheelZooms()) guide.wheel = "zooms, its button pans";
  return guide;
}

std::string guideText(const PointerGuide& guide) {
  std::string text = guide.command;
  auto add = [&text, before = ": "](const char* what, const std::string& does) mutable {
    if (does.empty()) return;
    text += (text.empty() ? "" : before) + (what + does);
    before = ", ";
  };
  add("left ", guide.left);
  add("right click ", guide.right);
  add("wheel ", guide.wheel);
  add("", guide.keys);
  return text;
}

OperatorGuide::OperatorGuide(Session& session, Interaction& interaction)
    : session_(session),
      interaction_(interaction),
      subscription_(interaction.context.changes.listen(*this)) {}

// Marks and roundings are no work of the operator's.
void OperatorGuide::changed(const KeptChange& change) {
  if (!change.unsaved) return;
  added_ += rowsOf(change.segments, EditKind::Insert);
  changed_ += rowsOf(change.segments, EditKind::Replace);
  removed_ += rowsOf(change.segments, EditKind::Erase);
}

void OperatorGuide::settle() {
  tellRows();
  showState();
  pointerMoved();
}

// Where a command has told its result itself, the rows are in it.
void OperatorGuide::tellRows() {
  std::string text;
  addCount(text, std::exchange(added_, 0), "added");
  addCount(text, std::exchange(changed_, 0), "changed");
  addCount(text, std::exchange(removed_, 0), "removed");
  Results& results = session_.results;
  if (results.count() == toldBefore_ && !text.empty()) results.tell(text);
  toldBefore_ = results.count();
}

void OperatorGuide::showState() {
  StatusBar& bar = interaction_.statusBar;
  bar.setPanel(StatusPanel::Guide, guideText(pointerGuide(interaction_)));
  bar.setPanel(StatusPanel::Modified, isUnsaved(session_) ? "Modified" : "Unchanged");
  bar.setPanel(StatusPanel::Units, isMetric(session_.store) ? "mm" : "inch");
  bar.setPanel(StatusPanel::Selected, selectedText(interaction_));
  const CommandInfo* const armed = armedCommand(interaction_);
  interaction_.tools.showArmed(armed != nullptr ? armed->tool : "");
}

void OperatorGuide::pointerMoved() {
  StatusBar& bar = interaction_.statusBar;
  bar.setPanel(StatusPanel::Relative, relativeText(interaction_, session_.formats.coordfmt));
  bar.setPanel(StatusPanel::Snap, snapText(interaction_));
}

}  // namespace tess
