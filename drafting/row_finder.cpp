// Rows by both of their ends, hashed.
#include "drafting/row_finder.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <utility>

#include "core/rounding.h"
#include "geometry/entity.h"

namespace tess {
namespace {

// So wide that a row rarely lies near an edge, so narrow that only copies share a cell.
constexpr double kCellTolerances = 64;
constexpr double kNarrowestCell = 1e-6;
constexpr double kRoundingOfDoubles = 1e-15;
constexpr double kLeastSpacing = 5.9e-8;  // of two 32-bit numbers, as a part of them

// How much a row differs from its record: what weighs more is the larger.
constexpr unsigned kSaved = 1;  // by the rounding of a save
constexpr unsigned kOfAnotherClass = 2;
constexpr unsigned kNear = 4;  // within the tolerance

}  // namespace

RowFinder::RowFinder(float tolerence, std::size_t rows)
    : tolerence_(tolerence),
      cellsPerUnit_(1 / std::max(kCellTolerances * tolerence, kNarrowestCell)),
      heads_(std::bit_ceil(2 * rows + 1), kEnd) {
  next_.reserve(rows);
}

// Far out the numbers of the tables lie farther apart than the tolerance, and only equal ones are
// the same; rounding would lead past their cell there.
double RowFinder::reachOf(double value) const {
  if (kLeastSpacing * std::abs(value) > tolerence_) return 0;
  return tolerence_ + kRoundingOfDoubles * std::abs(value);
}

double RowFinder::cellOf(double value) const {
  return std::floor(value * cellsPerUnit_);
}

// Adding 0 makes both zeros one, as they are the same cell.
std::size_t RowFinder::bucketOf(const Cells& cells) const {
  std::uint64_t hash = 0;
  for (const double cell : cells) {
    hash = (hash ^ std::bit_cast<std::uint64_t>(cell + 0.0)) * 0x9E3779B97F4A7C15ULL;
    hash ^= hash >> 32U;
  }
  return static_cast<std::size_t>(hash) & (heads_.size() - 1);
}

void RowFinder::add(std::size_t place, const SegmentRow& row) {
  const std::size_t bucket =
      bucketOf({cellOf(row.x0), cellOf(row.y0), cellOf(row.x1), cellOf(row.y1)});
  if (next_.size() <= place) next_.resize(place + 1, kEnd);
  next_[place] = heads_[bucket];
  heads_[bucket] = static_cast<int>(place);
}

std::size_t RowFinder::unlinked(const Link& link) {
  if (link.place < 0) return kNone;
  const int after = next_[static_cast<std::size_t>(link.place)];
  if (link.before < 0) {
    heads_[link.bucket] = after;
  } else {
    next_[static_cast<std::size_t>(link.before)] = after;
  }
  return static_cast<std::size_t>(link.place);
}

unsigned RowFinder::differenceOf(const clsSegment& record, const SegmentRow& row) {
  const bool hasCenter = isRound(row.type);
  const std::array<std::pair<float, float>, 6> numbers{{
      {record.x0, row.x0},
      {record.y0, row.y0},
      {record.x1, row.x1},
      {record.y1, row.y1},
      {hasCenter ? record.CenterX : 0, hasCenter ? row.xc : 0},
      {hasCenter ? record.CenterY : 0, hasCenter ? row.yc : 0},
  }};
  const auto asSaved = [](float value) { return roundTo(value, kCoordinateDecimals); };
  unsigned difference = entityClass(record.SegAttr) == entityClass(row.attr) ? 0 : kOfAnotherClass;
  for (const auto& [was, is] : numbers) {
    if (was != is) difference |= asSaved(was) == asSaved(is) ? kSaved : kNear;
  }
  return difference;
}

}  // namespace tess
