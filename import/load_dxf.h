// The plain reader of DXF text: it replaces the drawing by the lines, arcs, circles and polylines
// of an old-style file. It knows the groups of the first versions only, reads no blocks and asks
// nothing; the import form serves everything else.
// Owns: load_dxf, readPlainDxf.
#pragma once

#include <string>

#include "core/field_reader.h"
#include "drafting/drafting_context.h"

namespace tess {

// A new drawing with what the file holds, in the full view. Raises the file failures, with path,
// line and field; the rows before the trouble are in the drawing then.
void load_dxf(DraftingContext& context, const std::string& path);

// Appends what the text holds, unlogged. Raises Input past end of file for a text that does not
// reach its end of section.
void readPlainDxf(Change& change, FieldReader& fields);

}  // namespace tess
