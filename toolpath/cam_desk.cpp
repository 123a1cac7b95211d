// The desk of the tool-path commands.
#include "toolpath/cam_desk.h"

#include "core/drawing_store.h"
#include "toolpath/toolpath_commands.h"

namespace tess {

CamDesk::CamDesk(Desk& drafting)
    : desk(drafting), store(drafting.store), changes(drafting.changes) {
  for (const CamCommand* const command : toolpathCommands()) desk.addCommand(*this, *command);
}

void showPlacedPaths(CamDesk& cam) {
  cam.store.showpaths = 1;
  cam.desk.session.listener.Update_menu_checks();
  cam.desk.redraw.redrawscreen();
}

}  // namespace tess
