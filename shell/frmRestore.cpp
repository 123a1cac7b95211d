// Unsaved Work.
#include "shell/frmRestore.h"

#include <string>

#include "core/file_system.h"

namespace tess {
namespace {

std::string shortName(const UnsavedWork& work) {
  return work.drawing.empty() ? "<Untitled>" : std::string(fileNameOf(work.drawing));
}

std::string counted(int count, const std::string& one) {
  return std::to_string(count) + " " + one + (count == 1 ? "" : "s");
}

}  // namespace

frmRestore::frmRestore(const std::vector<UnsavedWork>& work)
    : Form("frmRestore", "Unsaved Work"), work_(work) {
  lblExplanation.setCaption(
      "The program was interrupted before this work was saved. Restoring opens it as it was; the "
      "drawing file stays as it is until you save.");
  cmdRestore.setCaption("&Restore");
  cmdLater.setCaption("Ask &Later");
  cmdDiscard.setCaption("&Discard");
  setDefaultButton(cmdRestore);
  setCancelButton(cmdLater);
  onLoad = [this] {
    for (const UnsavedWork& each : work_) lstWork.addItem(shortName(each) + ", " + each.when);
    lstWork.setIndex(0);
  };
  lstWork.onClick = [this] { showDetails(); };
  lstWork.onOpen = [this] { choose(Choice::Restore); };
  cmdRestore.onClick = [this] { choose(Choice::Restore); };
  cmdDiscard.onClick = [this] { choose(Choice::Discard); };
  cmdLater.onClick = [this] { close(); };
}

void frmRestore::choose(Choice choice) {
  if (lstWork.index() < 0) return;
  choice_ = choice;
  accept();
}

void frmRestore::showDetails() {
  if (lstWork.index() < 0) return;
  const UnsavedWork& work = chosen();
  lblDetails.setCaption((work.drawing.empty() ? "Never saved" : work.drawing) + "\n" +
                        counted(work.segments, "drawing row") + ", " +
                        counted(work.paths, "path row") + "\nLast change: " + work.when);
}

}  // namespace tess
