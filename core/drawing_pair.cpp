// Reading the two files of a drawing together.
#include "core/drawing_pair.h"

#include <chrono>
#include <sys/stat.h>
#include <thread>

#include "core/file_system.h"

namespace tess {
namespace {

using Paths = std::vector<std::string>;
using Content = std::optional<std::string>;
using Stamps = std::array<FileStamp, 2>;

constexpr int kMostAttempts = 100;  // to find both files while nobody is writing them
constexpr std::chrono::milliseconds kPause{10};

std::int64_t nanoseconds(const timespec& time) {
  constexpr std::int64_t kPerSecond = 1000000000;
  return time.tv_sec * kPerSecond + time.tv_nsec;
}

FileStamp stampOf(const std::string& path) {
  struct stat state {};
  if (::stat(path.c_str(), &state) != 0 || S_ISDIR(state.st_mode)) return {};
  return {.device = state.st_dev,
          .number = state.st_ino,
          .size = state.st_size,
          .written = nanoseconds(state.st_mtim),
          .changed = nanoseconds(state.st_ctim)};
}

bool isThere(const FileStamp& stamp) {
  return stamp != FileStamp{};
}

Stamps stampsOf(const Paths& paths) {
  Stamps stamps;
  for (std::size_t at = 0; at < paths.size(); ++at) stamps[at] = stampOf(paths[at]);
  return stamps;
}

FileState stateOf(const FileStamp& stamp, const Content& content) {
  FileState state{.stamp = stamp, .checksum = std::nullopt};
  if (content) state.checksum = checksumOf(*content);
  return state;
}

// The second of the paths where there is one and a file by that name.
void readPathFile(PairContent& pair, const Paths& paths, const Stamps& stamps) {
  if (paths.size() < 2 || !isThere(stamps[1])) return;
  try {
    pair.paths = readFile(paths[1]);
  } catch (const RuntimeFailure& failure) {
    takeCallChain();
    pair.pathsFailure = failure;
  }
}

PairContent readAsTheyAre(const Paths& paths, const Stamps& stamps) {
  PairContent pair;
  pair.drawing = readFile(paths.front());
  readPathFile(pair, paths, stamps);
  pair.state = {stateOf(stamps[0], pair.drawing), stateOf(stamps[1], pair.paths)};
  return pair;
}

// What the files on the disk hold together, while they cannot be put in order themselves.
std::optional<PairContent> readAsSettled(const Settled& settled, const Stamps& stamps) {
  if (!settled.contents.front()) return std::nullopt;
  PairContent pair;
  pair.drawing = *settled.contents.front();
  if (settled.contents.size() > 1) pair.paths = settled.contents[1];
  pair.state = {stateOf(stamps[0], pair.drawing), stateOf(stamps[1], pair.paths)};
  return pair;
}

bool hasJournal(const std::string& drawing) {
  const std::string_view name = fileNameOf(drawing);
  const std::string folder = drawing.substr(0, drawing.size() - name.size());
  return isThere(stampOf(folder + journalName(journalStem(name))));
}

// Settles the save that is left beside the drawing. The content, where it can be had in no other
// way than from what that save has left.
std::optional<PairContent> settleOrLook(WriteGuard& guard, const Paths& paths,
                                        std::vector<Recovery>& recoveries) {
  const FolderLock lock = lockDrawing(paths.front());  // waits for a save that is going on
  const auto recovery = recoverDrawing(guard, paths, lock);
  if (!recovery) return std::nullopt;
  const Settled& settled = recovery->settled;
  if (settled.written || settled.unwritten) recoveries.push_back(*recovery);
  return settled.written ? std::nullopt : readAsSettled(settled, stampsOf(paths));
}

}  // namespace

PairState pairState(const std::vector<std::string>& paths, const PairState& known) {
  PairState state;
  for (std::size_t at = 0; at < paths.size(); ++at) {
    const FileStamp stamp = stampOf(paths[at]);
    if (stamp == known[at].stamp) {
      state[at] = known[at];
    } else if (isThere(stamp)) {
      state[at] = stateOf(stamp, readFile(paths[at]));
    }
  }
  return state;
}

PairState restamped(PairState state, const std::vector<std::string>& paths) {
  for (std::size_t at = 0; at < paths.size(); ++at) state[at].stamp = stampOf(paths[at]);
  return state;
}

PairContent readPair(WriteGuard& guard, const std::vector<std::string>& paths,
                     std::vector<Recovery>& recoveries) {
  const std::string& drawing = paths.front();
  for (int attempt = 0;; ++attempt) {
    if (hasJournal(drawing)) {
      if (auto pair = settleOrLook(guard, paths, recoveries)) return *pair;
    }
    const Stamps before = stampsOf(paths);
    PairContent pair = readAsTheyAre(paths, before);
    // In this order: a save that was still going on while the files were read and is over when the
    // journal is looked for has given both files their new stamps by then.
    const bool undisturbed = !hasJournal(drawing) && before == stampsOf(paths);
    if (undisturbed || attempt == kMostAttempts) return pair;
    std::this_thread::sleep_for(kPause);
  }
}

}  // namespace tess
