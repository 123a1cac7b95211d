// The buttons of message boxes by the words on them.
// Owns: buttonsOf, firstButton, wordOf, iconWord.
#pragma once

#include <span>

#include "core/host.h"

namespace tess {

// The buttons of a box from left to right.
std::span<const Answer> buttonsOf(MessageButtons buttons);
inline Answer firstButton(MessageButtons buttons) {
  return buttonsOf(buttons).front();
}

const char* wordOf(Answer answer);       // "OK", "Cancel", "Yes", "No"
const char* iconWord(MessageIcon icon);  // "none", "information", "warning", "error", "question"

}  // namespace tess
