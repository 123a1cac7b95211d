// Print to Scale: a drawing on paper as large as it is, or by any factor.
// Owns: frmPrintScale.
#pragma once

#include <functional>
#include <optional>

#include "core/controls.h"
#include "core/form.h"
#include "core/session.h"
#include "display/scaled_print.h"

namespace tess {

class frmPrintScale : public Form {
 public:
  // `bounds` of what is to be printed; `print` is what the fields open with, and what they say
  // after an accept.
  frmPrintScale(Session& session, const Box& bounds, ScaledPrint& print);

  // What a document of sheets is made for.
  enum class Purpose { Preview, Printer, File };
  // Told with fields that make a plan; the form stays open.
  std::function<void(Purpose)> onPrint;

  Label lblScale{*this, "lblScale"};
  ComboBox cmbScale{*this, "cmbScale", ComboStyle::Editable};
  Label lblPaper{*this, "lblPaper"};
  ComboBox cmbPaper{*this, "cmbPaper"};
  Label lblOverlap{*this, "lblOverlap"};
  TextBox txtOverlap{*this, "txtOverlap"};
  Label lblSheets{*this, "lblSheets"};  // how many there will be, or why there are none
  Button cmdPrint{*this, "cmdPrint"};
  Button cmdPreview{*this, "cmdPreview"};
  Button cmdFile{*this, "cmdFile"};
  Button cmdClose{*this, "cmdClose"};

 private:
  void showSheets();
  void printFor(Purpose purpose);
  std::optional<ScaledPrint> fields() const;  // nothing when one of them is wrong
  const char* wrongField() const;

  Session& session_;
  Box bounds_;
  ScaledPrint& print_;
};

}  // namespace tess
