// Locks of the system on folders and files.
#include "core/drawing_lock.h"

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <fcntl.h>
#include <sys/file.h>
#include <thread>

#include "core/file_system.h"

namespace tess {
namespace {

using std::chrono::milliseconds;
using std::chrono::steady_clock;

// Short against a save, so that one process cannot keep another out by saving all the time.
constexpr std::chrono::microseconds kPause{500};

// Not for writing, so that a protected drawing can be held too; and no pipe makes it wait.
Descriptor openToLock(const std::string& path) {
  return Descriptor(::open(resolvePath(path).c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
}

struct flock wholeFile(short type) {
  struct flock range {};
  range.l_type = type;
  range.l_whence = SEEK_SET;
  return range;
}

// Who would be in the way of a lock for writing has the file open.
DrawingPresence::Process holderOf(const Descriptor& file) {
  struct flock range = wholeFile(F_WRLCK);
  if (!file.isOpen() || ::fcntl(file.number(), F_GETLK, &range) != 0) return std::nullopt;
  if (range.l_type == F_UNLCK) return std::nullopt;
  return std::max<long>(range.l_pid, 0);
}

}  // namespace

FolderLock::FolderLock(const std::string& folder, Waiting waiting)
    : folder_(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)) {
  const auto end = steady_clock::now() + milliseconds(kLongestWait);
  while ((state_ = take(folder_)) == State::Busy) {
    if (waiting == Waiting::NotAtAll || steady_clock::now() >= end) return;
    std::this_thread::sleep_for(kPause);
  }
}

FolderLock::State FolderLock::take(const Descriptor& folder) {
  if (::flock(folder.number(), LOCK_EX | LOCK_NB) == 0) return State::Held;
  return errno == EWOULDBLOCK ? State::Busy : State::Unknown;
}

DrawingPresence::Process DrawingPresence::hold(const std::string& path) {
  // The old file goes first: it may be the same one, and closing it would drop the new lock.
  release();
  file_ = openToLock(path);
  const Process other = holderOf(file_);
  struct flock range = wholeFile(F_RDLCK);
  // Without locks nobody is told, and that is all.
  if (file_.isOpen() && ::fcntl(file_.number(), F_SETLK, &range) != 0) release();
  return other;
}

DrawingPresence::Process DrawingPresence::elsewhere(const std::string& path) {
  return holderOf(openToLock(path));
}

}  // namespace tess
