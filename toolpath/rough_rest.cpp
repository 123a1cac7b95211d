// Rough What Is Left: a smaller tool clears what larger ones could not reach.
#include "core/drawing_store.h"
#include "core/pocketing_choices.h"
#include "drafting/row_edits.h"
#include "toolpath/job_walls.h"
#include "toolpath/toolpath_commands.h"
#include "toolpath/true_pocket.h"

namespace tess {
namespace {

constexpr char kCommand[] = "Rough What Is Left";

void refuse(CamContext& cam, const char* text) {
  cam.context.session.host.prompts.showMessage(
      {.text = text, .title = kCommand, .icon = MessageIcon::Warning});
}

void mnuCAMRoughWhatIsLeft_Click(CamContext& cam) {
  const Procedure here("mnuCAMRoughWhatIsLeft_Click()");
  const DrawingStore& store = cam.store;
  const bool turns =
      pocketingStyle(store) == PocketingStyle::Horizontal && store.cfg_lathe_style_pocketing;
  if (!store.cfg_true_paths) {
    return refuse(cam,
                  "What is left is known with True Paths alone, in Pocketing & Profiling "
                  "Parameters.");
  }
  if (turns) return refuse(cam, "A turning tool has no radius that would leave anything.");
  roundRows(cam.changes);
  const int rowsBefore = store.NumPathSegments;
  roughTrueRest(cam, kCommand);
  if (store.NumPathSegments > rowsBefore) noteRoughing(cam);
}

}  // namespace

constexpr CamCommand kRoughWhatIsLeftCommand{
    .info = {.tool = "miRoughWhatIsLeft",
             .caption = "Rough &What Is Left",
             .menu = {"miCAM", 235},
             .bar = {"barCAM", 235}},
    .run = mnuCAMRoughWhatIsLeft_Click,
};

}  // namespace tess
