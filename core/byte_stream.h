// Values as bytes in the memory order of this machine, for files that no other machine reads.
// Owns: ByteWriter, ByteReader.
#pragma once

#include <cstdint>
#include <cstring>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <type_traits>

namespace tess {

class ByteWriter {
 public:
  explicit ByteWriter(std::string& out) : out_(out) {}

  template <typename T>
  requires std::is_trivially_copyable_v<T>
  void value(const T& value) { out_.append(reinterpret_cast<const char*>(&value), sizeof value); }
  template <typename T>
  requires std::is_trivially_copyable_v<T>
  void values(std::span<const T> values) {
    out_.append(reinterpret_cast<const char*>(values.data()), values.size_bytes());
  }
  void text(std::string_view text) {
    value(static_cast<std::uint32_t>(text.size()));
    out_.append(text);
  }

 private:
  std::string& out_;
};

// Each reading call gives nothing once the bytes do not reach; the reader then stands at its end.
class ByteReader {
 public:
  explicit ByteReader(std::string_view bytes) : bytes_(bytes) {}

  bool atEnd() const { return bytes_.empty(); }

  template <typename T>
  requires std::is_trivially_copyable_v<T> std::optional<T> value() {
    const auto taken = take(sizeof(T));
    if (!taken) return std::nullopt;
    T value;
    std::memcpy(&value, taken->data(), sizeof value);
    return value;
  }
  // The next `size` bytes, which stay where they are.
  std::optional<std::string_view> take(std::size_t size) {
    if (size > bytes_.size()) {
      bytes_ = {};
      return std::nullopt;
    }
    const std::string_view taken = bytes_.substr(0, size);
    bytes_.remove_prefix(size);
    return taken;
  }
  std::optional<std::string_view> text() {
    const auto size = value<std::uint32_t>();
    return size ? take(*size) : std::nullopt;
  }

 private:
  std::string_view bytes_;
};

}  // namespace tess
