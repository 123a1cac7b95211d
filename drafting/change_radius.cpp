// Changing the radius of an arc or a circle.
#include "drafting/change_radius.h"

#include <optional>

#include "drafting/dlgEditRadius.h"
#include "drafting/drafting_commands.h"
#include "drafting/edit_steps.h"
#include "drafting/entity_creation.h"
#include "drafting/pending_actions.h"
#include "geometry/float_angles.h"
#include "geometry/float_circles.h"

namespace tess {
namespace {

constexpr char kTitle[] = "Change Radius";

float radiusAtStart(const Entity& arc) {
  return arcRadiusAndAngles(arc.start, arc.end, arc.center).radius;
}

// Half the chord.
float smallestRadius(const Entity& arc) {
  return distance(arc.start, arc.end) / 2;
}

// What the operator accepts and is not the radius that it has.
std::optional<float> askRadius(DraftingContext& context, const Entity& arc) {
  const float before = radiusAtStart(arc);
  dlgEditRadius dialog(context, before, smallestRadius(arc));
  context.session.host.prompts.showModal(dialog);
  if (!dialog.accepted() || dialog.radius() == before) return std::nullopt;
  return dialog.radius();
}

Entity circleOfRadius(Entity circle, float radius) {
  circle.start.x = narrow(static_cast<double>(circle.center.x) - radius);
  circle.start.y = circle.center.y;
  circle.end = circle.start;
  return circle;
}

// Fixed: a drawn circle is an arc too and keeps its point, not its center; scripts pick it by that.
std::optional<Entity> withRadius(Entity arc, float radius) {
  if (radius <= 0) return std::nullopt;
  if (!isArc(arc.type)) return circleOfRadius(arc, radius);
  const std::optional<PointPair> centers = centersFromChord(arc.start, arc.end, radius);
  if (!centers) return std::nullopt;
  const bool second = distance(centers->second, arc.center) < distance(centers->first, arc.center);
  arc.center = second ? centers->second : centers->first;
  return arc;
}

template <class Table>
void changeRadius(DraftingContext& context, Table table, int number) {
  pickRow(context, table, number);
  const std::optional<float> radius = askRadius(context, context.command.PendingRow1);
  if (!radius || pickedRow(context, table) == 0) return;
  if (*radius > kLargestRadius) return beep(context);
  const std::optional<Entity> now = withRadius(context.command.PendingRow1, *radius);
  if (!now) return warn(context, "Radius too small!", kTitle);
  reshapeRow(context.changes, table, number, *now, kDrawnByTheClick);
  context.state.updateProperties = true;
}

void clickChangeRadius(DraftingContext& context) {
  onEditedTable(context, [&context](auto table) {
    const int number = table.nearestRound(context.store, mouseOf(context));
    if (number >= 1) changeRadius(context, table, number);
  });
}

}  // namespace

void mnuChangeRad_Click(DraftingContext& context) {
  arm(context, PendingAction::ChangeRadius);
}

// ---- Descriptors

namespace {

constexpr Action<DraftingContext> kChangeRadiusActions[] = {
    {{.action = PendingAction::ChangeRadius,
      .prompt = "Click near arc to change radius.",
      .left = "the arc or circle to get another radius"},
     clickChangeRadius},
};

}  // namespace

constexpr DraftingCommand kChangeRadiusCommand{
    .info = {.tool = "miChangeRadius", .caption = "C&hange Radius...", .menu = {"miEdit", 430}},
    .run = mnuChangeRad_Click,
    .actions = kChangeRadiusActions,
    .repeat = {{PendingAction::ChangeRadius}},
};

}  // namespace tess
