// The moves of a program that no row feeds along: rapids and plunges, as its own generator tells
// them.
// Owns: ToldMove, toldMoves.
#pragma once

#include <functional>
#include <optional>
#include <vector>

#include "core/motion_stream.h"

namespace tess {

struct ToldMove {
  int row = 0;                      // for which it is made
  std::optional<MoveReason> rapid;  // nothing for a plunge
  ToolPlace from, to;
};

// A row that a program cannot be made of ends the moves; what came before it is told.
std::vector<ToldMove> toldMoves(const std::function<void(MotionReader&)>& tell);

}  // namespace tess
