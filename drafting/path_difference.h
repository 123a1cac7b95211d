// What has become of a list of path rows, as records: whatever a long command did to come by its
// rows, one step of the log leads from those before it to those after it, and back.
// Owns: pathDifference.
#pragma once

#include <vector>

#include "drafting/change_log.h"

namespace tess {

// Records from front to back, each with the place that its row has at that moment.
std::vector<clsSegment> pathDifference(const std::vector<PathRow>& before,
                                       const std::vector<PathRow>& after);

}  // namespace tess
