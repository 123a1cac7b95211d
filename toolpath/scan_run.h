// One run of scan-line roughing: what the styles share, from the new path group to the spans that
// are to be cut, and the order of the spans of one line.
// Owns: Clearing, ScanSpan, ScanRun, prepareScanRun, ScanDirection, orderLine, orientSpan,
//       ScanPath.
#pragma once

#include <optional>
#include <span>
#include <vector>

#include "core/pocketing_choices.h"
#include "drafting/change.h"
#include "toolpath/cam_context.h"
#include "toolpath/scan_points.h"

namespace tess {

// What came of a clearing style.
enum class Clearing {
  Done,
  NothingToCut,  // the operator was told
};

// One cut on scan line `line`, between two places on it.
struct ScanSpan {
  float line = 0;
  float from = 0, to = 0;
};

struct ScanRun {
  ScanStyle style;
  float spacing = 0;
  Point bound;                  // the lowest point of the working rows
  std::vector<ScanSpan> spans;  // by rising line, and along each line
};

// Takes a new path group, collects the crossings and pairs them, serving events between the stages.
// Without working rows a message says so and there is no run.
std::optional<ScanRun> prepareScanRun(CamContext& cam, ScanStyle style);

// The sign of travel along the scan lines, by the cutting mode.
class ScanDirection {
 public:
  // `forward` is the way of conventional milling and the first way of bidirectional milling.
  ScanDirection(CuttingMode mode, int forward);

  // For the next line; bidirectional milling turns back unless `keepsDirection`.
  int nextLine(bool keepsDirection);

 private:
  CuttingMode mode_;
  int forward_, direction_;
};

// Brings the spans of one line, which are cut in this order, into the order of travel; spans with
// the same middle keep theirs.
void orderLine(std::span<ScanSpan> line, int direction);
// Lets a span be cut in the direction of travel.
void orientSpan(ScanSpan& span, int direction);

// Places the rows of one run in the current path group, with the selected tool, as one step.
class ScanPath {
 public:
  ScanPath(CamContext& cam, float feed);
  void place(Point from, Point to, float z);
  void keep() { change_.keep({.redraws = false}); }

 private:
  Change change_;
  float feed_;
  int code_;
};

}  // namespace tess
