// One edit of a table: rows come, rows go, or rows become others. Every change of a drawing is a
// list of such edits; done again on the tables as they were, they give the tables as they are.
// Owns: EditKind, RowNumbers, RowEdit, prepareEdit, performEdit.
#pragma once

#include <cstdint>
#include <span>

#include "core/drawing_rows.h"

namespace tess {

struct DrawingStore;

enum class EditKind : std::uint8_t { Insert, Replace, Erase };

// Ascending, each once.
using RowNumbers = std::span<const std::int16_t>;

template <class Row>
struct RowEdit {
  EditKind kind = EditKind::Insert;
  RowNumbers numbers;         // of inserted rows as they are afterwards, of erased ones as before
  std::span<const Row> rows;  // what comes, or what the rows become; empty for Erase
};

// Makes room, and raises what stands against the edit: Overflow at row 32768 and for a type, an
// attribute or a code that its column cannot hold, Subscript out of range for other numbers than
// the table has.
void prepareEdit(DrawingStore& store, const RowEdit<SegmentRow>& edit);
void prepareEdit(DrawingStore& store, const RowEdit<PathRow>& edit);

// Does an edit that was prepared, in one pass over the table; the counter follows.
void performEdit(DrawingStore& store, const RowEdit<SegmentRow>& edit);
void performEdit(DrawingStore& store, const RowEdit<PathRow>& edit);

}  // namespace tess
