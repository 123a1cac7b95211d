// Work watched call by call through the tracing of the system.
#include "tests/support/interrupted_process.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <optional>
#include <stdexcept>
#include <sys/ptrace.h>
#include <sys/syscall.h>
#include <sys/user.h>
#include <sys/wait.h>
#include <unistd.h>

namespace tess::testing {
namespace {

constexpr int kSystemCallStop = SIGTRAP | 0x80;

constexpr std::array kWrites{SYS_write, SYS_pwrite64};

// What may fail because of the disk.
constexpr std::array kFileCalls{SYS_openat,    SYS_write,           SYS_pwrite64, SYS_read,
                                SYS_fsync,     SYS_fchmod,          SYS_fchown,   SYS_rename,
                                SYS_renameat,  SYS_renameat2,       SYS_link,     SYS_linkat,
                                SYS_unlink,    SYS_unlinkat,        SYS_mkdir,    SYS_mkdirat,
                                SYS_ftruncate, SYS_getdents64,      SYS_flock,    SYS_newfstatat,
                                SYS_fcntl,     SYS_copy_file_range, SYS_sendfile};

// Where the disk is asked to hurry. The process is told that it did: what a process has written
// outlives it in any case, and the tests take a tenth of the time.
constexpr std::array kFlushes{SYS_fsync, SYS_fdatasync, SYS_sync_file_range};

template <typename Numbers>
bool isAmong(const Numbers& numbers, long number) {
  return std::find(numbers.begin(), numbers.end(), number) != numbers.end();
}

// A child process that stops at each of its system calls.
class WatchedProcess {
 public:
  explicit WatchedProcess(const std::function<void()>& work) : process_(::fork()) {
    if (process_ < 0) throw std::runtime_error("no process for the work");
    if (process_ == 0) runChild(work);
    int status = 0;
    await(status);
    if (!WIFSTOPPED(status)) throw std::runtime_error("the process cannot be watched");
    control(PTRACE_SETOPTIONS, 0, PTRACE_O_TRACESYSGOOD | PTRACE_O_EXITKILL);
  }
  ~WatchedProcess() {
    if (!ended_) kill();
  }
  WatchedProcess(const WatchedProcess&) = delete;
  WatchedProcess& operator=(const WatchedProcess&) = delete;

  // Goes on to the next begin of a call; nothing when the process has ended.
  std::optional<long> nextCall() {
    while (advance()) {
      __ptrace_syscall_info info{};
      control(PTRACE_GET_SYSCALL_INFO, sizeof info, &info);
      if (info.op == PTRACE_SYSCALL_INFO_ENTRY) return static_cast<long>(info.entry.nr);
    }
    return std::nullopt;
  }

  // Goes on to the end of the call that has begun.
  void finishCall() { advance(); }

  void halveWrite() {
    user_regs_struct now = registers();
    now.rdx /= 2;
    control(PTRACE_SETREGS, 0, &now);
  }

  // The call that has begun does nothing, and gives that result.
  void answerCall(int result) {
    user_regs_struct now = registers();
    now.orig_rax = static_cast<unsigned long long>(-1);  // no call has that number
    control(PTRACE_SETREGS, 0, &now);
    finishCall();
    now = registers();
    now.rax = static_cast<unsigned long long>(result);
    control(PTRACE_SETREGS, 0, &now);
  }

  void finish() {
    while (const std::optional<long> begun = nextCall()) pretendToFlush(*begun);
  }

  void pretendToFlush(long begun) {
    if (isAmong(kFlushes, begun)) answerCall(0);
  }

  void kill() {
    ::kill(process_, SIGKILL);
    int status = 0;
    while (!ended_) await(status);
  }

 private:
  [[noreturn]] static void runChild(const std::function<void()>& work) {
    ::ptrace(PTRACE_TRACEME, 0, nullptr, nullptr);
    ::kill(::getpid(), SIGSTOP);
    try {
      work();
    } catch (...) {
      ::_exit(1);
    }
    ::_exit(0);
  }

  void await(int& status) {
    while (::waitpid(process_, &status, 0) < 0) {
      if (errno != EINTR) throw std::runtime_error("the process is lost");
    }
    ended_ = WIFEXITED(status) || WIFSIGNALED(status);
  }

  // Goes on to the next stop at a call. False when the process has ended.
  bool advance() {
    int signal = 0;
    for (;;) {
      control(PTRACE_SYSCALL, 0, signal);
      int status = 0;
      await(status);
      if (ended_) return false;
      if (WSTOPSIG(status) == kSystemCallStop) return true;
      signal = WSTOPSIG(status);
    }
  }

  user_regs_struct registers() const {
    user_regs_struct now{};
    control(PTRACE_GETREGS, 0, &now);
    return now;
  }

  template <typename Data>
  void control(__ptrace_request request, std::size_t address, Data data) const {
    if (::ptrace(request, process_, address, data) < 0) {
      throw std::runtime_error("the process cannot be watched");
    }
  }

  pid_t process_;
  bool ended_ = false;
};

bool counts(Interruption how, long call) {
  switch (how) {
    case Interruption::Killed:
      return true;
    case Interruption::KilledInMidWrite:
      return isAmong(kWrites, call);
    case Interruption::NoSpace:
    case Interruption::InputOutputError:
      return isAmong(kFileCalls, call);
  }
  return false;
}

// To the begin of the call of that number, among those that count. False when the process comes to
// its end before.
bool goesOnTo(WatchedProcess& process, int call, Interruption how) {
  int reached = 0;
  while (const std::optional<long> begun = process.nextCall()) {
    if (*begun == SYS_exit_group) return false;
    if (counts(how, *begun) && ++reached == call) return true;
    process.pretendToFlush(*begun);
  }
  return false;
}

void strike(WatchedProcess& process, Interruption how) {
  switch (how) {
    case Interruption::Killed:
      return process.kill();
    case Interruption::KilledInMidWrite:
      process.halveWrite();
      process.finishCall();
      return process.kill();
    case Interruption::NoSpace:
      process.answerCall(-ENOSPC);
      return process.finish();
    case Interruption::InputOutputError:
      process.answerCall(-EIO);
      return process.finish();
  }
}

}  // namespace

bool interruptedAt(int call, Interruption how, const std::function<void()>& work) {
  WatchedProcess process(work);
  if (!goesOnTo(process, call, how)) return false;
  strike(process, how);
  return true;
}

bool interleavedAt(int call, const std::function<void()>& meanwhile,
                   const std::function<void()>& work) {
  WatchedProcess process(work);
  if (!goesOnTo(process, call, Interruption::Killed)) return false;
  meanwhile();
  process.finish();
  return true;
}

int pointsWithin(Interruption how, const InterruptedWork& interrupted) {
  int points = 0;
  for (;; ++points) {
    interrupted.prepare();
    if (!interruptedAt(points + 1, how, interrupted.work)) return points;
    interrupted.check();
  }
}

}  // namespace tess::testing
