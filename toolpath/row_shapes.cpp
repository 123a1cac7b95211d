// Path rows that are alike.
#include "toolpath/row_shapes.h"

#include <bit>

#include "core/drawing_store.h"

namespace tess {
namespace {

// Zero has one pattern here.
std::uint32_t bitsOf(float value) {
  return std::bit_cast<std::uint32_t>(value == 0 ? 0.0F : value);
}

}  // namespace

std::size_t RowShapes::Hash::operator()(const Shape& shape) const {
  constexpr std::uint64_t kMultiplier = 0x9E3779B97F4A7C15;
  std::uint64_t hash = 0;
  for (const std::uint32_t word : shape) {
    hash = (hash ^ word) * kMultiplier;
    hash ^= hash >> 32;
  }
  return static_cast<std::size_t>(hash);
}

bool RowShapes::add(const DrawingStore& store, int ps) {
  const int tool = toolIndex(withoutSelection(store.pscode[ps]));
  const int type = store.pstype[ps];
  const bool arc = isArc(type);
  return shapes_
      .insert({static_cast<std::uint32_t>(type), static_cast<std::uint32_t>(tool),
               bitsOf(store.psx0[ps]), bitsOf(store.psy0[ps]), bitsOf(store.psx1[ps]),
               bitsOf(store.psy1[ps]), arc ? bitsOf(store.psxc[ps]) : 0,
               arc ? bitsOf(store.psyc[ps]) : 0})
      .second;
}

}  // namespace tess
