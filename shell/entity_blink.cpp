// One entity that blinks.
#include "shell/entity_blink.h"

#include "core/drawing_store.h"
#include "display/renderer.h"

namespace tess {
namespace {

constexpr int kTicks = 6;       // half of them lit
constexpr int kTickTime = 120;  // milliseconds
constexpr Rgb kWhite = 0xFFFFFF;

}  // namespace

EntityBlink::EntityBlink(DraftingContext& context)
    : context_(context),
      timer_(context.timers.create({"tmrBlink", kTickTime}, [this] { tick(); })) {}

void EntityBlink::start(int sg) {
  if (ticksLeft_ > 0) show(/*lit=*/false);
  sg_ = sg;
  ticksLeft_ = kTicks;
  tick();
  timer_->setEnabled(true);
}

// The row may be gone since.
void EntityBlink::tick() {
  const bool there = sg_ >= 1 && sg_ <= context_.store.NumSegments;
  ticksLeft_ = there ? ticksLeft_ - 1 : 0;
  if (there) show(ticksLeft_ % 2 == 1);
  if (ticksLeft_ > 0) return;
  timer_->setEnabled(false);
  // Where the setup has a look of the screen, nothing is left of the flashes.
  if (there && context_.store.screenlook != 0) context_.redraw.soil();
}

void EntityBlink::show(bool lit) {
  if (sg_ > context_.store.NumSegments) return;
  context_.renderer.DrawSegment(sg_, context_.ScreenProxy,
                                lit ? std::optional(kWhite) : std::nullopt);
}

}  // namespace tess
