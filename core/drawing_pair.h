// The two files of a drawing on the disk, the drawing and its paths: read as they belong together,
// whatever other processes do meanwhile, and known again later.
// Owns: pairState, restamped, PairContent, readPair.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "core/drawing_recovery.h"
#include "core/open_drawing.h"
#include "core/runtime_failure.h"

namespace tess {

// The state of these files now. One that has its stamp of `known` is not read again.
PairState pairState(const std::vector<std::string>& paths, const PairState& known = {});

// The same content with the stamps that these files have now: after they were written.
PairState restamped(PairState state, const std::vector<std::string>& paths);

struct PairContent {
  std::string drawing;
  std::optional<std::string> paths;
  std::optional<RuntimeFailure> pathsFailure;  // why a path file that is there cannot be read
  PairState state;
  bool recovered = false;  // their last save had been cut off
};

// Both files as one save left them, also while another is going on. What had to be settled before
// is added to `recoveries`. Raises what readFile raises for the drawing.
PairContent readPair(const WriteGuard& guard, const std::vector<std::string>& paths,
                     std::vector<Recovery>& recoveries);

}  // namespace tess
