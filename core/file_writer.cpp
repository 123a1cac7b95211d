// Writing files: folders held open, temporary files, and what dead processes leave behind.
#include "core/file_writer.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <dirent.h>
#include <fcntl.h>
#include <filesystem>
#include <sys/file.h>
#include <system_error>
#include <unistd.h>
#include <utility>

#include "core/file_system.h"
#include "core/runtime_failure.h"

namespace tess {
namespace {

namespace fs = std::filesystem;

constexpr int kMaxLinks = 40;  // of a chain; a ring of links has no end
constexpr mode_t kNewFileMode = 0666;
constexpr mode_t kPrivateFileMode = 0600;
constexpr mode_t kPermissionBits = 07777;
constexpr std::size_t kReadBlock = 1 << 16;
constexpr std::string_view kTemporaryBegin = ".tessimo-";
constexpr std::string_view kTemporaryEnd = ".tmp";

// Of something to be written that is not there it is the folder that is missing.
[[noreturn]] void raiseWriteFailure(int error, const std::string& path) {
  raiseFileFailure(error == ENOENT ? ENOTDIR : error, path);
}

// The system would end a name at a zero byte, and write to another file than the one meant.
std::string wholeName(std::string_view path) {
  if (path.find('\0') != std::string_view::npos) raiseFileFailure(ENOTDIR, std::string(path));
  return resolvePath(path);
}

// The file itself, behind any links, whether or not it exists.
std::string behindLinks(std::string_view path) {
  fs::path target = wholeName(path);
  std::error_code error;
  for (int hops = 0; hops < kMaxLinks && fs::is_symlink(target, error); ++hops) {
    target = target.parent_path() / fs::read_symlink(target, error);
  }
  return target.string();
}

// A folder that may be searched but not read can still be written to; only its names cannot be
// flushed then.
Descriptor openFolder(int base, const std::string& path, int flags) {
  Descriptor folder(::openat(base, path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC | flags));
  if (folder.isOpen() || errno != EACCES) return folder;
  return Descriptor(::openat(base, path.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC | flags));
}

// One part after the other, so that none of them can have become a link since it was looked up.
Descriptor openWithoutLinks(const fs::path& canonical) {
  Descriptor folder = openFolder(AT_FDCWD, "/", 0);
  for (const fs::path& part : canonical.relative_path()) {
    if (folder.isOpen()) folder = openFolder(folder.number(), part.string(), O_NOFOLLOW);
  }
  return folder;
}

bool writeAll(int file, std::string_view content) {
  while (!content.empty()) {
    const ssize_t written = ::write(file, content.data(), content.size());
    if (written < 0 && errno == EINTR) continue;
    if (written < 0) return false;
    content.remove_prefix(static_cast<std::size_t>(written));
  }
  return true;
}

// Some file systems cannot flush a single file or a folder; then it is as safe as it gets.
bool flushed(int file) {
  return ::fsync(file) == 0 || errno == EINVAL || errno == ENOTSUP;
}

bool isNumber(std::string_view text) {
  return !text.empty() && text.find_first_not_of("0123456789") == std::string_view::npos;
}

// ".tessimo-PROCESS-COUNT.tmp"
bool isTemporaryName(std::string_view name) {
  if (!name.starts_with(kTemporaryBegin) || !name.ends_with(kTemporaryEnd)) return false;
  name.remove_prefix(kTemporaryBegin.size());
  name.remove_suffix(std::min(kTemporaryEnd.size(), name.size()));
  const std::size_t dash = name.find('-');
  return dash != std::string_view::npos && isNumber(name.substr(0, dash)) &&
         isNumber(name.substr(dash + 1));
}

bool lock(int file) {
  return ::flock(file, LOCK_EX | LOCK_NB) == 0;
}

std::string temporaryName(int count) {
  return std::string(kTemporaryBegin) + std::to_string(::getpid()) + "-" + std::to_string(count) +
         std::string(kTemporaryEnd);
}

// A temporary file is locked for as long as its process lives, also in another container or on
// another machine, where the process's number tells nothing.
bool isAbandoned(int folder, const char* name) {
  const Descriptor file(::openat(folder, name, O_RDONLY | O_NONBLOCK | O_NOFOLLOW | O_CLOEXEC));
  struct stat state {};
  return file.isOpen() && ::fstat(file.number(), &state) == 0 && S_ISREG(state.st_mode) &&
         lock(file.number());
}

// The content of a new file, with the owner and the permissions of the one that it is to replace.
bool fill(int file, std::string_view content, const std::optional<struct stat>& like) {
  // Only the system's administrator may give a file to another owner.
  if (like && ::fchown(file, like->st_uid, like->st_gid) != 0) errno = 0;
  return (!like || ::fchmod(file, like->st_mode & kPermissionBits) == 0) && writeAll(file, content);
}

struct CloseList {
  void operator()(DIR* list) const { ::closedir(list); }
};

// A folder that cannot be listed keeps what lies there.
void removeAbandonedFrom(int folder) {
  Descriptor again(::openat(folder, ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  const std::unique_ptr<DIR, CloseList> list(again.isOpen() ? ::fdopendir(again.number())
                                                            : nullptr);
  if (list == nullptr) return;
  again.release();
  while (const dirent* entry = ::readdir(list.get())) {
    if (isTemporaryName(entry->d_name) && isAbandoned(folder, entry->d_name)) {
      ::unlinkat(folder, entry->d_name, 0);
    }
  }
}

// Whether a file that was just created is this process's own. Before it was locked somebody may
// have looked at it, or have removed it as abandoned. Some file systems know no locks.
bool isOwn(int file) {
  if (!lock(file)) return errno != EWOULDBLOCK;
  struct stat state {};
  return ::fstat(file, &state) != 0 || state.st_nlink > 0;
}

// A new temporary file, locked. Its name is in `name` as soon as it is there.
Descriptor createTemporary(int folder, std::string& name) {
  for (int count = 0;; ++count) {
    name = temporaryName(count);
    constexpr int kFlags = O_WRONLY | O_APPEND | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC;
    Descriptor file(::openat(folder, name.c_str(), kFlags, kNewFileMode));
    if (!file.isOpen() && errno != EEXIST) name.clear();
    if (name.empty() || (file.isOpen() && isOwn(file.number()))) return file;
    if (file.isOpen()) ::unlinkat(folder, name.c_str(), 0);
  }
}

}  // namespace

class FilePlace::Folder {
 public:
  Folder(const WriteGuard& guard, const std::string& target)
      : path_(fs::path(target).parent_path().string()) {
    if (guard.trustsLinks()) {
      descriptor_ = openFolder(AT_FDCWD, path_.empty() ? "." : path_, 0);
    } else {
      std::error_code error;
      const fs::path real = fs::canonical(path_.empty() ? "." : path_, error);
      if (error) raiseWriteFailure(error.value(), target);
      path_ = real.string();
      descriptor_ = openWithoutLinks(real);
    }
    if (!descriptor_.isOpen()) raiseWriteFailure(errno, target);
    struct stat state {};
    if (::fstat(number(), &state) != 0) raiseFileFailure(errno, target);
    identity_ = {state.st_dev, state.st_ino};
  }

  int number() const { return descriptor_.number(); }
  std::string pathOf(const std::string& name) const { return (fs::path(path_) / name).string(); }
  bool isSame(const Folder& other) const { return identity_ == other.identity_; }

 private:
  std::string path_;
  Descriptor descriptor_;
  std::pair<dev_t, ino_t> identity_;  // its file system, and its number there
};

FilePlace::FilePlace(WriteGuard& guard, std::string_view path, FileKind kind)
    : FilePlace(at(guard, behindLinks(path), kind)) {}

FilePlace FilePlace::ofEntry(WriteGuard& guard, std::string_view path, FileKind kind) {
  return at(guard, wholeName(path), kind);
}

FilePlace FilePlace::at(WriteGuard& guard, const std::string& target, FileKind kind) {
  const std::string name = fs::path(target).filename().string();
  if (name.empty() || name == "." || name == "..") raiseNoFile(S_IFDIR, target);
  return {guard, std::make_shared<const Folder>(guard, target), name, kind};
}

FilePlace::FilePlace(WriteGuard& guard, std::shared_ptr<const Folder> folder, std::string name,
                     FileKind kind)
    : guard_(&guard),
      folder_(std::move(folder)),
      name_(std::move(name)),
      path_(folder_->pathOf(name_)),
      kind_(kind) {
  guard.require({kind, folder_->number(), name_, path_});
}

bool FilePlace::isPermittedBy(const WriteGuard& guard) const {
  return guard.permits({kind_, folder_->number(), name_, path_});
}

FilePlace FilePlace::beside(std::string name, FileKind kind) const {
  return {*guard_, folder_, std::move(name), kind};
}

bool FilePlace::sharesFolderWith(const FilePlace& other) const {
  return folder_->isSame(*other.folder_);
}

std::optional<struct stat> FilePlace::state() const {
  struct stat state {};
  if (::fstatat(folder_->number(), name_.c_str(), &state, AT_SYMLINK_NOFOLLOW) != 0) {
    if (errno != ENOENT) raiseFileFailure(errno, path_);
    return std::nullopt;
  }
  if (S_ISLNK(state.st_mode)) raiseFileFailure(ELOOP, path_);
  if (!S_ISREG(state.st_mode)) raiseNoFile(state.st_mode, path_);
  return state;
}

std::optional<struct stat> FilePlace::replaceableState() const {
  const auto there = state();
  if (there && ::faccessat(folder_->number(), name_.c_str(), W_OK, AT_EACCESS) != 0) {
    raiseFileFailure(errno, path_);
  }
  return there;
}

bool FilePlace::isFolder() const {
  struct stat state {};
  return ::fstatat(folder_->number(), name_.c_str(), &state, AT_SYMLINK_NOFOLLOW) == 0 &&
         S_ISDIR(state.st_mode);
}

Descriptor FilePlace::create(std::string_view content,
                             const std::optional<struct stat>& like) const {
  Descriptor file(::openat(folder_->number(), name_.c_str(),
                           O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, kNewFileMode));
  if (!file.isOpen()) raiseWriteFailure(errno, path_);
  if (!fill(file.number(), content, like)) {
    const int error = errno;
    ::unlinkat(folder_->number(), name_.c_str(), 0);
    raiseFileFailure(error, path_);
  }
  ::sync_file_range(file.number(), 0, 0, SYNC_FILE_RANGE_WRITE);  // a hint: flush() is what counts
  return file;
}

Descriptor FilePlace::createAnew(std::string_view content,
                                 const std::optional<struct stat>& like) const {
  try {
    return create(content, like);
  } catch (const RuntimeFailure& failure) {
    if (failure.number() != FailureNumber::FileExists) throw;
    takeCallChain();
  }
  remove();
  return create(content, like);
}

void FilePlace::flush(const Descriptor& file) const {
  if (!flushed(file.number())) raiseFileFailure(errno, path_);
}

bool FilePlace::linkTo(const FilePlace& other) const {
  return ::linkat(folder_->number(), name_.c_str(), other.folder_->number(), other.name_.c_str(),
                  0) == 0;
}

void FilePlace::moveTo(const FilePlace& other) const {
  if (::renameat(folder_->number(), name_.c_str(), other.folder_->number(), other.name_.c_str()) !=
      0) {
    raiseFileFailure(errno, other.path_);
  }
}

void FilePlace::append(std::string_view text) const {
  replaceableState();
  const Descriptor file(
      ::openat(folder_->number(), name_.c_str(),
               O_WRONLY | O_APPEND | O_CREAT | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC, kNewFileMode));
  if (!file.isOpen()) raiseWriteFailure(errno, path_);
  appendTo(file, text);
}

void FilePlace::appendTo(const Descriptor& file, std::string_view text) const {
  struct stat before {};
  if (::fstat(file.number(), &before) != 0) raiseFileFailure(errno, path_);
  if (!S_ISREG(before.st_mode)) raiseNoFile(before.st_mode, path_);
  if (writeAll(file.number(), text)) return;
  const int error = errno;
  if (::ftruncate(file.number(), before.st_size) != 0) errno = 0;  // it could not get better
  raiseFileFailure(error, path_);
}

void FilePlace::remove() const {
  if (::unlinkat(folder_->number(), name_.c_str(), 0) != 0 && errno != ENOENT) {
    raiseFileFailure(errno, path_);
  }
}

void FilePlace::flushFolder() const {
  if (!flushed(folder_->number()) && errno != EBADF) raiseFileFailure(errno, path_);
}

void FilePlace::removeAbandoned() const {
  removeAbandonedFrom(folder_->number());
}

StagedFile::StagedFile(FilePlace target, std::string_view content) : target_(std::move(target)) {
  const int folder = target_.folder_->number();
  const auto old = target_.replaceableState();
  removeAbandonedFrom(folder);
  file_ = createTemporary(folder, temporary_);
  if (!file_.isOpen()) raiseWriteFailure(errno, target_.path());
  if (fill(file_.number(), content, old) && flushed(file_.number())) return;
  // A constructor that fails has no destructor run for it.
  const int error = errno;
  ::unlinkat(folder, temporary_.c_str(), 0);
  raiseFileFailure(error, target_.path());
}

StagedFile::~StagedFile() {
  if (!temporary_.empty()) ::unlinkat(target_.folder_->number(), temporary_.c_str(), 0);
}

bool StagedFile::reads(std::string_view content) const {
  const Descriptor file(::openat(target_.folder_->number(), temporary_.c_str(),
                                 O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
  if (!file.isOpen()) raiseFileFailure(errno, target_.path());
  ::posix_fadvise(file.number(), 0, 0, POSIX_FADV_DONTNEED);
  std::array<char, kReadBlock> block;
  for (;;) {
    const ssize_t got = ::read(file.number(), block.data(), block.size());
    if (got < 0 && errno == EINTR) continue;
    if (got < 0) raiseFileFailure(errno, target_.path());
    if (got == 0) return content.empty();
    const std::string_view bytes(block.data(), static_cast<std::size_t>(got));
    if (!content.starts_with(bytes)) return false;
    content.remove_prefix(bytes.size());
  }
}

void StagedFile::moveIntoPlace() {
  const int folder = target_.folder_->number();
  if (::renameat(folder, temporary_.c_str(), folder, target_.name().c_str()) != 0) {
    raiseFileFailure(errno, target_.path());
  }
  temporary_.clear();
}

void writeFile(WriteGuard& guard, std::string_view path, FileKind kind, std::string_view content) {
  const FilePlace place(guard, path, kind);
  StagedFile(place, content).moveIntoPlace();
  place.flushFolder();
}

void removeFile(WriteGuard& guard, std::string_view path, FileKind kind) {
  if (!fileExists(path)) return;
  const FilePlace place = FilePlace::ofEntry(guard, path, kind);
  place.remove();
  place.flushFolder();
}

std::string writeTemporaryFile(std::string_view begin, std::string_view end,
                               std::string_view content) {
  std::error_code error;
  const fs::path folder = fs::temp_directory_path(error);
  if (error) raiseWriteFailure(error.value(), "the folder for temporary files (TMPDIR)");
  const std::string mine = std::string(begin) + std::to_string(::getpid()) + "-";
  for (int number = 0;; ++number) {
    const std::string path = (folder / (mine + std::to_string(number) + std::string(end))).string();
    constexpr int kFlags = O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC;
    const Descriptor file(::open(path.c_str(), kFlags, kPrivateFileMode));
    if (!file.isOpen() && errno == EEXIST) continue;
    if (!file.isOpen()) raiseWriteFailure(errno, path);
    if (writeAll(file.number(), content)) return path;
    const int failure = errno;
    removeTemporaryFile(path);
    raiseFileFailure(failure, path);
  }
}

void removeTemporaryFile(const std::string& path) {
  ::unlink(path.c_str());
}

}  // namespace tess
