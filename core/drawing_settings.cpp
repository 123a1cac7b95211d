// The settings of a drawing.
#include "core/drawing_settings.h"

namespace tess {

// A file that lacks the origins means these.
DrawingSettings::DrawingSettings() {
  xorigin = 1;
  yorigin = 1;
  zorigin = -1;
}

// With a hundred members to each these are long, and made here once for all files that hold
// settings.
DrawingSettings::DrawingSettings(const DrawingSettings& other) = default;
DrawingSettings& DrawingSettings::operator=(const DrawingSettings& other) = default;
DrawingSettings::~DrawingSettings() = default;

}  // namespace tess
