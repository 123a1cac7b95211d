// Ways by length.
#include "toolpath/way_by_length.h"

#include <algorithm>
#include <utility>

namespace tess {

WayByLength::WayByLength(std::vector<Curve> curves) : curves_(std::move(curves)) {
  ends_.reserve(curves_.size());
  double length = 0;
  for (const Curve& curve : curves_) ends_.push_back(length += lengthOf(curve));
}

std::size_t WayByLength::curveAt(double length) const {
  const auto end = std::upper_bound(ends_.begin(), ends_.end(), length);
  return std::min(static_cast<std::size_t>(end - ends_.begin()), curves_.size() - 1);
}

double WayByLength::shareAt(std::size_t curve, double length) const {
  const double all = endOf(curve) - startOf(curve);
  return all > 0 ? (length - startOf(curve)) / all : 0;
}

PlanePoint WayByLength::at(double length) const {
  const std::size_t curve = curveAt(length);
  return pointAt(curves_[curve], shareAt(curve, length));
}

PlanePoint WayByLength::directionAt(double length) const {
  const std::size_t curve = curveAt(length);
  return tess::directionAt(curves_[curve], shareAt(curve, length));
}

std::vector<Curve> WayByLength::part(double from, double to) const {
  std::vector<Curve> parts;
  if (curves_.empty()) return parts;
  for (std::size_t k = curveAt(from); k < curves_.size() && startOf(k) < to; ++k) {
    const double all = endOf(k) - startOf(k);
    const double first = std::max(0.0, (from - startOf(k)) / all);
    const double last = std::min(1.0, (to - startOf(k)) / all);
    if (!(first < last)) continue;
    const bool whole = first == 0 && last == 1;
    parts.push_back(whole ? curves_[k] : partOf(curves_[k], first, last));
  }
  return parts;
}

}  // namespace tess
