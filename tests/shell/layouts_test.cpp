// Layouts in files.
#include "shell/layouts.h"

#include "gtest/gtest.h"

#include "tests/support/running_program.h"

namespace tess {
namespace {

struct Layouts : ::testing::Test {
  void answer(Answer answer) {
    program.platform.prompts.answers = {answer};
    program.platform.prompts.files = {program.home("MY.TB3")};
  }

  testing::RunningProgram program;
};

TEST_F(Layouts, AFileIsReplacedOnlyAfterAYes) {
  program.home.write("MY.TB3", "mine");
  for (const Answer refusal : {Answer::No, Answer::Cancel}) {
    answer(refusal);
    SaveLayoutAs(program.application);
    EXPECT_EQ(program.home.read("MY.TB3"), "mine");
  }
  answer(Answer::Yes);
  SaveLayoutAs(program.application);
  EXPECT_EQ(program.home.read("MY.TB3"), program.tools().layoutText());
  ASSERT_EQ(program.platform.prompts.messages.size(), 3U);
  EXPECT_EQ(program.platform.prompts.messages[0].text, "File already exists! Overwrite?");
  EXPECT_EQ(program.platform.prompts.messages[0].buttons, MessageButtons::YesNoCancel);
  EXPECT_EQ(program.platform.prompts.fileRequests[0].title, "Save Layout");
}

TEST_F(Layouts, AFileOfAnotherKindIsToldOfByItsName) {
  program.home.write("MY.TB3", "no layout");
  const std::string before = program.tools().layoutText();
  answer(Answer::Ok);
  miLoadLayout_Click(program.application);
  ASSERT_EQ(program.platform.prompts.messages.size(), 1U);
  EXPECT_EQ(program.platform.prompts.messages[0].text,
            program.home("MY.TB3") + "\nis not a layout file.");
  EXPECT_EQ(program.platform.prompts.fileRequests[0].title, "Load Layout");
  EXPECT_EQ(program.tools().layoutText(), before);
}

}  // namespace
}  // namespace tess
