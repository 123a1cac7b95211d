// What editing works on.
#include "drafting/edit_paths.h"

#include "drafting/drafting_commands.h"
#include "drafting/drafting_context.h"
#include "drafting/rubber_band.h"

namespace tess {

void toggleEditPaths(DraftingContext& context) {
  // What is on its way belongs to the other table.
  eraseDragBand(context);
  context.command.draggedEnd.reset();
  context.command.EditPaths = !context.command.EditPaths;
  context.tools.setChecked(kEditPathsCommand.info.tool, context.command.EditPaths);
}

// ---- Descriptors

constexpr DraftingCommand kEditPathsCommand{
    .info = {.tool = "miEditSegsOrPaths",
             .caption = "Edit Tool Pat&hs",
             .menu = {"miEdit", 130},
             .bar = {"barEdit", 270}},
    .run = toggleEditPaths,
};

}  // namespace tess
