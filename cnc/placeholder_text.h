// Texts of a definition with places that a program fills in: {TOOL}, {NAME}, {SPEED}, {SAFEZ}.
// Owns: Placeholder, unknownPlaceholder, appendFilled.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace tess {

enum class Placeholder { Tool, Name, Speed, SafeZ };

// The first thing in braces that is no placeholder, or an opening brace that nothing closes, with
// all that follows it; nothing when there is none. Letter case plays no part.
std::optional<std::string> unknownPlaceholder(std::string_view text);

// Appends a text that has no unknown one; `append` puts out what stands for each placeholder.
void appendFilled(std::string& out, std::string_view text,
                  const std::function<void(Placeholder)>& append);

}  // namespace tess
