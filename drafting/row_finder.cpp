// Rows by one number for both of their ends, hashed.
#include "drafting/row_finder.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstdint>
#include <utility>

#include "core/rounding.h"
#include "geometry/entity.h"

namespace tess {
namespace {

// Weights without a common measure: rows of a grid get marks of their own.
constexpr double kWeights[] = {1, 3.1416, 7.3891, 11.7557};
constexpr double kWeightOfAll = kWeights[0] + kWeights[1] + kWeights[2] + kWeights[3];
// So wide that most rows lie in one cell with all that match them, so narrow that few others do.
constexpr double kCellTolerances = 8 * kWeightOfAll;
constexpr double kNarrowestCell = 1e-6;
constexpr double kRoundingOfDoubles = 1e-15;

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

RowFinder::Mark RowFinder::markOf(double x0, double y0, double x1, double y1) const {
  const double terms[] = {kWeights[0] * x0, kWeights[1] * y0, kWeights[2] * x1, kWeights[3] * y1};
  const double size =
      std::abs(terms[0]) + std::abs(terms[1]) + std::abs(terms[2]) + std::abs(terms[3]);
  return {terms[0] + terms[1] + terms[2] + terms[3],
          kWeightOfAll * tolerence_ + kRoundingOfDoubles * size};
}

// Beyond the farthest cell, and for what is no number, there are no more cells.
std::int64_t RowFinder::cellOf(double mark) const {
  constexpr std::int64_t kFarthestCell = 1LL << 48;
  const double cells = mark * cellsPerUnit_;
  if (!(cells > -kFarthestCell)) return -kFarthestCell;
  if (cells > kFarthestCell) return kFarthestCell;
  const auto towardZero = static_cast<std::int64_t>(cells);
  return towardZero - (static_cast<double>(towardZero) > cells ? 1 : 0);
}

std::size_t RowFinder::bucketOf(std::int64_t cell) const {
  const std::uint64_t hash = static_cast<std::uint64_t>(cell) * 0x9E3779B97F4A7C15ULL;
  return static_cast<std::size_t>(hash >> 32U) & (heads_.size() - 1);
}

void RowFinder::add(std::size_t place, const SegmentRow& row) {
  const std::size_t bucket = bucketOf(cellOf(markOf(row.x0, row.y0, row.x1, row.y1).value));
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
  if (isClosest(record, row)) return 0;
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
