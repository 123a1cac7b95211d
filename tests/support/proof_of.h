// The path proof of a drawing, with the motions of the program's own generator.
// Owns: proofMotions, proofOf.
#pragma once

#include "cnc/program_motions.h"
#include "toolpath/path_proof.h"

namespace tess::testing {

inline ProofMotions proofMotions(const DrawingStore& store) {
  return {[&store](MotionReader& reader) { tellMotions(store, CncMode::Mill, reader); },
          [&store](MotionReader& reader) { tellMotions(store, CncMode::Lathe, reader); }};
}

inline PathProof proofOf(const DrawingStore& store, const PathJobs& jobs = {}) {
  return provePaths(store, jobs, proofMotions(store));
}

}  // namespace tess::testing
