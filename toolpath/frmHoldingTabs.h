// Holding Tabs: how many, how wide and how high, with the tabs hovering over the drawing, where
// each can be dragged along the outline.
// Owns: frmHoldingTabs.
#pragma once

#include <memory>
#include <vector>

#include "core/form.h"
#include "toolpath/cam_context.h"
#include "toolpath/holding_tabs.h"

namespace tess {

// Accepted only with tabs that can be placed; the settings of tabs hold what was asked for then.
class frmHoldingTabs : public Form {
 public:
  // For passes from the outermost to the finished size, whose deepest level is at `floor`.
  frmHoldingTabs(CamContext& cam, std::vector<TabPass> passes, float floor);
  ~frmHoldingTabs() override;

  ControlArray<Option> optTabs{*this, "optTabs", {1, 2}};
  TextBox txtTabNumber{*this, "txtTabNumber"};
  TextBox txtTabSpacing{*this, "txtTabSpacing"};
  Label lblTabWidth{*this, "lblTabWidth"};
  TextBox txtTabWidth{*this, "txtTabWidth"};
  Label lblTabHeight{*this, "lblTabHeight"};
  TextBox txtTabHeight{*this, "txtTabHeight"};
  Label lblTabs{*this, "lblTabs"};
  Button cmdOK{*this, "cmdOK"};
  Button cmdCancel{*this, "cmdCancel"};

  // Of the form that was accepted.
  const TabPlan& plan() const { return *plan_; }
  double top() const { return tabTop(rules_, floor_); }

 private:
  void fill();
  void leave();
  void changed();
  void spread();
  void show();
  void confirm();
  std::string complaint() const;
  void takeOver();
  void grab(Point at);
  void drag(Point to);

  CamContext& cam_;
  std::vector<TabPass> passes_;
  float floor_;
  TabRules rules_;
  std::unique_ptr<TabPlan> plan_;  // once the fields are filled
  int grabbed_ = -1;
};

}  // namespace tess
