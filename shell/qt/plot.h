// Pictures of drawings as PNG files. This header knows nothing of the toolkit.
// Owns: QtPictureWriter.
#pragma once

#include <memory>
#include <string>

#include "shell/picture.h"

namespace tess {

class OffscreenToolkit;

// A PictureWriter that needs neither a window nor a display server. The toolkit is started by the
// first picture, where it does not run already, and stays until the last copy of the writer goes.
class QtPictureWriter {
 public:
  QtPictureWriter();
  void operator()(Application& application, const std::string& path, PixelSize size) const;

 private:
  std::shared_ptr<OffscreenToolkit> toolkit_;
};

}  // namespace tess
