// What the characters of a program are, whatever the locale.
// Owns: isDigit, isLetter.
#pragma once

namespace tess {

constexpr bool isDigit(char letter) {
  return letter >= '0' && letter <= '9';
}

constexpr bool isLetter(char letter) {
  return (letter >= 'A' && letter <= 'Z') || (letter >= 'a' && letter <= 'z');
}

}  // namespace tess
