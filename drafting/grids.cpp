// The cursor grid and the visual grid.
#include "drafting/grids.h"

#include <cmath>

#include "core/drawing_store.h"
#include "drafting/dlgSetGrids.h"
#include "drafting/drafting_commands.h"

namespace tess {

float snapToGrid(float value, float spacing) {
  if (spacing == 0) return value;
  return narrow(std::floor(static_cast<double>(value) / spacing + 0.5) * spacing);
}

Point snappedToGrid(const DrawingStore& store, Point at) {
  if (store.cursorgridf == 0) return at;
  return {snapToGrid(at.x, store.cursorgrid), snapToGrid(at.y, store.cursorgrid)};
}

Point onGrid(const DraftingContext& context, Point at) {
  return context.pointer.exact ? at : snappedToGrid(context.store, at);
}

void UpdateGridButtons(DraftingContext& context) {
  context.tools.setChecked(kVisualGridCommand.info.tool, context.store.visualgridf != 0);
  context.tools.setChecked(kCursorGridCommand.info.tool, context.store.cursorgridf != 0);
  context.tools.setChecked(kObjectSnapCommand.info.tool, context.state.OSnapOn);
}

void Vgrid_ButtonClick(DraftingContext& context) {
  context.store.visualgridf = 1 - context.store.visualgridf;
  UpdateGridButtons(context);
  context.redraw.redrawscreen();
}

void Cgrid_ButtonClick(DraftingContext& context) {
  context.store.cursorgridf = 1 - context.store.cursorgridf;
  UpdateGridButtons(context);
}

// Fixed: the key turns each grid over by itself; one on and one off change places.
void flipGrids(DraftingContext& context) {
  context.store.visualgridf = 1 - context.store.visualgridf;
  context.store.cursorgridf = 1 - context.store.cursorgridf;
  UpdateGridButtons(context);
  context.redraw.redrawscreen();
}

void mnuOptionsGridSelection_Click(DraftingContext& context) {
  const Procedure here("frmMain.mnuOptionsGridSelection_Click()");
  dlgSetGrids dialog(context);
  context.session.host.prompts.showModal(dialog);
}

// ---- Descriptors

constexpr DraftingCommand kGridSetupCommand{
    .info = {.tool = "miGrid/SnapSelections",
             .caption = "Grid / S&nap Selections...",
             .menu = {"miOptions", 130}},
    .run = mnuOptionsGridSelection_Click,
};

constexpr DraftingCommand kVisualGridCommand{
    .info = {.tool = "VGrid", .caption = "Visual Grid", .sharedKey = "G", .bar = {"Options", 120}},
    .run = Vgrid_ButtonClick,
};

constexpr DraftingCommand kCursorGridCommand{
    .info = {.tool = "CGrid", .caption = "Cursor Grid", .sharedKey = "G", .bar = {"Options", 130}},
    .run = Cgrid_ButtonClick,
};

}  // namespace tess
