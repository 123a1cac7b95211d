// Arcs turned over.
#include "drafting/flip_arc.h"

#include "drafting/drafting_commands.h"
#include "drafting/edit_steps.h"
#include "drafting/entity_creation.h"
#include "drafting/pending_actions.h"

namespace tess {
namespace {

Entity reversed(Entity arc) {
  arc.type = kClockwiseArc + kCounterClockwiseArc - arc.type;
  return arc;
}

Entity flipped(Entity arc) {
  arc.center = reflectThroughMidpoint(arc.start, arc.end, arc.center);
  return reversed(arc);
}

template <Entity (*turned)(Entity)>
void clickArc(DraftingContext& context) {
  onEditedTable(context, [&context](auto table) {
    const int number = table.nearestArc(context.store, mouseOf(context));
    if (number < 1) return;
    reshapeRow(context.changes, table, number, turned(table.entity(context.store, number)),
               kDrawnByTheClick);
    context.state.updateProperties = true;
  });
}

template <Entity (*turned)(Entity)>
std::vector<SegmentRow> hoverArc(const DraftingContext& context) {
  return onEditedTable(context, [&context](auto table) -> std::vector<SegmentRow> {
    const int number = table.nearestArc(context.store, hoverPoint(context));
    if (number < 1) return {};
    return {segmentRowOf(turned(table.entity(context.store, number)))};
  });
}

}  // namespace

void mnuEditFlipArc_Click(DraftingContext& context) {
  arm(context, PendingAction::FlipArc);
}

void mnuEditRevArc_Click(DraftingContext& context) {
  arm(context, PendingAction::ReverseArc);
}

// ---- Descriptors

namespace {

constexpr Action<DraftingContext> kFlipArcActions[] = {
    {{.action = PendingAction::FlipArc,
      .prompt = "Click near arc to flip.",
      .left = "flips the nearest arc"},
     clickArc<flipped>,
     hoverArc<flipped>},
};

constexpr Action<DraftingContext> kReverseArcActions[] = {
    {{.action = PendingAction::ReverseArc,
      .prompt = "Click near arc to reverse.",
      .left = "turns the nearest arc round"},
     clickArc<reversed>,
     hoverArc<reversed>},
};

}  // namespace

constexpr DraftingCommand kFlipArcCommand{
    .info = {.tool = "miFlipArc", .caption = "&Flip Arc", .key = "F", .menu = {"miEdit", 410}},
    .run = mnuEditFlipArc_Click,
    .actions = kFlipArcActions,
    .repeat = {{PendingAction::FlipArc}},
};

constexpr DraftingCommand kReverseArcCommand{
    .info = {.tool = "miRevArcDir",
             .caption = "Reverse Arc Direct&ion",
             .key = "D",
             .menu = {"miEdit", 420}},
    .run = mnuEditRevArc_Click,
    .actions = kReverseArcActions,
    .repeat = {{PendingAction::ReverseArc}},
};

}  // namespace tess
