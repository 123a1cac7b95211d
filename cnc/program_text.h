// The lines of a program that are no motions: comments and the plain lines between them.
// Owns: kLineEnd, WriteRemLine, ProgramText.
#pragma once

#include <string>
#include <string_view>

#include "cnc/post_definition.h"

namespace tess {

inline constexpr std::string_view kLineEnd = "\r\n";

// Appends the definition's comment prefix and the text as one line.
void WriteRemLine(std::string& out, const PostDefinition& definition, std::string_view line);

// A program while it is written: appends lines to its text.
class ProgramText {
 public:
  ProgramText(std::string& out, const PostDefinition& definition)
      : out_(out), definition_(definition) {}

  void line(std::string_view text) { out_.append(text).append(kLineEnd); }  // as it stands
  void remark(std::string_view text) { WriteRemLine(out_, definition_, text); }
  void bar(char mark);                   // a remark of one character repeated
  void title(std::string_view heading);  // a remark between two bars

 private:
  std::string& out_;
  const PostDefinition& definition_;
};

}  // namespace tess
