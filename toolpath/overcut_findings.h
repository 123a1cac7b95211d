// Corners that are cut over on purpose: which moves of a group are the drops that its job has
// noted, and how far these reach.
// Owns: OvercutFinding, MeantDrops.
#pragma once

#include <map>
#include <vector>

#include "toolpath/corner_overcut.h"

namespace tess {

struct ProofGroup;

struct OvercutFinding {
  int group = 0;
  double x = 0, y = 0;  // of the corner
  double depth = 0;     // of the edge of the tool in the walls; 0 where no row drops
  double left = 0;      // between the corner and what is cut at the floor

  bool reachesCorner() const;
};

// The note alone is not enough: a drop runs straight between the place where the tool touches both
// walls of the corner and the one where it touches the corner, and touches no other wall.
class MeantDrops {
 public:
  // For a tool of that radius; `slack` is what counts as no gouge.
  MeantDrops(const ProofGroup& group, double radius, double slack);

  // Whether a move of a tool is a drop, or a part of one.
  bool accepts(const Curve& move, double radius);
  // Takes down how far a move at the floor of the group reaches.
  void measure(const Curve& move, double radius);

  // Of all corners that have been noted and are corners, in their order.
  const std::vector<OvercutFinding>& findings() const { return findings_; }

 private:
  struct OfRadius {
    CornerDrops drops;
    std::vector<std::size_t> findingOf;
  };
  const OfRadius& ofRadius(double radius);

  CornerWalls walls_;
  double slack_;
  std::vector<OvercutFinding> findings_;
  std::map<double, OfRadius> byRadius_;
};

}  // namespace tess
