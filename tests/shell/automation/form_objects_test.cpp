// Forms and their controls as a script works them.
#include "shell/automation/form_objects.h"

#include <memory>

#include "gtest/gtest.h"

#include "core/controls.h"
#include "tests/support/script_bench.h"

namespace tess {
namespace {

using testing::ScriptBench;

// One control of each kind, which note their events.
class dlgProbe : public Form {
 public:
  dlgProbe() : Form("dlgProbe", "Probe") {
    setCancelButton(cmdCancel);
    cmdOK.onClick = [this] { accept(); };
    cmdCancel.onClick = [this] {
      note("cancel");
      close();
    };
    txtDepth.onChange = [this] { note("change " + txtDepth.text()); };
    txtDepth.onLeave = [this] { note("left"); };
    txtDepth.onFocus = [this] { note("focus"); };
    chkRound.onClick = [this] { note("check"); };
    optSide.onClick = [this](int index) { note("side " + std::to_string(index)); };
    sldSpeed.onChange = [this] { note("slide"); };
    lstTools.onClick = [this] { note("list " + lstTools.text()); };
    cmbUnits.onClick = [this] { note("combo " + cmbUnits.text()); };
    cmbUnits.onChange = [this] { note("typed " + cmbUnits.text()); };
    cmbUnits.onDropDown = [this] { note("drop"); };
    lstTools.setItems({"mill", "drill"});
    cmbUnits.setItems({"inch", "mm"});
    onLoad = [this] { setCaption("Probe loaded"); };
  }
  void note(const std::string& event) { events += event + ";"; }

  TextBox txtDepth{*this, "txtDepth"};
  CheckBox chkRound{*this, "chkRound"};
  ControlArray<Option> optSide{*this, "optSide", {1, 2}};
  Slider sldSpeed{*this, "sldSpeed"};
  ListBox lstTools{*this, "lstTools"};
  ComboBox cmbUnits{*this, "cmbUnits", ComboStyle::Editable};
  Label lblNote{*this, "lblNote"};
  Button cmdOK{*this, "cmdOK"};
  Button cmdCancel{*this, "cmdCancel"};
  std::string events;
};

int showModally(Script& script, lua_State* L) {
  script.host.prompts.showModal(*static_cast<Form*>(lua_touserdata(L, 1)));
  return 0;
}

class FormObjects : public ::testing::Test, protected ScriptBench {
 protected:
  // Shows the form to a handler of this body.
  void show(const std::string& body) {
    ASSERT_EQ(run("on_form('dlgProbe', function(form) " + body + " end)"), "");
    form.events.clear();
    host.prompts.showModal(form);
    form.events.erase(0, form.events.starts_with("focus;") ? 6 : 0);
  }

  dlgProbe form;
};

TEST_F(FormObjects, AHandlerWorksTheFormAndClosesIt) {
  show("form.txtDepth.text = '0.5' form.cmdOK:click()");
  EXPECT_TRUE(form.accepted());
  EXPECT_EQ(form.txtDepth.text(), "0.5");
  EXPECT_EQ(form.events, "change 0.5;left;");
  EXPECT_EQ(valueOf("#messages .. messages[1].kind .. messages[1].text .. messages[1].title"),
            "1formdlgProbeProbe loaded");
}

TEST_F(FormObjects, PairsTellsTheControlsInTheirOrder) {
  show(
      "names, found = '', 0 for name, control in pairs(form) do names = names .. name .. ' ' "
      "if name == 'txtDepth' then control.text = '2' found = #form.optSide end end");
  EXPECT_EQ(valueOf("names"),
            "txtDepth chkRound optSide sldSpeed lstTools cmbUnits lblNote cmdOK cmdCancel ");
  EXPECT_EQ(valueOf("found"), "2");
  EXPECT_EQ(form.txtDepth.text(), "2");
}

TEST_F(FormObjects, PairsOfAFormThatIsGoneIsAnError) {
  auto gone = std::make_unique<dlgProbe>();
  ASSERT_EQ(run("on_form('dlgProbe', function(f) kept = f step = pairs(f) end)"), "");
  host.prompts.showModal(*gone);
  gone.reset();
  EXPECT_EQ(run("step(kept)"), "this form is gone");
  EXPECT_EQ(run("pairs(kept)"), "this form is gone");
}

TEST_F(FormObjects, AFormThatItsHandlerLeavesOpenIsCancelled) {
  show("form.chkRound.value = 1");
  EXPECT_FALSE(form.accepted());
  EXPECT_FALSE(form.isShown());
  EXPECT_EQ(form.events, "check;cancel;");
}

TEST_F(FormObjects, WithoutItsHandlerAFormIsCancelled) {
  show("form.cmdOK:click()");
  ASSERT_EQ(run("on_form('dlgProbe', nil)"), "");
  host.prompts.showModal(form);
  EXPECT_FALSE(form.accepted());
  EXPECT_EQ(valueOf("#messages"), "2") << "every showing is recorded";
}

TEST_F(FormObjects, SettingAPropertyRaisesTheEventsOfTheOperator) {
  const struct {
    const char* name;
    const char* statement;
    const char* events;
  } cases[] = {
      {"text", "form.txtDepth.text = 'a'", "change a;"},
      {"number as text", "form.txtDepth.text = 2", "change 2;"},
      {"same text", "form.txtDepth.text = ''", ""},
      {"check", "form.chkRound.value = 1", "check;"},
      {"check by boolean", "form.chkRound.value = true", "check;"},
      {"option", "form.optSide[2].value = true", "side 2;"},
      {"cleared option", "form.optSide[1].value = false", ""},
      {"slider", "form.sldSpeed.value = 4", "slide;"},
      {"list", "form.lstTools.index = 1", "list drill;"},
      {"list by text", "form.lstTools.text = 'mill'", "list mill;"},
      {"combo", "form.cmbUnits.index = 0", "combo inch;"},
      {"combo text", "form.cmbUnits.text = 'm'", "typed m;"},
      {"caption", "form.lblNote.caption = 'x'", ""},
      {"enabled", "form.cmdOK.enabled = false", ""},
  };
  for (const auto& [name, statement, events] : cases) {
    SCOPED_TRACE(name);
    dlgProbe probe;
    ASSERT_EQ(run(std::string("on_form('dlgProbe', function(form) ") + statement + " end)"), "");
    probe.onLoad = [&probe] { probe.events.clear(); };
    probe.txtDepth.onFocus = nullptr;
    host.prompts.showModal(probe);
    EXPECT_EQ(probe.events, std::string(events) + "cancel;");
  }
}

TEST_F(FormObjects, PropertiesRead) {
  show(
      "seen = {form.txtDepth.text, form.chkRound.value, form.optSide[1].value, "
      "form.sldSpeed.value, form.lstTools.index, form.lstTools.count, "
      "table.concat(form.lstTools.items, '+'), form.cmdOK.enabled, form.cmdOK.visible, "
      "#form.optSide, tostring(form), tostring(form.optSide[2])} "
      "for i = 1, #seen do seen[i] = tostring(seen[i]) end");
  EXPECT_EQ(valueOf("table.concat(seen, ' ')"),
            " 0 false 0 -1 2 mill+drill true true 2 dlgProbe optSide[2]");
}

TEST_F(FormObjects, MethodsTellWhetherTheControlWasInReach) {
  form.cmdOK.setEnabled(false);
  show(
      "seen = {form.cmdOK:click(), form.txtDepth:change('7'), form.txtDepth:leave(), "
      "form.cmbUnits:open(), form.chkRound:focus(), form.cmbUnits:change('yd')} "
      "for i = 1, #seen do seen[i] = tostring(seen[i]) end");
  EXPECT_EQ(valueOf("table.concat(seen, ' ')"), "false true true true true true");
  EXPECT_EQ(form.events, "change 7;left;drop;typed yd;cancel;");
}

TEST_F(FormObjects, MistakesAreErrorsThatSayWhatWasMeant) {
  constexpr char kTooLong[] = "a control takes no more than 1048576 bytes of text";
  const struct {
    const char* statement;
    const char* error;
  } cases[] = {
      {"form.txtDept.text = 'x'", "dlgProbe has no control 'txtDept' (did you mean 'txtDepth'?)"},
      {"form.txtDepth.txt = 'x'", "txtDepth has no 'txt' (did you mean 'text'?)"},
      {"form.cmdOK:clik()", "cmdOK has no 'clik' (did you mean 'click'?)"},
      {"return form.txtDepth.items", "txtDepth has no 'items'"},
      {"return form.optSide[3]", "Subscript out of range"},
      {"form.optSide.value = true", "optSide is a control array: assign to a property of a member"},
      {"form.cmdOK = 1", "dlgProbe is a form: assign to a property of one of its controls"},
      {"form.txtDepth:open()", "txtDepth opens nothing"},
      {"form.cmdOK:change('x')", "cmdOK takes no text"},
      {"form.cmdOK.click(form)", "a control stands in front of the colon"},
      {"form.chkRound.value = {}", "Type mismatch"},
      {"form.txtDepth:change(('x'):rep(1048577))", kTooLong},
      {"form.txtDepth.text = ('x'):rep(1048577)", kTooLong},
      {"form.lstTools.items = {('x'):rep(600000), ('y'):rep(600000)}", kTooLong},
      {"form.lstTools.items = setmetatable({}, {__len = function() return 1 << 40 end, "
       "__index = function() return '' end})",
       kTooLong},
      {"form.lstTools.index = 9", "No item has this index: dlgProbe.lstTools.index"},
  };
  for (const auto& [statement, error] : cases) {
    ASSERT_EQ(run("failure = nil on_form('dlgProbe', function(form) local ok ok, failure = "
                  "pcall(function() " +
                  std::string(statement) + " end) end)"),
              "");
    dlgProbe probe;
    host.prompts.showModal(probe);
    EXPECT_NE(valueOf("failure").find(error), std::string::npos)
        << statement << ": " << valueOf("failure");
  }
}

TEST_F(FormObjects, AnItemOfAListIsOpened) {
  form.lstTools.onOpen = [this] { form.note("open " + form.lstTools.text()); };
  show("none = form.lstTools:open() form.lstTools.index = 1 some = form.lstTools:open()");
  EXPECT_EQ(valueOf("tostring(none) .. ' ' .. tostring(some)"), "false true");
  EXPECT_NE(form.events.find("list drill;left;open drill;"), std::string::npos) << form.events;
}

TEST_F(FormObjects, AnErrorInAHandlerClosesTheFormAndReachesTheScript) {
  ASSERT_EQ(run("on_form('dlgProbe', function() error('no idea', 0) end)"), "");
  lua_pushcfunction(L, guarded<showModally>);
  lua_pushlightuserdata(L, static_cast<Form*>(&form));
  EXPECT_NE(lua_pcall(L, 1, 0, 0), LUA_OK);
  EXPECT_STREQ(lua_tostring(L, -1), "no idea");
  EXPECT_FALSE(form.isShown());
  EXPECT_FALSE(form.accepted());
}

TEST_F(FormObjects, AFailureOfTheFormIsReportedAndTheScriptGoesOn) {
  form.cmdOK.onClick = [] { throw overflow(); };
  show("form.cmdOK:click() after = true");
  EXPECT_EQ(valueOf("after"), "true");
  EXPECT_EQ(valueOf("messages[2].kind .. messages[2].text:match('^%a+')"), "errorOverflow");
}

TEST_F(FormObjects, AnObjectThatOutlivesItsFormIsAnError) {
  auto gone = std::make_unique<dlgProbe>();
  ASSERT_EQ(run("on_form('dlgProbe', function(form) kept, box = form, form.txtDepth end)"), "");
  host.prompts.showModal(*gone);
  gone.reset();
  EXPECT_NE(run("return kept.cmdOK").find("this form is gone"), std::string::npos);
  EXPECT_NE(run("return box.text").find("the form of this control is gone"), std::string::npos);
}

TEST_F(FormObjects, AFormTellsItsCaptionAndWhetherItIsShown) {
  show(
      "kept, caption, before = form, form.caption, form.shown form.cmdOK:click() "
      "after = form.shown");
  EXPECT_EQ(valueOf("caption .. ' ' .. tostring(before) .. ' ' .. tostring(after)"),
            "Probe loaded true false");
  EXPECT_EQ(valueOf("kept.shown"), "false");
  EXPECT_EQ(valueOf("kept.caption"), "Probe loaded");
}

TEST_F(FormObjects, AFormThatKeepsItselfOpenIsStillShown) {
  form.cmdOK.onClick = [] {};
  show("form.cmdOK:click() waits = form.shown");
  EXPECT_EQ(valueOf("waits"), "true");
}

TEST_F(FormObjects, AFormThatIsGoneIsNotShown) {
  auto gone = std::make_unique<dlgProbe>();
  ASSERT_EQ(run("on_form('dlgProbe', function(form) kept = form end)"), "");
  host.prompts.showModal(*gone);
  gone.reset();
  EXPECT_EQ(valueOf("kept.shown"), "false");
  EXPECT_NE(run("return kept.caption").find("this form is gone"), std::string::npos);
}

TEST_F(FormObjects, AFormsOwnPropertiesAreOnlyRead) {
  show("_, failure = pcall(function() form.caption = 'x' end)");
  EXPECT_NE(valueOf("failure").find("dlgProbe is a form: assign to a property of one of its "
                                    "controls"),
            std::string::npos);
}

TEST_F(FormObjects, AMisspeltPropertyOfAFormIsNamed) {
  show("_, failure = pcall(function() return form.captoin end)");
  EXPECT_NE(valueOf("failure").find("dlgProbe has no control 'captoin' (did you mean 'caption'?)"),
            std::string::npos)
      << valueOf("failure");
}

TEST_F(FormObjects, AColourIsReadAndNotWritten) {
  form.lblNote.setColor(255);
  show(
      "note, own = form.lblNote.color, form.cmdOK.color "
      "_, failure = pcall(function() form.lblNote.color = 3 end)");
  EXPECT_EQ(valueOf("note .. ' ' .. tostring(own)"), "255 nil");
  EXPECT_NE(valueOf("failure").find("lblNote.color can only be read"), std::string::npos)
      << valueOf("failure");
  EXPECT_EQ(form.lblNote.color(), 255);
}

TEST_F(FormObjects, OpenFormsAreFoundByTheirNames) {
  EXPECT_EQ(valueOf("form('dlgProbe')"), "nil");
  application.interaction.forms.show(form);
  EXPECT_EQ(valueOf("form('dlgProbe').cmdOK.enabled"), "true");
  form.close();
  EXPECT_EQ(valueOf("form('dlgProbe')"), "nil");
}

TEST_F(FormObjects, AfterTheScriptNobodyAnswers) {
  ASSERT_EQ(run("on_form('dlgProbe', function(form) form.cmdOK:click() end)"), "");
  host.prompts.detach();
  host.prompts.showModal(form);
  EXPECT_FALSE(form.accepted());
  Message question;
  question.buttons = MessageButtons::YesNo;
  EXPECT_EQ(host.prompts.showMessage(question), Answer::Yes);
  EXPECT_FALSE(host.prompts.chooseFile({}));
}

}  // namespace
}  // namespace tess
