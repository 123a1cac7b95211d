// The small panel with the counts of rows and the zoom.
// Owns: frmStatistics.
#pragma once

#include <map>
#include <string>

#include "core/controls.h"
#include "core/form.h"

namespace tess {

class frmStatistics : public Form {
 public:
  frmStatistics();

  void show(int segments, int paths, const std::string& zoom);

  Frame fraStats{*this, "fraStats"};
  Label lblEntities{*this, "lblEntities", fraStats};
  Label lblToolPaths{*this, "lblToolPaths", fraStats};
  Label lblZoomLevel{*this, "lblZoomLevel", fraStats};
};

}  // namespace tess
