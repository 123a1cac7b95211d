// Roughing by parallel lines between the loops of an offset, and round each loop once.
// Owns: ClearSpan, LineScan, lineCount, scanRegion, LineRules, cutLines.
#pragma once

#include <vector>

#include "core/pocketing_choices.h"
#include "toolpath/region_offset.h"
#include "toolpath/scan_points.h"
#include "toolpath/true_links.h"

namespace tess {

// The part of a line that lies in a room.
struct ClearSpan {
  double line = 0;
  double from = 0, to = 0;
};

// The lines, each with the spans of it in rising order.
struct LineScan {
  double bound = 0;  // what the first line lies half a step inside of
  std::vector<std::vector<ClearSpan>> lines;
};

// How many lines there will be; more than a table holds rows is too many.
double lineCount(const PocketRegion& offset, ScanStyle style, double step);

// Lines `step` apart over all of an offset, or over a room of it.
LineScan scanRegion(const PocketRegion& offset, ScanStyle style, double step,
                    const Breathing& breathing = {});

struct LineRules {
  ScanStyle style = ScanStyle::Horizontal;
  CuttingMode mode = CuttingMode::Conventional;
  double step = 0;
  bool contours = true;  // lines alone leave up to half a step at walls that run along them
};

// Cuts all rooms of the offset one after the other.
void cutLines(const PocketRegion& offset, const LineRules& rules, RoomWay& way,
              const Breathing& breathing = {});

}  // namespace tess
