// Whether a program is asked for that the drawing, or the setup in force, was not meant for.
// Owns: hasLatheRapids, otherMachine.
#pragma once

#include <string>

#include "cnc/program_motions.h"

namespace tess {

struct DrawingStore;

// Whether any path row is marked as a rapid of the lathe style; a mill would feed it at Z -99.
bool hasLatheRapids(const DrawingStore& store);

// What speaks against a program of this kind, as a sentence; empty when nothing does.
std::string otherMachine(const DrawingStore& store, CncMode mode);

}  // namespace tess
