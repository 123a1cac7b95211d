// Corner Overcut: the inside corners into which a finish path drops, all of them or those that are
// picked in the drawing, where the drops hover.
// Owns: frmCornerOvercut, tellBlockedCorners.
#pragma once

#include <string>
#include <vector>

#include "core/form.h"
#include "toolpath/cam_context.h"
#include "toolpath/corner_overcut.h"

namespace tess {

// Accepted only with a corner that is picked; the setting holds then how they were chosen.
class frmCornerOvercut : public Form {
 public:
  // At least one of the corners has a drop.
  frmCornerOvercut(CamContext& cam, InsideCorners corners);
  ~frmCornerOvercut() override;

  ControlArray<Option> optCorners{*this, "optCorners", {1, 2}};
  Label lblCorners{*this, "lblCorners"};
  Button cmdOK{*this, "cmdOK"};
  Button cmdCancel{*this, "cmdCancel"};

  std::vector<CornerDrop> picked() const;

 private:
  void fill();
  void leave();
  void pickAll(bool picks);
  void toggle(Point at);
  void show();
  void confirm();

  CamContext& cam_;
  InsideCorners corners_;
  std::vector<bool> isPicked_;
};

// How many of the corners cannot be cut over, and why; nothing when there are none.
void tellBlockedCorners(Prompts& prompts, const std::string& title, const InsideCorners& corners);

}  // namespace tess
