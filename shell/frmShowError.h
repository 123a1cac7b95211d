// The window that shows the report of a failure.
// Owns: frmShowError, showPlainReport.
#pragma once

#include <string>

#include "core/form.h"
#include "core/host.h"

namespace tess {

class frmShowError : public Form {
 public:
  explicit frmShowError(Prompts& prompts);

  // Shows the report until the operator closes it; a plain message box when the form cannot be
  // shown. Raises nothing.
  void ErrorReport(const std::string& text) noexcept;

  TextBox txtError{*this, "txtError"};

 private:
  Prompts& prompts_;
};

// The report in a message box. Raises nothing.
void showPlainReport(Prompts& prompts, const std::string& text) noexcept;

}  // namespace tess
