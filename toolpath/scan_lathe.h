// Scan-line roughing for turning.
// Owns: scanPocketLathe, LatheLeave, LatheSide, cutLatheSpans.
#pragma once

#include "toolpath/scan_run.h"

namespace tess {

// As the styles of scan_lines.h, with lines from the top down at depth 0 and retreats between them
// as rows at kLatheRapidZ.
Clearing scanPocketLathe(CamContext& cam, float feed);

// Cuts spans that were found already. In the end the tool is lifted to the height of its first
// retreat, or to that of the stock.
enum class LatheLeave { ToFirstRetreat, ToStock };
// From which side the material is reached: from outside with the highest line first, or from the
// hole round the axis with the lowest one first, and all heights the other way round. The stock
// begins then where the hole ends, `clearance` below the bound of the run.
struct LatheSide {
  bool isInside = false;
  float clearance = 0;
};
void cutLatheSpans(CamContext& cam, ScanRun run, float feed, LatheLeave leave, LatheSide side = {});

}  // namespace tess
