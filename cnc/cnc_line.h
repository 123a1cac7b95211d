// One motion line of a program: which words it gets, and how they look.
// Owns: MotionLine, LastMove, LineFormat, FormCncLine.
#pragma once

#include <optional>
#include <string>

#include "cnc/post_definition.h"
#include "core/number_text.h"

namespace tess {

// What a line is to say. Coordinates are in the axes of the words, in drawing units; a word of 0
// is absent for i, j, k, d and r as the definition has it. FormCncLine clears g, i, j and k.
struct MotionLine {
  std::string g{};  // "G01" and the like
  float x = 0, y = 0, z = 0;
  float i = 0, j = 0, k = 0;
  float feed = 0;  // in drawing units per minute; the F word has tenths of that
  float d = 0;
  float r = 0;  // below 0: the long way round
  bool newfile = false;
  bool useY = false;  // the machine has a Y word
  bool forceXY = false;
  bool zOnly = false;
  bool resetOnly = false;  // no line: only forget the last feed
  // A machine cycle: k is its peck and d its dwell, by the letters of the dialect.
  bool cycle = false;
  bool circle = false;           // a full circle: its place goes out, though it moves nothing
  bool zeroDwell = false;        // the dwell goes out also when it is 0
  bool everyWord = false;        // X, Y, Z and F go out also when they say nothing new
  std::optional<float> plane{};  // R word of a cycle
};

// The words written last. It outlives a program: a second one starts with the X, Y and Z of the
// first and only F forgotten, unless the dialect forgets them all.
struct LastMove {
  float x = 0, y = 0, z = 0, f = 0;
  void forget();  // as if no word had been written: the next ones differ from whatever was
  void forgetZ();
};

// What all lines of one program share.
struct LineFormat {
  // With the formats and settings now in force; `definition` must outlive it.
  LineFormat(const Session& session, const PostDefinition& postDefinition);

  const PostDefinition& definition;
  NumberPattern coordinates;  // cncfmt
  NumberPattern feeds;
  NumberPattern dwells;
  bool useRParam;  // "use r-param for arcs"
};

// Appends the line, with its line end, to the program `out`, or nothing when it would move nothing.
// Raises Invalid procedure call for a word that is no number.
void FormCncLine(std::string& out, const LineFormat& format, LastMove& lastmove, MotionLine& line);

}  // namespace tess
