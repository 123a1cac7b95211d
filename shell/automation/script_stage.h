// What a person sees who watches a script; and the end of the program by one of its own commands.
// Owns: ScriptStage, ClosingStage.
#pragma once

#include <memory>

#include "core/host.h"

namespace tess {

class Application;
class Form;

// Told of what a script does, so that a window can show it and wait until it has been seen. All of
// it is for the eye alone: nothing that the program does depends on it. Each call may end the
// script by an EndProgram.
class ScriptStage {
 public:
  virtual ~ScriptStage() = default;
  // A tool, a key, a pointer event or the wheel has done its work.
  virtual void stepDone() {}
  // The pointer is about to be at (x, y), in drawing units, with a button held or none.
  virtual void pointerGoes(float /*x*/, float /*y*/, bool /*pressed*/) {}
  // The script has worked a control of a dialog or a panel.
  virtual void controlWorked() {}
  // A modal form is about to be opened; what comes back lives until it has closed.
  virtual std::shared_ptr<void> showing(Form& /*form*/) { return nullptr; }
  // It is open, and the script is about to work it.
  virtual void shown() {}
  virtual void answered(const Message& /*message*/, Answer /*answer*/) {}
  // Now and then in the middle of long calculations of the script.
  virtual void breathe() {}
};

// Closes the program when a command has asked for it, as the main window would: after the step, and
// after the question about unsaved work.
class ClosingStage : public ScriptStage {
 public:
  explicit ClosingStage(Application& application);
  void stepDone() override;

 private:
  Application& application_;
  bool asked_ = false;
};

}  // namespace tess
