// What the path rows of a drawing amount to: rows, length of cut and time at the programmed feeds.
// Owns: ToolShare, PathReport, reportPaths.
#pragma once

#include <vector>

namespace tess {

struct DrawingStore;

struct ToolShare {
  int tool = 0;        // index from 0
  int rows = 0;        // of the tool, rapids among them
  double length = 0;   // of the rows' feed moves, in drawing units; a cycle counts with its depth
  double minutes = 0;  // for these, at the feed of each row
};

struct PathReport {
  int rows = 0;
  double length = 0, minutes = 0;
  std::vector<ToolShare> tools;  // in the order of their first rows
};

// Rapids, tool changes, plunges and the speeding up of the machine take time too, which nobody
// knows here: the minutes are the least that the job can take. Rows without a feed take none.
// Raises what tellMotions raises.
PathReport reportPaths(const DrawingStore& store);

}  // namespace tess
