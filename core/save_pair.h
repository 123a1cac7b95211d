// Writing the files of the session's drawing: under the lock of their folder, never over what the
// session has not seen, and with a backup that is worth going back to.
// Owns: PairSave, savePair, isWritten.
#pragma once

#include <optional>
#include <vector>

#include "core/drawing_recovery.h"
#include "core/open_drawing.h"
#include "core/session.h"

namespace tess {

struct PairSave {
  bool written = false;
  PairState state;                        // of the files now
  std::vector<Recovery> recoveries;       // what had to be settled before
  std::optional<RuntimeFailure> trouble;  // that came when all was written
};

// Writes the drawing to drawingpath plus drawingname, and its paths beside it. Not when the drawing
// that is open has been changed on the disk, unless that is `agreed`. Files that hold all of it
// already stay as they are. Raises what replaceWithBackup raises, and Permission denied while
// another process is at these files.
PairSave savePair(Session& session, bool agreed);

// Whether the files of a named drawing are, byte for byte, what a save of it would write; the rows
// are rounded as for a save on the way.
bool isWritten(DrawingStore& store);

}  // namespace tess
