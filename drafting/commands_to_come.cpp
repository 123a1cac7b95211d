// Commands of the drafting context that do not exist yet. Their tools stand disabled; a descriptor
// moves to the file of its routine when there is one.
#include "drafting/drafting_commands.h"

namespace tess {
namespace {

// The pointer's events go to the text window for as long as it is armed.
constexpr Action<DraftingContext> kTextActions[] = {
    {{.action = PendingAction::PlaceText,
      .prompt = "Click spot to place text.",
      .escRedraws = true}},
};

}  // namespace

constexpr DraftingCommand kTextCommand{
    .info = {.tool = "miText",
             .caption = "&Text...",
             .menu = {"miDraw", 220},
             .bar = {"barDraw", 280}},
    .run = kNotYet,
    .actions = kTextActions,
};

}  // namespace tess
