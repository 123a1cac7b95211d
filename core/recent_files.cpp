// The recently used drawings.
#include "core/recent_files.h"

#include <algorithm>

#include "core/field_reader.h"
#include "core/file_system.h"
#include "core/file_writer.h"
#include "core/text.h"

namespace tess {
namespace {

bool sameFile(const std::string& a, const std::string& b) {
  return a == b || resolvePath(a) == resolvePath(b);
}

// Whether an earlier slot holds what the slot at `entry` does; empty slots go as well.
bool isSuperfluous(const RecentFiles& files, RecentFiles::const_iterator entry) {
  return entry->empty() || std::any_of(files.begin(), entry, [entry](const std::string& earlier) {
           return sameFile(earlier, *entry);
         });
}

RecentFiles withoutDuplicates(const RecentFiles& files) {
  RecentFiles kept;
  auto next = kept.begin();
  for (auto entry = files.begin(); entry != files.end(); ++entry) {
    if (!isSuperfluous(files, entry)) *next++ = *entry;
  }
  return kept;
}

RecentFiles entriesOf(FieldReader& fields) {
  RecentFiles files;
  auto next = files.begin();
  while (!fields.atEnd() && next != files.end()) {
    const std::string line = fields.readLine();
    const std::string_view path = trimmed(line);
    if (fileExists(path)) *next++ = path;
  }
  return files;
}

}  // namespace

std::string recentFileList(const Session& session) {
  return session.appfolder + "CNC" + kSeparator + kRecentFileName;
}

void addRecent(Session& session, std::string_view path) {
  const Procedure here("addRecent(path)");
  if (fileExists(path)) {
    RecentFiles& files = session.recentfiles;
    std::shift_right(files.begin(), files.end(), 1);
    files.front() = path;
  }
  tidyRecent(session);
}

void tidyRecent(Session& session) {
  session.recentfiles = withoutDuplicates(session.recentfiles);
  session.listener.recentFilesChanged();
}

void readRecent(Session& session) {
  const Procedure here("readRecent()");
  try {
    FieldReader fields = FieldReader::open(recentFileList(session), kLargestSettings);
    session.recentfiles = entriesOf(fields);
    tidyRecent(session);
  } catch (const RuntimeFailure& failure) {
    session.host.failures.report(failure);
  }
}

void writeRecent(Session& session) {
  const Procedure here("writeRecent()");
  std::string list;
  for (const std::string& path : session.recentfiles) {
    if (fileExists(path)) list.append(path).append("\r\n");
  }
  writeFile(session.host.guard, recentFileList(session), FileKind::Record, list);
}

std::string recentCaption(const Session& session, int slot) {
  if (slot < 1 || slot > kRecentFiles) throw subscriptOutOfRange();
  const std::string& path = session.recentfiles[static_cast<std::size_t>(slot - 1)];
  return path.empty() ? std::string() : std::to_string(slot) + " - " + path;
}

}  // namespace tess
