// How colours look on the screen, and that marks and letters show on whatever lies behind them.
#include "display/screen_look.h"

#include <algorithm>
#include <set>
#include <vector>

#include "gtest/gtest.h"

#include "core/drawing_store.h"

namespace tess {
namespace {

constexpr ColorSlot kSlots[] = {ColorSlot::Background, ColorSlot::Stock,    ColorSlot::Draw,
                                ColorSlot::Select,     ColorSlot::Verified, ColorSlot::Grid,
                                ColorSlot::Marker};

class Look : public ::testing::Test {
 protected:
  Look() {
    set({0, 1, 15, 14, 10, 8, 12});  // as shipped
  }
  void set(const std::vector<int>& numbers) {
    for (std::size_t at = 0; at < numbers.size(); ++at) {
      store.colortable[static_cast<int>(at) + 1] = numbers[at];
    }
  }
  void setSlot(ColorSlot slot, int value) { store.colortable[static_cast<int>(slot)] = value; }
  void choose(LookChoice choice) { store.screenlook = static_cast<int>(choice); }
  Rgb pathOf(int code) {
    store.pscode[1] = code;
    return look.path(1);
  }

  DrawingStore store;
  ScreenLook look{store};
};

// Each of the two soft looks, on a background and a stock of any number.
class SoftLook : public Look, public ::testing::WithParamInterface<LookChoice> {
 protected:
  SoftLook() { choose(GetParam()); }

  template <typename Check>
  void onEveryGround(Check check) {
    for (int background = 0; background < kPaletteSize; ++background) {
      for (int stock = 0; stock < kPaletteSize; ++stock) {
        setSlot(ColorSlot::Background, background);
        setSlot(ColorSlot::Stock, stock);
        check();
      }
    }
  }
};

double least(Rgb color, const ScreenLook& look) {
  return std::min(contrastRatio(color, look.background()), contrastRatio(color, look.stock()));
}

TEST(Contrast, IsThatOfTheEye) {
  EXPECT_DOUBLE_EQ(contrastRatio(0, 0xFFFFFF), 21);
  EXPECT_DOUBLE_EQ(contrastRatio(0xFFFFFF, 0), 21);
  EXPECT_DOUBLE_EQ(contrastRatio(0x123456, 0x123456), 1);
  EXPECT_NEAR(contrastRatio(paletteColor(0), paletteColor(1)), 1.3, 0.05) << "black on navy";
  EXPECT_NEAR(contrastRatio(0x0000FF, 0xFFFFFF), 4.0, 0.01) << "red on white";
}

TEST(Legible, StaysWhatItIsWhereThatShows) {
  EXPECT_EQ(legible(0xC0C0C0, {0, 0x800000}, 4.5), 0xC0C0C0);
}

TEST(Legible, MovesTowardsTheSideThatShows) {
  for (const Rgb color : {0x202020, 0x800000, 0x0000FF}) {
    EXPECT_GE(contrastRatio(legible(color, {0x101010}, 4.5), 0x101010), 4.5) << color;
    EXPECT_GE(contrastRatio(legible(color, {0xF0F0F0}, 4.5), 0xF0F0F0), 4.5) << color;
  }
}

TEST(Legible, BetweenBlackAndWhiteThereIsAColour) {
  const Rgb found = legible(0x00FFFF, {0x000000, 0xFFFFFF}, 4);
  EXPECT_GE(contrastRatio(found, 0), 4);
  EXPECT_GE(contrastRatio(found, 0xFFFFFF), 4);
}

TEST(Legible, WhereNoColourWillDoItTakesTheBest) {
  EXPECT_EQ(legible(0x808080, {0x202020, 0x505050}, 20), 0xFFFFFF);
  EXPECT_EQ(legible(0x808080, {0xA0A0A0, 0xD0D0D0}, 20), 0);
}

TEST_P(SoftLook, EveryInkIsATextOnEveryGround) {
  onEveryGround([&] {
    for (int ink = 0; ink < kPaletteSize; ++ink) {
      for (const ColorSlot slot : {ColorSlot::Draw, ColorSlot::Select, ColorSlot::Verified}) {
        setSlot(slot, ink);
        ASSERT_GE(least(look.slot(slot), look), ScreenLook::kTextContrast) << ink;
      }
      ASSERT_GE(least(look.letters(), look), ScreenLook::kTextContrast) << ink;
      store.toolcolor[2] = ink;
      ASSERT_GE(least(pathOf(102), look), ScreenLook::kTextContrast) << ink;
    }
  });
}

TEST_P(SoftLook, MarksShowOnEveryGround) {
  onEveryGround([&] {
    for (int ink = 0; ink < kPaletteSize; ++ink) {
      setSlot(ColorSlot::Marker, ink);
      ASSERT_GE(least(look.slot(ColorSlot::Marker), look), ScreenLook::kMarkContrast) << ink;
      ASSERT_EQ(look.arcMarker(), look.slot(ColorSlot::Marker)) << ink;
    }
    ASSERT_GE(least(look.travel(), look), ScreenLook::kMarkContrast);
  });
}

// The pen flips the bits that its colour lacks, and the upper two of each channel where these
// would not show.
TEST_P(SoftLook, BandsShowOnEveryGround) {
  EXPECT_EQ(look.band(), 0xFFFFFF);
  constexpr Rgb kFlipped = 0xC0C0C0;
  onEveryGround([&] {
    for (const Rgb ground : {look.background(), look.stock()}) {
      ASSERT_GE(contrastRatio(ground, ground ^ kFlipped), ScreenLook::kMarkContrast) << ground;
      ASSERT_GE(contrastRatio(ground, ground ^ 0xFFFFFF), ScreenLook::kMarkContrast) << ground;
    }
  });
}

TEST_P(SoftLook, MarksOfDirectColoursShowToo) {
  for (const int color : {0x0010, 0x1080, 0x7F7F, 0x20FF, 0x7F00}) {
    setSlot(ColorSlot::Marker, color);
    setSlot(ColorSlot::Draw, color);
    EXPECT_GE(least(look.slot(ColorSlot::Marker), look), ScreenLook::kMarkContrast) << color;
    EXPECT_GE(least(look.letters(), look), ScreenLook::kTextContrast) << color;
    EXPECT_EQ(look.slot(ColorSlot::Draw), color) << "rows are as they were chosen";
  }
}

TEST_P(SoftLook, TheGridIsFainterThanRows) {
  onEveryGround([&] {
    const double grid = contrastRatio(look.slot(ColorSlot::Grid), look.background());
    ASSERT_GE(least(look.slot(ColorSlot::Grid), look), 1.3);
    ASSERT_LT(grid, 2.5);
    ASSERT_LT(2 * grid, contrastRatio(look.slot(ColorSlot::Draw), look.background()) + 1);
  });
}

TEST_P(SoftLook, NoTwoNumbersLookTheSame) {
  std::set<Rgb> inks, grounds;
  for (int number = 0; number < kPaletteSize; ++number) {
    setSlot(ColorSlot::Draw, number);
    setSlot(ColorSlot::Stock, number);
    EXPECT_TRUE(inks.insert(look.slot(ColorSlot::Draw)).second) << number;
    EXPECT_TRUE(grounds.insert(look.stock()).second) << number;
  }
}

TEST_P(SoftLook, NumbersBelowZeroAreBlackAsEver) {
  setSlot(ColorSlot::Draw, -5);
  const Rgb below = look.slot(ColorSlot::Draw);
  setSlot(ColorSlot::Draw, 0);
  EXPECT_EQ(look.slot(ColorSlot::Draw), below);
}

INSTANTIATE_TEST_SUITE_P(Looks, SoftLook, ::testing::Values(LookChoice::Dark, LookChoice::Light));

TEST_F(Look, WithoutTheKeyEverythingIsAsTheNumbersSay) {
  for (const int choice : {0, -1, 4, 32767}) {
    store.screenlook = choice;
    look.darkTheme = true;
    EXPECT_EQ(look.tone(), ScreenTone::Classic) << choice;
    for (const ColorSlot slot : kSlots) EXPECT_EQ(look.slot(slot), slotColor(store, slot));
    EXPECT_EQ(look.background(), ColorOf(0));
    EXPECT_EQ(look.stock(), ColorOf(1));
    EXPECT_EQ(look.letters(), paletteColor(15));
    EXPECT_EQ(look.band(), paletteColor(15));
    EXPECT_EQ(look.arcMarker(), std::nullopt);
    store.toolcolor[3] = 11;
    EXPECT_EQ(pathOf(103), paletteColor(11));
  }
}

TEST_F(Look, FollowsTheTheme) {
  choose(LookChoice::ByTheme);
  EXPECT_EQ(look.tone(), ScreenTone::Classic) << "without a desktop there is no theme";
  look.darkTheme = true;
  EXPECT_EQ(look.tone(), ScreenTone::Dark);
  look.darkTheme = false;
  EXPECT_EQ(look.tone(), ScreenTone::Light);
}

TEST_F(Look, OrAChoice) {
  look.darkTheme = true;
  choose(LookChoice::Light);
  EXPECT_EQ(look.tone(), ScreenTone::Light);
  look.darkTheme = false;
  choose(LookChoice::Dark);
  EXPECT_EQ(look.tone(), ScreenTone::Dark);
}

TEST_F(Look, PaperHasTheColoursOfTheNumbers) {
  look.onPaper = true;
  for (const LookChoice choice : {LookChoice::ByTheme, LookChoice::Dark, LookChoice::Light}) {
    choose(choice);
    EXPECT_EQ(look.background(), ColorOf(0));
    EXPECT_EQ(look.slot(ColorSlot::Draw), paletteColor(15));
  }
}

TEST_F(Look, ABackgroundOfItsOwnStaysAndDecidesTheInks) {
  choose(LookChoice::Dark);
  setSlot(ColorSlot::Background, 0x7FFF);
  EXPECT_EQ(look.background(), 0x7FFF);
  EXPECT_EQ(look.tone(), ScreenTone::Light);
  choose(LookChoice::Light);
  setSlot(ColorSlot::Background, 0x2020);
  EXPECT_EQ(look.tone(), ScreenTone::Dark);
}

TEST_F(Look, PathsByGroupTellNeighboursApart) {
  store.pathcolors = 1;
  for (const LookChoice choice : {LookChoice::Classic, LookChoice::Dark, LookChoice::Light}) {
    choose(choice);
    for (int group = 1; group < 40; ++group) {
      EXPECT_NE(pathOf(group * 100 + 2), pathOf((group + 1) * 100 + 2)) << group;
      EXPECT_EQ(pathOf(group * 100 + 2), pathOf(group * 100 + 7)) << "whatever the tool";
    }
    EXPECT_EQ(pathOf(30102), look.slot(ColorSlot::Select));
  }
}

}  // namespace
}  // namespace tess
