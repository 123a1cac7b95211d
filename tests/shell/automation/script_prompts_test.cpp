// Message boxes, file dialogs and forms as a script sees them.
#include "shell/automation/script_prompts.h"

#include <filesystem>

#include "gtest/gtest.h"

#include "core/date_text.h"
#include "core/drawing_store.h"
#include "core/form.h"
#include "shell/automation/script_host.h"
#include "tests/support/script_run.h"

namespace tess {
namespace {

using testing::ScriptRun;

class Prompted : public ::testing::Test, protected ScriptRun {
 protected:
  // make_cnc asks this drawing the question with Yes, No and Cancel.
  static constexpr char kAsk[] = "add_path{type=1, x1=1, z=-1, feed=1} make_cnc('mill', 'x.nc') ";
};

TEST_F(Prompted, WithoutAHandlerTheFirstButtonAnswers) {
  EXPECT_EQ(outputOf(std::string(kAsk) + "for _, m in ipairs(messages) do print(m.kind, m.text "
                                         "or m.pattern, m.answer) end"),
            "message\tDrawing not saved! Save now?\tYes\n"
            "file\tDrawing Files (*.cdm)|*.cdm\tnil\n")
      << "the untitled drawing is to be saved, and its file dialog is cancelled";
}

TEST_F(Prompted, AHandlerThatReturnsNothingGivesTheFirstButton) {
  EXPECT_EQ(outputOf("on_message(function() end) " + std::string(kAsk) +
                     "print(messages[1].answer, messages[1].icon, messages[1].title)"),
            "Yes\tquestion\t\n");
}

TEST_F(Prompted, AHandlerAnswersByTheWordOnTheButton) {
  EXPECT_EQ(outputOf("on_message(function() return 'no' end) " + std::string(kAsk) +
                     "print(#messages, messages[1].answer)"),
            "1\tNo\n");
}

TEST_F(Prompted, AButtonThatTheBoxDoesNotHaveIsAnError) {
  EXPECT_EQ(errorOf("on_message(function() return 'OK' end) " + std::string(kAsk)),
            "the box \"Drawing not saved! Save now?\" has no button 'OK', only Yes, No, Cancel");
  EXPECT_FALSE(home.has("CNC/x.nc"));
}

TEST_F(Prompted, AnErrorInAHandlerIsAnErrorOfTheScript) {
  EXPECT_EQ(errorOf("on_message(function() error('no idea') end) " + std::string(kAsk)), "no idea");
  EXPECT_EQ(outputOf("on_message(function() error('no idea') end) "
                     "print(pcall(function() " +
                     std::string(kAsk) +
                     " end)) "
                     "on_message(nil) print(make_cnc('mill', 'x.nc'))"),
            "false\t" + folder("test.lua") + ":1: no idea\ntrue\n");
}

TEST_F(Prompted, AHandlerMayUseTheProgram) {
  EXPECT_EQ(outputOf("on_message(function(text) if text:find('not saved') then open('no.cdm') "
                     "return 'No' end end) " +
                     std::string(kAsk) +
                     "for _, m in ipairs(messages) do print(m.text:match('^%C+')) end"),
            "Drawing not saved! Save now?\nCouldn't revert to saved drawing.\n")
      << "in the order in which they came up";
}

TEST_F(Prompted, HandlersThatCallEachOtherForEverEndInAnError) {
  const std::string error = errorOf("on_message(function() open('no.cdm') end) open('no.cdm')");
  EXPECT_NE(error.find("C stack overflow"), std::string::npos) << error;
}

TEST_F(Prompted, AFileHandlerNamesTheFile) {
  EXPECT_EQ(
      outputOf("on_file(function(title, pattern, initial) print(title, pattern, initial) "
               "return 'named' end) " +
               std::string(kAsk) +
               "print(store.drawingname, messages[2].answer == store.drawingpath .. 'named')"),
      "Save As\tDrawing Files (*.cdm)|*.cdm\t" + home("CNC/") + "\nnamed.CDM\ttrue\n");
  EXPECT_TRUE(home.has("CNC/named.CDM"));
}

TEST_F(Prompted, AFileDialogIsAFormToAScriptThatWantsIt) {
  EXPECT_EQ(outputOf("on_form('DlgSaveFile', function(form) print(form.cmbFilter.text) "
                     "form.txtName:change('named') form.cmdOK:click() end) " +
                     std::string(kAsk) +
                     "print(store.drawingname, #messages, messages[2].kind, messages[2].title)"),
            "Drawing Files (*.cdm)\nnamed.CDM\t2\tfile\tSave As\n");
  EXPECT_TRUE(home.has("CNC/named.CDM"));
}

TEST_F(Prompted, AFileDialogListsTheFilesAndOpensOne) {
  EXPECT_EQ(outputOf("add_segment{type=1, x1=3} save('one') call.new_drawing() "
                     "on_form('dlgGetFile', function(form) print(form.lstFiles.items[1]) "
                     "form.lstFiles.index = 0 print(form.txtName.text, form.lstFiles:open()) end) "
                     "tool('miOpen') print(store.NumSegments)"),
            "one.CDM\none.CDM\ttrue\n1\n");
}

TEST_F(Prompted, AFileHandlerGoesBeforeTheForm) {
  EXPECT_EQ(outputOf("on_form('DlgSaveFile', function() print('form') end) "
                     "on_file(function() return 'named' end) " +
                     std::string(kAsk) + "print(store.drawingname)"),
            "named.CDM\n");
}

TEST_F(Prompted, AFileFormThatIsLeftOpenIsCancelled) {
  EXPECT_EQ(outputOf("on_form('DlgSaveFile', function(form) form.txtName:change('x') end) " +
                     std::string(kAsk) + "print(store.drawingname, messages[2].answer)"),
            "\tnil\n");
}

TEST_F(Prompted, AFileFormShowsNoFoldersOutsideTheScripts) {
  const testing::TempFolder elsewhere;
  elsewhere.write("secret.cdm", "");
  EXPECT_EQ(outputOf("on_form('dlgGetFile', function(form) "
                     "for _, name in ipairs{'/', '" +
                     elsewhere() + "', '" + elsewhere("secret.cdm") +
                     "'} do form.txtName:change(name) form.cmdOK:click() "
                     "print(form.lblNotice.caption) end "
                     "form.lstFolders.index = 0 form.lstFolders:open() "
                     "print(form.lstFolders.text, form.lblNotice.caption) end) tool('miOpen') "
                     "print(messages[1].answer)"),
            "There is no such folder.\nThere is no such folder.\nThere is no such folder.\n"
            "..\tThere is no such folder.\nnil\n");
}

TEST_F(Prompted, AFileFormFollowsNoLinkOutOfTheScriptsFolders) {
  const testing::TempFolder elsewhere;
  elsewhere.write("secret.cdm", "");
  std::filesystem::create_symlink(elsewhere("secret.cdm"), home("CNC/link.cdm"));
  const std::string error = errorOf(
      "on_form('dlgGetFile', function(form) form.txtName:change('link.cdm') "
      "form.cmdOK:click() end) tool('miOpen')");
  EXPECT_NE(error.find("is outside the folders that this script may use"), std::string::npos)
      << error;
}

TEST_F(Prompted, ALayoutIsReplacedOnlyAfterAYes) {
  constexpr char kSave[] =
      "on_file(function() return 'my.tb3' end) tool('miSaveLayoutAs') print(#messages) "
      "on_message(function(text) print(text) return answer end) "
      "for _, word in ipairs{'No', 'Cancel', 'Yes'} do answer = word tool('miSaveLayoutAs') end";
  job.folders.push_back(home());
  EXPECT_EQ(outputOf(kSave),
            "1\nFile already exists! Overwrite?\nFile already exists! Overwrite?\n"
            "File already exists! Overwrite?\n");
  EXPECT_TRUE(home.has("my.tb3"));
}

TEST_F(Prompted, OnlyFunctionsAreHandlers) {
  EXPECT_EQ(errorOf("on_message('Yes')"), "a handler is a function or nil, not a string");
  EXPECT_EQ(errorOf("on_file({})"), "a handler is a function or nil, not a table");
}

TEST_F(Prompted, UnknownEntriesOfASetupAreMessages) {
  home.write("test.msu", "main color = 1\r\n" + home.read("test.msu"));
  EXPECT_EQ(outputOf("print(#messages, messages[1].text)"),
            "1\tUnknown setup file entry: \nmain color = 1\n\nPress OK to continue loading.\n" +
                home("test.msu") + " line 1 field 1\n");
}

class LonelyState : public ::testing::Test {
 protected:
  LonelyState() { host.prompts.attach(state.get()); }

  std::string evaluate(const std::string& expression) {
    luaL_dostring(state.get(), ("return " + expression).c_str());
    std::string text = luaL_tolstring(state.get(), -1, nullptr);
    lua_settop(state.get(), 0);
    return text;
  }

  AllowedFolders folders;
  VirtualTimers timers;
  VirtualClock clock{timers};
  QuietSurroundings surroundings;
  ScriptHost host{folders, clock, surroundings};
  LuaState state;
};

TEST_F(LonelyState, AModalFormIsCancelled) {
  class dlgProbe : public Form {
   public:
    dlgProbe() : Form("dlgProbe", "Probe") {
      setCancelButton(cmdCancel);
      cmdCancel.onClick = [this] {
        cancelled = true;
        close();
      };
    }
    Button cmdCancel{*this, "cmdCancel"};
    bool cancelled = false;
  } form;
  host.prompts.showModal(form);
  EXPECT_TRUE(form.cancelled);
  EXPECT_FALSE(form.isShown());
  EXPECT_EQ(evaluate("messages[1].kind .. ' ' .. messages[1].text .. ' ' .. messages[1].title"),
            "form dlgProbe Probe");
}

TEST_F(LonelyState, AFormThatRefusesToCancelIsRecordedAllTheSame) {
  Form form("frmPlain", "Plain");
  host.prompts.showModal(form);
  EXPECT_FALSE(form.isShown());
  EXPECT_FALSE(form.accepted());
  EXPECT_EQ(evaluate("#messages"), "1");
}

TEST(VirtualClock, MovesWithTheTimersAlone) {
  VirtualTimers timers;
  VirtualClock clock(timers);
  const DateTime before = clock.now();
  EXPECT_EQ(clock.elapsedMilliseconds(), 0);
  timers.advance(std::int64_t{86400000} * 400);
  EXPECT_EQ(clock.elapsedMilliseconds(), 86400000.0 * 400);
  EXPECT_GE(clock.now().year, before.year + 1);
}

TEST(VirtualClock, TellsTheDateThatItWasGivenHoweverLongItRuns) {
  VirtualTimers timers;
  VirtualClock clock(timers, momentIn("2026-03-09T14:05:07"));
  timers.advance(std::int64_t{86400000} * 400);
  EXPECT_EQ(clock.elapsedMilliseconds(), 86400000.0 * 400);
  EXPECT_EQ(dateText(clock.now()) + " " + timeText(clock.now()), "03/09/2026 14:05:07");
}

}  // namespace
}  // namespace tess
