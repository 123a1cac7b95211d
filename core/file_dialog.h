// What the two file dialogs share: a folder that the operator walks through, the files in it that
// fit a filter, and the name that he chooses or types.
// Owns: FileDialog, fileDialogFor.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "core/controls.h"
#include "core/drawing_preview.h"
#include "core/file_filter.h"
#include "core/form.h"
#include "core/host.h"

namespace tess {

class FileDialog : public Form {
 public:
  // The full path that was accepted; nothing after a Cancel.
  const std::optional<std::string>& chosen() const { return chosen_; }
  // The folder shown, with a separator at its end.
  const std::string& folder() const { return folder_; }

  // Folders that it answers false for do not exist here.
  std::function<bool(const std::string& folder)> mayEnter;

  Label lblName{*this, "lblName"};
  TextBox txtName{*this, "txtName"};
  Label lblFilter{*this, "lblFilter"};
  ComboBox cmbFilter{*this, "cmbFilter"};
  Label lblNotice{*this, "lblNotice"};  // why a name was not taken
  Button cmdOK{*this, "cmdOK"};
  Button cmdCancel{*this, "cmdCancel"};
  Label lblFolder{*this, "lblFolder"};
  ComboBox cmbFolder{*this, "cmbFolder"};  // the folder, and others to go to
  Label lblFolders{*this, "lblFolders"};
  ListBox lstFolders{*this, "lstFolders"};  // those inside the folder, ".." first
  Label lblFiles{*this, "lblFiles"};
  ListBox lstFiles{*this, "lstFiles"};
  RowsPreview picDrawing{*this, "picDrawing"};  // the chosen file, where files are drawings

 protected:
  FileDialog(std::string name, const FileRequest& request, const char* okCaption);

  // Takes a path that names no folder: gives the one to answer with, or nothing and a notice.
  virtual std::optional<std::string> acceptable(const std::string& path) = 0;
  void notice(const std::string& text);
  const std::string& pattern() const { return pattern_; }

 private:
  void wire();
  bool enter(const std::string& folder);
  void showFolder();
  void showFiles();
  void showPlaces();
  void showDrawing();
  void openFolder(const std::string& name);
  void take(const std::string& text);
  void takePath(const std::string& path);
  bool isOpenFolder(const std::string& folder) const;
  std::string pathOf(const std::string& text) const;

  std::vector<FileFilter> filters_;
  std::string pattern_;
  std::string start_;
  std::vector<std::string> places_;
  std::string folder_;
  std::optional<std::string> chosen_;
};

// The dialog that a request asks for.
std::unique_ptr<FileDialog> fileDialogFor(const FileRequest& request);

}  // namespace tess
