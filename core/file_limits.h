// How large files may be that the program reads: well above what their kind ever holds, and below
// what would keep an operator waiting or fill the memory.
// Owns: kMebibyte, kLargestDrawing, kLargestDxf, kLargestSettings, kLargestProgram, kLargestScript,
//       kLargestFile.
#pragma once

#include <cstddef>

namespace tess {

inline constexpr std::size_t kMebibyte = std::size_t{1} << 20;

// A .CDM or .TPM of full tables has 4.
inline constexpr std::size_t kLargestDrawing = 64 * kMebibyte;
// Map data; the drawing's table is full long before.
inline constexpr std::size_t kLargestDxf = 512 * kMebibyte;
// Setups, definitions, layouts, options, lists of recent files: a hundredth is much.
inline constexpr std::size_t kLargestSettings = 16 * kMebibyte;
// To be looked at: what this program writes has at most 64.
inline constexpr std::size_t kLargestProgram = 128 * kMebibyte;
inline constexpr std::size_t kLargestScript = 16 * kMebibyte;
// Any other.
inline constexpr std::size_t kLargestFile = 512 * kMebibyte;

}  // namespace tess
