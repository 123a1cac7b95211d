// Commands that end with nothing placed.
#include "toolpath/cancellable_command.h"

#include "core/runtime_failure.h"

namespace tess {
namespace {

constexpr char kCancelled[] = "Cancelled. Nothing was placed.";

// A click that is being dealt with clears the line in the end.
void tellCancelled(CamContext& cam) {
  if (cam.context.state.pendingaction() != 0) cam.context.command.closing = kCancelled;
  cam.context.statusBar.setText(kCancelled);
}

}  // namespace

bool unlessCancelled(CamContext& cam, const std::string& stage,
                     const std::function<void(const Breathing&)>& work) {
  StatusBar& status = cam.context.statusBar;
  bool told = false;
  try {
    CancellableWork cancellable(cam.context.session.host, [&](const std::string& text) {
      told = true;
      status.setText(stage + text);
    });
    work(cancellable.breathing());
  } catch (const WorkCancelled&) {
    takeCallChain();
    tellCancelled(cam);
    return false;
  }
  if (told) status.setText(stage);
  return true;
}

}  // namespace tess
