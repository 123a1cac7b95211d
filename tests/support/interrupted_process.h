// Runs a piece of work in a process of its own and strikes at one of its system calls: the process
// dies there, dies in the middle of a write, the call fails, or the test does something first.
// Owns: Interruption, interruptedAt, interleavedAt, InterruptedWork, pointsWithin.
#pragma once

#include <functional>

namespace tess::testing {

enum class Interruption {
  Killed,            // before the call
  KilledInMidWrite,  // once half of a write is done; counts writes alone
  NoSpace,           // ENOSPC; counts calls on files alone
  InputOutputError,  // EIO; likewise
};

// Runs `work` with the interruption at its call number `call`, from 1. False when the work ended
// before it came to that call. What the work throws ends it. Raises std::runtime_error when the
// process cannot be watched.
bool interruptedAt(int call, Interruption how, const std::function<void()>& work);

// Runs `work`, and `meanwhile` in this process just before the call number `call`, from 1. False
// when the work ended before it came to that call.
bool interleavedAt(int call, const std::function<void()>& meanwhile,
                   const std::function<void()>& work);

struct InterruptedWork {
  std::function<void()> prepare;  // before each attempt, in this process
  std::function<void()> work;
  std::function<void()> check;  // after each attempt that was interrupted, in this process
};

// Interrupts the work at one call after the other until it comes through. The number of points.
int pointsWithin(Interruption how, const InterruptedWork& interrupted);

}  // namespace tess::testing
