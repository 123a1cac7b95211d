// Forms without a window: events of assignments and of the operator, the road of the focus, showing
// and closing, properties by name, and forms that go while their events run.
#include "core/form.h"

#include <memory>
#include <string>
#include <vector>

#include "gtest/gtest.h"

#include "core/form_host.h"
#include "core/runtime_failure.h"

namespace tess {
namespace {

using Log = std::vector<std::string>;

// A dialog with one of everything, which keeps a log of its events.
class dlgSample : public Form {
 public:
  dlgSample() : Form("dlgSample", "Sample") {
    cboSize.setItems({"8", "10", "12"});
    cboStyle.setItems({"Regular", "Bold"});
    lstNames.setItems({"one", "two", "three"});
    setDefaultButton(cmdAccept);
    setCancelButton(cmdCancel);
    onLoad = [this] { log.push_back("load"); };
    onAccept = [this] { log.push_back("accept"); };
    onClose = [this] { log.push_back("close"); };
    onResize = [this] { log.push_back("resize"); };
    for (Control* control : controls()) {
      if (!control->arrayIndex()) wire(*control);
    }
    OptCutWidth.onClick = [this](int index) { note("OptCutWidth", "click", index); };
    cboSize.onDropDown = [this] { log.push_back("cboSize dropdown"); };
    cmdAccept.onClick = [this] { accept(); };
  }

  TextBox txtFirst{*this, "txtFirst"};
  TextBox txtSecond{*this, "txtSecond"};
  Frame fraWidth{*this, "fraWidth"};
  ControlArray<Option> OptCutWidth{*this, "OptCutWidth", {1, 2}, fraWidth};
  Option optMove{*this, "optMove"};
  Option optCopy{*this, "optCopy"};
  CheckBox chkGrid{*this, "chkGrid", fraWidth};
  ComboBox cboSize{*this, "cboSize", ComboStyle::Editable};
  ComboBox cboStyle{*this, "cboStyle"};
  ListBox lstNames{*this, "lstNames"};
  Slider Slider1{*this, "Slider1"};
  Label lblNote{*this, "lblNote"};
  Picture picPreview{*this, "picPreview"};
  Button cmdAccept{*this, "cmdAccept"};
  Button cmdCancel{*this, "cmdCancel"};

  Log taken() { return std::exchange(log, {}); }
  Log log;

 private:
  void note(const std::string& name, const char* event, int index) {
    log.push_back(name + "[" + std::to_string(index) + "] " + event);
  }
  void wire(Control& control) {
    const std::string name = control.name();
    control.onClick = [this, name] { log.push_back(name + " click"); };
    control.onChange = [this, name] { log.push_back(name + " change"); };
    control.onFocus = [this, name] { log.push_back(name + " focus"); };
    control.onLeave = [this, name] { log.push_back(name + " leave"); };
    control.onKey = [this, name] { log.push_back(name + " key"); };
  }
};

// Expects a failure with this number and description.
template <class Act>
void expectFailure(FailureNumber number, const std::string& description, Act act) {
  try {
    act();
    ADD_FAILURE() << "no failure";
  } catch (const RuntimeFailure& failure) {
    EXPECT_EQ(failure.number(), number);
    EXPECT_EQ(failure.description(), description);
  }
}

// Events of assignments

TEST(FormEvents, TextThatDiffersRaisesOneChange) {
  dlgSample form;
  form.txtFirst.setText("3");
  EXPECT_EQ(form.taken(), Log{"txtFirst change"});
  form.txtFirst.setText("3");
  EXPECT_EQ(form.taken(), Log{});
  EXPECT_EQ(form.txtFirst.text(), "3");
}

TEST(FormEvents, CheckValueThatDiffersClicks) {
  dlgSample form;
  form.chkGrid.setValue(1);
  form.chkGrid.setValue(1);
  form.chkGrid.setValue(2);
  EXPECT_EQ(form.taken(), (Log{"chkGrid click", "chkGrid click"}));
  EXPECT_EQ(form.chkGrid.value(), 2);
  EXPECT_FALSE(form.chkGrid.isChecked());
}

TEST(FormEvents, CheckValueOutsideZeroToTwoIsRefused) {
  dlgSample form;
  expectFailure(FailureNumber::InvalidProcedureCall, "A check box is 0, 1 or 2",
                [&] { form.chkGrid.setValue(3); });
  EXPECT_EQ(form.chkGrid.value(), 0);
}

TEST(FormEvents, OptionSetToTrueClicksAndClearsItsGroupWithoutEvents) {
  dlgSample form;
  form.OptCutWidth[1].setValue(true);
  form.OptCutWidth[2].setValue(true);
  EXPECT_EQ(form.taken(), (Log{"OptCutWidth[1] click", "OptCutWidth[2] click"}));
  EXPECT_FALSE(form.OptCutWidth[1].value());
  EXPECT_TRUE(form.OptCutWidth[2].value());
}

TEST(FormEvents, OptionThatIsTrueAlreadyDoesNotClick) {
  dlgSample form;
  form.optMove.setValue(true);
  form.taken();
  form.optMove.setValue(true);
  EXPECT_EQ(form.taken(), Log{});
}

TEST(FormEvents, OptionSetToFalseDoesNotClick) {
  dlgSample form;
  form.optMove.setValue(true);
  form.taken();
  form.optMove.setValue(false);
  EXPECT_EQ(form.taken(), Log{});
  EXPECT_FALSE(form.optMove.value());
}

TEST(FormEvents, OptionsOfAnArrayAndSingleOnesAreSeparateGroups) {
  dlgSample form;
  form.OptCutWidth[1].setValue(true);
  form.optMove.setValue(true);
  form.optCopy.setValue(true);
  EXPECT_TRUE(form.OptCutWidth[1].value());
  EXPECT_FALSE(form.optMove.value());
  EXPECT_TRUE(form.optCopy.value());
}

TEST(FormEvents, SingleOptionsAreGroupedByTheirFrame) {
  struct Framed : Form {
    Framed() : Form("frmFramed") {}
    Frame fraA{*this, "fraA"};
    Option optA{*this, "optA", fraA};
    Option optB{*this, "optB", fraA};
    Option optC{*this, "optC"};
  } form;
  form.optC.setValue(true);
  form.optA.setValue(true);
  form.optB.setValue(true);
  EXPECT_FALSE(form.optA.value());
  EXPECT_TRUE(form.optB.value());
  EXPECT_TRUE(form.optC.value());
}

TEST(FormEvents, TwoArraysWithoutFramesAreSeparateGroups) {
  struct TwoArrays : Form {
    TwoArrays() : Form("frmTwoArrays") {}
    ControlArray<Option> optA{*this, "optA", {0, 1}};
    ControlArray<Option> optB{*this, "optB", {0, 1}};
  } form;
  form.optA[0].setValue(true);
  form.optB[1].setValue(true);
  EXPECT_TRUE(form.optA[0].value());
}

TEST(FormEvents, SliderValueThatDiffersRaisesChange) {
  dlgSample form;
  form.Slider1.setRange(0, 15);
  form.Slider1.setValue(7);
  form.Slider1.setValue(7);
  EXPECT_EQ(form.taken(), Log{"Slider1 change"});
  expectFailure(FailureNumber::InvalidProcedureCall, "Outside the slider's range",
                [&] { form.Slider1.setValue(16); });
  EXPECT_EQ(form.Slider1.value(), 7);
}

TEST(FormEvents, NarrowerSliderRangeMovesTheValueToItsEnd) {
  dlgSample form;
  form.Slider1.setValue(9);
  form.taken();
  form.Slider1.setRange(0, 5);
  EXPECT_EQ(form.Slider1.value(), 5);
  EXPECT_EQ(form.Slider1.minimum(), 0);
  EXPECT_EQ(form.Slider1.maximum(), 5);
  EXPECT_EQ(form.taken(), Log{"Slider1 change"});
  expectFailure(FailureNumber::InvalidProcedureCall, "The range of a slider must not be empty",
                [&] { form.Slider1.setRange(2, 1); });
}

TEST(FormEvents, ListIndexThatDiffersClicks) {
  dlgSample form;
  form.lstNames.setIndex(1);
  form.lstNames.setIndex(1);
  EXPECT_EQ(form.taken(), Log{"lstNames click"});
  EXPECT_EQ(form.lstNames.text(), "two");
  expectFailure(FailureNumber::InvalidProcedureCall, "No item has this index",
                [&] { form.lstNames.setIndex(3); });
  form.lstNames.setIndex(-1);
  EXPECT_EQ(form.lstNames.text(), "");
}

TEST(FormEvents, TextOfAListSelectsTheItem) {
  dlgSample form;
  form.lstNames.setText("three");
  EXPECT_EQ(form.lstNames.index(), 2);
  EXPECT_EQ(form.taken(), Log{"lstNames click"});
  expectFailure(FailureNumber::InvalidProcedureCall, "No item is \"four\"",
                [&] { form.lstNames.setText("four"); });
  form.lstNames.setText("");
  EXPECT_EQ(form.lstNames.index(), -1);
}

TEST(FormEvents, ListOnlyComboTakesTextsOfItsItemsAlone) {
  dlgSample form;
  EXPECT_EQ(form.cboStyle.text(), "");
  form.cboStyle.setText("Bold");
  EXPECT_EQ(form.cboStyle.index(), 1);
  EXPECT_EQ(form.cboStyle.text(), "Bold");
  EXPECT_EQ(form.taken(), Log{"cboStyle click"});
  expectFailure(FailureNumber::InvalidProcedureCall, "No item is \"Italic\"",
                [&] { form.cboStyle.setText("Italic"); });
  EXPECT_FALSE(form.cboStyle.type("Bold"));
}

TEST(FormEvents, EditableComboChangesByTextAndClicksByChoice) {
  dlgSample form;
  form.cboSize.setText("11");
  EXPECT_EQ(form.cboSize.index(), -1);
  EXPECT_EQ(form.taken(), Log{"cboSize change"});
  form.cboSize.setText("12");
  EXPECT_EQ(form.cboSize.index(), 2);
  EXPECT_EQ(form.taken(), Log{"cboSize change"});
  form.cboSize.setIndex(0);
  EXPECT_EQ(form.cboSize.text(), "8");
  EXPECT_EQ(form.taken(), Log{"cboSize click"});
  form.cboSize.setText("8");
  EXPECT_EQ(form.taken(), Log{});
}

TEST(FormEvents, EditableComboKeepsItsTextWhenItsItemsAreReplaced) {
  dlgSample form;
  form.cboSize.setText("11");
  form.cboSize.setItems({"1", "2"});
  EXPECT_EQ(form.cboSize.text(), "11");
}

TEST(FormEvents, ChangesOfItemsRaiseNothingAndKeepTheSelectedItem) {
  dlgSample form;
  form.lstNames.setIndex(1);
  form.taken();
  form.lstNames.addItem("four");
  EXPECT_EQ(form.lstNames.index(), 1);
  form.lstNames.removeItem(0);
  EXPECT_EQ(form.lstNames.index(), 0);
  EXPECT_EQ(form.lstNames.text(), "two");
  form.lstNames.setItem(0, "zwei");
  EXPECT_EQ(form.lstNames.text(), "zwei");
  form.lstNames.removeItem(0);
  EXPECT_EQ(form.lstNames.index(), -1);
  EXPECT_EQ(form.lstNames.items(), (std::vector<std::string>{"three", "four"}));
  form.lstNames.clear();
  EXPECT_EQ(form.lstNames.count(), 0);
  EXPECT_EQ(form.taken(), Log{});
  expectFailure(FailureNumber::SubscriptOutOfRange, "Subscript out of range",
                [&] { form.lstNames.removeItem(0); });
}

TEST(FormEvents, SortedItemsKeepTheirOrderAndTheSelection) {
  dlgSample form;
  form.lstNames.setIndex(1);
  form.lstNames.keepSorted();
  EXPECT_EQ(form.lstNames.items(), (std::vector<std::string>{"one", "three", "two"}));
  EXPECT_EQ(form.lstNames.text(), "two");
  form.lstNames.addItem("Seven");
  EXPECT_EQ(form.lstNames.items(), (std::vector<std::string>{"one", "Seven", "three", "two"}));
  EXPECT_EQ(form.lstNames.text(), "two");
  form.lstNames.setItems({"b", "A"});
  EXPECT_EQ(form.lstNames.item(0), "A");
}

TEST(FormEvents, AListOfASourceMakesItsItemsWhenTheyAreAskedFor) {
  dlgSample form;
  std::vector<int> made;
  form.lstNames.setIndex(1);
  form.taken();
  form.lstNames.setSource(30000, [&made](int index) {
    made.push_back(index);
    return "item " + std::to_string(index);
  });
  EXPECT_EQ(form.lstNames.count(), 30000);
  EXPECT_EQ(form.lstNames.index(), -1);
  form.lstNames.setIndex(29999);
  EXPECT_EQ(form.lstNames.text(), "item 29999");
  EXPECT_EQ(made, std::vector{29999});
  EXPECT_EQ(form.lstNames.indexOf("item 2"), 2);
  EXPECT_EQ(form.lstNames.indexOf("item"), -1);
  EXPECT_EQ(form.taken(), Log{"lstNames click"});
  expectFailure(FailureNumber::SubscriptOutOfRange, "Subscript out of range",
                [&] { form.lstNames.item(30000); });
}

TEST(FormEvents, AListWhoseSourceChangesKeepsItsIndexWhileThereIsAnItem) {
  dlgSample form;
  form.lstNames.setSource(3, [](int index) { return std::to_string(index); });
  form.lstNames.setIndex(1);
  form.taken();
  const unsigned before = form.lstNames.revision();
  form.lstNames.sourceChanged(2);
  EXPECT_NE(form.lstNames.revision(), before);
  EXPECT_EQ(form.lstNames.index(), 1);
  EXPECT_EQ(form.lstNames.items(), (std::vector<std::string>{"0", "1"}));
  form.lstNames.sourceChanged(1);
  EXPECT_EQ(form.lstNames.index(), -1);
  EXPECT_EQ(form.taken(), Log{});
}

TEST(FormEvents, AListOfASourceBecomesOneOfTextsByAChange) {
  dlgSample form;
  form.lstNames.setSource(3, [](int index) { return std::to_string(2 - index); });
  form.lstNames.setIndex(0);
  form.lstNames.setItem(1, "one");
  EXPECT_EQ(form.lstNames.items(), (std::vector<std::string>{"2", "one", "0"}));
  EXPECT_EQ(form.lstNames.index(), 0);
  form.lstNames.setSource(2, [](int index) { return std::to_string(2 - index); });
  form.lstNames.keepSorted();
  EXPECT_EQ(form.lstNames.items(), (std::vector<std::string>{"1", "2"}));
  form.lstNames.set("items", std::vector<std::string>{"b", "a"});
  EXPECT_EQ(form.lstNames.items(), (std::vector<std::string>{"a", "b"}));
}

TEST(FormEvents, ButtonClicksAlsoWhileDisabled) {
  dlgSample form;
  form.cmdCancel.setEnabled(false);
  form.cmdCancel.click();
  EXPECT_EQ(form.taken(), Log{"cmdCancel click"});
}

TEST(FormEvents, TwoTextsMayFeedEachOtherUntilTheyAgree) {
  dlgSample form;
  form.txtFirst.onChange = [&] { form.txtSecond.setText(form.txtFirst.text() + "!"); };
  form.txtSecond.onChange = [&] {
    form.txtFirst.setText(form.txtSecond.text().substr(0, form.txtSecond.text().size() - 1));
  };
  form.txtFirst.setText("a");
  EXPECT_EQ(form.txtSecond.text(), "a!");
  form.txtSecond.setText("bb!");
  EXPECT_EQ(form.txtFirst.text(), "bb");
}

TEST(FormEvents, HandlerMayReplaceItself) {
  dlgSample form;
  int first = 0;
  int second = 0;
  form.cmdCancel.onClick = [&] {
    ++first;
    form.cmdCancel.onClick = [&] { ++second; };
  };
  form.cmdCancel.click();
  form.cmdCancel.click();
  EXPECT_EQ(first, 1);
  EXPECT_EQ(second, 1);
}

// The operator's input

TEST(FormInput, PressTogglesACheckBox) {
  dlgSample form;
  EXPECT_TRUE(form.chkGrid.press());
  EXPECT_EQ(form.chkGrid.value(), 1);
  EXPECT_TRUE(form.chkGrid.press());
  EXPECT_EQ(form.chkGrid.value(), 0);
  form.chkGrid.setValue(2);
  form.chkGrid.press();
  EXPECT_EQ(form.chkGrid.value(), 0);
}

TEST(FormInput, PressSetsAnOptionAndClicksALabel) {
  dlgSample form;
  EXPECT_TRUE(form.OptCutWidth[2].press());
  EXPECT_TRUE(form.OptCutWidth[2].value());
  EXPECT_TRUE(form.lblNote.press());
  EXPECT_EQ(form.taken(), (Log{"OptCutWidth[2] click", "lblNote click"}));
}

TEST(FormInput, DisabledAndHiddenControlsAreOutOfReach) {
  dlgSample form;
  form.txtFirst.setEnabled(false);
  form.txtSecond.setVisible(false);
  EXPECT_FALSE(form.txtFirst.type("3"));
  EXPECT_FALSE(form.txtFirst.press());
  EXPECT_FALSE(form.txtSecond.focus());
  EXPECT_EQ(form.txtFirst.text(), "");
  EXPECT_EQ(form.taken(), Log{});
}

TEST(FormInput, FrameTakesItsControlsOutOfReachButKeepsTheirFlags) {
  dlgSample form;
  form.fraWidth.setEnabled(false);
  EXPECT_FALSE(form.chkGrid.acceptsInput());
  EXPECT_FALSE(form.chkGrid.press());
  EXPECT_TRUE(form.chkGrid.isEnabled());
  form.fraWidth.setEnabled(true);
  form.fraWidth.setVisible(false);
  EXPECT_FALSE(form.chkGrid.press());
  form.fraWidth.setVisible(true);
  EXPECT_TRUE(form.chkGrid.press());
}

TEST(FormInput, TypingFocusesCountsAsAKeyAndChanges) {
  dlgSample form;
  EXPECT_TRUE(form.txtFirst.type("3"));
  EXPECT_EQ(form.taken(), (Log{"txtFirst focus", "txtFirst key", "txtFirst change"}));
  EXPECT_TRUE(form.cboSize.type("9"));
  EXPECT_EQ(form.taken(),
            (Log{"txtFirst leave", "cboSize focus", "cboSize key", "cboSize change"}));
  form.txtFirst.key();
  EXPECT_EQ(form.taken(), Log{"txtFirst key"});
}

TEST(FormInput, ReadOnlyTextTakesNoTyping) {
  dlgSample form;
  form.txtFirst.readOnly = true;
  EXPECT_FALSE(form.txtFirst.type("3"));
  form.txtFirst.setText("4");
  EXPECT_EQ(form.txtFirst.text(), "4");
}

TEST(FormInput, PickClicksEvenTheItemThatIsSelected) {
  dlgSample form;
  form.lstNames.focus();
  form.taken();
  EXPECT_TRUE(form.lstNames.pick(1));
  EXPECT_TRUE(form.lstNames.pick(1));
  EXPECT_EQ(form.taken(), (Log{"lstNames click", "lstNames click"}));
  EXPECT_THROW(form.lstNames.pick(7), RuntimeFailure);
}

TEST(FormInput, ComboDropsDownAndSliderSlides) {
  dlgSample form;
  EXPECT_TRUE(form.cboSize.open());
  EXPECT_TRUE(form.Slider1.slide(4));
  EXPECT_EQ(form.taken(), (Log{"cboSize focus", "cboSize dropdown", "cboSize leave",
                               "Slider1 focus", "Slider1 change"}));
  form.cboSize.setEnabled(false);
  form.Slider1.setEnabled(false);
  EXPECT_FALSE(form.cboSize.open());
  EXPECT_FALSE(form.Slider1.slide(5));
}

TEST(FormInput, LeaveHandlerThatDisablesTheTargetStopsThePress) {
  dlgSample form;
  form.txtFirst.focus();
  form.txtFirst.onLeave = [&] { form.cmdCancel.setEnabled(false); };
  form.taken();
  EXPECT_FALSE(form.cmdCancel.press());
  EXPECT_EQ(form.taken(), Log{});
}

// The focus

TEST(FormFocus, MovesThroughValidationAndLeaveToFocus) {
  dlgSample form;
  form.txtFirst.focus();
  form.taken();
  form.txtFirst.onValidate = [&](Validation& validation) {
    EXPECT_EQ(validation.goingTo, &form.txtSecond);
    form.log.push_back("validate");
  };
  EXPECT_TRUE(form.txtSecond.focus());
  EXPECT_EQ(form.taken(), (Log{"validate", "txtFirst leave", "txtSecond focus"}));
  EXPECT_TRUE(form.txtSecond.hasFocus());
}

TEST(FormFocus, RefusedValidationKeepsTheFocusAndStopsThePress) {
  dlgSample form;
  form.txtFirst.focus();
  form.taken();
  form.txtFirst.onValidate = [](Validation& validation) { validation.refuse(); };
  EXPECT_FALSE(form.cmdAccept.press());
  EXPECT_EQ(form.focused(), &form.txtFirst);
  EXPECT_FALSE(form.accepted());
  EXPECT_FALSE(form.txtFirst.leave());
  EXPECT_EQ(form.taken(), Log{});
}

TEST(FormFocus, ControlThatCausesNoValidationIsReachedAnyway) {
  dlgSample form;
  form.cmdCancel.causesValidation = false;
  form.txtFirst.focus();
  form.txtFirst.onValidate = [](Validation& validation) { validation.refuse(); };
  EXPECT_TRUE(form.cmdCancel.press());
}

TEST(FormFocus, ValidationMayTellByTheTarget) {
  dlgSample form;
  form.txtFirst.onValidate = [&](Validation& validation) {
    if (validation.goingTo != &form.cmdCancel) validation.refuse();
  };
  form.txtFirst.focus();
  EXPECT_FALSE(form.txtSecond.focus());
  EXPECT_TRUE(form.cmdCancel.focus());
}

TEST(FormFocus, MovesDuringAValidationAreIgnored) {
  dlgSample form;
  form.txtFirst.focus();
  form.txtFirst.onValidate = [&](Validation& validation) {
    EXPECT_FALSE(form.txtSecond.focus());
    validation.refuse();
  };
  EXPECT_FALSE(form.cmdAccept.focus());
  EXPECT_EQ(form.focused(), &form.txtFirst);
  form.txtFirst.onValidate = nullptr;
  EXPECT_TRUE(form.txtSecond.focus());
}

TEST(FormFocus, FailureInAValidationLeavesTheFocusUsable) {
  dlgSample form;
  form.txtFirst.focus();
  form.txtFirst.onValidate = [](Validation&) { throw typeMismatch(); };
  EXPECT_THROW(form.txtSecond.focus(), RuntimeFailure);
  form.txtFirst.onValidate = nullptr;
  EXPECT_TRUE(form.txtSecond.focus());
}

TEST(FormFocus, LeaveHandlerMaySendTheFocusElsewhere) {
  dlgSample form;
  form.txtFirst.focus();
  form.txtFirst.onLeave = [&] { form.txtSecond.focus(); };
  EXPECT_FALSE(form.cmdAccept.focus());
  EXPECT_EQ(form.focused(), &form.txtSecond);
}

TEST(FormFocus, FocusHandlerMaySendTheFocusElsewhere) {
  dlgSample form;
  form.txtFirst.onFocus = [&] { form.txtSecond.focus(); };
  EXPECT_TRUE(form.txtFirst.focus());
  EXPECT_EQ(form.focused(), &form.txtSecond);
}

TEST(FormFocus, LeavingAControlWithoutTheFocusTakesItFirst) {
  dlgSample form;
  EXPECT_TRUE(form.txtFirst.leave());
  EXPECT_EQ(form.taken(), (Log{"txtFirst focus", "txtFirst leave"}));
  EXPECT_EQ(form.focused(), nullptr);
}

TEST(FormFocus, TextBoxSelectsItsWholeTextUntilItChanges) {
  dlgSample form;
  form.txtFirst.setText("0.5");
  EXPECT_FALSE(form.txtFirst.isAllSelected());
  form.txtFirst.focus();
  EXPECT_TRUE(form.txtFirst.isAllSelected());
  form.txtFirst.type("1");
  EXPECT_FALSE(form.txtFirst.isAllSelected());
}

TEST(FormFocus, MultiLineTextIsNotSelectedByTheFocus) {
  dlgSample form;
  form.txtFirst.multiLine = true;
  form.txtSecond.selectsOnFocus = false;
  form.txtFirst.focus();
  form.txtSecond.focus();
  EXPECT_FALSE(form.txtFirst.isAllSelected());
  EXPECT_FALSE(form.txtSecond.isAllSelected());
}

TEST(FormFocus, TabOrderIsTheOrderOfDeclarationPastWhatTakesNoFocus) {
  dlgSample form;
  form.OptCutWidth[1].setEnabled(false);
  std::vector<std::string> visited;
  for (int step = 0; step < 5; ++step) {
    form.focusNext();
    visited.push_back(form.focused()->name());
  }
  EXPECT_EQ(visited, (std::vector<std::string>{"txtFirst", "txtSecond", "OptCutWidth", "optMove",
                                               "optCopy"}));
  EXPECT_TRUE(form.focusNext(/*backwards=*/true));
  EXPECT_EQ(form.focused(), &form.optMove);
  form.txtFirst.focus();
  form.focusNext(/*backwards=*/true);
  EXPECT_EQ(form.focused(), &form.cmdCancel);
  form.focusNext();
  EXPECT_EQ(form.focused(), &form.txtFirst);
}

TEST(FormFocus, EnterPressesTheDefaultButtonAndLeavesTheField) {
  dlgSample form;
  form.open(Modality::Modal);
  form.txtFirst.type("3");
  form.taken();
  EXPECT_TRUE(form.pressDefault());
  EXPECT_EQ(form.taken(), (Log{"txtFirst leave", "cmdAccept focus", "accept", "close"}));
  EXPECT_TRUE(form.accepted());
}

TEST(FormFocus, EnterPressesTheButtonThatHasTheFocus) {
  dlgSample form;
  form.cmdCancel.focus();
  form.taken();
  EXPECT_TRUE(form.pressDefault());
  EXPECT_EQ(form.taken(), Log{"cmdCancel click"});
}

TEST(FormFocus, EnterInSeveralLinesPressesNothing) {
  dlgSample form;
  form.txtFirst.multiLine = true;
  form.txtFirst.focus();
  EXPECT_FALSE(form.pressDefault());
}

TEST(FormFocus, EnterInLinesThatAreOnlyReadPressesTheDefaultButton) {
  dlgSample form;
  form.open(Modality::Modal);
  form.txtFirst.multiLine = true;
  form.txtFirst.readOnly = true;
  EXPECT_TRUE(form.pressDefault());
  EXPECT_TRUE(form.accepted());
}

TEST(FormFocus, EnterOpensTheItemOfAListThatOpensItsItems) {
  dlgSample form;
  form.open(Modality::Modal);
  form.lstNames.focus();
  form.lstNames.onOpen = [&] { form.log.push_back("open " + form.lstNames.text()); };
  EXPECT_FALSE(form.lstNames.open()) << "nothing is selected yet";
  form.lstNames.pick(1);
  form.taken();
  EXPECT_TRUE(form.pressDefault());
  EXPECT_EQ(form.taken(), Log{"open two"});
  EXPECT_TRUE(form.isShown());
  form.lstNames.onOpen = nullptr;
  EXPECT_FALSE(form.lstNames.open());
  EXPECT_TRUE(form.pressDefault()) << "a list that opens nothing leaves the key to the form";
  EXPECT_TRUE(form.accepted());
}

TEST(FormFocus, AListOutOfReachOpensNothing) {
  dlgSample form;
  form.lstNames.onOpen = [&] { form.log.push_back("open"); };
  form.lstNames.setIndex(0);
  form.lstNames.setEnabled(false);
  form.taken();
  EXPECT_FALSE(form.lstNames.open());
  EXPECT_EQ(form.taken(), Log{});
}

TEST(FormFocus, EnterClosesAModalFormThatOnlyTellsSomething) {
  Form form("frmReport");
  TextBox txtReport(form, "txtReport");
  txtReport.multiLine = true;
  form.open(Modality::Modal);
  EXPECT_FALSE(form.pressDefault()) << "the operator is writing";
  txtReport.readOnly = true;
  EXPECT_TRUE(form.pressDefault());
  EXPECT_FALSE(form.isShown());
  EXPECT_FALSE(form.accepted());
  form.open(Modality::Modeless);
  EXPECT_FALSE(form.pressDefault()) << "a panel stays";
  EXPECT_TRUE(form.isShown());
}

TEST(FormFocus, PageKeysClickTheirButtonsAndComeBackToTheField) {
  dlgSample form;
  form.open(Modality::Modal);
  EXPECT_FALSE(form.pressPage(/*down=*/true)) << "no buttons for them";
  form.setPageButtons(form.cmdCancel, form.cmdAccept);
  form.cmdAccept.onClick = [&form] { form.log.push_back("down"); };
  form.txtFirst.type("3");
  form.taken();
  EXPECT_TRUE(form.pressPage(/*down=*/true));
  EXPECT_EQ(form.taken(), (Log{"txtFirst leave", "down", "txtFirst focus"}));
  EXPECT_TRUE(form.txtFirst.isAllSelected());
  EXPECT_TRUE(form.pressPage(/*down=*/false));
  EXPECT_EQ(form.taken(), (Log{"txtFirst leave", "cmdCancel click", "txtFirst focus"}));
}

TEST(FormFocus, APageKeyDoesNothingWhereItsButtonIsOutOfReach) {
  dlgSample form;
  form.open(Modality::Modal);
  form.setPageButtons(form.cmdCancel, form.cmdAccept);
  form.txtFirst.onLeave = [&form] { form.cmdAccept.setEnabled(false); };
  EXPECT_FALSE(form.pressPage(/*down=*/true));
  EXPECT_TRUE(form.isShown());
  EXPECT_TRUE(form.txtFirst.hasFocus());
}

TEST(FormFocus, AFieldThatRefusesToBeLeftStopsThePageKey) {
  dlgSample form;
  form.open(Modality::Modal);
  form.setPageButtons(form.cmdCancel, form.cmdAccept);
  form.txtFirst.onValidate = [](Validation& question) { question.refuse(); };
  EXPECT_FALSE(form.pressPage(/*down=*/true));
  EXPECT_TRUE(form.isShown());
  EXPECT_TRUE(form.txtFirst.hasFocus());
}

TEST(FormFocus, APageKeyMayCloseOrDestroyTheForm) {
  dlgSample form;
  form.open(Modality::Modal);
  form.setPageButtons(form.cmdCancel, form.cmdAccept);
  EXPECT_TRUE(form.pressPage(/*down=*/true));
  EXPECT_FALSE(form.isShown());
  EXPECT_EQ(form.focused(), nullptr);
  auto gone = std::make_unique<dlgSample>();
  gone->open(Modality::Modal);
  gone->setPageButtons(gone->cmdCancel, gone->cmdAccept);
  gone->cmdAccept.onClick = [&gone] { gone.reset(); };
  EXPECT_TRUE(gone->pressPage(/*down=*/true));
  EXPECT_EQ(gone, nullptr);
}

TEST(FormFocus, EscClicksTheCancelButtonPastAnyValidation) {
  dlgSample form;
  form.txtFirst.focus();
  form.txtFirst.onValidate = [](Validation& validation) { validation.refuse(); };
  form.taken();
  form.pressCancel();
  EXPECT_EQ(form.taken(), Log{"cmdCancel click"});
  form.cmdCancel.setEnabled(false);
  form.pressCancel();
  EXPECT_EQ(form.taken(), Log{});
}

TEST(FormFocus, EscClosesAFormWithoutCancelButton) {
  Form form("frmPlain");
  form.open(Modality::Modeless);
  form.pressCancel();
  EXPECT_FALSE(form.isShown());
  EXPECT_FALSE(form.pressDefault());
}

// Showing and closing

TEST(FormLife, OpenLoadsShowsAndFocusesTheFirstControl) {
  dlgSample form;
  EXPECT_FALSE(form.isShown());
  form.open(Modality::Modal);
  EXPECT_TRUE(form.isShown());
  EXPECT_TRUE(form.isLoaded());
  EXPECT_EQ(form.modality(), Modality::Modal);
  EXPECT_EQ(form.taken(), (Log{"load", "txtFirst focus"}));
}

TEST(FormLife, FocusSetWhileLoadingIsKept) {
  dlgSample form;
  form.onLoad = [&] { form.txtSecond.focus(); };
  form.open(Modality::Modal);
  EXPECT_EQ(form.focused(), &form.txtSecond);
}

TEST(FormLife, AcceptRunsItsHandlerThenCloses) {
  dlgSample form;
  form.open(Modality::Modal);
  form.taken();
  form.accept();
  EXPECT_TRUE(form.accepted());
  EXPECT_FALSE(form.isShown());
  EXPECT_FALSE(form.isLoaded());
  EXPECT_EQ(form.taken(), (Log{"accept", "close"}));
}

TEST(FormLife, FailureInAcceptLeavesTheFormOpen) {
  dlgSample form;
  form.open(Modality::Modal);
  form.onAccept = [] { throw typeMismatch(); };
  EXPECT_THROW(form.accept(), RuntimeFailure);
  EXPECT_FALSE(form.accepted());
  EXPECT_TRUE(form.isShown());
}

TEST(FormLife, CloseIsNotAccepted) {
  dlgSample form;
  form.open(Modality::Modal);
  EXPECT_TRUE(form.close());
  EXPECT_FALSE(form.accepted());
  form.taken();
  EXPECT_TRUE(form.close());
  EXPECT_EQ(form.taken(), Log{});
}

TEST(FormLife, OpeningAgainLoadsAgainAndForgetsTheAcceptance) {
  dlgSample form;
  form.open(Modality::Modal);
  form.accept();
  form.taken();
  form.open(Modality::Modeless);
  EXPECT_FALSE(form.accepted());
  EXPECT_EQ(form.modality(), Modality::Modeless);
  EXPECT_EQ(form.taken().front(), "load");
}

TEST(FormLife, QueryMayRefuseByReason) {
  dlgSample form;
  form.open(Modality::Modal);
  form.onQueryClose = [&](CloseQuery& query) {
    EXPECT_FALSE(form.close());  // within the question
    if (query.reason != CloseReason::Program) query.refuse();
  };
  EXPECT_FALSE(form.close(CloseReason::Operator));
  form.accept();
  EXPECT_FALSE(form.accepted());
  EXPECT_TRUE(form.isShown());
  EXPECT_TRUE(form.close());
}

TEST(FormLife, FormThatClosesWhileLoadingIsNeverShown) {
  dlgSample form;
  form.onLoad = [&] { form.close(); };
  form.open(Modality::Modal);
  EXPECT_FALSE(form.isShown());
  EXPECT_FALSE(form.isLoaded());
}

TEST(FormLife, FailureWhileLoadingLeavesItUnloaded) {
  dlgSample form;
  form.onLoad = [] { throw overflow(); };
  EXPECT_THROW(form.open(Modality::Modal), RuntimeFailure);
  EXPECT_FALSE(form.isLoaded());
  EXPECT_FALSE(form.isShown());
}

TEST(FormLife, HiddenFormStaysLoaded) {
  dlgSample form;
  form.open(Modality::Modeless);
  form.hide();
  EXPECT_FALSE(form.isShown());
  EXPECT_TRUE(form.isLoaded());
  form.taken();
  form.open(Modality::Modeless);
  EXPECT_EQ(form.taken(), Log{});
}

TEST(FormLife, NewSizeRunsResizeOnce) {
  dlgSample form;
  form.setSize(200, 100);
  form.setSize(200, 100);
  EXPECT_EQ(form.taken(), Log{"resize"});
  EXPECT_EQ(form.width(), 200);
  EXPECT_EQ(form.height(), 100);
}

// Names

TEST(FormNames, ControlsAreFoundByNameAndIndex) {
  dlgSample form;
  EXPECT_EQ(form.control("txtFirst"), &form.txtFirst);
  EXPECT_EQ(form.control("OptCutWidth", 2), &form.OptCutWidth[2]);
  EXPECT_EQ(form.control("OptCutWidth"), nullptr);
  EXPECT_EQ(form.control("OptCutWidth", 3), nullptr);
  EXPECT_EQ(form.control("txtThird"), nullptr);
  EXPECT_EQ(form.arrayIndices("OptCutWidth"), (std::vector<int>{1, 2}));
  EXPECT_EQ(form.arrayIndices("txtFirst"), std::vector<int>{});
  EXPECT_EQ(form.OptCutWidth.count(), 2);
  EXPECT_EQ(form.OptCutWidth.indices(), (std::vector<int>{1, 2}));
  EXPECT_THROW(form.OptCutWidth[0], RuntimeFailure);
}

TEST(FormNames, NamesAreListedInOrderAndArraysOnce) {
  dlgSample form;
  EXPECT_EQ(
      form.controlNames(),
      (std::vector<std::string>{"txtFirst", "txtSecond", "fraWidth", "OptCutWidth", "optMove",
                                "optCopy", "chkGrid", "cboSize", "cboStyle", "lstNames", "Slider1",
                                "lblNote", "picPreview", "cmdAccept", "cmdCancel"}));
}

TEST(FormNames, TwoControlsOfOneNameAreRefused) {
  dlgSample form;
  expectFailure(FailureNumber::InvalidProcedureCall, "Two controls of one name",
                [&] { TextBox second(form, "txtFirst"); });
  expectFailure(FailureNumber::InvalidProcedureCall, "Two controls of one name",
                [&] { TextBox second(form, "OptCutWidth"); });
}

TEST(FormNames, KindsAreTold) {
  dlgSample form;
  const std::vector<std::pair<const char*, ControlKind>> kinds = {
      {"txtFirst", ControlKind::TextBox}, {"fraWidth", ControlKind::Frame},
      {"optMove", ControlKind::Option},   {"chkGrid", ControlKind::CheckBox},
      {"cboSize", ControlKind::Combo},    {"lstNames", ControlKind::List},
      {"Slider1", ControlKind::Slider},   {"lblNote", ControlKind::Label},
      {"cmdAccept", ControlKind::Button}, {"picPreview", ControlKind::Picture}};
  for (const auto& [name, kind] : kinds) EXPECT_EQ(form.control(name)->kind(), kind) << name;
  EXPECT_EQ(form.cboSize.style(), ComboStyle::Editable);
}

// Properties by name

struct PropertyCase {
  const char* control;
  const char* property;
  PropertyValue set;
  PropertyValue got;
};

TEST(FormProperties, AreSetAndReadByName) {
  const std::vector<PropertyCase> cases = {
      {"txtFirst", "text", "3", "3"},
      {"txtFirst", "text", 0.25, "0.25"},
      {"txtFirst", "enabled", false, false},
      {"txtFirst", "visible", 0.0, false},
      {"txtFirst", "hint", "Size in points", "Size in points"},
      {"lblNote", "caption", "Note", "Note"},
      {"lblNote", "text", "Note", "Note"},
      {"chkGrid", "value", 2.0, 2.0},
      {"chkGrid", "value", true, 1.0},
      {"optMove", "value", true, true},
      {"optMove", "value", 0.0, false},
      {"Slider1", "value", 2.5, 2.5},
      {"lstNames", "index", 1.0, 1.0},
      {"lstNames", "items", std::vector<std::string>{"x"}, std::vector<std::string>{"x"}},
      {"cboSize", "text", "9", "9"},
      {"cmdCancel", "value", true, false},
      {"cmdCancel", "value", false, false},
  };
  for (const PropertyCase& each : cases) {
    dlgSample form;
    Control& control = *form.control(each.control);
    control.set(each.property, each.set);
    EXPECT_EQ(control.get(each.property), each.got) << each.control << "." << each.property;
  }
}

TEST(FormProperties, SettingOneRaisesTheEventsOfInput) {
  dlgSample form;
  form.control("OptCutWidth", 2)->set("value", true);
  form.control("txtFirst")->set("text", "3");
  form.control("chkGrid")->set("value", 1.0);
  form.control("cmdCancel")->set("value", true);
  form.control("lstNames")->set("index", 0.0);
  EXPECT_EQ(form.taken(), (Log{"OptCutWidth[2] click", "txtFirst change", "chkGrid click",
                               "cmdCancel click", "lstNames click"}));
}

TEST(FormProperties, CountsAreReadOnly) {
  dlgSample form;
  EXPECT_EQ(form.lstNames.get("count"), PropertyValue(3.0));
  EXPECT_EQ(form.cboStyle.get("count"), PropertyValue(2.0));
  expectFailure(FailureNumber::InvalidProcedureCall, "Read-only property",
                [&] { form.lstNames.set("count", 4.0); });
}

TEST(FormProperties, UnknownOnesAreRefusedForEveryKind) {
  dlgSample form;
  for (Control* control : form.controls()) {
    expectFailure(FailureNumber::InvalidProcedureCall, "No such property",
                  [&] { control->get("colour"); });
    expectFailure(FailureNumber::InvalidProcedureCall, "No such property",
                  [&] { control->set("colour", 1.0); });
  }
}

TEST(FormProperties, FailureNamesFormControlAndProperty) {
  dlgSample form;
  try {
    form.control("OptCutWidth", 2)->set("colour", 1.0);
    ADD_FAILURE();
  } catch (const RuntimeFailure& failure) {
    EXPECT_EQ(failure.source(), "dlgSample.OptCutWidth[2].colour");
  }
}

TEST(FormProperties, WrongTypesAreMismatches) {
  const std::vector<PropertyCase> cases = {
      {"txtFirst", "text", true, {}},
      {"txtFirst", "enabled", "yes", {}},
      {"chkGrid", "value", "1", {}},
      {"lstNames", "items", "x", {}},
      {"Slider1", "value", std::vector<std::string>{}, {}},
  };
  for (const PropertyCase& each : cases) {
    dlgSample form;
    expectFailure(FailureNumber::TypeMismatch, "Type mismatch",
                  [&] { form.control(each.control)->set(each.property, each.set); });
  }
}

TEST(FormProperties, EveryListedOneCanBeRead) {
  dlgSample form;
  for (Control* control : form.controls()) {
    for (const std::string& property : control->properties()) {
      EXPECT_NO_THROW(control->get(property)) << control->name() << "." << property;
    }
  }
  EXPECT_EQ(form.lstNames.properties(),
            (std::vector<std::string>{"text", "caption", "enabled", "visible", "hint", "items",
                                      "index", "count"}));
}

// Observers

class Recorder : public FormObserver {
 public:
  explicit Recorder(Form& form) : watch(form.observe(*this)) {}
  void controlChanged(Control& control, Property property) override {
    heard.push_back({control.name(), property});
  }
  void formChanged(Form&, FormProperty property) override { formHeard.push_back(property); }
  void formGone() override { gone = true; }

  std::vector<std::pair<std::string, Property>> heard;
  std::vector<FormProperty> formHeard;
  bool gone = false;
  Subscription watch;
};

TEST(FormObservers, HearEveryPropertyBeforeItsEvent) {
  dlgSample form;
  Recorder recorder(form);
  form.txtFirst.onChange = [&] { EXPECT_EQ(recorder.heard.size(), 1U); };
  form.txtFirst.setText("1");
  form.txtFirst.setCaption("First");
  form.txtFirst.setEnabled(false);
  form.txtFirst.setVisible(false);
  form.txtFirst.setHint("hint");
  form.lblNote.setColor(255);
  form.lblNote.setBounds(Bounds{1, 2, 3, 4});
  form.picPreview.invalidate();
  form.Slider1.setRange(0, 15);
  form.txtSecond.selectAll();
  const std::vector<std::pair<std::string, Property>> expected = {
      {"txtFirst", Property::Text},    {"txtFirst", Property::Caption},
      {"txtFirst", Property::Enabled}, {"txtFirst", Property::Visible},
      {"txtFirst", Property::Hint},    {"lblNote", Property::Color},
      {"lblNote", Property::Bounds},   {"picPreview", Property::Content},
      {"Slider1", Property::Range},    {"txtSecond", Property::Selection}};
  EXPECT_EQ(recorder.heard, expected);
  EXPECT_EQ(form.lblNote.color(), 255);
  EXPECT_EQ(form.lblNote.bounds(), (Bounds{1, 2, 3, 4}));
  EXPECT_EQ(form.txtFirst.hint(), "hint");
}

TEST(FormObservers, AssignmentsOfTheSameValueTellNothing) {
  dlgSample form;
  form.setCaption("Sample");
  Recorder recorder(form);
  form.setCaption("Sample");
  form.txtFirst.setCaption("");
  form.txtFirst.setEnabled(true);
  form.txtFirst.setVisible(true);
  form.txtFirst.setHint("");
  form.lblNote.setColor(std::nullopt);
  form.lblNote.setBounds(std::nullopt);
  EXPECT_TRUE(recorder.heard.empty());
  EXPECT_TRUE(recorder.formHeard.empty());
}

TEST(FormObservers, HearTheGroupOfAnOptionWithAllValuesRight) {
  dlgSample form;
  form.optMove.setValue(true);
  struct Checker : FormObserver {
    explicit Checker(dlgSample& sample) : form(sample) {}
    void controlChanged(Control&, Property) override {
      EXPECT_NE(form.optMove.value(), form.optCopy.value());
      ++heard;
    }
    dlgSample& form;
    int heard = 0;
  } checker(form);
  const Subscription watch = form.observe(checker);
  form.optCopy.setValue(true);
  EXPECT_EQ(checker.heard, 2);
}

TEST(FormObservers, HearTheFormShownFocusedRaisedHiddenAndClosed) {
  dlgSample form;
  Recorder recorder(form);
  form.setCaption("Another");
  form.open(Modality::Modeless);
  form.open(Modality::Modal);
  form.setSize(10, 10);
  form.hide();
  form.hide();
  form.close();
  EXPECT_EQ(recorder.formHeard, (std::vector<FormProperty>{
                                    FormProperty::Caption, FormProperty::Shown, FormProperty::Focus,
                                    FormProperty::Raised, FormProperty::Size, FormProperty::Hidden,
                                    FormProperty::Closed}));
  EXPECT_EQ(form.caption(), "Another");
}

TEST(FormObservers, HearARefusedValidationAsFocus) {
  dlgSample form;
  form.txtFirst.focus();
  form.txtFirst.onValidate = [](Validation& validation) { validation.refuse(); };
  Recorder recorder(form);
  form.txtSecond.focus();
  EXPECT_EQ(recorder.formHeard, std::vector<FormProperty>{FormProperty::Focus});
}

TEST(FormObservers, EndedSubscriptionHearsNothing) {
  dlgSample form;
  Recorder recorder(form);
  recorder.watch.cancel();
  form.txtFirst.setText("1");
  EXPECT_TRUE(recorder.heard.empty());
}

TEST(FormObservers, MayOutliveTheForm) {
  auto form = std::make_unique<dlgSample>();
  Recorder recorder(*form);
  form.reset();
  EXPECT_TRUE(recorder.gone);
}

TEST(FormObservers, MayEndEachOtherWhileBeingTold) {
  dlgSample form;
  auto second = std::make_unique<Recorder>(form);
  struct Ender : FormObserver {
    explicit Ender(std::unique_ptr<Recorder>& other) : victim(other) {}
    void controlChanged(Control&, Property) override { victim.reset(); }
    std::unique_ptr<Recorder>& victim;
  } ender(second);
  const Subscription watch = form.observe(ender);
  Subscription first = form.observe(ender);
  first = Subscription();
  form.txtFirst.setText("1");
  EXPECT_EQ(second, nullptr);
  form.txtFirst.setText("2");
}

TEST(FormObservers, NewcomersHearFromTheNextTellingOn) {
  dlgSample form;
  std::unique_ptr<Recorder> late;
  struct Inviter : FormObserver {
    Inviter(dlgSample& sample, std::unique_ptr<Recorder>& other) : form(sample), guest(other) {}
    void controlChanged(Control&, Property) override {
      if (!guest) guest = std::make_unique<Recorder>(form);
    }
    dlgSample& form;
    std::unique_ptr<Recorder>& guest;
  } inviter(form, late);
  const Subscription watch = form.observe(inviter);
  form.txtFirst.setText("1");
  EXPECT_TRUE(late->heard.empty());
  form.txtFirst.setText("2");
  EXPECT_EQ(late->heard.size(), 1U);
}

// Destruction while events run

struct Destruction {
  const char* name;
  void (*wire)(std::unique_ptr<dlgSample>&);
  void (*act)(dlgSample&);
};

TEST(FormDestruction, MayHappenInAnyEvent) {
  using Owner = std::unique_ptr<dlgSample>;
  const std::vector<Destruction> cases = {
      {"click", [](Owner& f) { f->cmdCancel.onClick = [&f] { f.reset(); }; },
       [](dlgSample& f) { f.cmdCancel.press(); }},
      {"array click", [](Owner& f) { f->OptCutWidth.onClick = [&f](int) { f.reset(); }; },
       [](dlgSample& f) { f.OptCutWidth[1].press(); }},
      {"change", [](Owner& f) { f->txtFirst.onChange = [&f] { f.reset(); }; },
       [](dlgSample& f) { f.txtFirst.type("1"); }},
      {"key", [](Owner& f) { f->txtFirst.onKey = [&f] { f.reset(); }; },
       [](dlgSample& f) { f.txtFirst.type("1"); }},
      {"combo key", [](Owner& f) { f->cboSize.onKey = [&f] { f.reset(); }; },
       [](dlgSample& f) { f.cboSize.type("1"); }},
      {"focus", [](Owner& f) { f->txtFirst.onFocus = [&f] { f.reset(); }; },
       [](dlgSample& f) { f.txtFirst.type("1"); }},
      {"leave",
       [](Owner& f) {
         f->txtFirst.onLeave = [&f] { f.reset(); };
         f->txtFirst.focus();
       },
       [](dlgSample& f) { f.cmdAccept.press(); }},
      {"validate",
       [](Owner& f) {
         f->txtFirst.onValidate = [&f](Validation&) { f.reset(); };
         f->txtFirst.focus();
       },
       [](dlgSample& f) { f.cmdAccept.press(); }},
      {"load", [](Owner& f) { f->onLoad = [&f] { f.reset(); }; },
       [](dlgSample& f) { f.open(Modality::Modal); }},
      {"accept",
       [](Owner& f) {
         f->open(Modality::Modal);
         f->onAccept = [&f] { f.reset(); };
       },
       [](dlgSample& f) { f.accept(); }},
      {"query",
       [](Owner& f) {
         f->open(Modality::Modal);
         f->onQueryClose = [&f](CloseQuery&) { f.reset(); };
       },
       [](dlgSample& f) { f.accept(); }},
      {"close",
       [](Owner& f) {
         f->open(Modality::Modal);
         f->onClose = [&f] { f.reset(); };
       },
       [](dlgSample& f) { f.accept(); }},
      {"pick", [](Owner& f) { f->lstNames.onClick = [&f] { f.reset(); }; },
       [](dlgSample& f) { f.lstNames.pick(0); }},
      {"slide", [](Owner& f) { f->Slider1.onChange = [&f] { f.reset(); }; },
       [](dlgSample& f) { f.Slider1.slide(3); }},
  };
  for (const Destruction& each : cases) {
    auto form = std::make_unique<dlgSample>();
    each.wire(form);
    each.act(*form);
    EXPECT_EQ(form, nullptr) << each.name;
  }
}

TEST(FormDestruction, MayHappenWhileObserversAreTold) {
  struct Destroyer : FormObserver {
    explicit Destroyer(std::unique_ptr<dlgSample>& owner) : form(owner) {}
    void controlChanged(Control&, Property) override { form.reset(); }
    void formChanged(Form&, FormProperty) override { form.reset(); }
    std::unique_ptr<dlgSample>& form;
  };
  const std::vector<void (*)(dlgSample&)> acts = {
      [](dlgSample& f) { f.txtFirst.setText("1"); },
      [](dlgSample& f) { f.chkGrid.setValue(1); },
      [](dlgSample& f) { f.optMove.setValue(true); },
      [](dlgSample& f) { f.lstNames.setIndex(0); },
      [](dlgSample& f) { f.cboSize.setIndex(0); },
      [](dlgSample& f) { f.Slider1.setRange(0, 4); },
      [](dlgSample& f) { f.txtFirst.focus(); },
      [](dlgSample& f) { f.cmdAccept.focus(); },
      [](dlgSample& f) { f.setSize(1, 1); },
      [](dlgSample& f) { f.open(Modality::Modal); },
  };
  for (const auto act : acts) {
    auto form = std::make_unique<dlgSample>();
    form->optCopy.setValue(true);
    Destroyer destroyer(form);
    const Subscription watch = form->observe(destroyer);
    Recorder later(*form);
    act(*form);
    EXPECT_EQ(form, nullptr);
    EXPECT_TRUE(later.gone);
    EXPECT_TRUE(later.heard.empty());
  }
}

// Modeless forms

class HostRecorder : public FormHostObserver {
 public:
  explicit HostRecorder(FormHost& host) : watch(host.observe(*this)) {}
  void formOpened(Form& form) override {
    EXPECT_FALSE(form.isLoaded());
    log.push_back("opened " + form.name());
  }
  void formClosed(const std::string& name) override { log.push_back("closed " + name); }

  Log log;
  Subscription watch;
};

TEST(FormHost, KnowsAFormWhileItIsOpen) {
  FormHost host;
  HostRecorder recorder(host);
  dlgSample form;
  host.show(form);
  EXPECT_EQ(host.find("dlgSample"), &form);
  EXPECT_EQ(form.modality(), Modality::Modeless);
  host.show(form);
  EXPECT_EQ(host.openForms(), std::vector<Form*>{&form});
  EXPECT_EQ(host.find("frmOther"), nullptr);
  form.close();
  EXPECT_EQ(host.find("dlgSample"), nullptr);
  EXPECT_EQ(recorder.log, (Log{"opened dlgSample", "closed dlgSample"}));
}

TEST(FormHost, ForgetsAFormThatIsDestroyed) {
  FormHost host;
  HostRecorder recorder(host);
  auto form = std::make_unique<dlgSample>();
  host.show(*form);
  form.reset();
  EXPECT_EQ(host.find("dlgSample"), nullptr);
  EXPECT_EQ(recorder.log, (Log{"opened dlgSample", "closed dlgSample"}));
}

TEST(FormHost, ForgetsAFormThatClosesOrFailsWhileLoading) {
  FormHost host;
  HostRecorder recorder(host);
  dlgSample form;
  form.onLoad = [&] { form.close(); };
  host.show(form);
  EXPECT_TRUE(host.openForms().empty());
  form.onLoad = [] { throw overflow(); };
  EXPECT_THROW(host.show(form), RuntimeFailure);
  EXPECT_TRUE(host.openForms().empty());
  EXPECT_EQ(recorder.log,
            (Log{"opened dlgSample", "closed dlgSample", "opened dlgSample", "closed dlgSample"}));
}

TEST(FormHost, ClosesAllFromTheLatestUntilOneRefuses) {
  FormHost host;
  Form first("frmFirst");
  Form second("frmSecond");
  Form third("frmThird");
  for (Form* form : {&first, &second, &third}) host.show(*form);
  second.onQueryClose = [](CloseQuery& query) { query.refuse(); };
  EXPECT_FALSE(host.closeAll());
  EXPECT_EQ(host.openForms(), (std::vector<Form*>{&first, &second}));
  second.onQueryClose = nullptr;
  EXPECT_TRUE(host.closeAll());
  EXPECT_TRUE(host.openForms().empty());
}

TEST(FormHost, HiddenFormStaysKnown) {
  FormHost host;
  dlgSample form;
  host.show(form);
  form.hide();
  EXPECT_EQ(host.find("dlgSample"), &form);
  host.show(form);
  EXPECT_TRUE(form.isShown());
}

TEST(FormHost, FormMayOutliveTheHost) {
  dlgSample form;
  {
    FormHost host;
    host.show(form);
  }
  EXPECT_TRUE(form.close());
}

}  // namespace
}  // namespace tess
