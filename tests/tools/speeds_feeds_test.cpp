// Finding and opening the speeds-and-feeds database, and the statements that it is asked with.
#include "tools/speeds_feeds.h"

#include <ctime>
#include <filesystem>
#include <sys/stat.h>

#include "gtest/gtest.h"

#include "tests/support/feeds_samples.h"
#include "tests/support/recording_session.h"

namespace tess {
namespace {

namespace fs = std::filesystem;
using testing::smallFeeds;
using testing::TempFolder;
using testing::TestSession;
using testing::WorkingFolder;
using Texts = std::vector<std::string>;

// ---- Finding

class Location : public ::testing::Test {
 protected:
  Location() {
    fs::create_directory(other("gantrix"));
    other.write("gantrix/SpeedsFeeds.MDB", "");
  }

  void record(const std::string& text, const char* name = "gtx_loc.dat") {
    test.home.write(name, text);
  }
  std::string located() { return LocateSpeedsFeeds(test.session); }

  TestSession test;
  TempFolder other;
  // The usual folders begin at a drive, which here is a folder of the working folder.
  WorkingFolder here{other()};
  const std::string own = test.home("SpeedsFeeds.MDB");
  const std::string theirs = other("gantrix/SpeedsFeeds.MDB");
};

TEST_F(Location, IsTheProgramsFolderWithoutARecord) {
  EXPECT_EQ(located(), own) << "whether it is there or not";
}

TEST_F(Location, IsTheFolderThatTheRecordNames) {
  record(other("gantrix/gantrix.exe"));
  EXPECT_EQ(located(), theirs);
}

TEST_F(Location, TheRecordMayHaveAnyCaseSeparatorsQuotesAndCommas) {
  record(other("Gantrix") + "\\GANTRIX.EXE\r\nmore", "GTX_LOC.DAT");
  EXPECT_EQ(located(), theirs);
  fs::create_directory(other("a, b"));
  other.write("a, b/speedsfeeds.mdb", "");
  fs::remove(test.home("GTX_LOC.DAT"));
  record("\"" + other("a, b") + "\\gantrix.exe\"");
  EXPECT_EQ(located(), other("a, b/speedsfeeds.mdb"));
}

TEST_F(Location, IsTheProgramsFolderWhenTheRecordedOneLacksIt) {
  fs::remove(theirs);
  record(other("gantrix/gantrix.exe"));
  EXPECT_EQ(located(), own);
  record(other("nowhere/gantrix.exe"));
  EXPECT_EQ(located(), own);
}

TEST_F(Location, ARecordWithoutAFolderIsNotUsed) {
  for (const char* text : {"gantrix.exe", "", "\r\n", "\"gantrix.exe\"", ","}) {
    record(text);
    EXPECT_EQ(located(), own) << text;
  }
}

TEST_F(Location, AFolderInTheRecordsPlaceIsNoRecord) {
  fs::create_directory(test.home("gtx_loc.dat"));
  EXPECT_EQ(located(), own);
}

TEST_F(Location, TheUsualFoldersAreTriedInOrder) {
  const std::string second = "C:/Program Files (x86)/Gantrix Pro/";
  fs::create_directories(second);
  EXPECT_EQ(located(), own) << "the folder is there, the database is not";
  other.write(second + "SpeedsFeeds.MDB", "");
  EXPECT_EQ(fs::weakly_canonical(located()),
            fs::weakly_canonical(other(second + "SpeedsFeeds.MDB")));
  fs::create_directories("C:/Program Files/Gantrix Pro");
  EXPECT_EQ(located(), own) << "the first one that exists is the one";
  record(other("gantrix/gantrix.exe"));
  EXPECT_EQ(located(), theirs) << "a record comes before them";
}

// ---- Opening

class Opening : public ::testing::Test {
 protected:
  int open(const std::string& path) { return OpenSpeedsFeeds(connection, path).raw(); }
  Texts categories() const { return materialCategories(connection); }

  TempFolder folder;
  SpeedsFeeds connection;
};

TEST_F(Opening, AnSqliteFileIsTold) {
  EXPECT_EQ(open(smallFeeds(folder)), -1);
  EXPECT_EQ(categories(), (Texts{"Steels", "Ghosts", "Plastics"}));
}

TEST_F(Opening, TheNameMayDifferInCase) {
  smallFeeds(folder);
  EXPECT_EQ(open(folder("speedsfeeds.mdb")), -1);
}

TEST_F(Opening, AnythingElseCountsAsAbsent) {
  EXPECT_EQ(open(folder("none.mdb")), 0);
  EXPECT_EQ(open(""), 0);
  EXPECT_EQ(open(folder()), 0) << "a folder";
  EXPECT_EQ(open(folder.write("text.mdb", "Material,Hardness\n")), 0);
  EXPECT_EQ(open(folder.write("empty.mdb", "")), 0);
  EXPECT_EQ(open(folder.write("head.mdb", std::string(kSqliteMark))), 0);
  EXPECT_EQ(categories(), Texts{});
  EXPECT_EQ(connection.columnsOf(categoriesStatement()), Texts{});
  EXPECT_FALSE(connection.isOpen());
}

TEST_F(Opening, APipeIsNotWaitedFor) {
  ASSERT_EQ(::mkfifo(folder("pipe.mdb").c_str(), 0600), 0);
  EXPECT_EQ(open(folder("pipe.mdb")), 0);
  EXPECT_EQ(open("/dev/zero"), 0);
}

TEST_F(Opening, AFileThatIsTooLargeIsNotRead) {
  const std::string path = smallFeeds(folder);
  fs::resize_file(path, std::uintmax_t{17} << 20);
  EXPECT_EQ(open(path), 0);
}

TEST_F(Opening, ATextThatBreaksOffIsAbsent) {
  const std::string image = testing::sqliteImage(testing::kSmallFeeds);
  for (std::size_t size = 0; size < 100; ++size) {
    EXPECT_EQ(open(folder.write("cut.mdb", image.substr(0, size))), 0) << size;
  }
}

TEST_F(Opening, TheConnectionFollowsTheFile) {
  const std::string path = smallFeeds(folder);
  open(path);
  smallFeeds(folder, "UPDATE MaterialCategory SET Milling = 0 WHERE [Table #] > 2;");
  EXPECT_EQ(categories().size(), 3U) << "until it is opened again";
  EXPECT_EQ(open(path), -1);
  EXPECT_EQ(categories(), Texts{"Steels"});
  fs::remove(path);
  EXPECT_EQ(open(path), 0);
  EXPECT_EQ(categories(), Texts{});
  smallFeeds(folder);
  EXPECT_EQ(open(path), -1);
}

TEST_F(Opening, AFileThatBecomesADatabaseIsNoticed) {
  const std::string path = folder.write(kSpeedsFeedsName, "a text");
  EXPECT_EQ(open(path), 0);
  EXPECT_EQ(open(path), 0);
  smallFeeds(folder);
  EXPECT_EQ(open(path), -1);
}

TEST_F(Opening, NoDatabaseIsWritten) {
  const std::string path = smallFeeds(folder);
  std::string image = folder.read(kSpeedsFeedsName);
  image[18] = image[19] = 2;  // one that would have a journal beside it
  folder.write(kSpeedsFeedsName, image);
  fs::permissions(path, fs::perms::owner_read);
  const auto time = fs::last_write_time(path);
  EXPECT_EQ(open(path), -1);
  connection.query("DELETE FROM Plastics", [](const FeedsRow&) { return true; });
  EXPECT_EQ(folder.read(kSpeedsFeedsName), image);
  EXPECT_EQ(fs::last_write_time(path), time);
  EXPECT_EQ(std::distance(fs::directory_iterator(folder()), {}), 1)
      << "and nothing stands beside it";
}

// The budget is of processor time; a test build has no optimisation.
TEST_F(Opening, TheSecondTimeCostsNothing) {
  ASSERT_EQ(open(testing::shippedFeeds()), -1);
  const std::clock_t begin = std::clock();
  for (int i = 0; i < 100; ++i) open(testing::shippedFeeds());
  EXPECT_LT(static_cast<double>(std::clock() - begin) / CLOCKS_PER_SEC, 0.1) << "1 ms each";
}

TEST_F(Opening, TheShippedDatabaseHasItsCategories) {
  ASSERT_EQ(open(testing::shippedFeeds()), -1);
  Texts wanted;
  for (const auto& row : testing::feedsTable("MaterialCategory")) {
    wanted.push_back(row.at("Material Category"));
  }
  EXPECT_EQ(categories(), wanted);
}

// ---- Statements

TEST(FeedsStatements, StandAsTheyAre) {
  EXPECT_EQ(categoriesStatement(),
            "SELECT * FROM MaterialCategory WHERE (Milling = True) ORDER BY [Table #]");
  EXPECT_EQ(categoryStatement("Steels"),
            "SELECT * FROM MaterialCategory WHERE ([Material Category] = 'Steels') AND (Milling = "
            "True);");
  EXPECT_EQ(materialsStatement("Steels"), "SELECT * FROM Steels;");
  EXPECT_EQ(materialStatement("Steels", "1018", /*byHardness=*/true),
            "SELECT * FROM Steels WHERE (Material = '1018 ') ORDER BY Hardness;");
  EXPECT_EQ(materialStatement("Woods", "Pine", /*byHardness=*/false),
            "SELECT * FROM Woods WHERE (Material = 'Pine ');");
  EXPECT_EQ(codeStatement("Cold Drawn"),
            "SELECT * FROM MaterialCodes  WHERE (Description = 'Cold Drawn ');");
  EXPECT_EQ(descriptionStatement("CD"),
            "SELECT * FROM MaterialCodes  WHERE (ConditionCode = 'CD ');");
}

TEST(FeedsStatements, ARecommendationAsksForWhatIsSet) {
  PartMaterial part{.category = "Steels", .material = "1018", .hardness = {}, .condition = {}};
  EXPECT_EQ(recommendationStatement("Steels", part, ""),
            "SELECT * FROM Steels WHERE (Material = '1018');");
  part.hardness = "125-175";
  EXPECT_EQ(recommendationStatement("Steels", part, ""),
            "SELECT * FROM Steels WHERE (Material = '1018') AND (Hardness = '125-175');");
  part.condition = "Cold Drawn";
  EXPECT_EQ(recommendationStatement("Steels", part, "CD"),
            "SELECT * FROM Steels WHERE (Material = '1018') AND (Hardness = '125-175') AND "
            "([Material Condition] = 'CD');");
  part.hardness.clear();
  EXPECT_EQ(recommendationStatement("Steels", part, "CD"),
            "SELECT * FROM Steels WHERE (Material = '1018') AND ([Material Condition] = 'CD');");
}

// ---- Looking up

class LookUp : public ::testing::Test {
 protected:
  LookUp() { OpenSpeedsFeeds(connection, smallFeeds(folder)); }
  std::string codeOf(const std::string& description) {
    std::string code = "left over";
    LookupConditionCode(connection, description, code);
    return code;
  }

  TempFolder folder;
  SpeedsFeeds connection;
};

TEST_F(LookUp, ACategoryNamesItsTable) {
  EXPECT_EQ(tableOfCategory(connection, "Steels"), "Steels");
  EXPECT_EQ(tableOfCategory(connection, "steels "), "Steels");
  EXPECT_EQ(tableOfCategory(connection, "Ghosts"), "Nowhere");
  EXPECT_EQ(tableOfCategory(connection, "Drills"), "") << "not for milling";
  EXPECT_EQ(tableOfCategory(connection, "Stone"), "");
  EXPECT_EQ(tableOfCategory(connection, ""), "");
}

TEST_F(LookUp, ADescriptionGivesItsCodeOrItself) {
  EXPECT_EQ(codeOf("Cold Drawn"), "CD");
  EXPECT_EQ(codeOf("COLD DRAWN  "), "CD");
  EXPECT_EQ(codeOf("Soft"), "Soft");
  EXPECT_EQ(codeOf(""), "");
  EXPECT_EQ(codeOf("O'Brien"), "O'Brien");
}

TEST_F(LookUp, ACodeGivesItsDescriptionOrItself) {
  EXPECT_EQ(conditionDescription(connection, "CD"), "Cold Drawn");
  EXPECT_EQ(conditionDescription(connection, "cd "), "Cold Drawn");
  EXPECT_EQ(conditionDescription(connection, "XX"), "XX");
}

TEST(LookUpWithoutADatabase, GivesTheTextItself) {
  const SpeedsFeeds connection;
  std::string code;
  LookupConditionCode(connection, "Cold Drawn", code);
  EXPECT_EQ(code, "Cold Drawn");
  EXPECT_EQ(conditionDescription(connection, "CD"), "CD");
  EXPECT_EQ(tableOfCategory(connection, "Steels"), "");
}

TEST(LookUpInADatabaseThatLacksTables, GivesTheTextItself) {
  const TempFolder folder;
  SpeedsFeeds connection;
  const std::string path =
      folder.write(kSpeedsFeedsName, testing::sqliteImage("CREATE TABLE t (a);"));
  ASSERT_TRUE(OpenSpeedsFeeds(connection, path));
  EXPECT_EQ(materialCategories(connection), Texts{});
  EXPECT_EQ(tableOfCategory(connection, "Steels"), "");
  EXPECT_EQ(conditionDescription(connection, "CD"), "CD");
}

}  // namespace
}  // namespace tess
