// The property window: the selected entities as named rows that can be edited.
// Owns: frmProperties.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "core/controls.h"
#include "core/form.h"
#include "drafting/drafting_context.h"
#include "shell/c_segment.h"
#include "shell/entity_blink.h"
#include "shell/prop_list.h"

namespace tess {

// It follows the selection and the rows of the drawing while it is open. An edit is one step of
// undo; a failure leaves the drawing as it was.
class frmProperties : public Form, public ChangeListener {
 public:
  explicit frmProperties(DraftingContext& context);

  // Brings the window up to the selection and the rows, if either has changed.
  void UpdatePropertyWindow();
  // The entity was picked in the drawing: it is the one to be shown.
  void SelectEntity(int sg);

  // What the window has besides its rows; all of it to begin with.
  bool ShowObjectCombo() const { return cboObject.isVisible(); }
  void setShowObjectCombo(bool show) { cboObject.setVisible(show); }
  bool ShowTabs() const { return TabStrip.isVisible(); }
  void setShowTabs(bool show) { TabStrip.setVisible(show); }
  bool ShowDescription() const { return lblDescription.isVisible(); }
  void setShowDescription(bool show) { lblDescription.setVisible(show); }

  // ChangeListener
  void changed(const KeptChange& change) override;
  void rewritten() override { stale_ = true; }

  ComboBox cboObject{*this, "cboObject"};
  ListBox TabStrip{*this, "TabStrip"};
  Frame tabBox{*this, "tabBox"};
  PropList PropList1{*this, "PropList1", tabBox};
  TextBox txtValue{*this, "txtValue", tabBox};
  Label lblDescription{*this, "lblDescription"};

 private:
  void wire();
  void load();
  void Clear();
  void AddObject(int sg);
  void fillObjects();
  int presentObject() const;
  std::vector<int> shownRows() const;
  void fillRows();
  void fillShared();
  void fillTotals();
  void objectChosen();
  void rowChosen();
  void showValue();
  std::string LineSegmentDescription() const;
  void commit();
  void PropList1_Change(const std::string& name, const std::string& value);
  void change(const std::string& name, const std::string& text);

  DraftingContext& context_;
  CSegment segment_;
  EntityBlink blink_;
  Subscription subscription_;
  std::vector<int> objects_;  // rows of the drawing, in the order of their selection
  int picked_ = 0;            // the row that was picked last
  bool showsAll_ = false;     // the entry for all of them was chosen
  bool filling_ = false;      // controls are being filled: their events do nothing
  bool stale_ = false;        // rows have changed since they were shown
  std::string edited_;        // the name of the row whose value is in the text box; "" for none
  std::string shownValue_;    // as it was put there
};

}  // namespace tess
