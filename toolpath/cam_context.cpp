// The context of the tool-path commands.
#include "toolpath/cam_context.h"

#include "core/drawing_store.h"
#include "toolpath/toolpath_commands.h"

namespace tess {

CamContext::CamContext(DraftingContext& drafting)
    : context(drafting), store(drafting.store), changes(drafting.changes) {
  for (const CamCommand* const command : toolpathCommands()) context.addCommand(*this, *command);
}

void showPlacedPaths(CamContext& cam) {
  cam.store.showpaths = 1;
  cam.context.session.listener.Update_menu_checks();
  cam.context.redraw.redrawscreen();
}

}  // namespace tess
