// The drawing store: every table and variable that one drawing consists of, as plain parallel
// columns that all rooms read and write by index.
// Owns: DrawingStore, resizeCycles, visitSegmentColumns, visitPathColumns, isMetric, isConsistent.
#pragma once

#include <array>
#include <string>

#include "core/column.h"
#include "core/conventions.h"
#include "core/drawing_rows.h"
#include "core/drawing_settings.h"
#include "core/int16.h"

namespace tess {

// One drawing. The live settings are members by inheritance: store.cfg_final_depth.
// Row tables count from 1; tools and cycles from 0.
struct DrawingStore : DrawingSettings {
  DrawingStore();
  DrawingStore(const DrawingStore& other);
  DrawingStore& operator=(const DrawingStore& other);
  ~DrawingStore();

  // Drawing segments.
  Int16 NumSegments;
  Column<int> segtype;
  Column<Int16> segattr;
  Column<float> x0, y0, x1, y1;
  Column<float> centerx, centery;

  // Path segments.
  Int16 NumPathSegments;
  Column<Int16> pstype;
  Column<Int16> pscode;
  Column<float> psx0, psy0, psx1, psy1;
  Column<float> psxc, psyc;  // arc centre; increment depth and dwell of a machine cycle
  Column<float> psz;
  Column<float> psfeed;
  Column<Flag> psvisible;

  Column<std::string> pathgroupname;
  Int16 currentpathgroup;
  Int16 lastplacedgroup;

  // The tool chest; a row with a blank name is free.
  Column<std::string> toolname{kLastTool};
  Column<float> toolradius{kLastTool};
  Column<int> toolcolor{kLastTool};
  Column<std::string> toolmaterial{kLastTool};
  Column<Int16> toolmilltype{kLastTool};
  Column<Int16> toolflutes{kLastTool};
  Column<std::string> toolfeedrate{kLastTool};
  Column<float> toolspindlespeed{kLastTool};
  Column<float> toolrecspindle{kLastTool};
  Column<float> toolcuttingspeed{kLastTool};
  Column<Int16> toolinside{kLastTool};  // 1: of a lathe, it works from the axis outward

  // Machine-cycle templates, rows 0 to NumCycles - 1.
  Int16 NumCycles;
  Column<std::string> cycletext;
  Column<float> cyclefinaldepth;
  Column<float> cycleincrdepth;
  Column<float> cycledwell;
  Column<float> cyclefeedrate;

  Column<Int16> colortable{kLastColorSlot};   // as the setup file has it, slots 1 to 7
  Column<Int16> colorsinuse{kLastColorSlot};  // what the screen shows

  DrawingSettings defaults;  // what the next new drawing starts with
  std::string creationdate;
  float unitfactor = 1;  // 25.4, 1/25.4 or 1: the last change of units

  // Session state; no file holds it.
  float markerx = 0, markery = 0;
  Int16 showpaths;
  Flag drawingsaved;
  Flag setupchanged;
  std::string drawingname;  // with its extension; empty for an untitled drawing
  std::string drawingpath;  // folder with its last separator
  Int16 savedsegments;      // NumSegments at the last save
  Int16 savedpaths;         // NumPathSegments at the last save
  bool segmentTablesSized = false;
};

// Re-sizes the five columns of the cycle templates to exactly `count` rows, keeping contents.
void resizeCycles(DrawingStore& store, int count);

// Call `visit` with each column of a table: the one place that knows which they are.
template <typename Store, typename Visit>
void visitSegmentColumns(Store& store, Visit visit) {
  visit(store.x0), visit(store.y0), visit(store.x1), visit(store.y1);
  visit(store.centerx), visit(store.centery);
  visit(store.segtype), visit(store.segattr);
}
template <typename Store, typename Visit>
void visitPathColumns(Store& store, Visit visit) {
  visit(store.psx0), visit(store.psy0), visit(store.psx1), visit(store.psy1);
  visit(store.psxc), visit(store.psyc), visit(store.psz), visit(store.psfeed);
  visit(store.pstype), visit(store.pscode), visit(store.psvisible);
}

inline bool isMetric(const DrawingStore& store) {
  return store.units == "M";
}

// Debug aid: true when all columns of each table have one length and the counters lie within.
bool isConsistent(const DrawingStore& store);

}  // namespace tess
