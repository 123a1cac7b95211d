// An open file or folder of the operating system, closed with its object.
// Owns: Descriptor.
#pragma once

#include <unistd.h>
#include <utility>

namespace tess {

class Descriptor {
 public:
  // Takes over what `open` gave; a negative number is none.
  explicit Descriptor(int number = -1) : number_(number) {}
  Descriptor(Descriptor&& other) noexcept : number_(other.release()) {}
  Descriptor& operator=(Descriptor&& other) noexcept {
    std::swap(number_, other.number_);
    return *this;
  }
  ~Descriptor() {
    if (number_ >= 0) ::close(number_);
  }

  bool isOpen() const { return number_ >= 0; }
  int number() const { return number_; }
  int release() { return std::exchange(number_, -1); }

 private:
  int number_;
};

}  // namespace tess
