// Frames: mark, length, sum, image.
#include "tools/jet_frame.h"

#include <cstdint>

namespace tess {
namespace {

constexpr std::string_view kMark = "TESSJET1";
constexpr std::size_t kNumberBytes = 8;
static_assert(kMark.size() + 2 * kNumberBytes == kJetFrameHeader);

// FNV-1a: enough to see an accident, which is all that a broken process can bring about.
std::uint64_t sumOf(std::string_view bytes) {
  std::uint64_t sum = 0xcbf29ce484222325;
  for (const char byte : bytes) sum = (sum ^ static_cast<unsigned char>(byte)) * 0x100000001b3;
  return sum;
}

void appendNumber(std::string& out, std::uint64_t number) {
  for (std::size_t i = 0; i < kNumberBytes; ++i) {
    out.push_back(static_cast<char>(number >> (8 * i) & 0xff));
  }
}

std::uint64_t numberAt(std::string_view bytes, std::size_t place) {
  std::uint64_t number = 0;
  for (std::size_t i = kNumberBytes; i-- > 0;) {
    number = number << 8 | static_cast<unsigned char>(bytes[place + i]);
  }
  return number;
}

}  // namespace

std::string framedImage(std::string_view image) {
  std::string frame(kMark);
  appendNumber(frame, image.size());
  appendNumber(frame, sumOf(image));
  return frame.append(image);
}

std::optional<std::size_t> frameLength(std::string_view bytes) {
  if (bytes.size() < kJetFrameHeader || !bytes.starts_with(kMark)) return std::nullopt;
  const std::uint64_t length = numberAt(bytes, kMark.size());
  if (length > kLargestJetImage) return std::nullopt;
  return kJetFrameHeader + static_cast<std::size_t>(length);
}

std::optional<std::string> unframedImage(std::string_view frame) {
  if (frameLength(frame) != frame.size()) return std::nullopt;
  const std::string_view image = frame.substr(kJetFrameHeader);
  if (numberAt(frame, kMark.size() + kNumberBytes) != sumOf(image)) return std::nullopt;
  return std::string(image);
}

}  // namespace tess
