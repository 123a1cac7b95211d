// Makes one entity of the drawing blink, so that the operator finds what a window is about.
// Owns: EntityBlink.
#pragma once

#include <memory>

#include "core/timers.h"
#include "drafting/drafting_context.h"

namespace tess {

class EntityBlink {
 public:
  explicit EntityBlink(DraftingContext& context);

  // A few times on the screen, in white; the entity then stands in its own colour again. Whatever
  // blinked before stops.
  void start(int sg);

 private:
  void tick();
  void show(bool lit);

  DraftingContext& context_;
  std::unique_ptr<Timer> timer_;
  int sg_ = 0;
  int ticksLeft_ = 0;
};

}  // namespace tess
