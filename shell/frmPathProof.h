// The panel of the path proof: its three figures in the colour of their grade. A click on them goes
// to the next place that is found.
// Owns: frmPathProof.
#pragma once

#include <string>

#include "core/controls.h"
#include "core/form.h"
#include "toolpath/proof_text.h"

namespace tess {

class frmPathProof : public Form {
 public:
  frmPathProof();

  void show(const PathProof& proof);
  // Before a path is judged.
  void showNothing();
  // What is found at the place that is gone to.
  void showPlace(const std::string& text) { lblPlace.setCaption(text); }

  Button cmdProof{*this, "cmdProof"};
  Label lblPlace{*this, "lblPlace"};
};

}  // namespace tess
