// A folder that lives as long as a test, and the way into it.
// Owns: TempFolder, WorkingFolder.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include "core/file_system.h"
#include "tests/support/write_file.h"

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

// Goes to another working folder for as long as a test lasts.
class WorkingFolder {
 public:
  explicit WorkingFolder(const std::string& folder) { std::filesystem::current_path(folder); }
  ~WorkingFolder() { std::filesystem::current_path(before_); }
  WorkingFolder(const WorkingFolder&) = delete;
  WorkingFolder& operator=(const WorkingFolder&) = delete;

 private:
  std::filesystem::path before_ = std::filesystem::current_path();
};

}  // namespace tess::testing
