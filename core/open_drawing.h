// What the session remembers of the drawing that it has open: how the files on the disk were when
// it was loaded or saved last.
// Owns: FileStamp, FileState, PairState, sameContent, OpenDrawing.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>

#include "core/checksum.h"
#include "core/drawing_lock.h"

namespace tess {

// Which file it is and when it was changed last: while that is the same, so is the content.
struct FileStamp {
  std::uint64_t device = 0, number = 0;  // of the file in its file system; 0 where there is none
  std::int64_t size = 0;
  std::int64_t written = 0, changed = 0;  // nanoseconds of the system's time
  friend bool operator==(const FileStamp&, const FileStamp&) = default;
};

struct FileState {
  FileStamp stamp;
  std::optional<Checksum> checksum;  // nothing: there is no file
};

// Of the drawing and of its path file.
using PairState = std::array<FileState, 2>;

inline bool sameContent(const PairState& a, const PairState& b) {
  return a[0].checksum == b[0].checksum && a[1].checksum == b[1].checksum;
}

struct OpenDrawing {
  std::string path;  // resolved; empty: none
  PairState state;
  std::optional<bool> hasRows;  // nothing where it is not known
  DrawingPresence presence;     // shows other processes that it is open here
};

}  // namespace tess
