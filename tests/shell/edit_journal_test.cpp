// The journal of unsaved work: what it holds at any moment, when there is one, and how a program
// that was killed gets its work back.
#include "shell/edit_journal.h"

#include <csignal>
#include <cstdio>
#include <filesystem>
#include <sys/wait.h>
#include <unistd.h>

#include "gmock/gmock.h"
#include "gtest/gtest.h"

#include "core/drawing_file.h"
#include "core/drawing_store.h"
#include "core/file_system.h"
#include "shell/frmRestore.h"
#include "shell/recovery.h"
#include "tests/geometry/scenes.h"
#include "tests/support/full_disk.h"
#include "tests/support/running_program.h"
#include "tests/support/temp_folder.h"

namespace tess {
namespace {

using testing::Dice;
using testing::RunningProgram;

struct JournalledProgram : RunningProgram {
  JournalledProgram() { application.keepJournal(); }

  std::string folder() const { return journalFolder(application.session); }
  std::vector<std::string> journals() const { return listFolder(folder()).files; }
  // What the only journal holds.
  DrawingStore recorded() const {
    DrawingStore store;
    const std::vector<std::string> files = journals();
    EXPECT_EQ(files.size(), 1U);
    if (files.size() == 1) {
      EXPECT_TRUE(readRecord(readFile(folder() + files[0]), store).known);
    }
    return store;
  }
  void drawLine(Point from, Point to) {
    application.clickTool("miLine");
    click(from, kRightButton);
    click(to);
  }
  void saveAs(const std::string& name) {
    platform.prompts.files.push_back(home(name));
    application.clickTool("miSaveAs");
  }
};

std::vector<SegmentRow> segmentsOf(const DrawingStore& store) {
  std::vector<SegmentRow> rows;
  for (int sg = 1; sg <= store.NumSegments; ++sg) rows.push_back(segmentRow(store, sg));
  return rows;
}
std::vector<PathRow> pathsOf(const DrawingStore& store) {
  std::vector<PathRow> rows;
  for (int ps = 1; ps <= store.NumPathSegments; ++ps) rows.push_back(pathRow(store, ps));
  return rows;
}

void expectSame(const DrawingStore& a, const DrawingStore& b) {
  EXPECT_EQ(segmentsOf(a), segmentsOf(b));
  EXPECT_EQ(pathsOf(a), pathsOf(b));
}

TEST(EditJournal, IsThereFromTheFirstUnsavedChangeToTheSave) {
  JournalledProgram program;
  EXPECT_TRUE(program.journals().empty());
  program.drawLine({0, 0}, {2, 0});
  EXPECT_EQ(program.journals().size(), 1U);
  expectSame(program.recorded(), program.application.store);
  program.saveAs("part.cdm");
  EXPECT_TRUE(program.journals().empty());
  program.drawLine({2, 0}, {2, 1});
  EXPECT_EQ(program.recorded().drawingname, "part.cdm");
}

TEST(EditJournal, FollowsDrawingUndoAndRedo) {
  JournalledProgram program;
  program.drawLine({0, 0}, {2, 0});
  program.click({2, 1});
  program.click({0, 1});
  for (const char* const tool : {"miUndo", "miUndo", "miRedo", "miSelectAll", "miUnselectAll"}) {
    program.application.clickTool(tool);
    expectSame(program.recorded(), program.application.store);
  }
}

TEST(EditJournal, HoldsTheSettingsOfTheDrawing) {
  JournalledProgram program;
  program.drawLine({0, 0}, {2, 0});
  program.application.store.partmaterial = "brass";
  program.application.store.cfg_start_depth = 0.125F;
  program.application.clickTool("miZoomExtents");
  EXPECT_EQ(program.recorded().partmaterial, "brass");
  EXPECT_EQ(program.recorded().cfg_start_depth, 0.125F);
}

TEST(EditJournal, ANewDrawingNeedsNone) {
  JournalledProgram program;
  program.drawLine({0, 0}, {2, 0});
  program.platform.prompts.answers.push_back(Answer::No);
  program.application.clickTool("miNew");
  EXPECT_TRUE(program.journals().empty());
}

TEST(EditJournal, GoesWithAProgramThatEndsInOrder) {
  JournalledProgram program;
  program.drawLine({0, 0}, {2, 0});
  program.platform.prompts.answers.push_back(Answer::No);
  EXPECT_TRUE(program.application.mayClose());
  program.application.unload();
  EXPECT_TRUE(program.journals().empty());
}

// Long sessions do not make long journals: the drawing is written anew, and nothing is missing.
TEST(EditJournal, DoesNotGrowWithoutBound) {
  JournalledProgram program;
  program.drawLine({0, 0}, {2, 0});
  Changes& changes = program.context().changes;
  const std::vector<SegmentRow> rows(2000, SegmentRow{.type = kLine, .x1 = 1});
  for (int round = 0; round < 60; ++round) {
    Change change(changes);
    for (const SegmentRow& row : rows) change.segments.append(row);
    change.segments.erase(2, change.segments.count());
    change.keep({.redraws = false});
  }
  ASSERT_EQ(program.journals().size(), 1U);
  EXPECT_LT(readFile(program.folder() + program.journals()[0]).size(), 2U << 20);
  expectSame(program.recorded(), program.application.store);
}

TEST(EditJournal, OfAProgramWhoseFolderIsGoneItIsTold) {
  JournalledProgram program;
  program.drawLine({0, 0}, {2, 0});
  const std::string gone = program.home("");
  std::filesystem::remove_all(gone);
  program.click({2, 1});
  program.click({0, 1});
  EXPECT_FALSE(std::filesystem::exists(gone));
  ASSERT_EQ(program.platform.prompts.messages.size(), 1U);
  EXPECT_THAT(program.platform.prompts.messages[0].text,
              ::testing::MatchesRegex("Unsaved work cannot be kept for the case that the program "
                                      "is interrupted.\n.*: Path not found\nSave often\\."));
}

// By whoever clears the program's folder up while it runs.
TEST(EditJournal, OneThatWasRemovedIsBegunAnew) {
  JournalledProgram program;
  program.drawLine({0, 0}, {2, 0});
  std::filesystem::remove_all(program.folder());
  program.click({2, 1});
  expectSame(program.recorded(), program.application.store);
  std::filesystem::remove(program.folder() + program.journals().at(0));
  program.click({0, 1});
  expectSame(program.recorded(), program.application.store);
  EXPECT_TRUE(program.platform.prompts.messages.empty());
}

TEST(EditJournal, AFolderThatCannotBeWrittenToIsToldOnceAndDoesNotHinder) {
  JournalledProgram program;
  program.home.write("Unsaved", "a file in its place");
  program.drawLine({0, 0}, {2, 0});
  program.click({2, 1});
  EXPECT_EQ(program.application.store.NumSegments, 2);
  ASSERT_EQ(program.platform.prompts.messages.size(), 1U);
  EXPECT_TRUE(program.platform.prompts.messages[0].text.starts_with(
      "Unsaved work cannot be kept for the case that the program is interrupted.\n"))
      << program.platform.prompts.messages[0].text;
}

// A folder that was full for a while: the journal that was given up goes with the save, and the
// next change has one again.
TEST(EditJournal, IsTriedAgainBehindASave) {
  JournalledProgram program;
  program.drawLine({0, 0}, {2, 0});
  {
    const testing::FullDisk disk(10);
    program.click({2, 1});
  }
  ASSERT_EQ(program.platform.prompts.messages.size(), 1U);
  EXPECT_EQ(program.recorded().NumSegments, 1) << "what was written stays";
  program.click({0, 1});
  EXPECT_EQ(program.platform.prompts.messages.size(), 1U) << "told once";
  program.saveAs("part.cdm");
  EXPECT_TRUE(program.journals().empty());
  program.drawLine({0, 0}, {3, 3});
  expectSame(program.recorded(), program.application.store);
}

// ---- Finding and restoring. A journal counts as abandoned once nobody holds its lock.

// Leaves in `home` what a killed program would.
template <typename Work>
void leaveUnsaved(const testing::TempFolder& home, Work work) {
  JournalledProgram program;
  work(program);
  const std::vector<std::string> files = program.journals();
  ASSERT_EQ(files.size(), 1U);
  std::filesystem::create_directories(home("Unsaved"));
  std::filesystem::copy(program.folder() + files[0], home("Unsaved/1-1.record"));
}

TEST(Restore, OffersAndBringsBackRowsNameAndSettings) {
  RunningProgram program;
  const std::string part = program.home.write("gear.cdm", "");
  leaveUnsaved(program.home, [&](JournalledProgram& killed) {
    killed.drawLine({0, 0}, {2, 0});
    killed.application.store.drawingpath = program.home();
    killed.application.store.drawingname = "gear.cdm";
    killed.application.store.designername = "Ada";
    killed.click({2, 1});
    killed.context().changes.tellRewritten();
    killed.application.clickTool("miReDraw");
  });
  std::string details;
  program.platform.prompts.onForm = [&](Form& form) {
    auto& restore = dynamic_cast<frmRestore&>(form);
    EXPECT_EQ(restore.lstWork.count(), 1);
    EXPECT_TRUE(restore.lstWork.item(0).starts_with("gear.cdm, "));
    details = restore.lblDetails.caption();
    restore.cmdRestore.press();
  };
  program.application.keepJournal();
  EXPECT_TRUE(details.starts_with(part + "\n2 drawing rows, 0 path rows\nLast change: "))
      << details;
  const DrawingStore& store = program.application.store;
  EXPECT_EQ(segmentsOf(store),
            (std::vector<SegmentRow>{{.type = kLine, .x1 = 2},
                                     {.type = kLine, .x0 = 2, .x1 = 2, .y1 = 1}}));
  EXPECT_EQ(store.drawingname, "gear.cdm");
  EXPECT_EQ(store.designername, "Ada");
  EXPECT_FALSE(store.drawingsaved);
  EXPECT_FALSE(program.context().changes.log.canUndo());
  // The journal of this run holds it now, in place of that of the other one.
  const auto files = listFolder(program.home("Unsaved")).files;
  ASSERT_EQ(files.size(), 1U);
  EXPECT_TRUE(findUnsavedWork(program.application.session).empty());
  DrawingStore recorded;
  readRecord(readFile(program.home("Unsaved/" + files[0])), recorded);
  expectSame(recorded, store);
}

TEST(Restore, LaterKeepsItAndDiscardRemovesIt) {
  RunningProgram program;
  leaveUnsaved(program.home, [](JournalledProgram& killed) { killed.drawLine({0, 0}, {2, 0}); });
  program.platform.prompts.onForm = [](Form& form) {
    dynamic_cast<frmRestore&>(form).cmdLater.press();
  };
  offerUnsavedWork(program.application);
  EXPECT_TRUE(program.home.has("Unsaved/1-1.record"));
  EXPECT_EQ(program.application.store.NumSegments, 0);
  program.platform.prompts.onForm = [](Form& form) {
    dynamic_cast<frmRestore&>(form).cmdDiscard.press();
  };
  offerUnsavedWork(program.application);
  EXPECT_FALSE(program.home.has("Unsaved/1-1.record"));
  EXPECT_EQ(program.application.store.NumSegments, 0);
}

// Two clicks in the wrong place must not cost a day's work.
TEST(Restore, DiscardAsksOnceMore) {
  RunningProgram program;
  leaveUnsaved(program.home, [](JournalledProgram& killed) { killed.drawLine({0, 0}, {2, 0}); });
  std::string when;
  int forms = 0;
  program.platform.prompts.onForm = [&](Form& form) {
    auto& restore = dynamic_cast<frmRestore&>(form);
    when = restore.chosen().when;
    ++forms == 1 ? restore.cmdDiscard.press() : restore.cmdLater.press();
  };
  program.platform.prompts.answers.push_back(Answer::Cancel);
  offerUnsavedWork(program.application);
  ASSERT_EQ(program.platform.prompts.messages.size(), 1U);
  EXPECT_EQ(program.platform.prompts.messages[0].text,
            "The unsaved work on <Untitled>, last changed " + when + ", will be gone for good.");
  EXPECT_EQ(program.platform.prompts.messages[0].buttons, MessageButtons::OkCancel);
  EXPECT_EQ(forms, 2) << "it is offered again";
  EXPECT_TRUE(program.home.has("Unsaved/1-1.record"));
}

TEST(Restore, WhatIsLeftAfterADiscardIsOfferedNext) {
  RunningProgram program;
  leaveUnsaved(program.home, [](JournalledProgram& killed) { killed.drawLine({0, 0}, {2, 0}); });
  std::filesystem::copy(program.home("Unsaved/1-1.record"), program.home("Unsaved/2-1.record"));
  std::vector<std::string> explanations;
  std::vector<int> counts;
  program.platform.prompts.onForm = [&](Form& form) {
    auto& restore = dynamic_cast<frmRestore&>(form);
    explanations.push_back(restore.lblExplanation.caption());
    counts.push_back(restore.lstWork.count());
    counts.size() == 1 ? restore.cmdDiscard.press() : restore.cmdRestore.press();
  };
  program.application.keepJournal();
  EXPECT_EQ(counts, (std::vector<int>{2, 1}));
  EXPECT_EQ(explanations[1],
            "The program was interrupted before this work was saved.\n\n"
            "Restore opens it as it was; its drawing file stays as it is until you save.\n"
            "Ask Later keeps it for the next start.\n"
            "Discard removes it for good.");
  EXPECT_EQ(explanations[0], explanations[1] +
                                 "\n\nOne drawing can be restored at a time; "
                                 "the next start offers the rest.");
  EXPECT_EQ(program.application.store.NumSegments, 1);
}

TEST(Restore, ARunningProgramsWorkIsItsOwn) {
  JournalledProgram running;
  running.drawLine({0, 0}, {2, 0});
  EXPECT_TRUE(findUnsavedWork(running.application.session).empty());
  EXPECT_EQ(running.journals().size(), 1U);
}

TEST(Restore, WhatIsNoJournalIsLeftAlone) {
  RunningProgram program;
  std::filesystem::create_directories(program.home("Unsaved/folder.record"));
  program.home.write("Unsaved/notes.txt", "mine");
  program.home.write("Unsaved/other.record", "of another kind");
  EXPECT_TRUE(findUnsavedWork(program.application.session).empty());
  EXPECT_TRUE(program.home.has("Unsaved/notes.txt"));
  EXPECT_TRUE(program.home.has("Unsaved/other.record"));
}

// Killed between the save and the end of its journal, a program has left nothing to be asked about.
TEST(Restore, WhatIsSavedIsNotOffered) {
  RunningProgram program;
  leaveUnsaved(program.home, [&](JournalledProgram& killed) {
    killed.application.store.drawingpath = program.home();
    killed.application.store.drawingname = "part.cdm";
    killed.drawLine({0, 0}, {2, 0});
    DrawingStore saved;
    ASSERT_TRUE(readRecord(readFile(killed.folder() + killed.journals()[0]), saved).known);
    std::string text;
    writefileheader(saved, text);
    appendSegments(text, saved);
    program.home.write("part.cdm", text);
  });
  EXPECT_TRUE(findUnsavedWork(program.application.session).empty());
  EXPECT_FALSE(program.home.has("Unsaved/1-1.record"));
}

// A file that somebody has changed since is not written over without a question.
TEST(Restore, TheNextSaveAsksWhenTheFileHasChangedMeanwhile) {
  RunningProgram program;
  leaveUnsaved(program.home, [&](JournalledProgram& killed) {
    killed.drawLine({0, 0}, {2, 0});
    killed.platform.prompts.files.push_back(program.home("part.cdm"));
    killed.application.clickTool("miSaveAs");
    killed.click({2, 1});
  });
  program.home.write("part.cdm", program.home.read("part.cdm") + "1,8,5,5,6,6\r\n");
  program.platform.prompts.onForm = [](Form& form) {
    dynamic_cast<frmRestore&>(form).cmdRestore.press();
  };
  program.application.keepJournal();
  program.platform.prompts.messages.clear();
  program.platform.prompts.answers.push_back(Answer::Cancel);
  program.application.clickTool("miSave");
  ASSERT_EQ(program.platform.prompts.messages.size(), 1U);
  EXPECT_TRUE(program.platform.prompts.messages[0].text.starts_with(
      program.home("part.cdm") + " has been changed on the disk since it was opened."));
}

// ---- Killed at any moment

// The rows as one line that tells whether two drawings are the same.
std::string rowsText(const DrawingStore& store) {
  std::string text;
  appendSegments(text, store);
  appendPaths(text, store);
  return std::to_string(store.NumSegments) + " " + checksumText(checksumOf(text));
}

void tell(int pipe, const std::string& line) {
  const std::string text = line + "\n";
  if (::write(pipe, text.data(), text.size()) < 0) ::_exit(1);
}

// One of the commands of a session.
void doSomething(RunningProgram& program, Dice& dice) {
  const Point to{static_cast<float>(dice.unit()), static_cast<float>(dice.unit())};
  const int command = dice.below(4);
  if (command == 0) {
    program.application.clickTool("miUndo");
  } else {
    program.application.clickTool(command == 1 ? "miRectangle" : "miLine");
    program.click(to);
  }
}

// Draws and takes back until it is killed; tells the state after each command.
[[noreturn]] void workUntilKilled(const std::string& home, std::uint32_t seed, int pipe) {
  RunningProgram program;
  program.application.session.appfolder = home;
  program.application.keepJournal();
  Dice dice(seed);
  while (true) {
    doSomething(program, dice);
    tell(pipe, rowsText(program.application.store));
  }
}

// All states that a killed process has told of, in their order.
std::vector<std::string> statesTold(int pipe) {
  std::string text;
  char block[4096];
  for (ssize_t got; (got = ::read(pipe, block, sizeof block)) > 0;) {
    text.append(block, static_cast<std::size_t>(got));
  }
  std::vector<std::string> lines;
  std::size_t begin = 0;
  for (std::size_t end; (end = text.find('\n', begin)) != std::string::npos; begin = end + 1) {
    lines.push_back(text.substr(begin, end - begin));
  }
  return lines;
}

// A killed session comes back as it was after its last command that was done, or after the one
// that was being done.
void killAndRestore(std::uint32_t seed) {
  const testing::TempFolder home;
  const testing::TempFolder left;  // what the killed one has no time to remove
  int ends[2];
  ASSERT_EQ(::pipe(ends), 0);
  const pid_t child = ::fork();
  ASSERT_GE(child, 0);
  if (child == 0) {
    ::close(ends[0]);
    ::setenv("TMPDIR", left().c_str(), 1);
    workUntilKilled(home(), seed, ends[1]);
  }
  ::close(ends[1]);
  Dice dice(seed);
  char first = 0;  // the first command is done
  ASSERT_EQ(::read(ends[0], &first, 1), 1);
  ::usleep(static_cast<useconds_t>(dice.below(30000)));
  ::kill(child, SIGKILL);
  ::waitpid(child, nullptr, 0);
  std::vector<std::string> told = statesTold(ends[0]);
  ::close(ends[0]);
  ASSERT_FALSE(told.empty());
  if (told.size() == 1) told[0].insert(0, 1, first);

  RunningProgram program;
  program.application.session.appfolder = home();
  std::string restored = "0 " + checksumText(checksumOf(""));
  const auto work = findUnsavedWork(program.application.session);
  ASSERT_LE(work.size(), 1U);
  if (!work.empty()) {
    restoreWork(program.application, work[0]);
    restored = rowsText(program.application.store);
  }
  if (restored == told.back()) return;
  // The command in flight: repeating the session tells what it would have come to.
  RunningProgram again;
  again.application.session.appfolder = home("again/");
  Dice steps(seed);
  std::string next;
  for (std::size_t step = 0; step <= told.size(); ++step) {
    doSomething(again, steps);
    next = rowsText(again.application.store);
  }
  EXPECT_EQ(restored, next) << "seed " << seed;
}

TEST(EditJournal, AKilledSessionComesBackToTheCommand) {
  const char* const tries = std::getenv("TESSIMO_KILLS");
  const int kills = tries == nullptr ? 20 : std::atoi(tries);
  for (int seed = 1; seed <= kills; ++seed) killAndRestore(static_cast<std::uint32_t>(seed));
}

}  // namespace
}  // namespace tess
