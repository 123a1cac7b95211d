// Writing a drawing and its paths.
#include "core/save_pair.h"

#include <algorithm>
#include <string>
#include <utility>

#include "core/drawing_format.h"
#include "core/drawing_pair.h"
#include "core/drawing_store.h"
#include "core/file_system.h"
#include "core/path_job_file.h"
#include "core/replace_files.h"
#include "core/save_record.h"

namespace tess {
namespace {

using Paths = std::vector<std::string>;
using Files = std::vector<FileReplacement>;

FileReplacement replacement(const std::string& path, std::optional<std::string> content) {
  FileReplacement file{.path = path, .content = std::move(content)};
  if (file.content) file.checksum = checksumOf(*file.content);
  return file;
}

// The drawing and its path file as they shall be.
Files pairToWrite(DrawingStore& store, const Paths& paths) {
  std::string drawing;
  writefileheader(store, drawing);
  appendSegments(drawing, store);
  Files files{replacement(paths[0], std::move(drawing))};
  if (paths.size() == 1) return files;
  // Without rows there shall be no path file: a stale one would come back at the next load.
  std::optional<std::string> rows;
  if (store.NumPathSegments > 0) appendPaths(rows.emplace(), store);
  files.push_back(replacement(paths[1], std::move(rows)));
  return files;
}

// What the paths are for is kept beside them where the setup asks for true paths. Without jobs
// there shall be no file of them: a stale one would be of no use.
void addJobs(const Session& session, Files& files) {
  const DrawingStore& store = session.store;
  if (!store.cfg_true_paths || files.size() < 2) return;
  const std::string path = jobPath(store.drawingpath, store.drawingname);
  const std::vector<const PathJob*> jobs = session.pathJobs.inForce(store);
  if (jobs.empty() && !fileExists(path)) return;
  std::optional<std::string> text;
  if (!jobs.empty()) {
    text = jobFileText(jobs, {.drawing = files[0].checksum, .paths = files[1].checksum});
  }
  files.push_back(replacement(path, std::move(text)));
}

std::optional<std::string> contentOf(const std::string& path) {
  if (!fileExists(path)) return std::nullopt;
  return readFile(path, kLargestDrawing);
}

bool areOnDisk(const Files& files) {
  return std::all_of(files.begin(), files.end(), [](const FileReplacement& file) {
    return contentOf(file.path) == file.content;
  });
}

// Byte for byte: the same checksums alone are no proof.
bool areWritten(const Files& files, const PairState& present) {
  for (std::size_t at = 0; at < std::min(files.size(), present.size()); ++at) {
    if (files[at].checksum != present[at].checksum) return false;
  }
  return areOnDisk(files);
}

// Whether a file holds now what the session has not seen. One that is gone cannot be lost.
bool holdsUnseen(const PairState& present, const PairState& seen) {
  for (std::size_t at = 0; at < present.size(); ++at) {
    const auto& now = present[at].checksum;
    if (now && now != seen[at].checksum) return true;
  }
  return false;
}

bool holdRows(const Files& files, const std::string& suffix) {
  const auto drawing = contentOf(files[0].path + suffix);
  if (drawing && holdsSegments(*drawing)) return true;
  if (files.size() == 1) return false;
  const auto paths = contentOf(files[1].path + suffix);
  return paths && !paths->empty();
}

// What is there without a row, or nothing at all, is no reason to give up a backup that has some.
Backup backupFor(const OpenDrawing& opened, const Files& files, const PairState& present) {
  if (!present[0].checksum) return holdRows(files, "~") ? Backup::Keep : Backup::Renew;
  const bool seen = opened.path == files[0].path && sameContent(opened.state, present);
  const bool hasRows = seen && opened.hasRows ? *opened.hasRows : holdRows(files, "");
  return hasRows || !holdRows(files, "~") ? Backup::Renew : Backup::Keep;
}

[[noreturn]] void raiseBusy(const std::string& drawing) {
  throw RuntimeFailure(FailureNumber::PermissionDenied, drawing,
                       "Another process is saving in this folder. Save again when it is done");
}

// What an earlier save has left that was cut off comes first.
void settleBefore(const WriteGuard& guard, const Paths& paths, const FolderLock& lock,
                  std::vector<Recovery>& recoveries) {
  if (lock.isBusy()) raiseBusy(paths[0]);
  const auto recovery = recoverDrawing(guard, paths, lock);
  if (!recovery) return;
  if (recovery->settled.unwritten) throw RuntimeFailure(*recovery->settled.unwritten);
  if (!recovery->settled.written) raiseBusy(paths[0]);
  recoveries.push_back(*recovery);
}

void noteSaved(Session& session, const Files& files, const Paths& paths) {
  OpenDrawing& opened = session.opened;
  opened.path = paths[0];
  opened.state = {};
  for (std::size_t at = 0; at < paths.size(); ++at) opened.state[at].checksum = files[at].checksum;
  opened.state = restamped(opened.state, paths);
  opened.hasRows = session.store.NumSegments > 0 || session.store.NumPathSegments > 0;
  noteSave(session, opened.path, opened.state);
}

// Reading the files may have cost the session its lock on them, and a save gives them new ones.
class PresenceKept {
 public:
  explicit PresenceKept(Session& session) : session_(session) {}
  ~PresenceKept() {
    OpenDrawing& opened = session_.opened;
    if (!opened.path.empty() && !session_.opensToRead) opened.presence.hold(opened.path);
  }
  PresenceKept(const PresenceKept&) = delete;
  PresenceKept& operator=(const PresenceKept&) = delete;

 private:
  Session& session_;
};

}  // namespace

PairSave savePair(Session& session, bool agreed) {
  const DrawingStore& store = session.store;
  const Paths paths = pairPaths(store.drawingpath, store.drawingname);
  Files files = pairToWrite(session.store, paths);
  addJobs(session, files);
  const PresenceKept kept(session);
  const FolderLock lock = lockDrawing(paths[0]);
  const bool known = session.opened.path == paths[0];
  PairSave save;
  settleBefore(session.host.guard, paths, lock, save.recoveries);
  save.state = pairState(paths, known ? session.opened.state : PairState());
  if (!areWritten(files, save.state)) {
    if (known && !agreed && holdsUnseen(save.state, session.opened.state)) return save;
    for (std::size_t at = 0; at < paths.size(); ++at) files[at].present = save.state[at].checksum;
    save.trouble =
        replaceWithBackup(session.host.guard, files, backupFor(session.opened, files, save.state));
  }
  save.written = true;
  noteSaved(session, files, paths);
  return save;
}

bool isWritten(DrawingStore& store) {
  if (store.NumSegments > 0) roundall(store);
  return areOnDisk(pairToWrite(store, pairPaths(store.drawingpath, store.drawingname)));
}

}  // namespace tess
