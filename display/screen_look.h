// How the colours of a drawing look on the screen: as the numbers say, or in softer shades on a
// dark or a light surface. Files, programs and paper know the numbers alone.
// Owns: ScreenTone, LookChoice, contrastRatio, legible, mixed, ScreenLook.
#pragma once

#include <initializer_list>
#include <optional>

#include "display/palette.h"

namespace tess {

enum class ScreenTone { Classic, Dark, Light };

// The setup's "screen look"; any other value is Classic.
enum class LookChoice { Classic = 0, ByTheme = 1, Dark = 2, Light = 3 };

// The brighter of two colours against the darker one, from 1 to 21.
double contrastRatio(Rgb a, Rgb b);

// The colour, or the nearest one on its way to white or black whose contrast to all the grounds is
// at least `ratio`; where there is none, the one that has most.
Rgb legible(Rgb color, std::initializer_list<Rgb> grounds, double ratio);

// From `a`, for 0, to `b`, for 1.
Rgb mixed(Rgb a, Rgb b, double part);

// The colours of what is painted on the screen. In the soft tones each of the sixteen numbers has
// a shade as ground, for background and stock, and one as ink, and every ink is legible as text on
// every ground. Colours that are no numbers stay as they are, but for marks and letters, which
// keep their contrast.
class ScreenLook {
 public:
  static constexpr double kMarkContrast = 3;
  static constexpr double kTextContrast = 4.5;

  explicit ScreenLook(const DrawingStore& store) : store_(store) {}

  // A picture for paper, which is classic whatever the setup says.
  bool onPaper = false;
  // What the theme of the desktop is; without a desktop there is none, and a look by the theme is
  // the classic one.
  std::optional<bool> darkTheme;

  ScreenTone tone() const;
  bool isSoft() const { return tone() != ScreenTone::Classic; }

  Rgb background() const { return ground(ColorSlot::Background); }
  Rgb stock() const { return ground(ColorSlot::Stock); }
  // Rows by their slot, the grid fainter than they are, marks so that they show.
  Rgb slot(ColorSlot slot) const;
  // The marks at the ends of arcs; nothing where they take the colour of the target.
  std::optional<Rgb> arcMarker() const;
  // The axes and their letters, and what else is written on the surface.
  Rgb letters() const;
  // What bands and crosses are drawn in, by a pen that inverts.
  Rgb band() const;
  // A path row by its tool, or by its group where the setup wants that; selected ones stand out.
  Rgb path(int ps) const;
  // The ways between path rows: fainter than these.
  Rgb travel() const;

 private:
  Rgb ground(ColorSlot slot) const;
  Rgb ink(int value) const;
  Rgb marker(Rgb color) const;

  // A mark's colour is asked for with every row, and takes long to find.
  struct FoundMarker {
    Rgb color, background, stock, found;
  };

  const DrawingStore& store_;
  mutable std::optional<FoundMarker> found_;
};

}  // namespace tess
