// Measure Distance: a dragged line whose ends and length the status line reports.
// Owns: miMeasureDist_Click, pressMeasure, moveMeasure, releaseMeasure.
#pragma once

#include "drafting/desk.h"

namespace tess {

void miMeasureDist_Click(Desk& desk);

// The three events of the drag, with the pointer's position where it counts.
void pressMeasure(Desk& desk, Point at);
void moveMeasure(Desk& desk, Point at);
void releaseMeasure(Desk& desk);

}  // namespace tess
