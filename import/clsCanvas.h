// What a glyph service works on: it reads outlines through a canvas, and draws on it for the
// preview. clsCanvas is the one over the fonts of the machine.
// Owns: GlyphFormat, AbcWidths, clsLineCoordinates, ICanvas, clsCanvas.
#pragma once

#include <cstddef>
#include <memory>
#include <vector>

#include "display/drawing_target.h"
#include "import/font_library.h"

namespace tess {

enum class GlyphFormat { Metrics, Native };  // the advance alone, or the outline too

// Left bearing, width of the outline and right bearing, in em. Their sum is the advance.
struct AbcWidths {
  double abcA = 0, abcB = 0, abcC = 0;
  double advance() const { return abcA + abcB + abcC; }
};

// One line piece.
struct clsLineCoordinates {
  double x0 = 0, y0 = 0, x1 = 0, y1 = 0;
  friend bool operator==(const clsLineCoordinates&, const clsLineCoordinates&) = default;
};

class ICanvas {
 public:
  virtual ~ICanvas() = default;
  // The outline under the matrix, in em. Raises a failure with the font library's number for it, as
  // do the next two.
  virtual GlyphShape GetGlyphOutline(char32_t character, GlyphFormat format,
                                     const MAT2& matrix) = 0;
  // The lines and curves of the outline; 0 for a character without one.
  virtual std::size_t GetGlyphOutlineSize(char32_t character) = 0;
  virtual AbcWidths GetCharABCWidths(char32_t character) = 0;
  // In canvas pixels, y downward. An arc is a part of the circle round (x, y), its angles measured
  // from the x axis towards the y axis.
  virtual void MoveTo(double x, double y) = 0;
  virtual void LineTo(double x, double y) = 0;
  virtual void ArcTo(double x, double y, double radius, double start, double sweep) = 0;
  // What the font adds between two characters, in em.
  virtual double kerning(char32_t left, char32_t right) = 0;
};

class clsCanvas : public ICanvas {
 public:
  // Without a face there are no outlines yet, without a surface no preview.
  explicit clsCanvas(DrawingSurface* dc = nullptr) : dc_(dc) {}

  // Takes memory for a preview of that size. Raises "CreateCompatibleBitmap failed", and then there
  // is no preview.
  void Initialize(int width, int height);
  DrawingSurface* DC() const { return dc_; }
  void selectFont(std::shared_ptr<FontFace> face) { face_ = std::move(face); }

  GlyphShape GetGlyphOutline(char32_t character, GlyphFormat format, const MAT2& matrix) override;
  std::size_t GetGlyphOutlineSize(char32_t character) override;
  AbcWidths GetCharABCWidths(char32_t character) override;
  void MoveTo(double x, double y) override;
  void LineTo(double x, double y) override;
  void ArcTo(double x, double y, double radius, double start, double sweep) override;
  double kerning(char32_t left, char32_t right) override;

  // What was drawn for the preview.
  const std::vector<clsLineCoordinates>& strokes() const { return strokes_; }
  void clear() { strokes_.clear(); }

 private:
  DrawingSurface* dc_;
  std::shared_ptr<FontFace> face_;
  bool previews_ = false;
  PlanePoint at_;
  std::vector<clsLineCoordinates> strokes_;
};

}  // namespace tess
