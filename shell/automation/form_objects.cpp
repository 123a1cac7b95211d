// The objects of forms, control arrays and controls.
#include "shell/automation/form_objects.h"

#include <algorithm>
#include <new>
#include <optional>
#include <string>
#include <utility>
#include <variant>
#include <vector>

#include "core/controls.h"
#include "shell/automation/near_match.h"
#include "shell/automation/script.h"
#include "shell/automation/text_charges.h"

namespace tess {
namespace {

using std::string;

constexpr int kSelf = 1;
constexpr int kKey = 2;
constexpr int kValue = 3;

// What each of the objects holds. The form tells when its controls are gone.
struct FormObject {
  static constexpr char kName[] = "form";
  static constexpr char kGone[] = "this form";
  Form* form;
  Form::Life life;
};

struct ArrayObject {
  static constexpr char kName[] = "control array";
  static constexpr char kGone[] = "the form of this control array";
  Form* form;
  Form::Life life;
  string name;
};

struct ControlObject {
  static constexpr char kName[] = "control";
  static constexpr char kGone[] = "the form of this control";
  Control* control;
  Form::Life life;
};

template <typename Object>
int destroy(lua_State* L) {
  static_cast<Object*>(lua_touserdata(L, kSelf))->~Object();
  return 0;
}

template <typename Object>
void pushMetatable(lua_State* L);

template <typename Object>
void pushObject(lua_State* L, Object object) {
  new (lua_newuserdatauv(L, sizeof(Object), 0)) Object(std::move(object));
  pushMetatable<Object>(L);
  lua_setmetatable(L, -2);
}

template <typename Object>
Object& heldSelf(lua_State* L) {
  auto* const object = static_cast<Object*>(luaL_testudata(L, kSelf, Object::kName));
  if (object == nullptr) raise(L, string("a ") + Object::kName + " stands in front of the colon");
  return *object;
}

template <typename Object>
Object& selfAs(lua_State* L) {
  auto* const object = &heldSelf<Object>(L);
  if (object->life.expired()) raise(L, string(Object::kGone) + " is gone");
  return *object;
}

string keyText(lua_State* L) {
  string key = luaL_tolstring(L, kKey, nullptr);
  lua_pop(L, 1);
  return key;
}

// "OptCutWidth[2]", or the bare name.
string nameOf(const Control& control) {
  const auto index = control.arrayIndex();
  return index ? control.name() + "[" + std::to_string(*index) + "]" : control.name();
}

// ---- Controls

struct PushValue {
  lua_State* L;
  void operator()(double number) const {
    lua_Integer whole = 0;
    if (lua_numbertointeger(number, &whole) && static_cast<double>(whole) == number) {
      lua_pushinteger(L, whole);
    } else {
      push(L, number);
    }
  }
  void operator()(const std::vector<string>& texts) const {
    lua_createtable(L, static_cast<int>(texts.size()), 0);
    lua_Integer place = 0;
    for (const string& text : texts) {
      push(L, text);
      lua_rawseti(L, -2, ++place);
    }
  }
  template <typename T>
  void operator()(const T& value) const {
    push(L, value);
  }
};

void requireShowable(std::size_t bytes) {
  if (bytes <= kLongestControlText) return;
  throw ScriptMisuse("a control takes no more than " + std::to_string(kLongestControlText) +
                     " bytes of text");
}

string textAt(lua_State* L, int at) {
  string text = valueAt<string>(L, at);
  requireShowable(text.size());
  return text;
}

std::vector<string> textsAt(lua_State* L, int at) {
  std::vector<string> texts;
  std::size_t bytes = 0;
  for (lua_Integer place = 1; place <= luaL_len(L, at); ++place) {
    lua_geti(L, at, place);
    texts.push_back(textAt(L, -1));
    bytes += sizeof(string) + texts.back().size();
    requireShowable(bytes);
    lua_pop(L, 1);
  }
  return texts;
}

PropertyValue propertyAt(lua_State* L, int at) {
  switch (lua_type(L, at)) {
    case LUA_TBOOLEAN:
      return lua_toboolean(L, at) != 0;
    case LUA_TNUMBER:
      return valueAt<double>(L, at);
    case LUA_TTABLE:
      return textsAt(L, at);
    default:
      return textAt(L, at);
  }
}

// Runs what an operator does to a control as the entry point that it is, and tells whether the
// control was in reach.
int actOn(Script& script, lua_State* L, const char* event, bool (*act)(Control&)) {
  Control& control = *selfAs<ControlObject>(L).control;
  const string entry = control.form().name() + "." + control.name() + "_" + event + "()";
  bool reached = false;
  script.host.reporting.guarded(entry, [&] { reached = act(control); });
  script.hand.controlWorked();
  push(L, reached);
  return 1;
}

int click(Script& script, lua_State* L) {
  return actOn(script, L, "Click", [](Control& control) { return control.press(); });
}

int focus(Script& script, lua_State* L) {
  return actOn(script, L, "GotFocus", [](Control& control) { return control.focus(); });
}

int leave(Script& script, lua_State* L) {
  return actOn(script, L, "LostFocus", [](Control& control) { return control.leave(); });
}

int open(Script& script, lua_State* L) {
  const Control& control = *selfAs<ControlObject>(L).control;
  if (control.kind() == ControlKind::List) {
    return actOn(script, L, "DblClick",
                 [](Control& list) { return static_cast<ListBox&>(list).open(); });
  }
  if (control.kind() != ControlKind::Combo) raise(L, nameOf(control) + " opens nothing");
  return actOn(script, L, "DropDown",
               [](Control& combo) { return static_cast<ComboBox&>(combo).open(); });
}

int change(Script& script, lua_State* L) {
  Control& control = *selfAs<ControlObject>(L).control;
  const string text = textAt(L, kKey);
  bool typed = false;
  const auto type = [&] {
    if (auto* const box = dynamic_cast<TextBox*>(&control)) typed = box->type(text);
    if (auto* const combo = dynamic_cast<ComboBox*>(&control)) typed = combo->type(text);
  };
  if (control.kind() != ControlKind::TextBox && control.kind() != ControlKind::Combo) {
    raise(L, nameOf(control) + " takes no text");
  }
  script.host.reporting.guarded(control.form().name() + "." + control.name() + "_Change()", type);
  script.hand.controlWorked();
  push(L, typed);
  return 1;
}

struct Method {
  const char* name;
  lua_CFunction function;
};

constexpr Method kMethods[] = {{"click", guarded<click>},
                               {"focus", guarded<focus>},
                               {"leave", guarded<leave>},
                               {"change", guarded<change>},
                               {"open", guarded<open>}};

const Method* methodNamed(const string& key) {
  const auto* const found = std::find_if(std::begin(kMethods), std::end(kMethods),
                                         [&](const Method& method) { return key == method.name; });
  return found == std::end(kMethods) ? nullptr : found;
}

// The colour of a control's text, which a script only reads.
constexpr char kColor[] = "color";

bool hasProperty(const Control& control, const string& key) {
  const std::vector<string> names = control.properties();
  return std::find(names.begin(), names.end(), key) != names.end();
}

[[noreturn]] void raiseUnknownProperty(lua_State* L, const Control& control, const string& key) {
  std::vector<string> names = control.properties();
  names.emplace_back(kColor);
  for (const Method& method : kMethods) names.emplace_back(method.name);
  raise(L, nameOf(control) + " has no '" + key + "'" + didYouMean(key, names));
}

// Nil while the colour is the toolkit's own.
void pushColor(lua_State* L, const Control& control) {
  if (const std::optional<int> color = control.color()) {
    push(L, *color);
  } else {
    lua_pushnil(L);
  }
}

int readControl(Script& /*script*/, lua_State* L) {
  const Control& control = *selfAs<ControlObject>(L).control;
  const string key = keyText(L);
  if (const Method* const method = methodNamed(key)) {
    lua_pushcfunction(L, method->function);
  } else if (key == kColor) {
    pushColor(L, control);
  } else if (hasProperty(control, key)) {
    std::visit(PushValue{L}, control.get(key));
  } else {
    raiseUnknownProperty(L, control, key);
  }
  return 1;
}

int writeControl(Script& script, lua_State* L) {
  Control& control = *selfAs<ControlObject>(L).control;
  const string key = keyText(L);
  if (key == kColor) raise(L, nameOf(control) + "." + kColor + " can only be read");
  if (!hasProperty(control, key)) raiseUnknownProperty(L, control, key);
  control.set(key, propertyAt(L, kValue));
  script.hand.controlWorked();
  return 0;
}

int describeControl(Script& /*script*/, lua_State* L) {
  push(L, nameOf(*selfAs<ControlObject>(L).control));
  return 1;
}

// ---- Control arrays

int readArray(Script& /*script*/, lua_State* L) {
  const ArrayObject& array = selfAs<ArrayObject>(L);
  Control* const control = array.form->control(array.name, indexAt(L, kKey));
  if (control == nullptr) throw subscriptOutOfRange();
  pushObject(L, ControlObject{control, array.life});
  return 1;
}

int writeArray(Script& /*script*/, lua_State* L) {
  raise(L, selfAs<ArrayObject>(L).name + " is a control array: assign to a property of a member");
}

int countArray(Script& /*script*/, lua_State* L) {
  const ArrayObject& array = selfAs<ArrayObject>(L);
  push(L, static_cast<int>(array.form->arrayIndices(array.name).size()));
  return 1;
}

// ---- Forms

constexpr char kShown[] = "shown";
constexpr char kCaption[] = "caption";

// Also of a form that is gone: so one that has closed itself can be told from one that waits.
bool isShown(const FormObject& object) {
  return !object.life.expired() && object.form->isShown();
}

[[noreturn]] void raiseUnknownControl(lua_State* L, const Form& form, const string& key) {
  std::vector<string> names = form.controlNames();
  names.insert(names.end(), {kShown, kCaption});
  raise(L, form.name() + " has no control '" + key + "'" + didYouMean(key, names));
}

int readForm(Script& /*script*/, lua_State* L) {
  const string key = keyText(L);
  if (key == kShown) {
    push(L, isShown(heldSelf<FormObject>(L)));
    return 1;
  }
  const FormObject& object = selfAs<FormObject>(L);
  const Form& form = *object.form;
  if (key == kCaption) {
    push(L, form.caption());
  } else if (Control* const control = form.control(key)) {
    pushObject(L, ControlObject{control, object.life});
  } else if (!form.arrayIndices(key).empty()) {
    pushObject(L, ArrayObject{object.form, object.life, key});
  } else {
    raiseUnknownControl(L, form, key);
  }
  return 1;
}

int writeForm(Script& /*script*/, lua_State* L) {
  const Form& form = *selfAs<FormObject>(L).form;
  raise(L, form.name() + " is a form: assign to a property of one of its controls");
}

// One step through the names of a form's controls, in the order of the form.
int nextControl(Script& /*script*/, lua_State* L) {
  const lua_Integer place = lua_tointeger(L, lua_upvalueindex(2)) + 1;
  lua_pushinteger(L, place);
  lua_replace(L, lua_upvalueindex(2));
  if (lua_geti(L, lua_upvalueindex(1), place) == LUA_TNIL) return 1;
  lua_pushvalue(L, -1);
  lua_gettable(L, kSelf);
  return 2;
}

int pairsOfForm(Script& /*script*/, lua_State* L) {
  PushValue{L}(selfAs<FormObject>(L).form->controlNames());
  lua_pushinteger(L, 0);
  lua_pushcclosure(L, guarded<nextControl>, 2);
  lua_pushvalue(L, kSelf);
  return 2;
}

int describeForm(Script& /*script*/, lua_State* L) {
  push(L, selfAs<FormObject>(L).form->name());
  return 1;
}

// ---- Metatables

template <typename Object>
constexpr Method kEvents[] = {{nullptr, nullptr}};
template <>
constexpr Method kEvents<FormObject>[] = {{"__index", guarded<readForm>},
                                          {"__newindex", guarded<writeForm>},
                                          {"__pairs", guarded<pairsOfForm>},
                                          {"__tostring", guarded<describeForm>}};
template <>
constexpr Method kEvents<ArrayObject>[] = {{"__index", guarded<readArray>},
                                           {"__newindex", guarded<writeArray>},
                                           {"__len", guarded<countArray>}};
template <>
constexpr Method kEvents<ControlObject>[] = {{"__index", guarded<readControl>},
                                             {"__newindex", guarded<writeControl>},
                                             {"__tostring", guarded<describeControl>}};

template <typename Object>
void pushMetatable(lua_State* L) {
  if (luaL_newmetatable(L, Object::kName) == 0) return;
  for (const Method& event : kEvents<Object>) {
    lua_pushcfunction(L, event.function);
    lua_setfield(L, -2, event.name);
  }
  lua_pushcfunction(L, destroy<Object>);
  lua_setfield(L, -2, "__gc");
  lua_pushboolean(L, 0);
  lua_setfield(L, -2, "__metatable");
}

}  // namespace

void pushForm(lua_State* L, Form& form) {
  pushObject(L, FormObject{&form, form.life()});
}

}  // namespace tess
