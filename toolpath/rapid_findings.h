// Rapids that go through a wall, or through material that no row before them has taken.
// Owns: findRapids.
#pragma once

#include "toolpath/path_proof.h"
#include "toolpath/proof_groups.h"
#include "toolpath/told_moves.h"

namespace tess {

// Those among the moves of a program for the rows of these groups, in the order of the rows. Rows
// whose rapids could not be looked at, since there are too many of them, are added to `unjudged`.
std::vector<RapidFinding> findRapids(const DrawingStore& store,
                                     const std::vector<ProofGroup>& groups,
                                     const std::vector<ToldMove>& moves, std::vector<int>& unjudged,
                                     const Breathing& breathing = {});

}  // namespace tess
