// Protected files and folders mean nothing to root: a scope in which the test is somebody else.
// Owns: WithoutRootRights.
#pragma once

#include <exception>
#include <stdexcept>
#include <unistd.h>

namespace tess::testing {

class WithoutRootRights {
 public:
  WithoutRootRights() : before_(geteuid()) {
    if (before_ == 0 && seteuid(kNobody) != 0) throw std::runtime_error("root stays root");
  }
  ~WithoutRootRights() {
    // There is no going on with tests as nobody.
    if (geteuid() != before_ && seteuid(before_) != 0) std::terminate();
  }
  WithoutRootRights(const WithoutRootRights&) = delete;
  WithoutRootRights& operator=(const WithoutRootRights&) = delete;

 private:
  static constexpr uid_t kNobody = 65534;
  uid_t before_;
};

}  // namespace tess::testing
