// Routines of the program as functions of Lua, each from one line: a name and a lambda. The
// lambda's parameters are the in-arguments in order, its result (or the elements of a tuple) is
// what Lua gets back. The parts of the program among the parameters cost no argument.
// Owns: Routine, setGlobal, setRoutines, runReported, Kept, Arguments, pushResult, invoke,
//       callRoutine, invokeReported, callCommand, routine, command.
#pragma once

#include <functional>
#include <optional>
#include <span>
#include <tuple>
#include <type_traits>
#include <utility>

#include "geometry/float_points.h"
#include "shell/automation/script.h"

namespace tess {

struct Routine {
  const char* name;
  lua_CFunction function;
};

// Makes the routine a global function.
void setGlobal(lua_State* L, const Routine& routine);

// Makes a table of the routines and puts it into the globals; other names in it are errors.
void setRoutines(lua_State* L, const char* table, std::span<const Routine> routines);

// Runs an entry point of the program in its error path: what fails is reported and logged.
void runReported(Script& script, const char* name, const std::function<void()>& run);

namespace lua_routines {

// What is kept of an argument until the call: a part of the program by reference, values as such.
template <typename P>
using Kept =
    std::conditional_t<std::is_const_v<std::remove_reference_t<P>>, std::remove_cvref_t<P>, P>;

// Takes the arguments of one call in their order.
class Arguments {
 public:
  Arguments(Script& script, lua_State* L) : script_(script), lua_(L) {}

  template <typename T>
  T take() {
    if constexpr (std::is_same_v<T, Script&>) {
      return script_;
    } else if constexpr (std::is_same_v<T, Application&>) {
      return script_.application;
    } else if constexpr (std::is_same_v<T, Session&>) {
      return script_.application.session;
    } else if constexpr (std::is_same_v<T, DrawingStore&>) {
      return script_.application.store;
    } else {
      return takeValue(static_cast<T*>(nullptr));
    }
  }

 private:
  template <typename T>
  T takeValue(T* /*kind*/) {
    const int at = ++taken_;
    try {
      return valueAt<T>(lua_, at);
    } catch (const RuntimeFailure& failure) {
      throw inArgument(failure, at);
    }
  }
  // An argument that may be left out at the end.
  template <typename T>
  std::optional<T> takeValue(std::optional<T>* /*kind*/) {
    if (lua_isnoneornil(lua_, taken_ + 1)) {
      ++taken_;
      return std::nullopt;
    }
    return takeValue(static_cast<T*>(nullptr));
  }
  RuntimeFailure inArgument(const RuntimeFailure& failure, int at) const;

  Script& script_;
  lua_State* lua_;
  int taken_ = 0;
};

template <typename T>
int pushResult(lua_State* L, const T& value) {
  push(L, value);
  return 1;
}
inline int pushResult(lua_State* L, const Point& point) {
  return pushResult(L, point.x) + pushResult(L, point.y);
}
inline int pushResult(lua_State* L, const PointPair& points) {
  return pushResult(L, points.first) + pushResult(L, points.second);
}
template <typename... T>
int pushResult(lua_State* L, const std::tuple<T...>& values) {
  return std::apply([L](const T&... value) { return (0 + ... + pushResult(L, value)); }, values);
}

template <typename Function, typename Result, typename... P>
Result invoke(Script& script, lua_State* L, Result (Function::*)(P...) const) {
  Arguments arguments(script, L);
  // Braces take the arguments from left to right.
  const std::tuple<Kept<P>...> taken{arguments.template take<Kept<P>>()...};
  return std::apply(Function{}, taken);
}

template <typename Function>
int callRoutine(Script& script, lua_State* L) {
  using Result = decltype(invoke(script, L, &Function::operator()));
  if constexpr (std::is_void_v<Result>) {
    invoke(script, L, &Function::operator());
    return 0;
  } else {
    const Result result = invoke(script, L, &Function::operator());
    return pushResult(L, result);
  }
}

// The arguments are taken outside of the error path, since a wrong one is the script's own error.
template <typename Function, typename Result, typename... P>
int invokeReported(Script& script, lua_State* L, const char* name,
                   Result (Function::*)(P...) const) {
  Arguments arguments(script, L);
  const std::tuple<Kept<P>...> taken{arguments.template take<Kept<P>>()...};
  if constexpr (std::is_void_v<Result>) {
    runReported(script, name, [&] { std::apply(Function{}, taken); });
    return 0;
  } else {
    Result result{};
    runReported(script, name, [&] { result = std::apply(Function{}, taken); });
    return pushResult(L, result);
  }
}

template <typename Function>
int callCommand(Script& script, lua_State* L) {
  const char* const name = lua_tostring(L, lua_upvalueindex(1));
  return invokeReported(script, L, name, &Function::operator());
}

}  // namespace lua_routines

template <typename Function>
constexpr Routine routine(const char* name, Function /*function*/) {
  return {name, guarded<lua_routines::callRoutine<Function>>};
}

// The same for a routine that ends in the error path: its failure is reported and logged, and the
// call returns normally, with empty results.
template <typename Function>
constexpr Routine command(const char* name, Function /*function*/) {
  return {name, guarded<lua_routines::callCommand<Function>>};
}

}  // namespace tess
