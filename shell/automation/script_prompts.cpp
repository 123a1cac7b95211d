// What a script sees of the program's questions, and how its answers come back.
#include "shell/automation/script_prompts.h"

#include <algorithm>

#include "core/form.h"
#include "core/text.h"
#include "core/version.h"
#include "shell/automation/form_objects.h"
#include "shell/automation/lua_values.h"
#include "shell/automation/message_buttons.h"
#include "shell/automation/script.h"
#include "shell/automation/text_charges.h"

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

void cancel(Form& form) {
  const Form::Life life = form.life();
  if (form.isShown()) form.pressCancel();
  if (!life.expired() && form.isShown()) form.close();
}

void runUnattended(Form& form) {
  form.open(Modality::Modal);
  cancel(form);
}

}  // namespace

void ScriptPrompts::attach(lua_State* L) {
  lua_ = L;
  lua_newtable(L);
  lua_pushvalue(L, -1);
  messages_ = luaL_ref(L, LUA_REGISTRYINDEX);
  lua_setglobal(L, "messages");
}

void ScriptPrompts::detach() {
  lua_ = nullptr;
}

void ScriptPrompts::setFormHandler(const std::string& form) {
  const auto handler = formHandlers_.try_emplace(form, LUA_NOREF).first;
  takeHandler(handler->second);
  if (!isSet(handler->second)) formHandlers_.erase(handler);
}

void ScriptPrompts::takeHandler(int& handler) {
  luaL_unref(lua_, LUA_REGISTRYINDEX, handler);
  handler = luaL_ref(lua_, LUA_REGISTRYINDEX);
}

// Starts the entry of a question, which is then on top of the stack, before anybody answers: a
// handler may bring up further questions, and they come later in the list.
void ScriptPrompts::record(const char* kind, const std::string& title) {
  luaL_checkstack(lua_, kStackSlots, nullptr);
  lua_rawgeti(lua_, LUA_REGISTRYINDEX, messages_);
  lua_newtable(lua_);
  setField(lua_, "kind", kind);
  setField(lua_, "title", title);
  lua_pushvalue(lua_, -1);
  lua_rawseti(lua_, -3, luaL_len(lua_, -3) + 1);
  lua_remove(lua_, -2);
}

Answer ScriptPrompts::show(const Message& message, const char* kind) {
  if (lua_ == nullptr) return firstButton(message.buttons);
  record(kind, message.title);
  setField(lua_, "text", message.text);
  setField(lua_, "icon", iconWord(message.icon));
  pushButtons(lua_, message.buttons);
  lua_setfield(lua_, -2, "buttons");
  const Answer answer = isSet(messageHandler_) ? askHandler(message) : firstButton(message.buttons);
  setField(lua_, "answer", wordOf(answer));
  lua_pop(lua_, 1);
  if (stage != nullptr) stage->answered(message, answer);
  return answer;
}

Answer ScriptPrompts::askHandler(const Message& message) {
  lua_rawgeti(lua_, LUA_REGISTRYINDEX, messageHandler_);
  push(lua_, message.text);
  push(lua_, message.title);
  pushButtons(lua_, message.buttons);
  lua_call(lua_, 3, 1);
  const auto choices = buttonsOf(message.buttons);
  if (lua_isnil(lua_, -1)) {
    lua_pop(lua_, 1);
    return choices.front();
  }
  const std::string given = luaL_tolstring(lua_, -1, nullptr);
  lua_pop(lua_, 2);
  const auto chosen = std::find_if(choices.begin(), choices.end(), [&](Answer answer) {
    return equalIgnoringCase(wordOf(answer), given);
  });
  if (chosen == choices.end()) {
    raise(lua_, "the box \"" + message.text + "\" has no button '" + given + "', only " +
                    wordsOf(message.buttons));
  }
  return *chosen;
}

std::optional<std::string> ScriptPrompts::chooseFile(const FileRequest& request) {
  if (lua_ == nullptr) return std::nullopt;
  record("file", request.title);
  const std::string initial = request.folder + request.name;
  setField(lua_, "pattern", request.pattern);
  setField(lua_, "initial", initial);
  const std::optional<std::string> chosen =
      isSet(fileHandler_) ? askFileHandler(request, initial) : askFormHandler(request);
  if (chosen) setField(lua_, "answer", *chosen);
  lua_pop(lua_, 1);
  return chosen;
}

std::optional<std::string> ScriptPrompts::askFileHandler(const FileRequest& request,
                                                         const std::string& initial) {
  lua_rawgeti(lua_, LUA_REGISTRYINDEX, fileHandler_);
  push(lua_, request.title);
  push(lua_, request.pattern);
  push(lua_, initial);
  lua_call(lua_, 3, 1);
  std::optional<std::string> chosen;
  if (!lua_isnil(lua_, -1)) chosen = valueAt<std::string>(lua_, -1);
  lua_pop(lua_, 1);
  if (!chosen) return chosen;
  if (chosen->size() > kLongestPath) raise(lua_, kTooLongPath);
  // A bare name means the folder that the dialog shows.
  const std::string name(trimmed(*chosen));
  const bool bare = name.find_first_of("\\/:") == std::string::npos;
  const std::string path = bare ? request.folder + name : name;
  requireAllowed(request, path);
  showAnswer(request, path);
  return path;
}

// The dialog as a form, in which the script finds no more than its file commands reach.
std::optional<std::string> ScriptPrompts::askFormHandler(const FileRequest& request) {
  const std::unique_ptr<FileDialog> dialog = fileDialogFor(request);
  if (!hasFormHandler(*dialog)) return std::nullopt;
  dialog->mayEnter = [this](const std::string& folder) { return !folders_.refusal(folder); };
  const std::shared_ptr<void> shown = showing(*dialog);
  dialog->open(Modality::Modal);
  workForm(*dialog);
  if (!dialog->chosen()) return std::nullopt;
  requireAllowed(request, *dialog->chosen());
  return dialog->chosen();
}

// For who watches: the dialog with the name in it, as an operator would have left it.
void ScriptPrompts::showAnswer(const FileRequest& request, const std::string& answer) {
  const std::unique_ptr<FileDialog> dialog = fileDialogFor(request);
  dialog->txtName.setText(answer);
  const std::shared_ptr<void> shown = showing(*dialog);
  if (shown == nullptr) return;
  dialog->open(Modality::Modal);
  stage->shown();
}

void ScriptPrompts::showModal(Form& form) {
  if (lua_ == nullptr) return runUnattended(form);
  record("form", form.caption());
  setField(lua_, "text", form.name());
  const std::shared_ptr<void> shown = showing(form);
  form.open(Modality::Modal);
  setField(lua_, "title", form.caption());
  lua_pop(lua_, 1);
  workForm(form);
}

std::shared_ptr<void> ScriptPrompts::showing(Form& form) {
  return stage != nullptr ? stage->showing(form) : nullptr;
}

void ScriptPrompts::requireAllowed(const FileRequest& request, const std::string& path) const {
  const auto refusal = request.forSaving ? folders_.refusal(path) : folders_.refusalToRead(path);
  if (refusal) raise(lua_, *refusal);
}

// A form that its handler has not closed is cancelled; so is one whose handler failed.
void ScriptPrompts::workForm(Form& form) {
  const Form::Life life = form.life();
  try {
    if (stage != nullptr && form.isShown()) stage->shown();
    if (form.isShown()) askFormHandler(form);
  } catch (...) {
    if (!life.expired()) form.close();
    throw;
  }
  if (!life.expired()) cancel(form);
}

void ScriptPrompts::askFormHandler(Form& form) {
  const auto handler = formHandlers_.find(form.name());
  if (handler == formHandlers_.end()) return;
  luaL_checkstack(lua_, kStackSlots, nullptr);
  lua_rawgeti(lua_, LUA_REGISTRYINDEX, handler->second);
  pushForm(lua_, form);
  lua_call(lua_, 1, 0);
}

void ScriptPrompts::showReport(const std::string& report) {
  show({.text = report, .title = kProductName, .icon = MessageIcon::Error}, "error");
}

}  // namespace tess
