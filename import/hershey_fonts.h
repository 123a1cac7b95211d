// Fonts of single strokes for engraving: the Hershey faces as .jhf files have them.
// Owns: HersheyFont, readHershey, HersheyFonts.
#pragma once

#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "import/font_library.h"

namespace tess {

// The characters of one file, from the blank on in the order of their code points. What comes after
// the first 96 stands at the code points from U+00A0 on.
struct HersheyFont {
  std::map<char32_t, GlyphShape> glyphs;
};

// Each line holds a number in 5 columns, how many pairs follow in 3, and the pairs: the left and
// right limits first, then places, " R" where the pen is lifted. A letter stands for its distance
// from R; y grows downward, and the baseline is 9 below the middle. Lines may be broken between
// pairs. Raises FontError, which names the file and the line.
HersheyFont readHershey(const std::string& file, std::string_view bytes);

// The faces that are installed. A slant is made; strokes know no weight.
class HersheyFonts : public FontLibrary {
 public:
  // In the data folders of the machine, or in this one alone.
  explicit HersheyFonts(std::string onlyFolder = {});

  std::vector<std::string> families() override;
  bool hasFamily(const std::string& name) override { return !fileOf(name).empty(); }
  std::string monospaceFamily() override { return {}; }  // all are spaced by their widths
  std::shared_ptr<FontFace> open(const FontRequest& request) override;

 private:
  struct Listed {
    std::string family;
    std::string file;
  };
  const std::vector<Listed>& listed();
  std::string fileOf(const std::string& family);

  std::string onlyFolder_;
  std::vector<Listed> listed_;
  bool looked_ = false;
  FontRequest opened_;
  std::shared_ptr<FontFace> face_;
};

}  // namespace tess
