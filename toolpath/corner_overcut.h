// Corner overcut: at an inside corner a round cutter leaves what a square mate would need. The path
// drops into the corner, straight from where the cutter touches both walls until it touches the
// corner itself, and comes back.
// Owns: CornerDrop, turnAt, WallSense, WallJoint, CornerWalls, CornerDrops, kLeastOvercutInch,
//       kLeastOvercutMm, InsideCorners, insideCorners.
#pragma once

#include <optional>
#include <span>
#include <vector>

#include "geometry/curve_index.h"

namespace tess {

struct CornerDrop {
  PlanePoint corner;  // of the walls
  PlanePoint place;   // this and the bottom of the cutter's centre
  PlanePoint bottom;
  double depth = 0;      // of the cutter's edge in the walls, at the bottom
  bool isClear = false;  // of all walls but those that meet in the corner
};

// How far a way turns from one curve into the next, in radians, positive to the left.
double turnAt(const Curve& before, const Curve& after);

// Free space is on the left of walls, or on either side of the rows of an open chain.
enum class WallSense { FreeLeft, Either };

// Two walls of an index, from 0, of which the second begins where the first ends.
struct WallJoint {
  int before = 0, after = 0;
};

// Many corners of the same walls. There is no drop any more once more walls were looked at than a
// drawing has corners.
class CornerWalls {
 public:
  CornerWalls(const CurveIndex& walls, WallSense sense) : walls_(walls), sense_(sense) {}

  // Into a corner: one, unless walls touch there; none where no walls meet, where they turn the
  // other way, and where the cutter does not come to touch both.
  std::vector<CornerDrop> dropsInto(PlanePoint corner, double radius);
  // Between two walls that turn to their free side.
  std::optional<CornerDrop> dropBetween(const WallJoint& joint, double radius);

 private:
  // A wall as it is followed to a corner, or from it.
  struct Side {
    Curve curve;
    int number = 0;
  };

  const Curve& wall(int number) const { return walls_.curves()[static_cast<std::size_t>(number)]; }
  const std::vector<int>& near(const Curve& curve, double distance);
  std::vector<Side> meetingAt(PlanePoint at, bool ends);
  std::vector<int> piecesOf(Side side, bool backward, const Curve& drop, double radius);
  bool touches(const std::vector<int>& pieces, PlanePoint place, double radius) const;
  bool keepsClear(const Curve& drop, std::span<const int> own, double radius);
  std::optional<CornerDrop> dropBetween(const Side& before, const Side& after, double radius);

  const CurveIndex& walls_;
  WallSense sense_;
  std::vector<int> near_;
  std::size_t effort_ = 0;  // walls that were looked at
};

// Drops by their places.
class CornerDrops {
 public:
  CornerDrops() = default;
  explicit CornerDrops(std::vector<CornerDrop> drops);

  const std::vector<CornerDrop>& drops() const { return drops_; }
  bool isEmpty() const { return drops_.empty(); }

  // Those that begin at a place, by their numbers from 0, and those whose bottom it is.
  std::vector<int> beginningAt(PlanePoint place) const { return places_.at(place); }
  std::vector<int> endingAt(PlanePoint bottom) const { return bottoms_.at(bottom); }
  // The first of which a move is all or a part, but for `slack`; -1 for none.
  int around(const Curve& move, double slack) const;

  // A way with the drops that begin at its joints.
  std::vector<Curve> putInto(const std::vector<Curve>& way) const;
  // A part of such a way, prolonged to the places of drops in which it begins or ends.
  void completeEnds(std::vector<Curve>& part) const;

 private:
  // Ends of drops in the order along a slanting line: most joints of a way are no such end.
  class Ends {
   public:
    void add(PlanePoint end, int drop);
    void sort();
    std::vector<int> at(PlanePoint place) const;

   private:
    struct End {
      double along = 0;
      PlanePoint at;
      int drop = 0;
    };
    std::vector<End> ends_;
  };

  std::vector<CornerDrop> drops_;
  Ends places_, bottoms_;
  CurveIndex index_;  // of the lines from the places to the bottoms
};

// A corner of which the cutter leaves less needs no drop.
inline constexpr double kLeastOvercutInch = 0.0005;
inline constexpr double kLeastOvercutMm = 0.0125;

// The inside corners beside a path along walls.
struct InsideCorners {
  std::vector<CornerDrop> drops;  // into those where nothing stands in the way
  int blocked = 0;                // the others: another wall would be cut, or the cutter spans them
};

// Of these joints, for ways at the distance of the cutter's radius from the walls, which have free
// space on their left. Where the cutter leaves less than `least` there is no corner.
InsideCorners insideCorners(const CurveIndex& walls, std::span<const WallJoint> joints,
                            const std::vector<std::vector<Curve>>& ways, double radius,
                            double least);

}  // namespace tess
