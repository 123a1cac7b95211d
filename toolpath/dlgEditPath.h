// View/Edit Path Segments: one path row at a time, to be read and changed alone, with its group or
// with all others; and where new paths are to go. Beside it a list of all rows and a search; the
// row, or its group, stands out in the drawing, where a click goes to another one.
// Owns: dlgEditPath, mnuCAMEditPathCycle_Click.
#pragma once

#include <array>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "core/drawing_store.h"
#include "core/form.h"
#include "geometry/float_points.h"
#include "toolpath/cam_context.h"

namespace tess {

class dlgEditPath : public Form {
 public:
  // There must be path rows.
  explicit dlgEditPath(CamContext& cam);
  ~dlgEditPath() override;

  TextBox txtps{*this, "txtps"};
  Label lblTotalSegments{*this, "lblTotalSegments"};
  ListBox lstType{*this, "lstType"};
  Label lblCycleCode{*this, "lblCycleCode"};
  TextBox txtToolNumber{*this, "txtToolNumber"};
  TextBox txtPathGroup{*this, "txtPathGroup"};
  TextBox txtPathGroupName{*this, "txtPathGroupName"};
  TextBox txtpsfeed{*this, "txtpsfeed"};
  TextBox txtpsz{*this, "txtpsz"};
  Frame fraCoordinates{*this, "fraCoordinates"};
  TextBox txtpsx0{*this, "txtpsx0", fraCoordinates};
  TextBox txtpsy0{*this, "txtpsy0", fraCoordinates};
  TextBox txtpsx1{*this, "txtpsx1", fraCoordinates};
  TextBox txtpsy1{*this, "txtpsy1", fraCoordinates};
  Label lblCenterPoint{*this, "lblCenterPoint", fraCoordinates};
  TextBox txtpsxc{*this, "txtpsxc", fraCoordinates};
  TextBox txtpsyc{*this, "txtpsyc", fraCoordinates};
  Label lblIncrDepth{*this, "lblIncrDepth", fraCoordinates};
  TextBox txtIncrDepth{*this, "txtIncrDepth", fraCoordinates};
  Label lblDwell{*this, "lblDwell", fraCoordinates};
  TextBox txtDwell{*this, "txtDwell", fraCoordinates};
  CheckBox chkVisible{*this, "chkVisible"};
  Frame fraApplyTo{*this, "fraApplyTo"};
  Option optApplyToAll{*this, "optApplyToAll", fraApplyTo};
  Option optApplyToGroup{*this, "optApplyToGroup", fraApplyTo};
  Option optApplyToSegment{*this, "optApplyToSegment", fraApplyTo};
  Frame fraInsert{*this, "fraInsert"};
  CheckBox chkInsertBefore{*this, "chkInsertBefore", fraInsert};
  CheckBox chkInsertAfter{*this, "chkInsertAfter", fraInsert};
  CheckBox chkInsertAtEnd{*this, "chkInsertAtEnd", fraInsert};
  Button cmdSetGroup{*this, "cmdSetGroup", fraInsert};
  Label lblCurrGroup{*this, "lblCurrGroup", fraInsert};
  Button cmdPrev{*this, "cmdPrev"};
  Button cmdNext{*this, "cmdNext"};
  Button cmdIns{*this, "cmdIns"};
  Button cmdDel{*this, "cmdDel"};
  Button cmdDeletePathGroup{*this, "cmdDeletePathGroup"};
  Button cmdOrderPaths{*this, "cmdOrderPaths"};
  Button cmdRefresh{*this, "cmdRefresh"};
  Button cmdAccept{*this, "cmdAccept"};
  Button cmdExit{*this, "cmdExit"};
  ListBox lstRows{*this, "lstRows"};  // the columns of a line between tabs; the caption heads them
  ComboBox cmbFind{*this, "cmbFind"};
  TextBox txtFind{*this, "txtFind"};
  Button cmdFindNext{*this, "cmdFindNext"};

  // Takes the fields over into row `row`, or the one that txtps names when it is below 1, and into
  // those that the scope adds, as one step of the log. `ok` becomes false when they are refused.
  void savePathFields(int row, bool& ok);
  // Fills the fields from the current row, after a redraw of the screen if wanted.
  void showPathRow(bool redraw);

 private:
  // A number of a row and the box that shows it.
  struct Field {
    TextBox& box;
    float PathRow::*value;
    bool isLength;  // otherwise it is shown as it is
    std::optional<bool> ofCycle = {};
  };
  using Edit = std::function<void(PathRow&)>;
  using Values = std::vector<std::pair<float PathRow::*, float>>;

  void setCaptions();
  void wireControls();
  void load();
  void leave();

  // ---- Showing
  void put(TextBox& box, const std::string& text);
  bool isEdited(const TextBox& box, int row) const;
  bool showsCycle() const;
  void showType(int type);
  void showGroup(int group);
  void chooseType();
  void chooseScope();
  void enableFields();
  std::vector<int> rowsOfScope(int row) const;
  int visibilityOf(const std::vector<int>& rows) const;
  void chooseInsertion(CheckBox& chosen);
  void listRows();
  void standOut();

  // ---- Saving
  template <class Statement>
  bool attempt(Statement statement);
  void rememberInsertion();
  std::optional<float> entered(const Field& field, int row);
  int enteredTool() const;
  int enteredGroup() const;
  PathRow enteredRow(int row);
  Values enteredValues(int row, bool editedOnly);
  bool isAcceptable(const PathRow& row, int number);
  bool saveAll(int row);
  bool saveGroup(int row);
  bool saveSegment(int row);
  Edit enteredCodes(int row);
  bool saveRows(int row, const Edit& edit);
  void saveName(Change& change, int row);

  // ---- What the buttons do
  bool save();
  void saveAndClose();
  void saveAndShow();
  void goToTyped();
  void goOn(int step);
  void goToGroup(int step);
  void goTo(int row);
  void goToListed();
  void goToClicked(Point at);
  void findNext();
  void insertRow();
  void deleteRow();
  void deleteGroup();
  void setGroup();
  void orderPaths();
  void pointOutUnplaced();
  Answer tell(const std::string& text, const std::string& title, MessageIcon icon,
              MessageButtons buttons = MessageButtons::Ok);
  int groupAt(int row) const { return groupCutOff(store_.pscode[row]); }
  bool isThere(int row) const { return row >= 1 && row <= store_.NumPathSegments; }

  CamContext& cam_;
  const DrawingStore& store_;
  const std::array<Field, 10> fields_{{
      {txtpsx0, &PathRow::x0, true},
      {txtpsy0, &PathRow::y0, true},
      {txtpsx1, &PathRow::x1, true},
      {txtpsy1, &PathRow::y1, true},
      {txtpsxc, &PathRow::xc, true, false},
      {txtpsyc, &PathRow::yc, true, false},
      {txtIncrDepth, &PathRow::xc, true, true},
      {txtDwell, &PathRow::yc, false, true},
      {txtpsz, &PathRow::z, true},
      {txtpsfeed, &PathRow::feed, false},
  }};
  Int16 row_ = 1;
  Int16 currentGroup_;
  bool filling_ = false;
  int shownVisibility_ = 0;
  bool inserted_ = false;                        // a row, since the form was opened
  std::map<const TextBox*, std::string> shown_;  // texts as they were filled in
};

// Opens the dialog, or tells that there is nothing to edit.
void mnuCAMEditPathCycle_Click(CamContext& cam);

}  // namespace tess
