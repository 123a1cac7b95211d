// Short ways to put rows into a store.
// Owns: kTolerence, addSegment, addPath, storeWith.
#pragma once

#include <vector>

#include "core/drawing_store.h"
#include "geometry/entity.h"

namespace tess::testing {

inline constexpr float kTolerence = 0.001F;

inline void addSegment(DrawingStore& store, const Entity& e, int attr = kOrdinaryClass) {
  AddSeg(store, {e.type, attr, e.start.x, e.start.y, e.end.x, e.end.y, e.center.x, e.center.y},
         nullptr);
}

inline void addPath(DrawingStore& store, const Entity& e, int code = 100, bool visible = true) {
  addPathSegment(store, {e.type, e.start.x, e.start.y, e.end.x, e.end.y, e.center.x, e.center.y,
                         /*z=*/0, /*feed=*/0, code});
  store.psvisible[store.NumPathSegments] = visible;
}

// The same entities as drawing rows and as visible path rows.
inline DrawingStore storeWith(const std::vector<Entity>& entities, float tolerence = kTolerence) {
  DrawingStore store;
  store.cfg_tolerance = tolerence;
  for (const Entity& entity : entities) {
    addSegment(store, entity);
    addPath(store, entity);
  }
  return store;
}

}  // namespace tess::testing
