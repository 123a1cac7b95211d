// Reading the destinations of a document. Only what the manual's own maker writes is understood:
// one list of pages, and one list of names with the page of each.
#include "shell/help_topics.h"

#include <charconv>
#include <optional>
#include <system_error>

namespace tess {
namespace {

// Goes through the words of a piece of a document.
class Words {
 public:
  explicit Words(std::string_view text) : rest_(text) {}

  // A number; nothing where none stands next.
  std::optional<int> number() {
    skipBlanks();
    int value = 0;
    const auto [end, error] = std::from_chars(rest_.data(), rest_.data() + rest_.size(), value);
    if (error != std::errc()) return std::nullopt;
    rest_.remove_prefix(static_cast<std::size_t>(end - rest_.data()));
    return value;
  }

  bool takes(std::string_view word) {
    skipBlanks();
    if (!rest_.starts_with(word)) return false;
    rest_.remove_prefix(word.size());
    return true;
  }

  // Up to that mark, which is taken too; nothing where it does not come.
  std::optional<std::string_view> upTo(char mark) {
    const std::size_t end = rest_.find(mark);
    if (end == std::string_view::npos) return std::nullopt;
    const std::string_view taken = rest_.substr(0, end);
    rest_.remove_prefix(end + 1);
    return taken;
  }

  // "12 0 R": the number of an object.
  std::optional<int> reference() {
    const std::optional<int> object = number();
    if (!object || !number() || !takes("R")) return std::nullopt;
    return object;
  }

 private:
  void skipBlanks() {
    const std::size_t begin = rest_.find_first_not_of(" \t\r\n");
    rest_.remove_prefix(begin == std::string_view::npos ? rest_.size() : begin);
  }

  std::string_view rest_;
};

// What follows the first `key` behind the first `mark`; empty where one is missing.
std::string_view behind(std::string_view document, std::string_view mark, std::string_view key) {
  const std::size_t at = document.find(mark);
  if (at == std::string_view::npos) return {};
  const std::size_t found = document.find(key, at);
  return found == std::string_view::npos ? std::string_view() : document.substr(found + key.size());
}

// The number of each page by that of its object.
std::map<int, int> pagesByObject(std::string_view document) {
  std::map<int, int> pages;
  Words words(behind(document, "/Type /Pages", "/Kids ["));
  while (const std::optional<int> object = words.reference()) {
    const int page = static_cast<int>(pages.size()) + 1;
    pages.emplace(*object, page);
  }
  return pages;
}

}  // namespace

std::string helpTopic(std::string_view name) {
  std::string topic(name);
  for (char& letter : topic) {
    const bool plain = (letter >= '0' && letter <= '9') || (letter >= 'A' && letter <= 'Z') ||
                       (letter >= 'a' && letter <= 'z');
    if (!plain) letter = '_';
  }
  return topic;
}

ManualPlaces manualPlaces(std::string_view document) {
  const std::map<int, int> pages = pagesByObject(document);
  ManualPlaces places;
  Words words(behind(document, "/Dests <<", "/Names ["));
  while (words.takes("(")) {
    const auto name = words.upTo(')');
    if (!name || !words.takes("[")) break;
    const std::optional<int> object = words.reference();
    if (!object || !words.upTo(']')) break;
    const auto page = pages.find(*object);
    if (page != pages.end()) places.emplace(*name, page->second);
  }
  return places;
}

}  // namespace tess
