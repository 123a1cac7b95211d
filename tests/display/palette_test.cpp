// The palette and the rule for stored colour values.
#include "display/palette.h"

#include "gtest/gtest.h"

#include "core/drawing_store.h"

namespace tess {
namespace {

TEST(Palette, TheSixteenClassicColours) {
  const Rgb colors[] = {0x000000, 0x800000, 0x008000, 0x808000, 0x000080, 0x800080,
                        0x008080, 0xC0C0C0, 0x808080, 0xFF0000, 0x00FF00, 0xFFFF00,
                        0x0000FF, 0xFF00FF, 0x00FFFF, 0xFFFFFF};
  for (int i = 0; i < kPaletteSize; ++i) EXPECT_EQ(paletteColor(i), colors[i]) << i;
}

TEST(Palette, AnIndexOutsideTakesItsLowFourBits) {
  EXPECT_EQ(paletteColor(16), paletteColor(0));
  EXPECT_EQ(paletteColor(-1), paletteColor(15));
}

TEST(ColorOf, NegativeIsBlackThenPaletteThenDirectRgb) {
  EXPECT_EQ(ColorOf(-1), 0);
  EXPECT_EQ(ColorOf(-32768), 0);
  EXPECT_EQ(ColorOf(0), 0);
  EXPECT_EQ(ColorOf(15), 0xFFFFFF);
  EXPECT_EQ(ColorOf(16), 16);
  EXPECT_EQ(ColorOf(0x123456), 0x123456);
}

TEST(SlotColor, GoesThroughTheRule) {
  DrawingStore store;
  store.colortable[3] = 12;
  store.colortable[7] = 255;
  EXPECT_EQ(slotColor(store, ColorSlot::Draw), 0x0000FF);
  EXPECT_EQ(slotColor(store, ColorSlot::Marker), 255);
}

class PathColor : public ::testing::Test {
 protected:
  Rgb of(int code, int toolcolor) {
    store.toolcolor[3] = toolcolor;
    store.colortable[4] = 12;
    store.pscode[1] = code;
    return pathColor(store, 1);
  }
  DrawingStore store;
};

TEST_F(PathColor, OfTheToolUpToTheSelectionMark) {
  EXPECT_EQ(of(1203, 14), 0x00FFFF);
  store.toolcolor[0] = 9;
  EXPECT_EQ(of(30000, 14), 0xFF0000);  // tool 0, not yet selected
}

TEST_F(PathColor, OfTheSelectionAboveTheMark) {
  EXPECT_EQ(of(31203, 14), 0x0000FF);
  EXPECT_EQ(of(30001, 14), 0x0000FF);
}

TEST_F(PathColor, ADirectColourKeepsTwentyFourBits) {
  EXPECT_EQ(of(103, 0xABCDEF), 0xABCDEF);
  EXPECT_EQ(of(103, 0x01000001), 0x01000000);
}

TEST_F(PathColor, ANegativeColourIsBlack) {
  EXPECT_EQ(of(103, -5), 0);
}

}  // namespace
}  // namespace tess
