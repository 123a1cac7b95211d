// A drawing as a record that grows while it is worked on: the whole of it once, then the edits as
// they come. However the record breaks off, it gives the drawing as it was after its last entry
// that is whole.
// Owns: appendRecordHead, appendRecordEntry, appendWholeDrawing, appendEdits, appendSettings,
//       RecordedDrawing, readRecord.
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "core/open_drawing.h"
#include "drafting/row_edit.h"

namespace tess {

struct DrawingStore;

// What a record begins with.
void appendRecordHead(std::string& out);

// An entry of this content, which the routines below make.
void appendRecordEntry(std::string& out, std::string_view content);

// One entry: everything of the drawing that a session would miss. Rows, attributes and codes as
// they stand, its settings, the names of the path groups, the marker, and its files as `opened`
// knows them.
void appendWholeDrawing(std::string& out, const DrawingStore& store, const OpenDrawing& opened);

// One entry: the edits of a change, and what goes along with rows in the store (the path groups,
// whether paths are shown, the marker, whether the drawing is saved).
void appendEdits(std::string& out, const DrawingStore& store,
                 std::span<const RowEdit<SegmentRow>> segments,
                 std::span<const RowEdit<PathRow>> paths);

// One entry: all settings of the drawing.
void appendSettings(std::string& out, const DrawingStore& store);

struct RecordedDrawing {
  bool known = false;     // false when not even the first entry is whole
  int changes = 0;        // entries behind the last whole drawing
  bool cutShort = false;  // the last entry was still being written, or is damaged
  OpenDrawing opened;     // its files, without stamps: they may be others by now
};

// Puts the drawing of a record into `store`, whose other content stays. Takes any bytes.
RecordedDrawing readRecord(std::string_view record, DrawingStore& store);

}  // namespace tess
