// Long work that the operator may end. Whoever does it keeps its results aside until it is done, so
// that nothing is left of work that was ended.
// Owns: WorkCancelled, CancellableWork.
#pragma once

#include <exception>

#include "core/host.h"

namespace tess {

class WorkCancelled : public std::exception {
 public:
  const char* what() const noexcept override { return "the operator has ended the work"; }
};

// As long as it lives the operator can end the work.
class CancellableWork {
 public:
  explicit CancellableWork(Surroundings& surroundings) : surroundings_(surroundings) {
    surroundings_.setCancellable(true);
  }
  ~CancellableWork() { surroundings_.setCancellable(false); }
  CancellableWork(const CancellableWork&) = delete;
  CancellableWork& operator=(const CancellableWork&) = delete;

  // Lets the screen follow. Raises WorkCancelled once the operator has had enough.
  void breathe() {
    surroundings_.serveEvents();
    if (surroundings_.isCancelled()) throw WorkCancelled();
  }

 private:
  Surroundings& surroundings_;
};

}  // namespace tess
