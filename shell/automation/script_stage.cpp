// The end of the program by a command of a script.
#include "shell/automation/script_stage.h"

#include <utility>

#include "shell/application.h"
#include "shell/automation/script.h"

namespace tess {

ClosingStage::ClosingStage(Application& application) : application_(application) {
  application_.onCloseMainWindow = [this] { asked_ = true; };
}

void ClosingStage::stepDone() {
  if (!std::exchange(asked_, false) || !application_.mayClose()) return;
  application_.unload();
  throw ProgramClosed();
}

}  // namespace tess
