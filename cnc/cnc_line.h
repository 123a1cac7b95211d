// One motion line of a program: which words it gets, and how they look.
// Owns: MotionLine, LastMove, LineFormat, FormCncLine.
#pragma once

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
};

// The words written last. It outlives a program: a second one starts with the X, Y and Z of the
// first and only F forgotten.
struct LastMove {
  float x = 0, y = 0, z = 0, f = 0;
};

// What all lines of one program share.
struct LineFormat {
  // With the formats and settings now in force; `definition` must outlive it.
  LineFormat(const Session& session, const PostDefinition& postDefinition);

  const PostDefinition& definition;
  NumberPattern coordinates;  // cncfmt
  bool useRParam;             // "use r-param for arcs"
};

// Appends the line, with its line end, to the program `out`, or nothing when it would move nothing.
// Raises Invalid procedure call for a word that is no number.
void FormCncLine(std::string& out, const LineFormat& format, LastMove& lastmove, MotionLine& line);

}  // namespace tess
