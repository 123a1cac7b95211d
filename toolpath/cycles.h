// Machine cycles: a template of the setup placed as one path row at a point.
// Owns: cycleNumber, kFirstShownCycle, cycleHasIncrement, cycleHasDwell, placeCyclesAt,
//       placeCyclesAtSelectedCircles, mnuCAMAddMachCycle_Click, CAMAddMachCycleDeferred.
#pragma once

#include <span>
#include <string>

#include "toolpath/cam_context.h"

namespace tess {

// The G number of a template: what characters 2 and 3 of its text read as; 0 for no digits there.
int cycleNumber(const std::string& cycletext);

// The types of rows that the forms show as cycles. The path itself knows them from 21 on.
inline constexpr int kFirstShownCycle = 79;

// Whether the cycle of that G number has a use for an increment of depth, or for a dwell.
bool cycleHasIncrement(int number);
bool cycleHasDwell(int number);

// One row of template `cycle` (from 0) at each point, in one new group and as one step of the log.
// Without a point there is no group either.
void placeCyclesAt(CamContext& cam, int cycle, std::span<const Point> points);

// The same at the centre of every selected circle or full arc, in index order.
void placeCyclesAtSelectedCircles(CamContext& cam, int cycle);

// Asks for a template, then places it at the marker at once, or arms the click that places it.
void mnuCAMAddMachCycle_Click(CamContext& cam);
void CAMAddMachCycleDeferred(CamContext& cam);

}  // namespace tess
