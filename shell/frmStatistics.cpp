// The small panel with the counts of rows and the zoom.
#include "shell/frmStatistics.h"

namespace tess {

frmStatistics::frmStatistics() : Form("frmStatistics", "Statistics") {
  show(0, 0, " 1");
}

void frmStatistics::show(int segments, int paths, const std::string& zoom) {
  lblEntities.setCaption(std::to_string(segments));
  lblToolPaths.setCaption(std::to_string(paths));
  lblZoomLevel.setCaption(zoom);
}

}  // namespace tess
