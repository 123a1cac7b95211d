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

// Follows the tool from span to span. Heights are counted toward where it comes from.
class LatheTool {
 public:
  LatheTool(CamContext& cam, const ScanRun& run, float feed, float top, float sign)
      : store_(cam.store),
        path_(cam, feed),
        spacing_(run.spacing),
        top_(top),
        sign_(sign),
        at_(run.bound),
        height_(top) {}

  void cut(const ScanSpan& span) {
    const Point start{span.from, span.line};
    const bool first = spans_.empty();
    if (!first && isInStock()) {
      retreat(start.x);
    } else if (at_.y > top_) {
      height_ = at_.y;
    }
    if (!first && at_.x != start.x) traverse(start);
    at_ = {span.to, span.line};
    place(start, at_, kCutZ);
    rememberLatheSpan(spans_, span.from, span.to, span.line);
  }

  // Fixed: the last lift is to the first retreat's height, 0 when there was none; programs have it.
  void leave(LatheLeave to) {
    const float height = to == LatheLeave::ToStock ? top_ : firstHeight_;
    if (!spans_.empty() && isInStock()) place(at_, {at_.x, height}, kLatheRapidZ);
    path_.keep();
  }

 private:
  void place(Point from, Point to, float z) {
    path_.place({from.x, sign_ * from.y}, {to.x, sign_ * to.y}, z);
  }
  bool isInStock() const { return at_.y < top_; }
  bool isSame(Point a, Point b) const { return samePoint(a, b, store_.cfg_tolerance); }

  // Straight up, to where nothing is in the way to `x`.
  void retreat(float x) {
    height_ = clearHeight(spans_, at_.x, x, spacing_, top_, store_.cfg_tolerance);
    if (firstHeight_ == 0) firstHeight_ = height_;
    if (!isSame({at_.x, height_}, {x, height_}) && at_.y < height_) {
      place(at_, {at_.x, height_}, kLatheRapidZ);
    } else {
      height_ = at_.y;
    }
  }

  // Across at the height of the retreat, then down by feed.
  void traverse(Point start) {
    const Point above{start.x, height_};
    if (!isSame({at_.x, height_}, above)) place({at_.x, height_}, above, kLatheRapidZ);
    if (!isSame(above, start)) place(above, start, kCutZ);
  }

  const DrawingStore& store_;
  ScanPath path_;
  std::vector<LatheSpan> spans_;
  float spacing_;
  float top_;
  float sign_;  // of its heights on the drawing
  Point at_;
  float height_;           // of the present retreat
  float firstHeight_ = 0;  // of the first one
};

// Fixed: the lowest pair is never turned round; the last cut of lathe programs runs as sorted.
void orientLine(std::span<ScanSpan> line, const ScanSpan* lowest, int direction) {
  for (ScanSpan& span : line) {
    if (&span != lowest) orientSpan(span, direction);
  }
}

// The lowest line of an inside is the highest as its tool sees it.
void turnOver(ScanRun& run) {
  for (ScanSpan& span : run.spans) span.line = -span.line;
  run.bound.y = -run.bound.y;
}

}  // namespace

Clearing scanPocketLathe(CamContext& cam, float feed) {
  const Procedure here("scanPocketLathe(feed)");
  std::optional<ScanRun> run = prepareScanRun(cam, ScanStyle::Lathe);
  if (!run) return Clearing::NothingToCut;
  cutLatheSpans(cam, std::move(*run), feed, LatheLeave::ToFirstRetreat);
  return Clearing::Done;
}

void cutLatheSpans(CamContext& cam, ScanRun run, float feed, LatheLeave leave, LatheSide side) {
  std::vector<ScanSpan>& spans = run.spans;
  float top = cam.store.partdimy;
  if (side.isInside) {
    turnOver(run);
    top = std::min(0.0F, run.bound.y + side.clearance);
  } else {
    std::reverse(spans.begin(), spans.end());
  }
  const ScanSpan* const lowest = side.isInside || spans.empty() ? nullptr : &spans.back();
  ScanDirection turns(cuttingMode(cam.store), /*forward=*/1);
  LatheTool tool(cam, run, feed, top, side.isInside ? -1.0F : 1.0F);
  for (auto first = spans.begin(); first != spans.end();) {
    const auto last = std::find_if(
        first, spans.end(), [line = first->line](const ScanSpan& s) { return s.line != line; });
    // Bidirectional milling turns at the first line too, but never for the lowest pair alone.
    const int direction = turns.nextLine(/*keepsDirection=*/first + 1 == spans.end());
    orderLine({first, last}, direction);
    orientLine({first, last}, lowest, direction);
    std::for_each(first, last, [&tool](const ScanSpan& span) { tool.cut(span); });
    first = last;
  }
  tool.leave(leave);
}

}  // namespace tess
