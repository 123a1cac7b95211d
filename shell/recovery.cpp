// Finding, offering and restoring unsaved work.
#include "shell/recovery.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <ctime>
#include <optional>
#include <utility>

#include "core/date_text.h"
#include "core/drawing_store.h"
#include "core/file_system.h"
#include "core/lifecycle.h"
#include "core/save_pair.h"
#include "core/units.h"
#include "drafting/selection.h"
#include "shell/edit_journal.h"
#include "shell/frmRestore.h"

namespace tess {
namespace {

// The screen follows the drawing that has come into the store.
void showRestored(Application& application) {
  Session& session = application.session;
  set_num_formats(session);
  collectSelected(application.interaction.context);
  session.listener.UpdateGridButtons();
  session.listener.Update_menu_checks();
  session.listener.drawingReplaced();
  updateStatusDisplay(session);
}

void markUnsaved(Changes& changes) {
  changes.tellRewritten();
  Change change(changes);
  change.marksUnsaved();
  change.keep({.redraws = false});
}

std::string localTime(std::int64_t seconds) {
  const std::time_t time = seconds;
  std::tm local{};
  if (::localtime_r(&time, &local) == nullptr) return {};
  const DateTime moment{.year = local.tm_year + 1900,
                        .month = local.tm_mon + 1,
                        .day = local.tm_mday,
                        .hour = local.tm_hour,
                        .minute = local.tm_min,
                        .second = local.tm_sec};
  return dateText(moment) + " " + timeText(moment);
}

// A program that was killed behind its save has left nothing to be restored.
bool isSaved(DrawingStore& drawing) {
  return !drawing.drawingname.empty() && isWritten(drawing);
}

std::string pathOf(const DrawingStore& drawing) {
  return drawing.drawingname.empty() ? "" : drawing.drawingpath + drawing.drawingname;
}

std::optional<UnsavedWork> workIn(const Session& session, const std::string& path) {
  auto journal = AbandonedFile::claim(path);
  if (!journal) return std::nullopt;
  DrawingStore drawing;
  if (!readRecord(journal->read(), drawing).known) return std::nullopt;
  if (isSaved(drawing)) {
    journal->remove(session.host.guard);
    return std::nullopt;
  }
  const std::string when = localTime(journal->written());
  return UnsavedWork{std::move(*journal), pathOf(drawing), when, drawing.NumSegments,
                     drawing.NumPathSegments};
}

// What cannot be looked at is passed over: it must not keep the program from starting.
void findIn(const Session& session, const std::string& path, std::vector<UnsavedWork>& found) {
  try {
    if (auto work = workIn(session, path)) found.push_back(std::move(*work));
  } catch (const RuntimeFailure& failure) {
    session.host.failures.report(failure);
  }
}

bool agreesToDiscard(Session& session, const UnsavedWork& work) {
  int answer = 0;
  askUser(session,
          "The unsaved work on " + work.shortName() + ", last changed " + work.when +
              ", will be gone for good.",
          kAskOkCancel, answer);
  return answer == kAnswerOk;
}

}  // namespace

std::string UnsavedWork::shortName() const {
  return drawing.empty() ? "<Untitled>" : std::string(fileNameOf(drawing));
}

std::vector<UnsavedWork> findUnsavedWork(const Session& session) {
  std::vector<UnsavedWork> found;
  const std::string folder = journalFolder(session);
  if (!folderExists(folder)) return found;
  // Journals that were still being written: what they were to replace, if anything, is there.
  FilePlace(session.host.guard, folder + "any", FileKind::Record).removeAbandoned();
  for (const std::string& name : listFolder(folder).files) {
    if (name.ends_with(kJournalExtension)) findIn(session, folder + name, found);
  }
  std::stable_sort(found.begin(), found.end(), [](const UnsavedWork& a, const UnsavedWork& b) {
    return a.journal.written() > b.journal.written();
  });
  return found;
}

void restoreWork(Application& application, const UnsavedWork& work) {
  const Procedure here("restoreWork(work)");
  Session& session = application.session;
  new_drawing(session);
  RecordedDrawing recorded = readRecord(work.journal.read(), session.store);
  session.opened = std::move(recorded.opened);
  session.selectedfolder = session.store.drawingpath;
  session.selectedname = session.store.drawingname;
  session.lastfilename = work.drawing;
  application.continueJournal(work.journal.path());
  markUnsaved(application.interaction.context.changes);
  showRestored(application);
}

void offerUnsavedWork(Application& application) {
  const Procedure here("offerUnsavedWork()");
  Session& session = application.session;
  std::vector<UnsavedWork> found = findUnsavedWork(session);
  while (!found.empty()) {
    frmRestore form(found);
    session.host.prompts.showModal(form);
    if (form.choice() == frmRestore::Choice::Later) return;
    const auto chosen = found.begin() + static_cast<std::ptrdiff_t>(form.chosenIndex());
    if (form.choice() == frmRestore::Choice::Restore) return restoreWork(application, *chosen);
    if (!agreesToDiscard(session, *chosen)) continue;
    chosen->journal.remove(session.host.guard);
    found.erase(chosen);
  }
}

}  // namespace tess
