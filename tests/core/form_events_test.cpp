// Forms without a window: what assignments raise, by kind of control.
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

}  // namespace
}  // namespace tess
