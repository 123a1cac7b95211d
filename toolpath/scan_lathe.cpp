// The lathe style: lines from the top down, since a turning tool must clear the outside first, with
// the tool lifted between cuts only as far as the cuts already made ask for.
#include "toolpath/scan_lathe.h"

#include <algorithm>

#include "core/drawing_store.h"
#include "core/pocketing_choices.h"
#include "toolpath/lathe_spans.h"
#include "toolpath/scan_run.h"

namespace tess {
namespace {

constexpr float kCutZ = 0;

// Follows the tool from span to span.
class LatheTool {
 public:
  LatheTool(CamContext& cam, const ScanRun& run, float feed)
      : store_(cam.store),
        path_(cam, feed),
        spacing_(run.spacing),
        at_(run.bound),
        height_(cam.store.partdimy) {}

  void cut(const ScanSpan& span) {
    const Point start{span.from, span.line};
    const bool first = spans_.empty();
    if (!first && isInStock()) {
      retreat(start.x);
    } else if (at_.y > store_.partdimy) {
      height_ = at_.y;
    }
    if (!first && at_.x != start.x) traverse(start);
    at_ = {span.to, span.line};
    path_.place(start, at_, kCutZ);
    rememberLatheSpan(spans_, span.from, span.to, span.line);
  }

  // Fixed: the last lift is to the first retreat's height, 0 when there was none; programs have it.
  void leave(LatheLeave to) {
    const float height = to == LatheLeave::ToStock ? float{store_.partdimy} : firstHeight_;
    if (!spans_.empty() && isInStock()) path_.place(at_, {at_.x, height}, kLatheRapidZ);
    path_.keep();
  }

 private:
  bool isInStock() const { return at_.y < store_.partdimy; }
  bool isSame(Point a, Point b) const { return samePoint(a, b, store_.cfg_tolerance); }

  // Straight up, to where nothing is in the way to `x`.
  void retreat(float x) {
    height_ = latheClearHeight(store_, spans_, at_.x, x, spacing_);
    if (firstHeight_ == 0) firstHeight_ = height_;
    if (!isSame({at_.x, height_}, {x, height_}) && at_.y < height_) {
      path_.place(at_, {at_.x, height_}, kLatheRapidZ);
    } else {
      height_ = at_.y;
    }
  }

  // Across at the height of the retreat, then down by feed.
  void traverse(Point start) {
    const Point above{start.x, height_};
    if (!isSame({at_.x, height_}, above)) path_.place({at_.x, height_}, above, kLatheRapidZ);
    if (!isSame(above, start)) path_.place(above, start, kCutZ);
  }

  const DrawingStore& store_;
  ScanPath path_;
  std::vector<LatheSpan> spans_;
  float spacing_;
  Point at_;
  float height_;           // of the present retreat
  float firstHeight_ = 0;  // of the first one
};

// Fixed: the lowest pair is never turned round; the last cut of lathe programs runs as sorted.
void orientLine(std::span<ScanSpan> line, const ScanSpan& lowest, int direction) {
  for (ScanSpan& span : line) {
    if (&span != &lowest) orientSpan(span, direction);
  }
}

}  // namespace

Clearing scanPocketLathe(CamContext& cam, float feed) {
  const Procedure here("scanPocketLathe(feed)");
  std::optional<ScanRun> run = prepareScanRun(cam, ScanStyle::Lathe);
  if (!run) return Clearing::NothingToCut;
  cutLatheSpans(cam, std::move(*run), feed, LatheLeave::ToFirstRetreat);
  return Clearing::Done;
}

void cutLatheSpans(CamContext& cam, ScanRun run, float feed, LatheLeave leave) {
  std::vector<ScanSpan>& spans = run.spans;
  std::reverse(spans.begin(), spans.end());
  ScanDirection turns(cuttingMode(cam.store), /*forward=*/1);
  LatheTool tool(cam, run, feed);
  for (auto first = spans.begin(); first != spans.end();) {
    const auto last = std::find_if(
        first, spans.end(), [line = first->line](const ScanSpan& s) { return s.line != line; });
    // Bidirectional milling turns at the first line too, but never for the lowest pair alone.
    const int direction = turns.nextLine(/*keepsDirection=*/first + 1 == spans.end());
    orderLine({first, last}, direction);
    orientLine({first, last}, spans.back(), direction);
    std::for_each(first, last, [&tool](const ScanSpan& span) { tool.cut(span); });
    first = last;
  }
  tool.leave(leave);
}

}  // namespace tess
