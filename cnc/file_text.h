// The area of a form that shows a text of many lines to be read, searched and copied. A view paints
// the lines that are to be seen; nothing is ever made for the others.
// Owns: TextMatch, FileText.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "cnc/text_lines.h"
#include "core/controls.h"

namespace tess {

// Found words: bytes of the line as it is shown.
struct TextMatch {
  int line = -1;  // -1: none
  std::size_t begin = 0;
  std::size_t length = 0;
};

// Its text is that of all lines, joined by CR LF. Lines count from 0.
class FileText : public TextBox {
 public:
  FileText(Form& form, std::string name, ControlPlace place = {});

  std::string text() const override;
  void setText(std::string text) override { showLines(TextLines(std::move(text))); }
  void showLines(TextLines lines);
  const TextLines& lines() const { return lines_; }
  // A line as UTF-8, whatever its bytes; of one that is too long for any window only the beginning.
  std::string shownLine(int line) const;
  std::size_t longestShown() const;     // columns of the widest shown line, at most
  int shown() const { return shown_; }  // counts the texts that were shown

  // ---- The lines that the operator has chosen
  // From `anchor` to `last`, which is the line that is brought into view. Without lines nothing.
  void choose(int anchor, int last);
  int anchor() const { return anchor_; }  // -1 for none
  int chosenLast() const { return last_; }
  LineSpan chosen() const;
  // The operator's click or key on one line alone.
  void pickLine(int line);
  // The chosen lines, else all, with line feeds between them.
  std::string copiedText() const;

  // ---- Search, whatever the letter case
  const std::string& searched() const { return searched_; }
  // Looks on from the match before, or from the chosen line, round the end. False when the words
  // are nowhere; they are searched from then on, and matches in view are painted.
  bool find(const std::string& words, bool backwards);
  // The same, but the present match counts if it still matches: what typing goes on with.
  bool findOn(const std::string& words);
  const TextMatch& match() const { return match_; }
  // Where the searched words stand in a shown line.
  std::vector<TextMatch> matchesIn(int line) const;

  // ---- Marked lines, such as those of a path row
  // Given in ascending order; the first is brought into view.
  void mark(const std::vector<LineSpan>& spans);
  const std::vector<LineSpan>& marked() const { return marked_; }
  bool isMarked(int line) const;

  // The line that was brought into view last, and how often one was.
  int revealed() const { return revealed_; }
  int reveals() const { return reveals_; }

  Handler onPickLine;
  Handler onFind;  // the operator wants to type what he looks for
  void askToFind() { fire(onFind); }

 private:
  std::string wholeLine(int line) const;
  bool isLine(int line) const { return line >= 0 && line < lines_.count(); }
  void reveal(int line);
  bool show(const TextMatch& match);
  void prepareSearch(const std::string& words);
  bool isSearchable() const { return !searched_.empty() && lines_.count() > 0; }
  std::size_t placeOfMatch() const;
  TextMatch matchFrom(std::size_t place) const;
  TextMatch matchBefore(std::size_t place) const;
  TextMatch matchAt(std::size_t place) const;

  TextLines lines_;
  TextLines lowered_;     // the same in lower case, once something was searched
  std::string searched_;  // in lower case
  TextMatch match_;
  std::vector<LineSpan> marked_;
  int shown_ = 0;
  int anchor_ = -1;
  int last_ = -1;
  int revealed_ = -1;
  int reveals_ = 0;
};

}  // namespace tess
