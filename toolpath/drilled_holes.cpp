// Holes of machine cycles.
#include "toolpath/drilled_holes.h"

#include <cmath>

#include "core/drawing_store.h"

namespace tess {
namespace {

// From the marker to the click: what lies between is a slot, and no hole.
constexpr int kSlotCycle = 79;

}  // namespace

std::optional<DrilledHole> drilledHole(const DrawingStore& store, int ps) {
  if (store.pstype[ps] < kFirstCycle || store.pstype[ps] == kSlotCycle) return std::nullopt;
  const int tool = toolIndex(withoutSelection(store.pscode[ps]));
  if (tool < 0 || !(store.toolradius[tool] > 0)) return std::nullopt;
  return DrilledHole{{store.psx1[ps], store.psy1[ps]},
                     static_cast<double>(store.toolradius[tool]),
                     -std::abs(static_cast<double>(store.psz[ps]))};
}

}  // namespace tess
