// The context of the tool-path commands: the drafting context they work on and what they remember
// between clicks. Commands are free functions on it.
// Owns: CamContext, showPlacedPaths.
#pragma once

#include <optional>

#include "core/int16.h"
#include "drafting/drafting_context.h"
#include "geometry/float_points.h"
#include "toolpath/path_groups.h"

namespace tess {

struct CamContext {
  // The drafting context gets to know the commands of this one.
  explicit CamContext(DraftingContext& drafting);
  CamContext(const CamContext&) = delete;
  CamContext& operator=(const CamContext&) = delete;

  DraftingContext& context;
  DrawingStore& store;
  Changes& changes;

  // Width and height of the outline last accepted as a pocket; 0 until then.
  float PocketXDim = 0, PocketYDim = 0;

  // The three clicks of a finish path and the number of its passes, which is 0 until the dialog of
  // the finish path was closed once.
  Int16 PlaceChain;  // 1 the whole chain, 0 one element
  Int16 numFinishPasses;
  Point finishStart, finishDirection;
  int finishSegment = 0;  // row number

  PathInsertMode pathInsertMode = PathInsertMode::Unset;
  Int16 pathInsertGroup;

  float roughFloor = 0;  // the deepest roughing level
  float currentZ = 0;    // the level being cut

  std::optional<int> selectedCycle;  // the template, from 0, that the next click places
};

// What placing commands end with: the paths are shown, the menu checks and the screen follow.
void showPlacedPaths(CamContext& cam);

}  // namespace tess
