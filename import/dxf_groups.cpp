// The groups of a DXF file, text or binary.
#include "import/dxf_groups.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>
#include <utility>

#include "core/number_text.h"
#include "core/text.h"

namespace tess {
namespace {

constexpr std::string_view kBinaryMark{"AutoCAD Binary DXF\r\n\x1A\0", 22};
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
constexpr int kComment = 999;
constexpr std::size_t kQuotedLength = 40;  // of a bad value in a message

// What stands in a binary file behind a group code.
enum class Storage { Text, Real, Int8, Int16, Int32, Int64, Chunk };

struct StorageRange {
  int first, last;
  Storage storage;
};

constexpr StorageRange kStorages[] = {
    {0, 9, Storage::Text},        {10, 59, Storage::Real},      {60, 79, Storage::Int16},
    {90, 99, Storage::Int32},     {100, 105, Storage::Text},    {110, 149, Storage::Real},
    {160, 169, Storage::Int64},   {170, 179, Storage::Int16},   {210, 239, Storage::Real},
    {270, 289, Storage::Int16},   {290, 299, Storage::Int8},    {300, 309, Storage::Text},
    {310, 319, Storage::Chunk},   {320, 369, Storage::Text},    {370, 389, Storage::Int16},
    {390, 399, Storage::Text},    {400, 409, Storage::Int16},   {410, 419, Storage::Text},
    {420, 429, Storage::Int32},   {430, 439, Storage::Text},    {440, 459, Storage::Int32},
    {460, 469, Storage::Real},    {470, 481, Storage::Text},    {999, 1003, Storage::Text},
    {1004, 1004, Storage::Chunk}, {1005, 1009, Storage::Text},  {1010, 1059, Storage::Real},
    {1060, 1070, Storage::Int16}, {1071, 1071, Storage::Int32},
};

const StorageRange* storageOf(int code) {
  const auto* const range =
      std::find_if(std::begin(kStorages), std::end(kStorages),
                   [code](const StorageRange& each) { return code <= each.last; });
  return range != std::end(kStorages) && code >= range->first ? range : nullptr;
}

bool isBlank(char letter) {
  return letter == ' ' || letter == '\t' || letter == '\r';
}

std::string_view withoutBlanks(std::string_view text) {
  while (!text.empty() && isBlank(text.front())) text.remove_prefix(1);
  while (!text.empty() && isBlank(text.back())) text.remove_suffix(1);
  return text;
}

std::string_view withoutPlus(std::string_view text) {
  const bool plus = text.size() > 1 && text[0] == '+' && text[1] != '-';
  return plus ? text.substr(1) : text;
}

std::string quoted(std::string_view bytes) {
  std::string text = toUtf8(bytes.substr(0, kQuotedLength));
  // Whatever the bytes are, the message stays readable.
  std::replace_if(
      text.begin(), text.end(), [](unsigned char letter) { return letter < ' '; }, '?');
  return "\"" + text + (bytes.size() > kQuotedLength ? "...\"" : "\"");
}

// Files of some desktop machines know the carriage return alone.
char lineEndOf(std::string_view content) {
  const std::size_t first = content.find_first_of("\r\n");
  const std::size_t last = content.find_first_not_of('\r', first);
  return last != std::string_view::npos && content[last] != '\n' && content[first] == '\r' ? '\r'
                                                                                           : '\n';
}

template <typename Value>
std::from_chars_result parse(std::string_view text, Value& value) {
  return std::from_chars(text.data(), text.data() + text.size(), value);
}

bool isWhole(const std::from_chars_result& result, std::string_view text) {
  return result.ec != std::errc::invalid_argument && result.ptr == text.data() + text.size();
}

}  // namespace

DxfGroups::DxfGroups(std::string_view content, std::string file)
    : content_(content), file_(std::move(file)) {
  takeFlavour();
}

void DxfGroups::takeFlavour() {
  if (!content_.starts_with(kBinaryMark)) {
    place_ = 1;
    if (content_.starts_with(kByteOrderMark)) next_ = kByteOrderMark.size();
    lineEnd_ = lineEndOf(content_);
    return;
  }
  next_ = kBinaryMark.size();
  // The first group is a 0 with a text, or a comment: its code shows how many bytes a code has.
  const std::string_view start = content_.substr(next_, 2);
  const bool isShort =
      start.size() == 2 && (start[0] == '\xFF' || (start[0] == 0 && start[1] != 0));
  flavour_ = isShort ? Flavour::BinaryShortCodes : Flavour::BinaryLongCodes;
}

RuntimeFailure DxfGroups::failure(const std::string& trouble, FailureNumber number) const {
  const std::string place = file_ + " " + unitOf(isBinary()) + " " + std::to_string(place_);
  return RuntimeFailure(number, place, place + ": " + trouble);
}

bool DxfGroups::next() {
  if (std::exchange(again_, false)) return true;
  while (nextGroup()) {
    if (code_ != kComment) return true;
  }
  return false;
}

bool DxfGroups::nextGroup() {
  if (next_ >= content_.size()) return false;
  return flavour_ == Flavour::Text ? nextTextGroup() : nextBinaryGroup();
}

// ---- Text files

std::string_view DxfGroups::takeLine() {
  const std::size_t end = std::min(content_.find(lineEnd_, next_), content_.size());
  const std::string_view line = content_.substr(next_, end - next_);
  next_ = std::min(end + 1, content_.size());
  ++lines_;
  return line;
}

int DxfGroups::codeOf(std::string_view line) const {
  const std::string_view text = withoutPlus(withoutBlanks(line));
  int code = 0;
  const auto result = parse(text, code);
  if (result.ec != std::errc{} || !isWhole(result, text)) {
    if (lines_ == 1) throw failure("this is not a DXF file");
    throw failure(quoted(text) + " stands where a group code belongs");
  }
  return code;
}

// The road of nearly every code: blanks, a few digits, and the end of the line. Anything else is
// left alone.
bool DxfGroups::takePlainCode() {
  constexpr int kLargest = 9999;  // above every code that there is
  const char* at = content_.data() + next_;
  const char* const end = content_.data() + content_.size();
  while (at != end && *at == ' ') ++at;
  int code = 0;
  const char* const digits = at;
  for (; at != end && *at >= '0' && *at <= '9' && code < kLargest; ++at) {
    code = code * 10 + (*at - '0');
  }
  if (at != end && *at == '\r' && lineEnd_ == '\n') ++at;
  if (at == digits || at == end || *at != lineEnd_ || at + 1 == end) return false;
  next_ = static_cast<std::size_t>(at + 1 - content_.data());
  ++lines_;
  code_ = code;
  return true;
}

bool DxfGroups::nextTextGroup() {
  place_ = lines_ + 1;
  if (!takePlainCode() && !takeAnyCode()) return false;
  text_ = takeLine();
  return true;
}

// False for blank lines behind the last group.
bool DxfGroups::takeAnyCode() {
  const std::string_view codeLine = takeLine();
  if (next_ >= content_.size()) {
    if (withoutBlanks(codeLine).empty()) return false;
    code_ = codeOf(codeLine);
    throw failure("the file is cut off: group " + std::to_string(code_) + " has no value",
                  FailureNumber::InputPastEnd);
  }
  code_ = codeOf(codeLine);
  return true;
}

std::string_view DxfGroups::text() const {
  return held_ == Held::Text ? withoutBlanks(text_) : std::string_view();
}

// The road of nearly every number: it begins its line, and nothing but the line's end follows.
bool DxfGroups::isPlainReal(double& value) const {
  const auto result = parse(text_, value);
  const char* const end = text_.data() + text_.size();
  const bool whole = result.ptr == end || (result.ptr + 1 == end && *result.ptr == '\r');
  return result.ec == std::errc{} && whole && std::isfinite(value);
}

double DxfGroups::real() const {
  if (held_ == Held::Integer) return static_cast<double>(integer_);
  if (held_ == Held::Real) {
    if (!std::isfinite(real_)) throw failure("a value is no number", FailureNumber::Overflow);
    return real_;
  }
  double value = 0;
  if (isPlainReal(value)) return value;
  const std::string_view number = withoutPlus(text());
  const auto result = parse(number, value);
  if (!isWhole(result, number)) throw failure(quoted(number) + " is no number");
  // Too large or too small; a small one counts as 0.
  if (result.ec == std::errc::result_out_of_range) value = Val(number);
  if (!std::isfinite(value)) {
    throw failure(quoted(number) + " is out of range", FailureNumber::Overflow);
  }
  return value;
}

int DxfGroups::integer() const {
  int value = 0;
  if (held_ == Held::Text) {
    const std::string_view number = withoutPlus(text());
    const auto result = parse(number, value);
    if (isWhole(result, number) && result.ec == std::errc{}) return value;
  }
  // Some programs write whole numbers with a point.
  const double whole = held_ == Held::Integer ? static_cast<double>(integer_) : real();
  if (whole != std::floor(whole) || std::abs(whole) > std::numeric_limits<int>::max()) {
    throw failure(quoted(text()) + " is no whole number in range", FailureNumber::Overflow);
  }
  return static_cast<int>(whole);
}

// ---- Binary files

std::string_view DxfGroups::takeBytes(std::size_t count) {
  if (content_.size() - next_ < count) {
    throw failure("the file is cut off within a group", FailureNumber::InputPastEnd);
  }
  const std::string_view bytes = content_.substr(next_, count);
  next_ += count;
  return bytes;
}

template <typename Value>
Value DxfGroups::takeLittleEndian() {
  const std::string_view bytes = takeBytes(sizeof(Value));
  std::uint64_t bits = 0;
  for (std::size_t at = sizeof(Value); at-- > 0;) {
    bits = (bits << 8U) | static_cast<unsigned char>(bytes[at]);
  }
  Value value;
  // The low bytes are the value on a machine of either order.
  if constexpr (sizeof(Value) == sizeof bits) {
    std::memcpy(&value, &bits, sizeof value);
  } else {
    value = static_cast<Value>(bits);
  }
  return value;
}

int DxfGroups::takeBinaryCode() {
  if (flavour_ == Flavour::BinaryLongCodes) return takeLittleEndian<std::int16_t>();
  constexpr int kLongCodeFollows = 255;
  const int code = takeLittleEndian<std::uint8_t>();
  return code == kLongCodeFollows ? takeLittleEndian<std::int16_t>() : code;
}

void DxfGroups::takeTerminated() {
  const std::size_t end = content_.find('\0', next_);
  text_ = takeBytes(end == std::string_view::npos ? content_.size() - next_ + 1 : end - next_);
  ++next_;
}

void DxfGroups::takeBinaryValue() {
  const StorageRange* const range = storageOf(code_);
  if (range == nullptr) {
    throw failure("group code " + std::to_string(code_) + " is not known in binary files");
  }
  held_ = Held::Integer;
  switch (range->storage) {
    case Storage::Text:
      held_ = Held::Text;
      takeTerminated();
      return;
    case Storage::Chunk:
      held_ = Held::Text;
      text_ = takeBytes(takeLittleEndian<std::uint8_t>());
      return;
    case Storage::Real:
      held_ = Held::Real;
      real_ = takeLittleEndian<double>();
      return;
    case Storage::Int8:
      integer_ = takeLittleEndian<std::int8_t>();
      return;
    case Storage::Int16:
      integer_ = takeLittleEndian<std::int16_t>();
      return;
    case Storage::Int32:
      integer_ = takeLittleEndian<std::int32_t>();
      return;
    case Storage::Int64:
      integer_ = takeLittleEndian<std::int64_t>();
      return;
  }
}

bool DxfGroups::nextBinaryGroup() {
  place_ = next_;
  code_ = takeBinaryCode();
  takeBinaryValue();
  return true;
}

}  // namespace tess
