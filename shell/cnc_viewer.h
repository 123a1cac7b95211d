// The viewer of CNC programs in the running program: shown beside the main window, and in step with
// the drawing, whose selected path rows it marks.
// Owns: CncViewer.
#pragma once

#include <string>

#include "cnc/cnc_program.h"
#include "cnc/dlgMenuHelper.h"
#include "core/form_host.h"
#include "drafting/change.h"
#include "drafting/drafting_context.h"

namespace tess {

class CncViewer : public ProgramViewer, public ChangeListener {
 public:
  // `made` is kept up to date from now on by whoever makes a program.
  CncViewer(const HandOver& handOver, FormHost& forms, DraftingContext& context, CncState& made);

  void showFile(const std::string& file, const std::string& notice) override;

  // Brings the marks up to the selection. Every command ends with it.
  void settle();
  // Another drawing has come.
  void drawingReplaced() { unlink(); }

  void changed(const KeptChange& change) override;
  void rewritten() override;

  dlgMenuHelper form;

 private:
  void link();
  void unlink();
  void pickRow(int row);
  std::vector<int> selectedRows() const;

  FormHost& forms_;
  DraftingContext& context_;
  CncState& made_;
  Subscription subscription_;
  bool isBehind_ = false;  // rows may have been selected or not since the marks were made
};

}  // namespace tess
