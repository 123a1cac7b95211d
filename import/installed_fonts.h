// All fonts that a text can be set in: single strokes and outlines.
// Owns: InstalledFonts.
#pragma once

#include "import/hershey_fonts.h"
#include "import/outline_fonts.h"

namespace tess {

class InstalledFonts : public FontLibrary {
 public:
  std::vector<std::string> families() override;
  bool hasFamily(const std::string& name) override;
  std::string monospaceFamily() override { return outlines_.monospaceFamily(); }
  std::shared_ptr<FontFace> open(const FontRequest& request) override;

 private:
  HersheyFonts strokes_;
  OutlineFonts outlines_;
};

}  // namespace tess
