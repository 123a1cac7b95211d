// The numbers in the fields of the drafting forms.
// Owns: numberIn, refuseField.
#pragma once

#include <optional>
#include <string>

#include "core/controls.h"
#include "core/host.h"

namespace tess {

// The number that the whole text is, blanks at its ends aside; nothing for any other text and for
// what no coordinate can be.
std::optional<float> numberIn(const TextBox& box);

// Tells what is wrong with a field and goes there.
void refuseField(Prompts& prompts, TextBox& box, const std::string& text);

}  // namespace tess
