// What a script sees of the program's questions, and how its answers come back.
#include "shell/automation/script_prompts.h"

#include <algorithm>

#include "core/form.h"
#include "core/text.h"
#include "core/version.h"
#include "shell/automation/lua_values.h"
#include "shell/automation/message_buttons.h"
#include "shell/automation/script.h"

namespace tess {
namespace {

// Slots that a question needs beside those of the function that asked.
constexpr int kStackSlots = 12;

void setField(lua_State* L, const char* name, std::string_view value) {
  push(L, value);
  lua_setfield(L, -2, name);
}

void pushButtons(lua_State* L, MessageButtons buttons) {
  lua_newtable(L);
  lua_Integer place = 0;
  for (const Answer answer : buttonsOf(buttons)) {
    push(L, wordOf(answer));
    lua_rawseti(L, -2, ++place);
  }
}

std::string wordsOf(MessageButtons buttons) {
  std::string words;
  for (const Answer answer : buttonsOf(buttons)) {
    words.append(words.empty() ? "" : ", ").append(wordOf(answer));
  }
  return words;
}

bool isSet(int handler) {
  return handler != LUA_NOREF && handler != LUA_REFNIL;
}

}  // namespace

void ScriptPrompts::attach(lua_State* L) {
  L_ = L;
  lua_newtable(L);
  lua_pushvalue(L, -1);
  messages_ = luaL_ref(L, LUA_REGISTRYINDEX);
  lua_setglobal(L, "messages");
}

void ScriptPrompts::takeHandler(int& handler) {
  luaL_unref(L_, LUA_REGISTRYINDEX, handler);
  handler = luaL_ref(L_, LUA_REGISTRYINDEX);
}

// Starts the entry of a question, which is then on top of the stack, before anybody answers: a
// handler may bring up further questions, and they come later in the list.
void ScriptPrompts::record(const char* kind, const std::string& title) {
  luaL_checkstack(L_, kStackSlots, nullptr);
  lua_rawgeti(L_, LUA_REGISTRYINDEX, messages_);
  lua_newtable(L_);
  setField(L_, "kind", kind);
  setField(L_, "title", title);
  lua_pushvalue(L_, -1);
  lua_rawseti(L_, -3, luaL_len(L_, -3) + 1);
  lua_remove(L_, -2);
}

Answer ScriptPrompts::show(const Message& message, const char* kind) {
  record(kind, message.title);
  setField(L_, "text", message.text);
  setField(L_, "icon", iconWord(message.icon));
  pushButtons(L_, message.buttons);
  lua_setfield(L_, -2, "buttons");
  const Answer answer = isSet(messageHandler_) ? askHandler(message) : firstButton(message.buttons);
  setField(L_, "answer", wordOf(answer));
  lua_pop(L_, 1);
  return answer;
}

Answer ScriptPrompts::askHandler(const Message& message) {
  lua_rawgeti(L_, LUA_REGISTRYINDEX, messageHandler_);
  push(L_, message.text);
  push(L_, message.title);
  pushButtons(L_, message.buttons);
  lua_call(L_, 3, 1);
  const auto choices = buttonsOf(message.buttons);
  if (lua_isnil(L_, -1)) {
    lua_pop(L_, 1);
    return choices.front();
  }
  const std::string given = luaL_tolstring(L_, -1, nullptr);
  lua_pop(L_, 2);
  const auto chosen = std::find_if(choices.begin(), choices.end(), [&](Answer answer) {
    return equalIgnoringCase(wordOf(answer), given);
  });
  if (chosen == choices.end()) {
    raise(L_, "the box \"" + message.text + "\" has no button '" + given + "', only " +
                  wordsOf(message.buttons));
  }
  return *chosen;
}

std::optional<std::string> ScriptPrompts::chooseFile(const FileRequest& request) {
  record("file", request.title);
  const std::string initial = request.folder + request.name;
  setField(L_, "pattern", request.pattern);
  setField(L_, "initial", initial);
  std::optional<std::string> chosen;
  if (isSet(fileHandler_)) chosen = askFileHandler(request, initial);
  if (chosen) setField(L_, "answer", *chosen);
  lua_pop(L_, 1);
  return chosen;
}

std::optional<std::string> ScriptPrompts::askFileHandler(const FileRequest& request,
                                                         const std::string& initial) {
  lua_rawgeti(L_, LUA_REGISTRYINDEX, fileHandler_);
  push(L_, request.title);
  push(L_, request.pattern);
  push(L_, initial);
  lua_call(L_, 3, 1);
  std::optional<std::string> chosen;
  if (!lua_isnil(L_, -1)) chosen = valueAt<std::string>(L_, -1);
  lua_pop(L_, 1);
  if (!chosen) return chosen;
  // A bare name means the folder that the dialog shows.
  const std::string name(trimmed(*chosen));
  const bool bare = name.find_first_of("\\/:") == std::string::npos;
  const std::string path = bare ? request.folder + name : name;
  if (const auto refusal = folders_.refusal(path)) raise(L_, *refusal);
  return path;
}

void ScriptPrompts::showModal(Form& form) {
  record("form", form.caption());
  setField(L_, "text", form.name());
  lua_pop(L_, 1);
  form.open(Modality::Modal);
  form.pressCancel();
  if (form.isShown()) form.close();
}

void ScriptPrompts::showReport(const std::string& report) {
  show({.text = report, .title = kProductName, .icon = MessageIcon::Error}, "error");
}

}  // namespace tess
