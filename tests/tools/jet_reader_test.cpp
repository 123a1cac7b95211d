// Jet databases through a process of their own: what comes of good ones, and that nothing comes of
// bad ones but the absence of a database.
#include <chrono>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <random>
#include <sys/stat.h>
#include <sys/wait.h>

#include "gtest/gtest.h"

#include "core/descriptor.h"
#include "core/file_system.h"
#include "tests/support/feeds_samples.h"
#include "tests/support/temp_folder.h"
#include "tools/jet_frame.h"
#include "tools/jet_import.h"

namespace tess {
namespace {

using testing::TempFolder;
using Texts = std::vector<std::string>;
using namespace std::chrono_literals;

constexpr char kReader[] = TESSIMO_JET_READER;
constexpr std::string_view kJetStart("\0\1\0\0Standard Jet DB\0", 20);

std::optional<std::string> readWith(const std::string& reader, const std::string& path,
                                    std::chrono::milliseconds wait = kLongestJetWait) {
  const Descriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC));
  EXPECT_TRUE(file.isOpen()) << path;
  return readJetFile(file.number(), reader, wait);
}

bool opens(const std::string& path) {
  SpeedsFeeds connection(kReader);
  return OpenSpeedsFeeds(connection, path);
}

std::ptrdiff_t openDescriptors() {
  return std::distance(std::filesystem::directory_iterator("/proc/self/fd"), {});
}

// ---- Frames

TEST(JetFrame, HoldsItsImage) {
  for (const std::string& image : {std::string(), std::string("x"), std::string(100000, '\xff')}) {
    const std::string frame = framedImage(image);
    EXPECT_EQ(frame.size(), kJetFrameHeader + image.size());
    EXPECT_EQ(frameLength(frame), frame.size());
    EXPECT_EQ(unframedImage(frame), image);
  }
}

TEST(JetFrame, ADamagedOneHoldsNothing) {
  const std::string frame = framedImage("some image");
  for (std::size_t i = 0; i < frame.size(); ++i) {
    std::string damaged = frame;
    damaged[i] = static_cast<char>(damaged[i] + 1);
    EXPECT_EQ(unframedImage(damaged), std::nullopt) << i;
    EXPECT_EQ(unframedImage(frame.substr(0, i)), std::nullopt) << i;
  }
  EXPECT_EQ(unframedImage(frame + "x"), std::nullopt);
}

TEST(JetFrame, ALengthBeyondBoundsIsNone) {
  std::string frame = framedImage("");
  frame[8 + 7] = '\x7f';
  EXPECT_EQ(frameLength(frame), std::nullopt);
}

// ---- Programs that are no readers

class JetReaders : public ::testing::Test {
 protected:
  // A reader that is a shell script.
  std::string script(const std::string& commands) const {
    std::string path = folder.write("reader", "#!/bin/sh\n" + commands + "\n");
    ::chmod(path.c_str(), 0700);
    return path;
  }

  TempFolder folder;
  std::string jet = folder.write("some.mdb", kJetStart);
};

TEST_F(JetReaders, OneThatIsMissingReadsNothing) {
  EXPECT_EQ(readWith(folder("none"), jet), std::nullopt);
  EXPECT_EQ(readWith(folder(), jet), std::nullopt) << "a folder";
  EXPECT_EQ(readWith(jet, jet), std::nullopt) << "no program";
}

TEST_F(JetReaders, OneThatDiesReadsNothing) {
  EXPECT_EQ(readWith(script("exit 0"), jet), std::nullopt);
  EXPECT_EQ(readWith(script("kill -SEGV $$"), jet), std::nullopt);
  EXPECT_EQ(readWith(script("printf TESSJET1; kill -SEGV $$"), jet), std::nullopt);
}

TEST_F(JetReaders, OneThatWritesWithoutEndIsEnded) {
  EXPECT_EQ(readWith(script("while :; do echo ---------------------------; done"), jet),
            std::nullopt);
}

TEST_F(JetReaders, OneThatNeverAnswersIsEnded) {
  const auto begin = std::chrono::steady_clock::now();
  EXPECT_EQ(readWith(script("exec sleep 1000"), jet, 200ms), std::nullopt);
  EXPECT_EQ(readWith(script("printf TESSJET1; exec sleep 1000"), jet, 200ms), std::nullopt);
  EXPECT_LT(std::chrono::steady_clock::now() - begin, 500s);
}

TEST_F(JetReaders, OneThatLingersAfterItsAnswerIsNotWaitedFor) {
  folder.write("frame", framedImage("an image"));
  EXPECT_EQ(readWith(script("cat '" + folder("frame") + "'; exec sleep 1000"), jet), "an image");
}

TEST_F(JetReaders, NoneLeavesAnythingBehind) {
  const auto before = openDescriptors();
  for (const char* commands : {"exit 1", "exec sleep 1000", "echo no frame"}) {
    readWith(script(commands), jet, 100ms);
  }
  readWith(kReader, jet);
  EXPECT_EQ(openDescriptors(), before);
  EXPECT_EQ(::waitpid(-1, nullptr, WNOHANG), -1) << "no process is left";
  EXPECT_EQ(errno, ECHILD);
}

TEST_F(JetReaders, TheyGetTheFileTheOptionAndNothingElse) {
  folder.write("some.mdb", "the file");
  ::setenv("MDB_JET3_CHARSET", "nonsense", 1);
  const std::string told = "'" + folder("told") + "'";
  readWith(script("{ cat; echo \" $1 $# [$MDB_JET3_CHARSET]\"; } > " + told +
                  "; ls /proc/self/fd >> " + told),
           jet);
  ::unsetenv("MDB_JET3_CHARSET");
  EXPECT_EQ(folder.read("told"), "the file --read-jet 1 []\n0\n1\n2\n3\n")
      << "3 is the folder that is being listed";
}

// ---- Files that are no databases

TEST_F(JetReaders, TextsAndHeadsOfFilesAreNoDatabases) {
  EXPECT_FALSE(opens(folder.write("text.mdb", "a text")));
  EXPECT_FALSE(opens(folder.write("empty.mdb", "")));
  EXPECT_FALSE(opens(folder.write("head.mdb", kJetStart)));
  EXPECT_FALSE(opens(folder.write("cut.mdb", kJetStart.substr(0, 12))));
}

// A file that begins as one does, its pages marked as those of such a file, all else by chance.
std::string jetLike(std::mt19937& chance) {
  std::string bytes(4096 * (1 + chance() % 24), '\0');
  const bool dense = chance() % 2 == 0;
  for (char& byte : bytes) {
    if (dense || chance() % 8 == 0) byte = static_cast<char>(chance());
  }
  for (std::size_t page = 0; page < bytes.size(); page += 2048) {
    bytes[page] = static_cast<char>(chance() % 6);
    bytes[page + 1] = 1;
  }
  bytes.replace(0, kJetStart.size(), kJetStart);
  bytes[kJetStart.size()] = static_cast<char>(chance() % 2);  // Jet 3 or 4
  bytes.resize(bytes.size() - chance() % 4096);
  return bytes;
}

TEST_F(JetReaders, NoiseInTheShapeOfADatabaseDoesNoHarm) {
  std::mt19937 chance(2718);
  for (int i = 0; i < 60; ++i) {
    SpeedsFeeds connection(kReader);
    OpenSpeedsFeeds(connection, folder.write("noise.mdb", jetLike(chance)));
    EXPECT_EQ(materialCategories(connection), Texts{}) << i;
  }
}

TEST_F(JetReaders, WithoutAReaderAJetFileIsAbsent) {
  SpeedsFeeds connection;
  EXPECT_FALSE(OpenSpeedsFeeds(connection, jet));
}

#ifdef TESSIMO_JET_FEEDS

// ---- Files of others

// Cells as the CSV tables have them: numbers as short as they can be.
std::string cellText(const FeedsRow& row, const std::string& column, const std::string& wanted) {
  const auto text = row.text(column);
  if (!text) return "";
  const bool isNumber = !wanted.empty() && Val(wanted) == row.number(column);
  return isNumber && wanted.find_first_not_of("0123456789.") == std::string::npos ? wanted : *text;
}

TEST(JetFiles, TheFeedsAreThoseOfTheTables) {
  SpeedsFeeds connection(kReader);
  ASSERT_EQ(OpenSpeedsFeeds(connection, TESSIMO_JET_FEEDS).raw(), -1);
  Texts tables{"MaterialCategory", "MaterialCodes"};
  for (const auto& row : testing::feedsTable("MaterialCategory")) {
    tables.push_back(row.at("Table Name"));
  }
  std::size_t cells = 0;
  for (const std::string& table : tables) {
    const testing::CsvTable wanted = testing::feedsTable(table);
    std::size_t at = 0;
    connection.query("SELECT * FROM " + table, [&](const FeedsRow& row) {
      for (const auto& [column, text] : wanted.at(at)) {
        EXPECT_EQ(cellText(row, column, text), text) << table << " " << at << " " << column;
        ++cells;
      }
      ++at;
      return true;
    });
    EXPECT_EQ(at, wanted.size()) << table;
  }
  EXPECT_GT(cells, 3000U);
}

struct FileCase {
  const char* file;
  const char* table;
  int rows;
};

const FileCase kFiles[] = {
    {"jackcess__testV1997.mdb", "Table1", 2},
    {"jackcess__testV1997.mdb", "Table2", 0},
    {"jackcess__test2V1997.mdb", "MSP_PROJECTS", 1},
    {"jackcess__overflowTestV1997.mdb", "Table1", 7},
    {"jackcess__test2V2000.mdb", "MSP_PROJECTS", 1},
    {"jackcess__fixedNumericTestV2000.mdb", "test", 1},
    {"jackcess__test2V2003.mdb", "MSP_PROJECTS", 1},
    {"jackcess__testUnicodeCompV2003.mdb", "[Table]", 8},
    {"mdbtestdata__DateTestDatabase.mdb", "DateTest", 6},
    {"mdbtestdata__nwind.mdb", "[Order Details]", 2155},
    {"mdbtestdata__nwind.mdb", "Ums\xC3\xA4tze", 830},
    {"mdbtestdata__nwind.mdb", "Customers", 91},
};

std::string fileOfOthers(const char* name) {
  return std::string(TESSIMO_JET_FILES "/") + name;
}

TEST(JetFiles, AllRowsOfJet3AndJet4Arrive) {
  for (const FileCase& test : kFiles) {
    SCOPED_TRACE(test.table);
    SpeedsFeeds connection(kReader);
    ASSERT_TRUE(OpenSpeedsFeeds(connection, fileOfOthers(test.file))) << test.file;
    int rows = 0;
    connection.query(std::string("SELECT * FROM ") + test.table, [&](const FeedsRow&) {
      ++rows;
      return true;
    });
    EXPECT_EQ(rows, test.rows);
  }
}

// The same table, written by two releases of the engine.
TEST(JetFiles, OneTableIsTheSameInBothKindsOfFile) {
  std::map<std::string, std::string> cells[2];
  const char* const files[] = {"jackcess__test2V1997.mdb", "jackcess__test2V2000.mdb"};
  for (int i = 0; i < 2; ++i) {
    SpeedsFeeds connection(kReader);
    ASSERT_TRUE(OpenSpeedsFeeds(connection, fileOfOthers(files[i])));
    const std::string statement = "SELECT * FROM MSP_PROJECTS";
    const Texts columns = connection.columnsOf(statement);
    EXPECT_EQ(columns.size(), 74U);
    connection.query(statement, [&](const FeedsRow& row) {
      for (const std::string& column : columns) cells[i][column] = row.text(column).value_or("-");
      return true;
    });
  }
  EXPECT_EQ(cells[0], cells[1]);
  EXPECT_FALSE(cells[0].empty());
}

TEST(JetFiles, TextsOfManyScriptsArrive) {
  SpeedsFeeds connection(kReader);
  ASSERT_TRUE(OpenSpeedsFeeds(connection, fileOfOthers("jackcess__testUnicodeCompV2003.mdb")));
  const Texts columns = connection.columnsOf("SELECT * FROM [Table]");
  std::string all;
  connection.query("SELECT * FROM [Table]", [&](const FeedsRow& row) {
    for (const std::string& column : columns) all += row.text(column).value_or("") + "\n";
    return true;
  });
  EXPECT_NE(all.find("\xCE"), std::string::npos) << "Greek";
  EXPECT_NE(all.find("\xD0"), std::string::npos) << "Cyrillic";
  EXPECT_EQ(toUtf8(all), all);
}

std::string feedsBytes() {
  return readFile(TESSIMO_JET_FEEDS);
}

TEST(JetFiles, TheByteThatCrashesTheLibraryLeavesNoDatabase) {
  const TempFolder folder;
  std::string bytes = feedsBytes();
  bytes[8247] = '\xad';
  EXPECT_FALSE(opens(folder.write("crash.mdb", bytes)));
}

// What a dialog would ask, whatever the tables are.
void askEverything(const SpeedsFeeds& connection) {
  for (const std::string& category : materialCategories(connection)) {
    const std::string table = tableOfCategory(connection, category);
    connection.query(materialsStatement(table), [](const FeedsRow& row) {
      row.text("Material");
      return row.number("Tool_End_HSS") >= 0;
    });
  }
}

TEST(JetFiles, CutAtAnyByteTheyDoNoHarm) {
  const TempFolder folder;
  const std::string bytes = feedsBytes();
  std::size_t most = 0;
  for (std::size_t size = 21; size < bytes.size(); size += bytes.size() / 50 + 1) {
    SpeedsFeeds connection(kReader);
    OpenSpeedsFeeds(connection, folder.write("cut.mdb", bytes.substr(0, size)));
    most = std::max(most, materialCategories(connection).size());
    askEverything(connection);
  }
  EXPECT_GT(most, 0U) << "the longer ones still have their categories";
}

// So many by hand as TESSIMO_JET_MUTATIONS says.
int mutations() {
  const char* const wanted = std::getenv("TESSIMO_JET_MUTATIONS");
  return wanted == nullptr ? 60 : std::atoi(wanted);
}

std::string mutated(std::string bytes, std::mt19937& chance) {
  constexpr int kCounts[] = {1, 1, 2, 4, 16, 64, 256};
  for (int left = kCounts[chance() % std::size(kCounts)]; left > 0; --left) {
    bytes[20 + chance() % (bytes.size() - 20)] = static_cast<char>(chance());
  }
  if (chance() % 8 == 0) bytes.resize(20 + chance() % (bytes.size() - 20));
  return bytes;
}

TEST(JetFiles, MutatedTheyDoNoHarm) {
  const TempFolder folder;
  const std::string kinds[] = {feedsBytes(), readFile(fileOfOthers("jackcess__test2V1997.mdb")),
                               readFile(fileOfOthers("jackcess__overflowTestV1997.mdb"))};
  std::mt19937 chance(31415);
  int opened = 0;
  const int count = mutations();
  for (int i = 0; i < count; ++i) {
    SpeedsFeeds connection(kReader);
    // Mostly the file that has something to ask for.
    const std::string& kind = kinds[i % 4 == 0 ? 1 + i % 3 % 2 : 0];
    if (OpenSpeedsFeeds(connection, folder.write("mutated.mdb", mutated(kind, chance)))) ++opened;
    askEverything(connection);
  }
  RecordProperty("opened", opened);
  EXPECT_GT(opened, count / 3) << "most damage leaves something to read";
  EXPECT_EQ(::waitpid(-1, nullptr, WNOHANG), -1) << "no process is left";
}

#endif

}  // namespace
}  // namespace tess
