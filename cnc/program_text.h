// The lines of a program that are no motions: comments and the plain lines between them. Also the
// numbers of all lines.
// Owns: kLineEnd, cleanedRemark, WriteRemLine, ProgramText.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "cnc/post_definition.h"

namespace tess {

inline constexpr std::string_view kLineEnd = "\r\n";

// A text as the definition lets it stand within a comment.
std::string cleanedRemark(const Dialect& dialect, std::string_view text);

// Appends the definition's comment prefix, the text and what closes a comment as one line.
void WriteRemLine(std::string& out, const PostDefinition& definition, std::string_view line);

// A program while it is written: appends lines to its text.
class ProgramText {
 public:
  ProgramText(std::string& out, const PostDefinition& definition)
      : out_(out), definition_(definition), number_(definition.dialect.lineNumbers.start) {}

  void line(std::string_view text) { out_.append(text).append(kLineEnd); }  // as it stands
  void remark(std::string_view text) { WriteRemLine(out_, definition_, text); }
  void bar(char mark);                   // a remark of one character repeated
  void title(std::string_view heading);  // a remark between two bars

  // Around what appends one line that may have a number; without a line the number is taken back.
  // A line that is a comment, a mark of the tape or empty gets none.
  std::size_t beginBlock() {
    if (isNumbered()) appendNumber();
    return out_.size();
  }
  void endBlock(std::size_t begin) {
    if (isNumbered()) settleNumber(begin);
  }

 private:
  bool isNumbered() const { return definition_.dialect.lineNumbers.step != 0; }
  void appendNumber();
  void settleNumber(std::size_t begin);

  std::string& out_;
  const PostDefinition& definition_;
  int number_;                   // of the next line
  std::size_t numberBegin_ = 0;  // where the number of the line at hand begins
};

}  // namespace tess
