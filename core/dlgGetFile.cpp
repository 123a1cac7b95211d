// Only files that are there.
#include "core/dlgGetFile.h"

#include "core/file_system.h"

namespace tess {

std::optional<std::string> dlgGetFile::acceptable(const std::string& path) {
  for (const std::string& candidate : {path, path + endingOf(pattern())}) {
    if (fileExists(candidate)) return fullPath(candidate);
  }
  notice("There is no such file in this folder.");
  return std::nullopt;
}

}  // namespace tess
