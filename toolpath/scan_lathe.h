// Scan-line roughing for turning.
// Owns: scanPocketLathe, LatheLeave, cutLatheSpans.
#pragma once

#include "toolpath/scan_run.h"

namespace tess {

// As the styles of scan_lines.h, with lines from the top down at depth 0 and retreats between them
// as rows at kLatheRapidZ.
Clearing scanPocketLathe(CamContext& cam, float feed);

// Cuts spans that were found already. In the end the tool is lifted to the height of its first
// retreat, or to that of the stock.
enum class LatheLeave { ToFirstRetreat, ToStock };
void cutLatheSpans(CamContext& cam, ScanRun run, float feed, LatheLeave leave);

}  // namespace tess
