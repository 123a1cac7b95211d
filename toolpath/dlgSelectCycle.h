// Cycle Select & Definition: the choice of a machine cycle among the templates of the setup, whose
// numbers can be edited on the way.
// Owns: dlgSelectCycle, chooseCycle.
#pragma once

#include <array>
#include <optional>

#include "core/controls.h"
#include "core/form.h"
#include "toolpath/cam_context.h"

namespace tess {

template <typename T>
class Column;
struct DrawingStore;

class dlgSelectCycle : public Form {
 public:
  explicit dlgSelectCycle(CamContext& cam);

  ListBox List1{*this, "List1"};
  TextBox txtcyclefinaldepth{*this, "txtcyclefinaldepth"};
  TextBox txtcycleincrdepth{*this, "txtcycleincrdepth"};
  TextBox txtcycledwell{*this, "txtcycledwell"};
  TextBox txtcyclefeedrate{*this, "txtcyclefeedrate"};
  Label lblTool{*this, "lblTool"};  // what the holes are made with
  CheckBox chkSelectedCircles{*this, "chkSelectedCircles"};
  Button cmdAccept{*this, "cmdAccept"};
  Button cmdCancel{*this, "cmdCancel"};

  // The template to place, from 0, once one was accepted.
  std::optional<int> result() const { return result_; }

 private:
  // A number of the template and the box that shows it.
  struct Field {
    TextBox& box;
    Column<float> DrawingStore::*column;
    bool isDepth;
    const char* withoutTemplate;
  };

  void load();
  void chooseTemplate();
  void fill();
  void show(const Field& field);
  void keep(const Field& field);
  void enableFields();
  void takeOver();
  bool hasTemplate() const;

  CamContext& cam_;
  const std::array<Field, 4> fields_;
  int template_ = 0;
  std::optional<int> result_;
};

// Shows the dialog and gives its result.
std::optional<int> chooseCycle(CamContext& cam);

}  // namespace tess
