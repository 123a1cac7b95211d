// Forms without a window: what the operator does with controls, and the road of the focus.
#include <string>
#include <vector>

#include "gtest/gtest.h"

#include "core/form.h"
#include "core/runtime_failure.h"
#include "tests/support/sample_form.h"

namespace tess {
namespace {

using testing::dlgSample;
using testing::expectFailure;
using Log = testing::FormLog;

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

}  // namespace
}  // namespace tess
