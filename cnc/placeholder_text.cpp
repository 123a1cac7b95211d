// Placeholders in the texts of a definition.
#include "cnc/placeholder_text.h"

#include <algorithm>
#include <array>

#include "core/text.h"

namespace tess {
namespace {

struct Named {
  std::string_view name;
  Placeholder placeholder;
};

constexpr std::array kPlaceholders{
    Named{"{TOOL}", Placeholder::Tool},
    Named{"{NAME}", Placeholder::Name},
    Named{"{SPEED}", Placeholder::Speed},
    Named{"{SAFEZ}", Placeholder::SafeZ},
};

// The text up to the next opening brace, then what stands in braces; the rest is left.
std::string_view takePlain(std::string_view& rest) {
  const std::string_view plain = rest.substr(0, rest.find('{'));
  rest.remove_prefix(plain.size());
  return plain;
}

std::string_view takeBraced(std::string_view& rest) {
  const std::size_t end = rest.find('}');
  const std::string_view braced = rest.substr(0, end == std::string_view::npos ? end : end + 1);
  rest.remove_prefix(braced.size());
  return braced;
}

const Named* namedBy(std::string_view braced) {
  const auto found = std::ranges::find_if(kPlaceholders, [braced](const Named& named) {
    return equalIgnoringCase(named.name, braced);
  });
  return found == kPlaceholders.end() ? nullptr : &*found;
}

}  // namespace

std::optional<std::string> unknownPlaceholder(std::string_view text) {
  for (takePlain(text); !text.empty(); takePlain(text)) {
    const std::string_view braced = takeBraced(text);
    if (namedBy(braced) == nullptr) return std::string(braced);
  }
  return std::nullopt;
}

void appendFilled(std::string& out, std::string_view text,
                  const std::function<void(Placeholder)>& append) {
  for (out.append(takePlain(text)); !text.empty(); out.append(takePlain(text))) {
    if (const Named* const named = namedBy(takeBraced(text))) append(named->placeholder);
  }
}

}  // namespace tess
