// The order in which path rows are cut.
#include "toolpath/path_order.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <map>
#include <utility>

#include "core/drawing_store.h"
#include "drafting/drafting_context.h"
#include "drafting/edit_steps.h"
#include "toolpath/path_groups.h"

namespace tess {
namespace {

Point startOf(const PathRow& row) {
  return {row.x0, row.y0};
}

Point endOf(const PathRow& row) {
  return {row.x1, row.y1};
}

// In 64 bits, where no coordinates are too far apart.
double wayBetween(Point from, Point to) {
  return std::hypot(static_cast<double>(to.x) - from.x, static_cast<double>(to.y) - from.y);
}

// The rows of a group, as places.
struct Block {
  std::vector<std::size_t> places;
  std::size_t tool = 0;  // the how manieth tool of the order
};

}  // namespace

PathOrder::PathOrder(const DrawingStore& store) : names_(store.pathgroupname) {
  rows_.reserve(static_cast<std::size_t>(store.NumPathSegments));
  for (int ps = 1; ps <= store.NumPathSegments; ++ps) rows_.push_back({pathRow(store, ps), ps});
}

const PathRow& PathOrder::row(int place) const {
  if (place < 1 || place > count()) throw subscriptOutOfRange();
  return rows_[static_cast<std::size_t>(place) - 1].row;
}

std::string PathOrder::nameOf(int group) {
  return pathGroupName(names_, group);
}

void PathOrder::exchangeRows(int a, int b) {
  if (std::min(a, b) < 1 || std::max(a, b) > count()) throw subscriptOutOfRange();
  std::swap(rows_[static_cast<std::size_t>(a) - 1], rows_[static_cast<std::size_t>(b) - 1]);
}

// The index from 0 of the group's first row, or of the place behind all rows.
std::size_t PathOrder::firstOf(int group) const {
  const auto isOfGroup = [group](const Placed& placed) {
    return groupCutOff(placed.row.code) == group;
  };
  const auto found = std::find_if(rows_.begin(), rows_.end(), isOfGroup);
  return static_cast<std::size_t>(found - rows_.begin());
}

// Fixed: only the first runs of two groups change places; a program is ordered by what is shown.
void PathOrder::exchangeGroups(int a, int b) {
  std::size_t first = firstOf(a);
  std::size_t second = firstOf(b);
  if (first == second || std::max(first, second) == rows_.size()) return;
  if (second < first) std::swap(first, second);
  const int moving = groupCutOff(rows_[second].row.code);
  std::size_t behind = second;
  while (behind < rows_.size() && groupCutOff(rows_[behind].row.code) == moving) ++behind;
  const auto at = [this](std::size_t index) {
    return rows_.begin() + static_cast<std::ptrdiff_t>(index);
  };
  std::rotate(at(first), at(second), at(behind));
}

void PathOrder::arrangeByTool(Point start) {
  std::vector<Block> blocks;
  std::map<int, std::size_t> blockOfGroup, rankOfTool;
  for (std::size_t k = 0; k < rows_.size(); ++k) {
    const PathRow& row = rows_[k].row;
    const auto [known, isNew] = blockOfGroup.try_emplace(groupCutOff(row.code), blocks.size());
    if (isNew) {
      const auto tool = rankOfTool.try_emplace(toolIndex(row.code), rankOfTool.size()).first;
      blocks.push_back({{}, tool->second});
    }
    blocks[known->second].places.push_back(k);
  }
  Point at = start;
  for (auto next = blocks.begin(); next != blocks.end(); ++next) {
    const auto isNearer = [&](const Block& a, const Block& b) {
      if (a.tool != b.tool) return a.tool < b.tool;
      return wayBetween(at, startOf(rows_[a.places.front()].row)) <
             wayBetween(at, startOf(rows_[b.places.front()].row));
    };
    const auto nearest = std::min_element(next, blocks.end(), isNearer);
    std::rotate(next, nearest, nearest + 1);  // of two that are as near, the earlier stays so
    at = endOf(rows_[next->places.back()].row);
  }
  std::vector<Placed> arranged;
  arranged.reserve(rows_.size());
  for (const Block& block : blocks) {
    for (const std::size_t place : block.places) arranged.push_back(rows_[place]);
  }
  rows_ = std::move(arranged);
}

float PathOrder::rapidLength() const {
  double length = 0;
  for (std::size_t k = 1; k < rows_.size(); ++k) {
    length += wayBetween(endOf(rows_[k - 1].row), startOf(rows_[k].row));
  }
  return static_cast<float>(std::min<double>(length, std::numeric_limits<float>::max()));
}

// The fewest rows that have to move, as places: the longest row of growing numbers stays.
std::vector<int> PathOrder::movedPlaces() const {
  std::vector<std::size_t> tails;  // of the growing rows of each length, with the lowest end
  std::vector<std::size_t> lengths;
  for (std::size_t k = 0; k < rows_.size(); ++k) {
    const auto isLower = [this](std::size_t tail, int number) {
      return rows_[tail].number < number;
    };
    const auto tail = std::lower_bound(tails.begin(), tails.end(), rows_[k].number, isLower);
    lengths.push_back(static_cast<std::size_t>(tail - tails.begin()) + 1);
    if (tail == tails.end()) {
      tails.push_back(k);
    } else {
      *tail = k;
    }
  }
  std::vector<int> moved;
  std::size_t wanted = tails.size();
  int lowest = std::numeric_limits<int>::max();
  for (std::size_t k = rows_.size(); k-- > 0;) {
    if (lengths[k] == wanted && rows_[k].number < lowest) {
      lowest = rows_[k].number;
      --wanted;
    } else {
      moved.push_back(static_cast<int>(k) + 1);
    }
  }
  std::reverse(moved.begin(), moved.end());
  return moved;
}

bool PathOrder::holds(const PathChanges& table) const {
  const auto isThere = [&table](const Placed& placed) {
    return table.row(placed.number) == placed.row;
  };
  return table.count() == count() && std::ranges::all_of(rows_, isThere);
}

bool PathOrder::keep(DraftingContext& context) const {
  Change change(context.changes);
  if (!holds(change.paths)) {
    throw RuntimeFailure(FailureNumber::InvalidProcedureCall, {},
                         "The path rows have changed since their order was copied.");
  }
  const Int16 placedLast = context.store.lastplacedgroup;
  moveRows(change.paths);
  context.store.lastplacedgroup = placedLast;
  if (!std::ranges::equal(names_.rows(), context.store.pathgroupname.rows())) {
    change.pathGroupNames() = names_;
  }
  return keepEdit(context, change, {.undoMark = kRowsAdded});
}

void PathOrder::moveRows(PathChanges& table) const {
  const std::vector<int> places = movedPlaces();
  if (places.empty()) return;
  std::vector<bool> visible{false};
  for (int ps = 1; ps <= table.count(); ++ps) visible.push_back(table.row(ps).visible);
  std::vector<std::int16_t> gone;
  std::vector<RowInsertion<PathRow>> come;
  for (const int place : places) {
    const Placed& placed = rows_[static_cast<std::size_t>(place) - 1];
    gone.push_back(Int16(placed.number));
    come.push_back({place - static_cast<int>(come.size()), placed.row});
  }
  std::sort(gone.begin(), gone.end());
  table.erase(gone);
  table.insert(come);
  const auto keepVisible = [&](int ps, PathRow& row) {
    const bool was = visible[static_cast<std::size_t>(ps)];
    return std::exchange(row.visible, was) != was;
  };
  table.replaceWhere(keepVisible, Entry::Unmarked);
}

}  // namespace tess
