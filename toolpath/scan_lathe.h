// Scan-line roughing for turning.
// Owns: scanPocketLathe.
#pragma once

#include "toolpath/scan_run.h"

namespace tess {

// As the styles of scan_lines.h, with lines from the top down at depth 0 and retreats between them
// as rows at kLatheRapidZ.
Clearing scanPocketLathe(CamContext& cam, float feed);

}  // namespace tess
