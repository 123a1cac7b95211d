// What is done to the drawing between two saves, written down as it is done, so that a program that
// is killed, or loses its display or its power, costs no work.
// Owns: kJournalExtension, journalFolder, EditJournal.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "core/drawing_settings.h"
#include "core/growing_file.h"
#include "core/session.h"
#include "core/timers.h"
#include "drafting/change.h"

namespace tess {

inline constexpr std::string_view kJournalExtension = ".record";

// Where journals lie: in the program's folder, so that those of drawings are never littered.
std::string journalFolder(const Session& session);

// There is a file from the first unsaved change to the next save, and none otherwise.
class EditJournal : public ChangeListener {
 public:
  EditJournal(Session& session, Changes& changes, Timers& timers);

  void changed(const KeptChange& change) override;
  void rewritten() override { isBehind_ = true; }

  // What no change tells of: settings, another drawing, a save. Called after every command.
  void afterCommand();
  // The drawing is now that of a journal which another process has left: this one takes its place.
  void continueIn(const std::string& path);
  // The program ends in order: what the operator would not save is not wanted.
  void close();

 private:
  void writeWhole();
  void writeEdits(const KeptChange& change);
  void writeSettings();
  void write(const std::string& entries);
  void letGo();
  void discard();
  template <typename Write>
  void attempt(Write write);
  void giveUp(std::string reason);
  void tellFailure();

  Session& session_;
  Subscription subscription_;
  std::unique_ptr<Timer> flushTimer_;
  std::optional<FilePlace> place_;  // of the file, from its first writing to its end
  std::unique_ptr<GrowingFile> file_;
  DrawingSettings settings_;   // as they were last written
  std::size_t wholeSize_ = 0;  // of the last whole drawing in the file
  bool isBehind_ = false;      // the tables became others by other ways than edits
  bool gaveUp_ = false;        // it could not be written; the next save is another beginning
  std::string failure_;        // still to be told
};

}  // namespace tess
