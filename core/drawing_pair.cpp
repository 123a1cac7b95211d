// Reading the two files of a drawing together.
#include "core/drawing_pair.h"

#include <chrono>
#include <sys/stat.h>
#include <thread>
#include <utility>

#include "core/file_system.h"

namespace tess {
namespace {

using Paths = std::vector<std::string>;
using Content = std::optional<std::string>;
using Stamps = std::array<FileStamp, 2>;

constexpr int kMaxAttempts = 100;  // to find both files while nobody is writing them
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
    pair.paths = readFile(paths[1], kLargestDrawing);
  } catch (const RuntimeFailure& failure) {
    takeCallChain();
    pair.pathsFailure = failure;
  }
}

PairContent readAsTheyAre(const Paths& paths, const Stamps& stamps) {
  PairContent pair;
  pair.drawing = readFile(paths.front(), kLargestDrawing);
  readPathFile(pair, paths, stamps);
  pair.state = {stateOf(stamps[0], pair.drawing), stateOf(stamps[1], pair.paths)};
  return pair;
}

// What the files on the disk hold together, while they are not in order themselves. Their stamps
// say nothing about that.
std::optional<PairContent> contentOf(const Settled& settled) {
  const bool together = settled.outcome != Settlement::LeftAlone || settled.unwritten;
  if (settled.written || !together || !settled.contents.front()) return std::nullopt;
  PairContent pair;
  pair.drawing = *settled.contents.front();
  if (settled.contents.size() > 1) pair.paths = settled.contents[1];
  pair.state = {stateOf({}, pair.drawing), stateOf({}, pair.paths)};
  return pair;
}

// Settles the save that is left beside the drawing, or looks at the one that is going on. The
// content, where it can be had in no other way.
std::optional<PairContent> settleOrLook(const WriteGuard& guard, const Paths& paths,
                                        std::vector<Recovery>& recoveries) {
  const FolderLock lock = lockDrawing(paths.front(), FolderLock::Waiting::NotAtAll);
  const auto recovery = recoverDrawing(guard, paths, lock);
  if (!recovery) return std::nullopt;
  const Settled& settled = recovery->settled;
  if (settled.written || settled.unwritten) recoveries.push_back(*recovery);
  return contentOf(settled);
}

}  // namespace

PairState pairState(const std::vector<std::string>& paths, const PairState& known) {
  PairState state;
  for (std::size_t at = 0; at < paths.size(); ++at) {
    const FileStamp stamp = stampOf(paths[at]);
    if (!isThere(stamp)) continue;
    const bool same = stamp == known[at].stamp;
    state[at] = same ? known[at] : stateOf(stamp, readFile(paths[at], kLargestDrawing));
  }
  return state;
}

PairState restamped(PairState state, const std::vector<std::string>& paths) {
  for (std::size_t at = 0; at < paths.size(); ++at) state[at].stamp = stampOf(paths[at]);
  return state;
}

PairContent readPair(const WriteGuard& guard, const std::vector<std::string>& paths,
                     std::vector<Recovery>& recoveries) {
  const std::string& drawing = paths.front();
  const std::size_t before = recoveries.size();
  for (int attempt = 0;; ++attempt) {
    auto settled = hasJournal(drawing) ? settleOrLook(guard, paths, recoveries) : std::nullopt;
    const Stamps stamps = stampsOf(paths);
    PairContent pair = settled ? std::move(*settled) : readAsTheyAre(paths, stamps);
    pair.recovered = recoveries.size() > before;
    if (settled) return pair;
    // In this order: a save that was still going on while the files were read and is over when the
    // journal is looked for has given both files their new stamps by then.
    const bool undisturbed = !hasJournal(drawing) && stamps == stampsOf(paths);
    if (undisturbed || attempt == kMaxAttempts) return pair;
    std::this_thread::sleep_for(kPause);
  }
}

}  // namespace tess
