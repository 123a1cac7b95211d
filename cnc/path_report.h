// What the path rows of a drawing amount to: rows, length of cut, time at the programmed feeds, and
// the time that a machine takes for the program made of them.
// Owns: machineLimits, motionModeOf, withAllCycles, ToolShare, PathReport, reportPaths, summaryOf.
#pragma once

#include <string>
#include <vector>

#include "cnc/motion_rules.h"
#include "cnc/motion_time.h"
#include "cnc/program_motions.h"

namespace tess {

struct DrawingStore;

// What the setup says of the machine, and what machines of its size do where it says nothing.
MachineLimits machineLimits(const DrawingStore& store);

// Drawings do not tell for which machine they are; rows that are marked as rapids of a lathe do.
CncMode motionModeOf(const DrawingStore& store);

// The rules under which all cycles come as cycles, whatever the program makes of them.
MotionRules withAllCycles(MotionRules rules);

struct ToolShare {
  int tool = 0;        // index from 0
  int rows = 0;        // of the tool, rapids among them
  double length = 0;   // of the rows' feed moves, in drawing units; a cycle counts with its depth
  double minutes = 0;  // for these, at the feed of each row
  // For all moves of the program while this tool is in: plunges, rapids at the "rapid rate" and the
  // moves of cycles among them.
  double programMinutes = 0;
  // The same with "acceleration" and "junction deviation"; without an acceleration no more.
  double machineMinutes = 0;
};

struct PathReport {
  int rows = 0;
  double length = 0, minutes = 0;
  double programMinutes = 0, machineMinutes = 0;
  std::vector<ToolShare> tools;  // in the order of their first rows
};

// The times of the program are those under the rules of the definition in force, of a lathe when a
// row is marked as a rapid of its kind, else of a mill. Tool changes take time too, which nobody
// knows here. Rows without a feed take none. Raises what tellMotions raises.
PathReport reportPaths(const DrawingStore& store, const MotionRules& rules = {});

// Rows, length of cut and time of the machine for the operator, as in "12 path rows, 93.4 in, about
// 4.2 min".
std::string summaryOf(const DrawingStore& store, const PathReport& report);

}  // namespace tess
