// The order in which path rows are cut, as a copy to be changed: nothing comes of it until it is
// kept. Groups are read cut off (groupCutOff), as the tables show them.
// Owns: PathOrder.
#pragma once

#include <string>
#include <vector>

#include "core/column.h"
#include "core/drawing_rows.h"
#include "geometry/float_points.h"

namespace tess {

class PathChanges;
struct DraftingContext;
struct DrawingStore;

// Places count from 1, in the order as it is now.
class PathOrder {
 public:
  explicit PathOrder(const DrawingStore& store);

  int count() const { return static_cast<int>(rows_.size()); }
  const PathRow& row(int place) const;
  int group(int place) const { return groupCutOff(row(place).code); }
  // A group begins here, or goes on after another one.
  bool startsRun(int place) const { return place == 1 || group(place - 1) != group(place); }
  // A blank one becomes "Group " and the number.
  std::string nameOf(int group);

  void exchangeRows(int a, int b);
  // The first unbroken runs of two groups change places, with what lies between them behind the
  // one that comes first now. A group that is not there changes nothing.
  void exchangeGroups(int a, int b);
  // Groups by tool, in the order in which the tools come now, and those of one tool by the
  // shortest way from where the one before ends, the first from `start`. A group's rows keep their
  // order; its tool is that of its first row.
  void arrangeByTool(Point start);

  // The ways from the end of each row to the start of the next.
  float rapidLength() const;

  // Brings the rows of the table into this order, as one step of the log in which only rows are
  // moved that have to, and the names of the groups with them. Whether a row is shown stays with
  // its number. False when the operator would not have it. Raises Invalid procedure call when the
  // rows have become others since they were copied.
  bool keep(DraftingContext& context) const;

 private:
  struct Placed {
    PathRow row;
    int number = 0;  // in the table
  };

  std::size_t firstOf(int group) const;
  bool holds(const PathChanges& table) const;
  std::vector<int> movedPlaces() const;
  void moveRows(PathChanges& table) const;

  std::vector<Placed> rows_;
  Column<std::string> names_;
};

}  // namespace tess
