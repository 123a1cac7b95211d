// Starting other programs: a process in between starts it and ends, so that nobody has to wait for
// its end.
#include "core/start_program.h"

#include <cerrno>
#include <cstring>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include "core/child_process.h"
#include "core/file_system.h"
#include "core/runtime_failure.h"

namespace tess {
namespace {

bool hasZeroByte(const std::string& text) {
  return text.find('\0') != std::string::npos;
}

// The system would end an argument there.
void requireWhole(const std::string& text) {
  if (!hasZeroByte(text)) return;
  throw RuntimeFailure(FailureNumber::InvalidProcedureCall, {},
                       "A program cannot be started with a zero byte in its command");
}

void requireFile(const std::string& path) {
  struct stat state {};
  if (::stat(path.c_str(), &state) != 0) raiseFileFailure(errno, path);
  if (!S_ISREG(state.st_mode)) raiseNoFile(state.st_mode, path);
}

std::vector<char*> pointersTo(std::vector<std::string>& texts) {
  std::vector<char*> pointers;
  pointers.reserve(texts.size() + 1);
  for (std::string& text : texts) pointers.push_back(text.data());
  pointers.push_back(nullptr);
  return pointers;
}

// The status of the process in between: 0, or the number of the system's error.
int endOf(pid_t process) {
  int status = 0;
  while (::waitpid(process, &status, 0) < 0) {
    if (errno != EINTR) return errno;
  }
  return WIFEXITED(status) ? WEXITSTATUS(status) : EIO;
}

// The file is there and may be executed; the system cannot make a program of it.
[[noreturn]] void raiseNoProgram(const std::string& path) {
  throw RuntimeFailure(FailureNumber::PathFileAccess, path,
                       "Path/File access error (it is no program of this system)");
}

}  // namespace

std::optional<std::string> programProblem(const std::string& path) {
  struct stat state {};
  if (path.empty() || path.front() != kSeparator) return "is no full path";
  if (hasZeroByte(path) || ::stat(path.c_str(), &state) != 0) return "is not there";
  if (S_ISDIR(state.st_mode)) return "is a folder";
  if (!S_ISREG(state.st_mode)) return "is no file";
  if (::faccessat(AT_FDCWD, path.c_str(), X_OK, AT_EACCESS) != 0) return "cannot be executed";
  return std::nullopt;
}

// Everything is prepared before the process divides: between that and its end the one in between
// does nothing that could wait for a lock of another thread.
void startProgram(const std::string& program, const std::vector<std::string>& arguments) {
  std::vector<std::string> texts{program};
  texts.insert(texts.end(), arguments.begin(), arguments.end());
  for (const std::string& text : texts) requireWhole(text);
  requireFile(program);
  ChildFiles files;
  for (const int standard : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) files.discard(standard);
  files.closeOthers();
  const ChildAttributes attributes(ChildAttributes::Place::OwnSession);
  const std::vector<char*> pointers = pointersTo(texts);
  const pid_t between = ::fork();
  if (between < 0) raiseFileFailure(errno, program);
  if (between == 0) {
    pid_t started = 0;
    ::_exit(::posix_spawn(&started, program.c_str(), files.get(), attributes.get(), pointers.data(),
                          environ));
  }
  const int error = endOf(between);
  if (error == ENOEXEC) raiseNoProgram(program);
  if (error != 0) raiseFileFailure(error, program);
}

}  // namespace tess
