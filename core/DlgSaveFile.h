// The dialog that names a file to be written. Whether one of that name may be replaced is asked by
// the command that writes.
// Owns: DlgSaveFile.
#pragma once

#include "core/file_dialog.h"

namespace tess {

class DlgSaveFile : public FileDialog {
 public:
  explicit DlgSaveFile(const FileRequest& request) : FileDialog("DlgSaveFile", request, "&Save") {}

 protected:
  std::optional<std::string> acceptable(const std::string& path) override { return path; }
};

}  // namespace tess
