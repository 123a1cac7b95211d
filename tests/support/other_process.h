// Work in a process of its own that comes to a point, says so, and waits there.
// Owns: OtherProcess.
#pragma once

#include <csignal>
#include <functional>
#include <stdexcept>
#include <sys/wait.h>
#include <unistd.h>

namespace tess::testing {

// Runs `work` and then holds what it took until it is killed or the object goes. The constructor
// returns once the work is done.
class OtherProcess {
 public:
  explicit OtherProcess(const std::function<void()>& work) {
    int ends[2];
    if (::pipe(ends) != 0) throw std::runtime_error("no pipe");
    process_ = ::fork();
    if (process_ < 0) throw std::runtime_error("no process");
    if (process_ == 0) holdAfter(work, ends[1]);
    ::close(ends[1]);
    char word = 0;
    const bool ready = ::read(ends[0], &word, 1) == 1;
    ::close(ends[0]);
    if (!ready) throw std::runtime_error("the other process failed");
  }
  ~OtherProcess() { kill(); }
  OtherProcess(const OtherProcess&) = delete;
  OtherProcess& operator=(const OtherProcess&) = delete;

  long number() const { return process_; }
  void kill() {
    if (process_ <= 0) return;
    ::kill(process_, SIGKILL);
    ::waitpid(process_, nullptr, 0);
    process_ = 0;
  }

 private:
  [[noreturn]] static void holdAfter(const std::function<void()>& work, int end) {
    try {
      work();
    } catch (...) {
      ::_exit(1);
    }
    if (::write(end, "x", 1) != 1) ::_exit(1);
    for (;;) ::pause();
  }

  pid_t process_ = 0;
};

}  // namespace tess::testing
