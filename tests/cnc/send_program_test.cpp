// Sending a file to the program that the operator has chosen.
#include "cnc/send_program.h"

#include <filesystem>
#include <unistd.h>

#include "gmock/gmock.h"

#include "cnc/dlgSendProgram.h"
#include "core/runtime_failure.h"
#include "tests/cnc/hand_over_fixture.h"
#include "tests/support/failure_of.h"
#include "tests/support/stand_in_program.h"

namespace tess {
namespace {

namespace fs = std::filesystem;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using testing::numberOfFailure;
using testing::StandInProgram;

constexpr char kFile[] = "/nc/a \"b\" 'c' $(touch x)\nd.cnc";

class SendProgram : public testing::HandOverFixture {
 protected:
  void choose(const std::string& chosen, const std::string& confirmed = "") {
    writeSendChoice(handOver, {chosen, confirmed});
  }
  SendChoice choice() { return readSendChoice(handOver); }

  StandInProgram program;
};

// ---- The record

TEST(SendChoiceText, ComesBackWhateverThePathsHold) {
  for (const std::string& path :
       {std::string("/opt/x"), std::string("/a\\b\nc\rd\te\0f", 12), std::string(" program=x "),
        std::string("\xFF\x80"), std::string()}) {
    const SendChoice choice{path, path + "\\n"};
    EXPECT_EQ(sendChoiceIn(sendChoiceText(choice)), choice);
  }
}

TEST(SendChoiceText, IsTextOfTwoLines) {
  EXPECT_EQ(sendChoiceText({"/opt/a\nb", "/opt/c"}), "program=/opt/a\\nb\r\nconfirmed=/opt/c\r\n");
}

TEST(SendChoiceText, WhatIsNoChoiceIsNone) {
  for (const char* content : {"", "/opt/x", "program", "PROGRAM=/opt/x", "\xFF\n\n=\n"}) {
    EXPECT_EQ(sendChoiceIn(content), SendChoice{}) << content;
  }
  EXPECT_EQ(sendChoiceIn("confirmed=/b\nother\nprogram=/a\\"), (SendChoice{"/a\\", "/b"}));
}

TEST_F(SendProgram, TheChoiceIsKeptForTheUserAlone) {
  EXPECT_EQ(choice(), SendChoice{});
  choose("/opt/x", "/opt/y");
  EXPECT_EQ(choice(), (SendChoice{"/opt/x", "/opt/y"}));
  EXPECT_TRUE(fs::exists(user("config/send_program")));
}

TEST_F(SendProgram, WithoutAFolderOfTheUserNothingIsKept) {
  handOver.userfolder = "";
  EXPECT_EQ(choice(), SendChoice{});
  EXPECT_EQ(numberOfFailure([this] { choose("/opt/x"); }), FailureNumber::PathNotFound);
}

// Only the system's administrator can give a file away; for anybody else it stays his own.
TEST_F(SendProgram, ARecordOfSomebodyElseIsPassedOver) {
  const SendChoice own{"/opt/x", "/opt/x"};
  choose(own.program, own.confirmed);
  const bool isGiven = ::chown(user("config/send_program").c_str(), 65534, 65534) == 0;
  EXPECT_EQ(choice(), isGiven ? SendChoice{} : own);
}

TEST_F(SendProgram, ARecordThatCannotBeReadIsReported) {
  fs::create_directories(user("config"));
  fs::create_symlink("/dev/null", user("config/send_program"));
  EXPECT_EQ(choice(), SendChoice{});
}

// ---- Sending

TEST_F(SendProgram, TheCommandIsShownTheFirstTimeAndThenNeverAgain) {
  choose(program.path());
  sendFile(handOver, "/nc/part.cnc");
  ASSERT_EQ(prompts().messages.size(), 1U);
  EXPECT_EQ(prompts().messages[0].title, "Send");
  EXPECT_EQ(prompts().messages[0].buttons, MessageButtons::OkCancel);
  EXPECT_EQ(prompts().messages[0].text,
            "This command has not been used before:\n\n" +
                commandText({program.path(), "/nc/part.cnc"}) +
                "\n\nThe program gets the file as its only argument. Start it, and from now on "
                "without this question?");
  EXPECT_THAT(others.started, ElementsAre(ElementsAre(program.path(), "/nc/part.cnc")));
  sendFile(handOver, kFile);
  EXPECT_EQ(prompts().messages.size(), 1U);
  EXPECT_THAT(others.started.back(), ElementsAre(program.path(), kFile));
}

TEST_F(SendProgram, AnotherProgramIsShownAgain) {
  choose(program.path(), "/opt/before");
  sendFile(handOver, "/nc/part.cnc");
  EXPECT_THAT(onlyMessage(),
              HasSubstr("The program that files are sent to is another one than before:"));
  EXPECT_EQ(choice(), (SendChoice{program.path(), program.path()}));
}

TEST_F(SendProgram, CancelStartsNothingAndAsksAgain) {
  choose(program.path());
  prompts().answers = {Answer::Cancel, Answer::Cancel};
  sendFile(handOver, "/nc/part.cnc");
  sendFile(handOver, "/nc/part.cnc");
  EXPECT_EQ(prompts().messages.size(), 2U);
  EXPECT_THAT(others.started, IsEmpty());
  EXPECT_EQ(choice().confirmed, "");
}

TEST_F(SendProgram, TheAnswerOfAScriptHoldsForOnce) {
  choose(program.path());
  others.operatorAsked = false;
  sendFile(handOver, "/nc/part.cnc");
  sendFile(handOver, "/nc/part.cnc");
  EXPECT_EQ(prompts().messages.size(), 2U);
  EXPECT_EQ(others.started.size(), 2U);
  EXPECT_EQ(choice().confirmed, "");
}

TEST_F(SendProgram, TheCommandIsShownWithSignsForWhatCouldNotBeSeen) {
  EXPECT_EQ(commandText({"/opt/x", kFile}),
            "\"/opt/x\" \"/nc/a \\\"b\\\" 'c' $(touch x)\\nd.cnc\"");
  EXPECT_EQ(commandText({"a\\b\x1B[2J\x7F"}), "\"a\\\\b\\x1B[2J\\x7F\"");
}

TEST_F(SendProgram, WhatCannotBeStartedIsToldInOneMessage) {
  const auto tellsOf = [this](const std::string& path, const std::string& problem) {
    choose(path, path);
    sendFile(handOver, "/nc/part.cnc");
    EXPECT_EQ(onlyMessage(),
              "The program that files are sent to " + problem + ":\n\"" + path + "\"");
  };
  user.write("plain", "#!/bin/sh\n");
  tellsOf(user("gone"), "is not there");
  tellsOf(user("config"), "is a folder");
  tellsOf(user("plain"), "cannot be executed");
  tellsOf("receiver", "is no full path");
  EXPECT_THAT(others.started, IsEmpty());
}

TEST_F(SendProgram, AStartThatFailsIsToldInOneMessage) {
  choose(program.path(), program.path());
  others.failure = RuntimeFailure(FailureNumber::PathFileAccess, program.path());
  sendFile(handOver, "/nc/part.cnc");
  EXPECT_EQ(onlyMessage(), "The program could not be started (Path/File access error):\n" +
                               commandText({program.path(), "/nc/part.cnc"}));
}

TEST_F(SendProgram, WithoutAChoiceTheOperatorIsAskedForOne) {
  prompts().onForm = [this](Form& form) {
    form.control("txtProgram")->setText(program.path());
    form.pressDefault();
  };
  sendFile(handOver, "/nc/part.cnc");
  EXPECT_THAT(prompts().formNames, ElementsAre("dlgSendProgram"));
  EXPECT_THAT(others.started, ElementsAre(ElementsAre(program.path(), "/nc/part.cnc")));
}

TEST_F(SendProgram, WhoNamesNoneSendsNothing) {
  sendFile(handOver, "/nc/part.cnc");
  EXPECT_THAT(prompts().formNames, ElementsAre("dlgSendProgram"));
  EXPECT_THAT(prompts().messages, IsEmpty());
  EXPECT_THAT(others.started, IsEmpty());
}

TEST_F(SendProgram, ARealProgramGetsTheNameAsItIs) {
  LocalPrograms local;
  const HandOver real{test.session, local, user("config/"), freeSpaceIn};
  choose(program.path());
  sendFile(real, kFile);
  EXPECT_THAT(program.arguments(), ElementsAre(kFile));
  EXPECT_EQ(choice().confirmed, program.path());
}

// ---- The choice

TEST_F(SendProgram, TheFormShowsTheChoiceAndKeepsAnotherOne) {
  choose("/opt/x", "/opt/x");
  dlgSendProgram form(handOver);
  form.open(Modality::Modal);
  EXPECT_EQ(form.caption(), "Send To");
  EXPECT_EQ(form.txtProgram.text(), "/opt/x");
  form.txtProgram.type(program.path());
  form.pressDefault();
  EXPECT_TRUE(form.accepted());
  EXPECT_EQ(choice(), (SendChoice{program.path(), "/opt/x"})) << "it is still to be agreed to";
}

TEST_F(SendProgram, TheFormTakesNoPathThatIsNoProgram) {
  dlgSendProgram form(handOver);
  form.open(Modality::Modal);
  form.txtProgram.type("receiver");
  form.pressDefault();
  EXPECT_TRUE(form.isShown());
  EXPECT_EQ(form.lblNotice.caption(), "This is no full path.");
  EXPECT_TRUE(form.txtProgram.hasFocus());
  form.txtProgram.type(user());
  EXPECT_EQ(form.lblNotice.caption(), "");
  form.pressDefault();
  EXPECT_EQ(form.lblNotice.caption(), "This is a folder.");
  EXPECT_EQ(choice(), SendChoice{});
}

TEST_F(SendProgram, AnEmptyPathIsTheWishForNone) {
  choose("/opt/x", "/opt/x");
  dlgSendProgram form(handOver);
  form.open(Modality::Modal);
  form.txtProgram.type("");
  form.pressDefault();
  EXPECT_FALSE(form.isShown());
  EXPECT_EQ(choice().program, "");
}

TEST_F(SendProgram, CancelKeepsTheChoice) {
  choose("/opt/x");
  dlgSendProgram form(handOver);
  form.open(Modality::Modal);
  form.txtProgram.type(program.path());
  form.pressCancel();
  EXPECT_EQ(choice().program, "/opt/x");
}

TEST_F(SendProgram, BrowseFillsInTheFileAndCancelChangesNothing) {
  dlgSendProgram form(handOver);
  form.open(Modality::Modal);
  form.txtProgram.type("/opt/folder/x");
  prompts().files = {std::nullopt, "/opt/y"};
  form.cmdBrowse.press();
  EXPECT_EQ(form.txtProgram.text(), "/opt/folder/x");
  form.cmdBrowse.press();
  EXPECT_EQ(form.txtProgram.text(), "/opt/y");
  ASSERT_EQ(prompts().fileRequests.size(), 2U);
  EXPECT_EQ(prompts().fileRequests[0].folder, "/opt/folder/");
  EXPECT_EQ(prompts().fileRequests[0].pattern, "All Files (*)|*");
}

}  // namespace
}  // namespace tess
