// Plunges into material that no row before them has taken.
// Owns: findPlunges.
#pragma once

#include "toolpath/path_proof.h"
#include "toolpath/proof_groups.h"
#include "toolpath/told_moves.h"

namespace tess {

// Those among the moves of a program for rows of clearing and contour jobs, in the order of the
// moves. What is engraved on the line goes straight down, and is passed over. Rows whose plunges
// could not be looked at, since there are too many of them, are added to `unjudged` where the setup
// asks for entries.
std::vector<PlungeFinding> findPlunges(const DrawingStore& store,
                                       const std::vector<ProofGroup>& groups,
                                       const std::vector<ToldMove>& moves,
                                       std::vector<int>& unjudged, const Breathing& breathing = {});

}  // namespace tess
