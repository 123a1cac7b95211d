// Checksums: eight bytes at a time are folded into one number.
#include "core/checksum.h"

#include <charconv>
#include <cstring>

namespace tess {
namespace {

constexpr std::uint64_t kStart = 0x9ae16a3b2f90404fU;
constexpr std::uint64_t kFactor = 0xd6e8feb86659fd93U;  // odd, so that no bit is lost
constexpr std::size_t kWord = sizeof(std::uint64_t);
constexpr std::size_t kDigits = 16;
constexpr std::string_view kNone = "none";

std::uint64_t fold(std::uint64_t sum, std::uint64_t word) {
  sum = (sum ^ word) * kFactor;
  // The product carries only upwards; this brings the upper half back down.
  return sum ^ (sum >> 32);
}

template <typename Number>
bool parseWhole(std::string_view text, Number& number, int base) {
  const char* const end = text.data() + text.size();
  const auto result = std::from_chars(text.data(), end, number, base);
  return result.ec == std::errc{} && result.ptr == end;
}

}  // namespace

Checksum checksumOf(std::string_view content) {
  Checksum result{.sum = kStart, .size = content.size()};
  for (; content.size() >= kWord; content.remove_prefix(kWord)) {
    std::uint64_t word = 0;
    std::memcpy(&word, content.data(), kWord);
    result.sum = fold(result.sum, word);
  }
  std::uint64_t rest = 0;
  if (!content.empty()) std::memcpy(&rest, content.data(), content.size());
  result.sum = fold(fold(result.sum, rest), result.size);
  return result;
}

std::string checksumText(const std::optional<Checksum>& checksum) {
  if (!checksum) return std::string(kNone);
  char digits[kDigits];
  const char* const end = std::to_chars(digits, digits + kDigits, checksum->sum, 16).ptr;
  const auto length = static_cast<std::size_t>(end - digits);
  return std::string(kDigits - length, '0').append(digits, length) + "-" +
         std::to_string(checksum->size);
}

bool parseChecksum(std::string_view text, std::optional<Checksum>& checksum) {
  checksum.reset();
  if (text == kNone) return true;
  if (text.size() <= kDigits || text[kDigits] != '-') return false;
  Checksum read;
  if (!parseWhole(text.substr(0, kDigits), read.sum, 16)) return false;
  if (!parseWhole(text.substr(kDigits + 1), read.size, 10)) return false;
  checksum = read;
  return true;
}

}  // namespace tess
