// Commands of the drafting desk that do not exist yet. Their tools stand disabled; a descriptor
// moves to the file of its routine when there is one.
#include "drafting/drafting_commands.h"

namespace tess {
namespace {

// The pointer's events go to the text window for as long as it is armed.
constexpr Action<Desk> kTextActions[] = {
    {{.action = PendingAction::PlaceText,
      .prompt = "Click spot to place text.",
      .escRedraws = true}},
};

}  // namespace

constexpr DeskCommand kPasteCommand{
    .info = {.tool = "miPaste", .caption = "&Paste", .key = "P", .menu = {"miEdit", 230}},
    .run = kNotYet,
};

constexpr DeskCommand kScaleDrawingCommand{
    .info = {.tool = "miScaleDrawing",
             .caption = "&Scale Drawing...",
             .key = "S",
             .menu = {"miEdit", 520}},
    .run = kNotYet,
    .repeat = {{PendingAction::ScaleDrawing}},
};

constexpr DeskCommand kMirrorCommand{
    .info = {.tool = "miMirror", .caption = "Mirr&or...", .menu = {"miEdit", 530}},
    .run = kNotYet,
};

constexpr DeskCommand kRotateCommand{
    .info = {.tool = "miRotate", .caption = "Rota&te...", .menu = {"miEdit", 540}},
    .run = kNotYet,
};

constexpr DeskCommand kBoltCircleCommand{
    .info = {.tool = "miBoltCircle",
             .caption = "&Bolt Circle...",
             .menu = {"miDraw", 210},
             .bar = {"barDraw", 270}},
    .run = kNotYet,
};

constexpr DeskCommand kTextCommand{
    .info = {.tool = "miText",
             .caption = "&Text...",
             .menu = {"miDraw", 220},
             .bar = {"barDraw", 280}},
    .run = kNotYet,
    .actions = kTextActions,
};

}  // namespace tess
