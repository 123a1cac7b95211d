// The keys of a dialect as a table: name, value, and what a wrong value should have been.
#include "cnc/dialect_keys.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>
#include <vector>

#include "cnc/placeholder_text.h"
#include "core/number_text.h"
#include "core/text.h"

namespace tess {
namespace {

// Longer patterns say nothing more about a 32-bit number.
constexpr std::size_t kLongestPattern = 64;
// Controls read line numbers of five digits.
constexpr int kLargestLineNumber = 99999;

std::optional<std::string> anyText(const std::string& text) {
  return text;
}

std::optional<bool> yesOrNo(const std::string& text) {
  const std::string answer = upperCased(trimmed(text));
  if (answer.starts_with('Y')) return true;
  if (answer.starts_with('N')) return false;
  return std::nullopt;
}

std::optional<float> number(const std::string& text) {
  const std::optional<double> value = numericValue(text);
  if (!value || !std::isfinite(static_cast<float>(*value))) return std::nullopt;
  return static_cast<float>(*value);
}

std::optional<float> numberAboveZero(const std::string& text) {
  const std::optional<float> value = number(text);
  return value && *value > 0 ? value : std::nullopt;
}

std::optional<float> numberFromZero(const std::string& text) {
  const std::optional<float> value = number(text);
  return value && *value >= 0 ? value : std::nullopt;
}

std::optional<std::optional<float>> lengthAboveZero(const std::string& text) {
  if (const std::optional<float> value = numberAboveZero(text)) return value;
  return std::nullopt;
}

std::optional<std::string> pattern(const std::string& text) {
  const std::string_view symbols = trimmed(text);
  const bool digits = symbols.find_first_of("0#") != std::string_view::npos;
  if (!digits || symbols.size() > kLongestPattern) return std::nullopt;
  if (symbols.find_first_not_of("0#.") != std::string_view::npos) return std::nullopt;
  return std::string(symbols);
}

std::optional<char> letter(const std::string& text) {
  const std::string name = upperCased(trimmed(text));
  const bool one = name.size() == 1 && name[0] >= 'A' && name[0] <= 'Z';
  return one ? std::optional(name[0]) : std::nullopt;
}

std::optional<std::optional<char>> ownLetter(const std::string& text) {
  if (const std::optional<char> own = letter(text)) return own;
  return std::nullopt;
}

std::optional<std::string> plainCharacters(const std::string& text) {
  const bool plain = std::ranges::all_of(text, [](char c) { return c > ' ' && c <= '~'; });
  return plain ? std::optional(text) : std::nullopt;
}

template <typename Choice, std::size_t count>
std::optional<Choice> oneOf(const std::pair<std::string_view, Choice> (&choices)[count],
                            const std::string& text) {
  const std::string name = upperCased(trimmed(text));
  for (const auto& [word, choice] : choices) {
    if (word == name) return choice;
  }
  return std::nullopt;
}

std::optional<CycleStyle> cycleStyle(const std::string& text) {
  return oneOf<CycleStyle>(
      {{"NATIVE", CycleStyle::Native}, {"ISO", CycleStyle::Iso}, {"EXPAND", CycleStyle::Expand}},
      text);
}

std::optional<FullCircle> fullCircle(const std::string& text) {
  return oneOf<FullCircle>(
      {{"BARE", FullCircle::Bare}, {"WORDS", FullCircle::Words}, {"HALVES", FullCircle::Halves}},
      text);
}

// Whole numbers between blanks or commas; nothing when anything else stands there.
std::optional<std::vector<int>> wholeNumbers(std::string_view text, int largest) {
  constexpr std::string_view kBetween = " \t,";
  std::vector<int> numbers;
  while (text.find_first_not_of(kBetween) != std::string_view::npos) {
    text.remove_prefix(text.find_first_not_of(kBetween));
    const std::string_view word = text.substr(0, text.find_first_of(kBetween));
    text.remove_prefix(word.size());
    const bool digits = word.find_first_not_of("0123456789") == std::string_view::npos;
    if (!digits || word.size() > 5 || parseInteger(word) > largest) return std::nullopt;
    numbers.push_back(parseInteger(word));
  }
  return numbers;
}

std::optional<std::optional<CycleNumbers>> cycleNumbers(const std::string& text) {
  CycleNumbers cycles;
  if (equalIgnoringCase(trimmed(text), "ALL")) return cycles.set();
  const auto numbers = wholeNumbers(text, static_cast<int>(cycles.size()) - 1);
  if (!numbers) return std::nullopt;
  for (const int cycle : *numbers) cycles.set(static_cast<std::size_t>(cycle));
  return cycles;
}

std::optional<LineNumbers> lineNumbers(const std::string& text) {
  const auto numbers = wholeNumbers(text, kLargestLineNumber);
  if (!numbers || numbers->size() != 2) return std::nullopt;
  return LineNumbers{.start = numbers->front(), .step = numbers->back()};
}

struct Key {
  std::string_view name;
  int values;              // as many tokens
  std::string_view wants;  // what they have to be
  bool (*take)(Dialect&, const std::string& values);
  void (*reset)(Dialect&);
};

template <auto field>
void reset(Dialect& dialect) {
  dialect.*field = Dialect().*field;
}

template <auto field, auto parse>
constexpr Key key(std::string_view name, std::string_view wants, int values = 1) {
  const auto take = [](Dialect& dialect, const std::string& text) {
    auto value = parse(text);
    if (!value) return false;
    dialect.*field = std::move(*value);
    return true;
  };
  return {name, values, wants, take, reset<field>};
}

constexpr char kText[] = "a text";
constexpr char kYesOrNo[] = "Y or N";
constexpr char kPattern[] = "a number pattern of 0, # and a point";
constexpr char kLetter[] = "one letter";
constexpr char kAboveZero[] = "a number above 0";
constexpr char kFromZero[] = "a number from 0 on";

constexpr std::array kKeys{
    key<&Dialect::unitsInch, anyText>("UNITSIN", kText),
    key<&Dialect::unitsMetric, anyText>("UNITSMM", kText),
    key<&Dialect::feedScale, numberAboveZero>("FEEDSCALE", kAboveZero),
    key<&Dialect::feedFormat, pattern>("FEEDFORMAT", kPattern),
    key<&Dialect::speedFormat, pattern>("SPEEDFORMAT", kPattern),
    key<&Dialect::commentEnd, anyText>("COMMENTEND", kText),
    key<&Dialect::commentClean, plainCharacters>("COMMENTCLEAN", "characters without blanks"),
    key<&Dialect::commentUpper, yesOrNo>("COMMENTUPPER", kYesOrNo),
    key<&Dialect::heading, yesOrNo>("HEADING", kYesOrNo),
    key<&Dialect::cycles, cycleStyle>("CYCLES", "NATIVE, ISO or EXPAND"),
    key<&Dialect::cycleKeep, cycleNumbers>("CYCLEKEEP", "ALL or numbers of cycles"),
    key<&Dialect::cyclePeck, letter>("CYCLEPECK", kLetter),
    key<&Dialect::cycleDwell, ownLetter>("CYCLEDWELL", kLetter),
    key<&Dialect::dwellScale, numberAboveZero>("DWELLSCALE", kAboveZero),
    key<&Dialect::dwellFormat, pattern>("DWELLFORMAT", kPattern),
    key<&Dialect::fullCircle, fullCircle>("FULLCIRCLE", "BARE, WORDS or HALVES"),
    key<&Dialect::rMaxSweep, numberFromZero>("RMAXSWEEP", kFromZero),
    key<&Dialect::arcTol, numberFromZero>("ARCTOL", kFromZero),
    key<&Dialect::lineNumbers, lineNumbers>("LINENUMBERS", "two numbers up to 99999", 2),
    key<&Dialect::safeChange, yesOrNo>("SAFECHANGE", kYesOrNo),
    key<&Dialect::cycleWords, yesOrNo>("CYCLEWORDS", kYesOrNo),
    key<&Dialect::endLift, yesOrNo>("ENDLIFT", kYesOrNo),
    key<&Dialect::changePos, yesOrNo>("CHANGEPOS", kYesOrNo),
    key<&Dialect::spindleDue, yesOrNo>("SPINDLEDUE", kYesOrNo),
    key<&Dialect::plungeFrom, lengthAboveZero>("PLUNGEFROM", kAboveZero),
    key<&Dialect::latheClear, lengthAboveZero>("LATHECLEAR", kAboveZero),
    key<&Dialect::diameter, yesOrNo>("DIAMETER", kYesOrNo),
};

using Lines = std::vector<std::string>;

struct List {
  std::string_view name;
  Lines Dialect::*lines;
};

constexpr std::array kLists{
    List{"STARTTEXT", &Dialect::startText},
    List{"TOOLTEXT", &Dialect::toolText},
    List{"SPINDLETEXT", &Dialect::spindleText},
    List{"RESETTEXT", &Dialect::resetText},
};

template <typename Table>
auto entryOf(const Table& table, std::string_view name) {
  return std::ranges::find(table, name, [](const auto& entry) { return entry.name; });
}

DialectFault twice(std::string_view name, const std::string& place) {
  return {std::string(name) + " stands twice and keeps its default", place};
}

std::string readValues(FieldReader& reader, int count) {
  std::string values = reader.readQuotedText();
  for (int value = 1; value < count; ++value) values += " " + reader.readQuotedText();
  return values;
}

// The lines up to the end of the list, and the first thing that is wrong with them.
std::optional<DialectFault> readLines(std::string_view list, FieldReader& reader, Lines& lines) {
  std::optional<DialectFault> fault;
  for (;;) {
    const std::string place = reader.place();
    std::string line = reader.readQuotedText();
    if (equalIgnoringCase(line, "LISTEND")) return fault;
    const std::optional<std::string> unknown = unknownPlaceholder(line);
    if (unknown && !fault) {
      fault = {std::string(list) + " has the unknown placeholder " + *unknown, place};
    }
    lines.push_back(std::move(line));
  }
}

}  // namespace

bool DialectKeys::isKey(std::string_view name) {
  return entryOf(kKeys, name) != kKeys.end();
}

bool DialectKeys::isList(std::string_view name) {
  return entryOf(kLists, name) != kLists.end();
}

std::optional<DialectFault> DialectKeys::readKey(std::string_view name, const std::string& place,
                                                 FieldReader& reader) {
  const Key& key = *entryOf(kKeys, name);
  const std::string valuePlace = reader.place();
  const std::string values = readValues(reader, key.values);
  if (isAgain(name)) {
    key.reset(dialect_);
    return twice(name, place);
  }
  if (key.take(dialect_, values)) return std::nullopt;
  return DialectFault{
      std::string(name) + " wants " + std::string(key.wants) + ", not '" + values + "'",
      valuePlace};
}

std::optional<DialectFault> DialectKeys::readList(std::string_view name, const std::string& place,
                                                  FieldReader& reader) {
  const List& list = *entryOf(kLists, name);
  Lines lines;
  std::optional<DialectFault> fault = readLines(name, reader, lines);
  if (isAgain(name)) {
    dialect_.*list.lines = Dialect().*list.lines;
    return twice(name, place);
  }
  if (!fault) dialect_.*list.lines = std::move(lines);
  return fault;
}

}  // namespace tess
