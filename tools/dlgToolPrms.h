// Tool Select & Definition: the tool chest, which edits the tool table and picks the tool in use.
// Owns: ToolChest, dlgToolPrms, mnuCAMSelectTool_Click.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "core/controls.h"
#include "core/form.h"
#include "core/session.h"
#include "tools/cutting_advice.h"
#include "tools/dlgColor.h"
#include "tools/speeds_feeds.h"

namespace tess {

struct DrawingStore;

// What the chest works with.
struct ToolChest {
  Session& session;
  SpeedsFeeds& database;
  ColorDialog& colors;
};

// Diameter, colour, tool material and what the buttons do are in the table at once; the rest of the
// row on show is stored when another one is shown, and on Accept. Accept alone changes the tool in
// use, and marks the setup as changed, as every edit that reached the table does.
class dlgToolPrms : public Form {
 public:
  // `tool` is the index of the tool in use, which opens on show; row 0 stands for one outside the
  // table.
  dlgToolPrms(const ToolChest& chest, int tool);

  // The row on show, from 0.
  int tool() const { return current_; }

  ListBox List1{*this, "List1"};
  Button cmdAdd{*this, "cmdAdd"};
  Button cmdDelete{*this, "cmdDelete"};
  Button cmdImport{*this, "cmdImport"};
  Button cmdExport{*this, "cmdExport"};
  Label lbltool{*this, "lbltool"};
  TextBox txttool{*this, "txttool"};
  Frame fraType{*this, "fraType"};
  Option optEndMill{*this, "optEndMill", fraType};
  Option optFaceMill{*this, "optFaceMill", fraType};
  Option optSlotMill{*this, "optSlotMill", fraType};
  CheckBox chkInside{*this, "chkInside"};  // of lathe setups
  Label lblDiameter{*this, "lblDiameter"};
  TextBox txtdiameter{*this, "txtdiameter"};
  Label lblNumberFlutes{*this, "lblNumberFlutes"};
  TextBox txtNumberFlutes{*this, "txtNumberFlutes"};
  Label lblToolMaterial{*this, "lblToolMaterial"};
  ComboBox cmbToolMaterial{*this, "cmbToolMaterial"};
  Label lblColor{*this, "lblColor"};
  Slider Slider1{*this, "Slider1"};
  Picture picColor{*this, "picColor"};
  Button cmdColorPalette{*this, "cmdColorPalette"};
  Frame fraRecommended{*this, "fraRecommended"};
  Label lblMaterial{*this, "lblMaterial", fraRecommended};
  Label lblFeedRateCaption{*this, "lblFeedRateCaption", fraRecommended};
  Label lblFeedRate{*this, "lblFeedRate", fraRecommended};
  Label lblSpindleSpeedCaption{*this, "lblSpindleSpeedCaption", fraRecommended};
  Label lblSpindleSpeed{*this, "lblSpindleSpeed", fraRecommended};
  Label lblCuttingSpeedCaption{*this, "lblCuttingSpeedCaption", fraRecommended};
  Label lblCuttingSpeed{*this, "lblCuttingSpeed", fraRecommended};
  Label lblFeedDepthCaption{*this, "lblFeedDepthCaption", fraRecommended};
  Label lblFeedDepth{*this, "lblFeedDepth", fraRecommended};
  Label lblUse{*this, "lblUse", fraRecommended};
  TextBox txtSpindleSpeed{*this, "txtSpindleSpeed", fraRecommended};
  Button cmdUse{*this, "cmdUse", fraRecommended};
  Frame fraAdvice{*this, "fraAdvice"};
  Label lblAdvice{*this, "lblAdvice", fraAdvice};
  Button cmdUseAdvice{*this, "cmdUseAdvice", fraAdvice};
  Button cmdAccept{*this, "cmdAccept"};
  Button cmdExit{*this, "cmdExit"};

 private:
  void nameControls();
  void wireList();
  void wireTool();
  void wireButtons();

  // Showing
  void fill();
  void showRow(int row);
  void showTexts();
  void showSpindleSpeed(float speed);
  void showColor();
  void FillToolMaterials();
  void rebuildList();

  // The recommendation and what stands beside it
  void refresh();
  void recommend(int flutes, float diameter);
  void complain(const char* what);
  void showStored();
  void advise(int flutes, float diameter);
  MillType chosenType() const;

  // What the operator does
  void chooseLine();
  void typeChosen();
  void materialChosen();
  void diameterChanged();
  void validateDiameter(Validation& validation);
  void takeTypedSpeed();
  void useSpeed();
  void useAdvice();
  void chooseColor();
  void addTool();
  void deleteTool();
  std::optional<std::string> chooseLibrary(const char* title, bool forSaving);
  void importLibrary();
  void exportLibrary();

  // Storing
  void storeRow();
  void storeName();
  void storeFlutes();
  void takeOver();
  void edited();

  ToolChest chest_;
  DrawingStore& store_;
  int inUse_;
  int current_;
  bool loading_ = false;                // controls are being filled: their events do nothing
  bool pendingEdits_ = false;           // the row on show holds what the table does not have yet
  bool followsSpeed_ = false;           // the tool's speed was 0 and follows the recommendation
  std::string shownName_, shownSpeed_;  // as they were put there, to tell what was typed
  std::optional<CuttingAdvice> advice_;
};

// The tool chest on the tool in use.
void mnuCAMSelectTool_Click(const ToolChest& chest);

}  // namespace tess
