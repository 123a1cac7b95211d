// The places of files that are replaced together, and what happens in them.
#include "core/file_group.h"

#include <algorithm>

#include "core/file_system.h"

namespace tess {
namespace {

GroupFile groupFile(WriteGuard& guard, const std::string& path, const std::string& stem,
                    std::size_t index) {
  const FilePlace target(guard, path, index == 0 ? FileKind::Drawing : FileKind::Companion);
  return {.target = target,
          .backup = target.beside(target.name() + "~", FileKind::Companion),
          .fresh = target.beside(freshName(stem, index), FileKind::Companion),
          .spare = target.beside(spareName(stem, index), FileKind::Companion)};
}

std::vector<GroupFile> groupFiles(WriteGuard& guard, const std::vector<std::string>& paths,
                                  const std::string& stem) {
  std::vector<GroupFile> files;
  for (const std::string& path : paths) {
    files.push_back(groupFile(guard, path, stem, files.size()));
  }
  return files;
}

// The name itself, which is another place than its target where it is a link.
FilePlace entryOf(WriteGuard& guard, const FilePlace& target, const std::string& path) {
  return target.path() == path ? target : FilePlace::ofEntry(guard, path, FileKind::Drawing);
}

}  // namespace

FileGroup::FileGroup(WriteGuard& guard, const std::vector<std::string>& paths, std::size_t optional)
    : name_(fileNameOf(paths.front())),
      files_(groupFiles(guard, paths, journalStem(name_))),
      optional_(optional),
      journal_(entryOf(guard, files_.front().target, paths.front())
                   .beside(journalName(journalStem(name_)), FileKind::Companion)) {}

bool FileGroup::fits(const SaveJournal& journal) const {
  const std::size_t files = journal.files.size();
  return files <= files_.size() && files + optional_ >= files_.size() &&
         journal.files.front().after.has_value();
}

bool FileGroup::isPermittedBy(const WriteGuard& guard) const {
  const auto permitted = [&guard](const GroupFile& file) {
    return file.target.isPermittedBy(guard) && file.backup.isPermittedBy(guard) &&
           file.fresh.isPermittedBy(guard) && file.spare.isPermittedBy(guard);
  };
  return journal_.isPermittedBy(guard) && std::all_of(files_.begin(), files_.end(), permitted);
}

void FileGroup::keepSpare(std::size_t index) const {
  const GroupFile& file = files_[index];
  if (file.target.linkTo(file.spare)) return;
  // Something was left there, or the file system has no second names.
  file.spare.remove();
  if (file.target.linkTo(file.spare)) return;
  file.spare.flush(file.spare.create(readFile(file.target.path()), file.target.state()));
}

void FileGroup::place(const SaveJournal& journal) const {
  for (std::size_t index = 0; index < journal.files.size(); ++index) {
    const GroupFile& file = files_[index];
    if (!journal.files[index].after) {
      file.target.remove();
    } else if (file.fresh.state()) {
      file.fresh.moveTo(file.target);
    }
  }
}

void FileGroup::renewBackups(const SaveJournal& journal) const {
  if (!journal.keepsOld) return;
  for (std::size_t index = 0; index < journal.files.size(); ++index) {
    const GroupFile& file = files_[index];
    if (!journal.files[index].before) {
      file.backup.remove();
    } else if (file.spare.state()) {
      file.spare.moveTo(file.backup);
    }
  }
}

void FileGroup::flushFolders() const {
  journal_.flushFolder();
  for (std::size_t index = 0; index < files_.size(); ++index) {
    const FilePlace& place = files_[index].target;
    const bool flushed = place.sharesFolderWith(journal_) ||
                         (index > 0 && place.sharesFolderWith(files_.front().target));
    if (!flushed) place.flushFolder();
  }
}

void FileGroup::clear() const {
  for (const GroupFile& file : files_) {
    file.fresh.remove();
    file.spare.remove();
  }
  journal_.remove();
}

}  // namespace tess
