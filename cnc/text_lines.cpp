// Texts line by line.
#include "cnc/text_lines.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "core/runtime_failure.h"
#include "core/text.h"

namespace tess {
namespace {

// From a mark to any of its lines is a step that nobody notices.
constexpr int kLinesPerMark = 32;

}  // namespace

TextLines::TextLines(std::string text) : text_(std::move(text)) {
  if (text_.size() > std::numeric_limits<std::int32_t>::max()) throw overflow();
  std::size_t begin = 0;
  while (begin < text_.size()) {
    if (count_ % kLinesPerMark == 0) marks_.push_back(static_cast<std::uint32_t>(begin));
    ++count_;
    const std::size_t end = endOf(begin);
    longest_ = std::max(longest_, end - begin);
    begin = next(end);
  }
}

std::size_t TextLines::endOf(std::size_t begin) const {
  std::size_t end = begin;
  while (end < text_.size() && !endsLine(text_[end])) ++end;
  return end;
}

// Behind the line end that stands at `end`, or the end of the text.
std::size_t TextLines::next(std::size_t end) const {
  if (end >= text_.size()) return text_.size();
  const bool pair = text_[end] == '\r' && end + 1 < text_.size() && text_[end + 1] == '\n';
  return end + (pair ? 2 : 1);
}

std::size_t TextLines::placeOf(int number) const {
  if (number < 0 || number >= count_) throw subscriptOutOfRange();
  std::size_t begin = marks_[static_cast<std::size_t>(number / kLinesPerMark)];
  for (int steps = number % kLinesPerMark; steps > 0; --steps) {
    begin = next(endOf(begin));
  }
  return begin;
}

std::string_view TextLines::line(int number) const {
  const std::size_t begin = placeOf(number);
  const std::size_t end = endOf(begin);
  return std::string_view(text_).substr(begin, end - begin);
}

int TextLines::lineAt(std::size_t place) const {
  const auto behind = std::upper_bound(marks_.begin(), marks_.end(), place);
  if (behind == marks_.begin()) return 0;
  int number = static_cast<int>(behind - marks_.begin() - 1) * kLinesPerMark;
  std::size_t begin = *(behind - 1);
  for (;;) {
    begin = next(endOf(begin));
    if (begin > place || number + 1 >= count_) return number;
    ++number;
  }
}

bool TextLines::lastLineEnds() const {
  return text_.empty() || endsLine(text_.back());
}

}  // namespace tess
