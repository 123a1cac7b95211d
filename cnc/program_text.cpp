// The lines of a program that are no motions.
#include "cnc/program_text.h"

#include <cctype>

#include "core/text.h"

namespace tess {
namespace {

constexpr std::size_t kBarLength = 75;
// Controls read line numbers of five digits; a longer program begins again.
constexpr int kLargestLineNumber = 99999;

}  // namespace

std::string cleanedRemark(const Dialect& dialect, std::string_view text) {
  std::string cleaned = dialect.commentUpper ? upperCased(text) : std::string(text);
  for (std::size_t at = 0;
       (at = cleaned.find_first_of(dialect.commentClean, at)) != cleaned.npos;) {
    cleaned[at] = ' ';
  }
  return cleaned;
}

void WriteRemLine(std::string& out, const PostDefinition& definition, std::string_view line) {
  out.append(definition.cnccomment).append(cleanedRemark(definition.dialect, line));
  out.append(definition.dialect.commentEnd).append(kLineEnd);
}

void ProgramText::bar(char mark) {
  remark(std::string(kBarLength, mark));
}

void ProgramText::appendNumber() {
  numberBegin_ = out_.size();
  out_.append("N").append(std::to_string(number_)).push_back(' ');
}

void ProgramText::settleNumber(std::size_t begin) {
  const bool block = begin < out_.size() && std::isalpha(static_cast<unsigned char>(out_[begin]));
  if (!block) {
    out_.erase(numberBegin_, begin - numberBegin_);
    return;
  }
  const LineNumbers& numbers = definition_.dialect.lineNumbers;
  number_ += numbers.step;
  if (number_ > kLargestLineNumber) number_ = numbers.start;
}

void ProgramText::title(std::string_view heading) {
  bar('-');
  remark(heading);
  bar('-');
}

}  // namespace tess
