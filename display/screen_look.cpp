// Shades by number.
#include "display/screen_look.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "core/drawing_store.h"

namespace tess {

namespace {

using Shades = std::array<Rgb, kPaletteSize>;

// Red first, as designers write it.
constexpr Rgb shade(int rrggbb) {
  return (rrggbb & 0xFF) << 16 | (rrggbb & 0xFF00) | (rrggbb >> 16 & 0xFF);
}

constexpr Shades shades(std::array<int, kPaletteSize> rrggbb) {
  Shades result{};
  for (std::size_t at = 0; at < rrggbb.size(); ++at) result[at] = shade(rrggbb[at]);
  return result;
}

// No channel of a dark ground reaches 0x40, none of a light one lies below 0xC0: a pen that inverts
// the upper two bits shows on all of them.
constexpr Shades kDarkGrounds =
    shades({0x16191D, 0x232C3D, 0x1B2E22, 0x1A2E30, 0x33211F, 0x2E2233, 0x302C1A, 0x32363C,
            0x2A2D32, 0x22323F, 0x1F3425, 0x1D3436, 0x3A2523, 0x34273A, 0x37321E, 0x33383E});
constexpr Shades kDarkInks =
    shades({0xBFB4A8, 0x8FB4FF, 0x84D18E, 0x4FD0CC, 0xFF9A8F, 0xE79CE8, 0xD9BE5A, 0xC9CED6,
            0xA9B3BE, 0xA9C8FF, 0xA0EBAA, 0x72E6E6, 0xFFA9A0, 0xF5B5F2, 0xFFE07A, 0xEEF1F5});
constexpr Shades kLightGrounds =
    shades({0xFBFBF9, 0xDDE3EC, 0xDCEBDD, 0xD8EAEA, 0xF2DEDB, 0xEEDDEE, 0xEEE8D2, 0xE6E8EA,
            0xDADDE1, 0xD9E4F5, 0xDFF2E0, 0xDBF2F2, 0xF8E2DF, 0xF5E2F4, 0xF7F1D3, 0xFFFFFF});
constexpr Shades kLightInks =
    shades({0x15181C, 0x24408E, 0x1F6B2E, 0x0F6A70, 0xA32A22, 0x8A2E8C, 0x73590C, 0x3A4048,
            0x565E68, 0x2456C8, 0x1A7030, 0x0A6A76, 0xB8241B, 0x9E2FA0, 0x984C00, 0x1B2026});

// Told apart from one group to the next.
constexpr std::array kGroupColors = {11, 12, 10, 14, 13, 9, 3, 4, 2, 5, 6, 1};

constexpr double kGridPart = 0.22;  // of the way from the background to the ink
constexpr double kGridContrast = 1.3;
constexpr double kDarkest = 0.18;  // luminance of a ground that takes light inks

bool isNumber(int value) {
  return value >= 0 && value < kPaletteSize;
}

double linear(int channel) {
  const double part = channel / 255.0;
  return part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
}

double luminance(Rgb color) {
  return 0.2126 * linear(color & 0xFF) + 0.7152 * linear(color >> 8 & 0xFF) +
         0.0722 * linear(color >> 16 & 0xFF);
}

double leastContrast(Rgb color, std::initializer_list<Rgb> grounds) {
  double least = 21;
  for (const Rgb ground : grounds) least = std::min(least, contrastRatio(color, ground));
  return least;
}

int mixedChannel(Rgb a, Rgb b, double part, int shift) {
  const int from = a >> shift & 0xFF;
  const int to = b >> shift & 0xFF;
  return static_cast<int>(std::lround(from + (to - from) * part)) << shift;
}

}  // namespace

double contrastRatio(Rgb a, Rgb b) {
  const auto [darker, brighter] = std::minmax({luminance(a), luminance(b)});
  return (brighter + 0.05) / (darker + 0.05);
}

Rgb mixed(Rgb a, Rgb b, double part) {
  return mixedChannel(a, b, part, 0) | mixedChannel(a, b, part, 8) | mixedChannel(a, b, part, 16);
}

Rgb legible(Rgb color, std::initializer_list<Rgb> grounds, double ratio) {
  constexpr Rgb kBlack = 0;
  constexpr Rgb kWhite = 0xFFFFFF;
  constexpr int kSteps = 32;
  Rgb best = color;
  double bestContrast = 0;
  for (int step = 0; step <= kSteps; ++step) {
    for (const Rgb end : {kWhite, kBlack}) {
      const Rgb tried = mixed(color, end, static_cast<double>(step) / kSteps);
      const double contrast = leastContrast(tried, grounds);
      if (contrast >= ratio) return tried;
      if (contrast > bestContrast) best = tried;
      bestContrast = std::max(bestContrast, contrast);
    }
  }
  return best;
}

// A background that is a colour of its own stays, and decides which inks show on it.
ScreenTone ScreenLook::tone() const {
  if (onPaper) return ScreenTone::Classic;
  const auto choice = static_cast<LookChoice>(static_cast<int>(store_.screenlook));
  const bool byTheme = choice == LookChoice::ByTheme && darkTheme.has_value();
  if (!byTheme && choice != LookChoice::Dark && choice != LookChoice::Light) {
    return ScreenTone::Classic;
  }
  const int background = store_.colortable[static_cast<int>(ColorSlot::Background)];
  const bool dark = background < kPaletteSize ? (byTheme ? *darkTheme : choice == LookChoice::Dark)
                                              : luminance(background) < kDarkest;
  return dark ? ScreenTone::Dark : ScreenTone::Light;
}

Rgb ScreenLook::ground(ColorSlot slot) const {
  const int value = store_.colortable[static_cast<int>(slot)];
  const ScreenTone tone = this->tone();
  if (tone == ScreenTone::Classic || !isNumber(value)) return ColorOf(value);
  return (tone == ScreenTone::Dark ? kDarkGrounds : kLightGrounds)[static_cast<unsigned>(value)];
}

Rgb ScreenLook::ink(int value) const {
  const ScreenTone tone = this->tone();
  if (tone == ScreenTone::Classic || value >= kPaletteSize) return ColorOf(value);
  const auto number = static_cast<unsigned>(std::max(value, 0));
  return (tone == ScreenTone::Dark ? kDarkInks : kLightInks)[number];
}

Rgb ScreenLook::slot(ColorSlot slot) const {
  const Rgb color = ink(store_.colortable[static_cast<int>(slot)]);
  if (!isSoft()) return color;
  if (slot == ColorSlot::Grid) {
    return legible(mixed(background(), color, kGridPart), {background(), stock()}, kGridContrast);
  }
  if (slot == ColorSlot::Marker) return marker(color);
  return color;
}

Rgb ScreenLook::marker(Rgb color) const {
  const Rgb behind = background();
  const Rgb stock = this->stock();
  const bool known =
      found_ && found_->color == color && found_->background == behind && found_->stock == stock;
  if (!known) found_ = {color, behind, stock, legible(color, {behind, stock}, kMarkContrast)};
  return found_->found;
}

std::optional<Rgb> ScreenLook::arcMarker() const {
  if (!isSoft()) return {};
  return slot(ColorSlot::Marker);
}

// Fixed: classic letters know the palette alone; direct colours would change pictures that stand.
Rgb ScreenLook::letters() const {
  const int draw = store_.colortable[static_cast<int>(ColorSlot::Draw)];
  if (!isSoft()) return paletteColor(draw);
  return legible(ink(draw), {background(), stock()}, kTextContrast);
}

Rgb ScreenLook::band() const {
  constexpr int kWhite = 15;
  return isSoft() ? paletteColor(kWhite) : slotColor(store_, ColorSlot::Draw);
}

Rgb ScreenLook::path(int ps) const {
  const int code = store_.pscode[ps];
  if (isSelected(code)) return slot(ColorSlot::Select);
  if (store_.pathcolors == 1) {
    const auto group = static_cast<unsigned>(groupCutOff(code));
    return ink(kGroupColors[group % kGroupColors.size()]);
  }
  return isSoft() ? ink(store_.toolcolor[toolIndex(code)]) : pathColor(store_, ps);
}

Rgb ScreenLook::travel() const {
  constexpr double kTravelPart = 0.5;  // of the way from the background to the letters
  return legible(mixed(background(), letters(), kTravelPart), {background(), stock()},
                 kMarkContrast);
}

}  // namespace tess
