// What the path rows of a drawing make a machine do.
#include "cnc/program_motions.h"

#include "cnc/lathe_motions.h"
#include "cnc/mill_motions.h"

namespace tess {

void tellMotions(const DrawingStore& store, CncMode mode, MotionReader& reader,
                 const MotionRules& rules) {
  switch (mode) {
    case CncMode::Mill:
      return MillMotions(store, reader, rules).run();
    case CncMode::Lathe:
      return LatheMotions(store, reader, rules).run();
  }
}

}  // namespace tess
