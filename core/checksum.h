// Checksums by which a file is known again: they tell a damaged or changed file from the one that
// was saved, and are no protection against somebody who changes both.
// Owns: Checksum, checksumOf, checksumText, parseChecksum.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tess {

struct Checksum {
  std::uint64_t sum = 0;
  std::uint64_t size = 0;  // in bytes
  friend bool operator==(const Checksum&, const Checksum&) = default;
};

Checksum checksumOf(std::string_view content);

// Its kind, the sum as 16 hexadecimal digits, the size: "xxh3-00f1...-1234"; "none" for no file at
// all.
std::string checksumText(const std::optional<Checksum>& checksum);
// The same back. False when the text is none of the two, such as a checksum of another kind.
bool parseChecksum(std::string_view text, std::optional<Checksum>& checksum);

}  // namespace tess
