// Dates and times of day as texts, the same on every machine.
// Owns: dateText, timeText.
#pragma once

#include <string>

#include "core/host.h"

namespace tess {

// "mm/dd/yyyy" and "hh:nn:ss" of 24 hours, with leading zeros.
std::string dateText(const DateTime& moment);
std::string timeText(const DateTime& moment);

}  // namespace tess
