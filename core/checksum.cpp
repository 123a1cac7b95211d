// Checksums: XXH3 of 64 bits.
#include "core/checksum.h"

#include <charconv>
#include <xxhash.h>

namespace tess {
namespace {

// What a text of another kind of checksum does not begin with.
constexpr std::string_view kKind = "xxh3-";
constexpr std::size_t kDigits = 16;
constexpr std::string_view kNone = "none";

template <typename Number>
bool parseWhole(std::string_view text, Number& number, int base) {
  const char* const end = text.data() + text.size();
  const auto result = std::from_chars(text.data(), end, number, base);
  return result.ec == std::errc{} && result.ptr == end;
}

}  // namespace

Checksum checksumOf(std::string_view content) {
  return {.sum = XXH3_64bits(content.data(), content.size()), .size = content.size()};
}

std::string checksumText(const std::optional<Checksum>& checksum) {
  if (!checksum) return std::string(kNone);
  char digits[kDigits];
  const char* const end = std::to_chars(digits, digits + kDigits, checksum->sum, 16).ptr;
  const auto length = static_cast<std::size_t>(end - digits);
  std::string text(kKind);
  text.append(kDigits - length, '0').append(digits, length);
  return text + "-" + std::to_string(checksum->size);
}

bool parseChecksum(std::string_view text, std::optional<Checksum>& checksum) {
  checksum.reset();
  if (text == kNone) return true;
  if (!text.starts_with(kKind)) return false;
  text.remove_prefix(kKind.size());
  if (text.size() <= kDigits || text[kDigits] != '-') return false;
  Checksum read;
  if (!parseWhole(text.substr(0, kDigits), read.sum, 16)) return false;
  if (!parseWhole(text.substr(kDigits + 1), read.size, 10)) return false;
  checksum = read;
  return true;
}

}  // namespace tess
