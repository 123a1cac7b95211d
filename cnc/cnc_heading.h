// The comment block that opens a program: what it was made from, and for which stock, setup and
// tools.
// Owns: writeHeading.
#pragma once

#include <string>

#include "cnc/program_motions.h"
#include "cnc/program_text.h"
#include "core/session.h"

namespace tess {

// Appends the heading of the program `cncfilename`: the definition's own lines, and the comments
// unless its dialect leaves them out. Raises Invalid procedure call for a setting
// that is no number, and Subscript out of range for a path row without a tool.
void writeHeading(ProgramText& text, const Session& session, const PostDefinition& definition,
                  CncMode mode, const std::string& cncfilename);

}  // namespace tess
