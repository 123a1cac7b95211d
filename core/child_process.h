// What a process that this one starts begins with: its open files and its signals.
// Owns: ChildFiles, ChildAttributes.
#pragma once

#include <csignal>
#include <fcntl.h>
#include <spawn.h>
#include <unistd.h>

namespace tess {

// Its three standard files; any other of this process can be kept from it.
class ChildFiles {
 public:
  ChildFiles() { ::posix_spawn_file_actions_init(&actions_); }
  ~ChildFiles() { ::posix_spawn_file_actions_destroy(&actions_); }
  ChildFiles(const ChildFiles&) = delete;
  ChildFiles& operator=(const ChildFiles&) = delete;

  void become(int descriptor, int standard) {
    ::posix_spawn_file_actions_adddup2(&actions_, descriptor, standard);
  }
  // Reads nothing there, and what it writes goes nowhere.
  void discard(int standard) {
    ::posix_spawn_file_actions_addopen(&actions_, standard, "/dev/null", O_RDWR, 0);
  }
  void closeOthers() { ::posix_spawn_file_actions_addclosefrom_np(&actions_, STDERR_FILENO + 1); }
  const posix_spawn_file_actions_t* get() const { return &actions_; }

 private:
  posix_spawn_file_actions_t actions_{};
};

// No signal handled, ignored or held back as this process has it; with a session of its own the
// end of this one's is not its end.
class ChildAttributes {
 public:
  enum class Place { SameSession, OwnSession };

  explicit ChildAttributes(Place place = Place::SameSession) {
    ::posix_spawnattr_init(&attributes_);
    sigset_t signals;
    ::sigfillset(&signals);
    ::posix_spawnattr_setsigdefault(&attributes_, &signals);
    ::sigemptyset(&signals);
    ::posix_spawnattr_setsigmask(&attributes_, &signals);
    const int session = place == Place::OwnSession ? POSIX_SPAWN_SETSID : 0;
    ::posix_spawnattr_setflags(
        &attributes_, static_cast<short>(POSIX_SPAWN_SETSIGDEF | POSIX_SPAWN_SETSIGMASK | session));
  }
  ~ChildAttributes() { ::posix_spawnattr_destroy(&attributes_); }
  ChildAttributes(const ChildAttributes&) = delete;
  ChildAttributes& operator=(const ChildAttributes&) = delete;

  const posix_spawnattr_t* get() const { return &attributes_; }

 private:
  posix_spawnattr_t attributes_{};
};

}  // namespace tess
