// What the operator's hand does in scripts: tools, keys, the pointer, and waiting.
#include "shell/automation/bindings.h"
#include "shell/automation/lua_routines.h"
#include "shell/automation/near_match.h"
#include "shell/automation/tool_files.h"
#include "shell/keys.h"

namespace tess {
namespace {

using std::string;
using std::to_string;
using Shift = std::optional<int>;

constexpr int kLongestWait = 24 * 60 * 60 * 1000;  // a day
constexpr int kMaxSteps = 1000;                    // of the wheel
constexpr std::size_t kShownText = 40;             // of a typed position, in a message

void requireAllowed(const Script& script, const std::vector<string>& files) {
  for (const string& file : files) requireAllowed(script.folders, file);
}

void clickTool(Script& script, const string& name) {
  requireAllowed(script, filesOfTool(script.application, name));
  script.hand.tool(name);
}

int toolState(Script& script, lua_State* L) {
  const Tool* const tool = script.application.interaction.tools.tool(valueAt<string>(L, 1));
  if (tool == nullptr) {
    lua_pushnil(L);
    return 1;
  }
  const auto set = [L](const char* name, const auto& value) {
    push(L, value);
    lua_setfield(L, -2, name);
  };
  lua_createtable(L, 0, 4);
  set("enabled", tool->enabled);
  set("checked", tool->checked);
  set("visible", tool->visible);
  set("caption", tool->caption);
  return 1;
}

void pressKey(Script& script, const string& name) {
  const std::optional<KeyStroke> key = keyNamed(name);
  if (!key) throw ScriptMisuse("there is no key '" + name + "'" + didYouMean(name, keyNames()));
  requireAllowed(script, filesOfKey(script.application, *key));
  script.hand.key(*key);
}

int keysHeld(Shift shift) {
  const int keys = shift.value_or(0);
  if (keys >= 0 && keys <= (kShiftKey | kControlKey)) return keys;
  throw ScriptMisuse("shift is 0, 1 for Shift, 2 for Ctrl or 3 for both, not " + to_string(keys));
}

PointerEvent eventOf(int button, float x, float y, Shift shift) {
  if (button < 0 || button > kRightButton) {
    throw ScriptMisuse("a button is 1 for left, 2 for right or 0 for none, not " +
                       to_string(button));
  }
  return {button, keysHeld(shift), x, y};
}

void turnWheel(Script& script, int steps, Shift shift) {
  if (steps < -kMaxSteps || steps > kMaxSteps) throw overflow();
  script.hand.wheel(steps, keysHeld(shift));
}

void typePosition(Script& script, const string& text) {
  if (const string trouble = script.hand.typePosition(text); !trouble.empty()) {
    throw ScriptMisuse("'" + text.substr(0, kShownText) + "': " + trouble);
  }
}

void wait(Script& script, int ms) {
  if (ms < 0 || ms > kLongestWait) {
    throw ScriptMisuse("a wait takes 0 to " + to_string(kLongestWait) + " milliseconds, not " +
                       to_string(ms));
  }
  script.hand.wait(ms);
}

const Routine kEvents[] = {
    routine("tool", [](Script& script, const string& name) { clickTool(script, name); }),
    {"tool_state", guarded<toolState>},
    routine("key", [](Script& script, const string& name) { pressKey(script, name); }),
    routine("press", [](Script& script, int button, float x, float y,
                        Shift shift) { script.hand.press(eventOf(button, x, y, shift)); }),
    routine("move", [](Script& script, int button, float x, float y,
                       Shift shift) { script.hand.move(eventOf(button, x, y, shift)); }),
    routine("release", [](Script& script, int button, float x, float y,
                          Shift shift) { script.hand.release(eventOf(button, x, y, shift)); }),
    routine("click", [](Script& script, float x, float y,
                        Shift shift) { script.hand.click(eventOf(kLeftButton, x, y, shift)); }),
    routine("rightclick",
            [](Script& script, float x, float y, Shift shift) {
              script.hand.click(eventOf(kRightButton, x, y, shift));
            }),
    routine("drag",
            [](Script& script, float x0, float y0, float x1, float y1, Shift shift) {
              script.hand.drag(eventOf(kLeftButton, x0, y0, shift), x1, y1);
            }),
    routine("wheel",
            [](Script& script, int steps, Shift shift) { turnWheel(script, steps, shift); }),
    routine("type_position",
            [](Script& script, const string& text) { typePosition(script, text); }),
    routine("wait", [](Script& script, int ms) { wait(script, ms); }),
};

}  // namespace

void bindEvents(lua_State* L) {
  for (const Routine& event : kEvents) setGlobal(L, event);
}

}  // namespace tess
