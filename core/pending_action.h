// The numbers of the pending actions. A command arms one, and the next click completes it.
// Owns: PendingAction.
#pragma once

namespace tess {

// Scripts, the repeat key and the handbook know the numbers: they are fixed, and none is added.
enum class PendingAction : int {
  None = 0,
  Delete = 1,
  FlipArc = 2,
  ChangeRadius = 4,
  EntityInfo = 6,
  Move = 7,
  Copy = 8,
  Break = 9,
  MoveEndPoint = 10,
  NewPosition = 11,
  NewStartPosition = 12,
  ReverseArc = 14,
  TrimPick = 16,
  TrimBy = 17,
  JoinFirst = 18,
  JoinSecond = 19,
  FinishStart = 20,
  FinishDirection = 21,
  FinishReference = 22,
  Select = 24,
  Unselect = 25,
  PocketEntity = 26,
  IslandEntity = 27,
  ZoomWindow = 28,
  Pan = 29,
  PlaceText = 30,
  SelectContiguous = 31,
  UnselectContiguous = 32,
  PlaceCycle = 33,
  DeleteVertex = 34,
  SetOrigin = 35,
  Measure = 36,
  ScaleDrawing = 37,   // never armed: a number of the repeat key only
  EnterPosition = 38,  // the same
  StartRoughing = 39,
  GougeGroup = 41,
  ReversePath = 42,
  JoinArcFirst = 43,
  JoinArcSecond = 44,
  JoinArcThird = 45,
  FilletFirst = 46,
  FilletSecond = 47,
};

}  // namespace tess
