// A file of the program's own that grows while its process lives. Its lock tells others whether the
// process still does.
// Owns: GrowingFile, AbandonedFile.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "core/descriptor.h"
#include "core/file_writer.h"

namespace tess {

class GrowingFile {
 public:
  // A new file that holds this from the moment when it has its name; one that has it already gives
  // way then. Raises what FilePlace does.
  GrowingFile(FilePlace place, std::string_view begin);

  // At its end; after a failure the file ends where it did. What is appended survives the process
  // at once, and a loss of power after a flush.
  void append(std::string_view bytes);
  void flush();

  std::size_t size() const { return size_; }
  // Somebody has removed it: what is appended is for nobody.
  bool isRemoved() const;

 private:
  FilePlace place_;
  Descriptor file_;
  std::size_t size_;
  bool hasNameOnDisk_ = false;
};

// A growing file whose process is gone. It is nobody else's while this object lives.
class AbandonedFile {
 public:
  // Nothing while a process has it, or when it is no file.
  static std::optional<AbandonedFile> claim(const std::string& path);

  const std::string& path() const { return path_; }
  // When its process wrote to it last, in seconds of the system's time.
  std::int64_t written() const { return written_; }
  std::string read() const;
  void remove(WriteGuard& guard) const;

 private:
  AbandonedFile(std::string path, Descriptor file, std::int64_t written)
      : path_(std::move(path)), file_(std::move(file)), written_(written) {}

  std::string path_;
  Descriptor file_;
  std::int64_t written_;
};

}  // namespace tess
