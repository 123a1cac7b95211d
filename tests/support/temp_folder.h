// A folder that lives as long as a test.
// Owns: TempFolder.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include "core/file_system.h"

namespace tess::testing {

class TempFolder {
 public:
  TempFolder() {
    std::string pattern = (std::filesystem::temp_directory_path() / "tessimo-XXXXXX").string();
    if (mkdtemp(pattern.data()) == nullptr) throw std::runtime_error("no temporary folder");
    path_ = pattern;
  }
  ~TempFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  TempFolder(const TempFolder&) = delete;
  TempFolder& operator=(const TempFolder&) = delete;

  // The full path of an entry, or of the folder itself with its last separator.
  std::string operator()(std::string_view name = {}) const {
    return withSeparator(path_).append(name);
  }
  std::string write(std::string_view name, std::string_view content) const {
    writeFile((*this)(name), content);
    return (*this)(name);
  }
  std::string read(std::string_view name) const { return readFile((*this)(name)); }
  bool has(std::string_view name) const { return std::filesystem::exists((*this)(name)); }

 private:
  std::string path_;
};

}  // namespace tess::testing
