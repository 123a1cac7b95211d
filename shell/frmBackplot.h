// The panel that runs the cutter along the path.
// Owns: frmBackplot.
#pragma once

#include "core/controls.h"
#include "core/form.h"

namespace tess {

class frmBackplot : public Form {
 public:
  // The slider's range, whatever the time of the path.
  static constexpr int kSteps = 10000;

  frmBackplot();

  Slider sldTime{*this, "sldTime"};
  Button cmdPlay{*this, "cmdPlay"};
  Button cmdPrevious{*this, "cmdPrevious"};
  Button cmdNext{*this, "cmdNext"};
  Button cmdSpeed{*this, "cmdSpeed"};
  TextBox txtRow{*this, "txtRow"};
  Button cmdRow{*this, "cmdRow"};
  Label lblTime{*this, "lblTime"};
  Label lblPlace{*this, "lblPlace"};
};

}  // namespace tess
