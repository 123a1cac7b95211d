// Positions typed by the operator.
#include "drafting/typed_position.h"

#include <cmath>
#include <numbers>

#include "core/arithmetic.h"
#include "core/drawing_store.h"
#include "core/number_text.h"
#include "core/rounding.h"
#include "drafting/entity_creation.h"
#include "drafting/hover_preview.h"
#include "drafting/pending_actions.h"
#include "drafting/pointer_events.h"
#include "geometry/float_constants.h"

namespace tess {
namespace {

constexpr double kDegree = std::numbers::pi / 180;

// Of both signs. Nothing farther away is ever found by a click.
constexpr double kFarthestTyped = kFarthest;

struct Offset {
  double x = 0, y = 0;
};

Offset ofLengthAndAngle(double length, double degrees) {
  // Right angles are exact.
  const double quarter = std::remainder(degrees, 360) / 90;
  if (quarter == 0) return {length, 0};
  if (quarter == 1) return {0, length};
  if (std::abs(quarter) == 2) return {-length, 0};
  if (quarter == -1) return {0, -length};
  return {length * std::cos(degrees * kDegree), length * std::sin(degrees * kDegree)};
}

Offset readOffset(SumReader& text, bool relative) {
  const double first = text.sum();
  if (text.take('<')) {
    if (!relative) {
      throw SumTrouble("A length and an angle begin with @, as in @2<45.");
    }
    return ofLengthAndAngle(first, text.sum());
  }
  if (!text.take(',')) text.fail("A comma and the second coordinate are missing");
  return {first, text.sum()};
}

float inReach(double value, const char* axis) {
  if (std::abs(value) > kFarthestTyped) {
    throw SumTrouble(std::string(axis) + " is farther than 1000000 from the origin.");
  }
  return narrow(value);
}

Point read(std::string_view written, Point from) {
  if (written.size() > kLongestPosition) {
    throw SumTrouble("The text has " + std::to_string(written.size()) + " characters, and " +
                     std::to_string(kLongestPosition) + " are the most.");
  }
  SumReader text(written);
  if (text.atEnd()) throw SumTrouble("A position is missing, as in 2,1 or @2<45.");
  const bool relative = text.take('@');
  Offset offset = readOffset(text, relative);
  if (!text.atEnd()) text.fail("Nothing more is expected, but there is text");
  if (relative) {
    offset.x += from.x;
    offset.y += from.y;
  }
  return {inReach(offset.x, "X"), inReach(offset.y, "Y")};
}

// What a click of the left button could not do now; "" when it can.
std::string refusal(const DraftingContext& context, Point at) {
  const int action = context.state.pendingaction();
  if (action == static_cast<int>(PendingAction::Pan)) return "The view is panned by the mouse.";
  if (action != 0 || context.onFormClick) return {};
  if (!isDrawing(context.state.DrawMode())) {
    return "No command waits for a position: choose one first. Shift+Enter puts the marker there.";
  }
  return at == markerOf(context) ? "The marker is there already: nothing is drawn to it." : "";
}

// Of one typed click: its place counts as it is.
class Exactly {
 public:
  explicit Exactly(DraftingContext& context) : pointer_(context.pointer) { pointer_.exact = true; }
  ~Exactly() { pointer_.exact = false; }
  Exactly(const Exactly&) = delete;
  Exactly& operator=(const Exactly&) = delete;

 private:
  PointerRecord& pointer_;
};

void putPointer(DraftingContext& context, Point at) {
  context.pointer.MouseX = at.x;
  context.pointer.MouseY = at.y;
  // No menu closes by it.
  context.pointer.MenuGuard = false;
  context.pointer.MenuGuardTime = PointerRecord::kLongAgo;
}

bool dragsNow(const DraftingContext& context) {
  const ActionText* const action = findAction(context, context.state.pendingaction());
  return action != nullptr && action->drags;
}

void dragTo(DraftingContext& context, Point at) {
  const PointerEvent event{kLeftButton, 0, at.x, at.y};
  if (!context.pointer.LeftDown) {
    picDrawing_MouseDown(context, event);
    picDrawing_MouseMove(context, event);
    return;
  }
  picDrawing_MouseMove(context, event);
  picDrawing_MouseUp(context, event);
}

}  // namespace

TypedPosition readPosition(std::string_view text, Point from) {
  try {
    return {.at = read(text, from), .trouble = {}};
  } catch (const SumTrouble& trouble) {
    return {.at = {}, .trouble = trouble.what()};
  }
}

std::string typePosition(DraftingContext& context, std::string_view text, int button) {
  const Procedure here("frmMain.typePosition(text,button)");
  const TypedPosition typed = readPosition(text, markerOf(context));
  if (!typed.trouble.empty()) return typed.trouble;
  const Point at{roundTo(typed.at.x, kPositionDecimals), roundTo(typed.at.y, kPositionDecimals)};
  if (button == kLeftButton) {
    if (const std::string trouble = refusal(context, at); !trouble.empty()) return trouble;
  }
  endHoverPreview(context);
  const Exactly exactly(context);
  putPointer(context, at);
  if (button == kLeftButton && dragsNow(context)) {
    dragTo(context, at);
  } else {
    keyboardClick(context, button);
  }
  return {};
}

}  // namespace tess
