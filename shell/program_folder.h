// Where the program finds its folder (`appfolder`): setups, definitions, drawings and the log.
// Owns: FolderRequest, folderRequest, programFolder, userFolder, isFirstStart, endFirstStart,
//       shippedDataFolder, HelpFiles, helpFiles.
#pragma once

#include <functional>
#include <optional>
#include <string>

namespace tess {

// What the choice depends on.
struct FolderRequest {
  std::optional<std::string> home;  // --home
  std::string executableFolder;     // with its last separator
  // A variable of the environment; nothing when it is unset or empty.
  std::function<std::optional<std::string>(const char*)> environment;
};

// The request of this process.
FolderRequest folderRequest(std::optional<std::string> home);

// The folder with its last separator: --home, else TESSIMO_HOME, else the executable's own folder
// when it holds tess.def, else the user's data folder, which is filled from the shipped data when
// it has no tess.def yet. Its CNC folder exists afterwards if it can be made. Raises Path not found
// for a folder that is named and does not exist, and the file failures of filling.
std::string programFolder(const FolderRequest& request);

// Where what belongs to this user alone is kept, whatever folder the program works in: `tessimo` in
// XDG_CONFIG_HOME, else in ~/.config, with its last separator; "" without a home folder. It need
// not exist.
std::string userFolder(const FolderRequest& request);

// Whether no window has been open yet on the folder that programFolder filled for a user: it is to
// ask what a new user has to choose. Never in a folder that somebody named.
bool isFirstStart(const FolderRequest& request, const std::string& folder);
// That has been asked. Raises what removing a file raises.
void endFirstStart(const std::string& folder);

// Where the files lie that ship beside the program: share/tessimo of the installation, else the
// data folder of the source tree that it was built from.
std::string shippedDataFolder(const std::string& executableFolder);

// What the help menu shows. Nobody copies these to the user's folder, and nobody writes them.
struct HelpFiles {
  std::string manual;    // the path of the document
  std::string examples;  // the folder of the drawings to try, with its last separator
};

// Those of the installation, else those of the build and the source tree. They need not exist.
HelpFiles helpFiles(const std::string& executableFolder);

}  // namespace tess
