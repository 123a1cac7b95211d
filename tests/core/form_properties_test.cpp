// Forms without a window: controls and properties by name, and who observes them.
#include <memory>
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
using testing::FormRecorder;
using Log = testing::FormLog;

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

TEST(FormObservers, HearEveryPropertyBeforeItsEvent) {
  dlgSample form;
  FormRecorder recorder(form);
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
  FormRecorder recorder(form);
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
  FormRecorder recorder(form);
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
  FormRecorder recorder(form);
  form.txtSecond.focus();
  EXPECT_EQ(recorder.formHeard, std::vector<FormProperty>{FormProperty::Focus});
}

TEST(FormObservers, EndedSubscriptionHearsNothing) {
  dlgSample form;
  FormRecorder recorder(form);
  recorder.watch.cancel();
  form.txtFirst.setText("1");
  EXPECT_TRUE(recorder.heard.empty());
}

TEST(FormObservers, MayOutliveTheForm) {
  auto form = std::make_unique<dlgSample>();
  FormRecorder recorder(*form);
  form.reset();
  EXPECT_TRUE(recorder.gone);
}

TEST(FormObservers, MayEndEachOtherWhileBeingTold) {
  dlgSample form;
  auto second = std::make_unique<FormRecorder>(form);
  struct Ender : FormObserver {
    explicit Ender(std::unique_ptr<FormRecorder>& other) : victim(other) {}
    void controlChanged(Control&, Property) override { victim.reset(); }
    std::unique_ptr<FormRecorder>& victim;
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
  std::unique_ptr<FormRecorder> late;
  struct Inviter : FormObserver {
    Inviter(dlgSample& sample, std::unique_ptr<FormRecorder>& other) : form(sample), guest(other) {}
    void controlChanged(Control&, Property) override {
      if (!guest) guest = std::make_unique<FormRecorder>(form);
    }
    dlgSample& form;
    std::unique_ptr<FormRecorder>& guest;
  } inviter(form, late);
  const Subscription watch = form.observe(inviter);
  form.txtFirst.setText("1");
  EXPECT_TRUE(late->heard.empty());
  form.txtFirst.setText("2");
  EXPECT_EQ(late->heard.size(), 1U);
}

}  // namespace
}  // namespace tess
