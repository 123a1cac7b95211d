// The record of saves: lines of checksums, date, time and path, the latest last.
#include "core/save_record.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <set>
#include <string_view>
#include <vector>

#include "core/date_text.h"
#include "core/file_system.h"
#include "core/file_writer.h"
#include "core/runtime_failure.h"
#include "core/text.h"

namespace tess {
namespace {

constexpr std::size_t kLargestRecord = std::size_t{256} * 1024;
constexpr std::size_t kLinesKept = 500;
constexpr char kLineEnd[] = "\r\n";
constexpr std::size_t kWords = 4;  // before the path: two checksums, date, time

std::string recordFile(const Session& session) {
  return session.appfolder + kSaveRecordName;
}

// The bytes of the record; none when there is no record, or one that this program did not write.
std::string readRecord(const std::string& file) {
  try {
    return readFile(file, 2 * kLargestRecord);
  } catch (const RuntimeFailure&) {
    takeCallChain();
    return {};
  }
}

std::vector<std::string_view> linesOf(std::string_view text) {
  std::vector<std::string_view> lines;
  for (std::size_t end = 0; (end = text.find(kLineEnd)) != std::string_view::npos;) {
    lines.push_back(text.substr(0, end));
    text.remove_prefix(end + 2);
  }
  return lines;
}

struct Line {
  std::array<std::string_view, kWords> words;
  std::string_view path;
};

std::optional<Line> parseLine(std::string_view line) {
  Line parsed;
  for (std::string_view& word : parsed.words) {
    const std::size_t end = line.find(' ');
    if (end == std::string_view::npos) return std::nullopt;
    word = line.substr(0, end);
    line.remove_prefix(end + 1);
  }
  parsed.path = line;
  return parsed;
}

// Nothing for checksums of another kind: they tell nothing about the files.
std::optional<SaveRecord> recordIn(const Line& line) {
  const auto& words = line.words;
  SaveRecord record;
  if (!parseChecksum(words[0], record.drawing) || !parseChecksum(words[1], record.paths)) {
    return std::nullopt;
  }
  record.when = std::string(words[2]).append(" ").append(words[3]);
  return record;
}

// One name for a drawing, by whatever way its folder is given.
std::string nameInRecord(const std::string& drawing) {
  return onOneLine(std::filesystem::path(fullPath(drawing)).lexically_normal().string());
}

std::string lineFor(const Session& session, const std::string& drawing, const PairState& state) {
  const DateTime now = session.host.clock.now();
  return checksumText(state[0].checksum) + " " + checksumText(state[1].checksum) + " " +
         dateText(now) + " " + timeText(now) + " " + nameInRecord(drawing) + kLineEnd;
}

// The latest line of each drawing, of the drawings saved last.
std::string shortened(std::string_view text) {
  std::vector<std::string_view> lines = linesOf(text);
  std::vector<std::string_view> kept;
  std::set<std::string_view> drawings;
  std::reverse(lines.begin(), lines.end());
  for (const std::string_view line : lines) {
    const auto parsed = parseLine(line);
    if (parsed && drawings.insert(parsed->path).second) kept.push_back(line);
    if (kept.size() == kLinesKept) break;
  }
  std::string result;
  for (auto line = kept.rbegin(); line != kept.rend(); ++line) {
    result.append(*line).append(kLineEnd);
  }
  return result;
}

}  // namespace

std::optional<SaveRecord> lastSave(const Session& session, const std::string& drawing) {
  return findSave(readRecord(recordFile(session)), nameInRecord(drawing));
}

std::optional<SaveRecord> findSave(std::string_view record, std::string_view path) {
  std::vector<std::string_view> lines = linesOf(record);
  std::reverse(lines.begin(), lines.end());
  for (const std::string_view line : lines) {
    if (!line.ends_with(path)) continue;
    const auto parsed = parseLine(line);
    if (parsed && parsed->path == path) return recordIn(*parsed);
  }
  return std::nullopt;
}

void noteSave(Session& session, const std::string& drawing, const PairState& state) {
  if (session.appfolder.empty()) return;
  const std::string file = recordFile(session);
  const std::string line = lineFor(session, drawing, state);
  WriteGuard& guard = session.host.guard;
  try {
    const FilePlace place(guard, file, FileKind::Record);
    const auto there = place.state();
    if (there && static_cast<std::size_t>(there->st_size) > kLargestRecord) {
      writeFile(guard, file, FileKind::Record, shortened(readRecord(file)) + line);
    } else {
      place.append(line);
    }
  } catch (const RuntimeFailure&) {
    takeCallChain();
  }
}

}  // namespace tess
