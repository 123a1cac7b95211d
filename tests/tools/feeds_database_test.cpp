// The database in memory: what it takes in, how it compares, what no statement can make it do.
#include "tools/feeds_database.h"

#include <chrono>
#include <ctime>

#include "gtest/gtest.h"

#include "core/file_system.h"
#include "tests/support/feeds_samples.h"
#include "tests/support/foreign_locale.h"

namespace tess {
namespace {

using testing::ForeignLocale;
using testing::sqliteImage;
using Texts = std::vector<std::string>;

std::unique_ptr<FeedsDatabase> made(const std::string& statements) {
  auto database = FeedsDatabase::fromImage(sqliteImage(statements));
  EXPECT_NE(database, nullptr);
  return database;
}

std::unique_ptr<FeedsDatabase> small(const std::string& more = {}) {
  return made(testing::kSmallFeeds + more);
}

// The texts of one column, "-" for a null.
Texts column(const FeedsDatabase& database, const std::string& statement,
             const std::string& name = "Material") {
  Texts found;
  database.query(statement, [&](const FeedsRow& row) {
    found.push_back(row.text(name).value_or("-"));
    return true;
  });
  return found;
}

TEST(FeedsTexts, CompareWithoutRegardToCaseAndBlanksAtTheEnd) {
  EXPECT_TRUE(sameFeedsText("Cold Drawn", "cold drawn   "));
  EXPECT_TRUE(sameFeedsText("", "  "));
  EXPECT_TRUE(sameFeedsText("Gr\xC3\x9C", "gr\xC3\xBC "));
  EXPECT_FALSE(sameFeedsText(" Cold Drawn", "Cold Drawn"));
  EXPECT_FALSE(sameFeedsText("Cold", "Cold Drawn"));
  EXPECT_LT(compareFeedsTexts("abc", "ABD"), 0);
  EXPECT_GT(compareFeedsTexts("abcd", "ABC"), 0);
  EXPECT_LT(compareFeedsTexts("z", "\xC3\xA4"), 0);
}

TEST(FeedsTexts, CompareTheSameWayWhereAnIHasADot) {
  const ForeignLocale turkish("tr_TR");
  EXPECT_TRUE(sameFeedsText("TITANIUM", "titanium"));
  EXPECT_EQ(column(*small(), "SELECT * FROM PLASTICS WHERE (MATERIAL = 'ACETAL')"),
            (Texts{"Acetal", "Acetal"}));
}

TEST(FeedsTexts, StandOnceInTheOrderTheyCameIn) {
  FeedsTexts texts;
  for (const char* text : {"b", "A", "", "B ", "  ", "a", "c"}) texts.add(text);
  EXPECT_EQ(texts.take(), (Texts{"b", "A", "c"}));
}

TEST(FeedsDatabase, StatementsCompareTextsTheSameWay) {
  const auto database = small();
  EXPECT_EQ(column(*database, "SELECT * FROM plastics WHERE (material = 'ACETAL  ')"),
            (Texts{"Acetal", "Acetal"}));
  EXPECT_EQ(column(*database, "SELECT * FROM Steels WHERE ([Material Condition] = 'xx ')"),
            Texts{"1018, cold"});
}

TEST(FeedsDatabase, FlagsAndNumbersAreNumbers) {
  const auto database = small();
  EXPECT_EQ(
      column(*database, "SELECT * FROM MaterialCategory WHERE (Milling = True) ORDER BY [Table #]",
             "Material Category"),
      (Texts{"Steels", "Ghosts", "Plastics"}))
      << "2, 3, 10: not as texts";
}

TEST(FeedsDatabase, CellsAreTextsNumbersOrNothing) {
  const auto database = small();
  int rows = 0;
  database->query("SELECT * FROM Steels WHERE ([Material Condition] = 'XX')",
                  [&](const FeedsRow& row) {
                    ++rows;
                    EXPECT_EQ(row.text("HARDNESS"), "125-175") << "a column of any case";
                    EXPECT_EQ(row.number("tool_end_hss"), 90);
                    EXPECT_EQ(row.text("Tool_End_Carbide"), std::nullopt) << "a null";
                    EXPECT_EQ(row.number("Tool_End_Carbide"), 0);
                    EXPECT_EQ(row.text("Tool_End_Wood"), std::nullopt) << "no such column";
                    EXPECT_EQ(row.number("Tool_End_Wood"), 0);
                    EXPECT_EQ(row.number("Material"), 1018) << "what the text begins with";
                    return true;
                  });
  EXPECT_EQ(rows, 1);
}

TEST(FeedsDatabase, ANumberWithoutBoundsCountsAsNone) {
  const auto database = made("CREATE TABLE t (a REAL); INSERT INTO t VALUES (9e999);");
  database->query("SELECT * FROM t", [](const FeedsRow& row) {
    EXPECT_EQ(row.number("a"), 0);
    return true;
  });
}

TEST(FeedsDatabase, TextsThatAreNoUtf8BecomeLatin1) {
  const auto database =
      made("CREATE TABLE t (a TEXT); INSERT INTO t VALUES (CAST(x'64fc' AS TEXT))");
  EXPECT_EQ(column(*database, "SELECT * FROM t", "a"), Texts{"d\xC3\xBC"});
}

TEST(FeedsDatabase, TheVisitorCanStop) {
  const auto database = small();
  int rows = 0;
  database->query("SELECT * FROM Plastics", [&](const FeedsRow&) { return ++rows < 2; });
  EXPECT_EQ(rows, 2);
}

TEST(FeedsDatabase, ColumnsAreThereWithoutRows) {
  const auto database = made("CREATE TABLE Empty (Material TEXT, Tool_End_HSS REAL);");
  EXPECT_EQ(database->columnsOf("SELECT * FROM Empty;"), (Texts{"Material", "Tool_End_HSS"}));
  EXPECT_EQ(database->columnsOf("SELECT * FROM Absent;"), Texts{});
}

// ---- What a statement cannot do

struct RefusedCase {
  const char* name;
  const char* statement;
};

const RefusedCase kRefused[] = {
    {"a broken text", "SELECT * FROM Plastics WHERE (Material = 'O'Brien')"},
    {"no text", ""},
    {"blanks alone", "  ;"},
    {"no table", "SELECT * FROM Nowhere"},
    {"a second statement", "SELECT * FROM Plastics; SELECT * FROM Plastics"},
    {"a second one that writes", "SELECT * FROM Plastics; DROP TABLE Plastics"},
    {"a broken second one", "SELECT * FROM Plastics; ' "},
    {"a remark behind it", "SELECT * FROM Plastics; -- no more"},
    {"writing", "INSERT INTO Plastics VALUES ('x', 1, 1, 1)"},
    {"changing", "UPDATE Plastics SET Material = 'x'"},
    {"removing", "DELETE FROM Plastics"},
    {"dropping", "DROP TABLE Plastics"},
    {"making", "CREATE TABLE Evil (a)"},
    {"a view", "CREATE TEMP VIEW Evil AS SELECT 1"},
    {"another file", "ATTACH DATABASE 'evil.mdb' AS evil"},
    {"another file in memory", "ATTACH DATABASE ':memory:' AS evil"},
    {"a copy on the disk", "VACUUM INTO 'evil.mdb'"},
    {"a setting", "PRAGMA journal_mode = DELETE"},
    {"a question about settings", "PRAGMA table_info(Plastics)"},
    {"the same as a table", "SELECT * FROM pragma_table_info('Plastics')"},
    {"the same injected",
     "SELECT * FROM Plastics WHERE (Material = '') OR EXISTS "
     "(SELECT * FROM pragma_database_list) --')"},
    {"the schema", "SELECT * FROM sqlite_master"},
    {"the schema under its other name", "SELECT * FROM sqlite_schema"},
    {"a function", "SELECT upper(Material) FROM Plastics"},
    {"a library", "SELECT load_extension('evil.so')"},
    {"much memory", "SELECT zeroblob(1000000000)"},
    {"a table made of a function", "SELECT * FROM json_each('[1,2]')"},
    {"endless recursion",
     "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n) "
     "SELECT i FROM n"},
    {"a transaction", "BEGIN"},
    {"a plan", "EXPLAIN DELETE FROM Plastics"},
};

TEST(FeedsDatabase, RefusesAllButOneReadingStatement) {
  for (const RefusedCase& test : kRefused) {
    SCOPED_TRACE(test.name);
    const auto database = small();
    int rows = 0;
    database->query(test.statement, [&](const FeedsRow&) { return ++rows > 0; });
    EXPECT_EQ(rows, 0);
    EXPECT_EQ(database->columnsOf(test.statement), Texts{});
    EXPECT_EQ(column(*database, "SELECT * FROM Plastics").size(), 3U) << "all is as it was";
  }
  EXPECT_FALSE(fileExists("evil.mdb"));
}

TEST(FeedsDatabase, AByteOfZeroEndsNoStatement) {
  const auto database = small();
  const std::string text("SELECT * FROM Plastics\0 WHERE (Material = 'x')", 46);
  EXPECT_EQ(column(*database, text), Texts{});
}

TEST(FeedsDatabase, AStatementThatIsTooLongGivesNothing) {
  const auto database = small();
  const std::string text(1 << 20, 'x');
  EXPECT_EQ(column(*database, "SELECT * FROM Plastics WHERE (Material = '" + text + "')"), Texts{});
}

double processorSeconds(const std::function<void()>& work) {
  const std::clock_t begin = std::clock();
  work();
  return static_cast<double>(std::clock() - begin) / CLOCKS_PER_SEC;
}

TEST(FeedsDatabase, AProductOfTablesEndsSoon) {
  std::string rows = "INSERT INTO Plastics VALUES ('m', 1, 1, 1)";
  for (int i = 0; i < 500; ++i) rows += ", ('m', 1, 1, 1)";
  const auto database = small(rows + ";");
  const std::string product =
      "SELECT a.* FROM Plastics a, Plastics b, Plastics c, Plastics d, Plastics e WHERE "
      "a.Tool_End_HSS + b.Tool_End_HSS + c.Tool_End_HSS + d.Tool_End_HSS + e.Tool_End_HSS < 0";
  const double spent = processorSeconds([&] { EXPECT_EQ(column(*database, product), Texts{}); });
  EXPECT_LT(spent, 5) << "500 to the power of 5 rows";
  EXPECT_EQ(column(*database, "SELECT * FROM Plastics WHERE (Material = 'm')").size(), 501U)
      << "and the next one runs";
}

// ---- What an image may hold

TEST(FeedsDatabase, BytesThatAreNoDatabaseGiveNone) {
  EXPECT_EQ(FeedsDatabase::fromImage(""), nullptr);
  EXPECT_EQ(FeedsDatabase::fromImage("SQLite format 3"), nullptr);
  EXPECT_EQ(FeedsDatabase::fromImage("a text that is no database"), nullptr);
  EXPECT_EQ(FeedsDatabase::fromImage(std::string(8192, '\0')), nullptr);
  EXPECT_EQ(FeedsDatabase::fromImage(sqliteImage(testing::kSmallFeeds).substr(0, 99)), nullptr);
}

TEST(FeedsDatabase, AFileWithItsJournalBesideItIsRead) {
  std::string image = sqliteImage(testing::kSmallFeeds);
  image[18] = image[19] = 2;
  const auto database = FeedsDatabase::fromImage(image);
  ASSERT_NE(database, nullptr);
  EXPECT_EQ(column(*database, "SELECT * FROM Plastics").size(), 3U);
}

TEST(FeedsDatabase, ViewsTriggersAndVirtualTablesAreLeftOut) {
  const auto database = small(
      "CREATE VIEW Seen AS SELECT * FROM Plastics;"
      "CREATE TRIGGER Pulled AFTER INSERT ON Plastics BEGIN DELETE FROM Steels; END;"
      "CREATE VIRTUAL TABLE Searched USING fts5(a);");
  EXPECT_EQ(column(*database, "SELECT * FROM Seen"), Texts{});
  EXPECT_EQ(column(*database, "SELECT * FROM Searched"), Texts{});
  EXPECT_EQ(column(*database, "SELECT * FROM Steels").size(), 3U);
}

TEST(FeedsDatabase, NamesThatLookLikeStatementsAreNames) {
  const auto database = made(
      "CREATE TABLE \"a\"\"; DROP TABLE b; --\" (\"x\"\") y\" TEXT);"
      "INSERT INTO \"a\"\"; DROP TABLE b; --\" VALUES ('kept'); CREATE TABLE b (c TEXT);");
  EXPECT_EQ(column(*database, "SELECT * FROM \"a\"\"; DROP TABLE b; --\"", "x\") y"),
            Texts{"kept"});
  EXPECT_EQ(database->columnsOf("SELECT * FROM b"), Texts{"c"});
}

TEST(FeedsDatabase, ColumnsKeepTheKindOfTheirValues) {
  const auto database = made(
      "CREATE TABLE t (a VARCHAR(10), b BIGINT, c DOUBLE, d DECIMAL(5, 2), e BLOB, f);"
      "INSERT INTO t VALUES ('007', 12, 2, 3.5, '007', '007');");
  EXPECT_EQ(column(*database, "SELECT * FROM t WHERE (a = '007')", "a"), Texts{"007"});
  EXPECT_EQ(column(*database, "SELECT * FROM t WHERE (a = '7')", "a"), Texts{});
  EXPECT_EQ(column(*database, "SELECT * FROM t WHERE (b = '12.0')", "a"), Texts{"007"});
  EXPECT_EQ(column(*database, "SELECT * FROM t WHERE (c = '2') AND (d = '3.50')", "a"),
            Texts{"007"});
  EXPECT_EQ(column(*database, "SELECT * FROM t WHERE (e = '007') AND (f = '007')", "a"),
            Texts{"007"});
}

TEST(FeedsDatabase, DamagedImagesAreReadAsFarAsTheyGo) {
  const std::string image = sqliteImage(testing::kSmallFeeds);
  const auto wanted = column(*small(), "SELECT * FROM Plastics");
  int whole = 0;
  for (std::size_t place = 0; place < image.size(); place += 7) {
    std::string damaged = image;
    damaged[place] = static_cast<char>(damaged[place] ^ 0x55);
    const auto database = FeedsDatabase::fromImage(damaged);
    if (database != nullptr && column(*database, "SELECT * FROM Plastics") == wanted) ++whole;
  }
  EXPECT_GT(whole, 100) << "most places hold nothing of this table";
}

TEST(FeedsDatabase, CutOffImagesHoldATableWholeOrNotAtAll) {
  const std::string image = sqliteImage(testing::kSmallFeeds);
  int opened = 0;
  for (std::size_t size = 0; size < image.size(); size += 97) {
    const auto database = FeedsDatabase::fromImage(image.substr(0, size));
    if (database == nullptr) continue;
    ++opened;
    const std::size_t rows = column(*database, "SELECT * FROM Plastics").size();
    EXPECT_TRUE(rows == 0 || rows == 3) << size;
  }
  EXPECT_GT(opened, 0);
}

TEST(FeedsDatabase, AnImageOfVeryManyTablesIsReadInPart) {
  std::string tables;
  for (int i = 0; i < 1500; ++i) tables += "CREATE TABLE t" + std::to_string(i) + " (a);";
  const auto database = made(tables);
  EXPECT_EQ(database->columnsOf("SELECT * FROM t1"), Texts{"a"});
  EXPECT_EQ(database->columnsOf("SELECT * FROM t1499"), Texts{});
}

TEST(FeedsDatabase, AThousandMaterialsAreReadQuickly) {
  std::string rows;
  for (int i = 0; i < 1000; ++i) {
    rows += "INSERT INTO Steels (Material) VALUES ('material " + std::to_string(i) + "');";
  }
  const auto database = small(rows);
  FeedsTexts texts;
  const double spent = processorSeconds([&] {
    database->query("SELECT * FROM Steels;", [&](const FeedsRow& row) {
      texts.add(*row.text("Material"));
      return true;
    });
  });
  EXPECT_EQ(texts.take().size(), 1001U);
  EXPECT_LT(spent, 0.2) << "5 ms without the checks of a test build";
}

}  // namespace
}  // namespace tess
