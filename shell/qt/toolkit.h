// The toolkit for work without a window.
// Owns: OffscreenToolkit.
#pragma once

#include <array>
#include <memory>
#include <string>

class QGuiApplication;

namespace tess {

// Letters need the fonts of a running toolkit. Where none runs, one is started that asks for no
// display; it stays until this goes.
class OffscreenToolkit {
 public:
  OffscreenToolkit();
  ~OffscreenToolkit();
  void start();

 private:
  std::string name_ = "tessimo";
  std::array<char*, 2> arguments_{name_.data(), nullptr};
  int count_ = 1;
  std::unique_ptr<QGuiApplication> application_;
};

}  // namespace tess
