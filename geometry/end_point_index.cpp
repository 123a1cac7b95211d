// The hashed end points: cells of sixteen tolerances, so that a point and all that is the same lie
// mostly in one cell, and in at most two along each axis.
#include "geometry/end_point_index.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstdint>

#include "core/drawing_store.h"

namespace tess {
namespace {

constexpr double kCellInTolerances = 16;
constexpr std::size_t kMinBuckets = 16;
// samePoint subtracts in 64 bits; a search must reach as far as its rounding does.
constexpr double kReachFactor = 1 + 1e-6;
constexpr double kRoundingShare = 1e-15;

// std::floor, without a call into the library for what fits an integer.
double floorOf(double value) {
  constexpr double kWholeLimit = 9e18;
  if (!(std::abs(value) < kWholeLimit)) return std::floor(value);
  const auto truncated = static_cast<double>(static_cast<std::int64_t>(value));
  return truncated > value ? truncated - 1 : truncated;
}

std::uint64_t mixed(std::uint64_t bits) {
  bits *= 0x9E3779B97F4A7C15ULL;
  return bits ^ (bits >> 32U);
}

// Both ends of one row may match, from different buckets: they make one answer.
void mergeRows(std::vector<EndMatch>& matches) {
  std::sort(matches.begin(), matches.end(),
            [](const EndMatch& a, const EndMatch& b) { return a.row < b.row; });
  std::size_t kept = 0;
  for (const EndMatch& match : matches) {
    if (kept == 0 || matches[kept - 1].row != match.row) {
      matches[kept++] = match;
    } else {
      matches[kept - 1].atStart |= match.atStart;
      matches[kept - 1].atEnd |= match.atEnd;
    }
  }
  matches.resize(kept);
}

}  // namespace

EndPointIndex::EndPointIndex(float tolerence)
    : tolerence_(tolerence),
      cellsPerUnit_(tolerence > 0 ? 1 / (kCellInTolerances * tolerence) : 0),
      heads_(kMinBuckets, kLast) {}

void EndPointIndex::update(int row, Point start, Point end) {
  remove(row);
  reserve(row);
  const auto entry = 2 * static_cast<std::size_t>(row);
  addEnd(entry + 1, end);
  addEnd(entry, start);
}

void EndPointIndex::remove(int row) {
  const auto entry = 2 * static_cast<std::size_t>(row);
  if (entry >= ends_.size() || ends_[entry].next == kAbsent) return;
  removeEnd(entry);
  removeEnd(entry + 1);
}

void EndPointIndex::rowsAt(Point at, std::vector<EndMatch>& matches) const {
  matches.clear();
  const Cells columns = cellsAround(at.x);
  const Cells rows = cellsAround(at.y);
  if (columns.count == 1 && rows.count == 1) {
    matchBucket(bucketOf(columns.at[0], rows.at[0]), at, matches);
  } else {
    matchBuckets(columns, rows, at, matches);
  }
  if (matches.size() > 1) mergeRows(matches);
}

// Different cells may share a bucket.
void EndPointIndex::matchBuckets(const Cells& columns, const Cells& rows, Point at,
                                 std::vector<EndMatch>& matches) const {
  std::array<std::size_t, 9> seen;
  std::size_t count = 0;
  for (int column = 0; column < columns.count; ++column) {
    for (int row = 0; row < rows.count; ++row) {
      const std::size_t bucket = bucketOf(columns.at[column], rows.at[row]);
      if (std::find(seen.begin(), seen.begin() + count, bucket) != seen.begin() + count) continue;
      seen[count++] = bucket;
      matchBucket(bucket, at, matches);
    }
  }
}

void EndPointIndex::reserve(int rows) {
  const auto size = 2 * (static_cast<std::size_t>(rows) + 1);
  if (size <= ends_.size()) return;
  ends_.resize(size);
  if (size > heads_.size()) rehash(std::bit_ceil(2 * size));
}

void EndPointIndex::addEnd(std::size_t entry, Point at) {
  int& head = heads_[bucketOf(at)];
  ends_[entry] = {at, head};
  head = static_cast<int>(entry);
}

void EndPointIndex::removeEnd(std::size_t entry) {
  int* link = &heads_[bucketOf(ends_[entry].at)];
  while (*link != static_cast<int>(entry)) link = &ends_[static_cast<std::size_t>(*link)].next;
  *link = ends_[entry].next;
  ends_[entry].next = kAbsent;
}

void EndPointIndex::rehash(std::size_t buckets) {
  heads_.assign(buckets, kLast);
  for (std::size_t entry = ends_.size(); entry-- > 0;) {
    if (ends_[entry].next != kAbsent) addEnd(entry, ends_[entry].at);
  }
}

// Without a tolerance the coordinate is its own cell. Adding 0 makes both zeros one.
double EndPointIndex::cellOf(double value) const {
  return (cellsPerUnit_ > 0 ? floorOf(value * cellsPerUnit_) : value) + 0.0;
}

std::size_t EndPointIndex::bucketOf(double cellX, double cellY) const {
  const std::uint64_t x = mixed(std::bit_cast<std::uint64_t>(cellX));
  const std::uint64_t y = std::bit_cast<std::uint64_t>(cellY);
  return mixed(x + y) & (heads_.size() - 1);
}

// The cells that values the same as this one may lie in: mostly one. Far out, where cells are finer
// than the coordinates, the value's own cell need not be among those of its neighbourhood's limits.
EndPointIndex::Cells EndPointIndex::cellsAround(float value) const {
  if (cellsPerUnit_ <= 0) return {{cellOf(value)}, 1};
  const double reach = tolerence_ * kReachFactor + std::abs(value) * kRoundingShare;
  const double limits[] = {cellOf(value - reach), cellOf(value + reach)};
  if (limits[0] == limits[1]) return {{limits[0]}, 1};
  Cells cells{{cellOf(value)}, 1};
  for (const double cell : limits) {
    if (std::find(cells.at, cells.at + cells.count, cell) == cells.at + cells.count)
      cells.at[cells.count++] = cell;
  }
  return cells;
}

void EndPointIndex::matchBucket(std::size_t bucket, Point at,
                                std::vector<EndMatch>& matches) const {
  for (int entry = heads_[bucket]; entry != kLast;) {
    const End& end = ends_[static_cast<std::size_t>(entry)];
    const bool isStart = entry % 2 == 0;
    if (samePoint(end.at, at, tolerence_)) matches.push_back({entry / 2, isStart, !isStart});
    entry = end.next;
  }
}

EndPointIndex segmentEndIndex(const DrawingStore& store, float tolerence) {
  EndPointIndex index(tolerence);
  const int rows = store.NumSegments;
  index.reserve(rows);
  for (int sg = rows; sg >= 1; --sg)
    index.update(sg, {store.x0[sg], store.y0[sg]}, {store.x1[sg], store.y1[sg]});
  return index;
}

EndPointIndex pathEndIndex(const DrawingStore& store, float tolerence) {
  EndPointIndex index(tolerence);
  const int rows = store.NumPathSegments;
  index.reserve(rows);
  for (int ps = rows; ps >= 1; --ps)
    index.update(ps, {store.psx0[ps], store.psy0[ps]}, {store.psx1[ps], store.psy1[ps]});
  return index;
}

EndPointIndex segmentEndIndex(const DrawingStore& store) {
  return segmentEndIndex(store, store.cfg_tolerance);
}

EndPointIndex pathEndIndex(const DrawingStore& store) {
  return pathEndIndex(store, store.cfg_tolerance);
}

}  // namespace tess
