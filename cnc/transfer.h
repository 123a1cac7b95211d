// Handing a program to the machine-control program that runs beside this one.
// Owns: lathePath, FindWindowPartial, transferProgram.
#pragma once

#include <string>
#include <string_view>

#include "cnc/other_programs.h"
#include "cnc/program_motions.h"
#include "core/session.h"

namespace tess {

// Where the lathe's control program lies when the mill's is at `path`.
std::string lathePath(std::string_view path);

// Brings the first window to the front whose title begins with `title` and is less than 23
// characters longer, and gives its handle; 0 when there is none. Letter case counts.
WindowHandle FindWindowPartial(OtherWindows& windows, Surroundings& surroundings,
                               std::string_view title);

// Hands the file to the window of that machine's control, or starts the control with it when there
// is none. Raises what OtherPrograms::start does; the description then tells how far it came.
void transferProgram(const Session& session, OtherPrograms& others, CncMode mode,
                     const std::string& file);

}  // namespace tess
