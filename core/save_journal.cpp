// The text and the names of journals.
#include "core/save_journal.h"

#include <utility>

#include "core/text.h"

namespace tess {
namespace {

constexpr std::string_view kTitleBegin = "Tessimo save ";
constexpr std::string_view kTitle = "Tessimo save 2";  // 1 had checksums of another kind
constexpr std::string_view kRenewsBackup = "renews backup";
constexpr std::string_view kKeepsBackup = "keeps backup";
constexpr std::string_view kStemBegin = ".tessimo-";
constexpr std::string_view kJournalEnd = ".journal";

std::string waitingName(std::string_view stem, std::size_t index, const char* end) {
  return std::string(stem) + "-" + std::to_string(index) + end;
}

// Takes the first line off the text; nothing when there is no whole line.
std::optional<std::string_view> takeLine(std::string_view& text) {
  const std::size_t end = text.find('\n');
  if (end == std::string_view::npos) return std::nullopt;
  const std::string_view line = text.substr(0, end);
  text.remove_prefix(end + 1);
  return line;
}

std::optional<SaveJournal::File> parseFile(std::string_view line) {
  const std::size_t blank = line.find(' ');
  if (blank == std::string_view::npos) return std::nullopt;
  SaveJournal::File file;
  if (!parseChecksum(line.substr(0, blank), file.before)) return std::nullopt;
  if (!parseChecksum(line.substr(blank + 1), file.after)) return std::nullopt;
  return file;
}

std::optional<std::vector<SaveJournal::File>> parseFiles(std::string_view lines) {
  std::vector<SaveJournal::File> files;
  while (!lines.empty()) {
    const auto line = takeLine(lines);
    if (!line) return std::nullopt;
    const auto file = parseFile(*line);
    if (!file || files.size() == SaveJournal::kMaxFiles) return std::nullopt;
    files.push_back(*file);
  }
  return files;
}

// The text without its last line, when that is the checksum of what stands before it.
std::optional<std::string_view> proven(std::string_view text) {
  if (!text.ends_with('\n')) return std::nullopt;
  const std::size_t before = text.find_last_of('\n', text.size() - 2);
  if (before == std::string_view::npos) return std::nullopt;
  const std::string_view body = text.substr(0, before + 1);
  const std::string_view sum = text.substr(body.size(), text.size() - body.size() - 1);
  if (sum != checksumText(checksumOf(body))) return std::nullopt;
  return body;
}

}  // namespace

std::string journalText(const SaveJournal& journal) {
  std::string text(kTitle);
  text.append("\n").append(journal.name).append("\n");
  text.append(journal.keepsOld ? kRenewsBackup : kKeepsBackup).append("\n");
  for (const SaveJournal::File& file : journal.files) {
    text.append(checksumText(file.before)).append(" ").append(checksumText(file.after));
    text.append("\n");
  }
  return text + checksumText(checksumOf(text)) + "\n";
}

std::optional<SaveJournal> parseJournal(std::string_view text) {
  const auto body = proven(text);
  if (!body) return std::nullopt;
  std::string_view rest = *body;
  const auto title = takeLine(rest);
  const auto name = takeLine(rest);
  const auto backup = takeLine(rest);
  if (title != kTitle || !name) return std::nullopt;
  if (backup != kRenewsBackup && backup != kKeepsBackup) return std::nullopt;
  auto files = parseFiles(rest);
  if (!files) return std::nullopt;
  return SaveJournal{
      .name = std::string(*name), .keepsOld = backup == kRenewsBackup, .files = std::move(*files)};
}

bool isOfAnotherVersion(std::string_view text) {
  const auto title = takeLine(text);
  if (!title) return false;
  return title->starts_with(kTitleBegin) && *title != kTitle;
}

std::string journalStem(std::string_view fileName) {
  return std::string(kStemBegin) + checksumText(checksumOf(lowerCased(fileName)));
}

std::string journalName(std::string_view stem) {
  return std::string(stem).append(kJournalEnd);
}

std::string freshName(std::string_view stem, std::size_t index) {
  return waitingName(stem, index, ".new");
}

std::string spareName(std::string_view stem, std::size_t index) {
  return waitingName(stem, index, ".old");
}

std::optional<std::string> stemOfJournal(std::string_view name) {
  if (!name.starts_with(kStemBegin) || !name.ends_with(kJournalEnd)) return std::nullopt;
  return std::string(name.substr(0, name.size() - kJournalEnd.size()));
}

}  // namespace tess
