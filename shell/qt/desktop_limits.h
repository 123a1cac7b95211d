// What the toolkit needs of the limits and the scale that a process is started with.
// Owns: ProcessLimits, processLimits, troubleWith, keepUsableScale.
#pragma once

#include <cstdint>
#include <string>

namespace tess {

struct ProcessLimits {
  std::uint64_t openFiles = UINT64_MAX;
  std::uint64_t memory = UINT64_MAX;  // bytes of address space
};

// Those of this process.
ProcessLimits processLimits();

// What is too little for a window; "" when nothing is. With less the toolkit ends the process, or
// waits for ever, by itself.
std::string troubleWith(const ProcessLimits& limits);

// Takes a scale out of the environment with which the toolkit shows no whole window; to be called
// before it comes up.
void keepUsableScale();

}  // namespace tess
