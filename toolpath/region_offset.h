// Offsets of regions: the places that are at least a distance from every wall.
//
// Each wall is displaced by the distance, and each corner that stands into the free space gives an
// arc. Of these, what no wall at all is nearer to is the offset: each place is judged alone, by its
// distance, and no fold has to be found or cut.
// Owns: RegionOffset, offsetRegion, kHairWidth, fittedOffset, Room, roomsOf, outerRound,
//       ChainOffset, chainOffset.
#pragma once

#include <vector>

#include "core/cancellable_work.h"
#include "toolpath/pocket_region.h"

namespace tess {

struct RegionOffset {
  // The sources of its loops are walls of the region; an arc round a corner has the wall before it.
  PocketRegion region;
  std::vector<PlanePoint> lost;  // places of loops that could not be closed
};

// `distance` is not negative; 0 gives the region itself.
RegionOffset offsetRegion(const PocketRegion& region, double distance,
                          const Breathing& breathing = {});

// A slot or a hole of exactly a tool's size may be too narrow for it by what rounding took, all of
// it or somewhere. Rooms that only a distance smaller by so much shows whole are offset by that.
inline constexpr double kHairWidth = 0.00002;
RegionOffset fittedOffset(const PocketRegion& region, double distance,
                          const Breathing& breathing = {});

// One outer loop and the holes in it: the tool cannot pass from room to room.
struct Room {
  int outer = 0;
  std::vector<int> holes;
};
std::vector<Room> roomsOf(const PocketRegion& region);

// The smallest outer loop, other than loop `number`, round most places of a loop; -1 for none.
int outerRound(const PocketRegion& region, const RegionLoop& loop, int number = -1);

// The offset of an open chain to its left, in stretches that are joined in its order; no place of
// them is nearer to the chain than the distance.
struct ChainOffset {
  std::vector<std::vector<Curve>> stretches;
};
ChainOffset chainOffset(const std::vector<Curve>& chain, double distance,
                        const Breathing& breathing = {});

}  // namespace tess
