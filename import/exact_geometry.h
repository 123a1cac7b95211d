// The conversion of a DXF file that keeps its shapes: bulges become arcs and closed polylines
// close, splines and ellipses become tangent arcs and lines, blocks are expanded, lengths come in
// the drawing's units, and ends that nearly meet become one.
// Owns: ExactGeometry, unitFactor, curveTolerance, convertDxfExactly.
#pragma once

#include "import/dxf_document.h"
#include "import/dxf_rows.h"

namespace tess {

struct ExactGeometry {
  bool connectPoints = false;  // a line from each POINT to the next
  bool metric = false;         // the drawing is in millimetres
  // The rows are going to be moved to (0, 0): what lies far away in the file comes near before it
  // loses its decimals to the 32 bits of the tables.
  bool nearOrigin = false;
  float tolerence = 0;  // of the drawing, in its units
};

// Drawing units in one unit of the file, by its $INSUNITS; 1 for a file that names none, or one
// that no workshop uses.
double unitFactor(int insunits, bool metric);

// How far rows may be from the curve that they stand for: the drawing's tolerance, but at most
// 0.001 inch or 0.025 mm.
double curveTolerance(const ExactGeometry& options);

// Adds rows for all that can be converted and notes the rest. A block that contains itself, and one
// that the file lacks, is noted with the INSERT and its name.
void convertDxfExactly(const DxfDocument& document, DxfRows& rows, const ExactGeometry& options);

}  // namespace tess
