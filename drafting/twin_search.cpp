// Rows by the cells of two numbers made of their ends, hashed.
#include "drafting/twin_search.h"

#include <algorithm>
#include <bit>
#include <cmath>

namespace tess {
namespace {

// Of each end one coordinate, so that the cells part rows of one direction too.
constexpr double kFirstWeight = 3.1416, kSecondWeight = 2.7183;
// So wide that few rows lie near an edge, so narrow that few others lie in the same cell.
constexpr double kCellTolerances = 32;
constexpr double kNarrowestCell = 1e-6;
constexpr double kRoundingOfDoubles = 1e-15;
constexpr double kRoundingOfReach = 1.001;
// Farther out the rounding comes near the width of a cell.
constexpr double kFarthestCell = 1LL << 46;

std::uint64_t keyOf(std::int64_t first, std::int64_t second, int type) {
  const auto mixed = static_cast<std::uint64_t>(first) * 0x9E3779B97F4A7C15ULL +
                     static_cast<std::uint64_t>(second) * 0xC2B2AE3D27D4EB4FULL +
                     static_cast<std::uint64_t>(type);
  return (mixed ^ (mixed >> 29U)) * 0xBF58476D1CE4E5B9ULL;
}

}  // namespace

TwinSearch::Axis::Axis(double weightOfB, double tolerence) : weight(weightOfB) {
  const double wide = kRoundingOfReach * (1 + weight) * tolerence;
  cellsPerUnit = 1 / std::max(kCellTolerances * wide, kNarrowestCell);
  reach = wide * cellsPerUnit;
}

// What is no number lies beyond all cells too.
inline bool TwinSearch::Axis::holds(double a, double b) const {
  return (std::abs(a) + std::abs(b) * weight) * cellsPerUnit < kFarthestCell;
}

inline TwinSearch::Cell TwinSearch::Axis::cellOf(double a, double b) const {
  const double cells = (a + b * weight) * cellsPerUnit;
  const auto towardZero = static_cast<std::int64_t>(cells);
  const std::int64_t number =
      towardZero - static_cast<int>(static_cast<double>(towardZero) > cells);
  const double within = cells - static_cast<double>(number);
  const double size = (std::abs(a) + std::abs(b) * weight) * cellsPerUnit;
  const double near = reach + kRoundingOfDoubles * size;
  return {number, static_cast<int>(within > 1 - near) - static_cast<int>(within < near)};
}

TwinSearch::TwinSearch(float tolerence, std::span<const SegmentRow> known)
    : first_(kFirstWeight, tolerence),
      second_(kSecondWeight, tolerence),
      slots_(std::bit_ceil(2 * known.size() + 1)),
      ownSlot_(known.size()) {
  visitPlaces(known, [this](std::size_t row, const Place& place) {
    const std::uint64_t key = keyOf(place.first.number, place.second.number, place.type);
    const std::size_t slot = slotOf(key);
    slots_[slot] |= static_cast<Slot>(key) & ~kCount;
    countOneMore(slot);
    ownSlot_[row] = static_cast<std::uint32_t>(slot);
    if (place.isNearEdge()) nearEdges_.push_back({row, place});
  });
}

template <class Visit>
void TwinSearch::visitPlaces(std::span<const SegmentRow> rows, const Visit& visit) {
  for (std::size_t at = 0; at < rows.size(); ++at) {
    const SegmentRow& row = rows[at];
    anyBeyond_ = anyBeyond_ || !first_.holds(row.x0, row.y1) || !second_.holds(row.y0, row.x1);
    if (anyBeyond_) return;
    visit(at, {first_.cellOf(row.x0, row.y1), second_.cellOf(row.y0, row.x1), row.type});
  }
}

// The slot of the cell, or the free one where it would come.
std::size_t TwinSearch::slotOf(std::uint64_t key) const {
  const std::size_t last = slots_.size() - 1;
  const Slot mark = static_cast<Slot>(key) & ~kCount;
  std::size_t slot = static_cast<std::size_t>(key >> 32U) & last;
  while (slots_[slot] != 0 && (slots_[slot] & ~kCount) != mark) slot = (slot + 1) & last;
  return slot;
}

template <class Visit>
void TwinSearch::visitNeighbours(const Place& place, const Visit& visit) const {
  const std::int64_t firsts = place.first.next == 0 ? 1 : 2;
  const std::int64_t seconds = place.second.next == 0 ? 1 : 2;
  for (std::int64_t first = 0; first < firsts; ++first) {
    for (std::int64_t second = first == 0 ? 1 : 0; second < seconds; ++second) {
      visit(slotOf(keyOf(place.first.number + first * place.first.next,
                         place.second.number + second * place.second.next, place.type)));
    }
  }
}

std::vector<bool> TwinSearch::meet(std::span<const SegmentRow> others) {
  std::vector<bool> met(others.size());
  visitPlaces(others, [&](std::size_t row, const Place& place) {
    const auto meetAt = [&](std::size_t slot) {
      if (slots_[slot] == 0) return;
      countOneMore(slot);
      met[row] = true;
    };
    meetAt(slotOf(keyOf(place.first.number, place.second.number, place.type)));
    if (place.isNearEdge()) visitNeighbours(place, meetAt);
  });
  if (anyBeyond_) met.assign(others.size(), true);
  return met;
}

std::vector<bool> TwinSearch::matched() const {
  std::vector<bool> matched(ownSlot_.size(), anyBeyond_);
  if (anyBeyond_) return matched;
  for (std::size_t row = 0; row < ownSlot_.size(); ++row) {
    if ((slots_[ownSlot_[row]] & kCount) == kSeveral) matched[row] = true;
  }
  for (const NearEdge& edge : nearEdges_) {
    visitNeighbours(edge.place, [&](std::size_t slot) {
      if (slots_[slot] != 0) matched[edge.row] = true;
    });
  }
  return matched;
}

}  // namespace tess
