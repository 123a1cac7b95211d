// A drawing on paper at a true scale, on as many sheets as it takes.
// Owns: kMostSheets, readPrintScale, scaleText, ScaledPrint, SheetMark, Sheet, SheetPlan,
//       planSheets.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/drawing_store.h"
#include "display/page_setup.h"
#include "display/vector_picture.h"

namespace tess {

inline constexpr int kMostSheets = 400;

// The scale that "1", "0.5", "1:2" or "2:1" says: paper over part. Nothing for another text and for
// a scale that is not above 0.
std::optional<double> readPrintScale(std::string_view text);
// As "1:1", "2:1" or "1:2.5".
std::string scaleText(double scale);

struct ScaledPrint {
  double scale = 1;     // paper over part
  double overlap = 10;  // millimetres that neighbouring sheets share
  PageSetup page;
};

// Where two sheets meet: the same place of the drawing on both.
struct SheetMark {
  double x, y;  // of the drawing's paper, see SheetPlan
};

struct Sheet {
  int column, row;      // from 1, from the left and from the top
  double left, bottom;  // of its window on the drawing's paper
  std::vector<SheetMark> marks;
};

// The drawing's paper is the drawing in millimetres at its scale, the axes as in the drawing.
// A sheet shows a window of it above a foot that holds scale, ruler and caption.
struct SheetPlan {
  double millimetres = 1;        // of paper for a drawing unit
  PageSides sides{};             // of a sheet
  double margin = 0;             // at all its sides
  double width = 0, height = 0;  // of a window
  double foot = 0;               // height of the strip below it
  double ruler = 0;              // length of the ruler in millimetres of paper
  std::string rulerText;         // what it is to measure
  int columns = 0, rows = 0;
  std::vector<Sheet> sheets;  // row by row from the top
};

// Whichever way the paper lies that needs fewer sheets. An empty drawing takes one. More than
// kMostSheets, a page without room or an overlap that leaves nothing raise Invalid procedure call,
// with a description that says so.
SheetPlan planSheets(const DrawingStore& store, const Box& bounds, const ScaledPrint& print);

}  // namespace tess
