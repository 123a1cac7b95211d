// What an import would bring, without a drawing that it goes to: the rows, their box, the outlines
// that do not close, and the kinds that are left out.
// Owns: OpenEnd, openOutlines, ImportPreview, previewImport, FileUnits, fileUnits, sizeText.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "core/drawing_rows.h"
#include "display/drawing_extents.h"
#include "import/dxf_import.h"

namespace tess {

struct DrawingStore;

struct OpenEnd {
  float x = 0, y = 0;
};

// One end of each outline of rows that does not close, in the order of the rows. Ends within
// `tolerence` of each other in both axes are one point.
std::vector<OpenEnd> openOutlines(const std::vector<SegmentRow>& rows, float tolerence);

struct ImportPreview {
  std::vector<SegmentRow> rows;
  std::optional<DrawingExtents> box;  // none for rows without width and height
  std::vector<OpenEnd> openOutlines;
  std::vector<std::string> unconverted;  // entity types, as DxfRows tells them
  int lost = 0;                          // rows that the drawing has no room for, or cannot hold
};

// Asks nobody and changes nothing.
ImportPreview previewImport(const DxfDocument& document, const DrawingStore& store,
                            const DxfImportOptions& options);

// The units that a file names by its $INSUNITS.
struct FileUnits {
  const char* one;   // "millimetre"
  const char* many;  // "millimetres"
  bool metric;
};
// Nothing for a file that names none, or one that no workshop uses.
std::optional<FileUnits> fileUnits(int insunits);

// "4.0000 x 3.0000 in = 101.600 x 76.200 mm" of a box in the drawing's units.
std::string sizeText(const DrawingExtents& box, bool metric);

}  // namespace tess
