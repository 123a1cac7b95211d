// The drawing store as a whole.
#include "core/drawing_store.h"

#include <algorithm>

namespace tess {
namespace {

// One place knows which columns make up the table.
template <typename Store, typename Visit>
void forEachCycleColumn(Store& store, Visit visit) {
  visit(store.cycletext), visit(store.cyclefinaldepth), visit(store.cycleincrdepth);
  visit(store.cycledwell), visit(store.cyclefeedrate);
}

}  // namespace

// With so many members these are long, and made here once for all files that hold a store.
DrawingStore::DrawingStore() = default;
DrawingStore::DrawingStore(const DrawingStore& other) = default;
DrawingStore& DrawingStore::operator=(const DrawingStore& other) = default;
DrawingStore::~DrawingStore() = default;

void resizeCycles(DrawingStore& store, int count) {
  forEachCycleColumn(store, [count](auto& column) { column.resize(std::max(count - 1, 0)); });
}

bool isConsistent(const DrawingStore& store) {
  bool ok = store.NumSegments >= 0 && store.NumPathSegments >= 0 && store.NumCycles >= 0;
  const auto reaches = [&ok](int count, int bound) {
    return [&ok, count, bound](const auto& column) {
      ok = ok && column.upperBound() == bound && count <= bound;
    };
  };
  visitSegmentColumns(store, reaches(store.NumSegments, store.x0.upperBound()));
  visitPathColumns(store, reaches(store.NumPathSegments, store.psx0.upperBound()));
  forEachCycleColumn(store, reaches(store.NumCycles - 1, store.cycletext.upperBound()));
  return ok;
}

}  // namespace tess
