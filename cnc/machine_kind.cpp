// The kind of machine that paths and setups are for.
#include "cnc/machine_kind.h"

#include <algorithm>

#include "core/drawing_store.h"

namespace tess {

bool hasLatheRapids(const DrawingStore& store) {
  for (int ps = 1; ps <= store.NumPathSegments; ++ps) {
    if (store.pstype[ps] < kFirstCycle && store.psz[ps] == kLatheRapidZ) return true;
  }
  return false;
}

std::string otherMachine(const DrawingStore& store, CncMode mode) {
  if (mode == CncMode::Mill && hasLatheRapids(store)) {
    return "The path was made for a lathe: its rapids would go down to Z -99 on a mill.";
  }
  if (mode == CncMode::Mill && store.lathesetup) {
    return "The setup in force is one for a lathe, and this program is for a mill.";
  }
  if (mode == CncMode::Lathe && !store.lathesetup && !store.cfg_lathe_style_pocketing) {
    return "The setup in force is one for a mill, and this program is for a lathe.";
  }
  return {};
}

}  // namespace tess
