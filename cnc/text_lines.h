// A text of many lines, held as the bytes that it is, and found line by line without a list of all
// of them.
// Owns: LineSpan, TextLines.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tess {

// Lines that follow one another, counted from 0.
struct LineSpan {
  int first = 0;
  int count = 0;
  bool holds(int line) const { return line >= first && line - first < count; }
  friend bool operator==(const LineSpan&, const LineSpan&) = default;
};

// Lines end with CR LF, LF or CR; the last one need not. A text without any byte has no line.
class TextLines {
 public:
  // Raises Overflow for more than 2 GB.
  explicit TextLines(std::string text = {});

  const std::string& text() const { return text_; }
  int count() const { return count_; }
  // Without its end. Raises Subscript out of range.
  std::string_view line(int number) const;
  // Where its first byte stands. Raises the same.
  std::size_t placeOf(int number) const;
  // The line to which the byte at `place` belongs, its end included; the last one for any place
  // behind the text.
  int lineAt(std::size_t place) const;
  std::size_t longest() const { return longest_; }  // bytes of the longest line
  bool lastLineEnds() const;                        // true also without lines

 private:
  std::size_t endOf(std::size_t begin) const;  // of the line that begins there
  std::size_t next(std::size_t end) const;

  std::string text_;
  std::vector<std::uint32_t> marks_;  // where every so many lines one begins
  std::size_t longest_ = 0;
  int count_ = 0;
};

}  // namespace tess
