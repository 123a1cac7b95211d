// The sheets that pages are printed on, and how an operator has set them up.
// Owns: PaperSize, paperSizes, paperNamed, PageOrientation, PageSetup, PageSides, sidesOf,
//       largestMargin, pageSetupText, readPageSetup.
#pragma once

#include <span>
#include <string>
#include <string_view>

namespace tess {

struct PaperSize {
  const char* name;
  double width, height;  // millimetres, upright
};

std::span<const PaperSize> paperSizes();
// Regardless of case; null for an unknown name.
const PaperSize* paperNamed(std::string_view name);

enum class PageOrientation { Automatic, Portrait, Landscape };

struct PageSetup {
  std::string paper = "A4";  // one of paperSizes
  PageOrientation orientation = PageOrientation::Automatic;
  double margin = 12;  // millimetres, the same at all sides; 0 to a quarter of the shorter side
  bool operator==(const PageSetup&) const = default;
};

struct PageSides {
  double width, height;  // millimetres
};

// The sheet as it is turned; one whose orientation is automatic lies as `automatic` says.
PageSides sidesOf(const PageSetup& setup, PageOrientation automatic);

// The widest margin that leaves enough of a sheet, in millimetres.
double largestMargin(std::string_view paper);

// The lines of a file, and what such a file says: whatever it leaves out or has wrong is as in
// PageSetup{}.
std::string pageSetupText(const PageSetup& setup);
PageSetup readPageSetup(std::string_view text);

}  // namespace tess
