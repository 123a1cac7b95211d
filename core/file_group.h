// Files that are replaced together, each with the names that a save uses beside it, and the steps
// of such a save. They are the same whether it runs through or is completed after it was cut off.
// Owns: GroupFile, FileGroup.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "core/file_writer.h"
#include "core/save_journal.h"

namespace tess {

struct GroupFile {
  FilePlace target;
  FilePlace backup;  // a tilde behind the name
  FilePlace fresh;   // the new content until it takes its place
  FilePlace spare;   // what is in that place before, until it is the backup
};

class FileGroup {
 public:
  // The journal lies beside the name of the first file, also where that is a link. The first is a
  // drawing to the guard, the others are its companions. A save need not have touched the last
  // `optional` ones: its journal tells.
  FileGroup(WriteGuard& guard, const std::vector<std::string>& paths, std::size_t optional = 0);

  // Whether a journal can be that of a save of these files.
  bool fits(const SaveJournal& journal) const;

  // Whether that guard would permit all that the steps do.
  bool isPermittedBy(const WriteGuard& guard) const;

  const std::vector<GroupFile>& files() const { return files_; }
  const FilePlace& journal() const { return journal_; }
  // The name that goes into the journal.
  const std::string& name() const { return name_; }

  // The steps. Each may be repeated: what is done already is passed over. They raise what the
  // places raise, and count on a journal that fits; files that it does not name are left alone.
  void keepSpare(std::size_t index) const;  // of the file that is in its place
  void place(const SaveJournal& journal) const;
  void renewBackups(const SaveJournal& journal) const;
  void flushFolders() const;
  // What was waiting is gone, the journal last of all.
  void clear() const;

 private:
  std::string name_;
  std::vector<GroupFile> files_;
  std::size_t optional_;
  FilePlace journal_;
};

}  // namespace tess
