// Drawing Title Block: what identifies the part and its stock, and its material.
// Owns: TitleBlock, LengthField, dlgTitleBlock, mnuOptionsDrawTitleBlock_Click.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "core/controls.h"
#include "core/form.h"
#include "core/session.h"
#include "display/view_commands.h"
#include "tools/speeds_feeds.h"

namespace tess {

// What the title block works with.
struct TitleBlock {
  Session& session;
  SpeedsFeeds& database;
  ViewCommands& view;
};

// A length in a text box. What was not typed keeps its exact value, however it is shown.
class LengthField {
 public:
  explicit LengthField(TextBox& box) : box_(box) {}

  // Both raise Overflow for a value that a 32-bit float does not hold.
  void show(double value, bool metric);
  float value() const;
  double exact() const;

 private:
  TextBox& box_;
  double value_ = 0;
  std::string shown_;
};

// Accept stores everything, marks the setup as changed and shows the full view; the drawing counts
// as changed when something of it did. It raises Overflow, and stores nothing, for a size that is
// too large. The drawing itself is not converted here.
class dlgTitleBlock : public Form {
 public:
  explicit dlgTitleBlock(const TitleBlock& block);

  Label lblDrawingTitle{*this, "lblDrawingTitle"};
  TextBox txtDrawingTitle{*this, "txtDrawingTitle"};
  Label lblDesignerName{*this, "lblDesignerName"};
  TextBox txtDesignerName{*this, "txtDesignerName"};
  Label lblRevision{*this, "lblRevision"};
  TextBox txtRevision{*this, "txtRevision"};
  Label lblDate{*this, "lblDate"};
  TextBox txtDate{*this, "txtDate"};
  Frame fraUnits{*this, "fraUnits"};
  Option optInch{*this, "optInch", fraUnits};
  Option optMM{*this, "optMM", fraUnits};
  Frame fraStock{*this, "fraStock"};
  Option optRectangular{*this, "optRectangular", fraStock};
  Option optRoundStock{*this, "optRoundStock", fraStock};
  Label lblPartLength{*this, "lblPartLength", fraStock};
  TextBox txtPartLength{*this, "txtPartLength", fraStock};
  Label lblPartWidth{*this, "lblPartWidth", fraStock};
  TextBox txtPartWidth{*this, "txtPartWidth", fraStock};
  Label lblPartHeight{*this, "lblPartHeight", fraStock};
  TextBox txtPartHeight{*this, "txtPartHeight", fraStock};
  Frame fraMaterial{*this, "fraMaterial"};
  Option optStockMaterial{*this, "optStockMaterial", fraMaterial};
  Label lblMaterialCategory{*this, "lblMaterialCategory", fraMaterial};
  ComboBox cmbMaterialCategory{*this, "cmbMaterialCategory", ComboStyle::ListOnly, fraMaterial};
  Label lblMaterialName{*this, "lblMaterialName", fraMaterial};
  ComboBox cmbMaterial{*this, "cmbMaterial", ComboStyle::ListOnly, fraMaterial};
  Label lblHardness{*this, "lblHardness", fraMaterial};
  ComboBox cmbHardness{*this, "cmbHardness", ComboStyle::ListOnly, fraMaterial};
  Label lblMaterialCondition{*this, "lblMaterialCondition", fraMaterial};
  ComboBox cmbMaterialCondition{*this, "cmbMaterialCondition", ComboStyle::ListOnly, fraMaterial};
  Option optUserDefinedMaterial{*this, "optUserDefinedMaterial", fraMaterial};
  TextBox txtMaterial{*this, "txtMaterial", fraMaterial};
  Button cmdAccept{*this, "cmdAccept"};
  Button cmdCancel{*this, "cmdCancel"};

 private:
  // A text box that shows a text of the store as it stands.
  struct TextField {
    TextBox& box;
    std::string DrawingStore::*text;
  };

  void nameControls();
  void wire();

  void fill();
  void fillStock();
  void fillMaterial();
  bool selectStoredMaterial();

  void changeUnits(bool metric);
  void convertSizes(double factor, bool metric);
  void chooseStock();
  void chooseCategory();
  void chooseMaterial();
  void chooseKindOfMaterial();

  void takeOver();
  void takeOverMaterial();

  TitleBlock block_;
  DrawingStore& store_;
  std::array<LengthField, 3> sizes_;  // length, width, height
  const std::array<TextField, 4> texts_;
  bool metric_ = false;  // what the sizes are shown in
  std::string table_;    // of the chosen category; "" for none
};

// Shows the title block. A change of the units converts the settings and has the drawing scaled; it
// and a change of the stock's size put the marker at the origin and show the full view.
void mnuOptionsDrawTitleBlock_Click(const TitleBlock& block);

}  // namespace tess
