// Reads an RS-274-D program as a control does: words are modal, positions are where the last motion
// ended. Nothing here is shared with the routines that write programs.
// Owns: GcodeDialect, GcodeMotion, GcodeProgram, GcodeError, readProgram, programLines,
//       centerByRadius, readCuts, placedCuts, ReadingTolerance, firstDifference.
#pragma once

#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "core/drawing_rows.h"
#include "tests/support/curves.h"

namespace tess::testing {

struct GcodeDialect {
  bool grbl = false;   // that of GRBL 1.1 alone, with all that it refuses; see grbl_reader.h
  bool lathe = false;  // X words are path y, Z words path x
  // Where tools of a lathe pass the bar: from there they feed straight to a row, which is none, and
  // what leads away from the axis is a cut.
  std::optional<double> latheHeight{};
  bool absoluteCenters = false;
  std::string letters = "XYZIJK";  // of the words X, Y, Z, I, J and K
  std::string comment = ";";       // begins a comment, up to the line's end
};

// One motion or cycle, in path axes.
struct GcodeMotion {
  int line = 0;  // of the program, from 1
  int g = 0;     // 0 to 3, 4 for a dwell, or the cycle's number
  Vec from, to;
  double fromZ = 0, toZ = 0;        // of a mill
  Vec center;                       // of an arc
  double feed = 0;                  // in units per minute
  double increment = 0, dwell = 0;  // of a cycle
  int tool = 0;                     // from 1
  double spindle = 0;
};

struct GcodeProgram {
  std::string units;  // "I" or "M"
  std::vector<GcodeMotion> motions;
  double arcMismatch = 0;  // the most by which an arc's end lies off the circle of its start
};

// What a control would stop at. The text names the line.
class GcodeError : public std::runtime_error {
  using std::runtime_error::runtime_error;
};

// Raises GcodeError for what is no word, a word that means nothing here, a motion before the units
// or the absolute mode are set, and an arc without a centre.
GcodeProgram readProgram(const std::string& text, const GcodeDialect& dialect = {});

// Without their ends.
std::vector<std::string_view> programLines(std::string_view text);

// The centre of an arc by its ends and its radius, below 0 the long way round. The ends differ.
Vec centerByRadius(const GcodeMotion& arc, double radius);

// The path rows that the program stands for, with their tool as the code: feed moves along the
// path and cycles. Rapids and moves along Z alone are the way from row to row.
std::vector<PathRow> readCuts(const GcodeProgram& program, const GcodeDialect& dialect = {});

// The rows of a drawing that its program must bring back: no rapids, no rows shorter than the
// program can tell, of cycles only the numbers that are written.
std::vector<PathRow> placedCuts(const DrawingStore& store, double resolution,
                                const GcodeDialect& dialect = {});

// The first row in which the two differ by more than the resolution, as a text; empty when there is
// none. An arc that was written by its radius has its centre where it can: as exactly as both ends
// and the radius tell.
struct ReadingTolerance {
  double resolution = 0.6e-5;  // half of the last decimal, and what 32-bit numbers add
  double joints = 0;           // how far a row may begin from where the row before ended
  bool radiusWords = false;
};
std::string firstDifference(const std::vector<PathRow>& placed, const std::vector<PathRow>& read,
                            const ReadingTolerance& tolerance);

}  // namespace tess::testing
