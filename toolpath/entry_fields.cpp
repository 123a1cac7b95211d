// The fields of the entry.
#include "toolpath/entry_fields.h"

#include "core/drawing_store.h"
#include "core/number_text.h"
#include "core/settings.h"

namespace tess {
namespace {

// What a ramp has that nobody has given an angle.
constexpr const char* kUsualAngle = "3";

}  // namespace

EntryFields::EntryFields(DrawingStore& store, const EntryControls& controls)
    : store_(store), controls_(controls) {
  controls_.fraEntry.setCaption(" Entry into Material ");
  const auto name = [this](EntryKind kind, const char* caption) {
    controls_.optEntry[choiceNumber(kind)].setCaption(caption);
  };
  name(EntryKind::Plunge, "Plunge");
  name(EntryKind::Ramp, "Ramp");
  name(EntryKind::Helix, "Helix");
  name(EntryKind::NearestHole, "Nearest Drilled Hole");
  name(EntryKind::HoleAtMarker, "Drilled Hole at Marker");
  controls_.lblEntryAngle.setCaption("Ramp Angle :");
  controls_.lblEntryRadius.setCaption("Helix Radius :");
  controls_.lblEntryFeed.setCaption("Entry Feed Rate :");
  controls_.optEntry.onClick = [this](int index) { choose(static_cast<EntryKind>(index)); };
}

void EntryFields::load() {
  controls_.txtEntryAngle.setText(plainText(store_.cfg_entry_angle));
  controls_.txtEntryRadius.setText(plainText(store_.cfg_entry_radius));
  controls_.txtEntryFeed.setText(plainText(store_.cfg_entry_feedrate));
  controls_.optEntry[choiceNumber(entryKind(store_))].setValue(true);
}

void EntryFields::takeOver() const {
  const DrawingSettings before = store_;
  try {
    setSettingText(store_, *findSetting("entry angle"), controls_.txtEntryAngle.text());
    setSettingText(store_, *findSetting("entry radius"), controls_.txtEntryRadius.text());
    setSettingText(store_, *findSetting("entry feedrate"), controls_.txtEntryFeed.text());
  } catch (...) {
    static_cast<DrawingSettings&>(store_) = before;
    throw;
  }
  store_.cfg_entry_kind = choiceNumber(chosen_);
}

// Where a hole or a helix does not serve, the tool goes down by a ramp.
void EntryFields::choose(EntryKind kind) {
  chosen_ = kind;
  const bool goesDown = kind != EntryKind::Plunge;
  const bool hasAngle = parseFloat(controls_.txtEntryAngle.text()) != 0;
  if (goesDown && !hasAngle) controls_.txtEntryAngle.setText(kUsualAngle);
  Control* const sloping[] = {&controls_.lblEntryAngle, &controls_.txtEntryAngle,
                              &controls_.lblEntryFeed, &controls_.txtEntryFeed};
  for (Control* const control : sloping) control->setEnabled(goesDown);
  controls_.lblEntryRadius.setEnabled(kind == EntryKind::Helix);
  controls_.txtEntryRadius.setEnabled(kind == EntryKind::Helix);
}

}  // namespace tess
