// Processes that open, change and save one drawing without a pause: none loses what it was told is
// saved, and none ever reads a drawing of one save with the path of another.
// TESSIMO_HAMMER_SECONDS gives the time; without it the test is short.
#include <algorithm>
#include <array>
#include <atomic>
#include <chrono>
#include <cstdlib>
#include <functional>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

#include "gmock/gmock.h"
#include "gtest/gtest.h"

#include "core/drawing_store.h"
#include "tests/support/drawing_folder.h"
#include "tests/support/shared_memory.h"

namespace tess {
namespace {

using testing::DrawingFolder;
using ::testing::ElementsAre;
using testing::OtherStart;

constexpr int kWriters = 2;
constexpr int kReaders = 2;
constexpr int kMaxRows = 30000;
constexpr std::chrono::seconds kLongest{60};
constexpr float kTagsPerWriter = 100000;

// What the processes tell each other and the test.
struct Board {
  std::atomic<bool> over{false};
  std::array<std::atomic<int>, kWriters> saved{};
  std::atomic<int> reads{0};
  std::atomic<int> torn{0};
  std::atomic<int> refused{0};
};

int seconds() {
  const char* const wanted = std::getenv("TESSIMO_HAMMER_SECONDS");
  return wanted == nullptr ? 3 : std::atoi(wanted);
}

// Every save adds one row to the drawing and one to its path, with the same number on both.
bool belongTogether(const DrawingStore& store) {
  if (store.NumSegments != store.NumPathSegments) return false;
  for (int row = 1; row <= store.NumSegments; ++row) {
    if (store.x1[row] != store.psx1[row]) return false;
  }
  return true;
}

void readPair(Board& board, OtherStart& start) {
  start.load("PART.CDM");
  ++board.reads;
  if (!belongTogether(start.store)) ++board.torn;
}

// True when the save has come through.
bool addRow(OtherStart& start, float tag) {
  AddSeg(start.store, {.type = kLine, .x1 = tag}, nullptr);
  addPathSegment(start.store, {.type = kLine, .x1 = tag, .code = 100});
  start.store.drawingsaved = false;
  try {
    save_Drawing(start.session);
  } catch (const RuntimeFailure&) {
    return false;
  }
  return start.store.drawingsaved;
}

class DrawingHammer : public ::testing::Test, protected DrawingFolder {
 protected:
  DrawingHammer() {
    addLine(0);
    addPath(0);
    store.x1[1] = store.psx1[1] = 0;
    saveAs("PART.CDM");
  }

  void write(Board& board, int writer) {
    auto& saved = board.saved[static_cast<std::size_t>(writer)];
    while (!board.over && saved < kMaxRows / kWriters) {
      OtherStart start(test.home());
      readPair(board, start);
      const float tag = kTagsPerWriter * static_cast<float>(writer) + static_cast<float>(saved + 1);
      if (addRow(start, tag)) {
        ++saved;
      } else {
        ++board.refused;
      }
    }
  }

  void readAllTheTime(Board& board) {
    while (!board.over) {
      OtherStart start(test.home());
      start.session.opensToRead = true;
      readPair(board, start);
    }
  }

  // For the time that was asked for, and on a slow machine until each writer has had its turn.
  static void hammer(const Board& board) {
    using std::chrono::steady_clock;
    const auto begin = steady_clock::now();
    const auto had = [](const std::atomic<int>& saves) { return saves > 0; };
    while (steady_clock::now() - begin < std::chrono::seconds(seconds()) ||
           (!std::all_of(board.saved.begin(), board.saved.end(), had) &&
            steady_clock::now() - begin < kLongest)) {
      std::this_thread::sleep_for(std::chrono::milliseconds(50));
    }
  }

  pid_t spawn(const std::function<void()>& work) {
    const pid_t process = ::fork();
    if (process != 0) return process;
    try {
      work();
    } catch (...) {
      ::_exit(1);
    }
    ::_exit(0);
  }
};

TEST_F(DrawingHammer, NothingIsLostAndNothingIsTorn) {
  Board& board = testing::sharedWithChildren<Board>();
  std::vector<pid_t> processes;
  for (int writer = 0; writer < kWriters; ++writer) {
    processes.push_back(spawn([&, writer] { write(board, writer); }));
  }
  for (int reader = 0; reader < kReaders; ++reader) {
    processes.push_back(spawn([&] { readAllTheTime(board); }));
  }
  hammer(board);
  board.over = true;
  for (const pid_t process : processes) {
    int status = 0;
    ASSERT_EQ(::waitpid(process, &status, 0), process);
    EXPECT_EQ(status, 0);
  }

  OtherStart last(test.home());
  last.load("PART.CDM");
  std::array<int, kWriters> found{};
  for (int row = 2; row <= last.store.NumSegments; ++row) {
    const int tag = static_cast<int>(last.store.x1[row]);
    const auto writer = static_cast<std::size_t>(tag / static_cast<int>(kTagsPerWriter));
    EXPECT_EQ(tag % static_cast<int>(kTagsPerWriter), ++found[writer]) << "row " << row;
  }
  for (std::size_t writer = 0; writer < kWriters; ++writer) {
    EXPECT_EQ(found[writer], board.saved[writer]) << "saves that another has replaced";
    EXPECT_GT(found[writer], 0) << "one process has kept the other out";
  }
  EXPECT_EQ(board.torn, 0);
  EXPECT_GT(board.reads, 0);
  EXPECT_THAT(entries(), ElementsAre("PART.CDM", "PART.CDM~", "PART.TPM", "PART.TPM~"));
  RecordProperty("saves", board.saved[0] + board.saved[1]);
  RecordProperty("refused", board.refused);
  RecordProperty("reads", board.reads);
}

}  // namespace
}  // namespace tess
