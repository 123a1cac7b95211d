// Groups of path rows.
#include "toolpath/path_groups.h"

#include <vector>

#include "drafting/row_edits.h"
#include "toolpath/cam_desk.h"

namespace tess {
namespace {

int groupOf(const DrawingStore& store, int ps) {
  return groupRounded(store.pscode[ps]);
}

// The lowest row of the group, or the place behind all rows.
int firstRowOf(const DrawingStore& store, int group) {
  int ps = 1;
  while (ps <= store.NumPathSegments && groupOf(store, ps) != group) ++ps;
  return ps;
}

// Rows that were logged as deleted leave the table together, whatever ends the work on them: log
// and table never disagree.
class LeavingRows {
 public:
  explicit LeavingRows(DrawingStore& store)
      : store_(store), gone_(static_cast<std::size_t>(store.NumPathSegments) + 1) {}
  ~LeavingRows() { deletePathSegments(store_, gone_); }
  LeavingRows(const LeavingRows&) = delete;
  LeavingRows& operator=(const LeavingRows&) = delete;

  void add(int ps) { gone_[static_cast<std::size_t>(ps)] = true; }

 private:
  DrawingStore& store_;
  std::vector<bool> gone_;
};

}  // namespace

int firstOfPathGroup(const DrawingStore& store, int ps) {
  if (store.NumPathSegments < 1) return 0;
  return firstRowOf(store, groupOf(store, ps));
}

int lastOfPathGroup(const DrawingStore& store, int ps) {
  int last = ps;
  while (last < store.NumPathSegments && groupOf(store, last + 1) == groupOf(store, ps)) ++last;
  return last;
}

int pathInsertIndex(const DrawingStore& store, int mode, int group) {
  const int end = store.NumPathSegments + 1;
  if (mode != kInsertBeforeGroup && mode != kInsertAfterGroup) return end;
  const int first = firstRowOf(store, group);
  if (mode == kInsertBeforeGroup || first == end) return first;
  return lastOfPathGroup(store, first) + 1;
}

void deletePathGroup(DrawingStore& store, ChangeLog& changelog, int group) {
  const Procedure here("deletePathGroup(group)");
  LeavingRows leaving(store);
  bool startsStep = true;
  for (int ps = store.NumPathSegments; ps >= 1; --ps) {
    if (groupOf(store, ps) != group) continue;
    logPathSegment(changelog, store, ps, "D", startsStep);
    leaving.add(ps);
    startsStep = false;
  }
}

}  // namespace tess
