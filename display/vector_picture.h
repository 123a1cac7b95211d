// The drawing as lines and arcs in its own units, for paper and for files that know no pixels: what
// the screen shows, without its grid, its marker and its pixels.
// Owns: Stroke, strokeBox, VectorPicture, vectorPicture, millimetresPerUnit, inkOnPaper.
#pragma once

#include <vector>

#include "core/host.h"
#include "display/drawing_target.h"
#include "geometry/box_index.h"

namespace tess {

struct DrawingStore;

struct Stroke {
  enum class Kind { Line, Arc, FilledBox };
  Kind kind = Kind::Line;
  WorldBox ends;  // of a line, or opposite corners of a box
  WorldArc arc;
  Rgb color = 0;
};

// The exact box of a stroke.
Box strokeBox(const Stroke& stroke);

struct VectorPicture {
  std::vector<Stroke> strokes;  // in the order in which the screen paints them
  std::vector<Box> boxes;       // one for each
  Box bounds;                   // of all; empty for an empty drawing
};

// All drawing rows, and the visible path rows if tool paths are shown. Arrowheads and other marks
// of pixels get `pixel` drawing units for one. Rows that no renderer knows give its messages.
VectorPicture vectorPicture(const DrawingStore& store, float pixel, Prompts& prompts);

double millimetresPerUnit(const DrawingStore& store);

// A colour of the screen as it is on white paper: one too light to be seen is darkened, and a
// light grey is black.
Rgb inkOnPaper(Rgb color);

}  // namespace tess
