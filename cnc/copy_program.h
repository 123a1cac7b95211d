// A copy of a program in another folder, such as that of a memory stick, from which the machine
// reads it.
// Owns: freeSpaceIn, copyProgram.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "cnc/hand_over.h"

namespace tess {

// Of the file system on which the folder lies.
std::optional<std::uint64_t> freeSpaceIn(const std::string& folder);

// Writes the content to `target` and tells what came of it; true when the copy is there. It has the
// name only once it is on the medium and has been read back as it should be. A file that is no
// program is never replaced, another program only if the operator says so. What cannot be done is
// told in a message, and what was there stays.
bool copyProgram(const HandOver& handOver, std::string_view content, const std::string& target);

}  // namespace tess
