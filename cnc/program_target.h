// Whether a CNC program may take the place of what is already there.
// Owns: isCncProgram, isOfDrawing, keptAt, kindOfProgram, kindOfProgramAt.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "cnc/program_motions.h"

namespace tess {

struct DrawingStore;

// Whether a text, of which a beginning is enough, is a CNC program: it has the heading of this
// program's own, or its lines are made of addresses with numbers, with a preparatory or
// miscellaneous one among them. An empty one may become a program.
bool isCncProgram(std::string_view text);

// Whether `file` is one of the two files of the drawing, by any of its names or by a link.
bool isOfDrawing(const DrawingStore& store, const std::string& file);

// What a program written to `file` would destroy, as the end of a sentence about the file; nothing
// when it may be written. Raises what readBeginning raises.
std::optional<std::string> keptAt(const DrawingStore& store, const std::string& file);

// What machine a program is for: by the heading of this program's own, else a mill where any move
// has a Y, and a lathe where moves have X or Z alone. Nothing for a text that tells neither.
std::optional<CncMode> kindOfProgram(std::string_view text);
// The same of the file; nothing when it is not there or cannot be read.
std::optional<CncMode> kindOfProgramAt(const std::string& file);

}  // namespace tess
