// Walking the change log: taking back the last step and doing the next one again.
// Owns: undoStep, redoStep.
#pragma once

#include "drafting/change.h"

namespace tess {

// Rows are found by their contents; of drawing rows that match within the tolerance the very row of
// the record goes first. Drawing rows come back at the end of the table, path rows at the place and
// with the code that they had. A record whose row is not found is passed over. A walk that fails
// has done nothing.
void undoStep(Changes& changes);
void redoStep(Changes& changes);

}  // namespace tess
