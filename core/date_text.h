// Dates and times of day as texts, the same on every machine.
// Owns: dateText, timeText, momentIn.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "core/host.h"

namespace tess {

// "mm/dd/yyyy" and "hh:nn:ss" of 24 hours, with leading zeros.
std::string dateText(const DateTime& moment);
std::string timeText(const DateTime& moment);

// What "2026-03-09", "2026-03-09T14:05" or "2026-03-09T14:05:07" says, each part with all its
// digits and what is left out 0; nothing for any other text, or for a day or a time that doesn't
// exist.
std::optional<DateTime> momentIn(std::string_view text);

}  // namespace tess
