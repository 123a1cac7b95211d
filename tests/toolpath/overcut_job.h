// Pockets whose finish path is to drop into their corners.
// Owns: trueSettings, OvercutJob, rectangle.
#pragma once

#include <algorithm>
#include <functional>

#include "tests/support/proof_of.h"
#include "tests/toolpath/pocket_job.h"

namespace tess::testing {

inline JobSettings trueSettings() {
  JobSettings settings;
  settings.truePaths = true;
  return settings;
}

class OvercutJob : public PocketJob {
 public:
  explicit OvercutJob(const TestPocket& pocket) : PocketJob(pocket, trueSettings()) {
    store.cfg_corner_overcut = 1;
    store.zstartpos = 1;
    test.recording.prompts.onForm = [this](Form& form) {
      if (form.name() != "frmCornerOvercut") return form.accept();
      onCorners(form);
    };
    messages().clear();
  }

  PathProof proof() const { return proofOf(store, cam.context.session.pathJobs); }
  int formsOfCorners() const {
    const auto& names = test.recording.prompts.formNames;
    return static_cast<int>(std::count(names.begin(), names.end(), "frmCornerOvercut"));
  }

  // What the form does; OK unless told otherwise.
  std::function<void(Form&)> onCorners = [](Form& form) { form.pressDefault(); };
};

inline TestPocket rectangle(float width, float height) {
  return pocketOfRows(polygonRows({{0, 0}, {width, 0}, {width, height}, {0, height}}));
}

}  // namespace tess::testing
