// What the view commands work on, for the tests of this folder.
// Owns: FakeAction, FakeHost.
#pragma once

#include <map>
#include <string>

#include "display/view_commands.h"
#include "tests/support/recording_target.h"

namespace tess::testing {

// A drawing mode that is set drops the pending action, as the real one does.
class FakeAction : public ArmedAction {
 public:
  int pendingaction() const override { return pending; }
  void setPendingaction(int action) override { pending = action; }
  int DrawMode() const override { return mode; }
  void setDrawMode(int newMode) override {
    mode = newMode;
    if (mode > 0) pending = 0;
  }
  int pending = 0;
  int mode = 0;
};

class FakeHost : public ViewHost {
 public:
  explicit FakeHost(CallLog& log) : log_(log) {}
  SurfaceArea clientArea() const override { return area; }
  bool toolChecked(const std::string& tool) const override {
    const auto found = checked.find(tool);
    return found != checked.end() && found->second;
  }
  void setToolChecked(const std::string& tool, bool on) override { checked[tool] = on; }
  void Update_menu_checks() override { log_.add("Update_menu_checks"); }
  std::string appfolder() const override { return folder; }

  SurfaceArea area{0, 50, 1000, 800};
  std::map<std::string, bool> checked;
  std::string folder = "/nowhere/";

 private:
  CallLog& log_;
};

}  // namespace tess::testing
