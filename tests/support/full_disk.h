// A disk that has room for short files alone.
// Owns: FullDisk.
#pragma once

#include <csignal>
#include <sys/resource.h>

namespace tess::testing {

// While it lasts, this process can make no file longer than so many bytes: "Disk full".
class FullDisk {
 public:
  explicit FullDisk(rlim_t longest) : handlerBefore_(std::signal(SIGXFSZ, SIG_IGN)) {
    ::getrlimit(RLIMIT_FSIZE, &before_);
    const rlimit small{.rlim_cur = longest, .rlim_max = before_.rlim_max};
    ::setrlimit(RLIMIT_FSIZE, &small);
  }
  ~FullDisk() {
    ::setrlimit(RLIMIT_FSIZE, &before_);
    std::signal(SIGXFSZ, handlerBefore_);
  }
  FullDisk(const FullDisk&) = delete;
  FullDisk& operator=(const FullDisk&) = delete;

 private:
  void (*handlerBefore_)(int);
  rlimit before_{};
};

}  // namespace tess::testing
