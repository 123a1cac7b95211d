// The classic palette and the rule for stored colour values.
#include "display/palette.h"

#include <array>

#include "core/drawing_store.h"
#include "core/rounding.h"

namespace tess {

namespace {

constexpr std::array<Rgb, kPaletteSize> kPalette = {
    0x000000,  // black
    0x800000,  // blue
    0x008000,  // green
    0x808000,  // cyan
    0x000080,  // red
    0x800080,  // magenta
    0x008080,  // yellow
    0xC0C0C0,  // white
    0x808080,  // grey
    0xFF0000,  // bright blue
    0x00FF00,  // bright green
    0xFFFF00,  // bright cyan
    0x0000FF,  // bright red
    0xFF00FF,  // bright magenta
    0x00FFFF,  // bright yellow
    0xFFFFFF,  // bright white
};

}  // namespace

Rgb paletteColor(int index) {
  return kPalette[static_cast<unsigned>(index) % kPaletteSize];
}

Rgb ColorOf(int value) {
  if (value < 0) return 0;
  return value < kPaletteSize ? paletteColor(value) : value;
}

Rgb slotColor(const DrawingStore& store, ColorSlot slot) {
  return ColorOf(store.colortable[static_cast<int>(slot)]);
}

Rgb pathColor(const DrawingStore& store, int ps) {
  const int code = store.pscode[ps];
  if (isSelected(code)) return slotColor(store, ColorSlot::Select);
  // Fixed: a path color passes through a float; direct colors keep 24 bits.
  const Rgb color = ColorOf(store.toolcolor[toolIndex(code)]);
  return roundHalfEven(static_cast<double>(static_cast<float>(color)));
}

}  // namespace tess
