// Finds the name that somebody who typed another one most likely meant.
// Owns: nearMatch, didYouMean.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace tess {

// The name closest to `word`, regardless of case, when few enough letters differ (a third of the
// word, at least one; a single letter is near nothing); the earlier of two equally close ones.
std::optional<std::string> nearMatch(std::string_view word, std::span<const std::string> names);

// " (did you mean 'NAME'?)", or nothing when no name is near.
std::string didYouMean(std::string_view word, std::span<const std::string> names);

}  // namespace tess
