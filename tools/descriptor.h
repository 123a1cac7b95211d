// A file descriptor that closes itself.
// Owns: Descriptor.
#pragma once

#include <unistd.h>
#include <utility>

namespace tess {

class Descriptor {
 public:
  Descriptor() = default;
  explicit Descriptor(int number) : number_(number) {}
  ~Descriptor() { close(); }
  Descriptor(Descriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
  Descriptor& operator=(Descriptor&& other) noexcept {
    close();
    number_ = std::exchange(other.number_, -1);
    return *this;
  }

  bool isOpen() const { return number_ >= 0; }
  int number() const { return number_; }
  void close() {
    if (isOpen()) ::close(std::exchange(number_, -1));
  }

 private:
  int number_ = -1;
};

}  // namespace tess
