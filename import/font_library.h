// The port to the fonts of the machine.
// Owns: FontRequest, FontError, FontFace, FontLibrary.
#pragma once

#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "import/glyph_outline.h"

namespace tess {

struct FontRequest {
  std::string name;  // of the family
  bool bold = false;
  bool italic = false;
  friend bool operator==(const FontRequest&, const FontRequest&) = default;
};

// What the font library could not do, with its number for it.
class FontError : public std::runtime_error {
 public:
  FontError(const std::string& what, int code) : std::runtime_error(what), code_(code) {}
  int code() const { return code_; }

 private:
  int code_;
};

// One style of a family. Lengths are in em.
class FontFace {
 public:
  virtual ~FontFace() = default;
  // Raises FontError for a damaged font. What it gives stays until the next call.
  virtual const GlyphShape& glyph(char32_t character) = 0;
  // What the font adds between two of its characters; 0 for none.
  virtual double kerning(char32_t left, char32_t right) = 0;
  // From one baseline to the next.
  virtual double lineHeight() const = 0;
};

class FontLibrary {
 public:
  virtual ~FontLibrary() = default;
  // Families of outlines or strokes, each once, in any order.
  virtual std::vector<std::string> families() = 0;
  virtual bool hasFamily(const std::string& name) = 0;
  // The family that stands in for one that is not installed and has a fixed pitch.
  virtual std::string monospaceFamily() = 0;
  // Raises FontError for a family that is not there or cannot be read.
  virtual std::shared_ptr<FontFace> open(const FontRequest& request) = 0;
};

}  // namespace tess
