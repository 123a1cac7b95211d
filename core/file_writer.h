// The one place through which files are written and removed. A folder is opened once, the guard is
// asked about that very folder, and everything then happens inside it: new content is complete on
// the disk, under a temporary name, before anything that was there is touched.
// Owns: FilePlace, StagedFile, writeFile, removeFile, writeTemporaryFile, removeTemporaryFile.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <sys/stat.h>
#include <utility>

#include "core/descriptor.h"
#include "core/write_guard.h"

namespace tess {

// A name in an open folder. Everything here raises Path not found, Permission denied, Path/File
// access error (something there is no file), Disk full or Device I/O error, with the path as
// source, and what the guard throws.
class FilePlace {
 public:
  // The place that `path` leads to, any links behind it resolved, whether or not there is a file.
  // Asks the guard.
  FilePlace(WriteGuard& guard, std::string_view path, FileKind kind);
  // The same for the name itself, also where it is a link: for removing it.
  static FilePlace ofEntry(WriteGuard& guard, std::string_view path, FileKind kind);

  // Whether another guard than the one that was asked would permit writing here.
  bool isPermittedBy(const WriteGuard& guard) const;

  // Another name in the same open folder; the guard is asked about it too.
  FilePlace beside(std::string name, FileKind kind) const;

  const std::string& name() const { return name_; }
  const std::string& path() const { return path_; }
  bool sharesFolderWith(const FilePlace& other) const;

  // What is there: nothing, or an ordinary file.
  std::optional<struct stat> state() const;
  // The same of a file that shall be replaced: a move needs no more than a writable folder, but a
  // protected file means to stay as it is.
  std::optional<struct stat> replaceableState() const;

  bool isFolder() const;

  // A new file. It is on its way to the disk but need not be there before `flush`: several files
  // get there together in little more time than one. The permissions are those of `like`, else the
  // ordinary ones. A file that is there already raises File already exists.
  Descriptor create(std::string_view content, const std::optional<struct stat>& like = {}) const;
  // The same in place of a file that was left over.
  Descriptor createAnew(std::string_view content, const std::optional<struct stat>& like) const;
  void flush(const Descriptor& file) const;

  // Gives the file a second name. False where the file system cannot do that.
  bool linkTo(const FilePlace& other) const;
  void moveTo(const FilePlace& other) const;
  // Adds to the file's end, or creates it; after a failure it ends where it did.
  void append(std::string_view text) const;
  // The same as append for a file of this place that is open.
  void appendTo(const Descriptor& file, std::string_view text) const;
  // Does nothing when there is no file.
  void remove() const;
  // Has the names of the folder, as they are now, on the disk.
  void flushFolder() const;
  // Removes the temporary files in the folder that a process which died has left.
  void removeAbandoned() const;

 private:
  friend class StagedFile;
  class Folder;

  static FilePlace at(WriteGuard& guard, const std::string& target, FileKind kind);
  FilePlace(WriteGuard& guard, std::shared_ptr<const Folder> folder, std::string name,
            FileKind kind);

  WriteGuard* guard_;
  std::shared_ptr<const Folder> folder_;
  std::string name_;
  std::string path_;
  FileKind kind_;
};

// New content of a file, complete on the disk under a temporary name in its folder. A file that is
// not moved into place is gone with the object; what a process that died has left of its own is
// removed by the next one that writes to the folder.
class StagedFile {
 public:
  // The permissions are those of the file that is there, else the ordinary ones.
  StagedFile(FilePlace target, std::string_view content);
  ~StagedFile();
  StagedFile(const StagedFile&) = delete;
  StagedFile& operator=(const StagedFile&) = delete;

  // Whether the file has this content when it is read again, from the disk where the system lets
  // go of what it holds in memory.
  bool reads(std::string_view content) const;
  // In one step the target has the new content. The folder is not flushed yet.
  void moveIntoPlace();
  // The file in its place, to be appended to. It stays locked for as long as it is open.
  Descriptor release() { return std::move(file_); }

 private:
  FilePlace target_;
  std::string temporary_;  // empty when there is none
  Descriptor file_;        // its lock tells that its process lives
};

// Replaces or creates one file; after a failure it is what it was.
void writeFile(WriteGuard& guard, std::string_view path, FileKind kind, std::string_view content);

// Removes the file if it is there.
void removeFile(WriteGuard& guard, std::string_view path, FileKind kind);

// A new file in the system's folder for such files, which is read soon and then removed: it need
// not reach the disk. Whoever runs the program may write there, and a name that is there already is
// never taken. The name begins with `begin` and ends with `end`. Gives the path; raises what a
// FilePlace raises.
std::string writeTemporaryFile(std::string_view begin, std::string_view end,
                               std::string_view content);
// What cannot be removed the system clears away.
void removeTemporaryFile(const std::string& path);

}  // namespace tess
