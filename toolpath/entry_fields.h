// The fields of a dialog that tell how a tool gets into the material.
// Owns: EntryControls, EntryFields.
#pragma once

#include "core/controls.h"
#include "core/pocketing_choices.h"

namespace tess {

struct DrawingStore;

// The indices of optEntry are the values of "entry kind".
struct EntryControls {
  Frame& fraEntry;
  ControlArray<Option>& optEntry;
  Label& lblEntryAngle;
  TextBox& txtEntryAngle;
  Label& lblEntryRadius;
  TextBox& txtEntryRadius;
  Label& lblEntryFeed;
  TextBox& txtEntryFeed;
};

// Names and wires the controls; they must outlive it.
class EntryFields {
 public:
  EntryFields(DrawingStore& store, const EntryControls& controls);

  // Shows the settings.
  void load();
  // Writes the settings. Raises Type mismatch, and writes nothing, when a text is no number.
  void takeOver() const;
  // Only true paths have entries.
  void setEnabled(bool enabled) { controls_.fraEntry.setEnabled(enabled); }

 private:
  void choose(EntryKind kind);

  DrawingStore& store_;
  EntryControls controls_;
  EntryKind chosen_ = EntryKind::Plunge;
};

}  // namespace tess
