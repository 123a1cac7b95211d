// Walking through folders, and taking what the operator types: a file, a folder or a pattern.
#include "core/file_dialog.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <utility>

#include "core/DlgSaveFile.h"
#include "core/dlgGetFile.h"
#include "core/file_system.h"
#include "core/text.h"

namespace tess {
namespace {

namespace fs = std::filesystem;

constexpr char kUp[] = "..";
// Below the home folder, where a download or a mail program puts files.
constexpr const char* kOperatorsFolders[] = {"", "Desktop/", "Documents/", "Downloads/"};
constexpr char kNoFolder[] = "There is no such folder.";

// The full path without dots and doubled separators, with a separator at its end.
std::string tidyFolder(const std::string& folder) {
  return withSeparator(fs::path(fullPath(folder)).lexically_normal().string());
}

std::string parentOf(const std::string& folder) {
  return withSeparator(fs::path(folder).parent_path().parent_path().string());
}

std::string homeFolder() {
  const char* const home = std::getenv("HOME");
  return home == nullptr || *home == '\0' ? std::string() : tidyFolder(home);
}

bool isPattern(const std::string& text) {
  return text.find_first_of("*?") != std::string::npos;
}

}  // namespace

FileDialog::FileDialog(std::string name, const FileRequest& request, const char* okCaption)
    : Form(std::move(name), request.title),
      filters_(filtersOf(request.pattern)),
      pattern_(filters_.front().pattern),
      start_(tidyFolder(request.folder.empty() ? "." : request.folder)),
      places_(request.places) {
  lblName.setCaption("&Name");
  lblFilter.setCaption("&Type");
  lblFolder.setCaption("Fol&der");
  lblFolders.setCaption("Folders");
  lblFiles.setCaption("Files");
  cmdOK.setCaption(request.okCaption.empty() ? okCaption : request.okCaption);
  cmdCancel.setCaption("&Cancel");
  setDefaultButton(cmdOK);
  setCancelButton(cmdCancel);
  std::vector<std::string> titles;
  for (const FileFilter& filter : filters_) titles.push_back(filter.title);
  cmbFilter.setItems(titles);
  cmbFilter.setIndex(0);
  txtName.setText(request.name);
  picDrawing.setVisible(request.showsDrawings);
  wire();
}

void FileDialog::wire() {
  onLoad = [this] {
    chosen_.reset();
    folder_ = start_;
    showFolder();
  };
  txtName.onChange = [this] { notice(""); };
  cmbFilter.onClick = [this] {
    pattern_ = filters_[static_cast<std::size_t>(cmbFilter.index())].pattern;
    showFiles();
  };
  cmbFolder.onClick = [this] {
    const std::string place = cmbFolder.text();
    if (place != folder_) enter(place);
  };
  lstFolders.onOpen = [this] { openFolder(lstFolders.text()); };
  lstFiles.onClick = [this] {
    if (lstFiles.index() >= 0) txtName.setText(lstFiles.text());
    showDrawing();
  };
  lstFiles.onOpen = [this] { take(lstFiles.text()); };
  cmdOK.onClick = [this] { take(txtName.text()); };
  cmdCancel.onClick = [this] { close(CloseReason::Operator); };
}

void FileDialog::openFolder(const std::string& name) {
  enter(name == kUp ? parentOf(folder_) : folder_ + name);
}

bool FileDialog::enter(const std::string& folder) {
  const std::string wanted = tidyFolder(folder);
  if (!isOpenFolder(wanted)) {
    notice(kNoFolder);
    return false;
  }
  folder_ = wanted;
  showFolder();
  return true;
}

void FileDialog::showFolder() {
  notice("");
  showPlaces();
  std::vector<std::string> folders;
  if (parentOf(folder_) != folder_) folders.emplace_back(kUp);
  if (isOpenFolder(folder_)) {
    const std::vector<std::string> inside = listFolder(folder_).folders;
    folders.insert(folders.end(), inside.begin(), inside.end());
  }
  lstFolders.setItems(folders);
  showFiles();
}

void FileDialog::showFiles() {
  std::vector<std::string> files;
  if (isOpenFolder(folder_)) files = listFolder(folder_).files;
  std::erase_if(files, [this](const std::string& file) { return !matchesPattern(file, pattern_); });
  lstFiles.setItems(files);
  showDrawing();
}

// Read when it is looked at, and not before.
void FileDialog::showDrawing() {
  if (!picDrawing.isVisible()) return;
  if (lstFiles.index() < 0) return picDrawing.show(nullptr);
  picDrawing.show([path = folder_ + lstFiles.text()] { return previewOfDrawing(path); });
}

// The folder itself, those around it, then where the dialog began, the operator's own, and those
// that the request names.
void FileDialog::showPlaces() {
  std::vector<std::string> places = {folder_};
  while (parentOf(places.back()) != places.back()) places.push_back(parentOf(places.back()));
  std::vector<std::string> others = {start_};
  if (const std::string home = homeFolder(); !home.empty()) {
    for (const char* const inside : kOperatorsFolders) others.push_back(home + inside);
  }
  for (const std::string& place : places_) others.push_back(tidyFolder(place));
  for (const std::string& place : others) {
    const bool known = std::find(places.begin(), places.end(), place) != places.end();
    if (!place.empty() && !known && folderExists(place)) places.push_back(place);
  }
  cmbFolder.setItems(places);
  cmbFolder.setIndex(0);
}

void FileDialog::take(const std::string& text) {
  const std::string wanted(trimmed(text));
  if (isPattern(wanted)) {
    pattern_ = wanted;
    showFiles();
  } else if (!wanted.empty()) {
    takePath(pathOf(wanted));
  }
  // The operator goes on typing.
  if (isShown()) txtName.focus();
}

void FileDialog::takePath(const std::string& path) {
  if (folderExists(path)) {
    if (enter(path)) txtName.setText("");
    return;
  }
  std::string folder;
  splitPath(folder, path, "");
  if (!isOpenFolder(folder)) return notice(kNoFolder);
  chosen_ = acceptable(path);
  if (chosen_) accept();
}

bool FileDialog::isOpenFolder(const std::string& folder) const {
  return folderExists(folder) && (!mayEnter || mayEnter(folder));
}

std::string FileDialog::pathOf(const std::string& text) const {
  const bool whole = text.front() == '/' || text.front() == '\\';
  return fs::path(fullPath(whole ? text : folder_ + text)).lexically_normal().string();
}

void FileDialog::notice(const std::string& text) {
  lblNotice.setCaption(text);
}

std::unique_ptr<FileDialog> fileDialogFor(const FileRequest& request) {
  if (request.forSaving) return std::make_unique<DlgSaveFile>(request);
  return std::make_unique<dlgGetFile>(request);
}

}  // namespace tess
