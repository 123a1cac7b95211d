// Groups of path rows.
#include "toolpath/path_groups.h"

#include "core/drawing_store.h"

namespace tess {
namespace {

constexpr int kNamesToSpare = 10;  // entries that a growing table of names gets beyond its need

int groupOf(const DrawingStore& store, int ps) {
  return groupRounded(store.pscode[ps]);
}

// The lowest row of the group, or the place behind all rows.
int firstRowOf(const DrawingStore& store, int group) {
  int ps = 1;
  while (ps <= store.NumPathSegments && groupOf(store, ps) != group) ++ps;
  return ps;
}

}  // namespace

int firstOfPathGroup(const DrawingStore& store, int ps) {
  if (store.NumPathSegments < 1) return 0;
  return firstRowOf(store, groupOf(store, ps));
}

// Fixed: a group ends where another begins; its rows farther up are not checked for gouges.
int lastOfPathGroup(const DrawingStore& store, int ps) {
  int last = ps;
  while (last < store.NumPathSegments && groupOf(store, last + 1) == groupOf(store, ps)) ++last;
  return last;
}

int pathInsertIndex(const DrawingStore& store, PathInsertMode mode, int group) {
  const int end = store.NumPathSegments + 1;
  if (mode != PathInsertMode::BeforeGroup && mode != PathInsertMode::AfterGroup) return end;
  const int first = firstRowOf(store, group);
  if (mode == PathInsertMode::BeforeGroup || first == end) return first;
  return lastOfPathGroup(store, first) + 1;
}

std::string pathGroupName(Column<std::string>& names, int group) {
  const std::string numbered = "Group " + std::to_string(group);
  if (group < 0) return numbered;
  if (group > names.upperBound()) names.resize(group + kNamesToSpare);
  if (names[group].empty()) names[group] = numbered;
  return names[group];
}

void deletePathGroup(Changes& changes, int group) {
  const Procedure here("deletePathGroup(group)");
  Change change(changes);
  change.paths.eraseWhere([&](int ps) { return groupOf(changes.store, ps) == group; });
  change.keep({.undoMark = kRowsDeleted, .redraws = false});
}

}  // namespace tess
