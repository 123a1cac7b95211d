// What a save that was cut off has left: what it is, and how it is put in order.
#include "core/settle_files.h"

#include <algorithm>

#include "core/file_system.h"

namespace tess {
namespace {

using Content = std::optional<std::string>;

Content contentOf(const FilePlace& place) {
  if (!place.state()) return std::nullopt;
  return readFile(place.path(), kLargestDrawing);
}

// What cannot be read is no help, but no obstacle either.
Content contentIfReadable(const FilePlace& place) {
  try {
    return contentOf(place);
  } catch (const RuntimeFailure&) {
    return std::nullopt;
  }
}

bool isIt(const Content& content, const std::optional<Checksum>& checksum) {
  if (!content || !checksum) return content.has_value() == checksum.has_value();
  return content->size() == checksum->size && checksumOf(*content) == *checksum;
}

// Everything that there is of one file.
struct Found {
  Found(const GroupFile& file, const SaveJournal::File& states)
      : journal(states),
        target(contentOf(file.target)),
        fresh(contentIfReadable(file.fresh)),
        spare(contentIfReadable(file.spare)),
        backup(contentIfReadable(file.backup)) {}

  bool isOld() const { return isIt(target, journal.before); }
  bool isNew() const { return isIt(target, journal.after); }
  bool hasOld() const { return isOld() || !journal.before || oldCopy() != nullptr; }
  bool hasNew() const { return isNew() || !journal.after || isIt(fresh, journal.after); }
  // Between its old and its new state a file may be gone, where the system cannot replace a file in
  // one step.
  bool isForeign() const { return target && !isOld() && !isNew(); }

  // What the file was, where it stands elsewhere; null when it does not.
  const Content* oldCopy() const {
    if (isIt(spare, journal.before)) return &spare;
    return isIt(backup, journal.before) ? &backup : nullptr;
  }
  Content newContent() const { return isNew() ? target : journal.after ? fresh : std::nullopt; }
  Content oldContent() const {
    return isOld() ? target : journal.before ? *oldCopy() : std::nullopt;
  }

  SaveJournal::File journal;
  Content target, fresh, spare, backup;
};

using Finds = std::vector<Found>;

Settlement outcomeFor(const Finds& finds) {
  const auto all = [&finds](auto is) {
    return std::all_of(finds.begin(), finds.end(), [is](const Found& file) { return is(file); });
  };
  if (!all([](const Found& file) { return !file.isForeign(); })) return Settlement::LeftAlone;
  if (all([](const Found& file) { return file.hasNew(); })) return Settlement::Completed;
  if (all([](const Found& file) { return file.hasOld(); })) return Settlement::TakenBack;
  return Settlement::LeftAlone;
}

Content contentAfter(Settlement outcome, const Found& found) {
  switch (outcome) {
    case Settlement::Completed:
      return found.newContent();
    case Settlement::TakenBack:
      return found.oldContent();
    case Settlement::LeftAlone:
      break;
  }
  return found.target;
}

Finds look(const FileGroup& group, const SaveJournal& journal) {
  Finds finds;
  for (std::size_t index = 0; index < journal.files.size(); ++index) {
    finds.emplace_back(group.files()[index], journal.files[index]);
  }
  return finds;
}

// The save goes on where it stopped. What waits incomplete, since its file is in its place already
// or it was being copied, is of no use.
void complete(const FileGroup& group, const SaveJournal& journal, const Finds& finds) {
  for (std::size_t index = 0; index < finds.size(); ++index) {
    const Found& found = finds[index];
    if (!isIt(found.fresh, found.journal.after)) group.files()[index].fresh.remove();
    if (found.isOld() && found.target) group.keepSpare(index);
  }
  group.flushFolders();
  group.place(journal);
  group.renewBackups(journal);
  group.flushFolders();
  group.clear();
}

void restore(const GroupFile& file, const Found& found) {
  if (found.isOld()) return;
  if (!found.journal.before) return file.target.remove();
  if (found.oldCopy() == &found.backup) {
    // The backup stays: a file that is moved would be gone from its old place.
    file.spare.flush(file.spare.createAnew(*found.backup, file.backup.state()));
  }
  file.spare.moveTo(file.target);
}

void takeBack(const FileGroup& group, const Finds& finds) {
  for (std::size_t index = 0; index < finds.size(); ++index) {
    restore(group.files()[index], finds[index]);
  }
  group.flushFolders();
  group.clear();
}

void carryOut(Settlement outcome, const FileGroup& group, const SaveJournal& journal,
              const Finds& finds) {
  switch (outcome) {
    case Settlement::Completed:
      return complete(group, journal, finds);
    case Settlement::TakenBack:
      return takeBack(group, finds);
    case Settlement::LeftAlone:
      return group.clear();
  }
}

// What a journal that is no journal means. Whoever only looks may have met a process that is still
// writing it, and must look again.
Settlement outcomeWithout(bool mayWrite) {
  return mayWrite ? Settlement::TakenBack : Settlement::LeftAlone;
}

// What stands there shall stay: the save was cut off while it wrote its journal, before anything
// else had happened.
SaveJournal journalOfNothing(const FileGroup& group) {
  SaveJournal journal{.name = group.name(), .keepsOld = false, .files = {}};
  for (const GroupFile& file : group.files()) {
    SaveJournal::File& stays = journal.files.emplace_back();
    if (const Content content = contentOf(file.target)) stays.before = checksumOf(*content);
    stays.after = stays.before;
  }
  return journal;
}

std::optional<SaveJournal> journalOf(const FileGroup& group) {
  auto journal = parseJournal(readFile(group.journal().path(), kLargestJournal));
  return journal && group.fits(*journal) ? journal : std::nullopt;
}

}  // namespace

std::optional<Settled> settleFiles(const FileGroup& group, bool mayWrite) {
  if (!group.journal().state()) return std::nullopt;
  const std::optional<SaveJournal> found = journalOf(group);
  const SaveJournal journal = found ? *found : journalOfNothing(group);
  const Finds finds = look(group, journal);
  Settled settled;
  settled.outcome = found ? outcomeFor(finds) : outcomeWithout(mayWrite);
  for (const Found& file : finds) {
    settled.contents.push_back(contentAfter(settled.outcome, file));
  }
  if (!mayWrite) return settled;
  try {
    carryOut(settled.outcome, group, journal, finds);
    settled.written = true;
  } catch (const RuntimeFailure& failure) {
    takeCallChain();
    settled.unwritten = failure;
  }
  return settled;
}

void takeBack(const FileGroup& group, const SaveJournal& journal) {
  takeBack(group, look(group, journal));
}

}  // namespace tess
