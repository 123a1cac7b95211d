// The speeds-and-feeds database: finding, opening and asking it.
#include "tools/speeds_feeds.h"

#include <fcntl.h>
#include <optional>
#include <sys/stat.h>

#include "core/descriptor.h"
#include "core/drawing_store.h"
#include "core/field_reader.h"
#include "core/file_system.h"
#include "tools/jet_import.h"

namespace tess {
namespace {

constexpr char kLocationRecord[] = "gtx_loc.dat";
constexpr const char* kUsualFolders[] = {"C:\\Program Files\\Gantrix Pro\\",
                                         "C:\\Program Files (x86)\\Gantrix Pro\\"};

// A database of materials has a tenth of a megabyte.
constexpr off_t kLargestFile = 16 << 20;

// The first bytes of a Jet file are a number and the name of its engine.
constexpr std::string_view kJetMark("\0\1\0\0Standard Jet DB\0", 20);
static_assert(kJetMark.size() >= kSqliteMark.size());

// ---- Finding

// A record that cannot be read, or names no folder, is not used.
std::string recordedFolder(const std::string& record) {
  std::string folder;
  try {
    FieldReader fields = FieldReader::open(record);
    splitPath(folder, fields.readQuotedText(), "");
  } catch (const RuntimeFailure&) {
    takeCallChain();
    folder.clear();
  }
  return folder;
}

std::string machineControlFolder(const Session& session) {
  const std::string record = session.appfolder + kLocationRecord;
  const std::string recorded = fileExists(record) ? recordedFolder(record) : "";
  if (!recorded.empty()) return recorded;
  for (const char* const folder : kUsualFolders) {
    if (folderExists(folder)) return folder;
  }
  return {};
}

// ---- Reading the file

// A pipe in the file's place must not be waited for.
Descriptor openToRead(const std::string& path) {
  return Descriptor(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY));
}

// Nothing for what is no file, or one that is too large.
std::optional<struct stat> factsOfFile(const Descriptor& file) {
  struct stat facts {};
  if (!file.isOpen() || ::fstat(file.number(), &facts) != 0) return std::nullopt;
  if (!S_ISREG(facts.st_mode) || facts.st_size > kLargestFile) return std::nullopt;
  return facts;
}

// What changes when another file takes the place, or the same one is written.
std::array<std::int64_t, 7> numbersOf(const struct stat& facts) {
  return {static_cast<std::int64_t>(facts.st_dev),
          static_cast<std::int64_t>(facts.st_ino),
          facts.st_size,
          facts.st_ctim.tv_sec,
          facts.st_ctim.tv_nsec,
          facts.st_mtim.tv_sec,
          facts.st_mtim.tv_nsec};
}

std::string startOf(int file, std::size_t size) {
  std::string bytes(size, '\0');
  const ssize_t got = ::pread(file, bytes.data(), size, 0);
  bytes.resize(got < 0 ? 0 : static_cast<std::size_t>(got));
  return bytes;
}

std::optional<std::string> wholeFile(int file, off_t size) {
  std::string bytes(static_cast<std::size_t>(size), '\0');
  std::size_t filled = 0;
  while (filled < bytes.size()) {
    const ssize_t got =
        ::pread(file, bytes.data() + filled, bytes.size() - filled, static_cast<off_t>(filled));
    if (got <= 0) return std::nullopt;
    filled += static_cast<std::size_t>(got);
  }
  return bytes;
}

// The database as the bytes of an SQLite file; nothing when it is no database.
std::optional<std::string> imageOf(int file, off_t size, const std::string& jetReader) {
  const std::string start = startOf(file, kJetMark.size());
  if (start.starts_with(kSqliteMark)) return wholeFile(file, size);
  if (start == kJetMark && !jetReader.empty()) return readJetFile(file, jetReader);
  return std::nullopt;
}

// ---- Statements

// Some statements have a blank at the end of their text, which no comparison sees.
std::string quotedWithBlank(std::string_view text) {
  return "'" + std::string(text) + " '";
}

// The text of one column in the first row.
std::optional<std::string> firstText(const SpeedsFeeds& connection, const std::string& statement,
                                     std::string_view column) {
  std::optional<std::string> found;
  connection.query(statement, [&](const FeedsRow& row) {
    found = row.text(column).value_or("");
    return false;
  });
  return found;
}

}  // namespace

// ---- The connection

void SpeedsFeeds::query(const std::string& statement,
                        const std::function<bool(const FeedsRow&)>& visit) const {
  if (isOpen()) database_->query(statement, visit);
}

std::vector<std::string> SpeedsFeeds::columnsOf(const std::string& statement) const {
  return isOpen() ? database_->columnsOf(statement) : std::vector<std::string>();
}

// A file that is no database is read again only when it has changed.
bool SpeedsFeeds::open(std::string_view path) {
  const std::string found = resolvePath(path);
  const Descriptor file = openToRead(found);
  const std::optional<struct stat> facts = factsOfFile(file);
  if (!facts) {
    database_.reset();
    version_.reset();
    return false;
  }
  Version version{found, numbersOf(*facts)};
  if (version_ == version) return isOpen();
  version_ = std::move(version);
  auto image = imageOf(file.number(), facts->st_size, jetReader_);
  database_ = image ? FeedsDatabase::fromImage(*std::move(image)) : nullptr;
  return isOpen();
}

std::string LocateSpeedsFeeds(const Session& session) {
  const Procedure here("LocateSpeedsFeeds()");
  const std::string folder = machineControlFolder(session);
  const std::string there = folder + kSpeedsFeedsName;
  if (!folder.empty() && fileExists(there)) return resolvePath(there);
  return session.appfolder + kSpeedsFeedsName;
}

Flag OpenSpeedsFeeds(SpeedsFeeds& connection, std::string_view path) {
  const Procedure here("OpenSpeedsFeeds(connection,path)");
  return connection.open(path);
}

// ---- Asking

PartMaterial partMaterial(const DrawingSettings& settings) {
  return {.category = settings.materialcategory,
          .material = settings.partmaterial,
          .hardness = settings.parthardness,
          .condition = settings.materialcondition};
}

std::string textInStatement(std::string_view text) {
  return "'" + std::string(text) + "'";
}

std::string categoriesStatement() {
  return "SELECT * FROM MaterialCategory WHERE (Milling = True) ORDER BY [Table #]";
}

std::string categoryStatement(std::string_view category) {
  return "SELECT * FROM MaterialCategory WHERE ([Material Category] = " +
         textInStatement(category) + ") AND (Milling = True);";
}

std::string materialsStatement(std::string_view table) {
  return "SELECT * FROM " + std::string(table) + ";";
}

std::string materialStatement(std::string_view table, std::string_view material, bool byHardness) {
  return "SELECT * FROM " + std::string(table) + " WHERE (Material = " + quotedWithBlank(material) +
         ")" + (byHardness ? " ORDER BY Hardness" : "") + ";";
}

std::string recommendationStatement(std::string_view table, const PartMaterial& part,
                                    std::string_view code) {
  std::string statement = "SELECT * FROM " + std::string(table) +
                          " WHERE (Material = " + textInStatement(part.material) + ")";
  if (!part.hardness.empty())
    statement += " AND (Hardness = " + textInStatement(part.hardness) + ")";
  if (!part.condition.empty())
    statement += " AND ([Material Condition] = " + textInStatement(code) + ")";
  return statement + ";";
}

std::string codeStatement(std::string_view description) {
  return "SELECT * FROM MaterialCodes  WHERE (Description = " + quotedWithBlank(description) + ");";
}

std::string descriptionStatement(std::string_view code) {
  return "SELECT * FROM MaterialCodes  WHERE (ConditionCode = " + quotedWithBlank(code) + ");";
}

std::vector<std::string> materialCategories(const SpeedsFeeds& connection) {
  FeedsTexts categories;
  connection.query(categoriesStatement(), [&](const FeedsRow& row) {
    categories.add(row.text("Material Category").value_or(""));
    return true;
  });
  return categories.take();
}

std::string tableOfCategory(const SpeedsFeeds& connection, std::string_view category) {
  return firstText(connection, categoryStatement(category), "Table Name").value_or("");
}

void LookupConditionCode(const SpeedsFeeds& connection, const std::string& description,
                         std::string& code) {
  const Procedure here("LookupConditionCode(description,code)");
  code = firstText(connection, codeStatement(description), "ConditionCode").value_or(description);
}

std::string conditionDescription(const SpeedsFeeds& connection, const std::string& code) {
  const auto found = firstText(connection, descriptionStatement(code), "Description");
  return found && !found->empty() ? *found : code;
}

}  // namespace tess
