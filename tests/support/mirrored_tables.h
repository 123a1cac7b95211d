// A second drawing that follows the first one by what its changes tell, as a journal would.
// Owns: sameTables, MirroredTables.
#pragma once

#include "core/drawing_store.h"
#include "drafting/change.h"

namespace tess::testing {

// Row by row, with what is selected and shown.
inline bool sameTables(const DrawingStore& a, const DrawingStore& b) {
  if (a.NumSegments != b.NumSegments || a.NumPathSegments != b.NumPathSegments) return false;
  for (int sg = 1; sg <= a.NumSegments; ++sg) {
    if (segmentRow(a, sg) != segmentRow(b, sg)) return false;
  }
  for (int ps = 1; ps <= a.NumPathSegments; ++ps) {
    if (pathRow(a, ps) != pathRow(b, ps)) return false;
  }
  return true;
}

class MirroredTables : public ChangeListener {
 public:
  explicit MirroredTables(Changes& changes)
      : original_(changes.store), mirror_(changes.store), subscription_(changes.listen(*this)) {}

  bool isExact() const { return sameTables(original_, mirror_); }

  int changesHeard = 0;
  int rewritings = 0;
  bool lastUnsaved = false, lastGroupNames = false;

  void changed(const KeptChange& change) override {
    ++changesHeard;
    lastUnsaved = change.unsaved;
    lastGroupNames = change.groupNames;
    follow(change.segments);
    follow(change.paths);
  }
  void rewritten() override {
    ++rewritings;
    mirror_ = original_;
  }

 private:
  template <class Row>
  void follow(std::span<const RowEdit<Row>> edits) {
    for (const RowEdit<Row>& edit : edits) {
      prepareEdit(mirror_, edit);
      performEdit(mirror_, edit);
    }
  }

  const DrawingStore& original_;
  DrawingStore mirror_;
  Subscription subscription_;
};

}  // namespace tess::testing
