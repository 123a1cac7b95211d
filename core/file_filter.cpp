// Filters and patterns.
#include "core/file_filter.h"

#include "core/text.h"

namespace tess {
namespace {

std::vector<std::string> pieces(std::string_view text, char separator) {
  std::vector<std::string> found;
  while (true) {
    const std::size_t end = text.find(separator);
    const std::string_view piece = trimmed(text.substr(0, end));
    if (!piece.empty()) found.emplace_back(piece);
    if (end == std::string_view::npos) return found;
    text.remove_prefix(end + 1);
  }
}

// The last star takes as many letters as the rest needs; earlier ones never have to give any back.
bool matchesGlob(std::string_view name, std::string_view glob) {
  std::size_t at = 0, in = 0;
  std::size_t star = std::string_view::npos, taken = 0;
  while (at < name.size()) {
    if (in < glob.size() && glob[in] == '*') {
      star = in++;
      taken = at;
    } else if (in < glob.size() && (glob[in] == '?' || glob[in] == name[at])) {
      ++in;
      ++at;
    } else if (star != std::string_view::npos) {
      in = star + 1;
      at = ++taken;
    } else {
      return false;
    }
  }
  return glob.find_first_not_of('*', in) == std::string_view::npos;
}

}  // namespace

std::vector<FileFilter> filtersOf(std::string_view text) {
  const std::vector<std::string> parts = pieces(text, '|');
  if (parts.empty()) return {{"All Files (*.*)", "*.*"}};
  if (parts.size() == 1) return {{parts[0], parts[0]}};
  std::vector<FileFilter> filters;
  for (std::size_t at = 0; at + 1 < parts.size(); at += 2) {
    filters.push_back({parts[at], parts[at + 1]});
  }
  return filters;
}

bool matchesPattern(std::string_view name, std::string_view pattern) {
  const std::string lower = lowerCased(name);
  for (const std::string& glob : pieces(pattern, ';')) {
    if (glob == "*.*" || matchesGlob(lower, lowerCased(glob))) return true;
  }
  return false;
}

std::string endingOf(std::string_view pattern) {
  const std::vector<std::string> globs = pieces(pattern, ';');
  const std::size_t dot = globs.empty() ? std::string::npos : globs.front().rfind('.');
  if (dot == std::string::npos) return {};
  const std::string ending = globs.front().substr(dot);
  return ending.find_first_of("*?") == std::string::npos ? ending : std::string();
}

}  // namespace tess
