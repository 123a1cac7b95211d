// Fields of a text file, one after the other.
#include "core/field_reader.h"

#include <algorithm>
#include <charconv>
#include <system_error>
#include <utility>

#include "core/file_system.h"
#include "core/number_text.h"
#include "core/runtime_failure.h"
#include "core/text.h"

namespace tess {
namespace {

bool endsField(char letter) {
  return letter == ',' || endsLine(letter);
}
bool beginsDigits(char letter) {
  return (letter >= '0' && letter <= '9') || letter == '.';
}

}  // namespace

FieldReader::FieldReader(std::string path, std::string content)
    : path_(std::move(path)), content_(std::move(content)) {}

FieldReader FieldReader::open(const std::string& path, std::size_t limit) {
  return {path, readFile(path, limit)};
}

std::string FieldReader::place() const {
  return path_ + " line " + std::to_string(line_) + " field " + std::to_string(field_);
}

bool FieldReader::endsInField() const {
  return atEnd() && !content_.empty() && !endsField(content_.back());
}

void FieldReader::fail(FailureNumber number) const {
  throw RuntimeFailure(number, place());
}

void FieldReader::requireMore() const {
  if (atEnd()) fail(FailureNumber::InputPastEnd);
}

// Steps over the comma or line end at next_; CR LF is one line end.
void FieldReader::skipSeparator() {
  if (atEnd()) return;
  const char separator = content_[next_++];
  if (separator == '\r' && next_ < content_.size() && content_[next_] == '\n') ++next_;
  if (separator == ',') {
    ++field_;
  } else {
    ++line_;
    field_ = 1;
  }
}

std::string_view FieldReader::takeField() {
  requireMore();
  const auto begin = content_.begin() + static_cast<std::ptrdiff_t>(next_);
  const auto end = std::find_if(begin, content_.end(), endsField);
  std::string_view field(begin, end);
  next_ = static_cast<std::size_t>(end - content_.begin());
  field.remove_prefix(std::min(field.find_first_not_of(' '), field.size()));
  return field;
}

// The road of nearly every field: a number, parsed where it stands, that fills its field up to the
// separator. Anything else is left alone for the lenient parsers.
template <typename Value>
bool FieldReader::takePlainNumber(Value& value) {
  const char* const end = content_.data() + content_.size();
  const char* const begin = content_.data() + next_;
  const bool digits =
      begin != end &&
      (beginsDigits(*begin) || (*begin == '-' && begin + 1 != end && beginsDigits(begin[1])));
  if (!digits) return false;
  const auto result = std::from_chars(begin, end, value);
  if (result.ec != std::errc{} || (result.ptr != end && !endsField(*result.ptr))) return false;
  next_ = static_cast<std::size_t>(result.ptr - content_.data());
  skipSeparator();
  return true;
}

template <typename Value, typename Parse>
Value FieldReader::readNumber(Parse parse) {
  const std::string_view field = takeField();
  try {
    const Value value = parse(field);
    skipSeparator();
    return value;
  } catch (const RuntimeFailure& failure) {
    fail(failure.number());
  }
}

// Fixed: a comma ends a text; the fields behind a title with one shift as they always did.
std::string FieldReader::readText() {
  std::string text = toUtf8(takeField());
  skipSeparator();
  return text;
}

int FieldReader::readInteger() {
  int value = 0;
  return takePlainNumber(value) ? value : readNumber<int>(parseInteger);
}

Int16 FieldReader::readInt16() {
  std::int16_t value = 0;
  if (takePlainNumber(value)) return value;
  return readNumber<Int16>([](std::string_view field) { return Int16(parseInteger(field)); });
}

float FieldReader::readFloat() {
  float value = 0;
  return takePlainNumber(value) ? value : readNumber<float>(parseFloat);
}

std::string FieldReader::readQuotedText() {
  requireMore();
  const std::size_t first = content_.find_first_not_of(' ', next_);
  if (first == std::string::npos || content_[first] != '"') return readText();
  const std::size_t begin = first + 1;
  const std::size_t end = std::min(content_.find('"', begin), content_.size());
  const std::string_view quoted = std::string_view(content_).substr(begin, end - begin);
  line_ += static_cast<int>(std::count(quoted.begin(), quoted.end(), '\n'));
  std::string text = toUtf8(quoted);
  next_ = std::min(content_.find_first_of(",\r\n", end), content_.size());
  skipSeparator();
  return text;
}

std::string FieldReader::readLine() {
  requireMore();
  const std::size_t end = std::min(content_.find_first_of("\r\n", next_), content_.size());
  std::string text = toUtf8(std::string_view(content_).substr(next_, end - next_));
  next_ = end;
  skipSeparator();
  return text;
}

// Fixed: letters above z are dropped, braces and bars too; older drawings have anything there.
std::string FieldReader::readPrintable() {
  requireMore();
  const std::size_t end = std::min(content_.find('\n', next_), content_.size());
  std::string kept;
  std::copy_if(content_.begin() + static_cast<std::ptrdiff_t>(next_),
               content_.begin() + static_cast<std::ptrdiff_t>(end), std::back_inserter(kept),
               [](char letter) { return letter >= ' ' && letter <= 'z'; });
  next_ = std::min(end + 1, content_.size());
  ++line_;
  field_ = 1;
  return kept;
}

}  // namespace tess
