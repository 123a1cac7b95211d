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

float clearHeight(const std::vector<LatheSpan>& list, float xa, float xb, float spacing, float top,
                  float tolerence) {
  const auto newest = std::find_if(list.rbegin(), list.rend(), [&](const LatheSpan& span) {
    return holds(span, xa, tolerence) && holds(span, xb, tolerence);
  });
  if (newest == list.rend()) return top;
  return std::min(narrow(newest->spanLevel + spacing / 2.0), top);
}

float latheClearHeight(const DrawingStore& store, const std::vector<LatheSpan>& list, float xa,
                       float xb, float spacing) {
  return clearHeight(list, xa, xb, spacing, store.partdimy, store.cfg_tolerance);
}

}  // namespace tess
