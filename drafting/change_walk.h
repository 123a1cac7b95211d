// Walking the change log: taking back the last step and doing the next one again.
// Owns: undoStep, redoStep.
#pragma once

#include "drafting/change_log.h"

namespace tess {

// Rows are found by their contents. Drawing rows come back at the end of the table, path rows at
// the place and with the code that they had. A record whose row is not found is passed over.
void undoStep(ChangeLog& log, DrawingStore& store);
void redoStep(ChangeLog& log, DrawingStore& store);

}  // namespace tess
