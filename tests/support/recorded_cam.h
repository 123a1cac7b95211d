// A context of the tool-path commands on a recorded screen, with the settings of a small job.
// Owns: RecordedCam.
#pragma once

#include "core/drawing_store.h"
#include "core/pocketing_choices.h"
#include "tests/support/drafting_test_context.h"
#include "toolpath/cam_context.h"

namespace tess::testing {

// Tool 1 of radius 0.25 is selected; depths, feeds and step-over are those of a shallow pocket.
struct RecordedCam : RecordedDrafting {
  RecordedCam() {
    store.selectedtool = 0;
    store.toolname[0] = "cutter";
    store.toolradius[0] = 0.25F;
    store.cfg_final_depth = 0.5F;
    store.cfg_z_cut_per_pass = 0.5F;
    store.cfg_rough_feedrate = 20;
    store.cfg_finish_feedrate = 10;
    store.cfg_tool_spacing = 50;
    store.cfg_cut_width_type = choiceNumber(StepOver::ByPercent);
    store.cfg_cutting_mode = choiceNumber(CuttingMode::Conventional);
    store.cfg_pocketing_style = choiceNumber(PocketingStyle::Horizontal);
  }

  CamContext cam{context};
};

}  // namespace tess::testing
