// Hiding path rows from the screen.
#include "toolpath/path_visibility.h"

#include "core/drawing_store.h"
#include "toolpath/toolpath_commands.h"

namespace tess {
namespace {

bool anySelected(const DrawingStore& store) {
  for (int ps = 1; ps <= store.NumPathSegments; ++ps) {
    if (isSelected(store.pscode[ps])) return true;
  }
  return false;
}

void setVisibility(CamContext& cam, bool visible) {
  const DrawingStore& store = cam.store;
  const bool selectedAlone = anySelected(store);
  Change change(cam.changes);
  for (int ps = 1; ps <= store.NumPathSegments; ++ps) {
    if (!selectedAlone || isSelected(store.pscode[ps])) change.paths.show(ps, visible);
  }
  change.keep();
  cam.context.redraw.redrawscreen();
}

}  // namespace

void miVisible_Click(CamContext& cam) {
  setVisibility(cam, /*visible=*/true);
}

void miInvisible_Click(CamContext& cam) {
  setVisibility(cam, /*visible=*/false);
}

// ---- Descriptors

constexpr CamCommand kShowPathsCommand{
    .info = {.tool = "miVisible", .caption = "Ma&ke Paths Visible", .menu = {"miCAM", 330}},
    .run = miVisible_Click,
};

constexpr CamCommand kHidePathsCommand{
    .info = {.tool = "miInvisible", .caption = "Make Paths I&nvisible", .menu = {"miCAM", 340}},
    .run = miInvisible_Click,
};

}  // namespace tess
