// The dialog that chooses an existing file.
// Owns: dlgGetFile.
#pragma once

#include "core/file_dialog.h"

namespace tess {

class dlgGetFile : public FileDialog {
 public:
  explicit dlgGetFile(const FileRequest& request) : FileDialog("dlgGetFile", request, "&Open") {}

 protected:
  // A name without its ending finds the file that has the filter's.
  std::optional<std::string> acceptable(const std::string& path) override;
};

}  // namespace tess
