// What was saved here last: one line for each save in a file of the program's folder. The drawing
// files have no place for a checksum, and by this one it shows when they have been damaged.
// Owns: kSaveRecordName, SaveRecord, lastSave, findSave, noteSave.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "core/open_drawing.h"
#include "core/session.h"

namespace tess {

inline constexpr char kSaveRecordName[] = "Saved.txt";

struct SaveRecord {
  std::optional<Checksum> drawing, paths;
  std::string when;  // date and time of day
};

// The last save of that drawing, named by its full path; nothing when none is known.
std::optional<SaveRecord> lastSave(const Session& session, const std::string& drawing);

// The same in the text of such a record, for the full path of a drawing.
std::optional<SaveRecord> findSave(std::string_view record, std::string_view path);

// Adds a save. The record is a help, not a condition: where it cannot be kept, nothing is said. It
// never grows past a bound; the oldest lines give way.
void noteSave(Session& session, const std::string& drawing, const PairState& state);

}  // namespace tess
