// Examples: which of the drawings that ship with the program is opened as a copy.
// Owns: frmExamples.
#pragma once

#include <string>
#include <vector>

#include "core/controls.h"
#include "core/form.h"
#include "shell/examples.h"

namespace tess {

class frmExamples : public Form {
 public:
  // `examples` is not empty and outlives the form.
  explicit frmExamples(const std::vector<Example>& examples);

  Label lblExplanation{*this, "lblExplanation"};
  ListBox lstExamples{*this, "lstExamples"};
  Button cmdOpen{*this, "cmdOpen"};
  Button cmdCancel{*this, "cmdCancel"};

  const Example& chosen() const;

 private:
  const std::vector<Example>& examples_;
};

}  // namespace tess
