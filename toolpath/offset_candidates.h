// What an offset can consist of: every wall displaced by the distance, and an arc round every
// corner that stands into the free space.
// Owns: OffsetMeasures, OffsetCandidate, WallChain, OffsetCandidates.
#pragma once

#include <array>
#include <functional>
#include <vector>

#include "geometry/curve.h"

namespace tess {

struct OffsetMeasures {
  // `largestNumber` is the magnitude of the largest number in the walls.
  OffsetMeasures(double offsetDistance, double largestNumber);

  double distance;
  double slack;     // how far a place may be nearer to a wall, by rounding alone
  double shortest;  // tangent joints leave tails up to this length
  double reach;     // ends that belong together are no farther apart
  double corner;    // a hair of distance moves the corners of an offset by no more
};

// Some walls are known to be no nearer than the distance: its own, and lines beside it where the
// joint turns away.
struct OffsetCandidate {
  Curve curve;
  PlanePoint middle;
  double half = 0;       // no place is farther from the middle
  int source = 0;        // a wall
  bool reverse = false;  // run along it from its end
  std::array<int, 3> spared = {-1, -1, -1};
  bool isSpared(int wall) const {
    return wall == spared[0] || wall == spared[1] || wall == spared[2];
  }
};

// Walls that follow one another.
struct WallChain {
  int first = 0, last = 0;
  bool closed = true;
  bool reverse = false;  // run from end to start
};

class OffsetCandidates {
 public:
  OffsetCandidates(double distance, const std::vector<Curve>& walls);

  // Shows the candidates of a chain in their order, some at a time: all of them would not stay in
  // the processor's cache.
  using Visit = std::function<void(const std::vector<OffsetCandidate>&)>;
  void forChain(const WallChain& chain, const Visit& visit);

  // An arc is just too small for the distance, by so little that rounding may have done it.
  bool lostByAHair() const { return lostByAHair_; }

 private:
  // A wall as it is run along, with its directions at both ends and what the joint behind it does.
  struct Run {
    Curve curve;
    int wall = 0;
    bool reverse = false;
    PlanePoint in, out;
    bool turnsRight = false;  // by so much that there is an arc
    bool turnsAway = false;   // the rows beside the joint keep clear of each other's candidates
  };

  void take(int wall, bool reverse, Run& run) const;
  static void judgeJoint(Run& before, const Run& after);
  void addDisplaced(const Run& before, const Run& run, const Run& after);
  void addCorner(const Run& before, const Run& after);

  double distance_;
  const std::vector<Curve>& walls_;
  std::vector<OffsetCandidate> candidates_;  // that were not shown yet
  bool lostByAHair_ = false;
};

}  // namespace tess
