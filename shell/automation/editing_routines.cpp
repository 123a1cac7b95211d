// `call` for editing: the work of the edit menu's tools on rows by number and on places.
#include "shell/automation/editing_routines.h"

#include "drafting/break_segment.h"
#include "drafting/entity_info.h"
#include "drafting/fillet.h"
#include "drafting/move_end_points.h"
#include "drafting/remove_vertex.h"
#include "drafting/row_edits.h"
#include "drafting/trim.h"

namespace tess {
namespace {

DraftingContext& contextOf(Application& application) {
  return application.interaction.context;
}

Changes& changesOf(Application& application) {
  return contextOf(application).changes;
}

// What scripts are told: fixed, since they compare it.
int codeOf(BreakResult result) {
  switch (result) {
    case BreakResult::Broken:
      return 0;
    case BreakResult::NoRow:
      return -1;
    case BreakResult::AtEnd:
      return -6;
  }
  return 0;
}

int codeOfTrim(bool trimmed) {
  return trimmed ? 0 : -1;
}

constexpr Routine kRoutines[] = {
    routine("deleteSegment",
            [](Application& application, Int16 sg) { deleteSegment(changesOf(application), sg); }),
    routine("deletePathSegment", [](Application& application,
                                    Int16 ps) { deletePathSegment(changesOf(application), ps); }),
    routine("breakSegment",
            [](Application& application, Int16 sg, float x, float y) {
              return codeOf(breakSegment(changesOf(application), sg, {x, y}));
            }),
    routine("breakPathSegment",
            [](Application& application, Int16 ps, float x, float y) {
              return codeOf(breakPathSegment(changesOf(application), ps, {x, y}));
            }),
    routine("trimSegment",
            [](Application& application, Int16 sg, Int16 trimmer, float x, float y) {
              return codeOfTrim(trimSegment(changesOf(application), sg, trimmer, {x, y}));
            }),
    routine("trimPathSegment",
            [](Application& application, Int16 ps, Int16 trimmer, float x, float y) {
              return codeOfTrim(trimPathSegment(changesOf(application), ps, trimmer, {x, y}));
            }),
    routine("moveEndpoints",
            [](Application& application, float oldx, float oldy, float newx, float newy) {
              moveEndpoints(changesOf(application), {oldx, oldy}, {newx, newy});
            }),
    routine("movePathEndpoints",
            [](Application& application, float oldx, float oldy, float newx, float newy) {
              movePathEndpoints(changesOf(application), {oldx, oldy}, {newx, newy});
            }),
    routine("addFillet",
            [](Application& application, Int16 sgA, Int16 sgB, float radius) {
              DraftingContext& context = contextOf(application);
              tellFillet(context, addFillet(context.changes, sgA, sgB, radius));
            }),
    routine("addPathFillet",
            [](Application& application, Int16 psA, Int16 psB, float radius) {
              DraftingContext& context = contextOf(application);
              tellFillet(context, addPathFillet(context.changes, psA, psB, radius));
            }),
    routine("joinedLineCount",
            [](DrawingStore& store, float x, float y) {
              return joinedLineCount(store, {x, y});
            }),
    routine("joinedPathCount",
            [](DrawingStore& store, float x, float y) {
              return joinedPathCount(store, {x, y});
            }),
    routine("entityInfo", [](Application& application,
                             Int16 sg) { return entityInfo(contextOf(application), sg); }),
    routine("pathEntityInfo", [](Application& application,
                                 Int16 ps) { return pathEntityInfo(contextOf(application), ps); }),
};

}  // namespace

std::span<const Routine> editingRoutines() {
  return kRoutines;
}

}  // namespace tess
