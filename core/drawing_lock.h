// Agreement between processes about drawings: who is replacing files at the moment, and who has a
// drawing open. All locks belong to the system, which drops them with their process, so none is
// ever left behind; they leave no files, and need no permission but to read. Where a file system
// knows no locks there are none, and nobody is held up.
// Owns: FolderLock, DrawingPresence.
#pragma once

#include <optional>
#include <string>

#include "core/descriptor.h"

namespace tess {

// Held while the files of a drawing in that folder are replaced or put in order.
class FolderLock {
 public:
  enum class Waiting { NotAtAll, AWhile };

  // Waits for another process at most kLongestWait.
  explicit FolderLock(const std::string& folder, Waiting waiting = Waiting::AWhile);
  bool isHeld() const { return state_ == State::Held; }
  // Another process holds it, and still did at the end of the wait.
  bool isBusy() const { return state_ == State::Busy; }

  static constexpr int kLongestWait = 3000;  // milliseconds

 private:
  enum class State { Held, Busy, Unknown };

  static State take(const Descriptor& folder);

  Descriptor folder_;
  State state_ = State::Unknown;  // where there are no locks
};

// Shows other processes that this one has a drawing open, for as long as it lives. A process that
// closes a file loses its locks on it: hold anew what was read in between.
class DrawingPresence {
 public:
  // A process that a file is open in; its number is 0 where the system does not tell it.
  using Process = std::optional<long>;

  // Takes up the file, and puts down the one before. The other process that has it open, if any.
  Process hold(const std::string& path);
  void release() { file_ = Descriptor(); }

  // The other process alone, without taking the file up.
  static Process elsewhere(const std::string& path);

 private:
  Descriptor file_;
};

}  // namespace tess
