// Starting another program and leaving it to itself.
// Owns: programProblem, startProgram.
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace tess {

// Why the file at this path cannot be started, as the end of a sentence about it: "is a folder".
// Nothing when it can as far as one may tell.
std::optional<std::string> programProblem(const std::string& path);

// Starts the program with these arguments, each as it is: no shell looks at them. It has this
// process's environment and working folder, a session of its own, and nothing to read or to write
// to; what becomes of it, nobody asks. Raises File not found, Permission denied, Path/File access
// error (what is there is no file, or no program of this system) with the path as source, and
// Invalid procedure call for a text with a zero byte in it.
void startProgram(const std::string& program, const std::vector<std::string>& arguments);

}  // namespace tess
