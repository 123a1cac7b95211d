// Rows by the cells of two numbers made of their ends.
#include "drafting/twin_search.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <numeric>

#include "drafting/seen_numbers.h"

namespace tess {
namespace {

// Of each end one coordinate, so that the cells part rows of one direction too.
constexpr double kFirstWeight = 3.1416, kSecondWeight = 2.7183;
// So wide that few rows lie near an edge; for rows that share such a cell with others so narrow
// that hardly any do.
constexpr double kWideCell = 32, kNarrowCell = 8;  // tolerances
constexpr double kNarrowestCell = 1e-6;
constexpr double kRoundingOfReach = 1.001;
// As far out the rounding of doubles is that part of a cell; beyond, cells are not told apart.
constexpr double kFarthestCell = 1LL << 43;
constexpr double kRoundingOfCells = 0.01;
// Added to a smaller number it leaves the nearest whole one in the last bits.
constexpr double kWholeNumbers = 3LL << 51;

// Where a row lies: a number for its cell, and what leads to the cells beside it that may hold rows
// which match; 0 where none does.
struct Place {
  std::uint64_t cell, towardFirst, towardSecond;

  bool isNearEdge() const { return (towardFirst | towardSecond) != 0; }
  template <class Visit>
  void visitNeighbours(const Visit& visit) const {
    if (towardFirst != 0) visit(cell + towardFirst);
    if (towardSecond != 0) visit(cell + towardSecond);
    if (towardFirst != 0 && towardSecond != 0) visit(cell + towardFirst + towardSecond);
  }
};

// One of the two numbers, a * 1 + b * weight, and its cells.
class Axis {
 public:
  Axis(double weightOfB, double tolerence, double cell, std::uint64_t step)
      : weight_(weightOfB), step_(step) {
    const double wide = kRoundingOfReach * (1 + weight_) * tolerence;
    cellsPerUnit_ = 1 / std::max(cell * wide, kNarrowestCell);
    inside_ = 0.5 - wide * cellsPerUnit_ - kRoundingOfCells;
    farthest_ = kFarthestCell / cellsPerUnit_ / (1 + weight_);
  }

  // Not so for what is no number either.
  bool holds(double a, double b) const {
    return std::abs(a) < farthest_ && std::abs(b) < farthest_;
  }

  // Adds the cell to `cell`; `toward` becomes what leads beside it.
  void addTo(std::uint64_t& cell, std::uint64_t& toward, double a, double b) const {
    const double cells = (a + b * weight_) * cellsPerUnit_;
    const double shifted = cells + kWholeNumbers;
    const double within = cells - (shifted - kWholeNumbers);
    cell += std::bit_cast<std::uint64_t>(shifted) * step_;
    toward = std::abs(within) <= inside_ ? 0 : within > 0 ? step_ : 0 - step_;
  }

 private:
  double weight_, cellsPerUnit_ = 0;
  double inside_ = 0;  // from the middle of a cell to where its neighbour comes near
  double farthest_ = 0;
  std::uint64_t step_;
};

// The rows of a list that may match, less with each round.
struct Candidates {
  explicit Candidates(std::span<const SegmentRow> list) : rows(list), left(list.size()) {
    std::iota(left.begin(), left.end(), 0U);
  }
  std::span<const SegmentRow> rows;
  std::vector<std::uint32_t> left;
};

// One look at all rows that are left.
class Round {
 public:
  Round(float tolerence, unsigned number, std::size_t known)
      : first_(kFirstWeight, tolerence, cellOf(number), 0x9E3779B97F4A7C15ULL),
        second_(kSecondWeight, tolerence, cellOf(number), 0xC2B2AE3D27D4EB4FULL),
        once_(known, number),
        again_(known, number) {}

  // Leaves the rows in whose cell, or beside it, another one of the first list may be. False when
  // some cannot be told apart.
  bool sift(std::span<Candidates> lists) {
    Candidates& known = lists.front();
    enter(known);
    for (Candidates& others : lists.subspan(1)) {
      std::erase_if(others.left,
                    [&](std::uint32_t row) { return !meets(placeOf(others.rows[row])); });
    }
    leaveMet(known);
    return held_;
  }

 private:
  struct NearEdge {
    std::size_t n;  // of the rows of the first list that are left
    Place place;
  };

  static double cellOf(unsigned round) { return round == 0 ? kWideCell : kNarrowCell; }

  Place placeOf(const SegmentRow& row) {
    Place place{static_cast<std::uint64_t>(row.type), 0, 0};
    first_.addTo(place.cell, place.towardFirst, row.x0, row.y1);
    second_.addTo(place.cell, place.towardSecond, row.y0, row.x1);
    held_ = held_ && first_.holds(row.x0, row.y1) && second_.holds(row.y0, row.x1);
    return place;
  }

  void enter(const Candidates& known) {
    cells_.reserve(known.left.size());
    for (const std::uint32_t row : known.left) {
      const Place place = placeOf(known.rows[row]);
      if (once_.meet(place.cell)) again_.meet(place.cell);
      if (place.isNearEdge()) nearEdges_.push_back({cells_.size(), place});
      cells_.push_back(place.cell);
    }
  }

  bool meets(const Place& place) {
    bool met = false;
    const auto look = [&](std::uint64_t cell) {
      if (!once_.has(cell)) return;
      again_.meet(cell);
      met = true;
    };
    look(place.cell);
    if (place.isNearEdge()) place.visitNeighbours(look);
    return met;
  }

  void leaveMet(Candidates& known) const {
    std::vector<bool> metBeside(cells_.size());
    for (const NearEdge& edge : nearEdges_) {
      edge.place.visitNeighbours([&](std::uint64_t cell) {
        if (once_.has(cell)) metBeside[edge.n] = true;
      });
    }
    std::size_t n = 0;
    std::erase_if(known.left, [&](std::uint32_t /*row*/) {
      const bool met = metBeside[n] || again_.has(cells_[n]);
      ++n;
      return !met;
    });
  }

  Axis first_, second_;
  SeenNumbers once_, again_;          // cells of known rows, and those of another row too
  std::vector<std::uint64_t> cells_;  // of the known rows
  std::vector<NearEdge> nearEdges_;
  bool held_ = true;
};

// Round after round until none is left, or those that are stay.
void sift(float tolerence, std::vector<Candidates>& lists) {
  const auto count = [&lists] { return lists.front().left.size(); };
  std::size_t before = 0;
  for (unsigned round = 0; count() > 0 && (round < 2 || 2 * count() < before); ++round) {
    before = count();
    if (Round(tolerence, round, before).sift(lists)) continue;
    // Beyond the farthest cell every row may match every other.
    for (Candidates& list : lists) list = Candidates(list.rows);
    return;
  }
  if (count() > 0) return;
  for (Candidates& list : lists) list.left.clear();
}

}  // namespace

std::vector<std::vector<bool>> rowsThatMayMatch(
    float tolerence, std::span<const std::span<const SegmentRow>> lists) {
  std::vector<Candidates> candidates(lists.begin(), lists.end());
  sift(tolerence, candidates);
  std::vector<std::vector<bool>> mayMatch;
  for (const Candidates& list : candidates) {
    std::vector<bool>& marks = mayMatch.emplace_back(list.rows.size());
    for (const std::uint32_t row : list.left) marks[row] = true;
  }
  return mayMatch;
}

}  // namespace tess
