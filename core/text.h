// Text helpers that never ask the locale: blanks, letter case, encoding.
// Owns: trimmed, lowerCased, upperCased, equalIgnoringCase, findIgnoringCase, endsLine, onOneLine,
//       toUtf8, codePoints, appendCharacter, characterCount, firstCharacters.
#pragma once

#include <string>
#include <string_view>

namespace tess {

// Without blanks and tabs at both ends.
std::string_view trimmed(std::string_view text);

// Letter case of ASCII and Latin-1 letters of UTF-8 text; others stay as they are.
std::string lowerCased(std::string_view text);
std::string upperCased(std::string_view text);
bool equalIgnoringCase(std::string_view a, std::string_view b);
// The position of `part` in `text` regardless of case, or npos.
std::size_t findIgnoringCase(std::string_view text, std::string_view part);

// Letter case of one byte: an ASCII letter changes, any other byte stays.
constexpr char lowerCased(char letter) {
  return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
}
constexpr char upperCased(char letter) {
  return letter >= 'a' && letter <= 'z' ? static_cast<char>(letter - 'a' + 'A') : letter;
}

constexpr bool endsLine(char letter) {
  return letter == '\r' || letter == '\n';
}
// A blank in place of each line end, so that the text stays one line of a file.
std::string onOneLine(std::string text);

// Bytes as UTF-8: what is valid stays, any other byte is taken as a Latin-1 character.
std::string toUtf8(std::string_view bytes);

// The code points of such bytes, read in the same way.
std::u32string codePoints(std::string_view bytes);
// A code point as UTF-8, at the end of a text.
void appendCharacter(std::string& out, char32_t code);

// Characters of UTF-8 text; a byte that is none of them counts as one, or with the one before it.
std::size_t characterCount(std::string_view text);
std::string_view firstCharacters(std::string_view text, std::size_t count);

}  // namespace tess
