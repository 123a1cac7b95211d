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

void UpdateGridButtons(Desk& desk) {
  desk.tools.setChecked(kVisualGridCommand.info.tool, desk.store.visualgridf != 0);
  desk.tools.setChecked(kCursorGridCommand.info.tool, desk.store.cursorgridf != 0);
  desk.tools.setChecked(kObjectSnapCommand.info.tool, desk.state.OSnapOn);
}

void Vgrid_ButtonClick(Desk& desk) {
  desk.store.visualgridf = 1 - desk.store.visualgridf;
  UpdateGridButtons(desk);
  desk.redraw.redrawscreen();
}

void Cgrid_ButtonClick(Desk& desk) {
  desk.store.cursorgridf = 1 - desk.store.cursorgridf;
  UpdateGridButtons(desk);
}

// Fixed: the key turns each grid over by itself; one on and one off change places.
void flipGrids(Desk& desk) {
  desk.store.visualgridf = 1 - desk.store.visualgridf;
  desk.store.cursorgridf = 1 - desk.store.cursorgridf;
  UpdateGridButtons(desk);
  desk.redraw.redrawscreen();
}

void mnuOptionsGridSelection_Click(Desk& desk) {
  const Procedure here("frmMain.mnuOptionsGridSelection_Click()");
  dlgSetGrids dialog(desk);
  desk.session.host.prompts.showModal(dialog);
}

// ---- Descriptors

constexpr DeskCommand kGridSetupCommand{
    .info = {.tool = "miGrid/SnapSelections",
             .caption = "Grid / S&nap Selections...",
             .menu = {"miOptions", 130}},
    .run = mnuOptionsGridSelection_Click,
};

constexpr DeskCommand kVisualGridCommand{
    .info = {.tool = "VGrid", .caption = "Visual Grid", .sharedKey = "G", .bar = {"Options", 120}},
    .run = Vgrid_ButtonClick,
};

constexpr DeskCommand kCursorGridCommand{
    .info = {.tool = "CGrid", .caption = "Cursor Grid", .sharedKey = "G", .bar = {"Options", 130}},
    .run = Cgrid_ButtonClick,
};

}  // namespace tess
