// Both formats of the tool library.
#include "tools/tool_library.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <map>
#include <set>

#include "core/conventions.h"
#include "core/cut_width.h"
#include "core/drawing_store.h"
#include "core/file_system.h"
#include "core/number_text.h"
#include "core/runtime_failure.h"
#include "core/text.h"
#include "tools/recommendation.h"

namespace tess {
namespace {

constexpr std::size_t kMaxProblems = 100;
constexpr std::size_t kLongestQuote = 40;  // of a damaged text in a message, in bytes
constexpr int kMinColor = std::numeric_limits<int>::min();
constexpr int kMaxColor = std::numeric_limits<int>::max();
constexpr char kInch[] = "in";
constexpr char kMillimetre[] = "mm";

// ---- Lines

struct Line {
  int number = 1;  // from 1
  std::string_view text;
};

// The lines of a text without their ends, which are CR LF, LF or CR. A mark of the encoding at the
// start is none of the text.
class Lines {
 public:
  explicit Lines(std::string_view text) : rest_(text) {
    constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
    if (rest_.starts_with(kByteOrderMark)) rest_.remove_prefix(kByteOrderMark.size());
  }

  // Goes to the next one; false behind the last.
  bool next(Line& line) {
    if (rest_.empty()) return false;
    const std::size_t end = std::min(rest_.find_first_of("\r\n"), rest_.size());
    line = {++number_, rest_.substr(0, end)};
    const std::size_t width = rest_.substr(end).starts_with("\r\n") ? 2 : 1;
    rest_.remove_prefix(std::min(end + width, rest_.size()));
    return true;
  }

  // The same with the next one that holds more than blanks.
  bool nextFilled(Line& line) {
    while (next(line)) {
      if (!trimmed(line.text).empty()) return true;
    }
    return false;
  }

 private:
  std::string_view rest_;
  int number_ = 0;
};

// What a line tells of one tool; what it does not tell stays as it is.
struct ToolRow {
  int number = 0;  // from 1
  std::optional<std::string> name, material, feed;
  std::optional<float> radius;  // drawing units
  std::optional<int> color, type, flutes, inside;
  std::optional<float> spindle, recommendedSpindle, cuttingSpeed;
};

// A line that cannot be taken, with what is wrong.
struct BadLine {
  std::string what;
};

std::string cited(std::string_view text) {
  const bool cut = text.size() > kLongestQuote;
  const std::string shown = toUtf8(text.substr(0, kLongestQuote));
  return "\"" + onOneLine(shown) + (cut ? "..." : "") + "\"";
}

[[noreturn]] void refuse(const std::string& what) {
  throw BadLine{what};
}

// ---- Values

double numberIn(std::string_view text, const char* what) {
  const std::optional<double> value = numericValue(text);
  if (!value || !std::isfinite(static_cast<float>(*value))) {
    refuse(std::string("The ") + what + " " + cited(text) + " is not a number");
  }
  return *value;
}

double positiveIn(std::string_view text, const char* what) {
  const double value = numberIn(text, what);
  if (value < 0) refuse(std::string("The ") + what + " " + cited(text) + " is below 0");
  return value;
}

int wholeIn(std::string_view text, const char* what, int least, int most) {
  const double value = numberIn(text, what);
  if (value != std::floor(value)) {
    refuse(std::string("The ") + what + " " + cited(text) + " is not a whole number");
  }
  if (value < least || value > most) {
    refuse(std::string("The ") + what + " " + cited(text) + " is not between " +
           std::to_string(least) + " and " + std::to_string(most));
  }
  return static_cast<int>(value);
}

int toolNumberIn(std::string_view text) {
  return wholeIn(text, "tool number", 1, kLastWrittenTool + 1);
}

// A setup file cuts a text at a comma, and ends it with its line.
bool survivesASetup(const std::string& text) {
  return std::none_of(text.begin(), text.end(), [](char letter) {
    return letter == ',' || static_cast<unsigned char>(letter) < ' ';
  });
}

std::string textIn(std::string_view text, const char* what) {
  std::string value = toUtf8(trimmed(text));
  if (!survivesASetup(value)) {
    refuse(std::string("The ") + what + " " + cited(text) + " does not fit: it has a comma");
  }
  return value;
}

std::string nameIn(std::string_view text) {
  std::string name = lowerCased(textIn(text, "name"));
  if (name.empty()) refuse("There is no name");
  if (characterCount(name) > kLongestToolName) {
    refuse("The name " + cited(text) + " does not fit: it has more than " +
           std::to_string(kLongestToolName) + " characters");
  }
  return name;
}

// ---- Taking over

class Import {
 public:
  Import(DrawingStore& store, std::string file) : store_(store), file_(std::move(file)) {}

  // Reads a line by `read`; a tool that stands further up already is a problem too.
  template <typename Read>
  void line(const Line& line, Read read) {
    try {
      const std::optional<ToolRow> row = read(line.text);
      if (!row) return;
      const auto [first, isNew] = lines_.emplace(row->number, line.number);
      if (!isNew) {
        refuse("Tool " + std::to_string(row->number) + " stands in line " +
               std::to_string(first->second) + " already");
      }
      takeOver(*row);
    } catch (const BadLine& bad) {
      report(line.number, bad.what);
    }
  }

  void report(int line, const std::string& what) {
    if (result_.problems.size() < kMaxProblems) {
      result_.problems.push_back(file_ + ":" + std::to_string(line) + ": " + what);
    } else {
      ++unreported_;
    }
  }

  ToolImport finished() {
    if (unreported_ > 0) {
      result_.problems.push_back(file_ + ": " + std::to_string(unreported_) +
                                 " more lines have problems");
    }
    if (result_.tools > 0) store_.setupchanged = true;
    return std::move(result_);
  }

 private:
  template <typename Value, typename Cell>
  static void set(Cell& cell, const std::optional<Value>& value) {
    if (value) cell = *value;
  }

  void takeOver(const ToolRow& row) {
    const int tool = row.number - 1;
    const bool unnamed = trimmed(store_.toolname[tool]).empty();
    if (unnamed) store_.toolname[tool] = "tool #" + std::to_string(row.number);
    set(store_.toolname[tool], row.name);
    set(store_.toolmaterial[tool], row.material);
    set(store_.toolfeedrate[tool], row.feed);
    set(store_.toolradius[tool], row.radius);
    set(store_.toolcolor[tool], row.color);
    set(store_.toolmilltype[tool], row.type);
    set(store_.toolflutes[tool], row.flutes);
    set(store_.toolspindlespeed[tool], row.spindle);
    set(store_.toolrecspindle[tool], row.recommendedSpindle);
    set(store_.toolcuttingspeed[tool], row.cuttingSpeed);
    set(store_.toolinside[tool], row.inside);
    ++result_.tools;
  }

  DrawingStore& store_;
  std::string file_;
  ToolImport result_;
  std::map<int, int> lines_;  // where each tool number stands
  int unreported_ = 0;
};

bool isListed(const DrawingStore& store, int tool) {
  return !trimmed(store.toolname[tool]).empty();
}

float diameterOf(const DrawingStore& store, int tool) {
  constexpr double kMax = std::numeric_limits<float>::max();
  return static_cast<float>(std::clamp(2.0 * store.toolradius[tool], -kMax, kMax));
}

// ---- CSV

// Columns in the order in which they are written.
enum class CsvColumn {
  Number,
  Name,
  Type,
  Material,
  Flutes,
  Diameter,
  Units,
  Color,
  Feed,
  Spindle,
  RecommendedSpindle,
  CuttingSpeed,
  Inside  // only where a lathe tool works inside
};

constexpr std::array kColumnNames = {"number",
                                     "name",
                                     "type",
                                     "material",
                                     "flutes",
                                     "diameter",
                                     "units",
                                     "color",
                                     "feed rate",
                                     "spindle speed",
                                     "recommended spindle speed",
                                     "cutting speed",
                                     "inside"};

constexpr std::array kTypeWords = {"end", "face", "slot"};  // by the values of toolmilltype

std::string csvCell(const std::string& text) {
  const std::string line = onOneLine(text);
  const bool plain = line.find_first_of(",\"") == std::string::npos && line == trimmed(line);
  if (plain) return line;
  std::string cell = "\"";
  for (const char letter : line) cell.append(letter == '"' ? 2 : 1, letter);
  return cell + '"';
}

std::string typeText(int type) {
  const bool known = type >= 0 && type < static_cast<int>(kTypeWords.size());
  return known ? kTypeWords[static_cast<std::size_t>(type)] : std::to_string(type);
}

bool hasInside(const DrawingStore& store) {
  for (int tool = 0; tool <= kLastWrittenTool; ++tool) {
    if (isListed(store, tool) && store.toolinside[tool] != 0) return true;
  }
  return false;
}

std::string csvLine(const DrawingStore& store, int tool, bool withInside) {
  const std::string cells[] = {std::to_string(tool + 1),
                               csvCell(std::string(trimmed(store.toolname[tool]))),
                               typeText(store.toolmilltype[tool]),
                               csvCell(store.toolmaterial[tool]),
                               std::to_string(store.toolflutes[tool]),
                               plainText(diameterOf(store, tool)),
                               isMetric(store) ? kMillimetre : kInch,
                               std::to_string(store.toolcolor[tool]),
                               csvCell(store.toolfeedrate[tool]),
                               plainText(store.toolspindlespeed[tool]),
                               plainText(store.toolrecspindle[tool]),
                               plainText(store.toolcuttingspeed[tool])};
  std::string line;
  for (const std::string& cell : cells) line += (line.empty() ? "" : ",") + cell;
  if (withInside) line += "," + std::to_string(store.toolinside[tool]);
  return line + "\r\n";
}

// The cells of a line; quotes may surround them, and stand doubled inside.
std::vector<std::string> cellsOf(std::string_view text) {
  std::vector<std::string> cells(1);
  bool inQuotes = false;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char letter = text[i];
    if (letter == '"' && inQuotes && text.substr(i + 1).starts_with('"')) {
      cells.back() += '"';
      ++i;
    } else if (letter == '"') {
      inQuotes = !inQuotes;
    } else if (letter == ',' && !inQuotes) {
      cells.emplace_back();
    } else {
      cells.back() += letter;
    }
  }
  if (inQuotes) refuse("A quote is not closed");
  return cells;
}

// Which column stands where. Raises BadLine without the two that a tool cannot do without.
class CsvHeader {
 public:
  CsvHeader(const Line& line, Import& intake) {
    for (const std::string& cell : cellsOf(line.text)) columns_.push_back(find(cell, line, intake));
    for (const CsvColumn needed : {CsvColumn::Number, CsvColumn::Name}) {
      if (std::find(columns_.begin(), columns_.end(), needed) == columns_.end()) {
        refuse(std::string("There is no column \"") + nameOf(needed) + "\"");
      }
    }
  }

  std::map<CsvColumn, std::string> cells(std::string_view text) const {
    const std::vector<std::string> found = cellsOf(text);
    if (found.size() != columns_.size()) {
      refuse(std::to_string(found.size()) + " cells stand under " +
             std::to_string(columns_.size()) + " columns");
    }
    std::map<CsvColumn, std::string> cells;
    for (std::size_t i = 0; i < found.size(); ++i) {
      const auto& column = columns_[i];
      if (column) cells.emplace(*column, found[i]);
    }
    return cells;
  }

 private:
  static const char* nameOf(CsvColumn column) {
    return kColumnNames[static_cast<std::size_t>(column)];
  }

  static std::optional<CsvColumn> find(const std::string& cell, const Line& line, Import& intake) {
    for (std::size_t i = 0; i < kColumnNames.size(); ++i) {
      if (equalIgnoringCase(trimmed(cell), kColumnNames[i])) return static_cast<CsvColumn>(i);
    }
    if (!trimmed(cell).empty()) {
      intake.report(line.number, "The column " + cited(cell) + " is unknown and passed over");
    }
    return std::nullopt;
  }

  std::vector<std::optional<CsvColumn>> columns_;  // nothing for an unknown one
};

int typeIn(std::string_view text) {
  for (std::size_t i = 0; i < kTypeWords.size(); ++i) {
    if (equalIgnoringCase(trimmed(text), kTypeWords[i])) return static_cast<int>(i);
  }
  if (!numericValue(text)) {
    refuse("The type " + cited(text) + " is none of \"end\", \"face\" and \"slot\"");
  }
  return wholeIn(text, "type", -32768, 32767);
}

// What a length of the line is multiplied by; the drawing's own unit stands for a missing one.
float factorIn(std::string_view units, bool metric) {
  const std::string word = lowerCased(trimmed(units));
  if (word.empty()) return 1;
  const bool inch = word == kInch || word == "inch" || word == "i";
  const bool millimetre = word == kMillimetre || word == "m";
  if (!inch && !millimetre) refuse("The units " + cited(units) + " are neither \"in\" nor \"mm\"");
  if (millimetre == metric) return 1;
  return static_cast<float>(metric ? kMillimetresPerInch : 1 / kMillimetresPerInch);
}

// The cells of one line as values. An empty cell of a number tells nothing.
class CsvRow {
 public:
  explicit CsvRow(std::map<CsvColumn, std::string> cells) : cells_(std::move(cells)) {}

  ToolRow tool(bool metric) const {
    ToolRow row;
    row.number = toolNumberIn(cells_.at(CsvColumn::Number));
    row.name = nameIn(cells_.at(CsvColumn::Name));
    if (const auto* cell = find(CsvColumn::Material)) row.material = textIn(*cell, "material");
    if (const auto* cell = find(CsvColumn::Feed)) row.feed = textIn(*cell, "feed rate");
    if (const auto* cell = filled(CsvColumn::Type)) row.type = typeIn(*cell);
    if (const auto* cell = filled(CsvColumn::Flutes))
      row.flutes = wholeIn(*cell, "number of flutes", 0, 32767);
    if (const auto* cell = filled(CsvColumn::Color))
      row.color = wholeIn(*cell, "color", kMinColor, kMaxColor);
    if (const auto* cell = filled(CsvColumn::Inside)) row.inside = wholeIn(*cell, "inside", 0, 1);
    row.radius = radius(metric);
    row.spindle = speed(CsvColumn::Spindle);
    row.recommendedSpindle = speed(CsvColumn::RecommendedSpindle);
    row.cuttingSpeed = speed(CsvColumn::CuttingSpeed);
    return row;
  }

 private:
  const std::string* find(CsvColumn column) const {
    const auto found = cells_.find(column);
    return found == cells_.end() ? nullptr : &found->second;
  }
  const std::string* filled(CsvColumn column) const {
    const std::string* const cell = find(column);
    return cell == nullptr || trimmed(*cell).empty() ? nullptr : cell;
  }

  std::optional<float> radius(bool metric) const {
    const std::string* const units = find(CsvColumn::Units);
    const float factor = factorIn(units == nullptr ? "" : *units, metric);
    const std::string* const cell = filled(CsvColumn::Diameter);
    if (cell == nullptr) return std::nullopt;
    const float value = static_cast<float>(positiveIn(*cell, "diameter")) / 2 * factor;
    if (!std::isfinite(value)) refuse("The diameter " + cited(*cell) + " is too large");
    return value;
  }

  std::optional<float> speed(CsvColumn column) const {
    const std::string* const cell = filled(column);
    const char* const name = kColumnNames[static_cast<std::size_t>(column)];
    if (cell == nullptr) return std::nullopt;
    return static_cast<float>(positiveIn(*cell, name));
  }

  std::map<CsvColumn, std::string> cells_;
};

// ---- Tool table

// A word of a line: a letter and its number, and where they stand.
struct Word {
  char letter;  // upper case
  std::string_view number;
  double value;
};

struct TableLine {
  std::vector<Word> words;
  std::optional<std::string_view> remark;  // behind the semicolon

  const Word* find(char letter) const {
    const auto found = std::find_if(words.begin(), words.end(),
                                    [letter](const Word& word) { return word.letter == letter; });
    return found == words.end() ? nullptr : &*found;
  }
};

// Raises BadLine for anything but words.
TableLine tableLine(std::string_view text) {
  TableLine line;
  const std::size_t semicolon = text.find(';');
  if (semicolon != std::string_view::npos) line.remark = text.substr(semicolon + 1);
  std::string_view rest = trimmed(text.substr(0, semicolon));
  while (!rest.empty()) {
    const std::size_t end = std::min(rest.find_first_of(" \t"), rest.size());
    const std::string_view word = rest.substr(0, end);
    const char letter = static_cast<char>(word.front() & ~0x20);  // upper case of a letter
    const std::optional<double> value = numericValue(word.substr(1));
    if (letter < 'A' || letter > 'Z' || !value) {
      refuse(cited(word) + " is no word of a tool table");
    }
    line.words.push_back({letter, word.substr(1), *value});
    rest = trimmed(rest.substr(end));
  }
  return line;
}

// Nothing for a line without words.
std::optional<ToolRow> tableRow(std::string_view text) {
  const TableLine line = tableLine(text);
  if (line.words.empty()) return std::nullopt;
  const Word* const number = line.find('T');
  if (number == nullptr) refuse("There is no tool number");
  ToolRow row;
  row.number = toolNumberIn(number->number);
  if (const Word* const diameter = line.find('D')) {
    row.radius = static_cast<float>(positiveIn(diameter->number, "diameter")) / 2;
  }
  if (line.remark && !trimmed(*line.remark).empty()) row.name = nameIn(*line.remark);
  return row;
}

// The tool of a line, if it is one of the chest; -1 otherwise.
int listedTool(const DrawingStore& store, std::string_view text) {
  try {
    const std::optional<ToolRow> row = tableRow(text);
    return row && isListed(store, row->number - 1) ? row->number - 1 : -1;
  } catch (const BadLine&) {
    return -1;
  }
}

std::string diameterWord(const DrawingStore& store, int tool) {
  return "D" + plainText(diameterOf(store, tool));
}

std::string remarkOf(const DrawingStore& store, int tool) {
  return onOneLine(std::string(trimmed(store.toolname[tool])));
}

// The line with the diameter and the name of the chest. What says the same already stays as it is
// written.
std::string renewedLine(const DrawingStore& store, std::string_view text, int tool) {
  const TableLine line = tableLine(text);
  std::string renewed(text.substr(0, text.find(';')));
  const Word* const word = line.find('D');
  const float diameter = diameterOf(store, tool);
  if (word == nullptr) {
    renewed = std::string(trimmed(renewed)) + " " + diameterWord(store, tool) + " ";
  } else if (static_cast<float>(word->value) != diameter) {
    const auto place = static_cast<std::size_t>(word->number.data() - text.data());
    renewed.replace(place, word->number.size(), plainText(diameter));
  }
  const std::string name = remarkOf(store, tool);
  const bool same = line.remark && lowerCased(trimmed(*line.remark)) == name;
  return renewed + (line.remark || !name.empty() ? ";" : "") +
         (same ? std::string(*line.remark) : name);
}

std::set<int> pocketsOf(std::string_view existing) {
  std::set<int> pockets;
  Lines lines(existing);
  for (Line line; lines.next(line);) {
    try {
      const TableLine table = tableLine(line.text);
      const Word* const word = table.find('P');
      if (word != nullptr) pockets.insert(wholeIn(word->number, "pocket", 0, 1 << 20));
    } catch (const BadLine&) {
      continue;  // it stays as it is, and no pocket can be told from it
    }
  }
  return pockets;
}

// The tool's own number where it is free, else the next one that is.
int freePocket(std::set<int>& pockets, int number) {
  while (!pockets.insert(number).second) ++number;
  return number;
}

ToolLibraryFormat formatOf(const std::string& path) {
  const auto format = toolLibraryFormat(path);
  if (!format) {
    throw RuntimeFailure(FailureNumber::InvalidProcedureCall, path,
                         "A tool library is a .csv file or a tool table, .tbl");
  }
  return *format;
}

}  // namespace

std::optional<ToolLibraryFormat> toolLibraryFormat(std::string_view path) {
  const std::string name = lowerCased(path);
  if (name.ends_with(".csv")) return ToolLibraryFormat::Csv;
  if (name.ends_with(".tbl")) return ToolLibraryFormat::LinuxCnc;
  return std::nullopt;
}

std::string toolCsv(const DrawingStore& store) {
  const bool withInside = hasInside(store);
  const std::size_t columns = kColumnNames.size() - (withInside ? 0 : 1);
  std::string text;
  for (std::size_t i = 0; i < columns; ++i) {
    text += std::string(text.empty() ? "" : ",") + kColumnNames[i];
  }
  text += "\r\n";
  for (int tool = 0; tool <= kLastWrittenTool; ++tool) {
    if (isListed(store, tool)) text += csvLine(store, tool, withInside);
  }
  return text;
}

bool isToolCsv(std::string_view text) {
  Lines lines(text);
  Line line;
  if (!lines.nextFilled(line)) return false;
  DrawingStore scratch;
  Import intake(scratch, {});
  try {
    const CsvHeader header(line, intake);
  } catch (const BadLine&) {
    return false;
  }
  return true;
}

ToolImport importToolCsv(DrawingStore& store, std::string_view text, const std::string& name) {
  const Procedure here("importToolCsv(text,name)");
  Import intake(store, name);
  Lines lines(text);
  Line line;
  if (!lines.nextFilled(line)) line = {};
  const Line first = line;
  try {
    const CsvHeader header(first, intake);
    while (lines.nextFilled(line)) {
      intake.line(line, [&](std::string_view cells) {
        return std::optional(CsvRow(header.cells(cells)).tool(isMetric(store)));
      });
    }
  } catch (const BadLine& bad) {
    intake.report(first.number, bad.what);
  }
  return intake.finished();
}

std::string toolTable(const DrawingStore& store, std::string_view existing) {
  const std::string end = existing.find("\r\n") == std::string_view::npos ? "\n" : "\r\n";
  std::set<int> pockets = pocketsOf(existing);
  std::set<int> present;
  std::string text;
  Lines lines(existing);
  for (Line line; lines.next(line);) {
    const int tool = listedTool(store, line.text);
    const bool first = tool >= 0 && present.insert(tool).second;
    text += (first ? renewedLine(store, line.text, tool) : std::string(line.text)) + end;
  }
  for (int tool = 0; tool <= kLastWrittenTool; ++tool) {
    if (!isListed(store, tool) || present.contains(tool)) continue;
    text += "T" + std::to_string(tool + 1) + " P" + std::to_string(freePocket(pockets, tool + 1)) +
            " " + diameterWord(store, tool) + " ;" + remarkOf(store, tool) + end;
  }
  return text;
}

ToolImport importToolTable(DrawingStore& store, std::string_view text, const std::string& name) {
  const Procedure here("importToolTable(text,name)");
  Import intake(store, name);
  Lines lines(text);
  for (Line line; lines.next(line);) intake.line(line, tableRow);
  return intake.finished();
}

std::string exportedTools(const DrawingStore& store, const std::string& path) {
  const Procedure here("exportedTools(path)");
  if (formatOf(path) == ToolLibraryFormat::Csv) return toolCsv(store);
  return toolTable(store, fileExists(path) ? readFile(path) : "");
}

ToolImport importTools(DrawingStore& store, const std::string& path) {
  const Procedure here("importTools(path)");
  const ToolLibraryFormat format = formatOf(path);
  const std::string text = readFile(path);
  ToolImport result = format == ToolLibraryFormat::Csv ? importToolCsv(store, text, path)
                                                       : importToolTable(store, text, path);
  if (result.tools > 0) settleByToolInUse(store);
  return result;
}

}  // namespace tess
