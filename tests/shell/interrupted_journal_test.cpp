// The journal of edits, cut off at each of its system calls: the next start offers the drawing as
// it was before the command or behind it, once, and leaves nothing lying about when it ends.
#include <algorithm>
#include <atomic>
#include <filesystem>

#include "gmock/gmock.h"
#include "gtest/gtest.h"

#include "core/drawing_file.h"
#include "core/drawing_store.h"
#include "core/file_system.h"
#include "drafting/drawing_record.h"
#include "shell/frmRestore.h"
#include "shell/recovery.h"
#include "tests/support/interrupted_process.h"
#include "tests/support/running_program.h"
#include "tests/support/shared_memory.h"
#include "tests/support/temp_folder.h"
#include "tests/support/write_file.h"

namespace tess {
namespace {

namespace fs = std::filesystem;
using ::testing::AnyOf;
using ::testing::Contains;
using testing::Interruption;
using testing::RunningProgram;
using testing::TempFolder;

constexpr char kNothing[] = "nothing unsaved";
constexpr char kWarning[] = "Unsaved work cannot be kept";

// What the work tells the test.
struct Board {
  std::atomic<int> steps{0};        // that are done
  std::atomic<bool> warned{false};  // that the journal cannot be kept
};

struct Program : RunningProgram {
  explicit Program(const TempFolder& folder) {
    application.session.appfolder = folder();
    application.store.drawingpath = folder("CNC/");
    application.store.drawingname = "part.cdm";
  }
  void drawLine(Point to) {
    application.clickTool("miLine");
    click(to);
  }
  bool hasWarned() const {
    const auto& messages = platform.prompts.messages;
    return std::any_of(messages.begin(), messages.end(),
                       [](const Message& message) { return message.text.starts_with(kWarning); });
  }
  void answerRestore(Button frmRestore::*button) {
    platform.prompts.onForm = [button](Form& form) {
      (dynamic_cast<frmRestore&>(form).*button).press();
    };
  }
};

using Steps = std::vector<void (*)(Program&)>;

void drawFirst(Program& program) {
  program.drawLine({2, 0});
}
void drawSecond(Program& program) {
  program.drawLine({2, 1});
}
void undo(Program& program) {
  program.application.clickTool("miUndo");
}
void passTime(Program& program) {
  program.pass(1000);
  program.application.clickTool("miZoomExtents");
}
void changeSetting(Program& program) {
  program.application.store.partmaterial = "brass";
  program.application.clickTool("miZoomExtents");
}
void writeAnew(Program& program) {
  program.context().changes.tellRewritten();
  program.application.clickTool("miZoomExtents");
}
void save(Program& program) {
  program.application.clickTool("miSave");
}

const Steps kEdits{drawFirst, drawSecond, passTime, undo, changeSetting, writeAnew, drawSecond};
const Steps kSavedBetween{drawFirst, save, drawSecond};

class InterruptedJournal : public ::testing::Test {
 protected:
  InterruptedJournal() { fs::create_directories(folder_("CNC")); }

  std::vector<std::string> unsavedEntries() const {
    std::vector<std::string> names;
    if (!fs::exists(folder_("Unsaved"))) return names;
    for (const auto& entry : fs::directory_iterator(folder_("Unsaved"))) {
      names.push_back(entry.path().filename().string());
    }
    return names;
  }

  void clear() {
    fs::remove_all(folder_("Unsaved"));
    fs::remove_all(folder_("CNC"));
    fs::create_directories(folder_("CNC"));
    board_.steps = 0;
    board_.warned = false;
  }

  // A drawing in one line: its settings are told by the material.
  static std::string told(const DrawingStore& store) {
    std::string text = store.partmaterial + "\n";
    appendSegments(text, store);
    return text;
  }
  static std::string recorded(const std::string& path) {
    DrawingStore store;
    EXPECT_TRUE(readRecord(readFile(path), store).known);
    return told(store);
  }

  // What stands in the journal of a program that runs.
  std::string journalled() const {
    const std::vector<std::string> names = unsavedEntries();
    EXPECT_LE(names.size(), 1U);
    return names.empty() ? kNothing : recorded(folder_("Unsaved/" + names[0]));
  }

  void run(const Steps& steps) {
    program_.application.keepJournal();
    for (const auto step : steps) {
      step(program_);
      board_.warned = board_.warned || program_.hasWarned();
      ++board_.steps;
    }
  }

  // The state after each step; the first one is that before them all.
  std::vector<std::string> statesOf(const Steps& steps) {
    clear();
    Program program(folder_);
    program.application.keepJournal();
    std::vector<std::string> states{kNothing};
    for (const auto step : steps) {
      step(program);
      states.push_back(journalled());
    }
    return states;
  }

  // What the next start finds. It restores that, and ends in order.
  std::string startAndEnd() {
    Program next(folder_);
    const std::string now = found(next);
    next.answerRestore(&frmRestore::cmdRestore);
    next.application.keepJournal();
    if (now != kNothing) {
      EXPECT_EQ(told(next.application.store), now);
    }
    next.platform.prompts.answers.push_back(Answer::No);
    EXPECT_TRUE(next.application.mayClose());
    next.application.unload();
    EXPECT_THAT(unsavedEntries(), ::testing::IsEmpty());
    return now;
  }

  std::string found(const Program& program) const {
    const std::vector<UnsavedWork> work = findUnsavedWork(program.application.session);
    EXPECT_LE(work.size(), 1U) << "one drawing is offered twice";
    return work.empty() ? kNothing : recorded(work[0].journal.path());
  }

  template <typename Prepare, typename Work, typename Check>
  void interrupt(Interruption how, Prepare prepare, Work work, Check check) {
    const auto anew = [&] {
      clear();
      prepare();
    };
    const int points = testing::pointsWithin(how, {.prepare = anew, .work = work, .check = check});
    EXPECT_GT(points, 0);
    RecordProperty("points", points);
  }

  void kill(Interruption how, const Steps& steps) {
    const std::vector<std::string> states = statesOf(steps);
    interrupt(
        how, [] {}, [&] { run(steps); },
        [&] {
          const auto done = static_cast<std::size_t>(board_.steps.load());
          // Behind the last step come the calls of the process that ends.
          const std::size_t next = std::min(done + 1, steps.size());
          EXPECT_THAT(startAndEnd(), AnyOf(states[done], states[next])) << "step " << done;
        });
  }

  // A failure costs what comes behind it, and never without a word.
  void fail(Interruption how) {
    const std::vector<std::string> states = statesOf(kEdits);
    interrupt(
        how, [] {}, [&] { run(kEdits); },
        [&] {
          EXPECT_EQ(board_.steps, static_cast<int>(kEdits.size()));
          const std::string now = startAndEnd();
          EXPECT_THAT(states, Contains(now));
          EXPECT_TRUE(board_.warned || now == states.back());
        });
  }

  TempFolder folder_;
  Board& board_ = testing::sharedWithChildren<Board>();
  Program program_{folder_};  // each attempt works on a copy, in its own process
};

TEST_F(InterruptedJournal, KilledAtAnyCallOfAnEdit) {
  kill(Interruption::Killed, kEdits);
}

TEST_F(InterruptedJournal, KilledInAnyWriteOfAnEdit) {
  kill(Interruption::KilledInMidWrite, kEdits);
}

TEST_F(InterruptedJournal, KilledAtAnyCallOfASessionWithSaves) {
  kill(Interruption::Killed, kSavedBetween);
}

TEST_F(InterruptedJournal, FullDiskAtAnyCall) {
  fail(Interruption::NoSpace);
}

TEST_F(InterruptedJournal, FaultyDiskAtAnyCall) {
  fail(Interruption::InputOutputError);
}

class InterruptedRestore : public InterruptedJournal {
 protected:
  InterruptedRestore() {
    Program program(folder_);
    program.application.keepJournal();
    program.drawLine({2, 0});
    journal_ = readFile(folder_("Unsaved/" + unsavedEntries().at(0)));
    work_ = told(program.application.store);
  }

  void interruptStart(Interruption how, Button frmRestore::*button,
                      const std::vector<std::string>& outcomes) {
    interrupt(
        how,
        [this] {
          fs::create_directories(folder_("Unsaved"));
          testing::writeFile(folder_("Unsaved/1-1.record"), journal_);
        },
        [this, button] {
          program_.answerRestore(button);
          program_.application.keepJournal();
          ++board_.steps;
        },
        [this, &outcomes] { EXPECT_THAT(outcomes, Contains(startAndEnd())); });
  }

  std::string journal_, work_;
};

TEST_F(InterruptedRestore, KilledAtAnyCallTheWorkIsThereOnce) {
  interruptStart(Interruption::Killed, &frmRestore::cmdRestore, {work_});
}

TEST_F(InterruptedRestore, KilledInAnyWriteTheWorkIsThereOnce) {
  interruptStart(Interruption::KilledInMidWrite, &frmRestore::cmdRestore, {work_});
}

TEST_F(InterruptedRestore, FullDiskAtAnyCallTheWorkIsThereOnce) {
  interruptStart(Interruption::NoSpace, &frmRestore::cmdRestore, {work_});
}

TEST_F(InterruptedRestore, FaultyDiskAtAnyCallTheWorkIsThereOnce) {
  interruptStart(Interruption::InputOutputError, &frmRestore::cmdRestore, {work_});
}

TEST_F(InterruptedRestore, KilledAtAnyCallOfDiscardingItIsThereOrGone) {
  interruptStart(Interruption::Killed, &frmRestore::cmdDiscard, {work_, kNothing});
}

}  // namespace
}  // namespace tess
