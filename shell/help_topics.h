// Where the manual tells of a command or a form: the named destinations of its document.
// Owns: kLargestManual, kKeysTopic, helpTopic, ManualPlaces, manualPlaces.
#pragma once

#include <cstddef>
#include <functional>
#include <map>
#include <string>
#include <string_view>

#include "core/file_limits.h"

namespace tess {

inline constexpr std::size_t kLargestManual = 64 * kMebibyte;
// The chapter of the keys.
inline constexpr char kKeysTopic[] = "page_keys";

// The destination of a tool or a form of that name: "_" for all that is no letter or digit, as
// scripts/make_manual has it.
std::string helpTopic(std::string_view name);

// Pages, from 1, by destination.
using ManualPlaces = std::map<std::string, int, std::less<>>;

// The destinations that a document names in its plain objects, as the manual's does. Of anything
// else, damaged or packed, there are none.
ManualPlaces manualPlaces(std::string_view document);

}  // namespace tess
