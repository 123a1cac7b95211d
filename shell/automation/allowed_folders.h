// The folders that the file commands of a script may touch.
// Owns: AllowedFolders.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tess {

class AllowedFolders {
 public:
  // Opens a folder with everything below it. One that does not exist is passed over.
  void allow(std::string_view folder);

  // Opens what an argument of the command line names: a folder, or the folder of a file that is
  // named together with it.
  void allowNamedBy(std::string_view argument);

  // Lets the setups that lie in a folder be loaded, though nothing be written there.
  void allowSetupsOf(std::string_view folder);

  // Why `path` may not be used, as a sentence for the script's author; nothing when it may: it lies
  // in an open folder, all links and dots resolved, and so does every file beside it that shares
  // its name but for the extension (the path file of a drawing, its backup, its program).
  std::optional<std::string> refusal(std::string_view path) const;
  // The same for a file that is only read.
  std::optional<std::string> refusalToRead(std::string_view path) const;

 private:
  bool holds(const std::filesystem::path& resolved) const;
  bool holdsEntry(const std::filesystem::path& entry) const;

  std::vector<std::filesystem::path> folders_;
  std::vector<std::filesystem::path> setupFolders_;
};

}  // namespace tess
