// Growing files and those that were abandoned.
#include "core/growing_file.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <utility>

#include "core/file_system.h"

namespace tess {

GrowingFile::GrowingFile(const FilePlace& place) : place_(place), file_(place.createLocked()) {}

void GrowingFile::append(std::string_view bytes) {
  place_.appendTo(file_, bytes);
  size_ += bytes.size();
}

void GrowingFile::flush() {
  place_.flush(file_);
}

void GrowingFile::remove() {
  place_.remove();
}

std::optional<AbandonedFile> AbandonedFile::claim(const std::string& path) {
  Descriptor file(::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_NOFOLLOW | O_CLOEXEC));
  struct stat state {};
  const bool isFree = file.isOpen() && ::fstat(file.number(), &state) == 0 &&
                      S_ISREG(state.st_mode) && ::flock(file.number(), LOCK_EX | LOCK_NB) == 0;
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
