// Sheets and their set-up.
#include "display/page_setup.h"

#include <algorithm>
#include <array>
#include <utility>

#include "core/number_text.h"
#include "core/text.h"

namespace tess {
namespace {

constexpr std::array kSizes{
    PaperSize{"A5", 148, 210},          PaperSize{"A4", 210, 297},
    PaperSize{"A3", 297, 420},          PaperSize{"A2", 420, 594},
    PaperSize{"A1", 594, 841},          PaperSize{"A0", 841, 1189},
    PaperSize{"Letter", 215.9, 279.4},  PaperSize{"Legal", 215.9, 355.6},
    PaperSize{"Tabloid", 279.4, 431.8},
};

constexpr std::array kOrientations{"automatic", "portrait", "landscape"};

void take(PageSetup& setup, std::string_view key, std::string_view value) {
  if (key == "paper") {
    if (const PaperSize* const size = paperNamed(value)) setup.paper = size->name;
  } else if (key == "orientation") {
    const auto found = std::find(kOrientations.begin(), kOrientations.end(), value);
    if (found != kOrientations.end())
      setup.orientation = static_cast<PageOrientation>(found - kOrientations.begin());
  } else if (key == "margin") {
    const auto margin = numericValue(value);
    if (margin && *margin >= 0) setup.margin = *margin;
  }
}

}  // namespace

std::span<const PaperSize> paperSizes() {
  return kSizes;
}

const PaperSize* paperNamed(std::string_view name) {
  const auto found = std::find_if(kSizes.begin(), kSizes.end(), [&](const PaperSize& size) {
    return equalIgnoringCase(size.name, name);
  });
  return found == kSizes.end() ? nullptr : &*found;
}

PageSides sidesOf(const PageSetup& setup, PageOrientation automatic) {
  const PaperSize& size = *paperNamed(setup.paper);
  const bool isOpen = setup.orientation == PageOrientation::Automatic;
  const bool lies = (isOpen ? automatic : setup.orientation) == PageOrientation::Landscape;
  return lies ? PageSides{size.height, size.width} : PageSides{size.width, size.height};
}

double largestMargin(std::string_view paper) {
  return paperNamed(paper)->width / 4;
}

std::string pageSetupText(const PageSetup& setup) {
  return "paper=" + setup.paper +
         "\norientation=" + kOrientations[static_cast<std::size_t>(setup.orientation)] +
         "\nmargin=" + plainText(static_cast<float>(setup.margin)) + "\n";
}

PageSetup readPageSetup(std::string_view text) {
  PageSetup setup;
  while (!text.empty()) {
    const std::size_t end = std::min(text.find_first_of("\r\n"), text.size());
    const std::string_view line = text.substr(0, end);
    text.remove_prefix(std::min(end + 1, text.size()));
    const std::size_t equals = line.find('=');
    if (equals == std::string_view::npos) continue;
    take(setup, trimmed(line.substr(0, equals)), trimmed(line.substr(equals + 1)));
  }
  setup.margin = std::min(setup.margin, largestMargin(setup.paper));
  return setup;
}

}  // namespace tess
