// A folder that lives as long as a test, and the way into it.
// Owns: TempFolder, WorkingFolder.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace tess::testing {

class TempFolder {
 public:
  TempFolder();
  ~TempFolder();
  TempFolder(const TempFolder&) = delete;
  TempFolder& operator=(const TempFolder&) = delete;

  // The full path of an entry, or of the folder itself with its last separator.
  std::string operator()(std::string_view name = {}) const;
  std::string write(std::string_view name, std::string_view content) const;
  std::string read(std::string_view name) const;
  bool has(std::string_view name) const;

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
