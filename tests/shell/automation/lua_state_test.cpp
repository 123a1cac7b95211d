// The interpreter of scripts, apart from what the program gives to them.
#include "shell/automation/lua_state.h"

#include <clocale>
#include <string>

#include "gtest/gtest.h"

namespace tess {
namespace {

// A toolkit takes over the locale of its user, whose numbers may have a comma.
TEST(LuaState, BringsThePlainDecimalPointBack) {
  ASSERT_NE(std::setlocale(LC_NUMERIC, "C.UTF-8"), nullptr);
  const LuaState state{LuaLimits{}};
  EXPECT_EQ(std::string(std::setlocale(LC_NUMERIC, nullptr)), "C");
}

}  // namespace
}  // namespace tess
