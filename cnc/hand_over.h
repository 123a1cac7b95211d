// What the hand-over of programs works on.
// Owns: FreeSpace, HandOver.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

#include "cnc/other_programs.h"
#include "core/session.h"

namespace tess {

// The bytes that may still be written to a folder; nothing where the system does not tell.
using FreeSpace = std::function<std::optional<std::uint64_t>(const std::string& folder)>;

struct HandOver {
  Session& session;
  OtherPrograms& others;
  std::string userfolder;  // what is kept for this user alone, with its last separator; "": nothing
  FreeSpace freeSpace;
};

}  // namespace tess
