// How a control wants its programs written, beyond the words that every definition sets: the lines
// and number patterns that differ from control to control, and the moves that bring the tool home
// safely. All of it is data of the post-processor definition; what a definition leaves out stands
// at its default, under which programs are written as they always were.
// Owns: CycleStyle, FullCircle, LineNumbers, Dialect, motionRules.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "cnc/cycle_numbers.h"
#include "cnc/motion_rules.h"

namespace tess {

// How machine cycles are written.
enum class CycleStyle {
  Native,  // the depth without a sign, and only the words that change
  Iso,     // with return and safe plane, every word every time, cancelled after each run
  Expand,  // as the moves that they are made of
};

// How an arc is written that ends where it starts.
enum class FullCircle {
  Bare,    // by its centre alone
  Words,   // with X and Y words
  Halves,  // as two arcs
};

struct LineNumbers {
  int start = 0;
  int step = 0;  // 0: lines have no numbers
  friend bool operator==(const LineNumbers&, const LineNumbers&) = default;
};

// Texts hold the placeholders of placeholder_text.h. An empty letter or pattern is the one that is
// written by default.
struct Dialect {
  Dialect();

  std::string unitsInch, unitsMetric;    // the first line behind the heading
  std::vector<std::string> startText;    // the lines behind it
  std::vector<std::string> toolText;     // a tool change
  std::vector<std::string> spindleText;  // behind it, for a tool whose speed is above 0
  std::vector<std::string> resetText;  // the change back at the end; none: there is no such change

  // Fixed: F words are in tenths unless a definition says otherwise; the control programs divide.
  float feedScale = 10;             // times the feed is the F word
  std::string feedFormat = "####";  // a NumberPattern
  std::string speedFormat;

  bool heading = true;        // the comments that open a program
  std::string commentEnd;     // behind every comment
  std::string commentClean;   // characters that are blanks in comments
  bool commentUpper = false;  // comments in capitals

  CycleStyle cycles = CycleStyle::Native;
  std::optional<CycleNumbers> cycleKeep;  // written as cycles; the others are expanded
  bool cycleWords = false;                // every word on every cycle
  char cyclePeck = 'K';
  std::optional<char> cycleDwell;  // D of cycles and P of a dwell by itself
  float dwellScale = 1;
  std::string dwellFormat;

  FullCircle fullCircle = FullCircle::Bare;
  float rMaxSweep = 360;  // degrees; a longer arc has its centre instead of its radius
  float arcTol = 0;       // by which an arc's two radii may differ; 0: by any
  LineNumbers lineNumbers;

  bool safeChange = false;
  bool endLift = false;
  bool changePos = false;
  bool spindleDue = false;
  std::optional<float> plungeFrom;
  std::optional<float> latheClear;
  bool diameter = false;  // X words of a lathe are diameters
};

// The moves that a dialect asks for.
MotionRules motionRules(const Dialect& dialect);

}  // namespace tess
