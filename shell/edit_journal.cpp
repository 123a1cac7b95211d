// The journal of edits.
#include "shell/edit_journal.h"

#include <algorithm>
#include <filesystem>
#include <iterator>
#include <system_error>
#include <unistd.h>
#include <utility>

#include "core/drawing_store.h"
#include "core/file_system.h"
#include "core/lifecycle.h"
#include "core/settings.h"
#include "drafting/drawing_record.h"

namespace tess {
namespace {

constexpr int kFlushAfterMs = 1000;
// Edits may grow to this multiple of the drawing that they began with, and this much more, before
// the drawing is written anew.
constexpr std::size_t kLongestMultiple = 8;
constexpr std::size_t kLongestMore = 1 << 20;

bool areEqual(const DrawingSettings& a, const DrawingSettings& b) {
#define TESSIMO_EQUAL(variable, width, kind, key, goesTo, reading) a.variable == b.variable,
#define TESSIMO_NOTHING(...)
  const bool equal[] = {TESSIMO_SETTINGS(TESSIMO_EQUAL, TESSIMO_NOTHING, TESSIMO_NOTHING)};
#undef TESSIMO_EQUAL
#undef TESSIMO_NOTHING
  return std::find(std::begin(equal), std::end(equal), false) == std::end(equal);
}

// A name that no process of this machine has used yet. A program's folder that is gone, as with the
// disk that it was on, is not made anew in its old place.
FilePlace newPlace(const Session& session) {
  const std::string folder = journalFolder(session);
  std::error_code ignored;  // the file to be written there fails with a better reason
  std::filesystem::create_directory(folder, ignored);
  const auto path = [&folder](int count) {
    return folder + std::to_string(::getpid()) + "-" + std::to_string(count) +
           std::string(kJournalExtension);
  };
  int count = 1;
  while (fileExists(path(count))) ++count;
  return {session.host.guard, path(count), FileKind::Record};
}

}  // namespace

std::string journalFolder(const Session& session) {
  return withSeparator(session.appfolder + "Unsaved");
}

EditJournal::EditJournal(Session& session, Changes& changes, Timers& timers)
    : session_(session),
      subscription_(changes.listen(*this)),
      flushTimer_(timers.create({"tmrJournal", kFlushAfterMs, /*oneShot=*/true}, [this] {
        if (file_) attempt([this] { file_->flush(); });
      })) {}

void EditJournal::changed(const KeptChange& change) {
  if (gaveUp_ || (!file_ && !change.unsaved)) return;
  attempt([&] {
    if (!file_ || isBehind_) {
      writeWhole();
    } else {
      writeEdits(change);
    }
  });
}

void EditJournal::afterCommand() {
  tellFailure();
  if (!isUnsaved(session_)) return discard();
  if (gaveUp_) return;
  attempt([this] {
    if (file_ && file_->isRemoved()) letGo();
    if (!file_ || isBehind_) {
      writeWhole();
    } else if (!areEqual(settings_, session_.store)) {
      writeSettings();
    }
  });
}

void EditJournal::continueIn(const std::string& path) {
  discard();
  place_ = FilePlace(session_.host.guard, path, FileKind::Record);
  isBehind_ = true;
}

void EditJournal::close() {
  discard();
}

// Its folder may be gone with it: the next one looks for a place anew.
void EditJournal::letGo() {
  file_.reset();
  place_.reset();
}

// The file before is good until this one is complete and takes its name.
void EditJournal::writeWhole() {
  std::string entries;
  appendRecordHead(entries);
  appendWholeDrawing(entries, session_.store, session_.opened);
  if (!place_) place_ = newPlace(session_);
  file_ = std::make_unique<GrowingFile>(*place_, entries);
  flushTimer_->setEnabled(true);
  settings_ = session_.store;
  wholeSize_ = entries.size();
  isBehind_ = false;
}

void EditJournal::writeEdits(const KeptChange& change) {
  if (file_->size() > kLongestMultiple * wholeSize_ + kLongestMore) return writeWhole();
  std::string entry;
  appendEdits(entry, session_.store, change.segments, change.paths);
  write(entry);
}

void EditJournal::writeSettings() {
  std::string entry;
  appendSettings(entry, session_.store);
  write(entry);
  settings_ = session_.store;
}

void EditJournal::write(const std::string& entries) {
  file_->append(entries);
  flushTimer_->setEnabled(true);
}

void EditJournal::discard() {
  flushTimer_->setEnabled(false);
  isBehind_ = false;
  gaveUp_ = false;
  const auto file = std::move(file_);  // locked until its name is gone
  if (const auto place = std::exchange(place_, {})) attempt([&place] { place->remove(); });
}

// A journal that cannot be written must not keep the operator from working.
template <typename Write>
void EditJournal::attempt(Write write) {
  try {
    write();
  } catch (const RuntimeFailure& failure) {
    takeCallChain();
    giveUp(failure.source() + ": " + failure.description());
  } catch (const std::exception& failure) {
    giveUp(failure.what());
  }
}

void EditJournal::giveUp(std::string reason) {
  gaveUp_ = true;
  failure_ = std::move(reason);
}

void EditJournal::tellFailure() {
  if (failure_.empty()) return;
  const std::string reason = std::exchange(failure_, {});
  session_.host.prompts.showMessage(
      {.text = "Unsaved work cannot be kept for the case that the program is interrupted.\n" +
               reason + "\nSave often.",
       .title = session_.productname,
       .icon = MessageIcon::Warning});
}

}  // namespace tess
