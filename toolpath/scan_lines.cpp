// The horizontal and the vertical style: lines in rising order, only the cuts are rows.
#include "toolpath/scan_lines.h"

#include <algorithm>

#include "core/drawing_store.h"
#include "core/pocketing_choices.h"
#include "toolpath/scan_run.h"

namespace tess {
namespace {

struct ScanCut {
  ScanStyle style;
  int forward;  // the way of conventional milling
  float z = 0, feed = 0;
};

void placeLine(const ScanCut& cut, std::span<ScanSpan> line, int direction, ScanPath& path) {
  orderLine(line, direction);
  for (ScanSpan& span : line) {
    orientSpan(span, direction);
    path.place(placeOf(cut.style, {span.line, span.from}), placeOf(cut.style, {span.line, span.to}),
               cut.z);
  }
}

Clearing scanPocket(CamContext& cam, const ScanCut& cut) {
  std::optional<ScanRun> run = prepareScanRun(cam, cut.style);
  if (!run) return Clearing::NothingToCut;
  ScanDirection turns(cuttingMode(cam.store), cut.forward);
  ScanPath path(cam, cut.feed);
  const auto begin = run->spans.begin();
  for (auto first = begin; first != run->spans.end();) {
    const auto last =
        std::find_if(first, run->spans.end(),
                     [line = first->line](const ScanSpan& s) { return s.line != line; });
    placeLine(cut, {first, last}, turns.nextLine(/*keepsDirection=*/first == begin), path);
    first = last;
  }
  path.keep();
  return Clearing::Done;
}

}  // namespace

Clearing scanPocketHorizontal(CamContext& cam, float z, float feed) {
  const Procedure here("scanPocketHorizontal(z,feed)");
  return scanPocket(cam, {ScanStyle::Horizontal, /*forward=*/1, z, feed});
}

// Conventional milling along rising x lines runs the other way.
Clearing scanPocketVertical(CamContext& cam, float z, float feed) {
  const Procedure here("scanPocketVertical(z,feed)");
  return scanPocket(cam, {ScanStyle::Vertical, /*forward=*/-1, z, feed});
}

}  // namespace tess
