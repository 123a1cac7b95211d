// The cuts that a lathe run has made.
#include "toolpath/lathe_spans.h"

#include <algorithm>

#include "core/drawing_store.h"
#include "geometry/float_points.h"

namespace tess {
namespace {

bool holds(const LatheSpan& span, double x, double tolerence) {
  return x <= span.spanMax + tolerence && x + tolerence >= span.spanMin;
}

}  // namespace

void rememberLatheSpan(std::vector<LatheSpan>& list, float xa, float xb, float level) {
  const auto [low, high] = std::minmax(xa, xb);
  list.push_back({low, high, level});
}

float latheClearHeight(const DrawingStore& store, const std::vector<LatheSpan>& list, float xa,
                       float xb, float spacing) {
  const double tolerence = store.cfg_tolerance;
  const auto newest = std::find_if(list.rbegin(), list.rend(), [&](const LatheSpan& span) {
    return holds(span, xa, tolerence) && holds(span, xb, tolerence);
  });
  if (newest == list.rend()) return store.partdimy;
  return std::min(narrow(newest->spanLevel + spacing / 2.0), store.partdimy);
}

}  // namespace tess
