// Long sessions of random commands, keys and pointer events through the program's entry points.
// Whatever an operator does, the tables hold only what they may, the change log leads back to the
// starting rows and forth again, files lose nothing that they keep, and whoever follows the changes
// has the same tables.
#include <algorithm>
#include <array>
#include <cstdlib>
#include <map>
#include <optional>

#include "gtest/gtest.h"

#include "core/file_system.h"
#include "core/rounding.h"
#include "display/display_commands.h"
#include "drafting/dlgEditRadius.h"
#include "drafting/dlgInputReal.h"
#include "drafting/dlgPositionCursor.h"
#include "drafting/dlgSetGrids.h"
#include "drafting/drafting_commands.h"
#include "drafting/frmMirror.h"
#include "drafting/frmRotate.h"
#include "drafting/pending_actions.h"
#include "tests/geometry/scenes.h"
#include "tests/support/mirrored_tables.h"
#include "tests/support/running_program.h"
#include "toolpath/BoltCircle.h"
#include "toolpath/dlgEditPath.h"
#include "toolpath/dlgSelectCycle.h"
#include "toolpath/frmPathMap.h"
#include "toolpath/toolpath_commands.h"

namespace tess {
namespace {

using testing::Dice;
using testing::MirroredTables;
using testing::RunningProgram;

constexpr int kSteps = 2500;

// ---- What a drawing is, apart from what is selected in it

// Type, class or code, and the coordinates; of a path row depth and feed too.
using Row = std::array<double, 10>;

// To the decimals that a save leaves of drawing rows.
double kept(float coordinate) {
  return roundTo(coordinate, kCoordinateDecimals);
}

Row drawnRow(const DrawingStore& store, int sg) {
  const SegmentRow row = segmentRow(store, sg);
  const bool centered =
      isArc(row.type) || row.type == kCircle;  // others hold what was there before
  return {static_cast<double>(row.type),
          static_cast<double>(entityClass(row.attr)),
          kept(row.x0),
          kept(row.y0),
          kept(row.x1),
          kept(row.y1),
          centered ? kept(row.xc) : 0,
          centered ? kept(row.yc) : 0};
}

Row placedRow(const DrawingStore& store, int ps) {
  const PathRow row = pathRow(store, ps);
  const int code = isSelected(row.code) ? row.code - kSelected : row.code;
  return {static_cast<double>(row.type),
          static_cast<double>(code),
          row.x0,
          row.y0,
          row.x1,
          row.y1,
          row.xc,
          row.yc,
          row.z,
          row.feed};
}

// Drawing rows as a set, path rows in the order of cutting.
struct Contents {
  std::vector<Row> drawn, placed;

  explicit Contents(const DrawingStore& store) {
    for (int sg = 1; sg <= store.NumSegments; ++sg) drawn.push_back(drawnRow(store, sg));
    for (int ps = 1; ps <= store.NumPathSegments; ++ps) placed.push_back(placedRow(store, ps));
    std::sort(drawn.begin(), drawn.end());
  }
  friend bool operator==(const Contents&, const Contents&) = default;
};

std::string difference(const std::vector<Row>& a, const std::vector<Row>& b) {
  std::vector<Row> onlyThere;
  std::set_difference(a.begin(), a.end(), b.begin(), b.end(), std::back_inserter(onlyThere));
  std::string text;
  for (const Row& row : onlyThere) {
    text += "\n ";
    for (const double value : row) text += " " + std::to_string(value);
  }
  return text;
}

// What a failed comparison shows: the rows that are there, and those that should be.
std::ostream& operator<<(std::ostream& out, const Contents& contents) {
  return out << contents.drawn.size() << " rows, " << contents.placed.size() << " path rows";
}

void expectSame(const Contents& is, const Contents& known) {
  EXPECT_TRUE(is == known) << is << difference(is.drawn, known.drawn) << "\ninstead of " << known
                           << difference(known.drawn, is.drawn)
                           << (is.placed == known.placed ? "" : "\nwith other path rows");
}

// ---- What the tables may hold

bool isSegmentType(int type) {
  return type >= 0 && type <= kRectangle && type != 4;
}

// An ordinary row or one of another class, as it is or selected; a verified or parked one.
bool isAttribute(int segattr) {
  const int kept = entityClass(segattr);
  return segattr == kept || segattr == kSelected + kept || segattr == kVerifiedRow ||
         segattr == kParkedRow;
}

bool isMove(int pstype) {
  return (pstype >= kRapid && pstype <= kCounterClockwiseArc) || pstype >= kFirstCycle;
}

bool isDrawMode(const KnownCommands& known, int mode) {
  return mode == kSelectingMode || mode == kNoMode || modeOf(known, mode) != nullptr;
}

// ---- The operator

// Commands that a session leaves out, beside those of files, setups and windows.
constexpr const CommandInfo* kLeftOut[] = {
    // Steps of their own.
    &kUndoCommand.info,
    &kRedoCommand.info,
    // What these take away stands in no log.
    &kCleanupCommand.info,
    &kClearAllPathsCommand.info,
    &kGougeAvoidanceCommand.info,
    // These work on outlines; random rows are none.
    &kVerifyPocketCommand.info,
    &kVerifyIslandCommand.info,
    &kRoughCutPocketCommand.info,
    &kPlaceFinishPathCommand.info,
    &kPlaceOnePathCommand.info,
    &kQuickPlaceCommand.info,
};

// The tools that an operator of the session clicks, drawing ones more often than others.
std::vector<const char*> sessionTools() {
  std::vector<const char*> tools;
  const auto add = [&tools](const auto& command) {
    const CommandInfo* const info = &command.info;
    const auto* const end = std::end(kLeftOut);
    if (std::find(std::begin(kLeftOut), end, info) == end) tools.push_back(info->tool);
  };
  for (const ViewCommand* const command : displayCommands()) add(*command);
  for (const CamCommand* const command : toolpathCommands()) add(*command);
  for (const DraftingCommand* const command : draftingCommands()) {
    add(*command);
    if (command->mode.number != kNoMode) add(*command);
  }
  return tools;
}

// Every key that stands for a command or acts alone, and two that do nothing.
std::vector<KeyStroke> sessionKeys() {
  std::vector<const char*> names = keysWithoutTool();
  const auto add = [&names](const auto& command) {
    if (*command.info.key != '\0') names.push_back(command.info.key);
  };
  for (const ViewCommand* const command : displayCommands()) add(*command);
  for (const CamCommand* const command : toolpathCommands()) add(*command);
  for (const DraftingCommand* const command : draftingCommands()) add(*command);
  names.push_back("q");
  names.push_back("7");
  std::vector<KeyStroke> keys;
  for (const char* const name : names) keys.push_back(*keyNamed(name));
  return keys;
}

class Session : public RunningProgram {
 public:
  explicit Session(std::uint32_t seed) : dice_(seed) {
    platform.prompts.onForm = [this](Form& form) { fillIn(form); };
    addStartingRows();
    fillToolChest();
    tables_.emplace(context().changes);
    pass(1000);
    start();
  }

  void run(int steps) {
    for (int n = 0; n < steps && !::testing::Test::HasFailure(); ++n) {
      step();
      check();
    }
    goBackAndForth();
    if (::testing::Test::HasFailure()) ADD_FAILURE() << "after" << journal();
  }

  int drawn = 0, undone = 0, saved = 0;  // what the session has seen
  int followed() const { return tables_->changesHeard; }

 private:
  DrawingStore& store() { return application.store; }
  ChangeLog& log() { return context().changelog; }

  template <typename Value>
  const Value& oneOf(const std::vector<Value>& values) {
    return values[static_cast<std::size_t>(dice_.below(static_cast<int>(values.size())))];
  }
  template <typename Value, std::size_t size>
  const Value& oneOf(const Value (&values)[size]) {
    return values[static_cast<std::size_t>(dice_.below(static_cast<int>(size)))];
  }

  // ---- Steps

  struct StepRow {
    int share;
    void (Session::*take)();
  };

  void step() {
    static constexpr StepRow kRows[] = {
        {30, &Session::clickSomewhere},
        {14, &Session::clickTool},
        {14, &Session::typeKey},
        {10, &Session::dragSomewhere},
        {6, &Session::rightClick},
        {8, &Session::undo},
        {6, &Session::redo},
        {3, &Session::strayEvent},
        {6, &Session::letTimePass},
        {2, &Session::save},
        {1, &Session::goBackAndForth},
        {1, &Session::saveAndOpen},
    };
    int shares = 0;
    for (const StepRow& row : kRows) shares += row.share;
    int drawnShare = dice_.below(shares);
    for (const StepRow& row : kRows) {
      drawnShare -= row.share;
      if (drawnShare < 0) return (this->*row.take)();
    }
  }

  // Mostly on a lattice, so that ends meet, rows coincide and clicks fall on the marker.
  Point somewhere() {
    if (dice_.below(4) != 0) return {lattice(), lattice()};
    return {narrow(3 * dice_.unit()), narrow(3 * dice_.unit())};
  }
  float lattice() { return 0.5F * static_cast<float>(dice_.below(9) - 4); }
  int someShift() { return dice_.below(5) == 0 ? 1 + dice_.below(3) : 0; }

  void clickSomewhere() {
    const Point at = somewhere();
    const int shift = dice_.below(6) == 0 ? kShiftKey : 0;
    note("click", at);
    const int before = log().changecount;
    click(at, kLeftButton, shift);
    if (log().changecount > before) ++drawn;
  }

  void rightClick() {
    const Point at = somewhere();
    note("right click", at);
    click(at, kRightButton);
  }

  void dragSomewhere() {
    const Point from = somewhere();
    const Point to = somewhere();
    const int shift = someShift();
    note("drag from", from);
    note("to with shift " + std::to_string(shift), to);
    application.move({.Button = 0, .Shift = shift, .X = from.x, .Y = from.y});
    application.press({kLeftButton, shift, from.x, from.y});
    application.move({kLeftButton, shift, (from.x + to.x) / 2, (from.y + to.y) / 2});
    if (dice_.below(3) == 0) pass(400);
    application.move({kLeftButton, shift, to.x, to.y});
    application.release({kLeftButton, shift, to.x, to.y});
  }

  // Events that belong to no whole gesture, as a window may deliver them.
  void strayEvent() {
    const Point at = somewhere();
    const PointerEvent event{1 + dice_.below(2), someShift(), at.x, at.y};
    note("stray", at);
    switch (dice_.below(4)) {
      case 0:
        application.press(event);
        break;
      case 1:
        application.release(event);
        break;
      case 2:
        application.wheel(1, 0);
        break;
      default:
        application.move(event);
    }
  }

  void clickTool() {
    const char* tool = oneOf(tools_);
    if (application.interaction.view.viewspan > 100) tool = "miFullView";
    note(tool);
    application.clickTool(tool);
  }

  void typeKey() {
    const KeyStroke key = oneOf(keys_);
    note("key " + std::to_string(key.ascii) + ", special " +
         std::to_string(static_cast<int>(key.special)));
    application.key(key);
  }

  void letTimePass() {
    note("time");
    pass(25 << dice_.below(5));
  }

  void undo() {
    const bool any = log().canUndo();
    note("undo");
    application.clickTool("miUndo");
    if (any) ++undone;
    expectKnown();
  }

  void redo() {
    note("redo");
    application.clickTool("miRedo");
    expectKnown();
  }

  // Everything is taken back and done again.
  void goBackAndForth() {
    note("all back and forth");
    const int before = log().changecount;
    while (log().canUndo()) undo();
    expectSame(Contents(store()), after_.at(0));
    while (log().changecount < before) redo();
    EXPECT_EQ(log().changecount, before);
  }

  // Rounds the rows and leaves the records of the log.
  void save() {
    note("save");
    application.clickTool("miSave");
  }

  // The rows are those that the format keeps, and a second file is the first one again.
  void saveAndOpen() {
    note("save and open");
    const std::string path = home("CNC/SESSION.CDM");
    platform.prompts.files.emplace_back(path);
    application.clickTool("miSaveAs");
    const Contents before(store());
    const auto codes = store().pscode;
    const std::string drawing = readFile(path);
    const std::string paths = pathFile();

    platform.prompts.files.emplace_back(path);
    application.clickTool("miOpen");
    EXPECT_TRUE(Contents(store()) == before);
    for (int sg = 1; sg <= store().NumSegments; ++sg) EXPECT_LT(store().segattr[sg], kSelected);
    for (int ps = 1; ps <= store().NumPathSegments; ++ps) {
      EXPECT_EQ(store().pscode[ps], codes[ps]);
      EXPECT_TRUE(store().psvisible[ps]);
    }
    EXPECT_TRUE(store().drawingsaved);
    EXPECT_EQ(log().changetop, 0);

    application.clickTool("miSave");
    EXPECT_EQ(readFile(path), drawing);
    EXPECT_EQ(pathFile(), paths);
    platform.prompts.messages.clear();  // the question before the old file is replaced
    ++saved;
    start();
  }

  // A drawing without paths has none.
  std::string pathFile() const {
    return home.has("CNC/SESSION.TPM") ? home.read("CNC/SESSION.TPM") : std::string();
  }

  template <class... Kinds>
  void fillInAny(Form& form) {
    const auto fillInIf = [this](auto* fitting) {
      if (fitting != nullptr) fillIn(*fitting);
    };
    (fillInIf(dynamic_cast<Kinds*>(&form)), ...);
  }
  void fillIn(Form& form) {
    fillInAny<dlgPositionCursor, dlgSetGrids, dlgEditRadius, dlgSelectCycle, dlgInputReal,
              frmMirror, frmRotate, BoltCircle, dlgEditPath, frmPathMap>(form);
  }
  void fillIn(dlgPositionCursor& position) {
    position.txtx.setText(std::to_string(lattice()));
    position.txty.setText(std::to_string(lattice()));
    if (dice_.below(3) != 0) position.cmdAccept.click();
  }
  void fillIn(dlgSetGrids& grids) {
    grids.txtvgrid.setText(dice_.below(2) == 0 ? "0.25" : "0.5");
    grids.txtcgrid.setText(dice_.below(2) == 0 ? "0.25" : "0");
    grids.chkcgrid.setChecked(dice_.below(2) == 0);
    grids.chkOSnap.setChecked(dice_.below(2) == 0);
    grids.chkOSnapFeatures[1 + dice_.below(5)].setChecked(dice_.below(2) == 0);
    if (dice_.below(3) != 0) grids.cmdAccept.click();
  }
  void fillIn(dlgEditRadius& radius) {
    static constexpr const char* kRadii[] = {"0.1", "0.25", "1", "2.5", "0", "-1", "1e30", "x"};
    radius.txtradius.setText(oneOf(kRadii));
    if (dice_.below(3) != 0) radius.cmdAccept.click();
  }
  void fillIn(dlgSelectCycle& cycles) {
    cycles.chkSelectedCircles.setChecked(dice_.below(4) == 0);
    if (dice_.below(3) != 0) cycles.cmdAccept.click();
  }
  void fillIn(dlgInputReal& scale) {
    static constexpr const char* kFactors[] = {"1.25", "0.8", "1", "0", "-2", "x"};
    scale.txtValue.setText(oneOf(kFactors));
    scale.chkSelectedItemsOnly.setChecked(dice_.below(2) == 0);
    if (dice_.below(3) != 0) scale.cmdAccept.click();
  }
  void fillIn(frmMirror& mirror) {
    Option* const directions[] = {&mirror.optHorizontally, &mirror.optVertically, &mirror.optBoth};
    oneOf(directions)->setValue(true);
    fillIn(mirror.txtMirrorX, mirror.txtMirrorY);
    fillIn(mirror.optCopy, mirror.chkSelectedSegments, mirror.cmdOK);
  }
  void fillIn(frmRotate& rotate) {
    static constexpr const char* kDegrees[] = {"0", "33.3", "90", "180", "270", "360", "361"};
    rotate.txtDegrees.setText(oneOf(kDegrees));
    rotate.optClockwise.setValue(dice_.below(2) == 0);
    fillIn(rotate.txtRotateX, rotate.txtRotateY);
    fillIn(rotate.optCopy, rotate.chkSelectedSegments, rotate.cmdOK);
  }
  void fillIn(BoltCircle& bolts) {
    bolts.txtNumberOfHoles.setText(std::to_string(dice_.below(8)));
    bolts.txtBoltCircleDiameter.setText(std::to_string(1 + dice_.below(3)));
    bolts.txtBoltHoleDiameter.setText("0.25");
    if (dice_.below(4) != 0) bolts.cmdCompute.click();
    if (dice_.below(3) != 0) bolts.cmdCreateSegments.click();
  }
  void fillIn(dlgEditPath& editor) {
    Option* const scopes[] = {&editor.optApplyToAll, &editor.optApplyToGroup,
                              &editor.optApplyToSegment};
    static constexpr const char* kDepths[] = {"-0.1", "-2", "0", "1e39", "x"};
    static constexpr const char* kCodes[] = {"1", "2", "60", "100", "300", "-1"};
    Button* const buttons[] = {&editor.cmdNext,    &editor.cmdPrev,     &editor.cmdIns,
                               &editor.cmdDel,     &editor.cmdSetGroup, &editor.cmdDeletePathGroup,
                               &editor.cmdRefresh, &editor.cmdAccept,   &editor.cmdOrderPaths};
    for (int step = dice_.below(8); step > 0 && editor.isShown(); --step) {
      editor.txtps.type(std::to_string(1 + dice_.below(store().NumPathSegments + 1)));
      oneOf(scopes)->setValue(true);
      if (dice_.below(2) == 0) editor.txtpsz.type(oneOf(kDepths));
      if (dice_.below(3) == 0) editor.txtToolNumber.type(oneOf(kCodes));
      if (dice_.below(3) == 0) editor.txtPathGroup.type(oneOf(kCodes));
      fillIn(editor.txtpsx1, editor.txtpsy1);
      oneOf(buttons)->press();
      if (editor.isShown()) lookRound(editor);
    }
  }
  // Another row by the list, the search, a page key or a click in the drawing.
  void lookRound(dlgEditPath& editor) {
    static constexpr const char* kWanted[] = {"1", "2", "-0.1", "x"};
    editor.cmbFind.setIndex(dice_.below(editor.cmbFind.count()));
    editor.txtFind.type(oneOf(kWanted));
    switch (dice_.below(5)) {
      case 0:
        editor.lstRows.pick(dice_.below(editor.lstRows.count()));
        break;
      case 1:
        editor.cmdFindNext.press();
        break;
      case 2:
        editor.pressPage(dice_.below(2) == 0);
        break;
      case 3:
        click({lattice(), lattice()}, kLeftButton);
        break;
      default:
        break;
    }
  }
  void fillIn(frmPathMap& map) {
    for (int step = dice_.below(6); step > 0; --step) {
      if (map.lstPathSegments.count() > 0) {
        map.lstPathSegments.pick(dice_.below(map.lstPathSegments.count()));
      }
      (dice_.below(2) == 0 ? map.cmdPromote : map.cmdDemote).press();
      if (dice_.below(4) == 0) map.cmdPropose.press();
    }
    if (dice_.below(3) != 0) map.cmdApply.press();
  }
  void fillIn(TextBox& x, TextBox& y) {
    if (dice_.below(2) == 0) return;
    x.setText(std::to_string(lattice()));
    y.setText(std::to_string(lattice()));
  }
  void fillIn(Option& copy, CheckBox& selectedOnly, Button& ok) {
    copy.setValue(dice_.below(3) == 0);
    selectedOnly.setChecked(dice_.below(3) != 0);
    if (dice_.below(4) != 0) ok.click();
  }

  // ---- What must hold

  void check() {
    EXPECT_EQ(reporting.lastReport(), "");
    checkTables();
    checkLog();
    checkState();
    checkMessages();
  }

  void checkTables() {
    EXPECT_TRUE(isConsistent(store()));
    EXPECT_TRUE(tables_->isExact());
    for (int sg = 1; sg <= store().NumSegments; ++sg) {
      EXPECT_TRUE(isSegmentType(store().segtype[sg])) << store().segtype[sg];
      EXPECT_TRUE(isAttribute(store().segattr[sg])) << store().segattr[sg];
    }
    for (const int sg : context().state.Selected.rows()) {
      ASSERT_LE(sg, store().NumSegments);
      EXPECT_GE(store().segattr[sg], kSelected);
    }
    for (int ps = 1; ps <= store().NumPathSegments; ++ps) {
      EXPECT_TRUE(isMove(store().pstype[ps])) << store().pstype[ps];
      EXPECT_GE(store().pscode[ps], 0);
    }
  }

  // The rows after so many records are always the same ones; a fresh record begins a new future.
  void checkLog() {
    const int count = log().changecount;
    const bool fresh = log().changetop != top_ || (count > count_ && !walked_);
    if (fresh) after_.erase(after_.upper_bound(count_), after_.end());
    const auto [known, isNew] = after_.try_emplace(count, store());
    if (!isNew) expectSame(Contents(store()), known->second);
    count_ = count;
    top_ = log().changetop;
    walked_ = false;
    EXPECT_LE(count, top_);
  }

  // Undo and redo lead only to where the session has been, or between the two steps of one command,
  // and there always to the same rows.
  void expectKnown() {
    const int count = log().changecount;
    const auto [known, isNew] = after_.try_emplace(count, store());
    ASSERT_TRUE(!isNew || (log().canRedo() && log().record(count).StartOfSegment));
    expectSame(Contents(store()), known->second);
    walked_ = true;
  }

  void checkState() {
    const CommandRecord& command = context().command;
    const int armed = pendingaction();
    EXPECT_TRUE(armed == 0 || findAction(context(), armed) != nullptr) << armed;
    EXPECT_TRUE(isDrawMode(context(), DrawMode())) << DrawMode();
    EXPECT_TRUE(command.clickstage == 0 || command.clickstage == 1);
    EXPECT_TRUE(command.clickstage == 0 || takesThreePoints(context(), DrawMode()));
    const bool painting = application.interaction.redraw.TaskQueueState() != 0;
    EXPECT_TRUE(painting || command.secondCrossShown == (command.clickstage == 1));
    EXPECT_TRUE(context().pointer.LeftDown || context().pointer.RubberKind == 0);
    const std::string prompt = pendingPrompt(context(), armed);  // a measurement follows its own
    EXPECT_EQ(application.interaction.statusBar.text().substr(0, prompt.size()), prompt);
    const auto& shown = application.interaction.frmStatistics;
    EXPECT_EQ(shown.lblEntities.caption(), std::to_string(store().NumSegments));
    EXPECT_EQ(shown.lblToolPaths.caption(), std::to_string(store().NumPathSegments));
    EXPECT_EQ(tools().isEnabled("miUndo"), log().canUndo());
    EXPECT_EQ(tools().isEnabled("miRedo"), log().canRedo());
  }

  void checkMessages() {
    static constexpr const char* kKnown[] = {
        "Branching detected. ",
        "Entity #: ",
        "Radius too small!",
        "The 2 line segments must intersect at exactly one point.",
        "You must chose 2 different line segments.",
        "There must be at least 2 line segments joined at the selected point.",
        "There must be at least 2 path segments joined at the selected point.",
        "No line segments are currently selected.",
        "Type the number to look for, as 2 or -0.25.",
        "There is no path segment with ",
        "There is no other path segment with ",
        "Value must be numeric.",
        "Degrees must be between 0 and 360.",
        "Number of Bolt Holes must be between 1 and 999.",
        "No Path Segments To Edit",
        "Error Saving Path Data:  Overflow",
        "The Starting Point cannot be the same as the Ending Point. ",
        "The Center Point point is not equidistant from the two endpoints.",
        "Are you sure you want to ",
        "There are no subsequent Path Groups.",
        "There are no previous Path Groups.",
        "You cannot promote the first ",
        "You cannot demote the last ",
        "Path segment #",
        "Path segments that cannot be selected: ",
        "What is left is known with True Paths alone",
        "A turning tool has no radius",
        "Nothing is left that the selected tool can reach.",
    };
    for (const Message& message : platform.prompts.messages) {
      const bool known =
          std::any_of(std::begin(kKnown), std::end(kKnown),
                      [&message](const char* text) { return message.text.starts_with(text); });
      EXPECT_TRUE(known) << message.text;
    }
    platform.prompts.messages.clear();
  }

  // ---- The beginning

  // Rows of every kind and class, and paths of two groups with a cycle and a selected row.
  // Any tool may be chosen, and the outline of one without a radius is a reported failure.
  void fillToolChest() {
    for (int tool = 0; tool <= kLastTool; ++tool) {
      float& radius = store().toolradius[tool];
      if (radius == 0) radius = 0.125F;
    }
  }

  void addStartingRows() {
    const SegmentRow rows[] = {
        {.type = 1, .x1 = 2, .y1 = 1},
        {.type = 2, .attr = 30108, .x0 = 1, .y0 = 0, .x1 = -1, .y1 = 0},
        {.type = 3, .attr = 30008, .x0 = 1, .y0 = 1, .x1 = -1, .y1 = 1, .xc = 0, .yc = 1},
        {.type = 5, .attr = 29108, .x0 = 2, .y0 = 2, .x1 = 2, .y1 = 2, .xc = 1, .yc = 2},
        {.type = 6, .attr = 10, .x0 = -1, .y0 = -1, .x1 = 1, .y1 = 0.5F},
        {.type = 1, .attr = 30012, .x0 = 2, .y0 = 1, .x1 = 2, .y1 = -1},
    };
    for (const SegmentRow& row : rows) AddSeg(store(), row, nullptr);
    const PathRow paths[] = {
        {.type = 0, .x1 = 1, .z = 1, .code = 100},
        {.type = 1, .x0 = 1, .x1 = 2, .z = -0.25F, .feed = 10, .code = 100},
        {.type = 1, .x0 = 1, .x1 = 2, .z = -0.5F, .feed = 10, .code = 30100},
        {.type = 3, .x0 = 2, .x1 = 0, .xc = 1, .z = -0.5F, .feed = 8, .code = 201},
        {.type = 81, .x0 = 1, .y0 = 1, .x1 = 1, .y1 = 1, .z = -0.5F, .feed = 5, .code = 201},
    };
    for (const PathRow& row : paths) addPathSegment(store(), row);
    store().cncoutputpath = home("CNC/");  // a load fills in an empty one
  }

  // From here on every change stands in the log.
  void start() {
    after_.clear();
    after_.emplace(0, store());
    count_ = top_ = 0;
    walked_ = false;
  }

  // ---- The journal

  void note(const std::string& what) { journal_.push_back(what); }
  void note(const std::string& what, Point at) {
    note(what + " " + std::to_string(at.x) + ", " + std::to_string(at.y));
  }
  std::string journal() const {
    constexpr std::size_t kLast = 25;
    std::string text;
    for (std::size_t n = journal_.size() - std::min(kLast, journal_.size()); n < journal_.size();
         ++n) {
      text += "\n" + journal_[n];
    }
    return text;
  }

  Dice dice_;
  const std::vector<const char*> tools_ = sessionTools();
  const std::vector<KeyStroke> keys_ = sessionKeys();
  std::optional<MirroredTables> tables_;
  std::map<int, Contents> after_;  // the rows after so many records
  int count_ = 0, top_ = 0;        // of the log, at the last look
  bool walked_ = false;            // by undo or redo since
  std::vector<std::string> journal_;
};

class RandomSession : public ::testing::TestWithParam<std::uint32_t> {};

TEST_P(RandomSession, HoldsAfterEveryStep) {
  Session session(GetParam());
  session.run(kSteps);
  EXPECT_GT(session.drawn, kSteps / 50);
  EXPECT_GT(session.undone, kSteps / 50);
  EXPECT_GT(session.saved, 2);
  EXPECT_GT(session.followed(), kSteps / 10);
}

// TESSIMO_SESSIONS asks for more of them, by hand.
std::uint32_t sessions() {
  constexpr std::uint32_t kSessions = 8;
  const char* asked = std::getenv("TESSIMO_SESSIONS");
  return asked == nullptr ? kSessions : static_cast<std::uint32_t>(std::stoul(asked));
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomSession, ::testing::Range(1U, sessions() + 1));

}  // namespace
}  // namespace tess
