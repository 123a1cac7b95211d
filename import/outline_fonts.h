// The outline fonts that Fontconfig knows, read by FreeType; pairs of characters are set by
// HarfBuzz.
// Owns: OutlineFonts, openFontBytes.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "import/font_library.h"

namespace tess {

// Nothing is read before it is asked for.
class OutlineFonts : public FontLibrary {
 public:
  // The fonts of the machine, or of these folders alone.
  explicit OutlineFonts(std::vector<std::string> onlyFolders = {});
  ~OutlineFonts() override;

  std::vector<std::string> families() override;
  bool hasFamily(const std::string& name) override;
  std::string monospaceFamily() override;
  // The face nearest in slant, width and weight; a slant or weight that the family lacks is made
  // from what it has.
  std::shared_ptr<FontFace> open(const FontRequest& request) override;

 private:
  class Machine;
  Machine& machine();

  std::vector<std::string> onlyFolders_;
  std::shared_ptr<Machine> machine_;
  FontRequest opened_;  // the face opened last, which is mostly the next one too
  std::shared_ptr<FontFace> face_;
};

// A face from the bytes of a font file, as they are. Raises FontError.
std::shared_ptr<FontFace> openFontBytes(std::string_view bytes, bool bold, bool italic);

}  // namespace tess
