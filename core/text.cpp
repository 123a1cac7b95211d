// Text helpers that never ask the locale.
#include "core/text.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace tess {
namespace {

constexpr unsigned char kLatin1Lead = 0xC3;  // UTF-8 lead byte of U+00C0 to U+00FF

unsigned char byteAt(std::string_view text, std::size_t at) {
  return static_cast<unsigned char>(text[at]);
}

// Second byte of an upper-case Latin-1 letter; the multiplication sign stands among them.
bool isUpperTail(unsigned char tail) {
  return tail >= 0x80 && tail <= 0x9E && tail != 0x97;
}
// Second byte of a lower-case one that has an upper-case form there; the division sign has none.
bool isLowerTail(unsigned char tail) {
  return tail >= 0xA0 && tail <= 0xBE && tail != 0xB7;
}

template <typename AsciiRule, typename TailRule>
std::string mapped(std::string_view text, AsciiRule ascii, TailRule tail) {
  std::string result(text);
  for (std::size_t at = 0; at < result.size(); ++at) {
    const unsigned char byte = byteAt(text, at);
    const bool follows = at > 0 && byteAt(text, at - 1) == kLatin1Lead;
    result[at] = static_cast<char>(follows ? tail(byte) : ascii(byte));
  }
  return result;
}

// Length of the valid UTF-8 sequence at the start of `bytes`, 0 when there is none.
std::size_t sequenceLength(std::string_view bytes) {
  const unsigned char lead = byteAt(bytes, 0);
  if (lead < 0x80) return 1;
  const std::size_t length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
  if (lead < 0xC2 || lead > 0xF4 || bytes.size() < length) return 0;
  std::uint32_t code = lead & (0xFFU >> (length + 1));
  for (std::size_t at = 1; at < length; ++at) {
    const unsigned char tail = byteAt(bytes, at);
    if ((tail & 0xC0U) != 0x80U) return 0;
    code = (code << 6U) | (tail & 0x3FU);
  }
  constexpr std::array<std::uint32_t, 5> kSmallest{0, 0, 0x80, 0x800, 0x10000};
  const bool surrogate = code >= 0xD800 && code <= 0xDFFF;
  return code < kSmallest[length] || code > 0x10FFFF || surrogate ? 0 : length;
}

// All bytes of UTF-8 but those that go on with a character.
bool beginsCharacter(char byte) {
  return (static_cast<unsigned char>(byte) & 0xC0U) != 0x80U;
}

}  // namespace

std::string_view trimmed(std::string_view text) {
  const std::size_t first = text.find_first_not_of(" \t");
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

std::string lowerCased(std::string_view text) {
  return mapped(
      text, [](unsigned char byte) { return lowerCased(static_cast<char>(byte)); },
      [](unsigned char tail) { return isUpperTail(tail) ? tail + 32 : tail; });
}

std::string upperCased(std::string_view text) {
  return mapped(
      text, [](unsigned char byte) { return upperCased(static_cast<char>(byte)); },
      [](unsigned char tail) { return isLowerTail(tail) ? tail - 32 : tail; });
}

bool equalIgnoringCase(std::string_view a, std::string_view b) {
  return a.size() == b.size() && lowerCased(a) == lowerCased(b);
}

std::size_t findIgnoringCase(std::string_view text, std::string_view part) {
  return lowerCased(text).find(lowerCased(part));
}

std::string onOneLine(std::string text) {
  std::replace_if(text.begin(), text.end(), endsLine, ' ');
  return text;
}

std::string toUtf8(std::string_view bytes) {
  std::string text;
  text.reserve(bytes.size());
  while (!bytes.empty()) {
    const std::size_t length = sequenceLength(bytes);
    if (length > 0) {
      text.append(bytes.substr(0, length));
    } else {
      const unsigned char byte = byteAt(bytes, 0);
      text.push_back(static_cast<char>(0xC0U | (byte >> 6U)));
      text.push_back(static_cast<char>(0x80U | (byte & 0x3FU)));
    }
    bytes.remove_prefix(length > 0 ? length : 1);
  }
  return text;
}

std::u32string codePoints(std::string_view bytes) {
  std::u32string points;
  points.reserve(bytes.size());
  while (!bytes.empty()) {
    const std::size_t length = std::max<std::size_t>(1, sequenceLength(bytes));
    char32_t point = byteAt(bytes, 0);
    if (length > 1) point &= 0xFFU >> (length + 1);
    for (std::size_t at = 1; at < length; ++at) {
      point = (point << 6U) | (byteAt(bytes, at) & 0x3FU);
    }
    points.push_back(point);
    bytes.remove_prefix(length);
  }
  return points;
}

void appendCharacter(std::string& out, char32_t code) {
  const auto add = [&out](unsigned lead, char32_t bits) {
    out.push_back(static_cast<char>(lead | static_cast<unsigned>(bits)));
  };
  if (code < 0x80) return add(0, code);
  if (code < 0x800) {
    add(0xC0, code >> 6U);
  } else if (code < 0x10000) {
    add(0xE0, code >> 12U);
    add(0x80, (code >> 6U) & 0x3FU);
  } else {
    add(0xF0, code >> 18U);
    add(0x80, (code >> 12U) & 0x3FU);
    add(0x80, (code >> 6U) & 0x3FU);
  }
  add(0x80, code & 0x3FU);
}

std::size_t characterCount(std::string_view text) {
  return static_cast<std::size_t>(std::count_if(text.begin(), text.end(), beginsCharacter));
}

std::string_view firstCharacters(std::string_view text, std::size_t count) {
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (beginsCharacter(text[i]) && count-- == 0) return text.substr(0, i);
  }
  return text;
}

}  // namespace tess
