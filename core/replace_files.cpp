// Replacing files: new content goes to temporary files, backups and moves come after.
#include "core/replace_files.h"

#include <cerrno>
#include <cstdio>
#include <deque>
#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>
#include <utility>

#include "core/file_system.h"

namespace tess {
namespace {

namespace fs = std::filesystem;

constexpr int kMostLinks = 40;  // of a chain; a ring of links has no end
constexpr mode_t kNewFileMode = 0666;
constexpr mode_t kPermissionBits = 07777;

// The file itself, behind any links, whether or not it exists.
std::string behindLinks(std::string_view path) {
  fs::path target = resolvePath(path);
  std::error_code error;
  for (int hops = 0; hops < kMostLinks && fs::is_symlink(target, error); ++hops) {
    target = target.parent_path() / fs::read_symlink(target, error);
  }
  return target.string();
}

// The state of a file that may be replaced: nothing, or an ordinary file that may be written. A
// move needs no more than a writable folder, but a protected drawing means to stay as it is.
std::optional<struct stat> replaceable(const std::string& target) {
  struct stat state {};
  if (::stat(target.c_str(), &state) != 0) {
    if (errno != ENOENT) raiseFileFailure(errno, target);
    return std::nullopt;
  }
  if (!S_ISREG(state.st_mode)) raiseFileFailure(EISDIR, target);
  if (::faccessat(AT_FDCWD, target.c_str(), W_OK, AT_EACCESS) != 0) raiseFileFailure(errno, target);
  return state;
}

void rename(const std::string& from, const std::string& to) {
  if (std::rename(from.c_str(), to.c_str()) != 0) raiseFileFailure(errno, to);
}

void removeFile(const std::string& path) {
  if (::unlink(path.c_str()) != 0 && errno != ENOENT) raiseFileFailure(errno, path);
}

class Descriptor {
 public:
  explicit Descriptor(int number) : number_(number) {}
  ~Descriptor() {
    if (number_ >= 0) ::close(number_);
  }
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;

  int number() const { return number_; }
  int close() { return ::close(std::exchange(number_, -1)); }

 private:
  int number_;
};

bool writeAll(int file, std::string_view content) {
  while (!content.empty()) {
    const ssize_t written = ::write(file, content.data(), content.size());
    if (written < 0 && errno == EINTR) continue;
    if (written < 0) return false;
    content.remove_prefix(static_cast<std::size_t>(written));
  }
  return true;
}

// Some file systems cannot flush a single file; then the content is as safe as it gets.
bool flushed(int file) {
  return ::fsync(file) == 0 || errno == EINVAL || errno == ENOTSUP;
}

// One file on its way to being replaced.
class Replacement {
 public:
  explicit Replacement(const FileReplacement& wanted)
      : target_(behindLinks(wanted.path)), backup_(target_ + "~"), old_(replaceable(target_)) {
    if (wanted.content) stage(*wanted.content);
  }
  ~Replacement() {
    if (!kept_) undo();
    if (!temporary_.empty()) ::unlink(temporary_.c_str());
  }
  Replacement(const Replacement&) = delete;
  Replacement& operator=(const Replacement&) = delete;

  // The old file becomes the backup. Where the file system can, it stays in its place as well, so
  // that there is no moment without the file.
  void backUp() {
    removeFile(backup_);
    if (!old_) return;
    const bool leaves = temporary_.empty();
    if (leaves || ::link(target_.c_str(), backup_.c_str()) != 0) rename(target_, backup_);
    backedUp_ = true;
  }

  void moveIntoPlace() {
    if (temporary_.empty()) return;
    rename(temporary_, target_);
    temporary_.clear();
    placed_ = true;
  }

  void keep() { kept_ = true; }

 private:
  // Writes the content to a temporary file in the target's folder and makes sure it is on the disk.
  void stage(std::string_view content) {
    Descriptor file(openTemporary());
    const int number = file.number();
    if (old_) {
      // Only the system's administrator may give a file to another owner.
      if (::fchown(number, old_->st_uid, old_->st_gid) != 0) errno = 0;
      if (::fchmod(number, old_->st_mode & kPermissionBits) != 0) failStaging();
    }
    if (!writeAll(number, content) || !flushed(number) || file.close() != 0) failStaging();
  }

  int openTemporary() {
    const fs::path folder = fs::path(target_).parent_path();
    for (int attempt = 0;; ++attempt) {
      const std::string name =
          ".tessimo-" + std::to_string(::getpid()) + "-" + std::to_string(attempt) + ".tmp";
      const std::string path = (folder / name).string();
      const int file =
          ::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, kNewFileMode);
      if (file >= 0) {
        temporary_ = path;
        return file;
      }
      if (errno != EEXIST) raiseFileFailure(errno == ENOENT ? ENOTDIR : errno, target_);
    }
  }

  // A constructor that fails has no destructor run for it.
  [[noreturn]] void failStaging() {
    const int error = errno;
    ::unlink(temporary_.c_str());
    raiseFileFailure(error, target_);
  }

  void undo() noexcept {
    if (backedUp_) {
      std::rename(backup_.c_str(), target_.c_str());
    } else if (placed_ && !old_) {
      ::unlink(target_.c_str());
    }
  }

  std::string target_;
  std::string backup_;
  std::string temporary_;  // empty when there is none
  std::optional<struct stat> old_;
  bool backedUp_ = false;
  bool placed_ = false;
  bool kept_ = false;
};

}  // namespace

void replaceFile(std::string_view path, std::string_view content) {
  Replacement replacement({.path = std::string(path), .content = std::string(content)});
  replacement.moveIntoPlace();
  replacement.keep();
}

void replaceWithBackup(std::span<const FileReplacement> replacements) {
  std::deque<Replacement> staged;  // a deque, since its elements stay where they are built
  for (const FileReplacement& wanted : replacements) staged.emplace_back(wanted);
  for (Replacement& replacement : staged) {
    replacement.backUp();
    replacement.moveIntoPlace();
  }
  for (Replacement& replacement : staged) replacement.keep();
}

}  // namespace tess
