// Growing files and those that were abandoned.
#include "core/growing_file.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <utility>

#include "core/file_system.h"

namespace tess {
namespace {

// Its process may have replaced or removed it since it was opened, and have let go of it then.
bool isStillAt(const std::string& path, const struct stat& opened) {
  struct stat now {};
  return ::lstat(path.c_str(), &now) == 0 && now.st_dev == opened.st_dev &&
         now.st_ino == opened.st_ino;
}

}  // namespace

GrowingFile::GrowingFile(FilePlace place, std::string_view begin)
    : place_(std::move(place)), size_(begin.size()) {
  StagedFile staged(place_, begin);
  staged.moveIntoPlace();
  file_ = staged.release();
}

void GrowingFile::append(std::string_view bytes) {
  place_.appendTo(file_, bytes);
  size_ += bytes.size();
}

void GrowingFile::flush() {
  place_.flush(file_);
  if (!std::exchange(hasNameOnDisk_, true)) place_.flushFolder();
}

bool GrowingFile::isRemoved() const {
  struct stat state {};
  return ::fstat(file_.number(), &state) == 0 && state.st_nlink == 0;
}

std::optional<AbandonedFile> AbandonedFile::claim(const std::string& path) {
  Descriptor file(::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_NOFOLLOW | O_CLOEXEC));
  struct stat state {};
  const bool isFree = file.isOpen() && ::fstat(file.number(), &state) == 0 &&
                      S_ISREG(state.st_mode) && ::flock(file.number(), LOCK_EX | LOCK_NB) == 0 &&
                      isStillAt(path, state);
  if (!isFree) return std::nullopt;
  return AbandonedFile(path, std::move(file), state.st_mtim.tv_sec);
}

std::string AbandonedFile::read() const {
  return readFile(path_);
}

void AbandonedFile::remove(WriteGuard& guard) const {
  removeFile(guard, path_, FileKind::Record);
}

}  // namespace tess
