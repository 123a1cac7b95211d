// Replacing files: journal and new content first, then the places, backups last.
#include "core/replace_files.h"

#include <vector>

#include "core/file_group.h"
#include "core/file_system.h"
#include "core/settle_files.h"

namespace tess {
namespace {

std::vector<std::string> pathsOf(std::span<const FileReplacement> replacements) {
  std::vector<std::string> paths;
  for (const FileReplacement& file : replacements) paths.push_back(file.path);
  return paths;
}

// Raises the failure of a file that cannot be replaced before anything has happened.
std::optional<Checksum> presentState(const GroupFile& file, const FileReplacement& wanted) {
  const bool there = file.target.replaceableState().has_value();
  if (file.backup.isFolder()) raiseFileFailure(EISDIR, file.backup.path());
  if (!there) return std::nullopt;
  return wanted.present ? wanted.present : checksumOf(readFile(file.target.path()));
}

SaveJournal journalFor(const FileGroup& group, std::span<const FileReplacement> replacements,
                       Backup backup) {
  SaveJournal journal{.name = group.name(), .keepsOld = backup == Backup::Renew, .files = {}};
  for (std::size_t index = 0; index < replacements.size(); ++index) {
    const FileReplacement& wanted = replacements[index];
    SaveJournal::File& file = journal.files.emplace_back();
    file.before = presentState(group.files()[index], wanted);
    file.after = wanted.checksum;
    if (wanted.content && !wanted.checksum) file.after = checksumOf(*wanted.content);
  }
  return journal;
}

struct Written {
  const FilePlace* place;
  Descriptor file;
};

// The journal comes first. What it speaks of is on the disk, together with it, before anything else
// happens.
void stage(const FileGroup& group, const SaveJournal& journal,
           std::span<const FileReplacement> replacements) {
  std::vector<Written> written;
  written.push_back({&group.journal(), group.journal().create(journalText(journal))});
  for (std::size_t index = 0; index < replacements.size(); ++index) {
    const GroupFile& file = group.files()[index];
    const auto& content = replacements[index].content;
    if (content) {
      written.push_back({&file.fresh, file.fresh.createAnew(*content, file.target.state())});
    }
    if (journal.files[index].before) group.keepSpare(index);
  }
  for (const Written& each : written) each.place->flush(each.file);
  group.flushFolders();
}

// The hidden files mean nothing to the operator: what befell them befell the file that they are
// for.
RuntimeFailure inNameOfTarget(const FileGroup& group, const RuntimeFailure& failure) {
  std::string source = failure.source();
  if (source == group.journal().path()) source = group.files().front().target.path();
  for (const GroupFile& file : group.files()) {
    if (source == file.fresh.path() || source == file.spare.path()) source = file.target.path();
  }
  return RuntimeFailure(failure.number(), source, failure.description());
}

// Nothing of the save stands if that can be done at all; else its journal stays for the next one
// who comes by.
void takeBackAfterFailure(const FileGroup& group, const SaveJournal& journal) {
  try {
    takeBack(group, journal);
  } catch (const RuntimeFailure&) {
    // The failure that led here is the one to tell of.
  }
}

}  // namespace

std::optional<RuntimeFailure> replaceWithBackup(WriteGuard& guard,
                                                std::span<const FileReplacement> replacements,
                                                Backup backup) {
  const FileGroup group(guard, pathsOf(replacements));
  const SaveJournal journal = journalFor(group, replacements, backup);
  try {
    stage(group, journal, replacements);
    group.place(journal);
  } catch (const RuntimeFailure& failure) {
    takeBackAfterFailure(group, journal);
    throw inNameOfTarget(group, failure);
  }
  try {
    group.renewBackups(journal);
    group.flushFolders();
    group.clear();
  } catch (const RuntimeFailure& failure) {
    takeCallChain();
    return failure;
  }
  return std::nullopt;
}

}  // namespace tess
