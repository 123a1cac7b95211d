// What the path rows of a drawing make a machine do.
#include "cnc/program_motions.h"

#include "cnc/lathe_motions.h"
#include "cnc/mill_motions.h"

namespace tess {

void tellMotions(const DrawingStore& store, CncMode mode, MotionReader& reader) {
  switch (mode) {
    case CncMode::Mill:
      return MillMotions(store, reader).run();
    case CncMode::Lathe:
      return LatheMotions(store, reader).run();
  }
}

}  // namespace tess
