// The desk of the tool-path commands.
#include "toolpath/cam_desk.h"

#include "toolpath/cycles.h"
#include "toolpath/finish_path.h"
#include "toolpath/gouge_avoidance.h"
#include "toolpath/parallel_spiral.h"
#include "toolpath/path_placement.h"

namespace tess {

CamDesk::CamDesk(Desk& drafting)
    : desk(drafting), store(drafting.store), changes(drafting.changes) {
  addFinishPathClicks(*this);
  addPlacementClicks(*this);
  addGougeClicks(*this);
  addCycleClicks(*this);
  addSpiralClicks(*this);
}

void showPlacedPaths(CamDesk& cam) {
  cam.store.showpaths = 1;
  cam.desk.session.listener.Update_menu_checks();
  cam.desk.redraw.redrawscreen();
}

}  // namespace tess
