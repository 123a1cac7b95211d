// Where the machine-control program lies: one line in a file of the program's folder.
// Owns: kNoPath, locationIn, locationFile, controlPath, controlExists, writeControlPath.
#pragma once

#include <string>
#include <string_view>

#include "core/session.h"

namespace tess {

// What stands in the file for no path.
inline constexpr char kNoPath[] = "< NO PATH ASSIGNED >";

// The path in the content of the file: its whole first line, as the bytes that it is. "" for a
// blank line and for kNoPath.
std::string locationIn(std::string_view content);

// The file, in whatever case its name is there.
std::string locationFile(const Session& session);

// The path that the file holds, else the one where installations put the program. A file that
// cannot be read is reported and counts as missing.
std::string controlPath(const Session& session);

// Whether there is a program: a relative path names none, since the working folder may be
// anybody's.
bool controlExists(const std::string& path);

// Makes `path` the only line of the file, or kNoPath when it is empty. Raises what writeFile does,
// and Invalid procedure call for a path that no single line can hold.
void writeControlPath(const Session& session, std::string_view path);

}  // namespace tess
