// The rows of the tables as entities.
// Owns: segmentEntity, pathEntity.
#pragma once

#include "core/drawing_store.h"
#include "geometry/entity.h"

namespace tess {

// Row `sg` or `ps` of the tables. Raises Subscript out of range outside them.
inline Entity segmentEntity(const DrawingStore& store, int sg) {
  return {store.segtype[sg],
          {store.x0[sg], store.y0[sg]},
          {store.x1[sg], store.y1[sg]},
          {store.centerx[sg], store.centery[sg]}};
}
inline Entity pathEntity(const DrawingStore& store, int ps) {
  return {store.pstype[ps],
          {store.psx0[ps], store.psy0[ps]},
          {store.psx1[ps], store.psy1[ps]},
          {store.psxc[ps], store.psyc[ps]}};
}

}  // namespace tess
