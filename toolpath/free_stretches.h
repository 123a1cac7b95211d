// What is left of the candidates of an offset where no wall is nearer than the distance.
// Owns: FreePiece, FreeStretches.
#pragma once

#include <algorithm>
#include <cmath>
#include <vector>

#include "geometry/curve_index.h"
#include "toolpath/forbidden_shares.h"
#include "toolpath/offset_candidates.h"

namespace tess {

// A free stretch of a candidate.
struct FreePiece {
  Curve curve;
  int source = 0;
  int next = -1;       // the piece that goes on where it ends
  bool taken = false;  // another one goes on with this
};

class FreeStretches {
 public:
  // Where walls may lie on one another, what both would give is the lower one's.
  enum class Overlaps {
    None,
    OneWay,    // in the same sense
    BothWays,  // in either sense: each wall gives candidates on both sides
  };
  FreeStretches(const CurveIndex& walls, const OffsetMeasures& measures, Overlaps overlaps)
      : walls_(walls), measures_(measures), overlaps_(overlaps) {}

  // Appends what is free of the candidates, in their order.
  void append(const std::vector<OffsetCandidate>& candidates, std::vector<FreePiece>& pieces);

  // A place of a candidate was forbidden by so little that rounding may have done it, and nothing
  // of the candidate beside it is free.
  bool lostByAHair() const { return lostByAHair_; }

 private:
  // An upright rectangle. It is not rounded to the numbers of the index, as boxes are.
  struct Extent {
    PlanePoint middle, half;
  };
  // With its surroundings.
  struct NearWall {
    PlanePoint middle, half;
    int number;
    // Most do not, and nobody could guess which: one comparison is quicker than two.
    bool reaches(const Extent& other) const {
      const double gapX = std::abs(other.middle.x - middle.x) - other.half.x - half.x;
      const double gapY = std::abs(other.middle.y - middle.y) - other.half.y - half.y;
      return std::max(gapX, gapY) <= 0;
    }
  };
  struct WallRange {
    ShareRange range;
    int wall;
  };

  static Extent extentOf(const OffsetCandidate& candidate);
  NearWall nearWall(int number) const;
  std::size_t gather(const std::vector<OffsetCandidate>& candidates, std::size_t first);
  void judge(const OffsetCandidate& candidate, std::vector<FreePiece>& pieces);
  void forbid(const OffsetCandidate& candidate, int number, double distance);
  void rememberWhole();
  bool liesDeepInLast(const OffsetCandidate& candidate);
  void leaveToOwner(const OffsetCandidate& candidate, Curve near);
  void add(const OffsetCandidate& candidate, ShareRange range, std::vector<FreePiece>& pieces);
  void lookForHair(const OffsetCandidate& candidate);
  bool isDeepIn(const OffsetCandidate& candidate) const;
  void forbidAgain(const OffsetCandidate& candidate, double distance);
  bool goesFarBeyond(const ShareRange& wider, const std::vector<ShareRange>& free,
                     double length) const;
  void findFree();
  const Curve& wall(int number) const { return walls_.curves()[static_cast<std::size_t>(number)]; }

  const CurveIndex& walls_;
  const OffsetMeasures& measures_;
  Overlaps overlaps_;
  bool lostByAHair_ = false;
  int last_ = -1;  // the wall that left nothing of a candidate
  std::vector<int> found_;
  std::vector<NearWall> near_;        // to the candidates in hand
  std::vector<WallRange> forbidden_;  // of the candidate in hand
  std::vector<ShareRange> free_;      // of it
  std::vector<ShareRange> ranges_;
};

}  // namespace tess
