// The drawing as a vector picture in real units.
// Owns: svgPicture.
#pragma once

#include <string>

#include "core/host.h"

namespace tess {

struct DrawingStore;

// An SVG document in which a drawing unit is an inch or a millimetre as the drawing has it, with a
// margin round all that there is. Raises what vectorPicture does.
std::string svgPicture(const DrawingStore& store, Prompts& prompts);

}  // namespace tess
