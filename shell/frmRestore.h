// Unsaved Work: what an interrupted run of the program has left, and what shall become of it.
// Owns: frmRestore.
#pragma once

#include <vector>

#include "core/controls.h"
#include "core/form.h"
#include "shell/recovery.h"

namespace tess {

class frmRestore : public Form {
 public:
  // `work` is not empty and outlives the form.
  explicit frmRestore(const std::vector<UnsavedWork>& work);

  Label lblExplanation{*this, "lblExplanation"};
  ListBox lstWork{*this, "lstWork"};
  Label lblDetails{*this, "lblDetails"};
  Button cmdRestore{*this, "cmdRestore"};
  Button cmdLater{*this, "cmdLater"};
  Button cmdDiscard{*this, "cmdDiscard"};

  enum class Choice { Later, Restore, Discard };
  Choice choice() const { return choice_; }
  // Its place in `work`.
  std::size_t chosenIndex() const { return static_cast<std::size_t>(lstWork.index()); }
  const UnsavedWork& chosen() const { return work_.at(chosenIndex()); }

 private:
  void choose(Choice choice);
  void showDetails();

  const std::vector<UnsavedWork>& work_;
  Choice choice_ = Choice::Later;
};

}  // namespace tess
