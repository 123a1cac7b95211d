// The settings of a drawing as variables; a setup file holds the same.
// Owns: DrawingSettings.
#pragma once

#include <string>

#include "core/int16.h"
#include "core/settings_list.h"

namespace tess {

// In the order of the setup file. Lengths are in drawing units, feeds in
// drawing units per minute.
struct DrawingSettings {
#define TESSIMO_VARIABLE(variable, width, kind, key, goesTo, reading) width variable{};
#define TESSIMO_NOTHING(...)
  TESSIMO_SETTINGS(TESSIMO_VARIABLE, TESSIMO_NOTHING, TESSIMO_NOTHING)
#undef TESSIMO_VARIABLE
#undef TESSIMO_NOTHING

  DrawingSettings();
  DrawingSettings(const DrawingSettings& other);
  DrawingSettings& operator=(const DrawingSettings& other);
  ~DrawingSettings();
};

}  // namespace tess
