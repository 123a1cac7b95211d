// A dialog with one of everything, which keeps a log of its events, for the tests of forms.
// Owns: FormLog, dlgSample, expectFailure, FormRecorder.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "gtest/gtest.h"

#include "core/controls.h"
#include "core/form.h"
#include "core/runtime_failure.h"

namespace tess::testing {

using FormLog = std::vector<std::string>;

class dlgSample : public Form {
 public:
  dlgSample() : Form("dlgSample", "Sample") {
    cboSize.setItems({"8", "10", "12"});
    cboStyle.setItems({"Regular", "Bold"});
    lstNames.setItems({"one", "two", "three"});
    setDefaultButton(cmdAccept);
    setCancelButton(cmdCancel);
    onLoad = [this] { log.push_back("load"); };
    onAccept = [this] { log.push_back("accept"); };
    onClose = [this] { log.push_back("close"); };
    onResize = [this] { log.push_back("resize"); };
    for (Control* control : controls()) {
      if (!control->arrayIndex()) wire(*control);
    }
    OptCutWidth.onClick = [this](int index) { note("OptCutWidth", "click", index); };
    cboSize.onDropDown = [this] { log.push_back("cboSize dropdown"); };
    cmdAccept.onClick = [this] { accept(); };
  }

  TextBox txtFirst{*this, "txtFirst"};
  TextBox txtSecond{*this, "txtSecond"};
  Frame fraWidth{*this, "fraWidth"};
  ControlArray<Option> OptCutWidth{*this, "OptCutWidth", {1, 2}, fraWidth};
  Option optMove{*this, "optMove"};
  Option optCopy{*this, "optCopy"};
  CheckBox chkGrid{*this, "chkGrid", fraWidth};
  ComboBox cboSize{*this, "cboSize", ComboStyle::Editable};
  ComboBox cboStyle{*this, "cboStyle"};
  ListBox lstNames{*this, "lstNames"};
  Slider Slider1{*this, "Slider1"};
  Label lblNote{*this, "lblNote"};
  Picture picPreview{*this, "picPreview"};
  Button cmdAccept{*this, "cmdAccept"};
  Button cmdCancel{*this, "cmdCancel"};

  FormLog taken() { return std::exchange(log, {}); }
  FormLog log;

 private:
  void note(const std::string& name, const char* event, int index) {
    log.push_back(name + "[" + std::to_string(index) + "] " + event);
  }
  void wire(Control& control) {
    const std::string name = control.name();
    control.onClick = [this, name] { log.push_back(name + " click"); };
    control.onChange = [this, name] { log.push_back(name + " change"); };
    control.onFocus = [this, name] { log.push_back(name + " focus"); };
    control.onLeave = [this, name] { log.push_back(name + " leave"); };
    control.onKey = [this, name] { log.push_back(name + " key"); };
  }
};

// Expects a failure with this number and description.
template <class Act>
void expectFailure(FailureNumber number, const std::string& description, Act act) {
  try {
    act();
    ADD_FAILURE() << "no failure";
  } catch (const RuntimeFailure& failure) {
    EXPECT_EQ(failure.number(), number);
    EXPECT_EQ(failure.description(), description);
  }
}

// Writes down what the observer of a form hears.
class FormRecorder : public FormObserver {
 public:
  explicit FormRecorder(Form& form) : watch(form.observe(*this)) {}
  void controlChanged(Control& control, Property property) override {
    heard.push_back({control.name(), property});
  }
  void formChanged(Form&, FormProperty property) override { formHeard.push_back(property); }
  void formGone() override { gone = true; }

  std::vector<std::pair<std::string, Property>> heard;
  std::vector<FormProperty> formHeard;
  bool gone = false;
  Subscription watch;
};

}  // namespace tess::testing
