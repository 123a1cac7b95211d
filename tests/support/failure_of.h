// The run-time failure that an action raises.
// Owns: failureOf, numberOfFailure.
#pragma once

#include "gtest/gtest.h"

#include "core/runtime_failure.h"

namespace tess::testing {

// The failure itself; the test fails when there is none.
template <typename Action>
RuntimeFailure failureOf(Action action) {
  try {
    action();
  } catch (const RuntimeFailure& failure) {
    takeCallChain();
    return failure;
  }
  ADD_FAILURE() << "nothing was raised";
  return RuntimeFailure(FailureNumber::InvalidProcedureCall);
}

template <typename Action>
FailureNumber numberOfFailure(Action action) {
  return failureOf(action).number();
}

}  // namespace tess::testing
