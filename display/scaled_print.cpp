// Sheets.
#include "display/scaled_print.h"

#include <algorithm>
#include <cmath>

#include "core/number_text.h"
#include "core/runtime_failure.h"
#include "core/text.h"

namespace tess {
namespace {

constexpr double kFoot = 14;          // millimetres below the window
constexpr double kLeastWindow = 20;   // millimetres that a window needs to be of use
constexpr double kSlack = 1e-6;       // millimetres by which rounding may pass a window's edge
constexpr double kMetricRuler = 100;  // millimetres
constexpr double kInchRuler = 4;      // inches
constexpr double kShortRuler = 0.5;   // of the ruler, where the sheet is too narrow for it

[[noreturn]] void refuse(const std::string& why) {
  throw RuntimeFailure(FailureNumber::InvalidProcedureCall, {}, why);
}

struct Span {
  double from = 0, to = 0;  // on the drawing's paper
  double length() const { return to - from; }
};

// How many windows of that length, each sharing `overlap` with the next, cover the span. As a
// double: a huge scale takes more than a number of sheets can hold.
double windowsFor(const Span& span, double window, double overlap) {
  if (span.length() <= window + kSlack) return 1;
  return std::ceil((span.length() - overlap - kSlack) / (window - overlap));
}

// The first edge of the windows, which stand about the middle of the span.
double firstEdge(const Span& span, double window, double overlap, int count) {
  const double covered = count * window - (count - 1) * overlap;
  return span.from - (covered - span.length()) / 2;
}

struct Layout {
  SheetPlan plan;
  double sheets = 0;
};

Layout layoutFor(const Span& across, const Span& up, const ScaledPrint& print,
                 PageOrientation orientation) {
  Layout layout;
  SheetPlan& plan = layout.plan;
  plan.sides = sidesOf(print.page, orientation);
  plan.margin = print.page.margin;
  plan.foot = kFoot;
  plan.width = plan.sides.width - 2 * plan.margin;
  plan.height = plan.sides.height - 2 * plan.margin - plan.foot;
  if (std::min(plan.width, plan.height) < kLeastWindow + print.overlap)
    refuse("The margin and the overlap leave no room on the paper.");
  const double columns = windowsFor(across, plan.width, print.overlap);
  const double rows = windowsFor(up, plan.height, print.overlap);
  layout.sheets = columns * rows;
  if (layout.sheets <= kMostSheets) {
    plan.columns = static_cast<int>(columns);
    plan.rows = static_cast<int>(rows);
  }
  return layout;
}

Layout betterLayout(const Span& across, const Span& up, const ScaledPrint& print) {
  Layout portrait = layoutFor(across, up, print, PageOrientation::Portrait);
  Layout landscape = layoutFor(across, up, print, PageOrientation::Landscape);
  return landscape.sheets < portrait.sheets ? landscape : portrait;
}

// On each side where another sheet follows, two marks in the middle of what both show.
std::vector<SheetMark> marksOf(const Sheet& sheet, const SheetPlan& plan, double overlap) {
  std::vector<SheetMark> marks;
  const double half = overlap / 2;
  const auto mark = [&](double shareAcross, double x, double shareUp, double y) {
    marks.push_back(
        {sheet.left + shareAcross * plan.width + x, sheet.bottom + shareUp * plan.height + y});
  };
  for (const double share : {0.25, 0.75}) {
    if (sheet.column > 1) mark(0, half, share, 0);
    if (sheet.column < plan.columns) mark(1, -half, share, 0);
    if (sheet.row < plan.rows) mark(share, 0, 0, half);
    if (sheet.row > 1) mark(share, 0, 1, -half);
  }
  return marks;
}

void addSheets(SheetPlan& plan, const Span& across, const Span& up, double overlap) {
  const double left = firstEdge(across, plan.width, overlap, plan.columns);
  const double bottom = firstEdge(up, plan.height, overlap, plan.rows);
  for (int row = 1; row <= plan.rows; ++row) {
    for (int column = 1; column <= plan.columns; ++column) {
      Sheet sheet{.column = column,
                  .row = row,
                  .left = left + (column - 1) * (plan.width - overlap),
                  .bottom = bottom + (plan.rows - row) * (plan.height - overlap),
                  .marks = {}};
      sheet.marks = marksOf(sheet, plan, overlap);
      plan.sheets.push_back(std::move(sheet));
    }
  }
}

// A line of a length that a rule can check, however wide the sheet.
void addRuler(SheetPlan& plan, bool metric) {
  double length = metric ? kMetricRuler : kInchRuler;
  const double unit = metric ? 1 : kMillimetresPerInch;
  while (length * unit > plan.width / 2) length *= kShortRuler;
  plan.ruler = length * unit;
  plan.rulerText = plainText(narrow(length)) + (metric ? " mm" : " in");
}

}  // namespace

std::optional<double> readPrintScale(std::string_view text) {
  const std::size_t colon = text.find(':');
  std::optional<double> paper = numericValue(text.substr(0, colon));
  std::optional<double> part = 1;
  if (colon != std::string_view::npos) part = numericValue(text.substr(colon + 1));
  if (!paper || !part) return std::nullopt;
  const double scale = *paper / *part;
  return scale > 0 && std::isfinite(scale) ? std::optional(scale) : std::nullopt;
}

std::string scaleText(double scale) {
  return scale >= 1 ? plainText(narrow(scale)) + ":1" : "1:" + plainText(narrow(1 / scale));
}

SheetPlan planSheets(const DrawingStore& store, const Box& bounds, const ScaledPrint& print) {
  const double millimetres = print.scale * millimetresPerUnit(store);
  Span across;
  Span up;
  if (!bounds.isEmpty()) {
    across = {bounds.minX * millimetres, bounds.maxX * millimetres};
    up = {bounds.minY * millimetres, bounds.maxY * millimetres};
  }
  Layout layout = betterLayout(across, up, print);
  if (layout.plan.columns == 0) {
    refuse("At this scale the drawing takes more than " + std::to_string(kMostSheets) +
           " sheets. Please choose a smaller scale or larger paper.");
  }
  layout.plan.millimetres = millimetres;
  addSheets(layout.plan, across, up, print.overlap);
  addRuler(layout.plan, isMetric(store));
  return layout.plan;
}

}  // namespace tess
