// One number asked for, and whether it is for the selected rows alone.
// Owns: dlgInputReal.
#pragma once

#include <string>

#include "core/controls.h"
#include "core/form.h"

namespace tess {

class Prompts;

class dlgInputReal : public Form {
 public:
  dlgInputReal(Prompts& prompts, const std::string& title, float value, bool anySelected);

  // What OK took.
  float value() const { return value_; }
  bool selectedItemsOnly() const { return selectedItemsOnly_; }

  TextBox txtValue{*this, "txtValue"};
  CheckBox chkSelectedItemsOnly{*this, "chkSelectedItemsOnly"};
  Button cmdAccept{*this, "cmdAccept"};
  Button cmdCancel{*this, "cmdCancel"};

 private:
  void acceptNumber(Prompts& prompts);

  float value_;
  bool selectedItemsOnly_ = false;
};

}  // namespace tess
