// A text to be read: chosen lines, search, marks.
#include "cnc/file_text.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

#include "core/text.h"

namespace tess {
namespace {

// No window is wider, and a line that fills the whole file would be painted for minutes.
constexpr std::size_t kMostCharacters = 4096;

bool touches(const LineSpan& before, const LineSpan& span) {
  return span.first <= before.first + before.count;
}

}  // namespace

FileText::FileText(Form& form, std::string name, ControlPlace place)
    : TextBox(form, std::move(name), place) {
  multiLine = true;
  readOnly = true;
}

std::string FileText::text() const {
  std::string text;
  text.reserve(lines_.text().size());
  for (int line = 0; line < lines_.count(); ++line) {
    if (line > 0) text.append("\r\n");
    text.append(wholeLine(line));
  }
  return text;
}

void FileText::showLines(TextLines lines) {
  lines_ = std::move(lines);
  lowered_ = TextLines();
  match_ = {};
  marked_.clear();
  anchor_ = last_ = revealed_ = -1;
  ++shown_;
  if (announce(Property::Text)) fire(onChange);
}

std::string FileText::wholeLine(int line) const {
  return toUtf8(lines_.line(line));
}

std::string FileText::shownLine(int line) const {
  return toUtf8(firstCharacters(lines_.line(line), kMostCharacters));
}

std::size_t FileText::longestShown() const {
  return std::min(lines_.longest(), kMostCharacters);
}

void FileText::reveal(int line) {
  revealed_ = line;
  ++reveals_;
  announce(Property::Content);
}

// ---- Chosen lines

void FileText::choose(int anchor, int last) {
  if (lines_.count() == 0) return;
  anchor_ = std::clamp(anchor, 0, lines_.count() - 1);
  last_ = std::clamp(last, 0, lines_.count() - 1);
  match_ = {};
  reveal(last_);
}

LineSpan FileText::chosen() const {
  if (!isLine(anchor_)) return {};
  return {std::min(anchor_, last_), std::abs(last_ - anchor_) + 1};
}

void FileText::pickLine(int line) {
  if (lines_.count() == 0) return;
  choose(line, line);
  fire(onPickLine);
}

std::string FileText::copiedText() const {
  const LineSpan span = isLine(anchor_) ? chosen() : LineSpan{0, lines_.count()};
  std::string text;
  for (int line = span.first; line < span.first + span.count; ++line) {
    text.append(wholeLine(line)).push_back('\n');
  }
  return text;
}

// ---- Search

// The same lines in lower case and as UTF-8: a search is one pass over it.
void FileText::prepareSearch(const std::string& words) {
  searched_ = lowerCased(words);
  if (isSearchable() && lowered_.count() == 0) {
    lowered_ = TextLines(lowerCased(toUtf8(lines_.text())));
  }
}

TextMatch FileText::matchAt(std::size_t place) const {
  if (place == std::string::npos) return {};
  const int line = lowered_.lineAt(place);
  return {line, place - lowered_.placeOf(line), searched_.size()};
}

// At or behind the place, else from the beginning.
TextMatch FileText::matchFrom(std::size_t place) const {
  const std::size_t found = lowered_.text().find(searched_, place);
  return matchAt(found != std::string::npos ? found : lowered_.text().find(searched_));
}

// In front of the place, else from the end.
TextMatch FileText::matchBefore(std::size_t place) const {
  const std::size_t found =
      place == 0 ? std::string::npos : lowered_.text().rfind(searched_, place - 1);
  return matchAt(found != std::string::npos ? found : lowered_.text().rfind(searched_));
}

// Where the present match begins; without one, the line at hand.
std::size_t FileText::placeOfMatch() const {
  if (isLine(match_.line)) return lowered_.placeOf(match_.line) + match_.begin;
  return lowered_.placeOf(std::max(last_, 0));
}

bool FileText::show(const TextMatch& match) {
  const bool found = match.line >= 0;
  if (found) anchor_ = last_ = match.line;
  match_ = match;
  if (found) {
    reveal(match.line);
  } else {
    announce(Property::Content);
  }
  return found;
}

bool FileText::find(const std::string& words, bool backwards) {
  prepareSearch(words);
  if (!isSearchable()) return show({});
  const std::size_t here = placeOfMatch();
  if (backwards) return show(matchBefore(here));
  return show(matchFrom(isLine(match_.line) ? here + 1 : here));
}

bool FileText::findOn(const std::string& words) {
  prepareSearch(words);
  return show(isSearchable() ? matchFrom(placeOfMatch()) : TextMatch{});
}

std::vector<TextMatch> FileText::matchesIn(int line) const {
  std::vector<TextMatch> matches;
  if (searched_.empty()) return matches;
  const std::string shown = lowerCased(shownLine(line));
  for (std::size_t at = shown.find(searched_); at != std::string::npos;
       at = shown.find(searched_, at + searched_.size())) {
    matches.push_back({line, at, searched_.size()});
  }
  return matches;
}

// ---- Marks

void FileText::mark(const std::vector<LineSpan>& spans) {
  std::vector<LineSpan> marked;
  for (const LineSpan& span : spans) {
    if (span.count == 0) continue;
    if (!marked.empty() && touches(marked.back(), span)) {
      LineSpan& before = marked.back();
      before.count = std::max(before.count, span.first + span.count - before.first);
    } else {
      marked.push_back(span);
    }
  }
  if (marked == marked_) return;
  marked_ = std::move(marked);
  if (marked_.empty()) {
    announce(Property::Content);
  } else {
    reveal(marked_.front().first);
  }
}

bool FileText::isMarked(int line) const {
  const auto behind =
      std::upper_bound(marked_.begin(), marked_.end(), line,
                       [](int number, const LineSpan& span) { return number < span.first; });
  return behind != marked_.begin() && (behind - 1)->holds(line);
}

}  // namespace tess
