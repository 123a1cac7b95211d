// The desk of the tool-path commands.
#include "toolpath/cam_desk.h"

#include "drafting/undo.h"
#include "toolpath/toolpath_commands.h"

namespace tess {

CamDesk::CamDesk(Desk& drafting)
    : desk(drafting), store(drafting.store), changelog(drafting.changelog) {
  for (const CamCommand* const command : toolpathCommands()) desk.addCommand(*this, *command);
}

void showPlacedPaths(CamDesk& cam) {
  cam.store.showpaths = 1;
  cam.desk.session.listener.Update_menu_checks();
  cam.desk.redraw.redrawscreen();
  if (cam.changelog.canUndo()) enableUndo(cam.desk, kRowsAdded);
}

}  // namespace tess
