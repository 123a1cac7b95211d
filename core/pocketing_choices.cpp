// What the settings of pocketing and finishing choose.
#include "core/pocketing_choices.h"

#include "core/drawing_store.h"

namespace tess {

PocketingStyle pocketingStyle(const DrawingSettings& settings) {
  return static_cast<PocketingStyle>(int{settings.cfg_pocketing_style});
}

CuttingMode cuttingMode(const DrawingSettings& settings) {
  return static_cast<CuttingMode>(int{settings.cfg_cutting_mode});
}

StepOver stepOver(const DrawingSettings& settings) {
  return static_cast<StepOver>(int{settings.cfg_cut_width_type});
}

EntryKind entryKind(const DrawingSettings& settings) {
  const int kind = settings.cfg_entry_kind;
  const bool isKnown =
      kind >= choiceNumber(EntryKind::Plunge) && kind <= choiceNumber(EntryKind::HoleAtMarker);
  return isKnown ? static_cast<EntryKind>(kind) : EntryKind::Plunge;
}

CornerOvercut cornerOvercut(const DrawingSettings& settings) {
  const int corners = settings.cfg_corner_overcut;
  const bool isKnown = corners == choiceNumber(CornerOvercut::AllCorners) ||
                       corners == choiceNumber(CornerOvercut::PickedCorners);
  return isKnown ? static_cast<CornerOvercut>(corners) : CornerOvercut::None;
}

bool stepsByDistance(const DrawingSettings& settings) {
  return settings.cfg_tool_spacing_distance > 0 && stepOver(settings) == StepOver::ByDistance;
}

void fillStepOver(DrawingSettings& settings) {
  if (settings.cfg_cut_width_type == 0) {
    settings.cfg_cut_width_type = choiceNumber(StepOver::ByPercent);
  }
}

}  // namespace tess
