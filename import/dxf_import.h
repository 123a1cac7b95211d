// Entities of a DXF file become drawing rows: lines, arcs and circles as they stand, polylines as
// the chords between their vertices. Coordinates keep the numbers of the file.
// Owns: DxfImportOptions, convertDxf, importDxf, alignRows.
#pragma once

#include <optional>

#include "import/dxf_document.h"
#include "import/dxf_rows.h"

namespace tess {

struct DrawingStore;

struct DxfImportOptions {
  bool connectPoints = false;    // a line from each POINT to the next
  bool autoAlign = false;        // the new rows' lower left comes to (0, 0)
  bool exactGeometry = false;    // arcs for bulges, curves and blocks as arcs and lines
  std::optional<bool> metric{};  // what exact lengths come in; none: the drawing's units
};

// Appends a row for each LINE, ARC and CIRCLE, for each edge of a polyline but the closing one, and
// between POINTs when they are to be connected. Any other entity type is noted.
void convertDxf(const DxfDocument& document, DxfRows& rows, bool connectPoints);

// The conversion that the options ask for: exact, or the one above.
void importDxf(const DxfDocument& document, const DrawingStore& store, DxfRows& rows,
               const DxfImportOptions& options);

// Moves rows `first` to `last` so that their box begins at (0, 0); leaves rows without a box with
// width and height where they are.
void alignRows(Change& change, const DrawingStore& store, int first, int last);

}  // namespace tess
