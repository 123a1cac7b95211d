// `call` for copies and transforms: the work of the edit menu's tools on many rows at once.
#include "shell/automation/transform_routines.h"

#include <string>
#include <tuple>

#include "drafting/copy_paste.h"
#include "drafting/mirror.h"
#include "drafting/move_rows.h"
#include "drafting/rotate.h"
#include "drafting/scale_drawing.h"
#include "toolpath/bolt_circle.h"

namespace tess {
namespace {

DraftingContext& contextOf(Application& application) {
  return application.interaction.context;
}

constexpr Routine kRoutines[] = {
    routine("Copy_segment", [](Application& application) { Copy_segment(contextOf(application)); }),
    routine("Paste_segment",
            [](Application& application) { Paste_segment(contextOf(application)); }),
    routine("Clear_Paste", [](Application& application) { Clear_Paste(contextOf(application)); }),
    routine("moveAll", [](Application& application, float dx, float dy,
                          Int16 start) { moveAll(contextOf(application).changes, dx, dy, start); }),
    routine("moveSelected", [](Application& application, float dx,
                               float dy) { moveSelected(contextOf(application).changes, dx, dy); }),
    routine("scaleSegments",
            [](Application& application, float factor, bool selectedOnly) {
              scaleSegments(contextOf(application).changes, factor, selectedOnly);
            }),
    routine("mirrorCoord", [](float c, float m) { return mirrorCoord(c, m); }),
    routine("rotatePoint",
            [](float cx, float cy, float x, float y, float degrees) {
              const Point turned = rotatePoint({cx, cy}, {x, y}, degrees);
              return std::tuple{turned.x, turned.y};
            }),
    routine("fieldOfItem", [](const std::string& name,
                              const std::string& item) { return fieldOfItem(name, item); }),
};

}  // namespace

std::span<const Routine> transformRoutines() {
  return kRoutines;
}

}  // namespace tess
