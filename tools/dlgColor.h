// The choice of a colour: what asks for one, and a dialog that answers without any toolkit's own.
// Owns: ColorDialog, dlgColor, FormColorDialog.
#pragma once

#include <optional>

#include "core/controls.h"
#include "core/form.h"
#include "core/host.h"
#include "display/palette.h"

namespace tess {

// Asks the operator for a colour; waits for the answer.
class ColorDialog {
 public:
  virtual ~ColorDialog() = default;
  // Nothing when the operator cancels.
  virtual std::optional<Rgb> chooseColor(Rgb present) = 0;
};

// Red, green and blue from 0 to 255; a text that is none counts as the nearest one that is.
class dlgColor : public Form {
 public:
  explicit dlgColor(Rgb present);

  Rgb color() const;

  Label lblRed{*this, "lblRed"};
  TextBox txtRed{*this, "txtRed"};
  Label lblGreen{*this, "lblGreen"};
  TextBox txtGreen{*this, "txtGreen"};
  Label lblBlue{*this, "lblBlue"};
  TextBox txtBlue{*this, "txtBlue"};
  Picture picColor{*this, "picColor"};
  Button cmdAccept{*this, "cmdAccept"};
  Button cmdCancel{*this, "cmdCancel"};

 private:
  void show(Rgb color);
};

// The dialog as a form, for scripts and wherever no other one is at hand.
class FormColorDialog : public ColorDialog {
 public:
  explicit FormColorDialog(Prompts& prompts) : prompts_(prompts) {}
  std::optional<Rgb> chooseColor(Rgb present) override;

 private:
  Prompts& prompts_;
};

}  // namespace tess
