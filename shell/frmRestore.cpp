// Unsaved Work.
#include "shell/frmRestore.h"

#include <string>

#include "core/count_text.h"

namespace tess {
namespace {

constexpr char kExplanation[] =
    "The program was interrupted before this work was saved.\n\n"
    "Restore opens it as it was; its drawing file stays as it is until you save.\n"
    "Ask Later keeps it for the next start.\n"
    "Discard removes it for good.";
constexpr char kOneAtATime[] =
    "\n\nOne drawing can be restored at a time; the next start offers the rest.";

}  // namespace

frmRestore::frmRestore(const std::vector<UnsavedWork>& work)
    : Form("frmRestore", "Unsaved Work"), work_(work) {
  lblExplanation.setCaption(kExplanation + std::string(work.size() > 1 ? kOneAtATime : ""));
  cmdRestore.setCaption("&Restore");
  cmdLater.setCaption("Ask &Later");
  cmdDiscard.setCaption("&Discard");
  setDefaultButton(cmdRestore);
  setCancelButton(cmdLater);
  onLoad = [this] {
    for (const UnsavedWork& each : work_) lstWork.addItem(each.shortName() + ", " + each.when);
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
                        countText(work.segments, "drawing row") + ", " +
                        countText(work.paths, "path row") + "\nLast change: " + work.when);
}

}  // namespace tess
