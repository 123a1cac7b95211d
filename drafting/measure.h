// Measure Distance: a dragged line whose ends and length the status line reports.
// Owns: miMeasureDist_Click, pressMeasure, moveMeasure, releaseMeasure.
#pragma once

#include "drafting/drafting_context.h"

namespace tess {

void miMeasureDist_Click(DraftingContext& context);

// The three events of the drag, with the pointer's position where it counts.
void pressMeasure(DraftingContext& context, Point at);
void moveMeasure(DraftingContext& context, Point at);
void releaseMeasure(DraftingContext& context);

}  // namespace tess
