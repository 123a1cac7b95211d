// View/Edit Path Segments.
#include "toolpath/dlgEditPath.h"

#include <array>
#include <utility>

#include "core/number_text.h"
#include "core/text.h"
#include "display/view_transform.h"
#include "drafting/edit_steps.h"
#include "toolpath/cycles.h"
#include "toolpath/frmPathMap.h"
#include "toolpath/path_list.h"
#include "toolpath/toolpath_commands.h"

namespace tess {
namespace {

constexpr int kLastTypedTool = 100;
constexpr int kLastTypedGroup = 299;  // what a code of 16 bits holds besides the selection
constexpr int kGrey = 2;              // of a check box
constexpr int kListedTypes = 3;       // lines and arcs; a cycle only while one is shown
constexpr std::string_view kCycleType = "8 - Machine Cycle";
constexpr std::string_view kCycleMark = "8 -";
constexpr int kOutlineWidth = 3;     // pixels, of what stands out in the drawing
constexpr double kSmallestRing = 6;  // pixels, round a row that is a point

constexpr std::array<const char*, 4> kFindable{"Tool #", "Path Group #", "Z Depth", "Feed Rate"};

int visibilityValue(bool visible) {
  return visible ? 1 : 0;
}

// Whether the drawing looks the same with either.
bool looksAlike(const PathRow& a, const PathRow& b) {
  PathRow moved = a;
  moved.feed = b.feed;
  moved.z = b.z;
  return moved == b;
}

bool isUnplaced(const PathRow& row) {
  return row.type == kLine && row.x0 == 0 && row.y0 == 0 && row.x1 == 0 && row.y1 == 0;
}

}  // namespace

dlgEditPath::dlgEditPath(CamContext& cam)
    : Form("dlgEditPath", "View/Edit Path Segments"), cam_(cam), store_(cam.store) {
  setCaptions();
  wireControls();
  setDefaultButton(cmdRefresh);
  setCancelButton(cmdExit);
  setPageButtons(cmdPrev, cmdNext);
  leavesDrawingInReach = true;
  onLoad = [this] { load(); };
  onClose = [this] { leave(); };
}

dlgEditPath::~dlgEditPath() {
  cam_.context.onFormClick = nullptr;
}

void dlgEditPath::setCaptions() {
  lblTotalSegments.setCaption("Total # of Segments : 0");
  fraCoordinates.setCaption(" Coordinates: ");
  lblCenterPoint.setCaption("Center Point :");
  lblIncrDepth.setCaption("Incr Depth :");
  lblDwell.setCaption("Dwell :");
  chkVisible.setCaption("Path Segment(s) Visible ?");
  fraApplyTo.setCaption(" Apply Changes To : ");
  optApplyToAll.setCaption("All Segments");
  optApplyToGroup.setCaption("Path Group");
  optApplyToSegment.setCaption("Path Segment");
  fraInsert.setCaption(" Insert New Paths : ");
  chkInsertBefore.setCaption("Before Current Group");
  chkInsertAfter.setCaption("After Current Group");
  chkInsertAtEnd.setCaption("After All Groups");
  cmdSetGroup.setCaption("Set Current Group");
  cmdPrev.setCaption("&Previous");
  cmdNext.setCaption("&Next");
  cmdIns.setCaption("&Insert Segment");
  cmdDel.setCaption("&Delete Segment");
  cmdDeletePathGroup.setCaption("Delete  Path &Group");
  cmdOrderPaths.setCaption("&Order Paths");
  cmdRefresh.setCaption("&Apply");
  cmdAccept.setCaption("A&ccept");
  cmdExit.setCaption("E&xit");
  lstRows.setCaption(kPathListHeadings);
  cmbFind.setItems({kFindable.begin(), kFindable.end()});
  cmbFind.setIndex(0);
  cmdFindNext.setCaption("Find N&ext");
}

void dlgEditPath::wireControls() {
  txtps.onLeave = [this] { goToTyped(); };
  lstType.onClick = [this] { chooseType(); };
  for (Option* const scope : {&optApplyToAll, &optApplyToGroup, &optApplyToSegment}) {
    scope->onClick = [this] { chooseScope(); };
  }
  for (CheckBox* const box : {&chkInsertBefore, &chkInsertAfter, &chkInsertAtEnd}) {
    box->onClick = [this, box] { chooseInsertion(*box); };
  }
  cmdSetGroup.onClick = [this] { setGroup(); };
  cmdPrev.onClick = [this] { goOn(-1); };
  cmdNext.onClick = [this] { goOn(1); };
  cmdIns.onClick = [this] { insertRow(); };
  cmdDel.onClick = [this] { deleteRow(); };
  cmdDeletePathGroup.onClick = [this] { deleteGroup(); };
  cmdOrderPaths.onClick = [this] { orderPaths(); };
  cmdRefresh.onClick = [this] { saveAndShow(); };
  cmdAccept.onClick = [this] { saveAndClose(); };
  cmdExit.onClick = [this] { close(); };
  lstRows.onClick = [this] { goToListed(); };
  cmdFindNext.onClick = [this] { findNext(); };
  txtFind.onFocus = [this] { setDefaultButton(cmdFindNext); };
  txtFind.onLeave = [this] { setDefaultButton(cmdRefresh); };
}

void dlgEditPath::load() {
  row_ = 1;
  inserted_ = false;
  currentGroup_ =
      cam_.pathInsertGroup < 1 ? Int16(groupAt(store_.NumPathSegments)) : cam_.pathInsertGroup;
  lblCurrGroup.setCaption(std::to_string(currentGroup_));
  const PathInsertMode mode = cam_.pathInsertMode;
  (mode == PathInsertMode::BeforeGroup  ? chkInsertBefore
   : mode == PathInsertMode::AfterGroup ? chkInsertAfter
                                        : chkInsertAtEnd)
      .setChecked(true);
  lstType.setItems({"1 - Line", "2 - CW Arc", "3 - CCW Arc"});
  lstRows.setSource(0, [this](int index) {
    return isThere(index + 1)
               ? pathListLine(store_, index + 1, cam_.context.session.formats.coordfmt)
               : std::string();
  });
  cam_.context.onFormClick = [this](Point at) { goToClicked(at); };
  optApplyToSegment.setValue(true);
  showPathRow(/*redraw=*/false);
}

void dlgEditPath::leave() {
  cam_.context.onFormClick = nullptr;
  endPreview(cam_.context);
  pointOutUnplaced();
}

// ---- Showing a row

// What the box shows and keeps: a text that is still this one stands for the stored bits.
void dlgEditPath::put(TextBox& box, const std::string& text) {
  box.setText(text);
  shown_[&box] = text;
}

bool dlgEditPath::isEdited(const TextBox& box, int row) const {
  return row != row_ || box.text() != shown_.at(&box);
}

bool dlgEditPath::showsCycle() const {
  return lstType.text().find(kCycleMark) != std::string::npos;
}

void dlgEditPath::showPathRow(bool redraw) {
  const Procedure here("dlgEditPath.showPathRow(redraw)");
  if (redraw) cam_.context.redraw.redrawscreen();
  if (!isThere(row_)) {
    close();
    return;
  }
  filling_ = true;
  const PathRow row = pathRow(store_, row_);
  const std::string& format = cam_.context.session.formats.coordfmt;
  put(txtps, std::to_string(row_));
  lblTotalSegments.setCaption("Total Segments : " + std::to_string(store_.NumPathSegments));
  showType(row.type);
  put(txtToolNumber, std::to_string(toolIndex(row.code) + 1));
  showGroup(groupCutOff(row.code));
  for (const Field& field : fields_) {
    const float value = row.*field.value;
    put(field.box, field.isLength ? formatNumber(value, format) : plainText(value));
  }
  shownVisibility_ = visibilityOf(rowsOfScope(row_));
  chkVisible.setValue(shownVisibility_);
  cmdPrev.setEnabled(row_ > 1);
  cmdNext.setEnabled(row_ < store_.NumPathSegments);
  listRows();
  filling_ = false;
  enableFields();
  standOut();
}

// Whatever was done to the rows before, the list shows them as they are, unless a script has put
// items of its own there.
void dlgEditPath::listRows() {
  lstRows.sourceChanged(store_.NumPathSegments);
  if (row_ <= lstRows.count()) lstRows.setIndex(row_ - 1);
}

// The row, or all of its group in that scope.
void dlgEditPath::standOut() {
  const std::vector<int> rows =
      optApplyToGroup.value() ? rowsOfScope(row_) : std::vector<int>{row_};
  const double ring = kSmallestRing / PixelsPerInchX(cam_.context.ScreenProxy);
  previewRows(cam_.context, pathOutlines(store_, rows, narrow(ring)), kOutlineWidth);
}

// Fixed: the list has no entry for types 0 and 4 to 78; such a row keeps its type.
void dlgEditPath::showType(int type) {
  const bool isCycle = type >= kFirstShownCycle;
  if (lstType.count() > kListedTypes) lstType.removeItem(kListedTypes);
  if (isCycle) lstType.addItem(std::string(kCycleType));
  const bool isListed = type >= 1 && type <= kListedTypes;
  lstType.setIndex(isCycle ? kListedTypes : isListed ? type - 1 : -1);
  lblCycleCode.setCaption(isCycle ? "Cycle Code : G" + std::to_string(type) : "");
  chooseType();
}

void dlgEditPath::showGroup(int group) {
  put(txtPathGroup, std::to_string(group));
  const Column<std::string>& names = store_.pathgroupname;
  const bool hasName = group >= 0 && group <= names.upperBound() && !names[group].empty();
  if (hasName) return put(txtPathGroupName, names[group]);
  Change change(cam_.changes);
  put(txtPathGroupName, pathGroupName(change.pathGroupNames(), group));
  change.keep({.redraws = false});
}

// A cycle has an increment and a dwell where other rows have a centre.
void dlgEditPath::chooseType() {
  const bool isCycle = showsCycle();
  lblCycleCode.setVisible(isCycle);
  lblCenterPoint.setVisible(!isCycle);
  txtpsxc.setVisible(!isCycle);
  txtpsyc.setVisible(!isCycle);
  lblIncrDepth.setVisible(isCycle);
  txtIncrDepth.setVisible(isCycle);
  lblDwell.setVisible(isCycle);
  txtDwell.setVisible(isCycle);
}

// No field is filled anew, so that what was typed can still go to the scope that is chosen after.
void dlgEditPath::chooseScope() {
  enableFields();
  if (filling_ || !isThere(row_)) return;
  standOut();
  if (chkVisible.value() != shownVisibility_) return;
  shownVisibility_ = visibilityOf(rowsOfScope(row_));
  chkVisible.setValue(shownVisibility_);
}

void dlgEditPath::enableFields() {
  const bool segment = optApplyToSegment.value();
  const int type = isThere(row_) ? static_cast<int>(store_.pstype[row_]) : kLine;
  lstType.setEnabled(segment && type < kFirstShownCycle);
  txtPathGroup.setEnabled(segment);
  txtPathGroupName.setEnabled(segment || optApplyToGroup.value());
  for (TextBox* const box : {&txtpsx0, &txtpsy0, &txtpsx1, &txtpsy1, &txtpsxc, &txtpsyc}) {
    box->setEnabled(segment);
  }
  txtIncrDepth.setEnabled(segment && cycleHasIncrement(type));
  txtDwell.setEnabled(segment && cycleHasDwell(type));
}

std::vector<int> dlgEditPath::rowsOfScope(int row) const {
  if (optApplyToSegment.value()) return {row};
  std::vector<int> rows;
  for (int ps = 1; ps <= store_.NumPathSegments; ++ps) {
    if (optApplyToAll.value() || groupAt(ps) == groupAt(row)) rows.push_back(ps);
  }
  return rows;
}

int dlgEditPath::visibilityOf(const std::vector<int>& rows) const {
  const bool first = store_.psvisible[rows.front()];
  for (const int ps : rows) {
    if (store_.psvisible[ps] != first) return kGrey;
  }
  return visibilityValue(first);
}

void dlgEditPath::chooseInsertion(CheckBox& chosen) {
  if (!chosen.isChecked()) return;
  for (CheckBox* const box : {&chkInsertBefore, &chkInsertAfter, &chkInsertAtEnd}) {
    if (box != &chosen) box->setChecked(false);
  }
}

// ---- Saving

// One statement of the saving: what fails is told, and the next one follows.
template <class Statement>
bool dlgEditPath::attempt(Statement statement) {
  try {
    statement();
    return true;
  } catch (const RuntimeFailure& failure) {
    takeCallChain();
    tell("Error Saving Path Data:  " + failure.description(), caption(), MessageIcon::Error);
    return false;
  }
}

void dlgEditPath::savePathFields(int row, bool& ok) {
  const Procedure here("dlgEditPath.savePathFields(row,ok)");
  if (row < 1) attempt([&] { row = parseInteger(txtps.text()); });
  rememberInsertion();
  if (!isThere(row)) return;
  ok = optApplyToAll.value()     ? saveAll(row)
       : optApplyToGroup.value() ? saveGroup(row)
                                 : saveSegment(row);
}

void dlgEditPath::rememberInsertion() {
  if (currentGroup_ > 0) cam_.pathInsertGroup = currentGroup_;
  cam_.pathInsertMode = chkInsertBefore.isChecked()  ? PathInsertMode::BeforeGroup
                        : chkInsertAfter.isChecked() ? PathInsertMode::AfterGroup
                                                     : PathInsertMode::AtEnd;
}

// Nothing when the text is no number of the table.
std::optional<float> dlgEditPath::entered(const Field& field, int row) {
  float value = pathRow(store_, row).*field.value;
  if (!isEdited(field.box, row)) return value;
  if (!attempt([&] { value = parseFloat(field.box.text()); })) return std::nullopt;
  return value;
}

int dlgEditPath::enteredTool() const {
  const int number = parseInteger(txtToolNumber.text());
  if (number < 1 || number > kLastTypedTool) throw overflow();
  return number - 1;
}

int dlgEditPath::enteredGroup() const {
  const int group = parseInteger(txtPathGroup.text());
  if (group < 0 || group > kLastTypedGroup) throw overflow();
  return group;
}

// The new codes of the rows, by what was edited of row `row`. A code that does not fit is told once
// and leaves them all.
dlgEditPath::Edit dlgEditPath::enteredCodes(int row) {
  const bool toolEdited = isEdited(txtToolNumber, row);
  const bool groupEdited = isEdited(txtPathGroup, row);
  int tool = 0, group = 0;
  const bool fits = attempt([&] {
    if (toolEdited) tool = enteredTool();
    if (groupEdited) group = enteredGroup();
  });
  if (!fits || (!toolEdited && !groupEdited)) return [](PathRow&) {};
  return [=](PathRow& now) {
    now.code = pathCode(groupEdited ? group : groupCutOff(now.code),
                        toolEdited ? tool : toolIndex(withoutSelection(now.code)));
  };
}

// Fixed: an arc's end nearer the centre than its start passes; operators know no question there.
bool dlgEditPath::isAcceptable(const PathRow& row, int number) {
  const std::string title = "Save Path Segment #" + std::to_string(number);
  const Point start{row.x0, row.y0}, end{row.x1, row.y1}, center{row.xc, row.yc};
  if (row.type == kLine && start == end) {
    tell("The Starting Point cannot be the same as the Ending Point. ", title,
         MessageIcon::Information);
    return false;
  }
  if (row.type != kClockwiseArc && row.type != kCounterClockwiseArc) return true;
  bool isWrong = false;
  attempt(
      [&] { isWrong = distance(center, end) - distance(center, start) > store_.cfg_tolerance; });
  return !isWrong || tell(
                         "The Center Point point is not equidistant from the two endpoints.  Do "
                         "you wish to save anyway?",
                         title, MessageIcon::Question, MessageButtons::YesNo) == Answer::Yes;
}

// The row as the fields have it; what is no number leaves what was there.
PathRow dlgEditPath::enteredRow(int row) {
  PathRow now = pathRow(store_, row);
  enteredCodes(row)(now);
  const bool isCycle = showsCycle();
  if (!isCycle && lstType.index() >= 0) now.type = parseInteger(lstType.text());
  for (const Field& field : fields_) {
    if (field.ofCycle.value_or(isCycle) != isCycle) continue;
    now.*field.value = entered(field, row).value_or(now.*field.value);
  }
  return now;
}

bool dlgEditPath::saveSegment(int row) {
  const PathRow wanted = enteredRow(row);
  if (!isAcceptable(wanted, row)) return false;
  return saveRows(row, [&](PathRow& now) { now = wanted; });
}

// Depth and feed: all that can be read, or what was edited of it.
dlgEditPath::Values dlgEditPath::enteredValues(int row, bool editedOnly) {
  Values values;
  for (const Field& field : fields_) {
    if (&field.box != &txtpsz && &field.box != &txtpsfeed) continue;
    if (editedOnly && !isEdited(field.box, row)) continue;
    if (const auto value = entered(field, row)) values.emplace_back(field.value, *value);
  }
  return values;
}

bool dlgEditPath::saveGroup(int row) {
  const Edit changeCode = enteredCodes(row);
  const Values values = enteredValues(row, /*editedOnly=*/true);
  return saveRows(row, [&](PathRow& now) {
    changeCode(now);
    for (const auto& [column, value] : values) now.*column = value;
  });
}

// Fixed: with No the visibility goes to all rows all the same; operators hide paths that way.
bool dlgEditPath::saveAll(int row) {
  const std::string question =
      "Are you sure you want to assign the following values to ALL path segments ?\n"
      "    Tool # = " +
      txtToolNumber.text() + "\n    ZDepth = " + txtpsz.text() +
      "\n    Feed Rate = " + txtpsfeed.text();
  const Answer answer =
      tell(question, "All Segments", MessageIcon::Question, MessageButtons::YesNo);
  if (!isThere(row)) return false;  // whoever answered has changed the drawing
  std::optional<int> tool;
  Values values;
  if (answer == Answer::Yes) {
    attempt([&] { tool = enteredTool(); });
    values = enteredValues(row, /*editedOnly=*/false);
  }
  return saveRows(row, [&](PathRow& now) {
    if (tool && toolIndex(now.code) != *tool) now.code = pathCode(groupCutOff(now.code), *tool);
    for (const auto& [column, value] : values) now.*column = value;
  });
}

// Edits the rows of the scope of row `row`, with their visibility and the name of the group, as one
// step of the log. False when the operator would not have it.
bool dlgEditPath::saveRows(int row, const Edit& edit) {
  Change change(cam_.changes);
  bool looksOther = false;
  for (const int ps : rowsOfScope(row)) {
    const PathRow before = change.paths.row(ps);
    PathRow now = before;
    edit(now);
    if (now != before) change.paths.replace(ps, now);
    if (chkVisible.value() != kGrey) {
      now.visible = chkVisible.isChecked();
      change.paths.show(ps, now.visible);
    }
    looksOther = looksOther || !looksAlike(before, now);
  }
  if (!optApplyToAll.value()) saveName(change, row);
  if (!keepEdit(cam_.context, change)) return false;
  if (looksOther) cam_.context.redraw.redrawSoon();
  return true;
}

void dlgEditPath::saveName(Change& change, int row) {
  if (!isEdited(txtPathGroupName, row)) return;
  attempt([&] {
    const int group = enteredGroup();
    Column<std::string>& names = change.pathGroupNames();
    pathGroupName(names, group);
    names[group] = txtPathGroupName.text();
  });
}

// ---- What the buttons do

bool dlgEditPath::save() {
  bool ok = true;
  savePathFields(0, ok);
  return ok;
}

void dlgEditPath::saveAndClose() {
  if (save()) accept();
}

void dlgEditPath::saveAndShow() {
  if (save()) showPathRow(/*redraw=*/false);
}

// A number that is none of the table gives way to the one before.
void dlgEditPath::goToTyped() {
  int row = 0;
  try {
    row = parseInteger(txtps.text());
  } catch (const RuntimeFailure&) {
    takeCallChain();
  }
  if (row == row_ || !isThere(row)) return txtps.setText(std::to_string(row_));
  goTo(row);
}

void dlgEditPath::goTo(int row) {
  row_ = row;
  showPathRow(/*redraw=*/false);
}

void dlgEditPath::goToListed() {
  const int row = lstRows.index() + 1;
  if (!filling_ && row != row_ && isThere(row)) goTo(row);
}

void dlgEditPath::goToClicked(Point at) {
  const int row = pathRowAt(store_, at, row_);
  if (row == 0) return beep(cam_.context);
  if (row != row_) goTo(row);
}

void dlgEditPath::findNext() {
  const auto what = static_cast<PathValue>(cmbFind.index());
  const std::string wanted = cmbFind.text() + " " + std::string(trimmed(txtFind.text()));
  const auto say = [this](const std::string& text) {
    tell(text, "Find Path Segment", MessageIcon::Information);
  };
  const std::optional<double> value = numericValue(txtFind.text());
  if (!value) return say("Type the number to look for, as 2 or -0.25.");
  const int row = findPathRow(store_, row_, what, *value, cam_.context.session.formats.coordfmt);
  if (row == 0) return say("There is no path segment with " + wanted + ".");
  if (row == row_) return say("There is no other path segment with " + wanted + ".");
  goTo(row);
}

void dlgEditPath::goOn(int step) {
  if (!isThere(row_)) return showPathRow(/*redraw=*/false);
  if (optApplyToGroup.value()) return goToGroup(step);
  if (optApplyToSegment.value() && !save()) return;
  if (isThere(row_ + step)) goTo(row_ + step);
}

// The neighbouring run of another group.
void dlgEditPath::goToGroup(int step) {
  const auto goesOn = [this](int row) { return isThere(row) && groupAt(row) == groupAt(row_); };
  int row = row_;
  while (goesOn(row)) row += step;
  if (!isThere(row)) {
    tell(step > 0 ? "There are no subsequent Path Groups." : "There are no previous Path Groups.",
         caption(), MessageIcon::Information);
    return;
  }
  while (step < 0 && isThere(row - 1) && groupAt(row - 1) == groupAt(row)) --row;
  goTo(row);
}

void dlgEditPath::insertRow() {
  const Procedure here("dlgEditPath.cmdIns_Click()");
  if (!save()) return;
  if (!isThere(row_)) return showPathRow(/*redraw=*/false);
  const PathRow current = pathRow(store_, row_);
  const int group = groupCutOff(current.code);
  Change change(cam_.changes);
  cam_.store.currentpathgroup = group;
  change.paths.insert(row_, {.type = kLine,
                             .z = current.z,
                             .feed = current.feed,
                             .code = withoutSelection(current.code)});
  inserted_ = keepEdit(cam_.context, change, {.undoMark = kRowsAdded}) || inserted_;
  showPathRow(/*redraw=*/false);
}

void dlgEditPath::deleteRow() {
  const Procedure here("dlgEditPath.cmdDel_Click()");
  Change change(cam_.changes);
  if (isThere(row_)) change.paths.erase(row_);
  keepEdit(cam_.context, change, {.undoMark = kRowsDeleted});
  showPathRow(/*redraw=*/false);
}

void dlgEditPath::deleteGroup() {
  const Procedure here("dlgEditPath.cmdDeletePathGroup_Click()");
  if (!isThere(row_)) return showPathRow(/*redraw=*/false);
  const int group = groupAt(row_);
  const Answer answer = tell("Are you sure you want to delete all the segments in Path Group #" +
                                 std::to_string(group) + "?",
                             "Delete Path Group", MessageIcon::Question, MessageButtons::OkCancel);
  if (answer != Answer::Ok) return;
  Change change(cam_.changes);
  change.paths.eraseWhere([&](int ps) { return groupAt(ps) == group; });
  if (!keepEdit(cam_.context, change, {.undoMark = kRowsDeleted})) return;
  goTo(1);
}

void dlgEditPath::setGroup() {
  if (txtPathGroup.text().find_first_not_of(' ') == std::string::npos) return;
  attempt([this] { currentGroup_ = Int16(parseInteger(txtPathGroup.text())); });
  lblCurrGroup.setCaption(std::to_string(currentGroup_));
}

// The map is a form of its own, for which a click in the drawing means nothing.
void dlgEditPath::orderPaths() {
  frmPathMap map(cam_);
  const auto onClick = std::exchange(cam_.context.onFormClick, [](Point) {});
  cam_.context.session.host.prompts.showModal(map);
  cam_.context.onFormClick = onClick;
  showPathRow(/*redraw=*/true);
}

// A row that was inserted and forgotten would send the tool to the origin.
void dlgEditPath::pointOutUnplaced() {
  if (!std::exchange(inserted_, false)) return;
  for (int ps = 1; ps <= store_.NumPathSegments; ++ps) {
    if (!isUnplaced(pathRow(store_, ps))) continue;
    tell("Path segment #" + std::to_string(ps) +
             " still lies at 0, 0: a program would send the tool there.",
         caption(), MessageIcon::Warning);
    return;
  }
}

Answer dlgEditPath::tell(const std::string& text, const std::string& title, MessageIcon icon,
                         MessageButtons buttons) {
  return cam_.context.session.host.prompts.showMessage(
      {.text = text, .title = title, .icon = icon, .buttons = buttons});
}

// ---- The command

void mnuCAMEditPathCycle_Click(CamContext& cam) {
  const Procedure here("frmMain.mnuCAMEditPathCycle_Click()");
  Prompts& prompts = cam.context.session.host.prompts;
  if (cam.store.NumPathSegments < 1) {
    prompts.showMessage({.text = "No Path Segments To Edit",
                         .title = "Edit Path/Cycle",
                         .icon = MessageIcon::Information});
    return;
  }
  dlgEditPath dialog(cam);
  prompts.showModal(dialog);
}

constexpr CamCommand kEditPathCommand{
    .info = {.tool = "miEditPath/Cycle",
             .caption = "&Edit Path/Cycle...",
             .menu = {"miCAM", 320},
             .bar = {"barCAM", 270}},
    .run = mnuCAMEditPathCycle_Click,
};

}  // namespace tess
