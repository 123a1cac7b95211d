// Steps of the operator, and the time around them.
#include "shell/automation/script_hand.h"

#include <algorithm>

namespace tess {
namespace {

// Between two steps: as long as the wheel wants between two turns, and short enough that a click
// is over before the pointer jumps to the grid.
constexpr std::int64_t kPause = 50;
// While a redraw is waited for; it takes a quarter of a second.
constexpr std::int64_t kGlance = 25;
constexpr int kMaxGlances = 80;
// Of a long wait, between two looks at whether the script may go on.
constexpr std::int64_t kSlice = 1000;

}  // namespace

bool ScriptHand::isSettled() const {
  const Interaction& interaction = application_.interaction;
  return interaction.redraw.TaskQueueState() == 0 && interaction.ScreenProxy.surface().Enabled();
}

// A handler that answers in the middle of a redraw would wait for it for ever.
void ScriptHand::settle() {
  for (int glance = 0; glance < kMaxGlances && !isSettled(); ++glance) time_.pass(kGlance);
  host_.showReports();
}

void ScriptHand::act(const std::function<void()>& step) {
  time_.pass(kPause);
  settle();
  step();
  host_.showReports();
  settle();
  stage_.stepDone();
}

void ScriptHand::tool(std::string_view name) {
  act([&] { application_.clickTool(name); });
}

void ScriptHand::key(const KeyStroke& key) {
  act([&] { application_.key(key); });
}

void ScriptHand::press(const PointerEvent& event) {
  stage_.pointerGoes(event.X, event.Y, /*pressed=*/true);
  act([&] { application_.press(event); });
}

void ScriptHand::move(const PointerEvent& event) {
  stage_.pointerGoes(event.X, event.Y, /*pressed=*/event.Button != 0);
  act([&] { application_.move(event); });
}

void ScriptHand::release(const PointerEvent& event) {
  stage_.pointerGoes(event.X, event.Y, /*pressed=*/false);
  act([&] { application_.release(event); });
}

void ScriptHand::wheel(int steps, int shift) {
  act([&] { application_.wheel(steps, shift); });
}

std::string ScriptHand::typePosition(std::string_view text) {
  std::string trouble;
  act([&] { trouble = application_.typePosition(text); });
  return trouble;
}

// A hand never arrives in a single event: a first one that the program passes over, as after a
// position was typed, costs nothing but a pixel of the way.
void ScriptHand::approach(const PointerEvent& event) {
  const double pixel = 1 / PixelsPerInchX(application_.interaction.ScreenProxy);
  PointerEvent free = event;
  free.Button = 0;
  free.X = narrow(event.X - pixel);
  move(free);
  free.X = event.X;
  move(free);
}

void ScriptHand::click(const PointerEvent& event) {
  approach(event);
  press(event);
  move(event);
  release(event);
}

void ScriptHand::drag(const PointerEvent& event, float x, float y) {
  approach(event);
  press(event);
  const ViewCommands& view = application_.interaction.viewCommands;
  const PanDrag start = view.beginPan({event.X, event.Y});
  const auto towards = [&](float placeX, float placeY) {
    const Point place = view.inPresentView(start, {placeX, placeY});
    return PointerEvent{event.Button, event.Shift, place.x, place.y};
  };
  move(towards((event.X + x) / 2, (event.Y + y) / 2));
  move(towards(x, y));
  release(towards(x, y));
}

void ScriptHand::wait(std::int64_t ms) {
  for (std::int64_t left = ms; left > 0; left -= kSlice) {
    time_.pass(std::min(left, kSlice));
    host_.surroundings.pause();
  }
  host_.showReports();
}

void ScriptHand::controlWorked() {
  host_.showReports();
  stage_.controlWorked();
}

void deliverArrival(Application& application, int pixelX, int pixelY) {
  const DraftingContext& context = application.interaction.context;
  const DrawingSurface& surface = context.ScreenProxy.surface();
  const SurfaceArea area = surface.area();
  const bool inside = pixelX >= 0 && static_cast<float>(pixelX) < area.width && pixelY >= 0 &&
                      static_cast<float>(pixelY) < area.height;
  if (!inside || !surface.Enabled()) return;
  const int rightOrNone = context.pointer.RightDown ? kRightButton : 0;
  const Point place = surface.toWorld(pixelX, pixelY);
  application.move({.Button = context.pointer.LeftDown ? kLeftButton : rightOrNone,
                    .Shift = 0,
                    .X = place.x,
                    .Y = place.y});
}

}  // namespace tess
