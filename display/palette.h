// Colours: the sixteen classic console colours and the rule that turns a stored colour value into
// one that a surface can paint.
// Owns: Rgb, kPaletteSize, ColorSlot, paletteColor, ColorOf, slotColor, pathColor.
#pragma once

#include <cstdint>

namespace tess {

struct DrawingStore;

// Red in the lowest byte, then green, then blue.
using Rgb = std::int32_t;

inline constexpr int kPaletteSize = 16;

// What the slots of `colortable` are for.
enum class ColorSlot {
  Background = 1,
  Stock = 2,
  Draw = 3,
  Select = 4,
  Verified = 5,
  Grid = 6,
  Marker = 7,
};

// The palette colour of the low four bits of `index`, so that any stored value gives a colour.
Rgb paletteColor(int index);

// A stored colour value: below 0 black, 0 to 15 from the palette, above that the RGB value itself.
Rgb ColorOf(int value);

Rgb slotColor(const DrawingStore& store, ColorSlot slot);

// The colour of a path row: the select colour, or that of its tool, which passes through a 32-bit
// float on its way and so keeps 24 bits of a direct RGB value.
Rgb pathColor(const DrawingStore& store, int ps);

}  // namespace tess
