// Edits of a drawing that lies on no context: each is a change of its own, and its log is
// forgotten.
// Owns: editing, LooseChange, deleteSegment, deletePathSegment, insertPathSegment,
//       insertPathSegments.
#pragma once

#include <span>

#include "drafting/row_edits.h"

namespace tess::testing {

// What `run` returns when it is given the changes of this drawing.
template <class Run>
auto editing(DrawingStore& store, Run run) {
  ChangeLog log;
  Changes changes(store, log);
  return run(changes);
}

// A change that is kept when it goes.
struct LooseChange {
  explicit LooseChange(DrawingStore& store) : changes(store, log), change(changes) {}
  ~LooseChange() { change.keep(); }
  LooseChange(const LooseChange&) = delete;
  LooseChange& operator=(const LooseChange&) = delete;

  ChangeLog log;
  Changes changes;
  Change change;
};

inline void deleteSegment(DrawingStore& store, int sg) {
  editing(store, [&](Changes& changes) { tess::deleteSegment(changes, sg); });
}
inline void deletePathSegment(DrawingStore& store, int ps) {
  editing(store, [&](Changes& changes) { tess::deletePathSegment(changes, ps); });
}
inline void insertPathSegment(DrawingStore& store, int index, const PathRow& row, int tool) {
  editing(store, [&](Changes& changes) { tess::insertPathSegment(changes, index, row, tool); });
}
inline void insertPathSegments(DrawingStore& store, std::span<const PathInsertion> insertions,
                               int tool) {
  editing(store, [&](Changes& changes) { tess::insertPathSegments(changes, insertions, tool); });
}

}  // namespace tess::testing
