// Memory that a process shares with the children that it forks afterwards.
// Owns: sharedWithChildren.
#pragma once

#include <new>
#include <stdexcept>
#include <sys/mman.h>

namespace tess::testing {

// A value of its own for each call; it lives as long as the process.
template <class Value>
Value& sharedWithChildren() {
  void* const memory =
      ::mmap(nullptr, sizeof(Value), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
  if (memory == MAP_FAILED) throw std::runtime_error("no shared memory");
  return *new (memory) Value;
}

}  // namespace tess::testing
