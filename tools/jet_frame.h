// The form in which the process that reads a Jet file hands over what it has read, so that a result
// cut short or damaged is seen as such.
// Owns: kReadJetOption, kJetFrameHeader, kLargestJetImage, framedImage, frameLength, unframedImage.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace tess {

// What a program is started with to become the reader of the Jet file that is its standard input.
// It writes one frame to its standard output.
inline constexpr char kReadJetOption[] = "--read-jet";

// Mark, length and sum come first.
inline constexpr std::size_t kJetFrameHeader = 24;
inline constexpr std::size_t kLargestJetImage = std::size_t{32} << 20;

// The bytes of an SQLite database as a frame.
std::string framedImage(std::string_view image);

// The length of the whole frame that these bytes begin; nothing when they begin none.
std::optional<std::size_t> frameLength(std::string_view bytes);

// The image that a frame holds; nothing for anything but one whole frame.
std::optional<std::string> unframedImage(std::string_view frame);

}  // namespace tess
