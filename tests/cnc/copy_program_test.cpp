// Copies of programs in other folders.
#include "cnc/copy_program.h"

#include <filesystem>

#include "gmock/gmock.h"

#include "tests/cnc/hand_over_fixture.h"
#include "tests/support/full_disk.h"
#include "tests/support/interrupted_process.h"
#include "tests/support/without_root_rights.h"

namespace tess {
namespace {

namespace fs = std::filesystem;
using testing::Interruption;
using ::testing::IsEmpty;
using testing::TempFolder;

constexpr char kProgram[] = "G90\r\nG01 X1 F10\r\nM30\r\n";

class CopyProgram : public testing::HandOverFixture {
 protected:
  bool copy(const std::string& content, const std::string& target) {
    return copyProgram(handOver, content, target);
  }
  std::size_t entries() const {
    return static_cast<std::size_t>(
        std::distance(fs::directory_iterator(stick()), fs::directory_iterator()));
  }

  TempFolder stick;
};

TEST_F(CopyProgram, TheCopyHasTheSameBytes) {
  const std::string odd = std::string("\0\xFF\r", 3) + std::string(300000, 'x');
  EXPECT_TRUE(copy(odd, stick("part.CNC")));
  EXPECT_EQ(stick.read("part.CNC"), odd);
  EXPECT_EQ(prompts().messages.front().icon, MessageIcon::Information);
  EXPECT_EQ(prompts().messages.front().title, "Copy to Folder");
  EXPECT_EQ(onlyMessage(),
            "Copied to " + stick("part.CNC") + ": 300003 bytes, read back and compared.");
  EXPECT_EQ(entries(), 1U);
}

TEST_F(CopyProgram, AnEmptyProgramIsCopiedToo) {
  EXPECT_TRUE(copy("", stick("part.CNC")));
  EXPECT_EQ(stick.read("part.CNC"), "");
}

TEST_F(CopyProgram, WithoutRoomNothingIsWritten) {
  handOver.freeSpace = [this](const std::string& folder) {
    EXPECT_EQ(folder, stick());
    return std::optional<std::uint64_t>(21);
  };
  EXPECT_FALSE(copy(kProgram, stick("part.CNC")));
  EXPECT_EQ(onlyMessage(),
            "There is no room in " + stick() + ": the copy needs 22 bytes, and 21 are free.");
  EXPECT_EQ(entries(), 0U);
  handOver.freeSpace = [](const std::string&) { return std::optional<std::uint64_t>(22); };
  EXPECT_TRUE(copy(kProgram, stick("part.CNC")));
}

TEST_F(CopyProgram, WhereTheRoomIsNotKnownItIsTried) {
  handOver.freeSpace = [](const std::string&) { return std::optional<std::uint64_t>(); };
  EXPECT_TRUE(copy(kProgram, stick("part.CNC")));
}

TEST(FreeSpace, IsThatOfTheFolderAndUnknownElsewhere) {
  const TempFolder folder;
  EXPECT_GT(freeSpaceIn(folder()).value_or(0), 0U);
  EXPECT_EQ(freeSpaceIn(folder("gone")), std::nullopt);
}

TEST_F(CopyProgram, AFullDiskLeavesTheOldCopy) {
  stick.write("part.CNC", "G00\r\n");
  {
    const testing::FullDisk full(10);
    EXPECT_FALSE(copy(kProgram, stick("part.CNC")));
  }
  ASSERT_EQ(prompts().messages.size(), 2U);
  EXPECT_EQ(prompts().messages[1].text, "The copy was not made: Disk full: " + stick("part.CNC"));
  EXPECT_EQ(stick.read("part.CNC"), "G00\r\n");
  EXPECT_EQ(entries(), 1U);
}

TEST_F(CopyProgram, AnotherProgramIsReplacedOnlyIfTheOperatorSaysSo) {
  stick.write("part.CNC", "G00 X1\r\n");
  prompts().answers = {Answer::No, Answer::Yes};
  EXPECT_FALSE(copy(kProgram, stick("part.CNC")));
  EXPECT_EQ(prompts().messages[0].buttons, MessageButtons::YesNo);
  EXPECT_EQ(onlyMessage(), stick("part.CNC") + " is there already. Replace it?");
  EXPECT_EQ(stick.read("part.CNC"), "G00 X1\r\n");
  EXPECT_TRUE(copy(kProgram, stick("part.CNC")));
  EXPECT_EQ(stick.read("part.CNC"), kProgram);
}

TEST_F(CopyProgram, WhatIsNoProgramStaysAsItIs) {
  stick.write("letter.txt", "Dear Sir");
  EXPECT_FALSE(copy(kProgram, stick("letter.txt")));
  EXPECT_EQ(onlyMessage(), stick("letter.txt") + " is no CNC program; it stays as it is.");
  EXPECT_EQ(stick.read("letter.txt"), "Dear Sir");
}

TEST_F(CopyProgram, AFolderThatIsGoneOrProtectedIsTold) {
  EXPECT_FALSE(copy(kProgram, stick("gone/part.CNC")));
  EXPECT_EQ(onlyMessage(), "The copy was not made: Path not found: " + stick("gone/part.CNC"));
  EXPECT_FALSE(copy(kProgram, stick()));
  EXPECT_EQ(onlyMessage(), "The copy was not made: Path/File access error: " + stick());
  fs::permissions(stick(), fs::perms::owner_read | fs::perms::owner_exec | fs::perms::others_read |
                               fs::perms::others_exec);
  {
    const testing::WithoutRootRights nobody;
    EXPECT_FALSE(copy(kProgram, stick("part.CNC")));
  }
  fs::permissions(stick(), fs::perms::owner_all);
  EXPECT_EQ(onlyMessage(), "The copy was not made: Permission denied: " + stick("part.CNC"));
}

// A medium that does not keep what it is given: each moment of the copy has its turn.
TEST_F(CopyProgram, ACopyThatReadsBackOtherwiseNeverGetsTheName) {
  int refused = 0;
  bool spoilt = true;
  const auto spoil = [&] {
    for (const auto& entry : fs::directory_iterator(stick())) {
      const std::string name = entry.path().filename().string();
      if (!name.starts_with('.') || stick.read(name) != kProgram) continue;
      stick.write(name, "G90\r\nG01 X9 F10\r\nM30\r\n");
      spoilt = true;
    }
  };
  for (int call = 1;; ++call) {
    for (const auto& entry : fs::directory_iterator(stick())) fs::remove(entry);
    spoilt = false;
    const auto work = [this] { copy(kProgram, stick("part.CNC")); };
    if (!testing::interleavedAt(call, spoil, work)) break;
    if (spoilt && !stick.has("part.CNC")) ++refused;
    if (!spoilt) {
      EXPECT_EQ(stick.read("part.CNC"), kProgram);
    }
  }
  EXPECT_GT(refused, 2) << "from the write to the reading back";
}

TEST_F(CopyProgram, ACutOffCopyNeverHasTheName) {
  int points = 0;
  for (const Interruption how : {Interruption::Killed, Interruption::KilledInMidWrite,
                                 Interruption::NoSpace, Interruption::InputOutputError}) {
    points +=
        testing::pointsWithin(how, {.prepare =
                                        [this] {
                                          for (const auto& entry : fs::directory_iterator(stick()))
                                            fs::remove(entry);
                                        },
                                    .work = [this] { copy(kProgram, stick("part.CNC")); },
                                    .check =
                                        [this] {
                                          if (stick.has("part.CNC")) {
                                            EXPECT_EQ(stick.read("part.CNC"), kProgram);
                                          }
                                        }});
  }
  EXPECT_GT(points, 30);
}

}  // namespace
}  // namespace tess
