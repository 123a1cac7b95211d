// What editing works on.
#include "drafting/edit_paths.h"

#include "drafting/desk.h"
#include "drafting/drafting_commands.h"
#include "drafting/rubber_band.h"

namespace tess {

void toggleEditPaths(Desk& desk) {
  // What is on its way belongs to the other table.
  eraseDragBand(desk);
  desk.command.draggedEnd.reset();
  desk.command.EditPaths = !desk.command.EditPaths;
  desk.tools.setChecked(kEditPathsCommand.info.tool, desk.command.EditPaths);
}

// ---- Descriptors

constexpr DeskCommand kEditPathsCommand{
    .info = {.tool = "miEditSegsOrPaths",
             .caption = "Edit &Tool Paths",
             .menu = {"miEdit", 130},
             .bar = {"barEdit", 270}},
    .run = toggleEditPaths,
};

}  // namespace tess
