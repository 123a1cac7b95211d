// Message boxes, file dialogs and forms as a script sees them.
#include "shell/automation/script_prompts.h"

#include "gtest/gtest.h"

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

TEST_F(Prompted, OnlyFunctionsAreHandlers) {
  EXPECT_EQ(errorOf("on_message('Yes')"), "a handler is a function or nil, not a string");
  EXPECT_EQ(errorOf("on_file({})"), "a handler is a function or nil, not a table");
}

TEST_F(Prompted, UnknownEntriesOfASetupAreMessages) {
  home.write("test.msu", home.read("test.msu") + "main color = 1\r\n");
  EXPECT_EQ(outputOf("print(#messages, messages[1].text)"),
            "1\tUnknown setup file entry: \nmain color = 1\n\nPress OK to continue loading.\n");
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

}  // namespace
}  // namespace tess
