// The nine most recently used drawings and the text file that keeps them between runs.
// Owns: addRecent, tidyRecent, kRecentFileName, recentFileList, readRecent, writeRecent,
//       recentCaption.
#pragma once

#include <string>
#include <string_view>

#include "core/session.h"

namespace tess {

// Puts an existing file in slot 1 and shifts the others; anything else only tidies the list.
void addRecent(Session& session, std::string_view path);

// Drops later duplicates, closes the gaps and announces the list.
void tidyRecent(Session& session);

// The name of the list's file, and its full path in the CNC folder.
inline constexpr char kRecentFileName[] = "TSMO.MRU";
std::string recentFileList(const Session& session);

// Fill the list from the file, and write it, without entries whose files are gone. A list file that
// is missing is reported as a failure and leaves the list as it is; writing raises file failures.
void readRecent(Session& session);
void writeRecent(Session& session);

// The caption of the tool of slot 1 to 9, "1 - path"; empty for an empty slot, whose tool is
// hidden.
std::string recentCaption(const Session& session, int slot);

}  // namespace tess
