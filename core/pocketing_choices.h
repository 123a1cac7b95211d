// What the settings of pocketing and finishing choose, by name. The store and the setup files keep
// numbers; nowhere else are they told apart.
// Owns: PocketingStyle, CuttingMode, StepOver, EntryKind, CornerOvercut, pocketingStyle,
//       cuttingMode, stepOver, entryKind, cornerOvercut, stepsByDistance, fillStepOver,
//       choiceNumber.
#pragma once

namespace tess {

struct DrawingSettings;

// A setup may hold another number too: it equals none of the names.
enum class PocketingStyle : int { Horizontal = 1, Vertical = 2, ParallelSpiral = 3 };
enum class CuttingMode : int { Conventional = 1, Climb = 2, Bidirectional = 3 };
enum class StepOver : int { ByPercent = 1, ByDistance = 2 };
// How a tool gets down into material. Holes are those that earlier path rows drill.
enum class EntryKind : int { Plunge = 0, Ramp = 1, Helix = 2, NearestHole = 3, HoleAtMarker = 4 };
// Into which inside corners a finish path drops.
enum class CornerOvercut : int { None = 0, AllCorners = 1, PickedCorners = 2 };

PocketingStyle pocketingStyle(const DrawingSettings& settings);
CuttingMode cuttingMode(const DrawingSettings& settings);
StepOver stepOver(const DrawingSettings& settings);
// A number that is none of these plunges.
EntryKind entryKind(const DrawingSettings& settings);
// A number that is none of these drops into no corner.
CornerOvercut cornerOvercut(const DrawingSettings& settings);

// True where passes go by a distance; otherwise by a percentage of the tool's diameter.
bool stepsByDistance(const DrawingSettings& settings);

// A step-over that was never chosen, 0, becomes that of the percentage.
void fillStepOver(DrawingSettings& settings);

// The number of a choice, in the settings and among the options of dialogs.
template <class Choice>
constexpr int choiceNumber(Choice choice) {
  return static_cast<int>(choice);
}

}  // namespace tess
