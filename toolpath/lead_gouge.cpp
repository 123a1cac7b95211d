// Leads that cut into the path they belong to: finding them and shortening them.
#include <optional>

#include "core/drawing_store.h"
#include "core/rounding.h"
#include "geometry/float_intersections.h"
#include "geometry/row_entity.h"
#include "toolpath/lead_moves.h"

namespace tess {
namespace {

constexpr int kLengthDecimals = 5;

// The shortest way to a hit so far. A way of 0 is no hit: the row next to a lead meets it at their
// common end.
class ShortestWay {
 public:
  void offer(float way) {
    if (way > 0 && (!shortest_ || way < *shortest_)) shortest_ = way;
  }
  const std::optional<float>& shortest() const { return shortest_; }

 private:
  std::optional<float> shortest_;
};

float roundedWay(Point from, Point to) {
  return roundTo(distance(from, to), kLengthDecimals);
}

// Fixed: of two hits the second is rounded, of one the first; recommended lengths rest on it.
void offerHits(ShortestWay& way, const Crossing& crossing, Point junction) {
  const auto& [first, second] = crossing.at;
  if (crossing.first && crossing.second) {
    way.offer(distance(junction, first));
    way.offer(roundedWay(junction, second));
  } else if (crossing.first) {
    way.offer(roundedWay(junction, first));
  } else if (crossing.second) {
    way.offer(distance(junction, second));
  }
}

}  // namespace

std::optional<float> checkLeadGouge(const DrawingStore& store, int first, int last) {
  const Point leadInEnd = pathEntity(store, first).end;
  const Point leadOutStart = pathEntity(store, last).start;
  ShortestWay way;
  for (int ps = first + 1; ps < last; ++ps) {
    offerHits(way, intersectPathSegs(store, first, ps), leadInEnd);
    offerHits(way, intersectPathSegs(store, last, ps), leadOutStart);
  }
  return way.shortest();
}

void fitLeadLength(Changes& changes, int ps, float length, int mode) {
  const DrawingStore& store = changes.store;
  if (store.pstype[ps] != kLine) return;
  const Entity lead = pathEntity(store, ps);
  const float present = distance(lead.start, lead.end);
  if (present <= 0 || length <= 0 || present <= length) return;
  const double ratio = static_cast<double>(length) / present;
  const auto moved = [ratio](float from, float to) {
    return narrow((static_cast<double>(from) - to) * ratio + to);
  };
  PathRow fitted = pathRow(store, ps);
  if (mode == kFitStart) {
    fitted.x0 = moved(lead.start.x, lead.end.x);
    fitted.y0 = moved(lead.start.y, lead.end.y);
  } else if (mode == kFitEnd) {
    fitted.x1 = moved(lead.end.x, lead.start.x);
    fitted.y1 = moved(lead.end.y, lead.start.y);
  }
  Change change(changes, Step::Continued);
  change.paths.replace(ps, fitted, Entry::Unlogged);
  change.keep({.redraws = false});
}

}  // namespace tess
