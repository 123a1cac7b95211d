// The glyph service inside the program: it reads an outline, flattens its curves and reports the
// pieces.
// Owns: FlatContour, FlatGlyph, kMostPieces, flattened, QLGlyph.
#pragma once

#include <map>
#include <set>
#include <string>
#include <vector>

#include "import/glyph_service.h"

namespace tess {

// Corners in em. From each to the next runs a piece, in a closed one from the last to the first.
struct FlatContour {
  std::vector<PlanePoint> corners;
  bool closed = true;
};

struct FlatGlyph {
  std::vector<FlatContour> contours;
  double advance = 0;
};

// One more than the drawing holds rows: a character with more is cut short there, since nothing can
// come of it.
inline constexpr std::size_t kMostPieces = 32768;

// No point of a curve lies further than `tolerance` em from its pieces. Curves are divided into
// equal steps of their parameter; corners that coincide are one, and what has no extent is nothing.
std::vector<FlatContour> flattened(const GlyphOutline& outline, double tolerance);

class QLGlyph : public GlyphService {
 public:
  void begin(const GlyphRun& run) override;
  void DrawCharAsync(const GlyphRequest& request, GlyphClient& client, ICanvas& canvas,
                     Pen& pen) override;

  // The characters since begin() that the font has not, with the family that each came from.
  const std::map<char32_t, std::string>& missing() const { return missing_; }

 private:
  // What a flattened outline depends on besides its character.
  struct Flattening {
    GlyphRun run;
    double tolerance = 0;
    bool mirrorX = false, mirrorY = false;
  };
  struct Kept {
    FlatGlyph glyph;
    bool missing = false;
    std::string substitute;
  };

  void keepFor(const GlyphRequest& request);
  const FlatGlyph& glyph(char32_t character, ICanvas& canvas);
  Kept read(char32_t character, ICanvas& canvas) const;
  void report(const FlatGlyph& glyph, const GlyphRequest& request, GlyphClient& client,
              ICanvas& canvas, Pen pen);

  GlyphRun run_;
  Flattening flattening_;
  std::map<char32_t, Kept> kept_;
  std::map<char32_t, std::string> missing_;
  std::vector<PlanePoint> placed_;  // of one contour: memory for the next
};

}  // namespace tess
