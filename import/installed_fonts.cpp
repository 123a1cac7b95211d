// Fonts of both kinds.
#include "import/installed_fonts.h"

namespace tess {

std::vector<std::string> InstalledFonts::families() {
  std::vector<std::string> names = outlines_.families();
  for (std::string& name : strokes_.families()) names.push_back(std::move(name));
  return names;
}

bool InstalledFonts::hasFamily(const std::string& name) {
  return strokes_.hasFamily(name) || outlines_.hasFamily(name);
}

std::shared_ptr<FontFace> InstalledFonts::open(const FontRequest& request) {
  return strokes_.hasFamily(request.name) ? strokes_.open(request) : outlines_.open(request);
}

}  // namespace tess
