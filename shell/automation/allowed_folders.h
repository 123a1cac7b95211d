// The folders that the file commands of a script may touch.
// Owns: AllowedFolders.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <sys/types.h>
#include <vector>

namespace tess {

class AllowedFolders {
 public:
  // Opens a folder with everything below it. One that does not exist is passed over.
  void allow(std::string_view folder);

  // Opens what an argument of the command line names, as long as it is there: a folder, or the
  // folder of a file that is named together with it. It is never the root: "/5" is a number.
  void allowNamedBy(std::string_view argument);

  // The program's own folder: setups that lie in it may be loaded, and what the program keeps for
  // itself is written there. All else in it stays closed.
  void setProgramFolder(std::string_view folder);

  // Whether the folder behind an open descriptor is an open one, or lies in one. No names count
  // here, so that nothing can be swapped.
  bool holds(int folder) const;
  bool isProgramFolder(int folder) const;

  // The sentence about a path that is outside.
  static std::string outside(const std::string& path);

  // Why `path` may not be used, as a sentence for the script's author; nothing when it may: it lies
  // in an open folder, all links and dots resolved, and so does every file beside it that shares
  // its name but for the extension (the path file of a drawing, its backup, its program).
  std::optional<std::string> refusal(std::string_view path) const;
  // The same for a file that is only read.
  std::optional<std::string> refusalToRead(std::string_view path) const;

 private:
  // A folder by its resolved path, and by what it is to the file system.
  struct Place {
    std::filesystem::path path;
    dev_t device;
    ino_t number;
  };

  static std::optional<Place> existing(std::string_view folder);
  bool holdsPath(const std::filesystem::path& resolved) const;
  bool holdsEntry(const std::filesystem::path& entry) const;

  std::vector<Place> folders_;
  std::optional<Place> programFolder_;
};

}  // namespace tess
