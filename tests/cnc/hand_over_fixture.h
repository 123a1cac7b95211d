// A session with other programs to hand files to, for tests.
// Owns: HandOverFixture.
#pragma once

#include <optional>
#include <string>

#include "gtest/gtest.h"

#include "cnc/copy_program.h"
#include "cnc/hand_over.h"
#include "tests/support/recording_programs.h"
#include "tests/support/recording_session.h"
#include "tests/support/temp_folder.h"

namespace tess::testing {

class HandOverFixture : public ::testing::Test {
 protected:
  RecordingPrompts& prompts() { return test.recording.prompts; }

  // The text of the only message so far; all are forgotten then.
  std::string onlyMessage() {
    EXPECT_EQ(prompts().messages.size(), 1U);
    const std::string text = prompts().messages.empty() ? "" : prompts().messages.back().text;
    prompts().messages.clear();
    return text;
  }

  TestSession test;
  TempFolder user;
  RecordingPrograms others;
  HandOver handOver{test.session, others, user("config/"), freeSpaceIn};
};

}  // namespace tess::testing
