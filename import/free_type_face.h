// One face of an outline font, read by FreeType.
// Owns: FaceFile, FaceStyle, FreeTypeLibrary, FreeTypeFace.
#pragma once

#include <ft2build.h>
#include FT_FREETYPE_H

#include <map>
#include <memory>
#include <string>
#include <string_view>

#include "import/font_library.h"

namespace tess {

struct FaceFile {
  std::string path;
  long index = 0;  // of the face in a collection; its high half that of a variable font's instance
};

// What has to be made, since the font has no such face.
struct FaceStyle {
  bool embolden = false;
  bool slant = false;
};

class FreeTypeLibrary {
 public:
  FreeTypeLibrary();
  ~FreeTypeLibrary();
  FreeTypeLibrary(const FreeTypeLibrary&) = delete;
  FreeTypeLibrary& operator=(const FreeTypeLibrary&) = delete;
  FT_Library get() const { return library_; }

 private:
  FT_Library library_ = nullptr;
};

// Unhinted, at one pixel to the unit of its design, so that no coordinate is rounded.
class FreeTypeFace {
 public:
  // Reads the file piece by piece as it is needed: one that is cut short meanwhile is a damaged
  // font and nothing worse. Both raise FontError, which names the file.
  FreeTypeFace(std::shared_ptr<FreeTypeLibrary> library, const FaceFile& file, FaceStyle style);
  FreeTypeFace(std::shared_ptr<FreeTypeLibrary> library, std::string_view bytes, FaceStyle style);
  ~FreeTypeFace();
  FreeTypeFace(const FreeTypeFace&) = delete;
  FreeTypeFace& operator=(const FreeTypeFace&) = delete;

  bool has(char32_t character) const { return glyphIndex(character) != 0; }
  // Raises FontError.
  GlyphShape shape(char32_t character);
  // The advance of what stands for a character that is missing.
  double missingAdvance();
  double kerning(char32_t left, char32_t right);
  double lineHeight() const;

 private:
  struct File;
  struct Kerning;

  void finishOpening();
  FT_UInt glyphIndex(char32_t character) const;
  GlyphShape shapeOf(FT_UInt glyph);
  void restyle(GlyphShape& shape);
  double unit() const { return 1.0 / pixelsPerEm_; }
  [[noreturn]] void fail(const char* what, FT_Error error) const;

  std::shared_ptr<FreeTypeLibrary> library_;
  std::unique_ptr<File> file_;
  std::string name_;  // of the file
  FaceStyle style_;
  FT_Face face_ = nullptr;
  FT_UInt pixelsPerEm_ = 1;
  std::unique_ptr<Kerning> kerning_;
};

}  // namespace tess
