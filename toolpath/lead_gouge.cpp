// Leads that cut into the path they belong to: finding them and shortening them.
#include "toolpath/lead_gouge.h"

#include "core/drawing_store.h"
#include "core/number_text.h"
#include "core/rounding.h"
#include "drafting/change.h"
#include "geometry/float_intersections.h"
#include "geometry/row_entity.h"

namespace tess {
namespace {

constexpr int kLengthDecimals = 5;

// The shortest distance to a hit so far. A distance of 0 is no hit: the row next to a lead meets it
// at their common end.
class ShortestDistance {
 public:
  void offer(float length) {
    if (length > 0 && (!shortest_ || length < *shortest_)) shortest_ = length;
  }
  const std::optional<float>& shortest() const { return shortest_; }

 private:
  std::optional<float> shortest_;
};

float roundedDistance(Point from, Point to) {
  return roundTo(distance(from, to), kLengthDecimals);
}

// Fixed: of two hits the second is rounded, of one the first; recommended lengths rest on it.
void offerHits(ShortestDistance& shortest, const Crossing& crossing, Point junction) {
  const auto& [first, second] = crossing.at;
  if (crossing.first && crossing.second) {
    shortest.offer(distance(junction, first));
    shortest.offer(roundedDistance(junction, second));
  } else if (crossing.first) {
    shortest.offer(roundedDistance(junction, first));
  } else if (crossing.second) {
    shortest.offer(distance(junction, second));
  }
}

}  // namespace

std::optional<float> checkLeadGouge(const DrawingStore& store, int first, int last) {
  const Point leadInEnd = pathEntity(store, first).end;
  const Point leadOutStart = pathEntity(store, last).start;
  ShortestDistance shortest;
  for (int ps = first + 1; ps < last; ++ps) {
    offerHits(shortest, intersectPathSegs(store, first, ps), leadInEnd);
    offerHits(shortest, intersectPathSegs(store, last, ps), leadOutStart);
  }
  return shortest.shortest();
}

Message leadQuestion(float length) {
  return {.text =
              "A possible Gouge was detected betweeen the Lead In/Lead Out paths and the "
              "Finishing Path.  We recommend a Lead In/Out distance of " +
              plainText(length) +
              ".\n\nDo you wish to continue using the recommended Lead In/Out distance ?",
          .title = "Gouge Detected",
          .icon = MessageIcon::Question,
          .buttons = MessageButtons::YesNo};
}

void fitLeadLength(Changes& changes, int ps, float length, LeadEnd moved) {
  const DrawingStore& store = changes.store;
  if (store.pstype[ps] != kLine) return;
  const Entity lead = pathEntity(store, ps);
  const float present = distance(lead.start, lead.end);
  if (present <= 0 || length <= 0 || present <= length) return;
  const double ratio = static_cast<double>(length) / present;
  const auto scaled = [ratio](float from, float to) {
    return narrow((static_cast<double>(from) - to) * ratio + to);
  };
  PathRow fitted = pathRow(store, ps);
  if (moved == LeadEnd::Start) {
    fitted.x0 = scaled(lead.start.x, lead.end.x);
    fitted.y0 = scaled(lead.start.y, lead.end.y);
  } else {
    fitted.x1 = scaled(lead.end.x, lead.start.x);
    fitted.y1 = scaled(lead.end.y, lead.start.y);
  }
  Change change(changes, Step::Continued);
  change.paths.replace(ps, fitted, Entry::Unlogged);
  change.keep({.redraws = false});
}

}  // namespace tess
