// Lines that hover.
#include "drafting/hover_lines.h"

#include <utility>

#include "core/drawing_store.h"
#include "drafting/drafting_context.h"

namespace tess {
namespace {

void invert(DraftingContext& context) {
  context.ScreenProxy.surface().hover(context.hoverLines.lines, context.renderer.look.band());
}

}  // namespace

void setHoverLines(DraftingContext& context, std::vector<WorldBox> lines) {
  if (std::exchange(context.hoverLines.shown, false)) invert(context);
  context.hoverLines.lines = std::move(lines);
  showHoverLines(context);
}

void showHoverLines(DraftingContext& context) {
  HoverLines& hover = context.hoverLines;
  if (hover.shown || hover.lines.empty() || !context.redraw.markerShown()) return;
  invert(context);
  hover.shown = true;
}

void endHoverLines(DraftingContext& context) {
  setHoverLines(context, {});
}

}  // namespace tess
